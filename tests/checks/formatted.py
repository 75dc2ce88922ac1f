#!/usr/bin/env python3
"""Every C++ file stands as clang-format leaves it (./dev format does that)."""
import re
import subprocess

import sources


def check(root, _build):
    paths = [str(root / path) for path in sources.files(root, sources.CPP)]
    if not paths:
        return
    done = subprocess.run(["clang-format", "--dry-run", "--style=file", *paths], capture_output=True, text=True)
    wrong = dict.fromkeys(re.findall(r"^(/.*?):\d+:\d+: warning", done.stderr, re.MULTILINE))
    for path in wrong:
        yield f"{path[len(str(root)) + 1:]}: not formatted"
    if done.returncode != 0:
        yield f"clang-format failed: {done.stderr[-500:]}"


if __name__ == "__main__":
    sources.run(check)
