#!/usr/bin/env python3
"""Compiles every header of the tree alone, and twice in a row: it must bring what it needs.

check_headers.py [COMPILER] [HEADER...]; the compiler is c++ when not given, the headers are all.
Prints what the compiler says of the headers that fail and ends with status 1 when there is any.
"""

import concurrent.futures
import os
import subprocess
import sys

from check_layers import ROOT, find_files

FLAGS = ["-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-x", "c++"]


def compile_alone(compiler, folders, header):
    path = os.path.join(ROOT, header)
    command = [compiler, *FLAGS, *("-I" + os.path.join(ROOT, folder) for folder in folders),
               "-include", path, "-include", path, os.devnull]
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)
    return header, done.returncode, done.stdout


def main():
    compiler = sys.argv[1] if len(sys.argv) > 1 else "c++"
    headers = [path for path in find_files(ROOT) if path.endswith(".h")]
    folders = sorted({os.path.dirname(path) for path in headers})
    wanted = sys.argv[2:]
    if wanted:
        headers = [path for path in headers if os.path.basename(path) in wanted or path in wanted]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for header, code, output in pool.map(lambda h: compile_alone(compiler, folders, h), headers):
            if code != 0:
                failed += 1
                print(f"{header} does not compile alone:\n{output}")
    print(f"{len(headers) - failed} of {len(headers)} headers compile alone")
    return 1 if failed or not headers else 0


if __name__ == "__main__":
    sys.exit(main())
