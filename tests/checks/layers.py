#!/usr/bin/env python3
"""A layer of src/ includes only itself and the layers below it, always as "layer/File.h". The portable layers know
the standard library and nothing else; headers of Windows stand in src/windows, dlcheck, hosts and the folders
called windows of the other programs alone."""
import re

import sources

INCLUDE = re.compile(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
GENERATED = {"Version.h"}
INTRINSICS = {"emmintrin.h"}  # the processor, not a platform
WINDOWS_FOLDERS = ("src/windows/", "dlcheck/", "hosts/", "tests/windows/", "bench/windows/",
                   "player/windows/")
WINDOWS_HEADER = re.compile(r"(windows|win[a-z]+|ole\w*|oc\w+|comm\w+|shl\w+|objbase|objidl|oaidl|unknwn|atl\w+"
                            r"|activscp|dispex|gdiplus\w*|uxtheme|initguid|wrl/.*)(\.h)?", re.IGNORECASE)


def problem(path, quoted, angled, order):
    """What is wrong with one include of the file at `path`, or None."""
    place = path.as_posix()
    on_windows = place.startswith(WINDOWS_FOLDERS)
    layer = place.split("/")[1] if place.startswith("src/") else None
    if quoted:
        target = quoted.split("/")[0]
        if layer is None or quoted in GENERATED:
            return None
        if target not in order:
            return None if on_windows else f'"{quoted}" is no header of a layer'
        if order.index(target) > order.index(layer):
            return f'"{quoted}" stands above {layer}'
        return None
    if on_windows:
        return None
    if layer is not None and "." in angled and angled not in INTRINSICS:
        return f"<{angled}> in a portable layer"
    if WINDOWS_HEADER.fullmatch(angled):
        return f"<{angled}> outside the Windows folders"
    return None


def check(root, _build):
    order = sources.layers(root)
    for path in sources.files(root, sources.CPP):
        parts = path.as_posix().split("/")
        if parts[0] == "src" and parts[1] not in order:
            yield f"{path}: src/{parts[1]} is not among the layers of CMakeLists.txt"
            continue
        for number, line in enumerate((root / path).read_text().split("\n"), 1):
            match = INCLUDE.match(line)
            wrong = match and problem(path, match[1], match[2], order)
            if wrong:
                yield f"{path}:{number}: {wrong}"


if __name__ == "__main__":
    sources.run(check)
