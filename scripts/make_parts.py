#!/usr/bin/python3
"""Makes the example parts of examples/parts, the same bytes every time. Lengths are millimetres.

    scripts/make_parts.py            writes the parts
    scripts/make_parts.py --check    checks that they are what this script makes, closed and turned outward
"""
import math
import pathlib
import struct
import sys

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "examples" / "parts"
DIGITS = 5  # behind the decimal point: a hundredth of a micrometre


class Mesh:
    """Polygons over shared corners; what faces outward turns left."""

    def __init__(self):
        self.points = []
        self.faces = []

    def add(self, point):
        self.points.append(tuple(round(x, DIGITS) + 0.0 for x in point))
        return len(self.points) - 1

    def ring(self, points):
        return [self.add(p) for p in points]

    def band(self, low, high):
        """Quadrangles between two rings of as many corners; they face away from the axis when high is above low."""
        n = len(low)
        self.faces += [(low[i], low[(i + 1) % n], high[(i + 1) % n], high[i]) for i in range(n)]

    def pole(self, ring, tip, up):
        n = len(ring)
        for i in range(n):
            a, b = ring[i], ring[(i + 1) % n]
            self.faces.append((a, b, tip) if up else (b, a, tip))

    def triangles(self):
        return [(f[0], f[i - 1], f[i]) for f in self.faces for i in range(2, len(f))]


def circle(n, radius, z, phase=0.0, centre=0.0):
    angles = [2 * math.pi * (i + phase) / n for i in range(n)]
    return [(centre + radius * math.cos(a), radius * math.sin(a), z) for a in angles]


def polygonal(n, sides, inradius, z):
    """n points on a regular polygon: its corners among them when sides divides n."""
    points = []
    for i in range(n):
        a = 2 * math.pi * i / n
        off = (a + math.pi / sides) % (2 * math.pi / sides) - math.pi / sides
        radius = inradius / math.cos(off)
        points.append((radius * math.cos(a), radius * math.sin(a), z))
    return points


def between(first, last, steps):
    """The rings strictly between two rings, evenly spaced."""
    return [[tuple(p + (q - p) * k / steps for p, q in zip(a, b)) for a, b in zip(first, last)]
            for k in range(1, steps)]


def spindle(mesh, rings, bottom, top):
    """A closed body from rings, lowest first, and its two ends on the axis."""
    rings = [mesh.ring(r) for r in rings]
    mesh.pole(rings[0], mesh.add(bottom), up=False)
    for low, high in zip(rings, rings[1:]):
        mesh.band(low, high)
    mesh.pole(rings[-1], mesh.add(top), up=True)


def tube(mesh, rings):
    """A closed body with a hole: up the outside, inward, down the hole, outward again."""
    rings = [mesh.ring(r) for r in rings]
    for low, high in zip(rings, rings[1:] + rings[:1]):
        mesh.band(low, high)


# --- a pin above a plate with a hole: edge against edge ------------------------------------------------

PIN_STEPS = 96
HOLE_RADIUS = 6.0
PIN_SHIFT = 0.25      # the pin's axis beside the hole's, so that one place touches first
TAPER_START = 21.0    # where the taper begins, and its radius there
TAPER_RADIUS = 4.0
TAPER_SLOPE = 1 / 8   # radius by height


def make_pin():
    def ring(radius, z):
        return circle(PIN_STEPS, radius, z, centre=PIN_SHIFT)

    profile = [(TAPER_RADIUS * math.sin(a), TAPER_START - 1.5 * math.cos(a)) for a in (0.4, 0.8, 1.2)]
    profile += [(TAPER_RADIUS + TAPER_SLOPE * 4 * k, TAPER_START + 4 * k) for k in range(7)]  # to z = 45
    profile += [(9.0, 45.0), (11.0, 45.0), (11.0, 47.0), (11.0, 49.0)]
    profile += [(11.0 * math.cos(a), 49.0 + 4.0 * math.sin(a)) for a in (0.4, 0.8, 1.2)]
    mesh = Mesh()
    spindle(mesh, [ring(r, z) for r, z in profile], (PIN_SHIFT, 0, TAPER_START - 1.5), (PIN_SHIFT, 0, 53.0))
    return mesh


def make_plate():
    def rectangle(z, half_x, half_y):
        points = []
        for x, y, _ in circle(PIN_STEPS, 1.0, z, phase=0.5):
            scale = min(half_x / abs(x), half_y / abs(y))
            points.append([x * scale, y * scale, z])
        for corner in [(half_x, half_y), (-half_x, half_y), (-half_x, -half_y), (half_x, -half_y)]:
            nearest = min(points, key=lambda p: math.dist(p[:2], corner))
            nearest[:2] = corner
        return [tuple(p) for p in points]

    def hole(z):
        return circle(PIN_STEPS, HOLE_RADIUS, z, phase=0.5)

    bottom, top = rectangle(-8.0, 24.0, 18.0), rectangle(0.0, 24.0, 18.0)
    corners = [bottom, top, hole(0.0), hole(-8.0)]
    rings = []
    for here, there, steps in zip(corners, corners[1:] + corners[:1], (3, 4, 4, 4)):
        rings += [here] + between(here, there, steps)
    mesh = Mesh()
    tube(mesh, rings)
    return mesh


def pin_travel():
    """The pin's foremost sloping edge meets the middle of a side of the hole's rim."""
    radius = HOLE_RADIUS * math.cos(math.pi / PIN_STEPS) - PIN_SHIFT
    return TAPER_START + (radius - TAPER_RADIUS) / TAPER_SLOPE


# --- a bolt above a threaded hole ------------------------------------------------------------------------

THREAD_STEPS = 48
PITCH = 2.0
ROWS = 6               # a pitch
THREAD_DEPTH = 0.5     # of the wave, from its middle
BOLT_MIDDLE = 4.4
NUT_MIDDLE = 4.6


def thread(z, middle, blank, share):
    """A ring of a right-handed thread: a wave around the middle radius that fades into the blank one."""
    points = []
    for x, y, _ in circle(THREAD_STEPS, 1.0, z):
        wave = math.cos(2 * math.pi * z / PITCH - math.atan2(y, x))
        radius = blank + share * (middle + THREAD_DEPTH * wave - blank)
        points.append((radius * x, radius * y, z))
    return points


def make_bolt():
    tip, length = 10.0, 12.0
    rings = [circle(THREAD_STEPS, 2.0, tip), circle(THREAD_STEPS, 3.5, tip)]
    rows = int(length / PITCH * ROWS)
    for k in range(1, rows + 1):
        share = min(1.0, k / ROWS, (rows - k) / ROWS)
        rings.append(thread(tip + PITCH * k / ROWS, BOLT_MIDDLE, 3.9, share))
    head = tip + length + 2.0
    rings += [circle(THREAD_STEPS, 3.9, head), polygonal(THREAD_STEPS, 6, 8.0, head),
              polygonal(THREAD_STEPS, 6, 8.0, head + 5.0), circle(THREAD_STEPS, 7.0, head + 6.0)]
    mesh = Mesh()
    spindle(mesh, rings, (0, 0, tip), (0, 0, head + 6.5))
    return mesh


def make_threaded_hole():
    depth = 14.0
    outside = [polygonal(THREAD_STEPS, 4, 15.0, z) for z in (-depth, -depth / 2, 0.0)]
    rim = 5.6
    rings = outside + between(outside[-1], circle(THREAD_STEPS, rim, 0.0), 3) + [circle(THREAD_STEPS, rim, 0.0)]
    rows = int(depth / PITCH * ROWS)
    for k in range(1, rows):
        share = min(1.0, k / ROWS, (rows - k) / ROWS)
        rings.append(thread(-PITCH * k / ROWS, NUT_MIDDLE, rim, share))
    foot = circle(THREAD_STEPS, rim, -depth)
    rings += [foot] + between(foot, outside[0], 3)
    mesh = Mesh()
    tube(mesh, rings)
    return mesh


# --- a bracket against a rail: face on face, and edge against edge ---------------------------------------

SOLE = 36.0            # the bracket's flat underside
RAIL_TOP = 30.0        # the rail's flat top
NOSE = 5.0             # the x of the bracket's upright edge
RIDGE = -8.0           # the x of the rail's edge along y
RIDGE_HEIGHT = 42.0


def arc(centre, radius, first, last, steps):
    """Points on an arc from angle to angle, in degrees, both ends included."""
    angles = [math.radians(first + (last - first) * k / steps) for k in range(steps + 1)]
    return [(centre[0] + radius * math.cos(a), centre[1] + radius * math.sin(a)) for a in angles]


def extrude(mesh, outline, holes, levels, place):
    """A prism over an outline that turns left, with holes; place(u, v, w) puts a point where it belongs.

    Each end is one polygon: a hole is joined to what came before it by a cut that is walked twice.
    """
    loops = [outline] + [list(reversed(h)) for h in holes]
    walls = [[mesh.ring([place(u, v, w) for u, v in loop]) for w in levels] for loop in loops]
    for rings in walls:
        for low, high in zip(rings, rings[1:]):
            mesh.band(low, high)
    for level, up in ((-1, True), (0, False)):
        border = walls[0][level]
        polygon = list(border)
        for loop, rings in zip(loops[1:], walls[1:]):
            ring = rings[level]
            near, hit = min(((i, j) for i in range(len(outline)) for j in range(len(loop))),
                            key=lambda pair: math.dist(outline[pair[0]], loop[pair[1]]))
            cut = polygon.index(border[near]) + 1
            polygon[cut:cut] = ring[hit:] + ring[:hit + 1] + [border[near]]
        mesh.faces.append(tuple(polygon if up else reversed(polygon)))


def make_bracket():
    """An angle with a rounded inner corner, round ends, two holes and a nose that points against x."""
    nose = 3.5
    outline = [(NOSE, nose), (NOSE + 6.0, nose - 5.0)]
    outline += arc((15.0, -20.0), 4.0, 180.0, 360.0, 40)         # the end of the long arm
    outline += [(19.0, y) for y in (-15.0, -10.0, -5.0)]
    outline += arc((27.0, 0.0), 8.0, 180.0, 90.0, 40)            # the inner corner
    outline += [(30.0, 8.0), (33.0, 8.0)]
    outline += arc((36.0, 13.0), 5.0, -90.0, 90.0, 40)           # the end of the short arm
    outline += [(30.0, 18.0), (24.0, 18.0)]
    outline += arc((17.0, 12.0), 6.0, 90.0, 180.0, 24)           # the outer corner
    outline += [(NOSE + 6.0, nose + 6.0)]
    holes = [arc((15.0, -20.0), 2.0, 0.0, 352.5, 47), arc((36.0, 13.0), 2.5, 0.0, 352.5, 47)]
    mesh = Mesh()
    extrude(mesh, outline, holes, [SOLE + 4.0 * k for k in range(5)], lambda u, v, w: (u, v, w))
    return mesh


def make_rail():
    """A rail along y with a flat top, and behind that a fence with an overhanging edge."""
    outline = [(-24.0, 0.0), (-8.0, 0.0), (8.0, 0.0)]
    outline += arc((24.0, 1.5), 1.5, -90.0, 90.0, 16)            # the foot's end
    outline += arc((10.0, 9.0), 6.0, 270.0, 180.0, 24)           # up to the web
    outline += arc((10.0, 18.0), 6.0, 180.0, 90.0, 24)           # out to the head
    outline += arc((19.0, 26.0), 2.0, -90.0, 0.0, 12)
    outline += arc((18.0, RAIL_TOP - 3.0), 3.0, 0.0, 90.0, 16)   # the head's rounded corner
    outline += [(6.0, RAIL_TOP)]
    outline += arc((-9.0, RAIL_TOP + 3.0), 3.0, 270.0, 180.0, 12)
    outline += [(-12.0, 36.0), (RIDGE, RIDGE_HEIGHT)]            # up the fence to its edge
    outline += arc((-15.0, 46.0), 3.0, 0.0, 180.0, 24)
    outline += [(-18.0, 36.0)]
    outline += arc((-16.0, 26.0), 2.0, 180.0, 270.0, 12)         # and down the other side
    outline += arc((-10.0, 18.0), 6.0, 90.0, 0.0, 24)
    outline += arc((-10.0, 9.0), 6.0, 0.0, -90.0, 24)
    outline += arc((-24.0, 1.5), 1.5, 90.0, 270.0, 16)[:-1]      # the other foot
    mesh = Mesh()
    extrude(mesh, outline, [], [-30.0 + 10.0 * k for k in range(7)], lambda u, v, w: (u, -w, v))
    return mesh


def bracket_travel():
    """Down, the sole meets the top; against x, the nose meets the fence's edge."""
    return SOLE - RAIL_TOP, NOSE - RIDGE


# --- files -----------------------------------------------------------------------------------------------


def text(x):
    return f"{x:.{DIGITS}f}".rstrip("0").rstrip(".")


def normal(a, b, c):
    u = [q - p for p, q in zip(a, b)]
    v = [q - p for p, q in zip(a, c)]
    n = [u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]]
    length = math.sqrt(sum(x * x for x in n))
    return [round(x / length, DIGITS) + 0.0 for x in n]


def binary_stl(mesh, name):
    triangles = mesh.triangles()
    data = [name.encode().ljust(80, b"\0"), struct.pack("<I", len(triangles))]
    for t in triangles:
        corners = [mesh.points[i] for i in t]
        data.append(struct.pack("<12fH", *normal(*corners), *(x for p in corners for x in p), 0))
    return b"".join(data)


def ascii_stl(mesh, name):
    lines = [f"solid {name}"]
    for t in mesh.triangles():
        corners = [mesh.points[i] for i in t]
        lines += ["facet normal " + " ".join(map(text, normal(*corners))), " outer loop"]
        lines += ["  vertex " + " ".join(map(text, p)) for p in corners]
        lines += [" endloop", "endfacet"]
    return "\n".join(lines + [f"endsolid {name}", ""]).encode()


def obj(mesh, name):
    lines = [f"# {name}, millimetres", f"o {name}"]
    lines += ["v " + " ".join(map(text, p)) for p in mesh.points]
    lines += ["f " + " ".join(str(i + 1) for i in f) for f in mesh.faces]
    return "\n".join(lines + [""]).encode()


def off(mesh, name):
    lines = ["OFF", f"# {name}, millimetres", f"{len(mesh.points)} {len(mesh.faces)} 0"]
    lines += [" ".join(map(text, p)) for p in mesh.points]
    lines += [" ".join(map(str, (len(f), *f))) for f in mesh.faces]
    return "\n".join(lines + [""]).encode()


PARTS = {
    "bolt.stl": (make_bolt, binary_stl),
    "threaded-hole.obj": (make_threaded_hole, obj),
    "pin.stl": (make_pin, ascii_stl),
    "plate.stl": (make_plate, binary_stl),
    "bracket.obj": (make_bracket, obj),
    "rail.off": (make_rail, off),
}


def faults_of(mesh):
    """What keeps the mesh from being the closed surface of a body, seen from outside."""
    faults = []
    if len(set(mesh.points)) != len(mesh.points):
        faults.append("corners coincide")
    if {i for f in mesh.faces for i in f} != set(range(len(mesh.points))):
        faults.append("corners without a face")
    edges = {}
    for f in mesh.faces:
        for a, b in zip(f, f[1:] + f[:1]):
            edges[a, b] = edges.get((a, b), 0) + 1
    if any(count != 1 or edges.get((b, a)) != 1 for (a, b), count in edges.items()):
        faults.append("an edge is not shared by exactly two faces that turn the same way")
    volume = 0.0
    for a, b, c in (tuple(mesh.points[i] for i in t) for t in mesh.triangles()):
        volume += (a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2])
                   + a[2] * (b[0] * c[1] - b[1] * c[0])) / 6
    if volume <= 0:
        faults.append(f"the volume is {volume}")
    return faults


def main():
    check = sys.argv[1:] == ["--check"]
    if sys.argv[1:] and not check:
        sys.exit(__doc__)
    faults = []
    for file, (make, write) in PARTS.items():
        mesh = make()
        data = write(mesh, file.split(".")[0])
        faults += [f"{file}: {fault}" for fault in faults_of(mesh)]
        path = FOLDER / file
        if not check:
            FOLDER.mkdir(parents=True, exist_ok=True)
            path.write_bytes(data)
        elif not path.exists() or path.read_bytes() != data:
            faults.append(f"{file}: is not what this script makes")
        print(f"{file}: {len(mesh.triangles())} triangles, {len(data)} bytes")
    known = {p.name for p in FOLDER.iterdir()} - set(PARTS) - {"README.md"}
    faults += [f"{name}: is not one of the parts" for name in sorted(known)]
    print(f"pin, -z: {pin_travel():.4f}; bracket, -z: {bracket_travel()[0]:g}, -x: {bracket_travel()[1]:g}")
    sys.exit("\n".join(faults) or 0)


main()
