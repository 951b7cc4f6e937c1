"""The block definitions of the example office floor. Lengths are millimetres."""

from typing import List, Tuple

from ezdxf.entities import MText
from ezdxf.enums import TextEntityAlignment as Align

INVISIBLE, CONSTANT, VERIFY, PRESET = 1, 2, 4, 8
UNITS_MM = 4

LAYERS = [  # name, colour, line type, line weight in 1/100 mm, state
    ("A-WALL", 7, "Continuous", 50, ""),
    ("A-WALL-PATT", 9, "Continuous", 13, ""),
    ("A-DOOR", 30, "Continuous", 25, ""),
    ("A-GLAZ", 140, "Continuous", 18, ""),
    ("A-FURN", 94, "Continuous", 18, ""),
    ("A-FURN-TEXT", 84, "Continuous", 13, ""),
    ("A-FLOR-STRS", 8, "Continuous", 18, ""),
    ("A-FLOR-SANI", 150, "Continuous", 18, ""),
    ("A-FLOR-PATT", 254, "Continuous", 5, ""),
    ("A-AREA-IDEN", 5, "Continuous", 25, ""),
    ("A-ANNO-DIMS", 1, "Continuous", 18, ""),
    ("A-ANNO-NOTE", 7, "Continuous", 18, ""),
    ("A-ANNO-TTLB", 7, "Continuous", 35, ""),
    ("A-GRID", 8, "CENTER", 13, "locked"),
    ("A-DEMO", 1, "HIDDEN", 18, "frozen"),
    ("E-POWER", 6, "DASHED", 18, "off"),
    ("F-PROT", 1, "Continuous", 25, ""),
    ("L-PLNT", 92, "Continuous", 18, ""),
    ("L-SITE", 8, "DASHDOT", 13, ""),
    ("VIEWPORTS", 8, "Continuous", 5, "no plot"),
]


# Dashes, gaps (negative) and dots in millimetres of paper; $LTSCALE makes them as long in the floor as suits the scales
# of the sheets.
LINETYPES = [
    ("CENTER", "Center ____ _ ____ _ ____", [31.75, -6.35, 6.35, -6.35]),
    ("DASHED", "Dashed __ __ __ __ __ __", [12.7, -6.35]),
    ("DASHDOT", "Dash dot __ . __ . __ . __", [12.7, -6.35, 0, -6.35]),
    ("HIDDEN", "Hidden __ __ __ __ __ __", [6.35, -3.175]),
]


def add_linetypes(doc) -> None:
    for name, description, pattern in LINETYPES:
        if name in doc.linetypes:
            doc.linetypes.remove(name)
        doc.linetypes.add(name, [sum(map(abs, pattern)), *pattern], description=description)


def add_layers(doc) -> None:
    for name, color, linetype, weight, state in LAYERS:
        layer = doc.layers.add(name, color=color, linetype=linetype, lineweight=weight)
        if state == "locked":
            layer.lock()
        elif state == "frozen":
            layer.freeze()
        elif state == "off":
            layer.off()
        elif state == "no plot":
            layer.dxf.plot = 0
    doc.layers.get("A-GLAZ").description = "Verglasung – windows"


def add_styles(doc) -> None:
    doc.styles.add("OFFICE", font="arial.ttf")
    doc.styles.add("OFFICE-BOLD", font="arialbd.ttf")
    doc.styles.add("NARROW", font="isocp.shx", dxfattribs={"width": 0.8})
    style = doc.dimstyles.duplicate_entry("Standard", "OFFICE")
    for name, value in {
        "dimtxt": 220,
        "dimasz": 160,
        "dimexe": 120,
        "dimexo": 150,
        "dimgap": 80,
        "dimtad": 1,
        "dimdec": 0,
        "dimtih": 0,
        "dimtoh": 0,
        "dimtxsty": "OFFICE",
        "dimblk": "ARCHTICK",
        "dimlunit": 2,
        "dimzin": 8,
    }.items():
        style.set_dxf_attrib(name, value)


class BlockMaker:
    """Draws one definition: geometry on layer 0, so that a reference shows in the colour of its own layer."""

    def __init__(self, doc, name: str, text_layer: str, description: str = "") -> None:
        self.block = doc.blocks.new(name)
        self.block.units = UNITS_MM
        if description:
            self.block.block.dxf.description = description
        self.text_layer = text_layer

    def box(self, x: float, y: float, width: float, height: float, **attribs) -> None:
        self.block.add_lwpolyline(
            [(x, y), (x + width, y), (x + width, y + height), (x, y + height)], close=True, dxfattribs=attribs
        )

    def lines(self, *points: Tuple[float, float]) -> None:
        for start, end in zip(points, points[1:]):
            self.block.add_line(start, end)

    def attribute(
        self,
        tag: str,
        at: Tuple[float, float],
        default: str,
        height: float = 120,
        prompt: str = "",
        flags: int = 0,
        align: Align = Align.MIDDLE_CENTER,
        lock: bool = False,
        style: str = "OFFICE",
    ):
        attdef = self.block.add_attdef(
            tag,
            at,
            default,
            dxfattribs={
                "height": height,
                "prompt": prompt or tag.replace("_", " ").capitalize(),
                "flags": flags,
                "style": style,
                "layer": self.text_layer,
                "lock_position": int(lock),
            },
        )
        attdef.set_placement(at, align=align)
        return attdef

    def multiline(
        self,
        tag: str,
        at: Tuple[float, float],
        default: str,
        height: float,
        width: float,
        prompt: str,
        attachment: int = 2,
    ) -> None:
        attdef = self.attribute(tag, at, default, height, prompt)
        attdef.set_mtext(
            new_mtext(
                default,
                insert=at,
                char_height=height,
                width=width,
                attachment_point=attachment,
                style="OFFICE",
                layer=self.text_layer,
            )
        )


def add_blocks(doc) -> None:
    for add in (
        add_room_tag,
        add_doors,
        add_window,
        add_desk,
        add_chair,
        add_workstation,
        add_storage,
        add_sanitary,
        add_meeting,
        add_safety,
        add_axis,
        add_site,
        add_title_block,
        add_configured,
    ):
        add(doc)
    for block in doc.blocks:
        block.update_block_flags()


def add_room_tag(doc) -> None:
    tag = BlockMaker(doc, "ROOM_TAG", "A-AREA-IDEN", "Room number, name, area and occupants")
    tag.box(-750, 250, 1500, 450)
    tag.attribute("NUMBER", (0, 475), "3.00", 280, "Room number", style="OFFICE-BOLD", lock=True)
    tag.attribute("NAME", (0, 80), "Büro", 190, "Room name")
    tag.attribute("AREA", (0, -210), "0.00 m²", 150, "Area in square metres")
    tag.multiline("OCCUPANT", (0, -380), "–", 150, 3000, "Occupants, a line each")
    tag.attribute("PHONE", (0, -900), "+49 30 5550-0", 120, "Telephone", flags=INVISIBLE)
    tag.attribute("DEPARTMENT", (0, -1080), "Entwicklung", 120, "Department", flags=INVISIBLE | PRESET)
    tag.attribute("KEY", (0, -1260), "K0", 120, "Key number", flags=INVISIBLE | VERIFY)
    tag.attribute("FLOOR", (0, -1440), "3. OG", 120, "Floor", flags=INVISIBLE | CONSTANT)


def add_doors(doc) -> None:
    """Hinge at the origin, opening along X, the leaf swings to +Y."""
    for name, width in (("DOOR_900", 900), ("DOOR_1200", 1200)):
        door = BlockMaker(doc, name, "A-DOOR", "Door leaf, swing and number")
        door.box(0, 0, 40, width)
        door.block.add_arc((0, 0), width, 0, 90)
        door.lines((0, 0), (0, -150))
        door.lines((width, 0), (width, -150))
        door.attribute("DOOR_NO", (width / 2, 260), "T00", 130, "Door number")
        door.attribute("FIRE_RATING", (width / 2, 450), "–", 100, "Fire rating", flags=INVISIBLE)
        door.attribute("WIDTH", (width / 2, 600), str(width), 100, "Clear width", flags=INVISIBLE | CONSTANT)


def add_window(doc) -> None:
    """One metre wide and 300 deep; references stretch it along X."""
    window = BlockMaker(doc, "WINDOW", "A-GLAZ", "Window of one metre")
    window.box(0, 0, 1000, 300)
    window.lines((0, 130), (1000, 130))
    window.lines((0, 170), (1000, 170))
    window.attribute("WINDOW_NO", (500, 420), "F00", 120, "Window number", flags=INVISIBLE)
    window.attribute("U_VALUE", (500, 600), "0.9 W/m²K", 100, "U value", flags=INVISIBLE | PRESET)


def add_desk(doc) -> None:
    desk = BlockMaker(doc, "DESK", "A-FURN-TEXT", "Desk 1600 x 800")
    desk.box(-800, -400, 1600, 800)
    desk.box(-780, -380, 400, 600, linetype="HIDDEN")
    desk.attribute("INV_NO", (350, -220), "INV-0000", 110, "Inventory number")
    desk.attribute("MODEL", (350, -60), "Tisch 160×80", 90, "Model", flags=INVISIBLE | CONSTANT)
    desk.attribute("PURCHASED", (350, 60), "2021-04", 90, "Purchased", flags=INVISIBLE | PRESET)


def add_chair(doc) -> None:
    """Seat centre at the origin, the back at -Y."""
    chair = BlockMaker(doc, "CHAIR", "A-FURN-TEXT", "Chair")
    chair.block.add_lwpolyline(
        [(-240, -200, 0, 0, 0), (240, -200, 0, 0, 0.3), (240, 220, 0, 0, 0), (-240, 220, 0, 0, 0.3)],
        format="xyseb",
        close=True,
    )
    chair.block.add_arc((0, 40), 330, 215, 325)
    chair.attribute("INV_NO", (0, 0), "INV-0000", 80, "Inventory number", flags=INVISIBLE)
    chair.attribute("COLOUR", (0, -120), "grau", 80, "Colour", flags=INVISIBLE | VERIFY)


def add_workstation(doc) -> None:
    """Desk and chair as nested references with values of their own, a screen, and the place's attributes."""
    place = BlockMaker(doc, "WORKSTATION", "A-FURN-TEXT", "Desk, chair and screen")
    for name, at, values in (
        ("DESK", (0, 0), {"INV_NO": "Platz", "PURCHASED": "2022-09"}),
        ("CHAIR", (0, -750), {"INV_NO": "Stuhl", "COLOUR": "blau"}),
    ):
        attach(place.block.add_blockref(name, at, dxfattribs={"layer": "A-FURN"}), values)
    place.box(-300, 120, 600, 60)
    place.block.add_line((0, 180), (0, 240))
    place.attribute("PLACE_NO", (350, 20), "P00", 110, "Place number", style="OFFICE-BOLD")
    place.attribute("USER", (0, -520), "", 100, "User", flags=INVISIBLE)
    place.attribute("EXTENSION", (0, -640), "000", 100, "Telephone extension", flags=INVISIBLE)
    place.attribute("PORT", (-350, 300), "D00", 90, "Network port", flags=INVISIBLE, lock=True)


def add_storage(doc) -> None:
    for name, width, depth, rack in (
        ("LOCKER", 300, 500, False),
        ("SHELF", 1000, 400, False),
        ("RACK", 600, 1000, True),
    ):
        unit = BlockMaker(doc, name, "A-FURN-TEXT")
        unit.box(0, 0, width, depth)
        unit.lines((0, 0), (width, depth))
        if rack:
            unit.lines((width, 0), (0, depth))
        unit.attribute("INV_NO", (width / 2, depth / 2), "INV-0000", 90, "Inventory number", flags=INVISIBLE)


def add_sanitary(doc) -> None:
    bowl = BlockMaker(doc, "WC", "A-FLOR-SANI")
    bowl.box(-200, -180, 400, 180)
    bowl.block.add_ellipse((0, -430), (0, 250), 0.72)
    basin = BlockMaker(doc, "BASIN", "A-FLOR-SANI")
    basin.box(-300, -480, 600, 480)
    basin.block.add_ellipse((0, -250), (220, 0), 0.7)
    basin.block.add_circle((0, -250), 25)


def add_meeting(doc) -> None:
    table = BlockMaker(doc, "MEETING_TABLE", "A-FURN-TEXT", "Table for twelve")
    table.block.add_lwpolyline(
        [(-2300, -700, 0.08), (2300, -700, 0.35), (2300, 700, 0.08), (-2300, 700, 0.35)], format="xyb", close=True
    )
    table.attribute("INV_NO", (0, 0), "INV-0000", 140, "Inventory number")
    table.attribute("EQUIPMENT", (0, -220), "Beamer, 4K", 110, "Equipment", flags=INVISIBLE | PRESET)
    sofa = BlockMaker(doc, "SOFA", "A-FURN-TEXT")
    sofa.box(-1000, -400, 2000, 800)
    sofa.box(-850, -400, 1700, 600)
    plant = BlockMaker(doc, "PLANT", "L-PLNT")
    plant.block.add_circle((0, 0), 300)
    for x, y in ((280, 0), (87, 266), (-227, 165), (-227, -165), (87, -266)):
        plant.lines((0, 0), (x, y))


def add_safety(doc) -> None:
    unit = BlockMaker(doc, "EXTINGUISHER", "F-PROT", "Fire extinguisher")
    unit.block.add_circle((0, 0), 150)
    hatch = unit.block.add_hatch(color=1)
    hatch.paths.add_edge_path().add_arc((0, 0), 90, 0, 360)
    unit.attribute("NEXT_CHECK", (0, -290), "2026-01", 110, "Next check", flags=VERIFY)
    unit.attribute("AGENT", (0, -440), "CO₂", 110, "Agent", flags=INVISIBLE)


def add_axis(doc) -> None:
    axis = BlockMaker(doc, "AXIS", "A-GRID", "Grid bubble")
    axis.block.add_circle((0, 0), 450, dxfattribs={"linetype": "Continuous"})
    axis.attribute("AXIS", (0, 0), "A", 420, "Axis", style="OFFICE-BOLD")


def add_site(doc) -> None:
    tree = BlockMaker(doc, "TREE", "L-PLNT", "Tree, crown of two metres")
    tree.block.add_circle((0, 0), 1000)
    tree.block.add_circle((0, 0), 90)
    for angle in range(0, 360, 60):
        tree.block.add_arc((0, 0), 700, angle, angle + 35)
    tree.attribute("SPECIES", (0, 250), "Tilia cordata", 160, "Species", flags=INVISIBLE)
    tree.attribute("PLANTED", (0, -250), "1998", 160, "Year planted", flags=INVISIBLE)
    arrow = BlockMaker(doc, "NORTH", "A-ANNO-NOTE")
    arrow.block.add_circle((0, 0), 900)
    arrow.block.add_solid([(-300, -700), (300, -700), (0, 850), (0, 850)])
    arrow.attribute("NORTH", (0, 1200), "N", 400, flags=CONSTANT)


TITLE_ROWS: List[Tuple[str, float, float, str, int]] = [  # tag, x, y, default, flags
    ("PROJECT", 4, 46, "Project", 0),
    ("TITLE", 4, 28, "Title", 0),
    ("DRAWN", 4, 10, "–", 0),
    ("CHECKED", 42, 10, "–", VERIFY),
    ("DATE", 80, 10, "2024-05-17", PRESET),
    ("SCALE", 118, 10, "1:100", 0),
    ("SHEET", 148, 10, "1", 0),
    ("REV", 166, 10, "A", 0),
]


def add_title_block(doc) -> None:
    """180 x 55 in paper millimetres, the origin at its lower right corner."""
    frame = BlockMaker(doc, "TITLE_BLOCK", "A-ANNO-TTLB", "Title block")
    frame.box(-180, 0, 180, 55)
    frame.lines((-180, 18), (0, 18))
    frame.lines((-180, 37), (-66, 37))
    for x in (-142, -104, -66, -36, -18):
        frame.lines((x, 0), (x, 18))
    frame.lines((-66, 18), (-66, 55))
    for tag, x, y, default, flags in TITLE_ROWS:
        caption = frame.block.add_text(
            tag.capitalize(), dxfattribs={"height": 1.8, "style": "NARROW", "insert": (x - 180, y + 4.5)}
        )
        caption.dxf.layer = "A-ANNO-TTLB"
        size = 4.5 if tag in ("PROJECT", "TITLE") else 2.8
        frame.attribute(tag, (x - 180, y - 3), default, size, flags=flags, align=Align.LEFT, style="OFFICE")
    frame.multiline(
        "ADDRESS", (-63, 52), "Example & Söhne\\PPlanungsbüro", 2.6, 58, "Address of the office", attachment=1
    )
    frame.attribute("COPYRIGHT", (-33, 22), "© Beispielplan", 2.2, flags=CONSTANT)


def add_configured(doc) -> None:
    """A configured table: an anonymous definition that names the one it was made from."""
    doc.appids.add("AcDbBlockRepETag")
    doc.appids.add("AcDbBlockRepBTag")
    base = BlockMaker(doc, "SIDE_TABLE", "A-FURN-TEXT", "Round or long side table")
    base.block.add_circle((0, 0), 400)
    configured = doc.blocks.new_anonymous_block(type_char="U")
    configured.add_ellipse((0, 0), (700, 0), 0.6)
    configured.block_record.set_xdata("AcDbBlockRepBTag", [(1070, 1), (1005, base.block.block_record_handle)])


def attach(reference, values: dict) -> None:
    """Gives the reference its attributes: every attribute of the definition that is not constant."""
    matrix = reference.matrix44()
    turned = reference.dxf.extrusion.z < 0
    for attdef in reference.block().attdefs():
        if attdef.is_const:
            continue
        common = attdef.dxfattribs(drop={"handle", "owner", "prompt", "tag", "text", "insert", "align_point"})
        attrib = reference.add_attrib(attdef.dxf.tag, values.get(attdef.dxf.tag, attdef.dxf.text), (0, 0), common)
        anchor = attdef.dxf.align_point if attdef.dxf.halign or attdef.dxf.valign else attdef.dxf.insert
        at = matrix.transform(anchor)
        scale = abs(reference.dxf.yscale)
        attrib.dxf.update(
            {"height": attdef.dxf.height * scale, "rotation": readable(attdef.dxf.rotation + reference.dxf.rotation)}
        )
        if turned:
            at = (-at.x, at.y, -at.z)
            attrib.dxf.extrusion = (0, 0, -1)
        attrib.dxf.insert = at
        if attdef.dxf.halign or attdef.dxf.valign:
            attrib.dxf.align_point = at
        if attdef.has_embedded_mtext_entity:
            embed(attdef, attrib, values.get(attdef.dxf.tag, attdef.dxf.text), scale)


def embed(attdef, attrib, text: str, scale: float) -> None:
    """Stores a multi-line value. All lines go to the embedded text, the first also to the plain one."""
    source = attdef.virtual_mtext_entity().dxf
    mtext = new_mtext(
        text,
        insert=attrib.dxf.insert,
        char_height=source.char_height * scale,
        width=source.width * scale,
        attachment_point=source.attachment_point,
        style=source.style,
        rotation=attrib.dxf.rotation,
    )
    attrib.set_mtext(mtext, graphic_properties=False)


def new_mtext(text: str, **attribs) -> MText:
    """A text that belongs to no drawing."""
    mtext = MText.new(dxfattribs={"line_spacing_style": 1, "line_spacing_factor": 1.0, **attribs})
    mtext.text = text
    return mtext


def readable(angle: float) -> float:
    """Text never stands on its head: both ends of a line are equally good for centred text."""
    angle %= 360
    return (angle + 180) % 360 if 90.001 < angle < 269.999 else angle
