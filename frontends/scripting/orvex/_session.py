"""What `mdb` holds, in files and on pictures."""

from __future__ import annotations

import os
import warnings
from typing import Union

from . import _orvex

_Path = Union[str, bytes, "os.PathLike[str]", "os.PathLike[bytes]"]


def save(path: _Path) -> None:
    """Write what `mdb` holds, its annotations, to a file, which is replaced as a whole or stays as it was.

    A file that cannot be written raises OSError, something that cannot be stored MementoError.
    """
    _orvex._save(path)


def open(path: _Path) -> None:
    """Replace the annotations of `mdb` by those of a file that `save` wrote.

    Handles look up their annotation again by its name; one whose name is gone raises AccessError. Nothing is
    changed when the file cannot be read, which raises OSError, or is damaged or no such file, which raises
    MementoError. What is odd about the file and does no harm is a warning.
    """
    _orvex._open(path, lambda sentence: warnings.warn(sentence, stacklevel=3))


def picture(path: _Path, width: int = 800, height: int = 600) -> None:
    """Draw the annotations of `mdb` into a file: as SVG or PNG, by its suffix.

    width and height are those of the viewport in pixels, 96 to the inch, from 1 to 16384. Another size, and a
    suffix that names no format, raise ValueError, a file that cannot be written OSError. The file is written
    whole or not at all.
    """
    _orvex._picture(path, width, height)
