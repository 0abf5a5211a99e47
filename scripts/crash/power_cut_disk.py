"""A disk that loses its power: what recorder.c wrote down, played on a model of a disk that keeps no more than it must.

What a file holds is safe after a sync of the file, a name after a sync of its folder. Of the rest each sector, each size and each name may be as at
any moment since. Three kinds of disk:

    strict     the names of a folder in any subset
    in_order   the names of a folder in the order in which they were made
    journalled all names in the order in which they were made, and every sync makes safe all that were made before it
"""
import os
import struct
from dataclasses import dataclass

KINDS = ("strict", "in_order", "journalled")
SECTORS = (512, 4096)
HEAD = struct.Struct("<IIQQII")


@dataclass
class Record:
    """C create, M make a folder, W write, T resize, S begin of a sync, E its end, R rename, L link, U remove a name, A answer to the clerk."""

    kind: str
    process: int
    inode: int
    place: int
    path: str = ""
    target: str = ""
    data: bytes = b""

    @property
    def last_path(self):
        return self.target or self.path


def read_records(file):
    with open(file, "rb") as trace:
        content = trace.read()
    records, at = [], 0
    while at < len(content):
        kind, process, inode, place, first, second = HEAD.unpack_from(content, at)
        at += HEAD.size
        one, two = content[at:at + first], content[at + first:at + first + second]
        at += first + second
        record = Record(chr(kind), process, inode, place)
        if record.kind == "W":
            record.data = one
        else:
            record.path, record.target = one.decode(), two.decode()
        records.append(record)
    return records


class File:
    def __init__(self, name, content=b""):
        self.name = name  # the first one that it had
        self.safe = bytearray(content)
        self.live = bytearray(content)
        self.changes = []  # those that may be lost: (number of the record, record)

    def change(self, number, record):
        self.changes.append((number, record))
        apply(self.live, record)

    def synced(self, number):
        """What was done before that record is safe."""
        rest = []
        for change in self.changes:
            if change[0] < number:
                apply(self.safe, change[1])
            else:
                rest.append(change)
        self.changes = rest

    def after_cut(self, chance, sector):
        if not self.changes:
            return bytes(self.safe)
        content, sizes, versions = bytearray(self.safe), [len(self.safe)], {}
        for _, record in self.changes:
            begin, end = record.place, record.place + len(record.data)
            if record.kind == "T":
                begin, end = min(record.place, len(content)), max(record.place, len(content))
            elif begin > len(content):
                begin = len(content)
            touched = range(begin // sector, -(-end // sector))
            for one in touched:
                if one not in versions:
                    versions[one] = [sector_of(content, one, sector)]
            apply(content, record)
            for one in touched:
                versions[one].append(sector_of(content, one, sector))
            sizes.append(len(content))
        mood = Mood(chance)
        size = mood.choose(sizes)
        result = bytearray(self.safe)
        if len(result) < max(sizes):
            result.extend(bytes(max(sizes) - len(result)))
        for one, kept in versions.items():
            piece = mood.choose(kept)
            result[one * sector:(one + 1) * sector] = piece
        if len(result) < size:
            result.extend(bytes(size - len(result)))
        return bytes(result[:size])


class Folder:
    def __init__(self, name):
        self.name = name
        self.safe = {}  # name: File or Folder
        self.live = {}
        self.changes = []  # (number of the record, {name: File, Folder or None})

    def change(self, number, names):
        self.changes.append((number, names))
        put(self.live, names)

    def synced(self, number):
        for change in self.changes:
            if change[0] < number:
                put(self.safe, change[1])
        self.changes = [change for change in self.changes if change[0] >= number]


def apply(content, record):
    if record.kind == "W":
        if record.place > len(content):
            content.extend(bytes(record.place - len(content)))
        content[record.place:record.place + len(record.data)] = record.data
    elif record.place < len(content):
        del content[record.place:]
    else:
        content.extend(bytes(record.place - len(content)))


def sector_of(content, number, sector):
    return bytes(content[number * sector:(number + 1) * sector]).ljust(sector, b"\0")


def put(entries, names):
    for name, node in names.items():
        if node is None:
            entries.pop(name, None)
        else:
            entries[name] = node


class Mood:
    """How a disk treated one file or folder: kept nothing, nearly all, or anything."""

    def __init__(self, chance):
        self.chance = chance
        self.last = chance.choice((0, 0.5, 0.9, 1))
        self.first = chance.choice((0, 0.5, 1))

    def choose(self, versions):
        if self.chance.random() < self.last:
            return versions[-1]
        return versions[0] if self.chance.random() < self.first else self.chance.choice(versions)


def snapshot(root):
    """What lies under a folder, and in front the folder itself: [(path under it, inode, bytes or None for a folder)], each after its folder."""
    found = [("", os.lstat(root).st_ino, None)]
    for folder, _, names in os.walk(root):
        under = folder[len(root) + 1:]
        if under:
            found.append((under, os.lstat(folder).st_ino, None))
        for name in names:
            path = os.path.join(folder, name)
            if os.path.isfile(path) and not os.path.islink(path):
                with open(path, "rb") as file:
                    found.append((path[len(root) + 1:], os.lstat(path).st_ino, file.read()))
    return found


class Disk:
    """The model. At the begin it holds a snapshot, safely. `forgets(node)` tells whose syncs don't count, to see that this would be found."""

    def __init__(self, root, begin, kind, forgets=lambda node: False):
        self.root_path = root
        self.kind = kind
        self.forgets = forgets
        self.root = Folder("")
        self.nodes = {}  # by inode
        self.running = {}  # syncs that have begun: (process, number) to the number of the record
        self.folders = []
        self.number = 0
        for path, inode, content in begin:
            node = self.root if not path else Folder(os.path.basename(path)) if content is None else File(os.path.basename(path), content)
            self.nodes[inode] = node
            if content is None:
                self.folders.append(node)
            if path:
                folder, name = self.place_of(f"{root}/{path}")
                folder.safe[name] = folder.live[name] = node

    def place_of(self, path):
        """The folder of a path, and the name in it."""
        pieces = [piece for piece in path[len(self.root_path):].split("/") if piece]
        folder = self.root
        for piece in pieces[:-1]:
            folder = folder.live[piece]
        return folder, pieces[-1]

    def node_at(self, path):
        folder, name = self.place_of(path)
        return folder.live.get(name)

    def advance(self, record):
        getattr(self, "on_" + record.kind)(record)
        self.number += 1

    def on_A(self, record):
        pass

    def on_C(self, record):
        node = File(os.path.basename(record.path))
        self.nodes[record.inode] = node
        if record.path:
            self.name(record.path, node)

    def on_M(self, record):
        node = Folder(os.path.basename(record.path))
        self.nodes[record.inode] = node
        self.folders.append(node)
        self.name(record.path, node)

    def on_L(self, record):
        self.name(record.path, self.nodes[record.inode])

    def on_U(self, record):
        self.name(record.path, None)

    def on_R(self, record):
        (here, old), (there, new) = self.place_of(record.path), self.place_of(record.target)
        node = here.live[old]
        if here is there:
            here.change(self.number, {old: None, new: node})
        else:
            there.change(self.number, {new: node})
            here.change(self.number, {old: None})

    def name(self, path, node):
        folder, name = self.place_of(path)
        folder.change(self.number, {name: node})

    def on_W(self, record):
        self.nodes[record.inode].change(self.number, record)

    on_T = on_W

    def on_S(self, record):
        self.running[record.process, record.place] = self.number

    def on_E(self, record):
        begin = self.running.pop((record.process, record.place))
        node = self.nodes[record.inode]
        if self.forgets(node):
            return
        node.synced(begin)
        if self.kind == "journalled":
            for folder in self.folders:
                folder.synced(begin)

    # What a cut leaves: {path under the root: bytes, or None for a folder}.

    def as_written(self):
        """As a kill leaves it: with all that was done."""
        tree = {}
        self.gather(self.root, "", lambda folder: folder.live, lambda file: bytes(file.live), tree)
        return tree

    def after_cut(self, chance, sector):
        contents, tree = {}, {}

        def content(file):
            if id(file) not in contents:
                contents[id(file)] = file.after_cut(chance, sector)
            return contents[id(file)]

        self.gather(self.root, "", self.names_after_cut(chance), content, tree)
        return tree

    def names_after_cut(self, chance):
        mood = Mood(chance)
        cut = None
        if self.kind == "journalled":
            numbers = sorted({number for folder in self.folders for number, _ in folder.changes})
            cut = mood.choose([-1] + numbers)

        def names(folder):
            entries = dict(folder.safe)
            if self.kind == "strict":
                own, versions = Mood(chance), {}
                for _, change in folder.changes:
                    for name, node in change.items():
                        versions.setdefault(name, [folder.safe.get(name)]).append(node)
                put(entries, {name: own.choose(kept) for name, kept in versions.items()})
            else:
                last = cut if cut is not None else Mood(chance).choose([-1] + [number for number, _ in folder.changes])
                for number, change in folder.changes:
                    if number <= last:
                        put(entries, change)
            return entries

        return names

    def gather(self, folder, path, names, content, tree):
        for name, node in names(folder).items():
            if isinstance(node, Folder):
                tree[path + name] = None
                self.gather(node, path + name + "/", names, content, tree)
            else:
                tree[path + name] = content(node)
