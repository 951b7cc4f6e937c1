#!/usr/bin/python3
"""Draws rays and construction lines in every way there is, in several coordinate systems of drawings that an independent
library made, and requires that this library finds nothing wrong with the results and comes to the same places.

    construct.py HBHOST --work FOLDER

Exit status: 0 all are right, 1 some are not.
"""

import argparse
import math
import random
import subprocess
import sys
from pathlib import Path
from typing import List

import ezdxf
from ezdxf.math import UCS, Vec3

TOLERANCE = 1e-9
SYSTEMS = {
    "world": UCS(),
    "turned": UCS((10, -4, 2), Vec3.from_deg_angle(33), Vec3.from_deg_angle(123)),
    "tilted": UCS((1, 2, 3), ux=(2, 1, 0), uz=(-1, 2, 2)),
    "below": UCS(ux=(1, 0, 0), uy=(0, -1, 0)),
}
RELEASES = ["R2000", "R2018"]


class Line:
    """A ray or construction line."""

    def __init__(self, kind: str, base: Vec3, direction: Vec3):
        self.kind, self.base, self.direction = kind, Vec3(base), Vec3(direction).normalize()

    def __str__(self) -> str:
        return f"{self.kind} {self.base.round(9)} {self.direction.round(9)}"

    def is_close_to(self, other: "Line") -> bool:
        apart = max(self.base.distance(other.base), self.direction.distance(other.direction))
        return self.kind == other.kind and apart <= TOLERANCE * (1 + self.base.magnitude)


class Script:
    """The lines that a user types, in coordinates of the system, and what they are to draw."""

    def __init__(self, system: UCS, seed: str):
        self.system, self.rng = system, random.Random(seed)
        self.lines: List[str] = []
        self.expected: List[Line] = []

    def place(self) -> Vec3:
        return Vec3(*(self.rng.uniform(-50, 50) for _ in range(3)))

    def flat(self) -> Vec3:
        return self.place().replace(z=0)

    def type(self, *answers) -> None:
        for answer in answers:
            typed = isinstance(answer, Vec3)
            self.lines.append(",".join(map(repr, answer.xyz)) if typed else str(answer))

    def expect(self, kind: str, base: Vec3, direction: Vec3) -> None:
        self.expected.append(Line(kind, self.system.to_wcs(base), self.system.direction_to_wcs(direction)))

    def through_start(self, command: str, kind: str) -> None:
        start, ends = self.place(), [self.place() for _ in range(3)]
        self.type(command, start, *ends, start, "")
        for end in ends:
            self.expect(kind, start, end - start)

    def along_axes(self) -> None:
        for mode, direction in (("Hor", Vec3(1, 0)), ("Ver", Vec3(0, 1))):
            place = self.place()
            self.type("XLINE", mode, place, "")
            self.expect("XLINE", place, direction)

    def at_angle(self) -> None:
        angle, place = self.rng.uniform(-360, 360), self.place()
        self.type("XLINE", "Ang", angle, place, "")
        self.expect("XLINE", place, Vec3.from_deg_angle(angle))

    def bisectors(self) -> None:
        # By the mean of the two angles; they differ by less than half a turn.
        vertex, first = self.flat(), self.rng.uniform(0, 360)
        turns = [self.rng.uniform(-179, 179) for _ in range(4)]
        self.type("XLINE", "Bisect", vertex, vertex + Vec3.from_deg_angle(first, self.rng.uniform(1, 99)))
        for turn in turns:
            self.type(vertex + Vec3.from_deg_angle(first + turn, self.rng.uniform(1, 99)))
            self.expect("XLINE", vertex, Vec3.from_deg_angle(first + turn / 2))
        self.type("")

    def beside(self, handle: str, base: Vec3, direction: Vec3) -> None:
        """In every way that begins with a line object, which is given in world coordinates."""
        base, direction = self.system.from_wcs(base), self.system.direction_from_wcs(direction).normalize()
        seen = math.degrees(math.atan2(direction.y, direction.x))
        turn, distance, place = self.rng.uniform(-180, 180), self.rng.uniform(0.1, 50), self.place()
        self.type("XLINE", "Ang", "Reference", f"handle {handle}", turn, place, "")
        self.expect("XLINE", place, Vec3.from_deg_angle(seen + turn))
        self.type("XLINE", "Offset", "Through", f"handle {handle}", place, "")
        self.expect("XLINE", place, Vec3.from_deg_angle(seen))
        self.type("XLINE", "Offset", distance)
        for side in (self.flat(), self.flat()):
            self.type(f"handle {handle}", side)
            off = (side - base).dot(Vec3.from_deg_angle(seen + 90))
            self.expect("XLINE", base + Vec3.from_deg_angle(seen + 90) * math.copysign(distance, off), direction)
        self.type("")


def add_objects(space):
    """Line objects: each with a point on it and its direction."""
    start, end = Vec3(3, 1, 2), Vec3(-4, 7, 5)
    yield space.add_line(start, end), start, end - start
    yield space.add_ray(end, Vec3(1, -2, 2).normalize()), end, Vec3(1, -2, 2)
    yield space.add_xline(start, Vec3(0, -1, 0)), start, Vec3(0, -1, 0)
    attributes = {"elevation": 3.0, "extrusion": Vec3(0, -1, 0)}
    polyline = space.add_lwpolyline([(1, 2), (5, -1)], dxfattribs=attributes)
    first, second = polyline.ocs().points_to_wcs(polyline.vertices_in_ocs())
    yield polyline, first, second - first


def check(hbhost: Path, work: Path, release: str, name: str) -> List[str]:
    system = SYSTEMS[name]
    source, result = work / f"{release}_{name}.dxf", work / f"{release}_{name}_drawn.dxf"
    doc = ezdxf.new(release)
    doc.header["$UCSORG"], doc.header["$UCSXDIR"], doc.header["$UCSYDIR"] = system.origin, system.ux, system.uy
    doc.layers.add("AXES", color=3)
    doc.header["$CLAYER"] = "AXES"
    script = Script(system, name)
    objects = list(add_objects(doc.modelspace()))
    script.through_start("Ray", "RAY")
    script.through_start("XLINE", "XLINE")
    script.along_axes()
    script.at_angle()
    script.bisectors()
    for entity, base, direction in objects:
        script.beside(entity.dxf.handle, base, direction)
    doc.saveas(source)
    command = [hbhost, source, "--script", "-", "--save-as", result]
    subprocess.run(command, input="\n".join(script.lines) + "\n", text=True, timeout=120, check=True)

    drawn = ezdxf.readfile(result)
    auditor = drawn.audit()
    faults = [str(each.message) for each in auditor.errors + auditor.fixes]
    entities = list(drawn.modelspace())[len(objects) :]
    found = [Line(each.dxftype(), each.dxf.start, each.dxf.unit_vector) for each in entities]
    if len(found) != len(script.expected):
        faults.append(f"there are {len(found)} lines, not {len(script.expected)}")
    for line, right in zip(found, script.expected):
        if not line.is_close_to(right):
            faults.append(f"{line} should be {right}")
    faults += [f"{each} is not on the current layer" for each in entities if each.dxf.layer != "AXES"]
    return [f"{result}: {fault}" for fault in faults]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("hbhost", type=Path)
    parser.add_argument("--work", type=Path, required=True)
    options = parser.parse_args()
    options.work.mkdir(parents=True, exist_ok=True)
    faults = []
    for release in RELEASES:
        for name in SYSTEMS:
            faults += check(options.hbhost, options.work, release, name)
    print("\n".join(faults) or "all rays and construction lines are where they should be")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
