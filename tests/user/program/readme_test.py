#!/usr/bin/env python3
"""Whether the example of the README, in each language, is what the program prints, save the lines that "..." stands for."""
import os
import re

from orvo_program import ProgramTest, main

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")


class Readme(ProgramTest):
    def test_shows_what_the_program_prints(self):
        os.symlink(os.path.join(os.path.abspath(ROOT), "data"), os.path.join(self.home, "data"))
        for name in ("README.md", "README.zh.md"):
            with open(os.path.join(ROOT, name), encoding="utf-8") as file:
                found = re.findall(r"^```text\n\$ orvo ([^\n]*)\n(.*?)^```$", file.read(), re.M | re.S)
            self.assertEqual(len(found), 1, name)
            for arguments, output in found:
                with self.subTest(name):
                    self.shows(output, self.ok(*arguments.split()).out.split("\n"))

    def shows(self, output, lines):
        at = 0
        for part in re.split(r"^\.\.\.\n", output, flags=re.M):
            wanted = part.rstrip("\n").split("\n")
            places = [i for i in range(at, len(lines)) if lines[i:i + len(wanted)] == wanted]
            self.assertTrue(places, f"the program does not print, or not in this order:\n{part}")
            at = places[0] + len(wanted)
        self.assertEqual(lines[at:], [""], "the end is not left out")


if __name__ == "__main__":
    main()
