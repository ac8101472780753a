"""Values on their way through the library and back."""

import array
import copy
import math
import pickle
import struct
import sys
import weakref

import orvex
import orvex_testing  # registers the commands
import pytest
from hypothesis import given, settings, strategies as st

echo = orvex.echo
MIXED = "; keys are all str or all int"
INT_RANGE = "it must be -2147483648 to 2147483647"
TOO_DEEP = "value is nested too deep, or holds itself; maximum depth is 200"


def same(a, b):
    """Equal in type and value at every level, a NaN and the sign of a zero included."""
    if type(a) is not type(b):
        return False
    if isinstance(a, (tuple, list)):
        return len(a) == len(b) and all(map(same, a, b))
    if isinstance(a, dict):
        return list(a) == list(b) and all(same(a[key], b[key]) for key in a)
    if isinstance(a, float):
        return struct.pack("d", a) == struct.pack("d", b)
    if isinstance(a, complex):
        return same(a.real, b.real) and same(a.imag, b.imag)
    return a == b


# What a file's name may be: every byte that is no UTF-8 as a surrogate.
texts = st.text(st.characters(blacklist_categories=["Cs"])) | st.binary().map(
    lambda raw: raw.decode("utf-8", "surrogateescape")
)
ints = st.integers(-(2**31), 2**32 - 1)
names = st.from_regex(r"[A-Z][A-Z0-9_]{0,8}", fullmatch=True)
shapes = st.lists(st.integers(1, 4), min_size=1, max_size=3)


def filled(code, numbers):
    def fill(shape):
        size = math.prod(shape)
        return st.lists(numbers, min_size=size, max_size=size).map(
            lambda flat: orvex.Array(memoryview(array.array(code, flat)).cast("B").cast(code, shape))
        )

    return shapes.flatmap(fill)


def trees(leaves, keys):
    return st.recursive(
        leaves | arrays | names.map(orvex.SymbolicConstant),
        lambda inner: st.lists(inner, max_size=4) | st.lists(inner, max_size=4).map(tuple) | st.one_of(
            [st.dictionaries(key, inner, max_size=4) for key in keys]), max_leaves=15)


finite = st.floats(allow_nan=False, allow_infinity=False)
# Python's own text of a complex number loses the sign of a part that is zero.
nonzero = finite.filter(bool)
arrays = filled("i", st.integers(-(2**31), 2**31 - 1)) | filled("d", finite)
plain = st.none() | st.booleans() | ints | texts
values = trees(plain | st.floats() | st.complex_numbers() | names.map(orvex.Type) | st.binary()
               | st.lists(texts).map(orvex.Path), [texts, st.integers(-(2**31), 2**31 - 1)])


@settings(deadline=None)
@given(values)
def test_keep_type_and_value(value):
    assert same(echo(value), value)
    assert same(echo(copy.deepcopy(value)), value)
    assert same(pickle.loads(pickle.dumps(echo(value))), value)


@settings(deadline=None)
@given(trees(plain | finite | st.builds(complex, nonzero, nonzero), [texts]))
def test_repr_evaluates_to_the_value(value):
    assert same(eval(repr(echo(value)), vars(orvex)), value)


def nested(levels):
    value = []
    for _ in range(levels - 1):
        value = [value]
    return value


@pytest.mark.parametrize("value, error, message", [
    (2**32, OverflowError, "integer out of range; it must be -2147483648 to 4294967295"),
    ({1.5: 0}, TypeError, "dictionary key 1.5 is of type float" + MIXED),
    ({"a": 0, 1: 0}, TypeError, "dictionary key 1 is of type int" + MIXED),
    ({2**31: 0}, OverflowError, "dictionary key 2147483648 is out of range; " + INT_RANGE),
    (array.array("q", [2**31]), OverflowError, "array element 2147483648 is out of range; " + INT_RANGE),
    (nested(201), OverflowError, TOO_DEEP),
    ("\ud800", UnicodeEncodeError, None)])
def test_are_refused(value, error, message):
    with pytest.raises(error) as raised:
        echo(value)
    assert message is None or (str(raised.value) == message and isinstance(raised.value, orvex.Error))
    assert echo(nested(200)) == nested(200)


def test_shared_lists_do_not_unfold_into_all_memory():
    value = [0] * 1000
    for _ in range(50):
        value = [value, value]
    with pytest.raises(orvex.OverflowError, match="value holds too many others"):
        echo(value)


@pytest.mark.parametrize("value", [bytearray(b"ab"), {1, 2}, object()])
def test_other_objects_come_back_as_themselves(value):
    assert echo(value) is value
    assert echo([{"a": value}])[0]["a"] is value


def test_the_library_asks_the_objects():
    class Odd:
        def __repr__(self):
            return "<odd>"

        def __eq__(self, other):
            raise LookupError("not now")

    assert (orvex.text([Odd()]), orvex.textOnThread(Odd())) == ("[<odd>]", "<odd>")
    with pytest.raises(LookupError, match="not now"):
        orvex.equal(Odd(), Odd())


@pytest.mark.parametrize("let_go", [lambda: orvex.keep(0), orvex.dropOnThread], ids=["here", "on a thread"])
def test_references_are_released(let_go):
    watched = type("Watched", (), {})()
    seen = weakref.ref(watched)
    orvex.keep([watched])
    del watched
    assert seen() is not None
    let_go()
    assert seen() is None


def test_values_without_a_python_class():
    value = orvex.expression(1)
    assert (repr(value), value.type, type(value)) == ("1", "expression", orvex.Value)
    assert echo(value) == value != orvex.expression(2)
    failed = orvex.failure()
    assert isinstance(failed, orvex.OrvexError) and failed.value == "plain words"


@pytest.mark.parametrize("code", "bBhHiIlLqQfd")
def test_arrays_of_every_kind(code):
    flat = array.array(code, [0, 1, 2, 3, 4, 5])
    got = echo(memoryview(flat).cast("B").cast(code, (2, 3)))
    assert (got.shape, got.tolist()) == ((2, 3), [[0, 1, 2], [3, 4, 5]])
    assert got.format == (code if code in "fd" else "i")
    assert echo(memoryview(flat)[::-2]).tolist() == [5, 3, 1]
    view = memoryview(got)
    assert (view.readonly, view.tolist()) == (True, got.tolist())
    assert orvex.Array(got, "d") == got and len(got) == 2


def test_numpy():
    numpy = pytest.importorskip("numpy")
    assert echo(numpy.arange(6, dtype=">i2").reshape(2, 3).T).tolist() == [[0, 3], [1, 4], [2, 5]]
    assert echo(numpy.array([0.5, 2], dtype="e")).tolist() == [0.5, 2.0]
    assert echo(numpy.zeros((0, 3))).shape == (0,)
    assert same(echo(numpy.int64(3)), 3) and same(echo(numpy.float64(3)), 3.0)


@given(arrays, st.lists(st.integers(), max_size=4))
def test_items_of_arrays(value, indices):
    expected = value.tolist()
    try:
        for index in indices:
            expected = expected[index]
    except (IndexError, TypeError):
        with pytest.raises(IndexError):
            value[tuple(indices)]
    else:
        if indices:
            found = value[tuple(indices)]
            assert (found if len(indices) == len(value.shape) else found.tolist()) == expected
    assert [item if isinstance(item, (int, float)) else item.tolist() for item in value] == value.tolist()
    assert value[1:].tolist() == (value.tolist()[1:] or [])


def test_values_do_not_leak():
    def traffic():
        for _ in range(200):
            echo([1, {"a": (2.5, "x", b"y")}, orvex.SymbolicConstant("FEW"), orvex.Array([1, 2])])
            with pytest.raises(TypeError):
                echo([{1.5: b"z"}])

    traffic()
    before = sys.getallocatedblocks()
    traffic()
    assert sys.getallocatedblocks() - before < 100
