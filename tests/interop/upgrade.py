#!/usr/bin/python3
"""Has hbhost save drawings of releases before 2000 as release 2000, and requires that an independent reader finds
nothing wrong with them and the same in them.

    upgrade.py HBHOST DRAWING... --work FOLDER

Each drawing is tried as it is, and without its handles. Exit status: 0 all are right, 1 some are not.
"""

import argparse
import subprocess
import sys
from pathlib import Path
from typing import Dict, Iterator, List, Tuple

import ezdxf

from compare import plain

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from dxftags import read_tags, records, write_tags  # noqa: E402

SECONDS = 120
OWN_BLOCK_BIT = 32  # of dimensions: newer drawings tell what older ones leave to the name of the block


def without_handles(drawing: Path, work: Path) -> Path:
    """The same drawing as a program writes it that gives no handles."""
    tags = []
    for record in records(read_tags(str(drawing))):
        keeps = record.type in ("SECTION", "DIMSTYLE")
        tags += [tag for tag in record.tags if keeps or tag[0] != 5]
    at = tags.index((9, "$HANDLING")) + 1
    tags[at] = (70, "0")
    path = work / f"{drawing.stem}.nohandles.dxf"
    path.write_bytes(write_tags(tags, "cp1252"))
    return path


def facts(entity) -> Tuple[str, Dict]:
    known = {
        name: value.upper() if name in ("layer", "linetype", "style", "name", "dimstyle") else plain(value)
        for name, value in entity.dxf.all_existing_dxf_attribs().items()
        if name not in ("handle", "owner")
    }
    if entity.dxftype() == "DIMENSION":
        known["dimtype"] |= OWN_BLOCK_BIT
    known["xdata"] = {name: list(map(tuple, tags)) for name, tags in entity.xdata.data.items()} if entity.xdata else {}
    return entity.dxftype(), known


def contents(doc) -> Iterator[Tuple[str, List]]:
    """The entities of each block and layout, parts behind what they belong to."""
    for block in doc.blocks:
        found = []
        for entity in block:
            parts = entity.all_sub_entities() if hasattr(entity, "all_sub_entities") else []
            found += [facts(each) for each in (entity, *parts)]
        name = block.name.upper().replace("$", "*") if block.is_any_layout else block.name.upper()
        yield name, found


def faults(before: Path, after: Path) -> List[str]:
    """Sentences about what is wrong with the new drawing."""
    old, new = ezdxf.readfile(before), ezdxf.readfile(after)
    audit = new.audit()
    lines = [f"{entry.code}: {entry.message}" for entry in (*audit.errors, *audit.fixes)]
    if new.dxfversion != "AC1015":
        lines.append(f"the release is {new.dxfversion}")
    expected, met = dict(contents(old)), dict(contents(new))
    for name in expected.keys() | met.keys():
        a, b = expected.get(name, []), met.get(name, [])
        if len(a) != len(b):
            lines.append(f"block {name}: {len(a)} entities became {len(b)}")
        lines += [f"block {name}: {x} became {y}" for x, y in zip(a, b) if x != y]
    for table in ("layers", "linetypes", "styles", "dimstyles", "appids"):
        lost = {record.dxf.name.upper() for record in getattr(old, table)} - {
            record.dxf.name.upper() for record in getattr(new, table)
        }
        lines += [f"{table}: {name} is lost" for name in sorted(lost)]
    return lines


def check(hbhost: Path, drawing: Path, work: Path) -> bool:
    saved = work / f"{drawing.stem}.2000.dxf"
    run = subprocess.run(
        [hbhost, drawing, "--save-as", saved, "--release", "2000"],
        stdin=subprocess.DEVNULL,
        capture_output=True,
        timeout=SECONDS,
        check=False,
    )
    lines = faults(drawing, saved) if run.returncode == 0 else [run.stderr.decode("utf-8", "replace")]
    if b"saved as a drawing of release 2000" not in run.stderr:
        lines.append("nobody was told")
    print(f"{'right ' if not lines else 'FAILED'}  {drawing.name}")
    for line in lines[:10]:
        print(f"        {line}")
    return not lines


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("hbhost", type=Path, help="the program")
    parser.add_argument("drawings", type=Path, nargs="+")
    parser.add_argument("--work", type=Path, required=True, help="folder for saved drawings")
    args = parser.parse_args()
    sys.stdout.reconfigure(errors="backslashreplace")
    args.work.mkdir(parents=True, exist_ok=True)
    drawings = [each for path in args.drawings for each in (path, without_handles(path, args.work))]
    return 0 if all([check(args.hbhost.resolve(), drawing, args.work) for drawing in drawings]) else 1


if __name__ == "__main__":
    sys.exit(main())
