"""The example of an analysis: its numbers, its options, its help, its completion, and that it can be cancelled."""
import math
import os
import pty
import select
import signal
import subprocess
import time

from example import FAILED, OK, PROGRAM, USAGE, Example, main

HOURS_OF_YEAR = 8760


class LowSun(Example):
    name = "low-sun"

    def months(self, *options):
        lines = [line.split() for line in self.ok("--plugin", self.made, "low-sun", *options).out.splitlines()]
        self.assertEqual([line[0] for line in lines], [str(month) for month in range(1, 13)])
        self.assertTrue(all(line[2] == "h" for line in lines))
        return [float(line[1]) for line in lines]

    def hours_of_june(self, latitude, altitude):
        """By the hour angle, with a declination that is right to a degree."""
        total = 0.0
        for day in range(1, 31):
            declination = math.radians(23.45 * math.sin(2 * math.pi * (284 + 151 + day) / 365))
            p, a = math.radians(latitude), math.radians(altitude)
            cosine = (math.sin(a) - math.sin(p) * math.sin(declination)) / (math.cos(p) * math.cos(declination))
            total += 2 * math.degrees(math.acos(cosine)) / 15
        return total

    def test_agrees_with_the_hour_angle(self):
        for place, latitude, altitude in (("北京", 39.905, "10"), ("上海", 31.23, "30"), ("哈尔滨", 45.8, "45.5")):
            hours = self.months("--place", place, "--altitude", altitude)
            self.assertAlmostEqual(hours[5], self.hours_of_june(latitude, float(altitude)), delta=4.0)

    def test_nothing_hides_the_sun_half_of_the_year_and_the_zenith_all_of_it(self):
        # A sun with one declination a day is up for half of a year of such days, to within the year's asymmetry.
        self.assertAlmostEqual(sum(self.months("-a", "0", "-p", "北京")), HOURS_OF_YEAR / 2, delta=60)
        self.assertEqual(self.months("-a", "90", "-p", "北京"), [0.0] * 12)

    def test_the_step_is_a_matter_of_precision(self):
        fine, coarse = (sum(self.months("--step", step)) for step in ("20", "600"))
        self.assertAlmostEqual(fine, coarse, delta=30)
        self.assertNotEqual(fine, coarse)

    def test_what_makes_no_sense_is_refused(self):
        for options, code, words in ((("--altitude", "x"), USAGE, "--altitude takes degrees from 0 to 90"),
                                     (("--altitude", "-1"), USAGE, "--altitude"), (("--altitude", "90.1"), USAGE, "--altitude"),
                                     (("--altitude", "nan"), USAGE, "--altitude"),
                                     (("--step", "0"), USAGE, "--step takes whole seconds from 1 to 3600"),
                                     (("--step", "1.5"), USAGE, "--step"), (("--place", "北"), FAILED, "北京")):
            with self.subTest(options=options):
                self.assertIn(words, self.refused(code, "--plugin", self.made, "low-sun", *options).err)

    def test_a_place_off_the_globe_is_refused(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><省 type="PROVINCE"><远 type="CITY" longitude="1" latitude="91"/></省></ORVO_ZONEDATA>')
        self.assertIn("not on the globe", self.refused(FAILED, "--plugin", self.made, "low-sun", "--place", "远").err)

    def test_has_help(self):
        lines = self.ok("--plugin", self.made, "low-sun", "--help", "--language", "en").out
        for words in ("tells for how many hours", "-p, --place NAME", "-a, --altitude DEGREES", "--step SECONDS",
                      "orvo low-sun --place 上海 --altitude 15"):
            self.assertIn(words, lines)
        self.assertIn("low-sun", self.ok("--plugin", self.made, "--help").out)

    def test_the_prompt_completes_it(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><省 type="PROVINCE"><Uppsala type="CITY" longitude="17" latitude="59"/></省></ORVO_ZONEDATA>')
        ours, theirs = pty.openpty()
        process = subprocess.Popen([PROGRAM, "--plugin", self.made], stdin=theirs, stdout=theirs, stderr=theirs,
                                   env=self.environment(), cwd=self.home)
        os.close(theirs)
        self.addCleanup(os.close, ours)
        self.addCleanup(process.kill)
        shown = b""

        def wait_for(text):
            nonlocal shown
            end = time.monotonic() + 60
            while text.encode() not in shown:
                self.assertTrue(select.select([ours], [], [], max(0, end - time.monotonic()))[0], shown.decode())
                shown += os.read(ours, 4096)
            shown = shown.split(text.encode(), 1)[1]

        wait_for("orvo> ")
        os.write(ours, b"low\t--al\t")
        wait_for("-sun ")
        wait_for("titude ")
        os.write(ours, b"90 --place Upp\t")
        wait_for("sala ")
        os.write(ours, b"\n")
        wait_for("0.0 h")
        wait_for("orvo> ")
        os.write(ours, b"quit\n")
        self.assertEqual(process.wait(60), OK)

    def test_can_be_cancelled(self):
        process = subprocess.Popen([PROGRAM, "--plugin", self.made, "low-sun", "--step", "1", "--language", "en"],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   env=self.environment(), cwd=self.home)
        self.addCleanup(process.kill)

        def catches_interrupts():
            with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
                caught = next(line for line in status if line.startswith("SigCgt:"))
            return int(caught.split()[1], 16) >> (signal.SIGINT - 1) & 1
        while not catches_interrupts():  # before it has begun, an interrupt ends the program
            self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        out, err = process.communicate(timeout=60)
        self.assertEqual(out, b"")
        self.assertIn("orvo: cancelled", err.decode())
        self.assertEqual(process.returncode, FAILED)


if __name__ == "__main__":
    main()
