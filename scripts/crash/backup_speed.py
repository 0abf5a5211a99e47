#!/usr/bin/env python3
"""Measures the backup of a large shop, and how long a posting at other desks waits for it.

    backup_speed.py <folder of the programs> [rows=1000000] [desks=1] [folder=build/backup-speed]

The shop of so many ledger rows is made at the first run, and kept. One desk makes three backups while the others post without a pause. Told
are the phases of each backup as the desk's log has them, and the longest posting beside it and without it. Over the limits, 10 seconds for a
backup and 200 ms for a posting, it fails.
"""
import glob
import os
import shutil
import statistics
import subprocess
import sys
import threading
import time

from robot import Robot

LONGEST_BACKUP = 10.0
LONGEST_WAIT = 0.2
BACKUPS = 3
PATIENCE = 900  # on a machine that has other work


class Till(threading.Thread):
    """Posts without a pause until it is told to stop."""

    def __init__(self, program, home, number):
        super().__init__()
        self.robot = Robot(program, home, f"Velmora Karvel{number}")
        self.robot.enter_sale()
        self.robot.pick(0, 1)
        self.robot.post()  # the first one of a shop without settings looks for its slip number in the whole book
        self.waits = []  # when each began, how long it took
        self.stopped = False
        self.fault = None

    def run(self):
        try:
            while not self.stopped:
                self.robot.pick(0, 1)
                begin = time.monotonic()
                self.robot.post()
                self.waits.append((begin, time.monotonic() - begin))
        except Exception as error:  # told at the end
            self.fault = repr(error)


def shop(programs, folder, rows):
    kept = os.path.join(folder, f"shop-{rows}")
    if not os.path.isdir(kept):
        os.makedirs(folder, exist_ok=True)
        half = kept + ".half"
        shutil.rmtree(half, ignore_errors=True)
        subprocess.run([os.path.join(programs, "karvel-sample-shop"), half, "--rows", str(rows)], check=True)
        os.rename(half, kept)
    home = os.path.join(folder, "home")
    shutil.rmtree(home, ignore_errors=True)
    shutil.copytree(kept, home)
    os.sync()  # the copy's own writing is no part of what is measured
    return home


def logged(home):
    lines = []
    for path in glob.glob(os.path.join(home, "**", "*.log"), recursive=True):
        with open(path, encoding="utf-8", errors="replace") as file:
            lines += [line.strip() for line in file if " of work)" in line]
    return lines


def told(name, waits):
    if not waits:
        return f"{name}: no posting"
    return f"{name}: {len(waits)} postings, half of them within {statistics.median(waits) * 1000:.0f} ms, the longest {max(waits) * 1000:.0f} ms"


def run(programs, rows, desks, folder):
    home = shop(programs, folder, rows)
    size = sum(os.path.getsize(path) for path in glob.glob(os.path.join(home, "C", "KarvelData", "*.mdb")))
    program = os.path.join(programs, "karvel-robot")
    desk = Robot(program, home, "Velmora Karvel1")
    desk.state()
    tills = [Till(program, home, number + 2) for number in range(desks)]
    for till in tills:
        till.start()
    time.sleep(2)
    spans = []
    for _ in range(BACKUPS):
        desk.do({"do": "click", "at": "Yedek"})
        begin = time.monotonic()
        desk.send({"do": "click", "at": "Command10(1)"})
        desk.answer(PATIENCE)
        spans.append((begin, time.monotonic()))
        shown = [message["text"] for message in desk.messages()]
        if shown != ["Yedeklendi."]:
            print(f"the backup showed {shown}\nThe shop lies in {home}")
            return 1
        time.sleep(2)
    for till in tills:
        till.stopped = True
        till.join()
    lines = logged(home)
    faults = [till.fault for till in tills if till.fault]
    for till in tills:
        till.robot.kill()
    desk.kill()
    waits = [wait for till in tills for wait in till.waits]
    beside = [took for begin, took in waits if any(start < begin + took and begin < end for start, end in spans)]
    without = [took for begin, took in waits if not any(start < begin + took and begin < end for start, end in spans)]
    longest = max(end - begin for begin, end in spans)
    print(f"{size / 1e6:.0f} MB of {rows} rows: backups of " + ", ".join(f"{end - begin:.1f}" for begin, end in spans) + " s")
    print("\n".join(lines))
    print(told("beside a backup", beside))
    print(told("without one", without))
    shutil.rmtree(home)
    if longest > LONGEST_BACKUP:
        faults.append(f"a backup took {longest:.1f} s")
    if beside and max(beside) > LONGEST_WAIT:
        faults.append(f"a posting waited {max(beside) * 1000:.0f} ms")
    print("\n".join(faults) if faults else "within the limits")
    return 1 if faults else 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 5:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 1000000, int(sys.argv[3]) if len(sys.argv) > 3 else 1,
                 sys.argv[4] if len(sys.argv) > 4 else os.path.join("build", "backup-speed")))
