#!/usr/bin/env python3
"""Runs situations of the whole road and holds what inpdeck writes against what was written down.

check_decks.py PROGRAM [--update] FOLDER...

A situation is a folder in tests/decks/: deck.inp with all that it includes, and expected.txt, which is

    two sentences on what is shown

    $ inpdeck check deck.inp         a command, run in a copy of the folder
    ...                              all that it writes, errors and results in their order

    $ inpdeck print deck.inp         a blank line stands in front of each command
    ...

Every command's output is compared whole; a status other than 0 is the last line, "[status 1]". With
--update the outputs are written down anew: look through the difference before you commit it. A new
situation begins with the sentences and the commands alone.
"""

import argparse
import os
import shutil
import sys
import tempfile

from sessions import difference, read_commands, run_session


def with_status(command):
    return f"{command}; situation=$?; [ $situation = 0 ] || echo \"[status $situation]\""


def read_expected(path):
    """The heading's lines, and the commands with their outputs."""
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    first = next((index for index, line in enumerate(lines) if line.startswith("$ ")), len(lines))
    commands = [(command, "\n".join(output).rstrip("\n").split("\n") if any(output) else [])
                for command, output in read_commands(lines[first:])]
    return "\n".join(lines[:first]).strip("\n"), commands


def run(folder, commands, program):
    with tempfile.TemporaryDirectory() as scratch:
        copy = os.path.join(scratch, "deck")
        shutil.copytree(folder, copy)
        os.remove(os.path.join(copy, "expected.txt"))
        outputs = run_session([(with_status(command), None) for command, _ in commands], copy, program)
        return ["\n".join(output).rstrip("\n").split("\n") if any(output) else [] for output in outputs]


def check(folder, program, update):
    path = os.path.join(folder, "expected.txt")
    heading, commands = read_expected(path)
    faults = []
    if not heading:
        faults.append(f"{path}: no sentence says what is shown")
    if not commands:
        faults.append(f"{path}: no command")
    outputs = run(folder, commands, program)
    if update:
        with open(path, "w", encoding="utf-8") as file:
            file.write(heading + "\n")
            for (command, _), written in zip(commands, outputs):
                file.write("\n" + "\n".join(["$ " + command] + written) + "\n")
        return faults
    for (command, shown), written in zip(commands, outputs):
        if shown != written:
            faults.append(f"{path}: '{command}' writes something else:\n" + difference(shown, written))
    return faults


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("program", help="the inpdeck to run")
    parser.add_argument("folders", nargs="+", help="situations")
    parser.add_argument("--update", action="store_true", help="write down what the program writes")
    arguments = parser.parse_intermixed_args()
    faults = []
    for folder in arguments.folders:
        faults += check(folder, os.path.abspath(arguments.program), arguments.update)
    print("\n".join(faults) if faults else f"{len(arguments.folders)} situations agree")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
