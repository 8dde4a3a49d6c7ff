"""The first start in an empty home folder, and starts without a home that can be written."""
import os
import re
import shutil
import subprocess

from orvo_program import CONFIG_FILES, FAILED, PREFIX, PROGRAM, SHIPPED, ProgramTest, main, shipped


def snapshot(folder):
    found = {}
    for where, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(where, name)
            with open(path, "rb") as stream:
                found[os.path.relpath(path, folder)] = (stream.read(), os.stat(path).st_mtime_ns)
    return found


class FirstStart(ProgramTest):
    def test_copies_the_shipped_files_and_nothing_else(self):
        self.ok("info")
        self.assertEqual(self.files(), {name: shipped(name) for name in CONFIG_FILES})

    def test_later_starts_leave_unchanged_files_alone(self):
        self.ok("info")
        before = snapshot(self.home)
        for arguments in (["info"], ["terms"], ["places"], ["standards"], ["--help"], ["info", "--place", "上海"]):
            self.ok(*arguments)
        self.assertEqual(snapshot(self.home), before)

    def test_a_file_that_is_there_is_kept_and_the_others_are_copied(self):
        mine = shipped("zone.xml").replace("北京".encode(), "北平".encode())
        self.write("zone.xml", mine)
        self.orvo("terms")
        self.assertEqual(self.files(), {"zone.xml": mine, "SunTerm.xml": shipped("SunTerm.xml"),
                                        "SunSet.xml": shipped("SunSet.xml")})

    def test_the_installed_files_are_never_written(self):
        before = snapshot(SHIPPED)
        self.ok("info")
        self.ok("set", "--place", "上海", "--step", "7")
        self.assertEqual(snapshot(SHIPPED), before)

    def test_the_folder_is_the_one_that_the_desktop_names(self):
        elsewhere = os.path.join(self.home, "elsewhere")
        self.ok("info", XDG_CONFIG_HOME=elsewhere)
        self.assertEqual(sorted(os.listdir(os.path.join(elsewhere, "orvo"))), CONFIG_FILES)
        self.assertFalse(os.path.exists(self.folder))

    def test_the_program_runs_through_a_symbolic_link(self):
        link = os.path.join(self.home, "sun")
        os.symlink(PROGRAM, link)
        process = subprocess.run([link, "terms", "--year", "2024"], capture_output=True, env=self.environment(),
                                 cwd=self.home, timeout=120, check=False)
        self.assertEqual((process.returncode, process.stderr), (0, b""))

    def test_help_and_version_in_both_languages(self):
        self.assertIn("用法：orvo", self.ok("--help").out)
        english = self.ok("--help", "--language", "en").out
        self.assertIn("Usage: orvo", english)
        self.assertIn("Exit codes", english)
        for subcommand in ("info", "terms", "places", "standards", "set"):
            text = self.ok(subcommand, "--help").out
            self.assertIn(f"用法：orvo {subcommand}", text)
            self.assertIn("例子：", text)
            self.assertEqual(self.ok("help", subcommand).out, text)

    def test_the_version_names_commit_and_toolkit(self):
        checkout = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")
        # The one that was built, which need not be the newest any more.
        said = re.search(r"commit ([0-9a-f]{12})\+?, ", self.ok("--version").out)
        if os.path.exists(os.path.join(checkout, ".git")):
            subprocess.run(["git", "-C", checkout, "cat-file", "-e", said.group(1) + "^{commit}"], check=True)
        toolkit = subprocess.run(["pkg-config", "--modversion", "Qt6Widgets"], capture_output=True, text=True,
                                 check=True).stdout.strip()
        said = re.escape(said.group(0)) if said else ""
        for language in ("zh", "en"):
            self.assertRegex(self.ok("--version", "--language", language).out,
                             rf"^orvo \d+\.\d+\.\d+ \({said}Qt {re.escape(toolkit)}\)\n$")


class Languages(ProgramTest):
    def is_english(self, *arguments, **environment):
        text = self.ok("--help", *arguments, **environment).out
        self.assertNotEqual("Usage" in text, "用法" in text)
        return "Usage" in text

    def test_environment_chooses(self):
        self.assertFalse(self.is_english(LANG=None))
        self.assertFalse(self.is_english(LANG=""))
        for name in ("zh_CN.UTF-8", "zh_TW", "zh", "C", "POSIX", "C.UTF-8"):
            self.assertFalse(self.is_english(LANG=name), name)
        for name in ("en_US.UTF-8", "en", "de_DE.UTF-8", "ja_JP"):
            self.assertTrue(self.is_english(LANG=name), name)

    def test_the_stronger_variable_wins(self):
        self.assertTrue(self.is_english(LANG="zh_CN", LC_MESSAGES="en_US"))
        self.assertFalse(self.is_english(LANG="en_US", LC_MESSAGES="en_US", LC_ALL="zh_CN"))
        self.assertTrue(self.is_english(LANG="en_US", LC_ALL=""))

    def test_the_option_beats_the_environment_wherever_it_stands(self):
        self.assertTrue(self.is_english("--language", "en"))
        self.assertTrue(self.is_english("--language=en"))
        self.assertFalse(self.is_english("--language", "zh", LANG="en_US"))
        self.assertIn("Usage", self.ok("--language", "en", "info", "--help").out)
        self.assertIn("Usage", self.ok("info", "--language", "en", "--help").out)

    def test_numbers_do_not_follow_the_locale(self):
        german = self.ok("terms", "--year", "2025", LANG="zh_CN", LC_NUMERIC="de_DE.UTF-8").out
        self.assertEqual(german, self.ok("terms", "--year", "2025").out)

    def test_a_missing_table_leaves_the_built_in_texts_and_says_so(self):
        prefix = os.path.join(self.home, "prefix")
        shutil.copytree(PREFIX, prefix)
        shutil.rmtree(os.path.join(prefix, "share", "orvo", "languages"))
        self.program = os.path.join(prefix, "bin", "orvo")
        answer = self.orvo("--help", "--language", "en")
        self.assertEqual(answer.code, 0)
        self.assertIn("用法", answer.out)
        self.assertIn("en", answer.err)


class WithoutAWritableHome(ProgramTest):
    def test_a_home_that_is_no_folder_is_reported_and_the_shipped_files_serve(self):
        path = os.path.join(self.home, "file")
        with open(path, "w", encoding="utf-8"):
            pass
        answer = self.orvo("info", "--json", HOME=path)
        self.assertEqual(answer.code, 0, answer)
        self.assertEqual(answer.json()["place"]["city"], "北京")
        self.assertIn(path, answer.err)

    def test_set_cannot_save_into_the_installation(self):
        path = os.path.join(self.home, "file")
        with open(path, "w", encoding="utf-8"):
            pass
        before = snapshot(SHIPPED)
        answer = self.orvo("set", "--place", "上海", HOME=path)
        self.assertEqual((answer.code, answer.out), (FAILED, ""), answer)
        self.assertIn("设置没有保存", answer.err)
        self.assertEqual(snapshot(SHIPPED), before)

    def test_a_read_only_home(self):
        self.become_ordinary_user()
        shutil.rmtree(os.path.join(self.home, ".config"), ignore_errors=True)
        os.chmod(self.home, 0o500)
        answer = self.orvo("info", "--json")
        self.assertEqual(answer.code, 0, answer)
        self.assertIn(self.home, answer.err)
        self.assertEqual(self.orvo("set", "--place", "上海").code, FAILED)

    def test_no_home_at_all(self):
        answer = self.orvo("info", "--json", HOME=None, XDG_CONFIG_HOME=os.path.join("relative", "folder"))
        self.assertIn(answer.code, (0, FAILED))
        self.assertFalse(os.path.exists(os.path.join(self.home, "relative")))


class BrokenInstallation(ProgramTest):
    def setUp(self):
        super().setUp()
        self.prefix = os.path.join(self.home, "prefix")
        shutil.copytree(PREFIX, self.prefix)
        self.program = os.path.join(self.prefix, "bin", "orvo")

    def test_without_the_module(self):
        os.remove(os.path.join(self.prefix, "lib", "orvo", "OrvoDataBase.so"))
        answer = self.orvo("info")
        self.assertEqual((answer.code, answer.out), (FAILED, ""))
        self.assertIn("OrvoDataBase.so", answer.err)
        self.says_which_it_is("OrvoDataBase.so")

    def test_without_the_workbench(self):
        os.remove(os.path.join(self.prefix, "lib", "orvo", "OrvoWorkbench.so"))
        answer = self.orvo("info")
        self.assertEqual((answer.code, answer.out), (FAILED, ""))
        self.assertIn("OrvoWorkbench.so", answer.err)
        self.says_which_it_is("OrvoWorkbench.so")

    def says_which_it_is(self, missing):
        """Without its libraries, too, but nothing else."""
        whole = self.version_of(PROGRAM)
        for words in (["--version"], ["info", "--version"], ["--language", "en", "--version"]):
            answer = self.orvo(*words)
            self.assertEqual((answer.code, answer.out), (0, whole), answer)
            self.assertIn(missing, answer.err)
        for words in (["--help"], ["-h"], ["help"], ["help", "info"], ["info", "--help"]):
            answer = self.orvo(*words)
            self.assertEqual(answer.code, 0, answer)
            self.assertTrue(answer.out.startswith(whole + "用法：orvo"), answer)
        self.assertIn("Usage: orvo", self.orvo("--help", "--language", "en").out)
        for words in ([], ["places", "help"], ["--", "--version"], ["entity", "--", "--help"]):
            answer = self.orvo(*words)
            self.assertEqual((answer.code, answer.out), (FAILED, ""), answer)

    def version_of(self, program):
        return subprocess.run([program, "--version"], capture_output=True, text=True, env=self.environment(),
                              check=True).stdout

    def test_with_a_module_that_is_no_library(self):
        with open(os.path.join(self.prefix, "lib", "orvo", "OrvoDataBase.so"), "wb") as stream:
            stream.write(b"no library")
        self.assertEqual(self.orvo("info").code, FAILED)
        self.says_which_it_is("OrvoDataBase.so")

    def test_without_the_shipped_files(self):
        for name in CONFIG_FILES:
            os.remove(os.path.join(self.prefix, "share", "orvo", name))
        answer = self.orvo("terms", "--year", "2025", "--json")
        self.assertEqual(answer.code, 0, answer)
        self.assertEqual(len(answer.json()["terms"]), 24)
        for name in CONFIG_FILES:
            self.assertIn(f"加载选项配置文件失败！未找到配置文件{name}。", answer.err)
        self.assertFalse(answer.err.startswith("\n"))
        nowhere = self.orvo("info")
        self.assertEqual(nowhere.code, FAILED)
        self.assertIn("无", nowhere.out)
        self.assertEqual(self.orvo("set", "--step", "5").code, FAILED)
        self.assertEqual(os.listdir(self.folder), [])


if __name__ == "__main__":
    main()
