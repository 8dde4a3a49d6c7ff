"""The guide: each example, run in the order in which the pages are read, prints what stands there."""
import os
import shutil
import signal
import subprocess

from display import DisplayTest
from guide import LOCALES, page, pages
from orvo_program import OK, SHIPPED, WITHOUT_LEAKS, ProgramTest, main
from page_examples import examples, printed_by

WINDOW = "orvo window "


def examples_of(language):
    return [example for name in pages(language) for example in examples(page(language, name))]


class GuideTest(ProgramTest):
    def environment(self, **changes):
        return super().environment(**{"ASAN_OPTIONS": WITHOUT_LEAKS, **changes})

    def test_examples_are_true(self):
        for language, locale in LOCALES.items():
            home = self.home
            self.home = os.path.join(home, language)
            os.mkdir(self.home)
            found = [example for example in examples_of(language) if not example[0].startswith(WINDOW)]
            self.assertGreater(len(found), 30)
            for command, printed in found:
                with self.subTest(language=language, command=command):
                    self.assertEqual(printed_by(self, command, locale), printed)
            self.home = home

    def test_the_small_film_plays(self):
        """A film that is made small must be a film: the page shows only the names of the files."""
        for command, _ in examples_of("en"):
            if command.startswith(("cp ", "ffmpeg ")) or "--film" in command:
                printed_by(self, command, LOCALES["en"])
        probe = ["ffprobe", "-v", "error", "-count_frames", "-show_entries", "stream=codec_name,nb_read_frames", "-of", "csv=p=0",
                 os.path.join(self.home, "sun.mp4")]
        told = subprocess.run(probe, capture_output=True, encoding="utf-8", timeout=60, check=True).stdout
        codec, count = told.strip().split(",")
        self.assertEqual(codec, "h264")
        self.assertIn(int(count), (17, 18), "eight hours, a picture each half hour; the last one may be there twice")
        self.assertLess(os.path.getsize(os.path.join(self.home, "sun.mp4")),
                        os.path.getsize(os.path.join(self.home, "sun.avi")) / 10)


class GuidesWindowTest(DisplayTest):
    def test_the_window_opens_as_the_guide_says(self):
        for language in LOCALES:
            commands = [command for command, _ in examples_of(language) if command.startswith(WINDOW)]
            self.assertEqual(commands, [WINDOW + "courtyard.dxf"], language)
            shutil.copy(os.path.join(SHIPPED, "samples", "courtyard.dxf"), self.home)
            process = self.start(*commands[0].split()[1:], "--language", language)
            self.wait_for("^courtyard.dxf - orvo$")
            process.send_signal(signal.SIGTERM)
            out, err = process.communicate(timeout=60)
            self.assertEqual((process.returncode, out), (OK, b""), err.decode())


if __name__ == "__main__":
    main()
