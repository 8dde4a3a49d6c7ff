#!/usr/bin/env python3
"""Lets tools/check-tidy ask a stand-in for clang-tidy, and counts what it was asked."""
import json
import os
import re
import shutil
import subprocess
import tempfile
import unittest

TOOL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "check-tidy")
NAMES = ("scene/Clean.cpp", "scene/Other.cpp")

# Says its version, or complains about sources that hold the word BAD; notes whom it was asked about.
TIDY = """#!/bin/sh
if [ "$1" = --version ]; then echo "version ${TIDY_VERSION-1}"; exit; fi
for last; do :; done
basename "$last" >> "$TIDY_LOG"
echo "$@" >> "$TIDY_LOG.words"
if grep -q BAD "$last"; then echo "it is bad"; exit 1; fi
"""
NINJA = """#!/bin/sh
for name in Clean Other; do
    printf '%s.o: #deps 2, deps mtime 1 (VALID)\\n    ../../scene/%s.cpp\\n    ../../scene/%s.h\\n\\n' $name $name $name
done
"""


class CheckTidy(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = os.path.realpath(temporary.name)
        self.log = os.path.join(self.folder, "log")
        for name, text in (("clang-tidy", TIDY), ("ninja", NINJA)):
            self.write(f"bin/{name}", text)
            os.chmod(os.path.join(self.folder, "bin", name), 0o755)
        self.make_checkout("one")

    def write(self, file, text):
        path = os.path.join(self.folder, file)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as stream:
            stream.write(text)

    def make_checkout(self, name):
        root = os.path.join(self.folder, name)
        build = os.path.join(root, "build", "release")
        for source in NAMES:
            self.write(f"{name}/{source}", "int x;")
            self.write(f"{name}/{source[:-4]}.h", "// header")
        self.write(f"{name}/.clang-tidy", "Checks: '*'")
        commands = [{"directory": build, "file": os.path.join(root, source),
                     "command": f"c++ -I{root} -o {os.path.basename(source)[:-4]}.o -c {root}/{source}"}
                    for source in NAMES]
        self.write(f"{name}/build/release/compile_commands.json", json.dumps(commands))

    def run_tool(self, checkout="one", **environment):
        """The exit code, what was printed, and whom clang-tidy was asked about."""
        open(self.log, "w", encoding="utf-8").close()
        environment = {**os.environ, "TIDY_LOG": self.log, "XDG_CACHE_HOME": os.path.join(self.folder, "cache"),
                       "PATH": os.path.join(self.folder, "bin") + ":" + os.environ["PATH"], **environment}
        done = subprocess.run([TOOL, "--root", os.path.join(self.folder, checkout)], capture_output=True, text=True,
                              env=environment)
        with open(self.log, encoding="utf-8") as file:
            return done.returncode, done.stdout + done.stderr, sorted(file.read().split())

    def test_a_clean_source_is_asked_about_once(self):
        self.assertEqual(self.run_tool()[::2], (0, ["Clean.cpp", "Other.cpp"]))
        self.assertEqual(self.run_tool()[::2], (0, []))

    def test_the_headers_of_every_room_count(self):
        self.run_tool()
        with open(self.log + ".words", encoding="utf-8") as file:
            found = re.search(r"--header-filter=(\S+)", file.read())
        for header in ("platform/base/CString.h", "module/zone/OrvoCity.h", "facts/SunDay.h", "scene/Scene.h",
                       "analysis/Window.h", "workbench/Texts.h"):
            self.assertRegex(os.path.join(self.folder, "one", header), found.group(1))
        self.assertNotRegex("/usr/include/c++/12/vector", found.group(1))

    def test_a_changed_source_or_header_is_asked_about_again(self):
        self.run_tool()
        for file, asked in (("scene/Clean.cpp", "Clean.cpp"), ("scene/Other.h", "Other.cpp")):
            self.write(f"one/{file}", "int y;")
            self.assertEqual(self.run_tool()[2], [asked])

    def test_other_checks_another_version_and_another_command_ask_again(self):
        self.run_tool()
        both = ["Clean.cpp", "Other.cpp"]
        self.assertEqual(self.run_tool(TIDY_VERSION="2")[2], both)
        self.write("one/.clang-tidy", "Checks: 'a'")
        self.assertEqual(self.run_tool()[2], both)
        path = os.path.join(self.folder, "one/build/release/compile_commands.json")
        with open(path, encoding="utf-8") as file:
            text = file.read()
        self.write(path, text.replace("c++ ", "c++ -DMORE ", 1))
        self.assertEqual(self.run_tool()[2], ["Clean.cpp"])

    def test_another_checkout_of_the_same_shares_the_verdicts(self):
        self.run_tool()
        self.make_checkout("two")
        self.assertEqual(self.run_tool("two")[::2], (0, []))
        shutil.rmtree(os.path.join(self.folder, "one"))
        self.assertEqual(self.run_tool("two")[::2], (0, []))

    def test_a_complaint_fails_and_is_never_remembered(self):
        self.write("one/scene/Clean.cpp", "BAD")
        for asked in (["Clean.cpp", "Other.cpp"], ["Clean.cpp"]):
            code, text, log = self.run_tool()
            self.assertEqual((code, log), (1, asked))
            self.assertIn("clang-tidy: scene/Clean.cpp\nit is bad", text)

    def test_a_source_that_a_test_compiles_again_is_asked_about_once(self):
        path = os.path.join(self.folder, "one/build/release/compile_commands.json")
        with open(path, encoding="utf-8") as file:
            commands = json.load(file)
        again = {**commands[0], "command": commands[0]["command"].replace("-o ", "-include pch.h -o tests/")}
        self.write(path, json.dumps(commands + [again]))
        self.assertEqual(self.run_tool()[::2], (0, ["Clean.cpp", "Other.cpp"]))

    def test_a_source_that_was_not_built_is_told(self):
        self.write("bin/ninja", "#!/bin/sh\n")
        code, text, log = self.run_tool()
        self.assertEqual((code, log), (1, []))
        self.assertIn("has not been built", text)


if __name__ == "__main__":
    unittest.main()
