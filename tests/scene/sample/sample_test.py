"""The sample drawings: the script makes them byte for byte, at each run, and another program finds them sound."""
import os
import subprocess
import tempfile
import unittest

import ezdxf

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")
SCRIPT = os.path.join(ROOT, "tools", "make-sample")
NAMES = ("house", "courtyard")


def content(path):
    with open(path, "rb") as file:
        return file.read()


def sample(name):
    return os.path.join(ROOT, "data", "samples", f"{name}.dxf")


class SampleTest(unittest.TestCase):
    def make(self, name, seed):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "made.dxf")
            # The order of Python's sets depends on this.
            environment = dict(os.environ, PYTHONHASHSEED=str(seed), PYTHONDONTWRITEBYTECODE="1")
            subprocess.run([SCRIPT, name, path], env=environment, check=True)
            return content(path)

    def test_the_script_makes_the_files(self):
        for name in NAMES:
            for seed in range(4):
                self.assertEqual(self.make(name, seed), content(sample(name)), f"{name} with the hash seed {seed}")
        self.assertEqual(sorted(os.listdir(os.path.dirname(sample("house")))), sorted(f"{name}.dxf" for name in NAMES))

    def test_they_pass_an_audit(self):
        for name in NAMES:
            auditor = ezdxf.readfile(sample(name)).audit()
            self.assertEqual((auditor.errors, auditor.fixes), ([], []), name)

    def test_they_are_in_millimetres_with_chinese_layers(self):
        for name, layers in (("house", ("建筑", "屋顶", "地面")), ("courtyard", ("建筑", "凸窗", "地面", "WINDOW"))):
            document = ezdxf.readfile(sample(name))
            self.assertEqual(document.dxfversion, "AC1027")
            self.assertEqual(document.header["$INSUNITS"], 4)
            for layer in layers:
                self.assertIn(layer, document.layers)

    def test_each_window_of_the_courtyard_has_its_name_in_its_middle(self):
        space = ezdxf.readfile(sample("courtyard")).modelspace()
        windows = [[tuple(face.dxf.get(f"vtx{i}")) for i in range(4)] for face in space.query("3DFACE[layer=='WINDOW']")]
        windows += [[tuple(v.dxf.location) for v in line.vertices] for line in space.query("POLYLINE[layer=='WINDOW']")]
        names = {tuple(text.dxf.insert): text.dxf.text for text in space.query("TEXT[layer=='WINDOW']")}
        self.assertEqual(len(windows), 14)
        self.assertEqual({tuple((a + b) / 2 for a, b in zip(corners[0], corners[2])) for corners in windows}, set(names))
        self.assertEqual(len(set(names.values())), len(names))
        self.assertIn("1-101-1", names.values())

    def test_without_a_name_and_a_file_it_tells_its_usage(self):
        for words in ([], ["house"], ["barn", "a.dxf"]):
            result = subprocess.run([SCRIPT, *words], capture_output=True, text=True)
            self.assertEqual(result.returncode, 1)
            self.assertIn("usage: tools/make-sample house|courtyard FILE", result.stderr)


if __name__ == "__main__":
    unittest.main()
