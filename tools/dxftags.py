"""Reads and writes DXF files as plain (group code, text) pairs, without knowing any record type.

Both forms of the format are read, the text form and the binary one, so that files can be compared across the two.
"""

import re
import struct
from dataclasses import dataclass, field
from typing import Iterator, List, Tuple

Tag = Tuple[int, str]

BINARY_MARK = b" Binary DXF\r\n\x1a\x00"
BINARY_START = 22  # the mark ends there, whatever stands before it
CODEC_ALIASES = {
    "undefined": "cp1252",
    "8859_1": "latin-1",
    "mac-roman": "mac_roman",
    "kcs5601": "cp949",
    "gb2312": "gbk",
}


class DxfError(Exception):
    """The file is not a readable DXF file; the message names the file and the line or byte."""


def _code_ranges(*ranges) -> frozenset:
    return frozenset(code for first, last in ranges for code in range(first, last + 1))


REAL_CODES = _code_ranges((10, 59), (110, 149), (210, 239), (460, 469), (1010, 1059))
INT16_CODES = _code_ranges((60, 79), (170, 179), (270, 289), (370, 389), (400, 409), (1060, 1070))
INT32_CODES = _code_ranges((90, 99), (420, 429), (440, 459), (1071, 1071))
INT64_CODES = _code_ranges((160, 169))
BYTE_CODES = _code_ranges((290, 299))
INTEGER_CODES = INT16_CODES | INT32_CODES | INT64_CODES | BYTE_CODES
HANDLE_CODES = _code_ranges((5, 5), (105, 105), (320, 369), (390, 399), (480, 481), (1005, 1005))
CHUNK_CODES = _code_ranges((310, 319), (1004, 1004))


@dataclass
class Record:
    """One record: the group 0 that opens it and every pair up to the next group 0."""

    section: str
    container: str  # name of the block or the table that the record stands in, else empty
    tags: List[Tag] = field(default_factory=list)

    @property
    def type(self) -> str:
        return self.tags[0][1] if self.tags[0][0] == 0 else "COMMENT"

    @property
    def handle(self) -> str:
        """The record's own handle in canonical form, or an empty text."""
        if self.type == "SECTION":  # the header holds the next free handle under the same code
            return ""
        wanted = 105 if self.type == "DIMSTYLE" else 5
        in_list = False
        for code, value in self.tags:
            if code == 102:
                in_list = value.startswith("{")
            elif code == wanted and not in_list:
                return canonical_handle(value)
            elif code in (100, 1001):
                break
        return ""

    def first(self, code: int) -> str:
        """Value of the first pair with this code, or an empty text."""
        return next((value for c, value in self.tags if c == code), "")

    def label(self) -> str:
        """Type, name and handle as a person would look for the record."""
        where = f" in {self.container}" if self.container else ""
        name = (
            self.first(2) if self.section in ("TABLES", "BLOCKS") or self.type in ("ATTRIB", "ATTDEF", "INSERT") else ""
        )
        shown = f" {name!r}" if name and name != self.container else ""
        handle = f" #{self.handle}" if self.handle else ""
        return f"{self.type}{handle}{shown}{where}"


def canonical_handle(text: str) -> str:
    return text.strip().upper().lstrip("0") or "0"


def codec_of(version: str, codepage: str) -> str:
    """Python's name of the character set that a file of this version and code page is written in."""
    if version >= "AC1021":
        return "utf-8"
    name = codepage.strip().lower()
    match = re.fullmatch(r"(?:ansi_|dos|ansi|cp)?(\d+)", name)
    codec = f"cp{match.group(1)}" if match else CODEC_ALIASES.get(name, name or "cp1252")
    try:
        b"".decode(codec)
    except LookupError:
        return "latin-1"
    return codec


def read_tags(path: str) -> List[Tag]:
    """All pairs of the file up to and with EOF. Raises DxfError."""
    with open(path, "rb") as file:
        data = file.read()
    if data[:BINARY_START].endswith(BINARY_MARK):
        return _read_binary(path, data)
    return _read_text(path, data)


def _header_value(data: bytes, name: bytes) -> str:
    match = re.search(rb"\n" + re.escape(name) + rb"\r?\n *\d+\r?\n([^\r\n]*)", data[:20000])
    return match.group(1).decode("latin-1") if match else ""


def _read_text(path: str, data: bytes) -> List[Tag]:
    codec = codec_of(_header_value(data, b"$ACADVER"), _header_value(data, b"$DWGCODEPAGE"))
    text = data.decode("utf-8-sig" if codec == "utf-8" else codec, "surrogateescape")
    lines = text.replace("\r\n", "\n").split("\n")
    tags: List[Tag] = []
    for index in range(0, len(lines) - 1, 2):
        try:
            tag = (int(lines[index]), lines[index + 1])
        except ValueError:
            raise DxfError(f"{path}:{index + 1}: {lines[index][:40]!r} is not a group code") from None
        tags.append(tag)
        if tag[0] == 0 and tag[1].strip() == "EOF":
            break
    return tags


def _read_binary(path: str, data: bytes) -> List[Tag]:
    version = re.search(rb"\$ACADVER\x00\x01\x00?(AC\d+)\x00", data[:2000])
    codepage = re.search(rb"\$DWGCODEPAGE\x00\x03\x00?([^\x00]*)\x00", data[:4000])
    short_codes = bool(version) and version.group(1) <= b"AC1009"
    codec = codec_of(
        version.group(1).decode() if version else "", codepage.group(1).decode("latin-1") if codepage else ""
    )
    tags: List[Tag] = []
    at = BINARY_START
    try:
        while not tags or tags[-1] != (0, "EOF"):
            if short_codes and data[at] != 255:
                code, at = data[at], at + 1
            else:
                at += 1 if short_codes else 0
                code, at = struct.unpack_from("<H", data, at)[0], at + 2
            value, at = _binary_value(code, data, at, codec)
            tags.append((code, value))
    except (IndexError, ValueError, struct.error):
        raise DxfError(f"{path}: the file ends or breaks at byte {at}") from None
    return tags


def _binary_value(code: int, data: bytes, at: int, codec: str) -> Tuple[str, int]:
    for codes, layout in (
        (REAL_CODES, "<d"),
        (INT16_CODES, "<h"),
        (INT32_CODES, "<i"),
        (INT64_CODES, "<q"),
        (BYTE_CODES, "<B"),
    ):
        if code in codes:
            return repr(struct.unpack_from(layout, data, at)[0]), at + struct.calcsize(layout)
    if code in CHUNK_CODES:
        end = at + 1 + data[at]
        return data[at + 1 : end].hex().upper(), end
    end = data.index(b"\0", at)
    return data[at:end].decode(codec, "surrogateescape"), end + 1


def records(tags: List[Tag]) -> Iterator[Record]:
    """Cuts the pairs into records; pairs before the first group 0 (comments) make a record of their own."""
    section = container = ""
    current: List[Tag] = []

    def place(record_tags: List[Tag]) -> Record:
        nonlocal section, container
        kind = record_tags[0][1].strip()
        if kind == "SECTION":
            section = next((value for code, value in record_tags if code == 2), "")
        if kind in ("TABLE", "BLOCK"):
            container = next((value for code, value in record_tags if code == 2), "")
        record = Record(section, container, record_tags)
        if kind in ("ENDTAB", "ENDBLK", "ENDSEC"):
            container = ""
        return record

    for tag in tags:
        if tag[0] == 0 and current:
            yield place(current)
            current = []
        current.append(tag)
    if current:
        yield place(current)


def write_tags(tags: List[Tag], codec: str) -> bytes:
    """The text form; what the character set cannot hold is written as \\U+XXXX."""
    return encode_text("".join(f"{code:3d}\n{value}\n" for code, value in tags), codec)


def encode_text(text: str, codec: str) -> bytes:
    out = bytearray()
    for part in re.split(r"([^\x00-\x7f])", text):
        try:
            out += part.encode(codec, "surrogateescape")
        except UnicodeEncodeError:
            units = struct.unpack(f">{len(part.encode('utf-16-be')) // 2}H", part.encode("utf-16-be"))
            out += "".join(f"\\U+{unit:04X}" for unit in units).encode("ascii")
    return bytes(out)


def decode_escapes(text: str) -> str:
    """Replaces \\U+XXXX by the character, pairs of surrogates by the one character they mean."""
    found = re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda m: chr(int(m.group(1), 16)), text)
    return re.sub(
        "[\ud800-\udbff][\udc00-\udfff]",
        lambda m: m.group(0).encode("utf-16-be", "surrogatepass").decode("utf-16-be"),
        found,
    )


def same_value(code: int, a: str, b: str, tolerance: float = 0.0) -> bool:
    """Whether two spellings of a value of this group code mean the same."""
    if a == b:
        return True
    try:
        if code in INTEGER_CODES:
            return int(a) == int(b)
        if code in REAL_CODES:
            x, y = float(a), float(b)
            return x == y or abs(x - y) <= tolerance * max(1.0, abs(x), abs(y))
    except ValueError:
        return a.strip() == b.strip()
    if code in HANDLE_CODES:
        return canonical_handle(a) == canonical_handle(b)
    if code in CHUNK_CODES:
        return a.strip().upper() == b.strip().upper()
    return decode_escapes(a) == decode_escapes(b)
