"""orvo sun: altitude, azimuth and shadow through a day, against the sky turned step by step."""
import math

import solar_rules as sun
from orvo_program import FAILED, USAGE, ProgramTest, main

DAYS = ["2024-02-29", "2025-01-20", "2025-03-21", "2025-06-22", "2025-09-10", "2025-12-22"]
POLAR = ('<ORVO_ZONEDATA><北极 type="PROVINCE"><朗伊尔 type="CITY" longitude="15.6" latitude="78.2"/></北极>'
         '<南方 type="PROVINCE"><悉尼 type="CITY" longitude="151.2" latitude="-33.9"/>'
         '<赤道 type="CITY" longitude="120" latitude="0"/></南方></ORVO_ZONEDATA>')


def turned(vector, axis, degrees):
    """The vector turned about one of the axes x, y, z (0, 1, 2), counter-clockwise seen from its tip."""
    a, b = (axis + 1) % 3, (axis + 2) % 3
    cos, sin = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    result = list(vector)
    result[a] = vector[a] * cos - vector[b] * sin
    result[b] = vector[a] * sin + vector[b] * cos
    return result


def direction(latitude, declination, hours):
    """East, north, up: on the equator of the sky at noon, lifted by the declination towards the pole (in the north,
    seen from the earth's equator), turned west about the pole, then the pole lifted by the latitude."""
    way = turned([0.0, 0.0, 1.0], 0, -declination)
    way = turned(way, 1, -15.0 * (hours - 12.0))
    return turned(way, 0, latitude)


class SunNumbers(ProgramTest):
    def answer(self, *arguments):
        return self.ok("sun", "--json", *arguments).json()

    def test_every_time_agrees_with_the_turned_sky(self):
        self.write("zone.xml", POLAR)
        for place in ("朗伊尔", "悉尼", "赤道"):
            for day in DAYS:
                with self.subTest(place=place, day=day):
                    answer = self.answer("--place", place, "--date", day, "--step", "30")
                    latitude = answer["place"]["latitude"]
                    parts = tuple(int(part) for part in day.split("-"))
                    self.assertAlmostEqual(answer["sun"]["declination"], sun.declination(*parts), 9)
                    for time in answer["times"]:
                        expected = direction(latitude, sun.declination(*parts), time["trueSolarTime"])
                        for found, coordinate in zip(time["direction"], expected):
                            self.assertAlmostEqual(found, coordinate, 12)
                        east, north, up = expected
                        self.assertAlmostEqual(math.sin(math.radians(time["altitude"])), up, 12)
                        if math.hypot(east, north) > 1e-3:
                            self.assertAlmostEqual(math.sin(math.radians(time["azimuth"])), east / math.hypot(east, north), 9)
                            self.assertAlmostEqual(math.cos(math.radians(time["azimuth"])), north / math.hypot(east, north), 9)
                        self.assertTrue(0 <= time["azimuth"] < 360)
                        if time["shadow"] is not None:
                            self.assertAlmostEqual(time["shadow"] * up / math.hypot(east, north), 1.0, 9)

    def test_both_times_belong_together(self):
        answer = self.answer("--place", "乌鲁木齐", "--date", "2025-2-11")
        noon = sun.noon(2025, 2, 11, answer["place"]["longitude"])
        for time in answer["times"]:
            self.assertAlmostEqual(time["beijingTime"] - time["trueSolarTime"], noon - 12.0, 9)

    def test_tells_the_steps_while_the_sun_is_up_between_rise_and_set(self):
        answer = self.answer("--place", "上海", "--date", "2025-12-22")
        half = sun.half_day(2025, 12, 22, answer["place"]["latitude"])
        times = answer["times"]
        self.assertEqual([time["event"] for time in times],
                         ["sunrise", *[None] * 4, "noon", *[None] * 4, "sunset"])
        self.assertAlmostEqual(times[0]["trueSolarTime"], 12 - half, 7)
        self.assertAlmostEqual(times[-1]["trueSolarTime"], 12 + half, 7)
        self.assertEqual([time["trueSolarTime"] for time in times[1:-1]], list(range(8, 17)))
        self.assertEqual((times[0]["shadow"], times[-1]["shadow"]), (None, None))
        self.assertAlmostEqual(times[0]["altitude"], 0, 9)
        self.assertAlmostEqual(times[5]["altitude"], 90 - answer["place"]["latitude"] - 23.45, 9)
        self.assertEqual(times[5]["azimuth"], 180)

    def test_noon_is_told_at_any_step(self):
        for step in (1, 7, 25, 50, 60):
            with self.subTest(step=step):
                answer = self.answer("--place", "上海", "--date", "2025-6-22", "--step", str(step))
                self.assertEqual(answer["step"], step)
                times = [time["trueSolarTime"] for time in answer["times"]]
                self.assertEqual(times, sorted(set(times)))
                self.assertEqual([time["trueSolarTime"] for time in answer["times"] if time["event"] == "noon"], [12])
                inner = [time["trueSolarTime"] for time in answer["times"] if time["event"] is None]
                first, last = times[0], times[-1]
                marks = [minutes / 60 for minutes in range(0, 24 * 60, step) if first < minutes / 60 < last and minutes != 720]
                self.assertEqual(inner, marks)

    def test_polar_day_goes_round_and_polar_night_has_its_noon(self):
        self.write("zone.xml", POLAR)
        day = self.answer("--place", "朗伊尔", "--date", "2025-6-22")
        self.assertEqual([time["trueSolarTime"] for time in day["times"]], list(range(24)))
        self.assertEqual(day["sun"]["polar"], "day")
        self.assertTrue(all(time["shadow"] > 0 for time in day["times"]))
        night = self.answer("--place", "朗伊尔", "--date", "2025-12-22")
        self.assertEqual([(time["trueSolarTime"], time["event"], time["shadow"]) for time in night["times"]],
                         [(12, "noon", None)])
        self.assertAlmostEqual(night["times"][0]["altitude"], 90 - 78.2 - 23.45, 9)
        self.assertIn("极夜", self.ok("sun", "--place", "朗伊尔", "--date", "2025-12-22").out)
        self.assertIn("极昼", self.ok("sun", "--place", "朗伊尔", "--date", "2025-6-22").out)

    def test_place_and_day_are_those_of_info(self):
        for options in ([], ["--place", "杭州"], ["--date", "2024-12-21"]):
            with self.subTest(options=options):
                info = self.ok("info", "--json", *options).json()
                answer = self.answer(*options)
                self.assertEqual({key: answer[key] for key in ("place", "date", "sun")},
                                 {key: info[key] for key in ("place", "date", "sun")})


class SunShown(ProgramTest):
    def test_table_has_the_numbers_rounded(self):
        text = self.ok("sun", "--place", "上海", "--date", "2025-12-22").out
        lines = text.splitlines()
        self.assertIn("上海/上海", lines[0])
        nine = next(line for line in lines if line.startswith("09:00:00")).split()
        data = next(time for time in self.ok("sun", "--place", "上海", "--date", "2025-12-22", "--json").json()["times"]
                    if time["trueSolarTime"] == 9)
        seconds = round(data["beijingTime"] * 3600)
        self.assertEqual(nine[1], f"{seconds // 3600:02}:{seconds // 60 % 60:02}:{seconds % 60:02}")
        self.assertEqual(nine[2:], [f"{data[key]:.2f}" for key in ("altitude", "azimuth", "shadow")])
        self.assertTrue(next(line for line in lines if line.startswith("12:00:00")).endswith("正午"))
        self.assertEqual([line for line in lines if line != line.rstrip()], [])

    def test_speaks_english(self):
        text = self.ok("sun", "--date", "2025-12-22", "--language", "en").out
        for words in ("Altitude (degrees)", "Sunrise", "Noon", "no refraction", "True solar time"):
            self.assertIn(words, text)
        self.assertNotIn("太阳", text)

    def test_leaves_the_settings_alone(self):
        self.ok("info")
        before = self.files()
        self.ok("sun", "--place", "上海", "--date", "2025-6-22")
        self.assertEqual(self.files(), before)

    def test_runs_at_the_prompt(self):
        self.assertIn("正午", self.ok(text="sun --place 上海\n").out)


class SunRefusals(ProgramTest):
    def test_values_that_cannot_be(self):
        for step in ("0", "61", "-5", "x", "1.5", ""):
            with self.subTest(step=step):
                self.assertIn("--step", self.refused(USAGE, "sun", f"--step={step}").err)
        self.assertIn("2025-2-30", self.refused(USAGE, "sun", "--date", "2025-2-30").err)
        self.assertIn("相近的有：上海", self.refused(FAILED, "sun", "--place", "上海市").err)

    def test_a_place_that_nobody_knows_or_that_is_nowhere(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><省 type="PROVINCE"><城 type="CITY" longitude="0" latitude="91"/></省>'
                               '</ORVO_ZONEDATA>')
        self.assertIn("北京", self.refused(FAILED, "sun").err)
        self.assertIn("不在地球上", self.refused(FAILED, "sun", "--place", "城").err)

    def test_terms_that_no_sun_has(self):
        """Behind a first term late in January the equation of time runs on: 24 - 48 x 31 / 15 hours on the 22nd."""
        days = ["12月22日", "1月30日", *[f"{month}月{day}日" for month in range(2, 13) for day in (5, 20)]]
        self.assertEqual(len(days), 24)
        table = "".join(f'<t{i} type="Sterm" localname="n{i}" date="{day}" dgtime="{-24 if i == 1 else 24}" dglat="0"/>'
                        for i, day in enumerate(days))
        self.write("SunTerm.xml", f"<T><常年节气>{table}</常年节气><闰年节气>{table}</闰年节气></T>")
        self.ok("sun", "--date", "2025-12-22")
        self.assertIn("不合理", self.refused(FAILED, "sun", "--date", "2025-1-22").err)


if __name__ == "__main__":
    main()
