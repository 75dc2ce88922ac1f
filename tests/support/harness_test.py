#!/usr/bin/env python3
"""Shows that the harness notices what goes wrong: harness_test.py [--sanitized] -- COMMAND...

COMMAND runs the program of planted faults. Hangs and failures must be noticed in every build, leaks, overflows and
stray reads in a sanitized one; and the counting of results must count each of them.
"""
import os
import subprocess
import sys
import tempfile
from pathlib import Path

COUNT = Path(__file__).resolve().parents[2] / "scripts" / "count_results.py"

# Test, is it for sanitized builds only, exit status (None: any but 0), text that must appear.
FAULTS = (
    ("Nothing", False, 0, "PASSED"),
    ("Failure", False, 1, "one"),
    ("Hang", False, 42, "HUNG: Planted.Hang"),
    ("Leak", True, None, "LeakSanitizer"),
    ("Overflow", True, None, "signed integer overflow"),
    ("UseAfterFree", True, None, "heap-use-after-free"),
)

GTEST_FILE = """<testsuites><testsuite name="S">
<testcase name="A" classname="S" status="run"/>
<testcase name="B" classname="S" status="run"><failure message="wrong"/></testcase>
<testcase name="C" classname="S" status="run"><skipped message=""/></testcase>
<testcase name="D" classname="S" status="notrun"/>
</testsuite></testsuites>"""
GOOD_FILE = '<testsuites><testsuite name="S"><testcase name="A" classname="S" status="run"/></testsuite></testsuites>'

# What ctest reports, what the program itself wrote (or None), the closing line of the count.
COUNTS = (
    ('<testcase name="t" status="run"/>', GOOD_FILE, "1 passed, 0 failed"),
    ('<testcase name="t" status="fail"/>', GTEST_FILE, "1 passed, 3 failed"),
    ('<testcase name="t" status="run"/>', GTEST_FILE, "1 passed, 3 failed"),
    ('<testcase name="t" status="fail"/>', GOOD_FILE, "1 passed, 1 failed"),
    ('<testcase name="t" status="fail"/>', None, "0 passed, 1 failed"),
    ('<testcase name="t" status="notrun"/>', None, "0 passed, 1 failed"),
    ('<testcase name="t" status="run"><system-out>x\n7 passed, 2 failed\n</system-out></testcase>', None,
     "7 passed, 2 failed"),
    ("", None, "0 passed, 1 failed"),
)


def faults(command, sanitized):
    for name, needs_sanitizer, status, text in FAULTS:
        if needs_sanitizer and not sanitized:
            continue
        done = subprocess.run([*command, f"--gtest_filter=Planted.{name}"], capture_output=True, text=True,
                              env={**os.environ, "DLV_TEST_SECONDS": "2"})
        told = text in done.stdout + done.stderr
        right = told and (done.returncode == status if status is not None else done.returncode != 0)
        yield right, f"planted {name}: exit status {done.returncode}, {'told' if told else 'not told'}"


def counts():
    for case, own, expected in COUNTS:
        with tempfile.TemporaryDirectory() as folder:
            results = Path(folder) / "results"
            results.mkdir()
            (results / "ctest.xml").write_text(f"<testsuite>{case}</testsuite>")
            if own:
                (results / "t.xml").write_text(own)
            done = subprocess.run([sys.executable, COUNT, folder, "ctest.xml"], capture_output=True, text=True)
        last = done.stdout.strip().split("\n")[-1]
        right = last == expected and (done.returncode == 0) == expected.endswith(" 0 failed")
        yield right, f"{case!r} counted as {last!r}, not {expected!r}"


def main():
    split = sys.argv.index("--")
    outcomes = [*faults(sys.argv[split + 1:], "--sanitized" in sys.argv[:split]), *counts()]
    wrong = [what for right, what in outcomes if not right]
    for what in wrong:
        print(f"FAILED {what}")
    print(f"{len(outcomes) - len(wrong)} passed, {len(wrong)} failed")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
