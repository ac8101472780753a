#!/usr/bin/env python3
"""Holds the pages against what they show.

check_pages.py texts            files shown whole or in part, links between pages, every example on some page
check_pages.py output FILE COMMAND...
                                what COMMAND prints is the block that some page shows as the output of FILE, and it
                                ends well
check_pages.py console PAGE PROGRAM
                                every `$ orvex ...` of the page's console blocks prints what stands below it

A marker before a block says what it is: <!-- file: PATH -->, <!-- part of: PATH -->, <!-- output of: PATH -->.
"""

import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parents[2]
PAGES = sorted(page for folder in (TOP, TOP / "docs", TOP / "benchmarks", TOP / "examples")
               for page in folder.glob("*.md" if folder == TOP else "**/*.md"))
MARKED = re.compile(r"<!-- (file|part of|output of): (\S+) -->\n```\w*\n(.*?)^```$", re.M | re.S)
CONSOLE = re.compile(r"^```console\n(.*?)^```$", re.M | re.S)
LINK = re.compile(r"\]\(([^)\s]+)\)")
FENCE = re.compile(r"^```.*?^```$", re.M | re.S)


def marked(kind):
    return [(page, path, text) for page in PAGES for found, path, text in MARKED.findall(page.read_text())
            if found == kind]


def anchors(page):
    titles = re.findall(r"^#+ (.*)$", FENCE.sub("", page.read_text()), re.M)
    return {re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-") for title in titles}


def texts():
    faults = []
    for page, path, text in marked("file"):
        if text != (TOP / path).read_text():
            faults.append(f"{page.name}: not the text of {path}")
    for page, path, text in marked("part of"):
        # Wherever it stands in the file, it may be indented deeper there.
        lines = [line.strip() for line in (TOP / path).read_text().splitlines()]
        part = [line.strip() for line in text.splitlines()]
        if not any(lines[at:at + len(part)] == part for at in range(len(lines))):
            faults.append(f"{page.name}: no part of {path}")
    shown = {path for kind in ("file", "part of") for _, path, _ in marked(kind)}
    for example in sorted((TOP / "examples/cpp").glob("*.cpp")):
        if str(example.relative_to(TOP)) not in shown:
            faults.append(f"{example.name} stands on no page")
    links = 0
    for page in PAGES:
        for link in LINK.findall(FENCE.sub("", page.read_text())):
            if "://" in link:
                continue
            links += 1
            path, _, anchor = link.partition("#")
            target = (page.parent / path).resolve() if path else page
            if not target.exists():
                faults.append(f"{page.name}: {link} leads nowhere")
            elif anchor and anchor not in anchors(target):
                faults.append(f"{page.name}: {path or page.name} has no title {anchor}")
    print(f"{len(PAGES)} pages, {len(shown)} files shown, {links} links")
    return faults


def differs(what, printed, shown):
    return [] if printed == shown else [f"{what} printed\n{printed}but the page shows\n{shown}"]


def run(command):
    """The finished process; where the programs run, examples/ is there and files may be left."""
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "examples").symlink_to(TOP / "examples")
        return subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, text=True, check=False)


def output(path, *command):
    shown = [text for _, shown_path, text in marked("output of") if shown_path == path]
    if not shown:
        return [f"no page shows what {path} prints"]
    done = run(command)
    faults = [f"{path} ended with {done.returncode}"] if done.returncode else []
    return faults + [fault for text in shown for fault in differs(path, done.stdout, text)]


def console(page, program):
    faults = []
    commands = 0
    for block in CONSOLE.findall((TOP / page).read_text()):
        for command, shown in re.findall(r"^\$ orvex (.*)\n((?:(?!\$ ).*\n)*)", block, re.M):
            commands += 1
            faults += differs(f"orvex {command}", run([program, *shlex.split(command)]).stdout, shown)
    return faults if commands else [f"{page} has no command"]


def main(what, *arguments):
    faults = {"texts": texts, "output": output, "console": console}[what](*arguments)
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
