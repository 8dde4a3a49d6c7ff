"""Programs that are killed while they save: the settings stay whole, and the next save clears up after them."""
import os
import random
import signal
import subprocess
import time

from orvo_program import CONFIG_FILES, PROGRAM, ProgramTest, main

KILLS = 3000 if os.environ.get("ORVO_TEST_SLOW") == "1" else 60


class Killed(ProgramTest):
    def test_at_any_time_leaves_whole_settings_and_what_is_left_beside_goes(self):
        self.ok("info")
        begun = time.monotonic()
        self.ok("set", "--step", "60")
        duration = time.monotonic() - begun
        chance = random.Random(4711)
        left = set()
        for number in range(KILLS):
            process = subprocess.Popen([PROGRAM, "set", "--step", str(1 + number % 59)], env=self.environment(), cwd=self.home,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            time.sleep(chance.uniform(0, duration))
            process.send_signal(signal.SIGKILL)
            process.wait()
            left |= {name for name in os.listdir(self.folder) if ".saving-" in name}
            if number % 10 == 9:
                standards = self.ok("standards", "--json").json()["standards"]
                self.assertEqual(len(standards), 6)
        self.write(f"SunSet.xml.saving-{process.pid}-0", "left for certain")
        self.ok("set", "--step", "60")
        self.assertEqual(sorted(set(os.listdir(self.folder)) - {"SunSet.xml.bak"}), CONFIG_FILES, f"{len(left)} were left")


if __name__ == "__main__":
    main()
