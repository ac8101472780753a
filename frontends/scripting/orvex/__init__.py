"""The scripting language of Orvex in Python.

``orvex.mdb`` and ``orvex.session`` are the roots of the application's objects; commands and symbolic constants
are attributes of this module under the names that the application registers::

    from orvex import *

    mdb.Arrow(name="A", startPoint=(10, 10), endPoint=(60, 40), color="Red")
    mdb.annotations["A"].setValues(lineStyle=DASHED)

`save` and `open` write what mdb holds to a file and read it back, `picture` draws it. Importing starts the
library, the interpreter's exit stops it.
"""

from typing import Any as _Any

from . import _orvex
from ._errors import *
from ._orvex import Array, Command, Method, Object, Path, SymbolicConstant, Type, Value, __version__
from ._mesh import MeshFlaw, MeshResult, mesh
from ._session import open, picture, save
from ._travel import MeshError, TravelResult, travel

# Not the names that Python has too, of errors and "open": "from orvex import *" leaves those alone.
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
    "MeshFlaw",
    "MeshResult",
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
    "mesh",
    "picture",
    "save",
    "travel",
]
# The roots, commands and symbolic constants of that moment; later ones are attributes all the same.
__all__ += [name for name in _orvex.all_names() if not name.startswith("_")]


def __getattr__(name: str) -> _Any:
    """A root, a command or a symbolic constant, as they are registered at that moment."""
    return _orvex.look_up(name)


def __dir__() -> list[str]:
    return sorted({*globals(), *_orvex.all_names()})
