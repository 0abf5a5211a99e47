"""Random walks over all that a clerk can do at the desk, against a model that knows the rules.

    walk.py PROGRAMS SEEDS [--desks 2] [--actions 60] [--first 1] [--trace]

PROGRAMS is the folder with karvel-robot and the templates. With KARVEL_TEST_ENGINE=postgres the desks work on a main machine's stores. Each seed is a shop and a walk of its own; with two desks it is at random whose turn
it is. After each action the screen must read what the model says, and every row of every table too; and whom the screen named before a
confirming tap, he alone is booked to. The first difference ends a walk, and the way there is told.
"""
import argparse
import json
import os
import random
import shutil
import sqlite3
import sys
import tempfile
from datetime import datetime, timedelta

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "crash"))

from desk_model import Desk  # noqa: E402
from hands import Hands  # noqa: E402
from robot import Robot  # noqa: E402
from server_stores import Server, ServerStores, fill  # noqa: E402
from shop_model import Shop, Stores, as_stored  # noqa: E402

START = datetime(2026, 3, 1, 10, 15)
CUSTOMERS = [("=100", "Kasa", "Kasa"), ("=110", "Faturalar", "Kasa"), ("=150", "Pos", "Kasa"), ("=500", "Senetler", "Kasa"), ("=600", "Çekler", "Kasa"),
             ("C1", "Ayşe Yılmaz", "Müşteri"), ("C2", "İsmail Şahin", "Müşteri"), ("C3", "Ilgaz Bakkal", "Fatura"), ("C4", "Bora Kaya", "Fatura"),
             ("C5", "Bora Kaya", "Müşteri"), ("C6", "İbrahim Usta", "Müşteri"), ("C7", "O'Hara Market", "Bayi"), ("C8", "Ayhan Demir", "Bayi"),
             ("P1", "Can Plasiyer", "Plasiyer"), ("Merkez", "Merkez Depo", "Müşteri"), ("T1", "Toptan Gıda", "Toptan"), ("T2", "Bereket Toptan", "Toptan")]
ITEMS = [("S1", "Pirinç", "8690001", "Adet", "Koli", 12, 24, 12.5, 140, 270, 9, 1, "Gıda"),
         ("S2", "Şeker", "8690002", "Kg", "", 0, 0, 30, 0, 0, 20, 0, "Gıda"),
         ("S3", "Deterjan", "8690003", "Adet", "", 0, 0, 80, 75, 0, 60, 1, "Temizlik"),
         ("S4", "Pirinç Baldo", "8690004", "Kg", "", 0, 0, 33.335, 0, 31, 25, 1, "Gıda"),
         ("S5", "Çay", "8690005", "Adet", "Koli", 0, 0, 0.07, 0.06, 0, 0.05, 1, "Gıda"),
         ("S6", "Selpak 3'lü", "8690006", "Adet", "", 0, 0, 42, 0, 0, 40, 0, "Temizlik")]
GROUPS = (("Bayi", 1), ("Fatura", 1), ("Müşteri", 1), ("Toptan", 1), ("Boş", 1), ("Eski", 0))
PASSWORD = "anahtar"
FIELDS = ("Text", "CariNew(", "GurupCombo", "Stoktxt")  # what they read is their text, not their caption


class Difference(Exception):
    """The desk isn't as the model says."""


def furnish(programs, home, chance):
    """A shop of a few cards, some of whom owe from before."""
    folder = os.path.join(home, "C", "KarvelData")
    os.makedirs(folder)
    for name in os.listdir(programs):
        if name.lower().endswith(".mdb") and name != "DataTemp.Mdb":
            shutil.copy(os.path.join(programs, name), folder)
    with sqlite3.connect(os.path.join(folder, "Cari.mdb")) as cards:
        cards.executemany("INSERT INTO CariKartlar (CariKod, Unvan, Gurup, Hesap) VALUES (?, ?, ?, 'Borç')", CUSTOMERS)
        cards.executemany("INSERT INTO Gurup (Gurup, Grp) VALUES (?, ?)", GROUPS)
        for code in ("C1", "C2", "C4"):
            owed, days = chance.randrange(8, 200, 2), chance.randint(-12, 12)
            cards.execute("UPDATE CariKartlar SET Borc = ?, Bakiye = ? WHERE CariKod = ?", (owed, owed, code))
            for part in range(2):
                cards.execute('INSERT INTO "VadeGün" VALUES (?, ?, ?)', (code, f"{START + timedelta(days + 7 * part):%Y-%m-%d 00:00:00}", owed / 2))
    with sqlite3.connect(os.path.join(folder, "Stok.mdb")) as goods:
        goods.executemany("INSERT INTO StokKartlar (StokKod, StokAdi, Barkod, Birim, Birim2, Adet2, Adet3, Fiyat, Fiyat2, Fiyat3, gFiyat, Maliyet, Gurup) "
                          "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)", ITEMS)
        goods.execute("UPDATE StokKartlar SET GirenMik = 10, GirenTutar = 600, KalanB = 10 WHERE StokKod = 'S3'")
        goods.executemany("INSERT INTO Gurup (Gurup, Grp) VALUES (?, 1)", [("Gıda",), ("Temizlik",)])
    with sqlite3.connect(os.path.join(folder, "SeriNo.mdb")) as serials:
        serials.execute("INSERT INTO SeriNo (StokKod, barcode) VALUES ('S2', 'SN-1')")
    with open(os.path.join(folder, "FatSatir.Dat"), "w", encoding="ascii") as layout:
        layout.write("0,0,0,0\n" + "".join(f"{20 + 10 * box},{40 + 8 * box}\n" for box in range(47)))
    with open(os.path.join(home, "settings.ini"), "w", encoding="utf-8") as settings:
        settings.writelines(f"[Velmora%20Karvel{number}]\nSize\\Prnn=Velmora PDF\n" for number in (1, 2))


def join_main_machine(program, home, server, firm):
    """The shop moves to a firm on the server: a desk that starts makes its tables."""
    folder, share = os.path.join(home, "C", "KarvelData"), os.path.join(home, "net", server.address(), "MuhasebeData", firm)
    with open(os.path.join(home, "settings.ini"), "r+", encoding="utf-8") as settings:
        own = settings.read()
        settings.seek(0)
        settings.write(own.replace("Size\\Prnn", f"Size\\Online={server.address()}\nSize\\Firma={firm}\nSize\\Prnn"))
    Robot(program, home).close()
    fill(server, firm, folder)
    shutil.copy(os.path.join(folder, "FatSatir.Dat"), share)
    shutil.rmtree(folder)


class Walk:
    def __init__(self, options, seed, server):
        self.chance = random.Random(seed)
        self.folder = tempfile.mkdtemp(prefix="karvel-walk-")
        self.trace, self.history = options.trace, []
        home = os.path.join(self.folder, "home")
        furnish(options.programs, home, self.chance)
        program = os.path.join(options.programs, "karvel-robot")
        firm = f"w{os.getpid()}x{seed}"
        if server:
            join_main_machine(program, home, server, firm)
        self.robots = [Robot(program, home, f"Velmora Karvel{number}") for number in range(1, options.desks + 1)]
        for robot in self.robots:
            self.set_passwords(robot)
        self.stores = ServerStores(server, firm) if server else Stores(home)
        self.shop = Shop(self.stores)
        self.now = START
        self.desks = [Desk(self.shop, number, START) for number in range(1, options.desks + 1)]
        self.hands = [Hands(self, robot, desk) for robot, desk in zip(self.robots, self.desks)]

    @staticmethod
    def set_passwords(robot):
        """The first entry becomes the password of each lock."""
        for request in ({"do": "answer", "with": PASSWORD}, {"do": "answer", "with": PASSWORD}, {"do": "rightclick", "at": "CariGrid"},
                        {"do": "key", "key": "Escape"}, {"do": "answer", "with": PASSWORD}, {"do": "set", "at": "SilinenChk", "value": True}):
            robot.do(request)
        robot.messages()

    def play(self, actions):
        self.compare("the start")
        for _ in range(actions):
            self.now += timedelta(seconds=self.chance.randint(5, 1200), days=self.chance.random() < 0.02)
            desk = self.chance.randrange(len(self.desks))
            self.desks[desk].now = self.now
            self.hands[desk].ask({"do": "clock", "now": self.now.isoformat()})
            told = self.hands[desk].act()
            self.compare(told)

    def note(self, desk, request, answer):
        self.history.append(f"{desk}: {json.dumps(request, ensure_ascii=False)}" + ("" if answer.get("ok") else f"  <- {answer}"))
        if self.trace:
            print(self.history[-1])

    def compare(self, told):
        self.history.append(f"-- {told}")
        if self.trace:
            print(self.history[-1])
        differences = [f"desk {desk.terminal}, {where}: {seen!r}, by the rules {expected!r}" for robot, desk in zip(self.robots, self.desks)
                       for where, expected, seen in self.screens(robot, desk) if seen != expected]
        differences += self.rows()
        if differences:
            raise Difference("\n".join(differences))

    def screens(self, robot, desk):
        expected = desk.screen()
        elements = {where.split(" ")[0] for where in expected}
        for element in elements:
            robot.send({"do": "get", "at": element})
        seen = {}
        for element in elements:
            answer = robot.answer()
            seen[element] = answer["text" if element.startswith(FIELDS) else "caption"]
            seen[f"{element} enabled"], seen[f"{element} visible"] = answer["enabled"], answer["visible"]
        for element, value in expected.items():
            yield element, value, seen[element]
        if len(self.desks) == 1:
            for grid, current in desk.currents().items():
                yield f"{grid} current", current, robot.do({"do": "grid", "at": grid, "limit": 1})["current"]

    def rows(self):
        differences = []
        for table, rows in self.stores.tables().items():
            expected = [as_stored(row) for row in self.shop.tables[table]]
            if rows == expected:
                continue
            if len(rows) != len(expected):
                differences.append(f"{table}: {len(rows)} rows, by the rules {len(expected)}")
            for row, other in zip(rows, expected):
                wrong = [f"{column} {row[column]!r}, by the rules {other[column]!r}" for column in row if row[column] != other[column]]
                if wrong:
                    differences.append(f"{table} {[value for value in row.values() if value not in ('', 0)][:4]}: " + "; ".join(wrong))
        return differences

    def end(self):
        for robot in self.robots:
            robot.close()
        self.stores.close()
        shutil.rmtree(self.folder)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs")
    parser.add_argument("seeds", type=int)
    parser.add_argument("--desks", type=int, default=1)
    parser.add_argument("--actions", type=int, default=60)
    parser.add_argument("--first", type=int, default=1)
    parser.add_argument("--trace", action="store_true")
    options = parser.parse_args()
    failed = 0
    server = Server(options.programs) if os.environ.get("KARVEL_TEST_ENGINE") == "postgres" else None
    for seed in range(options.first, options.first + options.seeds):
        walk = Walk(options, seed, server)
        try:
            walk.play(options.actions)
        except Exception as difference:  # whatever it is, it is told with the way there
            failed += 1
            print(f"seed {seed}:", *walk.history[-40:], f"{type(difference).__name__}: {difference}", sep="\n  ")
            if not isinstance(difference, Difference):
                raise
        finally:
            walk.end()
    if server:
        server.end()
    print(f"{options.seeds - failed} of {options.seeds} walks as the rules say")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
