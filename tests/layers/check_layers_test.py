#!/usr/bin/env python3
"""Makes small trees with one mistake each, and asks whether tools/check-layers finds it."""
import os
import subprocess
import tempfile
import unittest

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "check-layers")

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


def check(changes):
    with tempfile.TemporaryDirectory() as root:
        for path, text in {**SOUND, **changes}.items():
            path = os.path.join(root, path)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
        done = subprocess.run([CHECK, "--root", root], capture_output=True, text=True)
        return done.returncode, done.stdout


class CheckLayers(unittest.TestCase):
    def refuses(self, changes, words):
        code, text = check(changes)
        self.assertEqual(code, 1, text)
        self.assertIn(words, text)
        self.assertIn("1 complaints", text)

    def test_a_sound_tree_passes(self):
        self.assertEqual(check({})[0], 0)

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

    def test_the_program_may_not_include_the_module(self):
        self.refuses({"workbench/host/X.cpp": '// X.\n#include "calendar/OrvoDate.h"\n'}, "the program includes")

    def test_the_workbench_has_floors_of_its_own(self):
        for path, target in (("workbench/commands/X.cpp", "workbench/window/Y.h"),
                             ("workbench/commands/X.cpp", "workbench/entry/Y.h"),
                             ("workbench/terminal/X.cpp", "workbench/commands/Y.h"),
                             ("workbench/terminal/X.h", "workbench/view/Y.h"),
                             ("workbench/entry/X.cpp", "workbench/host/Y.h")):
            with self.subTest(path=path, target=target):
                self.refuses({path: f'// X.\n#include "{target}"\n', target: "// Y.\n"}, "lower floor")
        code, text = check({"workbench/window/X.cpp": '// X.\n#include "workbench/commands/Y.h"\n',
                            "workbench/commands/Y.h": '// Y.\n#include "workbench/Texts.h"\n',
                            "workbench/Texts.h": "// T.\n"})
        self.assertEqual(code, 0, text)

    def test_a_circle_of_headers_is_found(self):
        self.refuses({"module/calendar/A.h": '// A.\n#include "calendar/B.h"\n',
                      "module/calendar/B.h": '// B.\n#include "calendar/A.h"\n'}, "in a circle")

    def test_a_library_stays_in_its_rooms(self):
        for room, include in [("platform/host", "libxml/tree.h"), ("module/calendar", "QString"),
                              ("platform/base", "QtCore/QString"), ("platform/host", "fmt/printf.h"),
                              ("module/containers", "GL/gl.h"), ("platform/base", "CLI/CLI.hpp")]:
            with self.subTest(include=include):
                self.refuses({f"{room}/X.cpp": f"// X.\n#include <{include}>\n"}, "is not for")

    def test_a_window_header_may_not_show_qt(self):
        self.refuses({"platform/window/X.h": "// X.\n#include <QWidget>\n"}, "shows Qt")

    def test_the_module_may_not_speak_to_the_system(self):
        self.refuses({"module/calendar/X.cpp": "// X.\n#include <unistd.h>\n"}, "operating system")

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
