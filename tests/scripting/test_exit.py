"""The interpreter's end, in whatever the library and its threads are doing."""

import subprocess
import sys

import pytest

COMMON = """
import atexit, builtins, contextlib, os, sys, threading, time
LATE = []
atexit.register(lambda: [late() for late in LATE])  # before orvex registers its own: so it runs after the stop
import orvex, orvex_sample, orvex_testing
assert "numpy" not in sys.modules

def daemon(work):
    threading.Thread(target=work, daemon=True).start()

def forever(work):
    def loop():
        with contextlib.suppress(orvex.Error):  # refused once the exit has begun
            while True:
                work()
    daemon(loop)

class Loud:
    def __repr__(self):
        time.sleep(0.001)
        return "<loud>"
    def __del__(self):
        os.write(1, b"gone ")
"""

ENDINGS = {
    "calls without end": ("[forever(orvex.nap) for _ in range(4)]; time.sleep(0.05)", ""),
    "callbacks on threads of the library": (
        "quiet = type('Q', (), {'__repr__': Loud.__repr__})()\n"
        "[forever(lambda: orvex.textOnThread(quiet)) for _ in range(4)]; time.sleep(0.05)", ""),
    "references let go on threads": (
        "forever(lambda: (orvex.keep(object()), orvex.dropOnThread())); time.sleep(0.05)", ""),
    "values that outlive the stop": (
        "builtins.kept = [orvex.mdb.models['M'], orvex.mdb.models.keys, orvex.Array([1]), orvex.Type('Part'),\n"
        "                 orvex.SymbolicConstant('X'), orvex.expression(1), orvex.echo, Loud()]\n"
        "LATE.append(lambda: print([repr(v) for v in builtins.kept[:-1]], builtins.kept[0] == 1, flush=True))",
        "[\"mdb.models['M']\", '<method keys of mdb.models>', \"Array([1], 'i')\", \"Type('Part')\", "
        "\"SymbolicConstant('X')\", '1', '<command echo>'] False\ngone "),
    "calls after the stop": (
        "def late():\n"
        "    for call in (lambda: orvex.echo(1), lambda: orvex.mdb, lambda: model.name, lambda: echo([Loud()])):\n"
        "        try:\n"
        "            print(call())\n"
        "        except orvex.Error as error:\n"
        "            print(error, flush=True)\n"
        "model, echo = orvex.mdb.models['M'], orvex.echo\n"
        "LATE.append(late)",
        "the interpreter is exiting; no call can begin\n" * 3 + "gone the interpreter is exiting; no call can begin\n"),
    "a fork beside a call": (
        "daemon(orvex.nap); time.sleep(0.1)\nchild = os.fork()\nif child: assert os.waitpid(child, 0)[1] == 0", ""),
}


@pytest.mark.parametrize("ending", ENDINGS)
def test_ends_well(ending):
    code, output = ENDINGS[ending]
    run = subprocess.run([sys.executable, "-X", "faulthandler", "-c", COMMON + code], capture_output=True, text=True,
                         timeout=60)
    assert (run.stderr, run.returncode, run.stdout) == ("", 0, output)
