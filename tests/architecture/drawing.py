#!/usr/bin/python3
"""Draws the floors of the house from the includes of the sources, as the Mermaid drawing of docs/architecture.md.

usage: drawing.py SRC PAGE           exits 1 when the drawing in the page is not that of the sources
       drawing.py --write SRC PAGE   puts it into the page
"""
import difflib
import pathlib
import re
import sys

# Top to bottom: name, what a box says, and what belongs there. The first pattern that fits a file wins.
FLOORS = (
    ("mains", "main programs", r"platform/(qt|win32)/main\.cpp"),
    ("roof", "shell: MainForm, StartUp", r"shell/(MainForm|StartUp)\."),
    ("adding", "adding", r"adding/"),
    ("sync", "sync", r"sync/"),
    ("editing", "editing", r"editing/"),
    ("storage", "storage", r"storage/"),
    ("ground", "shell: mMsgBox, mFindDiskDriver, Totals", r"shell/(mMsgBox|mFindDiskDriver|Totals)\."),
    ("design", "shell: Design", r"shell/Design\."),
    ("qt", "platform/qt", r"platform/qt/"),
    ("win32", "platform/win32", r"platform/win32/"),
    ("platform", "platform: interfaces", r"platform/"),
)
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
DRAWING = re.compile(r"```mermaid\n.*?```\n", re.DOTALL)


def floor_of(name):
    for floor, _, pattern in FLOORS:
        if re.match(pattern, name):
            return floor
    return None


def draw(source):
    edges = set()
    seen = set()
    for path in sorted(source.rglob("*")):
        name = path.relative_to(source).as_posix()
        if path.suffix not in (".h", ".cpp"):
            continue
        floor = floor_of(name)
        if floor is None:
            sys.exit(f"{name} belongs to no floor of the drawing")
        seen.add(floor)
        for included in INCLUDE.findall(path.read_text(encoding="utf-8")):
            below = floor_of(included)
            if below and below != floor:
                edges.add((floor, below))
    order = [floor for floor, _, _ in FLOORS]
    lines = ["```mermaid", "flowchart TD"]
    lines += [f'    {floor}["{text}"]' for floor, text, _ in FLOORS if floor in seen]
    lines += [f"    {above} --> {below}" for above, below in
              sorted(edges, key=lambda edge: (order.index(edge[0]), order.index(edge[1])))]
    return "\n".join(lines + ["```"]) + "\n"


def main():
    arguments = sys.argv[1:]
    write = arguments[:1] == ["--write"]
    if len(arguments) != 2 + write:
        sys.exit(__doc__)
    source, page = map(pathlib.Path, arguments[write:])
    text = page.read_text(encoding="utf-8")
    found = DRAWING.search(text)
    if not found:
        sys.exit(f"{page} has no drawing")
    drawing = draw(source)
    if write:
        page.write_text(text.replace(found.group(), drawing), encoding="utf-8")
    elif found.group() != drawing:
        sys.stdout.writelines(difflib.unified_diff(found.group().splitlines(True), drawing.splitlines(True),
                                                   str(page), "the includes"))
        sys.exit(f"The drawing is out of date: {sys.argv[0]} --write {source} {page}")


main()
