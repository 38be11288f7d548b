#!/usr/bin/env python3
"""Runs the examples of the documents and holds what inpdeck says against what they show.

check_docs.py PROGRAM [--update] [DOCUMENT...]; without documents, all Markdown files of the tree.

An example is one or more decks and the sessions below them; the next deck begins a new example.

    ```inp NAME     a deck, written to NAME ("deck.inp" when none is given)
    ```console      a session: "$ " heads a command, the lines below it are all that it writes, a line
                    "..." stands for any number of lines

Sessions of an example run in one folder of their own, which also holds the tree's examples/ and a
./run that runs the program at hand; those above a document's first deck have no deck but these. With
--update, outputs that differ are written into the document instead of being reported.

Besides, files that a document links to or names by their path from the root must exist.

Prints one report a difference and ends with status 1 when there is any.
"""

import argparse
import glob
import os
import re
import shutil
import sys
import tempfile

from sessions import ROOT, difference, matches, read_commands, run_session

DOCUMENTS = ("*.md", "docs/*.md", "examples/*.md", "bench/*.md")
FENCE = re.compile(r"^```(\w*) ?(\S*)\s*$")
LINK = re.compile(r"\[[^\]]*\]\(([^)#\s]+)[^)]*\)")
# A path is meant where a text in backquotes has a folder and an extension, and no placeholder.
PATH = re.compile(r"`((?:[\w.-]+/)+[\w-]+\.(?:cpp|h|def|py|sh|cmake|md|inp|txt|dict))`")


class Block:
    """A fenced block; `begin` and `end` are the indices of its first line and behind its last."""

    def __init__(self, kind, name, begin, end):
        self.kind, self.name, self.begin, self.end = kind, name, begin, end


def read_blocks(lines):
    blocks, opened = [], None
    for index, line in enumerate(lines):
        fence = FENCE.match(line)
        if opened is not None and line.startswith("```"):
            blocks.append(Block(opened.group(1), opened.group(2), begin, index))
            opened = None
        elif fence:
            opened, begin = fence, index + 1
    return blocks


class Document:
    """A Markdown file, what is wrong with it, and what would be right."""

    def __init__(self, path, program):
        self.path, self.program = path, program
        with open(path, encoding="utf-8") as file:
            self.lines = file.read().split("\n")
        self.blocks = read_blocks(self.lines)
        self.faults = []
        self.sessions = 0
        self.corrections = []  # (block, its new lines)

    def report(self, line, words):
        self.faults.append(f"{os.path.relpath(self.path, ROOT)}:{line}: {words}")

    def examples(self):
        """Decks and the sessions below them, in turn."""
        decks, sessions = [], []
        for block in self.blocks:
            if block.kind == "inp" and sessions:
                yield decks, sessions
                decks, sessions = [], []
            if block.kind == "inp":
                decks.append(block)
            elif block.kind == "console":
                sessions.append(block)
        yield decks, sessions

    def check_examples(self):
        for decks, sessions in self.examples():
            if decks and not sessions:
                self.report(decks[0].begin, "a deck without a session that reads it")
            with tempfile.TemporaryDirectory() as folder:
                self.set_up(folder, decks)
                for session in sessions:
                    self.check_session(session, folder)

    def set_up(self, folder, decks):
        shutil.copytree(os.path.join(ROOT, "examples"), os.path.join(folder, "examples"))
        run = os.path.join(folder, "run")
        with open(run, "w", encoding="utf-8") as file:
            file.write('#!/bin/sh\nexec inpdeck check "$@"\n')
        os.chmod(run, 0o755)
        for deck in decks:
            path = os.path.join(folder, deck.name or "deck.inp")
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as file:
                file.writelines(line + "\n" for line in self.lines[deck.begin:deck.end])

    def check_session(self, block, folder):
        commands = read_commands(self.lines[block.begin:block.end])
        if not commands:
            self.report(block.begin, "a session without a command")
            return
        self.sessions += 1
        corrected = []
        for (command, shown), written in zip(commands, run_session(commands, folder, self.program)):
            agrees = matches(shown, written)
            if not agrees:
                self.report(block.begin, f"'{command}' writes something else:\n" + difference(shown, written))
            corrected += ["$ " + command] + (shown if agrees else written)
        self.corrections.append((block, corrected))

    def check_paths(self):
        fenced = {index for block in self.blocks for index in range(block.begin, block.end)}
        folder = os.path.dirname(self.path)
        for index, line in enumerate(self.lines):
            if index in fenced:
                continue
            named = [(folder, link) for link in LINK.findall(line) if "://" not in link]
            named += [(ROOT, path) for path in PATH.findall(line)
                      if os.path.isdir(os.path.join(ROOT, path.split("/")[0]))]
            for start, name in named:
                if not os.path.exists(os.path.join(start, name)):
                    self.report(index + 1, f"there is no '{name}'")

    def update(self):
        self.check_examples()
        for block, lines in reversed(self.corrections):
            self.lines[block.begin:block.end] = lines
        with open(self.path, "w", encoding="utf-8") as file:
            file.write("\n".join(self.lines))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("program", help="the inpdeck to run")
    parser.add_argument("documents", nargs="*", help="Markdown files; all of the tree when none")
    parser.add_argument("--update", action="store_true", help="write what differs into the documents")
    arguments = parser.parse_intermixed_args()
    paths = arguments.documents or [path for pattern in DOCUMENTS
                                    for path in sorted(glob.glob(os.path.join(ROOT, pattern)))]
    program = os.path.abspath(arguments.program)
    faults, sessions = [], 0
    for path in map(os.path.abspath, paths):
        if arguments.update:
            Document(path, program).update()
        document = Document(path, program)
        document.check_examples()
        document.check_paths()
        faults += document.faults
        sessions += document.sessions
    print("\n".join(faults) if faults else f"{sessions} sessions in {len(paths)} documents are true")
    return 1 if faults or sessions == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
