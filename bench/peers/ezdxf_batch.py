#!/usr/bin/env python3
"""A folder of drawings with ezdxf: the lines of model space that have the colour of their layer go to another one.

    ezdxf_batch.py FOLDER OUTPUT
"""
import os
import sys

import ezdxf


def main():
    folder, output = sys.argv[1:]
    os.makedirs(output, exist_ok=True)
    for name in sorted(os.listdir(folder)):
        drawing = ezdxf.readfile(os.path.join(folder, name))
        for entity in drawing.modelspace():
            if entity.dxftype() == "LINE" and entity.dxf.color == 256:
                entity.dxf.layer = "Moved"
        drawing.saveas(os.path.join(output, name))


if __name__ == "__main__":
    main()
