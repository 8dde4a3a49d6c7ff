"""--report: which folders are written into, what stands beside the page, and requests that cannot be met."""
import hashlib
import html
import os
import re

from analyse_test import HOUSE, NAMED, STANDARD, AnalyseTest, box, drawing, groups, south_window, text
from orvo_program import FAILED, OK, USAGE, main

SITE = drawing(*NAMED, box("A2", "建筑", 0, -20, 10, -12, 12))
GROUND = groups((0, "LWPOLYLINE"), (5, "E1"), (8, "地面"), (90, 4), (70, 1), (10, 0), (20, -10), (10, 20), (20, -10),
                (10, 20), (20, -2), (10, 0), (20, -2))
FIXED = ("--standard", STANDARD, "--need", "2")


class ReportFiles(AnalyseTest):
    def page(self, folder="report"):
        with open(os.path.join(self.home, folder, "index.html"), encoding="utf-8") as stream:
            return stream.read()

    def names(self, folder="report"):
        return sorted(os.listdir(os.path.join(self.home, folder)))

    def facts(self, page):
        rows = re.findall(r'<tr><th scope="row">(.*?)</th><td>(.*?)</td></tr>', page)
        return {html.unescape(name): html.unescape(value) for name, value in reversed(rows)}  # the head's come first

    def test_what_is_printed_stays_byte_for_byte(self):
        name = self.put(drawing(*HOUSE, south_window("B9", left=7, right=8), GROUND))
        for subcommand, more in (("analyse", FIXED), ("points", (*FIXED, "--areas", "地面"))):
            for form in ((), ("--csv",), ("--json",)):
                with self.subTest(subcommand=subcommand, form=form):
                    plain = self.orvo(subcommand, name, *more, *form)
                    reported = self.orvo(subcommand, name, *more, *form, "--report", "report")
                    self.assertEqual((reported.code, reported.bytes, reported.err), (OK, plain.bytes, plain.err))
                    self.assertIn("</html>", self.page())

    def test_the_head_says_whose_it_is_and_of_which_drawing(self):
        name = self.put(SITE, "甲 & <乙>.dxf")
        self.ok("analyse", name, *FIXED, "--report", "report", "--project", "一期 <A> & \"B\"", "--author", "李工",
                "--report-date", "2025-3-9", "--place", "上海")
        facts = self.facts(self.page())
        self.assertEqual(facts["项目"], "一期 <A> & \"B\"")
        self.assertEqual(facts["编制"], "李工")
        self.assertEqual(facts["报告日期"], "2025年03月09日")
        self.assertEqual(facts["图形"], "甲 & <乙>.dxf")
        self.assertEqual(facts["图形的 SHA-256"], hashlib.sha256(SITE.encode("utf-8")).hexdigest())
        self.assertEqual(facts["地区"], "上海/上海")
        self.assertRegex(facts["程序"], r"^orvo \d+\.\d+\.\d+$")
        self.assertIn("08:00:00-16:00:00", facts["分析时段"])
        self.assertEqual(facts["要求"], "2:00:00（时:分:秒）")
        self.assertEqual(facts["计算精度"], "1 分钟")
        self.assertIn("GB", facts["出厂值来源"])
        self.assertNotIn("时数颜色", facts, "numbers of colours say nothing to a reader; the plan shows them")

    def test_the_head_names_the_standard_its_step_and_days_as_each_language_writes_them(self):
        name = self.put(drawing(*HOUSE, south_window("B9", left=7, right=8), GROUND))
        more = ("--standard", STANDARD, "--date", "2026-1-9", "--report", "report", "--report-date", "2026-2-3")
        for subcommand, own in (("analyse", ()), ("points", ("--areas", "地面"))):
            with self.subTest(subcommand=subcommand):
                self.orvo(subcommand, name, *own, *more)
                facts = self.facts(self.page())
                self.assertEqual([facts[row] for row in ("日照标准", "计算精度", "分析日期", "报告日期")],
                                 [STANDARD, "1 分钟", "2026年01月09日", "2026年02月03日"])
                self.orvo(subcommand, name, *own, *more, LANG="en_US.UTF-8")
                page = self.page()
                facts = self.facts(page)
                self.assertEqual([facts[row] for row in ("Standard", "Step", "Day of analysis", "Date of the report")],
                                 [STANDARD, "1 min", "2026-01-09", "2026-02-03"])
                self.assertNotRegex(page, r"\d月")
                self.assertNotIn("--need", page.replace("(--need)", ""))

    def test_a_former_report_is_kept_beside_the_new_one(self):
        name = self.put(SITE)
        self.ok("analyse", name, *FIXED, "--report", "report", "--project", "first")
        first = self.page()
        self.ok("analyse", name, *FIXED, "--report", "report/", "--project", "second")
        self.assertEqual(self.facts(self.page())["项目"], "second")
        self.assertEqual(self.names(), ["index.html", "index.html.bak"])
        with open(os.path.join(self.home, "report", "index.html.bak"), encoding="utf-8") as stream:
            self.assertEqual(stream.read(), first)

    def test_folders_that_cannot_be_taken_are_refused_before_the_drawing_is_read(self):
        self.put("mine", "file")
        os.mkdir(os.path.join(self.home, "letters"))
        self.put("Dear", "letters/letter.txt")
        for folder, words in (("file", "不是文件夹"), ("letters", "别的文件"), ("no/report", "所在的文件夹不存在"),
                              ("file/report", "所在的文件夹")):
            for subcommand, more in (("analyse", ()), ("points", ("--areas", "地面"))):
                with self.subTest(folder=folder, subcommand=subcommand):
                    answer = self.refused(FAILED, subcommand, "missing.dxf", *more, "--report", folder)
                    self.assertNotIn("missing.dxf", answer.err)
                    if folder != "file/report":
                        self.assertIn(words, answer.err)
        self.assertEqual(self.names("letters"), ["letter.txt"])

    def test_nothing_else_that_is_written_bears_its_name(self):
        name = self.put(drawing(*HOUSE, south_window("B9", left=7, right=8), GROUND))
        os.mkdir(os.path.join(self.home, "report"))
        os.symlink("report", os.path.join(self.home, "link"))
        for subcommand, more in (("analyse", ()), ("points", ("--areas", "地面"))):
            for folder, written in (("report", "report/index.html"), ("report/", "./link/index.html"),
                                    ("link", "report/index.html"), ("new", "new")):
                with self.subTest(subcommand=subcommand, folder=folder, written=written):
                    answer = self.refused(USAGE, subcommand, name, *more, "--report", folder, "--write", written)
                    self.assertIn(f"--write 和 --report 都写“{written}”，没有分析", answer.err)
                    self.assertEqual(self.names(), [])
                    self.assertFalse(os.path.exists(os.path.join(self.home, "new")))
            done = self.orvo(subcommand, name, *more, "--report", "report", "--write", "link/result.dxf")
            self.assertEqual(done.code, OK, done)
            self.assertEqual(self.names(), ["index.html", "result.dxf"])
            for file in self.names():
                os.remove(os.path.join(self.home, "report", file))

    def test_a_folder_that_may_not_be_written(self):
        name = self.put(SITE)
        os.mkdir(os.path.join(self.home, "closed"))
        self.become_ordinary_user()
        os.chmod(os.path.join(self.home, "closed"), 0o500)
        answer = self.refused(FAILED, "analyse", name, *FIXED, "--report", "closed")
        self.assertIn("不能写入", answer.err)
        self.assertEqual(self.names("closed"), [])

    def test_a_full_disk_loses_neither_the_answer_nor_the_report_before(self):
        name = self.put(SITE)
        self.ok("info")  # the settings are there
        plain = self.ok("analyse", name, *FIXED)
        answer = self.orvo("analyse", name, *FIXED, "--report", "report", largest_file=4096)
        self.assertEqual((answer.code, answer.out), (FAILED, plain.out), answer)
        self.assertIn("磁盘空间不足", answer.err)
        self.assertFalse(os.path.exists(os.path.join(self.home, "report")))
        self.ok("analyse", name, *FIXED, "--report", "report")
        first = self.page()
        answer = self.orvo("analyse", name, *FIXED, "--report", "report", "--author", "B", largest_file=4096)
        self.assertEqual(answer.code, FAILED)
        self.assertEqual((self.page(), self.names()), (first, ["index.html"]))

    def test_values_that_make_no_sense(self):
        name = self.put(SITE)
        for options, words in ((("--report", ""), "--report"), (("--report", "r", "--report-date", "2025-2-30"), "2025-2-30"),
                               (("--report", "r", "--sky", " "), "--sky"), (("--project", "P"), "--project"),
                               (("--author", "A"), "--author"), (("--report-date", "2025-2-3"), "--report-date"),
                               (("--sky", "B1"), "--sky")):
            with self.subTest(options=options):
                self.assertIn(words, self.refused(USAGE, "analyse", name, *options).err)
        self.assertFalse(os.path.exists(os.path.join(self.home, "r")))

    def test_a_sky_of_no_window_is_told_and_the_rest_is_written(self):
        answer = self.orvo("analyse", self.put(SITE), *FIXED, "--report", "report", "--sky", "B1", "--sky", "B7")
        self.assertEqual(answer.code, FAILED)
        self.assertIn("“B7”（--sky）", answer.err)
        self.assertNotIn("“B1”", answer.err)
        self.assertIn("3-402-1", answer.out)
        self.assertIn("窗看到的天空", self.page())

    def test_an_analysis_that_fails_writes_no_report(self):
        self.refused(FAILED, "analyse", self.put("no drawing"), "--report", "report")
        self.assertFalse(os.path.exists(os.path.join(self.home, "report")))

    def test_a_drawing_without_windows_has_a_report_that_says_so(self):
        name = self.put(drawing(box("A1", "建筑", 0, 0, 10, 8, 6)))
        answer = self.orvo("analyse", name, *FIXED, "--report", "report")
        self.assertEqual(answer.code, FAILED)
        self.assertIn("<li>没有窗可以分析", self.page())

    def test_texts_of_a_drawing_stay_texts(self):
        evil = "</title><script>alert(1)</script>&\"'\x07]]>"
        name = self.put(drawing(*HOUSE, text("B2", "WINDOW", evil, 4.7, 0, 1.7)))
        self.orvo("analyse", name, *FIXED, "--report", "report", "--project", evil.replace("\x07", "\x1b"))
        page = self.page()
        self.assertEqual(page.count("<script"), 1)
        self.assertNotRegex(page, "[\x00-\x08\x0b-\x1f\x7f]")
        self.assertIn(html.escape("</title><script>alert(1)</script>&"), page.replace("&#39;", "&#x27;"))


if __name__ == "__main__":
    main()
