#!/usr/bin/env python3
"""Holds every #include in the tree against the list of layers, and ARCHITECTURE.md against it too.

The list is cmake/layers.txt: a line a level, lowest first; folders on one line do not see each other.
ARCHITECTURE.md names the layers once more, in the block fenced as ```layers. A file may include from its own folder and from lower levels. Headers are included
by bare name, so a name may stand for one file only. Tests, benchmarks and tools may include from
anywhere, but not be included from the library or the driver.

Prints one line a violation and ends with status 1 when there is any.
"""

import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SOURCES = (".h", ".cpp", ".def")
PASSED_OVER = {"build", "third_party", "docs", "examples"}
ABOVE_ALL = ("tests", "bench", "tools")
# Where a layer's files lie, beside the folder of its own name at the root.
FLOORS = ["VRXI2sInp2Sim/VRXI2sInp.m/interfaces", "VRXI2sInp2Sim/VRXI2sInp.m/src"]
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')


def read_lines(path):
    """The names on each line of the list."""
    with open(path, encoding="utf-8") as file:
        return [line.split() for line in file if line.strip() and not line.startswith("#")]


def read_levels(path):
    """The level of each folder, from 0 up."""
    levels = {}
    for level, folders in enumerate(read_lines(path)):
        for folder in folders:
            if folder in levels:
                sys.exit(f"{path}: '{folder}' stands twice in the list of layers")
            levels[folder] = level
    return levels


def check_document(path, lines):
    with open(path, encoding="utf-8") as file:
        block = re.search(r"^```layers\n(.*?)^```", file.read(), re.MULTILINE | re.DOTALL)
    if block is None:
        return [f"{path}: no block fenced as ```layers"]
    shown = [line.split() for line in block.group(1).splitlines() if line.strip()]
    return [] if shown == lines else [f"{path}: the layers shown are not those of cmake/layers.txt"]


def folder_of(path):
    """The layer that a file lies in, by its path from the root."""
    for floors in FLOORS:
        if path.startswith(floors + "/"):
            return path[len(floors) + 1:].split("/")[0]
    return path.split("/")[0]


def find_files(root):
    found = []
    for folder, names, files in os.walk(root):
        names[:] = sorted(n for n in names if not n.startswith(".") and n not in PASSED_OVER)
        found += [os.path.relpath(os.path.join(folder, name), root)
                  for name in sorted(files) if name.endswith(SOURCES)]
    return found


def includes(path):
    """Line number, name and whether it stands in quotes, for each include of a file."""
    with open(path, encoding="utf-8", errors="replace") as file:
        for number, line in enumerate(file, 1):
            match = INCLUDE.match(line)
            if match:
                yield number, match.group(1) or match.group(2), match.group(1) is not None


def check_names(files):
    """The file of each header's name, and the names that several files share."""
    homes, faults = {}, []
    for path in files:
        name = os.path.basename(path)
        if name.endswith(".cpp"):
            continue
        if name in homes:
            faults.append(f"{path}: there is a {name} already: {homes[name]}")
        homes.setdefault(name, path)
    return homes, faults


def check_include(path, name, is_quoted, homes, levels):
    """What is wrong with an include, or None."""
    if name not in homes:
        if os.path.basename(name) in homes:
            return f'"{name}" is not a bare name'
        return f'"{name}" is not in the tree' if is_quoted else None
    own, other = folder_of(path), folder_of(homes[name])
    if own in ABOVE_ALL or own == other:
        return None
    if other in ABOVE_ALL:
        return f"{own} includes {name} of {other}, which is no part of the program"
    if own not in levels or other not in levels:
        return None  # the folder is reported by itself
    if levels[other] < levels[own]:
        return None
    where = "beside" if levels[other] == levels[own] else "above"
    return f"{own} includes {name} of {other}, which lies {where} it"


def check_tree(root):
    layers = os.path.join(root, "cmake", "layers.txt")
    levels = read_levels(layers)
    files = find_files(root)
    homes, faults = check_names(files)
    faults += check_document(os.path.join(root, "ARCHITECTURE.md"), read_lines(layers))
    for folder in sorted({folder_of(path) for path in files}):
        if folder not in levels and folder not in ABOVE_ALL:
            faults.append(f"{folder}: not in cmake/layers.txt")
    for path in files:
        for number, name, is_quoted in includes(os.path.join(root, path)):
            fault = check_include(path, name, is_quoted, homes, levels)
            if fault:
                faults.append(f"{path}:{number}: {fault}")
    return len(files), faults


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else ROOT
    count, faults = check_tree(root)
    print("\n".join(faults) if faults else f"{count} files keep to the layers")
    return 1 if faults or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
