"""orvex.travel while it runs: Ctrl-C, progress, threads, arrays that change, the interpreter's end."""

import array
import concurrent.futures
import itertools
import math
import os
import pathlib
import signal
import subprocess
import sys
import threading
import time

import orvex
import pytest
from test_travel import off_text

PYTHON = pathlib.Path(orvex.__file__).parents[1]
HERE = pathlib.Path(__file__).parent


def field(steps, height, wave=1.0):
    """A bumpy sheet of 2 x steps x steps triangles, as flat arrays that may be changed."""
    corners, triangles = array.array("d"), array.array("i")
    for i in range(steps + 1):
        for k in range(steps + 1):
            corners.extend((i, k, height + math.sin(0.7 * wave * i) * math.cos(0.5 * k)))
    for i in range(steps):
        for at in range(i * (steps + 1), i * (steps + 1) + steps):
            triangles.extend((at, at + 1, at + steps + 1, at + 1, at + steps + 2, at + steps + 1))
    return corners, triangles


def mesh(arrays):
    return tuple(memoryview(a).cast("B").cast(a.typecode, (len(a) // 3, 3)) for a in arrays)


def child(code, *arguments):
    """A Python that has orvex and this file's helpers, and runs the code."""
    code = "import os, sys, threading, time, orvex\nfrom test_travel_running import field, mesh\n" + code
    environment = {**os.environ, "PYTHONPATH": f"{PYTHON}{os.pathsep}{HERE}", "PYTHONDONTWRITEBYTECODE": "1"}
    return subprocess.Popen([sys.executable, "-c", code, *map(str, arguments)], stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE, text=True, env=environment)


INTERRUPTED = """
import signal
handler = signal.getsignal(signal.SIGINT)
fixed, phase = mesh(field(400, 5)), sys.argv[1]
movable = sys.argv[2] or mesh(field(400, 0 if phase != "looking" else 5, 1.1 if phase != "looking" else 1.0))
def progress(fraction, message):
    if message.startswith(phase):
        os.write(1, b".")
if phase == "waiting":
    os.write(1, b".")
try:
    orvex.travel(fixed, movable, "+z", progress=progress if phase != "waiting" else None)
    print("finished")
except KeyboardInterrupt:
    print(time.monotonic())
assert signal.getsignal(signal.SIGINT) is handler
"""


@pytest.mark.parametrize("phase", ["checking", "sorting", "searching", "looking", "reading", "waiting"])
def test_ctrl_c_raises_keyboard_interrupt(phase, tmp_path):
    path = ""
    if phase == "reading":
        path = tmp_path / "part.off"
        path.write_text(off_text(*(view.tolist() for view in mesh(field(400, 0)))))
    elif phase == "waiting":  # for somebody to write to a pipe
        path = tmp_path / "pipe"
        os.mkfifo(path)
    run = child(INTERRUPTED, phase, path)
    assert run.stdout.read(1) == "."
    if phase == "waiting":
        time.sleep(0.1)
    sent = time.monotonic()
    run.send_signal(signal.SIGINT)
    out, err = run.communicate(timeout=60)
    assert run.returncode == 0, err
    # A tenth of a second is meant; the machine may be busy. Who is not stopped prints "finished".
    assert 0 <= float(out.strip(".\n")) - sent < 2.0


def test_progress_grows_from_0_to_1_and_changes_nothing():
    arrays = field(60, 5)
    fixed, movable = mesh(arrays), mesh(field(60, 0, 1.1))
    told, refused = [], []

    def progress(*what):
        told.append(what)
        with pytest.raises(BufferError):  # lent for as long as the call takes
            arrays[0].append(1.0)
        if not refused:
            orvex.travel(fixed, movable, "+z")
            refused.append(pytest.raises(RuntimeError, orvex.travel, fixed, movable, "+z", progress=print).value)

    assert orvex.travel(fixed, movable, "+z", progress=progress) == orvex.travel(fixed, movable, "+z")
    [view.release() for view in fixed]
    arrays[0].append(1.0)
    assert str(refused[0]) == ("another call shows its progress, and there is one progress for all: wait for it, or "
                               "call without progress")
    fractions = [fraction for fraction, message in told]
    assert fractions == sorted(fractions) and len(set(fractions)) > 10
    assert told[0] == (0.0, "contact travel") and told[-1] == (1.0, "done")
    phases = list(dict.fromkeys(message for fraction, message in told))
    assert phases == ["contact travel", "checking the fixed part", "checking the movable part", "sorting fixed",
                      "sorting movable", "searching", "done"]


@pytest.mark.parametrize("when", ["contact travel", "searching", "done"])
def test_what_progress_raises_ends_the_call_and_comes_back(when):
    own, heard = LookupError("mine"), []

    def progress(fraction, message):
        heard.append(message)
        if message == when:
            raise own

    with pytest.raises(LookupError) as raised:
        orvex.travel(mesh(field(60, 5)), mesh(field(60, 0, 1.1)), "+z", progress=progress)
    assert raised.value is own and heard[-1] == when and heard.count(when) == 1


def test_true_shows_lines_on_standard_error(capsys):
    orvex.travel(mesh(field(60, 5)), mesh(field(60, 0, 1.1)), "+z", progress=True)
    out, err = capsys.readouterr()
    lines = err.splitlines()
    assert out == "" and len(lines) <= 10
    assert (lines[0], lines[-1]) == (" 10 %  checking the fixed part", "100 %  done")


def test_threads_run_at_once():
    meshes = [(mesh(field(40, 5)), mesh(field(40, 0, 1 + k / 10))) for k in range(4)]
    alone = [orvex.travel(*pair, "+z") for pair in meshes]
    with concurrent.futures.ThreadPoolExecutor(4) as pool:
        assert list(pool.map(lambda pair: orvex.travel(*pair, "+z"), meshes * 12)) == alone * 12


def test_arrays_that_change_meanwhile_never_crash():
    parts = field(40, 5), field(40, 0, 1.1)
    whole = [array.array(a.typecode, a) for part in parts for a in part]
    done, outcomes = threading.Event(), set()

    def scribble():
        for turn in itertools.takewhile(lambda _: not done.is_set(), itertools.count()):
            odd = turn % 400 < 2
            for corners, triangles in parts:
                corners[turn * 7919 % len(corners)] = (math.nan, -1e300)[turn % 2] if odd else turn % 5
                triangles[turn * 104729 % len(triangles)] = (-1, 10**9)[turn % 2] if odd else turn % 1681

    writer = threading.Thread(target=scribble)
    writer.start()
    try:
        for turn in range(150):
            for part, original in zip((*parts[0], *parts[1]), whole):
                memoryview(part)[:] = original
            try:
                outcomes.add(orvex.travel(*map(mesh, parts), "+z").state)
            except orvex.MeshError as error:
                outcomes.add(type(error))
    finally:
        done.set()
        writer.join()
    assert len(outcomes) > 1, "some calls met a change"


AT_EXIT = """
fixed, movable = mesh(field(300, 5)), mesh(field(300, 0, 1.1))
inside = threading.Event()
def work(progress):
    while True:
        orvex.travel(fixed, movable, "+z", progress=progress)
for progress in (None, None, lambda *what: inside.set()):
    threading.Thread(target=work, args=(progress,), daemon=True).start()
inside.wait()
time.sleep(0.05)
"""


def test_the_interpreter_ends_with_calls_under_way():
    out, err = (run := child(AT_EXIT)).communicate(timeout=60)
    assert (run.returncode, out, err) == (0, "", "")
