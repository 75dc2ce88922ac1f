"""Random answers to profile requests: sets, profile-ID lists, errors, and texts that are none of these."""
import re

from generate_data import TYPE_CODES
from webdata import result_text

NAMES = ["Default", "Harbour", "harbour", "Night", "Épée", "default", "night shift"]
TYPED = [*NAMES, " Night ", "New one", "a|b", "x,y", "Q&A", "", "   ", "DEFAULT", "ÉPÉE"]
FUNCTIONS = ["GetProfileList", "GetProfiles", "PutProfiles", "SaveProfileAs", "AddProfiles", "RemoveProfiles"]
ERRORS = [
    *[["7", "No such user"], ["", ""], ["abc", "x"], ["3x", "Three"], [" 5", "Five"], ["2.5", "Two"], ["&H7", "Seven"]],
    *[["0.4", "nothing"], ["99999999999", "big"], ["-1", "<below> & \"zero\""], ["1e1", ""]],
]
ERROR_TABLES = [
    *['<row ErrorNumber="7" ErrorDescription="No such user"/>', '<row ErrorNumber="0" ErrorDescription=""/>', ""],
    *['<row ErrorNumber="9"/>', '<row ErrorDescription="no number"/>', "<row/>"],
    '<row ErrorNumber="0" ErrorDescription=""/><row ErrorNumber="4" ErrorDescription="second row"/>',
]
ODD_TEXTS = [
    *["", "   ", "garbage", "<WebData>", "<WebData></WebData>", "<WebProfiles>", "<WebProfiles></WebProfiles>"],
    *["<WebData><WebProfiles></WebData>", "<WebProfiles><WebProfile></WebProfiles>", "<webprofiles></webprofiles>"],
    *["<!DOCTYPE x><WebProfiles></WebProfiles>", "<WebProfiles>&nosuch;</WebProfiles>", "<WebProfiles></WebProfiles><x/>"],
    "<WebProfile><Name>Harbour</Name></WebProfile>",
    "<WebProfile><Name><![CDATA[Default]]></Name><!-- plain --></WebProfile>",
    '<WebProfile><WebTable Name="Error"><row ErrorNumber="3" ErrorDescription="lone"/></WebTable></WebProfile>',
    '<WebProfiles><WebTable Name="Error"><row ErrorNumber="8" ErrorDescription="set"/></WebTable></WebProfiles>',
    "<ProfileIDs><ProfileID>Night</ProfileID></ProfileIDs>",
    "<ProfileIDs>0123456789Bare</ProfileID><ProfileID>Night</ProfileID></ProfileIDs>",
]


SECOND_SELECTION = '<Section Name="DLVSelect" Fields="BUList"><row BUList="U1"/></Section>'
UNKNOWN_PIECES = [
    ("<WebProfiles>", ["<x/>", "<!-- c -->", '<WebTable Name="Other"><row ErrorNumber="5"/></WebTable>']),
    ("<WebProfile>", [" ", "<Panel><WebProfile/></Panel>", '<WebTable Name="Error"><row ErrorNumber="6"/></WebTable>']),
    ("<Section|<row", [' k="1"', ' Zoom="&lt;"', "\n\t"]),
    ("/>", ["<two/>", "<row2>text</row2>", "&#x20;"]),
    ("</Section>", [SECOND_SELECTION, "<Section/>", "<Name>later</Name>"]),
]


class ProfileWorld:
    """Answers about the profiles of one session; `data` is the session's data world."""

    def __init__(self, random, data):
        self.random = random
        self.data = data
        self.chance = data.chance
        self.pick = data.pick

    def response(self, function=None, name=None):
        """An answer to a function; name is one that it is likely to be about."""
        function = function or self.pick([*FUNCTIONS, "GetProfiles", "getprofiles"])
        step = {"op": "receiveProfileResponse", "function": function}
        if self.chance(0.06):
            step["resultXML"] = self.odd_text()
            return step
        if self.chance(0.93):
            step["error"] = ["0", ""] if self.chance(0.88) else self.pick(ERRORS)
        if function == "GetProfiles" or self.chance(0.02):
            step["payload"] = self.profile_set(name) if self.chance(0.93) else ""
            if step["payload"] != "" and self.chance(0.15):
                step["resultXML"] = self.of_another_version(result_text(step.pop("error", None), step.pop("payload")))
        elif function == "PutProfiles" or self.chance(0.04):
            step["payload"] = ""
        else:
            step["payload"] = self.list_text(name)
        return step

    def of_another_version(self, text):
        """The document with things in it that this control does not know, and what it knows written in other ways."""
        for pattern, additions in UNKNOWN_PIECES:
            chance = self.pick([0, 0.3, 1])
            text = re.sub(pattern, lambda found: found[0] + self.pick(additions) if self.chance(chance) else found[0], text)
        if self.chance(0.15):
            text = re.sub("<Name>([^<&]*)</Name>", r'<Name a="b"><![CDATA[\1]]><i/></Name>', text)
        if self.chance(0.15):
            text = re.sub("(<Name>.*?</Name>)(.*?)</WebProfile>", r"\2\1</WebProfile>", text)
        if self.chance(0.2) and text.count("<WebProfile>") == 1:
            text = re.sub("</?WebProfiles>|^<WebProfiles>.*?(?=<WebProfile>)", "", text)
        return text

    def odd_text(self):
        if self.chance(0.3):
            table = f'<WebTable Name="{self.pick(["Error", "Error", "Other"])}">{self.pick(ERROR_TABLES)}</WebTable>'
            return self.pick(["{}", "<WebData>{}</WebData>", "<WebProfiles>{}</WebProfiles>"]).format(table)
        return self.pick(ODD_TEXTS)

    def list_text(self, name):
        names = self.random.sample(NAMES, self.random.randint(0, 4))
        if name is not None and self.chance(0.85):
            names.insert(0, name)
        if self.chance(0.05):
            names = [*NAMES, ""]
        if self.chance(0.1) and names:
            names.append(self.pick(names))
        pieces = [f"<ProfileID>{name.replace('&', '&amp;')}</ProfileID>" for name in names]
        if self.chance(0.1):
            pieces.append(self.pick(["<ProfileID>A&B</ProfileID>", "0123456789Bare</ProfileID>", "x</ProfileID>"]))
        if self.chance(0.06):
            pieces.append(self.pick([" <ProfileID> Night </ProfileID> ", "<ProfileID>Night", "text", "<!-- c -->"]))
        if self.chance(0.04):
            pieces.append("<ProfileID></ProfileID>")
        opening = "<ProfileIDs>" if self.chance(0.9) else self.pick(['<ProfileIDs count="2">', "<profileIDs>", ""])
        closing = "</ProfileIDs>" if self.chance(0.95) else ""
        return opening + "".join(pieces) + closing

    def profile_set(self, name=None):
        names = self.random.sample(NAMES, self.random.randint(1, 4))
        if name is not None and name not in names and self.chance(0.9):
            names.insert(self.random.choice([0, 0, len(names)]), name)
        if self.chance(0.04):
            names = []
        return [{"name": name, "sections": self.sections()} for name in names]

    def sections(self):
        sections = {}
        if self.chance(0.94):
            count = 1 if self.chance(0.93) else self.pick([0, 2])
            name = "DLVSelect" if self.chance(0.97) else "dlvselect"
            fields = self.fields(["BUList", "SummaryOption", "DisplayByWorkOrders"])
            sections[name] = {"fields": fields, "rows": [self.select_row() for _ in range(count)]}
        if self.chance(0.93):
            sections["CollapsedNodes"] = {"fields": self.fields(["ID", "List"]), "rows": self.node_rows()}
        if self.chance(0.05):
            sections["Other"] = {"fields": ["A", "B"], "rows": [{"A": "1"}, {"B": "x\ty\nz"}]}
        return sections

    def fields(self, names):
        """The fields of a section, now and then as another version has them."""
        if self.chance(0.9):
            return names
        names = self.random.sample(names, self.random.randint(0, len(names)))
        if self.chance(0.4):
            names.insert(self.random.randint(0, len(names)), self.pick(["Sort", "bulist", "id", ""]))
        return names

    def select_row(self):
        ids = self.data.some_ids() + (["gone"] if self.chance(0.1) else [])
        if self.chance(0.05) and ids:
            ids.append(ids[0])
        row = {
            "BUList": "|".join(ids) + ("|" if self.chance(0.03) else ""),
            "SummaryOption": self.boolean(),
            "DisplayByWorkOrders": self.boolean(),
        }
        if self.chance(0.05):
            del row[self.pick(list(row))]
        return row

    def boolean(self):
        return self.pick(["maybe", "Truex", "1", "0", "-1"]) if self.chance(0.06) else self.pick(BOOLEANS)

    def node_rows(self):
        names = ["JobTypes", "BUWorkOrders", "BUPoints"]
        rows = [{"ID": name, "List": self.node_list(name)} for name in names]
        if self.chance(0.12):
            self.random.shuffle(rows)
        if self.chance(0.1):
            row = self.pick(rows)
            row["ID"] = self.pick([f" {row['ID']} ", f" {row['ID']} ", "BUWorkOrders", "", "jobtypes"])
        if self.chance(0.12):
            rows = self.pick([[], rows[:1], rows[:2], [*rows, rows[0]]])
        return rows

    def node_list(self, name):
        pool = [*TYPE_CODES, "TOTAL", "TOTAL", "gone"] if name == "JobTypes" else [*self.data.ids, "#", "gone"]
        keys = self.random.sample(pool, self.random.choice([0, 0, 1, 2, 3]))
        if name == "JobTypes":
            keys = list(dict.fromkeys(keys))
        if self.chance(0.06) and keys:
            keys.append(keys[0])
        return "|".join(keys)


BOOLEANS = ["True", "True", "False", "False", "true", "FALSE", ""]
