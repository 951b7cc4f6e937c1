#!/usr/bin/python3
"""Shows that compare.py and diff_tags.py notice what they must and nothing else.

    selftest.py DRAWING --work FOLDER

DRAWING is the richest of the small examples. Copies of it, each damaged in one way, must be told apart from it by both
scripts (by diff_tags.py alone where the reader behind compare.py looks away); copies that say the same in other words
must be equal. Exit status: 0 all as required, 1 otherwise.
"""

import argparse
import contextlib
import io
import sys
from pathlib import Path
from typing import Callable, Dict, List, Optional

import ezdxf

import compare
import diff_tags
from diff_tags import Record, Tag, read_tags, records
from dxftags import INTEGER_CODES, REAL_CODES, write_tags
from generated import generate

Edit = Callable[[List[Record]], None]


def find(all_records: List[Record], kind: str, text: str = "", group: Optional[Tag] = None) -> int:
    """Place of the first record of this type that holds the text and the group."""
    for at, record in enumerate(all_records):
        if (
            record.type == kind
            and any(text in value for _, value in record.tags)
            and (not group or group in record.tags)
        ):
            return at
    raise LookupError(f"the drawing has no {kind} with {text!r} and {group}")


def change(kind: str, code: int, old: str, new: str, text: str = "") -> Edit:
    def edit(all_records: List[Record]) -> None:
        record = all_records[find(all_records, kind, text, (code, old))]
        record.tags[record.tags.index((code, old))] = (code, new)

    return edit


def drop_groups(kind: str, first: Tag, count: int, text: str = "") -> Edit:
    def edit(all_records: List[Record]) -> None:
        record = all_records[find(all_records, kind, text, first)]
        at = record.tags.index(first)
        del record.tags[at : at + count]

    return edit


def drop_record(kind: str, text: str = "") -> Edit:
    def edit(all_records: List[Record]) -> None:
        del all_records[find(all_records, kind, text)]

    return edit


def add_copy(kind: str, handle: str) -> Edit:
    def edit(all_records: List[Record]) -> None:
        at = find(all_records, kind)
        original = all_records[at]
        tags = [(5, handle) if tag[0] == 5 else tag for tag in original.tags]
        all_records.insert(at + 1, Record(original.section, original.container, tags))

    return edit


def swap_records(kind: str, other: str) -> Edit:
    def edit(all_records: List[Record]) -> None:
        a, b = find(all_records, kind), find(all_records, other)
        all_records[a], all_records[b] = all_records[b], all_records[a]

    return edit


def swap_groups(kind: str, first: Tag) -> Edit:
    def edit(all_records: List[Record]) -> None:
        tags = all_records[find(all_records, kind, group=first)].tags
        at = tags.index(first)
        tags[at], tags[at + 1] = tags[at + 1], tags[at]

    return edit


def drop_section(name: str) -> Edit:
    def edit(all_records: List[Record]) -> None:
        all_records[:] = [record for record in all_records if record.section != name or record.type == "EOF"]

    return edit


SEEN_BY_BOTH: Dict[str, Edit] = {
    "a value": change("ATTRIB", 1, "A-1", "A-9"),
    "one letter of a value": change("ATTRIB", 1, "Δοκιμή", "Δοκιμη"),
    "a tag's case": change("ATTRIB", 2, "nr", "Nr"),
    "a mode": change("ATTRIB", 70, "0", "8", "A-1"),
    "a place in the last digit": change("ATTRIB", 10, "10.0", "10.000000000000002", "A-1"),
    "second point": change("ATTRIB", 11, "15.0", "16.0", "Δοκιμή"),
    "lines after the first": change("ATTRIB", 1, "Zeile 1\\PLine two: {\\C1;red} ½\\PСтрока 3", "Zeile 1"),
    "the embedded width": change("ATTRIB", 41, "40.0", "41.0", "Zeile 1"),
    "an attribute": drop_record("ATTRIB", "A-2"),
    "another attribute more": add_copy("ATTRIB", "FFF0"),
    "a prompt": change("ATTDEF", 3, "Wert für NR?", "Wert?"),
    "extended data, all": drop_groups("ATTRIB", (1001, "HB_TEST"), 2),
    "extended data, one value": change("INSERT", 1070, "-5", "5"),
    "extended data of a layer": change("LAYER", 1071, "123456", "123457"),
    "back references": drop_groups("INSERT", (102, "{ACAD_REACTORS"), 3),
    "extension dictionary": drop_groups("INSERT", (102, "{ACAD_XDICTIONARY"), 3),
    "application data": change("INSERT", 1, "application data", "application Data"),
    "a record in a dictionary": change("XRECORD", 40, "0.1", "0.1000000001"),
    "an entry's name": change("DICTIONARY", 3, "Größe", "Grösse"),
    "a dictionary variable": drop_record("DICTIONARYVAR", "A3"),
    "a member of a group": drop_groups("GROUP", (340, "D9B071D01A0CB600"), 1, "zwei Teile"),
    "an unknown entity": drop_record("HB_MARKER"),
    "a group of an unknown entity": change("HB_MARKER", 160, "9007199254740993", "9007199254740992"),
    "the second of two equal groups": drop_groups("HB_MARKER", (1, "second text under the same group"), 1),
    "an unknown object": change("HB_RECORD", 1, "Größe", ""),
    "an unknown section": drop_section("HB_NOTES"),
    "a value in an unknown section": change("HB_NOTE", 40, "1.50", "1.51"),
    "a class": drop_record("CLASS", "HB_MARKER"),
    "a flag of a class": change("CLASS", 90, "1153", "1152", "HB_MARKER"),
    "a header variable": change("SECTION", 70, "4", "5", "$INSUNITS"),
    "an unknown header variable": drop_groups("SECTION", (9, "$HB_TEXT"), 2),
    "a property of the drawing": change("SECTION", 1, "Wert", "wert", "$CUSTOMPROPERTY"),
    "a layer's colour": change("LAYER", 62, "-3", "3", "off"),
    "a text style's font": change("STYLE", 3, "arial.ttf", "Arial.ttf"),
    "a line type's dash": change("LTYPE", 49, "6.35", "6.3", "HIDDEN"),
    "a turned system": change("UCS", 10, "1.0", "1.5", "turned"),
    "a definition's base point": change("BLOCK", 10, "1.0", "0.0", "Teil Ä"),
    "a corner of a polyline": change("LWPOLYLINE", 42, "0.5", "0.4"),
    "a corner of a 3D polyline": change("VERTEX", 20, "2.0", "2.5"),
    "a hatch's edge": change("HATCH", 20, "10.0", "11.0", "AcDbHatch"),
    "a view on the sheet": change("VIEWPORT", 45, "120.0", "121.0"),
    "a sheet's size": change("LAYOUT", 44, "210.0", "211.0", "Layout1"),
    "a sheet's name": change("LAYOUT", 1, "Blatt 2", "Blatt 3"),
    "rows of an array": change("INSERT", 71, "2", "1", "15.5"),
    "an extrusion": change("INSERT", 230, "-1.0", "1.0"),
    "the order of entities": swap_records("TEXT", "MTEXT"),
    "a large handle": change("SEQEND", 5, "D9B071D01A0CB607", "FFF1"),
}

SEEN_BY_TAGS: Dict[str, Edit] = {
    "an attribute's owner": change("ATTRIB", 330, "D9B071D01A0CB600", "17", "A-1"),
    "the order of groups": swap_groups("ATTRIB", (40, "2.5")),
    "a comment": drop_groups("SECTION", (999, "a comment between records"), 1),
    "the time of creation": change("SECTION", 40, "2451545.0", "2451546.0", "$TDCREATE"),
    "the table's own count": change("TABLE", 70, "7", "9", "LAYER"),
}


def reals_with_more_zeros(all_records: List[Record]) -> None:
    for record in all_records:
        record.tags[:] = [
            (code, value + "00" if code in REAL_CODES and "." in value and "e" not in value else value)
            for code, value in record.tags
        ]


def padded_integers(all_records: List[Record]) -> None:
    for record in all_records:
        record.tags[:] = [(code, f"{value:>6}" if code in INTEGER_CODES else value) for code, value in record.tags]


EQUAL: Dict[str, Edit] = {
    "the same file": lambda all_records: None,
    "reals with more zeros": reals_with_more_zeros,
    "padded integers": padded_integers,
    "an escaped character": change("ATTRIB", 1, "Ünïcödé 日本", "Ünïcödé \\U+65E5\\U+672C"),
}


class Report:
    def __init__(self) -> None:
        self.failures = 0
        self.checks = 0

    def require(self, what: str, before: Path, after: Path, script, different: bool, allow_header=()) -> None:
        self.checks += 1
        lines = script.compare(str(before), str(after), allow_header).lines
        if bool(lines) != different:
            self.failures += 1
            print(f"FAILED  {script.__name__}: {what}: {'not noticed' if different else lines[:3]}")


def edited(drawing: Path, edit: Edit, path: Path) -> Path:
    all_records = list(records(read_tags(str(drawing))))
    edit(all_records)
    path.write_bytes(write_tags([tag for record in all_records for tag in record.tags], "utf-8"))
    return path


def check_edits(report: Report, drawing: Path, work: Path) -> None:
    copy = work / "edited.dxf"
    for table, different, scripts in (
        (SEEN_BY_BOTH, True, (compare, diff_tags)),
        (SEEN_BY_TAGS, True, (diff_tags,)),
        (EQUAL, False, (compare, diff_tags)),
    ):
        for what, edit in table.items():
            edited(drawing, edit, copy)
            for script in scripts:
                report.require(what, drawing, copy, script, different)
    copy.write_bytes(drawing.read_bytes().replace(b"\n", b"\r\n"))
    report.require("other line ends", drawing, copy, diff_tags, False)


def check_forms(report: Report, work: Path) -> None:
    """A drawing that the reader saves again as text and in the binary form stays the same to both scripts."""
    source = generate(5, work)
    text, binary = work / "again.dxf", work / "again_binary.dxf"
    ezdxf.readfile(source).saveas(text)
    ezdxf.readfile(text).saveas(binary, fmt="bin")
    seed = ["$HANDSEED"]  # the reader spends handles while it loads
    report.require("saved again", source, text, compare, False, seed)
    report.require("text and binary form", text, binary, compare, False, seed)
    report.require("text and binary form", text, binary, diff_tags, False, seed)


def check_exit_status(report: Report, drawing: Path, work: Path) -> None:
    """What scripts and people rely on: 0 equal, 1 different, 2 unreadable."""
    copy = edited(drawing, SEEN_BY_BOTH["a value"], work / "edited.dxf")
    broken = work / "broken.dxf"
    broken.write_bytes(b"0\nSECTION\nnot a code\n")
    for other, expected in ((drawing, 0), (copy, 1), (broken, 2)):
        for script in (compare, diff_tags):
            sys.argv = [script.__name__, str(drawing), str(other), "--limit", "0"]
            report.checks += 1
            with contextlib.redirect_stdout(io.StringIO()), contextlib.redirect_stderr(io.StringIO()):
                status = script.main()
            if status != expected:
                report.failures += 1
                print(f"FAILED  {script.__name__}: exit status {status} instead of {expected}")


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("drawing", type=Path)
    parser.add_argument("--work", type=Path, required=True, help="folder for the copies")
    args = parser.parse_args()
    args.work.mkdir(parents=True, exist_ok=True)
    report = Report()
    check_edits(report, args.drawing, args.work)
    check_forms(report, args.work)
    check_exit_status(report, args.drawing, args.work)
    print(f"{report.checks - report.failures} of {report.checks} checks as required")
    return 1 if report.failures else 0


if __name__ == "__main__":
    sys.exit(main())
