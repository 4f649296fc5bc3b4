"""Checks that the built program has the protections of its system against exploits."""
import json
import os
import pathlib
import shlex
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["HALCYON_PROGRAM"]
TOOL = os.environ["HALCYON_BINARY_TOOL"]  # readelf, or objdump for Windows
NM = os.environ["HALCYON_NM"]
OBJECTS = os.environ["HALCYON_OBJECTS"].split(":")  # libraries, with their symbols, that the program is linked from
COMMANDS = pathlib.Path(os.environ["HALCYON_COMMANDS"])  # compile_commands.json
SOURCES = pathlib.Path(__file__).parents[2] / "src"

# A buffer on the stack, and a length that only the caller knows.
OVERRUN = """
#include <cstring>
void use(const char* text);
void copy(const char* from, std::size_t length) {
    char to[8];
    std::memcpy(to, from, length);
    use(to);
}
"""


def tell(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def output(*arguments):
    return tell(TOOL, *arguments, PROGRAM)


class Compilation(unittest.TestCase):
    """A checked copy leaves a trace in a program only where the compiler knows a buffer's size and not the length. A
    program need not have such a call, so the compiler commands are checked, and what they make of one."""

    def commands(self):
        found = {}
        for entry in json.loads(COMMANDS.read_text(encoding="utf-8")):
            file, command = pathlib.Path(entry["file"]), shlex.split(entry["command"])
            if SOURCES not in file.parents or file.suffix != ".cpp":
                continue
            # Some are compiled once more for tests.
            if not command[command.index("-o") + 1].startswith("tests/"):
                found[file] = (command, entry["directory"])
        self.assertGreater(len(found), 50)
        return found

    def test_every_source_is_compiled_with_checks(self):
        for file, (command, _) in self.commands().items():
            with self.subTest(file.relative_to(SOURCES)):
                self.assertIn("-fstack-protector-strong", command)
                self.assertIn("-D_FORTIFY_SOURCE=2", command)
                level = [option for option in command if option.startswith("-O")]
                self.assertTrue(level and level[-1] != "-O0", "without optimization nothing is checked")

    def test_the_compiler_makes_them_of_that(self):
        main = next(file for file in self.commands() if file.parent.name == "main")
        command, directory = self.commands()[main]
        with tempfile.TemporaryDirectory() as folder:
            source, compiled = pathlib.Path(folder, "overrun.cpp"), pathlib.Path(folder, "overrun.o")
            source.write_text(OVERRUN, encoding="utf-8")
            command[command.index("-o") + 1] = str(compiled)
            command[command.index("-c") + 1] = str(source)
            subprocess.run(command, cwd=directory, check=True)
            for symbol in ("__memcpy_chk", "__stack_chk_fail"):
                self.assertIn(symbol, tell(NM, compiled))

    def test_the_libraries_notice_an_overrun_stack(self):
        for library in OBJECTS:
            with self.subTest(library):
                self.assertIn("__stack_chk_fail", tell(NM, library))


@unittest.skipIf(PROGRAM.endswith(".exe"), "a Windows program")
class Elf(unittest.TestCase):
    def test_it_is_loaded_at_a_random_address(self):
        self.assertRegex(output("-hW"), r"Type:\s+DYN")
        self.assertRegex(output("-dW"), r"FLAGS_1.*\bPIE\b")

    def test_its_tables_are_read_only_once_it_is_loaded(self):
        self.assertIn("GNU_RELRO", output("-lW"))
        self.assertRegex(output("-dW"), r"BIND_NOW|FLAGS_1.*\bNOW\b")

    def test_data_is_not_executable(self):
        segments = output("-lW").splitlines()
        stack = [line for line in segments if "GNU_STACK" in line]
        self.assertEqual(len(stack), 1)
        self.assertNotIn("E", stack[0].split()[-2])
        self.assertFalse([line for line in segments if "LOAD" in line and "RWE" in line])

    def test_an_overrun_stack_is_noticed(self):
        self.assertIn("__stack_chk_fail", output("-sW"))

    def test_the_network_is_loaded_by_a_sync_only(self):
        for library in ("libQt6Network", "libcurl"):
            self.assertNotIn(library, output("-dW"))


@unittest.skipUnless(PROGRAM.endswith(".exe"), "not a Windows program")
class Pe(unittest.TestCase):
    HIGH_ENTROPY, DYNAMIC_BASE, NX = 0x20, 0x40, 0x100
    MOST_BYTES = 1_500_000
    # What every Windows 10 brings.
    BROUGHT = {"advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "shell32.dll",
               "user32.dll"}

    def test_random_address_and_data_that_is_not_executable(self):
        line = next(line for line in output("-p").splitlines() if line.startswith("DllCharacteristics"))
        flags = int(line.split()[1], 16)
        for flag in (self.HIGH_ENTROPY, self.DYNAMIC_BASE, self.NX):
            self.assertTrue(flags & flag, line)

    def test_it_can_be_moved(self):
        self.assertIn(".reloc", output("-h"))

    def test_it_is_small(self):
        size = os.path.getsize(PROGRAM)
        print(f"{size} bytes")
        self.assertLess(size, self.MOST_BYTES)

    def test_it_needs_nothing_that_windows_does_not_bring(self):
        imported = sorted(line.split()[-1] for line in output("-p").splitlines() if "DLL Name:" in line)
        print(" ".join(imported))
        self.assertTrue(imported)
        self.assertLessEqual({name.lower() for name in imported}, self.BROUGHT)


if __name__ == "__main__":
    unittest.main()
