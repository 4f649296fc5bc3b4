#!/usr/bin/python3
"""Checks the packages with the tools that distributions use for it.

usage: metadata_test.py PACKAGES VERSION
"""
import configparser
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

packages, version = pathlib.Path(sys.argv.pop(1)).resolve(), sys.argv.pop(1)
ID = "org.halcyon_k7.halcyon_k7"


def run(*command):
    result = subprocess.run(list(map(str, command)), capture_output=True, text=True, check=False,
                            env={**os.environ, "LC_ALL": "C.UTF-8"})
    return result.returncode, result.stdout + result.stderr


class Metadata(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.deb = packages / f"halcyon-k7_{version}_amd64.deb"
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = pathlib.Path(folder.name)
        subprocess.run(["dpkg-deb", "-x", cls.deb, cls.root], check=True)

    def assert_clean(self, *command):
        code, output = run(*command)
        self.assertEqual(code, 0, output)
        return output

    def test_desktop_file(self):
        self.assertEqual(self.assert_clean("desktop-file-validate", self.root / f"usr/share/applications/{ID}.desktop"),
                         "")

    def test_metainfo(self):
        path = self.root / f"usr/share/metainfo/{ID}.metainfo.xml"
        self.assert_clean("appstreamcli", "validate", "--no-net", "--pedantic", path)
        metainfo = xml.etree.ElementTree.parse(path)
        self.assertEqual(metainfo.find("releases/release").get("version"), version)
        for release in metainfo.findall("releases/release"):
            self.assertTrue(release.findtext("description/ul/li"), f"{release.get('version')} has no notes")

    def test_manual_pages(self):
        programs = sorted(path.name for path in (self.root / "usr/bin").iterdir())
        self.assertEqual(programs, ["halcyon_k7", "halcyon_k7ctl"])
        for program in programs:
            page = self.root / f"usr/share/man/man1/{program}.1.gz"
            result = subprocess.run(["man", "--warnings", "--local-file", page], capture_output=True, text=True,
                                    check=True, env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFOPT": "",
                                                     "MANPAGER": "cat"})
            self.assertEqual(result.stderr, "")
            self.assertIn(f"Halcyon_K7 {version}", result.stdout)

    def completions(self, *words):
        """What bash offers for the last of the words typed."""
        script = (f'. "{self.root}/usr/share/bash-completion/completions/halcyon_k7ctl"; program=$1; '
                  'COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _halcyon_k7ctl "$program"; printf "%s\\n" "${COMPREPLY[@]}"')
        code, output = run("bash", "-c", script, "bash", self.root / "usr/bin/halcyon_k7ctl", *words)
        self.assertEqual(code, 0, output)
        return output.split()

    def test_completion(self):
        self.assertIn("receiver", self.completions(""))
        self.assertEqual(self.completions("rec"), ["receiver"])
        self.assertEqual(self.completions("receiver", "st"), ["status"])
        self.assertEqual(self.completions("--json", "export", "--form"), ["--format"])
        self.assertEqual(self.completions("show", "nothing"), [])

    def test_lintian(self):
        self.assertEqual(self.assert_clean("lintian", "--fail-on", "error,warning", "--allow-root", self.deb), "")

    def test_what_the_metadata_name_is_there(self):
        desktop = configparser.RawConfigParser(interpolation=None)
        desktop.optionxform = str
        desktop.read(self.root / f"usr/share/applications/{ID}.desktop", encoding="utf-8")
        entries = desktop["Desktop Entry"]
        self.assertTrue(os.access(self.root / "usr/bin" / entries["Exec"], os.X_OK))
        opener, guide = desktop["Desktop Action UserGuide"]["Exec"].split()
        self.assertEqual(opener, "xdg-open")
        self.assertTrue((self.root / guide.lstrip("/")).is_file())
        icons = self.root / "usr/share/icons/hicolor"
        self.assertTrue((icons / f"scalable/apps/{entries['Icon']}.svg").is_file())
        code, size = run("identify", "-format", "%wx%h", icons / f"48x48/apps/{entries['Icon']}.png")
        self.assertEqual((code, size), (0, "48x48"))

    def test_guide_shows_its_pictures(self):
        folder = self.root / "usr/share/doc/halcyon-k7"
        page = (folder / "user-guide.html").read_text(encoding="utf-8")
        shown = [part.split('"')[0] for part in page.split('src="')[1:]]
        self.assertGreater(len(shown), 0)
        self.assertEqual([name for name in shown if not (folder / name).is_file()], [])
        self.assertEqual([path.name for path in folder.glob("pictures/*") if not path.name.startswith("linux-")], [])

    def test_fonts_and_an_opener_are_recommended(self):
        _, recommended = run("dpkg-deb", "--field", self.deb, "Recommends")
        for package in ("fonts-wqy-zenhei", "fonts-lohit-deva", "xdg-utils"):
            self.assertIn(package, recommended)


unittest.main()
