"""The shop's books once more, as plainly as their rules can be told: every table, every row and field, without a store.

Numbers are decimals, so nothing is lost in them. A row is a dictionary; the rows of a table stand in the order in which they were written.
"""
import os
import sqlite3
from decimal import Decimal

from texts import ZERO, lower, rounded, same

TABLES = {"Cari.mdb": ("CariKartlar", "CariHareket", "VadeGün", "Cari"), "Stok.mdb": ("StokKartlar", "StokHareket"), "Karvel.mdb": ("Datam",),
          "SeriNo.mdb": ("SeriNo",), "Fatura.mdb": ("Faturalar", "FatHareket"), "Index.mdb": ("Tarih", "Mdbindex")}
ACCOUNTS = {"Kredi Kartı": "=150", "Senet": "=500", "Çek": "=600"}  # anything else is cash
CASH = "=100"
CANCELLED = "Iptal"
INVOICED = "=110"


class Stores:
    """The tables as they lie in the files."""

    def __init__(self, home):
        folder = os.path.join(home, "C", "KarvelData")
        self.files = {name: sqlite3.connect(os.path.join(folder, name), isolation_level=None) for name in TABLES}
        self.read = {}  # by file: its version, its tables

    def tables(self):
        """Every table's rows in the order of their age. A file that nobody wrote since is not read again."""
        everything = {}
        for name, connection in self.files.items():
            version = connection.execute("PRAGMA data_version").fetchone()[0]
            if self.read.get(name, (None,))[0] != version:
                self.read[name] = (version, {table: self.rows(connection, table) for table in TABLES[name]})
            everything.update(self.read[name][1])
        return everything

    @staticmethod
    def rows(connection, table):
        found = connection.execute(f'SELECT * FROM "{table}" ORDER BY rowid')
        columns = [column[0] for column in found.description]
        return [dict(zip(columns, row)) for row in found]

    def columns(self, table):
        """A new row of the table."""
        for name, tables in TABLES.items():
            if table in tables:
                empty = {"REAL": ZERO, "INTEGER": 0}
                return {row[1]: empty.get(row[2], "") for row in self.files[name].execute(f'PRAGMA table_info("{table}")')}
        raise KeyError(table)

    def close(self):
        for connection in self.files.values():
            connection.close()


def as_decimals(row):
    return {column: Decimal(repr(value)) if isinstance(value, float) else value for column, value in row.items()}


def as_stored(row):
    return {column: float(value) if isinstance(value, Decimal) else value for column, value in row.items()}


def balance(card):
    """The side on which an account stands, and by how much; never negative."""
    difference = card["Alacak"] - card["Borc"]
    card["Bakiye"] = rounded(abs(difference))
    card["Hesap"] = "Alacak" if difference > 0 else "Borç"


def stock_balance(card):
    difference = card["CikanMik"] - card["GirenMik"]
    card["KalanA"] = rounded(max(difference, ZERO), 3)
    card["KalanB"] = rounded(max(-difference, ZERO), 3)


def profit(total, quantity, cost):
    return max(ZERO, rounded(total - rounded(quantity * cost, 6), 6))


def stamp(now):
    return now.strftime("%Y-%m-%d %H:%M:%S")


def midnight(now):
    return now.strftime("%Y-%m-%d 00:00:00")


class Shop:
    def __init__(self, stores):
        self.tables = {table: [as_decimals(row) for row in rows] for table, rows in stores.tables().items()}
        self.blank = {table: stores.columns(table) for table in self.tables}
        self.slip = 0  # the last number of a slip

    # Cards and rows.

    def add(self, table, **fields):
        row = dict(self.blank[table])
        for column in fields:
            assert column in row, column
        row.update(fields)
        self.tables[table].append(row)
        return row

    def remove(self, table, row):
        self.tables[table] = [one for one in self.tables[table] if one is not row]

    def first(self, table, **fields):
        for row in self.tables[table]:
            if all(row[column] == value for column, value in fields.items()):
                return row
        return None

    def card(self, code):
        return next((row for row in self.tables["CariKartlar"] if same(row["CariKod"], code)), None)

    def item(self, code):
        return next((row for row in self.tables["StokKartlar"] if same(row["StokKod"], code)), None)

    def due(self, code):
        """What a customer has to pay, the earliest first."""
        return sorted((row for row in self.tables["VadeGün"] if same(row["CariKod"], code)), key=lambda row: row["VadeTarih"])

    def lower_due(self, row, amount):
        row["Tutar"] -= amount
        if row["Tutar"] == 0:
            self.remove("VadeGün", row)

    def next_id(self, terminal, now):
        """The terminal's digits, then the year's running number padded to ten."""
        year = str(now.year)
        if not self.first("Tarih", Tarih=year):
            self.add("Tarih", Tarih=year)
        counter = self.first("Mdbindex", Tarih=year)
        if not counter:
            counter = self.add("Mdbindex", Tarih=year, Indexi=year[-2:] + "1", Serino=year[-2:] + "0")
        else:
            counter["Indexi"] = counter["Indexi"][:2] + str(int(counter["Indexi"][2:]) + 1)
        return f"{terminal}{counter['Indexi']:0>10}"

    def next_slip(self):
        self.slip += 1
        return f"{self.slip:06}"

    # Postings. `place` knows the terminal and the moment.

    def sell(self, place, line):
        """A line of goods in one of the three modes. Answers its id."""
        card, item, mode, total = line.card, line.item, line.mode, line.total
        back, sale = mode == "İade", mode == "Satış"
        if not back:
            self.agree_on_price(card, item, line)
            today = midnight(place.now)
            row = next((row for row in self.due(card["CariKod"]) if row["VadeTarih"] == today), None)
            row = row or self.add("VadeGün", CariKod=card["CariKod"], VadeTarih=today)
            row["Tutar"] += total
        line_id = self.next_id(place.terminal, place.now)
        second = line.price_name == "2.Fiyat"
        quantity = line.quantity * item["Adet2"] if second and item["Adet2"] else line.quantity
        unit = item["Birim2"] if second else item["Birim"]
        gain = ZERO if back or not item["Maliyet"] else profit(total, quantity, item["gFiyat"])
        tag = f"WinKarvel{place.terminal:02}"
        self.add("StokHareket", StokHarKod=item["StokKod"], Tarih=midnight(place.now), Aciklama=f"{item['StokAdi']} {mode} İle", Tutar=total, Birim=unit,
                 Miktar=quantity, Fiyat=line.price, GirisCikis=mode, Carisi=card["CariKod"], DigerId=line_id, Nerde="C", SatTar=midnight(place.now),
                 StokAd=item["StokAdi"], Unvan=card["Unvan"], Barkod=item["Barkod"], Maliyet=item["gFiyat"], SeriNo=line.serial, Gurup=item["Gurup"],
                 yeni=Decimal(1), Plasiyer=line.salesmen if line.salesmen and not back else tag, tGurup=tag, Kar=gain)
        tag = f"WinKarvel{place.terminal - 1}"
        self.add("Datam", CariKod=card["CariKod"], StokKod=item["StokKod"], CariAd=card["Unvan"], StokAd=item["StokAdi"], Fiyat=line.price, Miktar=quantity,
                 Tutar=total, Tarih=stamp(place.now), DigerId=line_id, Birim=unit, yeni=Decimal(1), Durum=mode, Gurup=item["Gurup"], Plasiyer=tag, tGurup=tag,
                 SeriNo=line.slip, Kar=gain)
        count, sum_ = ("CikanMik", "CikanTutar") if sale else ("GirenMik", "GirenTutar")
        item[count] = rounded(item[count] + quantity, 6)
        item[sum_] = rounded(item[sum_] + total, 6)
        if sale:
            item["Kar"] = rounded(item["Kar"] + gain, 6)
        stock_balance(item)
        self.add("CariHareket", cariharkod=card["CariKod"], Tarih=stamp(place.now), Aciklama=f"{item['StokAdi']} {mode}", Bilgi1=item["StokKod"],
                 Bilgi2=item["StokAdi"], Birim=item["Birim"], Carisi=item["StokKod"], Unvan=item["StokAdi"], DigerId=line_id, Nerde="S", Miktar=quantity,
                 Fiyat=line.price, yeni=Decimal(1), **{"Borc" if sale else "Alacak": total})
        card["Borc" if sale else "Alacak"] += total
        balance(card)
        return line_id

    def agree_on_price(self, card, item, line):
        """A price that is not the card's is the customer's own from then on."""
        listed, own = {"2.Fiyat": ("Fiyat2", "1Fiyat"), "3.Fiyat": ("Fiyat3", "2Fiyat")}.get(line.price_name, ("Fiyat", "0Fiyat"))
        if line.price in (item[listed], rounded(item[listed])):
            return
        row = self.own_prices(card, item) or self.add("Cari", StokKod=item["StokKod"], CariKod=card["CariKod"])
        row[own] = line.price

    def own_prices(self, card, item):
        return next((row for row in self.tables["Cari"] if same(row["StokKod"], item["StokKod"]) and same(row["CariKod"], card["CariKod"])), None)

    def move_money(self, place, card, title, instrument, pays_out, amount, item=None):
        """Money between a customer and one of the money accounts. `item` is in front where the customer list is not."""
        till = self.card(ACCOUNTS.get(instrument, CASH))
        direction = " Ödeme" if pays_out else " Tahsilat"
        told = instrument + (direction if item is None else " Tahsilat")
        in_side, out_side = ("Alacak", "Borc") if pays_out else ("Borc", "Alacak")
        line_id = self.next_id(place.terminal, place.now)
        row = self.add("CariHareket", cariharkod=till["CariKod"], Tarih=stamp(place.now), Aciklama=told, Carisi=till["CariKod"], Unvan=title, DigerId=line_id,
                       Nerde="C", yeni=Decimal(1), **{in_side: amount})
        if item is not None:
            row.update(Bilgi1=item["StokKod"], Bilgi2=item["StokAdi"], Birim=item["Birim"], Gurup=till["Gurup"])
        till[in_side] += amount
        balance(till)
        self.add("Datam", CariKod=card["CariKod"], CariAd=card["Unvan"], StokAd=told, Tarih=stamp(place.now), DigerId=line_id, Tahsilat=amount,
                 Durum="K.Kartı" if instrument == "Kredi Kartı" else instrument, yeni=Decimal(1), Plasiyer=f"WinKarvel{place.terminal - 1}",
                 Gurup=card["Gurup"])
        self.add("CariHareket", cariharkod=card["CariKod"], Unvan=card["Unvan"], Carisi=card["CariKod"], Tarih=stamp(place.now),
                 Aciklama=f"{title}{direction} İle", DigerId=line_id, Nerde="C", yeni=Decimal(1), **{out_side: amount})
        card[out_side] += amount
        balance(card)
        self.consume(card, amount)
        return line_id

    def consume(self, card, amount):
        """At most two due dates, the earliest first; none is left where nothing is owed."""
        rows = self.due(card["CariKod"])
        if card["Bakiye"] == 0:
            for row in rows:
                self.remove("VadeGün", row)
            return
        if rows and amount > rows[0]["Tutar"]:
            amount -= rows[0]["Tutar"]
            self.remove("VadeGün", rows.pop(0))
        if rows:
            self.lower_due(rows[0], amount)

    def correct(self, line_id, customer, price, quantity, total):
        """Whatever the line was, it is put right as a sale; only what carries its id is touched."""
        line = self.first("Datam", DigerId=line_id)
        line.update(Fiyat=price, Miktar=quantity, Tutar=total)
        movement = self.first("StokHareket", DigerId=line_id)
        item = movement and self.item(movement["StokHarKod"])
        if movement:
            old = dict(movement)
            gain = profit(old["Tutar"], quantity, old["Maliyet"]) if item and item["Maliyet"] else ZERO
            movement.update(Miktar=quantity, Tutar=total, Kar=rounded(gain))
            if item:
                item["CikanMik"] += quantity - old["Miktar"]
                item["CikanTutar"] += total - old["Tutar"]
                item["Kar"] += gain - old["Kar"]
                stock_balance(item)
        row = self.first("CariHareket", DigerId=line_id, cariharkod=customer)
        if row:
            card = self.card(row["cariharkod"])
            card["Borc"] += total - row["Borc"]
            balance(card)
            row["Borc"] = total

    def cancel(self, line_id, last_id):
        """A line is taken back: of goods it stays as a cancelled one, of money it goes."""
        line = self.first("Datam", DigerId=line_id)
        for row in [row for row in self.tables["CariHareket"] if row["DigerId"] == line_id.replace("T", "")]:
            card = self.card(row["cariharkod"])
            self.remove("CariHareket", row)
            if not card:
                continue
            if "satış" in lower(row["Aciklama"]):
                card["Borc"] -= row["Borc"]
                card["Alacak"] -= row["Alacak"]
            else:
                card["Borc"] += row["Alacak"]
                card["Alacak"] += row["Borc"]
            balance(card)
        if last_id:
            self.tables["SeriNo"] = [row for row in self.tables["SeriNo"] if row["DigerId"] != last_id]
        movement = self.first("StokHareket", DigerId=line_id)
        total = line["Tutar"]
        if movement:
            self.remove("StokHareket", movement)
            item = self.item(line["StokKod"])
            count, sum_ = ("CikanMik", "CikanTutar") if line["Durum"] == "Satış" else ("GirenMik", "GirenTutar")
            if item:
                item[count] -= line["Miktar"]
                item[sum_] -= total
                stock_balance(item)
            line["Durum"] = CANCELLED
        else:
            self.remove("Datam", line)
        due = self.due(line["CariKod"])
        if total and due:
            self.lower_due(due[0], total)

    def receive(self, place, card, receipt):
        """Goods come in from a supplier; what nobody knows becomes a card of its own."""
        item = receipt.item
        if not item:
            item = self.add("StokKartlar", StokKod=receipt.name[:20], StokAdi=receipt.name)
        item.update(Kdv=receipt.tax, Barkod=receipt.barcode, Fiyat=receipt.price, gFiyat=receipt.cost)
        item["GirenMik"] += receipt.quantity
        item["GirenTutar"] += receipt.total
        difference = item["CikanMik"] - item["GirenMik"]
        item["KalanA" if difference > 0 else "KalanB"] = abs(difference)
        card["Alacak"] += receipt.total
        balance(card)
        line_id = self.next_id(place.terminal, place.now)
        name, moment = item["StokAdi"], stamp(place.now)
        self.add("StokHareket", StokHarKod=item["StokKod"], Tarih=moment, Aciklama=f"{name} Alış", GirisCikis="Alış", Nerde="C", StokAd=name,
                 Fiyat=receipt.cost, Miktar=receipt.quantity, Tutar=receipt.total, DigerId=line_id, Kdv=receipt.tax, yeni=Decimal(1))
        self.add("CariHareket", cariharkod=card["CariKod"], Tarih=moment, Aciklama=f"{name} Alış", Bilgi1=item["StokKod"], Bilgi2=name, Birim=item["Birim"],
                 Alacak=receipt.total, Carisi=item["StokKod"], Unvan=name, DigerId=line_id, Nerde="S", Miktar=receipt.quantity, Fiyat=receipt.cost,
                 yeni=Decimal(1))
        tag = f"WinKarvel{place.terminal - 1}"
        self.add("Datam", CariKod=card["CariKod"], StokKod=item["StokKod"], CariAd=card["Unvan"], StokAd=name, Fiyat=receipt.cost, Miktar=receipt.quantity,
                 Tutar=receipt.total, Tarih=moment, DigerId=line_id, Birim=item["Birim"], yeni=Decimal(1), Durum="Alış", Gurup=item["Gurup"], Plasiyer=tag,
                 tGurup=tag)
        return line_id

    def invoiceable(self, card, now):
        """A customer's sales of the day that stand on no invoice, the earliest first."""
        day = now.strftime("%Y-%m-%d")
        lines = [row for row in self.tables["Datam"] if same(row["CariKod"], card["CariKod"]) and row["Durum"] == "Satış" and row["Aciklama"] == ""
                 and row["Tarih"].startswith(day)]
        return sorted(lines, key=lambda row: row["Tarih"])

    def tick(self, lines, most):
        """The first lines are ticked, the others aren't. The stock that invoices know of is empty: every piece is lacking."""
        for number_, line in enumerate(lines):
            line["Sec"] = "X" if number_ < most else ""
            if number_ < most:
                line["Eksik"] = line["Miktar"]

    def free_invoice_number(self, number_):
        """The number, or the next that no invoice bears."""
        while self.first("Faturalar", FaturaNo=f"S{number_:06}"):
            number_ += 1
        return number_

    def invoice(self, place, card, lines, number_):
        """The tax comes on top of the amounts; it alone goes on the account of the invoices."""
        name, moment, line_id = f"S{number_:06}", stamp(place.now), self.next_id(place.terminal, place.now)
        longer = f"{place.terminal}0{line_id[1:]}"
        total, taxes, gain = ZERO, ZERO, ZERO
        for line in lines:
            item = self.item(line["StokKod"])
            tax = rounded(line["Tutar"] * item["Kdv"] / 100)
            brings = line["Miktar"] * (line["Fiyat"] - item["Maliyet"])
            self.add("FatHareket", FatHarNo=name, Tarih=moment, FatCari=card["CariKod"], FatStok=item["StokKod"], FatAciklama=item["StokAdi"],
                     FatKdv=item["Kdv"], Nerde="F", DigerId=line_id, SeriNoDiger=longer, yeni=Decimal(1), Birim=item["Birim"], FatMiktar=line["Miktar"],
                     FatFiyat=line["Fiyat"], Kdvsi=tax, FatTutar=line["Tutar"], FatTotal=line["Tutar"], FatKar=rounded(brings, 6))
            total, taxes, gain = total + line["Tutar"], taxes + tax, rounded(gain + rounded(brings, 6), 6)
            line["Aciklama"] = f"FatNo {name}"
        self.add("Faturalar", FaturaNo=name, FatTarih=moment, FatCari=card["CariKod"], Nakit=Decimal(1), DigerId=line_id, Unvan=card["Unvan"], yeni=Decimal(1),
                 FatTop=total, FatKdvTut=taxes, Toplam=total + taxes, Gurup="Müşteri", FatKar=gain)
        self.add("CariHareket", cariharkod=INVOICED, Tarih=moment, Aciklama=f"{name} Fatura ile", Borc=taxes, DigerId=line_id, Nerde="F", yeni=Decimal(1))
        account = self.card(INVOICED)
        account["Borc"] += taxes
        balance(account)

    def wipe(self, card):
        """A customer's history goes, his card stays. What he brought back or delivered, the till and what is due stay as they are."""
        code = card["CariKod"]
        self.tables["CariHareket"] = [row for row in self.tables["CariHareket"] if not same(row["cariharkod"], code)]
        for row in [row for row in self.tables["StokHareket"] if same(row["Carisi"], code) and row["GirisCikis"] == "Satış"]:
            item = self.item(code)
            if item:
                item["CikanMik"] -= row["Miktar"]
                item["CikanTutar"] -= row["Tutar"]
                difference = item["GirenMik"] - item["CikanMik"]
                item["KalanB"], item["KalanA"] = max(difference, ZERO), max(-difference, ZERO)
            self.remove("StokHareket", row)
        self.tables["Datam"] = [row for row in self.tables["Datam"] if not same(row["CariKod"], code)]
        for column in ("Borc", "Alacak", "dBorc", "eBorc", "Bakiye", "dBakiye", "eBakiye"):
            card[column] = ZERO
        card["Hesap"] = "Borç"

    def has_ledger(self, card):
        return any(same(row["cariharkod"], card["CariKod"]) for row in self.tables["CariHareket"])
