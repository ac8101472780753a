"""The library's exceptions as Python's."""

import builtins
import copy
import pickle

import orvex
import orvex_testing
import pytest

# What the exceptions say, of every kind of field.
SAID = {
    "ColorError": ("Reddish is not a valid color name.", {"value": "Reddish"}),
    "IndexError, nex": ("index 7 out of range, length 3", {}),
    "MementoError": ("bool 7 at byte 5 is neither 0 nor 1", {}),
}


# Through a command, and through a function of another module that pybind11 made.
@pytest.mark.parametrize("way", [orvex.fail, orvex_testing.fail], ids=["command", "function"])
@pytest.mark.parametrize("name", orvex_testing.FAILURES)
def test_arrive_as_what_they_are(name, way):
    with pytest.raises(BaseException) as raised:
        way(name)
    error, kind = raised.value, name.partition(",")[0]
    assert type(error) is (getattr(orvex, kind, None) or getattr(builtins, kind))
    if name in SAID:
        assert (str(error), vars(error)) == SAID[name]
        if kind == "MementoError":
            assert (error.byte, error.object, error.className) == (None, 0, "")
        for other in (copy.copy(error), pickle.loads(pickle.dumps(error))):
            assert (type(other), other.args, vars(other)) == (type(error), (str(error),), vars(error))


@pytest.mark.parametrize("cls", orvex.Error.__subclasses__())
def test_derive_from_the_error_that_python_has(cls):
    own = ValueError if cls is orvex.RangeError else getattr(builtins, cls.__name__, Exception)
    assert issubclass(cls, own)


@pytest.mark.parametrize("arguments, message, fields", [
    ({}, "not all required arguments specified; expected 5, got 0", {"expecting": 5, "found": 0, "nestingStr": ""}),
    ({"count": 1, "scale": 2, "name": "a", "point": (1, "b"), "type": orvex.SymbolicConstant("INT")},
     "point[1]; found string, expecting float",
     {"argNum": 2, "expecting": "float", "found": "string", "nestingStr": "point"}),
    ({"other": 1}, "keyword error on other", {"keyword": "other", "nestingStr": ""})])
def test_arguments_are_read_by_the_command(arguments, message, fields):
    with pytest.raises(orvex.TypeError) as raised:
        orvex.five(**arguments)
    assert (str(raised.value), vars(raised.value)) == (message, fields)


def test_keywords_keep_their_order():
    assert orvex.callText(1, 2.0, name="x", **{"\udcff\0": [None]}) == "(1, 2.0, name='x', \udcff\0=[None])"
