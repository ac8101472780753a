#!/usr/bin/env python3
"""From a script to a picture, to a file, and back.

Run it with the module on the path and a folder for the files::

    PYTHONPATH=build/release/python python3 examples/scripting/annotations.py /tmp

It writes session.svg and session.oxm there; then a fresh interpreter opens the file and draws the same picture.
"""

import pathlib
import subprocess
import sys

import orvex
from orvex import *

AGAIN = """
import sys, orvex
orvex.open(sys.argv[1])
orvex.picture(sys.argv[2])
"""


def main(folder: pathlib.Path) -> None:
    mdb.Arrow(name="A", startPoint=(10, 10), endPoint=(60, 40), color="Red")
    mdb.Text(name="T", text="contact here", anchor=(30, 20))
    mdb.annotations["A"].bringToFront()
    mdb.annotations["A"].setValues(lineStyle=DASHED)
    print(mdb.annotations._summary(), end="")

    try:
        mdb.annotations["T"].setValues(text="gone", color="Mud")
    except ColorError as error:
        print(f"refused: {error} The text is still {mdb.annotations['T'].text!r}.")

    session, first, second = (folder / name for name in ("session.oxm", "session.svg", "again.svg"))
    orvex.save(session)
    orvex.picture(first)
    subprocess.run([sys.executable, "-c", AGAIN, session, second], check=True)
    same = first.read_bytes() == second.read_bytes()
    print("the file gives", "the same picture" if same else "another picture")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "."))
