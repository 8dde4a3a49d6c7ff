#!/usr/bin/env python3
"""Compiles resource scripts with the resource compiler of binutils and compares what it made of them, item by item, with
what our reader makes of the same text."""
import os
import subprocess
import tempfile
import unittest

from res_walk import read_dialogs

SOURCE = os.environ["ORVO_SOURCE_DIR"]
RESOURCES = os.path.join(SOURCE, "module", "resources")
HEADERS = "/usr/x86_64-w64-mingw32/include"  # the framework's own, as Debian packs them
SS_ICON = 3
SS_TYPEMASK = 0x1F

# Every statement, with a style and without one, and what numbers and texts may be made of.
STATEMENTS = ["LTEXT", "CTEXT", "RTEXT", "PUSHBUTTON", "DEFPUSHBUTTON", "CHECKBOX", "AUTOCHECKBOX", "RADIOBUTTON",
              "AUTORADIOBUTTON", "GROUPBOX"]
FIELDS = ["EDITTEXT", "COMBOBOX", "LISTBOX"]
STYLES = ["", ", WS_DISABLED", ", NOT WS_VISIBLE", ", WS_GROUP | NOT WS_TABSTOP", ", WS_TABSTOP, WS_EX_RIGHT"]
SCRIPT = """#include <windows.h>
#define NOBODY (-1)
#define FIRST 0x40
#pragma code_page(65001)
LANGUAGE 4, 2
10 DIALOGEX 1, -2, 300, 200
CAPTION "标""题\\t\\\\"
FONT 9, "MS Shell Dlg"
BEGIN
    CONTROL "x", NOBODY, "QcUiGrid", WS_BORDER | WS_TABSTOP, 1, 2, 3, 4
    CONTROL "", 5, "Button", BS_AUTORADIOBUTTON | NOT WS_VISIBLE, 2 + 3, 9 - 1 - 2, (0x10 | 1), FIRST & 0x7F, WS_EX_RIGHT
    ICON 7, 5, 1, 2
    LTEXT "月\\n", FIRST, -1, 2, 3, 4
%s
END
11 DIALOGEX DISCARDABLE 0, 0, 10, 10, 5
CAPTION "a"
STYLE WS_POPUP | DS_MODALFRAME
EXSTYLE WS_EX_TOOLWINDOW
STYLE WS_SYSMENU
FONT 12, "Sans", 700, 1, 0x86
{
}
12 DIALOGEX 0, 0, 1, 1
STYLE DS_3DLOOK
{
}
""" % "\n".join([f'    {kind} "a", 1, 1, 2, 3, 4{style}' for kind in STATEMENTS for style in STYLES] +
                [f"    {kind} 1, 1, 2, 3, 4{style}" for kind in FIELDS for style in STYLES])


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def write(folder, name, text):
    path = os.path.join(folder, name)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def compiled(folder, script):
    """What the resource compiler makes of a script."""
    result = os.path.join(folder, "out.res")
    command = ["x86_64-w64-mingw32-windres", f"--preprocessor={os.environ.get('CXX', 'c++')}"]
    command += [f"--preprocessor-arg={argument}" for argument in (
        "-E", "-xc", "-DRC_INVOKED", "-D_WIN32", "-D_WIN64", "-nostdinc", f"-I{HEADERS}")]
    done = subprocess.run(command + ["-O", "res", script, result], capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    assert not done.stderr, done.stderr
    with open(result, "rb") as file:
        dialogs = read_dialogs(file.read())
    for dialog in dialogs:
        dialog["items"] = [item for item in dialog["items"]
                           if item["class"] != "STATIC" or item["style"] & SS_TYPEMASK != SS_ICON]
    return dialogs


def ours(script):
    """What our reader makes of a script."""
    done = subprocess.run([os.environ["ORVO_DUMP_SCRIPT"], script], capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    dialogs = []
    for line in done.stdout.splitlines():
        kind, *fields = line.split("\t")
        if kind == "dialog":
            number, style, ex_style, x, y, cx, cy, caption, size, face = fields
            dialogs.append({"id": int(number), "style": int(style), "exstyle": int(ex_style),
                            "place": (int(x), int(y), int(cx), int(cy)), "caption": text(caption),
                            "size": int(size), "face": text(face), "items": []})
        else:
            window_class, number, style, ex_style, x, y, cx, cy, caption = fields
            dialogs[-1]["items"].append({"class": text(window_class), "id": int(number), "style": int(style),
                                         "exstyle": int(ex_style), "place": (int(x), int(y), int(cx), int(cy)),
                                         "text": text(caption)})
    return dialogs


def text(digits):
    return bytes.fromhex(digits).decode("utf-8")


class Resources(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = temporary.name

    def compare(self, theirs, mine):
        mine = sorted(mine, key=lambda dialog: dialog["id"])  # as the compiler sorts them
        self.assertEqual([dialog["id"] for dialog in theirs], [dialog["id"] for dialog in mine])
        for their, my in zip(theirs, mine):
            for key in ("style", "exstyle", "place", "caption", "size", "face"):
                self.assertEqual(their[key], my[key], f"{key} of dialog {my['id']}")
            self.assertEqual(len(their["items"]), len(my["items"]), f"items of dialog {my['id']}")
            for index, (item, mine_item) in enumerate(zip(their["items"], my["items"])):
                # The compiler writes classes in capitals; the system finds them in any case.
                self.assertEqual({**item, "class": item["class"].upper()},
                                 {**mine_item, "class": mine_item["class"].upper()}, f"{my['id']}, item {index}")

    def test_the_compiler_and_the_reader_agree_on_every_statement(self):
        script = write(self.folder, "all.rc", SCRIPT)
        dialogs = ours(script)
        self.assertEqual([len(dialog["items"]) for dialog in dialogs], [3 + 13 * len(STYLES), 0, 0])
        self.compare(compiled(self.folder, script), dialogs)

    def test_the_compiler_and_the_reader_agree_on_the_modules_dialogs(self):
        source = read(os.path.join(RESOURCES, "OrvoDataBase.rc"))
        header = read(os.path.join(RESOURCES, "Resource.h"))
        complete = write(self.folder, "complete.rc", header + source)
        dialogs = ours(complete)
        self.assertEqual(len(dialogs), 12)
        self.compare(compiled(self.folder, os.path.join(RESOURCES, "OrvoDataBase.rc")), dialogs)

    def test_the_comparison_sees_a_difference(self):
        script = write(self.folder, "a.rc", SCRIPT)
        other = write(self.folder, "b.rc", SCRIPT.replace('"Button", BS_AUTORADIOBUTTON', '"Button", BS_RADIOBUTTON'))
        with self.assertRaises(AssertionError):
            self.compare(compiled(self.folder, script), ours(other))


if __name__ == "__main__":
    unittest.main()
