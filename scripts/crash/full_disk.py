#!/usr/bin/env python3
"""Posts while the disk fills up, and while the data folder can't be written: the clerk is told, nothing is damaged, and the desk goes on
when the cause is gone.

    full_disk.py <folder of the programs>
"""
import os
import resource
import shutil
import signal
import subprocess
import sys
import tempfile

import shop_check
from robot import Robot

NOBODY = 65534
# Room left on the disk, in bytes: from nothing to somewhere in the middle of a posting.
ROOMS = (0, 4096, 8192, 16384, 24576, 32768, 49152, 65536, 98304, 131072)


def rows(home):
    connection = shop_check.Shop(home).open("Karvel.mdb")
    try:
        return connection.execute("SELECT count(*) FROM Datam").fetchone()[0]
    finally:
        connection.close()


def make_shop(programs, home):
    subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "60", "--customers", "40", "--rows", "400"], check=True)
    return shop_check.openings(shop_check.Shop(home))


def post(robot, row):
    """Tries a line; the boxes that the clerk saw."""
    robot.pick(row, 1)
    robot.post()
    return robot.messages()


def told(shown, word):
    return any(word in box["text"] and box["icon"] == "Stop" for box in shown)


def posts_again(robot, home, faults, when):
    before = rows(home)
    shown = post(robot, 1)
    if shown or rows(home) != before + 1:
        faults.append(f"{when}: the desk doesn't post again: {shown}")


def look_over(home, before, faults, when):
    faults += [f"{when}: {fault}" for fault in shop_check.check(home, before)]


def fill_up(robot, home, opening, faults, filler):
    """On a disk of its own: fills it but for a little room, posts until it is full, and makes room again."""
    refused = 0
    for room in ROOMS:
        filler(room)
        shown = []
        for line in range(60):
            expected = rows(home)
            shown = post(robot, line % 10)
            if shown:
                break
            if rows(home) != expected + 1:
                faults.append(f"{room} bytes left: nothing was said, and the line isn't there")
        if shown:
            refused += 1
            if not told(shown, "Disk dolu"):
                faults.append(f"{room} bytes left: the clerk reads {shown[0]['text']!r}")
            if rows(home) != expected:
                faults.append(f"{room} bytes left: refused, and yet there")
        filler(None)
        look_over(home, opening, faults, f"{room} bytes left")
        posts_again(robot, home, faults, f"{room} bytes left")
    if refused < 3:
        faults.append(f"the disk was full only {refused} times")


def on_small_disk(programs, faults):
    """False where this machine doesn't let us mount one."""
    disk = tempfile.mkdtemp(prefix="karvel-disk-")
    mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=12m", "tmpfs", disk], capture_output=True).returncode == 0
    if not mounted:
        os.rmdir(disk)
        return False
    try:
        home = os.path.join(disk, "home")
        opening = make_shop(programs, home)
        robot = Robot(os.path.join(programs, "karvel-robot"), home)
        robot.enter_sale()
        ballast = os.path.join(disk, "ballast")

        def filler(room):
            if os.path.exists(ballast):
                os.remove(ballast)
            if room is None:
                return
            free = os.statvfs(disk)
            with open(ballast, "wb") as file:
                os.posix_fallocate(file.fileno(), 0, max(4096, free.f_bavail * free.f_frsize - room))

        fill_up(robot, home, opening, faults, filler)
        robot.close()
        look_over(home, opening, faults, "at the end")
    finally:
        subprocess.run(["umount", "-l", disk], check=False)
        os.rmdir(disk)
    return True


def under_a_size_limit(programs, faults):
    """Without a disk of our own: files that may not grow any further fail with an error of the same kind."""
    home = tempfile.mkdtemp(prefix="karvel-limit-")
    opening = make_shop(programs, home)

    def ignore_the_signal():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)

    robot = Robot(os.path.join(programs, "karvel-robot"), home, preexec=ignore_the_signal)
    robot.enter_sale()
    biggest = max(os.path.getsize(os.path.join(home, "C", "KarvelData", name)) for name in shop_check.FILES)

    def limit(size):
        resource.prlimit(robot.process.pid, resource.RLIMIT_FSIZE, (size, resource.RLIM_INFINITY))

    refused = 0
    for size in (512, 2048, 20000, biggest):
        limit(size)
        shown = []
        for line in range(200):
            expected = rows(home)
            shown = post(robot, line % 10)
            if shown:
                break
        limit(resource.RLIM_INFINITY)
        if shown:
            refused += 1
            if rows(home) != expected:
                faults.append(f"files up to {size} bytes: refused, and yet there")
            if not any(box["icon"] == "Stop" for box in shown):
                faults.append(f"files up to {size} bytes: the clerk isn't told")
        look_over(home, opening, faults, f"files up to {size} bytes")
        posts_again(robot, home, faults, f"files up to {size} bytes")
    if refused == 0:
        faults.append("the limit was never met")
    robot.close()
    shutil.rmtree(home)


def in_a_locked_folder(programs, faults):
    home = tempfile.mkdtemp(prefix="karvel-locked-")
    opening = make_shop(programs, home)
    wrap = ()
    if os.geteuid() == 0:
        # Rights mean nothing to root, so the desk runs as somebody else, from where he may read.
        programs = shutil.copytree(programs, os.path.join(home, "program"), ignore=lambda _, names: [n for n in names if n.startswith("karvel") and n != "karvel-robot"])
        wrap = ("setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups")
        for folder, _, names in os.walk(home):
            os.chown(folder, NOBODY, NOBODY)
            for name in names:
                os.chown(os.path.join(folder, name), NOBODY, NOBODY)
    folder = os.path.join(home, "C", "KarvelData")
    robot = Robot(os.path.join(programs, "karvel-robot"), home, wrap=wrap)
    robot.enter_sale()
    shown = post(robot, 0)
    if shown:
        faults.append(f"before the folder is locked: {shown}")
    expected = rows(home)
    for name in os.listdir(folder):
        os.chmod(os.path.join(folder, name), 0o444)
    os.chmod(folder, 0o555)
    shown = post(robot, 1)
    if not told(shown, "yazma izni yok"):
        faults.append(f"folder locked: the clerk reads {shown}")
    if rows(home) != expected:
        faults.append("folder locked: refused, and yet there")
    os.chmod(folder, 0o755)
    for name in os.listdir(folder):
        os.chmod(os.path.join(folder, name), 0o644)
    posts_again(robot, home, faults, "folder open again")
    robot.close()
    look_over(home, opening, faults, "folder open again")
    shutil.rmtree(home)


def run(programs):
    faults = []
    if not on_small_disk(programs, faults):
        print("This machine mounts no small disk; files that may not grow stand in for it.")
    under_a_size_limit(programs, faults)
    in_a_locked_folder(programs, faults)
    for fault in faults[:20]:
        print(fault)
    print(f"{len(faults)} faults" if faults else "full disk and locked folder: the clerk was told, nothing was damaged, the desk went on")
    return 1 if faults else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1]))
