#!/usr/bin/env python3
"""Shows that each check can fail: plants one violation at a time in a small project that is otherwise clean, and
expects exactly the checks named to find it. selftest.py ROOT"""
import json
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "api"))
import reference  # noqa: E402

IDL = """[uuid(1), helpstring("A library")]
library DashlonViewer {
    [uuid(2), helpstring("What it does")]
    interface _Thing : IDispatch {
        /// @param Index From 1.
        [propget, id(0), helpstring("One of them")]
        HRESULT Item([in] long Index, [out, retval] BSTR* Value);
    }

    [uuid(3), helpstring("A thing")]
    coclass Thing {
        [default] interface _Thing;
    }
}
"""
UNEXPLAINED = """
    [uuid(4), helpstring("What it does not say")]
    interface _Other : IDispatch {
        [id(1), helpstring("Does it")]
        HRESULT Do([in] long Index);
    }
"""
CLEAN = {
    "CMakeLists.txt": "set(dlvFolders\n    src/base\n    src/ui\n    src/model)\nlist(APPEND dlvFolders src/windows)\n",
    "src/base/Sum.h": "#pragma once\nint Sum(int a, int b);\n",
    "src/ui/CaptionTable.h": '#pragma once\n// constexpr Row kTable[] = {\n',
    "src/base/Sum.cpp": '#include "base/Sum.h"\n\nint Sum(int a, int b) { return a + b; }\n',
    "src/model/Unit.h": '#pragma once\n#include <string>\n\n#include "base/Sum.h"\n// never catch (anything) here\n',
    "api/DashlonViewer.idl": IDL,
    "docs/reference.md": reference.page(IDL),
    "docs/start.md": "<!-- src/base/Sum.cpp -->\n```cpp\nint Sum(int a, int b) { return a + b; }\n```\n",
    "src/windows/Window.h": '#pragma once\n#include <windows.h>\n\n#include "model/Unit.h"\n',
}
ALL = ("layers", "catches", "captions", "lengths", "written", "documented", "formatted", "tidy")

# What is planted: file, text added at its end, the checks that must find it.
PLANTED = (
    ("src/base/Sum.h", '#include "model/Unit.h"\n', {"layers"}),
    ("src/base/Sum.h", "#include <windows.h>\n", {"layers"}),
    ("src/model/Unit.h", '#include "windows/Window.h"\n', {"layers"}),
    ("src/model/Unit.h", '#include "Sum.h"\n', {"layers"}),
    ("src/views/View.h", "#pragma once\n", {"layers"}),
    ("tests/unit/base/SumTest.cpp", "#include <ole2.h>\n", {"layers"}),
    ("src/model/Unit.h", "inline void F() try {\n} catch (...) {\n}\n", {"catches"}),
    ("hosts/demo/Data.h", "inline void F() try {\n} catch (...) {\n}\n", {"catches"}),
    ("src/ui/CaptionTable.h", '// clang-format off\n    {"Open", "Open"},\n', {"captions"}),
    ("src/base/Sum.h", "// line\n" * 600, {"lengths"}),
    ("dev", "# line\n" * 351, {"lengths"}),
    ("docs/page.md", "a line  \n", {"written"}),
    ("docs/reference.md", "More.\n", {"documented"}),
    ("api/DashlonViewer.idl", UNEXPLAINED, {"documented"}),
    ("docs/hosts.md", "| it adds | `Sum.OfTwo` |\n", {"documented"}),
    ("docs/conformance.md", "| What holds | Shown by |\n|---|---|\n| It adds. | `Sum.OfTwo` |\n", {"documented"}),
    ("docs/conformance.md", "| What holds | Shown by |\n|---|---|\n| It adds. | |\n", {"documented"}),
    ("docs/start.md", "<!-- src/base/Sum.cpp -->\n```cpp\nint Sum(int a);\n```\n", {"documented"}),
    ("tests/a.py", "if True:\n\tpass\n", {"written"}),
    ("scripts/a.sh", "no line end", {"written"}),
    ("src/base/Sum.h", "int  Wide (int a);\n", {"formatted"}),
    ("src/base/Sum.cpp", "double Half(int whole) { return whole / 2; }\n", {"tidy"}),
)


def make(root, sources):
    for place, text in sources.items():
        (root / place).parent.mkdir(parents=True, exist_ok=True)
        (root / place).write_text(text)
    command = f"c++ -std=c++20 -I{root}/src -c {root}/src/base/Sum.cpp"
    (root / "build").mkdir()
    (root / "build/compile_commands.json").write_text(
        json.dumps([{"directory": str(root), "file": f"{root}/src/base/Sum.cpp", "command": command}]))


def finders(project, names):
    """The checks among `names` that find something in the project."""
    found = set()
    for name in names:
        done = subprocess.run([sys.executable, HERE / f"{name}.py", project, project / "build"], capture_output=True)
        if done.returncode != 0:
            found.add(name)
    return found


def main():
    real_root = Path(sys.argv[1])
    wrong = []
    for place, text, expected in (("src/base/Sum.h", "", set()), *PLANTED):
        with tempfile.TemporaryDirectory() as folder:
            project = Path(folder) / "project"
            project.mkdir()
            for settings in (".clang-format", ".clang-tidy"):
                shutil.copy(real_root / settings, project)
            make(project, {**CLEAN, place: CLEAN.get(place, "") + text})
            # clang-tidy takes a second; it is asked where it must speak and on the clean project.
            asked = [name for name in ALL if name != "tidy" or expected in (set(), {"tidy"})]
            found = finders(project, asked)
            if found != expected:
                wrong.append(f"{place} with {text[:40]!r}: found by {sorted(found)}, not by {sorted(expected)}")
    print("\n".join(wrong))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
