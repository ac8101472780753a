#!/usr/bin/python3
"""Writes the first inputs of bat_MeshReader_fuzz into the folder named: each format in its variants, small."""
import pathlib
import struct
import sys

POINTS = [(0, 0, 0), (1, 0, 0), (0, 1, 0), (0, 0, 1)]
FACES = [(0, 2, 1), (0, 1, 3), (0, 3, 2), (1, 2, 3)]
ARROW = [(0, 0, 1), (2, -1, 0), (0, 3, 1), (-2, -1, 0), (-1, 0, 0), (-1, 0, 0)]


def stl_binary(header=b"", faces=FACES):
    data = header.ljust(80, b"\0") + struct.pack("<I", len(faces))
    for face in faces:
        data += struct.pack("<12fH", 0, 0, 1, *(x for i in face for x in POINTS[i]), 0)
    return data


def stl_ascii(name="part", end="\n"):
    lines = [f"solid {name}"]
    for face in FACES:
        lines += ["facet normal 0 0 1", " outer loop"]
        lines += ["  vertex %g %.3e -%g" % POINTS[i] for i in face]
        lines += [" endloop", "endfacet"]
    return (end.join(lines + [f"endsolid {name}"]) + end).encode()


def obj(corner="{0}"):
    lines = ["# tetrahedron", "vt 0 0", "vn 0 0 1"] + ["v %g %g %g" % p for p in POINTS]
    lines += ["f " + " ".join(corner.format(i + 1, i - 4) for i in face) for face in FACES]
    return "\n".join(lines).encode()


def obj_polygon(points):
    lines = ["v %g %g %g 1 .5 .5 .5" % p for p in points]
    return "\n".join(lines + ["f \\"] + [f" {i + 1} \\" for i in range(len(points))] + [""]).encode()


def off(keyword="OFF", extra="", colour=""):
    lines = [keyword, f"{len(POINTS)} {len(FACES)} 6"]
    lines += ["%g %g %g" % p + extra for p in POINTS]
    lines += ["3 %d %d %d" % f + colour for f in FACES]
    return "\n".join(lines + ["# end"]).encode()


def comb(teeth):
    points = [(-1, 0, 0), (2 * teeth + 2, 0, 0)]
    for i in range(teeth, -1, -1):
        points += [(2 * i + 1, 20, 0), (2 * i, 1, 0)]
    return points


SEEDS = {
    "stl-binary": stl_binary(),
    "stl-binary-one": stl_binary(faces=FACES[:1]),
    "stl-binary-solid": stl_binary(b"solid part"),
    "stl-binary-long": stl_binary()[:-3],
    "stl-ascii": stl_ascii(),
    "stl-ascii-crlf": stl_ascii(end="\r\n"),
    "stl-ascii-one-line": stl_ascii(end=" ").upper(),
    "stl-ascii-two": stl_ascii() + stl_ascii("other"),
    "stl-ascii-odd-numbers": stl_ascii().replace(b"0.000e+00", b"1e-999").replace(b"normal 0 0 1", b"normal nan 1.#INF -1.#IND"),
    "obj": obj(),
    "obj-negative": obj("{1}"),
    "obj-vt": obj("{0}/1"),
    "obj-vn": obj("{0}//1"),
    "obj-vt-vn": obj("{0}/1/-1"),
    "obj-statements": b"mtllib a\no p\ng a b\nusemtl m\ns 1\np 1\nl 1 2\n" + obj(),
    "obj-arrow": obj_polygon(ARROW),
    "obj-comb": obj_polygon(comb(12)),
    "obj-ahead": b"f 1 2 3\nv 0 0 0\nv 1 0 0\nv 0 1 0\n",
    "off": off(),
    "off-joined": off().replace(b"OFF\n", b"OFF"),
    "off-colours": off("COFF", " 1 2 3 4", " 255 0 0"),
    "off-normals": off("NOFF", " 0 0 1", " 7"),
    "off-all": off("STCNOFF", " 0 0 1 9 9 9 .5 .5"),
    "off-four": off("4nOFF"),
    "off-binary": off("OFF BINARY"),
    "off-polygon": ("OFF 6 1\n" + "\n".join("%g %g %g" % p for p in ARROW) + "\n6 0 1 2 3 4 5").encode(),
    "mark": b"\xef\xbb\xbf" + obj(),
    "ply": b"ply\nformat ascii 1.0\n",
}

folder = pathlib.Path(sys.argv[1])
folder.mkdir(parents=True, exist_ok=True)
for name, data in SEEDS.items():
    (folder / f"seed-{name}").write_bytes(data)
