"""The accessibility tree of a program, as a screen reader finds it."""
from session import SESSION  # noqa: F401  its bus has to be there before the library is loaded

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# Never answer from the cache: the state may have changed since.
Atspi.init()


def tree(node):
    """The node and everything under it, except the cells of tables, of which there may be thousands."""
    yield node
    if node.get_role() in (Atspi.Role.TABLE, Atspi.Role.TREE_TABLE, Atspi.Role.TREE, Atspi.Role.LIST):
        return
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield from tree(child)


def showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def has_state(node, state):
    return node.get_state_set().contains(state)


def text_of(node):
    return Atspi.Text.get_text(node, 0, -1) if "Text" in node.get_interfaces() else node.get_name()


def box_of(node):
    """The extents on the screen."""
    return Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)


def middle_of(node):
    box = box_of(node)
    return box.x + box.width // 2, box.y + box.height // 2


def cell_at(grid, row, column):
    """A cell of a grid, both numbers 0-based."""
    return Atspi.Table.get_accessible_at(grid, row, column)


class FocusWatch:
    """Remembers the node that last reported the focus."""

    def __init__(self):
        self.last = None
        self.listener = Atspi.EventListener.new(self.focused)
        self.listener.register("object:state-changed:focused")

    def focused(self, event):
        if event.detail1:
            self.last = event.source

    def forget(self):
        self.listen()
        self.last = None

    def listen(self):
        while GLib.MainContext.default().iteration(False):
            pass

    def menu(self):
        self.listen()
        if self.last is not None and self.last.get_role() == Atspi.Role.MENU_ITEM:
            return self.last.get_parent()
        return None


FOCUS = FocusWatch()
