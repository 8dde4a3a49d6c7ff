"""Plug-ins that bring subcommands: by --plugin and from the program's folder, good ones and bad ones."""
import os
import shutil
import signal
import subprocess

from orvo_program import FAILED, OK, PREFIX, PROGRAM, SHIPPED, USAGE, ProgramTest, main
from prompt_test import Terminal

FOLDER = os.environ["ORVO_PLUGINS"]
ECHO, ANOTHER, REFUSING = (os.path.join(FOLDER, name + ".so") for name in ("echo", "another", "refusing"))
CURIOUS = os.path.join(FOLDER, "curious.so")
QUIET = ["more ", "color <none>", "pair ", "tags ", "quiet"]


class PlugIns(ProgramTest):
    def echo(self, *arguments, plugins=(ECHO,), code=OK, **more):
        """Runs with plug-ins that come and go with a word on the error stream; gives the answer's lines."""
        options = [word for plugin in plugins for word in ("--plugin", plugin)]
        answer = self.orvo(*options, *arguments, **more)
        self.assertEqual(answer.code, code, answer)
        return answer

    def english(self, *arguments, **more):
        return self.echo(*arguments, LANG="en_US.UTF-8", **more)

    def test_a_subcommand_gets_what_was_given(self):
        answer = self.echo("echo", "hello")
        self.assertEqual(answer.out.splitlines(), ["half an answer", "text <hello>", *QUIET])
        self.assertEqual(answer.err, "echo comes\necho goes\n")
        answer = self.echo("echo", "hello", "-c", "cobalt", "--loud", "--pair", "1", "2", "--tag", "x", "世界",
                           "--tag=y", "again")
        self.assertEqual(answer.out.splitlines(),
                         ["half an answer", "text <hello>", "more <世界><again>", "color <cobalt>", "pair <1><2>",
                          "tags <x><y>", "loud"])

    def test_it_finds_the_settings_that_are_in_force(self):
        """Those that were shipped, where the user's own are damaged."""
        self.write("SunSet.xml", "<broken")
        answer = self.orvo("--plugin", CURIOUS, "standards", "--json")
        self.assertEqual(len(answer.json()["standards"]), 6)
        self.assertIn("finds 6 standards\n", answer.err)

    def test_its_option_stands_anywhere(self):
        for arguments in (["--plugin", ECHO, "echo", "hello"], [f"--plugin={ECHO}", "echo", "hello"],
                          ["echo", "--plugin", ECHO, "hello"], ["echo", "hello", f"--plugin={ECHO}"]):
            with self.subTest(arguments=arguments):
                self.assertIn("text <hello>", self.orvo(*arguments).out)
        shutil.copy(ECHO, os.path.join(self.home, "mine.so"))
        self.assertIn("text <hello>", self.orvo("--plugin", "mine.so", "echo", "hello").out)
        answer = self.orvo("places", "--", "--plugin", ECHO)
        self.assertEqual((answer.code, answer.out), (USAGE, ""))
        self.assertNotIn("comes", answer.err)

    def test_its_code_and_its_complaints_are_the_programs(self):
        answer = self.echo("echo", "complain", code=FAILED)
        self.assertEqual(answer.out, "half an answer\n")
        self.assertIn("orvo: echo complains\n", answer.err)

    def test_an_option_that_its_row_does_not_have_is_no_answer(self):
        for text, name in (("wrong-value", "-c,--color"), ("wrong-values", "--tags"), ("wrong-flag", "loud")):
            answer = self.echo("echo", text, code=FAILED)
            self.assertEqual((answer.code, answer.out), (FAILED, ""), answer)
            self.assertIn(f"内部错误：子命令 echo 没有名为“{name}”的选项", answer.err)

    def test_what_it_throws_ends_the_request_alone(self):
        for text, words in (("throw", "内部错误：thrown by echo"), ("throw-number", "内部错误：echo 出错")):
            with self.subTest(text=text):
                answer = self.echo("echo", text, code=FAILED)
                self.assertEqual((answer.out, answer.err), ("", f"echo comes\norvo: {words}\necho goes\n"))
        for line, words in (("echo throw", "内部错误：thrown by echo"), ("echo-command", "内部错误：echo-command 出错")):
            with self.subTest(line=line):
                answer = self.echo(text=line + "\necho hello\n", code=FAILED)
                self.assertIn(words, answer.err)
                self.assertIn("text <hello>", answer.out)

    def test_wrong_usage_is_refused_before_it_runs(self):
        for arguments, words in (([], "没有给出 TEXT"), (["hello", "--colour", "red"], "没有选项 --colour。相近的有：--color"),
                                 (["hello", "--color"], "选项 --color 后面缺少值"), (["hello", "--pair", "1"], "选项 --pair 需要 2 个值: A B"),
                                 (["hello", "--pair", "--loud"], "选项 --pair 需要 2 个值: A B"),
                                 (["hello", "--loud=yes"], "选项 --loud 不带值"), (["hello", "--color", "--loud"], "缺少值"),
                                 (["hello", "--color", "a", "--color", "b"], "选项 --color 给出了不止一次")):
            with self.subTest(arguments=arguments):
                answer = self.echo("echo", *arguments, code=USAGE)
                self.assertEqual(answer.out, "")
                self.assertIn(words, answer.err)
                self.assertIn("用“orvo echo --help”查看用法。", answer.err)

    def test_the_help_shows_it(self):
        answer = self.english("--help").out
        self.assertTrue(answer.startswith("Usage: orvo [--language zh|en] [--plugin FILE] [SUBCOMMAND [OPTIONS] | FILE.dxf]\n"), answer)
        self.assertRegex(answer, r"\n  echo +~says how it was called\n")
        lines = self.english("echo", "--help").out.splitlines()
        self.assertEqual(lines[0], "Usage: orvo echo TEXT [-c NAME] [--bad] [--pair A B] [--tag NAME...] [--loud] [MORE...]")
        self.assertEqual(lines[1], "~says how it was called")
        for line in ("  TEXT              ~what to say", "  -c, --color NAME  ~in which color", "  --loud            ~louder",
                     "  --bad             has no words",
                     "  --plugin FILE     open this plug-in at the start, after those in lib/orvo/plugins; may be repeated",
                     "Examples:", "  orvo echo hello --color cobalt"):
            self.assertIn(line, lines)
        lines = self.orvo("help", "echo-work", "--plugin", ECHO, "--language", "en").out.splitlines()
        self.assertEqual(lines[:2], ["Usage: orvo echo-work", "works for ever"])
        self.assertNotIn("Examples:", lines)

    def test_near_names_know_it(self):
        self.assertIn("echo", self.echo("ecko", code=USAGE).err)
        self.assertNotIn("echo", self.orvo("ecko").err)

    def test_the_prompt_knows_it_and_completes_it(self):
        terminal = Terminal(self, "--plugin", ECHO)
        terminal.wait_for("orvo> ")
        terminal.type("ech\t")  # there is echo-work, too
        terminal.wait_for("o")
        terminal.type(" tw\t")
        terminal.wait_for("ilight ")
        terminal.type("--bad \t")  # what the completion throws is nobody's trouble
        terminal.type("b --co\t")
        terminal.wait_for("lor ")
        terminal.type("cr\t")
        terminal.wait_for("imson ")
        terminal.type("-c c\x08\x08\x08\n")
        terminal.wait_for("text <twilight>")
        terminal.wait_for("color <crimson>")
        terminal.wait_for("orvo> ")
        terminal.type("echo-work\n")
        terminal.wait_for("part ")
        terminal.type("\x03")
        terminal.wait_for("orvo: stopped as asked")
        terminal.wait_for("orvo> ")
        terminal.type("info --plugin x\n")
        terminal.wait_for("选项 --plugin 只能在启动程序时给出")
        terminal.type("quit\n")
        terminal.wait_for("echo goes")
        self.assertEqual(terminal.finish(), OK)

    def test_long_work_can_be_cancelled(self):
        process = subprocess.Popen([PROGRAM, "--plugin", ECHO, "echo-work"], stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=self.environment(), cwd=self.home)
        self.addCleanup(process.kill)
        # It has to have begun: before, an interrupt ends the program.
        def catches_interrupts():
            with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
                caught = next(line for line in status if line.startswith("SigCgt:"))
            return int(caught.split()[1], 16) >> (signal.SIGINT - 1) & 1
        while not catches_interrupts():
            self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        out, err = process.communicate(timeout=60)
        self.assertEqual((process.returncode, out), (FAILED, b"half an answer\n"))
        self.assertEqual(err.decode(), "echo comes\norvo: stopped as asked\necho goes\n")

    def test_several_come_in_order_and_go_in_reverse(self):
        answer = self.echo("another", "hello", plugins=(ECHO, ANOTHER, ECHO, os.path.join(FOLDER, ".", "another.so")))
        self.assertIn("text <hello>", answer.out)
        self.assertEqual([line for line in answer.err.splitlines() if not line.startswith("another: ")],
                         ["echo comes", "another comes", "another goes", "echo goes"])

    def test_a_name_that_is_taken_is_refused_to_the_plugin(self):
        answer = self.english("info", "--json", plugins=(ANOTHER,))
        self.assertRegex(answer.err, r'another: There is a subcommand named "info" already, of /.*/OrvoWorkbench\.so\.\n')
        self.assertIn("place", answer.json())

    def test_a_file_that_is_no_plugin_is_named_and_skipped(self):
        broken = os.path.join(self.home, "broken.so")
        with open(broken, "wb") as stream:
            stream.write(b"\x7fELF and nothing more")
        cut = os.path.join(self.home, "cut.so")
        with open(ECHO, "rb") as whole, open(cut, "wb") as stream:
            stream.write(whole.read(5000))
        pipe = os.path.join(self.home, "pipe.so")
        os.mkfifo(pipe)
        library = os.path.realpath(os.path.join(PREFIX, "lib", "libOrvoPlatform.so"))
        for plugin, words in ((broken, "broken.so"), (cut, "cut.so”：文件不完整"), (pipe, "pipe.so”：不是普通文件"), ("missing.so", "“missing.so”：文件不存在"), (self.home, self.home),
                              (library, os.path.basename(library) + "”：不是插件"), (REFUSING, "refusing.so”：插件在启动时拒绝加载（acrxEntryPoint 返回了 kRetError）")):
            with self.subTest(plugin=plugin):
                answer = self.echo("echo", "hello", plugins=(plugin, ECHO))
                self.assertIn("text <hello>", answer.out)
                complaints = [line for line in answer.err.splitlines() if line.startswith("orvo: ")]
                self.assertEqual(len(complaints), 1, answer)
                self.assertIn(words, complaints[0])
                self.assertIn("echo goes", answer.err)
        self.assertEqual(self.echo("info", "--date", "bad", plugins=("missing.so",), code=USAGE).out, "")
        answer = self.english("--version", plugins=("missing.so",))
        self.assertIn("cannot load the module missing.so", answer.err.lower())
        self.assertEqual((answer.code, answer.out), (OK, self.ok("--version").out))

    def test_what_follows_a_flag_is_no_value_of_it(self):
        for command, flag in ((["info", "--json", "2"], "--json"), (["--plugin", ECHO, "echo", "x", "--loud", "--", "y"], "")):
            answer = self.orvo(*command, LANG="en_US.UTF-8")
            told = f"option {flag} takes no value" in answer.err
            self.assertEqual((answer.code, told), (USAGE, True) if flag else (OK, False), answer)
        self.assertIn('unexpected argument "2": option --json takes no value', self.orvo("info", "--json", "2", LANG="en_US.UTF-8").err)

    def test_an_unknown_subcommand_may_be_of_one_that_was_not_loaded(self):
        answer = self.english("noons", plugins=("missing.so", ECHO), code=USAGE)
        self.assertIn("Not loaded, for the reason above: missing.so\n", answer.err)
        self.assertNotIn("Not loaded", self.english("noons", code=USAGE).err)
        answer = self.english(text="noons\n", plugins=("missing.so",), code=USAGE)
        self.assertIn("Not loaded, for the reason above: missing.so\n", answer.err)

    def test_nothing_is_left_of_one_that_refuses(self):
        answer = self.echo(text="refusing-command\nrefusing hello\n", plugins=(REFUSING,), code=USAGE)
        self.assertEqual(answer.out, "")
        for name in ("refusing-command", "refusing"):
            self.assertIn(f"没有子命令“{name}”", answer.err)

    def test_the_programs_own_plugins_are_open_already(self):
        own = [os.path.join(PREFIX, "lib", "orvo", name) for name in ("OrvoWorkbench.so", "OrvoDataBase.so")]
        answer = self.echo("terms", "--year", "2024", plugins=own)
        self.assertEqual(answer.err, "")

    def test_its_option_needs_a_value(self):
        for arguments in (["--plugin"], ["info", "--plugin"], ["--plugin", "--json", "info"], ["--plugin", "--other", "info"],
                          ["--plugin="]):
            with self.subTest(arguments=arguments):
                self.assertIn("选项 --plugin 后面缺少值", self.refused(USAGE, *arguments).err)

    def test_a_lone_equals_sign_takes_the_next_argument(self):
        self.assertIn("text <hello>", self.orvo("--plugin=", ECHO, "echo", "hello").out)


class PlugInFolder(ProgramTest):
    """A copy of the installation, with plug-ins in its folder."""

    def setUp(self):
        super().setUp()
        copy = os.path.join(self.home, "copy")
        os.makedirs(os.path.join(copy, "bin"))
        shutil.copy(PROGRAM, os.path.join(copy, "bin"))
        shutil.copytree(os.path.join(PREFIX, "lib"), os.path.join(copy, "lib"), symlinks=True)
        shutil.copytree(SHIPPED, os.path.join(copy, "share", "orvo"))
        self.program = os.path.join(copy, "bin", "orvo")
        self.plugins = os.path.join(copy, "lib", "orvo", "plugins")

    def fill(self, **files):
        os.makedirs(self.plugins, exist_ok=True)
        for name, source in files.items():
            shutil.copy(source, os.path.join(self.plugins, name + ".so"))

    def test_a_folder_that_is_missing_or_empty_is_no_trouble(self):
        self.ok("info")
        os.makedirs(self.plugins)
        self.ok("info")

    def test_every_library_in_it_is_opened_by_name(self):
        self.fill(b=ECHO, a=ANOTHER)
        with open(os.path.join(self.plugins, "readme.txt"), "w", encoding="ascii") as stream:
            stream.write("not a library\n")
        answer = self.orvo("echo", "hello")
        self.assertIn("text <hello>", answer.out)
        self.assertEqual([line for line in answer.err.splitlines() if not line.startswith("another: ")],
                         ["another comes", "echo comes", "echo goes", "another goes"])

    def test_those_that_are_named_come_behind_and_once(self):
        self.fill(b=ECHO)
        linked = os.path.join(self.home, "linked.so")
        os.symlink(os.path.join(self.plugins, "b.so"), linked)
        answer = self.orvo("--plugin", linked, "--plugin", ANOTHER, "terms", "--year", "2024")
        self.assertEqual(answer.code, OK)
        self.assertEqual([line for line in answer.err.splitlines() if not line.startswith("another: ")],
                         ["echo comes", "another comes", "another goes", "echo goes"])

    def test_a_bad_one_is_named_and_skipped(self):
        self.fill(b=ECHO, c=REFUSING)
        with open(os.path.join(self.plugins, "a.so"), "wb") as stream:
            stream.write(b"not a library")
        answer = self.orvo("echo", "hello")
        self.assertEqual(answer.code, OK)
        self.assertIn("text <hello>", answer.out)
        complaints = [line for line in answer.err.splitlines() if line.startswith("orvo: ")]
        self.assertEqual(len(complaints), 2, answer)
        self.assertIn("a.so", complaints[0])
        self.assertIn("c.so", complaints[1])

    def test_a_closed_folder_is_named(self):
        os.makedirs(self.plugins)
        self.become_ordinary_user()
        self.fill(b=ECHO)
        os.chmod(self.plugins, 0)
        answer = self.orvo("terms", "--year", "2024")
        self.assertEqual(answer.code, OK)
        self.assertIn("读不了插件文件夹", answer.err)
        self.assertIn(self.plugins, answer.err)


if __name__ == "__main__":
    main()
