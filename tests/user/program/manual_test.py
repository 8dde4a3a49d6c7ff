"""The examples of the manual: each command, run in the order in which it stands there, answers what is printed there."""
import os
import re
import subprocess

from orvo_program import PREFIX, ProgramTest, main

MANUAL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "docs", "orvo.md")


class Manual(ProgramTest):
    def test_examples_are_true(self):
        with open(MANUAL, encoding="utf-8") as stream:
            blocks = re.findall(r"```console\n(.*?)```", stream.read(), flags=re.DOTALL)
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
