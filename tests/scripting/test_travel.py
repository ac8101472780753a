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
import sys

import orvex
import pytest
from hypothesis import given, settings, strategies as st

try:
    import numpy as np
except ImportError:
    np = None

BUILD = pathlib.Path(orvex.__file__).parents[2]
PARTS = pathlib.Path(__file__).parents[2] / "examples" / "parts"


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


@pytest.mark.parametrize("fixed, movable, direction", [("threaded-hole.obj", "bolt.stl", "-z"),
                                                       ("plate.stl", "pin.stl", "-z"),
                                                       ("rail.off", "bracket.obj", "-1,0,-1")])
def test_files_give_the_drivers_answer(fixed, movable, direction):
    fixed, movable = PARTS / fixed, PARTS / movable
    expected = driver(fixed, movable, "--dir", direction)
    assert expected
    assert without_notes(orvex.travel(fixed, str(movable), direction)) == expected
    assert not orvex.travel(fixed, movable, direction, expected.travel / 2, tree="mod", depth=5)


coordinate = st.one_of(st.integers(-3, 3).map(float), st.floats(-3, 3, width=32))
vertices = st.lists(st.tuples(coordinate, coordinate, coordinate), min_size=3, max_size=12)
direction = st.tuples(*[st.integers(-2, 2)] * 3).filter(any)


def off_text(points, corners):
    lines = [f"OFF\n{len(points)} {len(corners)} 0", *("%r %r %r" % tuple(point) for point in points)]
    return "\n".join(lines + ["3 %d %d %d" % tuple(triangle) for triangle in corners])


@settings(max_examples=40, deadline=None)
@given(vertices, vertices, direction, st.sampled_from([None, 0.5, 4.0]), st.integers(0, 6))
def test_arrays_give_the_drivers_answer(tmp_path_factory, first, second, along, bound, lift):
    folder = tmp_path_factory.getbasetemp()
    arguments = []
    for name, points in (("fixed.off", first), ("movable.off", [(x, y, z - lift) for x, y, z in second])):
        corners = [(i, (i + 1) % len(points), (i + 2) % len(points)) for i in range(len(points))]
        (folder / name).write_text(off_text(points, corners))
        arguments.append((table("d", points), table("q", corners)))
    options = [] if bound is None else ["--bound", str(bound)]
    expected = driver(folder / "fixed.off", folder / "movable.off", "--dir", ",".join(map(str, along)), *options)
    assert without_notes(orvex.travel(*arguments, along, bound)) == expected


def c_types(rows, code):
    item = {"d": ctypes.c_double, "i": ctypes.c_int, "q": ctypes.c_int64}[code]
    return (item * 3 * len(rows))(*[(item * 3)(*row) for row in rows])


LENDERS = {
    "array": lambda rows, code: table(code, rows),
    "bytes": lambda rows, code: memoryview(bytes(table(code, rows))).cast(code, (len(rows), 3)),
    "backwards": lambda rows, code: table(code, rows[::-1])[::-1],
    "ctypes": c_types,
}
if np:
    LENDERS |= {
        "numpy": np.array,
        "numpy, by columns": lambda rows, code: np.array(rows, code, order="F"),
        "numpy, every other": lambda rows, code: np.repeat(np.repeat(np.array(rows, code), 2, 0), 2, 1)[::2, ::2],
        "numpy, backwards": lambda rows, code: np.array(rows, code)[::-1, ::-1].copy()[::-1, ::-1],
        "numpy, unaligned": lambda rows, code: np.array([(1, row) for row in rows], f"u1, 3{code}")["f1"],
    }


@pytest.mark.parametrize("lend", LENDERS.values(), ids=LENDERS)
def test_buffers_of_every_kind(lend):
    corners, triangles = [(9, 9, 9), (1, 1, 0), (2, 1, 0), (1, 2, 1)], [(1, 2, 3), (2, 3, 1)]
    expected = orvex.travel(WALL, PART, "+z")
    assert expected.travel == 4.0 and expected.pair == (0, 0)
    for code in "iq":
        assert orvex.travel(WALL, [lend(corners, "d"), lend(triangles, code)], (0, 0, 3)) == expected
    for code in "bBhHIlLQ":
        assert orvex.travel(WALL, (lend(corners, "d"), table(code, triangles)), (0.0, 0.0, 1e300)) == expected


SIDE = "a file name, or a pair of buffers: vertices and triangles"
WAY = "three finite numbers, or an axis: +x -x +y -y +z -z"
FLOATS, FLOAT_TABLE, FLOAT_SHAPE = "float64 numbers", "a buffer of float64 numbers, N x 3", "shape (N, 3)"
INTEGERS, INTEGER_TABLE, INTEGER_SHAPE = "integers", "a buffer of integers, M x 3", "shape (M, 3)"
MOST = 2**64 - 1
CORNERS, TRIANGLES = WALL


def wall(*second):
    return table("d", [(0, 0, 0), second, (0, 1, 0)]), TRIANGLES


@pytest.mark.parametrize("name, given_, what, found, expected", [
    ("fixed", 5, "fixed", "int", SIDE),
    ("fixed", (CORNERS,), "fixed", "tuple of length 1", SIDE),
    ("movable", ([[0.0] * 3], TRIANGLES), "movable vertices", "list", FLOAT_TABLE),
    ("fixed", (CORNERS, [(0, 1, 2)]), "fixed triangles", "list", INTEGER_TABLE),
    ("fixed", (table("f", [(0, 1, 2)] * 3), TRIANGLES), "fixed vertices", "float32 numbers", FLOATS),
    ("fixed", (TRIANGLES, TRIANGLES), "fixed vertices", "int32 numbers", FLOATS),
    ("fixed", (CORNERS, CORNERS), "fixed triangles", "float64 numbers", INTEGERS),
    ("fixed", ((ctypes.c_double.__ctype_be__ * 3 * 3)(), TRIANGLES), "fixed vertices",
     "numbers in the other byte order, float64", FLOATS),
    ("fixed", (CORNERS, (ctypes.c_int32.__ctype_be__ * 3 * 1)()), "fixed triangles",
     "numbers in the other byte order, int32", INTEGERS),
    ("fixed", (CORNERS, memoryview(bytes(3)).cast("?", (1, 3))), "fixed triangles", "items of format '?'",
     INTEGERS),
    ("fixed", (array.array("d", range(9)), TRIANGLES), "fixed vertices", "shape (9,)", FLOAT_SHAPE),
    ("fixed", (memoryview(bytes(64)).cast("d", (4, 2)), TRIANGLES), "fixed vertices", "shape (4, 2)", FLOAT_SHAPE),
    ("fixed", (CORNERS, memoryview(bytes(12)).cast("B", (1, 3, 4))), "fixed triangles", "shape (1, 3, 4)",
     INTEGER_SHAPE),
    ("fixed", (CORNERS, table("i", [(0, 1, 2), (0, -1, 2)])), "fixed", "vertex -1 in triangle 1", "0 to 2"),
    ("movable", (CORNERS, table("Q", [(0, 1, MOST)])), "movable", f"vertex {MOST} in triangle 0", "0 to 2"),
    ("direction", "up", "direction", "'up'", WAY),
    ("direction", (1, 2), "direction", "tuple of length 2", WAY),
    ("direction", (0, 0, 0), "direction", "(0.0, 0.0, 0.0)", WAY),
    ("direction", (0, "1", 0), "direction", "str as item 1", WAY),
    ("bound", 0, "bound", "0", "a number above 0, or None"),
    ("bound", math.nan, "bound", "nan", "a number above 0, or None"),
    ("bound", "1", "bound", "str", "a number above 0, or None"),
    ("depth", 21, "depth", "21", "a whole number from 1 to 20"),
    ("depth", 1.5, "depth", "float", "a whole number from 1 to 20"),
    ("tree", "oak", "tree", "'oak'", "'oct' or 'mod'"),
    ("progress", 1, "progress", "int", "a callable, True or None")])
def test_refused_arguments(name, given_, what, found, expected):
    with pytest.raises((orvex.TypeError, orvex.ValueError, orvex.MeshError)) as raised:
        orvex.travel(**{"fixed": WALL, "movable": PART, "direction": "+z", name: given_})
    assert str(raised.value) == f"{what}: found {found}, expected {expected}"


@pytest.mark.parametrize("fixed, kind, message", [
    (wall(1, 0, math.nan), orvex.MeshError, "fixed: the z coordinate of a corner of triangle 0 is not a number (NaN)"),
    (wall(-math.inf, 0, 0), orvex.MeshError, "fixed: the x coordinate of a corner of triangle 0 is infinite"),
    (wall(0, -1e80, 0), orvex.MeshError,
     "fixed: a coordinate of 1e+80 is beyond the 1e+75 that can be computed with"),
    ((CORNERS, (ctypes.c_int * 3 * 0)()), orvex.MeshError, "fixed: there is no triangle"),
    ("no such file", FileNotFoundError, "[Errno 2] No such file or directory: 'no such file'"),
    ("/", IsADirectoryError, "[Errno 21] Is a directory: '/'")])
def test_refused_parts(fixed, kind, message):
    with pytest.raises(kind) as raised:
        orvex.travel(fixed, PART, "+z")
    assert str(raised.value) == message


def test_a_wrong_file_tells_the_place(tmp_path):
    path = tmp_path / os.fsdecode(b"odd\xff.off")
    path.write_text("OFF\n3 1 0\n0 0 5\n4 0 nan\n0 4 5\n3 0 1 2\n")
    with pytest.raises(orvex.MeshError) as raised:
        orvex.travel(WALL, path, "+z")
    error = pickle.loads(pickle.dumps(raised.value))
    assert (error.file, error.line, error.byte) == (str(path), 4, None)
    assert str(error) == f"{path}, line 4: {error.reason}" and isinstance(error, (orvex.Error, ValueError))


odd = st.sampled_from([None, True, 0, -1, 7, 2**70, 0.5, -0.0, math.inf, math.nan, 1j, "", "+x", "1,2,3", "a\0b", "\ud800",
                       b"", b"+x", range(3), {}, {1, 2, 3}, [[]], object(), len, WALL, *WALL, *PART]) | st.floats()
anything = odd | st.tuples(odd, odd) | st.lists(odd, min_size=3, max_size=3)


@settings(max_examples=200, deadline=None)
@given(st.dictionaries(st.sampled_from(["fixed", "movable", "direction", "bound", "depth", "tree"]), anything))
def test_wrong_kinds_raise_and_nothing_else(change):
    try:
        orvex.travel(**{"fixed": WALL, "movable": PART, "direction": "+z", **change})
    except (TypeError, ValueError, OverflowError, OSError) as error:
        assert str(error)


def test_the_result_is_a_value():
    touched = orvex.travel(WALL, PART, "+z", 10)
    clear = orvex.travel(WALL, PART, "-z", math.inf)
    assert touched and not clear
    assert (clear.travel, clear.pair, clear.points, clear.bound) == (None,) * 4
    assert repr(touched) == (
        "TravelResult(state='contact', travel=4.0, pair=(0, 0), points=((1.0, 2.0, 5.0), (1.0, 2.0, 1.0)), "
        "bound=10.0, tolerance=1e-06, direction=(0.0, 0.0, 1.0), skipped=(0, 0), notes=())")
    for result in (touched, clear):
        for other in (pickle.loads(pickle.dumps(result)), copy.copy(result), copy.deepcopy(result),
                      eval(repr(result), vars(orvex))):
            assert other == result and hash(other) == hash(result)
    assert touched != clear and touched != "contact"
    for attempt in (lambda: setattr(touched, "travel", 5.0), lambda: delattr(touched, "travel"),
                    lambda: setattr(touched, "other", 5.0)):
        with pytest.raises(AttributeError, match="^a TravelResult is immutable: '(travel|other)' cannot be"):
            attempt()


def test_notes_and_skipped_triangles():
    tiny = table("d", [(0, 0, 0), (4e-6, 0, 0), (0, 4e-6, 0)]), table("i", [(0, 1, 2), (1, 1, 1)])
    result = orvex.travel(tiny, PART, "+z")
    assert result.skipped == (1, 0)
    assert result.notes == ("fixed is so small that the trees stop at depth 2, where their boxes come near the "
                            "tolerance",)


def test_numpy_is_not_imported():
    code = ("import array, orvex, sys\n"
            "print(orvex.travel(sys.argv[1], sys.argv[2], '-z').state, 'numpy' in sys.modules)")
    done = subprocess.run([sys.executable, "-c", code, PARTS / "plate.stl", PARTS / "pin.stl"], text=True,
                          capture_output=True, check=True, env={**os.environ, "PYTHONPATH": str(BUILD / "python")})
    assert done.stdout == "contact False\n"
