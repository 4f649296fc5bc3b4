"""Drives the Add List dialog by pointer and keyboard."""
from nodes import Atspi, box_of, has_state, text_of, tree
from session import SESSION


class AddDialog:
    """The Add List dialog; its fields are identified by their position."""

    BOXES = ("programme", "frequency", "target")
    COMBOS = ("start hour", "start minute", "stop hour", "stop minute")

    def __init__(self, program, title):
        self.program = program
        self.title = title

    def fields(self, role):
        found = []

        def walk(node):
            if node.get_role() == role:
                found.append(node)
            elif node.get_role() != Atspi.Role.COMBO_BOX:
                for i in range(node.get_child_count()):
                    walk(node.get_child_at_index(i))
        walk(self.program.window(self.title))

        def place(node):
            box = box_of(node)
            return box.y // 8, box.x
        return sorted(found, key=place)

    def field(self, name):
        if name in self.BOXES:
            return self.fields(Atspi.Role.TEXT)[self.BOXES.index(name)]
        return self.fields(Atspi.Role.COMBO_BOX)[self.COMBOS.index(name)]

    def labels(self):
        return [text_of(node) for node in self.fields(Atspi.Role.LABEL)]

    def click(self, name):
        # The left part of a combo is its text, the right its arrow.
        node = self.field(name)
        box = box_of(node)
        SESSION.xdotool("mousemove", box.x + 8, box.y + box.height // 2, "click", 1)
        self.program.wait(lambda: self.has_focus(self.field(name)), f"the focus in {name}")

    def has_focus(self, node):
        return any(has_state(n, Atspi.StateType.FOCUSED) for n in tree(node))

    def type(self, name, text):
        self.click(name)
        self.program.keys("ctrl+a", "BackSpace")
        self.program.type(text)

    def step(self, name, item):
        """Presses the arrow key in a combo until the item of that number is selected."""
        self.click(name)
        self.program.keys(*["Down"] * (item + 1))

    def save(self):
        self.press("Save")

    def cancel(self):
        """Clicks the button and waits until the dialog is closed."""
        self.press("Cancel")
        self.program.wait(lambda: self.program.window(self.title) is None, "the dialog gone")

    def press(self, caption):
        button = self.program.find(Atspi.Role.PUSH_BUTTON, caption, within=self.program.window(self.title))
        self.program.click(button)
