"""How far a part can travel until it touches another."""

from __future__ import annotations

import collections.abc
import contextlib
import os
import sys
from typing import Any, Union

from . import _errors, _orvex
from ._result import Result

# The name of a file, or buffers of vertices and triangles.
_Mesh = Union[str, "os.PathLike[str]", "tuple[Any, Any]", "list[Any]"]
_Point = tuple[float, float, float]
_Progress = Union[collections.abc.Callable[[float, str], object], bool, None]


class MeshError(_errors.Error, ValueError):
    """A mesh cannot be used: what is in a file is wrong, or what is in the arrays.

    file is the file's name, or for arrays "fixed", "movable" or "part"; line (from 1) or byte (from 0) is the place in
    the file where it is known. A file that cannot be read at all raises OSError.
    """

    __module__ = "orvex"

    def __init__(self, file: str, reason: str, line: int | None = None, byte: int | None = None) -> None:
        place = f", line {line}" if line is not None else f", byte {byte}" if byte is not None else ""
        super().__init__(f"{file}{place}: {reason}")
        self.file = file
        self.reason = reason
        self.line = line
        self.byte = byte

    def __reduce__(self) -> tuple[Any, ...]:
        return type(self), (self.file, self.reason, self.line, self.byte)


class TravelResult(Result):
    """What `travel` found out; immutable, false when nothing is touched.

    state is "contact" (goes that far, then touches), "touching" or "overlapping" (where it stands), or "clear".
    travel, pair and points are None when clear. pair is the fixed and the movable triangle that touch, counted
    from 0; points are where: on the fixed part, and on the movable one before it travels. bound is None when
    there was none. direction has length 1. skipped counts the triangles left out: those without an area, and
    those outside the search trees. notes are sentences on what is odd about the parts.
    """

    __match_args__ = ("state", "travel", "pair", "points", "bound", "tolerance", "direction", "skipped", "notes")
    __slots__ = __match_args__

    state: str
    travel: float | None
    pair: tuple[int, int] | None
    points: tuple[_Point, _Point] | None
    bound: float | None
    tolerance: float
    direction: _Point
    skipped: tuple[int, int]
    notes: tuple[str, ...]

    def __init__(
        self,
        state: str,
        travel: float | None,
        pair: tuple[int, int] | None,
        points: tuple[_Point, _Point] | None,
        bound: float | None,
        tolerance: float,
        direction: _Point,
        skipped: tuple[int, int],
        notes: tuple[str, ...] = (),
    ) -> None:
        super().__init__(state, travel, pair, points, bound, tolerance, direction, skipped, notes)

    def __bool__(self) -> bool:
        return self.state != "clear"


class _Bar:
    """Progress on standard error: a bar on a terminal, a line each 10 % elsewhere."""

    COLUMNS = 30

    def __init__(self) -> None:
        self._stream = sys.stderr
        self._drawn = self._stream is not None and self._stream.isatty()
        self._tens = 0

    def __call__(self, fraction: float, message: str) -> None:
        if self._stream is None:
            return
        percent = round(100 * fraction)
        if self._drawn:
            marks = "#" * round(self.COLUMNS * fraction)
            self._stream.write(f"\r\033[K[{marks:.<{self.COLUMNS}}] {percent:3d} % {message[:40]}")
        elif percent // 10 > self._tens:
            self._tens = percent // 10
            self._stream.write(f"{10 * self._tens:3d} %  {message}\n")
        self._stream.flush()

    def close(self) -> None:
        if self._drawn:
            self._stream.write("\n")


@contextlib.contextmanager
def _told(progress: _Progress) -> collections.abc.Iterator[collections.abc.Callable[[float, str], object] | None]:
    """Whom a job tells its progress: a bar for True, nobody for False and None, else the callable."""
    if progress is not True:
        yield progress or None
        return
    bar = _Bar()
    try:
        yield bar
    finally:
        bar.close()


def travel(
    fixed: _Mesh,
    movable: _Mesh,
    direction: collections.abc.Sequence[float] | str,
    bound: float | None = None,
    progress: _Progress = None,
    *,
    depth: int = 7,
    tree: str = "oct",
) -> TravelResult:
    """Tell how far the movable part can go along a direction until it touches the fixed one.

    A part is the name of an STL, OBJ or OFF file (str or os.PathLike), or a pair of buffers (vertices,
    triangles): N x 3 float64 numbers, and M x 3 integers of any width that count vertices from 0. Vertices are
    used in place, however they are strided; all buffers stay exported until the call ends. Changing them
    meanwhile gives a wrong answer or a MeshError.

    direction is three numbers of any length above zero, or an axis: "+x" to "-z". bound, above 0, is the travel
    from which on contacts do not matter. depth (1 to 20) and tree ("oct" or "mod") are those of the search
    trees; they change the time it takes, not the travel.

    progress is a callable, called as progress(fraction, message) on the calling thread, or True for a bar on
    standard error. The fraction grows from 0.0 to 1.0 in hundredths. An exception that it raises ends the call
    and comes out of it. Only one call at a time may show progress: RuntimeError otherwise.

    Other threads run meanwhile. On the main thread Ctrl-C raises KeyboardInterrupt within a tenth of a second.
    """
    with _told(progress) as told:
        return TravelResult(*_orvex._travel(fixed, movable, direction, bound, told, depth, tree))
