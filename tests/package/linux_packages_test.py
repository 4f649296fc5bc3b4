#!/usr/bin/python3
"""The .deb and the portable archive, each in a bare Debian: installed, started by a plain user, removed.

usage: linux_packages_test.py PACKAGES VERSION
"""
import pathlib
import shutil
import subprocess
import sys
import unittest

from clean_system import USER, CleanSystem
from visit import Visit, drm_programmes
from web import WebServer

packages, version = pathlib.Path(sys.argv.pop(1)).resolve(), sys.argv.pop(1)
DEB = packages / f"halcyon-k7_{version}_amd64.deb"
ARCHIVE = packages / f"halcyon_k7-{version}-linux-x86_64.tar.gz"
DESKTOP_FILE = "usr/share/applications/org.halcyon_k7.halcyon_k7.desktop"
EMPTY = ([], True)
SCHEDULE = b"[DRMSchedule]\nStartStopTimeUTC=0600-0700\nx\nFrequency=6000\nTarget=T\nx\nProgramme=Synchronized\nx\nx\nx\n"


class LinuxPackages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.system = CleanSystem()
        # The first installation installs dependencies from Debian, which a removal keeps.
        cls.system.apt_install(cls.system.bring(DEB))
        cls.system.run("apt-get", "-qy", "purge", "halcyon-k7")

    def setUp(self):
        self.without = self.system.snapshot()

    def visit(self, *command):
        visit = Visit(self.system.as_user(*command))
        self.addCleanup(visit.end)
        return visit

    def desktop_entry(self, key):
        lines = (self.system.root / DESKTOP_FILE).read_text(encoding="utf-8").splitlines()
        return next(line.split("=", 1)[1] for line in lines if line.startswith(key + "="))

    def user_owns(self, *paths):
        for path in paths:
            self.system.run("chown", "-R", f"{USER}:", "/" + str(path.relative_to(self.system.root)))

    def work(self, command, files, samples, window_class=None):
        """A start with nothing, one with the samples in which a station is deleted, and one with a sync."""
        visit = self.visit(command)
        if window_class:
            self.assertTrue(visit.has_class(window_class), f"the window is not of class {window_class}")
        self.assertEqual(visit.close(), 0)
        self.assertEqual(drm_programmes(files / "List.ini"), EMPTY)
        for name in ("List.ini", "User.ini"):
            shutil.copy(samples / name, files / name)
        self.user_owns(files)
        before, _ = drm_programmes(files / "List.ini")
        visit = self.visit(command)
        visit.delete_first(files)
        self.assertEqual(visit.close(), 0)
        self.assertEqual(drm_programmes(files / "List.ini"), (before[1:], True))
        self.assertEqual((files / "User.ini").read_bytes(), (samples / "User.ini").read_bytes())
        self.sync(command, files)

    def sync(self, command, files):
        server = WebServer(SCHEDULE)
        self.addCleanup(server.stop)
        (files / "config.ini").write_text(server.address + "\n", encoding="ascii")
        self.user_owns(files)
        visit = self.visit(command)
        visit.sync(files)
        self.assertEqual(visit.close(), 0)
        self.assertEqual(drm_programmes(files / "List.ini"), (["Synchronized"], True))

    def show_in_terminal(self):
        samples = "usr/share/doc/halcyon-k7/examples"
        programmes, _ = drm_programmes(self.system.root / samples / "List.ini")
        self.assertIn(programmes[0], self.system.run("env", "HOME=/tmp/administrator", "halcyon_k7ctl", "show", "drm",
                                                       "/" + samples))

    def start_as_administrator(self):
        """An administrator could write next to the program, but has separate lists like every user."""
        home = self.system.root / "tmp/administrator"
        home.mkdir()
        visit = Visit(self.system.as_administrator("/tmp/administrator", self.desktop_entry("Exec")))
        self.addCleanup(visit.end)
        self.assertEqual(visit.close(), 0)
        self.assertEqual(drm_programmes(home / ".local/share/Halcyon_K7/List.ini"), EMPTY)

    def test_deb(self):
        self.system.run("dpkg", "--install", self.system.bring(DEB))
        with_it = self.system.snapshot()
        data = self.system.home / ".local/share/Halcyon_K7"
        self.work(self.desktop_entry("Exec"), data, self.system.root / "usr/share/doc/halcyon-k7/examples",
                  window_class=self.desktop_entry("StartupWMClass"))
        self.start_as_administrator()
        self.show_in_terminal()
        self.assertEqual(self.system.snapshot(), with_it, "the program wrote outside the user's home")
        self.system.run("dpkg", "--purge", "halcyon-k7")
        self.assertEqual(self.system.snapshot(), self.without, "the package left a trace")

    def test_portable_archive(self):
        subprocess.run(["tar", "-xzf", ARCHIVE, "-C", self.system.home], check=True)
        folder = self.system.home / f"halcyon_k7-{version}-linux-x86_64"
        self.user_owns(folder)
        shutil.rmtree(self.system.home / ".local", ignore_errors=True)
        self.work(f"/home/{USER}/{folder.name}/bin/halcyon_k7", folder / "bin",
                  folder / "share/doc/halcyon-k7/examples")
        self.assertFalse((self.system.home / ".local/share/Halcyon_K7").exists())
        self.assertTrue((folder / "LICENSE.txt").is_file())
        self.assertEqual(self.system.snapshot(), self.without, "the program wrote outside its folder")

    def run_line_of_readme(self, folder, beginning):
        """A command that README.txt names, run in the folder as the administrator."""
        lines = (self.system.root / folder.lstrip("/") / "README.txt").read_text(encoding="utf-8").splitlines()
        line = next(line for line in lines if line.startswith("    " + beginning))
        self.system.run("sh", "-ec", f"cd {folder}; {line.replace('sudo ', '')}")

    def test_installation_from_the_archive(self):
        folder = f"/root/{ARCHIVE.name.removesuffix('.tar.gz')}"
        subprocess.run(["tar", "-xzf", ARCHIVE, "-C", self.system.root / "root"], check=True)
        self.addCleanup(shutil.rmtree, self.system.root / folder.lstrip("/"))
        local = self.system.root / "usr/local"
        before = {path for path in local.rglob("*") if not path.is_dir()}
        self.run_line_of_readme(folder, "sudo cp")
        desktop = (local / "share/applications" / pathlib.Path(DESKTOP_FILE).name).read_text(encoding="utf-8")
        guide = next(line.split()[-1] for line in desktop.splitlines() if line.startswith("Exec=xdg-open"))
        for name in (guide, "/usr/local/share/man/man1/halcyon_k7.1.gz",
                     "/usr/local/share/icons/hicolor/scalable/apps/org.halcyon_k7.halcyon_k7.svg"):
            self.assertTrue((self.system.root / name.lstrip("/")).is_file(), name)
        shutil.rmtree(self.system.home / ".local", ignore_errors=True)
        self.assertEqual(self.visit("/usr/local/bin/halcyon_k7").close(), 0)
        self.assertEqual(drm_programmes(self.system.home / ".local/share/Halcyon_K7/List.ini"), EMPTY)
        self.run_line_of_readme(folder, "find")
        self.assertEqual({path for path in local.rglob("*") if not path.is_dir()}, before)


unittest.main(verbosity=2)
