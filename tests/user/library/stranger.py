"""Somebody who has the installation and nothing else of the project: builds in empty folders, by the package files."""
import os
import re
import shutil
import subprocess
import tempfile
import unittest

PREFIX = os.environ["ORVO_PREFIX"]
SOURCE = os.environ["ORVO_SOURCE_DIR"]
VERSION = os.environ["ORVO_VERSION"]
LIBRARIES = ("OrvoPlatform", "OrvoDataBase", "OrvoFacts", "OrvoScene", "OrvoAnalysis")

# The longest night of a common year, by the built-in table: 23.45 degrees south.
PROGRAM = """#include <cstdio>
#include "facts/DayTerms.h"
int main() {
    std::printf("%.2f\\n", TermsFor({2025, 12, 22}).declination);
}
"""


def listed_headers():
    with open(os.path.join(SOURCE, "api", "headers.txt"), encoding="utf-8") as stream:
        return stream.read().split()


class Stranger(unittest.TestCase):
    prefix = PREFIX
    library_folder = "lib"

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="orvo-stranger-")
        self.addCleanup(shutil.rmtree, self.folder)

    def path(self, *parts):
        return os.path.join(self.folder, *parts)

    def write(self, name, text):
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as stream:
            stream.write(text)
        return path

    def environment(self):
        """Without what could lead to the checkout or to a person's settings."""
        environment = {name: os.environ[name] for name in ("PATH", "TMPDIR") if name in os.environ}
        environment.update(HOME=self.folder, LANG="C.UTF-8", QT_QPA_PLATFORM="offscreen",
                           PKG_CONFIG_PATH=os.path.join(self.prefix, self.library_folder, "pkgconfig"))
        return environment

    def run_tool(self, *command, fails=False):
        done = subprocess.run(command, capture_output=True, text=True, timeout=600, env=self.environment(),
                              cwd=self.folder, check=False)
        self.assertEqual(done.returncode != 0, fails, f"{command}\n{done.stdout[-4000:]}{done.stderr[-4000:]}")
        return done.stdout + (done.stderr if fails else "")

    def configure(self, source, build, fails=False):
        return self.run_tool("cmake", "-S", source, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                             f"-DCMAKE_PREFIX_PATH={self.prefix}", fails=fails)

    def build(self, source, build):
        self.configure(source, build)
        self.run_tool("cmake", "--build", build)

    def project(self, request, target):
        """The folder of a project whose program asks for the declination of the winter solstice."""
        self.write("project/CMakeLists.txt", f"""cmake_minimum_required(VERSION 3.25)
project(somebody LANGUAGES CXX)
find_package({request} REQUIRED)
add_executable(theirs theirs.cpp)
target_link_libraries(theirs PRIVATE {target})
""")
        self.write("project/theirs.cpp", PROGRAM)
        return self.path("project")

    def build_and_run_a_project(self):
        self.build(self.project(f"OrvoFacts {VERSION}", "Orvo::OrvoFacts"), self.path("build"))
        self.assertEqual(self.run_tool(self.path("build", "theirs")).strip(), "-23.45")

    def soname(self, library):
        table = self.run_tool("readelf", "-d", library)
        return re.search(r"SONAME.*\[(.*)\]", table).group(1)
