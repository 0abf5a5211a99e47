"""The panels and views of a desk beside the sale: receipts, new cards, the stock list, the deleted lines, the customer menu."""
from types import SimpleNamespace

from lists import ALL_GROUPS, WHOLESALE, on_sale
from shop_model import CANCELLED
from texts import ZERO, begins, begins_with_any_i, lower, number, plain, same, shown

ALL_STOCK_GROUPS = " Tüm Guruplar"
STOCK_COLUMNS = ("StokAdi", "GirenMik", "CikanMik", "KalanB", "KalanA")


class Panels:
    # Goods from a supplier.

    def open_receipt(self):
        self.shown.add("StokAl")

    def type_receipt(self, index, text):
        self.text[f"Text6({index})"] = text
        for amount in (2, 3, 4):
            self.text[f"Text6({amount})"] = self.text[f"Text6({amount})"] or "0"
        total = number(self.text["Text6(2)"]) * number(self.text["Text6(3)"])
        self.text["Label12(5)"] = shown(total)
        self.enabled["StokAlCmd(1)"] = number(self.text["Label12(5)"]) != 0

    def find_received(self, typed):
        self.type_receipt(0, typed)
        self.whole_items.order = self.items.order
        cards = [row for row in self.whole_items.rows() if on_sale(row)]
        ways = (lambda row: same(row["Barkod"], typed), lambda row: begins(row["StokAdi"], typed), lambda row: begins(row["StokKod"], typed))
        found = next((row for fits in ways for row in cards if fits(row)), None)
        self.received = found
        if found:
            for index, text in ((0, found["StokAdi"]), (1, shown(found["gFiyat"])), (2, shown(found["Fiyat"])), (4, plain(found["Kdv"])), (5, found["Barkod"])):
                self.type_receipt(index, text)
        else:
            for index, text in ((5, ""), (1, "0"), (2, "0"), (3, "0")):
                self.type_receipt(index, text)

    def save_receipt(self):
        text = [self.text[f"Text6({index})"] for index in range(6)]
        card = self.named()
        if card is None:
            self.shown.discard("StokAl")
            return
        if card is not self.customers.front:
            self.bring_named(card)
            self.shown.discard("StokAl")
        receipt = SimpleNamespace(item=self.received, name=text[0], cost=number(text[1]), price=number(text[2]), quantity=number(text[3]), tax=number(text[4]),
                                  barcode=text[5], total=number(self.text["Label12(5)"]))
        self.last_id = self.shop.receive(self.place(), card, receipt)
        self.received = None
        for index in range(6):
            self.type_receipt(index, "")
        self.text["Label5"] = shown(card["Bakiye"])
        self.lines.read()

    def close_receipt(self):
        self.shown.discard("StokAl")

    # A new customer's card.

    def offer_card(self, typed):
        self.shown.add("CariFrm")
        self.new_card = {index: "" for index in range(10)}
        self.new_card.update({0: typed.strip(), 1: typed.strip()})
        self.enabled["CariNewCmd(1)"] = bool(typed.strip())

    def type_card(self, index, text):
        self.new_card[index] = lower(text)
        self.enabled["CariNewCmd(1)"] = bool(self.new_card[0] and self.new_card[1])

    def give_up_card(self):
        self.shown.discard("CariFrm")
        self.text["Text1(0)"] = ""
        self.focus_name()

    def save_card(self):
        """Answers the box that refuses it, and none where it is saved."""
        card, cards = self.new_card, self.shop.tables["CariKartlar"]
        self.enabled["CariNewCmd(1)"] = False
        if any(len(row["CariKod"]) == len(card[0]) and begins_with_any_i(row["CariKod"], card[0]) for row in cards):
            return "Dikkat Bu Cari Kodu Kayıtlı..!"
        listed = self.customers.rows()
        if any(len(row["Unvan"]) == len(card[1]) and begins_with_any_i(row["Unvan"], card[1]) for row in listed):
            return "Dikkat Bu Unvan Kayıtlı..!"
        if card[9] and any(same(row["KartNo"], card[9]) for row in listed):
            card[9] = ""
            return "Bu Kart Numarası Kullanılmış...?"
        group = WHOLESALE if self.wholesaler else "Müşteri" if self.group == ALL_GROUPS or self.groups_of != "Cari" else self.group
        columns = ("CariKod", "Unvan", "Adres1", "Adres2", "Email", "VergiDa", "VergiNo", "Telefon", "Gsm", "KartNo")
        self.shop.add("CariKartlar", **{column: card[index] for index, column in enumerate(columns)}, Hes="C", Hesap="Borç", Gurup=group, yeni=1 + ZERO)
        self.shown.discard("CariFrm")
        self.customers.read()
        self.text["Text1(0)"] = ""
        self.focus_name()
        return None

    def focus_name(self):
        """The field of the name gets the focus; empty, it takes the first of the list."""
        if not self.text["Text1(0)"] and self.customers.rows():
            self.customers.read()
            self.follow()
        self.focus = "Text1(0)"

    # The list turned over to the stock.

    def show_stock(self):
        self.stock.chosen, self.stock.order = on_sale, ("StokAdi", False)
        self.stock.read()
        self.stock_list_group, self.on_hand = ALL_STOCK_GROUPS, False
        self.shown.add("StokFrm")
        self.shown.discard("Vadefrm")
        self.enabled.update({"Command2": False, "Command3": False})
        self.text["Command1"] = "Yazdır"  # nobody is in front who could collect

    def narrow_stock(self):
        group, on_hand = self.stock_list_group, self.on_hand
        self.stock.chosen = lambda row: on_sale(row) and (group == ALL_STOCK_GROUPS or same(row["Gurup"], group)) and (not on_hand or row["KalanB"] != 0)
        self.stock.order = ("StokAdi", False)
        self.stock.read()
        self.text["Stoktxt"] = ""

    def find_stock(self, typed):
        self.text["Stoktxt"] = typed
        for end in range(1, len(typed) + 1):
            if typed[:end].strip():
                self.stock.find(lambda row: begins(row["StokAdi"], typed[:end]))

    def sort_stock(self, column):
        self.stock.order = (STOCK_COLUMNS[column], not self.stock.order[1])
        self.stock.read()

    def leave_stock(self):
        self.shown.discard("StokFrm")
        self.enabled["Command3"] = True
        self.tamam()
        self.base = self.customers.chosen = lambda row: not row["HesKullan"] and not same(row["Gurup"], WHOLESALE) and not row["CariKod"].startswith("=")
        self.customers.order = ("Unvan", False)
        self.customers.read()
        self.follow()

    # Everybody's deleted lines.

    def show_deleted(self):
        self.viewing_deleted = True
        self.shown.discard("Vadefrm")
        self.enabled["Command2"] = False
        self.lines.chosen = lambda row: row["Durum"] == CANCELLED
        self.lines.order = ("Tarih", True)
        self.lines.read()

    def leave_deleted(self):
        self.viewing_deleted = False
        self.tamam()
        if self.group_is_new or self.customers.front:
            self.follow_group()

    # The customer menu.

    def remove_customer(self, answer):
        """First his history goes, at a second use the card."""
        card = self.named()
        if self.shop.has_ledger(card):
            self.shop.wipe(card)
            self.follow()
            return
        if answer == "Yes":
            rows = self.customers.rows()
            at = self.customers.current()
            self.shop.remove("CariKartlar", card)
            rest = [row for row in rows if row is not card]
            self.customers.front = rest[min(at, len(rest) - 1)] if rest else None
            self.follow()

    # Groups of the stock, by the same box as those of the customers.

    def switch_groups(self):
        self.groups_of = "Stok" if self.groups_of == "Cari" else "Cari"
        if self.groups_of == "Stok":
            self.choose_stock_group(self.stock_group)

    def choose_stock_group(self, group):
        self.stock_group = group
        self.items.chosen = on_sale if group == ALL_GROUPS else lambda row: on_sale(row) and same(row["Gurup"], group)
        self.items.order = ("StokAdi", False)
        self.items.read()
        if self.selling:
            self.bring_item("0")
            if self.text["Command2"] == "Tamam":
                self.tamam()

    # Headings.

    def sort_items(self, column):
        self.items.order = (("StokKod", "StokAdi")[column], not self.items.order[1])
        self.items.read()
        if self.items.front:
            self.bring_item("1")

    def sort_lines(self, column):
        field = ("Tarih", "StokAd", "Miktar", "Fiyat", "Tutar", "Tahsilat", "Durum")[column]
        self.lines.order = (field, not self.lines.order[1])
        self.lines.read()
        self.text["Label5"] = self.sum_of_day()
