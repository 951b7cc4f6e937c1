#!/usr/bin/python3
"""The same work with ezdxf.

    peer_ezdxf.py open IN            reads the drawing
    peer_ezdxf.py extract IN OUT     and writes a line for each block reference of model space, a column for each tag
    peer_ezdxf.py save IN OUT        and writes it back
"""

import csv
import sys

import ezdxf


def value(attribute) -> str:
    if attribute.has_embedded_mtext_entity:
        return attribute.virtual_mtext_entity().text
    return attribute.dxf.text


def extract(doc, path: str) -> None:
    rows = [
        (ref.dxf.name, ref.dxf.handle, {attribute.dxf.tag: value(attribute) for attribute in ref.attribs})
        for ref in doc.modelspace().query("INSERT")
    ]
    tags = sorted({tag for _, _, values in rows for tag in values})
    with open(path, "w", newline="", encoding="utf-8") as out:
        writer = csv.writer(out)
        writer.writerow(["block", "handle", *tags])
        writer.writerows([block, handle, *(values.get(tag, "") for tag in tags)] for block, handle, values in rows)


def main() -> int:
    task, paths = sys.argv[1:2], sys.argv[2:]
    if (task, len(paths)) not in ((["open"], 1), (["extract"], 2), (["save"], 2)):
        print(__doc__, file=sys.stderr)
        return 2
    doc = ezdxf.readfile(paths[0])
    if task == ["extract"]:
        extract(doc, paths[1])
    elif task == ["save"]:
        doc.saveas(paths[1])
    return 0


if __name__ == "__main__":
    sys.exit(main())
