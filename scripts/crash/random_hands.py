#!/usr/bin/env python3
"""Hands that know nothing of the desk: taps, keys, texts, codes and answers at random, wherever the desk lets them. It must go on answering, say
nothing on its error output, close when it is asked to, and leave sound files with whole postings in them. At every other seed the hands also
delete customers and rows, which leaves what belongs to them alone. The screen has another size at each seed.

    random_hands.py <folder of the programs> [seeds=4] [requests=1500] [first seed=1]

What a fault was found with lies in its home as hands.jsonl: the robot plays it again.
"""
import json
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time

import shop_check
from robot import Gone, Robot

PATIENCE = 60  # seconds for one answer; the sanitizers' builds on a busy machine are slow
TEXT_BOXES = ["Text1(0)", "Text1(1)", "Text2(0)", "Text2(1)", "Text2(2)", "Text2(3)", "Text3", "Text4", "Text5", "Stoktxt"] + [
    f"{name}({i})" for name, count in (("StokNew", 8), ("CariNew", 10), ("Text6", 6), ("Fat", 10)) for i in range(count)]
GRIDS = ["CariGrid", "StokGrid", "HareketGrid", "CariDBGrid", "FatGrid"]
COMBOS = ["GurupCombo", "GrpCombo", "Drive1"]
CHECKS = ["StokChk", "CiroChk", "SilinenChk", "CariChk", "StokCek", "FatDüzChk"]
DATES = ["DTPicker1", "DTPicker2(0)", "DTPicker2(1)", "FatDTPicker"]
TAPPED = ["Command1", "Command2", "Command3", "Command4", "Label3", "Label4", "Label5", "Label8", "ComboCmd", "DökNoYaz", "CariHesCmd", "CariCmd", "VzgCmd",
          "TahsilatCmd", "CiroYazCmd", "ZRaporu", "Command9", "NakitCmd", "Label15", "List1", "List2", "Picture2(0)", "Form1", "Frame2"] + [
    f"{name}({i})" for name, count in (("Label1", 8), ("StokNewCmd", 2), ("CariNewCmd", 2), ("StokAlCmd", 2), ("Command8", 2), ("Command7", 2),
                                       ("Command5", 3), ("FatCmd", 2), ("Command10", 2), ("Label12", 6)) for i in range(count)]
PAD = ["Form3", "Form3.Text1", "Form3.Label1", "Form3.Label2", "Form3.Command1", "Form3.Tamam", "Form3.Tamam", "Form3.Cmdc", "Form3.cmdpoint", "Form3.Comonlu(0)",
       "Form3.Comonlu(1)", "Form3.MikMenu(0)", "Form3.MikMenu(1)", "Form3.MikMenu(2)"] + [f"Form3.cmd({i})" for i in range(10)]
KEYBOARD = ["Form2", "Form2.Text1", "Form2.Command1"] + [f"Form2.Label1({i})" for i in range(50)]
SMALL = PAD + KEYBOARD
SIZES = ["1024x768", "1366x768", "1920x1080", "960x640"]
MENUS = ["PencereSabit", "Yuzde", "BarkodOku", "SecimTamam", "AySil", "Stoklu", "FiyatSabit", "Fiyat2", "AraVer", "A5", "Efatura80cm"]
KEYS = ["Enter", "Tab", "Shift+Tab", "Escape", "Delete", "Backspace", "Left", "Right", "Up", "Down", "Home", "End", "PageUp", "PageDown", "Ctrl+A", "Space", "F1", "F8",
        "Ctrl+Left", "Ctrl+Down", "Alt+Up", "Alt+Right", "Menu", "F2", "F3", "F4", "F6", "F7", "F10", "Insert", "Ctrl+V", "Ctrl+X", "Ctrl+Z"]
TEXTS = ["", " ", "1", "2", "12", "0", "-5", "1,5", "1.234,56", "999999999", "0,01", "abc", "Ayşe", "İ", "ı", "I", "i", "Müşteri", "a*", "?a", "[", "[a-", "#", "'",
         '"', "' Or ''='", "*", "!", "%", "_", "\t", "x" * 300, "=100", "8690001", "Muhtelif Müşteri", "Tüm Guruplar", "Toptan", "sifre", "\u20ac\u011f", "1e9", "nan"]
CLOCKS = ["2026-03-01T10:15:00", "2026-03-01T23:59:59", "2026-03-02T00:00:00", "2026-12-31T23:59:00", "2027-01-01T00:00:10", "2024-02-29T12:00:00"]


class Hands:
    def __init__(self, home, chance, deletes):
        self.chance = chance
        self.picture = os.path.join(home, "hands.png")
        self.tapped_menus = MENUS + (["CarSil", "Silme"] if deletes else [])
        connection = shop_check.Shop(home).open("Stok.mdb")
        self.codes = [str(row[0]) for row in connection.execute("SELECT Barkod FROM StokKartlar WHERE Barkod <> '' LIMIT 20")]
        self.items = [row[0] for row in connection.execute("SELECT StokAdi FROM StokKartlar LIMIT 20")]
        connection.close()
        connection = shop_check.Shop(home).open("Cari.mdb")
        self.customers = [row[0] for row in connection.execute("SELECT Unvan FROM CariKartlar LIMIT 40")]
        connection.close()

    def text(self):
        return self.chance.choice((self.chance.choice(TEXTS), self.chance.choice(self.customers), self.chance.choice(self.items), str(self.chance.randint(0, 50))))

    def next(self):
        pick = self.chance.choice
        kinds = {
            12: lambda: {"do": "click", "at": pick(TAPPED)},
            5: lambda: {"do": pick(("dblclick", "rightclick", "press", "release")), "at": pick(TAPPED + TEXT_BOXES + GRIDS)},
            4: lambda: {"do": "click", "at": pick(self.tapped_menus + CHECKS)},
            4.5: lambda: {"do": "click", "at": pick(TEXT_BOXES)},
            15: lambda: {"do": "click", "at": pick(PAD)},
            14.5: lambda: {"do": "click", "at": pick(KEYBOARD)},
            1.2: lambda: {"do": pick(("dblclick", "rightclick", "press", "release")), "at": pick(SMALL)},
            1.1: lambda: {"do": "drag", "at": pick(("Form2", "Form3", "TahsilatFrame", "StokAl")), "dx": self.chance.randint(-300, 300),
                          "dy": self.chance.randint(-300, 300)},
            0.9: lambda: {"do": "type", "at": pick(("Form2.Text1", "Form3.Text1")), "text": self.text() + pick(("", "", "\n"))},
            0.8: lambda: {"do": "click", "at": pick(("Klv(0)", "Klv(1)", "Klv(2)", "Form2.Label1(47)", "Form2.Label1(49)"))},
            14: lambda: {"do": "row", "at": pick(GRIDS), "row": self.chance.randint(0, 8), "column": self.chance.randint(0, 6), "dblclick": self.chance.random() < 0.2},
            1: lambda: {"do": "head", "at": pick(GRIDS), "column": self.chance.randint(0, 8)},
            16: lambda: {"do": "set", "at": pick(TEXT_BOXES), "value": self.text()},
            13: lambda: {"do": "type", "at": pick(TEXT_BOXES + GRIDS), "text": self.text() + pick(("", "", "\n"))},
            10: lambda: {"do": "key", "key": pick(KEYS)},
            3: lambda: {"do": "set", "at": pick(COMBOS), "value": pick(("Tüm Guruplar", "Müşteri", "Toptan", "Gıda", ""))},
            2: lambda: {"do": "set", "at": pick(CHECKS), "value": self.chance.random() < 0.5},
            6: lambda: {"do": "scan", "code": pick(self.codes + ["404", "", "'"])},
            8: lambda: {"do": "answer", "with": pick(("Yes", "No", "OK", "Cancel", "sifre", "12", "0", "200", "x"))},
            7: lambda: {"do": "dblclick", "at": pick(("Label1(0)", "Label1(0)", "Label1(2)", "Label1(3)", "Label1(1)"))},
            9: lambda: {"do": "click", "at": pick(("Command2", "Command2", "Label4", "Label3"))},
            0.3: lambda: {"do": "clock", "now": pick(CLOCKS)},
            0.5: lambda: {"do": "set", "at": pick(DATES), "value": pick(("2026-03-01", "2020-01-01", "2030-12-31"))},
            0.7: lambda: {"do": "connection", "up": self.chance.random() < 0.7},
            0.2: lambda: {"do": "shot", "file": self.picture},
            1.5: lambda: {"do": pick(("state", "messages", "printed"))},
            2.5: lambda: {"do": pick(("grid", "get")), "at": pick(GRIDS)},
        }
        return self.chance.choices(list(kinds.values()), list(kinds))[0]()


def play(program, home, seed, requests):
    """The fault, or None; and what is told of the run."""
    deletes = seed % 2 == 0
    hands = Hands(home, random.Random(seed), deletes)
    # Beside the answers, so that a desk that complains at length is not held up by a full pipe.
    errors = open(os.path.join(home, "errors.txt"), "w+b")
    robot = Robot(program, home, errors=errors)
    done, starts, slowest, fault = 0, 1, (0.0, {}), None
    with open(os.path.join(home, "hands.jsonl"), "w", encoding="utf-8") as script:
        for _ in range(requests):
            request = hands.next()
            script.write(json.dumps(request, ensure_ascii=False) + "\n")
            script.flush()
            begin = time.monotonic()
            try:
                done += robot.ask(request, PATIENCE)["ok"]
            except Gone:
                robot.end()
                if robot.process.returncode != 0:
                    fault = f"the desk went with {robot.process.returncode} at {request}"
                    break
                starts += 1  # some tap closed it
                robot = Robot(program, home, errors=errors)
                continue
            except TimeoutError:
                fault = f"no answer to {request}"
                break
            slowest = max(slowest, (time.monotonic() - begin, request), key=lambda pair: pair[0])
    if fault:
        if robot.process.returncode is None:
            robot.kill()
    else:
        robot.close()
        if robot.process.returncode != 0:
            fault = f"it closed with {robot.process.returncode}"
    errors.seek(0)
    told = "".join(line for line in errors.read().decode(errors="replace").splitlines(True) if "This plugin does not support" not in line)
    errors.close()
    if told and not fault:
        fault = "it complained"
    if fault:
        return f"{fault}\n{told[-3000:]}", ""
    shop = shop_check.Shop(home)
    faults = shop_check.integrity(shop)
    connection = shop.all()
    faults += shop_check.balances(connection) + ([] if deletes else shop_check.whole_postings(connection))
    connection.close()
    return (faults[0] if faults else None), (f"{requests} requests, {done} of them possible, {starts} starts; the longest took {slowest[0] * 1000:.0f} ms: "
                                             + json.dumps(slowest[1], ensure_ascii=False))


def run(programs, seeds, requests, first):
    program = os.path.join(programs, "karvel-robot")
    for seed in range(first, first + seeds):
        home = tempfile.mkdtemp(prefix="karvel-hands-")
        subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "60", "--customers", "40", "--rows", "400"], check=True)
        os.environ["KARVEL_SIZE"] = SIZES[seed % len(SIZES)]
        fault, told = play(program, home, seed, requests)
        if fault:
            print(f"seed {seed}: {fault}\nThe shop lies in {home}")
            return 1
        print(f"seed {seed}: {told}")
        shutil.rmtree(home)
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 5:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], *[int(word) for word in sys.argv[2:]] + [4, 1500, 1][len(sys.argv) - 2:]))
