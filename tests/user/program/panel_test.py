"""The window as somebody uses it who has read no manual: run by a visible button, the window that fails in the table,
the hour when it is hidden on the slider, and the report."""
import json
import os
import time

from display import DisplayTest
from orvo_program import SHIPPED, main

LOOK = os.path.join(os.environ["ORVO_PLUGINS"], "look.so")
COURTYARD = os.path.join(SHIPPED, "samples", "courtyard.dxf")
ENGLISH = {"LANG": "en_US.UTF-8"}
NOON = 12.0


class Panel(DisplayTest):
    looks = 0
    command_line = None  # it has the focus at first

    def look(self):
        """All that a screen reader finds in the window."""
        self.looks += 1
        path = os.path.join(self.home, f"look-{self.looks}.json")
        if self.command_line:
            self.click(self.command_line)
        self.xdotool("type", "--delay", "10", f"look {path}")
        self.xdotool("key", "Return")
        deadline = time.monotonic() + 60
        while not os.path.exists(path):
            self.assertLess(time.monotonic(), deadline, "nothing was written")
            time.sleep(0.05)
        with open(path, encoding="utf-8") as file:
            return json.load(file)

    def seen(self, name, **more):
        """The one thing with this name."""
        found = [each for each in self.look() if each["name"] == name and all(each[key] == more[key] for key in more)]
        self.assertEqual(len(found), 1, (name, found))
        return found[0]

    def until_seen(self, is_it):
        deadline = time.monotonic() + 60
        while True:
            found = [each for each in self.look() if is_it(each)]
            if found:
                return found[0]
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.2)

    def click(self, place):
        self.xdotool("mousemove", "--sync", *place, "click", "1")

    @staticmethod
    def middle(thing):
        return str(thing["x"] + thing["width"] // 2), str(thing["y"] + thing["height"] // 2)

    def drag_slider(self, slider, hour):
        """From noon, where its handle is in the middle, to another hour of the same day."""
        x, y = slider["x"], slider["y"] + slider["height"] // 2
        self.xdotool("mousemove", "--sync", str(x + slider["width"] // 2), str(y), "mousedown", "1")
        for step in range(1, 11):  # as a hand does
            at = x + slider["width"] * (NOON + (hour - NOON) * step / 10) / 24
            self.xdotool("mousemove", "--sync", str(round(at)), str(y))
        self.xdotool("mouseup", "1")

    def test_shows_which_window_fails_when_and_why_and_reports_it(self):
        answer = self.ok("analyse", COURTYARD, "--need", "2", "--json", **ENGLISH).json()
        failing = [window for window in answer["windows"] if window["verdict"] == "fail"]
        self.assertTrue(failing)
        names = [window["name"] for window in answer["windows"]]
        process = self.start("--plugin", LOOK, "--language", "en", "window", COURTYARD)
        window = self.wait_for("^courtyard.dxf - orvo$")
        self.xdotool("windowmove", "--sync", window, "0", "0", "windowsize", "--sync", window, "1270", "880",
                     "windowfocus", "--sync", window)
        self.command_line = self.middle(self.seen("command line"))

        self.click(self.middle(self.seen("Analyse")))
        self.until_seen(lambda each: each["name"].startswith("Windows: ") and f"failing: {len(failing)}" in each["name"])
        self.click(self.middle(self.seen("Only failing")))
        shown = [f"{one['name']} ({one['handle']})" for one in failing]
        cells = [each for each in self.look() if "(" in each["name"] and each["name"].split(" (")[0] in names]
        self.assertTrue(cells)
        self.assertEqual([each["name"] for each in cells], shown[:len(cells)])  # no others, and as many as there is room
        self.click(self.middle(cells[0]))
        self.until_seen(lambda each: each["name"].startswith(shown[0]) and "fail" in each["name"])
        hidden = max(failing[0]["hidden"], key=lambda one: one["end"] - one["start"])
        self.drag_slider(self.seen("Time of the day"), (hidden["start"] + hidden["end"]) / 2)
        who = self.until_seen(lambda each: "hidden" in each["name"] and each["name"].startswith("Beijing time"))
        for handle in hidden["by"]:
            self.assertIn(handle, who["name"])

        self.click(self.middle(self.seen("Report...")))
        dialog = self.wait_for("^Choose a Folder$")
        self.xdotool("windowfocus", "--sync", dialog)
        self.xdotool("type", "--delay", "10", os.path.join(self.home, "mine"))
        deadline = time.monotonic() + 60
        while self.xdotool("search", "--onlyvisible", "--name", "^Choose a Folder$").returncode == 0:
            self.assertLess(time.monotonic(), deadline)
            self.xdotool("key", "Return")  # the first one may close the list of what could be meant
            time.sleep(0.3)
        page = os.path.join(self.home, "mine", "index.html")
        self.until_seen(lambda each: "mine/index.html" in each["name"])
        self.type_line(window, "quit")
        self.ends_well(process)
        self.ok("analyse", COURTYARD, "--need", "2", "--report", "other", **ENGLISH)
        with open(page, "rb") as mine, open(os.path.join(self.home, "other", "index.html"), "rb") as other:
            self.assertEqual(mine.read(), other.read())


if __name__ == "__main__":
    main()
