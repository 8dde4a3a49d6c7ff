"""The developers' cook-book, as somebody would follow it: its files, the commands that build them, and its examples."""
import os
import re

PAGE = os.path.join(os.environ["ORVO_SOURCE_DIR"], "docs", "developers", "cookbook.md")

FILE = re.compile(r"^\*\*`([^`\n]+)`\*\*\n\n```\w+\n(.*?)^```$", re.MULTILINE | re.DOTALL)
RECIPE = re.compile(r"^## (\d+) ", re.MULTILINE)


def page():
    with open(PAGE, encoding="utf-8") as stream:
        return stream.read()


def files(text):
    """The files that the page shows, by their names: each stands under its name in bold type."""
    found = FILE.findall(text)
    names = [name for name, _ in found]
    assert len(names) == len(set(names)), "a file comes twice"
    return dict(found)


def blocks(text, language):
    return re.findall(rf"^```{language}\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)


def examples(text):
    """What is typed, and what is printed then, in the order of the page."""
    return [example for block in blocks(text, "console")
            for example in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", block, re.MULTILINE)]


def recipes(text):
    """The sections of the recipes, by their numbers."""
    parts = RECIPE.split(text)
    return {int(number): part for number, part in zip(parts[1::2], parts[2::2])}
