"""orvo analyse that is interrupted: it ends at once, and nothing half-written is left."""
import os
import signal

from analyse_test import STANDARD, AnalyseTest, box, drawing, south_window
from orvo_program import FAILED, OK, main
from prompt_test import Terminal


class Interrupts(AnalyseTest):
    def long_analysis(self):
        """Minutes of work: each of 2000 windows, 400 m wide, is judged by the best of its 3983 parts behind a fence."""
        entities = [box("A1", "建筑", 0, 0, 410, 8, 12)]
        entities += [box(f"{0x1000 + i:X}", "建筑", i, -3, i + 0.5, -2.5, 12) for i in range(410)]
        entities += [south_window(f"{0x2000 + i:X}", left=4, right=404, sill=0.5 + 0.004 * i, top=2 + 0.004 * i)
                     for i in range(2000)]
        return self.put(drawing(*entities), "fence.dxf")

    def test_an_interrupt_ends_it_at_once_without_an_answer(self):
        terminal = Terminal(self, "analyse", self.long_analysis(), "--standard", STANDARD)
        terminal.wait_for("正在分析")
        terminal.type("\x03")
        terminal.wait_for("orvo: 已取消，没有分析")
        self.assertEqual(terminal.finish(), FAILED)
        self.assertNotIn("结论", terminal.seen)

    def test_signals_leave_nothing_half_written(self):
        name = self.long_analysis()
        for number in (signal.SIGINT, signal.SIGTERM):
            for arguments in ([], ["--json"], ["--csv"]):
                terminal = Terminal(self, "analyse", name, "--standard", STANDARD, *arguments)
                terminal.wait_for("正在分析")
                os.kill(terminal.process.pid, number)
                self.assertEqual(terminal.finish(), FAILED, arguments)
                self.assertNotRegex(terminal.seen, '"windows"|verdict,name|结论')

    def test_an_interrupt_at_the_prompt_gives_up_the_analysis_alone(self):
        name = self.long_analysis()
        terminal = Terminal(self)
        terminal.wait_for("orvo> ")
        terminal.type(f"analyse {name} --standard {STANDARD}\n")
        terminal.wait_for("正在分析")
        terminal.type("\x03")
        terminal.wait_for("已取消，没有分析")
        terminal.wait_for("orvo> ")
        terminal.type("places 上海\n")
        terminal.wait_for("31.2")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), OK)


if __name__ == "__main__":
    main()
