#!/usr/bin/env python3
"""clang-tidy finds nothing in the portable code. What it looks for stands in .clang-tidy; how each file is compiled
comes from the compilation database of a native build."""
import json
import os
import re
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import sources

CHECKED = ("src/", "player/", "dlcheck/")
# Options of GCC that clang does not know, its container checks, which would only cost time here, and its compiled
# headers, behind which a missing include would hide.
DROPPED = re.compile(r"\s-(fsanitize\S*|fno-sanitize\S*|Wno-restrict|Winvalid-pch|include \S*/cmake_pch\S*)")


def commands(root, build):
    """The compile commands of the files to look at, in the form that clang takes."""
    for entry in json.loads((build / "compile_commands.json").read_text()):
        place = os.path.relpath(entry["file"], root)
        if place.startswith(CHECKED):
            yield {**entry, "command": DROPPED.sub("", entry["command"])}


def tidy(path, database, root):
    done = subprocess.run(["clang-tidy", "--quiet", "-p", database, f"--config-file={root}/.clang-tidy", path],
                          capture_output=True, text=True)
    lines = re.findall(r"^/.*?: (?:warning|error): .*$", done.stdout, re.MULTILINE)
    if done.returncode != 0 and not lines:
        lines = [f"{path}: clang-tidy failed: {(done.stdout + done.stderr)[-500:]}"]
    return lines


def check(root, build):
    entries = list(commands(root, build))
    if not entries:
        yield "no portable file in the compilation database"
    with tempfile.TemporaryDirectory() as database, ThreadPoolExecutor(os.cpu_count()) as pool:
        (Path(database) / "compile_commands.json").write_text(json.dumps(entries))
        results = pool.map(lambda entry: tidy(entry["file"], database, root), entries)
        for line in dict.fromkeys(line for lines in results for line in lines):
            yield line.replace(f"{root}/", "")


if __name__ == "__main__":
    sources.run(check)
