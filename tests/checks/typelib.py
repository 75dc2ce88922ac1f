"""Reads a compiled type library (the "MSFT" form): what kinds of types it has, and each member's name, dispatch id
and place in the vtable."""
import struct
import uuid
from collections import namedtuple

Type = namedtuple("Type", "kind name guid members")
Member = namedtuple("Member", "name id slot_offset")

KINDS = {0: "enum", 1: "record", 2: "module", 3: "interface", 4: "dispinterface", 5: "coclass", 6: "alias"}
TYPES, GUIDS, NAMES = 0, 5, 7
HEADER_SIZE, HELP_DLL_FLAG = 0x54, 0x100


class TypeLibrary:
    def __init__(self, data):
        self.data = data
        if data[:4] != b"MSFT":
            raise ValueError("not a type library")
        self.bits = {1: 32, 3: 64}.get(self.number(0x14) & 0xF)
        count = self.number(0x20)
        start = HEADER_SIZE + (4 if self.number(0x1C) & HELP_DLL_FLAG else 0)
        directory = start + 4 * count
        self.segments = [self.number(directory + 16 * i) for i in range(15)]
        self.guid = self.guid_at(self.number(0x08))
        places = [self.segments[TYPES] + self.number(start + 4 * i) for i in range(count)]
        self.types = {entry.name: entry for entry in map(self.type_at, places)}

    def number(self, offset, form="<i"):
        return struct.unpack_from(form, self.data, offset)[0]

    def guid_at(self, place):
        start = self.segments[GUIDS] + place
        return uuid.UUID(bytes_le=self.data[start:start + 16]) if place >= 0 else None

    def name_at(self, place):
        start = self.segments[NAMES] + place
        return self.data[start + 12:start + 12 + self.data[start + 8]].decode("ascii")

    def type_at(self, at):
        kind = KINDS.get(self.number(at) & 0xF)
        elements = self.number(at + 0x18)
        functions, variables = elements & 0xFFFF, elements >> 16
        members = []
        if functions:
            start = self.number(at + 0x04)
            records, record = self.number(start), start + 4
            ids = start + 4 + records
            names = ids + 4 * (functions + variables)
            for i in range(functions):
                members.append(Member(self.name_at(self.number(names + 4 * i)), self.number(ids + 4 * i, "<I"),
                                      self.number(record + 0x0C, "<h") & ~1))
                record += self.number(record) & 0xFFFF
        return Type(kind, self.name_at(self.number(at + 0x34)), self.guid_at(self.number(at + 0x2C)), members)
