"""What an answer of several fields is."""

from __future__ import annotations

from typing import Any


class Result:
    """An immutable value of the fields that __slots__ names; those of __match_args__ make its hash and its repr."""

    __match_args__: tuple[str, ...] = ()
    __slots__: tuple[str, ...] = ()

    def __init__(self, *fields: Any) -> None:
        """Takes the fields in their order."""
        for name, value in zip(self.__slots__, fields, strict=True):
            object.__setattr__(self, name, value)

    def _fields(self) -> tuple[Any, ...]:
        return tuple(getattr(self, name) for name in self.__slots__)

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, type(self)):
            return NotImplemented
        return self._fields() == other._fields()

    def __hash__(self) -> int:
        return hash(tuple(getattr(self, name) for name in self.__match_args__))

    def __repr__(self) -> str:
        shown = [f"{name}={getattr(self, name)!r}" for name in self.__match_args__]
        if len(self.__slots__) > len(shown):
            shown.append("...")
        return f"{type(self).__name__}({', '.join(shown)})"

    def __reduce__(self) -> tuple[Any, ...]:
        return type(self), self._fields()

    def __copy__(self) -> Result:
        return self

    def __deepcopy__(self, memo: object) -> Result:
        return self

    def __setattr__(self, name: str, value: object) -> None:
        raise AttributeError(f"a {type(self).__name__} is immutable: {name!r} cannot be set")

    def __delattr__(self, name: str) -> None:
        raise AttributeError(f"a {type(self).__name__} is immutable: {name!r} cannot be deleted")
