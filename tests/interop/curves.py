#!/usr/bin/python3
"""Has the library make a drawing with every kind of curve, wipeouts and points, and requires that an independent
reader finds nothing wrong with it, sees the same things in it, and comes to the same lengths and points.

    curves.py CURVES_DRAWING --work FOLDER

Exit status: 0 all are right, 1 some are not.
"""

import argparse
import math
import subprocess
import sys
from collections import Counter
from pathlib import Path
from typing import Callable, Dict, List

import ezdxf
from ezdxf.math import OCS, Vec3, bulge_center, bulge_radius

STEPS = 40000  # of the polygons that stand for curves
TOLERANCE = 1e-6
KINDS = {
    "LINE": 1, "CIRCLE": 1, "ARC": 1, "ELLIPSE": 2, "LWPOLYLINE": 1, "POLYLINE": 2, "SPLINE": 3, "RAY": 1,
    "XLINE": 1, "WIPEOUT": 1, "POINT": 1,
}  # fmt: skip


def on_circle(entity, start: float, end: float) -> List[Vec3]:
    ocs, center = OCS(entity.dxf.extrusion), Vec3(entity.dxf.center)
    angles = (start + (end - start) * i / STEPS for i in range(STEPS + 1))
    return [ocs.to_wcs(center + Vec3.from_angle(angle, entity.dxf.radius)) for angle in angles]


def arc_of(entity) -> List[Vec3]:
    start = math.radians(entity.dxf.start_angle)
    end = math.radians(entity.dxf.end_angle)
    return on_circle(entity, start, end if end > start else end + math.tau)


def ellipse_of(entity) -> List[Vec3]:
    start, end = entity.dxf.start_param, entity.dxf.end_param
    end = end if end > start else end + math.tau
    return list(entity.construction_tool().vertices([start + (end - start) * i / STEPS for i in range(STEPS + 1)]))


def spline_of(entity) -> List[Vec3]:
    curve = entity.construction_tool()
    return list(curve.points([curve.max_t * i / STEPS for i in range(STEPS + 1)]))


def flat_polyline(vertices, closed: bool, place: Callable) -> List[Vec3]:
    """Of (x, y, bulge), as an arc about its centre each."""
    points = []
    pairs = zip(vertices, vertices[1:] + vertices[:1] if closed else vertices[1:])
    for (x1, y1, bulge), (x2, y2, _) in pairs:
        if bulge == 0:
            points += [place(Vec3(x1, y1)), place(Vec3(x2, y2))]
            continue
        center = Vec3(bulge_center((x1, y1), (x2, y2), bulge))
        radius = bulge_radius((x1, y1), (x2, y2), bulge)
        start, sweep = (Vec3(x1, y1) - center).angle, 4 * math.atan(bulge)
        points += [place(center + Vec3.from_angle(start + sweep * i / STEPS, radius)) for i in range(STEPS + 1)]
    return points


def lwpolyline_of(entity) -> List[Vec3]:
    ocs, level = OCS(entity.dxf.extrusion), entity.dxf.elevation
    return flat_polyline(
        list(entity.get_points("xyb")), entity.closed, lambda p: ocs.to_wcs(Vec3(p.x, p.y, level))
    )


def polyline_of(entity) -> List[Vec3]:
    if entity.is_3d_polyline:
        points = [Vec3(vertex.dxf.location) for vertex in entity.vertices]
        return points + points[:1] if entity.is_closed else points
    vertices = [(v.dxf.location.x, v.dxf.location.y, v.dxf.get("bulge", 0)) for v in entity.vertices]
    level = entity.dxf.elevation.z
    return flat_polyline(vertices, entity.is_closed, lambda p: Vec3(p.x, p.y, level))


POLYGONS: Dict[str, Callable] = {
    "LINE": lambda line: [Vec3(line.dxf.start), Vec3(line.dxf.end)],
    "CIRCLE": lambda circle: on_circle(circle, 0, math.tau),
    "ARC": arc_of,
    "ELLIPSE": ellipse_of,
    "LWPOLYLINE": lwpolyline_of,
    "POLYLINE": polyline_of,
    "SPLINE": spline_of,
}


def measure(points: List[Vec3], parts: int = 10):
    """The length of a polygon and the points where it is divided into equal parts, its ends among them."""
    ends = [0.0]
    for before, behind in zip(points, points[1:]):
        ends.append(ends[-1] + before.distance(behind))
    places, at = [], 0
    for i in range(parts + 1):
        wanted = ends[-1] * i / parts
        while at + 2 < len(ends) and ends[at + 1] < wanted:
            at += 1
        step = ends[at + 1] - ends[at]
        places.append(points[at].lerp(points[at + 1], (wanted - ends[at]) / step if step else 0))
    return ends[-1], places


def check_curves(doc, printed: str) -> List[str]:
    faults = []
    for line in printed.splitlines():
        handle, length, *numbers = line.split()
        entity = doc.entitydb[handle]
        if entity.dxftype() == "SPLINE" and not entity.control_points:
            ends = [Vec3(*map(float, numbers[:3])), Vec3(*map(float, numbers[-3:]))]
            if any(not p.isclose(q) for p, q in zip(ends, (entity.fit_points[0], entity.fit_points[-1]))):
                faults.append(f"{entity} does not go from its first point to its last")
            continue
        expected, tenths = measure(POLYGONS[entity.dxftype()](entity))
        if abs(float(length) - expected) > TOLERANCE * expected:
            faults.append(f"{entity} is {expected} long, not {length}")
        for i, place in enumerate(tenths):
            found = Vec3(*map(float, numbers[3 * i : 3 * i + 3]))
            if found.distance(place) > TOLERANCE * expected:
                faults.append(f"{entity} has {place} at {i} tenths, not {found}")
    return faults


def check_others(doc) -> List[str]:
    space = doc.modelspace()
    ray, xline, mask, point = (space.query(kind).first for kind in ("RAY", "XLINE", "WIPEOUT", "POINT"))
    corners = [(1, 1), (5, 1), (5, 3), (2, 4), (1, 1)]
    declared = {each.dxf.name for each in doc.classes}
    wanted = {
        "the kinds": (Counter(entity.dxftype() for entity in space), Counter(KINDS)),
        "the ray": ((Vec3(ray.dxf.start), Vec3(ray.dxf.unit_vector)), (Vec3(1, 2, 3), Vec3(0.6, 0.8, 0))),
        "the construction line": (
            (Vec3(xline.dxf.start), Vec3(xline.dxf.unit_vector)), (Vec3(4, 5, 6), Vec3(0, 0, -1)),
        ),
        "the mask": ([(round(p.x, 9), round(p.y, 9)) for p in mask.boundary_path_wcs()], corners),
        "the options of the mask": (mask.dxf.flags, 7),
        "the frames": (doc.rootdict["ACAD_WIPEOUT_VARS"].dxf.frame, 0),
        "the declared classes": (declared & {"WIPEOUT", "WIPEOUTVARIABLES"}, {"WIPEOUT", "WIPEOUTVARIABLES"}),
        "the point": (Vec3(point.dxf.location), Vec3(7, 8, 9)),
        "the sign of points": ((doc.header["$PDMODE"], doc.header["$PDSIZE"]), (34, 0.5)),
    }  # fmt: skip
    return [f"{name}: {seen}, not {right}" for name, (seen, right) in wanted.items() if seen != right]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", type=Path)
    parser.add_argument("--work", type=Path, required=True)
    options = parser.parse_args()
    options.work.mkdir(parents=True, exist_ok=True)
    drawing = options.work / "curves.dxf"
    run = subprocess.run([options.program, drawing], capture_output=True, text=True, timeout=120, check=True)
    doc = ezdxf.readfile(drawing)
    auditor = doc.audit()
    faults = [str(each.message) for each in auditor.errors + auditor.fixes]
    faults += check_curves(doc, run.stdout) + check_others(doc)
    print("\n".join(faults) or f"{len(run.stdout.splitlines())} curves are as measured")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
