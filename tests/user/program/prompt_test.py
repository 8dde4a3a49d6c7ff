"""The prompt: lines from a pipe, and a person at a terminal."""
import fcntl
import os
import pty
import select
import subprocess
import termios
import time

from orvo_program import FAILED, OK, PROGRAM, USAGE, ProgramTest, main


class PipedPrompt(ProgramTest):
    def test_takes_subcommands_with_the_same_syntax(self):
        self.assertEqual(self.ok(text="terms --year 2024\n").out, self.ok("terms", "--year", "2024").out)
        self.assertEqual(self.ok(text="places 江 --json\n").out, self.ok("places", "江", "--json").out)
        self.assertEqual(self.ok(text="help info").out, self.ok("info", "--help").out)
        self.assertEqual(self.ok(text="orvo standards\r\n").out, self.ok("standards").out)

    def test_shows_no_prompt(self):
        self.assertEqual(self.ok(text="").out, "")
        self.assertEqual(self.ok(text="\n   \n# a remark\n").out, "")
        self.assertNotIn("orvo>", self.ok(text="terms\n").out)

    def test_errors_do_not_end_it_and_the_last_one_gives_the_code(self):
        answer = self.orvo(text="bogus\nterms --year 2024\ninfo --place qqqq\nterms --year 2025\n")
        self.assertEqual(answer.code, FAILED)
        self.assertEqual(len(answer.out.splitlines()), 50)
        self.assertIn("bogus", answer.err)
        self.assertEqual(self.orvo(text="info --place qqqq\nterms --bogus\n").code, USAGE)
        self.assertEqual(self.orvo(text="info --place qqqq\nquit\n").code, FAILED)
        self.assertEqual(self.orvo(text="terms\nquit\nbogus\n").code, OK)

    def test_quit_and_exit_end_it(self):
        for word in ("quit", "exit"):
            self.assertEqual(self.ok(text=f"{word}\nterms\n").out, "")

    def test_unknown_commands_name_the_nearest(self):
        self.assertIn("places", self.orvo(text="plces\n").err)
        self.assertIn("quit", self.orvo(text="qiut\n").err)

    def test_quotes_hold_words_together(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><item xmlns:dt="urn:orvo:dictionary" dt:tag="New York" type="PROVINCE">'
                               '<item dt:tag="Long Beach" type="CITY" longitude="-73.6" latitude="40.6"/></item></ORVO_ZONEDATA>')
        for line in ('info --json --place "Long Beach"', "info --json --place 'New York/Long Beach'",
                     'info --json --place Long" "Beach'):
            self.assertEqual(self.ok(text=line).json()["place"]["longitude"], -73.6)
        answer = self.orvo(text='info --place "Long\nterms\n')
        self.assertEqual((answer.code, len(answer.out.splitlines())), (USAGE, 25))

    def test_settings_change_between_lines(self):
        answer = self.ok(text="set --place 上海\ninfo --json\n").out
        self.assertIn('"city": "上海"', answer)
        self.assertEqual(self.ok("info", "--json").json()["place"]["city"], "上海")

    def test_language_is_chosen_at_the_start_only(self):
        self.assertEqual(self.orvo(text="info --language en\n").code, USAGE)
        self.assertIn("Sunrise", self.ok("--language", "en", text="info\n").out)

    def test_lines_that_are_no_text(self):
        answer = self.orvo(text=b"\xff\xfe\x00\x1b[31m\n" + b"x" * 1000000 + b"\nterms --year 2024\n\x00\n")
        self.assertEqual(len(answer.out.splitlines()), 25)
        self.assertEqual(answer.code, USAGE)
        self.assertNotIn("\x1b", answer.err)

    def test_no_dialog_no_word_on_the_rule_in_force(self):
        answer = self.orvo(text="QSetSunPrec\n")
        self.assertEqual(answer.out, "", answer)
        self.assertIn("没有显示器，无法显示对话框“日照设置”。", answer.err)

    def test_libraries_are_quiet_about_displays(self):
        nobodys = next(f":{number}" for number in range(77, 10000) if not os.path.exists(f"/tmp/.X11-unix/X{number}"))
        for environment in ({}, {"DISPLAY": nobodys}, {"WAYLAND_DISPLAY": "nowhere"}):
            with self.subTest(environment=environment):
                answer = self.orvo(text="QcCityData\n", **environment)
                self.assertEqual(answer.err, "没有显示器，无法显示对话框“地理位置”。\n")
        answer = self.orvo(text="QcCityData\n", DISPLAY=nobodys, QT_LOGGING_RULES="qt.qpa.*=true")
        self.assertIn("qt.qpa.xcb", answer.err, "who wants to see it sets rules")

    def test_a_dialog_that_nobody_sees_is_no_success(self):
        answer = self.orvo(text="QcCityData\nterms --year 2024\n", LANG="en_US.UTF-8")
        self.assertEqual(answer.code, FAILED, answer)
        self.assertIn("There is no display to show the dialog Geographic Locations on.", answer.err)
        self.assertEqual(len(answer.out.splitlines()), 25, "the next line runs")

    def test_many_lines(self):
        answer = self.ok(text="info --json --date 2025-6-22\n" * 300)
        self.assertEqual(answer.out.count('"note"'), 300)


class Terminal:
    """The program on a terminal, with what a person types and sees."""

    def __init__(self, test, *arguments):
        self.master, slave = pty.openpty()
        self.process = subprocess.Popen([PROGRAM, *arguments], stdin=slave, stdout=slave, stderr=slave, close_fds=True,
                                        env=test.environment(COLUMNS="200", LINES="50"), cwd=test.home,
                                        start_new_session=True, preexec_fn=self.take_terminal)
        os.close(slave)
        self.seen = ""
        self.pending = b""
        test.addCleanup(self.close)

    @staticmethod
    def take_terminal():
        fcntl.ioctl(0, termios.TIOCSCTTY, 0)

    def read(self, seconds):
        ready, _, _ = select.select([self.master], [], [], seconds)
        if not ready:
            return False
        try:
            data = os.read(self.master, 65536)
        except OSError:
            return False
        self.pending += data
        text = self.pending.decode("utf-8", errors="ignore")
        self.seen += text
        self.pending = b""
        return bool(data)

    def wait_for(self, text, seconds=30):
        """Waits until the text was shown; what stands before its end is forgotten."""
        end = time.monotonic() + seconds
        while text not in self.seen:
            if time.monotonic() > end or not self.read(1) and self.process.poll() is not None:
                raise AssertionError(f"waited for {text!r}, saw {self.seen!r}")
        before, _, self.seen = self.seen.partition(text)
        return before

    def type(self, text):
        os.write(self.master, text.encode())

    def finish(self, seconds=30):
        end = time.monotonic() + seconds
        while self.process.poll() is None:
            if time.monotonic() > end:
                raise AssertionError(f"still running, showed {self.seen!r}")
            self.read(0.1)
        return self.process.returncode

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        os.close(self.master)


class TerminalPrompt(ProgramTest):
    def open(self, *arguments):
        terminal = Terminal(self, *arguments)
        terminal.wait_for("orvo> ")
        return terminal

    def test_asks_answers_and_ends(self):
        terminal = self.open()
        terminal.type("terms --year 2024\n")
        terminal.wait_for("2024-12-21")
        terminal.wait_for("orvo> ")
        terminal.type("bogus\n")
        terminal.wait_for("没有子命令")
        terminal.wait_for("orvo> ")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), 0)

    def test_end_of_input_ends_it(self):
        terminal = self.open()
        terminal.type("\x04")
        self.assertEqual(terminal.finish(), 0)

    def test_an_interrupt_gives_up_the_line(self):
        terminal = self.open()
        terminal.type("terms --year 2024")
        terminal.wait_for("2024")
        terminal.type("\x03")
        terminal.wait_for("orvo> ")
        terminal.type("places 上海\n")
        terminal.wait_for("31.2")
        terminal.wait_for("orvo> ")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), 0)

    def test_completes_commands_options_and_names(self):
        terminal = self.open()
        terminal.type("stan\t")  # the terminal shows what is added to what was typed
        terminal.wait_for("dards ")
        terminal.type("\x15in\t--pl\t")
        terminal.wait_for("ace ")
        terminal.type("呼和\t")
        terminal.wait_for("浩特")
        terminal.type("--st\t")
        terminal.wait_for("andard ")
        terminal.type("杭\t\n")
        terminal.wait_for("分析标准:杭州大寒日;地区:呼和浩特;")
        terminal.wait_for("orvo> ")
        terminal.type("s\t")
        shown = terminal.wait_for("orvo> ")
        self.assertIn("standards", shown)
        self.assertIn("set", shown)
        terminal.type("\x15quit\n")
        self.assertEqual(terminal.finish(), 0)

    def test_completes_names_of_files(self):
        os.mkdir(os.path.join(self.home, "my plans"))
        with open(os.path.join(self.home, "my plans", "房子.dxf"), "w", encoding="ascii") as file:
            file.write("0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n2F\n8\nwalls\n0\nENDSEC\n0\nEOF\n")
        terminal = self.open()
        terminal.type("entity my\t")
        terminal.wait_for('"my plans/')
        terminal.type("\t\n")
        terminal.wait_for("walls")
        terminal.wait_for("orvo> ")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), 0)

    def test_completes_what_can_be_reset(self):
        self.write("SunSet.xml", "<ORVO><CUR_SUNSETDATA><CUR_CITY>上海</CUR_CITY></CUR_SUNSETDATA></ORVO>")
        terminal = self.open()
        terminal.type("standards --re\t")
        terminal.wait_for("set ")
        terminal.type("杭\t\n")
        terminal.wait_for("标准“杭州大寒日”已恢复")
        terminal.wait_for("orvo> ")
        terminal.type("orvo standards --reset 北京冬\t\n")
        terminal.wait_for("标准“北京冬至日”已恢复")
        terminal.wait_for("orvo> ")
        terminal.type("set --re\t\n")
        terminal.wait_for("恢复出厂值（标准 6 个）")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), 0)

    def test_history_outlives_the_program(self):
        terminal = self.open()
        terminal.type("places 上海\n")
        terminal.wait_for("31.2")
        terminal.wait_for("orvo> ")
        terminal.type("exit\n")
        self.assertEqual(terminal.finish(), 0)
        self.assertTrue(os.path.exists(self.file("history")))
        terminal = self.open()
        terminal.type("\x10\x10")  # two lines up: behind "exit"
        terminal.wait_for("places 上海")
        terminal.type("\n")
        terminal.wait_for("31.2")
        terminal.wait_for("orvo> ")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), 0)

    def test_a_history_that_cannot_be_kept_is_no_trouble(self):
        self.ok("info")
        os.mkdir(self.file("history"))
        terminal = self.open()
        terminal.type("terms --year 2024\n")
        terminal.wait_for("2024-12-21")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), 0)

    def test_settings_of_a_session_last(self):
        terminal = self.open()
        terminal.type("set --place 上海\n")
        terminal.wait_for("SunSet.xml")
        terminal.wait_for("orvo> ")
        terminal.type("\x04")
        self.assertEqual(terminal.finish(), 0)
        self.assertEqual(self.ok("info", "--json").json()["place"]["city"], "上海")

    def test_a_terminal_without_abilities(self):
        terminal = Terminal(self)
        terminal.wait_for("orvo> ")
        terminal.type("terms --year 2024\n")
        terminal.wait_for("2024-12-21")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), 0)


if __name__ == "__main__":
    main()
