"""The host's documents: messages, tables and profile sets, and their text forms."""
import xml.parsers.expat
from xml.sax.saxutils import quoteattr

from basics import RunTimeError


class Element:
    def __init__(self, name, attributes):
        self.name = name
        self.attributes = attributes
        self.children = []
        self.text = ""

    def named(self, name):
        return [child for child in self.children if child.name == name]


def parse(text):
    """The root element of a document, or error 1003."""
    root = Element("", {})
    path = [root]

    def start(name, attributes):
        path[-1].children.append(Element(name, attributes))
        path.append(path[-1].children[-1])

    def characters(data):
        path[-1].text += data

    parser = xml.parsers.expat.ParserCreate()
    parser.buffer_text = True
    parser.StartElementHandler = start
    parser.EndElementHandler = lambda name: path.pop()
    parser.CharacterDataHandler = characters
    parser.StartDoctypeDeclHandler = lambda *rest: fail(parser, "document types are not accepted")
    try:
        parser.Parse(text, True)
    except xml.parsers.expat.ExpatError as error:
        fail(error, xml.parsers.expat.ErrorString(error.code))
    return root.children[0]


def fail(place, what):
    line = getattr(place, "lineno", 0) or getattr(place, "CurrentLineNumber", 1)
    raise RunTimeError(1003, f"Document error at line {line}, column 1: {what}")


def parse_root(text, *names):
    root = parse(text)
    if root.name not in names:
        fail(None, "another root element was expected")
    return root


class Table:
    """Rows of named texts; its columns are all names that occur in the rows."""

    def __init__(self, name, rows):
        self.name = name
        self.rows = rows
        self.columns = {column for row in rows for column in row}

    @property
    def row_count(self):
        return len(self.rows)

    def field(self, row, column):
        """The text in a row, counted from 1."""
        if not 1 <= row <= len(self.rows):
            raise RunTimeError(9)
        if column not in self.columns:
            raise RunTimeError(1002, f"Column {column} is missing in table {self.name}")
        return self.rows[row - 1].get(column, "")


class TableRow:
    """One row of a table, as the model's objects read it."""

    def __init__(self, table, number):
        self.table = table
        self.number = number

    def field(self, column):
        return self.table.field(self.number, column)


def read_table(element):
    return Table(element.attributes.get("Name", ""), [row.attributes for row in element.named("row")])


def read_tables(element):
    tables = {}
    for child in element.named("WebTable"):
        table = read_table(child)
        tables.setdefault(table.name, table)
    return tables


class Message:
    """A host's data message; kind is the type name of the object."""

    def __init__(self, kind, name, properties, tables):
        self.kind = kind
        self.name = name
        self.properties = properties
        self.tables = tables

    def property(self, key):
        return self.properties.get(key, "")

    def table(self, name):
        if name not in self.tables:
            raise RunTimeError(1001, f"Table {name} is missing")
        return self.tables[name]


def message_from_text(kind, text):
    root = parse_root(text, "WebMessage")
    properties = {}
    for child in root.named("Property"):
        properties[child.attributes.get("Name", "")] = child.attributes.get("Value", "")
    data = root.named("WebData")
    return Message(kind, root.attributes.get("Name", ""), properties, read_tables(data[0]) if data else {})


class Section:
    def __init__(self, name, fields, rows=()):
        self.name = name
        self.fields = fields
        self.rows = list(rows)

    def row(self, number):
        """A row, counted from 1."""
        if not 1 <= number <= len(self.rows):
            raise RunTimeError(9)
        return self.rows[number - 1]

    def add_row(self):
        self.rows.append({})

    def value(self, row, field):
        """The text of a field; empty when it is not set or is no field of the section."""
        return row.get(field, "") if field in self.fields else ""

    def complete(self, fields):
        """Adds the fields that the section lacks."""
        self.fields += [field for field in fields if field not in self.fields]


class Profile:
    def __init__(self, name):
        self.name = name
        self.sections = {}

    def add_section(self, name, fields):
        """The new section; where there is one of that name already, that one stays the one found by name."""
        section = Section(name, list(fields))
        self.sections.setdefault(name, section)
        return section


class ProfileSet:
    def __init__(self):
        self.profiles = []

    def add(self, name):
        self.profiles.append(Profile(name))
        return self.profiles[-1]

    def exists(self, name):
        return any(profile.name == name for profile in self.profiles)

    def load(self, text):
        """Replaces the whole set; a text that cannot be loaded leaves it as it is."""
        root = parse_root(text, "WebProfiles", "WebProfile")
        elements = [root] if root.name == "WebProfile" else root.named("WebProfile")
        self.profiles = [read_profile(element) for element in elements]

    def content(self):
        """The set in the form of sessions and transcripts."""
        return [
            {
                "name": profile.name,
                "sections": {
                    section.name: {
                        "fields": list(section.fields),
                        "rows": [{name: section.value(row, name) for name in section.fields} for row in section.rows],
                    }
                    for section in profile.sections.values()
                },
            }
            for profile in self.profiles
        ]


def read_profile(element):
    names = element.named("Name")
    profile = Profile(names[0].text if names else "")
    for child in element.named("Section"):
        fields = child.attributes.get("Fields", "")
        section = profile.add_section(child.attributes.get("Name", ""), fields.split(",") if fields else [])
        section.rows = [dict(row.attributes) for row in child.named("row")]
    return profile


def find_error_table(text):
    """The error table of a result document, None when it has none; error 1003 when it cannot be loaded."""
    for root in ("WebProfiles", "WebProfile", "WebData"):
        if f"<{root}>" in text:
            return read_tables(parse_root(text, root)).get("Error")
    table = read_table(parse_root(text, "WebTable"))
    return table if table.name == "Error" else None


def attribute_text(value):
    return quoteattr(value, {"\n": "&#10;", "\r": "&#13;", "\t": "&#9;", '"': "&quot;"})


def element_text(name, attributes):
    return f"<{name}" + "".join(f" {key}={attribute_text(value)}" for key, value in attributes.items()) + "/>"


def result_text(error, payload):
    """The result document that carries an answer's error and payload."""
    table = ""
    if error is not None:
        row = element_text("row", {"ErrorNumber": error[0], "ErrorDescription": error[1]})
        table = f'<WebTable Name="Error">{row}</WebTable>'
    if isinstance(payload, str):
        return f"<WebData>{table}{payload}</WebData>"
    return f"<WebProfiles>{table}{''.join(map(profile_text, payload))}</WebProfiles>"


def profile_text(profile):
    sections = ""
    for name, section in profile["sections"].items():
        head = f"<Section Name={attribute_text(name)} Fields={attribute_text(','.join(section['fields']))}>"
        sections += head + "".join(element_text("row", row) for row in section["rows"]) + "</Section>"
    name = profile["name"].replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
    return f"<WebProfile><Name>{name}</Name>{sections}</WebProfile>"
