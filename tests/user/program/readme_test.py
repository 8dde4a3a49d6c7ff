#!/usr/bin/env python3
"""Whether the README's example is what the program prints."""
import os
import re

from orvo_program import ProgramTest, main

README = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "README.md")


class Readme(ProgramTest):
    def test_shows_what_the_program_prints(self):
        with open(README, encoding="utf-8") as file:
            examples = re.findall(r"^```text\n\$ orvo ([^\n]*)\n(.*?)^```$", file.read(), re.M | re.S)
        self.assertEqual(len(examples), 1)
        for arguments, output in examples:
            self.assertEqual(self.ok(*arguments.split()).out, output)


if __name__ == "__main__":
    main()
