#!/usr/bin/env python3
"""What the documents say of the code is so: docs/reference.md is what the interfaces give (./dev build makes it), with
every member and parameter explained; code in docs stands in the file that is named in a comment above it; the tests
that docs/hosts.md and docs/conformance.md name exist, and the latter names some in each row."""
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


def known_tests(root):
    known = set()
    for path in sources.files(root, (".cpp",), ("tests",)):
        for suite, test in TEST.findall((root / path).read_text()):
            known |= {f"{suite}.{test}", f"{suite}.*"}
    return known


def named_tests(root, known):
    page = root / "docs/hosts.md"
    for name in re.findall(r"`([A-Z]\w+\.[A-Z]\w+)`", page.read_text() if page.exists() else ""):
        if name not in known:
            yield f"docs/hosts.md: there is no test {name}"


def shows(root, kind, name, known):
    """Whether there is what a row of docs/conformance.md is shown by."""
    if kind == "binary check":
        # "exports", or "slots of _Thing" where the check has "slots of {name}".
        text = (root / "tests/checks/binary.py").read_text()
        return f'"{name}"' in text or f'"{name.rpartition(" ")[0]} {{name}}"' in text
    return {"": name in known,
            "session": (root / f"tests/sessions/{name}.session.json").exists(),
            "reference": name == "random sessions",
            "check": (root / f"tests/checks/{name}.py").exists(),
            "picture": (root / name).exists()}.get(kind, False)


def conformance_findings(root, known):
    page = root / "docs/conformance.md"
    listing = False
    for line in page.read_text().split("\n") if page.exists() else ():
        listing = line.startswith("|") and (listing or line == "| What holds | Shown by |")
        if not listing or line in ("| What holds | Shown by |", "|---|---|"):
            continue
        for named in line.removesuffix(" |").rpartition(" | ")[2].split(", "):
            found = re.fullmatch(r"(?:([a-z ]+) )?`([^`]+)`", named)
            if found is None or not shows(root, found[1] or "", found[2], known):
                yield f"docs/conformance.md: {named} shows nothing"


def check(root, _build):
    yield from reference_findings(root)
    known = known_tests(root)
    yield from named_tests(root, known)
    yield from conformance_findings(root, known)
    for path in sources.files(root, (".md",), ("docs",)):
        for place, shown in SHOWN.findall((root / path).read_text()):
            source = root / place
            if not source.exists() or lines_of(shown) not in lines_of(source.read_text()):
                yield f"{path}: this does not stand in {place}: {shown[:60]!r}"


if __name__ == "__main__":
    sources.run(check)
