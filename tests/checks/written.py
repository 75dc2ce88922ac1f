#!/usr/bin/env python3
"""Every text file stands as .editorconfig says: UTF-8, plain line ends, no tabs, nothing at the end of a line, one line
end at the end of the file."""
import sources

FOLDERS = (*sources.FOLDERS, "docs", "packaging", ".ci")
ROOT_FILES = ("dev", "VERSION", ".clang-format", ".clang-tidy", ".editorconfig", ".gitignore")
BINARY = {".png", ".ico", ".bmp", ".cur"}
WRITTEN_BY_THE_CONTROL = "tests/sessions/exports/"  # as saved and printed: CR LF, tabs


def text_files(root):
    for path in sorted(root.iterdir()):
        if path.is_file() and (path.name in ROOT_FILES or path.suffix in (".md", ".json", ".txt")):
            yield path
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.is_file() and path.suffix not in BINARY and "__pycache__" not in path.parts:
                yield path


def check(root, _build):
    for path in text_files(root):
        place = path.relative_to(root)
        if place.as_posix().startswith(WRITTEN_BY_THE_CONTROL):
            continue
        data = path.read_bytes()
        try:
            data.decode("utf-8")
        except UnicodeDecodeError as error:
            yield f"{place}: not UTF-8 at byte {error.start}"
        if data and (not data.endswith(b"\n") or data.endswith(b"\n\n")):
            yield f"{place}: must end in one line end"
        for number, line in enumerate(data.split(b"\n"), 1):
            if b"\t" in line or line != line.rstrip():
                yield f"{place}:{number}: a tab, a carriage return or blanks at the end"


if __name__ == "__main__":
    sources.run(check)
