"""orvo set: what it changes, what it refuses, and that a failed save changes nothing."""
import os
import xml.etree.ElementTree as tree

from orvo_program import FAILED, USAGE, ProgramTest, main, shipped


class SetValues(ProgramTest):
    def settings(self):
        root = tree.fromstring(self.read("SunSet.xml"))
        return root, {child.tag: child.text for child in root.find("CUR_SUNSETDATA")}

    def standard(self, name):
        root, _ = self.settings()
        return next(child for child in root if child.get("localname") == name)

    def test_place_lasts(self):
        text = self.ok("set", "--place", "上海").out
        self.assertIn("上海/上海", text)
        self.assertIn(self.file("SunSet.xml"), text)
        self.assertEqual(self.settings()[1]["CUR_CITY"], "上海")
        self.assertEqual(self.ok("info", "--json").json()["place"]["city"], "上海")

    def test_place_by_province(self):
        self.ok("set", "--place", "浙江/杭州")
        self.assertEqual(self.settings()[1]["CUR_CITY"], "杭州")

    def test_day_span_and_step_go_to_the_settings_and_to_the_current_standard(self):
        text = self.ok("set", "--date", "2024-2-29", "--start", "8:30", "--end", "16:45", "--step", "5").out
        self.assertIn("当前标准“上海标准”", text)
        _, values = self.settings()
        self.assertEqual((values["CUR_DATA"], float(values["CUR_STARTTIME"]), float(values["CUR_ENDTIME"]),
                          float(values["CUR_SPACE"])), ("2024- 2-29", 8.5, 16.75, 5.0))
        standard = self.standard("上海标准")
        self.assertEqual(standard.get("date"), "2024- 2-29")
        self.assertEqual([float(standard.find(key).text) for key in ("StartTime", "EndTime", "Space")], [8.5, 16.75, 5.0])
        note = self.ok("info").out.splitlines()[0]
        self.assertEqual(note, "分析标准:上海标准;地区:北京;时间:2024年 2月29日08:30～16:45,计算精度:5分钟")
        self.assertEqual(text.splitlines()[-1], note)

    def test_other_standards_stay(self):
        self.ok("info")
        others = {child.get("localname"): tree.tostring(child) for child in self.settings()[0]
                  if child.get("type") == "SunStd" and child.get("localname") != "上海标准"}
        self.assertEqual(len(others), 5)
        self.ok("set", "--date", "2024-2-29", "--start", "8:30", "--step", "5")
        for name, before in others.items():
            self.assertEqual(tree.tostring(self.standard(name)), before)

    def test_choosing_a_standard_takes_its_day_span_and_step(self):
        self.ok("set", "--standard", "国标大寒日")
        note = self.ok("info").out.splitlines()[0]
        self.assertRegex(note, r"^分析标准:国标大寒日;.*年 1月20日\(大寒\)08:00～16:00,计算精度:1分钟$")
        root, values = self.settings()
        self.assertEqual(root.find("CUR_SUNSETSTD").text, "国标大寒日")
        self.assertEqual(values["CUR_STDINDEX"], "1")

    def test_values_beside_a_standard_go_into_that_standard(self):
        before = self.standard_bytes("上海标准")
        self.ok("set", "--standard", "国标大寒日", "--end", "14:00")
        self.assertEqual(float(self.standard("国标大寒日").find("EndTime").text), 14.0)
        self.assertEqual(self.standard_bytes("上海标准"), before)

    def standard_bytes(self, name):
        self.ok("info")
        return tree.tostring(self.standard(name))

    def test_colours_of_standards_survive(self):
        mine = shipped("SunSet.xml").replace(b"1-0.000000;2-1.000000", b"7-0.500000;9-1.250000")
        self.assertNotEqual(mine, shipped("SunSet.xml"))
        self.write("SunSet.xml", mine)
        self.ok("set", "--place", "上海")
        self.ok("set", "--standard", "国标冬至日", "--step", "3")
        self.assertEqual(self.read("SunSet.xml").count(b"7-0.500000;9-1.250000"), mine.count(b"7-0.500000;9-1.250000"))
        colors = self.ok("info", "--json").json()["standard"]["colors"]["time"]
        self.assertEqual(colors[:2], [{"hours": 0.5, "color": 7}, {"hours": 1.25, "color": 9}])

    def test_data_are_the_same_in_both_languages(self):
        steps = [["set", "--place", "上海", "--date", "2025-6-1"], ["set", "--standard", "杭州大寒日", "--step", "9"]]
        for arguments in steps:
            self.ok(*arguments)
        chinese = self.files()
        for name in chinese:
            os.remove(self.file(name))
        for arguments in steps:
            self.ok(*arguments, "--language", "en")
        english = self.files()
        for name in chinese:
            self.assertEqual(english[name], chinese[name], name)

    def test_the_version_before_is_kept(self):
        self.ok("set", "--place", "上海")
        self.assertEqual(self.read("SunSet.xml.bak"), shipped("SunSet.xml"))

    def test_midnight_and_the_end_of_the_day(self):
        self.ok("set", "--start", "0:00", "--end", "24:00")
        self.assertIn("00:00～24:00", self.ok("info").out)


class SetRefusals(ProgramTest):
    def nothing_changes(self, code, *arguments):
        self.ok("info")
        before = self.files()
        answer = self.refused(code, "set", *arguments)
        self.assertEqual(self.files(), before)
        return answer

    def test_values_that_make_no_sense(self):
        for arguments in (["--date", "2025-2-30"], ["--date", "12-22"], ["--start", "25:00"], ["--start", "9"],
                          ["--start", "9:60"], ["--start", "9:5"], ["--start", "-9:00"], ["--start", "24:01"],
                          ["--end", "9.30"], ["--end", ""], ["--step", "0"], ["--step", "-5"], ["--step", "61"],
                          ["--step", "1.5"], ["--step", "1e1"], ["--step", "99999999999999999999"], ["--step", ""],
                          ["--start", "15:00"], ["--start", "16:00"], ["--end", "9:00"],
                          ["--start", "12:00", "--end", "11:59"], ["--standard", "国标大寒日", "--start", "16:00"]):
            with self.subTest(arguments=arguments):
                self.nothing_changes(USAGE, *arguments)

    def test_unknown_names(self):
        self.assertIn("上海", self.nothing_changes(FAILED, "--place", "上海市").err)
        self.assertIn("国标大寒日", self.nothing_changes(FAILED, "--standard", "国标大寒").err)
        self.nothing_changes(FAILED, "--place", "")

    def test_one_bad_value_keeps_the_good_ones_out(self):
        self.nothing_changes(USAGE, "--place", "上海", "--date", "2025-2-30")
        self.nothing_changes(FAILED, "--date", "2025-3-1", "--step", "5", "--standard", "没有")

    def test_nothing_to_set(self):
        self.assertIn("--place", self.nothing_changes(USAGE).err)

    def test_a_name_that_would_later_mean_another_place(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><甲 type="PROVINCE"><同名 type="CITY" longitude="100" latitude="30"/></甲>'
                               '<乙 type="PROVINCE"><同名 type="CITY" longitude="110" latitude="40"/></乙></ORVO_ZONEDATA>')
        self.assertEqual(self.ok("info", "--place", "乙/同名", "--json").json()["place"]["longitude"], 110)
        self.assertEqual(self.ok("info", "--place", "同名", "--json").json()["place"]["longitude"], 100)
        self.assertIn("甲/同名", self.refused(FAILED, "set", "--place", "乙/同名").err)
        self.ok("set", "--place", "甲/同名")

    def test_a_place_off_the_globe(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><省 type="PROVINCE"><远 type="CITY" longitude="1e300" latitude="40"/>'
                               '<高 type="CITY" longitude="100" latitude="91"/><空 type="CITY"/></省></ORVO_ZONEDATA>')
        for place in ("远", "高"):
            self.refused(FAILED, "set", "--place", place)
            self.refused(FAILED, "info", "--place", place)
        self.assertEqual(self.ok("info", "--place", "空", "--json").json()["place"]["latitude"], 0)


class SetThatCannotSave(ProgramTest):
    def check(self, **more):
        before = self.files()
        answer = self.orvo("set", "--place", "上海", "--step", "5", **more)
        self.assertEqual((answer.code, answer.out), (FAILED, ""), answer)
        self.assertIn("设置没有保存", answer.err)
        return before

    def test_read_only_folder(self):
        self.ok("info")
        self.become_ordinary_user()
        os.chmod(self.folder, 0o500)
        before = self.check()
        self.assertEqual(self.files(), before)

    def test_target_is_a_link_into_nothing(self):
        self.ok("info")
        os.remove(self.file("SunSet.xml"))
        os.symlink("/proc/orvo/no/such/folder/SunSet.xml", self.file("SunSet.xml"))
        answer = self.orvo("set", "--place", "上海")
        self.assertEqual(answer.code, FAILED, answer)

    def test_full_disk(self):
        self.ok("info")
        before = self.check(largest_file=1024)
        self.assertEqual(self.files(), before)

    def test_the_prompt_goes_on_with_the_settings_as_they_were(self):
        first = self.ok("info").out.splitlines()[0]
        lines = "set --place 上海 --date 2025-3-1 --start 10:00 --end 11:00 --step 5 --standard 国标大寒日\ninfo\nstandards\n"
        answer = self.orvo(text=lines, largest_file=1024)
        self.assertEqual(answer.code, FAILED)
        self.assertEqual(answer.out.splitlines()[0], first)
        self.assertTrue(answer.out.endswith(self.ok("standards").out))



if __name__ == "__main__":
    main()
