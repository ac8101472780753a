#!/usr/bin/env python3
"""A load whose settings are carried from analysis step to analysis step.

Run it with the module and the sample application on the path::

    PYTHONPATH=build/release/python:build/release/python-samples python3 examples/scripting/load_steps.py
"""

import orvex
import orvex_steps  # registers orvex.load


def show(load) -> None:
    names = ("magnitude", "amplitude", "nodes")
    print(f"step {load.step}:", ", ".join(
        f"{name} {getattr(load, name)} {state}" for name, state in zip(names, load.states)))


def main() -> None:
    load = orvex.load
    load.setValues(magnitude=2.5, nodes=(4, 7))
    show(load)

    load.nextStep()  # what was SET is UNCHANGED now
    show(load)
    load.setValues(magnitude=3, amplitude="ramp")
    show(load)

    load.nextStep()
    load.setValues(nodes=orvex.FREED, amplitude=None)  # both ways free a setting
    show(load)

    load.nextStep()  # what was FREED is UNSET now
    show(load)
    try:
        load.setValues(magnitude=1.0, nodes=orvex.UNSET)  # in the first step alone
    except orvex.Error as error:
        print(f"refused: {error}")
    try:
        load.setValues(amplitude="slow", magnitude="large")
    except TypeError as error:
        print(f"refused: {error}")
    show(load)  # a refused call changes nothing


if __name__ == "__main__":
    main()
