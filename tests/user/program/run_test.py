"""./run: what it says itself is in the language of the answers. Building is others' business here."""
import os
import shutil
import stat
import subprocess
import tempfile
import unittest

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")


class Run(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="orvo-run-")
        self.addCleanup(shutil.rmtree, self.folder)
        shutil.copy(os.path.join(ROOT, "run"), self.folder)
        self.script("tools/packages.sh", "PACKAGES_RUN=\ninstall_missing() { :; }")
        self.script("bin/cmake", "exit 0")
        self.script("build/release/installed/bin/orvo", "echo \"orvo was asked: $1\"")

    def script(self, name, text):
        path = os.path.join(self.folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write("#!/bin/sh\n" + text + "\n")
        os.chmod(path, os.stat(path).st_mode | stat.S_IXUSR)

    def run_in(self, *arguments, **locale):
        done = subprocess.run([os.path.join(self.folder, "run"), *arguments], capture_output=True, timeout=120, check=True,
                              env={"PATH": f"{self.folder}/bin:{os.environ['PATH']}", "HOME": self.folder, **locale})
        return done.stdout.decode()

    def test_speaks_the_language_of_the_answers(self):
        for locale in ({"LANG": "zh_CN.UTF-8"}, {"LANG": "C.UTF-8"}, {"LANG": "POSIX"}, {}, {"LC_ALL": "", "LANG": "zh"},
                       {"LC_ALL": "zh_TW", "LANG": "en_US.UTF-8"}):
            with self.subTest(locale=locale):
                said = [line for line in self.run_in(**locale).splitlines() if line and "orvo was" not in line and line[0] != "$"]
                self.assertEqual(len(said), 3, said)
                for line in said:
                    self.assertRegex(line, "[\u4e00-\u9fff]")
        for locale in ({"LANG": "en_US.UTF-8"}, {"LC_MESSAGES": "de_DE", "LANG": "zh_CN"}, {"LANG": "Czech"}):
            with self.subTest(locale=locale):
                said = self.run_in(**locale)
                self.assertIn("\nEverything else: build/release/installed/bin/orvo --help\n", said)
                self.assertIn("Building into", said)

    def test_words_are_for_the_program(self):
        self.assertTrue(self.run_in("info", LANG="en_US.UTF-8").endswith("\norvo was asked: info\n"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
