#!/usr/bin/env python3
"""reference.py IDL PAGE: writes the reference of the interfaces. Purposes are the help strings; what these cannot carry
stands in comments before a type or member, in Markdown:

  /// Text.
  /// @param NAME what it is, units, range
  /// @error NUMBER-OR-NAME when
  /// @example
  /// lines of Visual Basic, to the end of the comment"""
import re
import sys
from collections import namedtuple
from pathlib import Path

LIBRARY = "DashlonViewer"
Comment = namedtuple("Comment", "text params errors example")
Parameter = namedtuple("Parameter", "direction type name")
# `kind` is get, put or call.
Member = namedtuple("Member", "kind name id hidden help comment result parameters")
Type = namedtuple("Type", "kind name attributes help comment members")
Class = namedtuple("Class", "name help creatable interface events")

ATTRIBUTES = r"\[((?:[^\[\]\"]|\"(?:\\.|[^\"\\])*\")*)\]"
COMMENT = r"((?:[ \t]*///[^\n]*\n)*)"
VB_TYPES = {"BSTR": "String", "long": "Long", "VARIANT": "Variant", "VARIANT_BOOL": "Boolean", "IDispatch": "Object",
            "SAFEARRAY(BSTR)": "String()"}
INTRODUCTION = """<!-- Made from api/DashlonViewer.idl by ./dev build: change it there. -->
# Reference

"""


def read_comment(text):
    parts = [[None, []]]
    for line in re.findall(r"///[ ]?([^\n]*)", text):
        tag = re.match(r"@(param|error|example)\b ?(.*)", line)
        if tag:
            parts.append([tag[1], [tag[2]]])
        else:
            parts[-1][1].append(line)
    tagged = lambda name: [" ".join(lines).split(" ", 1) for tag, lines in parts if tag == name]
    example = next(("\n".join(lines).strip("\n") for tag, lines in parts if tag == "example"), "")
    return Comment("\n".join(parts[0][1]).strip(), dict(tagged("param")), tagged("error"), example)


def help_string(attributes):
    found = re.search(r'helpstring\("((?:\\.|[^"\\])*)"\)', attributes)
    return re.sub(r"\\(.)", r"\1", found[1]) if found else ""


def has(attributes, name):
    return re.search(rf"\b{name}\b", re.sub(r'"(?:\\.|[^"\\])*"', "", attributes)) is not None


def read_parameters(text):
    found = re.findall(r"\[([^\]]*)\]\s*(SAFEARRAY\(\w+\)|\w+)\s*(\**)\s*(\w+)", text)
    return [Parameter(direction.replace(" ", ""), (kind, stars), name) for direction, kind, stars, name in found]


def read_members(body):
    members = []
    pattern = COMMENT + r"\s*" + ATTRIBUTES + r"\s*(HRESULT|void)\s+(\w+)\s*\(([^;]*)\);"
    for comment, attributes, _, name, parameters in re.findall(pattern, body):
        all_of_them = read_parameters(parameters)
        result = next((one for one in all_of_them if "retval" in one.direction), None)
        kind = "get" if has(attributes, "propget") else "put" if has(attributes, "propput") else "call"
        members.append(Member(kind, name, re.search(r"\bid\((\w+)\)", attributes)[1], has(attributes, "hidden"),
                              help_string(attributes), read_comment(comment), result,
                              [one for one in all_of_them if one != result]))
    return members


def read_types(idl):
    pattern = COMMENT + r"[ \t]*" + ATTRIBUTES + r"\s*(interface|dispinterface)\s+(\w+)[^;{]*\{(.*?)\n    \}"
    return {name: Type(kind, name, attributes, help_string(attributes), read_comment(comment), read_members(body))
            for comment, attributes, kind, name, body in re.findall(pattern, idl, re.DOTALL)}


def read_classes(idl):
    pattern = ATTRIBUTES + r"\s*coclass\s+(\w+)\s*\{(.*?)\}"
    for attributes, name, body in re.findall(pattern, idl, re.DOTALL):
        events = re.search(r"\[default, source\]\s*dispinterface\s+(\w+)", body)
        yield Class(name, help_string(attributes), not has(attributes, "noncreatable"),
                    re.search(r"\[default\]\s*interface\s+(\w+)", body)[1], events and events[1])


def vb_type(parameter):
    kind = parameter.type[0]
    return VB_TYPES.get(kind, kind.removeprefix("_"))


def vb_parameters(parameters):
    texts = []
    for one in parameters:
        name, kind = one.name, vb_type(one)
        if kind.endswith("()"):
            name, kind = name + "()", kind[:-2]
        texts.append(f"{'' if 'out' in one.direction else 'ByVal '}{name} As {kind}")
    return ", ".join(texts)


def cpp_parameters(parameters):
    spelled = lambda kind: "SAFEARRAY*" if kind.startswith("SAFEARRAY") else kind
    return ", ".join(f"{spelled(one.type[0])}{one.type[1]} {one.name}" for one in parameters)


def anchor(heading):
    return "#" + re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")


def properties_in_short(members):
    """The properties that their help string says all of: they share a table."""
    puts = {member.name for member in members if member.kind == "put"}
    return [(member, member.name in puts) for member in members
            if member.kind == "get" and not member.parameters and not any(member.comment)]


def property_table(found):
    yield "| property | type | |"
    yield "|---|---|---|"
    for member, writable in found:
        access = "" if writable else " (read only)"
        yield f"| `{member.name}` | {vb_type(member.result)}{access} | {member.help.replace('|', chr(92) + '|')} |"
    yield ""


def signatures(member, puts, is_event):
    vb, cpp = vb_parameters(member.parameters), cpp_parameters(member.parameters)
    if is_event:
        yield f"Event {member.name}({vb})", f"void {member.name}({cpp});  // DISPID {member.id}"
    elif member.kind == "get":
        brackets = f"({vb})" if vb else ""
        access = "" if member.name in puts else "  ' read only"
        yield (f"Property {member.name}{brackets} As {vb_type(member.result)}{access}",
               f"HRESULT get_{member.name}({cpp_parameters([*member.parameters, member.result])});")
        if member.name in puts:
            yield None, f"HRESULT put_{member.name}({cpp_parameters(puts[member.name].parameters)});"
    elif member.result:
        yield (f"Function {member.name}({vb}) As {vb_type(member.result)}",
               f"HRESULT {member.name}({cpp_parameters([*member.parameters, member.result])});")
    else:
        yield f"Sub {member.name}({vb})", f"HRESULT {member.name}({cpp});"


def member_page(member, puts, is_event):
    yield f"#### {member.name}"
    yield ""
    default = " The default member." if member.id == "0" else ""
    yield f"{member.help}.{default}"
    yield ""
    lines = list(signatures(member, puts, is_event))
    yield from ["```vb", *(vb for vb, _ in lines if vb), "```", "```cpp", *(cpp for _, cpp in lines), "```", ""]
    if member.comment.text:
        yield from [member.comment.text, ""]
    for name, text in member.comment.params.items():
        yield f"- `{name}`: {text}"
    if member.comment.params:
        yield ""
    if member.comment.errors:
        yield from ["| error | when |", "|---|---|"]
        for error, text in member.comment.errors:
            yield f"| {error if error.isdigit() else '`' + error + '`'} | {text} |"
        yield ""
    if member.comment.example:
        yield from ["```vb", member.comment.example, "```", ""]


def type_pages(described, members_heading):
    members = [member for member in described.members if not member.hidden]
    short = properties_in_short(members)
    introduction = [described.comment.text, ""] if described.comment.text else []
    if described.comment.example:
        introduction += ["```vb", described.comment.example, "```", ""]
    heading = [f"### {members_heading}", ""]
    yield from [*heading, *introduction] if described.kind == "dispinterface" else [*introduction, *heading]
    if short:
        yield from property_table(short)
    puts = {member.name: member for member in members if member.kind == "put"}
    in_table = {member.name for member, _ in short}
    for member in members:
        if member.kind != "put" and member.name not in in_table:
            yield from member_page(member, puts, described.kind == "dispinterface")


def page(idl):
    types, classes = read_types(idl), list(read_classes(idl))
    library = re.search(COMMENT + r"[ \t]*" + ATTRIBUTES + r"\s*library\s", idl)
    lines = [read_comment(library[1]).text, "", "| class | |", "|---|---|"]
    for one in classes:
        made = "" if one.creatable else "; not creatable by itself"
        lines.append(f"| [{one.name}]({anchor(one.name)}) | {one.help}{made} |")
    lines.append("")
    for one in classes:
        lines += [f"## {one.name}", "", f"{one.help}." + (f" Program id `{LIBRARY}.{one.name}`." if one.creatable else ""), ""]
        lines += type_pages(types[one.interface], f"Members of {one.name}")
        if one.events:
            lines += type_pages(types[one.events], f"Events of {one.name}")
    return INTRODUCTION + "\n".join(lines).rstrip("\n") + "\n"


def gaps(idl):
    """What the reference would lack: a help string, or words for a parameter."""
    for described in read_types(idl).values():
        if not described.help:
            yield f"{described.name}: no help string"
        for member in described.members:
            place = f"{described.name}.{member.name}"
            if not member.help:
                yield f"{place}: no help string"
            names = {one.name for one in member.parameters}
            if member.kind != "put" and not member.hidden:
                yield from (f"{place}: nothing about {name}" for name in sorted(names - member.comment.params.keys()))
            yield from (f"{place}: no parameter {name}" for name in sorted(member.comment.params.keys() - names))


def main():
    idl, target = Path(sys.argv[1]).read_text(), Path(sys.argv[2])
    text = page(idl)
    if not target.exists() or target.read_text() != text:
        target.write_text(text)


if __name__ == "__main__":
    main()
