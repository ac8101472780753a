"""The exceptions of orvex.

Each says which error of the scripting language it is by its class. Where Python has an error of that name the
class derives from it too, so that ``except TypeError`` catches ``orvex.TypeError``. The one argument is the
message; what the message was made of stands in attributes (``keyword``, ``expecting``, ``found``,
``nestingStr``, ``errorType``, ``value`` ...), which differ from error to error.
"""

# The names of this file that are no errors begin with "_": the package takes all others as its own.
import builtins as _builtins
import typing as _typing


class Error(Exception):
    """An error that the library raised."""

    def __str__(self) -> str:
        # KeyError's own would quote the message.
        return str(self.args[0]) if len(self.args) == 1 else Exception.__str__(self)

    if _typing.TYPE_CHECKING:

        def __getattr__(self, name: str) -> _typing.Any:
            """The fields, which differ from error to error."""


class AccessError(Error):
    """The object behind a handle is gone; value is its path."""


class AttributeError(Error, _builtins.AttributeError):
    """An object has no such attribute, or it is read-only."""


class ColorError(Error):
    """A colour that is none."""


class FontError(Error):
    """A font that is none."""


class GuiAccessError(Error):
    """Something that only a graphical session offers."""


class IndexError(Error, _builtins.IndexError):
    """An index outside its sequence; value is the index, where it is one number."""

    value: int | None = None


class KeyError(Error, _builtins.KeyError):
    """A key that a dictionary does not have."""


class MementoError(Error):
    """Stored data that cannot be read, or what cannot be stored.

    byte is the offset in the file where that is known, else None; object is the number of the object, else 0;
    className is the class of the object.
    """

    byte: int | None = None
    object: int = 0
    className: str = ""


class NameError(Error, _builtins.NameError):
    """A name that is not defined."""


class OrvexError(Error):
    """An error told in plain words."""


class OrvexNameError(Error):
    """A name that objects of the application cannot have."""


class OverflowError(Error, _builtins.OverflowError):
    """A number or a length beyond what can be held."""


class RangeError(Error, _builtins.ValueError):
    """A number outside the limits of its argument."""


class TypeError(Error, _builtins.TypeError):
    """Arguments of a wrong type or number."""


class ValueError(Error, _builtins.ValueError):
    """A value of the right type that is not allowed."""


class ZeroDivisionError(Error, _builtins.ZeroDivisionError):
    """A division by zero."""


#: By the name of the scripting language's error type: every class of this file.
_CLASSES: dict[str, type[Error]] = {
    name: cls for name, cls in globals().items() if isinstance(cls, type) and issubclass(cls, Error)
}
for _cls in _CLASSES.values():
    _cls.__module__ = "orvex"
del _cls
