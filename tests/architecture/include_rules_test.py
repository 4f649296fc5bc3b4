#!/usr/bin/python3
"""Runs include_rules.py on a correct tree and on trees with one planted fault each."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).with_name("include_rules.py")

SOUND = {
    "platform/Grid.h": "#pragma once\n#include <string>\n",
    "platform/Platform.h": '#include "platform/Grid.h"\n',
    "platform/posix/PosixFiles.cpp": '#include <unistd.h>\n#include "platform/Grid.h"\n',
    "platform/posix/PosixFiles.h": "#pragma once\n",
    "platform/qt/QtGrid.h": '#include <QWidget>\n#include "platform/Grid.h"\n#include "platform/posix/PosixFiles.h"\n',
    "platform/qt/QtGrid.cpp": '#include "platform/qt/QtGrid.h"\n#include "QtGrid.moc"\n#ifdef __linux__\n#endif\n',
    "platform/win32/Win32Grid.h": "#include <windows.h>\n",
    "storage/files/Safe.h": '#include "platform/Grid.h"\n',
    "storage/stations/Rows.h": '#include <vector>\n#include "storage/files/Safe.h"\n',
    "messages/mMsgBox.h": '#include "platform/Grid.h"\n',
    "messages/mMsgBox.cpp": '#include "messages/mMsgBox.h"\n',
    "editing/Cell.h": '#include "messages/mMsgBox.h"\n#include "storage/stations/Rows.h"\n',
    "receiver/Copies.cpp": '#include "messages/mMsgBox.h"\n#include "storage/stations/Rows.h"\n',
    "shell/Design.h": "#include <string>\n",
    "shell/MainForm.h": '#include "editing/Cell.h"\n#include "platform/Platform.h"\n',
    "shell/MainForm.cpp": '/* #include <windows.h>\n*/\n#include "shell/MainForm.h"\n// #include <QString>\n',
    "main/qt.cpp": '#include "platform/qt/QtGrid.h"\n#include "shell/MainForm.h"\n',
}


class IncludeRules(unittest.TestCase):
    def run_on(self, changes):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in {**SOUND, **changes}.items():
                path = pathlib.Path(folder, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            result = subprocess.run([sys.executable, SCRIPT, folder], capture_output=True, text=True, check=False)
        return result.returncode, result.stdout.splitlines()

    def assert_broken(self, changes, *expected):
        """Expects exactly these findings, each given as the start of its line."""
        code, lines = self.run_on(changes)
        self.assertEqual(code, 1, lines)
        self.assertEqual(len(lines), len(expected), lines)
        for line, start in zip(lines, expected):
            self.assertTrue(line.startswith(start), f"{line!r} does not start with {start!r}")

    def test_a_sound_tree_passes(self):
        code, lines = self.run_on({})
        self.assertEqual((code, lines), (0, [f"{len(SOUND)} files keep the rules"]))

    def test_an_empty_folder_is_an_error(self):
        with tempfile.TemporaryDirectory() as folder:
            result = subprocess.run([sys.executable, SCRIPT, folder], capture_output=True, check=False)
        self.assertEqual(result.returncode, 2)

    def test_a_circle(self):
        self.assert_broken({"storage/stations/Rows.h": '#include "storage/stations/Other.h"\n',
                            "storage/stations/Other.h": '#include "storage/stations/Third.h"\n',
                            "storage/stations/Third.h": '#include "storage/stations/Rows.h"\n'},
                           "storage/stations/Third.h:1: circle: storage/stations/Rows.h -> storage/stations/Other.h"
                           " -> storage/stations/Third.h")

    def test_a_file_that_includes_itself(self):
        self.assert_broken({"sync/Self.h": '#include "sync/Self.h"\n'}, "sync/Self.h:1: circle: ")

    def test_an_interface_with_a_toolkit_header(self):
        self.assert_broken({"platform/Grid.h": "#include <string>\n#include <QString>\n"},
                           "platform/Grid.h:2: portable: QString")

    def test_an_interface_that_knows_the_portable_library(self):
        self.assert_broken({"platform/Other.h": '#include "storage/stations/Rows.h"\n'},
                           "platform/Other.h:1: order: platform comes before storage/stations")

    def test_portable_code_with_system_headers(self):
        for header in ("windows.h", "QString", "unistd.h", "sys/stat.h", "QtCore/QString"):
            with self.subTest(header):
                self.assert_broken({"storage/files/Bad.cpp": f"#include <{header}>\n"},
                                   f"storage/files/Bad.cpp:1: portable: {header}")

    def test_portable_code_with_an_unknown_header(self):
        self.assert_broken({"sync/Bad.cpp": '#include "windows.h"\n'}, "sync/Bad.cpp:1: portable: windows.h")

    def test_portable_code_that_knows_a_backend(self):
        for folder in ("adding", "storage/files", "shell"):
            with self.subTest(folder):
                self.assert_broken({f"{folder}/Bad.cpp": '#include "platform/qt/QtGrid.h"\n'},
                                   f"{folder}/Bad.cpp:1: backend: {folder} may not know platform/qt")
                self.assert_broken({f"{folder}/Bad.cpp": '#include "platform/posix/PosixFiles.h"\n'},
                                   f"{folder}/Bad.cpp:1: backend: {folder} may not know platform/posix")

    def test_portable_code_with_a_platform_condition(self):
        for condition in ("#ifdef _WIN32", "#if defined(__linux__)", "#elif __APPLE__", "# ifndef Q_OS_WIN",
                          "#if __has_include(<windows.h>)"):
            with self.subTest(condition):
                self.assert_broken({"shell/Bad.cpp": f"\n{condition}\n#endif\n"}, "shell/Bad.cpp:2: platform-condition")

    def test_an_interface_with_a_platform_condition(self):
        self.assert_broken({"platform/Files.h": "#ifdef _WIN32\n#endif\n"}, "platform/Files.h:1: platform-condition")

    def test_no_folder_knows_a_later_one(self):
        for early, late in (("storage/files", "editing/Cell.h"), ("storage/files", "storage/stations/Rows.h"),
                            ("messages", "editing/Cell.h"), ("editing", "shell/Design.h"),
                            ("platform/qt", "storage/stations/Rows.h"), ("platform/posix", "platform/qt/QtGrid.h"),
                            ("receiver", "shell/MainForm.h")):
            with self.subTest(early=early, late=late):
                self.assert_broken({f"{early}/Bad.cpp": f'#include "{late}"\n'}, f"{early}/Bad.cpp:1: order: {early} comes")

    def test_editing_adding_and_sync_know_no_file_format(self):
        for folder in ("editing", "adding", "sync"):
            for header in ("storage/ini/Ini.h", "storage/lists/List.h"):
                with self.subTest(folder=folder, header=header):
                    self.assert_broken({header: "#pragma once\n", f"{folder}/Bad.cpp": f'#include "{header}"\n'},
                                       f"{folder}/Bad.cpp:1: format: {folder} may not know ")
        self.assertEqual(self.run_on({"storage/lists/List.h": "#pragma once\n",
                                      "receiver/Good.cpp": '#include "storage/lists/List.h"\n'})[0], 0)

    def test_a_backend_does_not_know_another(self):
        for header in ("platform/qt/QtGrid.h", "platform/posix/PosixFiles.h"):
            with self.subTest(header):
                self.assert_broken({"platform/win32/Bad.cpp": f'#include "{header}"\n'},
                                   "platform/win32/Bad.cpp:1: backend: ")

    def test_a_file_too_long(self):
        self.assert_broken({"sync/Long.cpp": "\n" * 401}, "sync/Long.cpp:401: length: ")
        self.assertEqual(self.run_on({"sync/Long.cpp": "\n" * 400})[0], 0)

    def test_a_folder_that_is_not_in_the_list(self):
        self.assert_broken({"helpers/Bad.h": "#include <string>\n"}, "helpers/Bad.h:1: folder: ")


if __name__ == "__main__":
    unittest.main()
