"""Editing cells, list commands, the popup menu and sorting."""
import subprocess
import unittest

import listfiles
from case import ProgramCase
from listfiles import AM_CELLS, DRM_CELLS, FAVOURITE_CELLS, SAMPLE_USER, list_ini, user_ini
from nodes import Atspi, box_of, has_state, text_of
from session import SESSION, need

EDIT_HINT = "Press 'Enter' Key To Save Modify"
DELETE_HINT = "Press 'Delete' Key To Delete "


D, E, N = 40, 26, 57  # codes of the physical keys


class Layouts(ProgramCase):
    def setUp(self):
        self.addCleanup(self.use, "us")

    def use(self, layout):
        subprocess.run([need("setxkbmap"), layout], env=SESSION.environment, check=True)

    def ctrl(self, program, code):
        program.wait(program.has_keyboard, "the keyboard in the newest window")
        SESSION.xdotool("keydown", "Control_L", "key", code, "keyup", "Control_L")

    def test_ctrl_with_a_letter_works_in_a_layout_without_latin_letters(self):
        for layout in ("ru", "gr"):
            with self.subTest(layout):
                self.use(layout)
                program = self.sample_program()
                program.select_row(1)
                self.ctrl(program, E)
                program.wait(program.edit_box, "the edit box")
                program.keys("Return")
                program.wait(lambda: program.edit_box() is None, "the edit box hidden")
                self.ctrl(program, D)
                self.assert_cells(program, DRM_CELLS[1:])
                self.ctrl(program, N)
                program.dialog("Add List--[DRM List]")
                program.keys("Escape")
                program.wait(lambda: program.window("Add List--[DRM List]") is None, "the dialog gone")
                self.assert_closes(program)


class Cells(ProgramCase):
    def test_the_box_lies_on_its_cell(self):
        program = self.sample_program()
        for change in (lambda: None, lambda: program.resize(900, 420), lambda: program.widen_column(1, 60)):
            change()
            for column in (1, 2, 4):
                box = program.open_edit(2, column)
                self.assertEqual(text_of(box), DRM_CELLS[1][column - 1])
                self.assert_totals(program, EDIT_HINT)
                shown = box_of(box)
                cell = box_of(program.cell(2, column))
                # The box has the height of the grid divided by the rows, one of which is usually cut.
                for side, slack in (("x", 1), ("y", 1), ("width", 1), ("height", 2)):
                    self.assertAlmostEqual(getattr(shown, side), getattr(cell, side), delta=slack, msg=side)
                program.keys("Return")
                program.wait(lambda: program.edit_box() is None, "the edit box hidden")
        self.assert_cells(program, DRM_CELLS)

    def test_the_time_is_not_edited(self):
        program = self.sample_program()
        program.click(program.cell(1, 3), count=2)
        self.assert_totals(program, DELETE_HINT)
        self.assertIsNone(program.edit_box())

    def test_refused_texts(self):
        program = self.sample_program()
        for column, text, message in ((2, "149", "Out of range: (150--30000) kHz"), (2, "1e3", "Please input (0-9)"),
                                      (1, "   ", "Input can't be all space")):
            with self.subTest(text=text):
                program.open_edit(1, column)
                program.keys("ctrl+a")
                program.type(text)
                program.keys("Return")
                self.assertEqual(program.message(), message)
                program.answer("OK")
                program.wait(lambda: program.edit_box() is None, "the edit box hidden")
                self.assertIsNone(program.message_box())
                self.assert_cells(program, DRM_CELLS)

    def test_typing_stops_at_the_limit(self):
        program = self.sample_program()
        box = program.open_edit(1, 2)
        program.keys("ctrl+a")
        program.type("123456")
        program.wait(lambda: text_of(box) == "12345", "five characters")
        program.keys("Return")
        self.assert_cells(program, [("Radio Example", "12345", *DRM_CELLS[0][2:]), *DRM_CELLS[1:]])

    def test_a_long_text_survives_being_opened(self):
        program = self.sample_program()
        program.open_edit(1, 1)
        program.keys("Return")
        program.wait(lambda: program.edit_box() is None, "the edit box hidden")
        self.assert_cells(program, DRM_CELLS)

    def test_leaving_the_box_commits(self):
        program = self.sample_program()
        program.open_edit(1, 2)
        program.keys("ctrl+a")
        program.type("7000")
        program.click(program.cell(3, 1))
        program.wait(lambda: program.edit_box() is None, "the edit box hidden")
        self.assert_cells(program, [("Radio Example", "7000", *DRM_CELLS[0][2:]), *DRM_CELLS[1:]])
        self.assert_totals(program, DELETE_HINT)

    def test_a_tab_switch_discards(self):
        for name, switch in (("keys", lambda: program.keys("ctrl+Tab")),
                             ("pointer", lambda: program.click(program.find(Atspi.Role.PAGE_TAB, "AM List")))):
            program = self.sample_program()
            # A list is resized when it is first shown and after each change of the window.
            for size in (None, (800, 500), (800, 500)):
                with self.subTest(by=name, size=size):
                    if size:
                        program.resize(*size)
                    program.open_edit(1, 2)
                    program.keys("ctrl+a")
                    program.type("7000")
                    switch()
                    self.assert_totals(program, "Total Number Of AM List: 3")
                    self.assertIsNone(program.edit_box())
                    self.assert_cells(program, AM_CELLS)
                    program.show_tab("DRM List")
                    self.assert_cells(program, DRM_CELLS)

    def test_a_favourite_keeps_its_unit(self):
        program = self.sample_program()
        program.show_tab("Favourite")
        self.assertEqual(text_of(program.open_edit(1, 2)), "6095")
        program.keys("Return")
        program.wait(lambda: program.edit_box() is None, "the edit box hidden")
        program.edit(2, 2, "101.5")
        self.assert_cells(program, [FAVOURITE_CELLS[0], ("City FM", "101.5  MHz", "FM")])
        self.assert_closes(program)
        self.assertEqual(program.read("User.ini"),
                         user_ini([listfiles.FAVOURITES[0], ("City FM", "101500", "FM")]))


class Delete(ProgramCase):
    def test_several_rows(self):
        rows = [(f"P{i}", str(6000 + i), "06:00-07:00", "T") for i in range(1, 7)]
        program = self.program(list_ini(rows), SAMPLE_USER).start()
        program.select_row(2)
        SESSION.xdotool("keydown", "ctrl")
        program.click(program.cell(5, 1))
        program.click(program.cell(6, 1))
        SESSION.xdotool("keyup", "ctrl")
        program.wait(lambda: program.selected_rows() == [2, 5, 6], "three rows selected")
        program.keys("Delete")
        self.assert_cells(program, [rows[0], rows[2], rows[3]])
        # The totals are refreshed at the next tab change.
        self.assertEqual(program.totals(), DELETE_HINT)
        program.show_tab("FM List")
        program.show_tab("DRM List")
        self.assert_totals(program, "Total Number Of DRM List: 3")
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini([rows[0], rows[2], rows[3]]))

    def test_an_empty_list(self):
        program = self.program().start()
        program.click(program.grid())
        program.keys("Delete")
        self.assertEqual(program.message(), "No List")
        program.answer("OK")

    def test_all_of_drm(self):
        program = self.sample_program()
        title = "Delete all List"
        program.choose("Delete All Record", row=1)
        self.assertEqual(program.message(title), "All list will be deleted and can't be recovered")
        self.assertEqual(sorted(program.buttons(program.message_box(title))), ["Cancel", "OK"])
        program.answer("OK", title)
        self.assert_cells(program, [])
        self.assert_totals(program, "Total Number Of DRM List: 0")

    def test_cancelling_on_am_says_no_list(self):
        program = self.sample_program()
        program.show_tab("AM List")
        program.choose("Delete All Record", row=1)
        program.answer_then("Cancel", "No List", "Delete all List")
        program.answer("OK", "Delete all List")
        self.assert_cells(program, listfiles.AM_CELLS)


class Menu(ProgramCase):
    CAPTIONS = ["Edit(E)", "Delete(D)", "Add New Record(N)", "Add To Favourite(A)", "Sync From Internet(I)",
                "Load From Receiver(L)", "Save To Receiver(S)", "Delete All Record"]

    def enabled(self, program, row=None):
        items = program.open_menu(row)
        self.assertEqual(list(items), self.CAPTIONS)
        result = [name for name, item in items.items() if has_state(item, Atspi.StateType.ENABLED)]
        program.keys("Escape")
        program.wait(lambda: not program.menu_items(), "the popup menu gone")
        return result

    def without(self, *captions):
        return [caption for caption in self.CAPTIONS if caption not in captions]

    def test_what_each_list_offers(self):
        program = self.sample_program()
        selection = ("Edit(E)", "Delete(D)", "Add To Favourite(A)")
        self.assertEqual(self.enabled(program), self.without(*selection))
        self.assertEqual(self.enabled(program, 2), self.CAPTIONS)
        self.assertEqual(program.selected_rows(), [2])
        for tab in ("AM List", "FM List"):
            program.show_tab(tab)
            self.assertEqual(self.enabled(program), self.without("Sync From Internet(I)", *selection))
            self.assertEqual(self.enabled(program, 1), self.without("Sync From Internet(I)"))
        program.show_tab("Favourite")
        self.assertEqual(self.enabled(program, 1),
                         self.without("Sync From Internet(I)", "Add New Record(N)", "Add To Favourite(A)"))

    def test_an_empty_list_has_nothing_to_delete(self):
        program = self.program().start()
        self.assertEqual(self.enabled(program), ["Add New Record(N)", "Sync From Internet(I)", "Load From Receiver(L)",
                                                 "Save To Receiver(S)"])

    def test_edit_opens_the_cell_under_the_pointer(self):
        program = self.sample_program()
        program.click(program.cell(3, 2), button=3)
        items = program.menu_shown()
        program.click(items["Edit(E)"])
        self.assertEqual(text_of(program.wait(program.edit_box, "the edit box")), "9500")
        program.keys("Return")


class Sort(ProgramCase):
    def test_each_click_turns_the_order(self):
        program = self.sample_program()
        by_frequency = sorted(DRM_CELLS, key=lambda row: int(row[1]))
        program.click_header("Frequency(kHz)")
        self.assert_cells(program, by_frequency[::-1])
        program.click_header("Frequency(kHz)")
        self.assert_cells(program, by_frequency)
        program.click_header("Programme")
        self.assert_cells(program, sorted(DRM_CELLS)[::-1])
        # The direction belongs to the grid, not to the column.
        program.click_header("Time(UTC)")
        self.assert_cells(program, sorted(DRM_CELLS, key=lambda row: row[2]))
        program.click_header("Target")
        by_target = sorted(listfiles.DRM, key=lambda row: row[3])[::-1]
        self.assert_cells(program, by_target)
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini(by_target, listfiles.AM, listfiles.FM))

    def test_favourites_sort_frequencies_as_text(self):
        rows = [("A", "1000", "AM"), ("B", "900", "AM"), ("C", "98500", "FM")]
        program = self.program(list_ini(), user_ini(rows)).start()
        program.show_tab("Favourite")
        program.click_header("Frequency")
        program.click_header("Frequency")
        self.assert_cells(program, [("A", "1000  kHz", "AM"), ("B", "900  kHz", "AM"), ("C", "98.5  MHz", "FM")])


class KeyboardOnly(ProgramCase):
    def first_row(self, program):
        program.keys("Home", "space")
        program.wait(lambda: program.selected_rows() == [1], "the first row selected")

    def test_a_whole_visit(self):
        receiver = self.sample_receiver()
        program = self.program().start()
        SESSION.xdotool("mousemove", 1, 1)
        program.keys("ctrl+l")
        self.assert_cells(program, DRM_CELLS)
        self.first_row(program)
        program.edit_by_keys("Renamed")
        self.assert_cells(program, [("Renamed", *DRM_CELLS[0][1:]), *DRM_CELLS[1:]])
        program.keys("Right")
        program.edit_by_keys("7000")
        self.assert_cells(program, [("Renamed", "7000", *DRM_CELLS[0][2:]), *DRM_CELLS[1:]])
        program.keys("Right")
        program.edit_by_keys("World")
        drm = [("Renamed", "7000", "06:00-07:30", "World"), *listfiles.DRM[1:]]
        self.assert_cells(program, drm)
        program.keys("ctrl+a")

        program.keys("Down")
        program.wait(lambda: program.selected_rows() == [2], "the second row selected")
        program.keys("ctrl+d")
        drm = [drm[0], drm[2]]
        self.assert_cells(program, drm)

        program.keys("ctrl+Tab")
        self.assert_totals(program, "Total Number Of AM List: 3")
        program.keys("ctrl+n")
        program.wait(lambda: program.window("Add List--[AM List]"), "the dialog")
        program.type("By key")
        program.keys("Tab")
        program.type("1000")
        program.keys("Return")
        program.wait(lambda: program.window("Add List--[AM List]") is None, "the dialog gone")
        self.assert_cells(program, [*listfiles.AM_CELLS, ("By key", "1000", "MW")])

        program.keys("ctrl+Tab")
        self.assert_totals(program, "Total Number Of FM List: 2")
        self.first_row(program)
        program.keys("Left", "Left")  # from the band, which is not edited, to the programme
        program.popup_by_key()
        program.keys("e")
        program.wait(program.edit_box, "the edit box")
        program.retype("Menu FM")
        self.assert_cells(program, [("Menu FM", "98.5", "VHF"), listfiles.FM_CELLS[1]])

        program.keys("ctrl+Tab")
        self.assert_totals(program, "Total Number Of Favourite List: 3")
        program.keys("ctrl+shift+Tab")
        self.assert_totals(program, "Total Number Of FM List: 2")
        program.keys("ctrl+s")
        saved = list_ini(drm, [*listfiles.AM, ("By key", "1000")], [("Menu FM", "98500"), listfiles.FM[1]])
        self.assert_file_becomes(program, receiver.folder / "List.ini", saved)
        self.assert_file_becomes(program, receiver.folder / "User.ini",
                                 user_ini([*listfiles.FAVOURITES, ("Renamed", "7000", "DRM")]))
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), saved)


if __name__ == "__main__":
    unittest.main(verbosity=2)
