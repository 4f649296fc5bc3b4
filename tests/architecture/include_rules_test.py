#!/usr/bin/python3
"""Shows include_rules.py catching each broken rule in a planted tree, and passing a sound one."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).with_name("include_rules.py")

SOUND = {
    "platform/Grid.h": "#pragma once\n#include <string>\n",
    "platform/Platform.h": '#include "platform/Grid.h"\n',
    "platform/qt/QtGrid.h": '#include <QWidget>\n#include "platform/Grid.h"\n',
    "platform/qt/QtGrid.cpp": '#include "platform/qt/QtGrid.h"\n#include "QtGrid.moc"\n#ifdef __linux__\n#endif\n',
    "platform/qt/main.cpp": '#include "shell/Design.h"\n#include "shell/MainForm.h"\n#include "platform/qt/QtGrid.h"\n',
    "storage/Rows.h": '#include <vector>\n#include "platform/Grid.h"\n',
    "storage/Copies.cpp": '#include "shell/mMsgBox.h"\n#include "storage/Rows.h"\n',
    "editing/Cell.h": '#include "shell/Totals.h"\n#include "storage/Rows.h"\n',
    "shell/mMsgBox.h": '#include "platform/Grid.h"\n',
    "shell/mMsgBox.cpp": '#include "shell/mMsgBox.h"\n',
    "shell/Totals.h": '#include "platform/Grid.h"\n',
    "shell/Design.h": "#include <string>\n",
    "shell/MainForm.h": '#include "editing/Cell.h"\n#include "platform/Platform.h"\n',
    "shell/MainForm.cpp": '/* #include <windows.h>\n*/\n#include "shell/MainForm.h"\n// #include <QString>\n',
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
        """Just the expected findings, each given as the start of its line."""
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
        self.assert_broken({"storage/Rows.h": '#include "storage/Other.h"\n',
                            "storage/Other.h": '#include "storage/Third.h"\n',
                            "storage/Third.h": '#include "storage/Rows.h"\n'},
                           "storage/Third.h:1: circle: storage/Rows.h -> storage/Other.h -> storage/Third.h")

    def test_a_file_that_includes_itself(self):
        self.assert_broken({"sync/Self.h": '#include "sync/Self.h"\n'}, "sync/Self.h:1: circle: ")

    def test_an_interface_with_a_toolkit_header(self):
        self.assert_broken({"platform/Grid.h": "#include <string>\n#include <QString>\n"},
                           "platform/Grid.h:2: interface: QString")

    def test_an_interface_that_knows_the_portable_library(self):
        self.assert_broken({"platform/Other.h": '#include "storage/Rows.h"\n'},
                           "platform/Other.h:1: interface: storage/Rows.h")

    def test_portable_code_with_system_headers(self):
        for header in ("windows.h", "QString", "unistd.h", "sys/stat.h", "QtCore/QString"):
            with self.subTest(header):
                self.assert_broken({"storage/Bad.cpp": f"#include <{header}>\n"},
                                   f"storage/Bad.cpp:1: portable: {header}")

    def test_portable_code_that_knows_a_backend(self):
        self.assert_broken({"adding/Bad.cpp": '#include "platform/qt/QtGrid.h"\n'},
                           "adding/Bad.cpp:1: portable: platform/qt/QtGrid.h")

    def test_portable_code_with_an_unknown_header(self):
        self.assert_broken({"sync/Bad.cpp": '#include "windows.h"\n'}, "sync/Bad.cpp:1: portable: windows.h")

    def test_portable_code_with_a_platform_condition(self):
        for condition in ("#ifdef _WIN32", "#if defined(__linux__)", "#elif __APPLE__", "# ifndef Q_OS_WIN",
                          "#if __has_include(<windows.h>)"):
            with self.subTest(condition):
                self.assert_broken({"shell/Bad.cpp": f"\n{condition}\n#endif\n"}, "shell/Bad.cpp:2: platform-condition")

    def test_an_interface_with_a_platform_condition(self):
        self.assert_broken({"platform/Files.h": "#ifdef _WIN32\n#endif\n"}, "platform/Files.h:1: platform-condition")

    def test_storage_may_not_look_up(self):
        self.assert_broken({"storage/Bad.cpp": '#include "editing/Cell.h"\n#include "shell/Design.h"\n'},
                           "storage/Bad.cpp:1: subsystem: ", "storage/Bad.cpp:2: subsystem: ")

    def test_subsystems_do_not_know_each_other(self):
        for subsystem in ("adding", "sync"):
            with self.subTest(subsystem):
                self.assert_broken({f"{subsystem}/Bad.cpp": '#include "editing/Cell.h"\n'},
                                   f"{subsystem}/Bad.cpp:1: subsystem: ")

    def test_the_ground_floor_knows_interfaces_only(self):
        self.assert_broken({"shell/mMsgBox.h": '#include "storage/Rows.h"\n'}, "shell/mMsgBox.h:1: ground-floor: ")
        self.assert_broken({"shell/Totals.h": '#include "shell/Design.h"\n'}, "shell/Totals.h:1: ground-floor: ")

    def test_nobody_else_knows_the_roof(self):
        self.assert_broken({"shell/Other.cpp": '#include "shell/MainForm.h"\n'}, "shell/Other.cpp:1: roof: ")
        self.assert_broken({"platform/qt/QtGrid.cpp": '#include "shell/MainForm.h"\n'},
                           "platform/qt/QtGrid.cpp:1: roof: ", "platform/qt/QtGrid.cpp:1: backend: ")

    def test_backends_know_interfaces_and_themselves_only(self):
        for header in ("storage/Rows.h", "shell/Design.h", "shell/mMsgBox.h"):
            with self.subTest(header):
                self.assert_broken({"platform/qt/QtGrid.cpp": f'#include "{header}"\n'},
                                   f"platform/qt/QtGrid.cpp:1: backend: a backend may not know {header}")
        self.assert_broken({"platform/win32/Bad.cpp": '#include "platform/qt/QtGrid.h"\n'},
                           "platform/win32/Bad.cpp:1: backend: ")
        self.assert_broken({"platform/qt/main.cpp": '#include "storage/Rows.h"\n'}, "platform/qt/main.cpp:1: backend: ")

    def test_a_file_too_long(self):
        self.assert_broken({"sync/Long.cpp": "\n" * 401}, "sync/Long.cpp:401: length: ")
        self.assertEqual(self.run_on({"sync/Long.cpp": "\n" * 400})[0], 0)

    def test_a_folder_of_no_floor(self):
        self.assert_broken({"helpers/Bad.h": "#include <string>\n"}, "helpers/Bad.h:1: folder: ")


if __name__ == "__main__":
    unittest.main()
