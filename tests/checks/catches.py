#!/usr/bin/env python3
"""Errors end in one trap. `catch (` stands in that trap, in the guard that every entry from Windows passes, and in
the main files of programs; everywhere else an error is thrown and left alone. Tests may catch what they provoke."""
import re

import sources

ALLOWED = re.compile(r"src/base/Trap\.(h|cpp)|src/windows/(\w+/)?Entry\w*\.(h|cpp)"
                     r"|(player(/windows)?|bench|hosts/\w+)/[Mm]ain\.cpp|tests/.*")


def check(root, _build):
    for path in sources.files(root, sources.CPP):
        if ALLOWED.fullmatch(path.as_posix()):
            continue
        for number, line in enumerate(sources.code_lines((root / path).read_text()), 1):
            if re.search(r"\bcatch\s*\(", line):
                yield f"{path}:{number}: an error is caught outside the trap"


if __name__ == "__main__":
    sources.run(check)
