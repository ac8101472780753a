"""Handles on the objects of the sample application."""

import copy
import pathlib
import pickle
import subprocess
import sys

import orvex
import orvex_sample
import orvex_testing
import pytest
from hypothesis import given, strategies as st

EXAMPLES = pathlib.Path(__file__).parents[2] / "examples"


@pytest.fixture(autouse=True)
def model():
    orvex_sample.reset()
    return orvex.mdb.models["M"]


@pytest.fixture
def part(model):
    return model.parts["P1"]


def test_members(model, part):
    assert repr(model.parts["it's"]) == "mdb.models['M'].parts[\"it's\"]"
    assert str(part) == "({'name': 'P1', 'width': 2.0, 'copies': 1, 'comment': ''})"
    part.width = 3
    part.size += 0.5
    assert (part.width, part.size, part.area()) == (3.5, 3.5, 12.25)
    part.comment = "a\0b"
    assert part.comment == "a\0b"
    del part.comment
    assert part.comment == ""
    again = orvex.mdb.models["M"].parts["P1"]
    assert part == again and part is not again and hash(part) == hash(again) and part != model and part != "P1"
    assert {"width", "area", "setValues", "__len__"} <= set(dir(part)) and "size" not in dir(part)


@pytest.mark.parametrize("act, error, message", [
    (lambda p: p.colour, AttributeError, "'Part' object has no attribute 'colour'"),
    (lambda p: getattr(p, "\udcff\0"), AttributeError, "'Part' object has no attribute '\udcff\0'"),
    (lambda p: setattr(p, "name", "x"), AttributeError, "name is read-only"),
    (lambda p: delattr(p, "width"), AttributeError, "width is read-only"),
    (lambda p: p.scale("x"), TypeError, "arg1; found string, expecting float"),
    (lambda p: p[0], TypeError, "'Part' object is not subscriptable"),
    (lambda p: len(p), TypeError, "'Part' object has no len()"),
    (lambda p: 1 in p, TypeError, "'Part' object is not iterable"),
    (lambda p: p * p, orvex.Error, "Error: Illegal operation for type"),
    (lambda p: -p, orvex.Error, "Error: Illegal operation for type."),
    (lambda p: orvex.save("x"), AttributeError, "mdb has no annotations in this application"),
    (lambda p: pickle.dumps(p), TypeError, "a handle on an object of the application cannot be pickled"),
    (lambda p: orvex.mdb.models["M"].Part("plate", -1.0), orvex.RangeError, "width must be a Float > 0.0")])
def test_refusals_leave_the_object(model, part, act, error, message):
    before = str(part)
    with pytest.raises(error) as raised:
        act(part)
    assert str(raised.value) == message
    assert str(part) == before and len(model.parts) == 2
    if error is orvex.RangeError:
        assert {"keyword": "width", "keywordType": 2, "lowerLimitAsString": "0.0",
                "lowerLimitQualifier": 2}.items() <= vars(raised.value).items()


@given(st.integers(-9, 9) | st.integers(), st.integers(-9, 9) | st.integers())
def test_sequences_index_as_the_library_says(first, last):
    # On purpose not as Python does: below the start is the start, past the end is refused, in slices too.
    points = orvex.mdb.models["M"].vertices
    low = max(first + 3 if first < 0 else first, 0)
    high = max(last + 3 if last < 0 else last, 0)
    if low < 3:
        assert points[first].index == low
    else:
        with pytest.raises(orvex.IndexError, match=f"^{first}$") as raised:
            points[first]
        assert raised.value.value == first
    if low <= 3 and high <= 3:
        assert [point.index for point in points[first:last]] == list(range(low, high))
    else:
        with pytest.raises(orvex.IndexError):
            points[first:last]


def test_sequences(model):
    points = model.vertices
    assert len(points) == 3 and [p.coordinates for p in points] == [(0.0, 0.0), (1.0, 0.0), (1.0, 2.0)]
    assert points[1] in points and 7 not in points
    assert points[2] + points[1] == (2.0, 2.0) and points[2] - points[1] == (0.0, 2.0)
    points[-1] = (5, 6)
    del points[0]
    del points[0:1]
    assert [p.coordinates for p in points] == [(5.0, 6.0)]
    del points[:]
    assert len(points) == 0 and bool(points)


def test_dictionaries(model):
    parts = model.parts
    assert list(parts) == parts.keys() == ["P1", "it's"] and len(parts) == 2
    assert "P1" in parts and "P2" not in parts and 1 not in parts
    assert parts.items()[0] == ("P1", parts["P1"]) and parts.has_key("P1")
    for key in ("P'2", 1, 2**31, b"P1"):
        with pytest.raises(orvex.KeyError) as raised:
            parts[key]
        assert key != "P'2" or str(raised.value) == "P'2" == raised.value.value
    parts.changeKey(fromName="P1", toName="P2")
    del parts["P2"]
    assert bool(parts) and parts.keys() == ["it's"]


STALE = [lambda p: p.nothing, lambda p: setattr(p, "width", 1), lambda p: delattr(p, "comment"), lambda p: p.area(),
         lambda p: p[0], lambda p: p.__len__(), lambda p: iter(p), lambda p: 1 in p, lambda p: -p]


@pytest.mark.parametrize("find", [lambda m: m.parts["P1"], lambda m: m.parts, lambda m: m.vertices],
                         ids=["object", "dictionary", "sequence"])
def test_stale_handles(model, find):
    handle = find(model)
    path, area = repr(handle), model.parts["P1"].area
    del model.parts["P1"]
    del orvex.mdb.models["M"]
    for act in STALE:
        with pytest.raises(orvex.AccessError) as raised:
            act(handle)
        assert (str(raised.value), raised.value.value) == (f"{path} no longer exists", path)
    with pytest.raises(orvex.AccessError):
        area()
    assert repr(handle) == path and str(handle).startswith("<") and handle == orvex.echo(handle)
    assert bool(handle) and hash(handle) == hash(orvex.echo(handle)) and copy.copy(handle) == handle
    assert "__len__" in dir(handle) and not hasattr(handle, "__deepcopy_hook__")


def test_commands_roots_and_constants():
    orvex.Model(name="N")
    orvex.mdb.Model("O")
    assert list(orvex.mdb.models) == ["M", "N", "O"] == list(reversed(orvex.mdb.models))[::-1]
    assert {"Model", "models"} <= set(dir(orvex.mdb)) and "Model" not in dir(orvex.mdb.models["N"])
    orvex_testing.add_constant("LATE_ONE")
    from orvex import LATE_ONE, ON
    assert {"mdb", "session", "Model", "LATE_ONE"} <= set(dir(orvex))
    with pytest.raises(AttributeError, match="module 'orvex' has no attribute 'model'"):
        orvex.model
    assert (str(ON), repr(LATE_ONE), LATE_ONE.name) == ("ON", "LATE_ONE", "LATE_ONE")
    assert LATE_ONE is orvex.LATE_ONE is orvex.echo(LATE_ONE)
    assert LATE_ONE == orvex.SymbolicConstant("LATE_ONE") != ON
    assert {LATE_ONE: 1}[pickle.loads(pickle.dumps(LATE_ONE))] == 1


def test_star_import_leaves_pythons_names_alone():
    names = {}
    exec("from orvex import *", names)
    assert {"Error", "save", "mdb", "DASHED"} <= set(names) and not {"TypeError", "KeyError", "open"} & set(names)


def test_the_example_runs():
    script = EXAMPLES / "scripting" / "sample_repository.py"
    run = subprocess.run([sys.executable, script], capture_output=True, text=True, check=True)
    assert "refused: name is read-only\n" in run.stdout and "gone: mdb.models['bracket'].parts['rib']" in run.stdout
