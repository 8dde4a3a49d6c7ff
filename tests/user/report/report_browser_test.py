"""The pages of reports in a browser: what they show, with scripts and without, on paper, and whether they are sound."""
import os
import re
import subprocess
import tempfile

from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

from analyse_test import STANDARD, AnalyseTest, box, drawing, face, groups, south_window, text
from browser import Browser
from orvo_program import main

# Three houses in a row, each of three storeys with two flats, and a tower of the project before them.
STOREYS = 3
EVIL = "9-101-1<b>&\"'"
A4 = (595, 842)  # points


def site():
    entities = [box("FA1", "方案", 30, -34, 44, -24, 40), box("FA2", "旧", -10, -30, 4, -22, 20)]
    handle = 0x100
    for house in range(3):
        left = house * 30
        entities.append(box(f"{0xE00 + house:X}", "建筑", left, 0, left + 20, 10, STOREYS * 3))
        for storey in range(STOREYS):
            for flat in range(2):
                x, z = left + 2 + flat * 10, storey * 3 + 1
                entities.append(south_window(f"{handle:X}", left=x, right=x + 1.5, sill=z, top=z + 1.5))
                entities.append(text(f"{handle + 1:X}", "WINDOW", f"{house + 1}-{storey + 1}0{flat + 1}-1", x + 0.5, 0, z + 0.5))
                handle += 2
    entities.append(face("F01", "WINDOW", [(120, 0, 1), (122, 0, 1), (122, 0, 3), (120, 0, 3)]))
    entities.append(text("F02", "WINDOW", EVIL, 121, 0, 2))
    return drawing(*entities, groups((0, "LWPOLYLINE"), (5, "E1"), (8, "地面"), (90, 4), (70, 1), (10, 0), (20, -20), (10, 40),
                                     (20, -20), (10, 40), (20, -4), (10, 0), (20, -4)))


WINDOWS = 3 * STOREYS * 2 + 1
SECTIONS = {"zh_CN.UTF-8": ["结论", "各窗", "各窗的一天", "日照标准：" + STANDARD, "没有计入的和需要注意的"],
            "en_US.UTF-8": ["Verdict", "The windows", "The windows' day", "Standard: " + STANDARD, "Left out, and to be noted"]}


class ReportPages(AnalyseTest):
    @classmethod
    def setUpClass(cls):
        cls.profile = tempfile.TemporaryDirectory(prefix="orvo-browser-")
        cls.browser = Browser(cls.profile.name)

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()
        cls.profile.cleanup()

    def report(self, *more, subcommand="analyse", language="zh_CN.UTF-8", content=None, need="6"):
        name = self.put(content or site())
        self.orvo(subcommand, name, "--standard", STANDARD, "--need", need, "--report", "report", "--author", "A", *more,
                  LANG=language)
        return os.path.join(self.home, "report", "index.html")

    def read_page(self, path):
        with open(path, encoding="utf-8") as stream:
            return stream.read()

    def open(self, path, **more):
        self.browser.open(path, **more)
        # Nothing is asked for but the page, and the browser has nothing to say of it.
        self.assertEqual(self.browser.requests(), ["file://" + path])
        self.addCleanup(self.assert_quiet)

    def assert_quiet(self):
        self.assertEqual((self.browser.complaints(), self.browser.requests()), ([], []))

    def texts(self, selector):
        return self.browser.run("return Array.from(document.querySelectorAll(arguments[0]), e => e.textContent)", selector)

    def table(self, selector="table.sort.findable"):
        """The body of a table that is shown, row by row."""
        return self.browser.run("return Array.from(document.querySelectorAll(arguments[0] + ' > tbody > tr'))"
                                ".filter(row => !row.hidden).map(row => Array.from(row.cells, cell => cell.innerText))", selector)

    def heading(self, words):
        buttons = self.browser.find(By.CSS_SELECTOR, "table.sort.findable thead [role=button]")
        return next(button for button in buttons if button.text == words)

    def test_everything_is_there_in_both_languages(self):
        for language, sections in SECTIONS.items():
            with self.subTest(language=language):
                self.open(self.report(language=language))
                self.assertEqual(self.browser.run("return document.documentElement.lang"), language[:2].replace("zh", "zh-CN"))
                headings = self.texts("h2")
                for section in sections:
                    self.assertIn(section, headings)
                self.assertEqual(len(self.table()), WINDOWS)
                self.assertEqual(len(self.browser.find(By.CSS_SELECTOR, "table.days > tbody > tr")), WINDOWS)
                self.assertEqual(len(self.browser.find(By.CSS_SELECTOR, ".sign > div")), 3)
                # One bar for each window whose sun could be told.
                self.assertEqual(len(self.browser.find(By.CSS_SELECTOR, "table.days tbody svg.tl")), WINDOWS - 1)
                self.assertTrue(any(EVIL in label for label in self.texts("table.days tbody th b")))

    def test_headings_sort_by_a_click_and_by_a_key(self):
        self.open(self.report())
        in_order = self.table()
        names = [row[0] for row in in_order]

        def minutes(row):
            hours = row[-1].split(":")
            return None if row[-1] == "-" else int(hours[0]) * 60 + int(hours[1])

        known = [row[0] for row in sorted((row for row in in_order if minutes(row) is not None), key=minutes)]
        unknown = [row[0] for row in in_order if minutes(row) is None]
        self.assertEqual(len(unknown), 1)
        self.assertNotEqual(known + unknown, names)
        heading = self.heading("判定时数")
        heading.click()
        self.assertEqual([row[0] for row in self.table()], known + unknown)
        self.assertEqual(self.texts("th[aria-sort=ascending]"), ["判定时数"])
        heading.send_keys(Keys.ENTER)
        down = [row[0] for row in sorted((row for row in self.table() if minutes(row) is not None),
                                         key=lambda row: -minutes(row))]
        self.assertEqual([row[0] for row in self.table()], down + unknown)
        self.assertEqual([minutes(row) for row in self.table()][0], max(minutes(row) for row in in_order if minutes(row)))
        self.assertEqual(self.texts("th[aria-sort=descending]"), ["判定时数"])
        self.heading("窗（句柄）").send_keys(Keys.SPACE)
        self.assertEqual([row[0] for row in self.table()], sorted(names))

    def test_a_field_leaves_what_contains_every_word(self):
        self.open(self.report())
        fields = self.browser.find(By.CSS_SELECTOR, "input[type=search]")
        self.assertEqual(len(fields), 2)
        wanted = [row[0] for row in self.table() if "不达标" in row[1] and row[0].startswith("1-")]
        self.assertNotIn(len(wanted), (0, WINDOWS))
        fields[0].send_keys("不达标 1-")
        self.assertEqual([row[0] for row in self.table() if row[0].startswith("1-")], wanted)
        self.assertTrue(all("不达标" in " ".join(row) for row in self.table()))
        fields[0].clear()
        fields[0].send_keys("没有这样的窗")
        self.assertEqual(self.table(), [])
        fields[0].send_keys(Keys.CONTROL, "a", Keys.DELETE)
        self.assertEqual(len(self.table()), WINDOWS)
        fields[1].send_keys("2-101-1")
        self.assertEqual([row[0].split()[0] for row in self.table("table.days")], ["2-101-1"])

    def test_a_window_leads_to_its_day(self):
        self.open(self.report())
        rows = self.browser.run("return Array.from(document.querySelectorAll('table.sort.findable a'), a => "
                                "[a.textContent, document.querySelector(a.getAttribute('href') + ' b').textContent])")
        self.assertEqual(len(rows), WINDOWS)
        for label, day in rows:
            self.assertEqual(label, day)
        ids = self.browser.run("return Array.from(document.querySelectorAll('[id]'), e => e.id)")
        self.assertEqual(len(ids), len(set(ids)))

    def test_all_can_be_read_without_scripts(self):
        path = self.report()
        self.open(path, has_scripts=False)
        self.assertEqual(self.browser.find(By.CSS_SELECTOR, "[role=button], input"), [])
        body = self.browser.find(By.TAG_NAME, "body")[0].text
        page = re.sub(r"<(script|style|svg).*?</\1>", "", self.read_page(path).split("<body", 1)[1], flags=re.S)
        for name in re.findall(r"<b>(\d-\d+-1 \(\w+\))</b>", page):
            self.assertGreaterEqual(body.count(name), 2, "in the table and with its day")
        for section in SECTIONS["zh_CN.UTF-8"]:
            self.assertIn(section, body)
        content, sheets = self.browser.print()
        self.assertGreater(len(sheets), 3)
        self.assertTrue(content.startswith(b"%PDF"))

    def test_it_is_printed_on_a4(self):
        for more in ((), ("--proposed", "方案")):
            self.open(self.report(*more))
            _, sheets = self.browser.print()
            self.assertEqual({(round(width), round(height)) for width, height in sheets}, {A4})
            # Head, plan, totals, windows, days and skies begin on sheets of their own, and no table is a sheet a row.
            self.assertIn(len(sheets), range(6, 21))

    def test_nothing_is_wider_than_the_paper(self):
        """A browser makes all of a page smaller for one thing that is too wide, and its plans are no longer to scale."""
        within_the_margins = int(174 / 25.4 * 96)
        long = "x" * 200
        content = site().replace("1-101-1", long).replace("1-102-1", "一" * 100)
        for language in SECTIONS:
            for more in (("--proposed", "方案"), ("--project", long)):
                self.open(self.report(*more, language=language, content=content), width=within_the_margins, medium="print")
                self.assertEqual(self.browser.run("return document.documentElement.scrollWidth"), within_the_margins)

    def test_nothing_is_cut_off_on_narrow_screens(self):
        for width in (1200, 400):
            for more in (("--proposed", "方案"), ()):
                self.open(self.report(*more), width=width)
                self.assertEqual(self.browser.run("return document.documentElement.scrollWidth"), width)

    def test_a_project_stands_before_and_after_side_by_side(self):
        self.open(self.report("--proposed", "方案"))
        pictures = self.browser.run("return Array.from(document.querySelectorAll('.pair figure'), e => "
                                    "[e.querySelector('figcaption').textContent, e.getBoundingClientRect().top])")
        self.assertEqual([caption for caption, _ in pictures][:2], ["方案前", "方案后"])
        self.assertEqual(pictures[0][1], pictures[1][1])
        first = self.browser.run("return Array.from(document.querySelectorAll('.pair figure'), e => e.firstElementChild.tagName)")
        self.assertEqual(first, ["FIGCAPTION", "FIGCAPTION"], "at one height, however long the legends below are")
        headings = self.texts("table.sort.findable thead th")
        self.assertEqual([word for word in headings if word in ("前结论", "后结论", "方案前", "方案后", "失去")],
                         ["前结论", "后结论", "方案前", "方案后", "失去"])
        self.assertEqual(len(self.browser.find(By.CSS_SELECTOR, "table.days tbody svg.tl")), (WINDOWS - 1) * 2)
        self.assertGreater(len(self.browser.find(By.CSS_SELECTOR, "table.days tbody path.x")), 0)

    def test_skies_are_of_windows_that_lack_sun_or_are_asked_for(self):
        self.open(self.report("--proposed", "方案"))
        failing = [row[0].splitlines()[0] for row in self.table() if "不达标" in row[2]]
        captions = self.texts("figure:has(svg.sky) figcaption")
        self.assertEqual(len(captions), min(len(failing), 8) * 2)
        for before, now in zip(captions[::2], captions[1::2]):
            self.assertIn("方案前", before)
            self.assertIn("方案后  不达标", now)
            self.assertIn(now.split("  ")[0], failing)
        self.open(self.report("--sky", "2-101-1", "--sky", "f01"))
        self.assertEqual([caption.split()[0] for caption in self.texts("figure:has(svg.sky) figcaption")], ["2-101-1"])
        self.assertTrue(any(EVIL + " (F01)：" in paragraph for paragraph in self.texts("p")))

    def test_the_style_of_the_page_hides_nothing_of_the_pictures(self):
        self.open(self.report("--proposed", "方案", need="3"))
        self.assertGreater(len(self.texts("svg.plan .hours text")), 0)
        widths = self.browser.run("return Array.from(document.querySelectorAll('svg.plan text, svg.sky text'), e => "
                                  "e.getComputedTextLength() * e.getScreenCTM().a)")
        self.assertGreater(len(widths), 50)
        self.assertGreater(min(widths), 1.5, "pixels; the smallest letters that can be read take twice as many")

    def test_points_have_a_plan_and_shares(self):
        self.open(self.report("--areas", "地面", "--spacing", "2", subcommand="points"))
        rows = self.table("table.sort")
        self.assertEqual(rows[0][:3], ["E1", "640.00", "160"])
        self.assertRegex(rows[0][-1], r"^\d+\.\d%$")
        self.assertEqual(len(self.browser.find(By.CSS_SELECTOR, "figure > svg")), 1)

    def test_facades_have_elevations(self):
        content = drawing(box("A1", "建筑", 0, 0, 20, 10, 12),
                          face("E2", "立面", [(0, 0, 0), (20, 0, 0), (20, 0, 12), (0, 0, 12)]),
                          face("E3", "立面", [(0, 0, 0), (0, 10, 0), (0, 10, 12), (0, 0, 12)]))
        self.open(self.report("--areas", "立面", "--spacing", "1", subcommand="points", content=content))
        self.assertEqual(self.texts("figcaption"), ["轮廓 E2，朝向 南", "轮廓 E3，朝向 西"])
        self.assertEqual(self.texts("figure svg > title"), ["总平面图", "轮廓 E2，朝向 南", "轮廓 E3，朝向 西"])
        # The sun of a winter's afternoon leaves colours on both, and on the plan they are lines.
        cells = self.browser.run("return Array.from(document.querySelectorAll('svg.plan'), e => "
                                 "e.querySelectorAll('.area path[fill^=\"#\"]:not([stroke])').length)")
        self.assertEqual(cells[0], 0)
        self.assertTrue(all(count > 0 for count in cells[1:]), cells)

    def test_who_hears_the_page_is_told_what_tables_and_pictures_are(self):
        for subcommand, more in (("analyse", ("--proposed", "方案")), ("points", ("--areas", "地面"))):
            self.open(self.report(*more, subcommand=subcommand))
            tree = self.browser.driver.execute_cdp_cmd("Accessibility.getFullAXTree", {})["nodes"]
            told = [(node["role"]["value"], node.get("name", {}).get("value")) for node in tree if not node["ignored"]]
            self.assertEqual(len([role for role, _ in told if role == "main"]), 1)
            self.assertEqual([role for role, name in told if role in ("table", "image") and not name], [])
            pictures = [name for role, name in told if role == "image"]
            self.assertEqual(len(pictures), len(set(pictures)), pictures)

    def test_no_row_stands_alone_at_the_end_of_a_sheet(self):
        self.open(self.report())
        breaks = self.browser.run("return Array.from(document.querySelectorAll('table.sort'), table => "
                                  "[getComputedStyle(table.querySelector('tbody tr')).breakAfter, table.tBodies[0].rows.length])"
                                  ".filter(([, count]) => count > 1)")
        self.assertGreater(len(breaks), 2)
        self.assertEqual({each for each, _ in breaks}, {"avoid"})

    def test_the_markup_is_sound(self):
        for more in (("--proposed", "方案"), ()):
            page = self.read_page(self.report(*more))
            pictures = re.findall(r"<svg.*?</svg>", page, re.S)
            self.assertGreater(len(pictures), WINDOWS)
            for picture in pictures:
                judged = subprocess.run(["xmllint", "--noout", "-"], input=picture.encode("utf-8"), capture_output=True,
                                        check=False)
                self.assertEqual(judged.returncode, 0, judged.stderr.decode() + picture)
            # tidy knows the elements of HTML, and none of the pictures'.
            judged = subprocess.run(["tidy", "-q", "-e", "-utf8"], input=re.sub(r"<svg.*?</svg>", "picture", page, flags=re.S),
                                    capture_output=True, text=True, check=False)
            self.assertEqual((judged.returncode, judged.stderr), (0, ""))


if __name__ == "__main__":
    main()
