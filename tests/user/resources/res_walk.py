"""Reads the dialogs of a compiled resource file (.res) by the published layout of its records."""
import struct

DIALOG = 5
CLASSES = {0x80: "BUTTON", 0x81: "EDIT", 0x82: "STATIC", 0x83: "LISTBOX", 0x84: "SCROLLBAR", 0x85: "COMBOBOX"}
DS_SETFONT = 0x40


class Cursor:
    def __init__(self, data, at=0):
        self.data = data
        self.at = at

    def take(self, layout):
        values = struct.unpack_from("<" + layout, self.data, self.at)
        self.at += struct.calcsize("<" + layout)
        return values

    def align(self):
        self.at += -self.at % 4

    def name(self):
        """A name: FFFF and a number, or units of UTF-16 up to a zero."""
        units = []
        unit, = self.take("H")
        if unit == 0xFFFF:
            return self.take("H")[0]
        while unit:
            units.append(unit)
            unit, = self.take("H")
        return struct.pack(f"<{len(units)}H", *units).decode("utf-16-le")


def read_item(cursor):
    cursor.align()
    _, ex_style, style, x, y, cx, cy, number = cursor.take("IIIhhhhI")
    kind = cursor.name()
    text = cursor.name()
    extra, = cursor.take("H")
    cursor.at += extra
    return {"class": CLASSES.get(kind, kind), "id": number & 0xFFFF, "style": style, "exstyle": ex_style,
            "place": (x, y, cx, cy), "text": text}


def read_dialog(data, number):
    cursor = Cursor(data)
    version, signature = cursor.take("HH")
    assert (version, signature) == (1, 0xFFFF), "not an extended dialog"
    _, ex_style, style, count, x, y, cx, cy = cursor.take("IIIHhhhh")
    menu = cursor.name()
    window_class = cursor.name()
    assert menu == "" and window_class == ""
    caption = cursor.name()
    size, face = 0, ""
    if style & DS_SETFONT:
        size, _, _, _ = cursor.take("HHBB")
        face = cursor.name()
    items = [read_item(cursor) for _ in range(count)]
    return {"id": number, "style": style, "exstyle": ex_style, "place": (x, y, cx, cy), "caption": caption,
            "size": size, "face": face, "items": items}


def read_dialogs(data):
    """The dialogs of a file in their order, icons left out of them."""
    dialogs = []
    at = 0
    while at < len(data):
        size, header = struct.unpack_from("<II", data, at)
        cursor = Cursor(data, at + 8)
        kind, number = cursor.name(), cursor.name()
        if kind == DIALOG:
            dialogs.append(read_dialog(data[at + header:at + header + size], number))
        at += header + size
        at += -at % 4
    return dialogs
