#!/usr/bin/python3
"""Writes the example drawings. The same bytes come out every time.

    make_examples.py FOLDER           writes office.dxf and those of small/ into the folder
    make_examples.py --check FOLDER   compares with what is there and writes nothing into it

A drawing that differs under --check is left in the current folder as NAME.out. Exit status: 0 written or equal,
1 some drawing differs.
"""

import argparse
import sys
from pathlib import Path
from typing import Dict

from office_plan import office
from old_drawing import old_drawing
from small_drawings import VERSIONS, small_drawing
from stable_dxf import document_bytes


def drawings() -> Dict[str, bytes]:
    """Every example by its path below the folder."""
    made = {"office.dxf": document_bytes(office())}
    made["small/old_r12.dxf"] = old_drawing()
    made.update({f"small/rich_{release.lower()}.dxf": small_drawing(release) for release in VERSIONS})
    return made


def check(folder: Path, made: Dict[str, bytes]) -> int:
    wrong = [
        name for name, data in made.items() if not (folder / name).is_file() or (folder / name).read_bytes() != data
    ]
    for name in wrong:
        out = Path(Path(name).name + ".out")
        out.write_bytes(made[name])
        print(f"{folder / name} is not what the generator makes; that stands in {out.resolve()}")
    return 1 if wrong else 0


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=Path)
    parser.add_argument("--check", action="store_true", help="compare instead of writing")
    args = parser.parse_args()
    made = drawings()
    if args.check:
        return check(args.folder, made)
    for name, data in made.items():
        path = args.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        print(f"{path}: {len(data)} bytes")
    return 0


if __name__ == "__main__":
    sys.exit(main())
