"""Back to what was shipped: orvo set --reset, orvo standards --reset, and how a changed standard is marked."""
import os
import re
import shutil
import xml.etree.ElementTree as tree

from orvo_program import FAILED, OK, PREFIX, USAGE, ProgramTest, main, shipped

# Each field in a standard's dictionary, its key in answers, and another value.
FIELDS = {"FullWin": ("fullWindow", "0"), "LimitWidth": ("limitWidth", "1"), "MaxContinue": ("maxContinue", "0"),
          "BJTime": ("beijingTime", "1"), "AllMaxContinueTime": ("allMaxContinueTime", "1"), "MaxWidth": ("maxWidth", "2401"),
          "MinWidth": ("minWidth", "1201"), "Space": ("step", "7"), "StartTime": ("start", "8.5"), "EndTime": ("end", "16"),
          "MinValidAngle": ("minValidAngle", "3"), "MinValidTime": ("minValidTime", "4"),
          "MinMaxValidTime": ("minMaxValidTime", "5"), "MinContinueTime": ("minContinueTime", "61"),
          "ValidSunType": ("validSunType", "1"), "TotalTimeType": ("totalTimeType", "1")}


class Marked(ProgramTest):
    def changes(self):
        return {standard["name"]: standard["changedFromShipped"]
                for standard in self.ok("standards", "--json").json()["standards"]}

    def test_a_shipped_standard_is_not(self):
        self.assertEqual(set(map(str, self.changes().values())), {"[]"})
        self.assertNotIn("与出厂值不同", self.ok("standards").out + self.ok("info").out)

    def test_set_step_on_a_shipped_standard(self):
        self.ok("set", "--step", "7")
        self.assertEqual(self.changes()["上海标准"], ["step"])
        self.assertEqual(self.ok("info", "--json").json()["standard"]["changedFromShipped"], ["step"])
        for answer in (self.ok("info").out, self.ok("standards").out.split("\n\n")[0]):
            self.assertRegex(answer, r"\n  与出厂值不同 +计算精度（“orvo standards --reset 上海标准”恢复出厂值）\n")
            self.assertRegex(answer, r"\n  其余出厂值来源 ")
            self.assertNotRegex(answer, r"\n  出厂值来源 ")
        self.assertEqual(self.ok("standards").out.count("\n  出厂值来源 "), 5)
        english = self.ok("info", "--language", "en").out
        self.assertRegex(english, r"\n  Changed since shipped +Step \(back with: orvo standards --reset 上海标准\)\n")
        self.assertNotIn("\n  Shipped values from", english)

    def test_each_field_by_its_key(self):
        good = shipped("SunSet.xml").decode()
        keys = set(self.ok("standards", "--json").json()["standards"][0])
        for tag, (key, value) in FIELDS.items():
            with self.subTest(key=key):
                self.write("SunSet.xml", re.sub(rf"(<{tag} [^>]*>)[^<]*<", rf"\g<1>{value}<", good, count=1))
                self.assertEqual(self.changes()["上海标准"], [key])
                self.assertIn(key, keys)
        for old, new, key in (('date="2026-12-22"', 'date="2025-12-22"', "date"), ("1-0.000000;", "9-0.000000;", "colors")):
            self.write("SunSet.xml", good.replace(old, new, 1))
            self.assertEqual(self.changes()["上海标准"], [key])
            self.assertIn(key, keys)

    def test_a_standard_of_ones_own_has_no_shipped_values(self):
        self.write("SunSet.xml", shipped("SunSet.xml").decode().replace("国标大寒日", "我的标准"))
        self.assertIsNone(self.changes()["我的标准"])
        block = next(block for block in self.ok("standards").out.split("\n\n") if block.startswith("我的标准"))
        self.assertNotIn("出厂值", block)

    def test_what_is_asked_for_once_is_no_change(self):
        answer = self.ok("info", "--date", "2025-3-1", "--json").json()
        self.assertEqual((answer["standard"]["date"], answer["standard"]["changedFromShipped"]), ("2025-03-01", []))
        self.assertNotIn("与出厂值不同", self.ok("info", "--date", "2025-3-1").out)


class ResetEverything(ProgramTest):
    def test_gives_the_shipped_file_and_keeps_the_one_before(self):
        self.ok("set", "--place", "上海", "--standard", "国标大寒日", "--step", "7", "--end", "14:00")
        before = self.read("SunSet.xml")
        text = self.ok("set", "--reset").out
        self.assertEqual(self.read("SunSet.xml"), shipped("SunSet.xml"))
        self.assertEqual(self.read("SunSet.xml.bak"), before)
        self.assertIn("恢复出厂值（标准 6 个）", text)
        self.assertIn(self.file("SunSet.xml.bak"), text)
        self.assertRegex(text.splitlines()[-1], "^分析标准:上海标准;地区:北京;.*计算精度:10分钟$")
        self.assertEqual(len(text.splitlines()), 3, "no standard was deleted")
        self.assertIn("(standards: 6)", (self.ok("set", "--step", "7"), self.ok("set", "--reset", "--language", "en"))[1].out)

    def test_names_the_file_that_is_kept_beside_what_a_link_leads_to(self):
        self.ok("set", "--step", "7")
        real = os.path.join(os.path.dirname(self.file("SunSet.xml")), "real.xml")
        os.rename(self.file("SunSet.xml"), real)
        os.symlink("real.xml", self.file("SunSet.xml"))
        text = self.ok("set", "--reset").out
        named = re.search(r"留作 (\S+)", text).group(1)
        self.assertTrue(os.path.exists(named) and os.path.samefile(named, real + ".bak"), text)
        self.write("SunSet.xml", "damaged")
        text = self.orvo("set", "--reset").out
        named = re.search(r"留作 ([^（\s]+)", text).group(1)
        self.assertTrue(os.path.exists(named) and os.path.samefile(named, real + ".refused-1"), text)

    def test_names_the_standards_that_go(self):
        self.write("SunSet.xml", shipped("SunSet.xml").decode().replace("国标大寒日", "我的标准"))
        self.assertIn("已删除：我的标准\n", self.ok("set", "--reset").out)
        self.assertEqual(self.read("SunSet.xml"), shipped("SunSet.xml"))

    def test_again_changes_nothing(self):
        self.ok("set", "--step", "7")
        self.ok("set", "--reset")
        before = self.files()
        self.assertIn("本来就是出厂值", self.ok("set", "--reset").out)
        self.assertEqual(self.files(), before)

    def test_stands_alone(self):
        self.ok("set", "--step", "7")
        before = self.files()
        for more in (["--step", "5"], ["--place", "上海"], ["--standard", "上海标准"]):
            self.assertIn("--reset", self.refused(USAGE, "set", "--reset", *more).err)
        self.refused(USAGE, "set", "--reset=yes")
        self.assertEqual(self.files(), before)

    def test_mends_a_damaged_file(self):
        self.write("SunSet.xml", "<broken")
        answer = self.orvo("set", "--reset")
        self.assertEqual(answer.code, OK, answer)
        self.assertIn(".refused-1", answer.out)
        self.assertEqual(self.read("SunSet.xml"), shipped("SunSet.xml"))
        self.assertEqual(self.read("SunSet.xml.refused-1"), b"<broken")

    def test_a_prompt_goes_on_with_the_shipped_values(self):
        self.ok("set", "--place", "上海")
        text = self.ok(text="set --reset\ninfo --json\n").out
        self.assertIn('"city": "北京"', text)
        self.assertIn('"longitude": 116.', text)

    def test_that_cannot_be_saved_changes_nothing(self):
        self.ok("set", "--place", "上海", "--step", "7")
        before = self.files()
        note = self.ok("info").out.splitlines()[0]
        answer = self.orvo(text="set --reset\ninfo\nstandards --reset 上海标准\nstandards\n", largest_file=1024)
        self.assertEqual(answer.code, FAILED)
        self.assertEqual(answer.out.splitlines()[0], note)
        self.assertTrue(answer.out.endswith(self.ok("standards").out))
        self.assertEqual(self.files(), before)

    def test_without_the_shipped_file(self):
        self.ok("set", "--step", "7")
        before = self.files()
        prefix = os.path.join(self.home, "prefix")
        shutil.copytree(PREFIX, prefix)
        os.remove(os.path.join(prefix, "share", "orvo", "SunSet.xml"))
        self.program = os.path.join(prefix, "bin", "orvo")
        for arguments in (["set", "--reset"], ["standards", "--reset", "上海标准"]):
            self.assertIn("重新安装", self.refused(FAILED, *arguments).err)
        self.assertIsNone(self.ok("info", "--json").json()["standard"]["changedFromShipped"])
        self.assertEqual(self.files(), before)


class ResetOneStandard(ProgramTest):
    def standard(self, name):
        root = tree.fromstring(self.read("SunSet.xml"))
        return next((tree.tostring(child).strip() for child in root if child.get("localname") == name), None)

    def shipped_standard(self, name):
        return next(tree.tostring(child).strip() for child in tree.fromstring(shipped("SunSet.xml"))
                    if child.get("localname") == name)

    def test_gives_it_its_values_back_and_leaves_the_others(self):
        good = shipped("SunSet.xml").decode()
        self.write("SunSet.xml", good.replace("1-0.000000;2-1.000000", "7-0.500000;9-1.250000"))
        self.ok("set", "--standard", "国标大寒日", "--step", "7", "--date", "2025-3-1")
        other = self.standard("国标大寒日")
        text = self.ok("standards", "--reset", "上海标准").out
        self.assertIn("颜色", text)
        self.assertIn(self.file("SunSet.xml"), text)
        self.assertNotIn("当前标准", text)
        self.assertEqual(self.standard("上海标准"), self.shipped_standard("上海标准"))
        self.assertEqual(self.standard("国标大寒日"), other)
        self.assertIn("计算精度:7分钟", self.ok("info").out, "the settings belong to the current standard")
        self.assertIn("分析日期、颜色、计算精度\n", self.ok("standards", "--reset", "国标大寒日").out)

    def test_the_settings_follow_the_current_one(self):
        self.ok("set", "--step", "7", "--start", "8:00", "--date", "2025-3-1")
        text = self.ok("standards", "--reset", "上海标准").out
        self.assertIn("当前标准", text)
        self.assertEqual(self.read("SunSet.xml"), shipped("SunSet.xml"))

    def test_one_that_was_deleted_comes_back(self):
        good = shipped("SunSet.xml").decode()
        self.write("SunSet.xml", re.sub(r"  <国标大寒日 .*?</国标大寒日>\n", "", good, flags=re.S))
        self.assertIsNone(self.standard("国标大寒日"))
        self.assertIn("曾被删除", self.ok("standards", "--reset", "国标大寒日").out)
        self.assertEqual(self.standard("国标大寒日"), self.shipped_standard("国标大寒日"))
        self.assertEqual(self.ok("standards", "--json").json()["standards"][-1]["name"], "国标大寒日")
        self.assertIn("本来就是出厂值", self.ok("standards", "--reset", "国标大寒日").out)

    def test_one_that_comes_back_does_not_become_the_current_one_by_its_place(self):
        good = shipped("SunSet.xml").decode()
        good = re.sub(r"  <杭州大寒日 .*?</杭州大寒日>\n", "", good, flags=re.S)
        self.write("SunSet.xml", re.sub(r"(<CUR_STDINDEX [^>]*>)0<", r"\g<1>5<", good))
        self.assertIsNone(self.ok("info", "--json").json()["standard"])
        self.ok("set", "--step", "4")
        text = self.ok("standards", "--reset", "杭州大寒日").out
        self.assertNotIn("当前标准", text)
        self.assertIsNone(self.ok("info", "--json").json()["standard"])
        self.assertIn("计算精度:4分钟", self.ok("set", "--step", "4").out)

    def test_one_that_has_its_values_is_not_saved(self):
        answer = self.ok("standards", "--reset", "上海标准").out
        self.assertIn("本来就是出厂值", answer)
        self.assertNotIn("已保存", answer)

    def test_in_json(self):
        self.ok("set", "--standard", "国标大寒日", "--step", "7")
        answer = self.ok("standards", "--reset", "国标大寒日", "--json").json()
        self.assertEqual((answer["name"], answer["index"], answer["current"], answer["step"], answer["changedFromShipped"],
                          answer["reset"], answer["restored"]), ("国标大寒日", 1, True, 1, [], ["step"], False))

    def test_names_that_have_no_shipped_values(self):
        self.write("SunSet.xml", shipped("SunSet.xml").decode().replace("国标大寒日", "我的标准"))
        before = self.files()
        self.assertIn("我的标准", self.refused(FAILED, "standards", "--reset", "我的标准").err)
        self.assertIn("上海标准", self.refused(FAILED, "standards", "--reset", "上海").err)
        self.assertIn("北京大寒日", self.refused(FAILED, "standards", "--reset", "北京大寒", "--json").err)
        self.refused(FAILED, "standards", "--reset", "")
        self.assertIn("国标大寒日", self.refused(FAILED, "standards", "--reset", "国标大寒").err, "deleted, but shipped")
        self.refused(USAGE, "standards", "--reset")
        self.assertEqual({name: content for name, content in self.files().items() if name in before}, before)


if __name__ == "__main__":
    main()
