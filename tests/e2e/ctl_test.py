"""The command-line program as a shell runs it: exit codes, both outputs, files of every kind, locks, pipes and kills.

Runs on every system. HALCYON_CTL: the program, HALCYON_HOLD: the program that holds a folder; an .exe runs under Wine.
"""
import os
import pathlib
import pty
import random
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import unittest

from listfiles import SAMPLE_LIST, SAMPLE_USER, list_ini
from web import WebServer

WINE = str(pathlib.Path(__file__).parents[2] / "scripts" / "wine")
HEADER = "list,programme,frequency_khz,start_utc,stop_utc,target,system\r\n"
SAMPLE_CSV = HEADER + (
    "drm,Radio Example,6095,06:00,07:30,Europe,\r\ndrm,Second,15000,08:00,09:00,Asia,\r\n"
    "drm,Third,9500,10:00,24:00,Africa,\r\nam,Longwave Example,198,,,,\r\nam,Medium,999,,,,\r\nam,广播,6000,,,,\r\n"
    "fm,City FM,98500,,,,\r\nfm,Other,87500,,,,\r\nfav,Radio Example,6095,,,,DRM\r\nfav,City FM,98500,,,,FM\r\n")
SCHEDULE = ("[DRMSchedule]\nStartStopTimeUTC=0600-0700\nDays=1\nFrequency=6000\nTarget=T\nPower=1\nProgramme=P\n"
            "Language=E\nSite=S\nCountry=C\n").encode()
LYING = SAMPLE_LIST.replace(b"drmnumber=3", b"drmnumber=5").replace(b"amnumber=3", b"amnumber=1")
# What "List.ini" may hold, the exit code of "check", and the DRM programmes that "export" prints.
KINDS = {
    "plain": (SAMPLE_LIST, 0, ["Radio Example", "Second", "Third"]),
    "marked": (b"\xEF\xBB\xBF" + SAMPLE_LIST, 0, ["Radio Example", "Second", "Third"]),
    "utf16": (b"\xFF\xFE" + SAMPLE_LIST.decode().encode("utf-16-le"), 0, ["Radio Example", "Second", "Third"]),
    "lf": (SAMPLE_LIST.replace(b"\r\n", b"\n"), 0, ["Radio Example", "Second", "Third"]),
    "cr": (SAMPLE_LIST.replace(b"\r\n", b"\r"), 0, ["Radio Example", "Second", "Third"]),
    "lying": (LYING, 1, ["Radio Example", "Second", "Third", "", ""]),
    "nul": (SAMPLE_LIST.replace(b"Second", b"Sec\0ond"), 0, ["Radio Example", "Sec", "Third"]),
    "ansi": (SAMPLE_LIST.replace(b"Second", b"S\xe9cond"), 1, ["Radio Example", "S\ufffdcond", "Third"]),
    "empty": (b"", 0, []),
    "rubbish": (bytes(range(256)), 1, []),
}


def program(variable):
    path = os.environ[variable]
    return [WINE, path] if path.endswith(".exe") else [path]


CTL = program("HALCYON_CTL")
IS_WINE = CTL[0] == WINE
# Without a display scripts/wine starts one for each program; this one needs none.
ENVIRONMENT = {**os.environ, "DISPLAY": "none", "LC_ALL": "C.UTF-8"} if IS_WINE else {**os.environ, "LC_ALL": "C"}


def setUpModule():
    if IS_WINE:
        keep_wine_running()


def keep_wine_running():
    """Starts a program that runs during all tests. Otherwise a test may kill a program that has just started Wine's
    server: a server that no program has reached never ends, and keeps the pipes of the killed program open."""
    folder = tempfile.mkdtemp(prefix="k7ctl-")
    keeper = subprocess.Popen([*program("HALCYON_HOLD"), "."], cwd=folder, env=ENVIRONMENT, stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def end():
        keeper.stdin.close()
        keeper.wait()
        keeper.stdout.close()
        shutil.rmtree(folder)

    unittest.addModuleCleanup(end)
    if keeper.stdout.readline().strip() != b"held":
        raise RuntimeError("no program starts under Wine")


def messages(errors):
    """Standard error of the program, without Wine's own lines, such as those about drives of the host."""
    return "".join(line for line in errors.decode("utf-8").splitlines(keepends=True)
                   if line.strip() and not line.startswith("wine: "))


class CtlCase(unittest.TestCase):
    maxDiff = 4000

    def setUp(self):
        self.root = pathlib.Path(os.path.realpath(tempfile.mkdtemp(prefix="k7ctl-")))
        self.addCleanup(shutil.rmtree, self.root, ignore_errors=True)
        self.folder = self.root / "Sender 中é"
        self.folder.mkdir()
        self.put(SAMPLE_LIST, SAMPLE_USER)

    def put(self, list_bytes, user_bytes):
        (self.folder / "List.ini").write_bytes(list_bytes)
        (self.folder / "User.ini").write_bytes(user_bytes)

    def words(self, *words):
        return [*CTL, "--folder", self.folder.name, *words]

    def start(self, *words, **options):
        return subprocess.Popen(self.words(*words), cwd=self.root, env=ENVIRONMENT, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, **options)

    def run_program(self, *words, given=b"", **options):
        """Exit code, standard output and standard error; every output is UTF-8."""
        done = subprocess.run(self.words(*words), cwd=self.root, env=ENVIRONMENT, input=given, capture_output=True,
                              timeout=120, check=False, **options)
        self.last = f"{words}: {done.returncode} {done.stdout!r} {done.stderr!r}"
        return done.returncode, done.stdout.decode("utf-8"), messages(done.stderr)

    def succeed(self, *words, given=b""):
        code, out, errors = self.run_program(*words, given=given)
        self.assertEqual((code, errors), (0, ""), self.last)
        return out

    def files(self):
        return {path.relative_to(self.root): path.read_bytes() for path in self.root.rglob("*") if path.is_file()}


class FileKinds(CtlCase):
    def test_every_reading_command_reads_every_kind_of_file(self):
        for name, (content, fault, programmes) in KINDS.items():
            with self.subTest(name):
                self.put(content, SAMPLE_USER)
                before = self.files()
                exported = self.succeed("export")
                self.assertEqual([line.split(",")[1] for line in exported.split("\r\n") if line.startswith("drm,")],
                                 programmes)
                if name in ("plain", "marked", "utf16", "lf", "cr"):
                    self.assertEqual(exported, SAMPLE_CSV)
                self.assertEqual(self.run_program("check")[0], fault, self.last)
                self.assertTrue(self.succeed("show").startswith(f"DRM List: {len(programmes)}\n"), self.last)
                self.assertEqual(self.run_program("find", "Europe")[0], 0 if programmes else 1, self.last)
                self.succeed("diff", self.folder.name, self.folder.name)
                for form in ("json", "html", "gqrx"):
                    self.assertGreater(len(self.succeed("export", "--format", form)), 100)
                self.assertEqual(self.files(), before, "reading writes nothing")

    def test_every_changing_command_starts_from_every_kind_of_file(self):
        (self.root / "new.csv").write_text("list,programme,frequency_khz\nam,Night,666\n")
        for name, (content, _, programmes) in KINDS.items():
            with self.subTest(name):
                shutil.rmtree(self.folder)
                self.folder.mkdir()
                self.put(content, SAMPLE_USER)
                before = self.files()
                code, out, errors = self.run_program("--dry-run", "import", "new.csv")
                self.assertEqual((code, errors, "Night" in out), (1, "", True), self.last)
                self.assertEqual(self.run_program("--dry-run", "schedule", "replace", "-", given=SCHEDULE)[0], 1)
                self.assertEqual(self.files(), before, "a dry run writes nothing")
                self.assertIn(f"DRM: {len(programmes)} -> {len(programmes)} records", self.succeed("import", "new.csv"))
                self.assertIn("am,Night,666", self.succeed("export"))
                self.assertIn("-> 1 records", self.succeed("schedule", "replace", "-", given=SCHEDULE))
                self.assertIn("drm,P,6000,06:00,07:00,T,", self.succeed("export"))

    def test_export_and_import_give_the_same_lists(self):
        self.succeed("export", "-o", "alle 中.csv")
        self.assertEqual((self.root / "alle 中.csv").read_bytes().decode(), SAMPLE_CSV)
        self.put(b"", b"")
        self.succeed("import", "alle 中.csv", "--replace")
        self.assertEqual(self.succeed("export"), SAMPLE_CSV)
        self.assertEqual((self.folder / "List.ini").read_bytes().removeprefix(b"\xEF\xBB\xBF"), SAMPLE_LIST)


class Ends(CtlCase):
    def test_each_failure_has_its_exit_code_and_a_message(self):
        (self.root / "bad.csv").write_text("list,programme\nam,x\n")
        server = WebServer(b"gone", 404)
        self.addCleanup(server.stop)
        for code, words, message in (
                (1, ["find", "nothing like it"], "nothing found"),
                (1, ["import", "bad.csv"], "bad.csv:1: frequency_khz is missing from the first line"),
                (2, ["shwo"], '"shwo" is no command; the commands are show, find, check,'),
                (2, [], "a command is missing; the commands are show, find, check,"),
                (2, ["receiver", "laod"], '"laod" is no command of "receiver"; the commands are status, load and save'),
                (2, ["show", "--jason"], '"--jason" is no option of "show"'),
                (2, ["import", "a.csv", "--list", "中"], '--list: "中" is none of drm, am, fm and fav'),
                (2, ["diff", "a"], '"diff" needs NEW'),
                (2, ["check", "a", "b"], '"b" is one word too many for "check"'),
                (3, ["show", "drn"], "drn: is none of drm, am, fm and fav, and there is no such file or folder"),
                (3, ["check", "nowhere 中"], "nowhere 中: no such file or folder"),
                (3, ["import", "nowhere.csv"], "nowhere.csv: no such file"),
                (2, ["show", "--folder", "other"], "--folder may be given only once"),
                (3, ["backup", "restore", ""], "no backup"),
                (3, ["export", "-o", "no/folder/x.csv"], "x.csv: cannot be written"),
                (4, ["receiver", "status"], "no disk is the receiver's"),
                (6, ["schedule", "show", server.address], "the download failed: the server answers with status 404")):
            with self.subTest(words):
                before = self.files()
                got, out, errors = self.run_program(*words)
                self.assertEqual((got, out), (code, ""), self.last)
                self.assertTrue(errors.startswith("halcyon_k7ctl: "), errors)
                self.assertIn(message, errors)
                self.assertEqual(self.files(), before)

    def test_a_missing_folder_is_named(self):
        shutil.rmtree(self.folder)
        self.assertEqual(self.run_program("show")[0], 3, self.last)
        code, out, errors = self.run_program("schedule", "merge", "-", given=SCHEDULE)
        self.assertEqual((code, out), (3, ""), self.last)
        self.assertIn("no such folder", errors)
        self.assertFalse(self.folder.exists())

    @unittest.skipIf(IS_WINE or os.geteuid() != 0, "only root can run the program as another user")
    def test_a_folder_that_the_user_cannot_write_is_not_changed(self):
        (self.root / "new.csv").write_text("list,programme,frequency_khz\nam,Night,666\n")
        self.root.chmod(0o755)
        # The folders above the built program may be closed to other users.
        copy = shutil.copy2(CTL[0], self.root)
        before = self.files()
        nobody = {"executable": copy, "user": "nobody", "group": "nogroup", "extra_groups": []}
        self.assertEqual(self.run_program("export", **nobody), (0, SAMPLE_CSV, ""), self.last)
        self.assertEqual(self.run_program("import", "--dry-run", "new.csv", **nobody),
                         (1, "+ AM 4: Night | 666\n", ""), self.last)
        for words in (["import", "new.csv"], ["schedule", "merge", "-"], ["schedule", "replace", "-"]):
            code, out, errors = self.run_program(*words, given=SCHEDULE, **nobody)
            self.assertEqual((code, out), (3, ""), self.last)
            self.assertIn(f"{self.folder}", errors)
            self.assertEqual(self.files(), before)
        code, _, errors = self.run_program("export", "-o", "x.csv", **nobody)
        self.assertEqual(code, 3, self.last)
        self.assertIn("x.csv: cannot be written", errors)
        self.assertEqual(self.files(), before)

    def test_a_file_of_more_than_2_gib_is_not_read(self):
        (self.root / "new.csv").write_text("list,programme,frequency_khz\nam,Night,666\n")
        large = self.folder / "List.ini"
        os.truncate(large, 2**31)  # sparse
        for words in (["show"], ["check"], ["export"], ["show", f"{self.folder.name}/List.ini"],
                      ["import", f"{self.folder.name}/List.ini"], ["schedule", "merge", f"{self.folder.name}/List.ini"]):
            code, out, errors = self.run_program(*words)
            self.assertEqual((code, out), (3, ""), self.last)
            self.assertIn("List.ini: is larger than 2 GiB", errors)
        for words in (["import", "new.csv"], ["schedule", "replace", "-"]):
            code, out, errors = self.run_program(*words, given=SCHEDULE)
            self.assertEqual((code, out), (3, ""), self.last)
            self.assertIn("the working copies cannot be read", errors)
        self.assertEqual(large.stat().st_size, 2**31)
        large.unlink()
        self.assertEqual({path.name for path in self.files()}, {"User.ini", "new.csv"})
        self.assertEqual((self.folder / "User.ini").read_bytes(), SAMPLE_USER)

    def test_a_folder_in_use_is_not_changed(self):
        (self.root / "new.csv").write_text("list,programme,frequency_khz\nam,Night,666\n")
        # As another program may name the same folder.
        holder = subprocess.Popen([*program("HALCYON_HOLD"), f"./{self.folder.name}/../{self.folder.name}"],
                                  cwd=self.root, env=ENVIRONMENT, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.assertEqual(holder.stdout.readline().strip(), b"held")
        before = self.files()
        for words in (["import", "new.csv"], ["schedule", "merge", "-"], ["schedule", "replace", "-"],
                      ["backup", "restore", "20200101T000000Z"], ["receiver", "load"], ["receiver", "save"]):
            code, out, errors = self.run_program(*words, given=SCHEDULE)
            self.assertEqual((code, out), (5, ""), self.last)
            self.assertIn("the window is open on these lists", errors)
        self.assertEqual(self.succeed("export"), SAMPLE_CSV)
        self.assertEqual(self.files(), before)
        holder.communicate()
        self.assertIn("AM: 3 -> 4 records", self.succeed("import", "new.csv"))

    def test_a_closed_pipe_ends_the_program_quietly(self):
        self.put(list_ini([(f"Radio {i}", "6095", "06:00-07:30", "Europe") for i in range(20_000)]), SAMPLE_USER)
        process = self.start("show")
        self.assertTrue(process.stdout.readline().startswith(b"DRM List: 20000"))
        process.stdout.close()
        self.assertEqual(messages(process.stderr.read()), "")
        process.stderr.close()
        self.assertEqual(process.wait(timeout=60), 0)

    def test_output_that_is_no_terminal_has_no_colours(self):
        self.assertNotIn("\x1b", self.succeed("show"))
        (self.root / "empty").mkdir()
        (self.root / "empty" / "List.ini").write_bytes(b"")
        _, out, _ = self.run_program("diff", self.folder.name, "empty")
        self.assertNotIn("\x1b", out)

    def test_texts_on_the_command_line_may_be_in_any_script(self):
        self.put(list_ini([("广播", "6095", "06:00-07:30", "Österreich")]), SAMPLE_USER)
        self.assertIn("广播", self.succeed("find", "österreich"[1:]))
        self.assertIn("Österreich", self.succeed("find", "广"))


def read_until(terminal, end):
    """What the program writes to the terminal up to these bytes, or all of it."""
    seen = b""
    while end is None or end not in seen:
        try:
            seen += os.read(terminal, 4096)
        except OSError:  # the program has ended
            return seen
    return seen


@unittest.skipIf(IS_WINE, "a terminal of this system is no console of Wine")
class Terminals(CtlCase):
    def test_a_terminal_shows_the_progress_of_a_download(self):
        rest = threading.Event()
        server = WebServer(SCHEDULE, rest=rest)
        self.addCleanup(server.stop)
        terminal, other = pty.openpty()
        self.addCleanup(os.close, terminal)
        process = subprocess.Popen(self.words("schedule", "show", server.address), cwd=self.root, env=ENVIRONMENT,
                                   stdout=subprocess.PIPE, stderr=other)
        os.close(other)
        half = f"\rDownloading... {len(SCHEDULE) // 2} of {len(SCHEDULE)} bytes".encode()
        seen = read_until(terminal, half)
        self.assertTrue(seen.startswith(b"Downloading...\r"), seen)
        self.assertIn(half, seen)
        rest.set()
        seen += read_until(terminal, None)
        out, _ = process.communicate()
        self.assertTrue(seen.endswith(f"\rDownloading... {len(SCHEDULE)} of {len(SCHEDULE)} bytes\r\n".encode()), seen)
        self.assertEqual(seen.count(b"\n"), 1, seen)
        self.assertEqual((process.returncode, b"6000" in out), (0, True))

    def test_standard_error_that_is_no_terminal_shows_no_progress(self):
        server = WebServer(SCHEDULE)
        self.addCleanup(server.stop)
        self.assertIn("6000", self.succeed("schedule", "show", server.address))

    def test_colours_are_for_terminals_without_no_color(self):
        for colour, environment in ((True, {}), (True, {"NO_COLOR": ""}), (False, {"NO_COLOR": "1"})):
            terminal, other = pty.openpty()
            process = subprocess.Popen(self.words("show", "am"), cwd=self.root, env={**ENVIRONMENT, **environment},
                                       stdout=other, stderr=subprocess.PIPE)
            os.close(other)
            seen = read_until(terminal, None)
            os.close(terminal)
            self.assertEqual(process.communicate(), (None, b""))
            self.assertEqual(b"\x1b[1m" in seen, colour, seen)


class Kills(CtlCase):
    def test_a_killed_import_leaves_the_old_lists_or_the_new_ones(self):
        rows = "".join(f"am,Station {i},{600 + i},,,,\r\n" for i in range(200))
        (self.root / "new.csv").write_bytes((HEADER + rows + "fav,New,6095,,,,DRM\r\n").encode())
        before = (SAMPLE_LIST, SAMPLE_USER)
        old = self.succeed("export")
        start = time.monotonic()
        self.succeed("import", "new.csv", "--replace")
        longest = time.monotonic() - start
        new = self.succeed("export")
        self.assertNotEqual(old, new)
        killed = 0
        for _ in range(8 if IS_WINE else 60):
            shutil.rmtree(self.folder)
            self.folder.mkdir()
            self.put(*before)
            process = self.start("import", "new.csv", "--replace", start_new_session=True)
            time.sleep(random.uniform(0, longest))
            process.kill()
            process.communicate()
            killed += 1 if process.returncode < 0 else 0
            self.assertIn(self.succeed("export"), (old, new))
        self.assertGreater(killed, 0, "no run was killed")


if __name__ == "__main__":
    sys.stdout.reconfigure(encoding="utf-8")
    unittest.main(verbosity=2)
