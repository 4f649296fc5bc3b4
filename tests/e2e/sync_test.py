"""Rebuilds the DRM list from a schedule on a server of the test."""
import pathlib
import tempfile
import threading
import unittest

import listfiles
from case import ProgramCase
from listfiles import DRM_CELLS, list_ini
from nodes import Atspi
from session import SESSION


def record(programme, frequency, time, target, end="\n"):
    return end.join([f"StartStopTimeUTC={time}", "Days=daily", f"Frequency={frequency}", f"Target={target}", "Power=1",
                     f"Programme={programme}", "Language=en", "Site=s", "Country=c", "", ""])


SCHEDULE = "[DRMSchedule]\n" + record("Sync One", "05955", "0600-0700", "Europe") + record(
    "Sync Two", "15000", "2300-2400", "Asia", "\r\n") + record("Backwards", "15000", "0700-0600", "Asia")
SYNC_CELLS = [("Sync One", "05955", "06:00-07:00", "Europe"), ("Sync Two", "15000", "23:00-24:00", "Asia")]


class Sync(ProgramCase):
    def start(self, content, status=200, environment=None, when=None):
        program = self.program(listfiles.SAMPLE_LIST, listfiles.SAMPLE_USER)
        (program.folder / "config.ini").write_text(self.serve(content, status, when) + "\r\nanything\r\n")
        program.start(environment)
        return program

    def test_a_schedule_replaces_the_list(self):
        program = self.start(SCHEDULE.encode())
        program.choose("Sync From Internet(I)", row=1)
        self.assertEqual(program.message(), "The number of new station is: 2")
        program.answer("OK")
        self.assertEqual(self.requests, ["/schedule"])
        self.assert_cells(program, SYNC_CELLS)
        self.assert_totals(program, "Total Number Of DRM List: 2")
        self.assertFalse((program.folder / "DRMSchedule.ini").exists())
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini(SYNC_CELLS, listfiles.AM, listfiles.FM))

    def test_the_257th_record_is_the_last(self):
        short = "StartStopTimeUTC=0600-0700\nx\nFrequency=6000\nTarget=T\nx\nProgramme=P\nx\nx\nx\n"
        program = self.start(b"[DRMSchedule]\n" + short.encode() * 300)
        program.keys("ctrl+i")
        self.assertEqual(program.message(), "The number of new station is: 257")
        program.answer("OK")
        program.wait(lambda: program.row_count() == 257, "257 rows")

    def test_what_is_no_schedule_changes_nothing(self):
        for content, status, message in ((b"[drmschedule]\n", 200, "Illegal file,sync failed"),
                                         (SCHEDULE.encode(), 404, "Download failed,Please check the network")):
            with self.subTest(message):
                program = self.start(content, status)
                program.select_row(1)
                program.keys("ctrl+i")
                self.assertEqual(program.message(), message)
                program.answer("OK")
                self.assert_cells(program, DRM_CELLS)
                self.assert_totals(program, "Total Number Of DRM List: 3")
                self.assertFalse((program.folder / "DRMSchedule.ini").exists())
                self.assert_closes(program)

    def test_a_schedule_without_a_valid_record_empties_the_list(self):
        program = self.start(b"[DRMSchedule]\n")
        program.keys("ctrl+i")
        self.assertEqual(program.message(), "No new station")
        program.answer("OK")
        self.assert_cells(program, [])

    def test_an_empty_configuration_ends_the_command(self):
        program = self.start(SCHEDULE.encode())
        (program.folder / "config.ini").write_bytes(b"")
        program.keys("ctrl+i")
        self.assert_totals(program, "Total Number Of DRM List: %d" % len(DRM_CELLS))
        self.assert_cells(program, DRM_CELLS)
        self.assertEqual(self.requests, [])

    def test_a_schedule_too_long(self):
        program = self.start(SCHEDULE.encode() + b"\n" * 32_767)
        program.keys("ctrl+i")
        self.assertEqual(program.message(), "Overflow")
        program.answer("OK")
        self.assert_totals(program, "Synchronizing,Please wait...")
        self.assert_cells(program, DRM_CELLS)

    def test_no_input_is_taken_while_it_loads(self):
        answer = threading.Event()
        self.addCleanup(answer.set)
        program = self.start(SCHEDULE.encode(), when=answer)
        program.select_row(2)
        program.keys("ctrl+i")
        program.wait(lambda: self.requests, "the request")
        self.assert_totals(program, "Downloading,Please wait...")
        program.keys("Delete", "Return", "ctrl+Tab", "ctrl+n")
        program.click(program.find(Atspi.Role.PAGE_TAB, "Favourite"))
        program.click(program.header_nodes()[0])
        # The event loop answers each query after the input that came before it.
        for _ in range(3):
            self.assertEqual(program.cells(), DRM_CELLS)
            self.assertEqual(program.headers()[2], "Time(UTC)")
            self.assertEqual(program.totals(), "Downloading,Please wait...")
            self.assertIsNone(program.edit_box())
            self.assertEqual(len(program.windows()), 1)
        answer.set()
        self.assertEqual(program.message(), "The number of new station is: 2")
        program.answer("OK")
        self.assert_cells(program, SYNC_CELLS)
        self.assert_closes(program)

    def test_what_only_a_sync_needs_is_loaded_with_the_first(self):
        def has_loaded_it():
            mapped = pathlib.Path(f"/proc/{program.process.pid}/maps").read_text().split()
            return any("libcurl.so.4" in path for path in mapped)
        program = self.start(SCHEDULE.encode())
        self.assertFalse(has_loaded_it())
        for _ in range(2):
            program.keys("ctrl+i")
            self.assertEqual(program.message(), "The number of new station is: 2")
            program.answer("OK")
            self.assertTrue(has_loaded_it())
        self.assert_closes(program)

    def test_without_the_network_library_only_the_sync_fails(self):
        libraries = pathlib.Path(tempfile.mkdtemp(prefix="libraries-", dir=SESSION.folder))
        (libraries / "libcurl.so.4").write_bytes(b"")  # found before the system's own
        program = self.start(SCHEDULE.encode(), environment={"LD_LIBRARY_PATH": str(libraries)})
        for _ in range(2):
            program.keys("ctrl+i")
            self.assertEqual(program.message(), "Download failed,Please check the network")
            program.answer("OK")
        self.assert_cells(program, DRM_CELLS)
        self.assertEqual(self.requests, [])
        self.assert_closes(program)


if __name__ == "__main__":
    unittest.main(verbosity=2)
