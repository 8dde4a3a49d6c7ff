"""The example of a program without windows: its numbers beside a textbook's, its film as another program reads it."""
import json
import math
import os
import re
import subprocess

from example import Example, main

PLACES = ("北京", "三亚", "哈尔滨")
DECLINATION = -20.2833  # of the term's day, as the module's table has it
POST = 10.0


class ShadowFilm(Example):
    name = "shadow-film"
    made_name = "shadow-film"

    def film(self, *arguments):
        return subprocess.run([self.made, *arguments], capture_output=True, text=True, timeout=120, cwd=self.home,
                              env=self.environment(), check=False)

    def test_the_shadows_are_where_the_textbook_has_them(self):
        for place in PLACES:
            done = self.film(place, f"{place}.avi")
            self.assertEqual((done.returncode, done.stderr), (0, ""), done)
            self.assertIn(f"{place}, 大寒, declination -20.2833 degrees", done.stdout)
            lines = re.findall(r"^ *(\d+):00 +(\S+) m east +(\S+) m north$", done.stdout, re.M)
            self.assertEqual([int(line[0]) for line in lines], list(range(9, 16)))
            latitude = self.ok("info", "--place", place, "--json").json()["place"]["latitude"]
            p, d = math.radians(latitude), math.radians(DECLINATION)
            for hour, east, north in lines:
                angle = math.radians(15 * (int(hour) - 12))
                up = math.sin(p) * math.sin(d) + math.cos(p) * math.cos(d) * math.cos(angle)
                length = POST / math.tan(math.asin(up))
                self.assertAlmostEqual(math.hypot(float(east), float(north)), length, delta=0.1)
                self.assertAlmostEqual(float(east), POST * math.cos(d) * math.sin(angle) / up, delta=0.1)
                self.assertGreater(float(north), 0)

    def test_the_film_has_a_picture_for_each_hour(self):
        self.assertEqual(self.film("北京", "post.avi").returncode, 0)
        found = json.loads(subprocess.run(
            ["ffprobe", "-v", "error", "-count_frames", "-show_streams", "-of", "json", os.path.join(self.home, "post.avi")],
            capture_output=True, text=True, check=True).stdout)["streams"][0]
        self.assertEqual((found["width"], found["height"], found["nb_read_frames"], found["r_frame_rate"]),
                         (240, 240, "7", "1/1"))
        # The post's foot is in the middle of the lower edge, and at noon the shadow goes straight up from there.
        raw = subprocess.run(["ffmpeg", "-v", "error", "-i", os.path.join(self.home, "post.avi"), "-f", "rawvideo",
                              "-pix_fmt", "rgb24", "-"], capture_output=True, check=True).stdout
        noon = raw[3 * 240 * 240 * 3:4 * 240 * 240 * 3]
        dark = [(i // 3 % 240, i // 3 // 240) for i in range(0, len(noon), 3) if noon[i] < 0x80]
        self.assertEqual({column for column, _ in dark}, {120})
        self.assertAlmostEqual(len(dark), 4 * POST / math.tan(math.radians(90 - 39.905 + DECLINATION)), delta=2)

    def test_says_what_is_wrong(self):
        self.assertEqual(self.film().returncode, 2)
        done = self.film("北", "post.avi")
        self.assertEqual(done.returncode, 1)
        self.assertIn("北京", done.stderr)
        with open(os.path.join(self.home, "there.avi"), "w", encoding="ascii") as stream:
            stream.write("mine")
        done = self.film("北京", "there.avi")
        self.assertEqual(done.returncode, 1)
        self.assertIn("there already", done.stderr)
        with open(os.path.join(self.home, "there.avi"), encoding="ascii") as stream:
            self.assertEqual(stream.read(), "mine")
        self.assertEqual(self.film("北京", os.path.join("no", "such", "folder.avi")).returncode, 1)


if __name__ == "__main__":
    main()
