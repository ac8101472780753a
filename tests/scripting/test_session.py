"""Annotations of mdb from scripts, in files and on pictures."""

import os
import pathlib
import re
import subprocess
import sys
import threading

import orvex
import pytest
from orvex import *

EXAMPLES = pathlib.Path(__file__).parents[2] / "examples"
XLFD = "-*-helvetica-medium-r-normal-*-*-120-"

try:
    picture("")
except OrvexError:
    pytest.skip("this build has no pictures", allow_module_level=True)
except ValueError:
    pass

ARROW = dict(startPoint=(10.0, 10.0), endPoint=(60.0, 40.0), startAnchor=TOP_LEFT, endAnchor=(1.0, 2.0, 3.0),
             startHeadStyle=HOLLOW_DIAMOND, endHeadStyle=NONE, lineStyle=DOT_DASH, lineThickness=THICK,
             startGap=1.5, endGap=2.0, color="Sky blue")
TEXT = dict(text="zwei\nZeilen \u20ac", offset=(1.0, -2.0), anchor=(30.0, 20.0), referencePoint=CENTER,
            rotationAngle=30.0, font=XLFD, color="#FF8000", backgroundColor="Grey20", backgroundStyle=OTHER,
            justification=RIGHT, box=True)


@pytest.fixture(autouse=True)
def annotations():
    for name in mdb.annotations.keys():
        del mdb.annotations[name]
    mdb.Text(name="T", **TEXT)
    mdb.Arrow(name="A", **ARROW)
    return mdb.annotations


def state(annotations):
    return [(name, str(handle)) for name, handle in annotations.items()]


def test_every_member_comes_back(annotations):
    for handle, given in ((annotations["A"], ARROW), (annotations["T"], TEXT)):
        assert {name: getattr(handle, name) for name in given} == given


def test_dictionary_and_stacking(annotations):
    arrow, text = annotations["A"], annotations["T"]
    assert annotations.items() == list(zip(annotations.keys(), annotations.values())) == [("A", arrow), ("T", text)]
    for move, after in ((lambda: text.bringToFront(), "TA"), (lambda: text.sendBackward(), "AT"),
                        (lambda: arrow.moveAfter(name="T"), "TA"), (lambda: arrow.bringForward(), "AT"),
                        (lambda: arrow.sendToBack(), "TA"), (lambda: arrow.moveBefore("T"), "AT")):
        assert move() is None and "".join(annotations) == after
    arrow.translate(1, y=2)
    arrow.translateStartPoint(x=1)
    arrow.translateEndPoint(y=-2)
    text.translate(x=-1)
    assert (arrow.startPoint, arrow.endPoint, text.offset) == ((12.0, 12.0), (61.0, 40.0), (0.0, -2.0))
    annotations.changeKey(fromName="A", toName="Z")
    with pytest.raises(AccessError, match=r"^mdb.annotations\['A'\] no longer exists$"):
        arrow.color


@pytest.mark.parametrize("act, error, message", [
    (lambda a: a["A"].setValues(startPoint=(1, 2), color="Mud"), ColorError, "Mud is not a valid color name."),
    (lambda a: a["T"].setValues(text="x", anchor="x"), TypeError, "anchor; found string, expecting sequence of Floats"),
    (lambda a: a.changeKey("A", "T"), ValueError, "toName T  already exists"),
    (lambda a: orvex.open(EXAMPLES / "none.oxm"), FileNotFoundError, None),
    (lambda a: orvex.open(EXAMPLES / "parts" / "rail.off"), MementoError, "idb_MementoRead: not a memento"),
    (lambda a: picture("x.jpg"), ValueError, "cannot tell the format of x.jpg: its name must end in .svg or .png"),
    (lambda a: picture(EXAMPLES / "none" / "x.svg"), FileNotFoundError, None),
    (lambda a: picture("x.svg", height="9"), TypeError, "height: found str, expected a whole number from 1 to 16384")])
def test_refusals_change_nothing(annotations, act, error, message):
    before = state(annotations)
    with pytest.raises(error) as raised:
        act(annotations)
    assert message is None or str(raised.value) == message
    assert state(annotations) == before


def test_open_replaces_the_annotations_or_changes_nothing(annotations, tmp_path):
    file = tmp_path / "session.oxm"
    save(os.fsencode(file))
    stored, whole, arrow = state(annotations), file.read_bytes(), annotations["A"]
    arrow.setValues(color="Red")
    mdb.Text(name="new")
    new, before = annotations["new"], state(annotations)
    for damaged in (whole[:-1], whole[:40] + bytes([whole[40] ^ 1]) + whole[41:]):
        file.write_bytes(damaged)
        with pytest.raises(MementoError, match="^idb_MementoRead: ") as raised:
            orvex.open(file)
        assert 0 <= raised.value.byte <= len(whole) and state(annotations) == before
    file.write_bytes(whole)
    orvex.open(file)
    assert state(annotations) == stored and arrow.color == "Sky blue"
    with pytest.raises(AccessError):
        new.text


def test_pictures(annotations, tmp_path):
    svg, png = tmp_path / "a.svg", tmp_path / "a.PNG"
    picture(svg, height=300)
    picture(png, 320, 200)
    document = svg.read_text("utf-8")
    assert re.findall(r'<g class="(\w+)" data-name="(\w+)"', document) == [("text", "T"), ("arrow", "A")]
    assert "zwei" in document and "Zeilen \u20ac" in document and 'width="800" height="300"' in document
    assert annotations["T"].width > 0 < annotations["T"].height
    head = png.read_bytes()[:24]
    assert head[:8] == b"\x89PNG\r\n\x1a\n" and head[16:] == bytes([0, 0, 1, 64, 0, 0, 0, 200])


def test_other_threads_run_while_a_picture_is_drawn(annotations, tmp_path):
    """A switch comes only from who waits, so the thread's edit falls into a picture that lets others run."""
    go, drawing, seen = threading.Event(), True, []

    def edit():
        go.wait()
        annotations["T"].setValues(text="edited meanwhile")
        seen.append(drawing)

    thread = threading.Thread(target=edit)
    thread.start()
    interval = sys.getswitchinterval()
    sys.setswitchinterval(1000.0)
    try:
        go.set()
        for _ in range(20):
            picture(tmp_path / "large.png", 4000, 4000)
            if seen:
                break
        drawing = False
    finally:
        sys.setswitchinterval(interval)
        thread.join()
    assert seen == [True]


def test_the_example_runs(tmp_path):
    script = EXAMPLES / "scripting" / "annotations.py"
    run = subprocess.run([sys.executable, script, tmp_path], capture_output=True, text=True, check=True)
    assert run.stdout == ("A  Arrow\nT  Text\nrefused: Mud is not a valid color name. The text is still "
                          "'contact here'.\nthe file gives the same picture\n")
    assert 'stroke-dasharray' in (tmp_path / "session.svg").read_text()
