"""A drawing of release 12: no subclass markers, no owners, no objects; polylines and attributes as sequences."""

import ezdxf

from dxftags import write_tags
from stable_dxf import codec_for, stored_tags


def old_drawing() -> bytes:
    """The whole file."""
    doc = ezdxf.new("R12")
    doc.header["$HANDLING"] = 1
    doc.layers.add("WALLS", color=1)
    doc.layers.add("HIDDEN_PARTS", color=3).off()
    doc.linetypes.add("DASHED", [0.75, 0.5, -0.25], description="Dashed __ __")
    doc.styles.add("NOTES", font="txt")
    doc.appids.add("HB_TEST")
    room = doc.blocks.new("ROOM_TAG")
    room.add_circle((0, 0), 4)
    for row, tag in enumerate(("NUMBER", "NAME", "AREA")):
        room.add_attdef(tag, (0, -3 * row), "?", dxfattribs={"height": 2.5, "prompt": f"{tag}?", "style": "NOTES"})
    room.update_block_flags()
    space = doc.modelspace()
    for number, (name, area) in enumerate((("Büro", "23.76 m²"), ("Archiv", "8.10 m²"), ("Flur", "40 m²"))):
        add_room(space, 20 * number, {"NUMBER": f"1.0{number + 1}", "NAME": name, "AREA": area})
    add_geometry(space)
    doc.layout("Layout1").add_text("sheet 1", dxfattribs={"insert": (10, 10), "height": 4})
    return write_tags(stored_tags(doc), codec_for(doc))


def add_room(space, x: float, values: dict) -> None:
    reference = space.add_blockref("ROOM_TAG", (x, 0), dxfattribs={"layer": "WALLS", "rotation": x})
    for row, (tag, text) in enumerate(values.items()):
        reference.add_attrib(tag, text, (x, -3 * row), {"height": 2.5, "style": "NOTES", "flags": row & 1})
    reference.set_xdata("HB_TEST", [(1000, "extended"), (1070, 7)])


def add_geometry(space) -> None:
    """One of each kind that the release knows."""
    space.add_line((0, 0, 1), (100, 0, 1), dxfattribs={"linetype": "DASHED", "color": 2})
    space.add_point((5, 5))
    space.add_arc((10, 10), 5, 30, 120, dxfattribs={"thickness": 2})
    space.add_solid([(0, 0), (5, 0), (0, 5), (5, 5)])
    space.add_trace([(0, 0), (5, 0), (0, 5), (5, 5)])
    space.add_3dface([(0, 0, 0), (5, 0, 0), (5, 5, 1), (0, 5, 1)])
    space.add_text("plain °C", dxfattribs={"insert": (0, 30), "height": 3, "layer": "HIDDEN_PARTS"})
    space.add_polyline2d([(0, 0, 0, 0, 0.5), (50, 0, 1, 1, 0), (50, 40, 0, 0, 0)], format="xyseb", close=True)
    space.add_polyline3d([(0, 0, 0), (1, 2, 3), (4, 5, 6)])
    space.add_polymesh((3, 2))
    space.add_polyface().append_faces([[(0, 0, 0), (1, 0, 0), (1, 1, 0)], [(0, 0, 0), (1, 1, 0), (0, 1, 1)]])
    space.add_linear_dim(base=(0, 60), p1=(0, 0), p2=(50, 0), dimstyle="STANDARD").render()
    space.add_blockref("ROOM_TAG", (0, 90), dxfattribs={"column_count": 3, "column_spacing": 15})
