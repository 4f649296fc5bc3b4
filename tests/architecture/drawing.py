#!/usr/bin/python3
"""Draws which folder includes which, from the sources, as the Mermaid drawing of docs/architecture.md.

usage: drawing.py SRC PAGE           exits 1 if the drawing in the page differs from the sources
       drawing.py --write SRC PAGE   puts it into the page
"""
import difflib
import pathlib
import re
import sys

from include_rules import FOLDERS

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
DRAWING = re.compile(r"```mermaid\n.*?```\n", re.DOTALL)


def draw(source):
    edges = set()
    seen = set()
    for path in source.rglob("*"):
        if path.suffix not in (".h", ".cpp"):
            continue
        folder = path.parent.relative_to(source).as_posix()
        seen.add(folder)
        for included in INCLUDE.findall(path.read_text(encoding="utf-8")):
            below = included.rsplit("/", 1)[0]
            if below in FOLDERS and below != folder:
                edges.add((folder, below))
    # Leave out arrows that other arrows imply.
    direct = [(upper, lower) for upper, lower in edges
              if not any((upper, middle) in edges and (middle, lower) in edges for middle in FOLDERS)]
    highest_first = FOLDERS[::-1]
    lines = ["```mermaid", "flowchart TD"]
    lines += [f'    {folder.replace("/", "_")}["{folder}"]' for folder in highest_first if folder in seen]
    lines += [f'    {upper.replace("/", "_")} --> {lower.replace("/", "_")}' for upper, lower in
              sorted(direct, key=lambda edge: (highest_first.index(edge[0]), highest_first.index(edge[1])))]
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


if __name__ == "__main__":
    main()
