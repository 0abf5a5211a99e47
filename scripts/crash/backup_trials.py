#!/usr/bin/env python3
"""Backups under trial: beside many desks that post, and onto a drive that is full, read-only, pulled out in the middle, and well again.

    backup_trials.py <folder of the programs> [desks=8; 0: only the drive] [backups=5]

Each archive is opened by other programs: unzip tests it, sqlite3 checks every file in it, and all files together are one moment of the shop.
The drive is a disk of its own under /media, in mounts that nobody else sees; that takes the rights of root.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import zipfile

import shop_check
from robot import Robot

DRIVE = "/media/karvel-trial"
INSIDE = "KARVEL_TRIAL_INSIDE"


class Till(threading.Thread):
    def __init__(self, program, home, number):
        super().__init__()
        self.robot = Robot(program, home, f"Velmora Karvel{number}")
        self.robot.enter_sale()
        self.posted = 0
        self.stopped = False
        self.fault = None

    def run(self):
        try:
            while not self.stopped:
                self.robot.pick(self.posted % 5, 1)
                self.robot.post()
                self.posted += 1
        except Exception as error:  # told at the end
            self.fault = repr(error)


def back_up(robot, drive=""):
    """The boxes that the clerk saw."""
    robot.do({"do": "click", "at": "Yedek"})
    if drive:
        robot.do({"do": "set", "at": "Drive1", "value": drive})
    robot.do({"do": "click", "at": "Command10(1)"})
    return [box["text"] for box in robot.messages()]


def look_over(archive, opening, place):
    """What is wrong with an archive, and how many lines of the day it holds."""
    tested = subprocess.run(["unzip", "-tqq", archive], capture_output=True, text=True)
    if tested.returncode != 0:
        return [f"unzip: {tested.stdout} {tested.stderr}"], 0
    unpacked = tempfile.mkdtemp(prefix="unpacked-", dir=place)
    folder = os.path.join(unpacked, "C", "KarvelData")
    with zipfile.ZipFile(archive) as file:
        file.extractall(folder)
    faults = []
    for name in sorted(os.listdir(folder)):
        if name.lower().endswith(".mdb"):
            checked = subprocess.run(["sqlite3", os.path.join(folder, name), "PRAGMA integrity_check"], capture_output=True, text=True)
            if checked.stdout.strip() != "ok":
                faults.append(f"{name}: {checked.stdout} {checked.stderr}")
    faults += shop_check.check(unpacked, opening)
    connection = shop_check.Shop(unpacked).open("Karvel.mdb")
    lines = connection.execute("SELECT count(*) FROM Datam").fetchone()[0]
    connection.close()
    shutil.rmtree(unpacked)
    return faults, lines


def archives_under(folder):
    return sorted(os.path.join(at, name) for at, _, names in os.walk(folder) for name in names)


def beside_desks(program, home, opening, desks, backups):
    tills = [Till(program, home, number + 2) for number in range(desks)]
    robot = Robot(program, home, "Velmora Karvel1")
    robot.state()
    for till in tills:
        till.start()
    faults, counts = [], []
    for number in range(backups):
        robot.do({"do": "clock", "now": f"2026-03-01T10:{20 + number}:00"})
        before = sum(till.posted for till in tills)
        shown = back_up(robot)
        after = sum(till.posted for till in tills)
        if shown != ["Yedeklendi."]:
            faults.append(f"backup {number}: {shown}")
            continue
        found, lines = look_over(os.path.join(home, "C", "KarvelYedek", "20260301", f"10{20 + number}Data.ZIP"), opening, home)
        faults += [f"backup {number}: {fault}" for fault in found]
        counts.append((lines, after - before))
    for till in tills:
        till.stopped = True
        till.join()
        till.robot.kill()
        if till.fault:
            faults.append(till.fault)
    faults += [f"the shop: {fault}" for fault in shop_check.check(home, opening)]
    robot.kill()
    if [lines for lines, _ in counts] != sorted(lines for lines, _ in counts):
        faults.append(f"a later backup holds fewer lines: {counts}")
    return faults, "; ".join(f"{lines} lines, {posted} posted meanwhile" for lines, posted in counts)


def mount(*options):
    subprocess.run(["mount", *options, DRIVE], check=True)


def begin_on_drive(robot):
    """Begins a backup on the drive, and returns when its file is being written."""
    robot.do({"do": "click", "at": "Yedek"})
    robot.do({"do": "set", "at": "Drive1", "value": "D: karvel-trial"})
    robot.send({"do": "click", "at": "Command10(1)"})
    end = time.monotonic() + 60
    while time.monotonic() < end and not any(os.path.basename(path).startswith(".karvel-") for path in archives_under(DRIVE)):
        time.sleep(0.001)


def on_a_drive(program, home):
    os.makedirs(DRIVE, exist_ok=True)
    mount("-t", "tmpfs", "-o", "size=200m", "karvel-trial")
    robot = Robot(program, home, "Velmora Karvel1")
    robot.state()
    faults = []

    def expect(what, shown, word):
        machine = [box for box in shown if DRIVE in box or home in box or ".karvel-" in box]
        if len(shown) != 1 or word not in shown[0] or machine:
            faults.append(f"{what}: the clerk reads {shown}")

    expect("a drive that is well", back_up(robot, "D: karvel-trial"), "Yedeklendi.")
    older = archives_under(DRIVE)
    bytes_before = [open(path, "rb").read() for path in older]

    def older_stands(what):
        if archives_under(DRIVE) != older or [open(path, "rb").read() for path in older] != bytes_before:
            faults.append(f"{what}: on the drive lie {archives_under(DRIVE)}")

    filler = os.path.join(DRIVE, "filler")
    room = os.statvfs(DRIVE)
    with open(filler, "wb") as file:
        file.truncate(0)
        os.posix_fallocate(file.fileno(), 0, room.f_bavail * room.f_bsize)
    expect("a full drive", back_up(robot, "D: karvel-trial"), "yeterli yer yok")
    os.remove(filler)
    older_stands("a full drive")

    # Full only when it is being written: what is free changes behind the question.
    begin_on_drive(robot)
    room = os.statvfs(DRIVE)
    try:
        with open(filler, "wb") as file:
            os.posix_fallocate(file.fileno(), 0, max(1, room.f_bavail * room.f_bsize))
    except OSError:
        pass
    robot.answer()
    shown = [box["text"] for box in robot.messages()]
    os.remove(filler)
    if shown != ["Yedeklendi."]:
        expect("a drive that fills up in the middle", shown, "yeterli yer yok")
        older_stands("a drive that fills up in the middle")
    else:
        older, bytes_before = archives_under(DRIVE), [open(path, "rb").read() for path in archives_under(DRIVE)]

    mount("-o", "remount,ro")
    expect("a read-only drive", back_up(robot, "D: karvel-trial"), "yazılamıyor")
    mount("-o", "remount,rw")
    older_stands("a read-only drive")

    begin_on_drive(robot)
    subprocess.run(["umount", "-l", DRIVE], check=True)
    robot.answer()
    expect("a drive pulled out in the middle", [box["text"] for box in robot.messages()], "bulunamadı")
    if archives_under(DRIVE):
        faults.append(f"in the drive's place on the own disk lie {archives_under(DRIVE)}")
    line = robot.do({"do": "get", "at": "Durum"})["text"]
    if not line.startswith("Yedek alınamadı"):
        faults.append(f"the quiet line says {line!r}")

    mount("-t", "tmpfs", "-o", "size=200m", "karvel-trial")
    expect("the drive that is back", back_up(robot, "D: karvel-trial"), "Yedeklendi.")
    robot.kill()
    subprocess.run(["umount", DRIVE], check=True)
    os.rmdir(DRIVE)
    return faults


def run(programs, desks, backups):
    home = tempfile.mkdtemp(prefix="karvel-trials-")
    program = os.path.join(programs, "karvel-robot")
    subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "300", "--customers", "200", "--rows", "20000"], check=True)
    opening = shop_check.openings(shop_check.Shop(home))
    faults = []
    if desks > 0:
        faults, told = beside_desks(program, home, opening, desks, backups)
        print(f"{desks} desks: {told}", flush=True)
    faults += on_a_drive(program, home)
    if faults:
        print("\n".join(faults[:20]) + f"\nThe shop lies in {home}")
        return 1
    shutil.rmtree(home)
    print("full, read-only, filled up and pulled out in the middle: told each time, and what was there before is whole")
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 4:
        sys.exit(__doc__)
    if INSIDE not in os.environ:
        os.environ[INSIDE] = "1"
        os.execvp("unshare", ["unshare", "-m", "--propagation", "private", sys.executable, "-B", *sys.argv])
    sys.exit(run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 8, int(sys.argv[3]) if len(sys.argv) > 3 else 5))
