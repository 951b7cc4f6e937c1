"""The rooms of the example office floor and the measures that all of it goes by. Lengths are millimetres."""

from dataclasses import dataclass, field
from typing import List, Tuple

LENGTH, DEPTH = 48000, 17000
OUTER, INNER, PARTITION = 300, 150, 100
SOUTH = (OUTER, 6900)  # faces of the southern row of rooms
CORRIDOR = (7050, 9450)
NORTH = (9600, DEPTH - OUTER)
DOOR, WINDOW = 900, 1200

SOUTH_ROOMS = [
    (3600, "office"),
    (3600, "office"),
    (4800, "double"),
    (3600, "office"),
    (4800, "double"),
    (5600, "team"),
    (4800, "double"),
    (3600, "office"),
    (4800, "double"),
    (3600, "office"),
    (3600, "office"),
]
NORTH_ROOMS = [
    (3600, "office"),
    (3600, "office"),
    (7200, "meeting"),
    (3600, "kitchen"),
    (2600, "toilet"),
    (2600, "toilet"),
    (1600, "cleaning"),
    (3000, "stair"),
    (4800, "reception"),
    (2800, "server"),
    (3600, "archive"),
    (3600, "office"),
    (3600, "office"),
]


@dataclass
class Room:
    """A rectangle between wall faces, with the gaps that doors and windows leave in its outline."""

    number: str
    kind: str
    x0: float
    x1: float
    y0: float
    y1: float
    gaps: List[Tuple[str, float, float]] = field(default_factory=list)  # side, from, to

    @property
    def middle(self) -> float:
        return (self.x0 + self.x1) / 2

    @property
    def area(self) -> float:
        return (self.x1 - self.x0) * (self.y1 - self.y0) / 1e6

    def corners(self) -> List[Tuple[float, float]]:
        return [(self.x0, self.y0), (self.x1, self.y0), (self.x1, self.y1), (self.x0, self.y1)]


def make_row(side: str, first: int, widths: List[Tuple[float, str]], faces: Tuple[float, float]) -> List[Room]:
    rooms, x = [], float(OUTER)
    for number, (width, kind) in enumerate(widths):
        rooms.append(Room(f"3.{first + number:02d}", kind, x, x + width, *map(float, faces)))
        x += width + PARTITION
    assert x == LENGTH - OUTER + PARTITION, f"row {side} ends at {x}"
    return rooms


def tag_height(room: Room) -> float:
    """Where the room's tag stands: on the corridor side of its furniture."""
    if room.kind == "corridor":
        return sum(CORRIDOR) / 2 + 100
    if room.kind == "team":
        return 5650
    return 5250 if room.y0 == SOUTH[0] else NORTH[0] + 1900
