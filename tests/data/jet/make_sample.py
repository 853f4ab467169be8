#!/usr/bin/env python3
"""Writes practice.mdb, a small database file of the Jet 4 format, by the format's published description
(HACKING.md of the mdbtools package). Offsets and names of fields are those of that description.

Usage: make_sample.py practice.mdb          writes the file
       make_sample.py --check practice.mdb  ends with 1 when the file is not what would be written
"""
import datetime
import struct
import sys
import uuid
from decimal import Decimal

PAGE = 4096
CATALOG_PAGE = 2
TABLES_FOLDER = 0x0F000001  # the catalogue's parent of all tables
HEADER_KEY = bytes.fromhex("C7DA396B")
JAPANESE = 0x0411
CODE_PAGE = 932
EPOCH = datetime.datetime(1899, 12, 30)
DELETED = 0xC000  # both flags of a row's slot: the space may be reused

# name: code, bytes of a value in the row's fixed part (None: variable part)
TYPES = {"bool": (1, 0), "byte": (2, 1), "int": (3, 2), "long": (4, 4), "money": (5, 8), "single": (6, 4),
         "double": (7, 8), "date": (8, 8), "binary": (9, None), "text": (10, None), "ole": (11, None),
         "memo": (12, None), "guid": (15, 16), "numeric": (16, 17)}


def rc4(key, data):
    state, j = list(range(256)), 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    result, i, j = bytearray(), 0, 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        result.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(result)


def days(moment):
    """Whole days since the epoch and the time as a fraction, which counts away from zero before it."""
    whole = datetime.datetime(moment.year, moment.month, moment.day)
    count, fraction = (whole - EPOCH).days, (moment - whole).total_seconds() / 86400
    return count - fraction if count < 0 else count + fraction


def compressed(text):
    """Jet writes text with only Latin-1 characters as one byte each after a prefix."""
    if 1 < len(text) and all(0 < ord(c) < 256 for c in text):
        return b"\xFF\xFE" + text.encode("latin-1")
    return text.encode("utf-16-le")


def numeric(value, scale):
    digits = int(abs(value) * 10 ** scale).to_bytes(16, "big")
    words = b"".join(digits[at:at + 4][::-1] for at in range(0, 16, 4))
    return bytes([0x80 if value < 0 else 0]) + words


class Column:
    def __init__(self, name, kind, size=0, scale=0):
        self.name, self.kind, self.size, self.scale = name, kind, size, scale
        self.code, self.width = TYPES[kind]

    @property
    def is_fixed(self):
        return self.width is not None

    def fixed_bytes(self, value):
        pack = {"byte": "<B", "int": "<h", "long": "<i", "single": "<f", "double": "<d"}
        if self.kind in pack:
            return struct.pack(pack[self.kind], value)
        if self.kind == "money":
            return struct.pack("<q", int(Decimal(str(value)) * 10000))
        if self.kind == "date":
            return struct.pack("<d", days(value))
        if self.kind == "guid":
            return value.bytes_le
        return numeric(value, self.scale)


class Writer:
    """Pages in the order of their allocation; 0 to 2 have fixed purposes."""

    def __init__(self):
        self.pages = [b"", b"", b""]

    def new_page(self):
        self.pages.append(b"")
        return len(self.pages) - 1

    def data_page(self, number, owner, rows):
        """Rows are stored from the page's end downwards; a row is bytes or (bytes, flag of its slot)."""
        body, places, at = bytearray(PAGE), [], PAGE
        for row in rows:
            data, flag = row if isinstance(row, tuple) else (row, 0)
            at -= len(data)
            body[at:at + len(data)] = data
            places.append(at | flag)
        head = struct.pack("<BBH4sIH", 1, 1, at - 14 - 2 * len(places), owner, 0, len(places))
        body[:14] = head
        for index, place in enumerate(places):
            struct.pack_into("<H", body, 14 + 2 * index, place)
        self.pages[number] = bytes(body)

    def usage_map(self, pages):
        bits = bytearray(64)
        for page in pages:
            bits[page // 8] |= 1 << page % 8
        return struct.pack("<BI", 0, 0) + bytes(bits)

    def long_value(self, data):
        """A memo or an OLE value: inside its row, on a page of its own, or on a chain of pages."""
        if len(data) <= 64:
            return struct.pack("<III", len(data) | 0x80000000, 0, 0) + data
        if len(data) <= PAGE - 16:
            page = self.new_page()
            self.data_page(page, b"LVAL", [data])
            return struct.pack("<III", len(data) | 0x40000000, page << 8, 0)
        step = PAGE - 20
        parts = [data[at:at + step] for at in range(0, len(data), step)]
        numbers = [self.new_page() for _ in parts]
        for index, part in enumerate(parts):
            following = numbers[index + 1] << 8 if index + 1 < len(parts) else 0
            self.data_page(numbers[index], b"LVAL", [struct.pack("<I", following) + part])
        return struct.pack("<III", len(data), numbers[0] << 8, 0)

    def variable_bytes(self, column, value):
        if column.kind == "text":
            return compressed(value)
        if column.kind == "memo":
            return self.long_value(compressed(value))
        return value if column.kind == "binary" else self.long_value(value)

    def row(self, columns, values):
        fixed, variable, ends, mask = b"", b"", [], 0
        width = 2 + sum(column.width for column in columns if column.is_fixed)
        for index, (column, value) in enumerate(zip(columns, values)):
            is_set = bool(value) if column.kind == "bool" else value is not None
            mask |= is_set << index
            if column.is_fixed:
                if column.width:
                    fixed += bytes(column.width) if value is None else column.fixed_bytes(value)
                continue
            ends.append(width + len(variable))
            if value is not None:
                variable += self.variable_bytes(column, value)
        tail = b""
        if ends:
            table = [width + len(variable)] + ends[::-1]
            tail = struct.pack(f"<{len(table)}HH", *table, len(ends))
        return struct.pack("<H", len(columns)) + fixed + variable + tail + mask.to_bytes((len(columns) + 7) // 8, "little")

    def definition(self, number, columns, row_count, maps_page, is_system):
        entries, names, fixed_at, variable_at = b"", b"", 0, 0
        for index, column in enumerate(columns):
            misc = struct.pack("<HH", JAPANESE, 0) if column.kind in ("text", "memo") else \
                struct.pack("<BBH", 18 if column.kind == "numeric" else 0, column.scale, 0)
            flags = 0x03 if column.is_fixed else 0x02
            size = column.size or (1 if column.kind == "bool" else column.width or 0)
            entries += struct.pack("<BIHHH", column.code, 1625, index, variable_at, index) + misc
            entries += struct.pack("<BBIHH", flags, 1 if column.kind in ("text", "memo") else 0, 0, fixed_at, size)
            fixed_at += column.width or 0
            variable_at += not column.is_fixed
            name = column.name.encode("utf-16-le")
            names += struct.pack("<H", len(name)) + name
        content = entries + names + struct.pack("<H", 0xFFFF)
        block = struct.pack("<IIIIB3xI8xBHHHIIII", 55 + len(content), 1625, row_count, 0, 1, 0,
                            0x53 if is_system else 0x4E, len(columns), variable_at, len(columns), 0, 0,
                            maps_page << 8, maps_page << 8 | 1)
        free = PAGE - 8 - len(block) - len(content)
        assert free > 0, "a definition of more than one page"
        self.pages[number] = (struct.pack("<BBHI", 2, 1, free, 0) + block + content).ljust(PAGE, b"\0")

    def table(self, number, columns, rows, is_system=False):
        """`rows` are lists of values; a row that begins with the word "deleted" is flagged as deleted."""
        maps_page, pages, current, used = self.new_page(), [], [], 0
        count = sum(values[0] != "deleted" for values in rows)
        chunks = []
        for values in rows:
            is_deleted = values[0] == "deleted"
            data = self.row(columns, values[1:] if is_deleted else values)
            if current and used + len(data) + 2 > PAGE - 14:
                chunks.append(current)
                current, used = [], 0
            current.append((data, DELETED if is_deleted else 0))
            used += len(data) + 2
        for chunk in chunks + ([current] if current else []):
            pages.append(self.new_page())
            self.data_page(pages[-1], struct.pack("<I", number), chunk)
        self.data_page(maps_page, struct.pack("<I", 0), [self.usage_map(pages), self.usage_map(pages[-1:])])
        self.definition(number, columns, count, maps_page, is_system)

    def head(self, created):
        plain = bytearray(128)
        date = struct.pack("<d", days(created))
        mask = struct.pack("<i", int(days(created)))
        plain[0x3C - 0x18:0x3E - 0x18] = struct.pack("<H", CODE_PAGE)
        plain[0x42 - 0x18:0x42 - 0x18 + 40] = mask * 10  # no password
        plain[0x6E - 0x18:0x72 - 0x18] = struct.pack("<I", JAPANESE)
        plain[0x72 - 0x18:0x7A - 0x18] = date
        start = struct.pack("<I15sBI", 0x00000100, b"Standard Jet DB", 0, 1)
        self.pages[0] = (start + rc4(HEADER_KEY, bytes(plain))).ljust(PAGE, b"\0")

    def finish(self, created):
        self.head(created)
        self.data_page(1, struct.pack("<I", 0), [self.usage_map([])])
        return b"".join(self.pages)


CATALOG = [Column("Connect", "memo"), Column("Database", "memo"), Column("DateCreate", "date"),
           Column("DateUpdate", "date"), Column("Flags", "long"), Column("ForeignName", "text", 510),
           Column("Id", "long"), Column("Lv", "ole"), Column("LvExtra", "ole"), Column("LvModule", "ole"),
           Column("LvProp", "ole"), Column("Name", "text", 510), Column("Owner", "binary", 510),
           Column("ParentId", "long"), Column("RmtInfoLong", "ole"), Column("RmtInfoShort", "binary", 510),
           Column("Type", "int")]


def catalog_row(name, number, parent, kind, flags, created):
    given = {"DateCreate": created, "DateUpdate": created, "Flags": flags, "Id": number, "Name": name,
             "ParentId": parent, "Type": kind}
    return [given.get(column.name) for column in CATALOG]


def when(*parts):
    return datetime.datetime(*parts)


PATIENT = [Column("nIDNo", "long"), Column("c氏名", "text", 100), Column("cカナ", "text", 100), Column("t生年月日", "date"),
           Column("b終了", "bool"), Column("n単価", "money"), Column("nRate", "double"), Column("iKubun", "int"),
           Column("iByte", "byte"), Column("nSingle", "single"), Column("n割合", "numeric", 17, 2), Column("m備考", "memo")]
PATIENT_ROWS = [
    [1, "髙橋 一郎", "ﾀｶﾊｼ ｲﾁﾛｳ", when(1940, 5, 1), False, "1234.5", 0.1, 2, 255, 1.5, Decimal("12.50"), "一行目\r\n二行目"],
    ["deleted", 9, "消した人", "ｹｼﾀﾋﾄ", when(1950, 1, 1), False, "1", 1.0, 1, 1, 1.0, Decimal("1"), "消"],
    [2, "﨑田 花子"] + [None, None, True] + [None] * 7,
    [3, "山田\"太\"郎, O'Hara", "", when(2024, 2, 29, 9, 30, 0), True, "-0.0001", -1e100, -32768, 0, -0.25,
     Decimal("-0.05"), "長い備考。" * 300],
    [2147483647, "Smith", "スミス", when(1899, 12, 29, 12, 0, 0), False, "922337203685477.5807", 70000.5, 32767, 1, 3e38,
     Decimal("123456789012.34"), "とても長い備考。" * 700],
]
STAFF = [Column("nIDNo", "long"), Column("cName", "text", 60)]
STAFF_ROWS = [[1, "山田"], [2, "鈴木"], [3, None]]
SPACED = [Column("a", "long")]
VISITS = [Column("nDate", "long"), Column("nKanjaNo", "long"), Column("c内容", "text", 100)]
VISITS_ROWS = [[20240500 + day, number, "訪問"] for number in range(1, 33) for day in range(1, 32)]
MARKS = [Column("gKey", "guid"), Column("bData", "binary", 20)]
MARKS_ROWS = [[uuid.UUID("01234567-89ab-cdef-0123-456789abcdef"), bytes([0x00, 0xAB, 0xFF])]]
TABLES = [("患者", PATIENT, PATIENT_ROWS), ("STAFF", STAFF, STAFF_ROWS), ("my table", SPACED, [[7]]),
          ("空表", STAFF, []), ("実績", VISITS, VISITS_ROWS), ("印", MARKS, MARKS_ROWS)]


def main():
    created = when(2024, 5, 1, 12, 0, 0)
    writer = Writer()
    catalog = [catalog_row("Tables", TABLES_FOLDER, 0x0F000000, 3, -0x80000000, created),
               catalog_row("MSysObjects", CATALOG_PAGE, TABLES_FOLDER, 1, -0x80000000, created)]
    for name, columns, rows in TABLES:
        number = writer.new_page()
        writer.table(number, columns, rows)
        catalog.append(catalog_row(name, number, TABLES_FOLDER, 1, 0, created))
    writer.table(CATALOG_PAGE, CATALOG, catalog, is_system=True)
    sample = writer.finish(created)
    if sys.argv[1] == "--check":
        with open(sys.argv[2], "rb") as file:
            return 0 if file.read() == sample else 1
    with open(sys.argv[1], "wb") as file:
        file.write(sample)
    return 0


if __name__ == "__main__":
    sys.exit(main())
