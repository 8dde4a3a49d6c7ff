"""The manual pages that an installation brings: what is on them, beside what the program itself answers, and how they look."""
import os
import re
import subprocess
import unicodedata

from orvo_program import PREFIX, ProgramTest, main

FOLDERS = {"en": os.path.join(PREFIX, "share", "man", "man1"), "zh": os.path.join(PREFIX, "share", "man", "zh_CN", "man1")}
SECTIONS = {"en": ["NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "ENVIRONMENT", "FILES", "EXAMPLES", "SEE ALSO"],
            "zh": ["名称", "概要", "描述", "选项", "退出码", "环境变量", "文件", "例子", "参见"]}


def columns(line):
    return sum(2 if unicodedata.east_asian_width(character) in "WF" else 1 for character in line)


class ManualPages(ProgramTest):
    maxDiff = None

    def subcommands(self):
        """Those of the program's help, in its order."""
        out = self.ok("--help", LANG="en_US.UTF-8").out
        return re.findall(r"^  ([a-z]\S*)  ", out.split("Subcommands:\n")[1].split("\n\n")[0], re.M)

    def help_of(self, language, *subcommand):
        """The options of a help, as [(term, what it is)], and its usage."""
        out = self.ok(*subcommand, "--help", "--language", language).out
        block = re.split(r"^(?:Options:|选项：)\n", out, flags=re.M)[1].split("\n\n")[0]
        return [tuple(re.split(r"  +", line.strip(), maxsplit=1)) for line in block.splitlines() if line], out

    def page(self, language, name, width=80):
        """What a reader sees."""
        path = os.path.join(FOLDERS[language], name + ".1")
        done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", path], capture_output=True, timeout=120, check=False,
                              env={"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "MANWIDTH": str(width),
                                   "HOME": self.home})
        self.assertEqual((done.returncode, done.stderr), (0, b""), path)
        return done.stdout.decode()

    def sections(self, page):
        parts = re.split(r"^(\S[^\n]*)\n", page, flags=re.M)
        return {name: text for name, text in zip(parts[1::2], parts[2::2], strict=True)}

    def names(self):
        return ["orvo", *(f"orvo-{name}" for name in self.subcommands())]

    def test_there_is_one_for_the_program_and_for_each_subcommand(self):
        self.assertIn("analyse", self.subcommands())
        for folder in FOLDERS.values():
            self.assertEqual(sorted(os.listdir(folder)), sorted(name + ".1" for name in self.names()))

    def test_formatters_have_no_complaint(self):
        for folder in FOLDERS.values():
            for name in self.names():
                done = subprocess.run(["groff", "-ww", "-k", "-man", "-Tutf8", "-z", os.path.join(folder, name + ".1")],
                                      capture_output=True, timeout=120, check=False)
                self.assertEqual((done.returncode, done.stderr), (0, b""), name)

    def test_no_paragraph_begins_twice(self):
        for folder in FOLDERS.values():
            for name in os.listdir(folder):
                if name.startswith("orvo"):
                    with open(os.path.join(folder, name), encoding="utf-8") as stream:
                        self.assertNotRegex(stream.read(), r"(?m)^\.SH .*\n\.PP$", name)

    def test_each_has_every_section(self):
        for language, sections in SECTIONS.items():
            for name in self.names():
                wanted = list(sections)
                if name == "orvo":
                    wanted.insert(3, "SUBCOMMANDS" if language == "en" else "子命令")
                page = self.sections(self.page(language, name))
                found = [section for section in page if not section.upper().startswith("ORVO")]
                self.assertEqual(found, wanted, f"{language} {name}")
                for section in wanted:
                    self.assertTrue(page[section].strip(), f"{language} {name} {section}")

    def test_every_option_is_there_with_what_the_help_says_of_it(self):
        for language, sections in SECTIONS.items():
            for name in self.subcommands():
                options, _ = self.help_of(language, name)
                text = " ".join(self.sections(self.page(language, f"orvo-{name}", 1000))[sections[3]].split())
                at = 0
                for term, words in options:
                    there = text.find(" ".join(f"{term} {words}".split()), at)
                    self.assertGreaterEqual(there, at, f"{language} {name}: {term}")
                    at = there
                # And as completion has them.
                for option in self.ok("completion", "--", name, "--").out.split():
                    self.assertIn(option, text, name)

    def test_the_synopsis_is_the_usage_and_the_examples_are_the_helps(self):
        for language, sections in SECTIONS.items():
            for name in self.subcommands():
                _, out = self.help_of(language, name)
                page = self.sections(self.page(language, f"orvo-{name}", 1000))
                usage = re.match(r"(?:Usage: |用法：)(.*)", out).group(1)
                self.assertEqual(" ".join(page[sections[1]].split()), usage)
                examples = [line.strip() for line in page[sections[7]].splitlines() if line.strip()]
                self.assertEqual(examples, [line.strip() for line in re.split(r"例子：|Examples:", out)[1].splitlines() if line])

    def test_the_program_s_own_lists_the_others(self):
        for language, sections in SECTIONS.items():
            page = self.sections(self.page(language, "orvo", 1000))
            for name in self.subcommands():
                self.assertIn(f"orvo-{name}(1)", page[sections[8]])
            self.assertRegex(page[sections[4]], r"(?s)\b0 .*\b1 .*\b2 ")
            for word in ("XDG_CONFIG_HOME", "ORVO_SUPPORT_PATH", "LC_ALL"):
                self.assertIn(word, page[sections[5]])
            for word in ("SunSet.xml", "zone.xml", "lib/orvo/plugins"):
                self.assertIn(word, page[sections[6]])

    def test_lines_fit_the_screen(self):
        for language in FOLDERS:
            for name in self.names():
                for width in (80, 50):
                    page = self.sections(self.page(language, name, width))
                    # Whole command lines are not broken, nor is the title.
                    lines = [line for section, text in page.items() for line in text.splitlines()
                             if section not in ("EXAMPLES", "例子", "SYNOPSIS", "概要")]
                    self.assertEqual([line for line in lines if columns(line) > width], [], f"{language} {name} {width}")

    def test_each_speaks_its_language(self):
        chinese = re.compile("[\u4e00-\u9fff]")
        for name in self.names():
            english = self.sections(self.page("en", name, 1000))
            del english["EXAMPLES"]
            for section, text in english.items():
                self.assertNotRegex(text.replace("窗 by default", ""), chinese, f"{name} {section}")
            for section in ("名称", "描述", "选项", "退出码"):
                self.assertRegex(self.sections(self.page("zh", name, 1000))[section], chinese, f"{name} {section}")

    def test_whatis_finds_them(self):
        for language, folder in FOLDERS.items():
            for name in self.names():
                done = subprocess.run(["lexgrog", "-E", "UTF-8", os.path.join(folder, name + ".1")], capture_output=True,
                                      text=True, timeout=120, check=False, env={"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"})
                self.assertRegex(done.stdout, rf'"{name} - [^"]{{3,}}', f"{language} {done}")


if __name__ == "__main__":
    main()
