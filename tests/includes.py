#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails if a header of the program depends on what other files included before it.

usage: includes.py BUILD_FOLDER

If a source file begins with its own header, the build has compiled that header on its own; this script checks that it
does. Headers without a source file are compiled here, with the flags of their folder, as many at once as the machine
has processors.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ["model", "analysis", "database", "preview", "views", "forms", "shell", "commands"]


def flags_of(build):
    """The compiler and its flags for each folder, without file names and options for the output."""
    flags = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        folder = os.path.relpath(os.path.dirname(entry["file"]), ROOT)
        if folder not in FOLDERS or folder in flags:
            continue
        words = shlex.split(entry["command"])
        start = next(i for i, word in enumerate(words) if re.search(r"(\+\+|clang)[-0-9.]*$", word))
        kept = []
        rest = iter(words[start:])
        for word in rest:
            if word in ("-o", "-c", "-MF", "-MT"):
                next(rest)
            elif word != "-MD" and not re.match(r"-[Og]", word):
                kept.append(word)
        flags[folder] = kept
    return flags


def first_include(source):
    found = re.search(r'^#include ["<](.*)[">]', source.read_text(), re.MULTILINE)
    return found.group(1) if found else ""


def compiles_alone(header, flags):
    command = flags + ["-fsyntax-only", "-x", "c++", "-include", str(header), os.devnull]
    result = subprocess.run(command, cwd=ROOT, capture_output=True, text=True)
    return "" if result.returncode == 0 else f"{header.relative_to(ROOT)} does not compile alone:\n{result.stderr}"


def main():
    flags = flags_of(pathlib.Path(sys.argv[1]))
    faults = []
    alone = []
    for folder in FOLDERS:
        for header in sorted((ROOT / folder).glob("*.h")):
            source = header.with_suffix(".cpp")
            name = header.relative_to(ROOT).as_posix()
            if not source.exists():
                alone.append((header, flags[folder]))
            elif first_include(source) != name:
                faults.append(f"{source.relative_to(ROOT)} does not begin with its own header")
    if not alone:
        faults.append("there is no header without a source file: is this the right folder?")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        faults += filter(None, pool.map(lambda each: compiles_alone(*each), alone))
    print("\n".join(faults) or f"{len(alone)} headers compiled alone")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
