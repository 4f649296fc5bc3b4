#!/usr/bin/python3
"""Shows the program at work on a virtual screen: load, edit, sync, save, with a picture of each step.

usage: walk.py PROGRAM SAMPLES OUTPUT    exits 0 only if the program leaves the expected files
"""
import configparser
import os
import pathlib
import shutil
import sys

if len(sys.argv) != 4:
    sys.exit(__doc__)
binary, samples, output = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
os.environ["HALCYON_PROGRAM"] = str(binary)
os.environ["HALCYON_PICTURES"] = str(output)
shutil.rmtree(output, ignore_errors=True)
output.mkdir(parents=True)

# These imports start the virtual screen and need the settings above.
from listfiles import list_ini, user_ini  # noqa: E402
from program import Program  # noqa: E402
from receiver import Receiver  # noqa: E402
from session import SESSION  # noqa: E402
from web import WebServer  # noqa: E402

EDITED = "999"


class Walk:
    def __init__(self):
        self.steps = 0
        self.receiver = None
        folder = output / "program"
        folder.mkdir()
        self.program = Program(folder=folder)

    def step(self, text):
        self.steps += 1
        SESSION.picture(output / f"{self.steps}-{text.split()[0].lower()}.png")
        print(f"{self.steps}. {text}", flush=True)

    def plug_in(self):
        """Mounts a receiver with the samples if this user may mount; otherwise the samples are the working copies."""
        names = ("List.ini", "User.ini")
        try:
            self.receiver = Receiver(files={name: (samples / name).read_bytes() for name in names})
        except AssertionError as reason:
            print(f"No receiver volume here, so the lists stay in the program's folder: {reason}", flush=True)
            for name in names:
                shutil.copy(samples / name, self.program.folder)

    def load(self):
        self.program.start()
        if self.receiver:
            self.step("Started with empty lists")
            self.program.keys("ctrl+l")
            self.program.wait(lambda: self.program.row_count() > 0, "the lists loaded")
            self.step(f"Loaded {self.program.row_count()} DRM stations from the receiver at {self.receiver.folder}")
        else:
            self.step(f"Started with {self.program.row_count()} DRM stations")

    def edit(self):
        self.program.show_tab("AM List")
        before = self.program.cells()[0]
        self.program.edit(1, 2, EDITED)
        self.program.wait(lambda: self.program.cells()[0] == (before[0], EDITED, "MW"), "the edited row")
        self.step(f"Edited the first AM station from {before[1]} to {EDITED} kHz; its band became MW")

    def sync(self, address):
        (self.program.folder / "config.ini").write_text(address + "\n", encoding="utf-8")
        self.program.show_tab("DRM List")
        self.program.choose("Sync From Internet(I)")
        text = self.program.message()
        self.step(f"Synchronized from {address}: {text}")
        self.program.answer("OK")
        self.program.wait(lambda: text.endswith(f": {self.program.row_count()}"), "the rows that the message counts")

    def save(self):
        self.program.keys("ctrl+s")
        if self.receiver:
            folder = self.receiver.folder
        else:
            self.program.message()
            self.program.answer("OK")
            folder = self.program.folder
        list_file, user_file = self.expected_files()
        self.program.wait(lambda: (folder / "List.ini").read_bytes() == list_file, "the right List.ini")
        self.program.wait(lambda: (folder / "User.ini").read_bytes() == user_file, "the right User.ini")
        self.step(f"Saved to {folder}")

    def expected_files(self):
        """The expected files, composed from the samples: the lists loaded, the frequency edited, the schedule merged."""
        def records(name, prefix, count, *keys):
            parser = configparser.RawConfigParser()
            parser.read_string((samples / name).read_text(encoding="utf-8"))
            return [tuple(parser[f"{prefix}Schedule{i}"][key] for key in keys)
                    for i in range(parser.getint("Total", count))]
        drm = []
        lines = (samples / "DRMSchedule.txt").read_text(encoding="utf-8").split("[DRMSchedule]\n")[1].splitlines()
        for start in range(0, len(lines), 9):
            record = dict(line.split("=", 1) for line in lines[start:start + 9])
            time = record["StartStopTimeUTC"]
            drm.append((record["Programme"], record["Frequency"], f"{time[:2]}:{time[2:4]}-{time[5:7]}:{time[7:]}",
                        record["Target"]))
        am = records("List.ini", "AM", "amnumber", "Programme", "Frequency")
        am[0] = (am[0][0], EDITED)
        return (list_ini(drm, am, records("List.ini", "FM", "fmnumber", "Programme", "Frequency")),
                user_ini(records("User.ini", "FAV", "favnumber", "Programme", "Frequency", "TYPE")))

    def finish(self):
        folder = self.receiver.folder if self.receiver else self.program.folder
        if self.program.close() != 0:
            raise AssertionError("the program did not end well: " + self.program.errors())
        for name in ("List.ini", "User.ini"):
            shutil.copy(folder / name, output / name)


def main():
    server = WebServer((samples / "DRMSchedule.txt").read_bytes())
    walk = Walk()
    try:
        walk.plug_in()
        walk.load()
        walk.edit()
        walk.sync(server.address)
        walk.save()
        walk.finish()
    finally:
        walk.program.kill()
        if walk.receiver:
            walk.receiver.remove()
        server.stop()
    print(f"List.ini and User.ini are as expected. They and a picture of each step are in {output}")


main()
