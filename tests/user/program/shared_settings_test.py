"""One settings file and several programs: nobody undoes what somebody else has set."""
import fcntl
import os
import re
import subprocess
import xml.etree.ElementTree as tree

from orvo_program import CONFIG_FILES, FAILED, OK, PROGRAM, USAGE, ProgramTest, main, shipped


class Prompt:
    """A program that waits for its next line."""

    def __init__(self, test):
        self.process = subprocess.Popen([PROGRAM], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                        env=test.environment(), cwd=test.home, text=True, encoding="utf-8")
        test.addCleanup(self.stop)
        self.ask("info")  # the settings have been read

    def ask(self, line):
        """Types a line whose answer holds the note of the settings; gives the note."""
        self.process.stdin.write(line + "\nplaces 拉萨 --json\n")
        self.process.stdin.flush()
        shown = []
        for answer in self.process.stdout:
            shown.append(answer.rstrip("\n"))
            if shown[-1] == "]":  # the end of the places
                break
        notes = [answer for answer in shown if answer.startswith("分析标准:")]
        if len(notes) != 1:
            raise AssertionError(f"{line}: {shown}")
        return notes[0]

    def end(self):
        """Gives what was complained about."""
        _, err = self.process.communicate(timeout=60)
        if self.process.returncode != OK:
            raise AssertionError(err)
        return err

    def stop(self):
        self.process.kill()
        self.process.communicate()


class Shared(ProgramTest):
    def setUp(self):
        super().setUp()
        self.ok("info")

    def settings(self):
        answer = self.ok("info", "--json").json()
        return answer["place"]["city"], answer["standard"]

    def step_of(self, name):
        listed = self.ok("standards", "--json").json()["standards"]
        return next(standard["step"] for standard in listed if standard["name"] == name)

    def leaves_no_traces(self):
        self.assertEqual([name for name in self.files() if name not in CONFIG_FILES + ["SunSet.xml.bak"]], [])


class TwoPrograms(Shared):
    def test_what_each_of_two_prompts_sets_stays_whoever_ends_last(self):
        for last in (0, 1):
            with self.subTest(last=last):
                self.ok("set", "--reset")
                prompts = [Prompt(self), Prompt(self)]
                prompts[0].ask("set --place 上海")
                prompts[1].ask("set --step 7")
                self.assertEqual(prompts[1 - last].end(), "")
                self.assertEqual(prompts[last].end(), "")
                city, standard = self.settings()
                self.assertEqual((city, standard["step"]), ("上海", 7))
        self.leaves_no_traces()

    def test_who_changed_nothing_writes_nothing_back(self):
        prompt = Prompt(self)
        self.ok("set", "--place", "杭州", "--date", "2025-3-1", "--start", "8:30", "--end", "14:00", "--step", "4")
        self.ok("set", "--standard", "国标大寒日")
        before = self.files()
        self.assertEqual(prompt.end(), "")
        self.assertEqual(self.files(), before)

    def test_a_change_takes_in_what_the_others_have_set(self):
        prompt = Prompt(self)
        self.ok("set", "--place", "杭州", "--date", "2025-3-1")
        self.assertRegex(prompt.ask("set --step 7"), "地区:杭州;时间:2025年 3月 1日.*计算精度:7分钟")
        self.assertEqual(prompt.end(), "")

    def test_the_later_of_two_changes_of_one_thing_counts_and_says_so(self):
        early, late = Prompt(self), Prompt(self)
        early.ask("set --step 7")
        self.assertIn("计算精度:9分钟", late.ask("set --step 9 --place 上海"))
        told = late.end()
        self.assertIn("计算精度", told)
        self.assertIn("标准“上海标准”的计算精度", told)
        self.assertNotIn("地区", told)
        self.assertEqual(len(told.splitlines()), 1)
        self.assertEqual(early.end(), "", "this one changed nothing since")
        city, standard = self.settings()
        self.assertEqual((city, standard["step"]), ("上海", 9))

    def test_in_english(self):
        prompt = Prompt(self)
        self.ok("set", "--step", "7")
        prompt.process.stdin.write("set --step 9\n")
        self.assertIn("另一个程序", prompt.end())
        answer = subprocess.Popen([PROGRAM, "--language", "en"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  env=self.environment(), cwd=self.home, text=True, encoding="utf-8")
        self.addCleanup(answer.kill)
        answer.stdin.write("info\n")
        answer.stdin.flush()
        answer.stdout.readline()
        self.ok("set", "--step", "5")
        _, err = answer.communicate("set --step 6\n", timeout=60)
        self.assertIn('Another program has changed, too: ', err)
        self.assertIn('standard "上海标准": Step', err)

    def test_standards_go_by_their_names(self):
        prompt = Prompt(self)
        text = self.read("SunSet.xml").decode()
        gone = re.search(r"  <国标大寒日 .*?</国标大寒日>\n", text, re.S).group()
        added = gone.replace("国标大寒日", "我的标准")
        self.write("SunSet.xml", text.replace(gone, "").replace("</ORVO_SUNSET>", added + "</ORVO_SUNSET>"))
        prompt.ask("set --standard 北京大寒日 --step 3")
        self.assertEqual(prompt.end(), "")
        listed = self.ok("standards", "--json").json()["standards"]
        self.assertEqual([standard["name"] for standard in listed],
                         ["上海标准", "国标冬至日", "北京大寒日", "北京冬至日", "杭州大寒日", "我的标准"])
        self.assertEqual([standard["name"] for standard in listed if standard["current"]], ["北京大寒日"])
        self.assertEqual(self.step_of("北京大寒日"), 3)

    def test_a_standard_that_others_added_can_be_chosen_at_once(self):
        prompt = Prompt(self)
        text = self.read("SunSet.xml").decode()
        one = re.search(r"  <国标大寒日 .*?</国标大寒日>\n", text, re.S).group().replace("国标大寒日", "我的标准")
        self.write("SunSet.xml", text.replace("</ORVO_SUNSET>", one + "</ORVO_SUNSET>"))
        self.assertIn("分析标准:我的标准;", prompt.ask("set --standard 我的标准"))
        self.assertEqual(prompt.end(), "")

    def test_a_question_about_a_place_with_its_province_changes_nothing(self):
        self.write("SunSet.xml", shipped("SunSet.xml").decode().replace(">北京<", ">北京/北京<"))
        prompt = Prompt(self)
        self.ok("set", "--place", "上海")
        self.assertEqual(prompt.end(), "")
        self.assertEqual(self.settings()[0], "上海")

    def test_a_file_that_was_damaged_meanwhile_is_told_kept_and_replaced(self):
        for damage in (b"<ORVO_SUNSET>", b"<html><head><title>x</title></head></html>"):
            with self.subTest(damage=damage):
                self.ok("set", "--reset")
                prompt = Prompt(self)
                self.write("SunSet.xml", damage)
                prompt.ask("set --step 7")
                told = prompt.end()
                self.assertIn("损坏", told)
                self.assertIn(self.file("SunSet.xml"), told)
                self.assertEqual(len(told.splitlines()), 1)
                self.assertEqual(self.step_of("上海标准"), 7)
                self.assertEqual(len(self.ok("standards", "--json").json()["standards"]), 6)
                number = 1 if damage == b"<ORVO_SUNSET>" else 2
                self.assertEqual(self.read(f"SunSet.xml.refused-{number}"), damage)
                self.ok("set", "--step", "8")
                self.assertEqual(self.read(f"SunSet.xml.refused-{number}"), damage, "no backup takes its place")


class AtTheSameTime(Shared):
    CHANGES = [["--place", "上海"], ["--date", "2025-3-1"], ["--start", "8:30"], ["--end", "16:45"], ["--step", "7"]]
    ROUNDS = 200 if os.environ.get("ORVO_TEST_SLOW") == "1" else 8

    def test_no_change_is_lost(self):
        for number in range(self.ROUNDS):
            with self.subTest(number=number):
                self.ok("set", "--reset")
                running = [subprocess.Popen([PROGRAM, "set", *change], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                            env=self.environment(), cwd=self.home) for change in self.CHANGES]
                for process in running:
                    _, err = process.communicate(timeout=120)
                    self.assertEqual((process.returncode, err.decode()), (OK, ""))
                root = tree.fromstring(self.read("SunSet.xml"))
                values = {child.tag: child.text for child in root.find("CUR_SUNSETDATA")}
                self.assertEqual((values["CUR_CITY"], values["CUR_DATA"], values["CUR_STARTTIME"], values["CUR_ENDTIME"],
                                  values["CUR_SPACE"]), ("上海", "2025- 3- 1", "8.5", "16.75", "7"))
                standard = root.find("上海标准")
                self.assertEqual([standard.get("date")] + [standard.find(key).text for key in ("StartTime", "EndTime", "Space")],
                                 ["2025- 3- 1", "8.5", "16.75", "7"])
        self.leaves_no_traces()


class Lock(Shared):
    def test_a_file_that_stays_locked_is_not_changed_by_set(self):
        before = self.files()
        with open(self.file("SunSet.xml.lock"), "w", encoding="utf-8") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            answer = self.orvo("set", "--step", "7")
            self.assertEqual((answer.code, answer.out), (FAILED, ""), answer)
            self.assertIn("设置没有改动", answer.err)
            self.assertIn(self.file("SunSet.xml"), answer.err)
            self.assertIn("不再等待", answer.err, "the module saves at the end all the same")
            answer = self.orvo("set", "--step", "99")
            self.assertEqual(answer.code, USAGE, "what is wrong by itself needs no file")
        os.remove(self.file("SunSet.xml.lock"))
        self.assertEqual(self.files(), before)

    def test_what_a_killed_program_left_of_its_lock_is_no_hindrance(self):
        self.write("SunSet.xml.lock", "")
        self.ok("set", "--step", "7")
        self.assertEqual(self.step_of("上海标准"), 7)
        self.leaves_no_traces()

    def test_a_lock_that_cannot_be_made_is_no_hindrance(self):
        os.mkdir(self.file("SunSet.xml.lock"))
        self.ok("set", "--step", "7")
        self.assertEqual(self.step_of("上海标准"), 7)

    def test_one_file_behind_a_link_has_one_lock(self):
        elsewhere = os.path.join(self.home, "elsewhere")
        os.mkdir(elsewhere)
        os.rename(self.file("SunSet.xml"), os.path.join(elsewhere, "real.xml"))
        os.symlink("../../elsewhere/real.xml", self.file("SunSet.xml"))
        with open(os.path.join(elsewhere, "real.xml.lock"), "w", encoding="utf-8") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.assertEqual(self.orvo("set", "--step", "7").code, FAILED)
        self.ok("set", "--step", "7")
        self.assertTrue(os.path.islink(self.file("SunSet.xml")))
        with open(os.path.join(elsewhere, "real.xml.bak"), "rb") as stream:
            self.assertEqual(stream.read(), shipped("SunSet.xml"))


if __name__ == "__main__":
    main()
