"""A desktop for the tests: virtual screen, session bus with accessibility, window manager, private mounts.

One per test process. Importing this module starts the desktop, because the accessibility library reads the bus
address when it is loaded. The desktop ends with the process.
"""
import atexit
import ctypes
import os
import pathlib
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time

WIDTH, HEIGHT = map(int, os.environ.get("HALCYON_SCREEN", "1024x768").split("x"))
PATIENCE = 60.0  # seconds for a condition; an idle machine needs less than one
CLONE_NEWNS = 0x00020000


class Timeout(AssertionError):
    """A condition was not met in time."""


def wait_until(condition, what, seconds=PATIENCE):
    """Polls the condition until it is true, at most so many seconds; its value."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Timeout(f"waited {seconds:g} s in vain: {what}")
        select.select([], [], [], 0.02)


def need(program):
    path = shutil.which(program, path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin:/usr/libexec")
    if path is None:
        raise RuntimeError(f"{program} is not installed: run scripts/setup")
    return path


def read_line(stream, what, seconds=PATIENCE):
    """The first line that a started program reports on a pipe."""
    ready, _, _ = select.select([stream], [], [], seconds)
    line = stream.readline().decode().strip() if ready else ""
    if not line:
        raise Timeout(f"{what} did not report that it is ready")
    return line


def own_mounts():
    """Makes the mounts of the tests private to this process, if permitted; True on success."""
    if os.geteuid() != 0 or ctypes.CDLL(None, use_errno=True).unshare(CLONE_NEWNS) != 0:
        return False
    # In a chroot the root is no mount point; the tests then share the mounts of the machine.
    return subprocess.run([need("mount"), "--make-rprivate", "/"], stderr=subprocess.DEVNULL, check=False).returncode == 0


class Session:
    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="halcyon-e2e-"))
        self.children = []
        self.private_mounts = own_mounts()
        atexit.register(self.stop)
        # A test that is terminated removes its screen and its mounts, too.
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        self.environment = {
            "PATH": os.environ.get("PATH", "/usr/bin:/bin"),
            "HOME": str(self.folder),
            "XDG_RUNTIME_DIR": str(self.folder),
            "XDG_CACHE_HOME": str(self.folder / "cache"),
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "XDG_DATA_HOME": str(self.folder / "data"),
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "xcb",
            "QT_ACCESSIBILITY": "1",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            # For sanitizer builds: the toolkit and the font library free nothing before the process ends.
            "ASAN_OPTIONS": "detect_leaks=0",
        }
        self.start_screen()
        self.start_bus()
        self.start_window_manager()
        os.environ.update(self.environment)

    def start(self, command, **options):
        child = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL, start_new_session=True, **options)
        self.children.append(child)
        return child

    def start_screen(self):
        reader, writer = os.pipe()
        self.start([need("Xvfb"), "-displayfd", str(writer), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-nolisten", "tcp",
                    "-noreset"], pass_fds=[writer], stdout=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader, "rb") as stream:
            self.environment["DISPLAY"] = ":" + read_line(stream, "Xvfb")
        # The first key of the test device changes the keyboard map, and a window manager that then grabs its shortcuts
        # again may miss a key pressed meanwhile. So the map changes before the window manager starts.
        self.xdotool("key", "Shift_L")

    def start_bus(self):
        bus = self.start([need("dbus-daemon"), "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = read_line(bus.stdout, "dbus-daemon")

    def start_window_manager(self):
        self.start([need("openbox"), "--sm-disable"], stdout=subprocess.DEVNULL)
        # The window manager is ready once the root window has its name.
        wait_until(lambda: subprocess.run([need("xdotool"), "get_num_desktops"], env=self.environment,
                                          capture_output=True, check=False).returncode == 0, "the window manager")

    def picture(self, path):
        """A picture of the whole screen."""
        path = pathlib.Path(path)
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run([need("import"), "-silent", "-window", "root", str(path)], env=self.environment, check=True)
        return path

    def xdotool(self, *arguments):
        subprocess.run([need("xdotool"), *map(str, arguments)], env=self.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def ask_xdotool(self, *arguments):
        """The lines that xdotool prints."""
        return subprocess.run([need("xdotool"), *map(str, arguments)], env=self.environment, check=False,
                              capture_output=True, text=True).stdout.split()

    def focus_has_settled(self):
        """Waits until the active window of the window manager has the keyboard."""
        return self.ask_xdotool("getactivewindow") == self.ask_xdotool("getwindowfocus") != []

    def stop(self):
        for child in reversed(self.children):
            try:
                os.killpg(child.pid, 15)
            except ProcessLookupError:
                pass
        for child in self.children:
            try:
                child.wait(5)
            except subprocess.TimeoutExpired:
                os.killpg(child.pid, 9)
        self.children.clear()
        shutil.rmtree(self.folder, ignore_errors=True)


SESSION = Session()
