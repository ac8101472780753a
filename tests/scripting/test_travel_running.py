"""orvex.travel while it runs: Ctrl-C, progress, threads, arrays that change, the interpreter's end."""

import array
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
if not phase:
    os.write(1, b".")
try:
    orvex.travel(fixed, movable, "+z", progress=progress if phase else None)
    print("finished")
except KeyboardInterrupt:
    print(time.monotonic())
assert signal.getsignal(signal.SIGINT) is handler
"""


@pytest.mark.parametrize("phase", ["checking", "sorting", "searching", "looking", "reading", "", "waiting"])
def test_ctrl_c_raises_keyboard_interrupt(phase, tmp_path):
    path = ""
    if phase == "reading":
        path = tmp_path / "part.off"
        path.write_text(off_text(*(view.tolist() for view in mesh(field(400, 0)))))
    elif phase == "waiting":  # for somebody to write to a pipe
        path = tmp_path / "pipe"
        os.mkfifo(path)
    run = child(INTERRUPTED, "" if phase == "waiting" else phase, path)
    assert run.stdout.read(1) == "."
    if phase in ("", "waiting"):
        time.sleep(0.1)
    sent = time.monotonic()
    run.send_signal(signal.SIGINT)
    out, err = run.communicate(timeout=60)
    assert run.returncode == 0, err
    # A tenth of a second is meant; the machine may be busy. Who is not stopped prints "finished".
    assert 0 <= float(out.strip(".\n")) - sent < 2.0


def test_progress_grows_from_0_to_1_and_changes_nothing():
    fixed, movable = mesh(field(60, 5)), mesh(field(60, 0, 1.1))
    told = []
    result = orvex.travel(fixed, movable, "+z", progress=lambda *what: told.append(what))
    assert result == orvex.travel(fixed, movable, "+z")
    fractions = [fraction for fraction, message in told]
    assert fractions == sorted(fractions) and len(set(fractions)) > 10
    assert told[0] == (0.0, "contact travel") and told[-1] == (1.0, "done")
    phases = list(dict.fromkeys(message for fraction, message in told))
    assert phases == ["contact travel", "checking the fixed part", "checking the movable part", "sorting fixed",
                      "sorting movable", "searching", "done"]


def test_one_call_at_a_time_shows_progress():
    fixed, movable = mesh(field(30, 5)), mesh(field(30, 0, 1.1))
    caught, quiet = [], []

    def inner(*what):
        if len(quiet) == 3:
            return
        quiet.append(orvex.travel(fixed, movable, "+z"))
        for start in (lambda call: call(), lambda call: run_in_thread(call)):
            start(lambda: caught.append(pytest.raises(RuntimeError, orvex.travel, fixed, movable, "+z",
                                                      progress=print)))

    def run_in_thread(call):
        thread = threading.Thread(target=call)
        thread.start()
        thread.join()

    assert quiet == [orvex.travel(fixed, movable, "+z", progress=inner)] * 3
    assert [str(raised.value) for raised in caught] == [
        "another call shows its progress, and there is one progress for all: wait for it, or call without "
        "progress"] * 6


@pytest.mark.parametrize("threaded", [False, True])
@pytest.mark.parametrize("when", ["contact travel", "searching", "done"])
def test_what_progress_raises_ends_the_call_and_comes_back(threaded, when):
    fixed, movable = mesh(field(60, 5)), mesh(field(60, 0, 1.1))
    own, heard = LookupError("mine"), []

    def progress(fraction, message):
        heard.append(message)
        if message == when:
            raise own

    def call():
        with pytest.raises(LookupError) as raised:
            orvex.travel(fixed, movable, "+z", progress=progress)
        heard.append(raised.value)

    thread = threading.Thread(target=call)
    thread.start() if threaded else thread.run()
    if threaded:
        thread.join()
    assert heard[-1] is own and heard[-2] == when and heard.count(when) == 1


@pytest.mark.parametrize("result", ["contact", "refused"])
def test_true_shows_lines_on_standard_error(capsys, result):
    fixed, movable = mesh(field(60, 5)), mesh(field(60, 0, 1.1))
    if result == "refused":
        movable[0][77, 0] = math.nan
        with pytest.raises(orvex.MeshError):
            orvex.travel(fixed, movable, "+z", progress=True)
    else:
        orvex.travel(fixed, movable, "+z", progress=True)
    out, err = capsys.readouterr()
    lines = err.splitlines()
    assert out == "" and lines[0] == " 10 %  checking the fixed part"
    assert (lines[-1] == "100 %  done") == (result == "contact") and len(lines) <= 10


def test_threads_run_at_once():
    meshes = [(mesh(field(40, 5)), mesh(field(40, 0, 1 + k / 10))) for k in range(4)]
    alone = [orvex.travel(*pair, "+z") for pair in meshes]
    found = {}

    def work(first):
        for turn in range(12):
            k = (first + turn) % 4
            found[first, turn] = orvex.travel(*meshes[k], "+z") == alone[k]

    threads = [threading.Thread(target=work, args=(k,)) for k in range(4)]
    [thread.start() for thread in threads]
    [thread.join() for thread in threads]
    assert len(found) == 48 and all(found.values())


def test_arrays_that_change_meanwhile_never_crash():
    fixed, movable = field(40, 5), field(40, 0, 1.1)
    done, outcomes = threading.Event(), set()

    def scribble():
        turn = 0
        while not done.is_set():
            turn += 1
            numbers = (0.0, math.nan, 5.0, math.inf, -1e300, 1e74, 2.0)
            for corners, triangles in (fixed, movable):
                corners[turn * 7919 % len(corners)] = numbers[turn % 7 if turn % 400 < 2 else turn % 2 * 2]
                triangles[turn * 104729 % len(triangles)] = (-1, 10**9)[turn % 2] if turn % 400 < 2 else turn % 1681

    writer = threading.Thread(target=scribble)
    whole = [array.array(a.typecode, a) for part in (fixed, movable) for a in part]
    writer.start()
    try:
        for turn in range(150):
            for part, original in zip((*fixed, *movable), whole):
                memoryview(part)[:] = original
            try:
                outcomes.add(orvex.travel(mesh(fixed), mesh(movable), "+z").state)
            except orvex.MeshError as error:
                outcomes.add(type(error))
    finally:
        done.set()
        writer.join()
    assert len(outcomes) > 1, "some calls met a change"


def test_lent_buffers_cannot_be_resized_and_are_given_back():
    corners, triangles = field(2, 0)
    refused = []

    def progress(fraction, message):
        with pytest.raises(BufferError):
            corners.append(1.0)
        refused.append(message)

    lent = mesh((corners, triangles))
    orvex.travel(lent, lent, "+z", progress=progress)
    [view.release() for view in lent]
    corners.append(1.0)
    assert refused


AT_EXIT = """
fixed, movable = mesh(field(300, 5)), mesh(field(300, 0, 1.1))
inside = threading.Event()
def work(progress):
    while True:
        inside.set() if not progress else None
        orvex.travel(fixed, movable, "+z", progress=progress)
shown = (lambda *what: inside.set()) if sys.argv[1] else None
for progress in (None, None, shown):
    threading.Thread(target=work, args=(progress,), daemon=True).start()
inside.wait()
time.sleep(0.05)
"""


@pytest.mark.parametrize("shown", ["", "with progress"])
def test_the_interpreter_ends_with_calls_under_way(shown):
    out, err = (run := child(AT_EXIT, shown)).communicate(timeout=60)
    assert (run.returncode, out, err) == (0, "", "")
