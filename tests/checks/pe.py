"""Reads what the checks need from a Windows binary: machine, exports, imports and resources."""
import struct

EXPORTS, IMPORTS, RESOURCES = 0, 1, 2


class Binary:
    def __init__(self, data):
        self.data = data
        header = self.number("<I", 0x3C)
        if data[:2] != b"MZ" or data[header:header + 4] != b"PE\0\0":
            raise ValueError("not a Windows binary")
        self.machine = self.number("<H", header + 4)
        sections = self.number("<H", header + 6)
        optional = header + 24
        self.bits = 64 if self.number("<H", optional) == 0x20B else 32
        self.characteristics = self.number("<H", optional + 70)
        directories = optional + (112 if self.bits == 64 else 96)
        self.directories = [self.number("<II", directories + 8 * i) for i in range(3)]
        table = optional + self.number("<H", header + 20)
        self.sections = [self.number("<IIII", table + 40 * i + 8) for i in range(sections)]

    def number(self, form, offset):
        values = struct.unpack_from(form, self.data, offset)
        return values[0] if len(values) == 1 else values

    def offset(self, address):
        """The place in the file of an address in memory."""
        for size, start, raw_size, raw in self.sections:
            if start <= address < start + max(size, raw_size):
                return address - start + raw
        raise ValueError(f"address {address:#x} is in no section")

    def text(self, address):
        start = self.offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")

    def exports(self):
        address, size = self.directories[EXPORTS]
        if size == 0:
            return []
        at = self.offset(address)
        count, names = self.number("<I", at + 24), self.offset(self.number("<I", at + 32))
        return [self.text(self.number("<I", names + 4 * i)) for i in range(count)]

    def imports(self):
        """The names of the libraries that the binary needs, in lower case."""
        address, size = self.directories[IMPORTS]
        found, at = [], self.offset(address) if size else 0
        while size and self.number("<I", at + 12):
            found.append(self.text(self.number("<I", at + 12)).lower())
            at += 20
        return found

    def resources(self, kind):
        """The contents of all resources of a kind, which is a name or a number."""
        address, size = self.directories[RESOURCES]
        if size == 0:
            return []
        base = self.offset(address)
        return [self.leaf(place) for name, place in self.entries(base, base) if name == kind]

    def leaf(self, place):
        base = self.offset(self.directories[RESOURCES][0])
        while place & 0x80000000:
            place = self.entries(base, base + (place & 0x7FFFFFFF))[0][1]
        address, size = self.number("<II", base + place)
        start = self.offset(address)
        return self.data[start:start + size]

    def entries(self, base, at):
        named, numbered = self.number("<HH", at + 12)
        found = []
        for i in range(named + numbered):
            name, place = self.number("<II", at + 16 + 8 * i)
            if name & 0x80000000:
                start = base + (name & 0x7FFFFFFF)
                length = self.number("<H", start)
                name = self.data[start + 2:start + 2 + 2 * length].decode("utf-16-le")
            found.append((name, place))
        return found
