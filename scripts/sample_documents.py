#!/usr/bin/env python3
"""Prints one of each document of a sample shop, as a clerk does it at the desk.

    sample_documents.py <folder of the programs> <folder> [printer="Velmora PDF"] [number of the roll's paper=257]

The folder must not exist yet. It gets the shop (home/), what the desk says that it drew (<document>.json: a job as the robot tells it) and, where the
printer makes PDF files, <document>.pdf. Slips come on a roll of 80 mm, reports on A4. A document that comes out otherwise than once ends the
script with an error.
"""
import json
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "crash"))
from robot import Robot  # noqa: E402

COMPANY = ["ÇINAR ŞARKÜTERİ", "Atatürk Cad. No: 12|Ilıca / İzmir", "Tel : 0232 000 00 00", "7", "C:\\KarvelData\\", "Mali Değeri Yoktur."]
CUSTOMER, REGULAR = "Iğdır Şarküteri", "Banu Öztürk"
A4 = 9
# The shop's invoice paper: where each item stands, by its number; pixels from the top and the left.
INVOICE_PAPER = {0: (110, 620), 25: (110, 710), 1: (150, 60), 2: (172, 60), 3: (194, 60), 4: (216, 60), 5: (216, 300), 24: (330, 0), 12: (330, 60), 38: (330, 400),
                 13: (330, 450), 14: (330, 540), 15: (330, 640), 42: (330, 250), 6: (350, 640), 17: (350, 640), 10: (370, 640), 11: (440, 640), 31: (470, 60), 16: (490, 60)}


def lay_shop(programs, folder, printer, roll):
    """A shop with a name of its own and papers for each printer; its home and its program folder."""
    home, program = os.path.join(folder, "home"), os.path.join(folder, "program")
    subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "60", "--customers", "40", "--rows", "400"], check=True, stdout=subprocess.DEVNULL)
    os.makedirs(program)
    for name in os.listdir(programs):
        if name.lower().endswith((".mdb", ".txt")):
            shutil.copy(os.path.join(programs, name), program)
    with open(os.path.join(program, "Firmam.txt"), "w", encoding="cp1254", newline="\r\n") as company:
        company.write("".join(f"{line}\n" for line in COMPANY))
    with open(os.path.join(home, "C", "KarvelData", "FatSatir.Dat"), "w", encoding="ascii", newline="\r\n") as paper:
        paper.write("0,0,0,0\n" + "".join("{},{}\n".format(*INVOICE_PAPER.get(box, (0, 0))) for box in range(47)))
    settings = {"Dökn": printer, "Döks": roll, "Prnn": printer, "Prns": A4, "FatStr": "1111111111", "Kdv": "Hariç", "AltSatır": 2}
    lines = "".join(f"Size\\{escaped(key)}={value}\n" for key, value in settings.items())
    path = os.path.join(home, "settings.ini")
    kept = open(path, encoding="utf-8").read() if os.path.exists(path) else ""
    title = "[Velmora%20Karvel1]\n"
    with open(path, "w", encoding="utf-8") as file:
        file.write(kept.replace(title, title + lines) if title in kept else kept + title + lines)
    return home, program


def escaped(key):
    """A key as the settings file has it."""
    return "".join(letter if letter.isascii() else f"%U{ord(letter):04X}" if ord(letter) > 255 else f"%{ord(letter):02X}" for letter in key)


class Clerk:
    def __init__(self, programs, folder, printer, roll):
        self.folder, self.printer, self.roll = folder, printer, roll
        home, program = lay_shop(programs, folder, printer, roll)
        os.environ["KARVEL_PROGRAM"] = program
        self.robot = Robot(os.path.join(programs, "karvel-robot"), home)
        self.do("clock", now="2026-03-01T10:15:00")

    def do(self, what, at=None, **more):
        return self.robot.do({"do": what, **({"at": at} if at else {}), **more})

    def tap(self, at):
        self.do("click", at)

    def put(self, at, value):
        self.do("set", at, value=value)

    def paper(self, number):
        """The paper of slips and reports from now on, chosen in the printer's dialog."""
        self.do("answer", **{"with": f"{self.printer}, {number}"})
        self.tap("Command1")
        self.tap("YazıcıCmd")
        self.tap("VzgCmd")

    def printed(self, document):
        jobs = self.do("printed")["jobs"]
        if len(jobs) != 1 or jobs[0]["end"] != "EndDoc":
            raise RuntimeError(f"{document}: {len(jobs)} jobs, {self.do('get', 'Durum')['caption']}, {self.robot.messages()}")
        if jobs[0].get("pdf"):
            shutil.copy(jobs[0]["pdf"], os.path.join(self.folder, document + ".pdf"))
        with open(os.path.join(self.folder, document + ".json"), "w", encoding="utf-8") as file:
            json.dump(jobs[0], file, ensure_ascii=False, indent=1)

    def choose(self, customer):
        self.put("GurupCombo", "Tüm Guruplar")
        self.put("Text1(0)", customer)

    def sell(self, lines):
        for row, quantity in lines:
            self.do("row", "StokGrid", row=row, column=1)
            self.put("Text2(1)", quantity)
            self.tap("Command2")

    def print_all(self):
        self.new_customer()
        self.slip()
        self.small_slip()
        self.statement()
        self.invoice()
        self.reports()
        self.robot.close()

    def new_customer(self):
        self.put("Text1(0)", CUSTOMER)
        self.do("key", key="Enter")
        self.put("CariNew(0)", "igdir")
        self.put("CariNew(2)", "Cumhuriyet Mah. Iğdır Sok. No: 5")
        self.put("CariNew(3)", "Ilıca / İzmir")
        self.tap("CariNewCmd(1)")

    def slip(self):
        self.choose(CUSTOMER)
        self.do("dblclick", "Label1(0)")
        self.sell(((2, "2"), (5, "1,5"), (7, "3")))
        self.do("dblclick", "Label1(0)")
        self.put("Text2(2)", "100")
        self.tap("Command2")
        self.tap("Command1")
        self.tap("Command5(1)")
        self.printed("slip")
        self.tap("TahsilatCmd")
        self.printed("collection_slip")
        self.tap("VzgCmd")

    def small_slip(self):
        self.tap("A5")
        self.tap("Command1")
        self.tap("Command5(1)")
        self.printed("small_slip")
        self.tap("VzgCmd")
        self.tap("A5")

    def statement(self):
        self.paper(A4)
        self.choose(REGULAR)
        self.tap("Command1")
        self.tap("Command5(2)")
        self.put("DTPicker1", "2025-05-01")
        self.tap("Command5(2)")
        self.printed("statement")
        self.tap("VzgCmd")

    def invoice(self):
        self.choose(CUSTOMER)
        self.tap("Command4")
        self.put("Fat(2)", "Cumhuriyet Mah. Iğdır Sok. No: 5")
        self.put("Fat(3)", "Ilıca / İzmir")
        self.tap("FatCmd(1)")
        self.printed("invoice")

    def reports(self):
        self.put("StokChk", True)
        self.tap("Command1")
        self.printed("stock_status")
        self.put("StokChk", False)
        self.put("CiroChk", True)
        self.tap("CiroYazCmd")
        self.printed("turnover")
        self.tap("CiroYaz(1)")
        self.tap("CiroYazCmd")
        self.printed("orders")
        self.put("CiroChk", False)
        self.paper(self.roll)
        self.put("CiroChk", True)
        self.tap("ZRaporu")
        self.printed("z_report")


def main():
    if not 3 <= len(sys.argv) <= 5:
        sys.exit(__doc__)
    programs, folder = (os.path.abspath(path) for path in sys.argv[1:3])
    os.makedirs(folder)
    printer, roll = (sys.argv[at] if len(sys.argv) > at else usual for at, usual in ((3, "Velmora PDF"), (4, 257)))
    Clerk(programs, folder, printer, roll).print_all()


if __name__ == "__main__":
    main()
