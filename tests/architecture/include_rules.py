#!/usr/bin/python3
"""Checks the includes: a folder includes only folders before it in FOLDERS, and there is no cycle.

usage: include_rules.py SRC    prints every broken rule as FILE:LINE: RULE: text, exits 1 if there is one
"""
import pathlib
import re
import sys

# In order: a folder includes only those before it and itself.
FOLDERS = (
    "platform",
    "platform/posix",
    "platform/qt",
    "platform/win32",
    "storage/files",
    "storage/text",
    "storage/stations",
    "storage/ini",
    "storage/lists",
    "storage/recovery",
    "messages",
    "editing",
    "adding",
    "sync",
    "receiver",
    "shell",
    "ctl/schedules",
    "ctl",
    "main",
)
# Only the programs know a backend; the Qt backend also uses the POSIX services.
BACKENDS = {
    "platform/posix": ("platform/qt", "main"),
    "platform/qt": ("main",),
    "platform/win32": ("main",),
}
# Headers of libraries that portable code may use.
LIBRARIES = {"ctl": ("CLI/CLI.hpp", "nlohmann/json.hpp"), "sync": ("zlib.h",)}
# The commands on the lists know no file format.
FORMATS = ("storage/ini", "storage/lists")
WITHOUT_FORMATS = ("editing", "adding", "sync")
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
        # Keep the line ends of removed comments so that reported line numbers stay right.
        text = BLOCK_COMMENT.sub(lambda match: "\n" * match.group().count("\n"), text)
        self.includes = []
        self.conditions = []
        for number, line in enumerate(text.splitlines(), 1):
            if match := INCLUDE.match(line):
                self.includes.append((number, match.group(1) or match.group(2), match.group(1) is not None))
            elif match := CONDITION.match(line):
                self.conditions.append((number, match.group(1)))

    def is_portable(self):
        return self.folder in FOLDERS and self.folder not in BACKENDS and self.folder != "main"


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
            if source.is_portable():
                self.check_conditions(source)
        self.check_circles(graph)
        return self.broken

    def check_conditions(self, source):
        for line, text in source.conditions:
            if match := PLATFORM_MACRO.search(text):
                self.fail(source, line, "platform-condition", match.group())

    def check_includes(self, source):
        if source.folder not in FOLDERS:
            self.fail(source, 1, "folder", f"{source.folder} is not in the list of folders")
            return
        for line, name, quoted in source.includes:
            target = self.resolve(source, name) if quoted else None
            if target:
                self.check_order(source, line, target)
            elif source.is_portable() and (quoted or name not in STANDARD) and not self.may_use(source, name):
                self.fail(source, line, "portable", f"{name} is neither in the tree nor a standard header")

    @staticmethod
    def may_use(source, name):
        return name in LIBRARIES.get(source.folder, ())

    def check_order(self, source, line, target):
        folder = target.rsplit("/", 1)[0]
        if folder not in FOLDERS or folder == source.folder:
            return
        if FOLDERS.index(folder) > FOLDERS.index(source.folder):
            self.fail(source, line, "order", f"{source.folder} comes before {folder}")
        elif folder in FORMATS and source.folder in WITHOUT_FORMATS:
            self.fail(source, line, "format", f"{source.folder} may not know {folder}")
        elif source.folder not in BACKENDS.get(folder, (source.folder,)):
            self.fail(source, line, "backend", f"{source.folder} may not know {folder}")

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
