#!/usr/bin/env python3
"""implement_imported.py IN OUT KIND IID LIBRARY COCLASS... - lets coclasses of a type library implement an
interface of another library.

The compiler of interface definitions would copy the interface into our library. So the coclasses are compiled
without it, and here it is added to each of them, as a reference to the library that IN imports already. KIND is
the interface's TYPEKIND (4 for a dual one). What grows, a table of the file, is written anew at its end.
"""
import struct
import sys
import uuid

SEGMENTS = ["types", "imports", "import files", "references", "guid chains", "guids", "name chains", "names"]
COCLASS = 5
NONE = -1


class TypeLibrary:
    def __init__(self, data):
        self.data = bytearray(data)
        if self.data[:4] != b"MSFT":
            sys.exit("not a type library")
        self.type_count = self.number(32)
        has_help_dll = self.number(20) & 0x100
        self.directory = 84 + (4 if has_help_dll else 0) + 4 * self.type_count

    def number(self, at):
        return struct.unpack_from("<i", self.data, at)[0]

    def put(self, at, value):
        struct.pack_into("<i", self.data, at, value)

    def entry(self, segment):
        return self.directory + 16 * SEGMENTS.index(segment)

    def offset(self, segment):
        return self.number(self.entry(segment))

    def size(self, segment):
        return max(self.number(self.entry(segment) + 4), 0)

    def append(self, segment, record):
        """Adds a record to a table; returns its offset there."""
        start, size = self.offset(segment), self.size(segment)
        table = (self.data[start:start + size] if size else b"") + record
        self.put(self.entry(segment), len(self.data))
        self.put(self.entry(segment) + 4, len(table))
        self.data += table
        return size

    def guid(self, at):
        start = self.offset("guids") + at
        return uuid.UUID(bytes_le=bytes(self.data[start:start + 16]))

    def name(self, at):
        start = self.offset("names") + at
        length = self.data[start + 8]
        return self.data[start + 12:start + 12 + length].decode("latin-1")

    def import_file(self, library):
        """The imported library's offset in the table of import files."""
        start, size, at = self.offset("import files"), self.size("import files"), 0
        while at < size:
            if self.guid(self.number(start + at)) == library:
                return at
            length = struct.unpack_from("<H", self.data, start + at + 12)[0] >> 2
            at += (14 + length + 3) & ~3
        sys.exit(f"{library} is not imported")

    def add_guid(self, guid, reference):
        chain = 0
        for word in struct.unpack("<8H", guid.bytes_le):
            chain ^= word
        head = self.offset("guid chains") + 4 * (chain & 0x1F)
        at = self.append("guids", guid.bytes_le + struct.pack("<ii", reference, self.number(head)))
        self.put(head, at)
        return at

    def import_interface(self, kind, iid, library):
        """Adds a reference to an outside interface."""
        index = self.size("imports") // 12
        reference = index * 12 | 1
        at = self.add_guid(iid, reference)
        by_guid = 1 << 16
        self.append("imports", struct.pack("<iii", kind << 24 | by_guid | index, self.import_file(library), at))
        self.put(80, index + 1)
        return reference

    def coclass(self, name):
        for index in range(self.type_count):
            at = self.offset("types") + self.number(self.directory - 4 * (self.type_count - index))
            if self.number(at) & 15 == COCLASS and self.name(self.number(at + 52)) == name:
                return at
        sys.exit(f"there is no coclass {name}")

    def implement(self, name, reference):
        coclass = self.coclass(name)
        added = self.append("references", struct.pack("<iiii", reference, 0, NONE, NONE))
        last = self.number(coclass + 84)
        while (following := self.number(self.offset("references") + last + 12)) != NONE:
            last = following
        self.put(self.offset("references") + last + 12, added)
        self.put(coclass + 76, self.number(coclass + 76) + 1)  # the number of interfaces


def main(source, target, kind, iid, library, *coclasses):
    with open(source, "rb") as file:
        result = TypeLibrary(file.read())
    reference = result.import_interface(int(kind), uuid.UUID(iid), uuid.UUID(library))
    for name in coclasses:
        result.implement(name, reference)
    with open(target, "wb") as file:
        file.write(result.data)


if __name__ == "__main__":
    if len(sys.argv) < 7:
        sys.exit(__doc__)
    main(*sys.argv[1:])
