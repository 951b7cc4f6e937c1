#!/usr/bin/python3
"""Makes random drawings with ezdxf and sends them through the round trip of roundtrip.py.

    generated.py HBHOST --work FOLDER [--seeds FIRST-LAST] [--allow-header NAME]...

The same seed gives the same drawing. Versions alternate from 2000 to 2018, so that twelve seeds make two of each.
"""

import argparse
import random
import sys
from pathlib import Path
from typing import List

import ezdxf
from ezdxf.enums import TextEntityAlignment
from ezdxf.math import Vec3

import roundtrip

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from stable_dxf import document_bytes  # noqa: E402

VERSIONS = ["R2000", "R2004", "R2007", "R2010", "R2013", "R2018"]
WORDS = [
    "door",
    "Türschloß",
    "réducteur",
    "панель",
    "寸法",
    "Ωmega",
    "50%%d",
    "%%c12",
    '3/4"',
    "a,b",
    "it's",
    "\\\\srv\\dir",
    "",
    "  two  blanks ",
    "x" * 200,
    "^I",
    "\\P",
    "{braces}",
]
APP = "HB_INTEROP"


class Maker:
    """One random drawing."""

    def __init__(self, seed: int) -> None:
        self.rng = random.Random(seed)
        self.doc = ezdxf.new(VERSIONS[seed % len(VERSIONS)], setup=True)
        self.doc.header["$INSUNITS"] = self.rng.choice([0, 1, 4, 6])
        self.doc.appids.add(APP)
        # The reader repairs older drawings when a name needs more than the code page, so names there do not.
        self.foreign_name = "слой" if self.doc.dxfversion >= "AC1021" else "Straße"
        self.layers = ["0"]
        self.blocks: List[str] = []

    def number(self, low: float = -1000.0, high: float = 1000.0) -> float:
        return self.rng.choice([self.rng.uniform(low, high), float(self.rng.randint(int(low), int(high))), 0.1 + 0.2])

    def point(self) -> Vec3:
        return Vec3(self.number(), self.number(), self.rng.choice([0.0, self.number()]))

    def word(self) -> str:
        return self.rng.choice(WORDS)

    def style(self, **more) -> dict:
        """Random properties that any entity can have."""
        attribs = {"layer": self.rng.choice(self.layers)}
        if self.rng.random() < 0.4:
            attribs["color"] = self.rng.randint(0, 255)
        if self.rng.random() < 0.2 and self.doc.dxfversion >= "AC1018":
            attribs["true_color"] = self.rng.randrange(1 << 24)
        if self.rng.random() < 0.2:
            attribs["linetype"] = self.rng.choice(["DASHED", "CENTER", "ByBlock"])
        if self.rng.random() < 0.2:
            attribs["lineweight"] = self.rng.choice([-1, 13, 50])
        return {**attribs, **more}

    def make(self):
        self.add_tables()
        for number in range(self.rng.randint(2, 5)):
            self.add_block(f"Block {number} {self.rng.choice(['Tür', 'plain', self.foreign_name])}")
        self.fill(self.doc.modelspace(), self.rng.randint(20, 60))
        self.add_layouts()
        self.add_objects()
        return self.doc

    def add_tables(self) -> None:
        for number in range(self.rng.randint(1, 8)):
            layer = self.doc.layers.add(
                f"Layer {number} {self.rng.choice(['é', self.foreign_name, 'A-WALL', '$0$x'])}",
                color=self.rng.randint(1, 255),
                lineweight=self.rng.choice([-3, 25, 70]),
            )
            self.rng.choice([layer.off, layer.freeze, layer.lock, layer.on])()
            self.layers.append(layer.dxf.name)
        self.doc.styles.add(f"Style {self.rng.randint(1, 9)}", font="isocp.shx")
        self.doc.ucs.new("Turned", dxfattribs={"origin": self.point(), "xaxis": (0, 1, 0), "yaxis": (-1, 0, 0)})
        self.doc.views.new("View", dxfattribs={"center": (1, 2), "height": 20, "width": 30})

    def add_block(self, name: str) -> None:
        block = self.doc.blocks.new(name, base_point=self.point())
        for number in range(self.rng.randint(1, 4)):
            attdef = block.add_attdef(
                f"TAG_{number}",
                self.point(),
                self.word(),
                dxfattribs=self.style(
                    height=2.5,
                    prompt=self.word(),
                    flags=self.rng.choice([0, 1, 2, 4, 8, 9]),
                    rotation=self.number(0, 360),
                ),
            )
            if self.rng.random() < 0.4:
                attdef.set_placement(
                    self.point(),
                    align=self.rng.choice(
                        [TextEntityAlignment.MIDDLE_CENTER, TextEntityAlignment.TOP_RIGHT, TextEntityAlignment.CENTER]
                    ),
                )
        self.fill(block, self.rng.randint(2, 6))
        self.blocks.append(name)

    def fill(self, space, count: int) -> None:
        makers = [self.add_curve, self.add_text, self.add_polyline, self.add_hatch, self.add_spline, self.add_reference]
        for _ in range(count):
            entity = self.rng.choice(makers)(space)
            if entity is not None and self.rng.random() < 0.3:
                self.decorate(entity)
        if space is self.doc.modelspace():
            for _ in range(4):
                space.add_linear_dim(
                    base=self.point(),
                    p1=self.point(),
                    p2=self.point(),
                    angle=self.rng.choice([0, 90]),
                    dimstyle="EZDXF",
                ).render()
            space.add_wipeout([(0, 0), (5, 0), (5, 5), (0, 5)], dxfattribs=self.style())

    def decorate(self, entity) -> None:
        """Extended data, an extension dictionary with a record, a back reference."""
        entity.set_xdata(
            APP,
            [
                (1000, self.word()),
                (1040, self.number()),
                (1070, self.rng.randint(-9, 9)),
                (1010, self.point()),
                (1005, entity.dxf.handle),
                (1002, "{"),
                (1071, 70000),
                (1002, "}"),
            ],
        )
        if self.rng.random() < 0.5:
            record = entity.new_extension_dict().add_xrecord("HB_RECORD")
            record.reset([(1, self.word()), (40, self.number()), (90, -1), (290, 1), (10, self.point()), (330, "0")])
            entity.append_reactor_handle(record.dxf.handle)

    def add_curve(self, space):
        rng, style = self.rng, self.style()
        kind = rng.randrange(7)
        if kind == 0:
            return space.add_line(self.point(), self.point(), dxfattribs=style)
        if kind == 1:
            return space.add_circle(self.point(), rng.uniform(0.1, 50), dxfattribs={**style, "extrusion": (0, 0, -1)})
        if kind == 2:
            return space.add_arc(
                self.point(), rng.uniform(0.1, 50), self.number(0, 360), self.number(0, 360), dxfattribs=style
            )
        if kind == 3:
            return space.add_ellipse(
                self.point(), (rng.uniform(1, 9), rng.uniform(1, 9)), rng.uniform(0.1, 1), dxfattribs=style
            )
        if kind == 4:
            return space.add_ray(self.point(), (0, 1, 0), dxfattribs=style)
        if kind == 5:
            return space.add_xline(self.point(), (1, 0, 0), dxfattribs=style)
        return space.add_point(self.point(), dxfattribs=style)

    def add_text(self, space):
        if self.rng.random() < 0.5:
            return space.add_text(
                self.word(), dxfattribs=self.style(height=self.rng.uniform(0.5, 9), insert=self.point())
            )
        lines = "\\P".join(self.word() for _ in range(self.rng.randint(1, 30)))
        return space.add_mtext(
            lines, dxfattribs=self.style(char_height=2.5, width=self.number(1, 99), insert=self.point())
        )

    def add_polyline(self, space):
        points = [
            (self.number(), self.number(), self.rng.choice([0, 2]), 0, self.rng.uniform(-1, 1))
            for _ in range(self.rng.randint(2, 9))
        ]
        if self.rng.random() < 0.7:
            return space.add_lwpolyline(
                points, close=self.rng.random() < 0.5, dxfattribs=self.style(elevation=self.number())
            )
        return space.add_polyline3d([self.point() for _ in points], dxfattribs=self.style())

    def add_hatch(self, space):
        hatch = space.add_hatch(color=self.rng.randint(1, 9), dxfattribs=self.style())
        if self.rng.random() < 0.5:
            hatch.set_pattern_fill("ANSI31", scale=self.rng.uniform(0.5, 2), angle=self.number(0, 90))
        if self.rng.random() < 0.5:
            hatch.paths.add_polyline_path([(0, 0), (9, 0, 0.5), (9, 9), (0, 9)], is_closed=True)
        else:
            edges = hatch.paths.add_edge_path()
            edges.add_arc((5, 5), 4, 0, 180)
            edges.add_line((1, 5), (9, 5))
        return hatch

    def add_spline(self, space):
        return space.add_open_spline([self.point() for _ in range(self.rng.randint(4, 9))], dxfattribs=self.style())

    def add_reference(self, space):
        if not self.blocks:
            return None
        name = self.rng.choice(self.blocks)
        attribs = self.style(
            xscale=self.rng.choice([1, -1, 2.5]), yscale=self.rng.choice([1, 3]), rotation=self.number(0, 360)
        )
        if self.rng.random() < 0.2:
            attribs.update(row_count=2, column_count=3, row_spacing=self.number(1, 9), column_spacing=self.number(1, 9))
        reference = space.add_blockref(name, self.point(), dxfattribs=attribs)
        reference.add_auto_attribs({attdef.dxf.tag: self.word() for attdef in self.doc.blocks.get(name).attdefs()})
        if self.doc.dxfversion >= "AC1032":
            for attrib in reference.attribs[:1]:
                attrib.embed_mtext(
                    space.add_mtext(
                        "one\\Ptwo \\C1;red\\P" + self.word(),
                        dxfattribs={"insert": self.point(), "char_height": 2.5, "width": 40},
                    )
                )
        return reference

    def add_layouts(self) -> None:
        for number, size in enumerate([(420, 297), (297, 210)]):
            name = "Layout1" if number == 0 else f"Blatt {self.rng.randint(2, 99)} ü"
            layout = self.doc.layouts.get(name) if number == 0 else self.doc.layouts.new(name)
            layout.page_setup(size=size, margins=(5, 5, 5, 5), units="mm")
            layout.add_viewport(
                center=(100, 100), size=(80, 60), view_center_point=(0, 0), view_height=self.rng.uniform(50, 900)
            )
            self.fill(layout, 5)

    def add_objects(self) -> None:
        top = self.doc.rootdict.add_new_dict("HB_INTEROP_DATA")
        inner = top.add_new_dict("inner")
        for number in range(3):
            self.doc.objects.add_xrecord(owner=inner.dxf.handle)
            record = inner.add_xrecord(f"record {number}")
            record.reset(
                [(1, self.word()), (70, number), (310, b"\x00\xff\x80"), (102, "{HB"), (40, self.number()), (102, "}")]
            )
        top.add_dict_var("setting", self.word())
        group = self.doc.groups.new("HB_GROUP", description="some lines")
        group.extend(list(self.doc.modelspace().query("LINE CIRCLE"))[:3])
        self.doc.layers.get("0").set_xdata(APP, [(1000, "on a table record")])


def generate(seed: int, folder: Path) -> Path:
    """Writes the drawing of this seed and returns its path."""
    path = folder / f"generated_{seed:03d}.dxf"
    doc = Maker(seed).make()
    path.write_bytes(document_bytes(doc))
    return path


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    roundtrip.add_arguments(parser)
    parser.add_argument("--seeds", default="0-11", metavar="FIRST-LAST")
    args = parser.parse_args()
    args.work.mkdir(parents=True, exist_ok=True)
    first, _, last = args.seeds.partition("-")
    drawings = [generate(seed, args.work) for seed in range(int(first), int(last or first) + 1)]
    return roundtrip.check_all(args, drawings)


if __name__ == "__main__":
    sys.exit(main())
