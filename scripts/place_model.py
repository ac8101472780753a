#!/usr/bin/python3
"""Turns, scales and moves the model of a binary STL file: z up, standing where it is wanted.

    scripts/place_model.py IN OUT --axes x,-z,y --scale 250 --at 0,0,30

--axes says which axes of the model become x, y and z; --scale is applied to all; --at is where the middle of its
base stands afterwards (the middle of its box in x and y, its lowest z).
"""
import argparse
import struct

HEADER, FACET = 84, 50


def axis(name):
    return ("xyz".index(name[-1]), -1.0 if name.startswith("-") else 1.0)


parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
parser.add_argument("input")
parser.add_argument("output")
parser.add_argument("--axes", default="x,y,z", type=lambda s: [axis(a) for a in s.split(",")])
parser.add_argument("--scale", default=1.0, type=float)
parser.add_argument("--at", required=True, type=lambda s: [float(x) for x in s.split(",")])
arguments = parser.parse_args()

with open(arguments.input, "rb") as file:
    data = file.read()
count = struct.unpack_from("<I", data, 80)[0]
if len(data) != HEADER + FACET * count:
    parser.error(f"{arguments.input} is no binary STL file")

facets = []
for i in range(count):
    numbers = struct.unpack_from("<12f", data, HEADER + FACET * i)
    vectors = [numbers[k:k + 3] for k in range(0, 12, 3)]
    facets.append([[sign * v[k] for k, sign in arguments.axes] for v in vectors])

corners = [p for f in facets for p in f[1:]]
low, high = ([f(p[k] for p in corners) for k in range(3)] for f in (min, max))
base = [(low[0] + high[0]) / 2, (low[1] + high[1]) / 2, low[2]]
with open(arguments.output, "wb") as file:
    file.write(data[:HEADER])
    for normal, *points in facets:
        moved = [(x - b) * arguments.scale + a for p in points for x, b, a in zip(p, base, arguments.at)]
        file.write(struct.pack("<12fH", *normal, *moved, 0))
