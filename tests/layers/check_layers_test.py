#!/usr/bin/env python3
"""Makes small trees with one mistake each, and asks whether tools/check-layers finds it."""
import contextlib
import io
import os
import runpy
import subprocess
import sys
import tempfile
import unittest

TOOLS = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools"))
CHECK = os.path.join(TOOLS, "check-layers")
sys.path.insert(0, TOOLS)
MAIN = runpy.run_path(CHECK)["main"]

TEXT = """// Text.
#include <string>
#define TEXT_CHECK(text) ((text).IsSound())
class CString {
public:
    CString() = default;
    explicit CString(const wchar_t* text, int length = -1) : m_text(text) { Store(text); }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    std::wstring_view View() const { return m_text; }
    bool IsSound() const;
private:
    void Store(const wchar_t* text);
    std::wstring m_text;
};
namespace Marks {
enum Mark : int { kPlain, kBold = 2 };
}
struct Place {
    int row, column;
    struct Inner* parent = nullptr;
};
using Handle = void*;
inline constexpr int kWidest = sizeof(int);
template <class T>
ORVO_API bool ReadNumber(const CString& text, T (*reader)(int));
[[nodiscard]] std::string toUtf8(const CString& text);
"""

# What the framework of the small trees has.
NAMES = """# Names.
[text.h]
CString GetLength Handle
"""

SOUND = {
    "tools/framework-names.txt": NAMES,
    "platform/base/CString.h": TEXT,
    "platform/base/Reader.cpp": '// Reads.\n#include <libxml/xmlreader.h>\n#include "platform/base/CString.h"\n',
    "module/frame/Resources.h": '// Texts.\n#include "platform/base/CString.h"\n',
    "module/containers/QcList.h": "// List.\n#include <cstddef>\n",
    "module/calendar/OrvoDate.h": '// Date.\n#include "containers/QcList.h"\n',
    "module/calendar/OrvoDate.cpp": '// Date.\n#include "calendar/OrvoDate.h"\n#include "frame/Resources.h"\n',
    "workbench/host/Main.cpp": '// Main.\n#include "platform/base/CString.h"\n',
}


def write(root, files):
    for path, text in files.items():
        path = os.path.join(root, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)


def check(changes, doors=()):
    with tempfile.TemporaryDirectory() as root:
        write(root, {**SOUND, **changes})
        with contextlib.redirect_stdout(io.StringIO()) as said:
            code = MAIN(["--root", root], doors)  # a process for each of so many trees would take long
        return code, said.getvalue()


def including(path, name):
    """A source that includes one header; in quotation marks where that is the project's."""
    return {path: f"// X.\n#include {name}\n"}


class CheckLayers(unittest.TestCase):
    def refuses(self, changes, words, doors=()):
        code, text = check(changes, doors)
        self.assertEqual(code, 1, text)
        self.assertIn(words, text)
        self.assertIn("1 complaints", text)

    def accepts(self, changes, doors=()):
        code, text = check(changes, doors)
        self.assertEqual(code, 0, text)

    def test_a_sound_tree_passes(self):
        self.accepts({})
        with tempfile.TemporaryDirectory() as root:
            write(root, SOUND)
            self.assertEqual(subprocess.run([CHECK, "--root", root], capture_output=True).returncode, 0)

    def test_an_empty_tree_does_not_pass(self):
        with tempfile.TemporaryDirectory() as root:
            self.assertEqual(subprocess.run([CHECK, "--root", root], capture_output=True).returncode, 1)

    def test_the_platform_may_not_include_the_module(self):
        self.refuses({"platform/base/X.cpp": '// X.\n#include "module/frame/Resources.h"\n'}, "the platform includes")

    def test_a_room_may_not_reach_up(self):
        self.refuses({"module/containers/X.h": '// X.\n#include "calendar/OrvoDate.h"\n'}, "lower floor")

    def test_a_room_may_not_reach_sideways(self):
        self.refuses({"module/records/X.h": '// X.\n#include "calendar/OrvoDate.h"\n'}, "lower floor")

    def test_the_ground_may_not_include_the_module(self):
        self.refuses({"module/frame/Resources.h": '// T.\n#include "containers/QcList.h"\n'}, "the frame's ground")

    def test_only_the_ground_of_the_frame_is_for_all(self):
        self.refuses({"module/frame/Entry.h": "// E.\n",
                      "module/calendar/X.h": '// X.\n#include "frame/Entry.h"\n'}, "lower floor")

    def test_the_program_knows_the_platform_only(self):
        self.refuses(including("workbench/host/X.cpp", '"calendar/OrvoDate.h"'), "is to know platform only")
        self.refuses(including("workbench/host/X.cpp", '"frame/Resources.h"'), "is to know platform only")
        self.refuses({**including("workbench/host/X.cpp", '"scene/Y.h"'), "scene/Y.h": "// Y.\n"},
                     "is to know platform only")

    def test_the_rooms_of_the_workbench_know_those_that_are_named(self):
        for path, target in (("workbench/commands/X.cpp", "workbench/window/Y.h"),
                             ("workbench/commands/X.cpp", "workbench/view/Y.h"),
                             ("workbench/commands/X.cpp", "workbench/entry/Y.h"),
                             ("workbench/terminal/X.cpp", "workbench/commands/Y.h"),
                             ("workbench/terminal/X.h", "workbench/view/Y.h"),
                             ("workbench/view/X.h", "workbench/terminal/Y.h"),
                             ("workbench/entry/X.cpp", "workbench/host/Y.h"),
                             ("workbench/host/X.cpp", "workbench/commands/Y.h"),
                             ("workbench/X.h", "workbench/terminal/Y.h")):
            with self.subTest(path=path, target=target):
                self.refuses({**including(path, f'"{target}"'), target: "// Y.\n"}, "lower floor")
        self.accepts({**including("workbench/window/X.cpp", '"workbench/commands/Y.h"'),
                      **including("workbench/commands/Y.h", '"workbench/terminal/Z.h"'),
                      **including("workbench/terminal/Z.h", '"workbench/Texts.h"'), "workbench/Texts.h": "// T.\n"})

    def test_every_source_lies_in_a_room(self):
        self.refuses({"module/attic/X.cpp": "// X.\n"}, "module/attic/X.cpp: lies in no room")
        self.refuses({"workbench/attic/X.cpp": "// X.\n"}, "workbench/attic/X.cpp: lies in no room")
        self.refuses({**including("scene/X.cpp", '"bench/Y.h"'), "bench/Y.h": "// Y.\n"}, "which lies in no room")
        self.accepts({"platform/window/shelf/X.cpp": "// A folder in a room.\n"})

    def test_a_circle_of_headers_is_found(self):
        self.refuses({**including("module/calendar/A.h", '"calendar/B.h"'),
                      **including("module/calendar/B.h", '"calendar/A.h"')}, "in a circle")

    def test_a_circle_through_sources_is_found(self):
        self.refuses({"module/calendar/A.h": "// A.\n", "module/calendar/C.h": "// C.\n",
                      **including("module/calendar/A.cpp", '"calendar/B.h"'),
                      **including("module/calendar/B.h", '"calendar/C.h"'),
                      **including("module/calendar/C.cpp", '"calendar/A.h"')},
                     "3 units include each other in a circle: module/calendar/A -> module/calendar/B -> "
                     "module/calendar/C -> module/calendar/A\n")

    def test_a_circle_through_several_rooms_is_found(self):
        self.refuses(including("module/frame/Resources.cpp", '"calendar/OrvoDate.h"'),
                     "in a circle: module/calendar/OrvoDate -> module/frame/Resources -> module/calendar/OrvoDate\n")

    def test_a_source_without_a_header_belongs_to_the_header_that_begins_its_name(self):
        around = {"scene/Sun.h": "// S.\n", **including("scene/Ray.h", '"scene/Sun.h"')}
        for name in ("Sun", "SunWords", "Sun2"):
            with self.subTest(name=name):
                self.refuses({**around, **including(f"scene/{name}.cpp", '"scene/Ray.h"')},
                             "in a circle: scene/Ray -> scene/Sun -> scene/Ray\n")
        self.accepts({**around, **including("scene/Sunny.cpp", '"scene/Ray.h"')})
        self.accepts({**around, **including("scene/SunWords.cpp", '"scene/Ray.h"'), "scene/SunWords.h": "// W.\n"})
        self.refuses({**around, "scene/SunWords.h": "// W.\n", **including("scene/SunWordsOf.cpp", '"scene/Back.h"'),
                      **including("scene/Back.h", '"scene/SunWords.h"')}, "scene/Back -> scene/SunWords -> scene/Back")

    def test_a_door_is_permitted_and_closes_a_circle(self):
        pair = {"scene/A.h": "// A.\n", **including("scene/AFile.cpp", '"scene/B.h"'),
                **including("scene/B.h", '"scene/A.h"')}
        door = [("scene/A", "scene/B")]
        self.refuses(pair, "in a circle: scene/A -> scene/B -> scene/A")
        self.accepts(pair, door)
        self.refuses({**pair, "scene/B.h": "// B.\n"}, "scene/A -> scene/B: is no door", door)
        self.refuses({**pair, "scene/AFile.cpp": "// F.\n"}, "scene/A -> scene/B: is no door", door)
        self.refuses({}, "scene/A -> scene/B: is no door", door)
        far = {**pair, **including("scene/B.h", '"scene/C.h"'), **including("scene/C.h", '"scene/A.h"')}
        self.accepts(far, door)
        self.refuses({**far, **including("scene/AWords.cpp", '"scene/C.h"')}, "scene/A -> scene/C -> scene/A", door)

    def test_a_folder_within_a_room_is_for_that_room_only(self):
        inner = {"platform/window/shelf/Y.h": "// Y.\n"}
        for path in ("workbench/window/X.cpp", "module/zone/X.cpp"):
            with self.subTest(path=path):
                self.refuses({**inner, **including(path, '"platform/window/shelf/Y.h"')}, "for platform/window only")
        for path in ("bench/X.cpp", "fuzz/X.cpp", "tools/X.cpp", "examples/X.cpp"):
            with self.subTest(path=path):
                self.refuses({**inner, **including(path, '"platform/window/shelf/Y.h"')}, "for its room only")
        for path in ("platform/window/X.cpp", "platform/window/drawer/X.cpp", "tests/window/X.cpp"):
            with self.subTest(path=path):
                self.accepts({**inner, **including(path, '"platform/window/shelf/Y.h"')})

    def test_what_calculates_knows_no_window(self):
        for room in ("facts", "scene", "analysis"):
            for target in ("platform/window/Y.h", "platform/media/Y.h"):
                with self.subTest(room=room, target=target):
                    self.refuses({target: "// Y.\n", **including(f"{room}/X.cpp", f'"{target}"')},
                                 f"{room} includes {target}, and is to know platform/base, platform/geometry,")
            self.accepts({"platform/host/Y.h": "// Y.\n", **including(f"{room}/X.h", '"platform/host/Y.h"'),
                          **including(f"{room}/Y.h", '"frame/Resources.h"'),
                          **including(f"{room}/Z.h", '"calendar/OrvoDate.h"')})
        for room in ("scene", "analysis"):
            self.accepts({"facts/Y.h": "// Y.\n", **including(f"{room}/X.h", '"facts/Y.h"')})

    def test_a_source_that_no_tool_reads_is_noticed(self):
        for ending in ("hpp", "hh", "hxx", "cc", "cxx", "c", "ipp", "inl"):
            for folder in ("scene", "tests/scene", "attic"):
                with self.subTest(ending=ending, folder=folder):
                    self.refuses({f"{folder}/X.{ending}": "// X.\n#include <QString>\n"}, "a source ends in .h or .cpp")
        for path in ("attic/X.cpp", "attic/deep/X.h", "docs/X.cpp", "X.cpp", "X.h"):
            with self.subTest(path=path):
                self.refuses({path: "// X.\n"}, f"{path}: lies in no room")
        self.accepts({"build/X.cpp": "", ".git/X.hpp": "", "docs/x.md": ""})

    def test_a_chain_is_no_circle(self):
        self.accepts({**including("scene/A.cpp", '"scene/A.h"'), "scene/A.h": "// A.\n",
                      **including("scene/B.cpp", '"scene/A.h"'), **including("scene/C.cpp", '"scene/A.h"')})

    def test_a_library_stays_in_its_rooms(self):
        for place, include in [("platform/host", "libxml/tree.h"), ("module/calendar", "QString"),
                               ("platform/base", "QtCore/QString"), ("scene", "QtCore"), ("scene", "QtGui"),
                               ("platform/base", "Qt"), ("platform/host", "fmt/printf.h"),
                               ("module/containers", "GL/gl.h"), ("platform/window", "GL/gl.h"),
                               ("platform/base", "CLI/CLI.hpp"), ("workbench/commands", "libxml/xmlreader.h"),
                               ("workbench/terminal", "QString"), ("workbench/host", "CLI/CLI.hpp"),
                               ("workbench/window", "histedit.h"), ("workbench/view", "embree3/rtcore.h"),
                               ("scene", "GL/gl.h"), ("scene", "nlohmann/json.hpp"), ("fuzz", "embree3/rtcore.h"),
                               ("tests", "benchmark/benchmark.h"), ("examples", "QWidget")]:
            with self.subTest(place=place, include=include):
                self.refuses(including(f"{place}/X.cpp", f"<{include}>"), f"is not for {place}")

    def test_the_facts_and_the_analysis_take_no_library(self):
        for place in ("facts", "analysis"):
            for include in ("QString", "libxml/tree.h", "fmt/printf.h", "GL/gl.h", "CLI/CLI.hpp", "nlohmann/json.hpp",
                            "histedit.h", "embree3/rtcore.h", "gmpxx.h"):
                with self.subTest(place=place, include=include):
                    self.refuses(including(f"{place}/X.cpp", f"<{include}>"), f"is not for {place}")

    def test_a_library_serves_its_rooms(self):
        for place, include in [("platform/media", "QImage"), ("platform/media", "EGL/egl.h"),
                               ("module/geometry", "GL/gl.h"), ("workbench/view", "GL/gl.h"),
                               ("workbench/commands", "CLI/CLI.hpp"), ("workbench/terminal", "histedit.h"),
                               ("tests/analysis", "embree3/rtcore.h"), ("bench", "embree3/rtcore.h")]:
            with self.subTest(place=place, include=include):
                self.accepts(including(f"{place}/X.cpp", f"<{include}>"))

    def test_a_library_that_nobody_knows_is_for_no_room(self):
        for place in ("platform/base", "module/calendar", "facts", "workbench/commands", "tests/base"):
            with self.subTest(place=place):
                for name in ("boost/optional.hpp", "zlib.h", "Eigen", "experimental/map", "strin", "string.hpp"):
                    self.refuses(including(f"{place}/X.cpp", f"<{name}>"), f"{name} is neither standard C++")

    def test_a_window_header_may_not_show_qt(self):
        for name in ("QWidget", "QtWidgets", "QtWidgets/QWidget"):
            self.refuses(including("platform/window/X.h", f"<{name}>"), f"shows Qt ({name})")

    def test_only_the_platform_and_the_workbench_speak_to_the_system(self):
        for room in ("module/calendar", "facts", "scene", "analysis", "platform/geometry", "workbench/entry"):
            with self.subTest(room=room):
                self.refuses(including(f"{room}/X.cpp", "<unistd.h>"), f"{room} includes the operating system's")

    def test_a_file_says_what_it_is_for(self):
        self.refuses({"module/calendar/X.cpp": "#include <string>\n"}, "what it is for")

    def test_the_module_may_use_the_frameworks_names(self):
        code, text = check({"module/calendar/X.cpp": "// X.\nHandle Of(CString text) { return text.GetLength(); }\n"})
        self.assertEqual(code, 0, text)

    def test_the_module_may_not_use_other_names_of_the_platform(self):
        for name, use in [("View", "text.View()"), ("View", "&CString::View"), ("TEXT_CHECK", "TEXT_CHECK(text)"),
                          ("IsSound", "pointer->IsSound()"), ("Mark", "Mark(1)"), ("kBold", "kBold"),
                          ("Place", "new Place"), ("column", "place.column"), ("row", "place->row"),
                          ("parent", "where.parent"), ("kWidest", "kWidest + 1"), ("ReadNumber", "ReadNumber(text, 0)"),
                          ("toUtf8", "1 && toUtf8(text)"), ("toUtf8", "::toUtf8(text)")]:
            with self.subTest(use=use):
                self.refuses({"module/calendar/X.cpp": f"// X.\nauto x = {use};\n"}, f"{name} (platform/base/CString.h)")

    def test_names_of_its_own_are_the_modules(self):
        for own in ["int row = column + parent;", "Type row(5);", 'auto x = "View()"; // View()', "char c = '\\'';",
                    "struct Mark { int column; }; int x = mark.column + Mark().column;", "/* kBold\n kBold */",
                    "int View() { return 1; } int x = View();", "void Store(int); auto x = Store(1);"]:
            with self.subTest(own=own):
                code, text = check({"module/calendar/X.cpp": f"// X.\n{own}\n"})
                self.assertEqual(code, 0, text)

    def test_naming_a_class_of_the_platform_does_not_make_it_the_modules(self):
        self.refuses({"module/calendar/X.cpp": "// X.\nstruct Place;\nPlace* x;\n"}, "Place (platform/base/CString.h)")

    def test_the_standard_librarys_texts_are_not_the_frameworks(self):
        for name in ["string", "wstring", "string_view", "wstring_view"]:
            with self.subTest(name=name):
                self.refuses({"module/calendar/X.cpp": f"// X.\nstd::{name} x;\n"}, f"std::{name} is not")

    def test_the_list_names_only_what_there_is(self):
        self.refuses({"tools/framework-names.txt": NAMES + "GetLenght  # with a comment\n"}, "GetLenght is no name")

    def test_the_list_is_needed(self):
        with tempfile.TemporaryDirectory() as root:
            os.makedirs(os.path.join(root, "module/calendar"))
            with open(os.path.join(root, "module/calendar/X.cpp"), "w", encoding="utf-8") as file:
                file.write("// X.\n")
            done = subprocess.run([CHECK, "--root", root], capture_output=True, text=True)
            self.assertEqual(done.returncode, 1)
            self.assertIn("framework-names.txt is missing", done.stdout)

    def test_an_unknown_file_is_noticed(self):
        self.refuses({"module/calendar/X.cpp": '// X.\n#include "Gone.h"\n'}, "not a file of the project")


if __name__ == "__main__":
    unittest.main()
