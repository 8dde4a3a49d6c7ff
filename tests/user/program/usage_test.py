"""Wrong usage, odd arguments, and standard streams that cannot be used."""
import os
import subprocess

from orvo_program import FAILED, OK, PROGRAM, USAGE, ProgramTest, main


class WrongUsage(ProgramTest):
    def test_unknown_subcommands_name_the_nearest(self):
        self.assertIn("info", self.refused(USAGE, "inof").err)
        self.assertIn("places", self.refused(USAGE, "place").err)
        self.assertIn("standards", self.refused(USAGE, "standard").err)
        everything = self.refused(USAGE, "xyzw").err
        for name in ("info", "terms", "places", "standards", "set"):
            self.assertIn(name, everything)

    def test_a_drawing_in_the_place_of_a_subcommand_is_for_the_window(self):
        for name in ("there.dxf", "there"):
            with open(os.path.join(self.home, name), "w", encoding="ascii"):
                pass
        for words in (["there.dxf"], ["there"], ["./there"], ["--language", "zh", "there.dxf"], ["there.dxf", "--language", "zh"]):
            with self.subTest(words=words):
                answer = self.refused(FAILED, *words)  # nobody sees a window here
                self.assertIn("没有显示器", answer.err)
        self.assertIn("没有文件“missing.DXF”", self.refused(FAILED, "missing.DXF").err)
        self.assertIn('There is no file "missing.dxf"', self.refused(FAILED, "missing.dxf", LANG="en_US.UTF-8").err)
        self.assertIn("多余的参数“b.dxf”", self.refused(USAGE, "there.dxf", "b.dxf").err)
        self.assertIn("没有选项 --heigth", self.refused(USAGE, "there.dxf", "--heigth", "3").err)
        self.assertIn("没有子命令“.”", self.refused(USAGE, ".").err)
        self.assertIn("没有子命令“dxf”", self.refused(USAGE, "dxf").err)
        self.assertEqual(self.ok("there.dxf", "--help").out, self.ok("window", "--help").out)

    def test_a_subcommand_comes_before_a_file_of_its_name(self):
        with open(os.path.join(self.home, "terms"), "w", encoding="ascii"):
            pass
        self.assertIn("冬至", self.ok("terms").out)

    def test_the_prompt_takes_no_drawing_for_a_subcommand(self):
        answer = self.orvo(text="house.dxf\n")
        self.assertEqual(answer.code, USAGE)
        self.assertIn("没有子命令“house.dxf”", answer.err)

    def test_unknown_options_name_the_nearest(self):
        self.assertIn("--place", self.refused(USAGE, "info", "--palce", "上海").err)
        self.assertIn("--place", self.refused(USAGE, "info", "--palce=上海").err)
        self.assertIn("--json", self.refused(USAGE, "terms", "--jsno").err)
        self.assertIn("--language", self.refused(USAGE, "--langage", "en").err)
        self.refused(USAGE, "info", "-x")
        self.refused(USAGE, "--json")
        self.refused(USAGE, "set", "--json", "--step", "5")

    def test_missing_repeated_and_unexpected_values(self):
        self.assertIn("--place", self.refused(USAGE, "info", "--place").err)
        self.assertIn("--place", self.refused(USAGE, "info", "--place", "--json").err)
        self.assertIn("--date", self.refused(USAGE, "info", "--date", "2025-1-1", "--date", "2025-1-2").err)
        self.assertIn("--place", self.refused(USAGE, "info", "--place=上海", "--place", "北京").err)
        self.refused(USAGE, "info", "上海")
        self.refused(USAGE, "places", "北", "京")
        self.refused(USAGE, "info", "terms")
        self.refused(USAGE, "--language")
        self.assertIn("zh", self.refused(USAGE, "--language", "fr", "info").err)
        self.refused(USAGE, "--language", "en", "--language", "en", "info")
        self.refused(USAGE, "terms", "--json=maybe")
        self.refused(USAGE, "")

    def test_what_has_to_be_given_stands_without_brackets(self):
        for subcommand, needed in (("analyse", "FILE"), ("points", "FILE"), ("points", "--areas LAYER..."),
                                   ("entity", "FILE"), ("record", "FRAMES..."), ("record", "-o FILE"),
                                   ("shadow", "--light dx,dy,dz")):
            usage = self.ok(subcommand, "--help").out.splitlines()[0] + " "
            self.assertIn(f" {needed} ", usage)
            self.assertNotIn(f"[{needed}]", usage)
        self.assertIn("[--windows LAYER...]", self.ok("analyse", "--help").out.splitlines()[0])
        self.assertIn("[FILE]", self.ok("window", "--help").out.splitlines()[0])

    def test_what_has_to_be_given_and_is_not_is_named_with_what_it_is(self):
        for arguments, words in ((["analyse"], "没有给出 FILE：DXF 文件"), (["points", "a.dxf"], "没有给出 --areas：轮廓所在的图层"),
                                 (["entity", "--list"], "没有给出 FILE：DXF 文件"), (["record", "a.png"], "没有给出 --output：录像文件"),
                                 (["record", "-o", "a.avi"], "没有给出 FRAMES：图像文件")):
            message = self.refused(USAGE, *arguments).err
            self.assertIn(words, message)
            self.assertIn(f"orvo {arguments[0]} --help", message)

    def test_every_refusal_points_to_the_help(self):
        self.assertIn("orvo info --help", self.refused(USAGE, "info", "--bogus").err)
        self.assertIn("orvo --help", self.refused(USAGE, "bogus").err)

    def test_refusals_in_english(self):
        answer = self.refused(USAGE, "info", "--palce", "x", "--language", "en")
        self.assertIn("there is no option --palce. Near it: --place", answer.err)
        self.assertNotRegex(answer.err, "[\u4e00-\u9fff]")

    def test_words_behind_two_dashes_are_no_options(self):
        self.assertIn("--json", self.refused(FAILED, "places", "--", "--json").err)

    def test_arguments_that_are_no_text(self):
        for argument in (b"\xff\xfe", b"\xc3\x28", b"\xed\xa0\x80", b"\x1b[31mred\x07", b"a\nb", "城\u202e市".encode(),
                         b"\xc2\x9b31m", b"x" * 100000):
            for before in ([b"info", b"--place"], [b"info", b"--date"], [b"info", b"--standard"], [b"places"], [b"set", b"--place"],
                           [], [b"info"], [b"--language"], [b"info", b"--bogus=" + argument]):
                with self.subTest(argument=argument[:20], before=before):
                    answer = self.orvo(*before, argument)
                    self.assertIn(answer.code, (FAILED, USAGE))
                    self.assertEqual(answer.out, "")
                    for character in answer.err:
                        self.assertTrue(character == "\n" or ord(character) >= 0x20 and
                                        not 0x7F <= ord(character) <= 0x9F and character != "\u202e", answer)


class StandardStreams(ProgramTest):
    def run_with(self, *arguments, **streams):
        streams.setdefault("stderr", subprocess.PIPE)
        return subprocess.run([PROGRAM, *arguments], env=self.environment(), cwd=self.home, timeout=120, check=False, **streams)

    def test_full_disk(self):
        for arguments in (["places"], ["info", "--json"], ["terms"], ["standards"], ["--help"], ["--version"]):
            with open("/dev/full", "wb") as full:
                process = self.run_with(*arguments, stdout=full)
            self.assertEqual(process.returncode, FAILED, arguments)
            self.assertIn("写不到标准输出", process.stderr.decode())

    def test_reader_that_went_away(self):
        for arguments in (["places"], ["--version"]):
            reading, writing = os.pipe()
            os.close(reading)
            process = self.run_with(*arguments, stdout=writing)
            os.close(writing)
            self.assertEqual((process.returncode, process.stderr), (FAILED, b""))

    def test_closed_streams(self):
        for redirection in (">&-", ">&- 2>&-", "<&- >&- 2>&-"):
            process = subprocess.run(["sh", "-c", f'exec "$0" places {redirection}', PROGRAM], env=self.environment(),
                                     cwd=self.home, capture_output=True, timeout=120, check=False)
            self.assertEqual(process.returncode, FAILED, redirection)
        self.assertEqual(sorted(self.files()), ["SunSet.xml", "SunTerm.xml", "zone.xml"])
        process = subprocess.run(["sh", "-c", 'exec "$0" <&-', PROGRAM], env=self.environment(), capture_output=True,
                                 timeout=120, check=False)
        self.assertEqual((process.returncode, process.stdout), (OK, b""))

    def test_closed_streams_never_end_up_in_a_file(self):
        subprocess.run(["sh", "-c", 'exec "$0" set --place 上海 >&- 2>&-', PROGRAM], env=self.environment(), timeout=120,
                       check=False)
        self.assertTrue(self.read("SunSet.xml").startswith(b"<?xml"))
        self.assertEqual(self.ok("info", "--json").json()["place"]["city"], "上海")

    def test_messages_stay_out_of_the_answer(self):
        self.write("SunSet.xml", b"broken")
        answer = self.orvo("info", "--json")
        self.assertEqual(answer.json()["place"]["city"], "北京")
        self.assertIn("SunSet.xml", answer.err)

    def test_input_that_cannot_be_read(self):
        folder = os.open(self.home, os.O_RDONLY)
        process = self.run_with(stdin=folder, stdout=subprocess.PIPE)
        os.close(folder)
        self.assertEqual(process.returncode, FAILED)
        self.assertIn("读不了标准输入", process.stderr.decode())


if __name__ == "__main__":
    main()
