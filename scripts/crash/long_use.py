#!/usr/bin/env python3
"""One desk is worked at for very long: what it keeps in memory, how fast it answers and what it holds open stay as they were when it was warm.

    long_use.py <folder of the programs> [actions=100000] [home=a new folder]

The first fifth warms it up. Then the memory may grow by 5 MB, the last part may take a quarter longer than the first after it, and as many files
and threads are open as then. The books are looked over at the end.
"""
import json
import os
import random
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from datetime import datetime, timedelta

import shop_check
from clerk import INSTRUMENTS, UNSEARCHABLE, WALK_IN, double, put, row, tap, typed
from robot import Robot

PARTS = 100  # of the work, each with a figure
MOST_GROWTH = 5 * 1024  # KB
MOST_SLOWING = 1.25


class Hands:
    """A clerk who needs no look into the files: he knows his customers, and what stands first in a list."""

    def __init__(self, home, chance):
        self.chance = chance
        self.now = datetime(2026, 3, 1, 9)
        self.wholesale = True  # whether the list of wholesalers may be in front
        connection = shop_check.Shop(home).all()
        self.customers = [name for name, in connection.execute("SELECT Unvan FROM CariKartlar WHERE Gurup NOT IN ('Toptan', 'Plasiyer') AND HesKullan = 0 AND "
                                                               "CariKod NOT LIKE '=%' AND CariKod <> 'Merkez' GROUP BY Unvan HAVING count(*) = 1 LIMIT 30")]
        self.wholesalers = [name for name, in connection.execute("SELECT Unvan FROM CariKartlar WHERE Gurup = 'Toptan' AND HesKullan = 0 LIMIT 5")]
        self.items = [name for name, in connection.execute("SELECT StokAdi FROM StokKartlar WHERE StokGizle = 0 LIMIT 50")]
        self.codes = [code for code, in connection.execute("SELECT Barkod FROM StokKartlar WHERE Barkod <> '' LIMIT 50")]
        connection.close()
        for names in (self.customers, self.wholesalers, self.items):
            names[:] = [name for name in names if not UNSEARCHABLE & set(name)]

    def next(self):
        """The requests of the next actions, and how many these are."""
        self.now += timedelta(seconds=self.chance.randint(20, 60))
        kinds = {self.sell: 40, self.scan: 10, self.collect: 14, self.collect_at_once: 6, self.pay: 6, self.correct: 6, self.cancel: 6, self.receive: 5,
                 self.look_around: 7}
        kind = self.chance.choices(list(kinds), list(kinds.values()))[0]
        lines = self.chance.randint(1, 4) if kind == self.sell else 1
        return [{"do": "clock", "now": self.now.isoformat()}, *(kind(lines) if kind == self.sell else kind())], lines

    def anybody(self, name=None):
        everybody = [put("GurupCombo", "Toptan"), put("GurupCombo", "Tüm Guruplar")] if self.wholesale else []
        self.wholesale = False
        return [*everybody, put("Text1(0)", name or self.chance.choice(self.customers))]

    def anybody_wholesale(self):
        self.wholesale = True
        return [put("GurupCombo", "Tüm Guruplar"), put("GurupCombo", "Toptan"), put("Text1(0)", self.chance.choice(self.wholesalers))]

    def in_sale(self, *requests):
        return [*self.anybody(), double("Label1(0)"), *requests, row("StokGrid", 0), double("Label1(0)")]

    def sell(self, lines):
        mode = self.chance.choices((0, 1, 2), (8, 1, 1))[0]
        return self.in_sale(*[request for _ in range(lines) for request in (
            row("StokGrid", self.chance.randrange(8)), *[double("Label4")] * mode, put("Text2(1)", str(self.chance.randint(1, 5))), tap("Command2"))])

    def scan(self):
        return self.in_sale({"do": "scan", "code": self.chance.choice(self.codes)}, put("Text2(1)", "1"), tap("Command2"))

    def collect(self):
        return [*self.anybody(), *[tap("Label3")] * self.chance.randrange(len(INSTRUMENTS)), put("Text2(2)", typed(self.chance.uniform(5, 400))), tap("Command2")]

    def collect_at_once(self):
        return [*self.anybody(WALK_IN), double("Label1(0)"), row("StokGrid", 1), put("Text2(1)", "1"), tap("Command2"), tap("Command1"),
                tap("Command7(1)"), row("StokGrid", 0), double("Label1(0)")]

    def pay(self):
        return [*self.anybody_wholesale(), put("Text2(2)", typed(self.chance.uniform(5, 400))), tap("Command2")]

    def correct(self):
        return self.in_sale(row("StokGrid", 2), put("Text2(1)", "2"), tap("Command2"), row("HareketGrid", 0, True), tap("Command3"),
                            put("Text2(1)", f"{self.chance.randint(1, 9)},5"), tap("Command2"))

    def cancel(self):
        return self.in_sale(row("StokGrid", 3), put("Text2(1)", "2"), tap("Command2"), row("HareketGrid", 0), {"do": "answer", "with": "Yes"}, tap("Command2"))

    def receive(self):
        return [*self.anybody_wholesale(), put("StokChk", True), put("Text6(0)", self.chance.choice(self.items)), {"do": "key", "key": "Enter"}, put("Text6(1)", "10"), put("Text6(2)", "15"), put("Text6(3)", "4"),
                tap("StokAlCmd(1)"), tap("StokAlCmd(0)")]

    def look_around(self):
        return [*self.anybody(), put("Text5", self.chance.choice("aeıisk")), put("Text5", ""), {"do": "head", "at": "CariGrid", "column": 1}, tap("ComboCmd"),
                tap("ComboCmd"), {"do": "grid", "at": "CariGrid"}, {"do": "state"}, {"do": "messages"}, {"do": "printed"}]


def figures(process):
    with open(f"/proc/{process}/status", encoding="utf-8") as status:
        fields = dict(line.split(":", 1) for line in status)
    return {"memory": int(fields["VmRSS"].split()[0]), "threads": int(fields["Threads"]), "files": len(os.listdir(f"/proc/{process}/fd"))}


def main():
    programs, actions = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 100000
    home = os.path.join(sys.argv[3] if len(sys.argv) > 3 else tempfile.mkdtemp(prefix="karvel-long-"), "home")
    subprocess.run([os.path.join(programs, "karvel-sample-shop"), home], check=True, stdout=subprocess.DEVNULL)
    robot = Robot(os.path.join(programs, "karvel-robot"), home)
    hands = Hands(home, random.Random(1))
    history = []
    try:
        for part in range(PARTS):
            spent = []
            done = 0
            while done < actions // PARTS:
                requests, lines = hands.next()
                done += lines
                begin = time.monotonic()
                for request in requests:
                    answer = robot.ask(request)
                    if not answer["ok"]:
                        raise RuntimeError(f"{request}: {answer['error']}")
                spent.append((time.monotonic() - begin) * 1000 / lines)
            history.append({"actions": (part + 1) * (actions // PARTS), "median": round(statistics.median(spent), 2), **figures(robot.process.pid)})
            if (part + 1) % (PARTS // 10) == 0:
                print(json.dumps(history[-1]), flush=True)
    finally:
        robot.close()
    faults = shop_check.check_worked_on(home, ())
    warm, end = history[PARTS // 5 - 1], history[-1]
    if end["memory"] - warm["memory"] > MOST_GROWTH:
        faults.append(f"memory grew from {warm['memory']} to {end['memory']} KB")
    for what in ("threads", "files"):
        if end[what] != warm[what]:
            faults.append(f"{what}: {warm[what]} when it was warm, {end[what]} at the end")
    first, last = (statistics.median(part["median"] for part in parts) for parts in (history[PARTS // 5:PARTS // 5 + 5], history[-5:]))
    if last > first * MOST_SLOWING:
        faults.append(f"an action took {first} ms when it was warm, {last} ms at the end")
    print(f"{actions} actions: memory {warm['memory']} to {end['memory']} KB, an action {first} to {last} ms, {end['files']} files open", *faults, sep="\n  ")
    if not faults and len(sys.argv) <= 3:
        shutil.rmtree(os.path.dirname(home))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
