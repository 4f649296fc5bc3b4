#!/usr/bin/env python3
"""Runs every measuring program once and writes docs/performance.md, or checks a run against it (--check)."""
import contextlib
import json
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from commands import measure_commands

ROOT = pathlib.Path(__file__).resolve().parent.parent
BENCH = ROOT / 'build/linux/bench'
LINUX = ROOT / 'build/linux/halcyon_k7'
COMMANDS = ROOT / 'build/linux/halcyon_k7ctl'
WINDOWS = ROOT / 'build/windows'
PAGE = ROOT / 'docs/performance.md'
PLOT = ROOT / 'docs/growth.svg'
START_ROUNDS = 21
CALL_ROUNDS = 3
WORSE = 1.25  # a ratio past this many times the written one fails the check
NOISE = 0.01  # ratios below this vary by chance: their two sides are not measured in turns
# Compared with their bound, since the figure depends on the machine. One that misses its bound is compared with the
# written figure like a ratio, so that it does not get worse.
ABSOLUTE = (' ms', ' wake-ups')


def lines_of(program, *arguments, **options):
    run = subprocess.run([str(program), *map(str, arguments)], capture_output=True, text=True, check=True, **options)
    return [line.split('\t') for line in run.stdout.splitlines() if '\t' in line]


class Table:
    """The rows of the page: what, ours, the other's, ratio, bound, and whether it is reached."""

    def __init__(self):
        self.rows = []

    def add(self, what, ours, other, value, bound, unit=''):
        """`bound`: the most that `value` may be; None for a figure without one. `unit`: of the value, none for a ratio."""
        self.rows.append((what, ours, other, value, bound, unit))

    def text(self):
        page = ['| what | ours | the other | ratio | to reach | reached |', '|---|---|---|---|---|---|']
        for what, ours, other, value, bound, unit in self.rows:
            shown = '' if unit == ' ms' else f'{value:.3g}{unit}'
            goal = '' if bound is None else f'≤ {bound:g}{unit}'
            reached = '' if bound is None else ('yes' if value <= bound else '**no**')
            page.append(f'| {what} | {ours} | {other} | {shown} | {goal} | {reached} |')
        return '\n'.join(page) + '\n'


def micro(value):
    value = float(value)
    for unit, scale in (('µs', 1), ('ms', 1e3)):
        if value < 999 * scale:
            return f'{value / scale:.3g} {unit}'
    return f'{value / 1e6:.3g} s'


# Bounds by the names that the measuring programs print; the others have none.
PAIR_BOUNDS = {
    'load / inih parsing both files': 0.4,
    'load / inih parsing List.ini': 1,
    'load / inih parsing both files of 32767 rows': 0.5,
    'load / inih parsing List.ini of 32767 rows': 0.6,
    'load / raw read of both files': 10,
    'first load of a process / raw read of both files': 6,
    'save in memory / SimpleIni composing both files': 0.5,
    'save in memory / SimpleIni composing both files of 32767 rows': 0.5,
    'save / writing and flushing the same bytes': 1.5,
    'sort by name of 32767 rows / std::sort and copying': 3,
    'sort by frequency of 32767 rows / std::sort and copying': 3,
    'schedule merged / memchr from line end to line end': 10,
    'schedule merged / memchr for a missing byte': 10,
}


def measure_pairs(table, folder):
    """Returns the microseconds of ours and of the other by name."""
    by_name = {}
    for program in ('storage_pairs', 'list_pairs'):
        for name, ours, other, ratio in lines_of(BENCH / program, cwd=folder):
            by_name[name] = (float(ours), float(other))
            table.add(name, micro(ours), micro(other), float(ratio), PAIR_BOUNDS.get(name))
    return by_name


def measure_memory(table, folder):
    """The memory that loading the longest lists adds to a process, in several new processes."""
    program, lists = BENCH / 'loaded_memory', pathlib.Path(folder) / 'memory'
    lists.mkdir()
    subprocess.run([program, lists, 'write'], check=True)
    runs = [tuple(map(float, lines_of(program, lists)[0])) for _ in range(5)]
    added, files = statistics.median(run[0] for run in runs), runs[0][1]
    table.add('memory after loading 131068 rows / size of both files in UTF-16', f'{added / 2**20:.3g} MB',
              f'{files / 2**20:.3g} MB', added / files, 1.5)


# Milliseconds, by action and rows of each list.
SNAPSHOT_BOUNDS = {('SnapshotOnDisk', 256): 0.39, ('SnapshotOnDisk', 32767): 16}
SNAPSHOT_ROWS = {'SnapshotOnDisk': 'snapshot of four lists of {} rows after one edit',
                 'SnapshotInMemory': 'snapshot of four lists of {} rows after one edit, without the disk',
                 'FirstEditOnDisk': 'first edit to safe on disk, four lists of {} rows'}


def measure_snapshot(table, folder):
    run = subprocess.run([BENCH / 'snapshot_bench', '--benchmark_repetitions=9', '--benchmark_min_time=0.1',
                          '--benchmark_report_aggregates_only=true', '--benchmark_format=json'],
                         env={**os.environ, 'TMPDIR': folder}, capture_output=True, text=True, check=True)
    for figure in json.loads(run.stdout)['benchmarks']:
        if figure['aggregate_name'] == 'median':
            name, rows = figure['run_name'].split('/')[:2]
            table.add(SNAPSHOT_ROWS[name].format(rows), micro(figure['real_time']), '', figure['real_time'] / 1e3,
                      SNAPSHOT_BOUNDS.get((name, int(rows))), ' ms')


# Milliseconds, by action: one frame, or an action that nobody waits for. The click on a header of the longest lists is
# compared with a plain sort of the same rows.
RESPONSE_BOUNDS = {'header click, names': 16, 'header click, frequencies': 16, 'scroll by a page': 16,
                   'scroll from end to end': 16, 'select all': 50, 'delete all': 50, 'Add List dialog opened': 50}
SORT_OF_CLICK = {'header click, names': 'sort by name of 32767 rows / std::sort and copying',
                 'header click, frequencies': 'sort by frequency of 32767 rows / std::sort and copying'}


def measure_window(table, pairs):
    for rows in (256, 32767):
        runs = [lines_of(BENCH / 'grid_response', rows) for _ in range(5)]
        for index, (name, _) in enumerate(runs[0]):
            value = statistics.median(float(run[index][1]) for run in runs)
            if name == 'Add List dialog opened' and rows > 256:
                continue  # its lists are empty then, as they are with 256
            what = f'{name}, {rows} rows, to the repaint'
            if rows == 32767 and name in SORT_OF_CLICK:
                plain = pairs[SORT_OF_CLICK[name]][1]
                table.add(f'{what} / std::sort and copying', micro(value * 1e3), micro(plain), value * 1e3 / plain, 3)
            else:
                table.add(what, micro(value * 1e3), '', value, RESPONSE_BOUNDS[name], ' ms')


# The longest lists do not fit in the processor's cache, which affects deletion most: it takes a few nanoseconds per row.
GROWTH_BOUNDS = {'load': 1.15, 'save': 1.2, 'delete': 1.3, 'schedule': 1.2}


def measure_growth(table):
    """Returns the points of the plot."""
    data = {}
    worst = {}
    for name, rows, cost, growth in lines_of(BENCH / 'growth'):
        data.setdefault(name, []).append((int(rows), float(cost)))
        if len(data[name]) > 1:
            worst[name] = max(worst.get(name, (0, 0)), (float(growth), float(cost)))
    for name, points in data.items():
        growth, cost = worst[name]
        table.add(f'growth of {name}: cost per row, {points[0][0]} to {points[-1][0]} rows, the worst against the first',
                  f'{cost:.3g} ns', f'{points[0][1]:.3g} ns', growth, GROWTH_BOUNDS[name])
    return data


def plot(data):
    with tempfile.TemporaryDirectory() as folder:
        parts = []
        for name, points in data.items():
            path = pathlib.Path(folder) / name
            path.write_text(''.join(f'{rows} {cost}\n' for rows, cost in points))
            parts.append(f"'{path}' with linespoints title '{name}'")
        script = (f"set terminal svg size 720,420 background 'white'; set output '{PLOT}'; set logscale xy 2; "
                  "set yrange [1:*]; set xlabel 'rows in a list'; set ylabel 'nanoseconds per row'; set grid; "
                  'set key outside; plot ' + ', '.join(parts))
        subprocess.run(['gnuplot', '-e', script], check=True)


@contextlib.contextmanager
def display():
    read, write = os.pipe()
    # Without a reset between two programs, which would drop the one that is just connecting.
    server = subprocess.Popen(['Xvfb', '-displayfd', str(write), '-screen', '0', '1280x1024x24', '-noreset'],
                              pass_fds=[write], stderr=subprocess.DEVNULL)
    os.close(write)
    try:
        with os.fdopen(read) as number:
            yield {**os.environ, 'DISPLAY': ':' + number.readline().strip(), 'QT_LOGGING_RULES': '*=false'}
    finally:
        server.terminate()
        server.wait()


def start(command, environment):
    """Milliseconds to the drawn window, resident kilobytes, milliseconds of processor time."""
    # No pipe for the messages: a desktop that Wine starts with the program would keep it open.
    run = subprocess.run([BENCH / 'window_time', *map(str, command)], env=environment, stdout=subprocess.PIPE,
                         stderr=subprocess.DEVNULL, text=True, check=True)
    return tuple(float(value) for value in run.stdout.split())


def start_in_turns(commands, environment, rounds=START_ROUNDS):
    """The figures of each command, one tuple per round; the commands take turns. The first round is the warm-up."""
    runs = {name: [] for name in commands}
    for _ in range(rounds + 1):
        for name, command in commands.items():
            runs[name].append(start(command, environment))
    return {name: figures[1:] for name, figures in runs.items()}


def compare_starts(table, runs, ours, other, bounds):
    """`bounds`: most of the ratios of time and of resident memory; None for no bound."""
    for index, (what, unit, scale) in enumerate((('process start to drawn window', 'ms', 1),
                                                 ('resident memory after the start', 'MB', 1024))):
        ratio = statistics.median(a[index] / b[index] for a, b in zip(runs[ours], runs[other]))
        medians = [statistics.median(run[index] for run in runs[name]) / scale for name in (ours, other)]
        table.add(f'{ours}: {what} / {other}', f'{medians[0]:.3g} {unit}', f'{medians[1]:.3g} {unit}', ratio,
                  bounds[index])
    processor = [statistics.median(run[2] for run in runs[name]) for name in (ours, other)]
    table.add(f'{ours}: processor time from start to end / {other}', f'{processor[0]:.3g} ms', f'{processor[1]:.3g} ms',
              statistics.median(a[2] / b[2] for a, b in zip(runs[ours], runs[other])), None)


EMPTY = 'empty Qt window'
CONTROLS = 'empty Qt window with the same libraries and controls'


def measure_linux_start(table, folder):
    program = pathlib.Path(folder) / 'start'
    for lists in ('mixed', 'latin'):
        shutil.rmtree(program, ignore_errors=True)
        program.mkdir()
        shutil.copy2(LINUX, program)
        subprocess.run([BENCH / 'write_lists', f'{program}/', '256', lists], check=True)
        with display() as environment:
            commands = {f'four lists of 256, {lists} names': [program / LINUX.name],
                        EMPTY: [BENCH / 'empty_window'], CONTROLS: [BENCH / 'empty_controls_window']}
            if lists == 'mixed':
                commands |= {'qdmr': ['qdmr'], 'CHIRP': ['chirpw']}
            runs = start_in_turns(commands, environment)
        ours = f'four lists of 256, {lists} names'
        compare_starts(table, runs, ours, EMPTY, (None, None))
        compare_starts(table, runs, ours, CONTROLS, (1.2, 1.1))
        if lists == 'mixed':
            compare_starts(table, runs, ours, 'qdmr', (0.7, None))
            compare_starts(table, runs, ours, 'CHIRP', (0.3, None))
            measure_idle(table, program / LINUX.name)


def measure_idle(table, program):
    """How often threads of the program wake up within a minute, at the change of the clock and at other times."""
    around = 2  # seconds that belong to the change, on either side
    with display() as environment:
        process = subprocess.Popen([program], env=environment, stderr=subprocess.DEVNULL)
        try:
            time.sleep(40)  # the toolkit's own helper threads, and its store of pictures, time out after 30 s
            if 60 - time.time() % 60 < 2 * around:
                time.sleep(4 * around)
            before = 60 - time.time() % 60
            counts = [wake_ups(process.pid)]
            for seconds in (before - around, 2 * around, 60 - before - around):
                time.sleep(seconds)
                counts.append(wake_ups(process.pid))
        finally:
            process.terminate()
            process.wait()
    first, change, last = (sum(count - earlier.get(thread, 0) for thread, count in later.items())
                           for earlier, later in zip(counts, counts[1:]))
    table.add("idle: wake-ups of all threads in a minute besides the clock's change", f'{first + last}', '',
              first + last, 0, ' wake-ups')
    # The timer; the reply of the X server to the drawing, which one thread receives and passes to the other; and one more
    # if both wait for the lock of their connection.
    table.add("idle: wake-ups of all threads for the clock's change", f'{change}', '', change, 4, ' wake-ups')


def wake_ups(process):
    counts = {}
    for task in pathlib.Path(f'/proc/{process}/task').iterdir():
        status = (task / 'status').read_text()
        counts[task.name] = int(re.search(r'^voluntary_ctxt_switches:\s*(\d+)', status, re.M).group(1))
    return counts


def measure_windows(table, folder, saved_microseconds, loaded_microseconds):
    size = (WINDOWS / 'Halcyon_K7.exe').stat().st_size
    table.add('Windows program: size', f'{size / 1024:.0f} KB', '', size / 2**20, 1, ' MB')
    program = pathlib.Path(folder) / 'windows'
    program.mkdir()
    shutil.copy2(WINDOWS / 'Halcyon_K7.exe', program)
    subprocess.run([BENCH / 'write_lists', f'{program}/', '256', 'mixed'], check=True)
    profiles = pathlib.Path(folder) / 'profiles'
    profiles.mkdir()
    with display() as environment:
        environment = {**environment, 'WINEDEBUG': '-all', 'WINEPREFIX': f'{folder}/wine',
                       'WINEDLLOVERRIDES': 'mscoree,mshtml,winemenubuilder.exe='}
        wine = shutil.which('wine64') or '/usr/lib/wine/wine64'
        # First and alone: two programs without a prefix would both create it.
        subprocess.run([wine, 'wineboot', '-i'], env=environment, check=True, stderr=subprocess.DEVNULL)
        commands = {'Windows program': [wine, program / 'Halcyon_K7.exe'],
                    'empty list-view window': [wine, WINDOWS / 'bench/empty_list_view.exe']}
        keeper = subprocess.Popen([wine, 'explorer', '/desktop=none'], env=environment, stderr=subprocess.DEVNULL)
        try:
            runs = start_in_turns(commands, environment)
            compare_starts(table, runs, 'Windows program', 'empty list-view window', (1.45, 1.15))
            written, read = map(float, lines_of(wine, WINDOWS / 'bench/profile_functions.exe', f'Z:{profiles}',
                                                env=environment)[0])
        finally:
            keeper.terminate()
            keeper.wait()
            end_wine(environment)
        measure_server_calls(table, wine, commands, environment, folder)
    table.add('profile functions under Wine, one call a key, writing / SaveLists in memory',
              micro(saved_microseconds), micro(written * 1000), saved_microseconds / (written * 1000), 0.001)
    table.add('profile functions under Wine, one call a key, reading / load', micro(loaded_microseconds),
              micro(read * 1000), loaded_microseconds / (read * 1000), None)


def end_wine(environment):
    for option in ('-k', '-w'):
        subprocess.run(['wineserver', option], env=environment, check=False, stderr=subprocess.DEVNULL)


def measure_server_calls(table, wine, commands, environment, folder):
    """The requests of each program's start to Wine's server, which writes a line per reply when traced."""
    log = pathlib.Path(folder) / 'server'
    with open(log, 'wb') as output:
        keeper = subprocess.Popen([wine, 'explorer', '/desktop=none'], env={**environment, 'WINEDEBUG': '+server'},
                                  stderr=output)
    try:
        calls = {name: [] for name in commands}
        for _ in range(CALL_ROUNDS + 1):
            for name, command in commands.items():
                before = log.stat().st_size
                start(command, environment)
                with open(log, 'rb') as trace:
                    trace.seek(before)
                    calls[name].append(len(re.findall(rb'^[0-9a-f]{4}: \w+\(\) = ', trace.read(), re.M)))
    finally:
        keeper.terminate()
        keeper.wait()
        end_wine(environment)
    ours, other = (statistics.median(calls[name][1:]) for name in commands)  # the first round warms up
    if not other:
        raise RuntimeError("Wine's server has not written what it answered")
    table.add("Windows program: calls to Wine's server in a start / empty list-view window", f'{ours:.0f}',
              f'{other:.0f}', ours / other, 1.3)


def machine():
    processor = re.search(r'^model name\s*: (.*)', pathlib.Path('/proc/cpuinfo').read_text(), re.M).group(1)
    versions = [subprocess.run(command, capture_output=True, text=True, check=True).stdout.splitlines()[0]
                for command in (['g++', '--version'], ['dpkg-query', '-Wf', 'Qt ${Version}', 'libqt6core6'],
                                ['dpkg-query', '-Wf', 'Wine ${Version}', 'wine64'])]
    load = os.getloadavg()[0]
    return (f'{processor}, {os.cpu_count()} processors, Linux {os.uname().release}, {", ".join(versions)}; '
            f'load average before the run {load:.1f}.\n\n')


def write_page(table, conditions):
    head, _, rest = PAGE.read_text().partition('<!-- figures -->\n')
    _, _, tail = rest.partition('<!-- end of figures -->\n')
    PAGE.write_text(f'{head}<!-- figures -->\n{conditions}{table.text()}<!-- end of figures -->\n{tail}')


def written_value(ours, ratio):
    """The figure of a row: milliseconds are in the column of ours, other figures in that of the ratio."""
    if ratio:
        return float(ratio.split()[0])
    number, unit = ours.split()
    return float(number) * {'µs': 1e-3, 'ms': 1, 's': 1e3}[unit]


def written_rows():
    """The rows of the page by name: the figure, and whether the bound is reached."""
    written = {}
    for line in PAGE.read_text().splitlines():
        cells = [cell.strip() for cell in line.strip('|').split('|')]
        if len(cells) == 6 and cells[0] != 'what' and not cells[0].startswith('---'):
            written[cells[0]] = (written_value(cells[1], cells[3]), cells[5] == 'yes')
    return written


def verdict(value, bound, unit, written, reached):
    """"ok", or why a row fails."""
    if bound is not None and value > bound and reached:
        return 'PAST ITS BOUND'
    if (unit in ABSOLUTE and (bound is None or reached)) or max(value, written) < NOISE:
        return 'ok'
    return 'WORSE' if value > written * WORSE else 'ok'


def check(table):
    written = written_rows()
    failed = False
    for what, _, _, value, bound, unit in table.rows:
        if what not in written:
            found, against = 'NOT ON THE PAGE', ''
        else:
            found = verdict(value, bound, unit, *written[what])
            against = f' ({written[what][0]:.3g} written)'
        failed = failed or found != 'ok'
        print(f'{found:5}  {value:.3g}{unit}{against}  {what}')
    missing = written.keys() - {row[0] for row in table.rows}
    for what in sorted(missing):
        print(f'NOT MEASURED  {what}')
    return 1 if failed or missing else 0


def main(arguments):
    table = Table()
    conditions = machine()
    with tempfile.TemporaryDirectory(dir=ROOT / 'build') as folder:
        pairs = measure_pairs(table, folder)
        measure_memory(table, folder)
        measure_snapshot(table, folder)
        measure_window(table, pairs)
        growth = measure_growth(table)
        measure_commands(table, COMMANDS, BENCH / 'write_lists', folder)
        measure_linux_start(table, folder)
        measure_windows(table, folder, pairs['save in memory / SimpleIni composing both files'][0],
                        pairs['load / inih parsing both files'][0])
    if arguments == ['--check']:
        return check(table)
    write_page(table, conditions)
    plot(growth)
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
