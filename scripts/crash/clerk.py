"""A clerk: what is done at the desk in a random mix, each action made of what the shop's files hold at that moment.

An action begins and ends with the customer list in front. One of its requests confirms it; what that posts is there whole or not at all.
"""
from shop_check import Shop

INSTRUMENTS = ("Nakit", "Kredi Kartı", "Çek", "Senet")
PASSWORD = "sifre"  # of the customer menu
WALK_IN = "Muhtelif Müşteri"
ITEMS = 10  # rows of the stock list that are in view
LINES = 4  # rows of the day book that are in view
# Names with these would be read as something else in a search.
UNSEARCHABLE = set("'*?#[]!")


class Action:
    """What is done, and how one sees that it was: `seen` is a query of the files, `told` what it answers afterwards."""

    def __init__(self, kind, before, confirm, after=(), seen=None, told=None, wipes=()):
        self.kind = kind
        self.before = list(before)
        self.confirm = confirm
        self.after = list(after)
        self.seen = seen
        self.told = told
        self.wipes = set(wipes)  # ids whose rows may stay behind without their partners


def tap(element):
    return {"do": "click", "at": element}


def double(element):
    return {"do": "dblclick", "at": element}


def put(element, value):
    return {"do": "set", "at": element, "value": value}


def row(grid, number, twice=False):
    return {"do": "row", "at": grid, "row": number, "column": 1, "dblclick": twice}


def typed(number):
    return f"{number:.2f}".replace(".", ",")


class Clerk:
    """Works at one desk from its start on, so it knows what the buttons say."""

    def __init__(self, home, chance):
        self.shop = Shop(home)
        self.chance = chance
        self.instrument = INSTRUMENTS[0]
        self.prints = True
        self.today = ""

    def next(self, minute):
        """The next action, at a minute of the year."""
        kinds = {self.sell: 34, self.collect: 16, self.collect_at_once: 8, self.pay: 8, self.correct: 9, self.cancel: 12, self.receive: 9,
                 self.open_card: 5, self.wipe: 3, self.delete_card: 2, self.tick_lines: 7, self.invoice: 12}
        day, time = divmod(minute, 8 * 60)
        now = f"2026-{3 + day // 28:02}-{1 + day % 28:02}T{9 + time // 60:02}:{time % 60:02}:00"
        self.today = now[:10]
        with_what = None
        while with_what is None:
            kind = self.chance.choices(list(kinds), list(kinds.values()))[0]
            with_what = kind()
        with_what.before.insert(0, {"do": "clock", "now": now})
        return with_what

    # What the files hold.

    def ask(self, name, sql, *values):
        connection = self.shop.open(name)
        try:
            return connection.execute(sql, values).fetchall()
        finally:
            connection.close()

    def customers(self, group="<>'Toptan'"):
        found = self.ask("Cari.mdb", f"""SELECT CariKod, Unvan FROM CariKartlar k WHERE Gurup {group} AND HesKullan = 0 AND Gurup <> 'plasiyer' AND CariKod NOT LIKE '=%'
                         AND CariKod <> 'Merkez' AND (SELECT count(*) FROM CariKartlar o WHERE o.Unvan = k.Unvan) = 1""")
        return [one for one in found if not UNSEARCHABLE & set(one[1])]

    def lines(self, code):
        """The lines in view, newest first; those that stand at the same moment are in no certain order."""
        lines = self.ask("Karvel.mdb", "SELECT DigerId, Durum, yeni, Tarih, Tutar FROM Datam WHERE CariKod = ? ORDER BY Tarih DESC", code)
        moments = [line[3] for line in lines]
        return [(i, line) for i, line in enumerate(lines[:LINES]) if line[0] and moments.count(line[3]) == 1]

    def count(self, table, code):
        return ("Karvel.mdb", f"SELECT count(*) FROM {table} WHERE CariKod = ?", code)

    def one_more_line(self, code):
        seen = self.count("Datam", code)
        return {"seen": seen, "told": self.ask(*seen)[0][0] + 1}

    # The clerk's hands.

    def all_customers(self, name):
        # Chosen anew, so that the list is that of the group whatever was done in it.
        return [put("GurupCombo", "Toptan"), put("GurupCombo", "Tüm Guruplar"), put("Text1(0)", name)]

    def serve(self, name):
        return self.all_customers(name) + [double("Label1(0)")]

    def leave(self):
        # An item tapped makes a sale of it again; the next one begins with it.
        return [row("StokGrid", 0), double("Label1(0)")]

    def wholesaler(self, name):
        return [put("GurupCombo", "Tüm Guruplar"), put("GurupCombo", "Toptan"), put("Text1(0)", name)]

    def pay_with(self, instrument):
        steps = (INSTRUMENTS.index(instrument) - INSTRUMENTS.index(self.instrument)) % len(INSTRUMENTS)
        self.instrument = instrument
        return [tap("Label3")] * steps

    def only(self, name):
        """The list narrowed to a customer, so that a press in the middle of it changes nothing."""
        return [put("GurupCombo", "Toptan"), put("GurupCombo", "Tüm Guruplar"), put("Text5", name), put("Text1(0)", name)]

    # The actions. Nothing where the shop has nothing for it.

    def sell(self):
        code, name = self.chance.choice(self.customers())
        mode = self.chance.choices(("Satış", "İade", "Alış"), (6, 2, 2))[0]
        before = self.serve(name) + [row("StokGrid", self.chance.randrange(ITEMS))]
        before += [double("Label4")] * ("Satış", "İade", "Alış").index(mode)
        if self.chance.random() < 0.2:
            before.append(double("Label1(2)"))
        if self.chance.random() < 0.4:
            before.append(put("Text2(0)", typed(self.chance.uniform(1, 300))))
        before.append(put("Text2(1)", str(self.chance.randint(1, 5))))
        return Action(mode, before, tap("Command2"), self.leave(), **self.one_more_line(code))

    def collect(self):
        code, name = self.chance.choice(self.customers())
        before = self.all_customers(name) + self.pay_with(self.chance.choice(INSTRUMENTS)) + [put("Text2(2)", self.amount(code))]
        return Action("Tahsilat", before, tap("Command2"), **self.one_more_line(code))

    def pay(self):
        code, name = self.chance.choice(self.customers("= 'Toptan'"))
        before = self.wholesaler(name) + self.pay_with(self.chance.choice(INSTRUMENTS)) + [put("Text2(2)", self.amount(code))]
        return Action("Ödeme", before, tap("Command2"), **self.one_more_line(code))

    def amount(self, code):
        """Now and then all that is open, which also ends the due dates."""
        balance = self.ask("Cari.mdb", "SELECT Bakiye FROM CariKartlar WHERE CariKod = ?", code)[0][0]
        return typed(balance if balance and self.chance.random() < 0.3 else self.chance.uniform(5, 900))

    def collect_at_once(self):
        # What he is owed would be booked to his favour again, and double each time until its kuruş are lost.
        if not self.ask("Cari.mdb", "SELECT 1 FROM CariKartlar WHERE CariKod = ? AND Hesap = 'Borç' AND Bakiye > 0", WALK_IN):
            return None
        before = self.serve(WALK_IN) + [tap("Command1")]
        if self.chance.random() < 0.5:
            button = self.chance.randrange(2)
            before.append(tap(f"Command8({button})"))
            self.instrument = INSTRUMENTS[button]
        else:
            before += self.pay_with(self.chance.choice(INSTRUMENTS))
        if self.prints:
            before.append(tap("Command9"))
            self.prints = False
        return Action("Peşin", before, tap("Command7(1)"), self.leave(), **self.one_more_line(WALK_IN))

    def some_line(self, fits):
        people = self.customers("<> ''")
        self.chance.shuffle(people)
        for code, name in people:
            lines = [(number, line) for number, line in self.lines(code) if fits(line)]
            if lines:
                return (name, *self.chance.choice(lines))
        return None

    def correct(self):
        found = self.some_line(lambda line: line[1] == "Satış" and line[2] == 1)
        if not found:
            return None
        name, number, line = found
        quantity = self.chance.randint(1, 9) + 0.5
        before = self.serve(name) + [row("HareketGrid", number, True), tap("Command3"), put("Text2(0)", typed(self.chance.uniform(1, 300))),
                                     put("Text2(1)", typed(quantity))]
        return Action("Düzeltme", before, tap("Command2"), self.leave(),
                      ("Karvel.mdb", "SELECT Miktar FROM Datam WHERE DigerId = ?", line[0]), quantity)

    def cancel(self):
        found = self.some_line(lambda line: True)
        name, number, line = found
        before = self.serve(name) + [row("HareketGrid", number), {"do": "answer", "with": "Yes"}]
        # A second time wipes a cancelled line.
        states = "'Iptal'" if line[1] != "Iptal" else "''"
        return Action("Satır Sil", before, tap("Command2"), self.leave(),
                      ("Karvel.mdb", f"SELECT count(*) FROM Datam WHERE DigerId = ? AND Durum <> {states}", line[0]), 0)

    def receive(self):
        code, name = self.chance.choice(self.customers("= 'Toptan'"))
        before = self.wholesaler(name) + [put("StokChk", True)]
        items = [one[0] for one in self.ask("Stok.mdb", "SELECT StokAdi FROM StokKartlar WHERE StokGizle = 0") if not UNSEARCHABLE & set(one[0])]
        known = self.chance.random() < 0.6
        item = self.chance.choice(items) if known else f"Yeni Ürün {len(items):05}"
        before += [put("Text6(0)", item), {"do": "key", "key": "Enter"}]
        if not known:
            before.append(put("Text6(5)", f"99{len(items):05}"))
        before += [put("Text6(1)", typed(self.chance.uniform(1, 200))), put("Text6(2)", typed(self.chance.uniform(1, 300))),
                   put("Text6(3)", str(self.chance.randint(1, 40))), put("Text6(4)", "8")]
        return Action("Stok Girişi", before, tap("StokAlCmd(1)"), [tap("StokAlCmd(0)")], **self.one_more_line(code))

    def open_card(self):
        number = 1 + self.ask("Cari.mdb", "SELECT coalesce(max(CAST(substr(CariKod, 2) AS INTEGER)), 0) FROM CariKartlar WHERE CariKod LIKE 'y%'")[0][0]
        code = f"y{number:05}"
        before = self.all_customers(f"Yeni Müşteri {number:05}") + [{"do": "key", "key": "Enter"}, put("CariNew(0)", code), put("CariNew(7)", "0216"),
                                                                    put("CariChk", self.chance.random() < 0.2)]
        return Action("Müşteri Kayıt", before, tap("CariNewCmd(1)"), (), ("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod = ?", code), 1)

    def buyers_of_today(self, ticked):
        """Who bought something today that stands on no invoice, all of it ticked for one or not. No more than fits on one."""
        found = dict(self.ask("Karvel.mdb", """SELECT CariKod, sum(Sec = 'X') = count(*) FROM Datam WHERE Durum = 'Satış' AND Aciklama = '' AND Tarih LIKE ?
                              GROUP BY CariKod HAVING count(*) <= 15""", self.today + "%"))
        return [one for one in self.customers() if found.get(one[0]) == ticked]

    def tick_lines(self):
        people = self.buyers_of_today(0)
        if not people:
            return None
        code, name = self.chance.choice(people)
        return Action("Fatura Aç", self.all_customers(name), tap("Command4"), [tap("FatCmd(0)")],
                      ("Karvel.mdb", "SELECT count(*) FROM Datam WHERE CariKod = ? AND Durum = 'Satış' AND Aciklama = '' AND Tarih LIKE ? AND Sec = ''", code,
                       self.today + "%"), 0)

    def invoice(self):
        """Of lines that are ticked already: the opening of the panel then changes nothing."""
        people = self.buyers_of_today(1)
        if not people:
            return None
        code, name = self.chance.choice(people)
        seen = ("Fatura.mdb", "SELECT count(*) FROM Faturalar WHERE FatCari = ?", code)
        return Action("Fatura", self.all_customers(name) + [tap("Command4")], tap("FatCmd(1)"), (), seen, self.ask(*seen)[0][0] + 1)

    def menu(self, name):
        return self.only(name) + [{"do": "answer", "with": PASSWORD}, {"do": "rightclick", "at": "CariGrid"}]

    def wipe(self):
        rich = {one[0] for one in self.ask("Cari.mdb", "SELECT DISTINCT cariharkod FROM CariHareket")}
        people = [one for one in self.customers() if one[0] in rich]
        if not people:
            return None
        code, name = self.chance.choice(people)
        ids = {one[0] for one in self.ask("Karvel.mdb", "SELECT DigerId FROM Datam WHERE CariKod = ?", code)}
        ids |= {one[0] for one in self.ask("Cari.mdb", "SELECT DigerId FROM CariHareket WHERE cariharkod = ?", code)}
        return Action("Hareketleri Sil", self.menu(name), tap("CarSil"), [put("Text5", "")],
                      ("Cari.mdb", "SELECT count(*) FROM CariHareket WHERE cariharkod = ?", code), 0, ids)

    def delete_card(self):
        rich = {one[0] for one in self.ask("Cari.mdb", "SELECT DISTINCT cariharkod FROM CariHareket")}
        people = [one for one in self.customers() if one[0] not in rich and one[0].startswith("y")]
        if not people:
            return None
        code, name = self.chance.choice(people)
        return Action("Kartı Sil", self.menu(name) + [{"do": "answer", "with": "Yes"}], tap("CarSil"), [put("Text5", "")],
                      ("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod = ?", code), 0)
