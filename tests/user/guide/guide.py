"""The pages of the guide: which there are, in the order in which they are read."""
import os
import re

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", ".."))
GUIDE = os.path.join(ROOT, "docs", "guide")
LOCALES = {"en": "en_US.UTF-8", "zh": "zh_CN.UTF-8"}
CONTENTS = "README.md"


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def page(language, name):
    return read(os.path.join(GUIDE, language, name))


def pages(language):
    """Their names by the table of contents, and that itself first."""
    return [CONTENTS, *re.findall(r"^\d+\. \[[^\]]+\]\(([^)]+)\)", page(language, CONTENTS), re.MULTILINE)]
