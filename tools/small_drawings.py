"""Tiny drawings, one of each version, that hold a little of everything a program must not lose."""

from typing import List

import ezdxf
from ezdxf.entities import DXFTagStorage
from ezdxf.enums import TextEntityAlignment as Align
from ezdxf.lldxf.extendedtags import ExtendedTags
from ezdxf.lldxf.tags import Tags

from dxftags import HANDLE_CODES, Tag, write_tags
from office_blocks import new_mtext
from stable_dxf import codec_for, document_tags

APP = "HB_TEST"
VERSIONS = ["R2000", "R2004", "R2007", "R2010", "R2013", "R2018"]
FIRST_LARGE_HANDLE = 0xD9B071D01A0CB600
MULTILINE = "Zeile 1\\PLine two: {\\C1;red} ½\\PСтрока 3"
UNKNOWN_ENTITY = """0
HB_MARKER
5
{handle}
102
{{HB_PRIVATE
70
7
102
}}
330
{owner}
100
AcDbEntity
8
0
62
3
100
HbMarkerBase
10
1.5
20
-2.25
30
0.0
40
3.25
290
1
160
9007199254740993
310
00FF80
310
C0FFEE
100
HbMarker
90
-70000
1
Zwölf ‰
1
second text under the same group
"""
UNKNOWN_OBJECT = """0
HB_RECORD
5
{handle}
330
{owner}
100
HbRecord
70
3
40
0.1
340
{linked}
330
{linked}
1
Größe
"""
SECTION = [
    (0, "SECTION"),
    (2, "HB_NOTES"),
    (70, "1"),
    (0, "HB_NOTE"),
    (1, "kept as it stands"),
    (40, "1.50"),
    (0, "HB_NOTE"),
    (1, "second"),
    (310, "DEADBEEF"),
    (0, "ENDSEC"),
]
PREVIEW = [(0, "SECTION"), (2, "THUMBNAILIMAGE"), (90, "8"), (310, "0011223344556677"), (0, "ENDSEC")]


def small_drawing(release: str) -> bytes:
    """The whole file for one release, for instance R2000."""
    doc = ezdxf.new(release)
    doc.header["$INSUNITS"] = 4
    doc.header["$DIMSTYLE"] = "Standard"  # the library names one that it does not make
    doc.header["$LASTSAVEDBY"] = "tester"
    doc.header.custom_vars.append("Schlüssel", "Wert")
    add_tables(doc)
    add_definitions(doc)
    references = add_references(doc)
    add_links(doc, references)
    add_unknown(doc, references[0])
    add_sheet(doc)
    tags = document_tags(doc)
    if release == "R2010":
        tags[-1:] = PREVIEW + tags[-1:]
    if release in ("R2013", "R2018"):
        tags = enlarge_handles(tags, references[0])
    return write_tags(add_oddities(tags), codec_for(doc))


def add_tables(doc) -> None:
    doc.appids.add(APP)
    doc.layers.add("Wände", color=1, lineweight=35)
    doc.layers.add("off", color=3).off()
    doc.layers.add("frozen", color=4).freeze()
    doc.layers.add("locked", color=5).lock()
    doc.layers.add("VIEWPORTS")  # where the library puts the sheets as viewports show them
    doc.layers.get("Wände").set_xdata(APP, [(1000, "on a layer"), (1071, 123456)])
    doc.linetypes.add("HIDDEN", [9.525, 6.35, -3.175], description="Hidden __ __")
    doc.styles.add("NOTES", font="arial.ttf", dxfattribs={"width": 0.9, "oblique": 10})
    doc.ucs.new("turned", dxfattribs={"origin": (1, 2, 0), "xaxis": (0, 1, 0), "yaxis": (-1, 0, 0)})


def add_definitions(doc) -> None:
    part = doc.blocks.new("Teil Ä", base_point=(1, 1))
    part.block.dxf.description = "a part, 50% of it"
    part.add_line((0, 0), (10, 0))
    part.add_lwpolyline(
        [(0, 0), (10, 0, 0.5), (10, 5), (0, 5)], format="xyb", close=True, dxfattribs={"linetype": "HIDDEN"}
    )
    for tag, text, attribs in (
        ("NR", "1", {}),
        ("nr", "lower case", {"flags": 1}),
        ("ΚΩΔ", "θ", {"layer": "Wände"}),
        ("FIX", "constant", {"flags": 2}),
        ("CHECK", "%%d %%c", {"flags": 4 | 8, "rotation": 15}),
        ("LOCKED", "日本", {"lock_position": 1}),
        ("NOTE", "one", {}),
    ):
        part.add_attdef(
            tag,
            (1, -3 * len(part)),
            text,
            dxfattribs={"height": 2.5, "prompt": f"Wert für {tag}?", "style": "NOTES", **attribs},
        )
    centred = part.get_attdef("ΚΩΔ")
    centred.set_placement((5, 2.5), align=Align.MIDDLE_CENTER)
    make_multiline(part.get_attdef("NOTE"), MULTILINE, kind=4)
    outer = doc.blocks.new("OUTER")
    nested = outer.add_blockref("Teil Ä", (3, 3))
    nested.add_attrib("NR", "nested", (4, 4), {"height": 2.5})
    outer.add_attdef("OUTER_NR", (0, -4), "7", dxfattribs={"height": 2, "prompt": "Outer"})
    for block in (part, outer):
        block.update_block_flags()


def make_multiline(attribute, text: str, kind: int) -> None:
    """Stores a value of several lines the way the drawing's version does it; kind 2 is an attribute, 4 a definition."""
    at = attribute.dxf.insert
    if attribute.doc.dxfversion >= "AC1032":
        attribute.set_mtext(new_mtext(text, insert=at, char_height=2.5, width=40, attachment_point=1, style="NOTES"))
        attribute.dxf.text = ""  # other programs leave it empty, too: the value is in the embedded text alone
        return
    tag = attribute.dxf.tag
    attribute.dxf.text = text.split("\\P")[0]
    record = attribute.new_extension_dict().add_xrecord("ACAD_MLATT")
    record.reset(
        [
            (70, kind),
            (70, 0),
            (70, 0),
            (40, 1.0),
            (2, tag),
            (1, "Embedded Object"),
            (10, at),
            (40, 2.5),
            (41, 40.0),
            (46, 0.0),
            (71, 1),
            (72, 5),
            (1, text),
            (7, "NOTES"),
            (73, 1),
            (44, 1.0),
        ]
    )
    record.set_reactors([record.dxf.owner])
    if kind == 2:
        attribute.dxf.tag = f"{tag}_001"


def add_references(doc) -> List:
    space = doc.modelspace()
    plain = space.add_blockref("Teil Ä", (10, 10), dxfattribs={"layer": "Wände"})
    values = {
        "NR": "A-1",
        "nr": "Ünïcödé 日本",
        "ΚΩΔ": "Δοκιμή",
        "CHECK": "a, \"b\" 'c' \\ d ^ e",
        "LOCKED": "",
        "NOTE": "one",
    }
    add_attributes(plain, values)
    turned = space.add_blockref(
        "Teil Ä", (40, 10), dxfattribs={"xscale": -2, "yscale": 1.5, "rotation": 30, "color": 2}
    )
    add_attributes(turned, {"NR": "A-2", "OBSOLETE": "a tag that the definition has no longer"})
    array = space.add_blockref(
        "Teil Ä", (0, 60), dxfattribs={"row_count": 2, "column_count": 3, "row_spacing": 20, "column_spacing": 15.5}
    )
    add_attributes(array, {"NR": "A-3"})
    below = space.add_blockref("Teil Ä", (-70, 10), dxfattribs={"extrusion": (0, 0, -1)})
    outer = space.add_blockref("OUTER", (100, 0))
    add_attributes(outer, {"OUTER_NR": "O-1"})
    space.add_text("plain °C \\U+00B2", dxfattribs={"insert": (0, -20), "height": 3, "layer": "off"})
    space.add_mtext(
        "wrapped {\\fArial|b1;bold}\\P" + "long text " * 40,
        dxfattribs={"insert": (0, -30), "width": 80, "char_height": 3},
    )
    hatch = space.add_hatch(color=3)
    hatch.paths.add_polyline_path([(60, 0), (70, 0, 0.5), (70, 10), (60, 10)], is_closed=True)
    space.add_polyline3d([(0, 0, 0), (1, 2, 3), (4, 5, 6)], dxfattribs={"layer": "locked"})
    return [plain, turned, array, below, outer]


def add_attributes(reference, values: dict) -> None:
    base = reference.dxf.insert
    for number, (tag, text) in enumerate(values.items()):
        flags = 1 if tag == "nr" else 0
        attrib = reference.add_attrib(
            tag, text, (base.x, base.y - 3 * number, 0), {"height": 2.5, "style": "NOTES", "flags": flags}
        )
        if tag == "ΚΩΔ":
            attrib.set_placement((base.x + 5, base.y), align=Align.MIDDLE_CENTER)
        if tag == "NOTE":
            make_multiline(attrib, MULTILINE, kind=2)


def add_links(doc, references) -> None:
    """Extended data, extension dictionaries, back references, a group and a tree of dictionaries."""
    plain, turned = references[:2]
    plain.set_xdata(
        APP,
        [
            (1000, "Text ß"),
            (1002, "{"),
            (1070, -5),
            (1040, 2.5),
            (1010, (1, 2, 3)),
            (1005, turned.dxf.handle),
            (1004, b"\x01\xfe"),
            (1003, "Wände"),
            (1002, "}"),
        ],
    )
    plain.attribs[0].set_xdata(APP, [(1000, "on an attribute")])
    record = plain.new_extension_dict().add_xrecord("HB_DATA")
    record.reset(
        [
            (1, "first"),
            (1, "second"),
            (70, 5),
            (40, 0.1),
            (10, (1, 2, 3)),
            (290, 1),
            (330, turned.dxf.handle),
            (310, b"\x00\x80"),
        ]
    )
    plain.append_reactor_handle(record.dxf.handle)
    turned.append_reactor_handle(plain.dxf.handle)
    turned.set_app_data("HB_APP", [(70, 1), (1, "application data")])
    group = doc.groups.new("PAIR", description="zwei Teile")
    group.extend([plain, turned])
    tree = doc.rootdict.add_new_dict("HB_TREE")
    tree.add_new_dict("Ebene 2").add_dict_var("value", "42")
    tree.add_dict_var("Größe", "A3")


def add_unknown(doc, reference) -> None:
    """An entity and an object of types that nobody knows."""
    for name, cpp, is_entity in (("HB_MARKER", "HbMarker", 1), ("HB_RECORD", "HbRecord", 0)):
        unknown = ezdxf.entities.DXFClass.new(
            dxfattribs={
                "name": name,
                "cpp_class_name": cpp,
                "app_name": "HbTest|a program nobody has",
                "flags": 1153,
                "was_a_proxy": 0,
                "is_an_entity": is_entity,
            }
        )
        doc.classes.register(unknown)
    space = doc.modelspace()
    entity = load_unknown(doc, UNKNOWN_ENTITY.format(handle=doc.entitydb.next_handle(), owner=space.layout_key))
    space.add_entity(entity)
    tree = doc.rootdict["HB_TREE"]
    record = load_unknown(
        doc,
        UNKNOWN_OBJECT.format(handle=doc.entitydb.next_handle(), owner=tree.dxf.handle, linked=reference.dxf.handle),
    )
    doc.objects.add_object(record)
    tree["UNKNOWN"] = record


def load_unknown(doc, text: str):
    entity = DXFTagStorage.load(ExtendedTags(Tags.from_text(text)), doc)
    doc.entitydb.add(entity)
    return entity


def add_sheet(doc) -> None:
    sheet = doc.layouts.get("Layout1")
    sheet.page_setup(size=(210, 148), margins=(5, 5, 5, 5), units="mm", device="None", name="ISO_A5")
    sheet.add_viewport(
        center=(100, 70), size=(120, 80), view_center_point=(30, 20), view_height=120, dxfattribs={"layer": "0"}
    )
    sheet.add_line((0, 0), (200, 0))
    add_attributes(sheet.add_blockref("Teil Ä", (20, 20)), {"NR": "P-1"})
    doc.layouts.new("Blatt 2").add_text("auf Blatt 2", dxfattribs={"insert": (10, 10), "height": 4})


def enlarge_handles(tags: List[Tag], reference) -> List[Tag]:
    """Gives a reference and its attributes handles that need all 64 bits."""
    small = [reference.dxf.handle, *(part.dxf.handle for part in reference.all_sub_entities())]
    large = {handle: f"{FIRST_LARGE_HANDLE + at:X}" for at, handle in enumerate(small)}
    tags = [(code, large.get(value, value)) if code in HANDLE_CODES else (code, value) for code, value in tags]
    seed = tags.index((9, "$HANDSEED")) + 1
    tags[seed] = (5, f"{FIRST_LARGE_HANDLE + 0x100:X}")
    return tags


def add_oddities(tags: List[Tag]) -> List[Tag]:
    """Comments, a header variable and a section that no program knows."""
    end_of_header = tags.index((0, "ENDSEC"))
    first_entity = tags.index((2, "ENTITIES")) + 1
    return [
        (999, "a comment before everything"),
        *tags[:end_of_header],
        (9, "$HB_CUSTOM"),
        (70, "     5"),
        (9, "$HB_TEXT"),
        (1, "eigener Wert"),
        *tags[end_of_header:first_entity],
        (999, "a comment between records"),
        *tags[first_entity:-1],
        *SECTION,
        tags[-1],
    ]
