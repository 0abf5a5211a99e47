#!/usr/bin/env python3
"""Many desks of one shop post at once, all the same item to the same customer, and nothing of it gets lost or doubled.

    many_desks.py <folder of the programs> [desks=8] [lines=500] [kills=0]

So many times one of them is killed meanwhile, whatever it is at; it starts again beside the others and goes on until its lines are posted.
"""
import os
import random
import shutil
import subprocess
import sys
import tempfile
import threading
import time

import shop_check
from robot import CUSTOMER, Gone, Robot

QUANTITY = 2


class Desk(threading.Thread):
    def __init__(self, program, home, number, lines):
        super().__init__()
        self.lines = lines
        self.number = number
        self.ids = []  # of the lines that were answered, but for those of which a kill left no time to ask
        self.answered = self.untold = self.kills = 0
        self.longest = 0.0
        self.fault = None
        self.start_robot = lambda: Robot(program, home, f"Velmora Karvel{number}")
        self.begin_again()

    def begin_again(self):
        while True:
            self.robot = self.start_robot()
            try:
                return self.robot.enter_sale()
            except Gone:
                self.robot.end()

    def run(self):
        try:
            while self.answered < self.lines:
                try:
                    self.post_one()
                    shown = self.robot.messages()
                    if shown:
                        raise RuntimeError(f"it showed {shown[0]['text']}")
                except Gone:
                    self.robot.end()
                    self.begin_again()
        except Exception as error:  # told at the end, with the desk's number
            self.fault = f"desk {self.number}: {error!r}"

    def post_one(self):
        self.robot.pick(0, QUANTITY)
        begin = time.monotonic()
        try:
            self.robot.post()
        except Gone:
            self.untold += 1
            raise
        self.longest = max(self.longest, time.monotonic() - begin)
        self.answered += 1
        self.ids.append(self.robot.state()["CurrentLineId"])


def kill_some(tills, kills):
    """Kills desks, whatever they are at, for as long as one of them is at work."""
    for _ in range(kills):
        time.sleep(random.uniform(0.05, 0.6))
        working = [till for till in tills if till.is_alive()]
        if not working:
            break
        till = random.choice(working)
        till.robot.process.kill()
        till.kills += 1


def look_over(home, before, tills, stock_before, owed_before, number_before):
    faults = shop_check.check(home, before)
    connection = shop_check.Shop(home).all()
    answered, untold = sum(till.answered for till in tills), sum(till.untold for till in tills)

    def one(sql, *values):
        return connection.execute(sql, values).fetchone()

    def expect(what, is_now, should_be):
        if abs(is_now - should_be) > 0.0005:
            faults.append(f"{what}: {is_now}, should be {should_be}")

    rows = connection.execute("SELECT DigerId, StokKod, Tutar FROM Datam WHERE Tarih LIKE '2026-03-01%'").fetchall()
    posted = len(rows)
    if not answered <= posted <= answered + untold:
        faults.append(f"{posted} day-book rows, where {answered} lines were answered and {untold} more were in flight")
    expect("different ids", len({row[0] for row in rows}), posted)
    if len({row[1] for row in rows}) != 1:
        faults.append("the desks sold different items")
    item, amount = rows[0][1], sum(row[2] for row in rows)
    expect("CikanMik", one("SELECT CikanMik FROM StokKartlar WHERE StokKod = ?", item)[0], stock_before[item] + posted * QUANTITY)
    expect("Borc", one("SELECT Borc FROM CariKartlar WHERE CariKod = ?", CUSTOMER)[0], owed_before + amount)
    expect("running number", int(one("SELECT Indexi FROM Mdbindex WHERE Tarih = '2026'")[0][2:]), number_before + posted)
    due = connection.execute("SELECT Tutar FROM \"VadeGün\" WHERE CariKod = ? AND VadeTarih LIKE '2026-03-01%'", (CUSTOMER,)).fetchall()
    expect("due-date rows of the day", len(due), 1)
    expect("due amount", sum(row[0] for row in due), amount)
    shared = connection.execute("""SELECT SeriNo, count(DISTINCT Plasiyer) FROM Datam WHERE Tarih LIKE '2026-03-01%'
                                   GROUP BY SeriNo HAVING count(DISTINCT Plasiyer) > 1""").fetchall()
    faults += [f"slip {slip} was given to {count} desks" for slip, count in shared]
    connection.close()
    return faults, {row[0] for row in rows}


def run(programs, desks, lines, kills):
    home = tempfile.mkdtemp(prefix="karvel-desks-")
    program = os.path.join(programs, "karvel-robot")
    subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "60", "--customers", "40", "--rows", "400"], check=True)
    shop = shop_check.Shop(home)
    before = shop_check.openings(shop)
    connection = shop.all()
    stock_before = dict(connection.execute("SELECT StokKod, CikanMik FROM StokKartlar"))
    owed_before = connection.execute("SELECT Borc FROM CariKartlar WHERE CariKod = ?", (CUSTOMER,)).fetchone()[0]
    number_before = int(connection.execute("SELECT Indexi FROM Mdbindex WHERE Tarih = '2026'").fetchone()[0][2:])
    connection.close()

    tills = [Desk(program, home, number + 1, lines) for number in range(desks)]
    begin = time.monotonic()
    for till in tills:
        till.start()
    kill_some(tills, kills)
    for till in tills:
        till.join()
    took = time.monotonic() - begin
    faults = [till.fault for till in tills if till.fault]
    for till in tills:
        till.robot.close()
    found, all_ids = look_over(home, before, tills, stock_before, owed_before, number_before)
    faults += found
    for till in tills:
        missing = set(till.ids) - all_ids
        if missing:
            faults.append(f"desk {till.number}: {len(missing)} answered postings are gone")
    if faults:
        print("\n".join(faults[:20]) + f"\nThe shop lies in {home}")
        return 1
    killed, untold = sum(till.kills for till in tills), sum(till.untold for till in tills)
    print(f"{desks} desks, {desks * lines} lines in {took:.0f} s: none lost, none doubled; the longest wait was {max(till.longest for till in tills) * 1000:.0f} ms"
          + (f"; {killed} kills, {untold} of them in the middle of a posting" if kills else ""))
    shutil.rmtree(home)
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 5:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], *(int(sys.argv[at]) if len(sys.argv) > at else usual for at, usual in ((2, 8), (3, 500), (4, 0)))))
