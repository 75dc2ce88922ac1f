#!/usr/bin/env python3
"""Runs every check on the project, and the proof that each can fail: run.py ROOT BUILD. Closes with the counts."""
import subprocess
import sys
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
CHECKS = ("layers", "catches", "captions", "lengths", "written", "documented", "formatted", "tidy", "selftest")


def main():
    root, build = sys.argv[1:3]
    failed = 0
    for name in CHECKS:
        started = time.monotonic()
        done = subprocess.run([sys.executable, HERE / f"{name}.py", root, build], capture_output=True, text=True)
        good = done.returncode == 0
        failed += not good
        print(f"{'passed' if good else 'FAILED'} {name} ({time.monotonic() - started:.1f} s)")
        print((done.stdout + done.stderr).rstrip() if not good else "", end="" if good else "\n")
    print(f"{len(CHECKS) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
