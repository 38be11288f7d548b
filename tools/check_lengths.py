#!/usr/bin/env python3
"""Tells which functions of the program are longer than fifty lines.

check_lengths.py [--most N] [--list N]

Counts the lines from a definition's opening brace to its closing one, both included, in all sources but
tests. Braces stand as the format puts them: an opening brace on a line of its own at the depth of the
definition. With --list the N longest are printed instead. Ends with status 1 when one is too long.
"""

import argparse
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FOLDERS = ["base", "tables", "geometry", "VRXAspAnalysisSupport", "VRXI2sInp2Sim", "service", "driver", "bench"]
# What opens a brace without being a function.
NO_FUNCTION = re.compile(r"^\s*(?:template\b.*|)(?:class|struct|union|enum|namespace|extern)\b|=\s*$|\[\]\s*=")


def sources():
    for folder in FOLDERS:
        for place, _, names in os.walk(os.path.join(ROOT, folder)):
            for name in names:
                if name.endswith((".h", ".cpp")):
                    yield os.path.join(place, name)


def functions(path):
    """Each function of a file: its first line and its length."""
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    number = 0
    while number < len(lines):
        line = lines[number]
        opens = line.strip() == "{" and number > 0
        head = number - 1
        while opens and head > 0 and not re.search(r"[;{}]\s*(//.*)?$|^\s*$|^\s*//|^#|:$", lines[head - 1]):
            head -= 1
        text = " ".join(lines[head:number])
        if opens and "(" in text and not NO_FUNCTION.search(text):
            closing = line.replace("{", "}")
            end = next((i for i in range(number, len(lines)) if lines[i].rstrip(";") == closing), number)
            yield head + 1, end - number + 1
            number = end
        number += 1


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("--most", type=int, default=50)
    parser.add_argument("--list", type=int, default=0)
    arguments = parser.parse_args()
    found = [(length, os.path.relpath(path, ROOT), line)
             for path in sources() for line, length in functions(path)]
    found.sort(key=lambda entry: (-entry[0], entry[1], entry[2]))
    shown = found[:arguments.list] if arguments.list else [e for e in found if e[0] > arguments.most]
    for length, path, line in shown:
        print(f"{path}:{line}: {length} lines")
    if not arguments.list and not shown:
        print(f"{len(found)} functions, none longer than {arguments.most} lines")
    return 1 if shown and not arguments.list else 0


if __name__ == "__main__":
    sys.exit(main())
