#!/usr/bin/env python3
"""Kills the desk at random moments while a clerk works at it, and looks over the books after each restart.

    kill_desk.py <folder of the programs> [times=1000] [seed=1]

Before each kill the same actions are played on a copy of the shop, to their end: so it is known what the files hold after each of them.
After the kill and a restart the files of the shop hold, row by row, what they held before the action in flight or what they hold after
it, with everything that was answered; and the rows of one line are there in all their books.
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
from collections import Counter

import shop_check
from clerk import PASSWORD, Clerk
from robot import Gone, Robot


class Unplayable(Exception):
    """An action that didn't do what it was meant to: the plan is wrong, not the desk."""


class Twin:
    """The plan, of one action and `most` at most, played to its end on a copy: what the files hold after each action, and how long its
    confirmation takes."""

    def __init__(self, program, home, chance, minute, most=3):
        self.actions, self.took, self.states = [], [], []
        copy = tempfile.mkdtemp(prefix="karvel-twin-")
        shutil.copytree(home, copy, dirs_exist_ok=True, ignore=shutil.ignore_patterns("lock"))
        shop = shop_check.Shop(copy)
        self.states.append(shop.rows())
        clerk = Clerk(copy, chance)
        robot = Robot(program, copy)
        try:
            begin = time.monotonic()
            for number in range(chance.randint(1, most)):
                action = clerk.next(minute + number)
                self.see(clerk, action, robot)
                self.actions.append(action)
                self.states.append(shop.rows())
            self.lasted = time.monotonic() - begin
        finally:
            robot.kill()
        shutil.rmtree(copy)

    def see(self, clerk, action, robot):
        try:
            self.took.append(play(robot, action))
        except RuntimeError as error:
            raise Unplayable(f"after {[one.kind for one in self.actions]}, {action.kind}: {error}\n{action.before}") from error
        shown = [box["text"] for box in robot.messages() if box["buttons"] == "OK"]
        told = clerk.ask(*action.seen)
        if shown or not told or told[0][0] != action.told:
            raise Unplayable(f"{action.kind}: {told} instead of {action.told}, boxes {shown}, requests {action.before}")


def play(robot, action):
    """Plays an action; how long its confirmation took."""
    for request in action.before:
        robot.do(request)
    begin = time.monotonic()
    robot.do(action.confirm)
    took = time.monotonic() - begin
    for request in action.after:
        robot.do(request)
    return took


def die_confirming(robot, chance, twin):
    """All but the last, and then a kill somewhere in the posting of that one. How many were answered."""
    answered = 0
    try:
        for action in twin.actions[:-1]:
            play(robot, action)
            answered += 1
        last = twin.actions[-1]
        for request in last.before:
            robot.do(request)
        robot.send(last.confirm)
        time.sleep(chance.uniform(0, 1.3 * twin.took[-1]))
        os.kill(robot.process.pid, signal.SIGKILL)
        if robot.answer()["ok"]:
            answered += 1
    except Gone:
        pass
    return answered


def die_anywhere(robot, chance, twin):
    answered = 0
    timer = threading.Timer(chance.uniform(0, 1.1 * twin.lasted), robot.process.kill)
    timer.start()
    try:
        for action in twin.actions:
            for request in action.before:
                robot.do(request)
            robot.do(action.confirm)
            answered += 1
            for request in action.after:
                robot.do(request)
    except Gone:
        pass
    timer.join()
    return answered


def die_starting(program, home, chance):
    """One that dies before it is ready, maybe in the middle of putting right what the last one left."""
    robot = Robot(program, home)
    time.sleep(chance.uniform(0.01, 0.15))
    robot.kill()


def difference(is_now, should_be):
    lines = []
    for table in should_be:
        lacks, has = Counter(should_be[table]), Counter(is_now[table])
        lines += [f"{table} lacks {one}" for one in (lacks - has)] + [f"{table} has {one}" for one in (has - lacks)]
    return lines


def make_shop(programs, home):
    subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "60", "--customers", "40", "--rows", "400"], check=True)
    robot = Robot(os.path.join(programs, "karvel-robot"), home)
    robot.do({"do": "answer", "with": PASSWORD})  # the customer menu's first use sets its password
    robot.do({"do": "answer", "with": PASSWORD})
    robot.do({"do": "rightclick", "at": "CariGrid"})
    robot.close()
    give_invoice_paper(home)


def give_invoice_paper(home):
    """A printer for invoices, and where each item stands on their paper."""
    with open(os.path.join(home, "C", "KarvelData", "FatSatir.Dat"), "w", encoding="ascii") as layout:
        layout.write("0,0,0,0\n" + "".join(f"{20 + 10 * box},{40 + 8 * box}\n" for box in range(47)))
    settings = os.path.join(home, "settings.ini")
    with open(settings, encoding="utf-8") as file:
        kept = file.read()
    title = "[Velmora%20Karvel1]\n"
    if title not in kept:
        raise RuntimeError(f"no settings of the terminal in {settings}")
    with open(settings, "w", encoding="utf-8") as file:
        file.write(kept.replace(title, title + "Size\\Prnn=Velmora PDF\n"))


class Tally:
    def __init__(self):
        self.actions = self.untold = self.halfway = 0
        self.killed = Counter()

    def text(self, times):
        kinds = ", ".join(f"{kind} {count}" for kind, count in self.killed.most_common())
        return (f"{times} kills, {self.halfway} of them halfway through a commit: all {self.actions} actions are whole, {self.untold} of them landed "
                f"before the desk could tell. In flight: {kinds}")


def run(programs, times, seed):
    chance = random.Random(seed)
    home = tempfile.mkdtemp(prefix="karvel-kill-")
    make_shop(programs, home)
    program = os.path.join(programs, "karvel-robot")
    shop = shop_check.Shop(home)
    wiped, tally, minute = set(), Tally(), 0
    started = time.monotonic()

    def fail(message):
        print(f"{message}\nThe shop lies in {home}")
        return 1

    robot = Robot(program, home)
    robot.state()
    for kill in range(1, times + 1):
        twin = Twin(program, home, chance, minute)
        minute += len(twin.actions)
        for action in twin.actions:
            wiped |= action.wipes
        answered = (die_confirming if chance.random() < 0.8 else die_anywhere)(robot, chance, twin)
        robot.end()
        tally.halfway += any(name.endswith("-journal") for name in os.listdir(shop.folder))
        if chance.random() < 0.1:
            die_starting(program, home, chance)

        robot = Robot(program, home)
        try:
            robot.state()
        except Gone:
            return fail(f"after kill {kill} the desk doesn't start: {robot.process.stderr.read().decode()}")
        # What the dead desk left has been put right by now.
        now = shop.rows()
        faults = shop_check.check_worked_on(home, wiped)
        in_flight = answered < len(twin.actions)
        landed = in_flight and now != twin.states[answered] and now == twin.states[answered + 1]
        if not landed and now != twin.states[answered]:
            faults += difference(now, twin.states[answered])
            if in_flight:
                faults += ["and held against the end of the next action:"] + difference(now, twin.states[answered + 1])
        if faults:
            kinds = [action.kind for action in twin.actions]
            return fail(f"after kill {kill}, {answered} of {kinds} were answered:\n  " + "\n  ".join(faults[:40]))
        tally.actions += answered + landed
        tally.untold += landed
        if in_flight:
            tally.killed[twin.actions[answered].kind] += 1
        if kill % 100 == 0:
            print(f"{kill} kills, {tally.actions} actions, {time.monotonic() - started:.0f} s", flush=True)
    robot.close()
    if tally.actions < times // 4:
        return fail(f"only {tally.actions} actions: the kills came before there was anything to lose")
    print(tally.text(times))
    shutil.rmtree(home)
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 4:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 1000, int(sys.argv[3]) if len(sys.argv) > 3 else 1))
