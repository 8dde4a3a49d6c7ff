"""The guide in its languages: the same pages with the same headings, commands, tables, pictures and links; each field of a
standard with its picture; what a button is called there as the program calls it."""
import os
import re
import xml.etree.ElementTree as xml

from guide import CONTENTS, GUIDE, LOCALES, ROOT, page, pages, read
from orvo_program import ProgramTest, main
from page_examples import BLOCK, examples

PICTURE = re.compile(r"!\[[^\]]+\]\(([^)]+)\)")
LINK = re.compile(r"(?<!!)\[[^\]]+\]\(([^)#]*)[^)]*\)")
FENCE = re.compile(r"^```", re.MULTILINE)
NAME = "{urn:orvo:dictionary}name"
# What of a standard is no field: where it stands in the list, and what is known of its values.
NO_FIELDS = {"index", "current", "source", "changedFromShipped"}
READMES = {"README.md": "README.zh.md"}


def prose(text):
    return BLOCK.sub("", text)


def shape(text):
    """The levels of the headings, and between them how many rows the tables have."""
    return re.findall(r"^(#+) |^(\|)", prose(text), re.MULTILINE)


def in_chinese(path):
    """The picture that the Chinese page shows in place of this one of the English page."""
    start, ending = os.path.splitext(path)
    beside = start + ".zh" + ending
    return beside if os.path.exists(os.path.join(GUIDE, "en", beside)) else path.replace("/en/", "/zh/")


def sections(text):
    """The text below each heading of the second level, by that heading."""
    parts = re.split(r"^## (.*)\n", text, flags=re.MULTILINE)
    return dict(zip(parts[1::2], parts[2::2]))


class GuidePagesTest(ProgramTest):
    def test_each_page_is_in_the_contents_and_in_both_languages(self):
        for language in LOCALES:
            self.assertEqual(sorted(pages(language)), sorted(os.listdir(os.path.join(GUIDE, language))), language)
        self.assertEqual(pages("en"), pages("zh"))
        self.assertGreaterEqual(len(pages("en")), 9)

    def test_pages_have_the_same_headings_and_tables(self):
        for name in pages("en"):
            self.assertEqual(shape(page("zh", name)), shape(page("en", name)), name)

    def test_pages_have_the_same_commands(self):
        for name in pages("en"):
            commands = {language: [command for command, _ in examples(page(language, name))] for language in LOCALES}
            self.assertEqual(commands["zh"], commands["en"], name)

    def test_whatever_is_set_apart_is_an_example_that_is_run(self):
        for language in LOCALES:
            for name in pages(language):
                text = page(language, name)
                self.assertEqual(len(FENCE.findall(text)), 2 * len(BLOCK.findall(text)), f"{language}/{name}")
                for block in BLOCK.findall(text):
                    self.assertTrue(block.startswith("$ "), f"{language}/{name}: {block}")

    def test_pages_show_the_same_pictures_each_in_its_language(self):
        for name in pages("en"):
            shown = {language: PICTURE.findall(page(language, name)) for language in LOCALES}
            self.assertEqual(shown["zh"], [in_chinese(path) for path in shown["en"]], name)
            for path in shown["en"]:
                if "/en/" not in path:
                    other = os.path.join(os.path.dirname(path), "zh", os.path.basename(path))
                    self.assertFalse(os.path.exists(os.path.join(GUIDE, "en", other)), f"{name}: {path} is there in Chinese")

    def test_the_readme_shows_the_window_in_its_language(self):
        for name, picture in (("README.md", "docs/pictures/window.png"), ("README.zh.md", "docs/pictures/window.zh.png")):
            self.assertEqual(PICTURE.findall(read(os.path.join(ROOT, name))), [picture], name)
            self.assertTrue(os.path.exists(os.path.join(ROOT, picture)), picture)

    def test_pages_lead_to_the_same_pages(self):
        for name in pages("en"):
            targets = {language: [os.path.normpath(os.path.join(language, path)) for path in
                                  LINK.findall(page(language, name)) if path] for language in LOCALES}
            expected = []
            for path in targets["en"]:
                base = os.path.basename(path)
                is_guide = path.startswith(("en/", "zh/"))
                expected.append({"en/": "zh/", "zh/": "en/"}[path[:3]] + path[3:] if is_guide else
                                os.path.join(os.path.dirname(path), READMES.get(base, base)))
            self.assertEqual(targets["zh"], expected, name)

    def test_each_field_of_a_standard_has_a_section_with_a_picture(self):
        fields = set(self.ok("standards", "--json").json()["standards"][0]) - NO_FIELDS
        self.assertIn("minValidAngle", fields)
        for language in LOCALES:
            told = {}
            for heading, text in sections(page(language, "standards.md")).items():
                for field in re.findall(r"`(\w+)`", re.sub(r"`--?\w+`|`orvo [^`]*`", "", text)):
                    if field in fields:
                        told.setdefault(field, (heading, PICTURE.findall(text)))
            self.assertEqual(set(told), fields, language)
            for field, (heading, pictures) in told.items():
                # A name changes no result, so that there is nothing to be drawn.
                self.assertEqual(len(pictures), 0 if field == "name" else 1, f"{language}: {heading} ({field})")

    def test_each_picture_of_a_field_is_shown_once(self):
        for language in LOCALES:
            folder = f"../../pictures/standards/{language}/"
            shown = [path.removeprefix(folder) for path in PICTURE.findall(page(language, "standards.md"))
                     if path.startswith(folder)]
            self.assertEqual(sorted(shown), sorted(os.listdir(os.path.join(ROOT, "docs/pictures/standards", language))))

    def test_buttons_and_menus_are_called_what_the_program_calls_them(self):
        table = xml.parse(os.path.join(ROOT, "data", "languages", "en.xml"))
        texts = {"en": [], "zh": []}
        for text in table.iter("text"):
            texts["zh"].append(re.sub(r"\(&\w\)|&", "", text.get(NAME)))
            texts["en"].append((text.text or "").replace("&", ""))
        marks = {"en": r"(?<!\*)\*(?=[^\s*])([^*]+)\*(?!\*)", "zh": r"“([^”]+)”"}
        for language, mark in marks.items():
            names = [(name, each.replace("\n", " ")) for name in pages(language)
                     for each in re.findall(mark, prose(page(language, name)))]
            self.assertGreater(len(names), 10)
            for name, each in names:
                self.assertTrue(any(text.startswith(each) for text in texts[language]), f"{language}/{name}: {each}")

    def test_readmes_lead_to_the_guide_and_to_each_other(self):
        for name, other, language in (("README.md", "README.zh.md", "en"), ("README.zh.md", "README.md", "zh")):
            targets = LINK.findall(read(os.path.join(ROOT, name)))
            self.assertIn(other, targets)
            self.assertIn(f"docs/guide/{language}/{CONTENTS}", targets)

    def test_the_readme_says_the_same_in_both_languages(self):
        english, chinese = (read(os.path.join(ROOT, name)) for name in ("README.md", "README.zh.md"))
        self.assertEqual(shape(chinese), shape(english))
        folders = {text: re.findall(r"^\| (`[^|]+) \|", text, re.MULTILINE) for text in (english, chinese)}
        self.assertEqual([re.findall(r"`[^`]+`", each) for each in folders[chinese]],
                         [re.findall(r"`[^`]+`", each) for each in folders[english]])
        targets = {text: {path for path in LINK.findall(text) if path} for text in (english, chinese)}
        swapped = {"README.md": "README.zh.md", "docs/guide/zh/README.md": "docs/guide/en/README.md"}
        self.assertEqual({swapped.get(path, path) for path in targets[chinese]}, targets[english])


if __name__ == "__main__":
    main()
