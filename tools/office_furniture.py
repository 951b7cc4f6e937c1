"""What stands in the rooms of the example office floor, one function for each kind of room. Lengths are millimetres."""

from ezdxf.enums import TextEntityAlignment as Align

from office_rooms import CORRIDOR, LENGTH, OUTER, SOUTH, Room


def window_side(room: Room, distance: float) -> float:
    return room.y0 + distance if room.y0 == SOUTH[0] else room.y1 - distance


def furnish_office(office, room: Room) -> None:
    y = window_side(room, 1500)
    office.seat(room, room.x0 + 1500, y, -90)
    office.chair(room.x0 + 2400, y, 90)
    shelves(office, room, 2)
    office.place(
        "PLANT", room.x1 - 500, window_side(room, 500), "L-PLNT", xscale=0.8, yscale=0.8, zscale=0.8, rotation=20
    )


def furnish_double(office, room: Room) -> None:
    y = window_side(room, 1600)
    office.seat(room, room.middle - 400, y, -90)
    office.seat(room, room.middle + 400, y, 90)
    shelves(office, room, 2)
    attribs = {"layer": "A-FURN", "rotation": 30, "xscale": 0.6, "yscale": 0.6, "zscale": 0.6}
    office.space.add_blockref("*U1", (room.x1 - 900, window_side(room, 600)), dxfattribs=attribs)


def furnish_team(office, room: Room) -> None:
    for row in (1200, 2850):
        y = window_side(room, row)
        office.seat(room, room.middle - 400, y, -90)
        office.seat(room, room.middle + 400, y, 90)
    shelves(office, room, 3)


def shelves(office, room: Room, count: int) -> None:
    """A column of shelves along the western partition, one reference."""
    start = window_side(room, 2500 if room.kind == "team" else 2900)
    y = start if room.y0 == SOUTH[0] else start - count * 1000
    office.place(
        "SHELF",
        room.x0 + 420,
        y,
        values={"INV_NO": office.inventory()},
        rotation=90,
        column_count=count,
        column_spacing=1000,
        row_count=1,
    )


def furnish_meeting(office, room: Room) -> None:
    y = room.y1 - 2900
    office.place("MEETING_TABLE", room.middle, y, values={"INV_NO": office.inventory()})
    for seat in range(6):
        x = room.middle - 1900 + seat * 760
        office.chair(x, y - 1150)
        office.chair(x, y + 1150, 180)
    office.chair(room.middle - 2900, y, -90)
    office.chair(-(room.middle + 2900), y, -90, extrusion=(0, 0, -1))
    office.space.add_lwpolyline(
        [(room.x0 + 30, y - 1500), (room.x0 + 30, y + 1500)], dxfattribs={"layer": "A-FURN", "const_width": 40}
    )


def furnish_kitchen(office, room: Room) -> None:
    office.space.add_lwpolyline(
        [
            (room.x0, room.y1 - 3600),
            (room.x0 + 600, room.y1 - 3600),
            (room.x0 + 600, room.y1 - 600),
            (room.x1, room.y1 - 600),
        ],
        dxfattribs={"layer": "A-FURN"},
    )
    for x in (room.x0 + 1500, room.x0 + 1900):
        office.space.add_circle((x, room.y1 - 300), 130, dxfattribs={"layer": "A-FURN"})
    office.place("BASIN", room.x0, room.y1 - 2200, "A-FLOR-SANI", rotation=90)
    x, y = room.x0 + 2100, room.y1 - 2700
    office.space.add_circle((x, y), 500, dxfattribs={"layer": "A-FURN"})
    for turn, dx, dy in ((0, 0, -750), (90, 750, 0), (180, 0, 750), (270, -750, 0)):
        office.chair(x + dx, y + dy, turn)


def furnish_toilet(office, room: Room) -> None:
    for cabin in range(2):
        x = room.x0 + (cabin + 0.5) * (room.x1 - room.x0) / 2
        office.place("WC", x, room.y1, "A-FLOR-SANI")
        office.place("BASIN", room.x0, room.y1 - 2300 - cabin * 900, "A-FLOR-SANI", rotation=90)
    for start, end in (
        ((room.middle, room.y1), (room.middle, room.y1 - 1500)),
        ((room.x0, room.y1 - 1500), (room.x0 + 400, room.y1 - 1500)),
        ((room.middle - 200, room.y1 - 1500), (room.middle + 400, room.y1 - 1500)),
        ((room.x1 - 200, room.y1 - 1500), (room.x1, room.y1 - 1500)),
    ):
        office.space.add_line(start, end, dxfattribs={"layer": "A-WALL"})


def furnish_cleaning(office, room: Room) -> None:
    office.place("BASIN", room.middle, room.y1, "A-FLOR-SANI")
    office.place("SHELF", room.x0 + 420, room.y1 - 2600, values={"INV_NO": office.inventory()}, rotation=90)


def furnish_stair(office, room: Room) -> None:
    """Two flights of nine steps around a landing in the north."""
    style = {"layer": "A-FLOR-STRS"}
    low, step = room.y1 - 1400 - 9 * 280, 280
    for number in range(10):
        y = low + number * step
        office.space.add_line((room.x0, y), (room.middle - 60, y), dxfattribs=style)
        office.space.add_line((room.middle + 60, y), (room.x1, y), dxfattribs=style)
    office.space.add_lwpolyline(
        [
            (room.middle - 60, low),
            (room.middle + 60, low),
            (room.middle + 60, low + 9 * step),
            (room.middle - 60, low + 9 * step),
        ],
        close=True,
        dxfattribs=style,
    )
    left, right, top = room.x0 + 720, room.x1 - 720, room.y1 - 700
    office.space.add_lwpolyline([(left, low), (left, top), (right, top), (right, low + 350)], dxfattribs=style)
    office.space.add_solid(
        [(right - 90, low + 350), (right + 90, low + 350), (right, low), (right, low)], dxfattribs=style
    )
    office.space.add_circle((left, low), 60, dxfattribs=style)
    office.space.add_text("UP", dxfattribs={"height": 200, "style": "OFFICE", "layer": "A-FLOR-STRS"}).set_placement(
        (left, low - 250), align=Align.MIDDLE_CENTER
    )


def furnish_reception(office, room: Room) -> None:
    x, y = room.x0 + 700, room.y1 - 3200
    office.space.add_lwpolyline(
        [
            (x, y + 1800, 0),
            (x, y, 0.414),
            (x + 900, y - 900, 0),
            (x + 2600, y - 900, 0),
            (x + 2600, y - 300, 0),
            (x + 900, y - 300, -0.414),
            (x + 600, y, 0),
            (x + 600, y + 1800, 0),
        ],
        format="xyb",
        close=True,
        dxfattribs={"layer": "A-FURN"},
    )
    office.chair(x + 1400, y + 400, 150)
    office.place("SOFA", room.x1 - 500, room.y1 - 2000, rotation=-90)
    for px, size in ((room.x1 - 450, 1.0), (room.x0 + 450, 0.9)):
        office.place("PLANT", px, room.y1 - 400, "L-PLNT", xscale=size, yscale=size, zscale=size, rotation=15)


def furnish_server(office, room: Room) -> None:
    office.place(
        "RACK",
        room.x0 + 200,
        room.y1 - 1700,
        values={"INV_NO": office.inventory()},
        column_count=4,
        column_spacing=600,
        row_count=2,
        row_spacing=-1900,
    )


def furnish_archive(office, room: Room) -> None:
    office.place(
        "SHELF",
        room.x0 + 300,
        room.y1 - 900,
        values={"INV_NO": office.inventory()},
        column_count=3,
        column_spacing=1000,
        row_count=3,
        row_spacing=-1250,
    )


def furnish_corridor(office) -> None:
    y0, y1 = CORRIDOR
    for x in (5200, 34200):
        office.place(
            "LOCKER", x, y0, values={"INV_NO": office.inventory()}, column_count=4, column_spacing=300, row_count=1
        )
    for x in (OUTER + 700, 19000, LENGTH - 1500):
        office.place("EXTINGUISHER", x, y1 - 300, "F-PROT", {"NEXT_CHECK": f"2026-{office.rng.randint(1, 12):02d}"})
    for x in (16400, 30500):
        office.place("PLANT", x, y0 + 400, "L-PLNT", rotation=40)


FURNISH = {
    "office": furnish_office,
    "double": furnish_double,
    "team": furnish_team,
    "meeting": furnish_meeting,
    "kitchen": furnish_kitchen,
    "toilet": furnish_toilet,
    "cleaning": furnish_cleaning,
    "stair": furnish_stair,
    "reception": furnish_reception,
    "server": furnish_server,
    "archive": furnish_archive,
}
