#!/usr/bin/env python3
"""The reference of the public headers: how their comments are read, that it can be made without a warning or a dead
link, and that what has no comment is told."""
import os
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
TOOL = os.path.join(ROOT, "tools", "api-reference")
sys.path.insert(0, os.path.join(ROOT, "tools"))
from doc_comments import converted  # noqa: E402


def listed_headers():
    with open(os.path.join(ROOT, "api", "headers.txt"), encoding="utf-8") as stream:
        return stream.read().split()


def read(*path):
    with open(os.path.join(*path), encoding="utf-8") as stream:
        return stream.read()


class Comments(unittest.TestCase):
    maxDiff = None

    def becomes(self, before, after):
        self.assertEqual(converted(before), after)

    def stays(self, text):
        self.becomes(text, text)

    def test_the_banner_is_about_the_file(self):
        self.becomes("// Days of the year.\n// Why: docs/decisions/x.md\n#pragma once\n",
                     "/// Days of the year.\n/// Why: docs/decisions/x.md\n/// @file\n".replace("Days", "%Days"))

    def test_a_comment_is_about_what_stands_below_it(self):
        self.becomes("// two of them\n// at least\nint Count(int a,\n          int b);\n",
                     "/// two of them\n/// at least\nint Count(int a,\n          int b);\n")
        self.becomes("// a limit\n#define MOST 3\n", "/// a limit\n#define MOST 3\n")

    def test_it_counts_for_all_without_an_empty_line_between(self):
        self.becomes("// degrees\ndouble a();\ndouble b();\n\ndouble c();\n",
                     "/// degrees\ndouble a();\n/** degrees */ double b();\n\ndouble c();\n")
        self.becomes("// bits\n#define A 1\n#define B 2\n", "/// bits\n#define A 1\n#define B 2 /**< bits */\n")

    def test_a_comment_of_its_own_ends_that(self):
        self.becomes("// degrees\ndouble a();\ndouble b();  // hours\n// metres\ndouble c();\ndouble d();\n",
                     "/// degrees\ndouble a();\ndouble b();  ///< hours\n/// metres\ndouble c();\n"
                     "/** metres */ double d();\n")

    def test_one_behind_comes_before_one_above(self):
        self.becomes("// of a day\nint a;  // hours\nint b;  // minutes\n",
                     "/// @details of a day\nint a;  ///< hours\nint b;  ///< minutes\n")

    def test_a_class_and_a_word_of_access_end_it_too(self):
        self.becomes("struct A {\n    // hours\n    int a;\n};\nint b;\n",
                     "struct A {\n    /// hours\n    int a;\n};\nint b;\n")
        self.becomes("class A {\npublic:\n    // hours\n    int a;\nprotected:\n    int b;\n};\n",
                     "class A {\npublic:\n    /// hours\n    int a;\nprotected:\n    int b;\n};\n")

    def test_one_behind_goes_on_in_its_column(self):
        self.becomes("enum A {\n    kOne,  // the first,\n           // which counts\n    kTwo   // the last\n};\n",
                     "enum A {\n    kOne,  ///< the first,\n           ///< which counts\n"
                     "    kTwo   ///< the last\n};\n")
        self.becomes("int a;  // hours\n// degrees\nint b;\n", "int a;  ///< hours\n/// degrees\nint b;\n")

    def test_what_stands_in_a_function_is_for_its_readers(self):
        self.becomes("// gives 1\ninline int One() {\n    // why not\n    int one = 1;  // so\n    return one;\n}\n",
                     "/// gives 1\ninline int One() {\n    // why not\n    int one = 1;  // so\n    return one;\n}\n")
        self.becomes("// days\nconst int kDays[] = {\n    31,  // January\n    28,\n};\n// next\nint b;\n",
                     "/// days\nconst int kDays[] = {\n    31,  // January\n    28,\n};\n/// next\nint b;\n")
        self.becomes("struct A {\n    // by value\n"
                     "    bool operator==(const A& b) const { return !(*this != b); }\n    // next\n"
                     "    int b;\n};\n",
                     "struct A {\n    /// by value\n"
                     "    bool operator==(const A& b) const { return !(*this != b); }\n    /// next\n"
                     "    int b;\n};\n")

    def test_headings_and_what_names_nothing_new_have_none(self):
        self.stays("// ---- Life. ----\nvoid Live();\n")
        self.stays("// clang-format off\n#define A 1\n")
        self.stays("// of another header\nclass Day;\n")
        self.stays("// of another header\ntemplate <class T>\nclass Day;\n")
        self.stays("struct A : B {\n    // both\n    using B::B;\n    using B::operator=;\n    // sees all\n"
                   "    friend class C;\n    DECLARE_MAP()\n};\n")
        self.becomes("// what it is made of\nusing Node = int;\n", "/// what it is made of\nusing Node = int;\n")

    def test_what_overrides_does_not_take_the_comment_above(self):
        self.becomes("struct A : B {\n    // gives nothing\n    void One();\n    void Two() override;\n"
                     "    int Three() final { return 3; }\n};\n",
                     "struct A : B {\n    /// gives nothing\n    void One();\n    void Two() override;\n"
                     "    int Three() final { return 3; }\n};\n")

    def test_what_speaks_for_itself(self):
        self.becomes("struct A {\n    // empty\n    A();\n    ~A();\n    A(const A&) = delete;\n"
                     "    A& operator=(A&&) noexcept = default;\n};\n",
                     "struct A {\n    /// empty\n    A();\n    /** @cond */ ~A(); /** @endcond */\n"
                     "    /** Deleted: objects of this class are not copied. */ A(const A&) = delete;\n"
                     "    /** Member by member. */ A& operator=(A&&) noexcept = default;\n};\n")
        self.becomes("struct A {\n    // Ends it.\n    ~A();\n};\n", "struct A {\n    /// %Ends it.\n    ~A();\n};\n")

    def test_the_first_class_may_have_the_files(self):
        self.becomes("// a day\n#pragma once\nstruct A {\n};\nstruct B {\n};\n",
                     "/// a day\n/// @file\n/** a day */ struct A {\n};\nstruct B {\n};\n")

    def test_what_is_private_is_left_out(self):
        self.becomes("class A {\npublic:\n    int a;  // hours\n\nprivate:\n    struct B {\n        int b;\n"
                     "    };\n    int m_c;  // own\n};\nint d;\n",
                     "class A {\npublic:\n    int a;  ///< hours\n\nprivate:\n\n\n\n\n};\nint d;\n")
        self.becomes("class A {\nprotected:\n    DECLARE_MAP()\n\nprivate:\n    int m_c;\n};\n",
                     "class A {\nprotected:\n    DECLARE_MAP()\n\nprivate:\n\n};\n")

    def test_a_template_is_told_once(self):
        self.becomes("// more of them\ntemplate <class T>\nvoid List<T>::Grow(int n) {\n    Add(n);\n}\n\n"
                     "// next\nint b;\n",
                     "// more of them\n\n\n\n\n\n/// next\nint b;\n")

    def test_words_mean_themselves(self):
        self.becomes("// a < b & c, <name> of @x, 100% #1, \\n, 2 * 3 -- x_ `a < *b*`\nint a;\n",
                     "/// a \\< b \\& c, \\<name\\> of \\@x, 100\\% \\#1, \\\\n, 2 \\* 3 \\-- x\\_ `a < *b*`\nint a;\n")
        # A sentence's first word is no type, a word within one may be, and so may one with brackets.
        self.becomes("// Place of a Place. Place it. CString too. Place() gives\n// Place.\nint a;\n",
                     "/// %Place of a Place. %Place it. CString too. Place() gives\n/// Place.\nint a;\n")

    def test_code_and_lists_stay_what_they_are(self):
        self.becomes("// As follows:\n//\n//     a <b> * c\n//\n//   A        B * C\n//\n// - one\n//   of two\n"
                     "//   2. two\n// 24. of May\nint a;\n",
                     "/// %As follows:\n///\n///         a <b> * c\n///\n///       A        B * C\n///\n"
                     "/// - one\n///   of two\n///   2. two\n"
                     "/// 24\\. of May\nint a;\n")

    def test_no_header_of_the_tree_gains_or_loses_a_line(self):
        headers = listed_headers()
        self.assertGreater(len(headers), 200)
        for path in headers:
            text = read(ROOT, path)
            self.assertEqual(converted(text).count("\n"), text.count("\n"), path)


class Reference(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name
        self.output = os.path.join(self.root, "made")
        self.write("docs/api/Doxyfile", read(ROOT, "docs/api/Doxyfile"))
        self.write("docs/api/main.md", "# Days\n\nBegin with Length().\n")
        self.write("api/headers.txt", "facts/Day.h\n")
        self.write("facts/Day.h", "// Days.\n#pragma once\n\n// Hours, 0 to 24.\ndouble Length();\n")

    def write(self, name, text):
        path = os.path.join(self.root, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as stream:
            stream.write(text)

    def make(self, root, **environment):
        return subprocess.run([TOOL, "--root", root, "--version", "7.8.9", self.output], capture_output=True, text=True,
                              env={**os.environ, **environment}, check=False)

    def refused(self):
        done = self.make(self.root)
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        return done.stdout

    def page(self, name):
        return re.sub(r"\s+", " ", re.sub(r"<[^>]*>", "", read(self.output, "html", name)))

    def test_that_of_the_tree_has_all_headers_and_nothing_to_complain_of(self):
        done = self.make(ROOT)
        self.assertEqual((done.returncode, done.stdout), (0, os.path.join(self.output, "html", "index.html") + "\n"),
                         done.stderr)
        files = read(self.output, "html", "files.html")
        for header in listed_headers():
            self.assertIn(f">{os.path.basename(header)}</a>", files, header)
        self.assertIn("degrees, north positive", self.page("structSunDay.html"))
        self.assertIn("#include &lt;facts/SunDay.h&gt;", self.page("structSunDay.html"))
        self.assertIn("Never null", self.page("Resources_8h.html") + self.page("SettingsForm_8h.html"))
        self.assertNotIn("m_hSavedResource", self.page("classQcUtPushResource.html"))
        self.assertIn("7.8.9", self.page("index.html"))
        self.assertIn("classOrvoDataSetDlgBase.html", read(self.output, "html", "index.html"))

    def test_a_small_one_passes(self):
        done = self.make(self.root)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("Hours, 0 to 24.", self.page("Day_8h.html"))

    def test_what_has_no_comment_is_told_by_its_line(self):
        self.write("facts/Day.h", read(self.root, "facts/Day.h") + "\nvoid Shorten(double hours);\n")
        self.assertRegex(self.refused(), r"^facts/Day\.h:7: .*Shorten\(double hours\).* is not documented")

    def test_members_enumerators_and_macros_are_asked_for_too(self):
        for text, name in [("// A day.\nstruct Day {\n    int year;\n};\n", "year"), ("// A day.\nstruct Day {\n"
                            "};\nstruct Week {\n    // Which one.\n    int number;\n};\n", "Week"),
                           ("// A kind.\nenum Kind {\n    kShort\n};\n", "kShort"),
                           ("// A kind.\nenum class Kind { kLong, kShort };\n"
                            "", "kLong, kShort"), ("#define LONGEST 24\n", "LONGEST"),
                           ("// A day.\nclass Day {\nprotected:\n    void Turn();\n};\n", "Turn"),
                           ("// A day.\ntemplate <class T>\nstruct Day {\n    T Turn();\n};\n", "Turn")]:
            with self.subTest(name=name):
                self.write("facts/Day.h", "// Days.\n#pragma once\n\n// None.\nvoid Nothing();\n\n" + text)
                self.write("docs/api/main.md", "# Days\n")
                self.assertRegex(self.refused(), rf"{name}\b.* is not documented")

    def test_a_link_that_leads_nowhere_is_told(self):
        self.write("docs/api/main.md", "# Days\n\nSee [there](gone.html) and <a href=\"#gone\">here</a>.\n")
        said = self.refused()
        self.assertIn("index.html: gone.html leads nowhere", said)
        self.assertIn("index.html: index.html has no place gone", said)

    def test_says_what_is_missing(self):
        os.remove(os.path.join(self.root, "facts/Day.h"))
        done = self.make(self.root)
        self.assertEqual(done.returncode, 2)
        self.assertIn("facts/Day.h is not there", done.stderr)

    def test_says_which_package_is_missing(self):
        tools = os.path.join(self.root, "bin")
        os.makedirs(tools)
        os.symlink(sys.executable, os.path.join(tools, "python3"))
        done = self.make(self.root, PATH=tools)
        self.assertEqual(done.returncode, 2)
        self.assertIn("install the package doxygen", done.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=2)
