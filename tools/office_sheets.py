"""The two sheets of the example office floor. Lengths on paper and in the floor are millimetres."""

from office_blocks import attach
from office_rooms import LENGTH


def add_sheets(doc) -> None:
    """An A3 sheet with the whole floor and a detail, an A4 sheet with the two ends of the floor."""
    plan = doc.layouts.get("Layout1")
    doc.layouts.rename("Layout1", "A3 Grundriss")
    plan.page_setup(size=(420, 297), margins=(5, 5, 5, 5), units="mm", device="None", name="ISO_A3")
    view(plan, (205, 195), (390, 178), (28500, 5500), 200)
    view(plan, (113, 52), (206, 92), (12300, 12500), 100, frozen=("A-ANNO-DIMS", "A-GRID"))
    frame(plan, 410, 287, {"TITLE": "Grundriss 3. OG", "SCALE": "1:200", "SHEET": "1/2"})
    plan.add_mtext(
        "Ausschnitt 1:100 – Raum 3.21 bis 3.24",
        dxfattribs={"insert": (225, 95), "char_height": 3, "width": 90, "style": "OFFICE", "layer": "A-ANNO-NOTE"},
    )
    plan.add_mtext(
        "Legende:\\PT… Tür   F… Fenster   P… Arbeitsplatz\\PINV-… Inventarnummer",
        dxfattribs={"insert": (225, 85), "char_height": 2.5, "width": 90, "style": "OFFICE", "layer": "A-ANNO-NOTE"},
    )
    plan.add_blockref(
        "NORTH",
        (395, 85),
        dxfattribs={"layer": "A-ANNO-NOTE", "xscale": 0.008, "yscale": 0.008, "zscale": 0.008, "rotation": -18},
    )
    ends = doc.layouts.new("A4 Möblierung")
    ends.page_setup(size=(297, 210), margins=(5, 5, 5, 5), units="mm", device="None", name="ISO_A4")
    view(ends, (73, 128), (138, 136), (7700, 9300), 150, frozen=("A-ANNO-DIMS",))
    view(ends, (216, 128), (138, 136), (LENGTH - 8400, 9300), 150, frozen=("A-ANNO-DIMS", "L-SITE"))
    frame(ends, 287, 200, {"TITLE": "Möblierung – Ost / West", "SCALE": "1:150", "SHEET": "2/2", "REV": "B"})


def view(layout, center, size, target, scale: float, frozen=()) -> None:
    viewport = layout.add_viewport(center=center, size=size, view_center_point=target, view_height=size[1] * scale)
    for layer in frozen:
        viewport.freeze(layer)


def frame(layout, width: float, height: float, values: dict) -> None:
    layout.add_lwpolyline(
        [(0, 0), (width, 0), (width, height), (0, height)],
        close=True,
        dxfattribs={"layer": "A-ANNO-TTLB", "const_width": 0.5},
    )
    reference = layout.add_blockref("TITLE_BLOCK", (width - 3, 3), dxfattribs={"layer": "A-ANNO-TTLB"})
    attach(
        reference,
        {
            "PROJECT": "Bürohaus Süd",
            "DRAWN": "M. Núñez",
            "CHECKED": "A. Петрова",
            "DATE": "2024-05-17",
            "REV": "A",
            "ADDRESS": "Beispielplan GmbH\\PÄußere Straße 12\\P10115 Berlin\\P{\\C1;www.example.org}",
            **values,
        },
    )
