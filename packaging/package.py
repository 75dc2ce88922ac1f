#!/usr/bin/env python3
"""Puts together what a host developer gets: package.py ROOT BUILD BITS LICENCES OUT_FOLDER.

Writes DashlonViewer-VERSION-winBITS.zip. The same files give the same zip, byte by byte. LICENCES lists files to take
over, as NAME=PATH, with commas between.
"""
import posixpath
import re
import sys
import zipfile
from pathlib import Path

# The day that zips begin to count from: the files themselves carry no time.
EPOCH = (1980, 1, 1, 0, 0, 0)
FOLDERS = ("docs", "hosts/container", "hosts/cpp", "hosts/vbscript")
SESSIONS = ("a-morning-with-both-views", "start-up-without-profiles-makes-a-default",
            "failures-are-shown-and-the-next-message-works")


def members(root, build, bits, licences):
    """Pairs of a name in the zip and the bytes under it."""
    version = (root / "VERSION").read_text().strip()
    binaries = build / "bin"
    for name in ("DashlonViewer.ocx", "DashlonViewer.manifest", "demo.exe", "dlcheck.exe"):
        yield name, (binaries / name).read_bytes()
    yield "DashlonViewer.tlb", (build / "api" / "DashlonViewer.tlb").read_bytes()
    readme = (root / "packaging" / "README.txt").read_text()
    readme = readme.replace("@VERSION@", version).replace("@BITS@", bits)
    yield "README.txt", readme.replace("\n", "\r\n").encode()
    yield "CHANGELOG.md", (root / "CHANGELOG.md").read_bytes()
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.is_file() and path.name != "CMakeLists.txt" and "decisions" not in path.parts:
                yield path.relative_to(root).as_posix(), path.read_bytes()
    for path in sorted((root / "packaging" / "samples").iterdir()):
        yield f"samples/{path.name}", path.read_bytes()
    yield "api/DashlonViewer.idl", (root / "api" / "DashlonViewer.idl").read_bytes()
    for name in SESSIONS:
        file = f"{name}.session.json"
        yield f"samples/sessions/{file}", (root / "tests" / "sessions" / file).read_bytes()
    for name, path in licences:
        yield f"licences/{name}.txt", Path(path).read_bytes()


def without_dead_links(name, content, names):
    """A page in which what leads out of the package is plain text."""
    def link(match):
        target = match[2].split("#")[0]
        if not target or "://" in target:
            return match[0]
        place = posixpath.normpath(posixpath.join(posixpath.dirname(name), target))
        inside = place in names or any(other.startswith(f"{place}/") for other in names)
        return match[0] if inside else match[1]
    return re.sub(r"\[([^][]+)\]\(([^()\s]+)\)", link, content.decode()).encode()


def main():
    root, build, bits, licences, folder = sys.argv[1:]
    version = Path(root, "VERSION").read_text().strip()
    if not re.fullmatch(r"\d+\.\d+\.\d+", version):
        sys.exit(f"no version: {version!r}")
    name = f"DashlonViewer-{version}-win{bits}"
    target = Path(folder, f"{name}.zip")
    target.parent.mkdir(parents=True, exist_ok=True)
    pairs = [pair.split("=", 1) for pair in licences.split(",")]
    files = dict(members(Path(root), Path(build), bits, pairs))
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as archive:
        for member, content in files.items():
            if member.endswith(".md"):
                content = without_dead_links(member, content, files)
            archive.writestr(zipfile.ZipInfo(f"{name}/{member}", EPOCH), content, zipfile.ZIP_DEFLATED)
    print(target)


if __name__ == "__main__":
    main()
