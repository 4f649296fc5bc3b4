"""The window for screen readers and keyboard-only users."""
import unittest

import listfiles
from case import ProgramCase
from listfiles import SAMPLE_LIST, SAMPLE_USER, list_ini, user_ini
from nodes import Atspi, box_of, has_state, middle_of, showing, text_of, tree
from program import TABS
from receiver import unmount_strangers
from session import SESSION

FULL = 256


def full_lists():
    """Both files with every list at its limit."""
    drm = [(f"Radio {i}", str(3000 + i), "06:00-07:00", f"Target {i}") for i in range(FULL)]
    am = [(f"Medium {i}", str(522 + i)) for i in range(FULL)]
    fm = [(f"City {i}", str(88000 + i)) for i in range(FULL)]
    favourites = [(f"Favourite {i}", str(3000 + i), "DRM") for i in range(FULL)]
    return list_ini(drm, am, fm), user_ini(favourites)


def spoken_name(node):
    """The name that a screen reader speaks: the control's own name or the text of its label."""
    if node.get_name():
        return node.get_name()
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            return text_of(relation.get_target(0))
    return ""


class ByReader(ProgramCase):
    def nameless(self, window):
        return [f"{node.get_role_name()} in {node.get_parent().get_name()}" for node in tree(window)
                if showing(node) and has_state(node, Atspi.StateType.FOCUSABLE) and not spoken_name(node)]

    def test_every_control_of_the_window_is_named(self):
        program = self.sample_program()
        for tab in TABS:
            program.show_tab(tab)
            self.assertEqual(self.nameless(program.main_window()), [], tab)
            self.assertEqual(spoken_name(program.grid()), tab)
        program.open_edit(1, 1)
        self.assertNotEqual(spoken_name(program.edit_box()), "")
        program.keys("Return")
        self.assert_closes(program)

    def test_scale_factor_two_keeps_names_roles_and_places(self):
        program = self.sample_program()
        plain = [(node.get_role(), spoken_name(node)) for node in tree(program.main_window())]
        self.assert_closes(program)
        program = self.program(SAMPLE_LIST, SAMPLE_USER).start(environment={"QT_SCALE_FACTOR": "2"})
        self.assertEqual([(node.get_role(), spoken_name(node)) for node in tree(program.main_window())], plain)
        # Qt reports positions in pixels before scaling.
        x, y = middle_of(program.cell(2, 1))
        SESSION.xdotool("mousemove", 2 * x, 2 * y, "click", 1)
        program.wait(lambda: program.selected_rows() == [2], "the row under the pointer selected")
        self.assert_closes(program)

    def test_every_control_of_the_dialog_is_named(self):
        program = self.sample_program()
        program.keys("ctrl+n")
        dialog = program.dialog("Add List--[DRM List]")
        window = program.window(dialog.title)
        self.assertEqual(self.nameless(window), [])
        names = [spoken_name(node) for node in tree(window) if has_state(node, Atspi.StateType.FOCUSABLE)]
        for name in ("Programme", "Frequency", "Start", "Stop", "Target", "Save", "Cancel"):
            self.assertTrue(any(name in spoken for spoken in names), f"{name} is not in {names}")
        dialog.cancel()
        self.assert_closes(program)

    def test_full_lists_are_read_cell_by_cell(self):
        """Walks the tree as a screen reader does and checks each cell's text, state, position and parent."""
        program = self.program(*full_lists()).start()
        for tab in TABS:
            program.show_tab(tab)
            grid = program.grid()
            table = grid.get_table_iface()
            rows, columns = table.get_n_rows(), table.get_n_columns()
            self.assertEqual((rows, columns), (FULL, 4 if tab == "DRM List" else 3))
            for row in range(rows):
                for column in range(columns):
                    cell = table.get_accessible_at(row, column)
                    self.assertNotEqual(cell.get_name(), "", f"{tab} {row} {column}")
                    self.assertEqual(grid.get_child_at_index(cell.get_index_in_parent()).get_name(), cell.get_name())
                    self.assertTrue(has_state(cell, Atspi.StateType.SELECTABLE))
                    box_of(cell)
            self.assertEqual(table.get_accessible_at(FULL - 1, 0).get_name().split()[-1], str(FULL - 1))
        self.assertIsNone(program.process.poll())
        self.assert_closes(program)

    def test_the_tree_survives_changes_below_it(self):
        """A screen reader keeps a reference to a cell whose row is deleted."""
        program = self.program(*full_lists()).start()
        held = [program.cell(row, 1) for row in (1, 128, FULL)]
        program.keys("End", "Home", "shift+End", "Delete")
        program.wait(lambda: program.row_count() == 0, "the list empty")
        for cell in held:
            program.ask(lambda _, cell=cell: (cell.get_name(), cell.get_index_in_parent(), cell.get_state_set()))
        self.assertEqual(program.cells(), [])
        self.assert_closes(program)


class ByKeyboard(ProgramCase):
    """No test of this class uses the pointer."""

    def tab_shown(self, program, name):
        program.wait(lambda: program.totals().startswith(f"Total Number Of {name.removesuffix(' List')} List: "), name)

    def test_the_whole_job(self):
        receiver = self.sample_receiver()
        program = self.program().start()
        program.keys("ctrl+l")
        self.assert_cells(program, listfiles.DRM_CELLS)

        # Edit the frequency of the second station, and add a third one to the favourites.
        program.keys("End", "Home", "Down", "Right")
        program.wait(lambda: program.selected_rows() == [2], "the second row")
        program.edit_by_keys("14000")
        drm = [listfiles.DRM[0], ("Second", "14000", *listfiles.DRM[1][2:]), listfiles.DRM[2]]
        self.assert_cells(program, drm)
        program.keys("Down", "ctrl+a")

        # Add a station.
        program.keys("ctrl+n")
        dialog = program.dialog("Add List--[DRM List]")
        program.type("Fourth")
        for keys in (("Tab", "7", "3", "2", "0"), ("Tab", "6"), ("Tab", "0"), ("Tab", *["Down"] * 8), ("Tab", "Down")):
            program.keys(*keys)
        program.keys("Tab")
        program.type("Oceania")
        program.keys("Return")
        program.wait(lambda: program.window(dialog.title) is None, "the dialog gone")
        drm.append(("Fourth", "7320", "06:00-07:00", "Oceania"))
        self.assert_cells(program, drm)

        # Delete the first station of the AM list by the popup menu, and see the favourites.
        program.keys("ctrl+Tab")
        self.tab_shown(program, "AM List")
        program.keys("End", "Home")
        program.wait(lambda: program.selected_rows() == [1], "the first row")
        program.popup_by_key()
        program.keys("d")
        self.assert_cells(program, listfiles.AM_CELLS[1:])
        program.keys("ctrl+shift+Tab", "ctrl+shift+Tab")
        self.tab_shown(program, "Favourite List")
        self.assert_cells(program, [*listfiles.FAVOURITE_CELLS, ("Third", "9500  kHz", "DRM")])

        program.keys("ctrl+s")
        self.assert_file_becomes(program, receiver.folder / "List.ini", list_ini(drm, listfiles.AM[1:], listfiles.FM))
        self.assert_file_becomes(program, receiver.folder / "User.ini",
                                 user_ini([*listfiles.FAVOURITES, ("Third", "9500", "DRM")]))
        self.assert_closes(program)

    def test_a_message_is_answered(self):
        unmount_strangers()
        program = self.program(SAMPLE_LIST, SAMPLE_USER).start()
        program.keys("ctrl+l")
        self.assertEqual(program.message(), "Can't find disk,please connect DRM receiver to PC")
        program.keys("Return")
        program.wait(lambda: program.message_box() is None, "the message box gone")
        self.assert_closes(program)


if __name__ == "__main__":
    unittest.main()
