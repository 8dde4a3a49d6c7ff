"""The newcomer's plug-in: it agrees with the program, and needs nothing above the facts."""
import os
import re
import shutil
import subprocess

from example import EXAMPLES, Example, FAILED, main, shipped


class FirstPlugIn(Example):
    name = "first-plugin"

    def noon(self):
        answer = self.ok("--plugin", self.made, "noon").out
        found = re.fullmatch(r"east (\S+) north (\S+) up (\S+) altitude (\S+)\n", answer)
        self.assertTrue(found)
        return [float(number) for number in found.groups()]

    def agrees(self):
        """With the program's own answers; gives the altitude."""
        *direction, altitude = self.noon()
        times = self.ok("sun", "--json").json()["times"]
        noon = next(time for time in times if time["event"] == "noon")
        for mine, its in zip([*direction, altitude], [*noon["direction"], noon["altitude"]]):
            self.assertAlmostEqual(mine, its, delta=1e-6)
        info = self.ok("info", "--json").json()
        expected = 90 - abs(info["place"]["latitude"] - info["sun"]["declination"])
        self.assertAlmostEqual(altitude, expected, delta=1e-6)
        return altitude

    def test_agrees_over_the_current_place_on_the_current_day(self):
        altitudes = {self.agrees()}
        for place, day in (("上海", "2025-12-22"), ("哈尔滨", "2024-2-29"), ("三沙", "2026-6-22"), ("杭州", "2025-9-10")):
            with self.subTest(place=place, day=day):
                self.ok("set", "--place", place, "--date", day)
                altitudes.add(self.agrees())
        self.assertEqual(len(altitudes), 5)

    def test_agrees_on_terms_of_the_users_own(self):
        self.ok("set", "--place", "上海", "--date", "2025-12-22")
        built_in = self.agrees()
        terms = shipped("SunTerm.xml")
        self.assertIn(b'dglat="-23.45"', terms)
        self.write("SunTerm.xml", terms.replace(b'dglat="-23.45"', b'dglat="-10"'))
        self.assertAlmostEqual(self.agrees() - built_in, 13.45, delta=1e-5)

    def test_says_when_nobody_knows_the_place(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><省 type="PROVINCE"><城 type="CITY" longitude="1" latitude="2"/></省></ORVO_ZONEDATA>')
        self.assertIn("北京", self.refused(FAILED, "--plugin", self.made, "noon").err)

    def test_says_when_another_has_its_name(self):
        second = shutil.copy(self.made, os.path.join(self.home, "second.so"))
        answer = self.orvo("--plugin", self.made, "--plugin", second, "noon")
        self.assertRegex(answer.err, "noon: 已经有名为“noon”的子命令，来自“/.*/first-plugin.so”。\n")
        self.assertIn("second.so”：插件在启动时拒绝加载", answer.err)

    def test_needs_nothing_above_the_facts(self):
        with open(os.path.join(EXAMPLES, "first-plugin", "FirstPlugIn.cpp"), encoding="utf-8") as stream:
            source = stream.read()
        included = re.findall(r'#include ["<]([^">]+)', source)
        self.assertTrue(included)
        self.assertEqual([name for name in included if not name.startswith(("facts/", "platform/"))], [])
        needed = subprocess.run(["readelf", "-d", self.made], capture_output=True, text=True, check=True).stdout
        libraries = re.findall(r"NEEDED.*\[(\w*Orvo\w*)\.so\.\d+\]", needed)
        self.assertIn("libOrvoFacts", libraries)
        self.assertLessEqual(set(libraries), {"libOrvoFacts", "OrvoDataBase", "libOrvoPlatform"})

    def test_is_short(self):
        with open(os.path.join(EXAMPLES, "first-plugin", "FirstPlugIn.cpp"), encoding="utf-8") as stream:
            code = [line for line in stream if line.strip() and not line.startswith(("#include", "//"))]
        self.assertLessEqual(len(code), 30)


if __name__ == "__main__":
    main()
