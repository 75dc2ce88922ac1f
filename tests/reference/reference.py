#!/usr/bin/env python3
"""Plays a recorded session on the reference model and prints its transcript: reference.py SESSION.json

The reference model follows the rules of the control one statement at a time, as plainly and as slowly as need be; the
tests hold the real thing against it. It plays every step but saveGrid and printGrid.
"""
import json
import sys

from session import Session


def transcript(document):
    """The transcript of a session: the list of its steps, or an object that holds them."""
    return Session().play(document["steps"] if isinstance(document, dict) else document)


def print_steps(steps):
    """Prints a list with one entry on each line."""
    print("[" + ",\n ".join(json.dumps(step, ensure_ascii=False) for step in steps) + "]")


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as file:
        session = json.load(file)
    try:
        print_steps(transcript(session))
    except ValueError as error:
        sys.exit(f"{sys.argv[1]}: {error}")
