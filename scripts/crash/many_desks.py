#!/usr/bin/env python3
"""Many desks of one shop post at once, all the same item to the same customer, and nothing of it gets lost or doubled.

    many_desks.py <folder of the programs> [desks=8] [lines=500] [kills=0] [kills of the main machine; without it the shop lies in files]

So many times one of them is killed meanwhile, whatever it is at; it starts again beside the others and goes on until its lines are posted.
With the last word, even 0, the shop is moved to a PostgreSQL on loopback first, and back into files for the look at it. So many times that
server is killed: at one time all of it, at the next the processes in it that serve the desks. Each desk then presses again until it is told
that its line was booked.
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
from main_machine import MainMachine
from robot import CUSTOMER, Gone, Robot

QUANTITY = 2
FIRM = "01"
# What a desk says while its main machine is away, by what it means for the line.
UNDONE = "Kayıt yapılmadı"
UNKNOWN = "bilinmiyor"
BOOKED = "kaydedildi"
PATIENCE = 120  # seconds until a main machine that was killed serves again


class Desk(threading.Thread):
    def __init__(self, program, home, number, lines, machine=None):
        super().__init__()
        self.machine = machine
        self.lines = lines
        self.number = number
        self.ids = []  # of the lines that were answered, but for those of which a kill left no time to ask
        self.answered = self.untold = self.kills = self.refused = 0
        self.waits = []  # when each answered posting began, how long it took
        self.fault = None
        self.start_robot = lambda: Robot(program, home, f"Velmora Karvel{number}")
        self.begin_again()

    def begin_again(self):
        end = time.monotonic() + PATIENCE
        while True:
            self.robot = self.start_robot()
            try:
                self.robot.enter_sale()
                return self.robot.messages()  # that it began without its main machine
            except Gone:
                self.robot.end()
            except RuntimeError:  # nobody to sell to, since the main machine is away
                if time.monotonic() > end:
                    raise
                self.robot.kill()
                time.sleep(0.5)

    def run(self):
        try:
            while self.answered < self.lines:
                try:
                    self.post_one()
                except Gone:
                    self.robot.end()
                    self.begin_again()
        except Exception as error:  # told at the end, with the desk's number
            self.fault = f"desk {self.number}: {error!r}"

    def post_one(self):
        self.pick()
        begin = time.monotonic()
        try:
            self.robot.post()
            done = self.is_booked(begin)
        except Gone:
            self.untold += 1
            raise
        if not done:
            self.refused += 1
            return time.sleep(0.1)
        took = time.monotonic() - begin
        self.waits.append((begin, took))
        self.answered += 1
        self.ids.append(self.robot.state()["CurrentLineId"])

    def pick(self):
        end = time.monotonic() + PATIENCE
        while True:
            try:
                return self.robot.pick(0, QUANTITY)
            except RuntimeError:  # the list is empty while the main machine is away
                if self.machine is None or time.monotonic() > end:
                    raise
                time.sleep(0.1)
                if self.robot.do({"do": "get", "at": "Text1(0)"})["enabled"]:  # it began without it, and serves nobody yet
                    self.robot.enter_sale()

    def is_booked(self, begin):
        """Whether the line stands, by what the desk says."""
        shown = [message["text"] for message in self.robot.messages()]
        if not shown:
            return True
        if self.machine is None or len(shown) != 1 or (UNDONE not in shown[0] and UNKNOWN not in shown[0]):
            raise RuntimeError(f"it showed {shown}")
        if UNDONE in shown[0]:
            return False
        while True:  # the line at the bottom tells what became of it
            told = self.robot.do({"do": "get", "at": "Durum"})["caption"]
            if BOOKED in told or UNDONE in told:
                return BOOKED in told
            if time.monotonic() > begin + PATIENCE:
                raise RuntimeError(f"the outcome stays unknown: {told}")
            time.sleep(0.1)


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


class ServerKiller(threading.Thread):
    """Kills the main machine for as long as a desk is at work."""

    def __init__(self, machine, tills, kills):
        super().__init__()
        self.machine = machine
        self.tills = tills
        self.kills = kills
        self.away = []  # from when until when
        self.fault = None

    def run(self):
        try:
            for number in range(self.kills):
                time.sleep(random.uniform(0.5, 3))
                if not any(till.is_alive() for till in self.tills):
                    break
                begin = time.monotonic()
                if number % 2:
                    self.machine.kill_backends()
                else:
                    self.machine.crash()
                self.away.append((begin, time.monotonic()))
        except Exception as error:
            self.fault = f"the main machine: {error!r}"


def move(programs, home, *words):
    subprocess.run([os.path.join(programs, "karvel-move"), *words], env=dict(os.environ, KARVEL_HOME=home), check=True, stdout=subprocess.DEVNULL)


def join(program, home, number, machine):
    """Has a terminal work on the main machine."""
    desk = Robot(program, home, f"Velmora Karvel{number}")
    for answer in (f"127.0.0.1:{machine.port}", FIRM):
        desk.do({"do": "answer", "with": answer})
    desk.do({"do": "click", "at": "OnLine"})
    if not desk.do({"do": "get", "at": "OnLine"})["checked"]:
        raise RuntimeError(f"no network work: {desk.messages()}")
    desk.close()


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


def run(programs, desks, lines, kills, server_kills=None):
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

    machine = None
    if server_kills is not None:
        machine = MainMachine()
        address = f"postgres://127.0.0.1:{machine.port}/{FIRM}"
        move(programs, home, "--to", address)
        for number in range(desks):
            join(program, home, number + 1, machine)
    tills = [Desk(program, home, number + 1, lines, machine) for number in range(desks)]
    begin = time.monotonic()
    for till in tills:
        till.start()
    killer = ServerKiller(machine, tills, server_kills or 0)
    killer.start()
    kill_some(tills, kills)
    for till in tills:
        till.join()
    killer.join()
    took = time.monotonic() - begin
    faults = [each.fault for each in [*tills, killer] if each.fault]
    for till in tills:
        till.robot.close()
    if machine:
        shutil.rmtree(os.path.join(home, "C", "KarvelData"))
        move(programs, home, "--from", address, "--to", os.path.join(home, "C", "KarvelData"))
        machine.remove()
    found, all_ids = look_over(home, before, tills, stock_before, owed_before, number_before)
    faults += found
    for till in tills:
        missing = set(till.ids) - all_ids
        if missing:
            faults.append(f"desk {till.number}: {len(missing)} answered postings are gone")
    if faults:
        print("\n".join(faults[:20]) + f"\nThe shop lies in {home}")
        return 1
    killed, untold, refused = (sum(getattr(till, what) for till in tills) for what in ("kills", "untold", "refused"))
    calm = [took for till in tills for start, took in till.waits if not any(gone < start + took and start < back + 1 for gone, back in killer.away)]
    print(f"{desks} desks, {desks * lines} lines in {took:.0f} s: none lost, none doubled; the longest wait was {max(calm) * 1000:.0f} ms"
          + (f"; {killed} kills, {untold} of them in the middle of a posting" if kills else "")
          + (f"; {len(killer.away)} kills of the main machine (their waits are not counted), {refused} times a line was told to be undone"
             if server_kills else ""))
    shutil.rmtree(home)
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 6:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], *(int(sys.argv[at]) if len(sys.argv) > at else usual for at, usual in ((2, 8), (3, 500), (4, 0), (5, None)))))
