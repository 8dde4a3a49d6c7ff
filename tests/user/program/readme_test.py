#!/usr/bin/env python3
"""Whether the README's example is what the program prints, save the lines that "..." stands for."""
import os
import re

from orvo_program import ProgramTest, main

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")


class Readme(ProgramTest):
    def test_shows_what_the_program_prints(self):
        with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
            examples = re.findall(r"^```text\n\$ orvo ([^\n]*)\n(.*?)^```$", file.read(), re.M | re.S)
        self.assertEqual(len(examples), 1)
        os.symlink(os.path.join(os.path.abspath(ROOT), "data"), os.path.join(self.home, "data"))
        for arguments, output in examples:
            lines = self.ok(*arguments.split()).out.split("\n")
            at = 0
            for part in re.split(r"^\.\.\.\n", output, flags=re.M):
                wanted = part.rstrip("\n").split("\n")
                places = [i for i in range(at, len(lines)) if lines[i:i + len(wanted)] == wanted]
                self.assertTrue(places, f"the program does not print, or not in this order:\n{part}")
                at = places[0] + len(wanted)
            self.assertEqual(lines[at:], [""], "the end is not left out")


if __name__ == "__main__":
    main()
