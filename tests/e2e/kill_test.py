"""Kills the program at random moments of edits and saves; each restart shows every finished edit.

HALCYON_KILLS is the minimum number of kills (50), HALCYON_SEED the seed, which a failure names. On a machine so slow
that almost no command finishes there are more kills.
"""
import os
import random
import threading
import time
import unittest

from case import ProgramCase
from listfiles import list_ini, user_ini
from program import Program
from session import PATIENCE, wait_until

KILLS = int(os.environ.get("HALCYON_KILLS", "50"))
SEED = int(os.environ.get("HALCYON_SEED", str(random.randrange(1 << 30))))
ROWS = [("One", "6095", "06:00-07:30", "Europe"), ("Two", "15000", "08:00-09:00", "Asia"),
        ("Three", "9500", "10:00-24:00", "Africa")]


class Killed(Exception):
    """The program has been killed."""


class MortalProgram(Program):
    def wait(self, condition, what, seconds=PATIENCE):
        def mortal():
            if self.process.poll() is not None:
                raise Killed(what)
            return self.ask(lambda _: condition())
        return wait_until(mortal, what, seconds)

    def kill_after(self, seconds):
        killer = threading.Timer(seconds, self.process.kill)
        killer.start()
        return killer


class Kills(ProgramCase):
    def setUp(self):
        self.random = random.Random(SEED)
        self.rows = list(ROWS)
        self.pending = None  # the rows after the running command
        self.saved = {}  # all that the receiver's file may hold, and its rows
        self.kills = self.finished = self.lost = 0
        self.pace = 0.3  # seconds that a command takes on this machine

    def test_every_finished_edit_survives(self):
        self.disk = self.receiver(files={"List.ini": list_ini(ROWS), "User.ini": user_ini()})
        self.saved[list_ini(ROWS)] = ROWS
        program = MortalProgram(list_ini(ROWS), user_ini())
        self.addCleanup(program.kill)
        while self.kills < KILLS or (self.finished <= KILLS // 4 and self.kills < 4 * KILLS):
            with self.subTest(kill=self.kills, seed=SEED):
                program.start()
                self.check(program)
                self.run_until_killed(program)
            self.kills += 1
        program.start()
        self.check(program)
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), list_ini(self.rows))
        self.assertEqual(sorted(p.name for p in program.folder.glob("*.ini*")), ["List.ini", "User.ini"])
        self.assertEqual(len(list((program.folder / "Recovery").iterdir())), 1)
        print(f"seed {SEED}: {self.kills} kills, {self.finished} finished commands, all shown again; "
              f"{self.lost} under way when killed", flush=True)
        self.assertGreater(self.finished, KILLS // 4)

    def check(self, program):
        shown = program.cells()
        if self.pending is not None and shown == self.pending:
            self.rows = self.pending
        self.assertEqual(shown, self.rows)
        self.pending = None
        self.assertIn(self.disk.read("List.ini"), self.saved)
        self.assertEqual(self.disk.read("User.ini"), user_ini())

    def run_until_killed(self, program):
        finished = self.finished
        killer = program.kill_after(self.random.uniform(0.0, 4 * self.pace))
        try:
            while True:
                self.command(program)
        except Exception as error:  # a dying program may answer anything
            killer.join()
            if not isinstance(error, Killed) and program.process.wait(5) is None:
                raise
        program.process.wait(5)
        self.lost += self.pending is not None
        if self.finished == finished:
            self.pace *= 1.2  # the machine may be slower than measured before

    def command(self, program):
        step = self.random.randrange(8)
        row = self.random.randrange(len(self.rows))
        if step == 0:
            # The receiver may have the lists before or after the command.
            self.saved[list_ini(self.rows)] = self.rows
            program.keys("ctrl+s")
            program.wait(lambda: program.cells() == self.rows, "an answer after the save")
        elif step == 1 and len(self.rows) > 1:
            self.do(program, lambda: self.delete(program, row + 1), self.rows[:row] + self.rows[row + 1:])
        elif step == 2:
            after = self.saved[self.disk.read("List.ini")]
            self.do(program, lambda: program.keys("ctrl+l"), after)
        else:
            column = self.random.choice((1, 2, 4))
            text = "".join(self.random.choices("56789" if column == 2 else "abcdefgh", k=4))
            cells = list(self.rows[row])
            cells[column - 1] = text
            after = [*self.rows[:row], tuple(cells), *self.rows[row + 1:]]
            self.do(program, lambda: program.edit(row + 1, column, text), after)

    def delete(self, program, row):
        program.select_row(row)
        program.keys("Delete")

    def do(self, program, action, after):
        self.pending = after
        begun = time.monotonic()
        action()
        program.wait(lambda: program.cells() == after, "the cells as they are to be")
        self.rows = after
        self.pending = None
        self.finished += 1
        self.pace = 0.8 * self.pace + 0.2 * (time.monotonic() - begun)


if __name__ == "__main__":
    unittest.main(verbosity=2)
