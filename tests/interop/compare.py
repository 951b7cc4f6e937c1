#!/usr/bin/python3
"""Compares two DXF files as an independent reader, ezdxf, understands them.

    compare.py BEFORE.dxf AFTER.dxf [--allow-header NAME]... [--tolerance REL] [--limit N]

Compared are header variables, classes, tables, the order of the entities in every block and layout, the tree of named
dictionaries, sections without a meaning of their own, and of every entity, table record and object: each attribute
that the reader knows by name, embedded multi-line texts, extended data, application data, reactors, the extension
dictionary, and all groups that the reader would write itself. Exit status: 0 equal, 1 different, 2 unreadable.
"""

import argparse
import logging
import sys
from typing import Any, Dict, Iterable, List, Set

import ezdxf
import ezdxf.recover
from ezdxf.entities import DXFEntity, DXFTagStorage
from ezdxf.lldxf.const import LATEST_DXF_VERSION, DXFError
from ezdxf.lldxf.tagwriter import TagCollector
from ezdxf.math import Vec2, Vec3

from diff_tags import Differences
from dxftags import DxfError, canonical_handle, decode_escapes, read_tags, records

Facts = Dict[str, Any]  # what is known about one thing, by the name of the property
# The reader makes these up while it loads a drawing.
INVENTED_VARIABLES = {"$TDCREATE", "$FINGERPRINTGUID", "$VERSIONGUID"}
GROUPS = "groups"  # the property that repeats all others; reported only when it alone differs


def load(path: str):
    """The drawing; a damaged one goes through the reader's repair. Raises DXFError or OSError."""
    logging.getLogger("ezdxf").setLevel(logging.CRITICAL)
    try:
        return ezdxf.readfile(path)
    except (DXFError, KeyError, ValueError, UnicodeError):
        try:
            return ezdxf.recover.readfile(path)[0]
        except Exception as error:  # the reader's repair stops with whatever it stumbles over
            raise DXFError(f"{path}: {type(error).__name__}: {error}") from error


def plain(value: Any) -> Any:
    """The value in a form that compares and prints exactly."""
    if isinstance(value, (Vec2, Vec3)):
        return tuple(value)
    if isinstance(value, str) and "\\U+" in value:  # newer drawings come out of the reader with their escapes
        return decode_escapes(value)
    if isinstance(value, (bytes, bytearray)):
        return bytes(value).hex()
    if isinstance(value, (list, tuple)):
        return [plain(item) for item in value]
    return value


def plain_tags(tags: Iterable) -> List[tuple]:
    return [(tag[0], plain(tag[1])) for tag in tags]


def entity_facts(entity: DXFEntity) -> Facts:
    facts: Facts = {"type": entity.dxftype()}
    for name, value in entity.dxf.all_existing_dxf_attribs().items():
        facts[name] = plain(value)
    if entity.reactors:
        facts["reactors"] = entity.reactors.get()
    if entity.has_extension_dict:
        facts["extension dictionary"] = entity.extension_dict.handle
    for title, store in (("application data", entity.appdata), ("extended data", entity.xdata)):
        if store:
            facts.update({f"{title} {name}": plain_tags(tags) for name, tags in store.data.items()})
    embedded = getattr(entity, "_embedded_mtext", None)
    if embedded:
        facts["embedded text"] = embedded.text
        facts.update({f"embedded {k}": plain(v) for k, v in embedded.dxf.all_existing_dxf_attribs().items()})
    facts[GROUPS] = written_groups(entity)
    return facts


def written_groups(entity: DXFEntity) -> List[tuple]:
    known = plain_tags(entity.base_class) if isinstance(entity, DXFTagStorage) else []
    try:
        return known + plain_tags(TagCollector.dxftags(entity, LATEST_DXF_VERSION))
    except Exception:  # the reader refuses to write damaged entities; their attributes are compared all the same
        return known


def stored_handles(path: str, doc) -> Set[str]:
    """Handles of the entities that stand in the file; the reader adds what it misses under handles of its own."""
    if doc.loaded_dxfversion < "AC1015":  # where a handle may be absent, the reader's own counts
        return set(doc.entitydb.keys())
    in_file = {record.handle for record in records(read_tags(path))}
    return {handle for handle in doc.entitydb.keys() if canonical_handle(handle) in in_file}


def drawing_facts(path: str) -> Dict[str, Facts]:
    """Everything the reader knows about the drawing, by the name a person would look for."""
    doc = load(path)
    stored = stored_handles(path, doc)
    facts: Dict[str, Facts] = {
        f"header variable {name}": {"value": plain(var.tag)}
        for name, var in doc.header.hdrvars.items()
        if name not in INVENTED_VARIABLES
    }
    facts["custom properties"] = dict(enumerate(doc.header.custom_vars.properties))
    facts.update({f"class {name} {cpp}": plain_attribs(cls) for (name, cpp), cls in doc.classes.classes.items()})
    facts.update(
        {
            f"section {rows[0][1][1]}": {"rows": [plain_tags(row) for row in rows]}
            for rows in (section.entities for section in doc.stored_sections)
        }
    )
    facts["section ACDSDATA"] = {"rows": [written_groups(row) for row in doc.acdsdata.entities]}
    for table in (
        doc.layers,
        doc.linetypes,
        doc.styles,
        doc.dimstyles,
        doc.ucs,
        doc.appids,
        doc.views,
        doc.block_records,
    ):
        facts[f"table {table.TABLE_TYPE}"] = {"order": [record.dxf.name for record in table]}
    entities = {handle: entity_facts(entity) for handle, entity in doc.entitydb.items() if handle in stored}
    add_places(doc, facts, entities)
    facts.update({f"#{handle}": known for handle, known in entities.items()})
    facts["dictionaries"] = dictionary_tree(doc.rootdict, "")
    return facts


def plain_attribs(entity: DXFEntity) -> Facts:
    return {name: plain(value) for name, value in entity.dxf.all_existing_dxf_attribs().items()}


def add_places(doc, facts: Dict[str, Facts], entities: Dict[str, Facts]) -> None:
    """Where each entity stands: order in the block or layout, parts of a reference or polyline."""
    for block in doc.blocks:
        facts[f"block {block.name}"] = {"order": [entity.dxf.handle for entity in block]}
        for entity in block:
            mine = entities.get(entity.dxf.handle, {})
            mine["block"] = block.name
            if hasattr(entity, "all_sub_entities"):
                mine["parts"] = [part.dxf.handle for part in entity.all_sub_entities() if part.dxf.handle in entities]
    for layout in doc.layouts:
        facts[f"layout {layout.name}"] = {"block": layout.layout_key, "order": layout.dxf.get("taborder")}


def dictionary_tree(dictionary, path: str) -> Facts:
    tree: Facts = {}
    for name, item in dictionary.items():
        where = f"{path}/{name}"
        if isinstance(item, str):  # an entry whose object is missing
            tree[where] = item
            continue
        tree[where] = f"{item.dxftype()} #{item.dxf.handle}"
        if item.dxftype() == "DICTIONARY" and item.dxf.owner == dictionary.dxf.handle:
            tree.update(dictionary_tree(item, where))
    return tree


def same(a: Any, b: Any, tolerance: float) -> bool:
    if isinstance(a, (list, tuple)) and isinstance(b, (list, tuple)):
        return len(a) == len(b) and all(same(x, y, tolerance) for x, y in zip(a, b))
    if isinstance(a, float) and isinstance(b, float):
        return a == b or abs(a - b) <= tolerance * max(1.0, abs(a), abs(b)) or (a != a and b != b)
    return a == b


def show(a: Any, b: Any) -> str:
    """Both values, lists from the first place where they differ."""
    if isinstance(a, list) and isinstance(b, list):
        at = next((i for i, (x, y) in enumerate(zip(a, b)) if not same(x, y, 0.0)), min(len(a), len(b)))
        return f"at {at}: {repr(a[at:at + 3])[:120]} -> {repr(b[at:at + 3])[:120]}"
    return f"{repr(a)[:120]} -> {repr(b)[:120]}"


def compare_facts(name: str, a: Facts, b: Facts, tolerance: float, found: Differences) -> None:
    title = f"{a.get('type', '')} {name}".strip()
    names = [n for n in dict.fromkeys([*a, *b]) if not same(a.get(n), b.get(n), tolerance)]
    for changed in [n for n in names if n != GROUPS] or names:
        found.add("changed", title, f"{changed}: {show(a.get(changed), b.get(changed))}")


def compare(before: str, after: str, allow_header: Iterable[str] = (), tolerance: float = 0.0) -> Differences:
    """All differences between two files. Raises DXFError or DxfError for an unreadable one."""
    old, new = drawing_facts(before), drawing_facts(after)
    allowed = {f"header variable {name}" for name in allow_header}
    found = Differences()
    for name, facts in old.items():
        if name in allowed:
            continue
        if name in new:
            compare_facts(name, facts, new[name], tolerance, found)
        else:
            found.add("lost", f"{facts.get('type', '')} {name}".strip())
    for name, facts in new.items():
        if name not in old and name not in allowed:
            found.add("added", f"{facts.get('type', '')} {name}".strip())
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
    except (DXFError, DxfError, OSError) as error:
        print(f"compare: {error}", file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
