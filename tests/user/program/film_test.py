"""orvo analyse --film: the day in pictures with true shadows, in files that other programs play and that are never lost."""
import glob
import hashlib
import json
import math
import os
import random
import re
import shutil
import signal
import subprocess
import time

from analyse_test import COURTYARD, STANDARD, AnalyseTest, box, drawing, face, south_window
from orvo_program import FAILED, OK, PROGRAM, USAGE, WITHOUT_LEAKS, main
from riff_walk import Avi

WIDTH, HEIGHT = 1280, 720
# A level site of 60 x 60 m, a house on it with a window, and a tower to the south that hides the sun from it.
SIDE = 60
SITE = face("C1", "地", [(-20, -30, 0), (SIDE - 20, -30, 0), (SIDE - 20, SIDE - 30, 0), (-20, SIDE - 30, 0)])
BOXES = [(0, 0, 10, 8, 6), (-15, -20, 28, -8, 22)]
TOWN = [SITE, *(box(f"A{i}", "建筑", left, front, right, back, height) for i, (left, front, right, back, height) in enumerate(BOXES)),
        south_window("B1")]
MARGIN = 0.95  # of a picture's height that everything fills


class FilmTest(AnalyseTest):
    def environment(self, **changes):
        return super().environment(**{"ASAN_OPTIONS": WITHOUT_LEAKS, **changes})

    def film(self, *more, entities=TOWN, name="sun.avi", **changes):
        answer = self.orvo("analyse", self.put(drawing(*entities)), "--standard", STANDARD, "--film", name, *more, **changes)
        self.assertEqual(answer.code, OK, answer)
        return answer

    def path(self, name):
        return os.path.join(self.home, name)

    def read_file(self, name):
        with open(self.path(name), "rb") as stream:
            return stream.read()

    def put_old(self, name="sun.avi"):
        with open(self.path(name), "wb") as stream:
            stream.write(b"what was there")

    def left_over(self, *expected):
        names = sorted(name for name in os.listdir(self.home) if not name.startswith("."))
        self.assertEqual(names, sorted(expected))

    def probe(self, name, *entries):
        process = subprocess.run(["ffprobe", "-v", "error", "-count_frames", "-show_entries", ":".join(entries), "-of",
                                  "default=nw=1", self.path(name)], capture_output=True, timeout=120, check=True)
        self.assertEqual(process.stderr, b"")
        return dict(line.split("=") for line in process.stdout.decode().split())

    def pictures(self, name="sun.avi", width=WIDTH, height=HEIGHT):
        process = subprocess.run(["ffmpeg", "-v", "error", "-i", self.path(name), "-fps_mode", "passthrough", "-f", "rawvideo",
                                  "-pix_fmt", "rgb24", "-"], capture_output=True, timeout=120, check=True)
        size = 3 * width * height
        self.assertEqual(len(process.stdout) % size, 0)
        return [process.stdout[i:i + size] for i in range(0, len(process.stdout), size)]

    def suns(self, every=60):
        """Directions to the sun (east, north, up) from 8 to 16 of true solar time."""
        day = self.document("a.dxf", "--standard", STANDARD)["date"]
        answer = self.ok("sun", "--date", day, "--step", str(every), "--json").json()
        return [line["direction"] for line in answer["times"] if line["event"] in (None, "noon") and
                7.999 < line["trueSolarTime"] < 16.001]


def pixel(picture, x, y, width=WIDTH):
    at = 3 * (int(y) * width + int(x))
    return picture[at:at + 3]


def turned(sun, north):
    """From true east and north to the drawing's axes, with true north so many degrees counter-clockwise of +Y."""
    c, s = math.cos(math.radians(north)), math.sin(math.radians(north))
    return sun[0] * c - sun[1] * s, sun[0] * s + sun[1] * c, sun[2]


def is_lit(point, sun):
    """Whether the way from a point to the sun misses all boxes, by cutting it with their slabs."""
    for left, front, right, back, height in BOXES:
        enter, leave = 1e-6, 1e9
        for start, way, low, high in zip(point, sun, (left, front, 0), (right, back, height)):
            if way == 0:
                if not low < start < high:
                    leave = -1
                continue
            ends = sorted(((low - start) / way, (high - start) / way))
            enter, leave = max(enter, ends[0]), min(leave, ends[1])
        if enter < leave:
            return False
    return True


class Pictures(FilmTest):
    def test_ffprobe_finds_a_picture_for_each_moment(self):
        answer = self.film("--every", "30")
        found = self.probe("sun.avi", "stream=width,height,nb_read_frames", "format=duration")
        self.assertEqual(found, {"width": "1280", "height": "720", "nb_read_frames": "17", "duration": "17.000000"})
        self.assertEqual(Avi(self.path("sun.avi")).length, 17)
        # The size is said first, and is the file's.
        said = re.search(r"“sun.avi”：17 幅画面，1280 x 720，不压缩，约 ([\d.]+) MB\n", answer.err)
        self.assertAlmostEqual(float(said.group(1)), os.path.getsize(self.path("sun.avi")) / 1e6, delta=0.2)
        self.assertLess(said.start(), answer.err.index("17 幅画面录入“sun.avi”"))
        self.left_over("a.dxf", "sun.avi")

    def test_five_minutes_and_the_largest_pictures(self):
        self.film("--size", "320x240")
        self.assertEqual(self.probe("sun.avi", "stream=nb_read_frames"), {"nb_read_frames": "97"})
        self.film("--size", "3840x2160", "--every", "240", name="large.avi")
        self.assertEqual(self.probe("large.avi", "stream=width,height,nb_read_frames"),
                         {"width": "3840", "height": "2160", "nb_read_frames": "3"})
        # The same place is lit or not in both.
        for small, large in zip(self.pictures("sun.avi", 320, 240)[::48], self.pictures("large.avi", 3840, 2160), strict=True):
            for x, y in ((160, 215), (160, 120)):
                for one, other in zip(pixel(small, x, y, 320), pixel(large, 12 * x, 9 * y, 3840)):
                    self.assertLess(abs(one - other), 40)

    def test_the_answer_is_the_one_without_a_film(self):
        name = self.put(drawing(*TOWN))
        for form in ([], ["--json"], ["--csv"]):
            plain = self.ok("analyse", name, "--standard", STANDARD, *form)
            filmed = self.orvo("analyse", name, "--standard", STANDARD, *form, "--film", "sun.avi", "--every", "240", "--yes")
            self.assertEqual((filmed.code, filmed.bytes), (OK, plain.bytes))

    def places(self, north=0.0, zoom=1.0):
        """Compares places of a plan with rays, at least a pixel and a half away from edges; gives how many of each."""
        more = ["--north", str(north)] if north else []
        self.film("--every", "60", "--view", "top", "--zoom", str(zoom), *more, "--yes")
        scale = zoom * MARGIN * HEIGHT / SIDE
        found = {True: 0, False: 0, "roof": 0}
        generator = random.Random(5)
        suns = self.suns()
        pictures = self.pictures()
        self.assertEqual((len(suns), len(pictures)), (9, 9))
        for sun, picture in zip(suns, pictures):
            way = turned(sun, north)
            for _ in range(400):
                x, y = generator.uniform(330, 950) // 1 + 0.5, generator.uniform(10, 710) // 1 + 0.5
                point = (10 + (x - WIDTH / 2) / scale, -(y - HEIGHT / 2) / scale)
                around = [(point[0] + dx, point[1] + dy) for dx in (-1.5 / scale, 0, 1.5 / scale) for dy in (-1.5 / scale, 0, 1.5 / scale)]
                heights = {max([0, *(b[4] for b in BOXES if b[0] < px < b[2] and b[1] < py < b[3])]) for px, py in around}
                if len(heights) != 1 or max(abs(point[0] - 10), abs(point[1])) > SIDE / 2 - 1:
                    continue
                z = heights.pop()
                lit = {is_lit((px, py, z), way) for px, py in around}
                # The window stands before its wall, and the plates of text before the picture.
                if len(lit) != 1 or (3 < point[0] < 6.5 and -0.5 < point[1] < 0.5):
                    continue
                brightness = sum(pixel(picture, x, y)) / 3 / 0xC0
                self.assertEqual(brightness > 0.6, lit := lit.pop(), (x, y, point, z, brightness))
                found[lit] += 1
                found["roof"] += z > 0
        return found

    def test_places_are_lit_and_dark_as_rays_say(self):
        for options in ({}, {"north": 40.0}, {"zoom": 2.5}):
            with self.subTest(**options):
                found = self.places(**options)
                for kind in found:
                    self.assertGreater(found[kind], 200, found)

    def test_windows_have_the_colours_of_their_results(self):
        def coloured(picture, wanted):
            return [(i % WIDTH, i // WIDTH) for i in range(WIDTH * HEIGHT)
                    if i % WIDTH > 400 and i > 150 * WIDTH and wanted(*picture[3 * i:3 * i + 3])]
        red = lambda r, g, b: r > 60 and r > 3 * g and r > 3 * b  # noqa: E731
        blue = lambda r, g, b: b > 60 and b > 3 * g and b > 3 * r  # noqa: E731
        # The tower, with a hole so that the window is seen, hides it for all hours or leaves it some of them.
        window = south_window("B1", left=2, right=8, sill=1, top=5)
        for left, color, wanted in ((-15, 1, red), (6.6, 5, blue)):
            entities = [box("A1", "建筑", 0, 0, 10, 8, 6), box("A2", "建筑", left, -12, 28, -8, 14), window]
            name = self.put(drawing(*entities))
            self.assertEqual(self.one_window(name, "--standard", STANDARD)["color"], color)
            self.film("--every", "240", "--camera", "180,75", "--yes", entities=entities)
            seen = coloured(self.pictures()[1], wanted)
            self.assertGreater(len(seen), 200)
            wide = max(x for x, _ in seen) - min(x for x, _ in seen)
            high = max(y for _, y in seen) - min(y for _, y in seen)
            self.assertGreater(wide, high)
            self.assertAlmostEqual(len(seen) / (wide * high), 1, delta=0.15)
            other = blue if wanted is red else red
            self.assertEqual(coloured(self.pictures()[1], other), [])

    def test_each_picture_is_stamped(self):
        self.film("--every", "120")
        pictures = self.pictures()
        rows = [[picture[3 * WIDTH * (17 + line):3 * WIDTH * (17 + line + 22)] for line in (10, 33, 55, 78, 100)]
                for picture in pictures]

        def plate(row):
            """Which pixels are ink: the plate lets the scene shine through a little."""
            return [row[3 * (WIDTH * y + x)] < 110 for y in range(20) for x in range(20, 250)]
        # Place and day stay, the times and the sun go on.
        for i in (0, 1):
            self.assertEqual(len({tuple(plate(picture[i])) for picture in rows}), 1, i)
            self.assertGreater(sum(plate(rows[0][i])), 100)
        for i in (2, 3, 4):
            self.assertEqual(len({tuple(plate(picture[i])) for picture in rows}), 5, i)
        self.film("--every", "120", "--place", "上海", "--yes", name="other.avi")
        other = self.pictures("other.avi")[0]
        self.assertNotEqual(plate(other[3 * WIDTH * 27:3 * WIDTH * 49]), plate(rows[0][0]))
        self.assertEqual(plate(other[3 * WIDTH * 50:3 * WIDTH * 72]), plate(rows[0][1]))

    def test_the_legend_has_all_colours_in_pictures_of_all_sizes(self):
        # Six of the eight of the standard; in the picture itself faces are darker than their colours.
        colours = [(255, 0, 0), (255, 255, 0), (0, 255, 0), (0, 255, 255), (0, 0, 255), (255, 0, 255)]
        for width, height in ((320, 240), (3840, 240), (320, 2160), (1280, 720)):
            with self.subTest(width=width, height=height):
                self.film("--every", "720", "--size", f"{width}x{height}", "--yes")
                picture = self.pictures(width=width, height=height)[0]
                seen = set(zip(picture[::3], picture[1::3], picture[2::3]))
                self.assertEqual([colour for colour in colours if colour not in seen], [])

    def test_the_compass_is_whole_in_pictures_of_all_sizes(self):
        wide = {}
        for width, height in ((1280, 720), (3840, 2160)):
            self.film("--every", "720", "--size", f"{width}x{height}", "--camera", "90,1", "--zoom", "0.1", "--yes",
                      LANG="en_US.UTF-8")
            picture = self.pictures(width=width, height=height)[0]
            ink = [x for y in range(height // 6) for x in range(width * 3 // 4, width)
                   if sum(pixel(picture, x, y, width)) < 3 * 110]
            wide[width] = max(ink) - min(ink)
        self.assertAlmostEqual(wide[3840] / wide[1280], 3, delta=0.06)

    def test_views_and_cameras(self):
        sums = {}
        for name, options in (("top", ["--view", "top"]), ("south", ["--view", "SOUTH"]), ("same", ["--camera", "-180,0"]),
                              ("turned", ["--view", "south", "--north", "30"]), ("usual", []), ("se", ["--view", "southeast"]),
                              ("east", ["--view", "east"]), ("zoom", ["--zoom", "2"]),
                              ("turned too", ["--camera", "180,0", "--north", "30"])):
            self.film("--every", "480", "--size", "320x240", *options, "--yes")
            sums[name] = hashlib.sha256(self.read_file("sun.avi")).hexdigest()
        self.assertEqual(sums["south"], sums["same"])
        self.assertEqual(sums["usual"], sums["se"])
        self.assertEqual(sums["turned"], sums["turned too"])
        self.assertEqual(len(set(sums.values())), 6)

    def test_the_line_of_the_manual_makes_a_small_video(self):
        with open(os.path.join(os.path.dirname(__file__), "..", "..", "..", "docs", "orvo.md"), encoding="utf-8") as stream:
            line = re.search(r"^(ffmpeg -i sun.avi .*setpts.*)$", stream.read(), re.M).group(1)
        self.film("--every", "20")
        subprocess.run(["sh", "-c", line.replace("ffmpeg ", "ffmpeg -v error ", 1)], cwd=self.home, check=True, timeout=120)
        found = self.probe("sun.mp4", "stream=codec_name,r_frame_rate,nb_read_frames")
        self.assertEqual(found, {"codec_name": "h264", "r_frame_rate": "12/1", "nb_read_frames": "25"})
        self.assertLess(os.path.getsize(self.path("sun.mp4")), os.path.getsize(self.path("sun.avi")) / 50)

    def test_a_night_and_a_drawing_without_windows(self):
        # The sun sets before six in December; the span is the settings' own.
        self.ok("set", "--start", "14:00", "--end", "20:00")
        answer = self.orvo("analyse", self.put(drawing(*TOWN[:2])), "--film", "sun.avi", "--every", "180", "--json",
                           "--date", "2025-12-22")
        self.assertEqual(answer.code, FAILED)
        self.assertEqual(json.loads(answer.out)["windows"], [])
        day, _, night = self.pictures()
        for x, y in ((640, 20), (640, 400)):
            self.assertLess(sum(pixel(night, x, y)), sum(pixel(day, x, y)) / 1.5)


    def test_the_example_of_the_help_runs(self):
        example = re.findall(r"^  orvo (analyse .*--film.*)$", self.ok("analyse", "--help").out, re.M)[0]
        shutil.copy(COURTYARD, self.home)
        self.assertEqual(self.orvo(*example.split()).code, OK)
        span = self.document("courtyard.dxf")["span"]
        pictures = round(6 * (span["end"] - span["start"])) + 1
        self.assertEqual(self.probe("sun.avi", "stream=nb_read_frames"), {"nb_read_frames": str(pictures)})


class Files(FilmTest):
    def test_wrong_usage(self):
        name = self.put(drawing(*TOWN))
        film = ["--film", "sun.avi"]
        for options, hint in ((["--every", "5"], "--every"), (["--size", "640x480"], "--size"), (["--view", "top"], "--view"),
                              (["--camera", "1,2"], "--camera"), (["--zoom", "2"], "--zoom"), (["--yes"], "--yes"),
                              (["--film", ""], "--film"), ([*film, "--every", "0"], "720"), ([*film, "--every", "721"], "720"),
                              ([*film, "--every", "2.5"], "720"), ([*film, "--size", "640"], "1920x1080"),
                              ([*film, "--size", "3842x2160"], "3840"), ([*film, "--size", "3840x2162"], "2160"),
                              ([*film, "--size", "318x240"], "320"), ([*film, "--size", "641x480"], "偶数"),
                              ([*film, "--size", "640X480"], "640X480"), ([*film, "--view", "up"], "southwest"),
                              ([*film, "--camera", "90"], "150,35"), ([*film, "--camera", "90,90"], "89"),
                              ([*film, "--camera", "90,-1"], "89"), ([*film, "--camera", "a,b"], "a,b"),
                              ([*film, "--zoom", "0"], "0.1"), ([*film, "--zoom", "101"], "100"), ([*film, "--zoom", "nan"], "nan"),
                              ([*film, "--view", "top", "--camera", "1,2"], "--camera")):
            with self.subTest(options=options):
                self.assertIn(hint, self.refused(USAGE, "analyse", name, *options).err)
                self.left_over("a.dxf")

    def test_an_existing_file_is_replaced_only_when_asked_to(self):
        name = self.put(drawing(*TOWN))
        self.put_old()
        answer = self.refused(FAILED, "analyse", name, "--film", "sun.avi")
        self.assertIn("--yes", answer.err)
        self.assertEqual(self.read_file("sun.avi"), b"what was there")
        self.film("--every", "240", "--yes")
        self.assertEqual(Avi(self.path("sun.avi")).length, 3)
        self.left_over("a.dxf", "sun.avi")

    def test_the_drawing_is_never_replaced(self):
        name = self.put(drawing(*TOWN))
        before = self.read_file(name)
        self.assertIn(name, self.refused(FAILED, "analyse", name, "--film", os.path.join(".", name), "--yes").err)
        self.assertEqual(self.read_file(name), before)
        os.mkdir(self.path("folder"))
        self.assertIn("--film", self.refused(FAILED, "analyse", name, "--film", "folder", "--yes").err)
        self.left_over(name, "folder")

    def test_a_link_stays_a_link(self):
        os.mkdir(self.path("folder"))
        self.put_old("folder/real.avi")
        os.symlink("folder/real.avi", self.path("sun.avi"))
        self.film("--every", "480", "--yes")
        self.assertTrue(os.path.islink(self.path("sun.avi")))
        self.assertEqual(Avi(self.path("folder/real.avi")).length, 2)
        self.assertEqual(os.listdir(self.path("folder")), ["real.avi"])
        self.left_over("a.dxf", "folder", "sun.avi")

    def test_no_other_output_bears_its_name(self):
        name = self.put(drawing(*TOWN))
        os.mkdir(self.path("folder"))
        os.symlink("folder", self.path("link"))
        for film, option, other in (("sun.avi", "--write", "sun.avi"), ("sun.avi", "--write", "./link/../sun.avi"),
                                    ("sun.avi", "--report", "sun.avi"), ("sun.avi", "--report", "sun.avi/"),
                                    ("folder/sun.avi", "--write", "link/sun.avi"),
                                    ("folder/sun.avi", "--report", "link/sun.avi")):
            with self.subTest(film=film, other=other):
                answer = self.refused(USAGE, "analyse", name, "--film", film, option, other, "--yes")
                self.assertIn(f"--film 和 {option} 都写“{film}”", answer.err)
                self.left_over(name, "folder", "link")
                self.assertEqual(os.listdir(self.path("folder")), [])
        self.film("--every", "480", "--write", "sun.dxf", "--report", "sun")
        self.left_over(name, "folder", "link", "sun", "sun.avi", "sun.dxf")

    def test_a_folder_that_is_missing_or_closed_is_told_before_the_analysis(self):
        name = self.put(drawing(*TOWN))
        self.assertIn("nowhere/a.avi", self.refused(FAILED, "analyse", name, "--film", "nowhere/a.avi").err)
        os.mkdir(self.path("closed"))
        self.become_ordinary_user()
        os.chmod(self.path("closed"), 0o500)
        self.assertIn("closed/a.avi", self.refused(FAILED, "analyse", name, "--film", "closed/a.avi").err)
        self.assertEqual(os.listdir(self.path("closed")), [])

    def test_a_full_disk_leaves_what_was_there_and_the_answer(self):
        self.film("--every", "120", "--size", "640x480")
        size = os.path.getsize(self.path("sun.avi"))
        plain = self.ok("analyse", "a.dxf", "--standard", STANDARD, "--csv")
        self.put_old()
        for largest in (1000, size // 2, size - 900000, size - 1):
            with self.subTest(largest=largest):
                answer = self.orvo("analyse", "a.dxf", "--standard", STANDARD, "--csv", "--film", "sun.avi", "--every", "120",
                                   "--size", "640x480", "--yes", largest_file=largest)
                self.assertEqual((answer.code, answer.bytes), (FAILED, plain.bytes), answer)
                self.assertRegex(answer.err, "sun.avi”没有写完|写不进“sun.avi”")
                self.assertEqual(self.read_file("sun.avi"), b"what was there")
                self.left_over("a.dxf", "sun.avi")

    def test_an_interrupt_leaves_what_was_recorded(self):
        name = self.put(drawing(*TOWN))
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            for is_there in (False, True):
                with self.subTest(number=number, is_there=is_there):
                    if is_there:
                        self.put_old()
                    process = subprocess.Popen([PROGRAM, "analyse", name, "--standard", STANDARD, "--csv", "--film", "sun.avi",
                                                "--every", "1", "--size", "1920x1080", "--yes"], stdin=subprocess.DEVNULL,
                                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=self.environment(),
                                               cwd=self.home)
                    self.addCleanup(process.kill)
                    end = time.monotonic() + 60
                    while not any(os.path.getsize(path) > 20_000_000 for path in glob.glob(self.path("sun.avi.recording-*"))):
                        self.assertLess(time.monotonic(), end, "no recording was begun")
                        time.sleep(0.01)
                    process.send_signal(number)
                    out, err = process.communicate(timeout=120)
                    self.assertEqual(process.returncode, FAILED, err)
                    self.assertIn("verdict,name", out.decode())
                    count = int(re.search(r"已取消：“sun.avi”里有前 (\d+) 幅画面，共 481 幅", err.decode()).group(1))
                    self.assertGreater(count, 2)
                    self.assertEqual(Avi(self.path("sun.avi")).length, count)
                    self.assertEqual(self.probe("sun.avi", "stream=nb_read_frames"), {"nb_read_frames": str(count)})
                    self.left_over(name, "sun.avi")
                    os.remove(self.path("sun.avi"))

    def test_speaks_english(self):
        answer = self.film("--every", "480", LANG="en_US.UTF-8")
        self.assertEqual(answer.err, "orvo: film sun.avi: 2 pictures, 1280 x 720, not compressed, about 5.5 MB\n"
                         "orvo: 2 pictures recorded in sun.avi, 1 second each\n")


if __name__ == "__main__":
    main()
