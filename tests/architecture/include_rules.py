#!/usr/bin/python3
"""Holds the sources to the floors of the house: who may include whom, and no circle anywhere.

usage: include_rules.py SRC    prints every broken rule as FILE:LINE: RULE: text, exits 1 when there is one
"""
import pathlib
import re
import sys

PORTABLE = ("storage", "editing", "adding", "sync", "shell")
SUBSYSTEMS = ("storage", "editing", "adding", "sync")
GROUND_FLOOR = ("shell/mMsgBox", "shell/mFindDiskDriver", "shell/Totals")
ROOF = "shell/MainForm.h"
BACKEND_MAIN_MAY_INCLUDE = ("shell/Design.h", ROOF)
MAX_LINES = 400

STANDARD = set("""
algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint
cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format forward_list fstream
functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator semaphore
set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string string_view syncstream
system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector
version
""".split())

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif|elifdef|elifndef)\b(.*)")
PLATFORM_MACRO = re.compile(
    r"\b(_WIN32|_WIN64|WIN32|_MSC_VER|__MINGW\w*|__CYGWIN__|__linux__|__linux|__unix__|__APPLE__|__FreeBSD__|Q_OS_\w+"
    r"|QT_VERSION\w*|__has_include)\b")
BLOCK_COMMENT = re.compile(r"/\*.*?\*/", re.DOTALL)


class Source:
    """One file of the tree: its includes as (line, name, quoted) and its conditions as (line, text)."""

    def __init__(self, root, path):
        self.name = path.relative_to(root).as_posix()
        self.folder = self.name.rsplit("/", 1)[0] if "/" in self.name else ""
        text = path.read_text(encoding="utf-8")
        self.line_count = len(text.splitlines())
        # Comments go, their line ends stay, so that the numbers reported are those of the file.
        text = BLOCK_COMMENT.sub(lambda match: "\n" * match.group().count("\n"), text)
        self.includes = []
        self.conditions = []
        for number, line in enumerate(text.splitlines(), 1):
            if match := INCLUDE.match(line):
                self.includes.append((number, match.group(1) or match.group(2), match.group(1) is not None))
            elif match := CONDITION.match(line):
                self.conditions.append((number, match.group(1)))

    def top(self):
        return self.name.split("/", 1)[0]

    def stem(self):
        return self.name.rsplit(".", 1)[0]


def is_platform_interface(name):
    return re.fullmatch(r"platform/[^/]+\.h", name) is not None


def is_ground_floor(name):
    return name.rsplit(".", 1)[0] in GROUND_FLOOR


class Checker:
    def __init__(self, root):
        self.root = pathlib.Path(root)
        paths = sorted(p for p in self.root.rglob("*") if p.suffix in (".h", ".cpp"))
        self.sources = {s.name: s for s in (Source(self.root, p) for p in paths)}
        self.broken = []

    def fail(self, source, line, rule, text):
        self.broken.append(f"{source.name}:{line}: {rule}: {text}")

    def resolve(self, source, name):
        """The file of the tree that a quoted include means, or None."""
        beside = f"{source.folder}/{name}" if source.folder else name
        for candidate in (beside, name):
            if candidate in self.sources:
                return candidate
        return None

    def check(self):
        graph = {}
        for source in self.sources.values():
            if source.line_count > MAX_LINES:
                self.fail(source, source.line_count, "length", f"more than {MAX_LINES} lines")
            graph[source.name] = [(line, target) for line, name, quoted in source.includes
                                  if quoted and (target := self.resolve(source, name))]
            self.check_includes(source)
            if source.top() in PORTABLE or is_platform_interface(source.name):
                self.check_conditions(source)
        self.check_circles(graph)
        return self.broken

    def check_conditions(self, source):
        for line, text in source.conditions:
            if match := PLATFORM_MACRO.search(text):
                self.fail(source, line, "platform-condition", match.group())

    def check_includes(self, source):
        for line, name, quoted in source.includes:
            target = self.resolve(source, name) if quoted else None
            if target == ROOF:
                self.check_roof(source, line)
            if is_platform_interface(source.name):
                self.check_interface(source, line, name, quoted, target)
            elif source.top() in PORTABLE:
                self.check_portable(source, line, name, quoted, target)
            elif source.top() == "platform":
                self.check_backend(source, line, name, quoted, target)
            else:
                self.fail(source, line, "folder", "no floor is known for this folder")

    def check_roof(self, source, line):
        main_program = re.fullmatch(r"platform/[^/]+/main\.cpp", source.name)
        if not main_program and source.name != "shell/MainForm.cpp":
            self.fail(source, line, "roof", f"{ROOF} is for main programs only")

    def check_interface(self, source, line, name, quoted, target):
        if quoted and target and is_platform_interface(target):
            return
        if quoted or name not in STANDARD:
            self.fail(source, line, "interface", f"{name} is no standard header")

    def check_portable(self, source, line, name, quoted, target):
        if not quoted:
            if name not in STANDARD:
                self.fail(source, line, "portable", f"{name} is no standard header")
            return
        if target is None:
            self.fail(source, line, "portable", f"{name} is not in the tree")
        elif target.startswith("platform/"):
            if not is_platform_interface(target):
                self.fail(source, line, "portable", f"{target} belongs to a backend")
        elif is_ground_floor(source.name):
            if target.rsplit(".", 1)[0] != source.stem():
                self.fail(source, line, "ground-floor", f"{target}: the ground floor knows platform/ only")
        elif source.top() in SUBSYSTEMS:
            allowed = (source.top(), "storage")
            if target.split("/", 1)[0] not in allowed and not is_ground_floor(target):
                self.fail(source, line, "subsystem", f"{source.top()} may not know {target}")

    def check_backend(self, source, line, name, quoted, target):
        if not quoted or target is None:
            # A system header, or one that the build generates; whatever else is missing the compiler reports.
            return
        if is_platform_interface(target) or target.startswith(source.folder + "/"):
            return
        if source.name == f"{source.folder}/main.cpp" and target in BACKEND_MAIN_MAY_INCLUDE:
            return
        self.fail(source, line, "backend", f"a backend may not know {target}")

    def check_circles(self, graph):
        done, path = set(), []

        def visit(name):
            if name in done:
                return
            path.append(name)
            for line, target in graph[name]:
                if target in path:
                    circle = path[path.index(target):] + [target]
                    self.fail(self.sources[name], line, "circle", " -> ".join(circle))
                else:
                    visit(target)
            path.pop()
            done.add(name)

        for name in graph:
            visit(name)


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    checker = Checker(arguments[1])
    if not checker.sources:
        print(f"{arguments[1]}: holds no sources", file=sys.stderr)
        return 2
    broken = checker.check()
    print("\n".join(broken) if broken else f"{len(checker.sources)} files keep the rules")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
