"""Settings that are carried from analysis step to analysis step: the example, which shows every state."""

import pathlib
import subprocess
import sys

SCRIPT = pathlib.Path(__file__).parents[2] / "examples" / "scripting" / "load_steps.py"


def test_the_example_runs():
    run = subprocess.run([sys.executable, SCRIPT], capture_output=True, text=True, check=True)
    assert run.stdout.splitlines() == [
        "step 1: magnitude 2.5 SET, amplitude None UNSET, nodes (4, 7) SET",
        "step 2: magnitude 2.5 UNCHANGED, amplitude None UNSET, nodes (4, 7) UNCHANGED",
        "step 2: magnitude 3.0 SET, amplitude ramp SET, nodes (4, 7) UNCHANGED",
        "step 3: magnitude 3.0 UNCHANGED, amplitude None FREED, nodes None FREED",
        "step 4: magnitude 3.0 UNCHANGED, amplitude None UNSET, nodes None UNSET",
        "refused: Invalid propagation status for 'nodes' attribute.",
        "refused: magnitude; found string, expecting float",
        "step 4: magnitude 3.0 UNCHANGED, amplitude None UNSET, nodes None UNSET",
    ]
