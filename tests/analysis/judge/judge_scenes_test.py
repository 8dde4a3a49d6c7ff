"""tools/judge-scenes: which scenes it asks for, and what it says of those that fail."""
import os
import subprocess
import tempfile
import unittest

TOOL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "tools", "judge-scenes")
PASSES = 'echo "asked for $ORVO_SCENE_COUNT from $ORVO_SCENE_SEED: $*" >"$0.asked"; echo "[  PASSED  ] 1 test."'
FAILS = 'echo "claimed 1, found 2"; echo "scene 17 failed; alone: tools/judge-scenes 1 17"; exit 1'


class JudgeScenesTest(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.program = os.path.join(temporary.name, "pretender")

    def pretend(self, script):
        with open(self.program, "w", encoding="utf-8") as stream:
            stream.write("#!/bin/sh\n" + script + "\n")
        os.chmod(self.program, 0o755)

    def judge(self, *words, program=None):
        environment = dict(os.environ, ORVO_ANALYSIS_TEST=program or self.program)
        done = subprocess.run([TOOL, *words], env=environment, capture_output=True, text=True, check=False)
        return done.returncode, done.stdout + done.stderr

    def asked(self):
        with open(self.program + ".asked", encoding="utf-8") as stream:
            return stream.read().strip()

    def test_the_analysis_passes(self):
        status, said = self.judge("2", "5", program=os.environ["ORVO_ANALYSIS_TEST"])
        self.assertEqual((status, said), (0, "judge-scenes: 2 scenes from seed 5 on, and no disagreement\n"))

    def test_it_asks_for_500_from_the_first_unless_told(self):
        self.pretend(PASSES)
        for words, asked in (((), "500 from 1"), (("7",), "7 from 1"), (("7", "30"), "7 from 30")):
            self.assertEqual(self.judge(*words)[0], 0)
            self.assertEqual(self.asked(), f"asked for {asked}: --gtest_filter=RandomScenes.AgreeWithRaysAtEachMoment")

    def test_it_says_which_seed_failed(self):
        self.pretend(FAILS)
        status, said = self.judge()
        self.assertEqual(status, 1)
        self.assertIn("claimed 1, found 2", said)
        self.assertTrue(said.endswith("passed:\nscene 17 failed; alone: tools/judge-scenes 1 17\n"), said)

    def test_a_program_that_falls_or_runs_no_test_has_not_passed(self):
        for script in ("kill -SEGV $$", 'echo "[  PASSED  ] 0 tests."'):
            self.pretend(script)
            status, said = self.judge()
            self.assertEqual(status, 1)
            self.assertIn("came to no end", said)

    def test_it_refuses_what_is_no_number(self):
        self.pretend(PASSES)
        for words in (("0",), ("-3",), ("many",), ("1.5",), ("5", "0"), ("5", "1", "1"), ("99999999999",), ("",)):
            status, said = self.judge(*words)
            self.assertEqual(status, 2, words)
            self.assertIn("judge-scenes: ", said)
        self.assertFalse(os.path.exists(self.program + ".asked"))

    def test_it_says_how_to_get_the_program(self):
        status, said = self.judge("1", program=self.program + "-not-there")
        self.assertEqual(status, 2)
        self.assertIn("--target analysis-test", said)


if __name__ == "__main__":
    unittest.main()
