"""The built program, and the library inside the Linux one, carry what their system offers against exploited faults."""
import os
import subprocess
import unittest

PROGRAM = os.environ["HALCYON_PROGRAM"]
LIBRARY = os.environ["HALCYON_LIBRARY"]  # what the Linux program loads with a sync
TOOL = os.environ["HALCYON_BINARY_TOOL"]  # readelf, or objdump for Windows


def output(*arguments, of=PROGRAM):
    return subprocess.run([TOOL, *arguments, of], check=True, capture_output=True, text=True).stdout


@unittest.skipIf(PROGRAM.endswith(".exe"), "a Windows program")
class Elf(unittest.TestCase):
    def both(self):
        for file in (PROGRAM, LIBRARY):
            with self.subTest(file):
                yield file

    def test_they_are_loaded_at_a_random_address(self):
        for file in self.both():
            self.assertRegex(output("-hW", of=file), r"Type:\s+DYN")
        self.assertRegex(output("-dW"), r"FLAGS_1.*\bPIE\b")

    def test_their_tables_are_read_only_once_they_are_loaded(self):
        for file in self.both():
            self.assertIn("GNU_RELRO", output("-lW", of=file))
            self.assertRegex(output("-dW", of=file), r"BIND_NOW|FLAGS_1.*\bNOW\b")

    def test_data_is_not_executable(self):
        for file in self.both():
            segments = output("-lW", of=file).splitlines()
            stack = [line for line in segments if "GNU_STACK" in line]
            self.assertEqual(len(stack), 1)
            self.assertNotIn("E", stack[0].split()[-2])
            self.assertFalse([line for line in segments if "LOAD" in line and "RWE" in line])

    def test_an_overrun_stack_is_noticed(self):
        for file in self.both():
            self.assertIn("__stack_chk_fail", output("-sW", of=file))

    def test_only_the_library_needs_the_network(self):
        self.assertNotIn("libQt6Network", output("-dW"))
        self.assertIn("libQt6Network", output("-dW", of=LIBRARY))


@unittest.skipUnless(PROGRAM.endswith(".exe"), "not a Windows program")
class Pe(unittest.TestCase):
    HIGH_ENTROPY, DYNAMIC_BASE, NX = 0x20, 0x40, 0x100

    def test_random_address_and_data_that_is_not_executable(self):
        line = next(line for line in output("-p").splitlines() if line.startswith("DllCharacteristics"))
        flags = int(line.split()[1], 16)
        for flag in (self.HIGH_ENTROPY, self.DYNAMIC_BASE, self.NX):
            self.assertTrue(flags & flag, line)

    def test_it_can_be_moved(self):
        self.assertIn(".reloc", output("-h"))


if __name__ == "__main__":
    unittest.main()
