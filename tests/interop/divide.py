#!/usr/bin/python3
"""Divides every kind of curve of a drawing that an independent library made, by points and by blocks, and requires that
this library finds nothing wrong with the result and comes to the same places and directions.

    divide.py HBHOST --work FOLDER

Exit status: 0 all are right, 1 some are not.
"""

import argparse
import math
import subprocess
import sys
from pathlib import Path
from typing import List

import ezdxf
from ezdxf.math import Vec3

from curves import POLYGONS, TOLERANCE, measure

ANGLE_TOLERANCE = 1.0  # degrees: a polygon turns in steps


def draw_curves(space) -> List:
    tilted = {"extrusion": Vec3(1, 2, 2).normalize()}
    waves = [(i, 3 * math.sin(i * 1.3), math.cos(i)) for i in range(9)]
    curves = [
        space.add_line((1, 2, 3), (-4, 7, 1)),
        space.add_circle((3, 3, 3), 2.5, tilted),
        space.add_arc((5, 0), 4, 200, 20),
        space.add_arc((1, 2, 3), 0.02, 10, 350, dxfattribs={"extrusion": (0, 0, -1)}),
        space.add_ellipse((1, 1, 1), (6, 2, 0), ratio=0.3),
        space.add_ellipse((0, 0), (0, 0, 600), 0.01, 0.5, 4, dxfattribs={"extrusion": (0, 1, 0)}),
        space.add_polyline3d(waves),
        space.add_polyline3d(waves, close=True),
        space.add_open_spline(waves),
        space.add_open_spline(waves + waves[:1]),
        space.add_spline(),
    ]
    curves[-1].set_open_rational(waves, [1 + 0.4 * (i % 3) for i in range(9)], degree=4)
    for closed, attributes in ((False, {}), (True, {"elevation": 2.0, **tilted})):
        corners = [(math.cos(i) * 9, math.sin(i) * 9, i * 0.3 - 0.7) for i in range(6)]
        curves.append(space.add_lwpolyline(corners, format="xyb", close=closed, dxfattribs=attributes))
    return curves


def places_on(polygon: List[Vec3], parts: int):
    """The length, and the places with their directions where a curve is to be marked."""
    shares = 1000  # of a part: the way to the first of them tells the direction
    length, ends = measure(polygon, parts * shares)
    is_closed = polygon[0].isclose(polygon[-1], abs_tol=1e-9 * length)
    first = 0 if is_closed else 1
    places = zip(ends[::shares], ends[1::shares])
    return length, [(place, behind - place) for place, behind in places][first:parts]


def turn_of(direction: Vec3) -> float:
    """From the X axis about the Z axis, in degrees."""
    angle = Vec3(1, 0, 0).angle_between(direction)
    return math.degrees(math.tau - angle if direction.y < 0 else angle)


def faults_of(curve, length: float, expected, marks, is_aligned: bool) -> List[str]:
    faults = [] if len(marks) == len(expected) else [f"{curve} has {len(marks)} marks, not {len(expected)}"]
    for mark, (place, direction) in zip(marks, expected):
        is_point = mark.dxftype() == "POINT"
        found = Vec3(mark.dxf.location if is_point else mark.dxf.insert)
        if not found.distance(place) <= TOLERANCE * length:
            faults.append(f"{curve} is marked at {found}, not at {place}")
        if is_point:
            continue
        off = abs(mark.dxf.rotation - (turn_of(direction) if is_aligned else 0)) % 360
        if min(off, 360 - off) > ANGLE_TOLERANCE:
            faults.append(f"{mark} at {place} on {curve} is turned by {mark.dxf.rotation}")
        if mark.dxf.name != "TICK" or mark.attribs:
            faults.append(f"{mark} on {curve} is no plain reference of TICK")
    return faults


def check(hbhost: Path, work: Path) -> List[str]:
    doc = ezdxf.new("R2018")
    tick = doc.blocks.new("TICK")
    tick.add_line((0, 0), (0, 1))
    tick.add_attdef("NUMBER", (0, 0))
    curves = draw_curves(doc.modelspace())
    source, result = work / "curves.dxf", work / "divided.dxf"
    doc.saveas(source)
    ways = [(["{}"], 7, False), (["b", "tick", "y", "{}"], 13, True), (["b", "tick", "", "{}"], 4, False)]
    lines = []
    for curve in curves:
        for answers, parts, _ in ways:
            lines += ["Divide", f"handle {curve.dxf.handle}"] + [answer.format(parts) for answer in answers]
    command = [hbhost, source, "--script", "-", "--save-as", result]
    subprocess.run(command, input="\n".join(lines), text=True, timeout=120, check=True)

    divided = ezdxf.readfile(result)
    auditor = divided.audit()
    faults = [str(each.message) for each in auditor.errors + auditor.fixes]
    marks = list(divided.modelspace())[len(curves) :]
    for curve in curves:
        polygon = POLYGONS[curve.dxftype()](curve)
        for _, parts, is_aligned in ways:
            length, expected = places_on(polygon, parts)
            faults += faults_of(curve, length, expected, marks[: len(expected)], is_aligned)
            marks = marks[len(expected) :]
    return faults + [f"{mark} is one too many" for mark in marks]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("hbhost", type=Path)
    parser.add_argument("--work", type=Path, required=True)
    options = parser.parse_args()
    options.work.mkdir(parents=True, exist_ok=True)
    faults = check(options.hbhost, options.work)
    print("\n".join(faults) or "all curves are divided as measured")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
