#!/usr/bin/python3
"""Runs the examples of the page of the command-line program and compares their output with the page.

usage: command_line_page.py [--write] PAGE SAMPLES PROGRAM...

PROGRAM may have words before it that run it. --write puts the output of this run into the page instead.
"""
import difflib
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"(```console\n)(.*?)(```\n)", re.DOTALL)


class Examples:
    """A folder with sample lists in which one example follows the other."""

    def __init__(self, folder, samples, program):
        self.folder = pathlib.Path(folder)
        (self.folder / "lists").mkdir()
        for name in ("List.ini", "User.ini"):
            shutil.copy(samples / name, self.folder / "lists")
        shutil.copy(samples / "DRMSchedule.txt", self.folder)
        words = " ".join(shlex.quote(word) for word in program)
        self.function = f'halcyon_k7ctl() {{ {words} --folder lists "$@"; }}\n'
        self.count = 0

    def run(self, command):
        self.count += 1
        result = subprocess.run(["bash", "-c", self.function + command], cwd=self.folder, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, timeout=120, check=False)
        text = result.stdout.decode("utf-8").replace("\r\n", "\n")
        # Paths of messages are those of this run.
        for form in (str(self.folder), "Z:" + str(self.folder).replace("/", "\\")):
            text = text.replace(form, "~")
        return text.replace("~\\", "~/").replace("lists\\", "lists/")

    def rendered(self, block):
        commands = [line for line in block.splitlines() if line.startswith("$ ")]
        return "".join(f"{command}\n{self.run(command[2:])}" for command in commands)


def main(arguments):
    writes = arguments[1:2] == ["--write"]
    page, samples, *program = arguments[2 if writes else 1:]
    page = pathlib.Path(page)
    text = page.read_text(encoding="utf-8")
    with tempfile.TemporaryDirectory() as folder:
        examples = Examples(os.path.realpath(folder), pathlib.Path(samples), program)
        made = BLOCK.sub(lambda match: match.group(1) + examples.rendered(match.group(2)) + match.group(3), text)
        if writes:
            page.write_text(made, encoding="utf-8")
            return 0
        if examples.count < 10:
            print(f"only {examples.count} examples in {page}")
            return 1
    if made != text:
        sys.stdout.writelines(difflib.unified_diff(text.splitlines(True), made.splitlines(True), str(page), "this run"))
        return 1
    print(f"{examples.count} examples print what the page says")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
