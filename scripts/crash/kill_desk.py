#!/usr/bin/env python3
"""Kills the desk at random moments while it posts, and looks over the books after each restart.

    kill_desk.py <folder of the programs> [times=1000] [seed=1]

After each restart: every posting is there in all its books or in none, every posting that was answered is there, and what the cards
tell is what the rows tell.
"""
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

import shop_check
from robot import Gone, Robot

ITEMS = 12


def rows(shop):
    connection = shop.open("Karvel.mdb")
    try:
        return connection.execute("SELECT count(*) FROM Datam").fetchone()[0]
    finally:
        connection.close()


def ids(shop):
    connection = shop.open("Karvel.mdb")
    try:
        return {row[0] for row in connection.execute("SELECT DigerId FROM Datam WHERE Tarih LIKE '2026-03-01%'")}
    finally:
        connection.close()


class Posts:
    """What a desk was seen to do before it died."""

    def __init__(self):
        self.answered = 0
        self.ids = set()


def post_line(robot, chance, posts):
    robot.pick(chance.randrange(ITEMS), chance.randint(1, 5))
    robot.post()
    posts.answered += 1
    posts.ids.add(robot.state()["CurrentLineId"])


def die_while_posting(robot, chance, posts):
    """A few lines, and then a kill somewhere in the posting of the next."""
    took = 0.02
    try:
        for _ in range(chance.randint(0, 2)):
            begin = time.monotonic()
            post_line(robot, chance, posts)
            took = (time.monotonic() - begin) / 2  # the half of it that isn't picking and asking
        robot.pick(chance.randrange(ITEMS), chance.randint(1, 5))
        robot.send({"do": "click", "at": "Command2"})
        time.sleep(chance.uniform(0, 1.5 * took))
        os.kill(robot.process.pid, signal.SIGKILL)
        if robot.answer()["ok"]:
            posts.answered += 1
    except Gone:
        pass


def die_anywhere(robot, chance, posts):
    timer = threading.Timer(chance.uniform(0, 0.5), robot.process.kill)
    timer.start()
    try:
        while True:
            post_line(robot, chance, posts)
    except Gone:
        pass
    timer.join()


def die_starting(program, home, chance):
    """One that dies before it is ready, maybe in the middle of putting right what the last one left."""
    robot = Robot(program, home)
    time.sleep(chance.uniform(0.05, 0.8))
    robot.kill()


def run(programs, times, seed):
    chance = random.Random(seed)
    home = tempfile.mkdtemp(prefix="karvel-kill-")
    program = os.path.join(programs, "karvel-robot")
    subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "60", "--customers", "40", "--rows", "400"], check=True)
    shop = shop_check.Shop(home)
    before = shop_check.openings(shop)
    expected, seen = rows(shop), set()
    total = untold = halfway = 0
    started = time.monotonic()

    def fail(message):
        print(f"{message}\nThe shop lies in {home}")
        return 1

    posts = Posts()
    for kill in range(times + 1):
        robot = Robot(program, home)
        try:
            robot.enter_sale()
        except Gone:
            return fail(f"after kill {kill} the desk doesn't start: {robot.process.stderr.read().decode()}")
        # What the dead desk left has been put right by now.
        faults = shop_check.check(home, before)
        now = rows(shop)
        if not expected + posts.answered <= now <= expected + posts.answered + 1:
            faults.append(f"{posts.answered} postings were answered, {now - expected} are there")
        missing = posts.ids - ids(shop)
        faults += [f"posting {line} was answered and is gone" for line in sorted(missing)]
        if faults:
            return fail(f"after kill {kill}:\n  " + "\n  ".join(faults[:20]))
        total += now - expected
        untold += now - expected - posts.answered
        seen |= posts.ids
        expected = now
        if kill == times:
            robot.close()
            break
        posts = Posts()
        if chance.random() < 0.8:
            die_while_posting(robot, chance, posts)
        else:
            die_anywhere(robot, chance, posts)
        robot.end()
        halfway += any(name.endswith("-journal") for name in os.listdir(shop.folder))
        if chance.random() < 0.1:
            die_starting(program, home, chance)
        if (kill + 1) % 100 == 0:
            print(f"{kill + 1} kills, {total} postings, {time.monotonic() - started:.0f} s", flush=True)
    if seen - ids(shop):
        return fail(f"postings of earlier desks are gone: {sorted(seen - ids(shop))[:5]}")
    if total < times // 4:
        return fail(f"only {total} postings: the kills came before there was anything to lose")
    print(f"{times} kills, {halfway} of them halfway through a commit: all {total} postings are whole, {untold} of them landed before the desk could tell")
    shutil.rmtree(home)
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 4:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 1000, int(sys.argv[3]) if len(sys.argv) > 3 else 1))
