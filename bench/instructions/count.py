#!/usr/bin/env python3
"""Counts the instructions of load, save and sort, which do not depend on how busy a machine is.

    count.py PROGRAM           fails when a count has grown past what counts.json keeps; names one that has shrunk
    count.py --keep PROGRAM    writes counts.json
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

KEPT = pathlib.Path(__file__).with_name('counts.json')
WORKS = ('load', 'save', 'sort')
TOLERANCE = 0.03


def instructions(program, work):
    with tempfile.NamedTemporaryFile() as profile:
        run = subprocess.run(
            ['valgrind', '--tool=callgrind', f'--callgrind-out-file={profile.name}', program, work],
            capture_output=True, text=True, check=True)
    return int(re.search(r'Collected : (\d+)', run.stderr).group(1))


def count(program):
    around = instructions(program, 'nothing')
    return {work: instructions(program, work) - around for work in WORKS}


def main(arguments):
    keep = arguments[:1] == ['--keep']
    counted = count(arguments[-1])
    if keep:
        KEPT.write_text(json.dumps(counted, indent=2) + '\n')
        return 0
    kept = json.loads(KEPT.read_text())
    failed = False
    for work in WORKS:
        change = counted[work] / kept[work] - 1
        print(f'{work}: {counted[work]} instructions, {change:+.2%} of the kept {kept[work]}')
        if abs(change) > TOLERANCE:
            failed = True
            print(f'{work}: more than {TOLERANCE:.0%} {"over" if change > 0 else "under"} the kept count;'
                  ' when that is meant, keep the new one with scripts/bench --counts')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
