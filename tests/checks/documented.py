#!/usr/bin/env python3
"""What the documents say of the code is so: docs/reference.md is what the interfaces give (./dev build makes it), with
every member and parameter explained; code in docs stands in the file that is named in a comment above it; the tests
that docs/hosts.md names exist."""
import re
import sys
from pathlib import Path

import sources

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "api"))
import reference  # noqa: E402

TEST = re.compile(r"\bTEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\)")
SHOWN = re.compile(r"<!-- (\S+) -->\n```\w*\n(.*?)```", re.DOTALL)


def reference_findings(root):
    idl = (root / "api/DashlonViewer.idl").read_text()
    yield from (f"api/DashlonViewer.idl: {gap}" for gap in reference.gaps(idl))
    page = root / "docs/reference.md"
    if not page.exists() or page.read_text() != reference.page(idl):
        yield "docs/reference.md is stale: ./dev build makes it anew"


def lines_of(text):
    return "\n" + "\n".join(line.strip() for line in text.strip("\n").split("\n")) + "\n"


def named_tests(root):
    page = root / "docs/hosts.md"
    known = set()
    for path in sources.files(root, (".cpp",), ("tests",)):
        known.update(".".join(names) for names in TEST.findall((root / path).read_text()))
    for name in re.findall(r"`([A-Z]\w+\.[A-Z]\w+)`", page.read_text() if page.exists() else ""):
        if name not in known:
            yield f"docs/hosts.md: there is no test {name}"


def check(root, _build):
    yield from reference_findings(root)
    yield from named_tests(root)
    for path in sources.files(root, (".md",), ("docs",)):
        for place, shown in SHOWN.findall((root / path).read_text()):
            source = root / place
            if not source.exists() or lines_of(shown) not in lines_of(source.read_text()):
                yield f"{path}: this does not stand in {place}: {shown[:60]!r}"


if __name__ == "__main__":
    sources.run(check)
