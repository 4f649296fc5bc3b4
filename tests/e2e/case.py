"""Shared by the test cases: programs, volumes and servers that end with the test."""
import unittest

from listfiles import SAMPLE_LIST, SAMPLE_USER
from program import Program
from receiver import Receiver
from web import WebServer


class ProgramCase(unittest.TestCase):
    maxDiff = 4000

    def program(self, list_ini=None, user_ini=None, folder=None):
        program = Program(list_ini, user_ini, folder)
        self.addCleanup(program.kill)
        return program

    def sample_program(self):
        return self.sample_program_with({})

    def sample_program_with(self, environment):
        return self.program(SAMPLE_LIST, SAMPLE_USER).start(environment)

    def receiver(self, *arguments, **options):
        receiver = Receiver(*arguments, **options)
        self.addCleanup(receiver.remove)
        return receiver

    def sample_receiver(self, name="receiver"):
        return self.receiver(name, files={"List.ini": SAMPLE_LIST, "User.ini": SAMPLE_USER})

    def serve(self, content, status=200, when=None):
        """Serves the content at every address of a server of its own; its address. `requests` records the paths."""
        server = WebServer(content, status, when)
        self.addCleanup(server.stop)
        self.requests = server.requests
        return server.address

    def assert_cells(self, program, expected):
        """Waits until the current grid has exactly these rows."""
        expected = [tuple(row) for row in expected]
        try:
            program.wait(lambda: program.cells() == expected, "the cells")
        except AssertionError:
            self.assertEqual(program.cells(), expected)

    def assert_totals(self, program, text):
        try:
            program.wait(lambda: program.totals() == text, "the status text")
        except AssertionError:
            self.assertEqual(program.totals(), text)

    def assert_file_becomes(self, program, path, content):
        try:
            program.wait(lambda: path.is_file() and path.read_bytes() == content, f"{path} written")
        except AssertionError:
            self.assertEqual(path.read_bytes(), content)

    def assert_closes(self, program):
        self.assertEqual(program.close(), 0, program.errors())
