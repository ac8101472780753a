"""The scripting language of Orvex in Python.

``orvex.mdb`` and ``orvex.session`` are the roots of the application's objects; commands and symbolic constants
are attributes of this module under the names that the application registers::

    import orvex
    from orvex import DASHED

    part = orvex.mdb.models["M"].parts["P1"]
    part.width = 2.5

Importing starts the library, the interpreter's exit stops it.
"""

from typing import Any as _Any

from . import _orvex
from ._errors import *
from ._orvex import Array, Command, Method, Object, Path, SymbolicConstant, Type, Value
from ._travel import MeshError, TravelResult, travel

# Not the errors whose names Python has too: "from orvex import *" leaves those alone.
__all__ = [
    "AccessError",
    "Array",
    "ColorError",
    "Command",
    "Error",
    "FontError",
    "GuiAccessError",
    "MementoError",
    "MeshError",
    "Method",
    "Object",
    "OrvexError",
    "OrvexNameError",
    "Path",
    "RangeError",
    "SymbolicConstant",
    "TravelResult",
    "Type",
    "Value",
    "travel",
]


def __getattr__(name: str) -> _Any:
    """A root, a command or a symbolic constant, as they are registered at that moment."""
    return _orvex.look_up(name)


def __dir__() -> list[str]:
    return sorted({*globals(), *_orvex.all_names()})
