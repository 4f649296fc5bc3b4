"""A bare Debian in a folder, made by debootstrap: without this project and without a desktop.

The bare system is created once and kept in build/package; each test works in an overlay on it, which the test removes.
"""
import atexit
import os
import pathlib
import shutil
import stat
import subprocess
import sys

if os.geteuid() != 0:
    os.execvp("sudo", ["sudo", "-n", "--preserve-env=PATH", sys.executable, "-B", *sys.argv])

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "e2e"))
from session import SESSION, need  # noqa: E402

CACHE = pathlib.Path(__file__).parents[2] / "build/package"
USER = "listener"
# What any installing and removing of packages changes, and what is a user's own.
CHANGING = ("dev", "home", "proc", "sys", "tmp", "run", "var/cache", "var/log", "var/lib/apt", "var/lib/dpkg")


def codename():
    for line in pathlib.Path("/etc/os-release").read_text(encoding="utf-8").splitlines():
        if line.startswith("VERSION_CODENAME="):
            return line.split("=")[1]
    raise RuntimeError("this system does not tell its code name")


def mirror():
    """The Debian mirror of this machine."""
    answer = subprocess.run(["apt-get", "indextargets", "--format", "$(REPO_URI)", "Created-By: Packages",
                             f"Codename: {codename()}", "Component: main"], capture_output=True, text=True, check=False)
    return next(iter(answer.stdout.split()), "http://deb.debian.org/debian")


def base():
    folder = CACHE / f"base-{codename()}"
    if not folder.exists():
        print(f"Making a bare {codename()} in {folder}", flush=True)
        part = CACHE / f"base-{os.getpid()}.part"
        (CACHE / "archives/partial").mkdir(parents=True, exist_ok=True)
        try:
            # The archives that it downloads are kept for the systems of the tests too.
            subprocess.run(["debootstrap", "--variant=minbase", f"--cache-dir={CACHE / 'archives'}", codename(), part,
                            mirror()], check=True, stdout=subprocess.DEVNULL)
            subprocess.run(["chroot", part, "apt-get", "-q", "update"], check=True, stdout=subprocess.DEVNULL)
            subprocess.run(["chroot", part, "useradd", "--create-home", USER], check=True)
            part.rename(folder)
        finally:
            subprocess.run(["rm", "-rf", "--one-file-system", part], check=True)
    return folder


class CleanSystem:
    """Its root is `root`. No device, socket or file of this machine is mounted in it, so a fault inside has no effect
    outside."""

    def __init__(self):
        lower = base()
        self.place = CACHE / f"system-{os.getpid()}"
        self.place.mkdir()
        atexit.register(self.remove)
        self.mount("tmpfs", "mode=755", self.place)
        self.root = self.place / "root"
        for name in ("root", "upper", "work"):
            (self.place / name).mkdir()
        self.mount("overlay", f"lowerdir={lower},upperdir={self.place}/upper,workdir={self.place}/work", self.root)
        self.mount("proc", "ro", self.root / "proc")
        self.make_devices()
        shutil.copytree(CACHE / "archives", self.root / "var/cache/apt/archives", dirs_exist_ok=True)
        shutil.copy("/etc/resolv.conf", self.root / "etc/resolv.conf")
        self.home = self.root / "home" / USER

    def mount(self, kind, options, folder):
        subprocess.run(["mount", "-t", kind, "-o", options, kind, folder], check=True)

    def make_devices(self):
        self.mount("tmpfs", "mode=755", self.root / "dev")
        for name, minor in (("null", 3), ("zero", 5), ("full", 7), ("random", 8), ("urandom", 9)):
            os.mknod(self.root / "dev" / name, stat.S_IFCHR | 0o666, os.makedev(1, minor))
            os.chmod(self.root / "dev" / name, 0o666)
        (self.root / "dev/shm").mkdir()
        os.chmod(self.root / "dev/shm", 0o1777)

    def remove(self):
        """Unmounts everything; the mount point is empty afterwards."""
        subprocess.run(["umount", "--recursive", "--lazy", self.place], check=False)
        self.place.rmdir()

    def run(self, *command):
        """Runs a command in the system as root; its output."""
        result = subprocess.run(["chroot", self.root, *map(str, command)], stdin=subprocess.DEVNULL,
                                capture_output=True, text=True, check=False,
                                env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND": "noninteractive",
                                     "LC_ALL": "C.UTF-8", **{name: value for name, value in os.environ.items()
                                                             if name.lower().endswith("_proxy")}})
        if result.returncode != 0:
            raise AssertionError(f"{' '.join(map(str, command))} failed:\n{result.stdout}{result.stderr}")
        return result.stdout

    def apt_install(self, *packages):
        install = ("apt-get", "-qy", "install", "--no-install-recommends", *packages)
        try:
            self.run(*install)
        except AssertionError:
            self.run("apt-get", "-q", "update")  # the bare system was made a while ago
            self.run(*install)
        for archive in (self.root / "var/cache/apt/archives").glob("*.deb"):
            if not (CACHE / "archives" / archive.name).exists():
                shutil.copy(archive, CACHE / "archives")

    def bring(self, path):
        """Copies a file of this machine into the system; its path there."""
        shutil.copy(path, self.root / "root" / path.name)
        return f"/root/{path.name}"

    def as_user(self, *command):
        """The command for a user with write access to the home folder only."""
        return self.in_session(f"/home/{USER}", f"--userspec={USER}:{USER}", str(self.root), *command)

    def as_administrator(self, home, *command):
        return self.in_session(home, str(self.root), *command)

    def in_session(self, home, *arguments):
        environment = {"PATH": "/usr/bin:/bin", "HOME": home, "LC_ALL": "C.UTF-8",
                       "DISPLAY": SESSION.environment["DISPLAY"]}
        return ["env", "-i", *(f"{name}={value}" for name, value in environment.items()), need("chroot"), *arguments]

    def snapshot(self):
        """Every path of the system with its kind, rights and size."""
        found = {}
        for folder, folders, files in os.walk(self.root):
            here = pathlib.Path(folder).relative_to(self.root)
            folders[:] = [name for name in folders if str(here / name) not in CHANGING]
            for name in folders + files:
                status = os.lstat(pathlib.Path(folder) / name)
                size = 0 if stat.S_ISDIR(status.st_mode) else status.st_size
                found[str(here / name)] = (status.st_mode, size)
        return found
