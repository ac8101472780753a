"""Whether a mesh is fit for use."""

from __future__ import annotations

from typing import Any, NamedTuple

from . import _orvex
from ._result import Result
from ._travel import _Mesh, _Point, _Progress, _told


class MeshFlaw(NamedTuple):
    """A kind of flaw: how many triangles have it, or edges, and the first triangles that do, from 0.

    name is "coincident", "collinear", "out of scale" or "sliver" (degenerate triangles, each counted under the
    first that applies), "duplicate", or, counting edges, "open", "non-manifold" or "misturned".
    """

    name: str
    count: int  # type: ignore[assignment]  # hides that of tuples, on purpose
    triangles: tuple[int, ...]


class MeshResult(Result):
    """What `mesh` found out; immutable, false for a mesh that is not fit for use.

    hindrances names what makes it unfit: names of flaws, and "inside out". triangles, points (merged), edges and
    groups are counts; largest holds the triangles of the largest groups. box is its lowest and its highest corner.
    closed means that no edge is open; volume is None unless the mesh is closed and its triangles are turned alike.
    mean is that of the shape factors, classes counts those in each tenth from 0 to 1, worst holds triangles with
    the lowest ones. flaws has an entry for every kind. notes are sentences on what is odd about the part.

    Of every triangle, as arrays that nobody changes: shape_factors, group_of (the number of its group) and
    merged_triangles (its points), whose coordinates are merged_points.
    """

    __match_args__ = (
        "hindrances", "tolerance", "triangles", "points", "edges", "groups", "largest", "box", "closed", "area",
        "volume", "mean", "classes", "worst", "flaws", "notes",
    )  # fmt: skip
    _ARRAYS = ("shape_factors", "group_of", "merged_points", "merged_triangles")
    __slots__ = __match_args__ + _ARRAYS

    hindrances: tuple[str, ...]
    tolerance: float
    triangles: int
    points: int
    edges: int
    groups: int
    largest: tuple[int, ...]
    box: tuple[_Point, _Point]
    closed: bool
    area: float
    volume: float | None
    mean: float
    classes: tuple[int, ...]
    worst: tuple[tuple[int, float], ...]
    flaws: tuple[MeshFlaw, ...]
    notes: tuple[str, ...]
    shape_factors: _orvex.Array
    group_of: _orvex.Array
    merged_points: _orvex.Array
    merged_triangles: _orvex.Array

    @property
    def fit(self) -> bool:
        return not self.hindrances

    def flaw(self, name: str) -> MeshFlaw:
        """The entry of that kind; raises KeyError for a name that is none."""
        for entry in self.flaws:
            if entry.name == name:
                return entry
        raise KeyError(name)

    def __bool__(self) -> bool:
        return self.fit


def mesh(
    part: _Mesh,
    tolerance: float = 0.0,
    progress: _Progress = None,
    *,
    sliver: float | None = None,
    open: bool = False,
    worst: int = 5,
) -> MeshResult:
    """Tell whether a mesh is fit for use: closed, turned alike, without degenerate or duplicate triangles.

    The part is the name of a file, or a pair of buffers, as `travel` takes it. Corners closer than the tolerance
    are one point, the first of them; with 0 those with the same coordinates are.

    No triangle may have a shape factor below sliver; without it those below 1e-6 are counted, and do not hinder.
    With open a sheet is meant: open edges do not hinder. worst is how many triangles are named of each kind.

    progress, threads and Ctrl-C are as in `travel`.
    """
    with _told(progress) as told:
        fields = list(_orvex._mesh(part, tolerance, told, sliver, open, worst))
    at = MeshResult.__match_args__.index("flaws")
    fields[at] = tuple(MeshFlaw(*entry) for entry in fields[at])
    return MeshResult(*fields)
