"""Configuration files that are broken, foreign, hostile, or written in other ways."""
import os
import re
import shutil

from orvo_program import CONFIG_FILES, FAILED, OK, PREFIX, SHIPPED, ProgramTest, main, shipped

BROKEN = {
    "empty": b"",
    "no XML": b"hello\n",
    "binary": bytes(range(256)) * 40,
    "truncated": None,  # the shipped file without its second half
    "entity flood": b'<!DOCTYPE a [<!ENTITY b "' + b"x" * 1000 + b'"><!ENTITY c "' + b"&b;" * 1000 + b'">]><a>&c;&c;</a>',
    "outside entity": b'<!DOCTYPE a [<!ENTITY b SYSTEM "file:///etc/passwd">]><a>&b;</a>',
    "deep": b"<a>" * 5000 + b"</a>" * 5000,
    "bad UTF-8": b'<?xml version="1.0" encoding="UTF-8"?><a>\xff\xfe</a>',
    "unknown encoding": b'<?xml version="1.0" encoding="no-such"?><a/>',
    "NUL": b"<a>\0</a>",
    "two roots": b"<a/><b/>",
}
FOREIGN = {
    "empty root": b"<a/>",
    "web page": b"<html><head><title>x</title></head><body><p>y</p></body></html>",
    "nested texts": b"<a><b>1</b><c><d>2</d></c></a>",
}


class BrokenFiles(ProgramTest):
    def content(self, name, kind):
        return shipped(name)[:len(shipped(name)) // 2] if BROKEN[kind] is None else BROKEN[kind]

    def test_broken_terms_give_the_built_in_ones_and_are_kept(self):
        expected = self.ok("terms", "--year", "2025", "--json").json()
        for kind in BROKEN:
            with self.subTest(kind=kind):
                self.write("SunTerm.xml", self.content("SunTerm.xml", kind))
                answer = self.orvo("terms", "--year", "2025", "--json")
                self.assertEqual((answer.code, answer.json()), (OK, expected))
                self.assertIn("SunTerm.xml", answer.err)
                self.assertEqual(self.read("SunTerm.xml"), self.content("SunTerm.xml", kind))

    def test_broken_places_give_the_shipped_ones_and_are_kept(self):
        for kind in BROKEN:
            with self.subTest(kind=kind):
                self.write("zone.xml", self.content("zone.xml", kind))
                answer = self.orvo("info", "--json")
                self.assertEqual(answer.code, OK, answer)
                self.assertEqual((answer.json()["place"]["city"], answer.json()["place"]["province"]), ("北京", "北京"))
                self.assertIn(self.file("zone.xml") + " 不可用", answer.err)
                self.assertIn("移走这个文件", answer.err)
                self.assertEqual(self.read("zone.xml"), self.content("zone.xml", kind))
        self.assertEqual(len(self.orvo("places", "--json").json()), shipped("zone.xml").count(b'type="CITY"'))
        self.assertEqual(self.orvo("set", "--place", "上海").code, OK)
        os.remove(self.file("zone.xml"))
        self.ok("places")
        self.assertEqual(self.read("zone.xml"), shipped("zone.xml"), "the way back that the message tells")

    def test_a_place_file_without_places_tells_the_way_back(self):
        self.write("zone.xml", "<ORVO_ZONEDATA/>")
        answer = self.refused(FAILED, "places")
        self.assertIn("移走这个文件", answer.err)

    def test_broken_settings_give_the_shipped_ones_and_stay_beside_the_new_file(self):
        for number, kind in enumerate(BROKEN, 1):
            with self.subTest(kind=kind):
                broken = self.content("SunSet.xml", kind)
                self.write("SunSet.xml", broken)
                answer = self.orvo("info", "--date", "2025-12-22")
                self.assertEqual(answer.code, OK, answer)
                self.assertTrue(answer.out.startswith("分析标准:上海标准;地区:北京;时间:2025年12月22日(冬至)09:00～15:00,计算精度:10分钟\n"))
                self.assertIn(self.file("SunSet.xml") + " 不可用", answer.err)
                self.assertIn("SunSet.xml.refused-1", answer.err)
                self.assertEqual(self.read(f"SunSet.xml.refused-{number}"), broken)
                self.assertEqual(self.read("SunSet.xml"), shipped("SunSet.xml"))
                self.ok("info")

    def test_what_is_set_over_broken_settings_goes_into_the_shipped_ones(self):
        for kind in ("truncated", "empty"):
            with self.subTest(kind=kind):
                self.write("SunSet.xml", self.content("SunSet.xml", kind))
                answer = self.orvo("set", "--step", "7")
                self.assertEqual(answer.code, OK, answer)
                listed = self.ok("standards", "--json").json()["standards"]
                self.assertEqual([standard["changedFromShipped"] for standard in listed], [["step"]] + [[]] * 5)

    def test_settings_of_another_kind_are_kept_for_good(self):
        for number, content in enumerate(FOREIGN.values(), 1):
            self.write("SunSet.xml", content)
            answer = self.orvo("standards", "--json")
            self.assertEqual((answer.code, len(answer.json()["standards"])), (OK, 6))
            self.assertIn("其中没有当前设置", answer.err)
            self.ok("set", "--step", "7")
            self.ok("set", "--step", "8")
            self.assertEqual(self.read(f"SunSet.xml.refused-{number}"), content)
            self.assertFalse(os.path.exists(self.file(f"SunSet.xml.refused-{number + 1}")))

    def test_the_cause_is_told(self):
        for content, words in (("", "文件是空的"), ("<a>\n<b>\n</a>\n", "第 3 行"), ("<!DOCTYPE a><a/>", "文档类型声明")):
            for name in CONFIG_FILES:
                self.write(name, content)
                self.assertRegex(self.orvo("terms").err, f"{name} 不可用：[^\n]*{words}")
                os.remove(self.file(name))
        self.write("SunTerm.xml", "")
        self.assertIn("SunTerm.xml cannot be used: the file is empty. The shipped tables of solar terms are in force.",
                      self.orvo("terms", "--language", "en").err)

    def test_a_shipped_file_that_is_broken_too(self):
        prefix = os.path.join(self.home, "prefix")
        shutil.copytree(PREFIX, prefix)
        self.program = os.path.join(prefix, "bin", "orvo")
        for name in CONFIG_FILES:
            with open(os.path.join(prefix, "share", "orvo", name), "w", encoding="utf-8") as stream:
                stream.write("<broken")
            self.write(name, "<broken")
        answer = self.orvo("terms", "--year", "2025")
        self.assertEqual((answer.code, len(answer.out.splitlines())), (OK, 25))
        self.assertEqual(answer.err.count("重新安装"), 3)

    def test_foreign_files_are_told_from_sound_ones(self):
        for kind, content in FOREIGN.items():
            for name in CONFIG_FILES:
                with self.subTest(kind=kind, name=name):
                    shutil.rmtree(self.folder, ignore_errors=True)
                    self.write(name, content)
                    answer = self.orvo("terms", "--year", "2025")
                    self.assertEqual(answer.code, OK, answer)
                    self.assertIn(name, answer.err)
                    self.assertEqual(len(answer.out.splitlines()), 25)

    def test_terms_that_lack_rows_or_hold_nonsense_are_not_used(self):
        expected = self.ok("terms", "--year", "2024", "--json").json()
        good = shipped("SunTerm.xml").decode()
        rows = [line for line in good.splitlines() if "小寒" in line]
        self.assertEqual(len(rows), 2)
        for content in (good.replace(rows[0], "", 1), good.replace('date="6月22日"', 'date="十三月"'),
                        good.replace('dglat="23.45"', 'dglat="1e300"'), good.replace('type="Sterm"', 'type="other"', 1),
                        good.replace('date="6月22日"', 'date="6月99日"')):
            self.assertNotEqual(content, good)
            self.write("SunTerm.xml", content)
            answer = self.orvo("terms", "--year", "2024", "--json")
            self.assertEqual((answer.code, answer.json()), (OK, expected))
            self.assertIn("SunTerm.xml", answer.err)
            self.assertEqual(self.orvo("info").code, OK)

    def test_files_that_may_not_be_read(self):
        self.ok("info")
        self.become_ordinary_user()
        for name in CONFIG_FILES:
            os.chmod(self.file(name), 0)
        answer = self.orvo("terms", "--year", "2025")
        self.assertEqual(answer.code, OK)
        for name in CONFIG_FILES:
            self.assertIn(name, answer.err)

    def test_a_folder_or_a_pipe_in_place_of_a_file(self):
        for make in (os.mkdir, os.mkfifo):
            for name in CONFIG_FILES:
                with self.subTest(name=name, make=make.__name__):
                    shutil.rmtree(self.folder, ignore_errors=True)
                    self.ok("terms")
                    os.remove(self.file(name))
                    make(self.file(name))
                    self.assertIn(self.orvo("info").code, (OK, FAILED))

    def test_hostile_settings(self):
        good = shipped("SunSet.xml").decode()
        for old, new in (('<CUR_SPACE dt:kind="4">10<', '<CUR_SPACE dt:kind="4">1e300<'),
                         ('<CUR_SPACE dt:kind="4">10<', '<CUR_SPACE dt:kind="4">nan<'),
                         ('<CUR_STARTTIME dt:kind="4">9<', '<CUR_STARTTIME dt:kind="4">-1e308<'),
                         ('<CUR_STARTTIME dt:kind="4">9<', '<CUR_STARTTIME dt:kind="4">inf<'),
                         ('<CUR_STDINDEX dt:kind="3">0<', '<CUR_STDINDEX dt:kind="3">99999999999999999999<'),
                         (">北京<", ">" + "长" * 100000 + "<"),
                         (">北京<", ">%s%n%d%*d<")):
            with self.subTest(new=new[:60]):
                self.assertIn(old, good)
                self.write("SunSet.xml", good.replace(old, new))
                answer = self.orvo("info", "--date", "2025-6-6")
                self.assertIn(answer.code, (OK, FAILED), answer)
                self.assertIn("赤纬", answer.out)

    def test_dates_of_standards_that_are_none(self):
        good = shipped("SunSet.xml").decode()
        for date in ("", "x", "----", "1-2-3-4-5", "99999999999-99-99", "2025-2-31"):
            with self.subTest(date=date):
                self.write("SunSet.xml", re.sub(r'date="[^"]*"', f'date="{date}"', good))
                answer = self.orvo("info", "--json")
                self.assertIn(answer.code, (OK, FAILED), answer)
                if answer.out:
                    answer.json()


class OtherEncodings(ProgramTest):
    ZONE = ('<?xml version="1.0" encoding="{}"?>\n<!-- 手写 -->\n<ORVO_ZONEDATA>\n<浙江 type="PROVINCE">'
            '<杭州 type="CITY" longitude="  120.1551" latitude="30.2741">省会</杭州></浙江></ORVO_ZONEDATA>\n')

    def test_hand_written_files_in_chinese_encodings(self):
        for declared, codec in (("GB18030", "gb18030"), ("GBK", "gbk"), ("GB2312", "gb2312"), ("UTF-16", "utf-16"),
                                ("UTF-8", "utf-8-sig")):
            with self.subTest(declared=declared):
                self.write("zone.xml", self.ZONE.format(declared).encode(codec))
                answer = self.ok("info", "--place", "杭州", "--json").json()
                self.assertEqual(answer["place"], {"city": "杭州", "province": "浙江", "longitude": 120.1551, "latitude": 30.2741})

    def test_a_support_folder_comes_before_the_users_own(self):
        folder = os.path.join(self.home, "support")
        shutil.copytree(SHIPPED, folder)
        with open(os.path.join(folder, "zone.xml"), "w", encoding="utf-8") as stream:
            stream.write(self.ZONE.format("UTF-8"))
        listed = self.ok("places", "--json", ORVO_SUPPORT_PATH="relative:" + folder).json()
        self.assertEqual([place["city"] for place in listed], ["杭州"])
        self.orvo("set", "--place", "杭州", ORVO_SUPPORT_PATH=folder)
        with open(os.path.join(folder, "SunSet.xml"), encoding="utf-8") as stream:
            self.assertIn("杭州", stream.read())
        self.assertEqual(self.read("SunSet.xml"), shipped("SunSet.xml"))


if __name__ == "__main__":
    main()
