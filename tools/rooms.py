#!/usr/bin/env python3
"""The rooms of the tree: the one list that all have who ask what there is and what it may know.

tools/check-layers, tools/check-tidy, tools/check-sources and tools/changed-rooms read it, and so do the tests of the
translations and of the floors. A new room gets a line here; tests/layers says what else it needs.

usage: tools/rooms.py --sources      every C++ source and header of the project, one a line
"""
import argparse
import os
from dataclasses import dataclass

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))

# Standard C++. A name that stands neither here nor among the libraries is refused.
STANDARD = frozenset("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
    clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint
    cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
    memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator
    semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string string_view
    strstream syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
    valarray variant vector version""".split())

# What can be included beside the project's own files and standard C++: by how such an include begins.
SYSTEM = "the operating system"
QT, OPENGL, LIBXML2, FMT, ICU = "Qt", "OpenGL", "libxml2", "{fmt}", "ICU"
CLI11, JSON, LIBEDIT = "CLI11", "nlohmann-json", "libedit"
EMBREE, GMP, GTEST, BENCHMARK = "Embree", "GMP", "GoogleTest", "Google Benchmark"
LIBRARIES = {
    SYSTEM: r"(sys/\w+|cxxabi|dirent|dlfcn|elf|errno|fcntl|iconv|link|poll|pthread|pwd|sched|signal|stdio|stdlib|string|termios"
            r"|time|unistd)\.h$",
    QT: r"Q\w+$|Qt\w+/",
    OPENGL: r"(GL|EGL|GLES\d?)/",
    LIBXML2: r"libxml/",
    FMT: r"fmt/",
    ICU: r"unicode/",
    CLI11: r"CLI/",
    JSON: r"nlohmann/",
    LIBEDIT: r"(histedit|editline/readline)\.h$",
    EMBREE: r"embree\d/",
    GMP: r"gmp(xx)?\.h$",
    GTEST: r"g(test|mock)/",
    BENCHMARK: r"benchmark/",
}


# Headers that the build makes and installs (cmake/StampScript.cmake).
MADE_HEADERS = ("platform/host/BuildStamp.h",)


@dataclass(frozen=True)
class Room:
    """A folder, and what its sources may include beside its own files, the lower floors and standard C++."""
    folder: str
    libraries: tuple = ()
    neighbours: tuple = ()  # rooms of its own floor
    lower: tuple = ()       # the only rooms of lower floors, or components for all of theirs; empty for all
    tests_in: str = ""      # its folder under tests/, where that has another name

    def may_look_down_to(self, other):
        return not self.lower or other.folder in self.lower or other.component in self.lower

    @property
    def component(self):
        return self.folder.split("/")[0]

    @property
    def tests(self):
        return self.tests_in or self.folder.split("/")[-1]


def workbench(name, libraries, neighbours, lower=()):
    return Room(f"workbench/{name}", libraries, ("workbench", *(f"workbench/{other}" for other in neighbours)), lower,
                tests_in="workbench")


# What a calculation stands on: the module and the platform, but no window.
CALCULATING = ("platform/base", "platform/geometry", "platform/host", "module")

# Ground floor first. Rooms on one floor do not know each other, save those that are named as neighbours.
FLOORS = [
    [Room("platform/base", (SYSTEM, LIBXML2, FMT, ICU))],
    [Room("platform/geometry"), Room("platform/media", (SYSTEM, QT, OPENGL)), Room("platform/host", (SYSTEM,))],
    [Room("platform/window", (SYSTEM, QT))],
    [Room("module/containers"), Room("module/resources")],
    [Room("module/calendar"), Room("module/geometry", (OPENGL,)), Room("module/records"), Room("module/avi")],
    [Room("module/controls")],
    [Room("module/zone")],
    [Room("module/settings")],
    [Room("module/frame")],
    [Room("module")],
    [Room("facts", lower=CALCULATING)],
    [Room("scene", lower=(*CALCULATING, "facts"))],
    [Room("analysis", lower=(*CALCULATING, "facts", "scene"))],
    [
        Room("workbench"),  # what all of its rooms share
        workbench("terminal", (SYSTEM, JSON, LIBEDIT), ()),
        workbench("view", (QT, OPENGL), ()),
        workbench("film", (SYSTEM, QT), ("terminal", "view")),
        workbench("report", (SYSTEM, QT), ("terminal", "view")),
        workbench("commands", (SYSTEM, QT, CLI11, JSON), ("terminal", "film", "report")),
        workbench("panel", (QT, JSON), ("view", "film", "commands")),
        workbench("window", (SYSTEM, QT), ("terminal", "view", "report", "commands", "panel")),
        workbench("entry", (), ("terminal", "commands", "window")),
        # The program, which links the platform only.
        workbench("host", (SYSTEM,), ("entry",), lower=("platform",)),
    ],
]
FLOOR_OF = {room.folder: floor for floor, rooms in enumerate(FLOORS) for room in rooms}
ROOMS = {room.folder: room for rooms in FLOORS for room in rooms}
COMPONENTS = tuple(dict.fromkeys(room.component for room in ROOMS.values()))

# The frame's ground: every room of the module and above may include these, and they include nothing of the module.
GROUND = ("module/frame/Resources.h", "module/frame/ConfigDictionaries.h", "module/frame/ConfigFiles.h")

# Doors: one unit may include another that knows it, because a method of its class hands the work over; and why it must.
DOORS = {
    ("platform/base/QcDtDictionary", "platform/base/DictionaryReader"): "a dictionary has a method that reads its file",
    ("platform/base/QcDtDictionary", "platform/base/DictionaryWriter"): "a dictionary has a method that saves its file",
    ("platform/window/QcUiGrid", "platform/window/QcUiGridEdit"): "a grid makes its editor, which asks it for the cell",
    ("module/geometry/QcGeFace3dEX", "module/geometry/Cylinder"): "a face has a method that builds a half cylinder",
}

# The components that show texts, and the name of their table in a language file.
TABLES = {"platform": "ORVOPLATFORM", "module": "ORVODATABASE", "facts": "ORVOFACTS", "workbench": "ORVOWORKBENCH"}

# Folders under tests/ that are no one room's: they concern the whole, or help all.
TESTS_OF_ALL = ("languages", "layers", "user")
TESTS_SUPPORT = "support"

# What stands around the house, and the libraries that it may use. It may include every room.
ANNEXES = {
    "tests": (SYSTEM, QT, OPENGL, EMBREE, GMP, GTEST, JSON),
    "bench": (SYSTEM, QT, LIBXML2, EMBREE, BENCHMARK),
    "fuzz": (SYSTEM,),
    "tools": (QT,),
    "examples": (),
}

# How a source ends, and how it could but does not: the tools would pass such a file by.
ENDINGS = (".h", ".cpp")
OTHER_ENDINGS = (".c", ".cc", ".cxx", ".c++", ".hh", ".hpp", ".hxx", ".h++", ".inl", ".ipp", ".tpp")


def room_of(path):
    """The room a file lies in, or None. Folders in a room belong to it, unless rooms of their own lie beside them."""
    own = folder = os.path.dirname(path)
    while folder and folder not in ROOMS:
        folder = os.path.dirname(folder)
    if folder != own and any(other.startswith(folder + "/") for other in ROOMS):
        return None
    return ROOMS.get(folder)


def top_folders(root):
    """The folders of the tree, whatever they are; builds are not of it."""
    return [name for name in sorted(os.listdir(root))
            if os.path.isdir(os.path.join(root, name)) and not name.startswith((".", "build"))]


def sources(root, tops, endings=ENDINGS):
    """Every C++ source and header under some folders of the tree, seen from its root."""
    for top in tops:
        for folder, _, files in sorted(os.walk(os.path.join(root, top))):
            for name in sorted(files):
                if name.endswith(endings):
                    yield os.path.relpath(os.path.join(folder, name), root)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--root", default=ROOT)
    parser.add_argument("--sources", action="store_true", required=True)
    options = parser.parse_args()
    for path in sources(options.root, (*COMPONENTS, *ANNEXES)):
        print(path)


if __name__ == "__main__":
    main()
