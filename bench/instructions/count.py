#!/usr/bin/env python3
"""Counts the instructions of load, save and sort, which do not depend on how busy a machine is, but on the compiler.

    count.py PROGRAM           fails when a count differs from what counts.json keeps for the compiler of the program;
                               ends with 77 when it keeps nothing for that compiler
    count.py --keep PROGRAM    writes the counts of that compiler into counts.json
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
SKIPPED = 77


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
    program = arguments[-1]
    compiler = subprocess.run([program, 'compiler'], capture_output=True, text=True, check=True).stdout.strip()
    kept = json.loads(KEPT.read_text())
    if arguments[:1] == ['--keep']:
        kept[compiler] = count(program)
        KEPT.write_text(json.dumps(kept, indent=2, sort_keys=True) + '\n')
        return 0
    if compiler not in kept:
        print(f'no counts are kept for {compiler}, only for {", ".join(kept)}')
        return SKIPPED
    return compare(count(program), kept[compiler])


def compare(counted, kept):
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
