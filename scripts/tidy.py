#!/usr/bin/env python3
"""tidy.py DATABASE FOLDER…: clang-tidy over the files of a CMake compile database that lie in the folders.

Prints each finding once, then one line with the count of clean files; ends with 1 when a file is not clean. Takes out of each command what
clang cannot read: the compiler's launcher and the other compiler's precompiled header.
"""
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

TIDY = "clang-tidy-19"


def clang_command(command):
    """The command that clang understands of one that the database holds."""
    words = iter(shlex.split(command))
    for word in words:  # A launcher such as ccache stands in front of the compiler.
        if re.search(r"\+\+(-\d+)?$", word):
            break
    arguments = ["clang++-19"]
    for word in words:
        if word in ("-include", "-include-pch"):
            header = next(words)
            if not os.path.basename(header).startswith("cmake_pch"):
                arguments += [word, header]
        elif word not in ("-Winvalid-pch", "-fpch-preprocess", "-Werror"):
            arguments.append(word)
    return arguments


def chosen_entries(database, folders):
    """One entry a file: those below the folders, without what the build generated."""
    roots = tuple(os.path.join(os.path.realpath(folder), "") for folder in folders)
    entries = {}
    with open(database, encoding="utf-8") as text:
        for entry in json.load(text):
            file = os.path.realpath(os.path.join(entry["directory"], entry["file"]))
            if file.startswith(roots):
                entries[file] = {"directory": entry["directory"], "file": file, "arguments": clang_command(entry["command"])}
    return [entries[file] for file in sorted(entries)]


def findings(output):
    """The findings in clang-tidy's output, each with the lines that explain it."""
    return [part for part in re.split(r"^(?=\S+:\d+:\d+: (?:warning|error): )", output, flags=re.MULTILINE) if part.strip()]


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    entries = chosen_entries(sys.argv[1], sys.argv[2:])
    if not entries:
        sys.exit("tidy.py: no file of the database lies in the folders")
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "compile_commands.json"), "w", encoding="utf-8") as text:
            json.dump(entries, text)

        def check(entry):
            return subprocess.run([TIDY, "--quiet", "-p", folder, entry["file"]], capture_output=True, text=True, errors="replace", check=False)

        clean, said = 0, set()
        here = os.path.join(os.getcwd(), "")
        with ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
            for entry, result in zip(entries, pool.map(check, entries)):
                if result.returncode == 0:
                    clean += 1
                    continue
                # A header's finding comes with every file that includes it.
                new = [part for part in findings(result.stdout) or [f"{entry['file']}: {result.stderr}"] if part not in said]
                said.update(new)
                print("".join(new).replace(here, ""), end="", flush=True)
    print(f"clang-tidy: {clean} of {len(entries)} files are clean")
    sys.exit(clean != len(entries))


if __name__ == "__main__":
    main()
