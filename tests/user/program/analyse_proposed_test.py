"""orvo analyse --proposed and --threads: windows before and after a project, and the same bytes from any number of threads."""
import csv
import io
import os
import random
import shutil
import signal

from analyse_test import (COURTYARD, DOCUMENT, HEADINGS, STANDARD, WINDOW, AnalyseTest, box, drawing, groups, south_window,
                          text)
from orvo_program import FAILED, OK, USAGE, main
from prompt_test import Terminal

COMPARED = ["before", "lost", "from", "to", "by"]

# Two flats of a house, a tower of the project to the south, and something old beside it.
SITE = [box("A1", "建筑", 0, 0, 30, 8, 6), south_window("B1"), text("B2", "WINDOW", "1-101-1", 4.7, 0, 1.7),
        south_window("B3", left=24, right=25.5), text("B4", "WINDOW", "1-102-1", 24.7, 0, 1.7),
        box("A2", "旧", -5, -30, 3, -22, 20)]
TOWER = box("C1", "方案", 12, -30, 24, -20, 45)


class Proposed(AnalyseTest):
    def asked(self, name, *more):
        return (name, "--standard", STANDARD, "--need", "5", "--proposed", "方案", *more)

    def test_a_window_has_its_own_members_and_those_of_a_drawing_without_the_project(self):
        name = self.put(drawing(*SITE, TOWER))
        document = self.document(*self.asked(name))
        self.assertEqual(list(document), [*DOCUMENT[:8], "proposed", *DOCUMENT[8:]])
        self.assertEqual(document["proposed"], ["方案"])
        plain = self.document(*self.asked(name)[:-2])["windows"]
        without = self.document(*self.asked(self.put(drawing(*SITE), "b.dxf"))[:-2])["windows"]
        for window, now, before in zip(document["windows"], plain, without, strict=True):
            self.assertEqual(list(window), [*(member for member in WINDOW if member != "part"), "before", "change"])
            change = window["change"]
            self.assertEqual(change["minutes"], window["judged"] - window["before"]["judged"])
            self.assertLess(change["minutes"], -60)
            self.assertEqual((change["from"], change["to"]), ("pass", "fail"))
            self.assertEqual({member: window[member] for member in now}, now)
            self.assertEqual(list(window["before"]), list(before))
            for member in before:
                if member in ("sunlit", "hidden"):
                    self.assertEqual(len(window["before"][member]), len(before[member]))
                    for one, other in zip(window["before"][member], before[member]):
                        self.assertAlmostEqual(one["start"], other["start"], 9)
                        self.assertAlmostEqual(one["end"], other["end"], 9)
                        self.assertEqual(one.get("by"), other.get("by"))
                else:
                    self.assertEqual(window["before"][member], before[member], member)

    def test_without_the_option_nothing_is_compared(self):
        document = self.document(self.put(drawing(*SITE, TOWER)))
        self.assertEqual(list(document), DOCUMENT)
        self.assertNotIn("before", document["windows"][0])

    def test_windows_on_the_project_are_told_apart(self):
        name = self.put(drawing(*SITE, TOWER, south_window("D1", left=15, right=16.5, y=-30)))
        windows = {window["handle"]: window for window in self.document(*self.asked(name))["windows"]}
        self.assertIsNone(windows["D1"]["before"])
        self.assertIsNone(windows["D1"]["change"])
        self.assertIsNotNone(windows["B1"]["before"])
        answer = self.ok("analyse", *self.asked(name))
        self.assertEqual(answer.err, "")
        self.assertRegex(answer.out, r"D1 .*  在方案上\n")
        rows = list(csv.DictReader(io.StringIO(self.ok("analyse", *self.asked(name, "--csv")).out)))
        self.assertEqual([rows[2][heading] for heading in COMPARED], [""] * 5)

    def test_the_table_and_the_csv_tell_what_is_taken(self):
        name = self.put(drawing(*SITE, TOWER))
        out = self.ok("analyse", *self.asked(name)).out
        for line in ("因方案不再达标的窗：2 个\n  1-101-1 (B1), 1-102-1 (B3)\n", "因方案不再达标的户：2 户\n  1-101, 1-102\n",
                     "方案前后，按户", "方案前后，按楼", "方案前后，按层"):
            self.assertIn(line, out)
        self.assertRegex(out, r"方案中夺去日照的实体\n.*\n +C1  LWPOLYLINE  方案 +2\n")
        self.assertNotRegex(out, r"夺去  .*A2")
        answer = self.ok("analyse", *self.asked(name, "--csv")).out
        rows = list(csv.DictReader(io.StringIO(answer)))
        self.assertEqual(list(rows[0]), [*HEADINGS, *COMPARED])
        for row, window in zip(rows, self.document(*self.asked(name))["windows"], strict=True):
            self.assertAlmostEqual(float(row["before"]), window["before"]["judged"], 5)
            self.assertAlmostEqual(float(row["lost"]), -window["change"]["minutes"], 5)
            self.assertEqual((row["from"], row["to"]), ("pass", "fail"))
            self.assertRegex(row["by"], r"^[\d:]+-[\d:]+ by C1$")

    def test_several_layers_and_blocks(self):
        """The tower as a block on layer 0, inserted on the project's layer, beside a second layer of the project."""
        insert = groups((0, "INSERT"), (5, "C1"), (8, "方案"), (2, "T"), (10, 0), (20, 0))
        tower = box("D1", "0", 12, -30, 24, -20, 45)
        name = self.put(drawing(*SITE, insert, blocks=[("T", tower)]))
        plain = self.document(*self.asked(self.put(drawing(*SITE, TOWER), "b.dxf")))["windows"]
        blocked = self.document(*self.asked(name))["windows"]
        for one, other in zip(blocked, plain, strict=True):
            self.assertEqual(one["change"], other["change"])
        both = self.document(*self.asked(name, "--proposed", " 旧 "))
        self.assertEqual(both["proposed"], ["方案", " 旧 "])
        self.assertEqual([window["before"]["hidden"] for window in both["windows"]], [[], []])

    def test_a_plan_of_a_project_gets_its_height(self):
        name = self.put(drawing(*SITE, box("C1", "方案", 12, -30, 24, -20, 0)))
        flat = self.orvo("analyse", *self.asked(name, "--json"))
        self.assertIn("--height", flat.err)
        self.assertEqual([window["change"]["minutes"] for window in flat.json()["windows"]], [0, 0])
        raised = self.document(*self.asked(name, "--height", "方案=45"))["windows"]
        plain = self.document(*self.asked(self.put(drawing(*SITE, TOWER), "b.dxf")))["windows"]
        self.assertEqual([window["change"] for window in raised], [window["change"] for window in plain])

    def test_layers_that_do_nothing_are_told(self):
        layers = (("关", -7), ("空", 7))
        name = self.put(drawing(*SITE, box("C1", "关", 12, -30, 24, -20, 45), layers=layers))
        for layer, words in (("没有", "图形中没有图层“没有”（--proposed）"), ("关", "“关”关闭或冻结"),
                             ("空", "“空”上没有投影子的面"), ("window", "“window”是窗的图层")):
            answer = self.orvo("analyse", name, "--proposed", layer, "--json")
            self.assertEqual(answer.code, OK, layer)
            self.assertIn(words, answer.err)
            self.assertEqual(len(answer.err.splitlines()), 1, answer.err)
            for window in answer.json()["windows"]:
                self.assertEqual(window["change"], {"minutes": 0, "from": None, "to": None})

    def test_all_windows_on_the_project_are_told(self):
        answer = self.orvo("analyse", self.put(drawing(*SITE)), "--proposed", "建筑", "--json")
        self.assertEqual(answer.code, OK)
        self.assertIn("所有的窗（2 个）都在方案上", answer.err)
        self.assertEqual([window["before"] for window in answer.json()["windows"]], [None, None])

    def test_empty_layers_are_refused(self):
        name = self.put(drawing(*SITE))
        for layer in ("", "  "):
            answer = self.orvo("analyse", name, "--proposed", layer)
            self.assertEqual((answer.code, answer.out), (USAGE, ""))
            self.assertIn("--proposed", answer.err)


class Threads(AnalyseTest):
    def town(self, windows=60):
        """Towers at random, some of them the project's, and houses with windows among them."""
        dice = random.Random(7)
        entities = []
        for i in range(40):
            x, y = dice.uniform(-150, 150), dice.uniform(-150, -15)
            entities.append(box(f"{0x1000 + i:X}", dice.choice(["方案", "旧"]), x, y, x + dice.uniform(5, 25),
                                y + dice.uniform(5, 15), dice.uniform(10, 90)))
        entities.append(box("A1", "建筑", -150, 0, 150, 10, 60))
        for i in range(windows):
            left, sill = -149 + 298 * (i % 20) / 20, 1 + 3 * (i // 20)
            entities.append(south_window(f"{0x2000 + i:X}", left=left, right=left + 2.5, sill=sill, top=sill + 1.5))
        return self.put(drawing(*entities), "town.dxf")

    def test_any_number_of_threads_gives_the_same_bytes(self):
        name = self.town()
        for more in ([], ["--csv"], ["--json"], ["--json", "--scope"]):
            asked = ("analyse", name, "--standard", STANDARD, "--need", "3", "--proposed", "方案", *more)
            answers = [self.orvo(*asked, "--threads", threads) for threads in ("1", "2", "3", "7", "256")]
            answers.append(self.orvo(*asked))
            self.assertEqual(answers[0].code, OK)
            for handle in ("1000", "203B"):  # a tower and the last window
                self.assertIn(handle, answers[0].out)
            for answer in answers[1:]:
                self.assertEqual((answer.out, answer.err), (answers[0].out, answers[0].err), more)

    def test_numbers_that_are_none_are_refused(self):
        name = self.put(drawing(*SITE))
        for threads in ("0", "257", "-1", "two", "", "1.5", "1000000"):
            answer = self.orvo("analyse", name, "--threads", threads)
            self.assertEqual((answer.code, answer.out), (USAGE, ""), threads)
            self.assertIn("--threads", answer.err)
            self.assertIn("256", answer.err)

    def test_an_interrupt_ends_all_threads(self):
        entities = [box("A1", "建筑", 0, 0, 4000, 8, 6)]
        entities += [box(f"{0x10000 + i:X}", "旧", 2 * i, -10, 2 * i + 0.5, -9.5, 20) for i in range(2000)]
        entities += [south_window(f"{0x20000 + i:X}", left=2 * i, right=2 * i + 1.5) for i in range(1990)]
        name = self.put(drawing(*entities), "fence.dxf")
        for threads in ("1", "2", "7"):
            terminal = Terminal(self, "analyse", name, "--standard", STANDARD, "--threads", threads, "--proposed", "旧", "--json")
            terminal.wait_for("正在分析")
            os.kill(terminal.process.pid, signal.SIGINT)
            self.assertEqual(terminal.finish(), FAILED, threads)
            self.assertIn("已取消，没有分析", terminal.seen)
            self.assertNotIn('"windows"', terminal.seen)

    def test_the_sample(self):
        shutil.copy(COURTYARD, self.home)
        one = self.ok("analyse", "courtyard.dxf", "--standard", STANDARD, "--threads", "1", "--proposed", "凸窗")
        two = self.ok("analyse", "courtyard.dxf", "--standard", STANDARD, "--threads", "2", "--proposed", "凸窗")
        self.assertEqual(one.out, two.out)


if __name__ == "__main__":
    main()
