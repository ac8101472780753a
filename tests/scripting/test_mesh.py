"""orvex.mesh: its answers against the driver's, and what it refuses."""

import copy
import json
import math
import pickle
import subprocess

import orvex
import pytest
from hypothesis import given, settings, strategies as st
from test_travel import BUILD, off_text, table
from test_travel_running import field, mesh as buffers

CORNERS = [(0, 0, 0), (1, 0, 0), (0, 1, 0), (0, 0, 1)]
TRIANGLES = [(0, 2, 1), (0, 1, 3), (1, 2, 3), (2, 0, 3)]
SOLID = table("d", CORNERS), table("i", TRIANGLES)


def driver(path, *options):
    done = subprocess.run([BUILD / "bin" / "orvex", "mesh", path, "--json", "--quiet", *options],
                          capture_output=True, check=False)
    assert done.returncode in (0, 1), done.stderr
    return done.returncode, json.loads(done.stdout)


coordinate = st.one_of(st.integers(-2, 2).map(float), st.floats(-3, 3, width=32))
vertices = st.lists(st.tuples(coordinate, coordinate, coordinate), min_size=3, max_size=12)


@settings(max_examples=25, deadline=None)
@given(vertices, st.sampled_from([0.0, 0.5, 10.0]), st.booleans(), st.sampled_from([None, 0.3]))
def test_the_drivers_answer(tmp_path_factory, points, tolerance, sheet, sliver):
    path = tmp_path_factory.getbasetemp() / "part.off"
    corners = [(i, (i + 1) % len(points), (i + 2) % len(points)) for i in range(len(points))]
    path.write_text(off_text(points, corners))
    options = ["--tolerance", str(tolerance), "--worst", "3"] + ["--open"] * sheet
    code, said = driver(path, *options, *(["--sliver", str(sliver)] if sliver else []))
    for part in (path, (table("d", points), table("q", corners))):
        result = orvex.mesh(part, tolerance, sliver=sliver, open=sheet, worst=3)
        assert (result.fit, bool(result)) == (code == 0,) * 2 == (said["fit"],) * 2
        assert list(result.hindrances) == said["hindrances"]
        for name in ("tolerance", "triangles", "points", "edges", "closed", "area", "volume"):
            assert getattr(result, name) == said[name], name
        assert [result.groups, list(result.largest)] == list(said["groups"].values())
        assert list(map(list, result.box)) == list(said["box"].values())
        assert [result.mean, list(result.classes)] == [said["shape"]["mean"], said["shape"]["classes"]]
        assert [dict(triangle=t, factor=f) for t, f in result.worst] == said["shape"]["worst"]
        flaws = {**said["degenerate"], **said["flaws"]}
        assert {f.name: dict(count=f.count, triangles=list(f.triangles)) for f in result.flaws} == flaws


def test_the_arrays_and_the_result_as_a_value():
    result = orvex.mesh(SOLID)
    assert result.fit and result.volume == pytest.approx(1 / 6) and result.flaw("open") == ("open", 0, ())
    # Points are numbered as triangles come to them.
    assert result.merged_points.tolist() == [[0, 0, 0], [0, 1, 0], [1, 0, 0], [0, 0, 1]]
    assert result.merged_triangles.tolist() == [[0, 1, 2], [0, 2, 3], [2, 1, 3], [1, 0, 3]]
    assert result.group_of.tolist() == [0] * 4 and result.shape_factors.tolist()[2] == pytest.approx(1)
    for other in (pickle.loads(pickle.dumps(result)), copy.deepcopy(result)):
        assert other == result and hash(other) == hash(result)
    assert result != orvex.mesh(SOLID, 2.0)
    with pytest.raises(KeyError):
        result.flaw("none")
    with pytest.raises(AttributeError, match="^a MeshResult is immutable: 'area' cannot be set$"):
        result.area = 1.0


def test_progress_and_what_it_raises():
    told, own = [], LookupError("mine")
    orvex.mesh(buffers(field(80, 0)), progress=lambda *what: told.append(what))
    assert told[0] == (0.0, "mesh health") and told[-1] == (1.0, "done")
    assert [f for f, _ in told] == sorted(f for f, _ in told) and "merging points" in dict(map(reversed, told))

    def stop(fraction, message):
        if message == "merging points":
            raise own

    with pytest.raises(LookupError) as raised:
        orvex.mesh(buffers(field(80, 0)), progress=stop)
    assert raised.value is own


@pytest.mark.parametrize("given_, message", [
    ({"tolerance": -1.0}, "tolerance: found -1.0, expected a finite number, 0 or at least 1e-150"),
    ({"tolerance": math.inf}, "tolerance: found inf, expected a finite number, 0 or at least 1e-150"),
    ({"tolerance": "1"}, "tolerance: found str, expected a finite number, 0 or at least 1e-150"),
    ({"sliver": 2}, "sliver: found 2, expected a number from 0 to 1, or None"),
    ({"worst": -1}, "worst: found -1, expected a whole number from 0 to 10000"),
    ({"part": 5}, "part: found int, expected a file name, or a pair of buffers: vertices and triangles"),
    ({"part": (table("d", [(0, 0, math.nan)] * 3), table("i", [(0, 1, 2)]))},
     "part: the z coordinate of a corner of triangle 0 is not a number (NaN)")])
def test_refused_arguments(given_, message):
    with pytest.raises((orvex.TypeError, orvex.ValueError, orvex.MeshError)) as raised:
        orvex.mesh(**{"part": SOLID, **given_})
    assert str(raised.value) == message
