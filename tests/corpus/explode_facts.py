#!/usr/bin/python3
"""explode_facts.py > explode.json: what an independent reader (Debian's python3-ezdxf) makes of each
block reference in the model spaces of this folder's sound drawings: how many entities of which kind (attribute
definitions left out), and the box of those whose box needs no font, as they stand and with the x scale doubled."""
import json
import pathlib
import sys

import ezdxf
from ezdxf import bbox

WITHOUT_FONTS = {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "POLYLINE", "SOLID", "TRACE", "3DFACE"}
FLATTEN = 1e-4


def contents(reference):
    cells = reference.multi_insert() if reference.mcount > 1 else [reference]
    return [entity for cell in cells for entity in cell.virtual_entities()]


def box(entities):
    extents = bbox.extents([e for e in entities if e.dxftype() in WITHOUT_FONTS], flatten=FLATTEN)
    return [list(extents.extmin)[:2], list(extents.extmax)[:2]] if extents.has_data else None


def facts(reference):
    entities = contents(reference)
    kinds = {}
    for entity in entities:
        kinds[entity.dxftype()] = kinds.get(entity.dxftype(), 0) + 1
    row = {"kinds": kinds, "box": box(entities)}
    reference.dxf.xscale = 2 * reference.dxf.xscale
    row["stretched"] = box(contents(reference))
    return row


def main():
    folder = pathlib.Path(__file__).parent
    files = {}
    for path in sorted(folder.rglob("*.dxf")):
        if path.parent.name == "bad":
            continue
        drawing = ezdxf.readfile(path)
        rows = {r.dxf.handle: facts(r) for r in drawing.modelspace().query("INSERT")}
        if rows:
            files[str(path.relative_to(folder))] = rows
    json.dump(files, sys.stdout, indent=None, separators=(",", ":"))


main()
