"""The window on a display of the test's own, with mouse and keys."""
import os
import shutil
import subprocess
import time
import unittest

from orvo_program import OK, PROGRAM, ProgramTest

SUPPRESSIONS = os.path.join(os.path.dirname(__file__), "../../support/window.supp")


@unittest.skipUnless(shutil.which("Xvfb") and shutil.which("xdotool"), "Xvfb and xdotool are not installed")
class DisplayTest(ProgramTest):
    def setUp(self):
        super().setUp()
        read, write = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x900x24", "-noreset",
                                        "-nolisten", "tcp", "-fbdir", self.home], pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        self.addCleanup(self.stop_server)
        with os.fdopen(read) as numbers:  # to the end of the line: the server dies of a pipe that is closed earlier
            self.display = ":" + numbers.readline().strip()

    def stop_server(self):
        self.server.terminate()
        self.server.wait(timeout=30)

    def start(self, *arguments):
        runtime = os.path.join(self.home, "runtime")
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        environment = self.environment(DISPLAY=self.display, XDG_RUNTIME_DIR=runtime,
                                       LSAN_OPTIONS="suppressions=" + SUPPRESSIONS)
        process = subprocess.Popen([PROGRAM, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, env=environment, cwd=self.home)
        self.addCleanup(process.kill)
        return process

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.environment(DISPLAY=self.display), timeout=60,
                              capture_output=True, text=True, check=False)

    def wait_for(self, title, seconds=60):
        """The number of the window of this title, once it can be seen."""
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            found = self.xdotool("search", "--onlyvisible", "--name", title)
            if found.returncode == 0:
                return found.stdout.split()[0]
            time.sleep(0.1)
        self.fail(f"no window “{title}”")

    def type_line(self, window, line):
        self.xdotool("windowfocus", "--sync", window)
        self.xdotool("type", "--delay", "20", line)
        self.xdotool("key", "Return")

    def ends_well(self, process):
        out, err = process.communicate(timeout=60)
        self.assertEqual((process.returncode, out), (OK, b""), err.decode())
