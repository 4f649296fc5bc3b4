"""Closes the program by Alt+F4 in every state a user may leave it in. HALCYON_CLOSINGS sets how often in all;
HALCYON_CLOSING_SECONDS ends the loop earlier, with the number reached."""
import collections
import os
import subprocess
import time
import unittest

from case import ProgramCase
from listfiles import SAMPLE_LIST, SAMPLE_USER
from session import SESSION

CLOSINGS = int(os.environ.get("HALCYON_CLOSINGS", "7"))
SECONDS = float(os.environ.get("HALCYON_CLOSING_SECONDS", "inf"))
PROMPT = 8  # seconds within which a user expects the window to be gone


def untouched(program):
    pass


def after_message(program):
    program.keys("ctrl+l")
    program.message()
    program.keys("Return")
    program.wait(lambda: program.message_box() is None, "the message box gone")


def after_menu(program):
    program.popup_by_key()
    SESSION.xdotool("key", "Escape")
    program.wait(lambda: not program.popup_is_up(), "the popup menu gone")


def after_dialog(program):
    program.keys("ctrl+n")
    program.dialog("Add List--[DRM List]")
    program.keys("Escape")
    program.wait(lambda: program.window("Add List--[DRM List]") is None, "the dialog gone")


def with_open_dialog(program):
    """The key closes the dialog first, as the window behind it is disabled."""
    program.keys("ctrl+n")
    program.dialog("Add List--[DRM List]")
    program.keys("alt+F4")
    program.wait(lambda: program.window("Add List--[DRM List]") is None, "the dialog gone")


def after_sync(program):
    program.keys("ctrl+i")
    program.message()
    program.keys("Return")
    program.wait(lambda: program.message_box() is None, "the message box gone")


def while_editing(program):
    program.keys("Down")
    program.keys("Return")
    program.wait(program.edit_box, "the edit box")


STATES = (untouched, after_message, after_menu, after_dialog, with_open_dialog, after_sync, while_editing)


class Closing(ProgramCase):
    def closes(self, program):
        """True if one Alt+F4 ends the program in time; else says whether a second one does."""
        program.keys("alt+F4")
        try:
            self.assertEqual(program.wait_for_end(PROMPT), 0, program.errors())
            return True
        except subprocess.TimeoutExpired:
            focus = SESSION.ask_xdotool("getwindowfocus"), SESSION.ask_xdotool("getactivewindow")
            SESSION.xdotool("key", "--clearmodifiers", "alt+F4")
            try:
                program.wait_for_end(PROMPT)
                end = "ended by a second key"
            except subprocess.TimeoutExpired:
                end = "alive after a second key"
            print(f"not closed: focus and active window {focus}; {end}", flush=True)
            return False

    def test_alt_f4_ends_the_program(self):
        address = self.serve(b"", status=404)
        done, late = collections.Counter(), collections.Counter()
        start = time.monotonic()
        for number in range(CLOSINGS):
            if time.monotonic() - start > SECONDS:
                break
            state = STATES[number % len(STATES)]
            program = self.sample_program_at(address)
            state(program)
            done[state.__name__] += 1
            late[state.__name__] += not self.closes(program)
            program.kill()
        print(f"closings: {sum(done.values())}, late: {sum(late.values())} {dict(late)}", flush=True)
        self.assertEqual(sum(late.values()), 0, late)

    def sample_program_at(self, address):
        program = self.program(SAMPLE_LIST, SAMPLE_USER)
        (program.folder / "config.ini").write_text(f"{address}/\n")
        return program.start()


if __name__ == "__main__":
    unittest.main(verbosity=2)
