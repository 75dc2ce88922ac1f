#!/usr/bin/env python3
"""No caption is there that no code uses. That every key in the code has its texts is seen by the compiler."""
import re

import sources

TABLE = "src/ui/CaptionTable.h"


def check(root, _build):
    if not (root / TABLE).exists():
        yield f"{TABLE} is not there"
        return
    used = set()
    for path in sources.files(root, sources.CPP, ("src",)):
        if path.as_posix() != TABLE:
            used.update(re.findall(r'"([\w-]+)"', (root / path).read_text()))
    for key in re.findall(r'^    \{"([\w-]+)",', (root / TABLE).read_text(), re.MULTILINE):
        if key not in used:
            yield f"{TABLE}: no code uses the caption {key}"


if __name__ == "__main__":
    sources.run(check)
