"""orvo info: the numbers against an independent computation, and what it shows in both languages."""
import csv
import json
import os

import solar_rules as sun
from orvo_program import FAILED, USAGE, ProgramTest, main

HERE = os.path.dirname(os.path.abspath(__file__))
# Degrees to the east of south.
FACINGS = {"N": 180, "NE": 135, "E": 90, "SE": 45, "S": 0, "SW": -45, "W": -90, "NW": -135}
DAYS = ["2024-01-01", "2024-02-29", "2024-12-20", "2024-12-21", "2024-12-31", "2025-01-05", "2025-01-06", "2025-03-15",
        "2025-06-22", "2025-08-31", "2025-10-08", "2025-12-22", "2025-12-25", "2026-12-07", "1900-03-01", "2100-12-31"]


def parts(day):
    return tuple(int(part) for part in day.split("-"))


class InfoNumbers(ProgramTest):
    def test_sun_agrees_with_an_independent_computation_on_every_kind_of_day(self):
        for day in DAYS:
            with self.subTest(day=day):
                answer = self.ok("info", "--place", "上海", "--date", day, "--json").json()
                place = answer["place"]
                self.assertEqual(answer["date"], day)
                self.assertAlmostEqual(answer["sun"]["declination"], sun.declination(*parts(day)), 9)
                self.assertAlmostEqual(answer["sun"]["equationOfTime"], sun.equation_of_time(*parts(day)), 9)
                noon = sun.noon(*parts(day), place["longitude"])
                half = sun.half_day(*parts(day), place["latitude"])
                self.assertAlmostEqual(answer["sun"]["noon"], noon, 9)
                self.assertAlmostEqual(answer["sun"]["sunrise"], noon - half, 7)
                self.assertAlmostEqual(answer["sun"]["sunset"], noon + half, 7)
                self.assertAlmostEqual(answer["sun"]["dayLength"], 2 * half, 7)
                self.assertIsNone(answer["sun"]["polar"])

    def test_term_in_force_and_days_to_the_next(self):
        for day in DAYS:
            with self.subTest(day=day):
                term = self.ok("info", "--date", day, "--json").json()["term"]
                index, exact = sun.term_in_force(*parts(day))
                expected = {"index": index, "name": sun.TERMS[index][0], "exact": exact,
                            "next": sun.TERMS[sun.next_term(index)][0], "daysToNext": sun.days_to_next(*parts(day))}
                self.assertEqual(term, expected)

    def test_sun_is_where_an_ephemeris_has_it(self):
        """On the days of the terms of two years. A fixed table for all years is off by up to a day, and with it by up
        to 0.75 degrees of declination (at the equinoxes) and 0.0075 hours (27 seconds) of the equation of time."""
        with open(os.path.join(HERE, "terms-2024-2025.csv"), encoding="utf-8") as stream:
            rows = list(csv.DictReader(stream))
        self.assertEqual(len(rows), 48)
        lines = "".join(f"info --json --date {row['instant_beijing'][:10]}\n" for row in rows)
        answers = self.ok(text=lines).out.replace("}\n{", "}\n\0{").split("\0")
        self.assertEqual(len(answers), 48)
        for row, text in zip(rows, answers):
            with self.subTest(term=row["term_zh"], day=row["instant_beijing"]):
                found = json.loads(text)["sun"]
                self.assertLess(abs(found["declination"] - float(row["declination_deg_at_1200_beijing"])), 0.75)
                self.assertLess(abs(found["equationOfTime"] - float(row["eot_hours_at_1200_beijing"])), 0.0075)

    def test_facings_follow_the_shanghai_rule(self):
        listed = self.ok("info", "--json").json()["shanghaiValidTime"]
        self.assertEqual({entry["facing"] for entry in listed}, set(FACINGS))
        for entry in listed:
            start, end = sun.shanghai_valid_time(FACINGS[entry["facing"]])
            self.assertEqual((entry["facing"], entry["start"], entry["end"]), (entry["facing"], start, end))
            self.assertEqual(entry["counts"], start < end)
            self.assertEqual((entry["direction"] - (FACINGS[entry["facing"]] + 270)) % 360, 0, entry)

    def test_polar_day_and_polar_night(self):
        zone = ('<ORVO_ZONEDATA><北极 type="PROVINCE"><朗伊尔 type="CITY" longitude="15.6" latitude="78.2"/>'
                '<极点 type="CITY" longitude="0" latitude="90"/></北极></ORVO_ZONEDATA>')
        self.write("zone.xml", zone)
        for place in ("朗伊尔", "极点"):
            day = self.ok("info", "--place", place, "--date", "2025-6-22", "--json").json()["sun"]
            self.assertEqual((day["polar"], day["dayLength"], day["sunrise"], day["sunset"]), ("day", 24, None, None))
            night = self.ok("info", "--place", place, "--date", "2025-12-22", "--json").json()["sun"]
            self.assertEqual((night["polar"], night["dayLength"], night["sunrise"]), ("night", 0, None))
        self.assertIn("极昼", self.ok("info", "--place", "极点", "--date", "2025-6-22").out)
        self.assertIn("极夜", self.ok("info", "--place", "极点", "--date", "2025-12-22").out)

    def test_a_southern_and_far_western_place(self):
        zone = ('<ORVO_ZONEDATA><南 type="PROVINCE"><利马 type="CITY" longitude="-77.03" latitude="-12.05"/>'
                '</南></ORVO_ZONEDATA>')
        self.write("zone.xml", zone)
        found = self.ok("info", "--place", "利马", "--date", "2025-12-22", "--json").json()["sun"]
        noon, half = sun.noon(2025, 12, 22, -77.03), sun.half_day(2025, 12, 22, -12.05)
        self.assertGreater(half, 6.0)
        self.assertAlmostEqual(found["sunset"], noon + half, 7)
        self.assertIn("（次日）", self.ok("info", "--place", "利马", "--date", "2025-12-22").out)


class InfoTexts(ProgramTest):
    def test_shows_the_note_the_place_and_the_rules(self):
        text = self.ok("info", "--date", "2025-12-22").out
        first = text.splitlines()[0]
        self.assertEqual(first, "分析标准:上海标准;地区:北京;时间:2025年12月22日(冬至)09:00～15:00,计算精度:10分钟")
        for words in ("北京/北京", "满窗日照分析", "最长有效连照分析(连续)", "真太阳时", "上海规定", "累计所有时间段", "-23.4500 度",
                      "15 天后小寒", "不计大气折射"):
            self.assertIn(words, text)

    def test_clock_times_are_rounded_to_the_second(self):
        text = self.ok("info", "--place", "上海", "--date", "2025-12-22").out
        place = self.ok("info", "--place", "上海", "--json").json()["place"]
        seconds = round(sun.noon(2025, 12, 22, place["longitude"]) * 3600)
        self.assertIn(f"{seconds // 3600:02}:{seconds // 60 % 60:02}:{seconds % 60:02} 北京时间", text)

    def test_the_table_of_the_shanghai_rule_stands_only_where_that_rule_is_in_force(self):
        title = "上海规定的有效时段"
        for standard in self.ok("standards", "--json").json()["standards"]:
            with self.subTest(standard=standard["name"]):
                text = self.ok("info", "--standard", standard["name"]).out
                self.assertEqual(title in text, standard["validSunType"] == 0)
                self.assertEqual("东北" in text, standard["validSunType"] == 0)
                self.assertNotRegex(text, r"\n\n$")
                listed = self.ok("info", "--standard", standard["name"], "--json").json()["shanghaiValidTime"]
                self.assertEqual(len(listed), 8, "the data are the same for everybody")
        self.write("SunSet.xml", "<ORVO><CUR_SUNSETDATA><CUR_CITY>上海</CUR_CITY></CUR_SUNSETDATA></ORVO>")
        self.assertNotIn(title, self.ok("info").out)

    def test_speaks_english(self):
        text = self.ok("info", "--date", "2025-12-22", "--language", "en").out
        for words in ("Sunrise", "Winter Solstice", "whole window", "no refraction", "northeast"):
            self.assertIn(words, text)
        self.assertNotIn("日出", text)
        self.assertNotIn("当前标准", text)

    def test_numbers_are_the_same_in_both_languages(self):
        chinese = self.ok("info", "--date", "2025-12-22", "--json").json()
        english = self.ok("info", "--date", "2025-12-22", "--json", "--language", "en").json()
        for key in ("place", "date", "settingsDate", "term", "sun", "shanghaiValidTime"):
            self.assertEqual(chinese[key], english[key])

    def test_position_is_shown_as_stored_and_in_minutes(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><省 type="PROVINCE"><城 type="CITY" longitude=" 116.9999" latitude="39.9"/>'
                               '</省></ORVO_ZONEDATA>')
        text = self.ok("info", "--place", "城").out
        self.assertIn("116度60分（116.9999 度）", text)
        self.assertIn(" 39度54分（39.9 度）", text)


class InfoOverrides(ProgramTest):
    def test_overrides_last_for_one_answer(self):
        self.ok("info")
        before = self.files()
        self.ok("info", "--place", "上海", "--date", "2024-6-21", "--standard", "国标大寒日")
        self.assertEqual(self.files(), before)
        self.assertEqual(self.ok("info", "--json").json()["place"]["city"], "北京")

    def test_overrides_last_for_one_line_of_the_prompt(self):
        shown = self.ok(text="info --place 上海 --standard 国标大寒日\ninfo\n").out
        last_note = [line for line in shown.splitlines() if line.startswith("分析标准:")][-1]
        self.assertTrue(last_note.startswith("分析标准:上海标准;地区:北京;"), last_note)

    def test_a_standard_brings_its_day_span_and_step(self):
        answer = self.ok("info", "--standard", "国标大寒日", "--json").json()
        self.assertEqual(answer["date"][5:], "01-20")
        self.assertEqual(answer["settingsDate"][5:], "01-20")
        self.assertEqual((answer["standard"]["start"], answer["standard"]["end"], answer["standard"]["step"]), (8, 16, 1))
        self.assertIn("08:00～16:00,计算精度:1分钟", answer["note"])

    def test_a_date_beats_the_standards_own(self):
        answer = self.ok("info", "--standard", "国标大寒日", "--date", "2025-3-1", "--json").json()
        self.assertEqual((answer["date"], answer["settingsDate"], answer["standard"]["date"]), ("2025-03-01",) * 3)

    def test_place_may_be_named_with_its_province(self):
        self.assertEqual(self.ok("info", "--place", "浙江/杭州", "--json").json()["place"]["province"], "浙江")

    def test_unknown_names_are_answered_with_near_ones(self):
        self.assertIn("上海", self.refused(FAILED, "info", "--place", "上海市").err)
        self.assertIn("呼和浩特", self.refused(FAILED, "info", "--place", "呼和浩").err)
        self.assertIn("国标大寒日", self.refused(FAILED, "info", "--standard", "国标大寒").err)
        self.assertIn("上海标准", self.refused(FAILED, "info", "--standard", "qqqq").err)
        self.assertIn("qqqq", self.refused(FAILED, "info", "--place", "qqqq").err)
        self.assertIn("杭州", self.refused(FAILED, "info", "--place", "浙江").err)
        self.refused(FAILED, "info", "--place", "")
        self.refused(FAILED, "info", "--place", "浙江/上海")

    def test_says_where_the_declination_is_a_formulas(self):
        note = "（节气之间按程序的公式）"
        for command in ("info", "sun"):
            self.assertNotIn(note, self.ok(command, "--date", "2025-12-22").out)
            self.assertRegex(self.ok(command, "--date", "2025-12-23").out, r"太阳赤纬 +-23\.\d{4} 度" + note)
        self.assertIn("by the program's formula", self.ok("info", "--date", "2025-12-23", "--language", "en").out)

    def test_days_that_do_not_exist_are_refused(self):
        for day in ("2025-2-30", "2025-2-29", "2100-2-29", "2025-13-1", "2025-0-1", "2025-1-0", "0-1-1", "10000-1-1", "12-22",
                    "2025-12", "2025-12-22-1", "2025-12-22-", "-2025-12-22", "2025/12-22", "tomorrow", "", " 2025-1-1",
                    "2025-１-1", "99999999999-1-1", "2025--1-1"):
            with self.subTest(day=day):
                self.refused(USAGE, "info", "--date=" + day if day else "--date", *([] if day else [""]))
        self.ok("info", "--date", "2024-2-29")
        self.ok("info", "--date", "2025-01-01")


if __name__ == "__main__":
    main()
