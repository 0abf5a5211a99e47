"""A clerk's hands at one desk: what is done at random, at the robot and in the model alike."""
from decimal import Decimal

from lists import ALL_GROUPS, WALK_IN
from texts import plain
from witness import Witness

BUTTONS = ("Command", "ComboCmd", "StokAlCmd", "CariNewCmd")  # they take the focus; labels and menus don't
ROW_HEIGHT = 46  # pixels, rather more than less
INVOICE_LINES = 15  # that fit on the paper
GROUPS = (ALL_GROUPS, "Müşteri", "Toptan", "Bayi", "Fatura", "Boş")


class Hands:
    def __init__(self, walk, robot, desk):
        self.walk, self.robot, self.desk, self.chance = walk, robot, desk, walk.chance

    # Requests.

    def ask(self, request):
        answer = self.robot.ask(request)
        self.walk.note(self.desk.terminal, request, answer)
        if not answer["ok"]:
            raise RuntimeError(f"{request}: {answer['error']}")
        return answer

    def leave_for(self, element):
        """The focus goes to another element; what was written in the name's field is looked up then."""
        if self.desk.focus == "Text1(0)" and element != "Text1(0)":
            self.desk.leave_name(element == "CariGrid")
        if element == "Text1(0)" != self.desk.focus:
            self.desk.focus_name()
        self.desk.focus = element

    def tap(self, element):
        if element.startswith(BUTTONS):
            self.leave_for(element)
        self.ask({"do": "click", "at": element})

    def double(self, element):
        self.ask({"do": "dblclick", "at": element})

    def confirm(self, element, items):
        """A tap that books: only to whom the screen names, and only what it names."""
        customer = self.ask({"do": "get", "at": "Text1(0)"})["text"]
        code = self.ask({"do": "state"})["CurrentCustomerCode"] if self.desk.selling else self.ask({"do": "get", "at": "Label8"})["caption"]
        witness = Witness(self.walk.stores, customer, code, items)
        self.tap(element)
        complaints = witness.complaints()
        if witness.booked() and not self.ask({"do": "get", "at": "Durum"})["caption"]:
            complaints.append("the quiet line says nothing of it")
        if complaints:
            raise RuntimeError(f"{element} at {customer}, {items}: {complaints}")

    def item_named(self):
        return {self.ask({"do": "get", "at": "Text1(1)"})["text"]}

    def put(self, element, value):
        self.leave_for(element)
        self.ask({"do": "set", "at": element, "value": value})

    def write(self, element, amount):
        """An amount, key by key: the first digit replaces the number that stood there."""
        if self.desk.focus != element and self.chance.random() < 0.5:
            self.leave_for(element)
            self.ask({"do": "type", "at": element, "text": amount})
        else:
            self.put(element, amount)

    def key(self, key, element):
        self.ask({"do": "key", "key": key, "at": element})

    def row(self, grid, number, twice=False):
        self.leave_for(grid)
        if len(self.walk.desks) > 1:
            self.ask({"do": "grid", "at": grid, "limit": 1})  # the list is told to show what the other terminal wrote meanwhile
        self.ask({"do": "row", "at": grid, "row": number, "column": 1, "dblclick": twice})

    def covered(self, grid, number):
        """Whether a row lies under the notice of what is overdue, where no finger reaches it."""
        if "Vadefrm" not in self.desk.shown:
            return False
        row, notice = (self.ask({"do": "get", "at": at}) for at in (grid, "Vadefrm"))
        return row["top"] + ROW_HEIGHT * (number + 3) > notice["top"]

    def head(self, grid, column):
        self.leave_for(grid)
        self.ask({"do": "head", "at": grid, "column": column})

    def number(self, most, places):
        return plain(Decimal(self.chance.randint(1, most * 10 ** places)).scaleb(-places))

    # What can be done now, by how often it is done.

    def act(self):
        kinds, done = self.kinds(), None
        while done is None:
            done = self.chance.choices(list(kinds), list(kinds.values()))[0]()
        return done

    def kinds(self):
        desk = self.desk
        if "CariFrm" in desk.shown:
            return {self.fill_card: 4, self.save_card: 2, self.give_up_card: 1}
        if "StokAl" in desk.shown:
            return {self.look_up_received: 4, self.fill_receipt: 6, self.save_receipt: 6, self.close_receipt: 1, self.tap_customer: 1, self.choose_group: 1}
        if "StokFrm" in desk.shown:
            return {self.in_stock_list: 5, self.leave_stock: 1}
        if desk.viewing_deleted:
            return {self.leave_deleted: 2, self.choose_group: 1}
        if "TahsilatFrame" in desk.shown:
            return {self.in_collection: 1}
        return self.in_sale() if desk.selling else self.at_rest()

    def at_rest(self):
        return {self.tap_customer: 8, self.double_tap_sale: 8, self.type_payment: 5, self.post: 5, self.choose_group: 3, self.write_name: 3,
                self.next_instrument: 3, self.tick_stock: 3, self.filter_customers: 2, self.enter_name: 2, self.write_part_of_name: 2,
                self.sort_customers: 2, self.collect: 2, self.empty_name: 1, self.dismiss_notice: 1, self.show_deleted: 1, self.remove_customer: 1,
                self.switch_groups: 1, self.choose_stock_group: 1, self.make_invoice: 8}

    def in_sale(self):
        return {self.post: 14, self.tap_item: 8, self.set_quantity: 6, self.set_price: 4, self.tap_line: 4, self.double_tap_sale: 4, self.write_item: 3,
                self.enter_code: 3, self.correct: 3, self.step_price: 2, self.step_mode: 2, self.set_discount: 2, self.collect: 2, self.scan: 2,
                self.type_payment: 1, self.next_instrument: 1, self.step_codes: 1, self.take_day_total: 1, self.toggle_deleting: 1, self.sort_items: 1,
                self.sort_lines: 1, self.switch_groups: 1, self.choose_stock_group: 1, self.filter_items: 1, self.switch_posting_scans: 1}

    # At rest.

    def tap_customer(self):
        rows = self.desk.customers.rows()
        people = [i for i, row in enumerate(rows) if not row["CariKod"].startswith("=")]
        if not people:
            return None
        number = self.chance.choice(people)
        if self.covered("CariGrid", number):
            return None
        self.row("CariGrid", number)
        self.desk.tap_customer(rows[number])
        return "a customer is tapped"

    def choose_group(self):
        if self.desk.groups_of != "Cari":
            return None
        group = self.chance.choice(GROUPS)
        self.put("GurupCombo", group)
        self.desk.choose_group(group)
        return "a group is chosen"

    def filter_customers(self):
        start = self.chance.choice([start for start in ("", "a", "i", "bo", "o", "mu", "zz", "ber") if start != self.desk.text["Text5"]])
        self.put("Text5", start)
        self.desk.filter_customers(start)
        return "the list is filtered"

    def some_name(self):
        name = self.chance.choice([row["Unvan"] for row in self.desk.shop.tables["CariKartlar"] if not row["CariKod"].startswith("=")])
        return name[:self.chance.choice((1, 2, 3, len(name)))]

    def write_name(self):
        name = self.some_name()
        self.put("Text1(0)", name)
        self.desk.write_name(name)
        return "a name is written"

    def write_part_of_name(self):
        """The beginning of a name; what completed it is struck out."""
        name = self.some_name()[:3]
        self.put("Text1(0)", name)
        self.desk.write_name(name)
        if self.desk.text["Text1(0)"] != name:
            self.key("Delete", "Text1(0)")
            self.desk.cut_name(name)
        return "a part of a name is written"

    def empty_name(self):
        self.put("Text1(0)", "")
        self.desk.write_name("")
        return "the name is emptied"

    def dismiss_notice(self):
        if "Vadefrm" not in self.desk.shown:
            return None
        self.tap("Vadefrm")
        self.desk.shown.discard("Vadefrm")
        return "the notice is dismissed"

    def enter_name(self):
        desk, name = self.desk, self.desk.text["Text1(0)"]
        if not name or not desk.is_listed(name) and desk.is_begun_elsewhere(name):
            return None
        self.key("Enter", "Text1(0)")
        self.desk.enter_name()
        self.desk.focus = "CariGrid"
        return "Enter in the name"

    def sort_customers(self):
        column = self.chance.randrange(3)
        self.head("CariGrid", column)
        self.desk.sort_customers(column)
        return "the customers are sorted"

    def double_tap_sale(self):
        self.double("Label1(0)")
        self.desk.double_tap_sale()
        return "into a sale or out of it"

    def type_payment(self):
        amount = self.number(200, self.chance.choice((0, 1, 2)))
        self.write("Text2(2)", amount)
        self.desk.put(2, amount)
        return "a payment is typed"

    def next_instrument(self):
        self.tap("Label3")
        self.desk.next_instrument()
        return "the next instrument"

    def post(self):
        desk = self.desk
        if not desk.enabled["Command2"] or (not desk.selling and desk.amount(2) == 0):
            return None
        answer = self.chance.choice(("Yes", "Yes", "No"))
        if desk.text["Command2"] == "Satır Sil":
            self.ask({"do": "answer", "with": answer})
        line = desk.lines.front if desk.text["Command2"] == "Satır Sil" else desk.edited
        self.confirm("Command2", {line["StokAd"]} if line else self.item_named() if desk.selling else set())
        desk.post(answer)
        return "the main button"

    def tick_stock(self):
        """With the wholesalers in front the tick opens the receipt, else it turns the list over to the stock."""
        self.put("StokChk", True)
        if self.desk.text["Label1(0)"] == " Toptan":
            self.desk.open_receipt()
        else:
            self.desk.show_stock()
        return "the stock is ticked"

    def in_stock_list(self):
        desk, rows = self.desk, self.desk.stock.rows()
        what = self.chance.randrange(5)
        if what == 0 and rows:
            number = self.chance.randrange(len(rows))
            self.row("CariGrid", number)
            desk.stock.front = rows[number]
        elif what == 1:
            desk.on_hand = not desk.on_hand
            self.put("StokCek", desk.on_hand)
            desk.narrow_stock()
        elif what == 2:
            desk.stock_list_group = self.chance.choice((" Tüm Guruplar", "Gıda", "Temizlik"))
            self.put("GrpCombo", desk.stock_list_group)
            desk.narrow_stock()
        elif what == 3:
            typed = self.chance.choice([typed for typed in ("p", "pir", "ş", "xyz", "det") if typed != desk.text["Stoktxt"]])
            self.put("Stoktxt", typed)
            desk.find_stock(typed)
        else:
            column = self.chance.randrange(5)
            self.head("CariGrid", column)
            desk.sort_stock(column)
        return "in the stock list"

    def leave_stock(self):
        self.put("StokChk", False)
        self.desk.leave_stock()
        return "back to the customers"

    def show_deleted(self):
        self.ask({"do": "answer", "with": "anahtar"})
        self.put("SilinenChk", True)
        self.desk.show_deleted()
        return "the deleted lines"

    def leave_deleted(self):
        self.put("SilinenChk", False)
        self.desk.leave_deleted()
        return "the deleted lines are left"

    def remove_customer(self):
        desk = self.desk
        card = desk.named()
        if card is None or card is not desk.customers.front or card["CariKod"].startswith("=") or card["Unvan"] == WALK_IN or card["CariKod"] == "Merkez":
            return None
        if any(other is not desk and card is other.customers.front for other in self.walk.desks):
            return None
        answer = self.chance.choice(("Yes", "No"))
        self.ask({"do": "answer", "with": "anahtar"})
        self.leave_for("CariGrid")
        self.ask({"do": "rightclick", "at": "CariGrid"})
        if not desk.shop.has_ledger(card):
            self.ask({"do": "answer", "with": answer})
        self.confirm("CarSil", {row["StokAdi"] for row in desk.shop.tables["StokKartlar"] if row["StokKod"] == card["CariKod"]})
        desk.remove_customer(answer)
        return "a customer is removed"

    def make_invoice(self):
        """The day's lines of the customer in front: now and then one is taken off, and now and then the panel is only closed."""
        desk, shop = self.desk, self.desk.shop
        card = desk.named()
        if card is None or card is not desk.customers.front or card["CariKod"].startswith("="):
            return None
        if not shop.invoiceable(card, desk.now) and self.chance.random() < 0.8:
            return None
        self.tap("Command4")
        desk.shown.discard("Vadefrm")
        desk.focus = "FatGrid"
        lines = shop.invoiceable(card, desk.now)
        shop.tick(lines, INVOICE_LINES)
        ticked = lines[:INVOICE_LINES]
        if ticked and self.chance.random() < 0.3:
            off = self.chance.randrange(min(len(ticked), 3))
            self.ask({"do": "row", "at": "FatGrid", "row": off, "column": 4})
            ticked.pop(off)["Sec"] = ""
        if not lines or self.chance.random() < 0.3:
            self.ask({"do": "click", "at": "FatCmd(0)"})
            return "an invoice is not made"
        self.confirm("FatCmd(1)", set())
        if ticked:
            desk.invoice = shop.free_invoice_number(desk.invoice + 1)
            shop.invoice(desk.place(), card, ticked, desk.invoice)
        return "an invoice"

    def switch_groups(self):
        self.tap("ComboCmd")
        self.desk.switch_groups()
        return "groups of customers or of goods"

    def choose_stock_group(self):
        if self.desk.groups_of != "Stok":
            return None
        group = self.chance.choice((ALL_GROUPS, "Gıda", "Temizlik"))
        self.put("GurupCombo", group)
        self.desk.choose_stock_group(group)
        return "a group of goods is chosen"

    # Receipts.

    def look_up_received(self):
        new = f"Yeni Ürün {self.chance.randint(1, 9)}"
        typed = self.chance.choice(("8690002", "pir", "S3", "Çay", "Selpak 3'lü", new, "Zeytinyağı Naturel Sızma 5 lt"))
        self.put("Text6(0)", typed)
        self.key("Enter", "Text6(0)")
        self.desk.find_received(typed)
        return "a received item is looked up"

    def fill_receipt(self):
        for index in self.chance.sample((1, 2, 3, 4), 2):
            value = self.chance.choice(("1", "8", "20")) if index == 4 else self.number(90, self.chance.choice((0, 0, 2)))
            self.put(f"Text6({index})", value)
            self.desk.type_receipt(index, value)
        return "a receipt is filled in"

    def save_receipt(self):
        if not self.desk.enabled["StokAlCmd(1)"] or not self.desk.text["Text6(0)"]:
            return None
        self.confirm("StokAlCmd(1)", {self.ask({"do": "get", "at": "Text6(0)"})["text"]})
        self.desk.save_receipt()
        return "a receipt is saved"

    def close_receipt(self):
        self.tap("StokAlCmd(0)")
        self.desk.close_receipt()
        return "the receipt is closed"

    # New cards.

    def fill_card(self):
        index = self.chance.randrange(11)
        if index == 10:
            self.desk.wholesaler = not self.desk.wholesaler
            self.put("CariChk", self.desk.wholesaler)
            return "a wholesaler's card"
        texts = {0: ("k1", "C1", "yeni"), 1: ("Yeni Müşteri", "bora kaya", "Işıl Ak"), 9: ("5555", "6666")}
        text = self.chance.choice(texts.get(index, ("Ç. Sok. No:5",)))
        self.put(f"CariNew({index})", text)
        self.desk.type_card(index, text)
        return "a card is filled in"

    def save_card(self):
        if not self.desk.enabled["CariNewCmd(1)"]:
            return None
        self.robot.messages()
        self.tap("CariNewCmd(1)")
        told = self.desk.save_card()
        seen = [box["text"] for box in self.robot.messages()]
        if seen != ([told] if told else []):
            raise RuntimeError(f"the boxes {seen}, by the rules {told}")
        return "a card is saved"

    def give_up_card(self):
        self.tap("CariNewCmd(0)")
        self.desk.give_up_card()
        return "a card is given up"

    # In a sale.

    def tap_item(self):
        rows = self.desk.items.rows()
        if not rows:
            return None
        number = self.chance.randrange(len(rows))
        self.row("StokGrid", number)
        self.desk.tap_item(rows[number])
        return "an item is tapped"

    def write_item(self):
        if self.desk.text["Label1(1)"] != " Ürün":
            return None
        item = self.chance.choice(self.desk.shop.tables["StokKartlar"])["StokAdi"]
        typed = self.chance.choice(("qq", item[:1], item[:3], item))
        before = self.desk.focus
        self.put("Text1(1)", typed)
        self.desk.focus = before
        self.desk.write_item(typed)
        return "an item is written"

    def enter_code(self):
        if self.desk.text["Label1(1)"] != " Barkod":
            return None
        code = self.chance.choice(("8690001", "8690003", "8690004", "8690006", "S2", "SN-1", "999"))
        self.put("Text1(1)", code)
        self.key("Enter", "Text1(1)")
        self.desk.read_code(code)
        return "a code is typed"

    def step_codes(self):
        self.double("Label1(1)")
        self.desk.step_codes()
        return "names or codes"

    def step_price(self):
        self.double("Label1(2)")
        self.desk.step_price()
        return "the next price"

    def step_mode(self):
        self.double("Label4")
        self.desk.step_mode()
        return "the next mode"

    def set_quantity(self):
        quantity = self.number(20, self.chance.choice((0, 0, 1, 3)))
        self.write("Text2(1)", quantity)
        self.desk.put(1, quantity)
        return "a quantity is typed"

    def set_price(self):
        price = self.number(150, self.chance.choice((0, 1, 2)))
        self.write("Text2(0)", price)
        self.desk.put(0, price)
        return "a price is typed"

    def set_discount(self):
        percent = self.chance.choice(("0", "10", "12,5", "33"))
        self.put("Text2(3)", percent)
        self.desk.put(3, percent)
        return "a discount is typed"

    def take_day_total(self):
        self.double("Label5")
        self.desk.take_day_total()
        return "the day's total is taken"

    def toggle_deleting(self):
        self.tap("Silme")
        self.desk.deleting = not self.desk.deleting
        return "deletion is switched"

    def tap_line(self):
        rows = self.desk.lines.rows()
        if not rows:
            return None
        number = self.chance.randrange(len(rows))
        self.row("HareketGrid", number)
        self.desk.tap_line(rows[number])
        return "a line is tapped"

    def correct(self):
        rows = self.desk.lines.rows()
        if not rows:
            return None
        number = self.chance.randrange(len(rows))
        self.row("HareketGrid", number, True)
        self.desk.tap_line(rows[number], True)
        if self.desk.text["Command3"] == "Düzeltme" and self.desk.enabled["Command2"]:
            self.tap("Command3")
            self.desk.begin_correction()
        return "a line is put right"

    def sort_items(self):
        column = self.chance.randrange(2)
        self.head("StokGrid", column)
        self.desk.sort_items(column)
        return "the items are sorted"

    def sort_lines(self):
        column = self.chance.randrange(7)
        self.head("HareketGrid", column)
        self.desk.sort_lines(column)
        return "the lines are sorted"

    def scan(self):
        code = self.chance.choice(("8690001", "8690003", "8690004", "8690006", "SN-1", "999"))
        self.ask({"do": "scan", "code": code})
        self.desk.read_code(code)
        return "a code is scanned"

    def switch_posting_scans(self):
        self.tap("SecimTamam")
        self.desk.scans_post = not self.desk.scans_post
        return "scans that post are switched"

    def filter_items(self):
        start = self.chance.choice([start for start in ("", "p", "i", "det", "zz") if start != self.desk.text["Text5"]])
        self.put("Text5", start)
        self.desk.filter_items(start)
        return "the items are filtered"

    # The collection panel.

    def collect(self):
        desk = self.desk
        if desk.text["Command1"] != "Tahsilat":
            return None
        self.tap("Command1")
        desk.collect()
        return "a collection at once"

    def in_collection(self):
        what = self.chance.randrange(5)
        if what == 0:
            self.tap("Command7(0)")
            self.desk.leave_collection()
        elif what == 1:
            self.confirm("Command7(1)", set())
            self.desk.confirm_collection()
        elif what == 2:
            index = self.chance.randrange(2)
            self.tap(f"Command8({index})")
            self.desk.choose_instrument(index)
        elif what == 3:
            self.type_payment()
        else:
            self.next_instrument()
        return "in the collection"
