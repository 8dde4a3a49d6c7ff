#!/usr/bin/env python3
"""Whether the cook-book is true: all of it is built in an empty folder, by its own commands, and each example prints what
stands behind it."""
import os
import re
import shutil
import subprocess
import tempfile

import cookbook
from example import HERE, PREFIX, ProgramTest, build_folder, main

FEWEST_RECIPES = 10


class CookBook(ProgramTest):
    @classmethod
    def setUpClass(cls):
        place = tempfile.mkdtemp(prefix="orvo-cookbook-")
        cls.addClassCleanup(shutil.rmtree, place)
        cls.text = cookbook.page()
        cls.book = os.path.join(place, "empty")
        for name, content in cookbook.files(cls.text).items():
            path = os.path.join(cls.book, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as stream:
                stream.write(content)
        # Warnings are errors here, whatever the page's own commands say of that.
        flags = dict(os.environ, CXXFLAGS="-Wall -Wextra -Wpedantic -Werror", CMAKE_GENERATOR="Ninja")
        (commands,) = cookbook.blocks(cls.text, "sh")
        for command in commands.splitlines():
            command = re.sub(r"\bPREFIX\b", PREFIX, command)
            done = subprocess.run(command, shell=True, capture_output=True, text=True, timeout=900, cwd=cls.book,
                                  check=False, env=flags)
            if done.returncode:
                raise AssertionError(f"{command}\n{done.stdout[-4000:]}{done.stderr[-4000:]}")
        build_folder(os.path.join(HERE, "answering"), os.path.join(place, "answering"))
        cls.answering = os.path.join(place, "answering", "build", "answering.so")

    def test_examples_are_true(self):
        path = os.path.join(PREFIX, "bin") + ":" + os.environ["PATH"]
        examples = cookbook.examples(self.text)
        self.assertGreater(len(examples), 2 * FEWEST_RECIPES)
        for command, printed in examples:
            with self.subTest(command=command):
                done = subprocess.run(["sh", "-c", f"exec 2>&1; {command}"], capture_output=True, timeout=120, check=False,
                                      env=self.environment(LANG="en_US.UTF-8", PATH=path), cwd=self.book)
                self.assertEqual(done.stdout.decode(), printed)

    def test_the_dialog_answers_what_stands_there(self):
        recipe = next(part for part in cookbook.recipes(self.text).values() if "```text" in part)
        (printed,) = cookbook.blocks(recipe, "text")
        answer = self.orvo("--plugin", os.path.join(self.book, "build", "roof.so"), "--plugin", self.answering,
                           text="RoofPitch\n", ANSWERS="IDC_1001=35")
        self.assertIn("Roof", answer.err)
        self.assertIn(printed, answer.out)
        refused = self.orvo("--plugin", os.path.join(self.book, "build", "roof.so"), "--plugin", self.answering,
                            text="RoofPitch\n", ANSWERS="IDC_1001=91")
        self.assertIn("it stayed open", refused.err)
        self.assertNotIn("noon sun", refused.out)

    def test_every_recipe_is_built_and_tried(self):
        recipes = cookbook.recipes(self.text)
        self.assertGreaterEqual(len(recipes), FEWEST_RECIPES)
        self.assertEqual(list(recipes), list(range(1, len(recipes) + 1)))
        for number, part in recipes.items():
            with self.subTest(recipe=number):
                (source,) = [name for name in cookbook.files(part) if name.endswith(".cpp")]
                name = os.path.basename(source)[:-len(".cpp")]
                made = os.path.join(self.book, "build", name)
                self.assertTrue(os.path.exists(made) or os.path.exists(made + ".so"), made)
                tried = "".join(command for command, _ in cookbook.examples(part)) + "".join(cookbook.blocks(part, "text"))
                self.assertTrue(tried)

    def broken(self, name, source, *flags):
        """A plug-in as somebody may get it wrong."""
        path = os.path.join(self.home, name + ".so")
        written = os.path.join(self.home, name + ".cpp")
        with open(written, "w", encoding="utf-8") as stream:
            stream.write(source)
        headers = "-I" + os.path.join(PREFIX, "include", "orvo")
        subprocess.run(["g++", "-std=c++20", "-shared", "-fPIC", headers, written, "-o", path, *flags], check=True)
        return path

    def test_a_plug_in_that_does_not_load_is_found_in_the_table(self):
        table = re.search(r"^\| what it says.*?\n\n", self.text, re.MULTILINE | re.DOTALL).group()
        said = re.findall(r"^\| `([^`]+)` \|", table, re.MULTILINE)
        bare = 'extern "C" __attribute__((visibility("default"))) int acrxEntryPoint(int, void*) { return %s; }\n'
        entry = '#include "platform/host/HostMessages.h"\n' + bare
        whole = self.broken("whole", entry % "0")
        short = os.path.join(self.home, "short.so")
        with open(whole, "rb") as good, open(short, "wb") as cut:
            cut.write(good.read()[:5000])
        self.broken("libneeded", "int Needed() { return 0; }\n", "-Wl,-soname,libneeded.so")
        without = self.broken("without", "int Needed();\n" + entry % "Needed()", f"-L{self.home}", "-lneeded")
        os.remove(os.path.join(self.home, "libneeded.so"))
        debug = self.broken("debug", entry % "0", "-D_GLIBCXX_DEBUG")
        throwing = self.broken("throwing", "#include <stdexcept>\n" + entry % '(throw std::runtime_error("thrown"), 0)')
        paths = [os.path.join(self.home, "absent.so"), short, os.path.join(self.home, "whole.cpp"), debug,
                 self.broken("unsaid", bare % "0"), self.broken("undefined", "int Nowhere();\n" + entry % "Nowhere()"),
                 without, self.broken("empty", '#include "platform/host/HostMessages.h"\n'), self.broken("refusing", entry % "3"),
                 throwing]
        self.assertEqual(len(said), len(paths))
        for path, words in zip(paths, said):
            with self.subTest(words=words):
                answer = self.orvo("--plugin", path, "places", "拉萨", LANG="en_US.UTF-8")
                self.assertIn(words, answer.err)
                self.assertIn("拉萨", answer.out)
        self.assertEqual(self.orvo("--plugin", whole, "places", "拉萨").err, "")

    def test_the_plug_ins_are_installed_where_the_program_looks(self):
        # What is installed goes elsewhere: it would change what other tests run.
        done = subprocess.run(["cmake", "--install", "build"], capture_output=True, text=True, timeout=60, check=False,
                              cwd=self.book, env=dict(os.environ, DESTDIR=self.home))
        self.assertEqual(done.returncode, 0, done.stderr)
        installed = os.listdir(self.home + os.path.join(PREFIX, "lib/orvo/plugins"))
        self.assertEqual(sorted(installed), sorted(os.path.basename(name)[:-len("cpp")] + "so"
                                                   for name in cookbook.files(self.text)
                                                   if name.endswith(".cpp") and "/" not in name))


if __name__ == "__main__":
    main()
