"""Handles on the objects of the sample application."""

import copy
import pickle
import pathlib
import subprocess
import sys

import orvex
import orvex_sample
import orvex_testing
import pytest
from hypothesis import given, strategies as st

UNKNOWN = "'Part' object has no attribute "
READ_ONLY = {"errorType": 1, "attribute": "name"}
EXAMPLES = pathlib.Path(__file__).parents[2] / "examples"


@pytest.fixture(autouse=True)
def model():
    orvex_sample.reset()
    return orvex.mdb.models["M"]


@pytest.fixture
def part(model):
    return model.parts["P1"]


def test_read_as_their_path(model, part):
    assert repr(model.parts["it's"]) == "mdb.models['M'].parts[\"it's\"]"
    assert [repr(orvex.mdb), repr(part)] == ["mdb", "mdb.models['M'].parts['P1']"]
    assert str(part) == "({'name': 'P1', 'width': 2.0, 'copies': 1, 'comment': ''})"


def test_members(part):
    part.width = 3
    part.size += 0.5
    assert (part.width, part.size, part.area()) == (3.5, 3.5, 12.25)
    part.comment = "a\0b"
    assert part.comment == "a\0b"
    del part.comment
    assert part.comment == ""
    assert {"width", "area", "setValues", "__len__"} <= set(dir(part)) and "size" not in dir(part)
    method = part.area
    assert (method.__name__, repr(method)) == ("area", "<method area of mdb.models['M'].parts['P1']>")


@pytest.mark.parametrize(
    "act, error, message, fields",
    [
        (lambda p: p.colour, AttributeError, UNKNOWN + "'colour'", {"errorType": 2}),
        (lambda p: getattr(p, "width\0"), AttributeError, UNKNOWN + "'width\0'", {}),
        (lambda p: getattr(p, "\udcff"), AttributeError, UNKNOWN + "'\udcff'", {}),
        (lambda p: setattr(p, "colour", 1), AttributeError, UNKNOWN + "'colour'", {"errorType": 2}),
        (lambda p: setattr(p, "name", "x"), AttributeError, "name is read-only", READ_ONLY),
        (lambda p: delattr(p, "width"), AttributeError, "width is read-only", {"errorType": 1}),
        (lambda p: setattr(p, "width", "x"), TypeError, "arg1; found string, expecting float", {"argNum": 1}),
        (lambda p: setattr(p, "width", {1.5: 0}), TypeError, None, {}),
        (lambda p: p.scale("x"), TypeError, "arg1; found string, expecting float", {"argNum": 1}),
        (lambda p: p[0], TypeError, "'Part' object is not subscriptable", {}),
        (lambda p: len(p), TypeError, "'Part' object has no len()", {}),
        (lambda p: iter(p), TypeError, "'Part' object is not iterable", {}),
        (lambda p: 1 in p, TypeError, "'Part' object is not iterable", {}),
        (lambda p: p + p, orvex.Error, "Error: Illegal operation for type", {}),
        (lambda p: p * p, orvex.Error, "Error: Illegal operation for type", {}),
        (lambda p: p / p, orvex.Error, "Error: Illegal operation for type", {}),
        (lambda p: abs(p), orvex.Error, "Error: Illegal operation for type.", {}),
        (lambda p: -p, orvex.Error, "Error: Illegal operation for type.", {}),
        (lambda p: p + 1, TypeError, None, {}),
        (lambda p: pickle.dumps(p), TypeError, "a handle on an object of the application cannot be pickled", {}),
    ],
)
def test_refusals(part, act, error, message, fields):
    with pytest.raises(error) as raised:
        act(part)
    assert message is None or str(raised.value) == message
    assert fields.items() <= vars(raised.value).items()


def test_a_failed_command_leaves_the_object(model):
    with pytest.raises(orvex.RangeError, match="width must be a Float > 0.0") as raised:
        model.Part(name="plate", width=-1.0)
    assert raised.value.keyword == "width"
    assert "plate" not in model.parts


def test_sequences_index_as_the_library_says(model):
    # On purpose not as Python does.
    points = model.vertices
    assert [points[i].index for i in (0, 2, -1, -3, -5, -(10**30))] == [0, 2, 2, 0, 0, 0]
    for index in (3, 7, 10**30):
        with pytest.raises(orvex.IndexError) as raised:
            points[index]
        assert str(raised.value) == str(index)
    assert [p.index for p in points[-9:3]] == [0, 1, 2] and points[2:1] == []
    with pytest.raises(orvex.IndexError):
        points[0:4]
    for key in ("x", 1.0, None, slice(0, 3, 2)):
        with pytest.raises((TypeError, ValueError)):
            points[key]


def test_sequences(model):
    points = model.vertices
    assert len(points) == 3 and [p.coordinates for p in points] == [(0.0, 0.0), (1.0, 0.0), (1.0, 2.0)]
    assert points[1] in points and 7 not in points
    assert points[2] + points[1] == (2.0, 2.0) and points[2] - points[1] == (0.0, 2.0)
    points[-1] = (5, 6)
    assert points[2].coordinates == (5.0, 6.0)
    with pytest.raises(TypeError):
        points[0:1] = [(1, 1)]
    last = points[2]
    del points[0]
    del points[0:1]
    assert [p.coordinates for p in points] == [(5.0, 6.0)]
    with pytest.raises(orvex.AccessError):
        last.coordinates
    del points[:]
    assert len(points) == 0 and bool(points)


def test_dictionaries(model):
    parts = model.parts
    assert list(parts) == parts.keys() == ["P1", "it's"] and len(parts) == 2
    assert "P1" in parts and "P2" not in parts and 1 not in parts
    assert parts.items()[0] == ("P1", parts["P1"]) and parts.has_key("P1")
    for key in ("P2", 1, 2**31, b"P1"):
        with pytest.raises(orvex.KeyError):
            parts[key]
    with pytest.raises(orvex.KeyError) as raised:
        del parts["P'2"]
    assert str(raised.value) == "P'2" == raised.value.value
    parts.changeKey(fromName="P1", toName="P2")
    del parts["P2"]
    del parts["it's"]
    assert bool(parts) and not len(parts)


def test_are_equal_by_path_and_hashable(model, part):
    again = orvex.mdb.models["M"].parts["P1"]
    assert part == again and part is not again and hash(part) == hash(again)
    assert part != model and part != "P1"
    assert orvex.echo(part) == copy.copy(part) == copy.deepcopy([part])[0] == part
    assert len({part, again, model, orvex.mdb, orvex.session}) == 4


STALE = [
    lambda p: p.width,
    lambda p: p.nothing,
    lambda p: setattr(p, "width", 1),
    lambda p: delattr(p, "comment"),
    lambda p: p.area(),
    lambda p: p[0],
    lambda p: p.__len__(),
    lambda p: iter(p),
    lambda p: 1 in p,
    lambda p: -p,
]


@pytest.mark.parametrize("act", STALE)
@pytest.mark.parametrize(
    "find",
    [lambda m: m.parts["P1"], lambda m: m.parts, lambda m: m.vertices],
    ids=["object", "dictionary", "sequence"],
)
def test_stale_handles(model, act, find):
    handle = find(model)
    path, area = repr(handle), model.parts["P1"].area
    del model.parts["P1"]
    del orvex.mdb.models["M"]
    with pytest.raises(orvex.AccessError) as raised:
        act(handle)
    assert (str(raised.value), raised.value.value) == (f"{path} no longer exists", path)
    with pytest.raises(orvex.AccessError):
        area()
    assert repr(handle) == path and str(handle).startswith("<") and handle == orvex.echo(handle)
    assert bool(handle) and hash(handle) == hash(orvex.echo(handle)) and copy.copy(handle) == handle
    assert "__len__" in dir(handle) and not hasattr(handle, "__deepcopy_hook__")


def test_commands_and_roots():
    assert repr(orvex.Model) == "<command Model>" and orvex.Model.__name__ == "Model"
    orvex.Model(name="N")
    orvex.mdb.Model("O")
    assert list(orvex.mdb.models) == ["M", "N", "O"]
    assert {"mdb", "session", "Model"} <= set(dir(orvex))
    with pytest.raises(AttributeError, match="module 'orvex' has no attribute 'model'"):
        orvex.model
    assert repr(orvex.session) == "session"


@given(st.integers(), st.integers())
def test_any_index(first, last):
    points = orvex.mdb.models["M"].vertices
    for key in (first, slice(first, last)):
        try:
            points[key]
        except IndexError as error:
            assert str(error) in (str(first), str(last))


def test_constants():
    orvex_testing.add_constant("LATE_ONE", False)
    orvex_testing.add_constant("LATE_TWO", True)
    from orvex import LATE_ONE, LATE_TWO

    assert (str(LATE_ONE), repr(LATE_TWO), LATE_ONE.name) == ("LATE_ONE", "LATE_TWO", "LATE_ONE")
    assert LATE_ONE is orvex.LATE_ONE is orvex.echo(LATE_ONE)
    assert LATE_ONE == orvex.SymbolicConstant("LATE_ONE") != LATE_TWO
    assert LATE_ONE != "LATE_ONE" and "LATE_ONE" != LATE_ONE
    assert {LATE_ONE: 1}[pickle.loads(pickle.dumps(LATE_ONE))] == 1
    assert "LATE_TWO" in vars(orvex) and "LATE_TWO" in dir(orvex)
    odd = orvex.SymbolicConstant("odd name")
    assert eval(repr(orvex.echo(odd)), vars(orvex)) == odd
    with pytest.raises(AttributeError):
        orvex.NEVER_ADDED


def test_star_import_leaves_pythons_errors_alone():
    names = {}
    exec("from orvex import *", names)
    assert "Error" in names and not {"TypeError", "KeyError", "ValueError"} & set(names)


def test_the_example_runs():
    script = EXAMPLES / "scripting" / "sample_repository.py"
    run = subprocess.run([sys.executable, script], capture_output=True, text=True, check=True)
    assert "refused: name is read-only\n" in run.stdout and "gone: mdb.models['bracket'].parts['rib']" in run.stdout
