"""Turns an ezdxf document into the same bytes every time, with the owners that other programs write."""

import io
from typing import List

import ezdxf

from dxftags import Tag, codec_of, records, write_tags

# Tests must not depend on the machine: no time stamps, no random identifiers, no measuring with installed fonts.
ezdxf.options.write_fixed_meta_data_for_testing = True
ezdxf.options.use_matplotlib = False


def codec_for(doc) -> str:
    return codec_of(doc.dxfversion, doc.header.get("$DWGCODEPAGE", "ANSI_1252"))


def sort_classes(doc) -> None:
    """Gives the CLASSES section an order; the library takes them out of a set."""
    doc.classes.add_required_classes(doc.dxfversion)
    doc.classes.classes = dict(sorted(doc.classes.classes.items()))


def stored_tags(doc) -> List[Tag]:
    """All groups as the library writes them."""
    sort_classes(doc)
    stream = io.StringIO()
    doc.write(stream)
    lines = stream.getvalue().split("\n")
    return [(int(lines[at]), lines[at + 1]) for at in range(0, len(lines) - 1, 2)]


def document_tags(doc) -> List[Tag]:
    """All groups of the document in the order in which they are written."""
    return own_parts(stored_tags(doc))


def own_parts(tags: List[Tag]) -> List[Tag]:
    """Makes attributes, vertices and end marks owned by their reference or polyline instead of by the layout."""
    result: List[Tag] = []
    owner = ""
    for record in records(tags):
        if record.type in ("INSERT", "POLYLINE"):
            owner = record.handle
        elif record.type not in ("ATTRIB", "VERTEX", "SEQEND"):
            owner = ""
        elif owner:
            at = record.tags.index((330, record.first(330)))
            record.tags[at] = (330, owner)
        result += record.tags
    return result


def document_bytes(doc) -> bytes:
    return write_tags(document_tags(doc), codec_for(doc))
