#!/usr/bin/python3
"""Compares the manual page and the bash completion with the commands and options that --help of the program lists.

usage: command_words.py MANUAL COMPLETION PROGRAM
"""
import pathlib
import re
import subprocess
import sys

OPTION = re.compile(r"(?<![\w-])--?[a-z][a-z-]*")
HELP = {"-h", "--help"}
# What the completion does before it is asked for the words at the cursor.
ASK = 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _halcyon_k7ctl; printf "%s\\n" "${COMPREPLY[@]}"'


def section(text, title):
    """The lines below a title of the help, up to the next empty line."""
    found = re.search(rf"^{title}:\s*$\n(.*?)(?:^\s*$|\Z)", text, re.MULTILINE | re.DOTALL | re.IGNORECASE)
    return found.group(1).splitlines() if found else []


class Command:
    """A command as its help describes it. `options` are sets of names of one option each."""

    def __init__(self, program, path=()):
        self.path = path
        done = subprocess.run([program, *path, "--help"], capture_output=True, text=True, check=True)
        self.options = [set(names.split(",")) for names in
                        re.findall(r"^ +(-[\w,-]+)", "\n".join(section(done.stdout, "Options")), re.MULTILINE)]
        names = [line.split()[0] for line in section(done.stdout, "Subcommands")]
        self.commands = [Command(program, (*path, name)) for name in names]

    def all(self):
        return [self, *(each for command in self.commands for each in command.all())]

    def names(self):
        return set().union(*self.options)


def paragraphs_of(manual):
    """The text of each command in the manual page, and that of the global options, without the marks of troff."""
    text = re.sub(r"\\f[A-Z]", "", manual.replace(".SH", "\n.SH")).replace("\\-", "-").replace("\\\n", "")
    options, commands = (re.search(rf"\.SH {title}\n(.*?)\n\.SH", text, re.DOTALL).group(1)
                         for title in ("OPTIONS", "COMMANDS"))
    commands = re.sub(r"^\.[A-Z]+ ", "", commands, flags=re.MULTILINE)
    return options, [part.strip() for part in commands.split(".TP\n") if part.strip()]


def manual_faults(manual, program):
    options, paragraphs = paragraphs_of(manual)
    faults = [f"manual page: no {'/'.join(names)}" for names in program.options if not names <= set(OPTION.findall(options))]
    faults += [f"manual page: {name} is no option" for name in set(OPTION.findall(options)) - program.names()]
    known = set()
    for command in program.all()[1:]:
        own = [part for part in paragraphs if re.match(rf"{command.path[0]}\b", part)]
        if not own or not re.search(rf"\b{command.path[-1]}\b", own[0].splitlines()[0]):
            faults.append(f"manual page: no {' '.join(command.path)}")
            continue
        known |= command.names()
        there = set(OPTION.findall(own[0]))
        faults += [f"manual page, {' '.join(command.path)}: no {'/'.join(names)}" for names in command.options
                   if names != HELP and not names <= there]
    faults += [f"manual page: {name} is no option of a command" for part in paragraphs
               for name in set(OPTION.findall(part)) - known - program.names()]
    return faults


def completion_faults(completion, program):
    def offered(*words):
        done = subprocess.run(["bash", "-c", ASK, "bash", pathlib.Path(completion).resolve(), "halcyon_k7ctl", *words, ""],
                              capture_output=True, text=True, check=True, cwd="/")
        return set(done.stdout.split())

    faults = []
    for command in program.all():
        words, name = offered(*command.path), " ".join(command.path) or "at the start"
        faults += [f"completion, {name}: no {each.path[-1]}" for each in command.commands if each.path[-1] not in words]
        faults += [f"completion, {name}: no {'/'.join(names)}" for names in command.options
                   if not names & words and (names != HELP or not command.path)]
        faults += [f"completion, {name}: {word} is no option" for word in words
                   if word.startswith("-") and word not in command.names() | program.names()]
    return faults


def main(manual, completion, program):
    known = Command(program)
    if len(known.all()) < 18:
        print(f"only {len(known.all()) - 1} commands found in the help")
        return 1
    faults = manual_faults(pathlib.Path(manual).read_text(encoding="utf-8"), known) + completion_faults(completion, known)
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
