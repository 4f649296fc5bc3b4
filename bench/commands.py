"""Measures the command-line program: whole commands from process start to end, in turns with what they are compared with."""
import os
import pathlib
import statistics
import subprocess
import sys
import time

ROUNDS = 11
SHOW_ROWS, LONG_ROWS = 256, 32767
# Times only the writing: the rows are in memory before.
PYTHON_WRITES = '''
import csv, sys, time
with open(sys.argv[1], encoding="utf-8", newline="") as file:
    rows = list(csv.reader(file))
begun = time.perf_counter()
with open(sys.argv[2], "w", encoding="utf-8", newline="") as file:
    csv.writer(file).writerows(rows)
print(time.perf_counter() - begun)
'''


def run(command, output, allowed=(0,)):
    """Milliseconds from start to end, and the most kilobytes that were resident."""
    begun = time.perf_counter()
    process = subprocess.Popen([str(part) for part in command], stdout=output, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode not in allowed:
        raise RuntimeError(f'{command} ended with {process.returncode}')
    return (time.perf_counter() - begun) * 1e3, usage.ru_maxrss


def in_turns(*measured):
    """The figures of each callable by round; the first round is the warm-up."""
    rounds = [[each() for each in measured] for _ in range(ROUNDS + 1)]
    return list(zip(*rounds))


def median(values):
    return statistics.median(list(values)[1:])


def add(table, what, ours, other, value, bound):
    table.add(what, f'{ours:.3g} ms', f'{other:.3g} ms', value, bound)


def measure_show(table, program, lists, output):
    files = [lists / 'List.ini', lists / 'User.ini']
    # The package of CHIRP has no command-line program; its window program prints its help without a display.
    show, cat, chirp = in_turns(lambda: run([program, 'show', lists], output)[0],
                                lambda: run(['cat', *files], output)[0],
                                lambda: run(['chirpw', '--help'], output)[0])
    add(table, 'halcyon_k7ctl show, 4 × 256 records / 1.5 × cat of both files and 5 ms', median(show), median(cat),
        median(ours / (1.5 * other + 5) for ours, other in zip(show, cat)), 1)
    add(table, 'halcyon_k7ctl show, 4 × 256 records / chirpw --help', median(show), median(chirp),
        median(ours / other for ours, other in zip(show, chirp)), 0.05)


def measure_long(table, program, lists, folder, output):
    exported, written = folder / 'exported.csv', folder / 'written.csv'
    run([program, 'export', lists, '-o', exported], output)

    def python():
        figure = subprocess.run([sys.executable, '-c', PYTHON_WRITES, exported, written], capture_output=True, check=True)
        return float(figure.stdout) * 1e3

    def exports():
        # To standard output: Python's file is not flushed, but one named with -o would be.
        with open(written, 'wb') as file:
            return run([program, 'export', lists], file)

    sizes = sum((lists / name).stat().st_size for name in ('List.ini', 'User.ini'))
    # Its exit code says whether it has found something.
    check, export, csv = in_turns(lambda: run([program, 'check', lists], output, (0, 1)), exports, python)
    for name, figures in (('check', check), ('export', export)):
        add(table, f'halcyon_k7ctl {name}, 4 × 32767 records / csv module of Python writing the same rows',
            median(ours[0] for ours in figures), median(csv),
            median(ours[0] / other for ours, other in zip(figures, csv)), 0.5)
        most = max(ours[1] for ours in figures)
        table.add(f'halcyon_k7ctl {name}, 4 × 32767 records: most memory / size of both files', f'{most / 1024:.3g} MB',
                  f'{sizes / 2**20:.3g} MB', most * 1024 / sizes, 4)


def measure_commands(table, program, write_lists, folder):
    folder = pathlib.Path(folder) / 'commands'
    for name, rows in (('show', SHOW_ROWS), ('long', LONG_ROWS)):
        (folder / name).mkdir(parents=True)
        subprocess.run([write_lists, f'{folder / name}/', str(rows), 'mixed'], check=True)
    with open(folder / 'output', 'wb') as output:
        measure_show(table, program, folder / 'show', output)
        measure_long(table, program, folder / 'long', folder, output)
