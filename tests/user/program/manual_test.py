"""The manual: each example, run in the order in which it stands there, answers what is printed there, and every
subcommand has a section, and a test beside this one."""
import os
import re

from orvo_program import ProgramTest, main
from page_examples import examples, printed_by

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
        found = examples(read(MANUAL))
        self.assertGreaterEqual(len(found), 5)
        for command, printed in found:
            with self.subTest(command=command):
                self.assertEqual(printed_by(self, command, "en_US.UTF-8"), printed)


if __name__ == "__main__":
    main()
