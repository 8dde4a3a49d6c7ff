"""Recordings as other people's programs see them: every depth, odd widths, large files, and recorders that died."""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "program"))
from riff_walk import Avi  # noqa: E402

MAKER = os.environ["ORVO_MAKE_RECORDING"]
GIB = 1 << 30


def colour(number):
    return bytes(255 if number & bit else 0 for bit in (1, 2, 4))


class Recordings(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="orvo-recordings-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.path = os.path.join(self.folder, "a.avi")

    def make(self, *arguments):
        subprocess.run([MAKER, self.path, *map(str, arguments)], check=True, timeout=300)

    def run_tool(self, *command, **more):
        process = subprocess.run(command, capture_output=True, timeout=300, check=True, **more)
        self.assertEqual(process.stderr, b"")
        return process.stdout

    def packets(self, path, *options):
        text = self.run_tool("ffprobe", "-v", "error", *options, "-show_entries", "packet=pts,size,flags", "-of", "csv=p=0",
                             path).decode()
        return [tuple(line.split(",")[:3]) for line in text.split()]

    def pictures(self, path, count):
        data = self.run_tool("ffmpeg", "-v", "error", "-i", path, "-fps_mode", "passthrough", "-f", "rawvideo", "-pix_fmt",
                             "rgb24", "-")
        self.assertEqual(len(data) % count, 0)
        size = len(data) // count
        return [data[i * size:(i + 1) * size] for i in range(count)]

    def test_every_depth_and_odd_widths(self):
        for bits in (1, 4, 8, 16, 24, 32):
            for width, height in ((1, 1), (2, 3), (7, 5), (31, 4), (32, 4), (33, 9), (64, 48)):
                with self.subTest(bits=bits, width=width):
                    self.make(bits, width, height, 3, 10)
                    avi = Avi(self.path)
                    row = (width * bits + 31) // 32 * 4
                    self.assertEqual(sorted(avi.samples), [0, 10, 20])
                    self.assertEqual({len(sample) for sample in avi.samples.values()}, {row * height})
                    self.assertEqual(avi.stream["buffer"], row * height)
                    self.assertEqual([packet[0] for packet in self.packets(self.path)], ["0", "10", "20"])
                    self.assertEqual({packet[2][0] for packet in self.packets(self.path)}, {"K"})
                    self.compare(bits, width, height)
                    os.remove(self.path)

    def compare(self, bits, width, height):
        for k, picture in enumerate(self.pictures(self.path, 3)):
            wanted = [colour((i + k) % 8) for i in range(width * height)]
            if bits == 1:  # black and white: the nearer of the two
                wanted = [b"\xff" * 3 if sum(pixel) > 382 else b"\0" * 3 for pixel in wanted]
            self.assertEqual(picture, b"".join(wanted), f"picture {k}")

    def test_another_program_copies_it_without_loss(self):
        self.make(24, 33, 9, 4, 10)
        copy = os.path.join(self.folder, "copy.avi")
        self.run_tool("ffmpeg", "-v", "error", "-i", self.path, "-c", "copy", copy)
        sums = [self.run_tool("ffmpeg", "-v", "error", "-i", path, "-fps_mode", "passthrough", "-f", "framehash",
                              "-hash", "md5", "-") for path in (self.path, copy)]
        hashes = [[line.split()[-1] for line in text.decode().splitlines() if not line.startswith("#")] for text in sums]
        self.assertEqual(hashes[0], hashes[1])
        self.assertEqual(len(set(hashes[0])), 4)

    def test_a_recorder_that_died_leaves_its_pictures(self):
        self.make(24, 33, 9, 5, 10, "die")
        with self.assertRaises(AssertionError):
            Avi(self.path)  # it has no index
        self.assertEqual([packet[0] for packet in self.packets(self.path)], ["0", "10", "20", "30", "40"])
        whole = os.path.join(self.folder, "whole.avi")
        subprocess.run(["ffmpeg", "-v", "error", "-i", self.path, "-c", "copy", whole], check=True, timeout=300)
        pictures = self.pictures(whole, 5)
        for k, picture in enumerate(pictures):
            self.assertEqual(picture, b"".join(colour((i + k) % 8) for i in range(33 * 9)))

    def make_sparse(self, count):
        self.make(24, 1920, 1080, count, 2, "sparse")
        self.assertLess(os.stat(self.path).st_blocks * 512, GIB // 4, "the disk has to support holes")

    def test_past_one_gib_it_goes_on_in_a_second_part(self):
        self.make_sparse(200)
        self.assertGreater(os.path.getsize(self.path), GIB)
        avi = Avi.structure(self.path)
        self.assertEqual(len(avi.part_lengths), 2)
        self.assertEqual(avi.length, 2 * 199 + 1)
        self.assertLessEqual(avi.part_ends[0], GIB)

    def test_past_four_gib_it_plays_to_its_last_picture(self):
        count = 720
        self.make_sparse(count)
        self.assertGreater(os.path.getsize(self.path), 4 * GIB)
        avi = Avi.structure(self.path)
        self.assertEqual(len(avi.part_lengths), 5)
        self.assertEqual(avi.length, 2 * (count - 1) + 1)
        packets = self.packets(self.path, "-read_intervals", "715%")
        self.assertEqual(packets[-1][:2], (str(2 * (count - 1)), str(1920 * 3 * 1080)))
        last = self.run_tool("ffmpeg", "-v", "error", "-ss", "719", "-i", self.path, "-frames:v", "1", "-f", "rawvideo",
                             "-pix_fmt", "rgb24", "-")
        lowest = b"".join(colour((1920 * 1079 + i + count - 1) % 8) for i in range(1920))
        self.assertEqual(last, b"\0" * (1920 * 3 * 1079) + lowest)


if __name__ == "__main__":
    unittest.main(verbosity=2)
