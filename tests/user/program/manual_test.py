"""The manual: each example, run in the order in which it stands there, answers what is printed there, and every
subcommand has a section, and a test beside this one."""
import os
import re
import subprocess

from orvo_program import PREFIX, ProgramTest, main

HERE = os.path.dirname(os.path.abspath(__file__))
MANUAL = os.path.join(HERE, "..", "..", "..", "docs", "orvo.md")

# Subcommands that share a test with others, and other names for one.
SHARED_TESTS = {"terms": "lists", "places": "lists", "standards": "lists"}
OTHER_NAMES = {"analyze": "analyse"}


def read(path):
    with open(path, encoding="utf-8") as stream:
        return stream.read()


class Manual(ProgramTest):
    def subcommands(self):
        rows = re.search(r"^Subcommands:\n((?:  .*\n)+)", self.ok("--language", "en", "--help").out, flags=re.MULTILINE)
        return re.findall(r"^  (\w+)  ", rows.group(1), flags=re.MULTILINE)

    def test_every_subcommand_has_a_section_and_a_test(self):
        sections = "".join(re.findall(r"^## .*\n", re.sub(r"```.*?```", "", read(MANUAL), flags=re.DOTALL), re.MULTILINE))
        names = self.subcommands()
        self.assertIn("info", names)
        for name in names:
            with self.subTest(subcommand=name):
                own = OTHER_NAMES.get(name, name)
                self.assertIn(f"`orvo {own}`", sections)
                test = os.path.join(HERE, SHARED_TESTS.get(own, own) + "_test.py")
                self.assertTrue(os.path.exists(test), test)
                self.assertIn(f'"{name}"', read(test))
        self.assertLessEqual({*SHARED_TESTS, *OTHER_NAMES}, set(names))

    def test_examples_are_true(self):
        blocks = re.findall(r"```console\n(.*?)```", read(MANUAL), flags=re.DOTALL)
        self.assertGreaterEqual(len(blocks), 5)
        path = os.path.join(PREFIX, "bin") + ":" + os.environ["PATH"]
        for block in blocks:
            for example in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", block, flags=re.MULTILINE):
                command, printed = example
                with self.subTest(command=command):
                    process = subprocess.run(["sh", "-c", f"exec 2>&1; {command}"], capture_output=True, timeout=120,
                                             env=self.environment(LANG="en_US.UTF-8", PATH=path), cwd=self.home, check=False)
                    self.assertEqual(process.stdout.decode().replace(self.home, "~"), printed)


if __name__ == "__main__":
    main()
