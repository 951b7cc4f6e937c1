#!/usr/bin/python3
"""Makes wipeouts in a tilted coordinate system, of a polyline, and requires that an independent reader finds
nothing wrong with the drawing and sees the same boundaries, options and frames.

    wipeout.py HBHOST --work FOLDER

Exit status: 0 all are right, 1 some are not.
"""

import argparse
import subprocess
import sys
from pathlib import Path
from typing import List

import ezdxf
from ezdxf.math import OCS, UCS, Vec3

SCRIPT = """Wipeout
1,1,2
5,1
5,4
2,6
Close
Wipeout

handle {square}
Yes
Wipeout
Frames
ON
"""
SQUARE = [(0, 0), (3, 0), (3, 3), (0, 3)]


def faults_of(mask, expected: List[Vec3]) -> List[str]:
    seen = list(mask.boundary_path_wcs())
    faults = [] if mask.dxf.flags == 7 else [f"{mask} has the options {mask.dxf.flags}"]
    expected = expected + expected[:1]
    if len(seen) != len(expected) or any(not a.isclose(b, abs_tol=1e-9) for a, b in zip(seen, expected)):
        faults.append(f"{mask} has the boundary {seen}, not {expected}")
    return faults


def check(hbhost: Path, work: Path, release: str) -> List[str]:
    doc = ezdxf.new(release)
    space = doc.modelspace()
    ucs = UCS((10, 20, 30), ux=(2, 1, 0), uz=(1, -2, 2))
    doc.header["$UCSORG"], doc.header["$UCSXDIR"], doc.header["$UCSYDIR"] = ucs.origin, ucs.ux, ucs.uy
    normal = Vec3(0, -1, 1).normalize()
    square = space.add_lwpolyline(SQUARE, close=True, dxfattribs={"elevation": 4, "extrusion": normal})
    source, result = work / f"{release}.dxf", work / f"{release}_masked.dxf"
    doc.saveas(source)
    command = [hbhost, source, "--script", "-", "--save-as", result]
    subprocess.run(command, input=SCRIPT.format(square=square.dxf.handle), text=True, timeout=60, check=True)

    masked = ezdxf.readfile(result)
    auditor = masked.audit()
    faults = [str(each.message) for each in auditor.errors + auditor.fixes]
    kinds = [entity.dxftype() for entity in masked.modelspace()]
    if kinds != ["WIPEOUT", "WIPEOUT"]:
        return faults + [f"the drawing holds {kinds}"]
    first, second = masked.modelspace()
    faults += faults_of(first, [ucs.to_wcs(Vec3(x, y, 2)) for x, y in ((1, 1), (5, 1), (5, 4), (2, 6))])
    faults += faults_of(second, [OCS(normal).to_wcs(Vec3(x, y, 4)) for x, y in SQUARE])
    if masked.rootdict["ACAD_WIPEOUT_VARS"].dxf.frame != 1:
        faults.append("the frames are not shown")
    missing = {"WIPEOUT", "WIPEOUTVARIABLES"} - {each.dxf.name for each in masked.classes}
    return faults + [f"the class {name} is not declared" for name in sorted(missing)]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("hbhost", type=Path)
    parser.add_argument("--work", type=Path, required=True)
    options = parser.parse_args()
    options.work.mkdir(parents=True, exist_ok=True)
    faults = [each for release in ("R2000", "R2018") for each in check(options.hbhost, options.work, release)]
    print("\n".join(faults) or "all wipeouts are as drawn")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
