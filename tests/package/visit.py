"""Starts a packaged program, lets its window do one job and closes it."""
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "e2e"))
from session import SESSION, Timeout, wait_until  # noqa: E402

START = 120.0  # seconds for a first start on a loaded machine
TRIES = 4


class Visit:
    """A started program with its window on screen."""

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
        """Waits for the focus: the window manager marks a window active before the program has taken the focus."""
        return all(SESSION.ask_xdotool(question) == [self.window] for question in ("getactivewindow", "getwindowfocus"))

    def has_class(self, name):
        """True if the window has that class, by which a desktop finds its menu entry."""
        return self.window in SESSION.ask_xdotool("search", "--onlyvisible", "--class", f"^{name}$")

    def keys(self, *keys):
        SESSION.xdotool("key", "--clearmodifiers", *keys)

    def picture(self, path):
        SESSION.picture(path)

    def press_until(self, done, what, *keys):
        """Presses the keys until they have an effect: just after a start the focus may still move."""
        for attempt in range(TRIES):
            self.keys(*keys)
            try:
                return wait_until(done, what, START / TRIES)
            except Timeout:
                if attempt == TRIES - 1:
                    raise

    def delete_first(self, folder):
        """Deletes the first station of the list shown and waits until the snapshot in the folder shows it."""
        kept = recovery(folder)
        self.press_until(lambda: recovery(folder) != kept, "the deletion", "End", "Home", "Delete")

    def sync(self, folder):
        """Rebuilds the DRM list from the configured schedule and closes the message about it."""
        kept = recovery(folder)
        self.press_until(lambda: recovery(folder) != kept, "the sync", "ctrl+i")
        wait_until(lambda: not self.takes_keys(), "the message", START)
        self.press_until(self.takes_keys, "the message closed", "Return")

    def close(self):
        """Closes the window as a click on the close box does; the exit code."""
        self.press_until(lambda: self.process.poll() is not None, "the end", "alt+F4")
        return self.process.returncode

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()


def recovery(folder):
    """The snapshot of the program; each command that changes a list changes it."""
    return [path.read_bytes() for path in sorted((folder / "Recovery").iterdir())]


def drm_programmes(path):
    """The programmes of the DRM list in a saved file, and whether the file is complete."""
    text = path.read_bytes().decode("utf-8")
    programmes = []
    for part in text.split("[DRMSchedule")[1:]:
        programmes.append(part.split("Programme=")[1].split("\r\n")[0])
    return programmes, text.endswith("\r\n[kvt update end]\r\n")
