"""One visit to a program that a package brought: its window comes, does a job, and closes."""
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "e2e"))
from session import SESSION, Timeout, wait_until  # noqa: E402

START = 120.0  # seconds that a first start may take, on a machine that does other things
TRIES = 4


class Visit:
    """The program, started by a command, with its window up."""

    def __init__(self, command, environment=None):
        log = SESSION.folder / "visit.txt"
        with open(log, "wb") as stream:
            self.process = subprocess.Popen(list(map(str, command)), cwd="/", stdin=subprocess.DEVNULL, stdout=stream,
                                            stderr=stream, env={**SESSION.environment, **(environment or {})})

        def window():
            if self.process.poll() is not None:
                raise AssertionError(f"the program ended with {self.process.returncode}: {log.read_text()}")
            return next(iter(SESSION.ask_xdotool("search", "--onlyvisible", "--name", "^Halcyon_K7$")), None)
        self.window = wait_until(window, "the window", START)
        wait_until(self.takes_keys, "the window active")

    def takes_keys(self):
        """The window manager names a window active before a program that takes the focus by itself has taken it."""
        return all(SESSION.ask_xdotool(question) == [self.window] for question in ("getactivewindow", "getwindowfocus"))

    def has_class(self, name):
        """Whether a desktop takes the window for that class, by which it finds the entry of the menu."""
        return self.window in SESSION.ask_xdotool("search", "--onlyvisible", "--class", f"^{name}$")

    def keys(self, *keys):
        SESSION.xdotool("key", "--clearmodifiers", *keys)

    def picture(self, path):
        SESSION.picture(path)

    def press_until(self, done, what, *keys):
        """Keys that come to nothing are pressed again: just after a start the focus may still be handed about."""
        for attempt in range(TRIES):
            self.keys(*keys)
            try:
                return wait_until(done, what, START / TRIES)
            except Timeout:
                if attempt == TRIES - 1:
                    raise

    def delete_first(self, folder):
        """Deletes the first station of the list shown and waits until the program, which works on that folder, has."""
        kept = recovery(folder)
        self.press_until(lambda: recovery(folder) != kept, "the deletion", "End", "Home", "Delete")

    def sync(self, folder):
        """Rebuilds the DRM list from the schedule at the configured address, and closes the message that tells so."""
        kept = recovery(folder)
        self.press_until(lambda: recovery(folder) != kept, "the sync", "ctrl+i")
        wait_until(lambda: not self.takes_keys(), "the message", START)
        self.press_until(self.takes_keys, "the message closed", "Return")

    def close(self):
        """As a click on the close box; the exit code."""
        self.press_until(lambda: self.process.poll() is not None, "the end", "alt+F4")
        return self.process.returncode

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()


def recovery(folder):
    """What the program keeps for a cut-off run; each command that changes a list changes it."""
    return [path.read_bytes() for path in sorted((folder / "Recovery").iterdir())]


def drm_programmes(path):
    """The programmes of the DRM list in a saved file, and whether the file is whole."""
    text = path.read_bytes().decode("utf-8")
    programmes = []
    for part in text.split("[DRMSchedule")[1:]:
        programmes.append(part.split("Programme=")[1].split("\r\n")[0])
    return programmes, text.endswith("\r\n[kvt update end]\r\n")
