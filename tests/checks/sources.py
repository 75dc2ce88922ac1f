"""What the checks share: the files of the project as they stand on disk, and how a finding is told.

A check is a script `NAME.py ROOT [BUILD]` that prints one line for each finding and exits 1 when there is one.
"""
import re
import sys
from pathlib import Path

FOLDERS = ("src", "api", "player", "dlcheck", "hosts", "bench", "tests", "scripts", "cmake", "packaging")
CPP = (".h", ".cpp")


def files(root, suffixes, folders=FOLDERS):
    """Paths relative to the root, sorted, of all files in the project's folders with one of the suffixes."""
    found = []
    for folder in folders:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in suffixes and path.is_file():
                found.append(path.relative_to(root))
    return found


def code_lines(text):
    """The lines of C++ text with comments and the contents of literals blanked out."""
    pattern = re.compile(
        r'R"(?P<mark>[^()\\\s]{0,16})\((?:.|\n)*?\)(?P=mark)"'
        r"|//[^\n]*|/\*(?:.|\n)*?\*/"
        r'|"(?:\\.|[^"\\\n])*"'
        r"|(?<![0-9a-zA-Z])'(?:\\.|[^'\\\n])*'"
    )
    return pattern.sub(lambda match: re.sub(r"[^\n]", " ", match[0]), text).split("\n")


def layers(root):
    """The layers of src/ from the lowest up, as the build lists them."""
    listed = re.findall(r"\bsrc/(\w+)", (root / "CMakeLists.txt").read_text())
    return list(dict.fromkeys(listed))


def run(check):
    """Calls check(root, build) and reports its findings; the main of every check."""
    root = Path(sys.argv[1]).resolve()
    build = Path(sys.argv[2]).resolve() if len(sys.argv) > 2 else None
    findings = list(check(root, build))
    for finding in findings:
        print(finding)
    sys.exit(1 if findings else 0)
