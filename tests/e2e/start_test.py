"""Starting, running once, and ending."""
import os
import pathlib
import signal
import subprocess
import tempfile
import unittest

import listfiles
from case import ProgramCase
from listfiles import SAMPLE_LIST, SAMPLE_USER, list_ini, user_ini
from nodes import Atspi
from program import TABS
from session import SESSION, need

# Without these capabilities file modes apply to root, too.
AS_ANYBODY = [need("setpriv"), "--bounding-set", "-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class Start(ProgramCase):
    def test_an_empty_folder_gives_empty_lists(self):
        program = self.program().start()
        self.assertEqual(program.main_window().get_name(), "Halcyon_K7")
        tabs = program.find(Atspi.Role.PAGE_TAB_LIST)
        names = [tabs.get_child_at_index(i) for i in range(tabs.get_child_count())]
        self.assertEqual([n.get_name() for n in names if n.get_role() == Atspi.Role.PAGE_TAB], list(TABS))
        self.assertEqual(program.totals(), "Total Number Of DRM List: 0")
        self.assertEqual(program.cells(), [])
        for name in ("List.ini", "User.ini"):
            self.assertEqual(program.read(name), b"\xff\xfe \x00")
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini())
        self.assertEqual(program.read("User.ini"), user_ini())

    def test_the_lists_are_shown_and_saved_as_they_were(self):
        program = self.sample_program()
        self.assertEqual(program.read("List.ini"), b"\xff\xfe" + SAMPLE_LIST.decode().encode("utf-16-le"))
        for tab, cells in (("DRM List", listfiles.DRM_CELLS), ("AM List", listfiles.AM_CELLS),
                           ("FM List", listfiles.FM_CELLS), ("Favourite", listfiles.FAVOURITE_CELLS)):
            if tab != "DRM List":
                program.show_tab(tab)
            self.assert_cells(program, cells)
            self.assertEqual(program.totals(), f"Total Number Of {tab.removesuffix(' List')} List: {len(cells)}")
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), SAMPLE_LIST)
        self.assertEqual(program.read("User.ini"), SAMPLE_USER)

    def test_the_columns_of_each_grid(self):
        program = self.sample_program()
        columns = {"DRM List": ["Programme", "Frequency(kHz)", "Time(UTC)", "Target"],
                   "AM List": ["Programme", "Frequency(kHz)", "Band"],
                   "FM List": ["Programme", "Frequency(MHz)", "Band"],
                   "Favourite": ["Programme", "Frequency", "System"]}
        for tab, captions in columns.items():
            if tab != "DRM List":
                program.show_tab(tab)
            self.assertEqual(program.headers(), captions)

    def test_settings_of_the_receiver_are_carried(self):
        settings = {"major": "7", "TYPE": "AM", "Station": "999", "name": "台", "Index": "1"}
        program = self.program(SAMPLE_LIST, user_ini(listfiles.FAVOURITES, **settings)).start()
        self.assert_closes(program)
        self.assertEqual(program.read("User.ini"), user_ini(listfiles.FAVOURITES, **settings))

    def test_a_read_only_file_is_made_writable(self):
        program = self.program(SAMPLE_LIST, SAMPLE_USER)
        os.chmod(program.folder / "List.ini", 0o444)
        program.start(wrapper=AS_ANYBODY)
        self.assertTrue(os.stat(program.folder / "List.ini").st_mode & 0o200)
        self.assert_cells(program, listfiles.DRM_CELLS)
        program.select_row(1)
        program.keys("Delete")
        self.assert_cells(program, listfiles.DRM_CELLS[1:])
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini(listfiles.DRM[1:], listfiles.AM, listfiles.FM))


class ProgramFolder(ProgramCase):
    def test_lists_in_a_folder_that_cannot_be_written_are_copied_to_the_users(self):
        program = self.program(SAMPLE_LIST, SAMPLE_USER)
        (program.folder / "stderr.txt").touch()
        content = sorted(path.name for path in program.folder.iterdir())
        program.folder.chmod(0o555)
        self.addCleanup(program.folder.chmod, 0o755)
        data = pathlib.Path(tempfile.mkdtemp(dir=SESSION.folder))
        program.start(environment={"XDG_DATA_HOME": str(data)}, wrapper=AS_ANYBODY)
        program.select_row(1)
        program.keys("Delete")
        self.assert_cells(program, listfiles.DRM_CELLS[1:])
        self.assert_closes(program)
        self.assertEqual((data / "Halcyon_K7/List.ini").read_bytes(),
                         list_ini(listfiles.DRM[1:], listfiles.AM, listfiles.FM))
        self.assertEqual((data / "Halcyon_K7/User.ini").read_bytes(), SAMPLE_USER)
        self.assertEqual(program.read("List.ini"), SAMPLE_LIST)
        self.assertEqual(sorted(path.name for path in program.folder.iterdir()), content)


class OneInstance(ProgramCase):
    def state(self, program):
        return {path.name: (path.read_bytes(), path.stat().st_mtime_ns) for path in program.folder.glob("*.ini")}

    def test_a_second_start_ends_at_once(self):
        first = self.sample_program()
        before = self.state(first)
        second = self.program(folder=first.folder).launch()
        self.assertEqual(second.wait_for_end(), 0)
        self.assertEqual(self.state(first), before)
        self.assertIsNone(first.process.poll())
        self.assert_closes(first)

    def test_a_killed_program_blocks_and_loses_nothing(self):
        program = self.sample_program()
        program.edit(2, 2, "7000")
        edited = [listfiles.DRM[0], ("Second", "7000", *listfiles.DRM[1][2:]), listfiles.DRM[2]]
        self.assert_cells(program, edited)
        program.kill()
        self.assertEqual(program.process.returncode, -signal.SIGKILL)
        program.start()
        self.assert_cells(program, edited)
        program.kill()
        program.start()
        self.assert_cells(program, edited)
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini(edited, listfiles.AM, listfiles.FM))
        self.assertEqual(program.read("User.ini"), SAMPLE_USER)
        # A normal end keeps one snapshot as the last known good state.
        left = {path.name for path in program.folder.iterdir()} - {"halcyon_k7", "stderr.txt"}
        self.assertEqual(left, {"List.ini", "User.ini", "Recovery"})
        self.assertEqual(len(list((program.folder / "Recovery").iterdir())), 1)


class End(ProgramCase):
    def test_termination_saves(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number.name):
                program = self.sample_program()
                program.select_row(2)
                program.keys("Delete")
                self.assert_cells(program, [listfiles.DRM_CELLS[0], listfiles.DRM_CELLS[2]])
                program.process.send_signal(number)
                self.assertEqual(program.wait_for_end(), 0, program.errors())
                self.assertEqual(program.read("List.ini"),
                                 list_ini([listfiles.DRM[0], listfiles.DRM[2]], listfiles.AM, listfiles.FM))
                self.assertEqual(program.read("User.ini"), SAMPLE_USER)


class BadInput(ProgramCase):
    """The program starts, works and ends with any content of the folder."""

    def works(self, program, seconds=60, drm=None, favourites=None):
        """Starts the program, checks the rows if any are given, and closes it."""
        program.start(wrapper=AS_ANYBODY, seconds=seconds)
        if drm is not None:
            self.assert_cells(program, drm)
        program.show_tab("Favourite")
        if favourites is not None:
            self.assert_cells(program, favourites)
        program.keys("alt+F4")
        self.assertEqual(program.wait_for_end(seconds), 0, program.errors())

    def test_a_folder_in_the_place_of_a_file(self):
        program = self.program(user_ini=SAMPLE_USER)
        (program.folder / "List.ini").mkdir()
        self.works(program, drm=[], favourites=listfiles.FAVOURITE_CELLS)
        self.assertTrue((program.folder / "List.ini").is_dir())
        self.assertEqual(program.read("User.ini"), SAMPLE_USER)

    def test_an_unreadable_file(self):
        program = self.program(SAMPLE_LIST, SAMPLE_USER)
        os.chmod(program.folder / "List.ini", 0)
        self.works(program, drm=[], favourites=listfiles.FAVOURITE_CELLS)
        os.chmod(program.folder / "List.ini", 0o644)
        self.assertEqual(program.read("List.ini"), SAMPLE_LIST)
        self.assertEqual(program.read("User.ini"), SAMPLE_USER)

    def test_a_link_to_nowhere(self):
        program = self.program(user_ini=SAMPLE_USER)
        (program.folder / "List.ini").symlink_to(program.folder / "nowhere")
        self.works(program, drm=[], favourites=listfiles.FAVOURITE_CELLS)
        self.assertFalse((program.folder / "nowhere").exists())

    def test_random_bytes(self):
        # The fixed seed makes every run the same.
        state, noise = 1, bytearray()
        for _ in range(200_000):
            state = (state * 1103515245 + 12345) % 2**31
            noise.append(state >> 16 & 0xff)
        self.works(self.program(bytes(noise), bytes(reversed(noise))))

    def test_nuls(self):
        self.works(self.program(b"\0" * 100_000, b"[Total]\r\nfavnumber=2\0\0\r\n\0[FAVSchedule0]\r\n\0"))

    def test_a_huge_file(self):
        line = b"Programme=" + b"x" * 100 + b"\r\n"
        self.works(self.program(SAMPLE_LIST + line * (100 * 2**20 // len(line)), SAMPLE_USER),
                   favourites=listfiles.FAVOURITE_CELLS)

    def test_counts_that_lie(self):
        self.works(self.program(b"[Total]\r\ndrmnumber=99999999999\r\namnumber=-5\r\nfmnumber=32767\r\n",
                                b"[Total]\r\nfavnumber=1e9\r\n"))


class ChineseSystem(ProgramCase):
    @classmethod
    def setUpClass(cls):
        subprocess.run([need("localedef"), "-i", "zh_CN", "-f", "UTF-8", str(SESSION.folder / "zh_CN.UTF-8")],
                       check=True, capture_output=True)
        cls.environment = {"LOCPATH": str(SESSION.folder), "LC_ALL": "zh_CN.UTF-8", "LANG": "zh_CN.UTF-8"}

    def test_buttons_are_english(self):
        program = self.program(SAMPLE_LIST, SAMPLE_USER).start(self.environment)
        program.choose("Delete All Record", row=1)
        title = "Delete all List"
        self.assertEqual(program.message(title), "All list will be deleted and can't be recovered")
        self.assertEqual(sorted(program.buttons(program.message_box(title))), ["Cancel", "Ok"])
        program.answer("Cancel", title)
        self.assert_cells(program, listfiles.DRM_CELLS)
        program.keys("ctrl+l")
        self.assertEqual(program.message(), "Can't find disk,please connect DRM receiver to PC")
        self.assertEqual(program.buttons(program.message_box()), ["Ok"])
        program.answer("Ok")
        self.assert_closes(program)

    def test_the_full_list_box_keeps_the_captions_of_the_system(self):
        rows = [("x", "6000", "06:00-07:00", "y")] * 256
        program = self.program(list_ini(rows), SAMPLE_USER).start(self.environment)
        program.select_row(1)
        program.keys("ctrl+n")
        self.assertEqual(program.message(), "Max number of each list is 256!")
        self.assertEqual(program.buttons(program.message_box()), ["确定"])
        program.answer("确定")
        self.assert_closes(program)


if __name__ == "__main__":
    unittest.main(verbosity=2)
