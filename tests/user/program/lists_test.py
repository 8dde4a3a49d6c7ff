"""orvo terms, orvo places, orvo standards."""
import csv
import os
import xml.etree.ElementTree as tree

import solar_rules as sun
from orvo_program import FAILED, USAGE, ProgramTest, main, shipped

HERE = os.path.dirname(os.path.abspath(__file__))
STANDARDS = ["上海标准", "国标大寒日", "国标冬至日", "北京大寒日", "北京冬至日", "杭州大寒日"]


class Terms(ProgramTest):
    def check_year(self, year):
        answer = self.ok("terms", "--year", str(year), "--json").json()
        self.assertEqual((answer["year"], answer["leapYear"]), (year, sun.is_leap(year)))
        expected = []
        for index in [*range(1, 24), 0]:
            month, day = sun.term_day(index, year)
            name, _, _, equation, declination = sun.TERMS[index]
            expected.append({"index": index, "name": name, "date": f"{year:04}-{month:02}-{day:02}",
                             "equationOfTime": equation, "declination": declination})
        self.assertEqual(answer["terms"], expected)
        self.assertEqual([term["date"] for term in answer["terms"]], sorted(term["date"] for term in answer["terms"]))

    def test_common_and_leap_years_and_the_missing_century_rule(self):
        for year in (2023, 2024, 1900, 2100, 2000, 1, 9999):
            with self.subTest(year=year):
                self.check_year(year)

    def test_days_are_at_most_one_off_the_ephemeris(self):
        """A fixed table cannot follow the quarter days of each year; its declinations are within 0.25 degrees."""
        with open(os.path.join(HERE, "terms-2024-2025.csv"), encoding="utf-8") as stream:
            rows = {(row["year"], row["term_zh"]): row for row in csv.DictReader(stream)}
        self.assertEqual(len(rows), 48)
        for year in ("2024", "2025"):
            for term in self.ok("terms", "--year", year, "--json").json()["terms"]:
                row = rows[(year, term["name"])]
                self.assertEqual(term["date"][:7], row["instant_beijing"][:7])
                self.assertLessEqual(abs(int(term["date"][8:]) - int(row["instant_beijing"][8:10])), 1)
                self.assertLess(abs(term["declination"] - float(row["declination_deg"])), 0.25)
                self.assertLess(abs(term["equationOfTime"] - float(row["eot_hours"])), 0.0065)

    def test_table_for_people(self):
        lines = self.ok("terms", "--year", "2024").out.splitlines()
        self.assertEqual(len(lines), 25)
        self.assertEqual(lines[2].split(), ["大寒", "2024-01-21", "-0.179444", "-10分46秒", "-20.283333"])
        self.assertEqual(lines[24].split()[:2], ["冬至", "2024-12-21"])
        english = self.ok("terms", "--year", "2024", "--language", "en").out.splitlines()
        self.assertTrue(english[24].startswith("Winter Solstice"))

    def test_this_year_by_default(self):
        self.assertEqual(self.ok("terms").out, self.ok("terms", "--year", self.ok(
            "terms", "--json").json()["terms"][0]["date"][:4].lstrip("0")).out)

    def test_bad_years(self):
        for year in ("0", "10000", "-1", "2024.0", "x", "", "2 024", "99999999999999999999", "+2024", "0x7e8"):
            with self.subTest(year=year):
                answer = self.orvo("terms", "--year", year)
                self.assertEqual((answer.code, answer.out), (USAGE, ""), answer)

    def test_replaced_table_is_honoured(self):
        self.write("SunTerm.xml", shipped("SunTerm.xml").replace(b'dglat="-23.45"', b'dglat="-23.5"'))
        self.assertEqual(self.ok("terms", "--year", "2025", "--json").json()["terms"][23]["declination"], -23.5)
        self.assertEqual(self.ok("info", "--date", "2025-12-22", "--json").json()["sun"]["declination"], -23.5)


class Places(ProgramTest):
    def test_all_places_are_those_of_the_file_in_its_order(self):
        root = tree.fromstring(shipped("zone.xml"))
        dt = "{urn:orvo:dictionary}"

        def name(item):
            return item.get(dt + "name") or item.get(dt + "tag") or item.tag

        expected = [{"province": name(province), "city": name(city), "longitude": float(city.get("longitude")),
                     "latitude": float(city.get("latitude"))} for province in root for city in province]
        self.assertGreater(len(expected), 300)
        self.assertEqual(self.ok("places", "--json").json(), expected)

    def test_search_by_part_of_city_or_province(self):
        everything = self.ok("places", "--json").json()
        for text in ("江", "浙江", "京", "自治州"):
            expected = [place for place in everything if text in place["city"] or text in place["province"]]
            self.assertTrue(expected)
            self.assertEqual(self.ok("places", text, "--json").json(), expected)
            shown = self.ok("places", text).out.splitlines()
            self.assertEqual(len(shown), len(expected) + 2)
            self.assertIn(str(len(expected)), shown[-1])

    def test_letters_are_searched_without_case(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><P type="PROVINCE"><Paris type="CITY" longitude="2.35" latitude="48.86"/>'
                               '</P></ORVO_ZONEDATA>')
        self.assertEqual(self.ok("places", "pARIS", "--json").json()[0]["city"], "Paris")

    def test_nothing_found(self):
        self.assertIn("呼和浩特", self.refused(FAILED, "places", "呼和浩特尔").err)
        self.assertEqual(self.orvo("places", "qqq", "--json").json(), [])

    def test_a_word_that_is_a_subcommand_is_searched_for(self):
        self.refused(FAILED, "places", "info")

    def test_control_characters_of_a_file_never_reach_the_terminal(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><item xmlns:dt="urn:orvo:dictionary" dt:tag="省&#27;[31m" type="PROVINCE">'
                               '<item dt:tag="城&#10;市&#x85;" type="CITY" longitude="1" latitude="2"/></item></ORVO_ZONEDATA>')
        for answer in (self.orvo("places"), self.orvo("info"), self.orvo("info", "--place", "省")):
            for character in answer.out + answer.err:
                self.assertTrue(character == "\n" or ord(character) >= 0x20 and not 0x7F <= ord(character) <= 0x9F, answer)


class Standards(ProgramTest):
    def test_every_field_is_that_of_the_file(self):
        keys = {"fullWindow": "FullWin", "limitWidth": "LimitWidth", "maxContinue": "MaxContinue", "beijingTime": "BJTime",
                "allMaxContinueTime": "AllMaxContinueTime", "maxWidth": "MaxWidth", "minWidth": "MinWidth",
                "step": "Space", "start": "StartTime", "end": "EndTime", "minValidAngle": "MinValidAngle",
                "minValidTime": "MinValidTime", "minMaxValidTime": "MinMaxValidTime",
                "minContinueTime": "MinContinueTime", "validSunType": "ValidSunType", "totalTimeType": "TotalTimeType"}
        listed = self.ok("standards", "--json").json()["standards"]
        self.assertEqual([standard["name"] for standard in listed], STANDARDS)
        self.assertEqual([standard["current"] for standard in listed], [True] + [False] * 5)
        root = tree.fromstring(shipped("SunSet.xml"))
        stored = [child for child in root if child.get("type") == "SunStd"]
        for standard, item in zip(listed, stored, strict=True):
            values = {child.tag: child.text for child in item}
            for key, name in keys.items():
                self.assertEqual(standard[key], float(values[name]), (standard["name"], key))

    def test_listing_tells_where_values_come_from_and_to_check_them(self):
        text = self.ok("standards").out
        for words in STANDARDS + ["（当前）", "GB 50180", "核对", "没有与原文核对", "核对过"]:
            self.assertIn(words, text)
        english = self.ok("standards", "--language", "en").out
        self.assertIn("check them against the text in force", english)
        self.assertEqual(english.count("Shipped values from"), 6)

    def test_rules_in_words(self):
        blocks = self.ok("standards").out.split("\n\n")
        midpoint = next(block for block in blocks if block.startswith("北京冬至日"))
        for words in ("窗台中点分析", "不适用", "自定义", "不小于 12 度", "30 分钟", "总有效日照分析(累计)"):
            self.assertIn(words, midpoint)
        limited = next(block for block in blocks if block.startswith("国标大寒日"))
        self.assertIn("～1800 毫米", limited)
        self.assertIn("08:00～16:00", limited)
        two = next(block for block in blocks if block.startswith("杭州大寒日"))
        self.assertIn("累计最长两个时间段", two)

    def test_a_choice_that_nobody_knows_is_shown_as_such(self):
        content = shipped("SunSet.xml").decode().replace('<TotalTimeType dt:kind="3">0<', '<TotalTimeType dt:kind="3">77<')
        self.assertIn("77", content)
        self.write("SunSet.xml", content)
        self.assertIn("未知的选择 77", self.ok("info").out)

    def test_settings_without_standards(self):
        self.write("SunSet.xml", "<ORVO><CUR_SUNSETDATA><CUR_CITY>上海</CUR_CITY></CUR_SUNSETDATA></ORVO>")
        self.assertEqual(self.ok("standards", "--json").json()["standards"], [])
        self.assertIn("没有任何标准", self.ok("standards").out)
        answer = self.ok("info", "--json", "--date", "2025-6-22").json()
        self.assertEqual((answer["standard"], answer["place"]["city"], answer["date"]), (None, "上海", "2025-06-22"))
        self.assertIn("无", self.ok("info").out)
        self.ok("set", "--step", "5")
        self.assertIn("计算精度:5分钟", self.ok("info").out)

    def test_current_index_beyond_the_list(self):
        for index in ("99", "-1"):
            self.write("SunSet.xml", shipped("SunSet.xml").decode().replace(
                '<CUR_STDINDEX dt:kind="3">0<', f'<CUR_STDINDEX dt:kind="3">{index}<'))
            self.assertIsNone(self.ok("info", "--json").json()["standard"])
            self.assertFalse(any(item["current"] for item in self.ok("standards", "--json").json()["standards"]))


if __name__ == "__main__":
    main()
