"""The examples of a page: command lines and what stands below each, and what the installed program makes of them."""
import os
import re
import subprocess

from orvo_program import PREFIX

BLOCK = re.compile(r"^```console\n(.*?)^```$", re.DOTALL | re.MULTILINE)
EXAMPLE = re.compile(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", re.MULTILINE)


def examples(page):
    """Pairs of a command line and what is printed below it, in the page's order."""
    return [example for block in BLOCK.findall(page) for example in EXAMPLE.findall(block)]


def printed_by(test, command, language):
    """What a shell in the home of a test prints of a command line, with that home written as ~."""
    environment = test.environment(LANG=language, PATH=os.path.join(PREFIX, "bin") + ":" + os.environ["PATH"])
    process = subprocess.run(["sh", "-c", f"exec 2>&1; {command}"], capture_output=True, timeout=120, env=environment,
                             cwd=test.home, check=False)
    return process.stdout.decode().replace(test.home, "~")
