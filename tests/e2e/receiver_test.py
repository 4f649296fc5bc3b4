"""Loading from and saving to the receiver, on mounted volumes."""
import unittest

import listfiles
from case import ProgramCase
from listfiles import SAMPLE_LIST, SAMPLE_USER, list_ini, user_ini
from receiver import BLOCK

NO_DISK = "Can't find disk,please connect DRM receiver to PC"


class Load(ProgramCase):
    def test_the_lists_come_from_the_receiver(self):
        self.sample_receiver()
        program = self.program().start()
        program.keys("ctrl+l")
        self.assert_cells(program, listfiles.DRM_CELLS)
        self.assert_totals(program, "Total Number Of DRM List: 3")
        for tab, cells in (("AM List", listfiles.AM_CELLS), ("FM List", listfiles.FM_CELLS),
                           ("Favourite", listfiles.FAVOURITE_CELLS)):
            program.show_tab(tab)
            self.assert_cells(program, cells)
        self.assertEqual(program.read("List.ini"), b"\xff\xfe" + SAMPLE_LIST.decode().encode("utf-16-le"))
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), SAMPLE_LIST)
        self.assertEqual(program.read("User.ini"), SAMPLE_USER)

    def test_a_mark_on_the_receivers_file_is_skipped(self):
        self.receiver(files={"List.ini": b"\xef\xbb\xbf" + SAMPLE_LIST, "User.ini": b"\xef\xbb\xbf" + SAMPLE_USER})
        program = self.program().start()
        program.choose("Load From Receiver(L)")
        self.assert_cells(program, listfiles.DRM_CELLS)

    def test_loading_replaces_the_rows(self):
        self.receiver(files={"List.ini": list_ini(listfiles.DRM[:1]), "User.ini": user_ini()})
        program = self.sample_program()
        program.keys("ctrl+l")
        self.assert_cells(program, listfiles.DRM_CELLS[:1])
        program.show_tab("AM List")
        self.assert_cells(program, [])

    def test_no_receiver(self):
        program = self.sample_program()
        program.keys("ctrl+l")
        self.assertEqual(program.message(), NO_DISK)
        program.answer("OK")
        self.assert_cells(program, listfiles.DRM_CELLS)

    def test_a_missing_file_is_named(self):
        receiver = self.receiver(files={"List.ini": list_ini(listfiles.DRM[:1])})
        program = self.sample_program()
        program.keys("ctrl+l")
        self.assertEqual(program.message(), f"Can't find any file: {receiver.folder}/User.ini!"
                                            "Please confirm whether the file is exist")
        program.answer("OK")
        # A load takes both files or none.
        self.assert_cells(program, listfiles.DRM_CELLS)
        self.assertEqual(program.read("List.ini"), b"\xff\xfe" + SAMPLE_LIST.decode().encode("utf-16-le"))
        (receiver.folder / "List.ini").unlink()
        program.keys("ctrl+l")
        self.assertEqual(program.message(), f"Can't find any file: {receiver.folder}/List.ini!"
                                            "Please confirm whether the file is exist")
        program.answer("OK")


class Discovery(ProgramCase):
    def test_the_lower_mount_point_wins(self):
        # Mounted last, but first in the order of the mount points.
        self.receiver("volume-b", files={"List.ini": list_ini(listfiles.DRM), "User.ini": user_ini()})
        self.receiver("volume-a", files={"List.ini": list_ini(listfiles.DRM[:1]), "User.ini": user_ini()})
        program = self.program().start()
        program.keys("ctrl+l")
        self.assert_cells(program, listfiles.DRM_CELLS[:1])

    def test_the_label_decides_nothing(self):
        for blocks in (998, 1000):
            with self.subTest(blocks=blocks):
                receiver = self.receiver(f"other-{blocks}", blocks=blocks, label="STNMEMORY",
                                         files={"List.ini": SAMPLE_LIST, "User.ini": SAMPLE_USER})
                self.assertEqual(receiver.image.stat().st_size, blocks * BLOCK)
                program = self.program().start()
                program.keys("ctrl+l")
                self.assertEqual(program.message(), NO_DISK)
                program.answer("OK")
                self.assert_closes(program)

    def test_the_receiver_is_searched_anew_each_time(self):
        program = self.program().start()
        program.keys("ctrl+l")
        self.assertEqual(program.message(), NO_DISK)
        program.answer("OK")
        self.sample_receiver()
        program.keys("ctrl+l")
        self.assert_cells(program, listfiles.DRM_CELLS)


class Save(ProgramCase):
    def test_an_edit_reaches_the_receiver(self):
        receiver = self.sample_receiver()
        program = self.program().start()
        program.keys("ctrl+l")
        self.assert_cells(program, listfiles.DRM_CELLS)
        program.show_tab("AM List")
        program.edit(1, 2, "999")
        self.assert_cells(program, [("Longwave Example", "999", "MW"), *listfiles.AM_CELLS[1:]])
        program.keys("ctrl+s")
        edited = list_ini(listfiles.DRM, [("Longwave Example", "999"), *listfiles.AM[1:]], listfiles.FM)
        self.assert_file_becomes(program, receiver.folder / "List.ini", edited)
        self.assert_file_becomes(program, receiver.folder / "User.ini", SAMPLE_USER)
        self.assertIn(b"[AMSchedule0]\r\nFrequency=999\r\n", receiver.read("List.ini"))
        self.assertEqual(program.read("List.ini"), edited)
        # The temporary files are removed.
        program.wait(lambda: {path.name for path in receiver.folder.iterdir()} == {"List.ini", "User.ini", "lost+found"},
                     "only the two files left on the receiver")
        self.assert_closes(program)

    def test_the_menu_item_saves_the_grids_too(self):
        receiver = self.receiver()
        program = self.sample_program()
        program.select_row(1)
        program.keys("Delete")
        self.assert_cells(program, listfiles.DRM_CELLS[1:])
        program.choose("Save To Receiver(S)")
        self.assert_file_becomes(program, receiver.folder / "List.ini",
                                 list_ini(listfiles.DRM[1:], listfiles.AM, listfiles.FM))
        self.assert_file_becomes(program, receiver.folder / "User.ini", SAMPLE_USER)

    def test_without_a_receiver_the_working_copies_are_saved(self):
        program = self.sample_program()
        program.select_row(1)
        program.keys("Delete")
        self.assert_cells(program, listfiles.DRM_CELLS[1:])
        program.keys("ctrl+s")
        self.assertEqual(program.message(), NO_DISK)
        self.assertEqual(program.read("List.ini"), list_ini(listfiles.DRM[1:], listfiles.AM, listfiles.FM))
        program.answer("OK")

    def test_saving_and_loading_back_changes_nothing(self):
        receiver = self.receiver()
        program = self.sample_program()
        for _ in range(2):
            program.keys("ctrl+s")
            self.assert_file_becomes(program, receiver.folder / "List.ini", SAMPLE_LIST)
            self.assert_file_becomes(program, receiver.folder / "User.ini", SAMPLE_USER)
            program.keys("ctrl+l")
            program.wait(lambda: program.read("List.ini")[:2] == b"\xff\xfe", "the lists loaded back")
            self.assert_cells(program, listfiles.DRM_CELLS)
            (receiver.folder / "List.ini").write_bytes(b"")
            (receiver.folder / "User.ini").write_bytes(b"")
        program.keys("ctrl+s")
        self.assert_file_becomes(program, receiver.folder / "List.ini", SAMPLE_LIST)
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), SAMPLE_LIST)
        self.assertEqual(program.read("User.ini"), SAMPLE_USER)


if __name__ == "__main__":
    unittest.main(verbosity=2)
