"""The window, on a display of the test's own: shown, typed into, closed."""
import os
import shutil
import signal
import subprocess
import time

from display import DisplayTest
from orvo_program import FAILED, OK, PROGRAM, SHIPPED, USAGE, ProgramTest, main


class WithoutDisplay(ProgramTest):
    def test_says_so(self):
        answer = self.refused(FAILED, "window")
        self.assertIn("没有显示器", answer.err)
        self.assertIn("display", self.orvo("window", LANG="en_US.UTF-8").err)

    def test_says_so_when_the_display_does_not_answer(self):
        answer = self.orvo("window", DISPLAY=":4711", XDG_RUNTIME_DIR=self.home)
        self.assertEqual((answer.code, answer.out), (FAILED, ""), answer)
        self.assertIn("没有显示器", answer.err)

    def test_the_prompt_comes_instead_of_it(self):
        self.assertEqual(self.ok(text="").out, "")
        process = subprocess.run([PROGRAM], stdin=subprocess.DEVNULL, capture_output=True, timeout=60, check=False,
                                 env=self.environment(), cwd=self.home)
        self.assertEqual((process.returncode, process.stdout, process.stderr), (OK, b"", b""))

    def test_takes_one_file(self):
        self.refused(USAGE, "window", "a.dxf", "b.dxf")


class WithDisplay(DisplayTest):
    def count_on_screen(self, red, green, blue):
        """How many pixels of the screen have this colour."""
        with open(os.path.join(self.home, "Xvfb_screen0"), "rb") as screen:
            return screen.read().count(bytes((blue, green, red)))

    def test_shows_in_the_view_which_windows_of_the_sample_fail(self):
        process = self.start("--language", "en", "window", os.path.join(SHIPPED, "samples", "courtyard.dxf"))
        window = self.wait_for("^courtyard.dxf - orvo$")
        failing = (0xD0, 0x10, 0x10)  # their edges
        self.assertEqual(self.count_on_screen(*failing), 0)
        self.xdotool("windowfocus", "--sync", window)
        self.xdotool("key", "F9")
        deadline = time.monotonic() + 60
        while self.count_on_screen(*failing) == 0:
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.1)
        self.type_line(window, "quit")
        self.ends_well(process)

    def test_shows_a_drawing_and_ends_on_quit(self):
        for words in (["window"], []):
            self.shows_and_ends(*words, os.path.join(SHIPPED, "samples", "house.dxf"))

    def shows_and_ends(self, *words):
        process = self.start(*words)
        window = self.wait_for("^house.dxf - orvo$")
        self.type_line(window, "quit")
        self.ends_well(process)

    def test_keeps_what_was_set_when_it_is_asked_to_end(self):
        self.ok("info")  # the first start
        process = self.start("window")
        window = self.wait_for("^orvo$")
        self.type_line(window, "set --step 7")
        deadline = time.monotonic() + 60
        while b">7<" not in self.read("SunSet.xml") and time.monotonic() < deadline:
            time.sleep(0.1)
        process.send_signal(signal.SIGTERM)
        self.ends_well(process)
        self.assertIn("step: 7 min", self.ok("info", LANG="en_US.UTF-8").out)

    def test_undoes_nothing_that_others_set_while_it_was_open(self):
        self.ok("info")
        process = self.start("window")
        window = self.wait_for("^orvo$")
        self.type_line(window, "set --step 7")
        deadline = time.monotonic() + 60
        while b">7<" not in self.read("SunSet.xml") and time.monotonic() < deadline:
            time.sleep(0.1)
        self.ok("set", "--place", "上海")
        self.type_line(window, "quit")
        self.ends_well(process)
        note = self.ok("info", LANG="en_US.UTF-8").out.splitlines()[0]
        self.assertIn("place: 上海", note)
        self.assertIn("step: 7 min", note)

    def test_opens_a_dialog_from_the_command_line_of_the_window(self):
        process = self.start("--language", "en", "window")  # xdotool finds no Chinese titles in every locale
        window = self.wait_for("^orvo$")
        self.type_line(window, "QSetSunPrec")
        dialog = self.wait_for("^Sunlight Settings$")
        self.xdotool("windowfocus", "--sync", dialog)
        self.xdotool("key", "Escape")
        deadline = time.monotonic() + 60
        while self.xdotool("search", "--onlyvisible", "--name", "^Sunlight Settings$").returncode == 0:
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.1)
        self.type_line(window, "quit")
        self.ends_well(process)

    def test_comes_up_when_the_program_is_started_from_a_desktop(self):
        process = self.start()
        window = self.wait_for("^orvo$")
        self.type_line(window, "exit")
        self.ends_well(process)

    def write_town(self, boxes):
        lines = ["0\nSECTION\n2\nENTITIES\n"]
        for i in range(boxes):
            x, y = i % 300 * 20, i // 300 * 20
            lines.append(f"0\nLWPOLYLINE\n8\n0\n39\n9\n70\n1\n90\n3\n10\n{x}\n20\n{y}\n10\n{x + 9}\n20\n{y}\n10\n{x}\n20\n{y + 9}\n")
        path = os.path.join(self.home, "town.dxf")
        with open(path, "w", encoding="ascii") as file:
            file.write("".join(lines) + "0\nENDSEC\n0\nEOF\n")
        return path

    def test_ends_while_a_large_drawing_is_read(self):
        self.ok("info")  # the first start
        town = self.write_town(400000)
        for seconds in (0.2, 0.6, 1.2):
            process = self.start("window", town)
            self.wait_for("^orvo$")
            time.sleep(seconds)
            process.send_signal(signal.SIGTERM)
            _, err = process.communicate(timeout=60)
            self.assertIn(process.returncode, (OK, FAILED), err.decode())

    def test_comes_back_in_the_size_and_language_that_it_had(self):
        self.ok("info")
        process = self.start("window", os.path.join(SHIPPED, "samples", "house.dxf"))
        window = self.wait_for("^house.dxf - orvo$")
        self.xdotool("windowsize", "--sync", window, "700", "520")
        self.xdotool("windowfocus", "--sync", window)
        self.xdotool("key", "alt+l", "e")  # Language, English
        deadline = time.monotonic() + 60
        while not self.kept("<language>en</language>") and time.monotonic() < deadline:
            time.sleep(0.1)
        self.type_line(window, "quit")
        self.ends_well(process)
        self.assertTrue(self.kept("house.dxf</file>"))
        process = self.start("window")
        window = self.wait_for("^orvo$")
        time.sleep(1)
        size = self.xdotool("getwindowgeometry", "--shell", window).stdout.split()
        self.assertIn("WIDTH=700", size)
        self.assertIn("HEIGHT=520", size)
        self.type_line(window, "quit")
        self.ends_well(process)
        self.assertTrue(self.kept("<language>en</language>"))

    def test_keeps_the_folder_of_a_drawing_but_not_that_of_the_samples(self):
        self.ok("info")
        sample = os.path.join(SHIPPED, "samples", "house.dxf")
        mine = os.path.join(self.home, "house.dxf")
        shutil.copy(sample, mine)
        for path, is_kept in ((sample, False), (mine, True), (sample, True)):
            self.shows_and_ends(path)
            self.assertEqual(self.kept(f"<folder>{self.home}</folder>"), is_kept)

    def test_shows_the_sun_by_a_key_and_keeps_that(self):
        self.ok("info")
        for shines in "10":
            process = self.start("window", os.path.join(SHIPPED, "samples", "house.dxf"))
            window = self.wait_for("^house.dxf - orvo$")
            self.xdotool("windowfocus", "--sync", window)
            self.xdotool("key", "F6")
            deadline = time.monotonic() + 60
            while not self.kept(f"<sun>{shines}</sun>") and time.monotonic() < deadline:
                time.sleep(0.1)
            self.type_line(window, "quit")
            self.ends_well(process)
            self.assertTrue(self.kept(f"<sun>{shines}</sun>"))

    def kept(self, text):
        """Whether the window has written this into its file."""
        return os.path.exists(self.file("window.xml")) and text.encode() in self.read("window.xml")

    def test_reads_a_drawing_anew_that_its_command_line_changed(self):
        self.ok("info")
        path = os.path.join(self.home, "house.dxf")
        shutil.copy(os.path.join(SHIPPED, "samples", "house.dxf"), path)
        process = self.start("window", path)
        window = self.wait_for("^house.dxf - orvo$")
        self.type_line(window, "entity house.dxf --set 34 39 99")
        deadline = time.monotonic() + 60
        while "99" not in self.orvo("entity", path, "--get", "34", "39").out and time.monotonic() < deadline:
            time.sleep(0.1)
        time.sleep(1)  # and read it again
        self.xdotool("key", "ctrl+s")  # without the question whether to replace what somebody else wrote
        self.type_line(window, "quit")
        self.ends_well(process)
        self.assertIn("99", self.orvo("entity", path, "--get", "34", "39").out)

    def test_a_drawing_that_cannot_be_read_gives_the_code_of_a_failure(self):
        process = self.start("window", "missing.dxf")
        window = self.wait_for("^orvo$")
        for _ in range(20):  # the command line takes nothing as long as the file is looked for
            self.type_line(window, "quit")
            try:
                process.communicate(timeout=3)
                break
            except subprocess.TimeoutExpired:
                pass
        self.assertEqual(process.returncode, FAILED)


if __name__ == "__main__":
    main()
