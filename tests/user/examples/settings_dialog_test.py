"""The example of a settings dialog: what it shows, what OK writes, what it refuses. A plug-in answers it for a person."""
import os
import re
import shutil
import tempfile

from example import HERE, OK, Example, build_folder, main


class SettingsDialog(Example):
    name = "settings-dialog"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        place = tempfile.mkdtemp(prefix="orvo-answering-")
        cls.addClassCleanup(shutil.rmtree, place)
        build_folder(os.path.join(HERE, "answering"), os.path.join(place, "answering"))
        cls.answering = os.path.join(place, "answering", "build", "answering.so")

    def answer(self, **answers):
        """Runs the command with these answers, such as START="08:30"; gives what came on both streams."""
        numbers = {"STANDARD": 1001, "PLACE": 1002, "START": 1003, "END": 1004, "HEIGHT": 1005}
        answer = self.orvo("--plugin", self.made, "--plugin", self.answering, text="SkylineSettings\n",
                           ANSWERS=";".join(f"IDC_{numbers[item]}={text}" for item, text in answers.items()))
        self.assertEqual(answer.code, OK, answer)
        self.assertNotIn("there is no", answer.err)
        return answer

    def shown(self, answer):
        return dict(re.findall(r"IDC_(\d+) shows <(.*?)>", answer.err))

    def settings(self):
        return self.ok("info", "--json").json()

    def test_shows_the_settings_that_all_share(self):
        self.ok("set", "--place", "上海", "--standard", "国标大寒日", "--start", "09:10", "--end", "14:50")
        answer = self.answer()
        self.assertEqual(self.shown(answer), {"1001": "国标大寒日", "1002": "上海", "1003": "09:10", "1004": "14:50", "1005": "10"})
        standards = self.ok("standards", "--json").json()["standards"]
        self.assertIn("|".join(standard["name"] for standard in standards), answer.err)
        self.assertIn("地区数据库...", answer.err)

    def test_ok_writes_what_was_chosen_and_it_is_saved(self):
        self.ok("set", "--place", "上海")
        answer = self.answer(START="10:00", END="13:30", HEIGHT="12.5")
        self.assertIn("skyline: 12.5 degrees", answer.out)
        self.assertIn("10:00", answer.out)
        self.assertEqual(self.shown(self.answer())["1003"], "10:00")
        self.assertEqual(self.shown(self.answer())["1004"], "13:30")

    def test_another_standard_and_place_are_taken(self):
        standards = [standard["name"] for standard in self.ok("standards", "--json").json()["standards"]]
        self.ok("set", "--standard", standards[0], "--place", "北京")
        self.answer(STANDARD=standards[1])
        self.assertEqual(self.shown(self.answer())["1001"], standards[1])
        self.assertEqual(self.settings()["place"]["city"], "北京")

    def test_refuses_what_makes_no_sense(self):
        self.ok("set", "--place", "上海", "--start", "09:00", "--end", "15:00")
        for answers, words in (({"START": "15:30"}, "has to begin before it ends"), ({"HEIGHT": "x"}, "请键入一个数字"),
                               ({"HEIGHT": "91"}, "请键入一个介于")):
            with self.subTest(answers=answers):
                answer = self.answer(**answers)
                self.assertIn(words, answer.err)
                self.assertIn("it stayed open", answer.err)
                self.assertNotIn("skyline:", answer.out)
                self.assertEqual(self.shown(self.answer())["1003"], "09:00")

    def test_without_a_display_it_says_so(self):
        answer = self.orvo("--plugin", self.made, text="SkylineSettings\n")
        self.assertNotIn("skyline:", answer.out)
        self.assertNotEqual(answer.err, "")


if __name__ == "__main__":
    main()
