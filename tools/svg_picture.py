"""Pictures of the documents as SVG: plain shapes and words, the same bytes wherever they are made."""
import math
import os

INK = "#222222"
WIDTH = 760


class Picture:
    """A drawing on a white ground, y downwards."""

    def __init__(self, height):
        self.height = height
        self.parts = []

    def add(self, name, content=None, **attributes):
        words = "".join(f' {key.replace("_", "-")}="{number(value)}"' for key, value in attributes.items())
        self.parts.append(f"<{name}{words}/>" if content is None else f"<{name}{words}>{content}</{name}>")

    def box(self, x, y, width, height, fill, stroke=INK, **more):
        self.add("rect", x=x, y=y, width=width, height=height, fill=fill, stroke=stroke, **more)

    def line(self, x1, y1, x2, y2, stroke=INK, width=1.0, **more):
        self.add("line", x1=x1, y1=y1, x2=x2, y2=y2, stroke=stroke, stroke_width=width, **more)

    def area(self, points, fill, stroke="none"):
        self.add("polygon", points=joined(points), fill=fill, stroke=stroke)

    def path(self, points, stroke, width=1.0):
        self.add("polyline", points=joined(points), fill="none", stroke=stroke, stroke_width=width)

    def words(self, x, y, text, anchor="start", size=14, fill=INK, weight="normal"):
        text = text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
        self.add("text", text, x=x, y=y, text_anchor=anchor, font_size=size, fill=fill, font_weight=weight)

    def arrow(self, x1, y1, x2, y2, stroke=INK):
        self.line(x1, y1, x2, y2, stroke, 2)
        turn = math.atan2(y2 - y1, x2 - x1)
        wings = [(x2 - 10 * math.cos(turn + side), y2 - 10 * math.sin(turn + side)) for side in (-0.4, 0.4)]
        self.area([(x2, y2), *wings], stroke)

    def text(self):
        head = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {self.height}" width="{WIDTH}" '
                f'height="{self.height}" font-family="Helvetica, Arial, sans-serif">')
        ground = f'<rect width="{WIDTH}" height="{self.height}" fill="#ffffff"/>'
        return "\n".join([head, ground, *self.parts, "</svg>"]) + "\n"


class Sheet(Picture):
    """A picture whose words are told in another language. Times and numbers stay."""

    def __init__(self, told, height):
        super().__init__(height)
        self.told = told

    def words(self, x, y, text, *more, **others):
        if any(letter.isalpha() for letter in text):
            text = self.told(text)
        super().words(x, y, text, *more, **others)


def joined(points):
    return " ".join(f"{number(x)},{number(y)}" for x, y in points)


def number(value):
    """Coordinates with two digits at most, so that no computer's rounding shows."""
    if not isinstance(value, float):
        return value
    text = f"{value:.2f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def write_pictures(folder, pictures):
    """Pictures by their names, each into its own file."""
    os.makedirs(folder, exist_ok=True)
    for name, picture in pictures.items():
        with open(os.path.join(folder, name + ".svg"), "w", encoding="utf-8", newline="\n") as file:
            file.write(picture.text())
