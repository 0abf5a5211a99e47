#!/usr/bin/env python3
"""Kills the desk at random moments while it makes a backup, and looks at what lies there.

    kill_backup.py <folder of the programs> [times=200] [seed=1]

All backups are of one minute, so each would take the place of the one before. After every kill the archive under its name is whole: the
older one, or the new one. The shop's files are as they were, and the next start clears away what the dead desk left.
"""
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

import shop_check
from robot import Gone, Robot

ARCHIVE = os.path.join("C", "KarvelYedek", "20260301", "1015Data.ZIP")


def back_up(robot):
    robot.do({"do": "click", "at": "Yedek"})
    robot.send({"do": "click", "at": "Command10(1)"})


def faults_of(home, archive, rows):
    """What is wrong with an archive: unreadable for another program, or other rows than the shop's."""
    if subprocess.run(["unzip", "-tqq", archive], capture_output=True).returncode != 0:
        return ["unzip can't read it"]
    unpacked = tempfile.mkdtemp(prefix="karvel-unpacked-", dir=home)
    folder = os.path.join(unpacked, "C", "KarvelData")
    with zipfile.ZipFile(archive) as file:
        file.extractall(folder)
    found = [] if shop_check.Shop(unpacked).rows() == rows else ["its rows are not the shop's"]
    shutil.rmtree(unpacked)
    return found


def left_behind(home):
    left = [name for name in os.listdir(home) if name.startswith("yedeklenen")]
    left += [name for name in os.listdir(os.path.join(home, "C", "KarvelData")) if name.endswith("-changes")]
    return left


def run(programs, times, seed):
    chance = random.Random(seed)
    home = tempfile.mkdtemp(prefix="karvel-kill-backup-")
    subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "300", "--customers", "200", "--rows", "20000"], check=True)
    program = os.path.join(programs, "karvel-robot")
    archive = os.path.join(home, ARCHIVE)

    robot = Robot(program, home)
    robot.state()
    begin = time.monotonic()
    back_up(robot)
    robot.answer()
    took = time.monotonic() - begin
    rows = shop_check.Shop(home).rows()
    replaced = 0
    for kill in range(1, times + 1):
        before = os.stat(archive).st_ino
        try:
            back_up(robot)
            time.sleep(chance.uniform(0, 1.1 * took))
        except Gone:
            pass
        robot.kill()
        replaced += os.stat(archive).st_ino != before
        faults = faults_of(home, archive, rows)
        robot = Robot(program, home)
        robot.state()
        if left_behind(home):
            faults.append(f"left behind: {left_behind(home)}")
        if faults:
            print(f"after kill {kill}: {faults}\nThe shop lies in {home}")
            return 1
    back_up(robot)
    robot.answer()
    unfinished = [name for name in os.listdir(os.path.dirname(archive)) if name != os.path.basename(archive)]
    robot.kill()
    if unfinished:
        print(f"unfinished archives stay: {unfinished}\nThe shop lies in {home}")
        return 1
    shutil.rmtree(home)
    print(f"{times} kills in backups of {took:.2f} s, {replaced} of them behind the end: the archive is whole after each")
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 4:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 200, int(sys.argv[3]) if len(sys.argv) > 3 else 1))
