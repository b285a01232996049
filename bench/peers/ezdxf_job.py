#!/usr/bin/env python3
"""The job of drawing_job.cpp with ezdxf: open, sum lines and arcs of one layer, turn the texts of another, save.

    ezdxf_job.py DRAWING.dxf [ROUNDS]
"""
import json
import math
import os
import sys
import time

import ezdxf


def job(path, facts):
    times = [time.perf_counter()]
    drawing = ezdxf.readfile(path)
    times.append(time.perf_counter())
    model = drawing.modelspace()
    length = 0.0
    for entity in model:
        if entity.dxf.layer != facts["sum_layer"]:
            continue
        if entity.dxftype() == "LINE":
            length += entity.dxf.start.distance(entity.dxf.end)
        elif entity.dxftype() == "ARC":
            angle = (entity.dxf.end_angle - entity.dxf.start_angle) % 360 or 360
            length += math.radians(angle) * entity.dxf.radius
    texts = 0
    for entity in model:
        if entity.dxftype() == "TEXT" and entity.dxf.layer == facts["text_layer"]:
            entity.dxf.rotation += math.degrees(0.25)
            texts += 1
    times.append(time.perf_counter())
    drawing.saveas(path + ".out.dxf")
    times.append(time.perf_counter())
    right = abs(length - facts["sum_length"]) < 0.001 and texts == facts["texts"]
    return [b - a for a, b in zip(times, times[1:])], right


def main():
    path, rounds = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 1
    with open(path + ".json") as file:
        facts = json.load(file)
    megabytes = os.path.getsize(path) / 1e6
    for _ in range(rounds):
        (load, work, save), right = job(path, facts)
        total = load + work + save
        print("load %.1f ms (%.0f MB/s), sum and turn %.1f ms, save %.1f ms (%.0f MB/s), job %.1f ms (%.0f MB/s); answers %s"
              % (load * 1e3, megabytes / load, work * 1e3, save * 1e3, megabytes / save, total * 1e3, megabytes / total,
                 "right" if right else "WRONG"))
    os.remove(path + ".out.dxf")


if __name__ == "__main__":
    main()
