"""orvo completion: how a line can go on, and the shells that ask for it."""
import os
import subprocess
import unittest

from orvo_program import PREFIX, PROGRAM, ProgramTest, main, shipped

ECHO = os.path.join(os.environ["ORVO_PLUGINS"], "echo.so")


class Completion(ProgramTest):
    def choices(self, *words, **more):
        return self.ok("completion", "--", *words, **more).out.splitlines()

    def test_the_first_word_is_a_subcommand_or_an_option(self):
        first = self.choices("")
        self.assertEqual(first, self.choices())
        for word in ("info", "analyse", "help", "--version", "--language"):
            self.assertIn(word, first)
        # What the prompt alone understands.
        self.assertFalse({"quit", "exit", "QcCityData"} & set(first))
        self.assertEqual(self.choices("st"), ["standards"])
        self.assertEqual(self.choices("no-such"), [])

    def test_options_are_those_of_the_subcommand(self):
        self.assertEqual(self.choices("sun", "--d"), ["--date"])
        self.assertIn("--step", self.choices("sun", ""))
        self.assertNotIn("--windows", self.choices("sun", ""))
        self.assertEqual(self.choices("no-such", ""), [])

    def test_the_programs_options_may_stand_anywhere(self):
        self.assertEqual(self.choices("--language", ""), ["zh", "en"])
        self.assertEqual(self.choices("--language", "e"), ["en"])
        self.assertEqual(self.choices("info", "--json", "--language", ""), ["zh", "en"])
        self.assertEqual(self.choices("--plugin", ""), [])  # shells offer files
        self.assertEqual(self.choices("info", "--plugin", ""), [])
        for before in (["--language", "en"], ["--language=en"], ["--plugin", "x.so", "--language", "en", "--plugin=y.so"]):
            with self.subTest(before=before):
                self.assertEqual(self.choices(*before, "st"), ["standards"])
                self.assertEqual(self.choices(*before, "sun", "--d"), ["--date"])
                self.assertIn("info", self.choices(*before, ""))
        self.assertEqual(self.choices("help", "st"), ["standards"])
        for option in ("--language", "--plugin"):
            self.assertIn(option, self.choices("info", "--"))
            self.assertNotIn("缺少", self.orvo("info", option, "en" if option == "--language" else ECHO).err)

    def test_files_are_left_to_the_shell_where_one_is_asked_for(self):
        for words in (["analyse"], ["window"], ["record"], ["--language", "en", "analyse", "--json"]):
            self.assertEqual(self.choices(*words, ""), [], words)
        for words in (["analyse", "house.dxf"], ["window", "house.dxf"], ["places"], ["info"]):
            self.assertIn("--json" if words[0] != "window" else "--help", self.choices(*words, ""))

    def test_values_are_the_users_own(self):
        self.assertEqual(self.choices("info", "--place", "上"), ["上海", "上饶"])
        self.write("zone.xml", shipped("zone.xml").replace("上海".encode(), "上城".encode()))
        self.assertIn("上城", self.choices("info", "--place", "上"))
        self.assertIn("国标大寒日", self.choices("info", "--json", "--standard", "国"))

    def test_words_with_blanks_and_quotes_are_one_word(self):
        for word in ("my house.dxf", 'the "new" one.dxf', "it's.dxf", ""):
            with self.subTest(word=word):
                self.assertEqual(self.choices("analyse", word, "--pla"), ["--place"])

    def test_plug_ins_are_known(self):
        answer = self.orvo("--plugin", ECHO, "completion", "--", "echo", "--color", "cr")
        self.assertEqual(answer.out, "crimson\n")

    def in_shell(self, shell, script):
        """What it prints when the program is found by its name."""
        done = subprocess.run([*shell, script], capture_output=True, text=True, timeout=120, cwd=self.home, check=False,
                              env=self.environment(PATH=os.path.dirname(PROGRAM) + ":" + os.environ["PATH"]))
        self.assertEqual((done.returncode, done.stderr), (0, ""), done)
        return done.stdout.splitlines()

    def write_here(self, name):
        with open(os.path.join(self.home, name), "w", encoding="ascii"):
            pass

    def test_bash_asks(self):
        script = os.path.join(PREFIX, "share", "bash-completion", "completions", "orvo")

        def complete(*words):
            line = " ".join(f"'{word}'" for word in ("orvo", *words))
            return self.in_shell(["bash", "--norc", "-c"], f"""source {script}
COMP_WORDS=({line}); COMP_CWORD={len(words)}
$(complete -p orvo | sed 's/.*-F \\([^ ]*\\) .*/\\1/')
printf '%s\\n' "${{COMPREPLY[@]}}" """)
        self.assertEqual(complete("st"), ["standards"])
        for name in ("site.dxf", "SITE 2.DXF", "site.txt"):
            self.write_here(name)
        self.assertEqual(complete("st"), ["standards"])
        self.assertEqual(complete("si"), ["site.dxf"])
        self.assertEqual(complete("SI"), ["SITE 2.DXF"])
        self.assertEqual(complete("s")[-1], "site.dxf")
        self.assertIn("sun", complete("s"))
        self.assertEqual(complete("analyse", "si"), [""])
        self.assertEqual(complete("sun", "--place", "上"), ["上海", "上饶"])
        self.assertIn("--step", complete("sun", ""))
        self.assertEqual(complete("analyse", "my house.dxf", "--pla"), ["--place"])
        self.assertEqual(complete("analyse", "no-such"), [""])
        self.assertEqual(complete("analyse", ""), [""])
        self.assertEqual(complete("--language", "en", "ana"), ["analyse", "analyze"])

    def test_zsh_asks(self):
        script = os.path.join(PREFIX, "share", "zsh", "site-functions", "_orvo")

        def complete(*words):
            line = " ".join(f"'{word}'" for word in ("orvo", *words))
            return self.in_shell(["zsh", "-f", "-c"], f"""compadd() {{ print -rl -- "${{(@P)2}}" }}
_files() {{ print files "$@" }}
words=({line}); CURRENT={len(words) + 1}
_orvo() {{ source {script} }}
_orvo""")
        self.assertEqual(complete("st"), ["standards", "files -g *.[dD][xX][fF]"])
        self.assertEqual(complete("sun", "--place", "上"), ["上海", "上饶"])
        self.assertIn("--step", complete("sun", ""))
        self.assertEqual(complete("analyse", "my house.dxf", "--pla"), ["--place"])
        self.assertEqual(complete("analyse", "no-such"), ["files"])
        self.assertEqual(complete("analyse", ""), ["files"])


if __name__ == "__main__":
    main()
