#!/usr/bin/env python3
"""Counts what a ctest run gave: count_results.py BUILD_FOLDER CTEST_FILE.

Reads that JUnit file of ctest in the folder results and, beside it, the XML that each GoogleTest program wrote. A
program that did not run, crashed, hung or leaked counts as a failure, and so does every skipped test. Prints each
failure and closes with "N passed, N failed".
"""
import re
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path


def gtest_counts(path):
    """Passed tests and descriptions of the failed ones in one GoogleTest result file."""
    passed, failed = 0, []
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        name = f"{case.get('classname')}.{case.get('name')}"
        if case.get("status") == "notrun":
            failed.append(f"{name}: disabled")
        elif case.find("skipped") is not None:
            failed.append(f"{name}: skipped")
        elif case.find("failure") is not None:
            failed.append(f"{name}: {case.find('failure').get('message', '').strip()}")
        else:
            passed += 1
    return passed, failed


def closing_line_counts(name, output):
    """The counts of a runner that prints them itself, or None."""
    lines = [line for line in output.splitlines() if line.strip()]
    match = re.fullmatch(r"(\d+) passed, (\d+) failed", lines[-1].strip()) if lines else None
    if not match:
        return None
    failed = int(match[2])
    return int(match[1]), [f"{name}: see its output"] * failed


def counts_of(case, results):
    name = case.get("name")
    output = case.findtext("system-out") or ""
    ran_well = case.get("status") == "run"
    own_file = results / f"{name}.xml"
    if own_file.exists():
        passed, failed = gtest_counts(own_file)
    else:
        passed, failed = closing_line_counts(name, output) or ((1, []) if ran_well else (0, []))
    if not ran_well and not failed:
        failed = [f"{name}: ended badly ({case.get('status')})\n{output[-4000:]}"]
    return passed, failed


def main():
    results = Path(sys.argv[1]) / "results"
    try:
        cases = list(ElementTree.parse(results / sys.argv[2]).getroot().iter("testcase"))
    except (OSError, ElementTree.ParseError) as error:
        cases = []
        print(f"no results: {error}")
    passed, failed = 0, []
    for case in cases:
        more_passed, more_failed = counts_of(case, results)
        passed += more_passed
        failed += more_failed
    if not cases:
        failed = ["no test program ran"]
    for failure in failed:
        print(f"FAILED {failure}")
    print(f"{passed} passed, {len(failed)} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
