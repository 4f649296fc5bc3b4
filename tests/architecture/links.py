#!/usr/bin/python3
"""Checks that every file that a page links to or names as a path exists.

usage: links.py ROOT
"""
import pathlib
import re
import sys

LINK = re.compile(r"\]\(([^)#\s]+)\)")
PATH = re.compile(r"`((?:src|tests|scripts|docs|samples|packaging|cmake|bench)/[\w./-]+)`")


def main():
    root = pathlib.Path(sys.argv[1])
    faults = []
    checked = 0
    for page in [*root.glob("*.md"), *root.glob("docs/*.md")]:
        text = page.read_text(encoding="utf-8")
        targets = [(target, page.parent) for target in LINK.findall(text) if "://" not in target]
        targets += [(target, root) for target in PATH.findall(text)]
        checked += len(targets)
        faults += [f"{page.relative_to(root)}: {target} is not there" for target, base in targets
                   if not (base / target).exists()]
    print("\n".join(faults) or f"{checked} links and paths are there")
    return 1 if faults or not checked else 0


sys.exit(main())
