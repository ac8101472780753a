#!/usr/bin/env python3
"""What a script does with an application's objects.

Run it with the module and the sample application on the path::

    PYTHONPATH=build/release/python:build/release/python-samples python3 examples/scripting/sample_repository.py
"""

import orvex
import orvex_sample  # registers orvex.mdb and orvex.Model


def main() -> None:
    orvex.Model(name="bracket")
    model = orvex.mdb.models["bracket"]
    part = model.Part(name="rib", width=2.5)
    part.width += 0.5
    print(f"{part!r} is {part.width} wide")
    for name in model.parts:
        print(f"{model!r} has the part {name}")

    try:
        model.Part(name="plate", width=-1.0)
    except orvex.RangeError as error:
        print(f"refused: {error} (keyword {error.keyword})")
    try:
        part.name = "other"
    except AttributeError as error:
        print(f"refused: {error}")

    del model.parts["rib"]
    try:
        part.width
    except orvex.AccessError as error:
        print(f"gone: {error}")


if __name__ == "__main__":
    main()
