#!/usr/bin/env python3
"""The Debian packages, made by tools/make-packages: what they say of themselves, what is in them, and that none of what
is installed is missing."""
import gzip
import hashlib
import os
import re
import shutil
import subprocess
import tempfile
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", ".."))
PREFIX = os.environ["ORVO_PREFIX"]
VERSION = os.environ["ORVO_VERSION"]
NAMES = ("orvo", "liborvo", "liborvo-dev")
LINK = re.compile(r"\]\(([^)\s#]+\.(?:md|png|svg))[^)]*\)")


def run(*command, **more):
    done = subprocess.run(command, capture_output=True, text=True, timeout=1500, check=False, **more)
    if done.returncode:
        raise AssertionError(f"{command}\n{done.stdout[-6000:]}{done.stderr[-6000:]}")
    return done.stdout


class Package:
    def __init__(self, folder, name):
        self.name = name
        found = [file for file in os.listdir(folder) if file.startswith(name + "_")]
        assert len(found) == 1, found
        self.file = os.path.join(folder, found[0])
        self.tree = os.path.join(folder, name)       # the files, as they would lie below /
        self.control = os.path.join(folder, name + ".control")
        run("dpkg-deb", "--extract", self.file, self.tree)
        run("dpkg-deb", "--control", self.file, self.control)

    def field(self, name):
        return run("dpkg-deb", "--field", self.file, name).strip()

    def depends(self):
        return self.field("Depends").split(", ")

    def files(self):
        """Its files and links, seen from the root of the system."""
        return sorted(os.path.relpath(os.path.join(folder, name), self.tree) for folder, folders, names in os.walk(self.tree)
                      for name in [*names, *(one for one in folders if os.path.islink(os.path.join(folder, one)))])

    def path(self, file):
        return os.path.join(self.tree, file)

    def binaries(self):
        for file in self.files():
            if not os.path.islink(self.path(file)):
                with open(self.path(file), "rb") as stream:
                    if stream.read(4) == b"\x7fELF":
                        yield file


class Packages(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="orvo-packages-")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        # lintian stops it at any error and warning.
        run(os.path.join(ROOT, "tools", "make-packages"), cls.folder)
        cls.packages = {name: Package(cls.folder, name) for name in NAMES}
        cls.triplet = run("dpkg-architecture", "-qDEB_HOST_MULTIARCH").strip()

    def test_there_are_three_that_belong_together(self):
        for name, package in self.packages.items():
            with self.subTest(package=name):
                self.assertEqual(package.field("Package"), name)
                self.assertEqual(package.field("Version"), VERSION + "-1")
                self.assertEqual(package.field("Architecture"), run("dpkg", "--print-architecture").strip())
                # Nobody's address: the domain is one that is never given away.
                self.assertRegex(package.field("Maintainer"), r"^[^<]+ <[^@]+@[^@]+\.invalid>$")
        for name in ("orvo", "liborvo-dev"):
            self.assertIn(f"liborvo (= {VERSION}-1)", self.packages[name].depends())

    def test_depend_on_the_packages_of_what_the_binaries_need(self):
        for name in ("orvo", "liborvo"):
            package = self.packages[name]
            depended = {depend.split()[0] for depend in package.depends()}
            for file in package.binaries():
                for needed in re.findall(r"NEEDED.*\[(.*)\]", run("readelf", "-d", package.path(file))):
                    own = f"usr/lib/{self.triplet}/{needed}"
                    if own in self.packages["liborvo"].files():
                        continue
                    with self.subTest(binary=file, needed=needed):
                        owners = [line.split(":")[0] for line in
                                  run("dpkg-query", "--search", f"*/{self.triplet}/{needed}").splitlines()
                                  if line.endswith("/" + needed)]
                        self.assertEqual(len(owners), 1)
                        self.assertIn(owners[0], depended)

    def test_hold_all_that_is_installed_once(self):
        """What cmake --install puts somewhere is in one of the packages, and in one only."""
        packed = [file for package in self.packages.values() for file in package.files()]
        self.assertEqual(sorted(set(packed)), sorted(packed))
        installed = set()
        for folder, folders, names in os.walk(PREFIX):
            for name in [*names, *(one for one in folders if os.path.islink(os.path.join(folder, one)))]:
                file = os.path.relpath(os.path.join(folder, name), PREFIX)
                if not file.startswith("lib/orvo/plugins/"):   # what tests have put there
                    packed_as = file + ".gz" if file.startswith("share/man/") else file
                    installed.add("usr/" + re.sub("^lib/", f"lib/{self.triplet}/", packed_as))
        self.assertGreater(len(installed), 300)
        self.assertEqual(sorted(installed - set(packed)), [])

    def test_hold_what_their_names_say(self):
        library = f"usr/lib/{self.triplet}/"
        for name, wanted in (
                ("orvo", ["usr/bin/orvo", library + "orvo/OrvoWorkbench.so", "usr/share/orvo/samples/courtyard.dxf",
                          "usr/share/applications/orvo.desktop", "usr/share/icons/hicolor/scalable/apps/orvo.svg",
                          "usr/share/mime/packages/orvo.xml", "usr/share/bash-completion/completions/orvo",
                          "usr/share/zsh/site-functions/_orvo", "usr/share/doc/orvo/docs/orvo.md",
                          "usr/share/man/man1/orvo.1.gz", "usr/share/man/zh_CN/man1/orvo-analyse.1.gz"]),
                ("liborvo", [library + "OrvoDataBase.so.0", library + "orvo/OrvoDataBase.so", library + "libOrvoFacts.so.0",
                             library + "libOrvoAnalysis.so.0", library + "libOrvoPlatform.so.0", "usr/share/orvo/zone.xml",
                             "usr/share/orvo/languages/en.xml"]),
                ("liborvo-dev", [library + "libOrvoFacts.so", library + "OrvoDataBase.so", library + "libOrvoScene.a",
                                 library + "pkgconfig/OrvoFacts.pc", library + "cmake/OrvoFacts/OrvoFactsConfig.cmake",
                                 "usr/include/orvo/facts/Settings.h", "usr/share/doc/orvo/examples/low-sun/LowSun.cpp"])):
            files = self.packages[name].files()
            for file in wanted:
                self.assertIn(file, files, name)
        # The plug-in is one file with the library that is linked, found also without the names for linking.
        link = self.packages["liborvo"].path(library + "orvo/OrvoDataBase.so")
        self.assertEqual(os.readlink(link), "../OrvoDataBase.so.0")

    def test_every_package_has_its_papers(self):
        for name, package in self.packages.items():
            with self.subTest(package=name):
                folder = f"usr/share/doc/{name}/"
                with open(package.path(folder + "copyright"), encoding="utf-8") as stream:
                    copyright_file = stream.read()
                self.assertIn("no licence yet", copyright_file)
                with open(os.path.join(ROOT, "NOTICES.md"), encoding="utf-8") as stream:
                    self.assertIn(stream.read(), copyright_file)
                with gzip.open(package.path(folder + "changelog.Debian.gz"), "rt", encoding="utf-8") as stream:
                    self.assertTrue(stream.read().startswith(f"orvo ({VERSION}-1) "))
                with gzip.open(package.path(folder + "changelog.gz"), "rt", encoding="utf-8") as stream:
                    self.assertIn(f"## [{VERSION}]", stream.read())

    def test_every_file_is_summed_and_may_be_read(self):
        for name, package in self.packages.items():
            with open(os.path.join(package.control, "md5sums"), encoding="utf-8") as stream:
                sums = dict(reversed(line.split(maxsplit=1)) for line in stream.read().splitlines())
            for file in package.files():
                if os.path.islink(package.path(file)):
                    continue
                with self.subTest(package=name, file=file):
                    with open(package.path(file), "rb") as stream:
                        self.assertEqual(sums.pop(file), hashlib.md5(stream.read()).hexdigest())
                    mode = os.stat(package.path(file)).st_mode & 0o7777
                    self.assertEqual(mode, 0o755 if file == "usr/bin/orvo" else 0o644)
            self.assertEqual(sums, {})
            for line in run("dpkg-deb", "--contents", package.file).splitlines():
                self.assertIn(" root/root ", line)

    def test_binaries_are_stripped_and_look_nowhere_else(self):
        binaries = [(package, file) for package in self.packages.values() for file in package.binaries()]
        self.assertEqual(len(binaries), 6)
        for package, file in binaries:
            with self.subTest(file=file):
                self.assertNotRegex(run("readelf", "-d", package.path(file)), "R(UN)?PATH")
                self.assertNotIn(".symtab", run("readelf", "-SW", package.path(file)))
                with open(package.path(file), "rb") as stream:
                    self.assertNotIn(ROOT.encode(), stream.read())

    def test_no_script_runs_when_they_are_installed(self):
        for name, package in self.packages.items():
            wanted = {"control", "md5sums", *({"shlibs", "triggers"} if name == "liborvo" else ())}
            self.assertEqual(set(os.listdir(package.control)), wanted)
        with open(os.path.join(self.packages["liborvo"].control, "triggers"), encoding="utf-8") as stream:
            self.assertEqual(stream.read(), "activate-noawait ldconfig\n")
        with open(os.path.join(self.packages["liborvo"].control, "shlibs"), encoding="utf-8") as stream:
            told = sorted(stream.read().splitlines())
        self.assertEqual(told, [f"{name} 0 liborvo (>= {VERSION}-1)"
                                for name in ("OrvoDataBase", "libOrvoAnalysis", "libOrvoFacts", "libOrvoPlatform")])

    def test_desktops_can_read_the_entry_and_the_type(self):
        package = self.packages["orvo"]
        entry = package.path("usr/share/applications/orvo.desktop")
        self.assertEqual(run("desktop-file-validate", "--warn-kde", entry), "")
        types = os.path.join(self.folder, "mime")
        shutil.copytree(package.path("usr/share/mime"), types)
        run("xmllint", "--noout", os.path.join(types, "packages", "orvo.xml"))
        # The entry is for the very type that drawings have, by the system's own reading of the file.
        run("update-mime-database", types)
        with open(os.path.join(types, "globs"), encoding="utf-8") as stream:
            self.assertIn("image/vnd.dxf:*.dxf\n", stream.read())
        with open(entry, encoding="utf-8") as stream:
            self.assertIn("MimeType=image/vnd.dxf;\n", stream.read())

    def test_links_between_documents_lead_somewhere(self):
        shipped = {os.path.relpath(file, "usr/share/doc/orvo") for package in self.packages.values()
                   for file in package.files() if file.startswith("usr/share/doc/orvo/")}
        pages = [file for file in shipped if file.endswith(".md")]
        self.assertGreater(len(pages), 10)
        for page in pages:
            for package in self.packages.values():
                path = package.path(os.path.join("usr/share/doc/orvo", page))
                if os.path.exists(path):
                    with open(path, encoding="utf-8") as stream:
                        text = stream.read()
            for link in LINK.findall(re.sub(r"^```.*?^```", "", text, flags=re.M | re.S)):
                if not re.match(r"[a-z]+:", link):
                    target = os.path.normpath(os.path.join(os.path.dirname(page), link))
                    self.assertIn(target, shipped, page)


class Refusals(unittest.TestCase):
    def said(self, tool, *arguments, **environment):
        """What a tool says that fails, with its exit code."""
        done = subprocess.run([os.path.join(ROOT, "tools", tool), *arguments], capture_output=True, text=True, timeout=60,
                              env=dict(os.environ, **environment), check=False)
        self.assertEqual(done.stdout, "")
        return done.returncode, done.stderr

    def test_wrong_usage(self):
        self.assertEqual(self.said("make-packages", "--revision", "two"), (2, "--revision takes a number, not 'two'\n"))
        for tool in ("make-packages", "try-packages"):
            code, said = self.said(tool, "--what")
            self.assertEqual(code, 2)
            self.assertTrue(said.startswith(f"usage: tools/{tool}"), said)

    def test_who_may_make_no_system_is_told_what_is_missing(self):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "id"), "w", encoding="utf-8") as stream:
                stream.write('#!/bin/sh\n[ "$1" = -u ] && echo 54321 || echo nobody-here\n')
            os.chmod(stream.name, 0o755)
            code, said = self.said("try-packages", PATH=folder + ":" + os.environ["PATH"])
        self.assertEqual(code, 1)
        self.assertIn("usermod --add-subuids 100000-165535 --add-subgids 100000-165535 nobody-here\n", said)
        self.assertTrue(said.endswith("Or run this as root.\n"), said)


if __name__ == "__main__":
    unittest.main(verbosity=2)
