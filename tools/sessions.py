"""Sessions in texts: commands behind "$ ", below each what it writes. Shared by the checks of the
documents and of the situations."""

import difflib
import os
import re
import subprocess

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
END_OF_OUTPUT = "\x1e"


def read_commands(lines):
    """Commands of a session, each with the output that is shown."""
    commands = []
    for line in lines:
        if line.startswith("$ "):
            commands.append((line[2:], []))
        elif commands:
            commands[-1][1].append(line)
    return commands


def run_session(commands, folder, program):
    """What each command writes, as lines; standard error and standard output in their order."""
    script = "".join(f"{command}\nstatus=$?\nprintf '{END_OF_OUTPUT}'\n(exit $status)\n"
                     for command, _ in commands)
    path = os.path.dirname(program) + os.pathsep + os.environ["PATH"]
    done = subprocess.run(["bash", "-c", script], cwd=folder, env={**os.environ, "PATH": path},
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=60, check=False)
    outputs = done.stdout.decode(errors="replace").split(END_OF_OUTPUT)
    return [output.splitlines() for output in outputs[:len(commands)]]


def matches(shown, written):
    """Whether the lines are those shown; "..." stands for any number of them."""
    pattern = "".join(r"(?:.*\n)*" if line == "..." else re.escape(line) + "\n" for line in shown)
    return re.fullmatch(pattern, "".join(line + "\n" for line in written)) is not None


def difference(shown, written):
    if "..." in shown:
        lost = [line for line in shown if line != "..." and line not in written]
        return "\n".join("-" + line for line in lost) or "the lines shown, but not as they are shown"
    return "\n".join(difflib.unified_diff(shown, written, "shown", "written", lineterm="", n=1))
