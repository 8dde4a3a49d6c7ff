"""Rows of bars over the hours of a day, for the pictures of the documents."""
from svg_picture import INK

LIT = "#f6c945"
COUNTED = "#4f9d69"
DROPPED = "#dfe3e8"


def clock(minutes):
    return f"{int(minutes) // 60}:{int(minutes) % 60:02d}"


class Timeline:
    """Rows of bars over hours. Times are minutes after midnight."""

    def __init__(self, picture, start, end, left=215, right=735):
        self.picture, self.start, self.end, self.left, self.right = picture, start, end, left, right

    def x(self, time):
        return self.left + (self.right - self.left) * (time - self.start) / (self.end - self.start)

    def axis(self, y, times=None, label=clock, above=False):
        self.picture.line(self.left, y, self.right, y)
        for time in times or range(self.start, self.end + 1, 60):
            self.picture.line(self.x(time), y - 4, self.x(time), y + 4)
            self.picture.words(self.x(time), y - 9 if above else y + 19, label(time), "middle", 12)

    def bar(self, y, start, end, fill, text="", height=22):
        self.picture.box(self.x(start), y, self.x(end) - self.x(start), height, fill, INK, rx=2)
        if text:
            colour = "#ffffff" if fill == COUNTED else INK
            self.picture.words(self.x((start + end) / 2), y + 16, text, "middle", 12, colour)

    def row(self, y, label, bars, result=""):
        """Bars of (start, end, fill, text)."""
        self.picture.words(10, y + 16, label, size=13)
        for bar in bars:
            self.bar(y, *bar)
        if result:
            self.picture.words(self.right, y + 16, result, "end", 13, weight="bold")
