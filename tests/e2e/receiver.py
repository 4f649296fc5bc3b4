"""Test volumes in place of the receiver: real ext2 file systems on loop devices."""
import os
import pathlib
import shutil
import subprocess

from session import SESSION, need

BLOCK = 1024
CAPACITY = 999 * BLOCK  # the capacity of the receiver's disk


def as_root(command):
    command = [need(command[0]), *map(str, command[1:])]
    if os.geteuid() != 0:
        if shutil.which("sudo") is None:
            raise AssertionError(f"{' '.join(command)}: these tests mount volumes, which needs root or sudo")
        command = ["sudo", "-n", *command]
    result = subprocess.run(command, capture_output=True, text=True, check=False)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(command)} failed; these tests need root, or sudo without a password, "
                             f"and loop devices:\n{result.stderr}")


def capacity(path):
    status = os.statvfs(path)
    return status.f_frsize * status.f_blocks


def unmount_strangers():
    """A plugged-in receiver would be found before the volumes of the test."""
    if not SESSION.private_mounts:
        return
    for line in pathlib.Path("/proc/self/mounts").read_text(encoding="utf-8").splitlines():
        device, folder = line.split()[:2]
        own = folder.startswith(str(SESSION.folder))
        if device.startswith("/dev/") and not own and capacity(folder.encode().decode("unicode_escape")) == CAPACITY:
            as_root(["umount", "-l", folder])


class Receiver:
    """A mounted volume; its root is `folder`."""

    def __init__(self, name="receiver", blocks=999, label="", files=None):
        unmount_strangers()
        self.folder = SESSION.folder / name
        self.folder.mkdir()
        image = SESSION.folder / f"{name}.img"
        with open(image, "wb") as stream:
            stream.truncate(blocks * BLOCK)
        subprocess.run([need("mke2fs"), "-q", "-F", "-t", "ext2", "-b", str(BLOCK), "-N", "16", "-m", "0", "-L", label,
                        str(image), str(blocks)], check=True)
        # minixdf counts the file system's own blocks as capacity too.
        as_root(["mount", "-o", "loop,minixdf", image, self.folder])
        if os.geteuid() != 0:
            as_root(["chown", str(os.geteuid()), self.folder])
        self.image = image
        assert capacity(self.folder) == blocks * BLOCK, f"the volume has {capacity(self.folder)} bytes"
        for file_name, content in (files or {}).items():
            (self.folder / file_name).write_bytes(content)

    def read(self, name):
        return (self.folder / name).read_bytes()

    def remove(self):
        as_root(["umount", self.folder])
        self.folder.rmdir()
        self.image.unlink()
