"""The Add List dialog and adding to the favourites."""
import unittest

import listfiles
from case import ProgramCase
from listfiles import SAMPLE_LIST, SAMPLE_USER, list_ini, user_ini
from nodes import Atspi, has_state, text_of

FULL = "Max number of each list is 256!"


class AddList(ProgramCase):
    def open(self, program, kind):
        program.keys("ctrl+n")
        return program.dialog(f"Add List--[{kind} List]")

    def closed(self, program, dialog):
        program.wait(lambda: program.window(dialog.title) is None, "the dialog gone")

    def test_a_drm_record(self):
        program = self.sample_program()
        program.choose("Add New Record(N)", row=1)
        dialog = program.dialog("Add List--[DRM List]")
        self.assertIn("kHz", dialog.labels())
        self.assertFalse(has_state(program.grid(), Atspi.StateType.ENABLED))
        dialog.type("programme", "New One")
        dialog.type("frequency", "7320")
        dialog.type("target", "Oceania")
        dialog.type("start hour", "7")
        dialog.type("start minute", "5")
        dialog.step("stop hour", 8)
        dialog.step("stop minute", 0)
        dialog.save()
        self.closed(program, dialog)
        row = ("New One", "7320", "07:05-08:00", "Oceania")
        self.assert_cells(program, [*listfiles.DRM_CELLS, row])
        self.assert_totals(program, "Total Number Of DRM List: 4")
        self.assertTrue(has_state(program.grid(), Atspi.StateType.ENABLED))
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini([*listfiles.DRM, row], listfiles.AM, listfiles.FM))

    def test_an_am_and_an_fm_record(self):
        program = self.sample_program()
        for kind, unit, frequency, band in (("AM", "kHz", "1710", "SW"), ("FM", "MHz", "99.9", "VHF")):
            program.show_tab(f"{kind} List")
            program.select_row(1)
            before = program.cells()
            dialog = self.open(program, kind)
            self.assertIn(unit, dialog.labels())
            for name in ("target", "start hour", "start minute", "stop hour", "stop minute"):
                self.assertFalse(has_state(dialog.field(name), Atspi.StateType.ENABLED), name)
            dialog.type("programme", "New")
            dialog.type("frequency", frequency)
            program.keys("Return")
            self.closed(program, dialog)
            self.assert_cells(program, [*before, ("New", frequency, band)])
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini(listfiles.DRM, [*listfiles.AM, ("New", "1710")],
                                                            [*listfiles.FM, ("New", "99900")]))

    def test_refused_records(self):
        program = self.sample_program()
        program.show_tab("AM List")
        program.select_row(1)
        dialog = self.open(program, "AM")
        title = "Add List"
        out_of_range = "Frequency: Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!"
        for programme, frequency, message in (("", "", "Programme: Input can't be empty"),
                                              ("  ", "", "Programme: Input can't be all space"),
                                              ("P", "12a", "Frequency: Please input zero to nine"),
                                              ("P", "289", out_of_range)):
            dialog.type("programme", programme)
            dialog.type("frequency", frequency)
            dialog.save()
            self.assertEqual(program.message(title), message)
            program.answer("OK", title)
            self.assertIsNotNone(program.window(dialog.title))
        self.assertEqual(text_of(dialog.field("frequency")), "289")
        dialog.cancel()
        self.closed(program, dialog)
        self.assert_cells(program, listfiles.AM_CELLS)

    def test_any_key_in_the_stop_time_saves(self):
        program = self.sample_program()
        program.select_row(1)
        dialog = self.open(program, "DRM")
        dialog.click("stop hour")
        program.keys("Tab", "shift+Tab", "Down")
        self.assertIsNone(program.message_box("Add List"))
        program.keys("x")
        self.assertEqual(program.message("Add List"), "Programme: Input can't be empty")
        program.answer("OK", "Add List")
        program.keys("Escape")
        self.closed(program, dialog)
        self.assert_cells(program, listfiles.DRM_CELLS)

    def test_the_close_box_adds_nothing(self):
        program = self.sample_program()
        program.select_row(1)
        dialog = self.open(program, "DRM")
        program.keys("alt+F4")
        self.closed(program, dialog)
        self.assert_cells(program, listfiles.DRM_CELLS)
        self.assertTrue(has_state(program.grid(), Atspi.StateType.ENABLED))
        self.assert_totals(program, "Total Number Of DRM List: 3")

    def test_a_full_list(self):
        rows = [(f"P{i}", "1000") for i in range(255)]
        program = self.program(list_ini(am=rows), SAMPLE_USER).start()
        program.show_tab("AM List")
        program.select_row(1)
        dialog = self.open(program, "AM")
        dialog.type("programme", "Last")
        dialog.type("frequency", "1000")
        dialog.save()
        self.closed(program, dialog)
        program.wait(lambda: program.row_count() == 256, "256 rows")
        program.keys("ctrl+n")
        self.assertEqual(program.message(), FULL)
        program.answer("OK")


class Favourites(ProgramCase):
    def test_every_kind_is_copied(self):
        program = self.program(SAMPLE_LIST, user_ini()).start()
        for tab in ("DRM List", "AM List", "FM List"):
            if tab != "DRM List":
                program.show_tab(tab)
            program.select_row(1)
            program.keys("ctrl+a")
            self.assert_totals(program, f"Total Number Of {tab.removesuffix(' List')} List: {len(program.cells())}")
        program.show_tab("Favourite")
        self.assert_cells(program, [("Radio Example", "6095  kHz", "DRM"), ("Longwave Example", "198  kHz", "AM"),
                                    ("City FM", "98.5  MHz", "FM")])
        self.assert_closes(program)
        self.assertEqual(program.read("User.ini"), user_ini([("Radio Example", "6095", "DRM"),
                                                             ("Longwave Example", "198", "AM"),
                                                             ("City FM", "98500", "FM")]))

    def test_the_limit(self):
        favourites = [(f"F{i}", "1000", "AM") for i in range(255)]
        program = self.program(SAMPLE_LIST, user_ini(favourites)).start()
        program.select_row(1)
        program.keys("shift+Down", "shift+Down")
        program.wait(lambda: program.selected_rows() == [1, 2, 3], "three rows selected")
        program.keys("ctrl+a")
        self.assertEqual(program.message(), FULL)
        program.answer("OK")
        self.assertIsNone(program.message_box())
        program.show_tab("Favourite")
        program.wait(lambda: program.row_count() == 256, "256 favourites")
        self.assert_closes(program)
        self.assertEqual(program.read("User.ini"), user_ini([*favourites, ("Radio Example", "6095", "DRM")]))


if __name__ == "__main__":
    unittest.main(verbosity=2)
