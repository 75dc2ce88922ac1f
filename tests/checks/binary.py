#!/usr/bin/env python3
"""Inspects the built control without running it: binary.py ROOT BUILD BITS. It is a library of the wanted kind, exports
the five entry points under their plain names, imports nothing but Windows' own libraries, and the type library inside
says of every interface what the IDL says: GUID, dispatch ids, order of the vtable."""
import re
import sys
import uuid
from pathlib import Path

import pe
import typelib

MACHINES = {32: 0x14C, 64: 0x8664}
RELOCATABLE, NO_EXECUTE = 0x40, 0x100
EXPORTS = ["DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer", "DllUnregisterServer"]
SYSTEM_LIBRARIES = set("""advapi32 comctl32 comdlg32 gdi32 gdiplus kernel32 msimg32 msvcrt ole32 oleacc oleaut32
    rpcrt4 shell32 shlwapi user32 uuid uxtheme version winspool.drv""".split())
# Slots that every dual interface begins with: those of IUnknown and IDispatch.
INHERITED_SLOTS = 7


def interfaces(idl):
    """From the text of the IDL: name to (GUID, is it dual, [(member, id)]) of each interface and dispinterface."""
    idl = re.sub(r"//[^\n]*", "", idl)
    found = {}
    for attributes, kind, name, body in re.findall(
            r"\[([^\[\]]*)\]\s*(interface|dispinterface)\s+(\w+)[^;{]*\{(.*?)\n    \}", idl, re.DOTALL):
        guid = uuid.UUID(re.search(r"uuid\(([^)]*)\)", attributes)[1])
        members = [(member, int(number, 0)) for number, member in
                   re.findall(r'\bid\((\w+)\)(?:[^\[\]"]|"(?:\\.|[^"])*")*\]\s*(?:HRESULT|void)\s+(\w+)\s*\(', body)]
        found[name] = (guid, kind == "interface", members)
    return found


def coclasses(idl):
    pattern = r'uuid\(([-0-9a-f]*)\)(?:[^\[\]"]|"(?:\\.|[^"])*")*\]\s*coclass\s+(\w+)'
    return {name: uuid.UUID(guid) for guid, name in re.findall(pattern, idl)}


def library_findings(library, idl, bits):
    """Differences between the type library and the IDL."""
    yield "kind of type library", library.bits == bits, f"{library.bits} bit"
    yield "names in the IDL", {"_DLViewer", "__DLViewer", "_DLVParams"} <= interfaces(idl).keys(), idl[:100]
    for name, guid in coclasses(idl).items():
        found = library.types.get(name)
        yield f"class {name}", found is not None and found.kind == "coclass" and found.guid == guid, found
    for name, (guid, dual, members) in interfaces(idl).items():
        found = library.types.get(name)
        if found is None:
            yield f"interface {name}", False, "missing"
            continue
        yield f"GUID of {name}", found.guid == guid, found.guid
        # Names of a type library are one for all spellings that differ in case only.
        ids = [(member.name.lower(), member.id) for member in found.members]
        yield f"dispatch ids of {name}", ids == [(member.lower(), id) for member, id in members], ids
        if dual:
            slots = [member.slot_offset * 8 // bits for member in found.members]
            wanted = list(range(INHERITED_SLOTS, INHERITED_SLOTS + len(members)))
            yield f"slots of {name}", slots == wanted, slots


def findings(data, idl, bits):
    binary = pe.Binary(data)
    yield "machine", binary.machine == MACHINES[bits], hex(binary.machine)
    yield "relocatable, data not executable", binary.characteristics & (RELOCATABLE | NO_EXECUTE) == (
        RELOCATABLE | NO_EXECUTE), hex(binary.characteristics)
    yield "exports", sorted(binary.exports()) == EXPORTS, binary.exports()
    foreign = [name for name in binary.imports() if name.removesuffix(".dll") not in SYSTEM_LIBRARIES]
    yield "imports", binary.imports() and not foreign, foreign
    libraries = binary.resources("TYPELIB")
    yield "one type library inside", len(libraries) == 1, len(libraries)
    if libraries:
        yield from library_findings(typelib.TypeLibrary(libraries[0]), idl, bits)


# Changes to the binary or to the IDL that must be found: what was planted, the text and what stands in its place.
PLANTED = (
    ("binary", b"DllInstall\0", b"DllInstalk\0", "exports"),
    ("binary", b"ole32.dll\0", b"old32.dll\0", "imports"),
    ("IDL", "id(0x60030010)", "id(0x60030011)", "dispatch ids of _DLViewer"),
    ("IDL", "15f642b2", "15f642b3", "GUID of __DLViewer"),
    ("IDL", "HRESULT StopControl();", "HRESULT Stop();", "dispatch ids of _DLViewer"),
)


def planted_findings(data, idl, bits):
    """Shows that the findings can fail."""
    for place, old, new, expected in PLANTED:
        if place == "binary":
            same_case = re.search(re.escape(old), data, re.IGNORECASE)
            planted = (data.replace(same_case[0], new) if same_case else data), idl
        else:
            planted = data, idl.replace(old, new, 1)
        wrong = [what for what, right, _ in findings(*planted, bits) if not right]
        yield f"planted {new!r} is found", wrong == [expected], wrong


def main():
    root, build, bits = Path(sys.argv[1]), Path(sys.argv[2]), int(sys.argv[3])
    idl = (root / "api/DashlonViewer.idl").read_text()
    paths = [path for path in build.rglob("DashlonViewer.ocx") if "CMakeFiles" not in path.parts]
    outcomes = [("the control is built", len(paths) == 1, paths)]
    if len(paths) == 1:
        data = paths[0].read_bytes()
        outcomes += [*findings(data, idl, bits), *planted_findings(data, idl, bits)]
    wrong = [(what, told) for what, right, told in outcomes if not right]
    for what, told in wrong:
        print(f"FAILED {bits}-bit control, {what}: {told}")
    print(f"{len(outcomes) - len(wrong)} passed, {len(wrong)} failed")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
