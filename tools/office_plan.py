"""The example office floor: walls with their doors and windows, room tags, axes, and the site around. Millimetres."""

import random
from typing import List, Tuple

import ezdxf

from office_blocks import UNITS_MM, add_blocks, add_layers, add_linetypes, add_styles, attach
from office_furniture import FURNISH, furnish_corridor
from office_rooms import (
    CORRIDOR,
    DEPTH,
    DOOR,
    INNER,
    LENGTH,
    NORTH,
    NORTH_ROOMS,
    OUTER,
    SOUTH,
    SOUTH_ROOMS,
    WINDOW,
    Room,
    make_row,
    tag_height,
)
from office_sheets import add_sheets

SEED = 20240517
NAMES = {
    "office": ["Büro", "Bureau", "Кабинет", "事務室", "Γραφείο"],
    "double": ["Doppelbüro", "Bureau double", "Бюро"],
    "team": ["Großraum"],
    "meeting": ["Salle de réunion"],
    "kitchen": ["Küche"],
    "toilet": ["WC Damen", "WC Herren"],
    "cleaning": ["Putzraum"],
    "stair": ["Treppe"],
    "reception": ["Empfang 受付"],
    "server": ["Serverraum"],
    "archive": ["Архив"],
    "corridor": ["Flur"],
}
PEOPLE = [
    "Dr. Jörg Müßig",
    "Élodie Lefèvre",
    "Анна Петрова",
    "山田 太郎",
    "Ελένη Νικολάου",
    "Søren Åkesson",
    "Zoë O'Brien",
    "Łukasz Żak",
    "Marta Núñez",
    "François Çelik",
    "Ольга Щукина",
    "鈴木 花子",
    "Ανδρέας Γεωργίου",
    "Jürgen Größl",
    "Anaïs Benoît",
    "Ivo Šimůnek",
    "Björk Ólafsdóttir",
    'Guðrún "Rún" Jónsdóttir',
    "Smith, John",
    "Chloë Dvořák",
]
DEPARTMENTS = ["Entwicklung", "Ventes & marketing", "Бухгалтерия", "設計部", "Προσωπικό"]
SPECIES = ["Tilia cordata", "Acer platanoides", "Prunus serrulata 桜", "Betula pendula", "Quercus robur"]


class Office:
    """Draws the floor into a new document."""

    def __init__(self) -> None:
        self.rng = random.Random(SEED)
        self.doc = ezdxf.new("R2018", setup=["linetypes"])
        self.doc.header.custom_vars.append("Projekt", "Bürohaus Süd")
        self.doc.header["$INSUNITS"] = UNITS_MM
        self.doc.header["$DIMSTYLE"] = "Standard"  # the library names one that it does not make
        self.doc.header["$LTSCALE"] = 40
        self.doc.header["$PSLTSCALE"] = 0  # the same dashes on the sheets as in the floor
        self.doc.header["$LASTSAVEDBY"] = "planner"
        add_linetypes(self.doc)
        add_layers(self.doc)
        add_styles(self.doc)
        add_blocks(self.doc)
        self.space = self.doc.modelspace()
        self.people = list(PEOPLE)
        self.seats: List[Tuple[str, str]] = []  # room number, person
        self.counters: dict = {}
        self.openings: List[Tuple[float, float, float, float]] = []  # rectangles through walls
        self.outer_gaps: List[Tuple[str, float, float]] = []
        self.rooms = make_row("S", 1, SOUTH_ROOMS, SOUTH) + make_row("N", 21, NORTH_ROOMS, NORTH)
        self.corridor = Room("3.40", "corridor", OUTER, LENGTH - OUTER, *CORRIDOR)

    def draw(self):
        self.add_floors()
        for room in self.rooms:
            self.add_door(room)
            self.add_windows(room)
        self.add_corridor_ends()
        self.add_walls()
        for room in self.rooms:
            FURNISH[room.kind](self, room)
            self.tag(room)
        furnish_corridor(self)
        self.tag(self.corridor)
        self.add_site()
        self.add_axes()
        self.add_dimensions()
        self.add_hidden_layers()
        self.add_groups()
        self.space.dxf.extmin, self.space.dxf.extmax = (-3600, -8500, 0), (61000, 19200, 0)
        self.doc.set_modelspace_vport(height=32000, center=(28500, 5500))
        add_sheets(self.doc)
        return self.doc

    # Numbers and references

    def next(self, prefix: str, width: int = 3) -> str:
        self.counters[prefix] = self.counters.get(prefix, 0) + 1
        return f"{prefix}{self.counters[prefix]:0{width}d}"

    def inventory(self) -> str:
        return self.next("INV-", 4)

    def place(self, name: str, x: float, y: float, layer: str = "A-FURN", values: dict = None, **attribs):
        reference = self.space.add_blockref(name, (x, y), dxfattribs={"layer": layer, **attribs})
        attach(reference, values or {})
        return reference

    def chair(self, x: float, y: float, rotation: float = 0, **attribs):
        colour = self.rng.choice(["grau", "blau", "vert", "чёрный"])
        return self.place(
            "CHAIR", x, y, values={"INV_NO": self.inventory(), "COLOUR": colour}, rotation=rotation, **attribs
        )

    def workstation(self, x: float, y: float, rotation: float, person: str) -> None:
        place = self.next("P", 2)
        self.place(
            "WORKSTATION",
            x,
            y,
            rotation=rotation,
            values={
                "PLACE_NO": place,
                "USER": person,
                "EXTENSION": str(self.rng.randint(100, 999)),
                "PORT": f"D{place[1:]}/{self.rng.randint(1, 48)}",
            },
        )

    def person(self) -> str:
        if not self.people:
            self.people = list(PEOPLE)
        return self.people.pop(self.rng.randrange(len(self.people)))

    # Walls and openings

    def add_door(self, room: Room) -> None:
        """Hinged beside the eastern partition; every second one is the mirror image."""
        width = 1200 if room.kind in ("meeting", "stair", "reception") else DOOR
        start = room.x1 - width - 250
        mirrored = len(self.openings) % 2 == 1
        values = {
            "DOOR_NO": f"T{room.number[2:]}",
            "FIRE_RATING": "T30" if room.kind in ("stair", "server", "archive") else "–",
        }
        hinge = start + width if mirrored else start
        if room.y0 == NORTH[0]:
            self.place(f"DOOR_{width}", hinge, NORTH[0], "A-DOOR", values, xscale=-1 if mirrored else 1)
            room.gaps.append(("bottom", start, start + width))
            self.corridor.gaps.append(("top", start, start + width))
            self.openings.append((start, CORRIDOR[1], start + width, NORTH[0]))
        else:
            turn = {"rotation": 180} if mirrored else {"yscale": -1}
            self.place(f"DOOR_{width}", hinge, SOUTH[1], "A-DOOR", values, **turn)
            room.gaps.append(("top", start, start + width))
            self.corridor.gaps.append(("bottom", start, start + width))
            self.openings.append((start, SOUTH[1], start + width, CORRIDOR[0]))

    def add_windows(self, room: Room) -> None:
        if room.kind == "cleaning":
            return
        count = max(1, round((room.x1 - room.x0) / 1900))
        pitch = (room.x1 - room.x0) / count
        south = room.y0 == SOUTH[0]
        for number in range(count):
            start = room.x0 + pitch * (number + 0.5) - WINDOW / 2
            values = {"WINDOW_NO": self.next("F", 2)}
            if south:
                self.place("WINDOW", start, 0, "A-GLAZ", values, xscale=WINDOW / 1000)
            else:
                self.place("WINDOW", start + WINDOW, DEPTH, "A-GLAZ", values, xscale=WINDOW / 1000, rotation=180)
            room.gaps.append(("bottom" if south else "top", start, start + WINDOW))
            self.outer_gaps.append(("bottom" if south else "top", start, start + WINDOW))
            y = 0 if south else DEPTH - OUTER
            self.openings.append((start, y, start + WINDOW, y + OUTER))

    def add_corridor_ends(self) -> None:
        """A window in the west, a way out in the east."""
        y = sum(CORRIDOR) / 2
        self.place("WINDOW", 0, y + 750, "A-GLAZ", {"WINDOW_NO": self.next("F", 2)}, xscale=1.5, rotation=-90)
        self.place(
            "DOOR_1200", LENGTH, y - 600, "A-DOOR", {"DOOR_NO": "T00", "FIRE_RATING": "T90"}, rotation=90, yscale=-1
        )
        for side, half, x in (("left", 750, 0), ("right", 600, LENGTH - OUTER)):
            self.corridor.gaps.append((side, y - half, y + half))
            self.outer_gaps.append((side, y - half, y + half))
            self.openings.append((x, y - half, x + OUTER, y + half))

    def add_walls(self) -> None:
        outside = Room("", "", 0, LENGTH, 0, DEPTH, self.outer_gaps)
        hatch = self.space.add_hatch(color=253, dxfattribs={"layer": "A-WALL-PATT"})
        hatch.paths.add_polyline_path(outside.corners(), is_closed=True, flags=1)
        for room in [*self.rooms, self.corridor]:
            hatch.paths.add_polyline_path(room.corners(), is_closed=True, flags=16)
        for x0, y0, x1, y1 in self.openings:
            hatch.paths.add_polyline_path([(x0, y0), (x1, y0), (x1, y1), (x0, y1)], is_closed=True, flags=16)
        self.space.set_redraw_order([(hatch.dxf.handle, "1")])
        for room in [outside, *self.rooms, self.corridor]:
            self.outline(room)
        for x0, y0, x1, y1 in self.openings:
            if y1 - y0 in (OUTER, INNER):
                jambs = [((x0, y0), (x0, y1)), ((x1, y0), (x1, y1))]
            else:
                jambs = [((x0, y0), (x1, y0)), ((x0, y1), (x1, y1))]
            for start, end in jambs:
                self.space.add_line(start, end, dxfattribs={"layer": "A-WALL"})

    def outline(self, room: Room) -> None:
        """The room's faces, broken where doors and windows are."""
        sides = {
            "bottom": (room.x0, room.x1, lambda at: (at, room.y0)),
            "right": (room.y0, room.y1, lambda at: (room.x1, at)),
            "top": (room.x0, room.x1, lambda at: (at, room.y1)),
            "left": (room.y0, room.y1, lambda at: (room.x0, at)),
        }
        pieces: List[List[Tuple[float, float]]] = [[]]
        for side, (first, last, point) in sides.items():
            gaps = sorted((a, b) for where, a, b in room.gaps if where == side)
            stops = [first] + [end for gap in gaps for end in gap] + [last]
            if side in ("top", "left"):
                stops.reverse()
            for number, stop in enumerate(stops):
                if number and number % 2 == 0:
                    pieces.append([])
                if not pieces[-1] or pieces[-1][-1] != point(stop):
                    pieces[-1].append(point(stop))
        closed = len(pieces) == 1
        if not closed:
            pieces[0] = pieces.pop()[:-1] + pieces[0]
        for piece in pieces:
            self.space.add_lwpolyline(piece[:-1] if closed else piece, close=closed, dxfattribs={"layer": "A-WALL"})

    def add_floors(self) -> None:
        for room in self.rooms:
            if room.kind in ("kitchen", "toilet"):
                hatch = self.space.add_hatch(color=254, dxfattribs={"layer": "A-FLOR-PATT"})
                hatch.set_pattern_fill("NET", color=254, scale=100)
                hatch.paths.add_polyline_path(room.corners(), is_closed=True)
                x, y = room.middle, tag_height(room)
                self.space.add_wipeout(
                    [(x - 1150, y - 650), (x + 1150, y - 650), (x + 1150, y + 850), (x - 1150, y + 850)],
                    dxfattribs={"layer": "A-FLOR-PATT"},
                )

    def tag(self, room: Room) -> None:
        occupants = [person for number, person in self.seats if number == room.number]
        names = NAMES[room.kind]
        scale = 0.75 if room.x1 - room.x0 < 2000 else 1.0
        self.place(
            "ROOM_TAG",
            room.middle,
            tag_height(room),
            "A-AREA-IDEN",
            {
                "NUMBER": room.number,
                "NAME": names[self.counters.setdefault(room.kind, 0) % len(names)],
                "AREA": f"{room.area:.2f} m²",
                "OCCUPANT": "\\P".join(occupants) or "–",
                "KEY": self.next("K", 2),
                "PHONE": f"+49 30 5550-{self.rng.randint(100, 999)}",
                "DEPARTMENT": self.rng.choice(DEPARTMENTS),
            },
            xscale=scale,
            yscale=scale,
            zscale=scale,
        )
        self.counters[room.kind] += 1

    def seat(self, room: Room, x: float, y: float, rotation: float) -> None:
        person = self.person()
        self.seats.append((room.number, person))
        self.workstation(x, y, rotation, person)

    # Around the building, and what explains it

    def add_site(self) -> None:
        for number in range(13):
            size = round(self.rng.uniform(0.8, 1.5), 2)
            self.place(
                "TREE",
                2500 + number * 3600,
                -5600 - self.rng.randint(0, 900),
                "L-PLNT",
                {"SPECIES": self.rng.choice(SPECIES), "PLANTED": str(self.rng.randint(1961, 2022))},
                xscale=size,
                yscale=size,
                zscale=size,
                rotation=self.rng.randrange(0, 360, 15),
            )
        for edge in (
            [(0, 8900), (3200, 8600), (5300, 3600), (4600, -2500), (6000, -7500)],
            [(0, 7600), (2200, 7400), (3700, 3000), (3100, -2500), (4500, -7500)],
        ):
            self.space.add_spline([(LENGTH + x, y) for x, y in edge], dxfattribs={"layer": "L-SITE"})
        self.place("NORTH", LENGTH + 3500, DEPTH - 1500, "A-ANNO-NOTE", rotation=-18)
        note = self.space.add_mtext(
            "{\\fArial|b1;Hinweise}\\PAlle Maße in mm, lichte Rohbaumaße.\\PTürhöhe 2135 mm, "
            "OK FFB ±0,00 = +10,50 m ü. NN.\\P"
            "Brandabschnitt: Flur T30/T90.\\PÄnderungen nur nach Rücksprache.",
            dxfattribs={"char_height": 260, "width": 9500, "style": "OFFICE", "layer": "A-ANNO-NOTE"},
        )
        note.set_location((LENGTH + 3200, DEPTH - 4200), attachment_point=1)

    def add_axes(self) -> None:
        style = {"layer": "A-GRID"}
        for number, x in enumerate(range(0, LENGTH + 1, 8000)):
            self.space.add_line((x, -3200), (x, DEPTH + 1200), dxfattribs=style)
            self.place("AXIS", x, DEPTH + 1650, "A-GRID", {"AXIS": str(number + 1)})
        for name, y in (("A", 0), ("B", CORRIDOR[0]), ("C", CORRIDOR[1]), ("D", DEPTH)):
            self.space.add_line((-1600, y), (LENGTH + 700, y), dxfattribs=style)
            self.place("AXIS", -2050, y, "A-GRID", {"AXIS": name})

    def add_dimensions(self) -> None:
        def dimension(base, p1, p2, angle=0):
            self.space.add_linear_dim(
                base=base, p1=p1, p2=p2, angle=angle, dimstyle="OFFICE", dxfattribs={"layer": "A-ANNO-DIMS"}
            ).render()

        for start, end in zip(range(0, LENGTH, 8000), range(8000, LENGTH + 1, 8000)):
            dimension((0, -1400), (start, 0), (end, 0))
        dimension((0, -2300), (0, 0), (LENGTH, 0))
        dimension((-3300, 0), (0, 0), (0, DEPTH), 90)
        for low, high in (SOUTH, CORRIDOR, NORTH):
            dimension((LENGTH + 2000, 0), (LENGTH, low), (LENGTH, high), 90)

    def add_hidden_layers(self) -> None:
        for x in (14700, 22500):
            self.space.add_line((x, SOUTH[0]), (x, SOUTH[1]), dxfattribs={"layer": "A-DEMO"})
            self.space.add_text(
                "Abbruch", dxfattribs={"height": 200, "insert": (x + 100, 5000), "layer": "A-DEMO", "style": "NARROW"}
            )
        self.space.add_lwpolyline([(1000, 7300), (LENGTH - 1000, 7300)], dxfattribs={"layer": "E-POWER"})
        for x in range(2000, LENGTH, 4000):
            self.space.add_circle((x, 7300), 80, dxfattribs={"layer": "E-POWER"})

    def add_groups(self) -> None:
        group = self.doc.groups.new("AXES", description="Grid lines and bubbles")
        group.extend(list(self.space.query('*[layer=="A-GRID"]')))
        self.doc.appids.add("OFFICE_FM")
        for tag in self.space.query('INSERT[name=="ROOM_TAG"]'):
            tag.set_xdata("OFFICE_FM", [(1000, "room"), (1040, 2.75), (1070, 3)])


def office():
    """The document of the example floor."""
    return Office().draw()
