#!/usr/bin/python3
"""Compares two DXF files group by group and knows nothing about any record type.

    diff_tags.py BEFORE.dxf AFTER.dxf [--allow-header NAME]... [--tolerance REL] [--limit N]

Header variables are matched by name, classes by their record name, every other record by its handle (records without
one by their order). Reported are sections, header variables, classes and records that were lost, added, moved or
changed, with the first differing group. The same value in another spelling ("1.0" and "1.00", a character and its
\\U+XXXX form) is equal. Exit status: 0 equal, 1 different, 2 a file cannot be read.
"""

import argparse
import bisect
import difflib
import sys
from collections import Counter
from pathlib import Path
from typing import Dict, Iterable, List, Sequence, Tuple

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from dxftags import DxfError, Record, Tag, read_tags, records, same_value  # noqa: E402

DIFFLIB_LIMIT = 2000  # groups; aligning longer records costs more than it explains


class Differences:
    """Collects the sentences of a comparison."""

    def __init__(self) -> None:
        self.lines: List[str] = []

    def add(self, kind: str, what: str, detail: str = "") -> None:
        self.lines.append(f"{kind:<8}{what}" + (f": {detail}" if detail else ""))

    def report(self, limit: int) -> int:
        """Prints at most `limit` lines and a summary; returns the exit status."""
        for line in self.lines[:limit]:
            print(line)
        if len(self.lines) > limit:
            print(f"... and {len(self.lines) - limit} more")
        if self.lines:
            counts = Counter(line.split()[0] for line in self.lines)
            print("  ".join(f"{kind} {count}" for kind, count in sorted(counts.items())))
        return 1 if self.lines else 0


def load(path: str) -> Dict[tuple, Record]:
    """Records by key, in file order. The header becomes one entry for each variable."""
    table: Dict[tuple, Record] = {}
    seen: Counter = Counter()
    for record in records(read_tags(path)):
        if record.type == "SECTION" and record.section == "HEADER":
            entries = header_entries(record)
        else:
            entries = [(record_key(record), record)]
        for key, entry in entries:
            seen[key] += 1
            table[key + (seen[key],)] = entry
    return table


def record_key(record: Record) -> tuple:
    if record.handle:
        return ("handle", record.handle)
    if record.type == "CLASS":
        return ("class", record.first(1))
    return ("record", record.section, record.container, record.type)


def header_entries(header: Record) -> List[Tuple[tuple, Record]]:
    """One entry for each variable, under its name, and one for what precedes the first."""
    entries: List[Tuple[tuple, Record]] = [(("header", "start"), Record("HEADER", "", []))]
    for tag in header.tags:
        if tag[0] == 9:
            entries.append((("header", tag[1].strip()), Record("HEADER", "", [])))
        entries[-1][1].tags.append(tag)
    return entries


def same_tag(a: Tag, b: Tag, tolerance: float) -> bool:
    return a[0] == b[0] and same_value(a[0], a[1], b[1], tolerance)


def explain(a: Sequence[Tag], b: Sequence[Tag], tolerance: float) -> str:
    """The first difference between two lists of groups, or an empty text when they mean the same."""
    if len(a) == len(b) and all(map(lambda x, y: same_tag(x, y, tolerance), a, b)):
        return ""
    if Counter(a) == Counter(b):
        return "the same groups in another order"
    if max(len(a), len(b)) <= DIFFLIB_LIMIT:
        for op, a1, a2, b1, b2 in difflib.SequenceMatcher(None, a, b, autojunk=False).get_opcodes():
            differs = a2 - a1 != b2 - b1 or not all(same_tag(x, y, tolerance) for x, y in zip(a[a1:a2], b[b1:b2]))
            if op != "equal" and differs:
                return f"group number {a1 + 1}: {show(a[a1:a2])} -> {show(b[b1:b2])}"
    at = next((i for i, (x, y) in enumerate(zip(a, b)) if not same_tag(x, y, tolerance)), min(len(a), len(b)))
    return f"group number {at + 1}: {show(a[at:at + 1])} -> {show(b[at:at + 1])}"


def show(tags: Sequence[Tag]) -> str:
    if not tags:
        return "nothing"
    shown = ", ".join(f"{code} {value[:60]!r}" for code, value in tags[:4])
    return shown + (f" and {len(tags) - 4} more" if len(tags) > 4 else "")


def label(key: tuple, record: Record) -> str:
    if key[0] == "header":
        return f"header variable {key[1]}"
    if key[0] == "class":
        return f"CLASS {key[1]}"
    if record.type == "SECTION":
        return f"SECTION {record.section}"
    return record.label() + (f" in section {record.section}" if key[0] == "record" else "")


def moved(before: Iterable[tuple], after: Iterable[tuple]) -> List[tuple]:
    """Keys that stand in another place, judged by the longest run of common order."""
    place = {key: at for at, key in enumerate(after)}
    kept = longest_increasing([(place[key], key) for key in before if key in place])
    return [key for key in before if key in place and key not in kept]


def longest_increasing(pairs: List[Tuple[int, tuple]]) -> set:
    """Keys of a longest subsequence with rising places (patience sorting)."""
    tops: List[int] = []
    top_at: List[int] = []
    previous: List[int] = []
    for at, (place, _) in enumerate(pairs):
        pile = bisect.bisect_left(tops, place)
        previous.append(top_at[pile - 1] if pile else -1)
        tops[pile : pile + 1] = [place]
        top_at[pile : pile + 1] = [at]
    kept = set()
    at = top_at[-1] if top_at else -1
    while at >= 0:
        kept.add(pairs[at][1])
        at = previous[at]
    return kept


def compare(before: str, after: str, allow_header: Iterable[str] = (), tolerance: float = 0.0) -> Differences:
    """All differences between two files. Raises DxfError for an unreadable one."""
    old, new = load(before), load(after)
    allowed = {("header", name) for name in allow_header}
    found = Differences()
    for key, record in old.items():
        if key[:2] in allowed:
            continue
        if key not in new:
            found.add("lost", label(key, record))
            continue
        other = new[key]
        if (record.section, record.container) != (other.section, other.container):
            found.add(
                "moved", label(key, record), f"{record.section} {record.container} -> {other.section} {other.container}"
            )
        if record.tags != other.tags:
            reason = explain(record.tags, other.tags, tolerance)
            if reason:
                found.add("changed", label(key, record), reason)
    for key, record in new.items():
        if key not in old and key[:2] not in allowed:
            found.add("added", label(key, record))
    for key in moved(list(old), list(new)):
        found.add("moved", label(key, old[key]), "stands in another place of the file")
    return found


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("before")
    parser.add_argument("after")
    parser.add_argument(
        "--allow-header", action="append", default=[], metavar="NAME", help="header variable that may differ"
    )
    parser.add_argument("--tolerance", type=float, default=0.0, help="relative tolerance of reals")
    parser.add_argument("--limit", type=int, default=60, help="lines to print")
    args = parser.parse_args()
    try:
        return compare(args.before, args.after, args.allow_header, args.tolerance).report(args.limit)
    except (DxfError, OSError) as error:
        print(f"diff_tags: {error}", file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
