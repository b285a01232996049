#!/usr/bin/python3
"""independent_reader.py VELMAR CORPUS: whatever commands leave of the corpus drawings loads in ezdxf, a reader of other
hands, whose audit finds nothing that it does not find in the drawing before.

Drawings that ezdxf cannot read to begin with, and those over a megabyte, which take it long, are left out.
"""
import collections
import concurrent.futures
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

try:
    import ezdxf
    from ezdxf import recover
except ImportError:
    sys.exit("This test needs ezdxf: scripts/install.sh python3-ezdxf")

LARGEST = 1_000_000
FEWEST_DRAWINGS, FEWEST_RESULTS = 20, 200  # below that the corpus is not what this was written for

CONVERSIONS = [("R12", "text"), ("2000", "text"), ("2000", "binary"), ("2010", "text"), ("2018", "text")]


def read(path):
    try:
        return ezdxf.readfile(path)
    except ezdxf.DXFError:
        return recover.readfile(path)[0]


def faults(drawing):
    return collections.Counter(int(error.code) for error in drawing.audit().errors)


def calls(drawing):
    """What a drafter would call, as far as the drawing has something for it: arguments of `velmar call`."""
    first = {}
    for entity in drawing.modelspace().query("TEXT LINE LWPOLYLINE INSERT"):
        first.setdefault(entity.dxftype(), entity)
    pick = {kind: "#" + entity.dxf.handle for kind, entity in first.items()}
    layer = {kind: entity.dxf.layer for kind, entity in first.items()}
    yield ["Text", "Section A-A", "100", "50", "90", "2.5", "Notes"]
    yield ["DimAL", "0", "0", "30", "40"]
    yield ["Hatch", "500", "300", "1000", "0"]
    yield ["-a", "2", "-a", "1", "ScaleXY"]
    yield ["Alignement"]
    yield ["MLayer", "New", "5"]
    yield ["-a", "%%v0.1%%vA", "-a", "10,20", "-a", "10,40", "Tolerencee"]
    yield ["TextBar", "100", "50", "16", "'01'", "200", "20", "T", "B1"]
    yield ["ColDel", "256", "L"]
    if "TEXT" in pick:
        yield ["-a", pick["TEXT"], "-a", "T", "ChangeLetterCase"]
        yield ["-a", pick["TEXT"], "-a", "15", "RotateAllText"]
        yield ["ReplaceInT", "e", "\u00e9\u03a9", ""]
    if "LWPOLYLINE" in pick:
        yield ["Replace", layer["LWPOLYLINE"], "1"]
        yield ["HatchAligned", pick["LWPOLYLINE"][1:]]
        yield ["-a", pick["LWPOLYLINE"], "Hatch_Layer"]
        yield ["-a", pick["LWPOLYLINE"], "-a", "0,0", "-a", "10,0", "Dim_Layer"]
    if "LINE" in pick:
        yield ["ColorToLayer", "256", "Moved", "L"]
        yield ["NmLayer", layer["LINE"], "Renamed"]
        yield ["-a", pick["LINE"], "-a", "0.5", "ReplaceLineByType"]
    if "INSERT" in pick:
        yield ["-a", pick["INSERT"], "ExplodeBlock"]
        yield ["-a", pick["INSERT"], "DeleteBlock"]


def run(velmar, folder, words):
    """The exit code; 0 and 1 (the method ended with an error) are both answers."""
    done = subprocess.run([velmar, *words], cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, timeout=300)
    if done.returncode not in (0, 1, 3):
        raise RuntimeError(f"{' '.join(words)}: exit code {done.returncode}: {done.stderr.decode(errors='replace')}")
    return done.returncode


def results(velmar, source, drawing, folder):
    """Runs all there is to run; what was done, and the file that it left."""
    plan, out = folder / "plan.dxf", folder / "out.dxf"
    shutil.copy(source, plan)
    for words in calls(drawing):
        out.unlink(missing_ok=True)
        run(velmar, folder, ["call", "-d", "plan.dxf", "-o", "out.dxf", *words])
        if out.exists() and out.read_bytes() != plan.read_bytes():
            yield " ".join(words), out
    for release, form in CONVERSIONS:
        out.unlink(missing_ok=True)
        run(velmar, folder, ["convert", "--lossy", "--to", release, "--form", form, "plan.dxf", "out.dxf"])
        if out.exists():
            yield f"convert to {release}, {form}", out
    job = folder / "job"
    job.mkdir()
    shutil.copy(source, job / "plan.dwg")
    run(velmar, folder, ["call", "PurgeALLFolder", "job"])
    yield "PurgeALLFolder", job / "plan.dwg"


def examine(velmar, source):
    """How many results were read, and what was wrong with them; nothing where the drawing itself cannot be read."""
    try:
        drawing = read(source)
        before = faults(drawing)
    except Exception:  # whatever its reader stumbles over
        return None
    count, wrong = 0, []
    with tempfile.TemporaryDirectory() as name:
        for what, result in results(velmar, source, drawing, Path(name)):
            count += 1
            try:
                more = faults(read(result)) - before
                if more:
                    wrong.append(f"{source}: {what}: new errors {dict(more)}")
            except Exception as error:
                wrong.append(f"{source}: {what}: {type(error).__name__}: {error}")
    return count, wrong


def main():
    velmar, corpus = os.path.abspath(sys.argv[1]), Path(sys.argv[2])
    sources = sorted(path for path in corpus.rglob("*.dxf")
                     if "bad" not in path.parts and path.stat().st_size <= LARGEST)
    with concurrent.futures.ProcessPoolExecutor() as pool:
        examined = [found for found in pool.map(examine, [velmar] * len(sources), sources) if found]
    wrong = [line for _, lines in examined for line in lines]
    count = sum(results for results, _ in examined)
    print(f"{len(examined)} drawings of {len(sources)}, {count} results, {len(wrong)} with new errors")
    print("\n".join(wrong))
    few = len(examined) < FEWEST_DRAWINGS or count < FEWEST_RESULTS
    if few:
        print(f"expected at least {FEWEST_DRAWINGS} drawings and {FEWEST_RESULTS} results")
    return 1 if wrong or few else 0


if __name__ == "__main__":
    sys.exit(main())
