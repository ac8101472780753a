#!/usr/bin/env python3
"""What a call from Python costs, and long sequences on their way through the library.

Ratios in one run, because the machine differs:

* five keyword arguments (int, double, text, tuple of two floats, constant), read by a command of the library,
  against the same signature bound by pybind11; at most 2;
* a tuple of a million numbers, into the library and out of it, against ``list(array.array("d", ...))`` of the same
  length; at most 3 each way.

Needs the module and the modules of its tests on PYTHONPATH; --json FILE keeps the results.
"""

from __future__ import annotations

import argparse
import array
import gc
import json
import time
from collections.abc import Callable

import orvex
import orvex_testing

MILLION = 1_000_000


def best(work: Callable[[], object], repeats: int, inner: int) -> float:
    """Seconds of one run, the fastest of the repeats: what disturbs only adds."""
    fastest = float("inf")
    for _ in range(repeats):
        begin = time.perf_counter()
        for _ in range(inner):
            work()
        fastest = min(fastest, time.perf_counter() - begin)
    return fastest / inner


def keyword_arguments() -> dict[str, float]:
    constant = orvex.SymbolicConstant("FLOAT")
    point = (1.5, 2.5)
    plain, command = orvex_testing.plain_five, orvex.five

    def by_pybind11() -> None:
        plain(count=7, scale=0.25, name="Part-1", point=point, type=constant)

    def by_command() -> None:
        command(count=7, scale=0.25, name="Part-1", point=point, type=constant)

    return {"pybind11": best(by_pybind11, 30, 5000), "command": best(by_command, 30, 5000)}


def million_numbers() -> dict[str, float]:
    numbers = array.array("d", (0.5 * i for i in range(MILLION)))
    given = tuple(numbers)
    orvex.keep(given)
    results = {
        "list(array)": best(lambda: list(numbers), 9, 1),
        "in": best(lambda: orvex.length(given), 9, 1),
        "out": best(orvex.kept, 9, 1),
    }
    orvex.keep(None)
    return results


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--json", help="file for the results")
    options = parser.parse_args()
    gc.disable()
    results = {"keyword_arguments": keyword_arguments(), "million_numbers": million_numbers()}
    five, million = results["keyword_arguments"], results["million_numbers"]
    five["ratio"] = five["command"] / five["pybind11"]
    for way in ("in", "out"):
        million[f"{way}_ratio"] = million[way] / million["list(array)"]
    print(f"five keyword arguments: pybind11 {five['pybind11'] * 1e6:.2f} us, "
          f"command {five['command'] * 1e6:.2f} us, ratio {five['ratio']:.2f} (at most 2)")
    print(f"a million numbers: list(array) {million['list(array)'] * 1e3:.1f} ms, "
          f"in {million['in'] * 1e3:.1f} ms, ratio {million['in_ratio']:.2f} (at most 3), "
          f"out {million['out'] * 1e3:.1f} ms, ratio {million['out_ratio']:.2f} (at most 3)")
    if options.json:
        with open(options.json, "w", encoding="utf-8") as file:
            json.dump(results, file, indent=1)


if __name__ == "__main__":
    main()
