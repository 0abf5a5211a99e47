#!/usr/bin/env python3
"""A day on which all goes wrong that can: in the middle of what a clerk confirms the disk is full or fails, another program keeps a file, the desk is
killed, the clock jumps.

    day_of_faults.py <folder of the programs> [actions=400] [seed=1]

Each action is played on a copy of the shop beforehand, to its end. After the fault the files hold what they held before it or what they hold after
it, and nothing else; and what the desk told is what the files hold. What was refused is done by a second tap, once.
"""
import errno
import os
import random
import shutil
import sqlite3
import struct
import subprocess
import sys
import tempfile
import threading
import time
from collections import Counter

import shop_check
from clerk import Clerk
from kill_desk import Twin, difference, make_shop
from robot import Gone, Robot

WRITES, SYNCS, READS = 1, 2, 3
REFUSED, DOUBTFUL = "Kayıt Yapılamadı", "Kayıt Bilinmiyor"
STORES = ("Cari.mdb", "Stok.mdb", "Karvel.mdb", "SeriNo.mdb", "Index.mdb")


class BadDisk:
    """What fails in the desk, by the file that its preloaded piece reads."""

    def __init__(self, folder, home):
        here = os.path.dirname(os.path.abspath(__file__))
        self.library, self.control = os.path.join(folder, "bad_disk.so"), os.path.join(folder, "control")
        subprocess.run(["cc", "-O2", "-shared", "-fPIC", "-o", self.library, os.path.join(here, "bad_disk.c"), "-ldl", "-lpthread"], check=True)
        with open(self.control, "wb") as control:
            control.write(bytes(4096))
        self.wrap = ("env", f"LD_PRELOAD={self.library}", f"KARVEL_BAD_DISK={self.control}", f"KARVEL_BAD_DISK_UNDER={home}")

    def fail(self, what, still_work, error, to_fail):
        with open(self.control, "r+b") as control:
            control.write(struct.pack("5i", what, still_work, error, to_fail, 0))

    def heal(self):
        """How many failed."""
        with open(self.control, "r+b") as control:
            failed = struct.unpack("5i", control.read(20))[4]
            control.seek(0)
            control.write(bytes(20))
        return failed


class Plan(Twin):
    """One action alone, played to its end on a copy."""

    def __init__(self, program, home, chance, minute):
        super().__init__(program, home, chance, minute, most=1)
        self.action, self.before, self.after = self.actions[0], self.states[0], self.states[1]


def without_slips(rows):
    """A slip number that could not be kept is given up, and the next one taken: the line bears another."""
    return {table: [row[:15] + row[16:] for row in lines] if table == "Karvel.mdb Datam" else lines for table, lines in rows.items()}


class Day:
    def __init__(self, programs, seed):
        self.chance = random.Random(seed)
        self.folder = tempfile.mkdtemp(prefix="karvel-faults-")
        self.home = os.path.join(self.folder, "home")
        make_shop(programs, self.home)
        self.program = os.path.join(programs, "karvel-robot")
        self.shop = shop_check.Shop(self.home)
        self.disk = BadDisk(self.folder, self.home)
        self.robot, self.minute, self.wiped, self.tally = None, 0, set(), Counter()

    def start(self):
        if self.robot is None:
            self.robot = Robot(self.program, self.home, wrap=self.disk.wrap, errors=subprocess.DEVNULL)
            self.robot.state()

    def leave(self, killed=False):
        if self.robot:
            (self.robot.kill if killed else self.robot.close)()
        self.robot = None

    # The faults. Each gives what it was, or nothing where it met nothing.

    def without(self, confirm):
        self.robot.do(confirm)
        return "nothing"

    def bad_disk(self, confirm):
        what = self.chance.choices((WRITES, SYNCS, READS), (4, 4, 2))[0]
        error = errno.EIO if what != WRITES or self.chance.random() < 0.3 else errno.ENOSPC
        still, lasting = self.chance.randrange(45 if what != SYNCS else 18), self.chance.random() < 0.5
        self.disk.fail(what, still, error, 0 if lasting else 1)
        try:
            self.robot.do(confirm)
        finally:
            failed = self.disk.heal()
        kind = {WRITES: "write", SYNCS: "sync", READS: "read"}[what]
        return f"{kind} {errno.errorcode[error]}{' from then on' if lasting else ''}" if failed else "nothing"

    def locked(self, confirm):
        name, begin = self.chance.choice(STORES), self.chance.choice(("EXCLUSIVE", "IMMEDIATE"))
        kept = sqlite3.connect(os.path.join(self.shop.folder, name), timeout=30, isolation_level=None, check_same_thread=False)
        kept.execute(f"BEGIN {begin}")
        seconds = self.chance.choices((self.chance.uniform(0.05, 1.5), 11), (30, 1))[0]
        timer = threading.Timer(seconds, lambda: (kept.rollback(), kept.close()))
        timer.start()
        self.robot.do(confirm)
        timer.join()
        return f"{name} kept {begin}{' for long' if seconds > 10 else ''}"

    def killed(self, confirm):
        self.robot.send(confirm)
        time.sleep(self.chance.uniform(0, 0.05))
        self.leave(killed=True)
        self.start()
        return "killed"

    # A step of the day.

    def step(self):
        self.minute += self.chance.choices((1, self.chance.randint(60, 3000), -self.chance.randint(1, 200)), (90, 5, 5))[0]
        self.minute = max(self.minute, 0)
        self.start()
        plan = Plan(self.program, self.home, self.chance, self.minute)
        self.wiped |= plan.action.wipes
        for request in plan.action.before:
            self.robot.do(request)
        self.robot.messages()
        fault = self.chance.choices((self.without, self.bad_disk, self.locked, self.killed), (2, 12, 3, 3))[0]
        what = fault(plan.action.confirm)
        self.tally[what] += 1
        return what, self.judge(plan, what)

    def judge(self, plan, what):
        """The faults found, a line each."""
        if what == "killed":
            return self.compare(plan, (plan.before, plan.after))[1]
        told = self.told()
        done, faults = self.compare(plan, (plan.before, plan.after))
        if faults:
            return faults
        self.tally["stands" if done else "undone"] += 1
        if told == "refused" and done:
            return [f"{plan.action.kind}: told as refused, but it stands: {self.quiet!r} {self.boxes}"]
        if told == "done" and not done:
            return [f"{plan.action.kind}: told as done, but nothing stands: {self.quiet!r}"]
        if done or what.startswith("read"):  # a list that couldn't be read shows less than the clerk needs for another try
            return []
        for request in plan.action.before:
            if request == {"do": "answer", "with": "Yes"}:
                self.robot.do(request)
        self.robot.do(plan.action.confirm)
        if self.told() != "done":
            return [f"{plan.action.kind}: the second tap does nothing: {self.quiet!r} {self.boxes}"]
        self.tally["done by a second tap"] += 1
        return self.compare(plan, (plan.after,))[1]

    def told(self):
        """What the clerk was told of it: "done" or "refused". What isn't known yet is waited for."""
        self.boxes = self.robot.messages()
        titles = {box["title"] for box in self.boxes if box["buttons"] == "OK"}
        self.quiet = self.robot.do({"do": "get", "at": "Durum"})["caption"]
        if DOUBTFUL in titles:
            self.tally["not known at first"] += 1
            end = time.monotonic() + 30
            before = self.quiet
            while self.quiet == before and time.monotonic() < end:
                self.robot.do({"do": "wait", "ms": 200})
                time.sleep(0.2)
                self.quiet = self.robot.do({"do": "get", "at": "Durum"})["caption"]
            self.robot.messages()
            return "refused" if "apılmadı" in self.quiet else "done"
        unread = self.quiet.startswith(("Disk okunamadı", "Veri dosyası"))  # behind what was done it stands beside that
        return "refused" if REFUSED in titles or "apılmadı" in self.quiet or "Silinmedi" in self.quiet or unread else "done"

    def compare(self, plan, states):
        """Whether the action stands, and what differs from both."""
        now, states = without_slips(self.shop.rows()), [without_slips(state) for state in states]
        if now == without_slips(plan.after) and now in states:
            return True, shop_check.check_worked_on(self.home, self.wiped)
        if now == without_slips(plan.before) and now in states:
            return False, []
        nearest = min((difference(now, state) for state in states), key=len)
        return False, [f"{plan.action.kind}: neither before nor after", *nearest[:12]]


def run(programs, actions, seed):
    day = Day(programs, seed)
    for number in range(1, actions + 1):
        try:
            what, faults = day.step()
        except Gone:
            what, faults = "?", ["the desk is gone"]
        if not faults:
            day.leave()  # the next plan is made for a desk that has just started
        else:
            print(f"action {number}, {what}:", *faults, f"The shop lies in {day.home}", sep="\n  ")
            day.leave(killed=True)
            return 1
        if number % 100 == 0:
            print(f"{number} actions", flush=True)
    day.leave()
    shutil.rmtree(day.folder)
    print(f"{actions} actions, nothing half, doubled or told falsely:", ", ".join(f"{what} {count}" for what, count in day.tally.most_common()))
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 4:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 400, int(sys.argv[3]) if len(sys.argv) > 3 else 1))
