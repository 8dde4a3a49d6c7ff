"""orvo record: animations that other programs play, and files that are never lost."""
import hashlib
import glob
import os
import random
import signal
import socket
import stat
import struct
import subprocess
import time
import zlib

from orvo_program import FAILED, OK, PROGRAM, USAGE, ProgramTest, main
from prompt_test import Terminal
from riff_walk import Avi

PURE = [(r, g, b) for r in (0, 255) for g in (0, 255) for b in (0, 255)]


def bmp(width, height, pixels):
    """A 24-bit BMP from rows of (r, g, b), from top to bottom."""
    pad = b"\0" * (-3 * width % 4)
    rows = b"".join(b"".join(bytes((b, g, r)) for r, g, b in row) + pad for row in reversed(pixels))
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(rows), 0, 0, 0, 0)
    return struct.pack("<2sIHHI", b"BM", 54 + len(rows), 0, 0, 54) + header + rows


def png(width, height, pixels):
    def chunk(tag, data):
        return struct.pack(">I", len(data)) + tag + data + struct.pack(">I", zlib.crc32(tag + data))
    raw = b"".join(b"\0" + b"".join(bytes(pixel) for pixel in row) for row in pixels)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b""))


def picture(width, height, seed):
    """The eight pure colours and random ones between."""
    numbers = random.Random(seed)
    return [[PURE[(x + y + seed) % 8] if (x + y) % 2 else tuple(numbers.randrange(256) for _ in range(3))
             for x in range(width)] for y in range(height)]


class Record(ProgramTest):
    def put(self, name, data):
        with open(os.path.join(self.home, name), "wb") as stream:
            stream.write(data)
        return name

    def path(self, name):
        return os.path.join(self.home, name)

    def frames(self, count, width=30, height=21, encode=bmp):
        self.pictures = [picture(width, height, seed) for seed in range(count)]
        return [self.put(f"{i}.img", encode(width, height, pixels)) for i, pixels in enumerate(self.pictures)]

    def ffmpeg(self, name, *options):
        return subprocess.run(["ffmpeg", "-v", "error", "-i", self.path(name), *options, "-"], capture_output=True,
                              timeout=120, check=True)

    def rgb(self, name, count):
        """The decoded pictures, without the positions that hold none."""
        process = self.ffmpeg(name, "-fps_mode", "passthrough", "-f", "rawvideo", "-pix_fmt", "rgb24")
        self.assertEqual(process.stderr, b"")
        size = len(process.stdout) // count
        self.assertEqual(len(process.stdout), size * count)
        return [process.stdout[i * size:(i + 1) * size] for i in range(count)]

    def probe(self, name, *entries):
        process = subprocess.run(["ffprobe", "-v", "warning", "-show_entries", ":".join(entries), "-of", "csv=p=0",
                                  self.path(name)], capture_output=True, timeout=120, check=True)
        self.assertEqual(process.stderr, b"")
        return [line.rstrip(",") for line in process.stdout.decode().split()]

    def left_over(self, *expected):
        names = sorted(name for name in os.listdir(self.home) if not name.startswith(".") and not name.endswith(".img"))
        self.assertEqual(names, sorted(expected))

    def check_pictures(self, bits, encode):
        for width, height in ((30, 21), (31, 8), (1, 1), (3, 5)):
            with self.subTest(bits=bits, width=width):
                frames = self.frames(3, width, height, encode)
                answer = self.ok("record", *frames, "-o", "a.avi", "--bits", str(bits), "--yes")
                self.assertIn(f"{width} x {height}", answer.out)
                avi = Avi(self.path("a.avi"))
                self.assertEqual(sorted(avi.samples), [0, 10, 20, 30])
                self.assertEqual(avi.samples[30], avi.samples[20])
                row = (width * bits + 31) // 32 * 4
                colours = 256 if bits == 8 else 0
                header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, row * height, 0, 0, colours, 0)
                self.assertEqual(avi.format[:40], header)
                self.assertEqual(len(avi.format), 40 + 4 * colours)
                self.assertEqual({len(sample) for sample in avi.samples.values()}, {row * height})
                self.assertEqual((avi.main["width"], avi.main["height"]), (width, height))
                self.assertEqual([avi.stream[side] for side in ("left", "top", "right", "bottom")], [0, 0, width, height])
                self.assertEqual(self.probe("a.avi", "packet=pts"), ["0", "10", "20", "30"])
                for decoded, pixels in zip(self.rgb("a.avi", 4), [*self.pictures, self.pictures[2]], strict=True):
                    self.compare(decoded, pixels, avi.format[40:])

    def compare(self, decoded, pixels, table):
        palette = [(r, g, b) for b, g, r, _ in struct.iter_unpack("4B", table)]
        flat = [pixel for row in pixels for pixel in row]
        self.assertEqual(len(decoded), 3 * len(flat))
        for i, wanted in enumerate(flat):
            got = tuple(decoded[3 * i:3 * i + 3])
            if not palette:
                self.assertEqual(got, wanted)
                continue
            nearest = min(sum((a - b) ** 2 for a, b in zip(entry, wanted, strict=True)) for entry in palette)
            self.assertEqual(sum((a - b) ** 2 for a, b in zip(got, wanted, strict=True)), nearest)
        for colour in PURE if palette else []:
            self.assertIn(colour, palette)

    def test_24_bits_from_bmp(self):
        self.check_pictures(24, bmp)

    def test_32_bits_from_png(self):
        self.check_pictures(32, png)

    def test_8_bits_have_a_table_with_the_pure_colours(self):
        self.check_pictures(8, bmp)

    def test_each_picture_lasts_a_second_whatever_the_rate(self):
        frames = self.frames(4)
        for rate in (1, 2, 10, 25, 1000):
            with self.subTest(rate=rate):
                self.ok("record", *frames, "-o", "a.avi", "--rate", str(rate), "--yes")
                avi = Avi(self.path("a.avi"))
                # The last picture is there again at the end of its second, unless a position lasts a second.
                ends = [] if rate == 1 else [4 * rate]
                self.assertEqual(sorted(avi.samples), [0, rate, 2 * rate, 3 * rate, *ends])
                self.assertEqual(avi.length, 4 if rate == 1 else 4 * rate + 1)
                self.assertEqual((avi.stream["scale"], avi.stream["rate"]), (1, rate))
                times = self.probe("a.avi", "packet=pts_time")
                self.assertEqual([float(time) for time in times], [0, 1, 2, 3] if rate == 1 else [0, 1, 2, 3, 4])
                for entry in ("format=duration", "stream=duration"):
                    duration = float(self.probe("a.avi", entry)[0])
                    self.assertGreaterEqual(duration, 4)
                    self.assertLessEqual(duration, 4 + 1 / rate)

    def test_players_show_each_picture_for_its_second(self):
        self.ok("record", *self.frames(3), "-o", "a.avi", "--rate", "10")
        process = self.ffmpeg("a.avi", "-vf", "fps=10", "-f", "framemd5")
        sums = [line.split()[-1] for line in process.stdout.decode().splitlines() if not line.startswith("#")]
        self.assertEqual(len(sums), 31)
        self.assertEqual([len(set(sums[i:i + 10])) for i in (0, 10, 20)], [1, 1, 1])
        self.assertEqual(sums[30], sums[20])
        self.assertEqual(len(set(sums)), 3)

    def test_asks_at_a_terminal_before_it_replaces(self):
        frames = self.frames(2)
        for answer, is_replaced in (("n", False), ("", False), ("y", True)):
            with self.subTest(answer=answer):
                self.put("a.avi", b"what was there")
                terminal = Terminal(self, "record", *frames, "-o", "a.avi")
                terminal.wait_for("[y/N]")
                terminal.type(answer + "\n")
                code = terminal.finish()
                self.assertEqual(code, 0 if is_replaced else FAILED)
                with open(self.path("a.avi"), "rb") as stream:
                    self.assertEqual(stream.read() != b"what was there", is_replaced)
                self.left_over("a.avi")

    def test_refuses_to_replace_without_a_terminal(self):
        frames = self.frames(2)
        self.put("a.avi", b"what was there")
        answer = self.refused(FAILED, "record", *frames, "-o", "a.avi")
        self.assertIn("--yes", answer.err)
        with open(self.path("a.avi"), "rb") as stream:
            self.assertEqual(stream.read(), b"what was there")
        self.ok("record", *frames, "-o", "a.avi", "--yes")
        self.assertEqual(Avi(self.path("a.avi")).length, 21)

    def test_one_picture_makes_an_animation(self):
        self.ok("record", *self.frames(1), "-o", "a.avi")
        self.assertEqual(Avi(self.path("a.avi")).length, 11)
        self.ok("record", *self.frames(1), "-o", "b.avi", "--rate", "1")
        self.assertEqual(Avi(self.path("b.avi")).length, 1)

    def test_wrong_usage(self):
        frames = self.frames(1)
        for arguments, hint in ((["-o", "a.avi"], "orvo record"), (frames, "-o"), ([*frames, "-o", ""], "-o"),
                                ([*frames, "-o", "a.avi", "--bits", "16"], "8、24"),
                                ([*frames, "-o", "a.avi", "--bits", "x"], "8、24"),
                                ([*frames, "-o", "a.avi", "--rate", "0"], "1000"),
                                ([*frames, "-o", "a.avi", "--rate", "1001"], "1000"),
                                ([*frames, "-o", "a.avi", "--rate", "ten"], "1000")):
            with self.subTest(arguments=arguments):
                self.assertIn(hint, self.refused(USAGE, "record", *arguments).err)
                self.left_over()

    def test_bad_pictures_leave_nothing_behind(self):
        good = self.frames(1)[0]
        bad = {
            "missing.img": None,
            "empty.img": b"",
            "text.img": b"no picture at all",
            "short.img": bmp(30, 21, picture(30, 21, 1))[:200],
            "large.img": struct.pack("<2sIHHI", b"BM", 54, 0, 0, 54) +
                         struct.pack("<IiiHHIIiiII", 40, 2**31 - 1, 2**31 - 1, 1, 24, 0, 0, 0, 0, 0, 0),
        }
        for name, data in bad.items():
            for frames in ([name], [good, name]):
                with self.subTest(frames=frames):
                    if data is not None:
                        self.put(name, data)
                    self.assertIn(name, self.refused(FAILED, "record", *frames, "-o", "a.avi").err)
                    self.left_over()
        os.mkdir(self.path("folder.img"))
        self.assertIn("folder.img", self.refused(FAILED, "record", "folder.img", "-o", "a.avi").err)

    def test_the_name_says_what_the_file_is(self):
        frames = self.frames(1)
        for name, other in (("a.mp4", "a.avi"), ("b.avi.png", "b.avi.avi"), ("c.", "c.avi")):
            with self.subTest(name=name):
                answer = self.refused(USAGE, "record", *frames, "-o", name)
                self.assertIn(f"不能取名“{name}”：请写 -o {other}；", answer.err)
                self.left_over()
        self.ok("record", *frames, "-o", "A.AVI")
        self.ok("record", *frames, "-o", "plain")
        self.left_over("A.AVI", "plain")

    def test_photographs(self):
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "color=c=0x3060C0:s=32x16", "-frames:v", "1",
                        "-q:v", "1", self.path("blue.jpg")], check=True, timeout=120)
        self.ok("record", self.path("blue.jpg"), "-o", "a.avi", "--rate", "1")
        (pixels,) = self.rgb("a.avi", 1)
        for red, green, blue in zip(pixels[::3], pixels[1::3], pixels[2::3]):
            self.assertLess(max(abs(red - 0x30), abs(green - 0x60), abs(blue - 0xC0)), 8)

    def test_all_pictures_have_the_first_ones_size(self):
        first = self.put("first.img", bmp(4, 4, picture(4, 4, 0)))
        other = self.put("other.img", bmp(4, 5, picture(4, 5, 0)))
        answer = self.refused(FAILED, "record", first, other, "-o", "a.avi")
        for part in ("other.img", "4 x 5", "4 x 4"):
            self.assertIn(part, answer.err)
        self.left_over()

    def test_a_folder_that_is_missing_or_closed(self):
        frames = self.frames(1)
        self.assertIn("a.avi", self.refused(FAILED, "record", *frames, "-o", "nowhere/a.avi").err)
        self.assertIn("没有文件夹“nowhere”", self.refused(FAILED, "record", *frames, "-o", "nowhere/a.avi").err)
        os.mkdir(self.path("closed"))
        self.become_ordinary_user()
        os.chmod(self.path("closed"), 0o500)
        self.assertIn("a.avi", self.refused(FAILED, "record", *frames, "-o", "closed/a.avi").err)
        self.assertEqual(os.listdir(self.path("closed")), [])

    def test_a_folder_in_place_of_the_recording(self):
        os.mkdir(self.path("a.avi"))
        self.assertIn("a.avi", self.refused(FAILED, "record", *self.frames(1), "-o", "a.avi", "--yes").err)
        self.assertEqual(os.listdir(self.path("a.avi")), [])

    def test_what_is_no_file_is_never_replaced(self):
        frames = self.frames(2)
        os.mkfifo(self.path("pipe"))
        os.symlink("pipe", self.path("link"))
        # By a link of our own: a program that did replace it must not take the machine's device away.
        os.symlink("/dev/null", self.path("device"))
        with socket.socket(socket.AF_UNIX) as listener:
            listener.bind(self.path("socket"))
            for output, kind in (("pipe", "管道"), ("link", "管道"), ("device", "设备"), ("socket", "不是普通文件")):
                for yes in ([], ["--yes"]):
                    with self.subTest(output=output, yes=yes):
                        answer = self.refused(FAILED, "record", *frames, "-o", output, *yes)
                        self.assertIn(f"“{output}”", answer.err)
                        self.assertIn(kind, answer.err)
                        self.assertIn("-o", answer.err)
            self.assertTrue(stat.S_ISFIFO(os.stat(self.path("pipe")).st_mode))
            self.assertTrue(os.path.islink(self.path("link")))
            self.assertTrue(stat.S_ISCHR(os.stat(self.path("device")).st_mode))
            self.left_over("pipe", "link", "device", "socket")
        answer = self.refused(FAILED, "record", *frames, "-o", "pipe", "--yes", LANG="en_US.UTF-8")
        self.assertEqual(answer.err, "orvo: pipe is a pipe, which a recording cannot replace; name another file with -o\n")

    def test_a_picture_is_never_replaced_by_its_recording(self):
        frames = self.frames(2)
        os.symlink(frames[1], self.path("link.img"))
        with open(self.path(frames[1]), "rb") as stream:
            before = stream.read()
        for output in (frames[1], os.path.join(".", frames[1]), "link.img"):
            with self.subTest(output=output):
                self.assertIn(frames[1], self.refused(FAILED, "record", *frames, "-o", output, "--yes").err)
                with open(self.path(frames[1]), "rb") as stream:
                    self.assertEqual(stream.read(), before)

    def test_a_full_disk_leaves_what_was_there(self):
        frames = self.frames(5)
        self.ok("record", *frames, "-o", "a.avi")
        size = os.path.getsize(self.path("a.avi"))
        self.put("a.avi", b"what was there")
        for largest in (1000, size // 2, size - 1500, size - 700, size - 1):
            with self.subTest(largest=largest):
                answer = self.orvo("record", *frames, "-o", "a.avi", "--yes", largest_file=largest)
                self.assertEqual((answer.code, answer.out), (FAILED, ""), answer)
                self.assertIn("a.avi", answer.err)
                with open(self.path("a.avi"), "rb") as stream:
                    self.assertEqual(stream.read(), b"what was there")
                self.left_over("a.avi")

    def long_recording(self):
        """The words of a recording that takes its time: one large picture, again and again. Nobody waits for its end."""
        name = self.put("large.img", bmp(1200, 900, [[(9, 99, 199)] * 1200] * 900))
        return ["record", *[name] * 600, "-o", "a.avi", "--yes"]

    def wait_until_it_grows(self):
        end = time.monotonic() + 60
        while not glob.glob(self.path("a.avi.recording-*")):
            self.assertLess(time.monotonic(), end, "no recording was begun")
            time.sleep(0.002)

    def check_that_nothing_changed(self):
        with open(self.path("a.avi"), "rb") as stream:
            self.assertEqual(stream.read(), b"what was there")
        self.left_over("a.avi")

    def test_signals_cancel_it_and_leave_what_was_there(self):
        words = self.long_recording()
        for number in (signal.SIGINT, signal.SIGTERM):
            for name in ("a.avi", None):
                with self.subTest(number=number, name=name):
                    if name:
                        self.put(name, b"what was there")
                    process = subprocess.Popen([PROGRAM, *words], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                               stderr=subprocess.PIPE, env=self.environment(), cwd=self.home)
                    self.addCleanup(process.kill)
                    self.wait_until_it_grows()
                    process.send_signal(number)
                    out, err = process.communicate(timeout=120)
                    self.assertEqual((process.returncode, out), (FAILED, b""), err)
                    unchanged = "，原来的文件没有变" if name else ""
                    self.assertEqual(err.decode(), f"orvo: 已取消，没有录像{unchanged}\n")
                    if name:
                        self.check_that_nothing_changed()
                        os.remove(self.path(name))
                    else:
                        self.left_over()

    def test_a_program_told_to_ignore_interrupts_records_on(self):
        words = self.long_recording()
        process = subprocess.Popen(["sh", "-c", 'trap "" INT; exec "$@"', "sh", PROGRAM, *words[:30], *words[-3:]],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   env=self.environment(), cwd=self.home)
        self.addCleanup(process.kill)
        self.wait_until_it_grows()
        process.send_signal(signal.SIGINT)
        _, err = process.communicate(timeout=120)
        self.assertEqual((process.returncode, err), (OK, b""))
        self.left_over("a.avi")

    def test_an_interrupt_at_the_prompt_gives_up_the_recording_alone(self):
        self.put("a.avi", b"what was there")
        words = self.long_recording()
        terminal = Terminal(self)
        terminal.wait_for("orvo> ")
        # A line is shorter than the words of a recording may be, and what it says counts all the same.
        terminal.type(" ".join(words[:200] + words[-3:]) + "\n")
        terminal.wait_for("正在录制第")
        self.wait_until_it_grows()
        terminal.type("\x03")
        terminal.wait_for("\r\x1b[Korvo: 已取消，没有录像，原来的文件没有变")
        terminal.wait_for("orvo> ")
        self.check_that_nothing_changed()
        terminal.type("places 上海\n")
        terminal.wait_for("31.2")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), OK)

    def test_a_signal_ends_lines_from_a_pipe(self):
        process = subprocess.Popen([PROGRAM], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   env=self.environment(), cwd=self.home)
        self.addCleanup(process.kill)
        process.stdin.write((" ".join(self.long_recording()) + "\nplaces 上海\n").encode())
        process.stdin.flush()
        self.wait_until_it_grows()
        process.send_signal(signal.SIGINT)
        out, err = process.communicate(timeout=120)
        self.assertEqual((process.returncode, out), (-signal.SIGINT, b""))
        self.assertEqual(err.decode(), "orvo: 已取消，没有录像\n")
        self.left_over()

    def test_speaks_english(self):
        answer = self.ok("record", *self.frames(2), "-o", "a.avi", LANG="en_US.UTF-8")
        self.assertEqual(answer.out, "2 pictures recorded in a.avi: 30 x 21, 24 bits a pixel, 1 second each, 0.0 MB\n")
        answer = self.ok("record", "0.img", "-o", "b.avi", LANG="en_US.UTF-8")
        self.assertTrue(answer.out.startswith("1 picture recorded in b.avi: "), answer.out)

    def test_a_large_recording_says_what_would_be_smaller(self):
        # 1000 x 600 pixels of three bytes, six times and once more at the end of the last second.
        frames = self.frames(1, 1000, 600) * 6
        answer = self.ok("record", *frames, "-o", "a.avi")
        size = os.path.getsize(self.path("a.avi"))
        self.assertGreater(size, 7 * 1000 * 600 * 3)
        first, *more = answer.out.splitlines()
        self.assertTrue(first.endswith(f"，{size / 1e6:.1f} MB"), first)
        self.assertEqual(len(more), 2)
        self.assertIn("--bits 8 的录像是它的 1/3。", more[0])
        self.assertIn("ffmpeg", more[1])
        answer = self.ok("record", *frames, *frames, *frames, "-o", "b.avi", "--bits", "8")
        small = os.path.getsize(self.path("b.avi"))
        self.assertAlmostEqual(small / 19, size / 7 / 3, delta=0.01 * small / 19)
        self.assertEqual(len(answer.out.splitlines()), 2, answer.out)
        # What it says makes a video that players take.
        command = more[1].split("：")[1].replace("FILE", "a").split()
        subprocess.run([*command, "-v", "error"], cwd=self.home, capture_output=True, timeout=120, check=True)
        self.assertEqual(self.probe("a.mp4", "stream=codec_name"), ["h264"])
        self.assertLess(os.path.getsize(self.path("a.mp4")), size / 2)

    def test_the_same_pictures_give_the_same_file(self):
        frames = self.frames(3)
        sums = set()
        for name in ("a.avi", "b.avi"):
            self.ok("record", *frames, "-o", name)
            with open(self.path(name), "rb") as stream:
                sums.add(hashlib.sha256(stream.read()).hexdigest())
        self.assertEqual(len(sums), 1)


if __name__ == "__main__":
    main()
