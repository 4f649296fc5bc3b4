"""The program opens only files of its own folder and of the receiver for writing."""
import os
import re
import unittest

import listfiles
from case import ProgramCase
from listfiles import SAMPLE_LIST, SAMPLE_USER
from session import SESSION, need

# A call that could create, change or remove a file, with its result.
CALL = re.compile(r'\b(open|openat|creat|rename|renameat2?|unlink|unlinkat|mkdir|mkdirat|rmdir|truncate|chmod|fchmodat2?|'
                  r'link|linkat|symlink|symlinkat)\((.*)\) += (-?\d+)')
# A path and, before it, the folder that a relative one starts from: a descriptor with its path.
PATH = re.compile(r'(?:\w+<([^>]*)>, )?"([^"]*)"')
WRITES = re.compile(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_APPEND")


class Rights(ProgramCase):
    def touched(self, log):
        """The paths that were opened for writing, created, renamed or removed with success."""
        found = set()
        for line in log.read_text(errors="replace").splitlines():
            call = CALL.search(line)
            if not call or int(call[3]) < 0 or (call[1].startswith("open") and not WRITES.search(call[2])):
                continue
            found.update(os.path.normpath(os.path.join(*path)) for path in PATH.findall(call[2]))
        return found

    def test_only_its_own_folder_and_the_receiver_are_written(self):
        receiver = self.sample_receiver()
        address = self.serve(b"[DRMSchedule]\nnothing\n")
        program = self.program(SAMPLE_LIST, SAMPLE_USER)
        (program.folder / "config.ini").write_text(address + "\n")
        log = SESSION.folder / "calls"
        program.start(wrapper=[need("strace"), "-D", "-f", "-qq", "-y", "-s", "4096", "-e", "trace=file", "-o", log])
        program.edit(1, 1, "Edited")
        program.keys("ctrl+s")
        self.assert_file_becomes(program, receiver.folder / "List.ini",
                                 listfiles.list_ini([("Edited", *listfiles.DRM[0][1:]), *listfiles.DRM[1:]],
                                                    listfiles.AM, listfiles.FM))
        program.keys("ctrl+l")
        self.assert_cells(program, [("Edited", *listfiles.DRM[0][1:]), *listfiles.DRM[1:]])
        program.keys("ctrl+i")
        program.message()
        program.answer("OK")
        program.keys("alt+F4")
        program.wait_for_end()
        touched = self.touched(log)
        for expected in ("LIST.K7N", "Recovery/Snapshot1", "DRMSchedule.ini"):
            self.assertIn(str(program.folder / expected), touched)
        own = (str(program.folder) + "/", str(receiver.folder) + "/")
        # Devices store nothing; the toolkit has folders of its own for caches and settings.
        toolkit = ("/dev/", "/proc/", str(SESSION.folder / "cache"), str(SESSION.folder / "config"))
        self.assertEqual(sorted(p for p in touched if not p.startswith(own + toolkit)), [])

    def test_files_have_the_permissions_that_the_user_has_chosen(self):
        program = self.program().start(wrapper=["sh", "-c", 'umask 027; exec "$0" "$@"'])
        self.assert_closes(program)
        for name in ("List.ini", "User.ini"):
            self.assertEqual((program.folder / name).stat().st_mode & 0o777, 0o640)


if __name__ == "__main__":
    unittest.main(verbosity=2)
