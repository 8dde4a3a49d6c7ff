#!/usr/bin/python3
"""Makes the district in a folder that goes again, and lets district-test judge it.

usage: district_test.py rays DISTRICT-TEST         the whole district against rays
       district_test.py placement DISTRICT-TEST    against itself, drawn elsewhere and otherwise: some of its rows,
                                                   and all of them where tests may take their time
       district_test.py same                       it is the same at each run
"""
import hashlib
import os
import subprocess
import sys
import tempfile

import make_district


def judge(folder, suite, program):
    words = [program, f"--gtest_filter=*{suite}*"]
    return subprocess.run(words, env=dict(os.environ, ORVO_DISTRICT=folder), check=False).returncode


def rays(folder, program):
    make_district.make(make_district.VARIATIONS["plain"]).save(folder, "plain")
    return judge(folder, "DistrictRays", program)


def placement(folder, program):
    rows = make_district.ROWS if os.environ.get("ORVO_TEST_SLOW") == "1" else 3
    for name, variation in make_district.VARIATIONS.items():
        make_district.make(variation, rows).save(folder, name)
    return judge(folder, "DistrictPlacement", program)


def same(folder):
    sums = set()
    for seed in range(3):  # on which the order of Python's sets depends
        environment = dict(os.environ, PYTHONHASHSEED=str(seed), PYTHONDONTWRITEBYTECODE="1")
        subprocess.run([sys.executable, make_district.__file__, folder, "plain"], env=environment, check=True)
        made = hashlib.sha256()
        for ending in ("dxf", "txt"):
            with open(os.path.join(folder, f"plain.{ending}"), "rb") as stream:
                made.update(stream.read())
        sums.add(made.hexdigest())
    print(f"{len(sums)} different districts in 3 runs")
    return 0 if len(sums) == 1 else 1


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as place:
        sys.exit({"rays": rays, "placement": placement, "same": same}[sys.argv[1]](place, *sys.argv[2:]))
