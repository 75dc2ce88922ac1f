#!/usr/bin/env python3
"""Holds a session player against the reference model on random sessions.

compare.py PLAYER [--seeds A-B] [--parts views|profiles|all] [--steps N] [--keep FOLDER]
compare.py PLAYER --sessions FILE...

PLAYER is called with the name of a session file and prints the transcript. Tells the first difference of each session
and closes with the counts.
"""
import argparse
import json
import subprocess
import sys
import tempfile
from pathlib import Path

import generate
import reference

DOCUMENT_ERROR = "Document error at line "
ABSENT = "(absent)"


def first_difference(expected, actual, place=""):
    """The place and both values of the first difference, None when there is none.

    Where and why exactly a document is refused is a matter of the reader.
    """
    if isinstance(expected, dict) and isinstance(actual, dict):
        for key in {**expected, **actual}:
            found = first_difference(expected.get(key, ABSENT), actual.get(key, ABSENT), f"{place}.{key}")
            if found:
                return found
        return None
    if isinstance(expected, list) and isinstance(actual, list):
        for index in range(max(len(expected), len(actual))):
            pair = [values[index] if index < len(values) else ABSENT for values in (expected, actual)]
            found = first_difference(*pair, f"{place}[{index}]")
            if found:
                return found
        return None
    if all(isinstance(value, str) and value.startswith(DOCUMENT_ERROR) for value in (expected, actual)):
        return None
    same = expected == actual and isinstance(expected, bool) == isinstance(actual, bool)
    return None if same else (place, expected, actual)


def run_player(player, path):
    done = subprocess.run([player, str(path)], capture_output=True, text=True, encoding="utf-8", timeout=120)
    if done.returncode != 0:
        raise ValueError(f"the player ended with {done.returncode}: {(done.stderr or done.stdout).strip()[-2000:]}")
    return json.loads(done.stdout)


def difference_text(document, player, path):
    """What the player does otherwise than the model in the session that stands at path, empty when nothing."""
    steps = document["steps"] if isinstance(document, dict) else document
    try:
        expected = json.loads(json.dumps(reference.transcript(document)))
        actual = run_player(player, path)
    except (ValueError, subprocess.TimeoutExpired) as error:
        return str(error)
    for index in range(max(len(expected), len(actual))):
        pair = [steps[index] if index < len(steps) else ABSENT for steps in (expected, actual)]
        found = first_difference(*pair)
        if found:
            shown = json.dumps(steps[index], ensure_ascii=False) if index < len(steps) else ABSENT
            place, model_value, player_value = found
            return (
                f"step {index} {shown[:300]}\n"
                f"  at        {place.lstrip('.')}\n"
                f"  reference {json.dumps(model_value, ensure_ascii=False)}\n"
                f"  player    {json.dumps(player_value, ensure_ascii=False)}"
            )
    return ""


def generated(options, folder):
    first, _, last = options.seeds.partition("-")
    for seed in range(int(first), int(last or first) + 1):
        document = generate.session(seed, options.steps, options.parts)
        path = folder / f"seed-{seed}.session.json"
        path.write_text(json.dumps(document, ensure_ascii=False), encoding="utf-8")
        yield f"seed {seed}", document, path


def recorded(paths):
    for path in paths:
        yield path.name, json.loads(path.read_text(encoding="utf-8")), path


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("player")
    parser.add_argument("--seeds", default="1-200")
    parser.add_argument("--parts", choices=generate.PARTS, default="all")
    parser.add_argument("--steps", type=int, default=generate.STEPS)
    parser.add_argument("--keep", type=Path, help="where the sessions that differ are kept")
    parser.add_argument("--sessions", type=Path, nargs="+", help="recorded sessions instead of random ones")
    options = parser.parse_args()
    passed = failed = 0
    with tempfile.TemporaryDirectory() as folder:
        sessions = recorded(options.sessions) if options.sessions else generated(options, Path(folder))
        for name, document, path in sessions:
            difference = difference_text(document, options.player, path)
            if difference:
                failed += 1
                print(f"{name}: {difference}", flush=True)
                if options.keep:
                    options.keep.mkdir(parents=True, exist_ok=True)
                    (options.keep / path.name).write_bytes(path.read_bytes())
            else:
                passed += 1
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
