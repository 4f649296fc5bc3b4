"""Legibility: contrast in the palettes of a desktop, and no text cut off at any scale factor."""
import os
import subprocess
import unittest

os.environ["HALCYON_SCREEN"] = "2048x1536"  # a window at 200 % has to fit

from case import ProgramCase  # noqa: E402
from nodes import Atspi, box_of, showing, text_of, tree  # noqa: E402
from program import PICTURES  # noqa: E402
from session import SESSION, need  # noqa: E402

ENOUGH = 4.5  # to 1: level AA of the web's content guidelines for text of this size
# Settings of a KDE desktop: text, backgrounds of lists and of windows, selected text and its background.
PALETTES = {
    "light": ("35,38,41", "255,255,255", "239,240,241", "255,255,255", "41,111,159"),
    "dark": ("252,252,252", "27,30,32", "42,46,50", "252,252,252", "29,99,143"),
    "high-contrast": ("255,255,255", "0,0,0", "0,0,0", "0,0,0", "255,255,0"),
}


def settings(palette):
    text, view, window, selected, highlight = PALETTES[palette]
    sections = {"Colors:View": (view, text), "Colors:Window": (window, text), "Colors:Button": (window, text),
                "Colors:Tooltip": (window, text), "Colors:Selection": (highlight, selected)}
    return "".join(f"[{name}]\nBackgroundNormal={ground}\nForegroundNormal={ink}\n\n"
                   for name, (ground, ink) in sections.items())


def luminance(colour):
    parts = [value / 255 for value in colour]
    parts = [value / 12.92 if value <= 0.04045 else ((value + 0.055) / 1.055) ** 2.4 for value in parts]
    return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2]


def ratio(one, other):
    low, high = sorted((luminance(one), luminance(other)))
    return (high + 0.05) / (low + 0.05)


def windows_on_screen(program):
    return SESSION.ask_xdotool("search", "--onlyvisible", "--all", "--pid", program.process.pid,
                               "--name", "^Halcyon_K7$")


def property_of(window, name):
    """What the program tells the window manager: numbers, or a picture."""
    command = [need("xprop"), "-id", window, name]
    return subprocess.run(command, env=SESSION.environment, check=True, capture_output=True, text=True).stdout


def width_on_screen(program):
    lines = SESSION.ask_xdotool("getwindowgeometry", "--shell", windows_on_screen(program)[0])
    return next(int(line.split("=")[1]) for line in lines if line.startswith("WIDTH="))


class Picture:
    """The present screen content."""

    def __init__(self, name):
        self.path = SESSION.picture(PICTURES / f"looks-{name}.png")

    def contrast(self, node, inset=3):
        """The contrast between a control's background, its most frequent colour, and the colour that differs most from it."""
        box = box_of(node)
        area = f"{box.width - 2 * inset}x{box.height - 2 * inset}+{box.x + inset}+{box.y + inset}"
        pixels = subprocess.run(["convert", self.path, "-crop", area, "+repage", "-alpha", "off", "-depth", "8",
                                 "rgb:-"], check=True, capture_output=True).stdout
        counts = {}
        for i in range(0, len(pixels), 3):
            counts[pixels[i:i + 3]] = counts.get(pixels[i:i + 3], 0) + 1
        ground = max(counts, key=counts.get)
        return max(ratio(ground, colour) for colour in counts), tuple(ground)


class Contrast(ProgramCase):
    def start(self, palette):
        configuration = SESSION.folder / palette
        configuration.mkdir(exist_ok=True)
        (configuration / "kdeglobals").write_text(settings(palette), encoding="ascii")
        program = self.sample_program_with({"XDG_CONFIG_HOME": str(configuration), "XDG_CURRENT_DESKTOP": "KDE",
                                            "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"})
        return program

    def check(self, palette, named):
        picture = Picture(palette)
        for what, node in named.items():
            found, ground = picture.contrast(node)
            self.assertGreaterEqual(found, ENOUGH, f"{what} in the {palette} palette, on {ground}: {picture.path}")

    def test_every_text_of_the_window(self):
        for palette, (_, view, _, _, highlight) in PALETTES.items():
            with self.subTest(palette):
                program = self.start(palette)
                program.select_row(1)
                bar = program.find(Atspi.Role.STATUS_BAR)
                self.check(palette, {
                    "a cell": program.cell(2, 1), "a selected cell": program.cell(1, 1),
                    "a header": program.header_nodes()[0],
                    "the tab shown": program.find(Atspi.Role.PAGE_TAB, "DRM List"),
                    "another tab": program.find(Atspi.Role.PAGE_TAB, "AM List"),
                    "the status line": program.find(Atspi.Role.LABEL, within=bar)})
                # Checks that the program uses the palette of the test.
                picture = Picture(palette)
                self.assertEqual(picture.contrast(program.cell(2, 1))[1], tuple(map(int, view.split(","))))
                self.assertEqual(picture.contrast(program.cell(1, 1))[1], tuple(map(int, highlight.split(","))))
                self.check(palette + "-edit", {"the edit box": program.open_edit(2, 1)})
                program.keys("Return")
                self.assert_closes(program)

    def test_every_text_of_the_dialog(self):
        for palette in PALETTES:
            with self.subTest(palette):
                program = self.start(palette)
                program.keys("ctrl+n")
                dialog = program.dialog("Add List--[DRM List]")
                dialog.type("programme", "Radio")
                window = program.window(dialog.title)
                named = {text_of(node): node for node in tree(window)
                         if node.get_role() in (Atspi.Role.LABEL, Atspi.Role.PUSH_BUTTON, Atspi.Role.TEXT)
                         and showing(node) and text_of(node) not in ("", "--")}
                self.assertGreaterEqual(len(named), 8, list(named))
                self.check(palette + "-dialog", named)
                dialog.cancel()
                self.assert_closes(program)


class WindowManager(ProgramCase):
    def test_the_window_has_the_programs_icon(self):
        program = self.sample_program()
        # A window without one gets the default of the toolkit, in a single size.
        self.assertIn("Icon (20 x 20)", property_of(windows_on_screen(program)[0], "_NET_WM_ICON"))
        self.assert_closes(program)

    def test_a_message_box_asks_for_no_minimise_and_maximise_buttons(self):
        """Not every window manager heeds it; openbox draws them for every dialog."""
        program = self.sample_program()
        main = windows_on_screen(program)[0]
        minimise, maximise = 1 << 5, 1 << 6
        self.assertEqual(self.decorations(main) & (minimise | maximise), minimise | maximise)
        program.keys("ctrl+l")
        program.message()
        box = next(window for window in windows_on_screen(program) if window != main)
        self.assertEqual(self.decorations(box) & (minimise | maximise), 0)
        self.assertIn("_NET_WM_WINDOW_TYPE_DIALOG", property_of(box, "_NET_WM_WINDOW_TYPE"))
        self.assertIn(hex(int(main)), property_of(box, "WM_TRANSIENT_FOR"))
        program.keys("Return")
        self.assert_closes(program)

    def decorations(self, window):
        flags, _, decorations = [int(number, 16) for number in
                                 property_of(window, "_MOTIF_WM_HINTS").split("=")[1].split(",")[:3]]
        self.assertTrue(flags & 2, "no decorations named")
        return decorations


class Scale(ProgramCase):
    def test_nothing_is_cut_off(self):
        for percent in (100, 150, 200):
            with self.subTest(f"{percent} %"):
                program = self.sample_program_with({"QT_SCALE_FACTOR": str(percent / 100)})
                # Accessibility reports positions before scaling, so the pointer is not used.
                self.assertAlmostEqual(width_on_screen(program), 760 * percent / 100, delta=2)
                self.assert_holds(program.main_window(), Atspi.Role.PAGE_TAB, Atspi.Role.TABLE)
                program.keys("End", "Home", "Right", "Return")
                box = box_of(program.wait(program.edit_box, "the edit box"))
                cell = box_of(program.cell(1, 2))
                for side in ("x", "y", "width", "height"):
                    self.assertAlmostEqual(getattr(box, side), getattr(cell, side), delta=1, msg=side)
                Picture(f"{percent}-edit")
                program.keys("Return", "ctrl+n")
                title = program.dialog("Add List--[DRM List]").title
                self.assert_holds(program.window(title), Atspi.Role.PUSH_BUTTON, Atspi.Role.TEXT, Atspi.Role.COMBO_BOX)
                Picture(f"{percent}-dialog")
                program.keys("alt+F4")
                program.wait(lambda: program.window(title) is None, "the dialog gone")
                self.assert_closes(program)

    def assert_holds(self, window, *roles):
        """Labels and controls of these roles lie wholly within their window."""
        outer = box_of(window)
        inner = [node for node in tree(window) if showing(node) and node.get_role() in (Atspi.Role.LABEL, *roles)]
        self.assertGreater(len(inner), 4)
        for node in inner:
            self.assert_inside(box_of(node), outer, node.get_name())

    def assert_inside(self, inner, outer, what):
        self.assertTrue(inner.x >= outer.x and inner.y >= outer.y and
                        inner.x + inner.width <= outer.x + outer.width and
                        inner.y + inner.height <= outer.y + outer.height, what)
        self.assertGreater(inner.width * inner.height, 0, what)


if __name__ == "__main__":
    unittest.main()
