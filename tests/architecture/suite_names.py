#!/usr/bin/python3
"""Checks that every test suite starts with the name of its file, so that a filter by the file's name finds its tests.

usage: suite_names.py TESTS    prints each other suite as FILE:LINE: SUITE, exits 1 if there is one
"""
import pathlib
import re
import sys

TEST = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\(\s*(\w+)\s*,", re.MULTILINE)


def main():
    root = pathlib.Path(sys.argv[1])
    checked = 0
    faults = []
    for path in sorted(root.rglob("*Test.cpp")):
        text = path.read_text(encoding="utf-8")
        for match in TEST.finditer(text):
            checked += 1
            if not match.group(1).startswith(path.stem):
                line = text.count("\n", 0, match.start()) + 1
                faults.append(f"{path.relative_to(root)}:{line}: {match.group(1)}")
    print("\n".join(faults) or f"{checked} tests stand in suites named after their files")
    return 1 if faults or not checked else 0


sys.exit(main())
