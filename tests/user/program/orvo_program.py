"""Runs the installed program as a person would: in a home folder of its own, by its arguments, its standard streams and
its exit code."""
import json
import os
import resource
import shutil
import signal
import subprocess
import tempfile
import unittest

PREFIX = os.environ["ORVO_PREFIX"]
PROGRAM = os.path.join(PREFIX, "bin", "orvo")
SHIPPED = os.path.join(PREFIX, "share", "orvo")
CONFIG_FILES = ["SunSet.xml", "SunTerm.xml", "zone.xml"]

OK, FAILED, USAGE = 0, 1, 2
# What runs in the background of a shell ignores interrupts, and the program would inherit that.
signal.signal(signal.SIGINT, signal.default_int_handler)
NOBODY = 65534
# For programs that draw: no search for leaks at the end, since fonts and drivers keep memory, and the search itself can
# crash over the threads of the driver. What is drawn with is searched for leaks in the tests of its classes.
WITHOUT_LEAKS = ":".join(filter(None, (os.environ.get("ASAN_OPTIONS"), "detect_leaks=0")))


class Answer:
    def __init__(self, process):
        self.code = process.returncode
        self.bytes = process.stdout
        self.out = process.stdout.decode("utf-8")
        self.err = process.stderr.decode("utf-8")

    def json(self):
        return json.loads(self.out)

    def __repr__(self):
        return f"exit code {self.code}\n--- out\n{self.out}\n--- err\n{self.err}"


class ProgramTest(unittest.TestCase):
    """Each test has an empty home folder and speaks Chinese unless it says otherwise."""

    program = PROGRAM
    user = None  # whom the program runs as, when not as whoever runs the tests

    def setUp(self):
        self.home = tempfile.mkdtemp(prefix="orvo-home-")
        self.addCleanup(self.remove_home)
        self.folder = os.path.join(self.home, ".config", "orvo")

    def remove_home(self):
        for folder, _, _ in os.walk(self.home):
            os.chmod(folder, 0o700)
        shutil.rmtree(self.home)

    def become_ordinary_user(self):
        """Root may read and write everything; where it runs the tests, the program runs as somebody else from now on."""
        if os.geteuid() != 0:
            return
        for folder, _, names in os.walk(self.home):
            for path in [folder, *(os.path.join(folder, name) for name in names)]:
                os.chown(path, NOBODY, NOBODY)
        self.user = NOBODY
        try:
            self.ok("--version")
        except PermissionError:
            self.skipTest("the build folder is closed to ordinary users")

    def environment(self, **changes):
        kept = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS", "TMPDIR")
        environment = {name: os.environ[name] for name in kept if name in os.environ}
        environment.update(HOME=self.home, LANG="zh_CN.UTF-8", TERM="xterm")
        environment.update(changes)
        return {name: value for name, value in environment.items() if value is not None}

    def orvo(self, *arguments, text=None, largest_file=None, **changes):
        """Runs to the end with `text` (str or bytes) on the standard input stream. No file may grow beyond
        `largest_file` bytes, which stands in for a full disk."""

        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (largest_file, largest_file))

        given = text.encode("utf-8") if isinstance(text, str) else text
        process = subprocess.run([self.program, *arguments], input=given or b"", capture_output=True, timeout=120,
                                 env=self.environment(**changes), cwd=self.home, check=False, user=self.user,
                                 preexec_fn=limit if largest_file else None)
        return Answer(process)

    def ok(self, *arguments, **more):
        """Runs, and insists on success without a word on the error stream."""
        answer = self.orvo(*arguments, **more)
        self.assertEqual((answer.code, answer.err), (OK, ""), answer)
        return answer

    def refused(self, code, *arguments, **more):
        """Runs, and insists on this exit code, no answer, and a message."""
        answer = self.orvo(*arguments, **more)
        self.assertEqual(answer.code, code, answer)
        self.assertEqual(answer.out, "", answer)
        self.assertTrue(answer.err.startswith("orvo: "), answer)
        return answer

    def file(self, name):
        return os.path.join(self.folder, name)

    def read(self, name):
        with open(self.file(name), "rb") as stream:
            return stream.read()

    def write(self, name, content):
        os.makedirs(self.folder, exist_ok=True)
        with open(self.file(name), "wb") as stream:
            stream.write(content if isinstance(content, bytes) else content.encode("utf-8"))

    def files(self):
        """Every file of the user's folder with its content."""
        return {name: self.read(name) for name in sorted(os.listdir(self.folder))}


def shipped(name):
    with open(os.path.join(SHIPPED, name), "rb") as stream:
        return stream.read()


def main():
    unittest.main(verbosity=2)
