"""What a shop holds after a cut, once it is recovered as a start does it, and which of its states a cut may leave."""
import hashlib
import os
import re
import shutil
import sqlite3
from bisect import bisect_right

from power_cut_disk import Disk

HOME = "share/velmora-karvel"  # in the folder that is watched
DATA = HOME + "/C/KarvelData"
MAIN = "Karvel.mdb"
FILES = (MAIN, "Cari.mdb", "Stok.mdb", "SeriNo.mdb", "Index.mdb", "Fatura.mdb", "DataStok.mdb", "Temp.mdb")
SETTINGS = HOME + "/settings.ini"
SLIP_NUMBER = re.compile(rb"D%F6kNo=(\d+)")
# Of the desk's own upkeep, which no shop misses: logs, locks, where the window stood, neighbours of files, what SQLite keeps for a recovery, and
# what a backup needs until its archive is whole.
UPKEEP = re.compile(r".*(/log/.*|/lock/.*|/fitting/.*|karvel\.lock|\.karvel-[^/]*\.tmp(\.\w+)?|-journal|-mj[0-9A-F]{9}|-changes|/yedeklenen\d+/.*)$")


class Damaged(Exception):
    """A store that can't be read after the cut."""


def write_tree(root, tree):
    for entry in os.scandir(root):
        shutil.rmtree(entry.path) if entry.is_dir(follow_symlinks=False) else os.remove(entry.path)
    for path, content in tree.items():
        if content is None:
            os.mkdir(f"{root}/{path}")
        else:
            with open(f"{root}/{path}", "wb") as file:
                file.write(content)


class Books:
    """Reads shops that are laid under `root`. What has been read once is known by its bytes."""

    def __init__(self, root, templates):
        self.root = root
        self.known = {}
        self.templates = {}
        for name in FILES:
            with sqlite3.connect(os.path.join(templates, name)) as connection:
                self.templates[name] = self.read(connection, "main", name)[0]
            connection.close()

    def read(self, connection, schema, name):
        """What a file's rows come to, and the highest slip number of the day book."""
        sound = connection.execute(f"PRAGMA {schema}.integrity_check").fetchall()
        if sound != [("ok",)]:
            raise Damaged(f"{name}: {sound[:3]}")
        sum_of_rows, slip = hashlib.blake2b(digest_size=16), 0
        tables = connection.execute(f"SELECT name, sql FROM {schema}.sqlite_master WHERE type = 'table' ORDER BY name").fetchall()
        for table, made in tables:
            rows = connection.execute(f'SELECT rowid, * FROM {schema}."{table}" ORDER BY rowid').fetchall()
            sum_of_rows.update(repr((table, made, rows)).encode())
            if table == "Datam":
                numbers = connection.execute(f"SELECT SeriNo FROM {schema}.Datam").fetchall()
                slip = max((int(number) for (number,) in numbers if str(number).isdigit()), default=0)
        return sum_of_rows.hexdigest(), slip

    def recovered(self, tree):
        """Lays out what a cut left and recovers it in place; what every part of the shop then holds."""
        write_tree(self.root, tree)
        present = [name for name in FILES if f"{DATA}/{name}" in tree]
        try:
            rows, slip = self.recover(present)
        except sqlite3.Error as error:
            raise Damaged(f"{type(error).__name__}: {error}") from error
        state = {f"{DATA}/{name}": name in present for name in FILES}
        state["rows"] = tuple(rows.get(name, self.templates[name]) for name in FILES)
        state[SETTINGS] = b""
        for path, content in tree.items():
            if content is not None and path not in state and not UPKEEP.match(path):
                state[path] = content
        state[SETTINGS] = tree.get(SETTINGS) or b""
        given = SLIP_NUMBER.search(state[SETTINGS])
        state["slip number is behind the day book"] = slip > (int(given.group(1)) if given else 0)
        return state

    def recover(self, present):
        """As the desk does it: the main file first, then the others beside it on the same connection."""
        if not present:
            return {}, 0
        folder = f"{self.root}/{DATA}"
        # At a first start the main file may be missing yet.
        connection = sqlite3.connect(f"{folder}/{present[0]}", isolation_level=None)
        try:
            schemas = {present[0]: "main"}
            connection.execute("SELECT count(*) FROM main.sqlite_schema").fetchone()
            for name in present[1:]:
                schemas[name] = name.split(".")[0] + "_"
                connection.execute(f"ATTACH ? AS {schemas[name]}", (f"{folder}/{name}",))
                connection.execute(f"SELECT count(*) FROM {schemas[name]}.sqlite_schema").fetchone()
            rows, highest = {}, 0
            for name, schema in schemas.items():
                with open(f"{folder}/{name}", "rb") as file:
                    content = hashlib.blake2b(file.read(), digest_size=16).digest()
                key = name, content
                if key not in self.known:
                    self.known[key] = self.read(connection, schema, name)
                rows[name], slip = self.known[key]
                highest = max(highest, slip)
            return rows, highest
        finally:
            connection.close()


class Timeline:
    """The states that a recording ran through, as a kill at each of its records would leave them, and what each process was heard to have done."""

    def __init__(self, books, recording):
        self.parts = {}  # part: [(number of the record behind which it holds, process, value)]
        self.turns = {}  # process: [(number, part, place in the part's list)]
        self.answers = {}  # process: the numbers of its answers
        self.note(0, 0, books.recovered(recording.tree_at_begin()))
        disk = Disk(recording.root, recording.begin, "strict")
        for number, record in enumerate(recording.records, 1):
            disk.advance(record)
            if record.kind == "A":
                self.answers.setdefault(record.process, []).append(number)
            elif self.may_turn(record):
                self.note(number, record.process, books.recovered(disk.as_written()))
        self.finished = disk.as_written()

    def may_turn(self, record):
        """Only a name that comes or goes makes a state: a file is laid, a journal is gone. What is written under a journal makes none."""
        if record.kind == "U":
            return True
        return record.kind in "CMLR" and not UPKEEP.match(record.last_path)

    def note(self, number, process, state):
        for part in self.parts.keys() | state.keys():
            value, held = state.get(part), self.parts.setdefault(part, [(0, 0, None)] if number else [])
            if not held or held[-1][2] != value:
                self.turns.setdefault(process, []).append((number, part, len(held)))
                held.append((number, process, value))

    def turns_of_rows(self):
        return len(self.parts["rows"]) - 1

    def told(self, number):
        """For each part the first of its states that still holds with all that was answered by then."""
        first = {}
        for process, answers in self.answers.items():
            at = bisect_right(answers, number)
            if at == 0:
                continue
            for turned, part, place in self.turns.get(process, ()):
                if turned < answers[at - 1]:
                    first[part] = max(first.get(part, 0), place)
        return first

    def faults(self, number, state):
        """What is wrong with a state after a cut behind that many records."""
        faults, least, most = [], {}, {}
        told = self.told(number)
        for part in self.parts.keys() | state.keys():
            held, value = self.parts.get(part, [(0, 0, None)]), state.get(part)
            first, last = told.get(part, 0), bisect_right(held, number, key=lambda turn: turn[0]) - 1
            fitting = [place for place in range(first, max(last, 0) + 1) if held[place][2] == value]
            if fitting:
                least[part], most[part] = fitting[0], fitting[-1]
            elif any(turn[2] == value for turn in held):
                faults.append(f"{part}: not what was told to be there")
            else:
                faults.append(f"{part}: as it never was" + ("" if part == "rows" else f": {value!r:.200}"))
        return faults or self.out_of_order(number, least, most)

    def out_of_order(self, number, least, most):
        """What a process did first is kept where a later thing of it is."""
        faults = []
        for turns in self.turns.values():
            done = [turn for turn in turns if turn[0] <= number]
            kept = [at for at, (_, part, place) in enumerate(done) if place and least[part] >= place]
            for _, part, place in done[:kept[-1]] if kept else ():
                if most[part] < place:
                    faults.append(f"{part}: older than what was done after it")
        return faults
