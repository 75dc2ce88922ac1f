#!/usr/bin/env python3
"""registration.py IDL VERSION ARCHITECTURE FOLDER: makes from the interface description what stands in the registry
or, for hosts that do without, in a manifest. Both come from here, so that they say the same.

  FOLDER/DashlonViewer.manifest  the registration-free assembly, to lie beside the control
  FOLDER/ClassTable.h            the rows of the registry and the control's own answers, for C++"""
import re
import sys
from pathlib import Path
from xml.sax.saxutils import quoteattr

LIBRARY = "DashlonViewer"
FILE = f"{LIBRARY}.ocx"
THREADING = "Apartment"
IDISPATCH = "{00020400-0000-0000-C000-000000000046}"
# The system's marshallers, by type library and for interfaces that are all IDispatch.
PROXY = "{00020424-0000-0000-C000-000000000046}"
DISPATCH_PROXY = "{00020420-0000-0000-C000-000000000046}"
CONTROL_CATEGORY = "{40FC6ED4-2438-11CF-A3DB-080036F12502}"
IUNKNOWN_AND_IDISPATCH = 7
# What containers are to know of the control before they have made one: the OLEMISC bits.
MISC_STATUS = {"recomposeonresize": 0x1, "cantlinkinside": 0x10, "insideout": 0x80, "activatewhenvisible": 0x100,
               "setclientsitefirst": 0x20000}
TOOLBOX_BITMAP = 1  # a resource of the control's file
PLATFORMS = {"amd64": "win64", "x86": "win32"}


def attributes_and_name(text, kind):
    """The attribute block and the name of every definition of a kind, in their order."""
    for match in re.finditer(r"\[((?:[^\[\]\"]|\"(?:\\.|[^\"\\])*\")*)\]\s*" + kind + r"\s+(\w+)[^;{]*\{", text):
        yield match[1], match[2], text[match.end():text.index("\n    }", match.end())]


def guid(block):
    return "{" + re.search(r"uuid\(([^)]+)\)", block)[1].upper() + "}"


def has_attribute(block, name):
    return re.search(rf"\b{name}\b", re.sub(r'"(?:\\.|[^"\\])*"', "", block)) is not None


def help_string(block):
    return re.search(r'helpstring\("((?:\\.|[^"\\])*)"\)', block)[1].replace('\\"', '"')


class Description:
    def __init__(self, text, version):
        text = re.sub(r"//[^\n]*", "", text)
        library = re.search(r"\[([^\[\]]*)\]\s*library", text)[1]
        self.library_id, self.library_text = guid(library), help_string(library)
        self.version = version
        self.prog_id_version = version.split(".")[0]
        self.classes = [(name, guid(block), help_string(block), has_attribute(block, "control"))
                        for block, name, _ in attributes_and_name(text, "coclass")
                        if not has_attribute(block, "noncreatable")]
        self.interfaces = [(name, guid(block), IUNKNOWN_AND_IDISPATCH + body.count("HRESULT "), PROXY)
                           for block, name, body in attributes_and_name(text, "interface")]
        self.interfaces += [(name, guid(block), IUNKNOWN_AND_IDISPATCH, DISPATCH_PROXY)
                            for block, name, _ in attributes_and_name(text, "dispinterface")]

    @property
    def short_version(self):
        return ".".join(self.version.split(".")[:2])


def manifest(description, architecture):
    lines = ['<?xml version="1.0" encoding="UTF-8" standalone="yes"?>',
             '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">',
             f'  <assemblyIdentity type="win32" name="{LIBRARY}" version="{description.version}.0"'
             f' processorArchitecture="{architecture}"/>',
             f'  <file name="{FILE}">',
             f'    <typelib tlbid="{description.library_id}" version="{description.short_version}" helpdir=""'
             ' resourceid="1" flags="HASDISKIMAGE"/>']
    for name, clsid, text, is_control in description.classes:
        status = f'\n              miscStatusContent="{",".join(MISC_STATUS)}"' if is_control else ""
        lines += [f'    <comClass clsid="{clsid}" tlbid="{description.library_id}" threadingModel="{THREADING}"',
                  f'              progid="{LIBRARY}.{name}" description={quoteattr(text)}{status}>',
                  f'      <progid>{LIBRARY}.{name}.{description.prog_id_version}</progid>',
                  '    </comClass>']
    lines.append("  </file>")
    for name, iid, methods, proxy in description.interfaces:
        lines += [f'  <comInterfaceExternalProxyStub name="{name}" iid="{iid}" numMethods="{methods}"',
                  f'                                 proxyStubClsid32="{proxy}" tlbid="{description.library_id}"',
                  f'                                 baseInterface="{IDISPATCH}"/>']
    return "\n".join(lines + ["</assembly>", ""])


def class_rows(description):
    """The rows of a class that each kind of program, 64- and 32-bit, has its own of."""
    for name, clsid, text, is_control in description.classes:
        key, prog_id = f"CLSID\\{clsid}", f"{LIBRARY}.{name}"
        yield key, None, text
        yield f"{key}\\InprocServer32", None, "<file>"
        yield f"{key}\\InprocServer32", "ThreadingModel", THREADING
        yield f"{key}\\ProgID", None, f"{prog_id}.{description.prog_id_version}"
        yield f"{key}\\VersionIndependentProgID", None, prog_id
        yield f"{key}\\Programmable", None, ""
        yield f"{key}\\TypeLib", None, description.library_id
        yield f"{key}\\Version", None, description.short_version
        if is_control:
            yield f"{key}\\Control", None, ""
            yield f"{key}\\MiscStatus", None, "0"
            yield f"{key}\\MiscStatus\\1", None, str(sum(MISC_STATUS.values()))
            yield f"{key}\\ToolboxBitmap32", None, f"<file>, {TOOLBOX_BITMAP}"
            yield f"{key}\\Implemented Categories\\{CONTROL_CATEGORY}", None, ""


def interface_rows(description):
    for name, iid, _, proxy in description.interfaces:
        key = f"Interface\\{iid}"
        yield key, None, name
        yield f"{key}\\ProxyStubClsid32", None, proxy
        yield f"{key}\\TypeLib", None, description.library_id
        yield f"{key}\\TypeLib", "Version", description.short_version


def shared_rows(description):
    """What Windows has once for 64- and 32-bit programs."""
    key = f"TypeLib\\{description.library_id}\\{description.short_version}"
    yield key, None, description.library_text
    yield f"{key}\\FLAGS", None, "0"
    yield f"{key}\\HELPDIR", None, "<folder>"
    for name, clsid, text, _ in description.classes:
        prog_id = f"{LIBRARY}.{name}"
        versioned = f"{prog_id}.{description.prog_id_version}"
        yield prog_id, None, text
        yield f"{prog_id}\\CLSID", None, clsid
        yield f"{prog_id}\\CurVer", None, versioned
        yield versioned, None, text
        yield f"{versioned}\\CLSID", None, clsid


def registry_rows(description, architecture):
    """Key below the classes, name of the value (None: the key's own), its text, and whose the row is."""
    library = f"TypeLib\\{description.library_id}\\{description.short_version}\\0\\{PLATFORMS[architecture]}"
    for row in ((library, None, "<file>"), *class_rows(description), *interface_rows(description)):
        yield *row, "ThisBitness"
    for row in shared_rows(description):
        yield *row, "BothBitnesses"


def wide(text):
    return "nullptr" if text is None else 'L"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def cpp_table(description, architecture):
    rows = [f"    {{{wide(key)}, {wide(name)}, {wide(text)}, RowOf::{whose}}},"
            for key, name, text, whose in registry_rows(description, architecture)]
    clsid, control = next((clsid, text) for _, clsid, text, is_control in description.classes if is_control)
    return "\n".join([
        "#pragma once", "", "namespace dlv {", "",
        "enum class RowOf { ThisBitness, BothBitnesses };",
        "/// A value below Software\\Classes. In its text <file> stands for the control's path, <folder> for its folder.",
        "struct RegistryRow {",
        "    const wchar_t* key;", "    const wchar_t* name;", "    const wchar_t* text;", "    RowOf whose;", "};", "",
        f"inline constexpr wchar_t kAssemblyName[] = {wide(LIBRARY)};",
        f"inline constexpr wchar_t kControlFileName[] = {wide(FILE)};",
        f"inline constexpr wchar_t kControlClassId[] = {wide(clsid)};",
        f"inline constexpr wchar_t kControlDescription[] = {wide(control)};",
        f"inline constexpr unsigned long kControlMiscStatus = 0x{sum(MISC_STATUS.values()):X};",
        "inline constexpr RegistryRow kRegistryRows[] = {", *rows, "};", "",
        "}  // namespace dlv", ""])


def main():
    idl, version, architecture, folder = sys.argv[1:]
    description = Description(Path(idl).read_text(), version)
    Path(folder, f"{LIBRARY}.manifest").write_text(manifest(description, architecture))
    Path(folder, "ClassTable.h").write_text(cpp_table(description, architecture))


if __name__ == "__main__":
    main()
