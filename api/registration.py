#!/usr/bin/env python3
"""registration.py IDL VERSION ARCHITECTURE FOLDER: makes from the interface description what stands in the registry
or, for hosts that do without, in a manifest. Both come from here, so that they say the same.

  FOLDER/DashlonViewer.manifest  the registration-free assembly, to lie beside the control
  FOLDER/ClassTable.h            the classes as a C++ table for the control's own registration and answers"""
import re
import sys
from pathlib import Path
from xml.sax.saxutils import quoteattr

LIBRARY = "DashlonViewer"
PROXY = "{00020424-0000-0000-C000-000000000046}"  # the system's marshaller by type library
IUNKNOWN_AND_IDISPATCH = 7
# What containers are to know of the control before they have made one: the OLEMISC bits.
MISC_STATUS = {"recomposeonresize": 0x1, "cantlinkinside": 0x10, "insideout": 0x80, "activatewhenvisible": 0x100,
               "setclientsitefirst": 0x20000}


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
        self.library_id = guid(re.search(r"\[([^\[\]]*)\]\s*library", text)[1])
        self.version = version
        self.prog_id_version = version.split(".")[0]
        self.classes = [(name, guid(block), help_string(block), has_attribute(block, "control"))
                        for block, name, _ in attributes_and_name(text, "coclass")
                        if not has_attribute(block, "noncreatable")]
        self.interfaces = [(name, guid(block), IUNKNOWN_AND_IDISPATCH + body.count("HRESULT "))
                           for block, name, body in attributes_and_name(text, "interface")]

    @property
    def short_version(self):
        return ".".join(self.version.split(".")[:2])


def manifest(description, architecture):
    lines = ['<?xml version="1.0" encoding="UTF-8" standalone="yes"?>',
             '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">',
             f'  <assemblyIdentity type="win32" name="{LIBRARY}" version="{description.version}.0"'
             f' processorArchitecture="{architecture}"/>',
             f'  <file name="{LIBRARY}.ocx">',
             f'    <typelib tlbid="{description.library_id}" version="{description.short_version}" helpdir=""'
             ' resourceid="1" flags="HASDISKIMAGE"/>']
    for name, clsid, text, is_control in description.classes:
        status = f'\n              miscStatusContent="{",".join(MISC_STATUS)}"' if is_control else ""
        lines += [f'    <comClass clsid="{clsid}" tlbid="{description.library_id}" threadingModel="Apartment"',
                  f'              progid="{LIBRARY}.{name}" description={quoteattr(text)}{status}>',
                  f'      <progid>{LIBRARY}.{name}.{description.prog_id_version}</progid>',
                  '    </comClass>']
    lines.append("  </file>")
    for name, iid, methods in description.interfaces:
        lines += [f'  <comInterfaceExternalProxyStub name="{name}" iid="{iid}" numMethods="{methods}"',
                  f'                                 proxyStubClsid32="{PROXY}" tlbid="{description.library_id}"',
                  '                                 baseInterface="{00020400-0000-0000-C000-000000000046}"/>']
    return "\n".join(lines + ["</assembly>", ""])


def cpp_table(description):
    rows = []
    for name, clsid, text, is_control in description.classes:
        kind = "Control" if is_control else "Plain"
        escaped = text.replace('"', '\\"')
        rows.append(f'    {{L"{clsid}", L"{LIBRARY}.{name}", L"{escaped}", ClassKind::{kind}}},')
    control = next(text for _, _, text, is_control in description.classes if is_control)
    return "\n".join([
        "#pragma once", "", "#include <windows.h>", "", "namespace dlv {", "",
        "enum class ClassKind { Plain, Control };",
        "struct RegisteredClass {",
        "    const wchar_t* clsid;", "    const wchar_t* progId;", "    const wchar_t* description;",
        "    ClassKind kind;", "};", "",
        f'inline constexpr wchar_t kTypeLibraryId[] = L"{description.library_id}";',
        f'inline constexpr wchar_t kTypeLibraryVersion[] = L"{description.short_version}";',
        f'inline constexpr wchar_t kProgIdVersion[] = L"{description.prog_id_version}";',
        f'inline constexpr DWORD kControlMiscStatus = 0x{sum(MISC_STATUS.values()):X};',
        f'inline constexpr wchar_t kControlDescription[] = L"{control}";',
        "inline constexpr RegisteredClass kRegisteredClasses[] = {", *rows, "};", "",
        "}  // namespace dlv", ""])


def main():
    idl, version, architecture, folder = sys.argv[1:]
    description = Description(Path(idl).read_text(), version)
    Path(folder, f"{LIBRARY}.manifest").write_text(manifest(description, architecture))
    Path(folder, "ClassTable.h").write_text(cpp_table(description))


if __name__ == "__main__":
    main()
