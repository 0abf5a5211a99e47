"""A sale at the desk: from the double tap that begins it to the one that ends it, with the day book's lines and the collection at once."""
from types import SimpleNamespace

from lists import ALL_GROUPS, WALK_IN, WHOLESALE, of_group, on_sale, standard
from shop_model import CANCELLED
from texts import ZERO, begins, number, plain, same, shown

INSTRUMENTS = ("Nakit", "Kredi Kartı", "Çek", "Senet")
MODES = ("Satış", "İade", "Alış")
PRICES = ("1.Fiyat", "2.Fiyat", "3.Fiyat", "Özel")


class Sale:
    # Entering and leaving a sale.

    def double_tap_sale(self):
        if self.selling:
            self.leave_sale()
        else:
            wholesale = self.base is of_group(WHOLESALE)
            if self.focus == "Text1(0)":
                self.leave_name()
            if wholesale:
                self.leave_wholesalers()
            else:
                self.enter_sale()

    def leave_wholesalers(self):
        self.put(2, "0")
        self.group = ALL_GROUPS
        self.base = self.customers.chosen = standard
        self.customers.order = ("Unvan", False)
        self.customers.read()
        self.follow()
        self.shown.discard("Vadefrm")
        self.text["Text1(0)"] = ""
        self.text["Label1(0)"] = " Müşteri"

    def enter_sale(self):
        self.put(2, "0")
        self.slip = ""
        card = self.named()
        if card is None:
            return
        self.bring_named(card)
        self.selling = True
        self.sold_to = card["CariKod"]
        self.shown.add("Frame2")
        self.show_lines_of(card["CariKod"])
        self.text["Label5"] = self.day_total()
        self.text.update({"Label8": card["Unvan"], "Label4": "Satış", "Label1(0)": " Müşteri", "Label1(7)": "Bakiye"})
        self.text["Command1"] = "Tahsilat" if WALK_IN in card["Unvan"] else "Yazdır"
        self.put(3, "0")
        self.items.read()
        self.goods = self.items.front is not None
        if self.text["Label1(1)"] == " Barkod":
            self.text["Text1(1)"] = ""
            self.put(1, "0")
            self.focus_item()
        else:
            self.bring_item("0")
            self.focus = "StokGrid"
        self.tamam()

    def leave_sale(self):
        self.selling = False
        self.shown.discard("Frame2")
        narrowed = self.customers.chosen is not self.base
        if self.text["Text5"]:
            self.filter_items("")
        for index in (1, 2, 3):
            self.put(index, "0")
        self.edited = None
        self.text.update({"Command3": "Çıkış", "Label4": "Satış", "Label1(7)": "Bakiye", "Text5": ""})
        self.text["Label1(0)"] = " Toptan" if self.base is of_group(WHOLESALE) else " Satış"
        self.tamam()
        if narrowed:
            self.base = self.filtered_base()
            self.customers.order = ("Unvan", False)
        self.customers.chosen = self.base
        if narrowed:
            self.follow()
        else:
            self.follow_without_notice()
        self.text["Command1"] = "Yazdır"

    def day_total(self):
        """The customer's unpaid sales of the day, by his name; nothing while he has no line at all."""
        if not self.lines.rows():
            return shown(ZERO)
        return shown(sum((row["Tutar"] for row in self.of_day(self.shop.tables["Datam"], str(self.now.date()))
                          if same(row["CariAd"], self.text["Text1(0)"]) and row["Durum"] == "Satış" and row["Tahsilat"] == 0), ZERO))

    @staticmethod
    def of_day(rows, day):
        return [row for row in rows if row["Tarih"][:10] == day]

    # The item in front.

    def own_card(self):
        return self.shop.card(self.sold_to)

    def work_out_prices(self):
        item = self.items.front
        self.slots = [item["Fiyat"], item["Fiyat2"], item["Fiyat3"], ZERO]
        own = self.shop.own_prices(self.own_card(), item) if self.own_card() else None
        if own:
            self.slots[3] = own["0Fiyat"]
            self.slots[1] = own["1Fiyat"] or self.slots[1]
            self.slots[2] = own["2Fiyat"] or self.slots[2]

    def bring_item(self, quantity=None):
        """The item in front with its first price."""
        item = self.items.front
        self.text["Label1(2)"] = "1.Fiyat"
        if item is None:
            self.text["Text1(1)"] = ""
            self.slots = [ZERO] * 4
        else:
            self.work_out_prices()
            self.text["Text1(1)"] = item["StokAdi"]
            self.put(0, shown(self.discounted(self.slots[0])))
        if quantity is not None:
            self.put(1, quantity)

    def discounted(self, price):
        return price - price * self.amount(3) / 100

    def filter_items(self, start):
        self.text["Text5"] = start
        self.items.chosen = lambda row: on_sale(row) and begins(row["StokAdi"], start)
        self.items.order = ("StokAdi", False)
        self.items.read()
        self.bring_item("0")

    def tap_item(self, row):
        self.items.front = row
        self.edited = None
        self.text.update({"Command3": "Çıkış", "Label4": "Satış", "Label1(7)": "Bakiye", "Label5": shown(self.own_card()["Bakiye"])})
        self.bring_item("1")
        self.tamam()

    def write_item(self, typed):
        self.focus_item()
        for end in range(1, len(typed) + 1):
            found = self.items.find(lambda row: begins(row["StokAdi"], typed[:end]))
            if found:
                self.bring_item()
            else:
                self.text["Text1(1)"] = typed[0].upper() + typed[1:end]

    def read_code(self, code):
        """Enter in the field of the item, or a code that was scanned; where scans post, it is sold at once."""
        if self.enter_code(code) and self.scans_post:
            self.put(1, "1")
            self.post()

    def enter_code(self, typed):
        listed = self.items.chosen
        found = self.find_item(lambda row: same(row["Barkod"], typed))
        quantity = "1" if found else None  # of one that isn't a barcode's it stays as it was
        found = found or self.find_item(lambda row: same(row["StokKod"], typed))
        if not found:
            serial = next((row for row in self.shop.tables["SeriNo"] if same(row["barcode"], typed)), None)
            found = serial and self.find_item(lambda row: same(row["StokKod"], serial["StokKod"]))
            if found:
                self.serial = serial["barcode"]
        if found:
            quantity = "1" if self.items.chosen is not listed else quantity
            self.text["Command3"] = "Çıkış"
            self.edited = None
            self.bring_item(quantity)
            self.tamam()
            self.focus = "Text2(1)"
        else:
            self.focus = "Text1(1)"
            self.text["Text1(1)"] = ""
            self.put(0, "0")
        return found

    def find_item(self, fits):
        """In the list, else among all items, which are listed then."""
        found = self.items.find(fits) or self.whole_items.find(lambda row: on_sale(row) and fits(row))
        if found and not self.items.chosen(found):
            self.items.chosen, self.items.order = on_sale, ("StokAdi", False)
            self.items.front = found
        return found

    def step_codes(self):
        self.text["Label1(1)"] = " Barkod" if self.text["Label1(1)"] == " Ürün" else " Ürün"
        self.text["Text1(1)"] = ""
        self.focus_item()

    def focus_item(self):
        """The field of the item gets the focus. Where names are written it isn't left empty then."""
        if self.focus != "Text1(1)" and not self.text["Text1(1)"] and self.text["Label1(1)"] == " Ürün" and self.items.front is not None:
            self.text["Text1(1)"] = self.items.front["StokAdi"]
            if self.amount(0) == 0:
                self.bring_item()
        self.focus = "Text1(1)"

    def step_price(self):
        if not self.text["Text1(1)"]:
            return
        step = (PRICES.index(self.text["Label1(2)"]) + 1) % 4
        if self.slots[step] == 0:
            step = 3 if self.slots[3] else 0
        self.focus = "Text2(0)"
        self.text["Label1(2)"] = PRICES[step]
        self.put(0, shown(self.slots[step]))

    def step_mode(self):
        self.text["Label4"] = MODES[(MODES.index(self.text["Label4"]) + 1) % 3]
        self.focus = "StokGrid"
        self.lines.order = ("Tarih", False)
        self.lines.read()
        self.text["Label5"] = self.sum_of_day()

    def sum_of_day(self):
        """All of the customer's lines of the day."""
        return shown(sum((row["Tutar"] for row in self.of_day(self.lines.rows(), str(self.now.date()))), ZERO))

    # The main button.

    def post(self, answer="Yes"):
        if self.text["Command2"] == "Satır Sil":
            self.enabled["Command2"] = False
            if answer == "Yes":
                self.cancel_line()
        elif self.text["Command3"] == "Düzeltme":
            self.correct_line()
        elif not self.selling:
            self.take_payment()
        else:
            self.sell()

    def sell(self):
        card, item = self.own_card(), self.items.front
        if item is None or not same(self.text["Text1(1)"], item["StokAdi"]):
            self.focus_item()
            return
        if self.amount(1) == 0:
            return
        self.slip = self.slip or self.shop.next_slip()
        salesmen = self.group if self.groups_of == "Cari" and self.group != ALL_GROUPS else ""
        line = SimpleNamespace(card=card, item=item, mode=self.text["Label4"], price_name=self.text["Label1(2)"], price=self.amount(0), quantity=self.amount(1),
                               total=number(self.text["Label2"]), slip=self.slip, serial=self.serial, salesmen=salesmen)
        self.last_id = self.shop.sell(self.place(), line)
        self.lines.read()
        self.text["Label5"] = shown(card["Bakiye"])
        self.text["Label1(2)"] = "1.Fiyat"
        self.put(1, "0")
        self.put(0, plain(self.slots[0]))
        self.focus = "StokGrid" if self.text["Label1(1)"] == " Ürün" else "Text1(1)"

    def miss_name(self):
        """Nobody is named, or several are: the focus goes there, and an empty field takes the name in front."""
        if not self.text["Text1(0)"] and self.customers.front:
            self.follow()
        self.focus = "Text1(0)"

    def take_payment(self):
        card = self.named()
        if card is None:
            self.miss_name()
        if card is None or self.amount(2) == 0:
            return
        self.bring_named(card)
        self.last_id = self.shop.move_money(self.place(), card, self.text["Text1(0)"], self.text["Label3"], self.text["Label1(5)"] == " Ödeme", self.amount(2))
        self.put(2, "0")
        self.tamam()
        self.follow()

    def tap_line(self, row, twice=False):
        self.lines.bring(row)
        self.text.update({"Command2": "Satır Sil", "Label1(7)": "Fiş Top.", "Label5": self.day_total()})
        self.enabled["Command2"] = not (row["Durum"] == CANCELLED and self.deleting)
        if self.deleting:
            self.load_line(row)
        if twice and row["yeni"] == 1 and self.text["Label4"] == "Satış":
            self.text["Command3"] = "Düzeltme"

    def load_line(self, row):
        if self.text["Label4"] == "İade":
            self.items.find(lambda item: same(item["StokKod"], row["StokKod"]))
            self.text["Text1(1)"] = row["StokAd"]
            self.put(0, plain(row["Fiyat"]))
            self.put(1, plain(row["Miktar"]))
        elif self.items.find(lambda item: same(item["StokKod"], row["StokKod"])):
            self.bring_item("1")
            self.put(0, shown(row["Fiyat"]))

    def begin_correction(self):
        row = self.lines.front
        self.edited, self.edited_seen = row, dict(row)
        if self.items.find(lambda item: same(item["StokKod"], row["StokKod"])):
            self.bring_item()
        if row["StokKod"]:
            self.put(0, shown(row["Fiyat"]))
            self.put(1, plain(row["Miktar"]))
        self.text["Command2"] = "Tamam"
        self.enabled["Command2"] &= self.amount(1) + self.amount(2) != 0

    def correct_line(self):
        if self.amount(1) == 0:
            self.enabled["Command2"] = False
            return
        if not self.is_as_seen(self.edited, self.edited_seen):
            self.text["Command3"] = "Çıkış"
            self.edited = None
            self.lines.read()
            self.bring_item("0")
            return
        line_id = self.edited["DigerId"]
        self.shop.correct(line_id, self.sold_to, self.amount(0), self.amount(1), number(self.text["Label2"]))
        self.text["Command3"] = "Çıkış"
        self.lines.bring(self.edited)
        self.edited = None
        self.items.find(lambda item: same(item["StokKod"], self.lines.front["StokKod"]))
        self.bring_item("0")

    def is_as_seen(self, line, seen):
        """Another terminal may have cancelled the line since it was tapped."""
        return any(line is row for row in self.shop.tables["Datam"]) and line["Durum"] == seen["Durum"]

    def cancel_line(self):
        if not self.is_as_seen(self.lines.front, self.lines.seen):
            self.lines.read()
            return
        self.shop.cancel(self.lines.front["DigerId"], self.last_id)
        self.lines.read()
        self.text["Label1(7)"] = "Bakiye"
        self.text["Label5"] = shown(self.own_card()["Bakiye"])

    def take_day_total(self):
        """A double tap on the balance: the day of the line in front is the payment."""
        line = self.lines.front
        if line is None:
            return
        total = shown(sum((row["Tutar"] for row in self.of_day(self.shop.tables["Datam"], line["Tarih"][:10])
                           if same(row["CariKod"], line["CariKod"]) and row["Durum"] == "Satış"), ZERO))
        self.text["Label5"] = total
        self.put(2, total)

    # The collection panel.

    def collect(self):
        card = self.own_card() if self.selling else self.named()
        if card and self.text["Command1"] == "Tahsilat" and card["Bakiye"] != 0:
            self.put(2, plain(card["Bakiye"]))
            self.shown.add("TahsilatFrame")

    def next_instrument(self):
        self.text["Label3"] = INSTRUMENTS[(INSTRUMENTS.index(self.text["Label3"]) + 1) % 4]

    def choose_instrument(self, index):
        self.text["Label3"] = INSTRUMENTS[index]

    def confirm_collection(self):
        card = self.own_card() if self.selling else self.named()
        self.text["Label1(5)"] = " Tahsilat"
        item, due = self.items.front if self.selling else None, self.first_due(card)
        self.last_id = self.shop.move_money(self.place(), card, self.text["Text1(0)"], self.text["Label3"], False, self.amount(2), item)
        if self.slip and any(same(row["CariKod"], card["CariKod"]) and row["SeriNo"] == self.slip for row in self.shop.tables["Datam"]):
            self.slip = ""  # it is printed, and the next line begins another
        self.shown.discard("TahsilatFrame")
        self.put(2, "0")
        self.tamam()
        self.lines.order = ("Tarih", True)  # the customer comes in front anew, with his newest line
        self.lines.read()
        self.text["Label5"] = shown(card["Bakiye"])
        # In a sale the notice is that of before the due dates were paid.
        self.tell_due_date(card, due if self.selling else self.first_due(card))

    def leave_collection(self):
        self.shown.discard("TahsilatFrame")
