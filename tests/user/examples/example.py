"""An example, copied to an empty folder and built there with the installed package by the commands of its README."""
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "program"))

from orvo_program import FAILED, OK, PREFIX, PROGRAM, USAGE, ProgramTest, main, shipped  # noqa: E402, F401

EXAMPLES = os.path.join(os.environ["ORVO_SOURCE_DIR"], "examples")


def run_tool(*command, cwd):
    done = subprocess.run(command, capture_output=True, text=True, timeout=600, cwd=cwd, check=False)
    if done.returncode:
        raise AssertionError(f"{shlex.join(command)}\n{done.stdout[-4000:]}{done.stderr[-4000:]}")
    return done.stdout


def build_folder(source, folder):
    """Copies a project into a folder and builds it, with warnings as errors."""
    shutil.copytree(source, folder)
    run_tool("cmake", "-S", ".", "-B", "build", f"-DCMAKE_PREFIX_PATH={PREFIX}", "-DCMAKE_BUILD_TYPE=Release",
             "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Werror", cwd=folder)
    run_tool("cmake", "--build", "build", cwd=folder)


class Example(ProgramTest):
    name = ""        # of its folder, and of what it makes
    made_name = ""   # of what is made, where it is no plug-in

    @classmethod
    def setUpClass(cls):
        if not cls.name:
            raise unittest.SkipTest("what all examples share")
        place = tempfile.mkdtemp(prefix="orvo-example-")
        cls.addClassCleanup(shutil.rmtree, place)
        cls.source = os.path.join(place, cls.name)
        build_folder(os.path.join(EXAMPLES, cls.name), cls.source)
        cls.made = os.path.join(cls.source, "build", cls.made_name or cls.name + ".so")

    def test_its_readme_says_how_it_is_built(self):
        """The commands of the README, as somebody would paste them."""
        with open(os.path.join(self.source, "README.md"), encoding="utf-8") as stream:
            commands = re.search(r"```sh\n(.*?)```", stream.read(), re.S).group(1)
        commands = re.sub(r"\bPREFIX\b", PREFIX, commands).splitlines()
        self.assertIn("cmake -S . -B build -DCMAKE_PREFIX_PATH=" + PREFIX, commands[0])
        self.assertEqual(commands[1], "cmake --build build")
        fresh = os.path.join(self.home, "fresh")
        shutil.copytree(os.path.join(EXAMPLES, self.name), fresh)
        for command in commands:
            if " window" in command:  # it waits for a person
                continue
            # What is installed goes elsewhere: it would change what other tests run.
            done = subprocess.run(command, shell=True, capture_output=True, text=True, timeout=600, cwd=fresh, check=False,
                                  env=self.environment(DESTDIR=self.home), stdin=subprocess.DEVNULL)
            self.assertEqual(done.returncode, 0, f"{command}\n{done.stdout}{done.stderr}")
            if "--install" in command:
                self.assertTrue(os.path.exists(self.home + os.path.join(PREFIX, "lib/orvo/plugins", self.name + ".so")))
