#!/usr/bin/env python3
"""Looks for texts that the program shows and that a language does not translate.

A text is any literal with a character beyond ASCII: a wide one in the sources of the components that have tables, any
one in a resource script. Each has to stand in every language table, under its own module, or in
untranslated.txt (there a line names a text, or after "file " a source whose texts are all data).
"""
import glob
import os
import re
import sys
import unittest
import xml.etree.ElementTree as ET

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
sys.path.insert(0, os.path.join(ROOT, "tools"))
from rooms import COMPONENTS, TABLES  # noqa: E402
NAME = "{urn:orvo:dictionary}name"
LITERAL = re.compile(r'(?<!\w)L"((?:[^"\\]|\\.)*)"((?:\s*L?"(?:[^"\\]|\\.)*")*)')


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def unescape(text):
    return text.replace("\\n", "\n").replace('\\"', '"').replace("\\\\", "\\")


def texts_of_script(script):
    """Every text of a resource script, where a quotation mark within a text is doubled."""
    return [unescape(text.replace('""', '"')) for text in re.findall(r'"((?:[^"\\]|""|\\.)*)"', script)]


def texts_of_source(source):
    """Every text of a C++ source, with adjacent literals joined as the compiler joins them."""
    texts = []
    for match in LITERAL.finditer(source):
        more = re.findall(r'"((?:[^"\\]|\\.)*)"', match.group(2))
        texts.append(unescape(match.group(1) + "".join(more)))
    return texts


def texts_of(component):
    """Every text of a component's sources and scripts."""
    found = {}
    for folder, _, files in os.walk(os.path.join(ROOT, component)):
        for name in files:
            if not name.endswith((".cpp", ".h", ".rc")):
                continue
            source = re.sub(r"//[^\n]*", "", read(os.path.join(folder, name)))
            texts = texts_of_script(source) if name.endswith(".rc") else texts_of_source(source)
            for text in texts:
                if any(ord(character) > 127 for character in text):
                    found[text] = os.path.relpath(os.path.join(folder, name), ROOT)
    return found


def filled_texts(component):
    """The texts that the functions fill which know of singulars (platform/base/PluralForms.h)."""
    found = set()
    for folder, _, files in os.walk(os.path.join(ROOT, component)):
        for name in (name for name in files if name.endswith((".cpp", ".h"))):
            for call in re.split(r"\b(?:Say|Facts)Format\(\s*", read(os.path.join(folder, name)))[1:]:
                match = LITERAL.match(call)
                found |= set(texts_of_source(match.group(0))) if match else set()
    return found


def untranslated():
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "untranslated.txt")
    lines = read(path).splitlines()
    return {line for line in lines if line and not line.startswith("#")}


def tables(path):
    """The texts of each module in a language file: {key: {text: (translation, is kept)}}."""
    result = {}
    for module in ET.parse(path).getroot():
        texts = result.setdefault(module.tag, {})
        for element in module:
            entries = element if len(element) else [element]
            for entry in entries:
                texts.setdefault(entry.get(NAME), (entry.text or "", len(element) > 0))
    return result


class Translations(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.files = sorted(glob.glob(os.path.join(ROOT, "data", "languages", "*.xml")))
        self.assertTrue(self.files)

    def test_every_text_is_translated(self):
        exempt = untranslated()
        for path in self.files:
            table = tables(path)
            for component, key in TABLES.items():
                texts = texts_of(component)
                self.assertTrue(texts, component)
                missing = [f"{source}: {text!r}" for text, source in sorted(texts.items())
                           if text not in table.get(key, {}) and not {text, f"file {source}"} & exempt]
                self.assertEqual(missing, [], f"{os.path.basename(path)} lacks")

    def test_a_component_without_a_table_shows_no_texts(self):
        exempt = untranslated()
        for component in set(COMPONENTS) - set(TABLES):
            texts = {text: source for text, source in texts_of(component).items() if text not in exempt}
            self.assertEqual(texts, {}, component)

    def test_no_table_holds_texts_that_nobody_shows(self):
        shown = set().union(*(texts_of(component) for component in TABLES))
        for path in self.files:
            for key, texts in tables(path).items():
                left_over = [text for text, (_, is_kept) in texts.items() if not is_kept and text not in shown]
                self.assertEqual(left_over, [], f"{os.path.basename(path)} {key}")

    def test_no_exemption_is_left_over(self):
        shown = set()
        for component in COMPONENTS:
            texts = texts_of(component)
            shown |= set(texts) | {f"file {source}" for source in texts.values()}
        self.assertEqual(sorted(untranslated() - shown), [])

    def test_texts_that_stay_are_their_own_translation(self):
        for path in self.files:
            for key, texts in tables(path).items():
                for text, (translation, is_kept) in texts.items():
                    if is_kept:
                        self.assertEqual(translation, text)

    def test_a_translation_asks_for_the_same_values(self):
        conversion = re.compile(r"%[-+ #0]*\d*(?:\.\d+)?l?[a-zA-Z%]")

        def kinds(text):
            return [found[-1] for found in conversion.findall(text) if found != "%%"]

        for path in self.files:
            for key, texts in tables(path).items():
                for text, (translation, _) in texts.items():
                    self.assertEqual(kinds(translation), kinds(text), f"{key}: {text}")

    def test_a_number_has_no_plural_behind_it_without_a_singular(self):
        nouns = "days|hours|minutes|seconds|degrees|pictures|windows|entities|points|faces|layers|outlines|places|lines"
        bare = re.compile(rf"(?<!more than )(?<!about )%[ds] (?:{nouns})\b")  # those are the program's limits
        for path in self.files:
            for key, texts in tables(path).items():
                for translation, _ in texts.values():
                    self.assertIsNone(bare.search(translation), f"{key}: {translation}")

    def test_two_forms_stand_where_somebody_chooses(self):
        """Behind a value, in a text that is filled by the functions that know of them."""
        forms = re.compile(r"\{[^{}|%]*\|[^{}|%]*\}")
        chosen = 0
        for path in self.files:
            for component, key in TABLES.items():
                filled = filled_texts(component)
                for text, (translation, _) in tables(path).get(key, {}).items():
                    if not re.search(r"[{}]", translation):
                        continue
                    chosen += 1
                    self.assertTrue(text in filled, f"{key}: {translation}")
                    self.assertIn("%", translation[:translation.index("{")])
                    self.assertNotRegex(forms.sub("", translation), r"[{}]")
        self.assertGreater(chosen, 0)


if __name__ == "__main__":
    unittest.main()
