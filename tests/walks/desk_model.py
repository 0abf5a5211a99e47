"""One desk's window as its rules tell it: what each field, caption and button reads after each of the clerk's actions.

The lists are looked at anew whenever the desk does; the fields keep what they were given until something gives them anew.
"""
from datetime import date
from types import SimpleNamespace

from lists import ALL_GROUPS, WALK_IN, WHOLESALE, RowList, not_hidden, of_group, on_sale, standard, whom_one_looks_for
from panels_model import Panels
from sale_model import Sale
from texts import ZERO, begins, begins_with_any_i, grouped, number, same, shown

TEXTS = ["Text1(0)", "Text1(1)", "Text2(0)", "Text2(1)", "Text2(2)", "Text2(3)", "Text5"]
CAPTIONS = ["Label2", "Label3", "Label4", "Label1(0)", "Label1(1)", "Label1(2)", "Label1(5)", "Label1(7)", "Label5", "Label8",
            "Command1", "Command2", "Command3"]
OF_THE_SALE = ["Text1(1)", "Text2(0)", "Text2(1)", "Text2(3)", "Label2", "Label4", "Label1(1)", "Label1(2)"]  # out of sight at rest
RECEIPT = [*(f"Text6({index})" for index in range(6)), "Label12(5)"]
PANELS = ["Frame2", "CariFrm", "StokGiris", "StokAl", "StokFrm", "TahsilatFrame", "Vadefrm", "Frame3", "Frame4", "FatFrame"]
GRIDS = ["CariGrid", "StokGrid", "HareketGrid"]


class Desk(Sale, Panels):
    def __init__(self, shop, terminal, now):
        self.shop, self.terminal, self.now = shop, terminal, now
        self.customers = RowList(shop, "CariKartlar", "Unvan")
        self.items = RowList(shop, "StokKartlar", "StokAdi")
        self.lines = RowList(shop, "Datam", "Tarih")
        self.customers.chosen, self.items.chosen = standard, on_sale
        self.base = standard  # the list without the filter
        self.show_lines_of("")
        self.text = dict.fromkeys(TEXTS + CAPTIONS, "")
        self.text.update({"Text2(0)": "0", "Text2(1)": "0", "Text2(2)": "0", "Text2(3)": "0", "Label2": "0,00", "Label3": "Nakit", "Label4": "Satış",
                          "Label1(0)": " Satış", "Label1(1)": " Ürün", "Label1(2)": "1.Fiyat", "Label1(5)": " Tahsilat", "Label1(7)": "Bakiye",
                          "Command1": "Yazdır", "Command2": "Tamam", "Command3": "Çıkış"})
        self.enabled = {"Command2": False, "Command3": True}
        self.shown = set()
        self.focus = ""  # the field that the keys go to, as far as it matters
        self.selling = False
        self.sold_to = ""  # the code of the customer of the sale
        self.slip = ""
        self.invoice = 0  # the number of the last
        self.serial = ""
        self.last_id = ""
        self.edited = None
        self.scans_post = False  # the menu "Seçim Tamam"
        self.deleting = False  # the menu "Silme Açık"
        self.slots = [ZERO] * 4
        self.stock, self.whole_items = RowList(shop, "StokKartlar", "StokAdi"), RowList(shop, "StokKartlar", "StokAdi")
        self.on_hand, self.wholesaler, self.viewing_deleted = False, False, False
        self.received = None
        self.group_is_new = False
        self.text.update({f"Text6({index})": text for index, text in enumerate(("", "0", "0", "0", "0", ""))})
        self.text.update({"Label12(5)": "0,00", "Stoktxt": ""})
        self.enabled.update({"StokAlCmd(1)": False, "CariNewCmd(1)": False})
        self.group, self.stock_group, self.groups_of = ALL_GROUPS, ALL_GROUPS, "Cari"
        self.customers.read()
        self.items.read()
        self.follow()

    # What stands on the screen.

    def screen(self):
        seen = {element: self.text[element] for element in TEXTS + CAPTIONS if self.selling or element not in OF_THE_SALE}
        seen.update({f"{element} enabled": self.enabled[element] for element in ("Command2", "Command3")})
        seen.update({"ComboCmd": self.groups_of, "GurupCombo": self.group if self.groups_of == "Cari" else self.stock_group})
        if "StokAl" in self.shown:
            seen.update({element: self.text[element] for element in RECEIPT})
            seen["StokAlCmd(1) enabled"] = self.enabled["StokAlCmd(1)"]
        if "CariFrm" in self.shown:
            seen.update({f"CariNew({index})": text for index, text in self.new_card.items()})
            seen["CariNewCmd(1) enabled"] = self.enabled["CariNewCmd(1)"]
        if "StokFrm" in self.shown:
            seen["Stoktxt"] = self.text["Stoktxt"]
        seen.update({f"{element} visible": element in self.shown for element in PANELS})
        seen["CariGrid visible"] = not self.selling and not self.viewing_deleted
        seen["StokGrid visible"] = self.selling and self.goods
        seen["HareketGrid visible"] = self.selling or self.viewing_deleted
        if "Vadefrm" in self.shown:
            seen["Label15"] = self.overdue
        return seen

    def currents(self):
        lists = {"CariGrid": self.stock if "StokFrm" in self.shown else self.customers, "StokGrid": self.items, "HareketGrid": self.lines}
        seen = self.screen()
        return {grid: one.current() for grid, one in lists.items() if seen[f"{grid} visible"]}

    # Amounts.

    def amount(self, index):
        return number(self.text[f"Text2({index})"])

    def put(self, index, text):
        """A field of the sale reads something else."""
        text = grouped(text or "0") if index == 2 else text or "0"
        if text == self.text[f"Text2({index})"]:
            return  # nothing changed, so nothing follows
        self.text[f"Text2({index})"] = text
        if index < 3:
            self.text["Label2"] = shown(self.amount(0) * self.amount(1))
        if self.text["Command2"] == "Tamam":
            self.enabled["Command2"] = self.amount(1) + self.amount(2) != 0

    def tamam(self):
        self.text["Command2"] = "Tamam"
        self.enabled["Command2"] = self.amount(1) + self.amount(2) != 0

    def place(self):
        return SimpleNamespace(terminal=self.terminal, now=self.now)

    # The customer in front.

    def named(self):
        """The card that the screen names, and none where it names nobody or several."""
        if self.names_front():
            return self.customers.front
        bearers = self.bearers()
        return bearers[0] if len(bearers) == 1 else None

    def bearers(self):
        """Who bears the name that is written, in whatever list."""
        name = self.text["Text1(0)"]
        return [row for row in self.shop.tables["CariKartlar"] if same(row["Unvan"], name) and not row["CariKod"].startswith("=")]

    def names_front(self):
        return self.customers.front is not None and same(self.customers.front["Unvan"], self.text["Text1(0)"])

    def bring_named(self, card):
        """The card comes in front, from whatever list; where it isn't in this one, all customers are listed, or all wholesalers."""
        if not self.customers.chosen(card):
            wholesale = same(card["Gurup"], WHOLESALE)
            self.base = self.customers.chosen = of_group(WHOLESALE) if wholesale else whom_one_looks_for if whom_one_looks_for(card) else not_hidden
            self.customers.order = ("Unvan", False)
            self.group = WHOLESALE if wholesale else ALL_GROUPS
            self.text["Label1(0)"] = " Toptan" if wholesale else " Satış"
        self.customers.front = card
        self.follow()

    def follow(self):
        """Everything that follows the row in front of the customers, at rest."""
        card = self.customers.front
        self.text["Text1(0)"] = card["Unvan"] if card else ""
        self.follow_without_name()

    def follow_without_name(self):
        self.follow_without_notice()
        self.look_at_due_dates()

    def follow_without_notice(self):
        card = self.customers.front
        self.text["Label8"] = card["CariKod"] if card else ""
        self.text["Label5"] = shown(card["Bakiye"]) if card else "0,00"
        if card:
            self.text["Label1(5)"] = " Ödeme" if same(card["Gurup"], WHOLESALE) else " Tahsilat"
            self.text["Command1"] = "Tahsilat" if self.text["Text1(0)"] == WALK_IN else "Yazdır"
        self.show_lines_of(card["CariKod"] if card else "")

    def show_lines_of(self, code):
        self.lines.chosen = lambda row: same(row["CariKod"], code)
        self.lines.order = ("Tarih", True)
        self.lines.read()

    def first_due(self, card):
        due = self.shop.due(card["CariKod"])
        return due[0]["VadeTarih"] if due else ""

    def look_at_due_dates(self):
        card = self.customers.front
        self.tell_due_date(card, self.first_due(card) if card else "")

    def tell_due_date(self, card, due):
        self.shown.discard("Vadefrm")
        if not card or card["Bakiye"] <= 0 or card["Hesap"] != "Borç":
            return
        days = due and (self.now.date() - date.fromisoformat(due[:10])).days
        if days:
            self.overdue = f"{days} Gün"
            self.shown.add("Vadefrm")

    def tap_customer(self, row):
        if row is not self.customers.front:
            self.shown.discard("StokAl")
        self.customers.front = row
        self.follow()

    def choose_group(self, group):
        self.group = group
        self.base = not_hidden if group == ALL_GROUPS else of_group(group)
        self.customers.chosen, self.customers.order = self.base, ("Unvan", False)
        self.customers.read()
        self.group_is_new = True
        if not self.viewing_deleted:
            self.text["Command1"] = "Yazdır"
            self.shown.discard("StokAl")
            self.follow_group()

    def follow_group(self):
        if self.group_is_new:
            self.text["Label1(0)"], self.text["Label1(5)"] = (" Toptan", " Ödeme") if self.group == WHOLESALE else (" Satış", " Tahsilat")
        self.group_is_new = False
        self.follow()

    def filter_customers(self, typed):
        """Letter by letter, too."""
        for end in range(1, len(typed) + 1) if typed else (0,):
            self.narrow_customers(typed[:end])

    def narrow_customers(self, start):
        self.text["Text5"] = start
        if self.groups_of == "Stok":
            self.group = ALL_GROUPS
        self.base = base = self.filtered_base()
        self.customers.chosen = (lambda row: "'" not in start and base(row) and begins_with_any_i(row["Unvan"], start, "İi")) if start else base
        self.customers.order = ("Unvan", False)
        if self.base is not of_group(WHOLESALE) and self.text["Label1(0)"] == " Toptan":
            self.text["Label1(0)"] = " Satış"
        self.customers.read()
        self.follow()

    def filtered_base(self):
        """The customers among whom a name is filtered: those of the standard list, of the group in the box."""
        chosen = of_group(self.group)
        if self.group == ALL_GROUPS or self.groups_of == "Stok":
            return standard
        return chosen if self.group == WHOLESALE else lambda row: standard(row) and chosen(row)

    def write_name(self, typed):
        """Letter by letter, so that a name is completed as soon as one in the list begins like it."""
        for end in range(1, len(typed) + 1):
            before = self.customers.front
            found = self.customers.find(lambda row: "'" not in typed[:end] and begins(row["Unvan"], typed[:end]))
            self.text["Text1(0)"] = found["Unvan"] if found else typed[:end]
            if found:
                self.follow_without_notice()
                if found is not before:  # no notice of another's stays beside the name
                    self.shown.discard("Vadefrm")
        if not typed:
            self.text["Text1(0)"] = ""

    def cut_name(self, typed):
        """What a completion added goes; the row that it brought stays in front."""
        self.text.update({"Text1(0)": typed, "Command1": "Yazdır"})

    def leave_name(self, for_list=False):
        """The field of the name is left: a part of a name brings what the whole does. Left for the list, the row there is meant."""
        typed = self.text["Text1(0)"]
        if for_list or self.names_front():
            self.follow()
        elif typed:
            if self.customers.find(lambda row: begins(row["Unvan"], typed)):
                self.follow()
            elif self.named():
                self.bring_named(self.named())

    def is_listed(self, typed):
        return any(begins(row["Unvan"], typed) or begins_with_any_i(row["Unvan"], typed) for row in self.customers.rows())

    def is_begun_elsewhere(self, typed):
        return any(begins(row["Unvan"], typed) for row in self.shop.tables["CariKartlar"])

    def enter_name(self):
        """Enter in the field of the name: who begins like it comes in front, and whom nobody knows is offered a card."""
        typed = self.text["Text1(0)"]
        rows = [self.customers.front, *self.customers.rows()] if self.names_front() else self.customers.rows()
        fits = next((row for row in rows if begins(row["Unvan"], typed)), None) or next((row for row in rows if begins_with_any_i(row["Unvan"], typed)), None)
        if fits is None:
            self.offer_card(typed)
            self.leave_name()
        else:
            self.customers.front = fits
            self.follow()

    def sort_customers(self, column):
        field = ("Unvan", "Bakiye", "Hesap")[column]
        self.customers.order = (field, not self.customers.order[1])
        self.customers.read()
        self.text["Command1"] = "Yazdır"
        if self.customers.front:
            self.follow()
