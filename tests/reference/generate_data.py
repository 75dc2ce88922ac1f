"""Random data messages: small tables in which ids, codes and numbers collide often, and some that cannot be loaded."""
from xml.sax.saxutils import quoteattr

from model import COUNTERS

UNIT_IDS = ["10", "11", "12", "20", "21", "u1", "U1", "a", "b", "a,b", "x", "x|y", "é", "É", " n", "TOTAL"]
UNIT_TEXTS = ["North", "north", "South", "South Hill", "Park", "Park", "", " ", "10", "Zoo", "Épinal", "b"]
TYPE_CODES = ["IN", "RE", "in", "", "TOTAL", "a|b", "a", "X y"]
TYPE_TEXTS = ["Installation", "Repair", "repair", "", " ", "Same", "Same", "RE"]
CLASS_CODES = ["H", "B", "h", "", "H|x", "Q", "é"]
CLASS_TEXTS = ["Home", "Business", "", " ", "Same", "Same", "B"]
ODD_NUMBERS = [
    *["", " ", "abc", "1 2", "12.5", "13.5", "-3", "-1.5", "-0.4", "+4", "3x", ".5", "1.", ".", "1.5.5", "--3", "- 2"],
    *["&H1F", "&h1f", "&O17", "&o8", "-&H5", "5&H3", "&H", "& H 1 0", "&HfFfF", "0x10", "1,5", "1_0", "٣", "inf", "nan"],
    *["1e2", "1E1", "1d1", "2D1", "25e-1", "1e", "1e+", "1 e 1", "e5", "\t7", "7\n1", "1\r2", "2.5000000000000000001"],
]
BIG_NUMBERS = ["2147483647", "-2147483648", "2147483647.4", "1073741824", "&H7FFFFFFF", "20000000", "16777217"]
TOO_BIG = ["2147483648", "99999999999", "&HFFFFFFFF", "1e10", "-2147483648.6", "2147483647.5", "1e999", "-1e400"]
INTERVALS = [
    *["15", "5", "0", "", "abc", "90.25", "-7", "1e2", "&H10", " 1 5", "0.3333", "1440", "2881", "1.7", "-0.4"],
    *["-99999", "99999.9", ".2", "1d1", "12,5", "1e999"],
]
FAULTS = ["missing", "missing", "column", "duplicate", "duplicate", "empty", "too big", "big", "cell"]
NAMES = [*["DLVData"] * 22, "DLVServerStopped", "DLVServerStopped", "dlvdata", "Other", ""]
GENERAL = ["BUID", "BUDesc", "TechCount", "HoursWorked", "HoursRemaining"]
DETAILS = ["BUID", "JobType", "JobClass", *COUNTERS]


class DataWorld:
    """The units and codes of one session, and messages about them."""

    def __init__(self, random):
        self.random = random
        self.ids = random.sample(UNIT_IDS, random.randint(3, 9))
        if random.random() < 0.03:
            self.ids.append("")
        self.types = self.codes(TYPE_CODES)
        self.classes = self.codes(CLASS_CODES)
        self.parents = {}
        self.plant_tree()
        self.clock = random.randint(0, 86399)

    def chance(self, probability):
        return self.random.random() < probability

    def pick(self, values):
        return self.random.choice(values)

    def codes(self, pool):
        """Mostly the plain codes at the front of a pool, sometimes the odd ones."""
        return list(dict.fromkeys(pool[:2] + [code for code in pool[2:] if self.chance(0.2)]))

    def plant_tree(self):
        for buid in self.ids:
            if buid not in self.parents or self.chance(0.15):
                self.parents[buid] = self.pick([*self.ids, *self.ids, "#", "#", "", "zz", buid])

    def some_ids(self, least=0):
        return self.random.sample(self.ids, self.random.randint(min(least, len(self.ids)), len(self.ids)))

    def now(self):
        self.clock = (self.clock + self.random.randint(0, 900)) % 86400
        return f"{self.clock // 3600:02}:{self.clock // 60 % 60:02}:{self.clock % 60:02}"

    def number(self, odd=0.08):
        roll = self.random.random()
        if roll < odd:
            return self.pick(ODD_NUMBERS)
        if roll < odd + 0.002:
            return self.pick(BIG_NUMBERS)
        return str(self.random.randint(0, 12)) if roll < 0.75 else "0"

    def tables(self):
        units = [[buid, self.pick(UNIT_TEXTS), self.parents[buid]] for buid in self.ids if self.chance(0.93)]
        if self.chance(0.6):
            root = ["#", self.pick(UNIT_TEXTS), self.pick(["", "#", *self.ids])]
            units.insert(self.random.randint(0, len(units)), root)
        if self.chance(0.3):
            self.random.shuffle(units)
        formats = self.random.sample([["EN", "h:nn AM/PM"], ["PO", "hh:nn"], ["SP", "H.nn.ss"], ["en", ""]], 3)
        odd = self.pick([0, 0.02, 0.1, 0.3])
        return {
            "BusinessUnits": {"cols": ["BUID", "BUDesc", "ParentBUID"], "rows": units},
            "JobTypes": self.code_table("JobType", self.types, TYPE_TEXTS),
            "JobClasses": self.code_table("JobClass", self.classes, CLASS_TEXTS),
            "RegionalFormats": {"cols": ["languageCode", "timeformat"], "rows": formats},
            "BUGeneralInfo": {"cols": list(GENERAL), "rows": self.general_rows(odd)},
            "BUDetailsInfo": {"cols": list(DETAILS), "rows": self.detail_rows(odd)},
        }

    def code_table(self, column, codes, texts):
        rows = [[code, self.pick(texts)] for code in codes if self.chance(0.85)]
        return {"cols": [column, column + "Desc"], "rows": rows}

    def general_rows(self, odd):
        ids = [buid for buid in self.ids if self.chance(0.85)]
        if self.chance(0.2):
            ids.append(self.pick([self.pick(self.ids).swapcase(), self.pick(self.ids), "stray", ""]))
        self.random.shuffle(ids)
        return [[buid, self.pick(UNIT_TEXTS), *(self.number(odd) for _ in range(3))] for buid in ids]

    def detail_rows(self, odd):
        rows = []
        for buid in [*self.ids, *self.ids, "stray"]:
            for _ in range(self.random.randint(0, 2)):
                counters = [self.number(odd) for _ in COUNTERS]
                if self.chance(0.15):
                    counters[0] = "0"
                if self.chance(0.1):
                    buid = buid.swapcase()
                rows.append([buid, self.pick(self.types), self.pick(self.classes), *counters])
        if self.chance(0.5):
            self.random.shuffle(rows)
        return rows

    def spoil(self, tables):
        """Breaks a message in one way."""
        name = self.pick(list(tables))
        table = tables[name]
        fault = self.pick(FAULTS)
        if fault == "missing":
            del tables[name]
        elif fault == "empty":
            table["rows"] = []
        elif fault == "column":
            place = self.random.randrange(len(table["cols"]))
            for row in [table["cols"], *table["rows"]]:
                del row[place]
        elif table["rows"]:
            self.spoil_rows(fault, tables, table)

    def spoil_rows(self, fault, tables, table):
        if fault == "duplicate":
            table["rows"].insert(self.random.randint(0, len(table["rows"])), list(self.pick(table["rows"])))
        elif fault == "cell":
            row = self.pick(table["rows"])
            row[self.random.randrange(len(row))] = self.pick(["", "#", "x", "10"])
        elif fault == "too big":
            name, first = self.pick([("BUGeneralInfo", 2), ("BUDetailsInfo", 3)])
            if tables[name]["rows"]:
                row = self.pick(tables[name]["rows"])
                row[self.random.randrange(first, len(row))] = self.pick(TOO_BIG)
        else:
            for row in tables["BUDetailsInfo"]["rows"]:
                row[self.random.randrange(3, len(row))] = self.pick(BIG_NUMBERS)

    def message(self):
        self.plant_tree()
        step = {"op": "receiveMessage", "now": self.now()}
        name = self.pick(NAMES)
        properties = {"tqDBRefreshInterval": self.pick(INTERVALS), "tqJeopardyThreshold": self.pick(["30", "", "x 5"])}
        for key in list(properties):
            if self.chance(0.05):
                del properties[key]
        tables = self.tables()
        if self.chance(0.22):
            self.spoil(tables)
        if self.chance(0.08):
            step["document"] = self.message_text(name, properties, tables)
        else:
            step |= {"name": name, "props": properties, "tables": tables}
        if self.chance(0.04):
            step["type"] = self.pick(["QZWebData", "String", "qzwebmessage", "QZWebMessage"])
        if self.chance(0.06):
            step["dataType"] = self.pick([None, 7, -1, 3000000000, "12", "abc", 2.5, True])
        if self.chance(0.03):
            step["tag"] = self.pick([None, "t"])
        return step

    def message_text(self, name, properties, tables):
        parts = [f"<WebMessage Name={quoted(name)}>"]
        for key, value in properties.items():
            parts.append(f"<Property Value={quoted(value)} Name={quoted(key)} />")
        parts.append("<WebData>")
        for table_name, table in tables.items():
            parts.append(f"<WebTable Name={quoted(table_name)}>")
            for row in table["rows"]:
                cells = [(column, value) for column, value in zip(table["cols"], row) if self.chance(0.97)]
                parts.append("<row " + " ".join(f"{column}={quoted(value)}" for column, value in cells) + "/>")
            parts.append("</WebTable>")
        parts += ["</WebData>", "</WebMessage>"]
        if self.chance(0.3):
            del parts[self.random.randrange(len(parts))]
        elif self.chance(0.1):
            parts.insert(0, "<!DOCTYPE WebMessage>")
        separator = self.pick(["", "\n", " <!-- between --> "])
        return separator.join(parts)


def quoted(value):
    return quoteattr(value, {"\n": "&#10;", "\r": "&#xD;", "\t": "&#9;"})
