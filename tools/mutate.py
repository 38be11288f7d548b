#!/usr/bin/env python3
"""Puts small faults into the tree, one at a time, and tells which of them no test notices.

mutate.py [--count N] [--seed N] [--jobs N] [FOLDER...]; all folders of the program when none is given.

A fault is one change of a line: a comparison or a connective turned, a number off by one, a call or an
assignment dropped, true for false; in a table (.def) a word changed, a number off by one, or two rows
swapped. Which faults are tried follows from the seed alone. Each is put into a clone of the last commit,
in build/mutate, which is built and tested there; CMAKE_CXX_COMPILER_LAUNCHER=ccache helps.

Prints a line for each survivor, "FILE:LINE: what was changed", then how many of those that compile were
caught, in code and in tables. Ends with status 0: what to make of survivors is for a reader to say.
"""

import argparse
import os
import random
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PLACE = os.path.join(ROOT, "build", "mutate")
TREE = os.path.join(PLACE, "tree")
FOLDERS = ["base", "tables", "geometry", "VRXAspAnalysisSupport", "VRXI2sInp2Sim", "service", "driver"]
SECONDS_OF_BUILD = 900
SECONDS_OF_TESTS = 600
NUMBER = re.compile(r"(?<![\w.\"])(\d+)(?![\w.\"])")
STRING = re.compile(r'"(\w[\w ]*)"')
# What is looked for in a line of code, and what stands there instead.
SWAPS = [(r" == ", " != "), (r" != ", " == "), (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "),
         (r" >= ", " > "), (r" && ", " || "), (r" \|\| ", " && "), (r" \+ ", " - "), (r" - ", " + "),
         (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"\+\+", "--"), (r"\(!", "("),
         (r"\bstd::min\b", "std::max"), (r"\bstd::max\b", "std::min")]
# A statement of its own: a call, or an assignment that declares nothing.
STATEMENT = re.compile(r"^\s+(?:[\w.>\-\[\]]+ [+\-|&]?= .*|[\w.:>\-\[\]]+\(.*\));$")
# No fault in what nothing does: comments, assertions, includes, what only declares.
PASSED_OVER = re.compile(r"^\s*(//|#|\*|INP_SLOT|static_assert|VRXBasAssert|using |template|class |struct |///)")


def changes_of_code(line):
    """Each way to change a line of code: what it says, and the line changed."""
    code = line.split("//")[0]
    for pattern, instead in SWAPS:
        for match in re.finditer(pattern, code):
            yield (f"'{match.group().strip()}' became '{instead.strip()}'",
                   code[:match.start()] + instead + code[match.end():])
    for match in NUMBER.finditer(code):
        changed = str(int(match.group()) + 1)
        yield (f"{match.group()} became {changed}", code[:match.start()] + changed + code[match.end():])
    if STATEMENT.match(code.rstrip()) and "return" not in code:
        yield f"'{code.strip()}' was dropped", ""


def changes_of_table(lines, index):
    """The same for a row of a table, of which the next one may be another row."""
    line = lines[index]
    for match in STRING.finditer(line):
        word = match.group(1)
        changed = word[:-1] + ("x" if word[-1] != "x" else "y")
        yield (f'"{word}" became "{changed}"', line[:match.start(1)] + changed + line[match.end(1):], None)
    for match in NUMBER.finditer(line):
        changed = str(int(match.group()) + 1)
        yield (f"{match.group()} became {changed}", line[:match.start()] + changed + line[match.end():], None)
    following = lines[index + 1] if index + 1 < len(lines) else ""
    is_row = re.compile(r"^INP_\w+\(.*\)\s*(//.*)?$")
    if is_row.match(line) and is_row.match(following):
        yield "the row and the next one were swapped", following, line


def find_changes(path):
    """All changes of a file: (line number from 1, words, the line, the next line or None)."""
    with open(os.path.join(TREE, path), encoding="utf-8") as file:
        lines = file.read().split("\n")
    found = []
    for index, line in enumerate(lines):
        if PASSED_OVER.match(line) or not line.strip():
            continue
        if path.endswith(".def"):
            found += [(index + 1, *change) for change in changes_of_table(lines, index)]
        else:
            found += [(index + 1, *change, None) for change in changes_of_code(line)]
    return found


def put_in(path, change):
    """Writes the changed file; the result is its text before."""
    full = os.path.join(TREE, path)
    with open(full, encoding="utf-8") as file:
        before = file.read()
    lines = before.split("\n")
    number, _, line, following = change
    lines[number - 1] = line
    if following is not None:
        lines[number] = following
    with open(full, "w", encoding="utf-8") as file:
        file.write("\n".join(lines))
    return before


def put_back(path, before):
    with open(os.path.join(TREE, path), "w", encoding="utf-8") as file:
        file.write(before)


def run(command, seconds):
    """Whether the command ended well in that time."""
    process = subprocess.Popen(command, cwd=TREE, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True)
    try:
        return process.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, 9)
        process.wait()
        return False


def build(jobs):
    return run(["cmake", "--build", "--preset", "debug", f"-j{jobs}"], SECONDS_OF_BUILD)


def test(jobs):
    return run(["ctest", "--preset", "debug", f"-j{jobs}", "--stop-on-failure", "--timeout", "120", "-E", "^tools:"],
               SECONDS_OF_TESTS)


def set_up(jobs):
    os.makedirs(PLACE, exist_ok=True)
    if os.path.isdir(TREE):
        commands = [["git", "fetch", "-q", "origin"], ["git", "reset", "-q", "--hard", "origin/HEAD"]]
        head = subprocess.run(["git", "rev-parse", "HEAD"], cwd=ROOT, check=True, capture_output=True, text=True)
        commands[1][-1] = head.stdout.strip()
        commands[0].append(head.stdout.strip())
        for command in commands:
            subprocess.run(command, cwd=TREE, check=True)
    else:
        subprocess.run(["git", "clone", "-q", "--shared", ROOT, TREE], check=True)
    if not run(["cmake", "--preset", "debug"], SECONDS_OF_BUILD) or not build(jobs) or not test(jobs):
        sys.exit("mutate.py: the last commit does not build, or does not pass its tests")


def choose(folders, count, seed):
    """Faults in the order in which they are tried, with some to spare for those that do not compile."""
    listed = subprocess.run(["git", "ls-files", *folders], cwd=TREE, check=True, capture_output=True, text=True)
    paths = [path for path in listed.stdout.split() if path.endswith((".cpp", ".h", ".def"))]
    every = [(path, change) for path in paths for change in find_changes(path)]
    return random.Random(seed).sample(every, min(len(every), 3 * count))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("folders", nargs="*", default=FOLDERS, help="where faults are put in")
    parser.add_argument("--count", type=int, default=20, help="faults that compile")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    set_up(arguments.jobs)
    tried = {"code": 0, "tables": 0}
    caught = {"code": 0, "tables": 0}
    broken = 0
    for path, change in choose(arguments.folders, arguments.count, arguments.seed):
        if sum(tried.values()) == arguments.count:
            break
        before = put_in(path, change)
        compiles = build(arguments.jobs)
        survives = compiles and test(arguments.jobs)
        put_back(path, before)
        if not compiles:
            broken += 1
            continue
        kind = "tables" if path.endswith(".def") else "code"
        tried[kind] += 1
        caught[kind] += 0 if survives else 1
        if survives:
            print(f"{path}:{change[0]}: {change[1]}", flush=True)
    print(f"{sum(caught.values())} of {sum(tried.values())} faults are caught, {caught['code']} of {tried['code']} "
          f"in code, {caught['tables']} of {tried['tables']} in tables; {broken} more did not compile")


if __name__ == "__main__":
    main()
