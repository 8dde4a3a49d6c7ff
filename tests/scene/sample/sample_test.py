"""The sample drawing: the script makes it byte for byte, at each run, and another program finds it sound."""
import os
import subprocess
import tempfile
import unittest

import ezdxf

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")
SCRIPT = os.path.join(ROOT, "tools", "make-sample")
SAMPLE = os.path.join(ROOT, "data", "samples", "house.dxf")


def content(path):
    with open(path, "rb") as file:
        return file.read()


class SampleTest(unittest.TestCase):
    def make(self, seed):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "made.dxf")
            # The order of Python's sets depends on this.
            environment = dict(os.environ, PYTHONHASHSEED=str(seed), PYTHONDONTWRITEBYTECODE="1")
            subprocess.run([SCRIPT, path], env=environment, check=True)
            return content(path)

    def test_the_script_makes_the_file(self):
        for seed in range(4):
            self.assertEqual(self.make(seed), content(SAMPLE), f"with the hash seed {seed}")

    def test_it_passes_an_audit(self):
        auditor = ezdxf.readfile(SAMPLE).audit()
        self.assertEqual((auditor.errors, auditor.fixes), ([], []))

    def test_it_is_in_millimetres_with_chinese_layers(self):
        document = ezdxf.readfile(SAMPLE)
        self.assertEqual(document.dxfversion, "AC1027")
        self.assertEqual(document.header["$INSUNITS"], 4)
        for name in ("建筑", "屋顶", "地面"):
            self.assertIn(name, document.layers)

    def test_without_a_file_name_it_tells_its_usage(self):
        result = subprocess.run([SCRIPT], capture_output=True, text=True)
        self.assertEqual(result.returncode, 1)
        self.assertIn("usage: tools/make-sample FILE", result.stderr)


if __name__ == "__main__":
    unittest.main()
