#!/usr/bin/env python3
"""Finds the shortest way to a failure of the hostile caller: replay.py SEED SEQUENCE -- COMMAND...

COMMAND runs the hostile caller. The steps of a failing sequence are left out as long as it fails without them; what is
left is run once more and shown.
"""
import re
import subprocess
import sys


class Sequence:
    """One sequence of a run, played in a process of its own."""

    def __init__(self, command, seed, number):
        self.command = [*command, "--seed", str(seed), "--sequence", str(number), "--seconds", "20"]

    def play(self, steps=None):
        only = [] if steps is None else ["--steps", ",".join(map(str, steps)) or "none"]
        return subprocess.run([*self.command, *only], capture_output=True, text=True)

    def fails(self, steps=None):
        return self.play(steps).returncode not in (0, 2)


def shortest(sequence, most=1024):
    """The steps without any of which the sequence does not fail; None when it does not fail at all."""
    if not sequence.fails():
        return None
    steps = list(range(most))
    size = most // 2
    while size > 0:
        at = 0
        while at < len(steps):
            fewer = steps[:at] + steps[at + size:]
            if sequence.fails(fewer):
                steps = fewer
            else:
                at += size
        size //= 2
    return steps


def failed_sequence(command):
    """The number of the sequence in which a run fails."""
    told = re.search(r"sequence (\d+)", subprocess.run(command, capture_output=True, text=True).stdout)
    return int(told[1]) if told else 0


def main():
    split = sys.argv.index("--")
    seed, number = sys.argv[1:split]
    sequence = Sequence(sys.argv[split + 1:], seed, number)
    steps = shortest(sequence)
    if steps is None:
        print("The sequence does not fail by itself: what fails depends on those before it.")
        return 1
    print(f"Steps {','.join(map(str, steps))} of sequence {number} are enough:")
    print(sequence.play(steps).stdout)
    return 0


if __name__ == "__main__":
    sys.exit(main())
