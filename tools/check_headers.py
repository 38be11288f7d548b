#!/usr/bin/env python3
"""Sees to it that every header of the tree compiles alone: it must bring what it needs.

check_headers.py [COMPILER] [HEADER...]; the compiler is c++ when not given, the headers are all.

A header that some source file includes before anything else is compiled alone whenever the tree is
built, so only the others are compiled here. Each must have "#pragma once", which lets it be included
twice. Prints what is wrong with the headers that fail and ends with status 1 when there is any.
"""

import concurrent.futures
import os
import subprocess
import sys

from check_layers import ROOT, find_files, includes

FLAGS = ["-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-x", "c++"]


def compile_alone(compiler, folders, header):
    path = os.path.join(ROOT, header)
    command = [compiler, *FLAGS, *("-I" + os.path.join(ROOT, folder) for folder in folders),
               "-include", path, os.devnull]
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)
    return header, done.returncode, done.stdout


def included_first(files):
    """The names of the headers that a source file includes before anything else."""
    first = (next(includes(os.path.join(ROOT, path)), None) for path in files if path.endswith(".cpp"))
    return {include[1] for include in first if include is not None}


def lacks_guard(header):
    with open(os.path.join(ROOT, header), encoding="utf-8") as file:
        return "#pragma once\n" not in file.read()


def main():
    compiler = sys.argv[1] if len(sys.argv) > 1 else "c++"
    files = find_files(ROOT)
    headers = [path for path in files if path.endswith(".h")]
    folders = sorted({os.path.dirname(path) for path in headers})
    wanted = sys.argv[2:]
    if wanted:
        headers = [path for path in headers if os.path.basename(path) in wanted or path in wanted]
    by_build = set() if wanted else included_first(files)
    alone = [path for path in headers if os.path.basename(path) not in by_build]
    unguarded = [path for path in headers if lacks_guard(path)]
    failed = len(unguarded)
    for header in unguarded:
        print(f"{header} has no #pragma once")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for header, code, output in pool.map(lambda h: compile_alone(compiler, folders, h), alone):
            if code != 0:
                failed += 1
                print(f"{header} does not compile alone:\n{output}")
    print(f"{len(headers)} headers, {failed} faults; {len(alone)} were compiled here, the others in the build")
    return 1 if failed or not headers else 0


if __name__ == "__main__":
    sys.exit(main())
