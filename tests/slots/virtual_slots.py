#!/usr/bin/python3
"""Holds the order of the virtual operations against a table, by the compiler's own dump of its classes.

Programs built against the library call virtual operations by slot: an operation that moves breaks them without
a word from the linker. Usage: virtual_slots.py EXPECTED SOURCE COMPILER [FLAG ...]
"""
import pathlib
import re
import subprocess
import sys
import tempfile

SKIPPED = 77


def expected(path):
    """Pairs (class, slots); a slot is a bare name, or a name with the class whose body must fill it."""
    rows, slots = [], None
    for line in path.read_text().splitlines():
        line = line.split("#")[0].strip()
        if line.startswith("slots"):
            slots = line.split()[1:]
        elif line:
            assert slots is not None, f"{path}: {line} stands before any slots"
            rows.append((line, slots))
    return rows


def dumped(compiler, flags, source):
    """For each class with virtual operations, what stands in the slots of its first table."""
    with tempfile.TemporaryDirectory() as work:
        command = [compiler, *flags, "-fsyntax-only", "-fdump-lang-class", str(source)]
        if subprocess.run(command, cwd=work).returncode != 0:
            sys.exit(f"{source} does not compile")
        (dump,) = pathlib.Path(work).glob("*.class")
        text = dump.read_text()
    tables = {}
    for name, body in re.findall(r"^Vtable for (.+)\n[^\n]*\n((?:\d+ .*\n)+)", text, re.M):
        slots = []
        # Offset and type information come first; the next offset begins the table of a further base.
        for entry in body.splitlines()[2:]:
            what = entry.split(maxsplit=1)[1].removeprefix("(int (*)(...))")
            if re.fullmatch(r"-?\d+u?", what):
                break
            slots.append(what)
        tables[name] = slots
    return tables


def fits(slot, entry):
    if "::" in slot:
        return entry == slot
    name = entry.rsplit("::", 1)[1]
    return name.startswith("~") if slot == "~" else name == slot


def differs(wanted, found):
    open_end = wanted[-1:] == ["..."]
    wanted = wanted[:-1] if open_end else wanted
    short = len(found) < len(wanted) or len(found) > len(wanted) and not open_end
    return short or not all(map(fits, wanted, found))


def main():
    table, source, compiler, flags = pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3], sys.argv[4:]
    banner = subprocess.run([compiler, "--version"], capture_output=True, text=True, check=True).stdout
    if "clang" in banner or "Free Software Foundation" not in banner:
        print(f"skipped: {compiler} is not g++, which alone dumps its classes in this form")
        return SKIPPED
    tables = dumped(compiler, flags, source)
    rows = expected(table)
    faults = 0
    for name, slots in rows:
        if name not in tables:
            print(f"{name}: no virtual table in the dump")
            faults += 1
        elif differs(slots, tables[name]):
            print(f"{name}:\n  wanted {' '.join(slots)}\n  found  {' '.join(tables[name])}")
            faults += 1
    print(f"{len(rows)} classes, {faults} with their slots out of order")
    return 1 if faults or not rows else 0


sys.exit(main())
