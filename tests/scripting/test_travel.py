"""orvex.travel: its answers against the driver's, the buffers it takes and what it refuses."""

import array
import copy
import ctypes
import json
import math
import os
import pathlib
import pickle
import subprocess

import orvex
import pytest
from hypothesis import given, settings, strategies as st

try:
    import numpy as np
except ImportError:
    np = None

BUILD = pathlib.Path(orvex.__file__).parents[2]


def table(code, rows):
    """The rows, three numbers each, as a buffer of rank 2."""
    flat = array.array(code, [x for row in rows for x in row])
    return memoryview(flat).cast("B").cast(code, (len(rows), 3))


WALL = table("d", [(0, 0, 5), (4, 0, 5), (0, 4, 5)]), table("i", [(0, 1, 2)])
PART = table("d", [(1, 1, 0), (2, 1, 0), (1, 2, 1)]), table("i", [(0, 1, 2)])


def driver(fixed, movable, *options):
    """What the driver answers, as TravelResult holds it."""
    done = subprocess.run([BUILD / "bin" / "orvex", "travel", fixed, movable, "--json", "--quiet", *options],
                          capture_output=True, check=False)
    assert done.returncode in (0, 1), done.stderr
    said = json.loads(done.stdout)
    sides = [said["fixed"], said["movable"]]
    clear = said["travel"] is None
    return orvex.TravelResult(
        said["state"], said["travel"], None if clear else tuple(side["triangle"] for side in sides),
        None if clear else tuple(tuple(side["point"]) for side in sides), said["bound"], said["tolerance"],
        tuple(said["direction"]), tuple(said["skipped"].values()))


def without_notes(result):
    return orvex.TravelResult(*[getattr(result, name) for name in orvex.TravelResult.__match_args__[:-1]])


coordinate = st.one_of(st.integers(-3, 3).map(float), st.floats(-3, 3, width=32))
vertices = st.lists(st.tuples(coordinate, coordinate, coordinate), min_size=3, max_size=12)
direction = st.tuples(*[st.integers(-2, 2)] * 3).filter(any)


def off_text(points, corners):
    lines = [f"OFF\n{len(points)} {len(corners)} 0", *("%r %r %r" % tuple(point) for point in points)]
    return "\n".join(lines + ["3 %d %d %d" % tuple(triangle) for triangle in corners])


@settings(max_examples=40, deadline=None)
@given(vertices, vertices, direction, st.sampled_from([None, 0.5, 4.0]), st.integers(0, 6), st.integers(1, 20))
def test_the_drivers_answer(tmp_path_factory, first, second, along, bound, lift, depth):
    folder = tmp_path_factory.getbasetemp()
    arrays, files = [], [folder / "fixed.off", str(folder / "movable.off")]
    for name, points in zip(files, (first, [(x, y, z - lift) for x, y, z in second])):
        corners = [(i, (i + 1) % len(points), (i + 2) % len(points)) for i in range(len(points))]
        pathlib.Path(name).write_text(off_text(points, corners))
        arrays.append((table("d", points), table("q", corners)))
    text = ",".join(map(str, along))
    options = ["--dir", text, "--depth", str(depth), "--tree", "mod"] + (["--bound", str(bound)] if bound else [])
    expected = driver(*files, *options)
    assert without_notes(orvex.travel(*arrays, along, bound, depth=depth, tree="mod")) == expected
    assert without_notes(orvex.travel(*files, text, bound, depth=depth, tree="mod")) == expected


LENDERS = {
    "bytes": lambda rows, code: memoryview(bytes(table(code, rows))).cast(code, (len(rows), 3)),
    "backwards": lambda rows, code: table(code, rows[::-1])[::-1],
}
if np:
    LENDERS |= {
        "by columns": lambda rows, code: np.array(rows, code, order="F"),
        "every other": lambda rows, code: np.repeat(np.repeat(np.array(rows, code), 2, 0), 2, 1)[::2, ::2],
        "unaligned": lambda rows, code: np.array([(1, row) for row in rows], f"u1, 3{code}")["f1"],
    }


@pytest.mark.parametrize("lend", LENDERS.values(), ids=LENDERS)
def test_buffers_of_every_kind(lend):
    corners, triangles = [(9, 9, 9), (1, 1, 0), (2, 1, 0), (1, 2, 1)], [(1, 2, 3), (2, 3, 1)]
    expected = orvex.travel(WALL, PART, "+z")
    assert expected.travel == 4.0 and expected.pair == (0, 0)
    for code in "bBhHiIlLqQ":
        assert orvex.travel(WALL, [lend(corners, "d"), lend(triangles, code)], (0, 0, 3)) == expected


CORNERS, TRIANGLES = WALL


@pytest.mark.parametrize("name, given_, message", [
    ("movable", ([[0.0] * 3], TRIANGLES),
     "movable vertices: found list, expected a buffer of float64 numbers, N x 3"),
    ("fixed", (table("f", [(0, 1, 2)] * 3), TRIANGLES),
     "fixed vertices: found float32 numbers, expected float64 numbers"),
    ("fixed", ((ctypes.c_double.__ctype_be__ * 3 * 3)(), TRIANGLES),
     "fixed vertices: found numbers in the other byte order, float64, expected float64 numbers"),
    ("fixed", (array.array("d", range(9)), TRIANGLES), "fixed vertices: found shape (9,), expected shape (N, 3)"),
    ("fixed", (CORNERS, table("i", [(0, 1, 2), (0, -1, 2)])), "fixed: found vertex -1 in triangle 1, expected 0 to 2"),
    ("fixed", (table("d", [(0, 0, 0), (1, 0, math.nan), (0, 1, 0)]), TRIANGLES),
     "fixed: the z coordinate of a corner of triangle 0 is not a number (NaN)"),
    ("fixed", (table("d", [(0, 0, 0), (0, -1e80, 0), (0, 1, 0)]), TRIANGLES),
     "fixed: a coordinate of 1e+80 is beyond the 1e+75 that can be computed with"),
    ("fixed", (CORNERS, (ctypes.c_int * 3 * 0)()), "fixed: there is no triangle"),
    ("fixed", "no such file", "[Errno 2] No such file or directory: 'no such file'"),
    ("direction", (0, 0, 0),
     "direction: found (0.0, 0.0, 0.0), expected three finite numbers, not all 0, or an axis: +x -x +y -y +z -z"),
    ("bound", math.nan, "bound: found nan, expected a number above 0, or None"),
    ("depth", 21, "depth: found 21, expected a whole number from 1 to 20"),
    ("tree", "oak", "tree: found 'oak', expected 'oct' or 'mod'"),
    ("progress", 1, "progress: found int, expected a callable, True or None")])
def test_refused_arguments(name, given_, message):
    with pytest.raises((orvex.TypeError, orvex.ValueError, orvex.MeshError, FileNotFoundError)) as raised:
        orvex.travel(**{"fixed": WALL, "movable": PART, "direction": "+z", name: given_})
    assert str(raised.value) == message


def test_a_wrong_file_tells_the_place(tmp_path):
    path = tmp_path / os.fsdecode(b"odd\xff.off")
    path.write_text("OFF\n3 1 0\n0 0 5\n4 0 nan\n0 4 5\n3 0 1 2\n")
    with pytest.raises(orvex.MeshError) as raised:
        orvex.travel(WALL, path, "+z")
    error = pickle.loads(pickle.dumps(raised.value))
    assert (error.file, error.line, error.byte) == (str(path), 4, None)
    assert str(error) == f"{path}, line 4: {error.reason}" and isinstance(error, (orvex.Error, ValueError))


def test_the_result_is_a_value():
    touched = orvex.travel(WALL, PART, "+z", 10)
    clear = orvex.travel(WALL, PART, "-z", math.inf)
    assert touched and not clear and touched != clear
    assert (clear.travel, clear.pair, clear.points, clear.bound) == (None,) * 4
    assert repr(touched) == (
        "TravelResult(state='contact', travel=4.0, pair=(0, 0), points=((1.0, 2.0, 5.0), (1.0, 2.0, 1.0)), "
        "bound=10.0, tolerance=1e-06, direction=(0.0, 0.0, 1.0), skipped=(0, 0), notes=())")
    for result in (touched, clear):
        for other in (pickle.loads(pickle.dumps(result)), copy.deepcopy(result), eval(repr(result), vars(orvex))):
            assert other == result and hash(other) == hash(result)
    for attempt in (lambda: setattr(touched, "travel", 5.0), lambda: delattr(touched, "travel")):
        with pytest.raises(AttributeError, match="^a TravelResult is immutable: 'travel' cannot be"):
            attempt()


def test_notes_and_skipped_triangles():
    tiny = table("d", [(0, 0, 0), (4e-6, 0, 0), (0, 4e-6, 0)]), table("i", [(0, 1, 2), (1, 1, 1)])
    result = orvex.travel(tiny, PART, "+z")
    assert (result.skipped, result.notes) == ((1, 0), (
        "fixed is so small that the trees stop at depth 2, where their boxes come near the tolerance",))
