"""Places and days as people type them: pinyin, positions, names of terms, and the ways in which days are written."""
import json

import solar_rules as sun
from orvo_program import FAILED, USAGE, ProgramTest, main


class Places(ProgramTest):
    def place(self, text, *more):
        return self.ok("sun", "--place", text, "--json", *more).json()["place"]

    def test_pinyin_finds_places(self):
        for text, city in (("Shanghai", "上海"), ("beijing", "北京"), ("xi'an", "西安"), ("xian", "西安"), ("chongqing", "重庆"),
                           ("Xiamen", "厦门"), ("changchun", "长春"), ("lu'an", "六安"), ("luliang", "吕梁"), ("lvliang", "吕梁"),
                           ("pudong", "浦东新区"), ("liaoning/chaoyang", "朝阳"), ("beijing/chaoyang", "朝阳区"),
                           ("dali", "大理白族自治州"), ("Hohhot", "呼和浩特"), ("hong kong", "香港")):
            with self.subTest(text=text):
                self.assertEqual(self.place(text)["city"], city)

    def test_what_fits_several_places_names_them(self):
        answer = self.refused(FAILED, "info", "--place", "suzhou")
        self.assertIn("江苏/苏州、安徽/宿州", answer.err)
        answer = self.refused(FAILED, "info", "--place", "taizhou", "--language", "en")
        self.assertIn('"taizhou" may be several places; write one of these: 江苏/泰州, 浙江/台州', answer.err)
        self.assertIn("上海", self.refused(FAILED, "info", "--place", "shangai").err)

    def test_settings_keep_the_place_by_its_name(self):
        self.ok("set", "--place", "hangzhou")
        self.assertEqual(self.ok("info", "--json").json()["place"]["city"], "杭州")

    def test_listing_takes_the_beginning_in_pinyin(self):
        cities = [place["city"] for place in self.ok("places", "Cheng", "--json").json()]
        self.assertEqual(cities, ["承德", "澄迈县", "城口县", "成都"])
        self.assertEqual({place["province"] for place in self.ok("places", "zhejiang", "--json").json()}, {"浙江"})

    def test_positions_need_no_list(self):
        for text in ("121.47,31.23", "31.23N,121.47E", "东经121.47，北纬31.23"):
            with self.subTest(text=text):
                self.assertEqual(self.place(text), {"city": "121.47E,31.23N", "province": "", "longitude": 121.47, "latitude": 31.23})
        day = self.ok("info", "--place", "-70.6,-33.4", "--date", "2025-12-22", "--json").json()["sun"]
        self.assertAlmostEqual(day["noon"], sun.noon(2025, 12, 22, -70.6), 9)
        half = sun.half_day(2025, 12, 22, -33.4)
        self.assertAlmostEqual(day["sunset"] - day["sunrise"], 2 * half, 6)
        text = self.ok("info", "--place", "121.47,31.23").out
        self.assertIn("地区:121.47E,31.23N;", text)
        self.assertRegex(text, r"\n地区 +121\.47E,31\.23N\n")

    def test_positions_are_refused_where_they_are_none(self):
        for text, cause in (("31.23,121.47", "不在地球上"), ("121.47,31.2x", "不是一个位置"), ("121E,31E", "同一方向")):
            with self.subTest(text=text):
                answer = self.refused(USAGE, "info", "--place", text)
                self.assertIn(cause, answer.err)
                self.assertIn("31.23N,121.47E", answer.err)

    def test_settings_keep_no_position(self):
        before = self.ok("info").out
        self.assertIn("121E,31N", self.refused(FAILED, "set", "--place", "121,31").err)
        self.assertEqual(self.ok("info").out, before)


class Days(ProgramTest):
    def date(self, text, *more):
        return self.ok("sun", "--date", text, "--json", *more).json()["date"]

    def test_days_as_people_write_them(self):
        for text in ("2026-1-20", "2026/01/20", "2026.1.20", "2026年1月20日", "2026年 1月20日"):
            with self.subTest(text=text):
                self.assertEqual(self.date(text), "2026-01-20")
        for text in ("2026/1-20", "2026/2/30", "2026年1月20", "20.1.2026", "1/20"):
            with self.subTest(text=text):
                self.assertIn("2025-12-22", self.refused(USAGE, "info", "--date", text).err)

    def test_what_the_program_writes_it_reads(self):
        text = self.ok("info", "--date", "2027-3-5").out
        self.assertEqual(self.date(text.split("分析日期")[1].split("\n")[0].strip()), "2027-03-05")

    def test_terms_stand_for_their_days_by_the_table(self):
        lines, expected = "", []
        for index in range(24):
            name = sun.TERMS[index][0]
            for year in (2024, 2025):
                for text in (f"{year}{name}", f"{name}{year}", f"{name} {year}", f"{year}年{name}", f" {year} {name} "):
                    lines += f'sun --json --date "{text}"\n'
                    expected.append((text, "{:04}-{:02}-{:02}".format(year, *sun.term_day(index, year))))
        answers = self.ok(text=lines).out.replace("}\n{", "}\n\0{").split("\0")
        self.assertEqual(len(answers), len(expected))
        for (text, day), answer in zip(expected, answers):
            self.assertEqual(json.loads(answer)["date"], day, text)

    def test_terms_have_names_in_english_and_pinyin(self):
        for text in ("Winter Solstice 2025", "winter solstice 2025", "2025 Winter-Solstice", "dongzhi2025", "2025冬至"):
            with self.subTest(text=text):
                self.assertEqual(self.date(text, "--language", "en"), "2025-12-22")
        self.assertEqual(self.date("dong zhi 2025"), "2025-12-22")

    def test_terms_without_a_year_are_of_the_year_of_the_settings(self):
        self.ok("set", "--standard", "国标大寒日", "--date", "2024-5-1")
        self.assertEqual(self.date("大寒"), "2024-01-21")
        self.ok("set", "--date", "2025-5-1")
        self.assertEqual(self.date("大寒"), "2025-01-20")
        self.assertEqual(self.ok("info", "--date", "大寒", "--standard", "上海标准", "--json").json()["date"], "2026-01-20",
                         "of the standard that was asked for")
        self.ok("set", "--date", "冬至")
        self.assertEqual(self.ok("info", "--json").json()["date"], "2025-12-22")
        self.ok("set", "--standard", "上海标准", "--date", "大寒")
        self.assertEqual(self.ok("info", "--json").json()["date"], "2026-01-20")

    def test_what_is_no_term_is_refused(self):
        for text in ("2026大寒2027", "大", "大寒日", "0大寒", "10000大寒", "2026", "年大寒", "-2026大寒", "2026年", "20 26大寒"):
            with self.subTest(text=text):
                self.assertIn("大寒", self.refused(USAGE, "info", "--date=" + text).err)


if __name__ == "__main__":
    main()
