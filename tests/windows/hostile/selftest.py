#!/usr/bin/env python3
"""Shows that the hostile caller notices what goes wrong: selftest.py -- COMMAND...

COMMAND runs the hostile caller. Each fault that it can plant must end it in its own way and be told; without one it
passes, and the shortest way to a planted crash is found. Closes with the counts.
"""
import subprocess
import sys

import replay

# Fault, exit status, what must be told.
FAULTS = (
    (None, 0, "1 passed, 0 failed"),
    ("crash", 43, "_DLVParams.put_BUID by slot([#])"),
    ("abort", 43, "CRASHED (aborted)"),
    ("hang", 42, "_DLVParams.put_BUID by slot([#])"),
    ("object", 1, "objects of the library are left"),
    ("bytes", 1, "heap blocks"),
    ("gdi", 1, "GDI objects"),
    ("window", 1, "windows"),
    ("unexpected", 1, "E_UNEXPECTED"),
)
PARAMS = ["--interface", "_DLVParams", "--calls", "1500"]


def faults(command):
    for fault, status, text in FAULTS:
        plant = [] if fault is None else ["--plant", fault, "--seconds", "4"]
        done = subprocess.run([*command, *PARAMS, *plant], capture_output=True, text=True)
        told = text in done.stdout
        yield done.returncode == status and told, \
            f"planted {fault}: exit status {done.returncode}, {'told' if told else 'not told'}\n{done.stdout}"


def main():
    command = sys.argv[sys.argv.index("--") + 1:]
    outcomes = list(faults(command))
    crashing = replay.Sequence([*command, "--interface", "_DLVParams", "--plant", "crash"], 1,
                               replay.failed_sequence([*command, *PARAMS, "--plant", "crash"]))
    steps = replay.shortest(crashing)
    outcomes.append((len(steps) == 1, f"the shortest way to a crash has {len(steps)} steps"))
    for right, what in outcomes:
        if not right:
            print(f"FAILED {what}")
    failed = sum(not right for right, _ in outcomes)
    print(f"{len(outcomes) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
