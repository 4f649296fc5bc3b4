"""The real program in a fresh folder, read through its accessible tree and driven by pointer and keyboard."""
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from add_dialog import AddDialog
from nodes import Atspi, FOCUS, GLib, box_of, cell_at, has_state, middle_of, showing, text_of, tree
from session import PATIENCE, SESSION, Timeout, wait_until

BINARY = pathlib.Path(os.environ.get("HALCYON_PROGRAM", pathlib.Path(__file__).parents[2] / "build/linux/halcyon_k7"))
PICTURES = pathlib.Path(os.environ.get("HALCYON_PICTURES", SESSION.folder / "pictures"))
CAPTION = "Halcyon_K7"
TABS = ("DRM List", "AM List", "FM List", "Favourite")
BOXES = (Atspi.Role.DIALOG, Atspi.Role.ALERT)


class Program:
    def __init__(self, list_ini=None, user_ini=None, folder=None):
        self.folder = pathlib.Path(folder or tempfile.mkdtemp(prefix="program-", dir=SESSION.folder))
        if not (self.folder / "halcyon_k7").exists():
            shutil.copy2(BINARY, self.folder / "halcyon_k7")
        for name, content in (("List.ini", list_ini), ("User.ini", user_ini)):
            if content is not None:
                (self.folder / name).write_bytes(content)
        self.process = None
        self.header_clicks = 0

    # Start and end

    def launch(self, environment=None, wrapper=()):
        """Starts the program without waiting for its window."""
        self.log = open(self.folder / "stderr.txt", "ab")
        self.process = subprocess.Popen([*wrapper, self.folder / "halcyon_k7"], cwd="/", stdin=subprocess.DEVNULL,
                                        env={**SESSION.environment, **(environment or {})},
                                        stdout=self.log, stderr=self.log)
        self.log.close()
        return self

    def start(self, environment=None, wrapper=(), seconds=PATIENCE):
        """Starts the program and waits for its window to have the keyboard."""
        self.launch(environment, wrapper)

        def ready():
            if self.process.poll() is not None:
                raise AssertionError(f"the program ended with {self.process.returncode}: {self.errors()}")
            window = self.window(CAPTION)
            return window and has_state(window, Atspi.StateType.ACTIVE) and self.totals()
        self.wait(ready, "the main window", seconds)
        return self

    def errors(self):
        return (self.folder / "stderr.txt").read_text(errors="replace")

    def wait_for_end(self, seconds=PATIENCE):
        """The exit code."""
        return self.process.wait(seconds)

    def close(self):
        """Closes the window as a click on the close box does; the exit code."""
        self.keys("alt+F4")
        return self.wait_for_end()

    def terminate(self):
        self.process.send_signal(signal.SIGTERM)
        return self.wait_for_end()

    def kill(self):
        if self.process is not None and self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    def read(self, name):
        return (self.folder / name).read_bytes()

    # Reading the window

    def ask(self, question, otherwise=None):
        """A value read from the accessible tree; `otherwise` if the node has gone meanwhile."""
        try:
            application = self.application()
            return otherwise if application is None else question(application)
        except GLib.Error:
            return otherwise

    def application(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_process_id() == self.process.pid:
                child.set_cache_mask(Atspi.Cache.NONE)
                return child
        return None

    def wait(self, condition, what, seconds=PATIENCE):
        try:
            return wait_until(lambda: self.ask(lambda _: condition()), what, seconds)
        except Timeout as error:
            picture = SESSION.picture(PICTURES / f"failure-{os.getpid()}-{self.process.pid}.png")
            raise Timeout(f"{error}\npicture: {picture}\n{self.describe()}") from None

    def describe(self):
        """The nodes showing, for the report of a failure."""
        lines = []

        def walk(node, depth):
            lines.append(f"{'  ' * depth}{node.get_role_name()} {node.get_name()!r}")
            for i in range(min(node.get_child_count(), 30)):
                child = node.get_child_at_index(i)
                if child is not None and showing(child):
                    walk(child, depth + 1)
        self.ask(lambda application: walk(application, 0))
        return "\n".join(lines)

    def windows(self):
        def children(application):
            found = (application.get_child_at_index(i) for i in range(application.get_child_count()))
            return [w for w in found if w is not None and showing(w)]
        return self.ask(children, [])

    def window(self, title):
        return next((w for w in self.windows() if w.get_name() == title), None)

    def main_window(self):
        """The window with the program's caption that is no message box; a box may have the same caption."""
        return next(w for w in self.windows() if w.get_name() == CAPTION and w.get_role() not in BOXES)

    def find(self, role, name=None, within=None):
        """The first showing node of that role, and of that name if given; None if there is none."""
        for node in tree(within or self.main_window()):
            if node.get_role() == role and showing(node) and (name is None or node.get_name() == name):
                return node
        return None

    def totals(self):
        """The text of panel 1 of the status bar."""
        bar = self.find(Atspi.Role.STATUS_BAR)
        if bar is None:
            return ""
        texts = [text_of(node) for node in tree(bar) if node.get_role() == Atspi.Role.LABEL]
        return texts[0] if texts else ""

    def grid(self):
        """The table of the tab shown."""
        for node in tree(self.main_window()):
            if "Table" in node.get_interfaces() and showing(node):
                return node
        raise AssertionError("no grid is showing:\n" + self.describe())

    def cells(self):
        """Every row of the grid shown, as tuples of texts."""
        grid = self.grid()
        rows, columns = Atspi.Table.get_n_rows(grid), Atspi.Table.get_n_columns(grid)
        return [tuple(cell_at(grid, r, c).get_name() for c in range(columns)) for r in range(rows)]

    def headers(self):
        """The captions of the grid shown."""
        return [node.get_name() for node in self.header_nodes()]

    def header_nodes(self):
        grid = self.grid()
        return [Atspi.Table.get_column_header(grid, c) for c in range(Atspi.Table.get_n_columns(grid))]

    def click_header(self, caption):
        # Two clicks in quick succession would be a double-click.
        self.header_clicks += 1
        node = next(node for node in self.header_nodes() if node.get_name() == caption)
        self.click(node, offset=(20 * (self.header_clicks % 3 - 1), 0))

    def row_count(self):
        return Atspi.Table.get_n_rows(self.grid())

    def selected_rows(self):
        grid = self.grid()
        return [r + 1 for r in range(Atspi.Table.get_n_rows(grid))
                if has_state(cell_at(grid, r, 0), Atspi.StateType.SELECTED)]

    def edit_box(self):
        """The in-place edit box while it is shown."""
        return self.find(Atspi.Role.TEXT)

    # Input

    def has_keyboard(self):
        """Waits until the newest window is active for the toolkit and for the screen; before that, keys are lost."""
        windows = self.windows()
        return windows and has_state(windows[-1], Atspi.StateType.ACTIVE) and SESSION.focus_has_settled()

    def keys(self, *keys):
        self.wait(self.has_keyboard, "the keyboard in the newest window")
        SESSION.xdotool("key", "--clearmodifiers", *keys)

    def type(self, text):
        self.wait(self.has_keyboard, "the keyboard in the newest window")
        SESSION.xdotool("type", "--clearmodifiers", "--delay", "1", text)

    def click(self, node, button=1, count=1, offset=(0, 0)):
        x, y = middle_of(node)
        SESSION.xdotool("mousemove", x + offset[0], y + offset[1],
                        "click", "--repeat", count, "--delay", 20, button)

    def resize(self, width, height):
        """Resizes the main window and waits until the list shown has followed."""
        before = box_of(self.main_window())
        shown = box_of(self.grid())
        found = SESSION.ask_xdotool("search", "--onlyvisible", "--all", "--pid", self.process.pid, "--name", f"^{CAPTION}$")
        SESSION.xdotool("windowsize", found[0], width, height)

        def follows():
            now = box_of(self.grid())
            return (now.width - shown.width, now.height - shown.height) == (width - before.width, height - before.height)
        self.wait(follows, f"a window of {width} x {height}")

    def widen_column(self, column, pixels):
        """Drags the right end of a column's header, 1-based, and waits until the column is wider."""
        header = self.header_nodes()[column - 1]
        box = box_of(header)
        SESSION.xdotool("mousemove", box.x + box.width - 1, box.y + box.height // 2, "mousedown", 1,
                        "mousemove_relative", pixels // 2, 0, "mousemove_relative", pixels // 2, 0, "mouseup", 1)
        self.wait(lambda: box_of(self.header_nodes()[column - 1]).width >= box.width + pixels // 2, "a wider column")

    def cell(self, row, column):
        """The cell of a row and column, both 1-based."""
        return cell_at(self.grid(), row - 1, column - 1)

    def select_row(self, row, column=1):
        self.click(self.cell(row, column))
        self.wait(lambda: self.selected_rows() == [row], f"row {row} selected")

    def show_tab(self, name):
        self.click(self.find(Atspi.Role.PAGE_TAB, name))
        label = f"Total Number Of {name.removesuffix(' List')} List: "
        self.wait(lambda: self.totals().startswith(label), f"the totals of tab {name}")

    def edit(self, row, column, text):
        """A double-click on a cell, the new text, Enter."""
        self.open_edit(row, column)
        self.retype(text)

    def edit_by_keys(self, text):
        """The same for the cell that the keyboard has selected."""
        self.keys("Return")
        self.wait(self.edit_box, "the edit box")
        self.retype(text)

    def retype(self, text):
        """Replaces the text of the edit box that is open, and presses Enter."""
        self.keys("ctrl+a")
        self.type(text)
        self.wait(lambda: (box := self.edit_box()) and text_of(box) == text, f"{text} typed")
        self.keys("Return")
        self.wait(lambda: self.edit_box() is None, "the edit box hidden")

    def open_edit(self, row, column):
        self.click(self.cell(row, column), count=2)
        return self.wait(self.edit_box, f"the edit box over row {row}, column {column}")

    # Message boxes and dialogs

    def message(self, title=CAPTION):
        """Waits for a message box; its text."""
        return self.wait(lambda: self.message_now(title), f"a message box titled {title}")

    def message_now(self, title=CAPTION):
        box = self.message_box(title)
        if box is None:
            return None
        texts = [text_of(n) for n in tree(box) if n.get_role() == Atspi.Role.LABEL and text_of(n)]
        return texts[0] if texts else None

    def message_box(self, title=CAPTION):
        found = (w for w in self.windows() if w.get_name() == title and w.get_role() in BOXES)
        return next((w for w in found if self.buttons(w)), None)

    def placed_box(self, title):
        """Waits until the message box has the keyboard, because the window manager may move it before; the box."""
        def placed():
            box = self.message_box(title)
            return box if box and has_state(box, Atspi.StateType.ACTIVE) else None
        return self.wait(placed, f"an active message box titled {title}")

    def buttons(self, window):
        return [n.get_name() for n in tree(window) if n.get_role() == Atspi.Role.PUSH_BUTTON and showing(n)]

    def answer(self, button, title=CAPTION):
        """Clicks a button of the message box and waits until the box is closed."""
        self.click(self.find(Atspi.Role.PUSH_BUTTON, button, within=self.placed_box(title)))
        self.wait(lambda: self.message_box(title) is None, "the message box gone")

    def answer_then(self, button, text, title=CAPTION):
        """Clicks a button of the message box and waits for a box with another text."""
        self.click(self.find(Atspi.Role.PUSH_BUTTON, button, within=self.placed_box(title)))
        self.wait(lambda: self.message_now(title) == text, f"a message box saying {text}")

    def dialog(self, title):
        """Waits for the Add List dialog; the dialog."""
        self.wait(lambda: (w := self.window(title)) and has_state(w, Atspi.StateType.ACTIVE), f"the dialog {title}")
        return AddDialog(self, title)

    # The popup menu

    def open_menu(self, row=None):
        """A right click on a row, or on empty space; the menu's items by their captions."""
        FOCUS.forget()
        if row is None:
            box = box_of(self.grid())
            SESSION.xdotool("mousemove", box.x + box.width // 2, box.y + box.height - 20, "click", 3)
        else:
            self.click(self.cell(row, 1), button=3)
        return self.menu_shown()

    def menu_shown(self):
        self.wait(self.popup_is_up, "the popup menu")
        self.keys("Down")
        return self.wait(self.menu_items, "the items of the popup menu")

    def popup_is_up(self):
        """True if the screen shows an unmanaged window of the program, a popup."""
        found = SESSION.ask_xdotool("search", "--onlyvisible", "--all", "--pid", self.process.pid)
        return len(found) > len(self.windows())

    def popup_by_key(self):
        FOCUS.forget()
        self.keys("Menu")
        self.wait(self.popup_is_up, "the popup menu")

    def menu_items(self):
        """The items of the open menu by their captions. The toolkit keeps a popup menu out of the tree of windows, so it
        is found from the item that reports the focus after the Down key."""
        menu = FOCUS.menu()
        if menu is None or not showing(menu):
            return {}
        items = [menu.get_child_at_index(i) for i in range(menu.get_child_count())]
        return {item.get_name(): item for item in items if item.get_name()}

    def choose(self, caption, row=None):
        self.open_menu(row)
        self.click(self.menu_items()[caption])
        self.wait(lambda: not self.menu_items(), "the popup menu gone")
