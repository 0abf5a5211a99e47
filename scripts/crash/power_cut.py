#!/usr/bin/env python3
"""Cuts the power of desks at work, anywhere, and looks over what is left.

    power_cut.py <folder of the programs> [cuts=20000] [seed=1]

Every change that the desks make to their files is recorded (recorder.c) and played on a model of a disk that keeps no more than it must
(power_cut_disk.py). What a cut leaves is recovered as a start does it. Then the rows of all files, the settings and the slip number must be as they
were at some moment between the last thing that was told to the clerk and the one in flight (power_cut_books.py).

It proves itself: where the syncs of one kind of file are left out, books must be found broken.
"""
import fcntl
import os
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import threading
import time
from collections import Counter

import kill_desk
from clerk import Clerk
from power_cut_books import DATA, HOME, SETTINGS, UPKEEP, Books, Damaged, Timeline, write_tree
from power_cut_disk import HEAD, KINDS, SECTORS, Disk, read_records, snapshot
from robot import CUSTOMER, Gone, Robot

PAUSE = 300  # microseconds that a sync takes, so that those of several threads overlap
LAST_SLIP = 500  # above those of the sample shop
LATER = 600  # a minute that no posting of the first recording reaches


class Place:
    """The folders of a run; in memory where the machine has such a disk, for the real one plays no part."""

    def __init__(self, programs):
        self.programs = programs
        self.program = os.path.join(programs, "karvel-robot")
        self.base = os.path.realpath(tempfile.mkdtemp(prefix="karvel-cut-", dir="/dev/shm" if os.access("/dev/shm", os.W_OK) else None))
        self.root, self.record, self.other = (os.path.join(self.base, name) for name in ("disk", "record", "other"))
        for folder in (self.root, self.record, self.other):
            os.mkdir(folder)
        self.home = f"{self.root}/{HOME}"
        self.recorder = os.path.join(self.base, "recorder.so")
        source = os.path.join(os.path.dirname(os.path.abspath(__file__)), "recorder.c")
        subprocess.run(["cc", "-O2", "-shared", "-fPIC", "-o", self.recorder, source, "-ldl", "-lpthread"], check=True)

    def make_shop(self):
        write_tree(self.root, {})
        os.makedirs(self.home)
        kill_desk.make_shop(self.programs, self.home)
        with open(f"{self.home}/settings.ini", "ab") as settings:
            settings.write(b"\n[Velmora%%20Karvel]\nSize\\D%%F6kNo=%06d\n" % LAST_SLIP)


class RecordedRobot(Robot):
    """A desk whose changes are recorded, and in the midst of them its answers."""

    def __init__(self, place, title):
        self.place = place
        wrap = ("env", f"LD_PRELOAD={place.recorder}", f"KARVEL_RECORD={place.record}", f"KARVEL_RECORD_UNDER={place.root}",
                f"KARVEL_RECORD_PAUSE={PAUSE}", f"TMPDIR={place.other}", f"XDG_RUNTIME_DIR={place.other}")
        super().__init__(place.program, place.home, title, wrap, errors=subprocess.DEVNULL)

    def answer(self, seconds=120):
        answer = super().answer(seconds)
        with open(os.path.join(self.place.record, "lock"), "ab") as line, open(os.path.join(self.place.record, "trace"), "ab") as trace:
            fcntl.flock(line, fcntl.LOCK_EX)
            trace.write(HEAD.pack(ord("A"), self.process.pid, 0, 0, 0, 0))
        return answer


class Recording:
    """What desks did to the files of a shop, from a begin on that was safe."""

    def __init__(self, place, name, work):
        self.place, self.name, self.root = place, name, place.root
        with open(os.path.join(place.record, "trace"), "wb"), open(os.path.join(place.record, "lock"), "wb"):
            pass
        self.fail_at(0, 0)
        self.begin = snapshot(place.root)
        self.robots = []
        try:
            work(self)
        finally:
            for robot in self.robots:
                robot.close()
        self.records = read_records(os.path.join(place.record, "trace"))
        self.at_end = {path: content for path, _, content in snapshot(place.root) if path}

    def start(self, number=1):
        robot = RecordedRobot(self.place, f"Velmora Karvel{number}")
        self.robots.append(robot)
        robot.state()
        return robot

    def fail_at(self, sync, write, killing=0):
        """The sync or the write, counted from now on, that fails, and the sync that kills; none with 0."""
        with open(os.path.join(self.place.record, "control"), "r+b" if os.path.exists(os.path.join(self.place.record, "control")) else "w+b") as control:
            control.write(struct.pack("<iii", sync, write, killing).ljust(4096, b"\0"))

    def tree_at_begin(self):
        return {path: content for path, _, content in self.begin if path}

    def moments(self, chance, count):
        """Where to cut: half of them anywhere, half of them about a sync or a name that comes or goes."""
        busy = [number for number, record in enumerate(self.records, 1) if record.kind not in "WA"]
        anywhere = [chance.randint(1, len(self.records)) for _ in range(count - count // 2)]
        return sorted(anywhere + [min(len(self.records), max(1, chance.choice(busy) + chance.randint(-1, 2))) for _ in range(count // 2)])


# What the desks do.

def postings(chance, count, first=0):
    def work(recording):
        robot = recording.start()
        clerk = Clerk(recording.place.home, chance)
        for minute in range(first, first + count):
            action = clerk.next(minute)
            kill_desk.play(robot, action)
            told = clerk.ask(*action.seen)
            if not told or told[0][0] != action.told:
                raise RuntimeError(f"{action.kind}: {told} instead of {action.told}")

    return work


def two_desks(lines):
    def work(recording):
        desks = [recording.start(number) for number in (1, 2)]

        def sell(robot):
            robot.enter_sale()
            for line in range(lines):
                robot.pick(line % 3, 2)
                robot.post()

        hands = [threading.Thread(target=sell, args=(robot,)) for robot in desks]
        for hand in hands:
            hand.start()
        for hand in hands:
            hand.join()

    return work


def refused(recording):
    """Syncs and writes that fail, one in each posting, and a posting that doesn't behind each."""
    robot = recording.start()
    robot.enter_sale()
    told = 0
    for sync, write in [(sync, 0) for sync in range(1, 17)] + [(0, write) for write in (1, 2, 4, 7, 11, 16, 22, 29, 37, 46, 56)]:
        robot.pick(sync % 5, 1)
        recording.fail_at(sync, write)
        robot.post()
        recording.fail_at(0, 0)
        told += any(box["icon"] == "Stop" for box in robot.messages())
        robot.pick(sync % 5, 2)
        robot.post()
        robot.messages()
    if told < 8:
        raise RuntimeError(f"only {told} postings were refused")


def killed(syncs):
    """A desk that is killed in each of these syncs of a posting, and another that puts right what it left."""
    def work(recording):
        for sync in syncs:
            robot = recording.start()
            robot.enter_sale()
            robot.pick(sync % 5, 1)
            recording.fail_at(0, 0, killing=sync)
            try:
                robot.post()
                raise RuntimeError(f"a posting has no sync {sync}")
            except Gone:
                recording.robots.remove(robot)
                robot.end()
                recording.fail_at(0, 0)
        recording.start()

    return work


def first_start(recording):
    robot = recording.start()
    for number in (1, 2):
        for request in ({"do": "set", "at": "Text1(0)", "value": f"Yeni Müşteri {number}"}, {"do": "key", "key": "Enter"},
                        {"do": "set", "at": "CariNew(0)", "value": f"y{number}"}, {"do": "click", "at": "CariNewCmd(1)"}):
            robot.do(request)


# The cuts.

class Table:
    def __init__(self):
        self.cuts, self.lossy, self.halfway = Counter(), Counter(), Counter()

    def text(self):
        lines = [f"{'':22}{'disk':12}{'cuts':>8}{'lost something':>16}{'amid a commit':>15}"]
        for key in self.cuts:
            lines.append(f"{key[0]:22}{key[1]:12}{self.cuts[key]:8}{self.lossy[key]:16}{self.halfway[key]:15}")
        return "\n".join(lines)


def is_halfway(tree):
    return any(path.startswith(DATA) and path.endswith("-journal") and content[:1] not in (b"", b"\0") for path, content in tree.items() if content)


def cut(recording, books, timeline, kind, chance, moments, forgets=lambda node: False):
    """Each cut in turn: its moment, what it left, and what is wrong with the books then."""
    disk = Disk(recording.root, recording.begin, kind, forgets)
    for moment in moments:
        while disk.number < moment:
            disk.advance(recording.records[disk.number])
        tree = disk.after_cut(chance, chance.choice(SECTORS))
        try:
            faults = timeline.faults(moment, books.recovered(tree))
        except Damaged as damage:
            faults = [str(damage)]
        yield disk, moment, tree, faults


class Simulation:
    def __init__(self, programs, seed):
        self.place = Place(programs)
        self.chance = random.Random(seed)
        self.books = Books(self.place.root, programs)
        self.table = Table()

    def record(self, name, work):
        """A recording and its states; the model must hold what the files held in the end, or something was not recorded."""
        recording = Recording(self.place, name, work)
        timeline = Timeline(self.books, recording)
        unlike = [path for path in timeline.finished.keys() | recording.at_end.keys()
                  if timeline.finished.get(path, b"?") != recording.at_end.get(path, b"?") and "/log/" not in path and "/lock/" not in path]
        if unlike:
            raise RuntimeError(f"{name}: not all was recorded of {unlike[:5]}")
        return recording, timeline

    def cut_all(self, recording, timeline, count):
        """A share of the cuts for each kind of disk; the faults of the first broken one."""
        for kind in KINDS:
            moments = recording.moments(self.chance, -(-count // len(KINDS)))
            key = recording.name, kind
            for disk, moment, tree, faults in cut(recording, self.books, timeline, kind, self.chance, moments):
                self.table.cuts[key] += 1
                self.table.lossy[key] += tree != disk.as_written()
                self.table.halfway[key] += is_halfway(tree)
                if faults:
                    return self.describe(recording, kind, moment, tree, faults)
        return []

    def describe(self, recording, kind, moment, tree, faults):
        kept = tempfile.mkdtemp(prefix="karvel-cut-")
        write_tree(kept, tree)
        last = [f"  {number} {record.kind} {record.process} {record.last_path or record.place}"
                for number, record in enumerate(recording.records[:moment], 1)][-12:]
        return [f"{recording.name}, disk {kind}, cut behind {moment} of {len(recording.records)} records:", *faults[:10], *last,
                f"What the cut left lies in {kept}; it was recorded in {recording.root}"]

    def halfway_trees(self, recording, timeline, count):
        """What cuts left that a start has to put right."""
        while count:
            moments = recording.moments(self.chance, 40)
            for _, _, tree, faults in cut(recording, self.books, timeline, self.chance.choice(KINDS), self.chance, moments):
                if is_halfway(tree) and not faults and count:
                    count -= 1
                    yield tree

    def start_again(self, recording, timeline, count, starts):
        """Cuts in starts after a cut."""
        for tree in self.halfway_trees(recording, timeline, starts):
            write_tree(self.place.root, tree)
            again, states = self.record("start after a cut", postings(self.chance, 1, LATER))
            faults = self.cut_all(again, states, count // starts)
            if faults:
                return faults
        return []

    def prove(self, recordings, count):
        """With the syncs of one kind of file left out, some books must be found broken."""
        faults = []
        for what, name, forgets in FORGOTTEN:
            found, tried = self.first_broken(*recordings[name], forgets, count)
            if found:
                print(f"without the syncs of {what}: broken books, found by cut {tried}", flush=True)
            else:
                faults.append(f"without the syncs of {what} nothing was found in {tried} cuts")
        return faults

    def first_broken(self, recording, timeline, forgets, count):
        tried = 0
        for kind in KINDS:
            moments = recording.moments(self.chance, count)
            self.chance.shuffle(moments)
            for piece in range(0, count, 50):
                for _, _, _, faults in cut(recording, self.books, timeline, kind, self.chance, sorted(moments[piece:piece + 50]), forgets):
                    tried += 1
                    if faults:
                        return True, tried
        return False, tried


# What is forgotten, in which recording, and whose syncs these are.
FORGOTTEN = (
    ("stores", "one desk", lambda node: node.name.lower().endswith(".mdb")),
    ("journals", "one desk", lambda node: node.name.endswith("-journal")),
    ("super-journals", "one desk", lambda node: "-mj" in node.name),
    ("the data folder", "one desk", lambda node: node.name == "KarvelData"),
    ("the settings", "one desk", lambda node: node.name.startswith(".karvel-")),
    ("the settings' folder", "one desk", lambda node: node.name == os.path.basename(HOME)),
    ("the folders above a new one", "first start", lambda node: node.name in ("", "share", "C")),
)


# Of the cuts; the rest goes to starts after a cut.
SHARES = {"first start": 0.1, "one desk": 0.2, "two desks": 0.15, "syncs and writes fail": 0.25, "kills": 0.2}


def run(programs, cuts, seed):
    simulation = Simulation(programs, seed)
    place, chance = simulation.place, simulation.chance
    small = cuts < 2000
    started = time.monotonic()

    write_tree(place.root, {})
    recordings = {"first start": simulation.record("first start", first_start)}
    for name, work in (("one desk", postings(chance, 12 if small else 60)), ("two desks", two_desks(4 if small else 15)),
                       ("syncs and writes fail", refused), ("kills", killed((5, 10, 14, 17, 17) if small else [*range(1, 18), 17, 17]))):
        place.make_shop()
        recordings[name] = simulation.record(name, work)
    commits = sum(timeline.turns_of_rows() for _, timeline in recordings.values())
    print(f"recorded {commits} commits, {time.monotonic() - started:.0f} s", flush=True)

    faults = simulation.prove(recordings, 300)
    for name, share in SHARES.items():
        faults = faults or simulation.cut_all(*recordings[name], int(cuts * share))
    faults = faults or simulation.start_again(*recordings["one desk"], int(cuts * (1 - sum(SHARES.values()))), 3 if small else 20)
    print(simulation.table.text())
    if faults:
        print("\n".join(faults))
        return 1
    print(f"{sum(simulation.table.cuts.values())} power cuts, {time.monotonic() - started:.0f} s: no books half, nothing told is lost")
    shutil.rmtree(place.base)
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 4:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 20000, int(sys.argv[3]) if len(sys.argv) > 3 else 1))
