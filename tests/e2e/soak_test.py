"""Repeats each command hundreds of times in one run of the program: memory and open files must not grow after the first
hundred times.

HALCYON_SOAK_PAGE: the page whose table of figures the run replaces. HALCYON_SOAK_SHARE=4: a quarter of the repetitions,
but at least 200.
"""
import os
import pathlib
import struct
import time
import unittest

from case import ProgramCase
from hostile_test import memory
from listfiles import DRM_CELLS, SAMPLE_LIST, SAMPLE_USER
from nodes import middle_of
from receiver import Receiver
from session import SESSION

SHARE = int(os.environ.get("HALCYON_SOAK_SHARE", "1"))
PAGE = os.environ.get("HALCYON_SOAK_PAGE")
FIRST, LAST = "<!-- soak -->\n", "<!-- end of soak -->\n"
SETTLED = 100  # times after which nothing may grow
BATCH = 20  # keys of as many edits, sorts or menus are sent at once
MOST_GROWTH = 2048  # kB
PAGE_SIZE = 4096  # bytes of a snapshot's file
RECORD = (b"StartStopTimeUTC=0600-0700\nx\nFrequency=6000\nTarget=T\nx\nProgramme=P\nx\nx\nx\n"
          b"StartStopTimeUTC=0700-0800\nx\nFrequency=7000\nTarget=U\nx\nProgramme=Q\nx\nx\nx\n")


def commands_kept(program):
    """The number of the newest snapshot, which each command that changes a list increases. Changes follow a snapshot in
    its file; each begins a page and contains its number after that of the snapshot before.
    """
    numbers = []
    for path in (program.folder / "Recovery").iterdir():
        kept = path.read_bytes()
        numbers.append(struct.unpack("<Q", kept[8:16])[0])
        numbers += [struct.unpack("<Q", kept[page + 16:page + 24])[0] for page in range(0, len(kept), PAGE_SIZE)
                    if kept.startswith(b"K7CHANGE", page)]
    return max(numbers)


def descriptors(program):
    return len(os.listdir(f"/proc/{program.process.pid}/fd"))


class Soak(ProgramCase):
    def setUp(self):
        self.program_under_test = program = self.program(SAMPLE_LIST, SAMPLE_USER)
        address = self.serve(b"[DRMSchedule]\n" + RECORD)
        (program.folder / "config.ini").write_text(address + "\n")
        program.start()
        self.begun = time.monotonic()

    def test_nothing_grows(self):
        program = self.program_under_test
        rows = [self.times("plug-ins of a receiver, each with a load", 200, self.plug_in),
                self.times("syncs", 1000, self.sync),
                self.times("Add List dialogs", 1000, self.dialog),
                self.times("edits", 6000, self.edits, BATCH),
                self.times("sorts", 2000, self.sorts, BATCH),
                self.times("popup menus", 2000, self.menus, BATCH)]
        minutes = (time.monotonic() - self.begun) / 60
        self.assert_closes(program)
        if PAGE:
            self.write_figures(rows, minutes)
        for what, _, (memory_before, files_before), (memory_after, files_after) in rows:
            with self.subTest(what):
                self.assertLessEqual(memory_after - memory_before, MOST_GROWTH)
                self.assertLessEqual(files_after, files_before)

    def times(self, what, count, action, at_once=1):
        program = self.program_under_test
        count = max(2 * SETTLED, count // SHARE)
        settled = None
        files = []
        for done in range(0, count, at_once):
            if done == SETTLED:
                # The toolkit opens and closes some files at any time: the most of the first 100, the fewest of the last 100.
                settled = self.answering_memory(program), max(files)
                files.clear()
            action(program)
            files.append(descriptors(program))
        row = (what, count, settled, (self.answering_memory(program), min(files[-SETTLED // at_once:])))
        print(f"{time.monotonic() - self.begun:5.0f} s", row, flush=True)
        return row

    def answering_memory(self, program):
        program.wait(lambda: program.row_count() > 0, "an answer")  # what was asked for before is done
        return memory(program, "VmRSS")

    def plug_in(self, program):
        program.keys("ctrl+Home")
        disk = Receiver("receiver", files={"List.ini": SAMPLE_LIST, "User.ini": SAMPLE_USER})
        try:
            before = commands_kept(program)
            program.keys("ctrl+l")
            program.wait(lambda: commands_kept(program) > before or program.cells() == DRM_CELLS, "the lists loaded")
        finally:
            disk.remove()  # fails while the program has a file open there

    def sync(self, program):
        asked = len(self.requests)
        program.keys("ctrl+i")
        self.assertEqual(program.message(), "The number of new station is: 2")
        program.keys("Return")
        program.wait(lambda: program.message_box() is None, "the message box gone")
        self.assertEqual(len(self.requests), asked + 1)

    def dialog(self, program):
        program.keys("ctrl+n")
        program.dialog("Add List--[DRM List]")
        program.keys("Escape")
        program.wait(lambda: program.window("Add List--[DRM List]") is None, "the dialog gone")

    def edits(self, program):
        if not program.selected_rows():
            program.select_row(1)
        before = commands_kept(program)
        keys = []
        for number in range(BATCH):
            keys += ["Return", "abcdefgh"[number % 8], "Return"]
        program.keys("--delay", "4", *keys)
        program.wait(lambda: commands_kept(program) >= before + BATCH, f"{BATCH} edits")

    def sorts(self, program):
        # Clicks on one header in quick succession would be double-clicks.
        before = commands_kept(program)
        steps = []
        for number in range(BATCH):
            x, y = middle_of(program.header_nodes()[number % 2])
            steps += ["mousemove", x, y, "click", 1]
        SESSION.xdotool(*steps)
        program.wait(lambda: commands_kept(program) >= before + BATCH, f"{BATCH} sorts")

    def menus(self, program):
        program.keys("--delay", "4", *["Menu", "Escape"] * BATCH)
        program.wait(lambda: not program.popup_is_up(), "the popup menu gone")

    def write_figures(self, rows, minutes):
        lines = ["| | times | kB after 100 | kB at the end | open files in the first 100, at most | "
                 "in the last 100, at least |",
                 "|---|---:|---:|---:|---:|---:|"]
        for what, count, before, after in rows:
            lines.append(f"| {what} | {count:,} | {before[0]:,} | {after[0]:,} | {before[1]} | {after[1]} |")
        lines.append("")
        lines.append(f"All in one run of the program, in this order, within {minutes:.0f} minutes.")
        page = pathlib.Path(PAGE)
        text = page.read_text(encoding="utf-8")
        head, rest = text.split(FIRST)
        page.write_text(head + FIRST + "\n".join(lines) + "\n" + LAST + rest.split(LAST)[1], encoding="utf-8")


if __name__ == "__main__":
    unittest.main(verbosity=2)
