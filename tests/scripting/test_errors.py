"""The library's exceptions as Python's."""

import builtins
import copy
import pickle

import orvex
import orvex_testing
import pytest

# What is thrown: the class that arrives, its message, its fields.
EXPECTED = {
    "omu_AccessErrorException": ("AccessError", "mdb.models['M'] no longer exists", {"value": "mdb.models['M']"}),
    "omu_ArgNumberErrorException": (
        "TypeError",
        "too many arguments; expected 1, got 4",
        {"expecting": 1, "found": 4, "nestingStr": ""},
    ),
    "omu_ArgTypeErrorException": (
        "TypeError",
        "s.f[1]; found string, expecting float",
        {"argNum": 2, "expecting": "float", "found": "string", "nestingStr": "s.f"},
    ),
    "omu_AttributeErrorException": (
        "AttributeError",
        "name is read-only",
        {"errorType": 1, "attribute": "name"},
    ),
    "g3d_ColorErrorException": ("ColorError", "Reddish is not a valid color name.", {"value": "Reddish"}),
    "omu_FontErrorException": ("FontError", "Courier is not a valid font.", {"value": "Courier"}),
    "omu_GenericTypeErrorException": ("TypeError", "illegal argument type for built-in operation", {}),
    "omu_GuiAccessErrorException": ("GuiAccessError", "highlight", {"value": "highlight"}),
    "omu_IndexErrorException": ("IndexError", "-1", {"value": -1}),
    "omu_KeyErrorException": ("KeyError", "P'1", {"value": "P'1"}),
    "omu_KeywordErrorException": ("TypeError", "keyword error on widht", {"keyword": "widht", "nestingStr": ""}),
    "omu_KeywordTypeErrorException": (
        "TypeError",
        "width; found string, expecting float",
        {"keyword": "width", "expecting": "float", "found": "string", "nestingStr": ""},
    ),
    "omu_NameErrorException": ("NameError", "no such name", {"value": "no such name"}),
    "omu_OrvNameErrorException": ("OrvexNameError", "invalid job name", {"error": 2}),
    "omu_OverflowErrorException": ("OverflowError", "too much", {"value": "too much"}),
    "omu_PyOrvexException": ("OrvexError", "plain words", {"value": "plain words"}),
    "omu_RangeErrorException": (
        "RangeError",
        "n must be an Integer >= 1",
        {
            "keyword": "n",
            "keywordType": 1,
            "lowerLimitAsString": "1",
            "lowerLimitQualifier": 1,
            "higherLimitAsString": "",
            "higherLimitQualifier": 0,
        },
    ),
    "omu_ValueErrorException": ("ValueError", "not allowed", {"value": "not allowed"}),
    "omu_ZeroDivisionErrorException": ("ZeroDivisionError", "by zero", {"value": "by zero"}),
    "nex_PrimException": ("Error", "refused", {}),
    "nex_InternalException": ("Error", "broken", {}),
    "nex_RangeException": ("IndexError", "index 7 out of range, length 3", {}),
    "bio_DataException": ("MementoError", "bool 7 at byte 5 is neither 0 nor 1", {}),
}
PLAIN = {"std::bad_alloc": MemoryError, "std::runtime_error": RuntimeError, "int": RuntimeError}


def thrown(name, way):
    with pytest.raises(BaseException) as raised:
        way(name)
    return raised.value


# Through a command, and through a function of another module that pybind11 made.
WAYS = [lambda name: orvex.fail(name=name), orvex_testing.fail]


def test_every_class_is_here():
    assert set(orvex_testing.FAILURES) == set(EXPECTED) | set(PLAIN)


@pytest.mark.parametrize("way", WAYS, ids=["command", "function"])
@pytest.mark.parametrize("name", EXPECTED)
def test_arrive_as_what_they_are(name, way):
    cls, message, fields = EXPECTED[name]
    error = thrown(name, way)
    assert type(error) is getattr(orvex, cls)
    assert isinstance(error, orvex.Error)
    assert (str(error), error.args) == (message, (message,))
    assert vars(error) == fields
    for other in (copy.copy(error), pickle.loads(pickle.dumps(error))):
        assert (type(other), other.args, vars(other)) == (type(error), error.args, vars(error))


@pytest.mark.parametrize("name", PLAIN)
def test_arrive_as_pythons_own(name):
    assert type(thrown(name, WAYS[0])) is PLAIN[name]


@pytest.mark.parametrize("cls", [value for value in vars(orvex).values() if isinstance(value, type)])
def test_derive_from_the_error_that_python_has(cls):
    if issubclass(cls, orvex.Error):
        own = getattr(builtins, cls.__name__, None)
        assert own is None or issubclass(cls, own)
    assert issubclass(orvex.RangeError, ValueError)


@pytest.mark.parametrize(
    "call, message",
    [
        (lambda: orvex.five(), "not all required arguments specified; expected 5, got 0"),
        (
            lambda: orvex.five(1, 2, "a", (1, "b"), orvex.SymbolicConstant("INT")),
            "point[1]; found string, expecting float",
        ),
        (lambda: orvex.five(count=1.5), "count; found float, expecting int"),
        (lambda: orvex.five(other=1), "keyword error on other"),
        (lambda: orvex.five(1, 2, 3), "arg3; found int, expecting string"),
    ],
)
def test_arguments_are_read_by_the_command(call, message):
    with pytest.raises(orvex.TypeError) as raised:
        call()
    assert str(raised.value) == message


def test_keywords_keep_their_order():
    assert orvex.callText(1, 2.0, name="x", **{"\udcff\0": [None]}) == "(1, 2.0, name='x', \udcff\0=[None])"
