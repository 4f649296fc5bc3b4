#!/usr/bin/python3
"""The Windows zip, unpacked and started in a Wine prefix made for it.

usage: zip_test.py PACKAGES VERSION
"""
import pathlib
import shutil
import sys
import unittest
import zipfile

import windows
from receiver import as_root
from visit import SESSION, drm_programmes

packages, version = pathlib.Path(sys.argv.pop(1)).resolve(), sys.argv.pop(1)
NAME = f"halcyon_k7-{version}-windows-x86_64"
EMPTY = ([], True)

class WindowsZip(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        windows.make_prefix()

    def unpack(self, where):
        with zipfile.ZipFile(packages / f"{NAME}.zip") as archive:
            archive.extractall(where)
        return where / NAME

    def visit(self, folder):
        visit = windows.visit(folder / "Halcyon_K7.exe")
        self.addCleanup(visit.end)
        return visit

    def test_holds_all_that_a_listener_needs(self):
        with zipfile.ZipFile(packages / f"{NAME}.zip") as archive:
            names = set(archive.namelist())
        self.assertEqual([name for name in names if "/pictures/linux-" in name], [])
        for name in ("Halcyon_K7.exe", "Halcyon_K7ctl.exe", "LICENSE.txt", "README.txt", "guide/user-guide.html",
                     "guide/formats.html", "guide/reliability.html", "guide/pictures/windows-drm-list.png", "samples/List.ini", "samples/User.ini"):
            self.assertIn(f"{NAME}/{name}", names)

    def test_the_program_tells_its_version(self):
        """The version in the file properties, stored as UTF-16."""
        with zipfile.ZipFile(packages / f"{NAME}.zip") as archive:
            program = archive.read(f"{NAME}/Halcyon_K7.exe")
        resources = program.split("VS_VERSION_INFO".encode("utf-16-le"), 1)[1].decode("utf-16-le", errors="ignore")
        for field in ("FileVersion", "ProductVersion"):
            self.assertEqual(resources.split(field + "\0", 1)[1].strip("\0").split("\0")[0], version)
        # The version in the manifest.
        self.assertIn(f'name="Halcyon_K7" version="{version}.0"'.encode(), program)

    def test_works_in_its_folder(self):
        folder = self.unpack(SESSION.folder)
        self.addCleanup(shutil.rmtree, folder)
        self.assertEqual(self.visit(folder).close(), 0)
        self.assertEqual(drm_programmes(folder / "List.ini"), EMPTY)
        for name in ("List.ini", "User.ini"):
            shutil.copy(folder / "samples" / name, folder / name)
        before, _ = drm_programmes(folder / "List.ini")
        visit = self.visit(folder)
        visit.delete_first(folder)
        self.assertEqual(visit.close(), 0)
        self.assertEqual(drm_programmes(folder / "List.ini"), (before[1:], True))
        self.assertEqual((folder / "User.ini").read_bytes(), (folder / "samples/User.ini").read_bytes())

    def user_data(self):
        """The program's folder in the user's application data, which this test has not used yet."""
        folder = next((windows.PREFIX / "drive_c/users").glob("*/AppData/Roaming")) / "Halcyon_K7"
        shutil.rmtree(folder, ignore_errors=True)
        return folder

    def test_keeps_the_lists_of_an_installed_program_in_the_users_folder(self):
        data = self.user_data()
        folder = self.unpack(windows.PREFIX / "drive_c/Program Files")
        content = sorted(folder.iterdir())
        self.assertEqual(self.visit(folder).close(), 0)
        self.assertEqual(drm_programmes(data / "List.ini"), EMPTY)
        self.assertEqual(sorted(folder.iterdir()), content)

    def test_copies_lists_from_a_folder_that_cannot_be_written(self):
        """The lists are copied to the user's application data, and the program uses those from then on."""
        data = self.user_data()
        folder = self.unpack(SESSION.folder / "read-only")
        for name in ("List.ini", "User.ini"):
            shutil.copy(folder / "samples" / name, folder / name)
        before, _ = drm_programmes(folder / "List.ini")
        as_root(["mount", "--bind", folder, folder])
        self.addCleanup(as_root, ["umount", "--lazy", folder])
        as_root(["mount", "-o", "remount,bind,ro", folder])
        self.assertEqual(self.visit(folder).close(), 0)
        self.assertEqual(drm_programmes(data / "List.ini"), (before, True))
        for name in ("List.ini", "User.ini"):
            self.assertEqual((folder / name).read_bytes(), (folder / "samples" / name).read_bytes())


unittest.main(verbosity=2)
