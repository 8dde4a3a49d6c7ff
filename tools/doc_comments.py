#!/usr/bin/env python3
"""Turns the comments of a header into those that Doxygen reads, line by line, so that its warnings name the right line.

The headers are written with plain comments:
* the one above #pragma once is about the file;
* one above a declaration is about it, and about the declarations that follow without an empty line between and without
  a comment of their own;
* one behind a declaration is about that, with the lines below that begin in the same column;
* the file's first class has the file's, unless it has one of its own.

What is private is left out, and so is where a template's member is defined. Headings (// ---- Like this. ----) are for
readers of the source only, and so is what stands in the body of a function or above forward declarations, friends,
using-declarations and calls of macros. Nobody need say of a copy that is deleted or defaulted what it is. What overrides
has the comment of what it overrides, unless it has one of its own. A destructor and the answer to a message (afx_msg)
without a comment are left out: nobody calls them, and they do what one expects.

usage: tools/doc_comments.py HEADER      prints it
       tools/doc_comments.py --shared HEADER...      lists the declarations that have another one's comment
"""
import argparse
import re
from dataclasses import dataclass

TOKEN = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])+\'|\n|.', re.S)
SCOPE = re.compile(r"^(template\b.*\s)?(inline\s+)?(namespace|class|struct|union|enum|extern)\b")
ACCESS = re.compile(r"(?:^|\)\s+)(public|protected|private):$")
# No words about a declaration: headings, and what tools are told.
HEADING = re.compile(r"^(-{4} .* -{4}|clang-format (on|off)|NOLINT\w*.*)$")
# What has no comment of its own in the reference.
PASSED_OVER = re.compile(r"^(template <[^>]*> )?((class|struct|union|enum( class)?)\s+[\w:]+( : \w+)?;|friend\b"
                         r"|using\s+[\w:<>,* ]+(=|\[\]|<<)?;$|[A-Z0-9]+_[A-Z_0-9]+\(.*\)?;?$"
                         r"|(extern )?template (class|struct)\b|})")
# A template's member, told again where it is defined.
DEFINITION = re.compile(r"^(template <[^>]*> )+[^(=]*\w<[\w, ]+>::(~?\w+|operator\S+?) ?\(")
ONE_LINE_ENUM = re.compile(r"^enum\b[^{;]*{ *(\w[^}]*?) *}")
CLASS = re.compile(r"^(template <.*> )?(class|struct)\b")
DESTRUCTOR = re.compile(r"^(virtual )?~\w+\(")
HANDLER = re.compile(r"^afx_msg\b")
OVERRIDE = re.compile(r"\b(override|final)\b")
WHY = re.compile(r"^Why: docs/decisions/")
COPY = re.compile(r"\((?:const )?\w+(?:<\w+>)?&&?(?: \w+)?\)(?: const)?(?: noexcept)? = (?P<how>delete|default);$")
COPIES = {"delete": "Deleted: objects of this class are not copied.", "default": "Member by member."}
# A word with which a sentence begins: a type's name only by accident.
ORDINARY = re.compile(r"((?:^|[.!?:;]\"? )[(\"]?)([A-Z][a-z]+)(?![\w:(<]|\.h\b|[*&])")
SPECIAL = re.compile(r"[\\@<>&#*|%]|--+|(?<!\w)_|_(?!\w)|^(\d+)\.(?= )|^[+-](?= )")

# One of a list: with a dash or a star, or indented with a number.
ITEM = re.compile(r"^( *)(?:[-*]|(?<= )(\d+\.)) (.*)$")


@dataclass
class Line:
    """A line of the header, and where it stands."""
    text: str
    code: str = ""
    comment: str = ""  # what follows the two slashes, with its blanks
    column: int = -1   # of the two slashes
    begins: bool = False  # a declaration may begin here
    ends: bool = False    # one ends here, and none begins behind it
    opens: bool = False   # a class or the like opens or closes
    is_private: bool = False
    scope: str = ""

    @property
    def bare(self):
        return self.code.strip()

    @property
    def is_comment(self):
        return self.column >= 0 and not self.bare

    @property
    def is_heading(self):
        return bool(HEADING.match(self.comment.strip()))

    @property
    def is_define(self):
        return self.begins and self.bare.startswith("#define")

    @property
    def is_declaration(self):
        return self.is_define or bool(self.begins and self.bare and self.bare[0] != "#" and not ACCESS.match(self.bare))


class Reader:
    """Reads a header's lines, and follows its braces as far as declarations reach."""

    def __init__(self, text):
        self.lines = []
        self.scopes = ["file"]  # file, class, enum; body for what holds no declarations
        self.access = [""]      # in each of these, as far as it was told
        self.head = ""          # of the declaration so far
        self.depth = 0          # of parentheses
        self.in_directive = False
        self.raw = text.split("\n")
        self.start_line()
        for match in TOKEN.finditer(text):
            self.take(match[0])
        self.finish_line()

    def start_line(self):
        begins = "body" not in self.scopes and not self.head.strip() and not self.depth and not self.in_directive
        self.lines.append(Line(self.raw[len(self.lines)], begins=begins, scope=self.scopes[-1],
                               is_private="private" in self.access))

    def finish_line(self):
        line = self.lines[-1]
        inside = "body" not in self.scopes and not self.depth
        line.is_private = line.is_private and "private" in self.access
        if line.bare.startswith("#") and line.begins:
            line.ends = line.is_define and not line.bare.endswith("\\")
        else:
            last_enumerator = line.scope == "enum" and self.scopes[-1] == "enum" and line.begins
            line.ends = inside and bool(line.bare) and not line.opens and (not self.head.strip() or last_enumerator)
        self.in_directive = (line.bare.startswith("#") or self.in_directive) and line.bare.endswith("\\")

    def take(self, token):
        line = self.lines[-1]
        if token == "\n":
            self.finish_line()
            if line.scope == "enum" and line.ends and self.scopes[-1] == "enum":
                self.head = ""
            if self.head.strip():
                self.head += " "
            self.start_line()
        elif token.startswith("//"):
            line.column, line.comment = len(line.code), token[2:].rstrip()
        elif token.startswith("/*") or "\n" in token:
            for part in token.split("\n")[1:]:
                self.start_line()
                self.lines[-1].begins = False
        else:
            line.code += token
            if not self.in_directive and not line.bare.startswith("#"):
                self.follow(token, line)

    def follow(self, token, line):
        if token in "()":
            self.depth += 1 if token == "(" else -1
        if token == "{" and not self.depth:
            self.scopes.append(self.kind_of_scope())
            self.access.append("")
            if self.scopes[-1] != "body":
                line.opens = True
                self.head = ""
                return
        elif token == "}" and not self.depth and len(self.scopes) > 1:
            kind = self.scopes.pop()
            self.access.pop()
            if kind != "body":
                line.opens = True
            if "body" not in self.scopes and (kind != "body" or not self.is_initializing()):
                self.head = ""
                return
        elif "body" in self.scopes:
            return
        elif not self.depth and (token == ";" or (token == "," and self.scopes[-1] == "enum")):
            self.head = ""
            return
        self.head += token
        access = ACCESS.search(self.head.strip())
        if access:
            self.access[-1] = access[1]
            self.head = ""

    def is_initializing(self):
        """Whether the declaration goes on behind the braces: they held a value, not what a function does."""
        head = re.sub(r"operator\W+?(?=\()", "operator", self.head)
        while re.search(r"\([^()]*\)", head):
            head = re.sub(r"\([^()]*\)", "", head)
        return "=" in head

    def kind_of_scope(self):
        head = self.head.strip()
        if "body" in self.scopes or not SCOPE.match(head) or re.search(r"[()=]", head):
            return "body"
        return "enum" if head.startswith("enum") else "class"


def escaped(text, begins_sentence):
    """A line of a comment, as Markdown in which nothing but backticks has a meaning."""
    parts = text.split("`")
    if len(parts) % 2 == 0:
        parts = ["\\`".join(parts)]
    for i in range(0, len(parts), 2):
        part = SPECIAL.sub(lambda match: match[1] + "\\." if match[1] else "\\" + match[0], parts[i])
        guard = "" if begins_sentence and i == 0 else "\0"  # what does not begin a sentence
        parts[i] = ORDINARY.sub(r"\1%\2", guard + part).removeprefix(guard)
    return "`".join(parts)


def paragraphs(comments):
    """The lines of a comment, escaped, without the blank behind the slashes; code as it is."""
    lines, is_code = [], False
    for comment in comments:
        text = comment[1:] if comment.startswith(" ") else comment
        indent = len(text) - len(text.lstrip())
        item = ITEM.match(text)
        is_code = bool(text) and not item and indent >= 2 and (is_code or not lines or not lines[-1])
        if is_code or not text:
            lines.append("    " * is_code + text)
        elif item:
            lines.append(item[1] + (item[2] or "-") + " " + escaped(item[3], True))
        else:
            begins = not lines or not lines[-1] or lines[-1].endswith((".", "!", "?", ":", '"', ")"))
            lines.append(text[:indent] + escaped(text.lstrip(), begins))
    return lines


def one_line(comments):
    """A comment that is to stand before a declaration on its line; empty where that cannot be."""
    lines = paragraphs(comments)
    if any(line.startswith(("    ", "- ")) for line in lines):
        return ""
    return " ".join(line or "<p>" for line in lines)


class Converter:
    def __init__(self, text):
        self.lines = Reader(text).lines
        self.made = [line.text for line in self.lines]
        self.shared = None   # the comment that counts for what follows
        self.banner = None   # counts for the file's first class
        self.borrowed = []   # line number, declaration, comment
        self.silent = []     # line number and name of enumerators without a comment, which Doxygen does not ask for

    def convert(self):
        i = self.convert_banner()
        while i < len(self.lines):
            i = self.convert_at(i)
        return "\n".join(self.made)

    def convert_banner(self):
        end = next((i for i, line in enumerate(self.lines) if line.bare), len(self.lines))
        if end < len(self.lines) and self.lines[end].bare == "#pragma once":
            self.document(0, end)
            self.made[end] = "/// @file"
            self.banner = [line.comment for line in self.lines[:end] if not WHY.match(line.comment.strip())]
            return end + 1
        return 0

    def document(self, first, end, command=""):
        texts = paragraphs(self.lines[i].comment for i in range(first, end))
        for i, text in zip(range(first, end), texts):
            self.made[i] = self.lines[i].code + ("/// " + command + text).rstrip()
            command = ""

    def convert_at(self, i):
        line = self.lines[i]
        if line.is_private:
            self.made[i] = ""
        elif line.is_comment and line.begins and not line.is_heading:
            return self.convert_block(i)
        elif not line.bare and line.column < 0:
            self.shared = None
        elif line.is_declaration:
            return self.convert_declaration(i, has_own=False)
        elif ACCESS.match(line.bare) or line.opens:
            self.shared = None
        return i + 1

    def convert_block(self, first):
        end = first
        while end < len(self.lines) and self.lines[end].is_comment and not self.lines[end].is_heading:
            end += 1
        below = end
        while below < len(self.lines) and self.lines[below].is_comment:
            below += 1
        if below >= len(self.lines) or not self.lines[below].is_declaration or self.is_passed_over(below):
            self.shared = None
            return end
        # What stands behind a declaration is about it alone, and comes first.
        self.document(first, end, "@details " if self.has_trailing(below) else "")
        self.shared = [self.lines[i].comment for i in range(first, end)]
        return self.convert_declaration(below, has_own=True)

    def last_of(self, i):
        """The last line of the declaration that begins here, or the one with the brace of a class."""
        while i + 1 < len(self.lines) and not self.lines[i].ends and not self.lines[i].opens:
            i += 1
        return i

    def has_trailing(self, i):
        last = self.lines[self.last_of(i)]
        return last.ends and last.column >= 0 and bool(last.bare) and not last.is_heading

    def is_passed_over(self, i):
        code = self.code_of(i, self.last_of(i))
        return bool(PASSED_OVER.match(code) or DEFINITION.match(code))

    def convert_declaration(self, first, has_own):
        """Gives the line behind a declaration, or behind the brace that it opens."""
        i = self.last_of(first)
        on_one_line = ONE_LINE_ENUM.match(self.code_of(first, i, ""))
        if on_one_line:
            self.silent.append((first + 1, on_one_line[1]))
        if DEFINITION.match(self.code_of(first, i)):
            self.made[first:i + 1] = [""] * (i + 1 - first)
            return i + 1
        if self.is_passed_over(first):
            if self.lines[i].opens:
                self.shared = None
            return i + 1
        last = self.lines[i]
        has_trailing = self.has_trailing(first)
        if not has_own and not has_trailing:
            self.complete(first, i)
        if CLASS.match(self.code_of(first, i)):
            self.banner = None
        i += 1
        if has_trailing:
            i = self.convert_trailing(i - 1)
        if last.opens:
            self.shared = None
        return i

    def complete(self, first, last):
        """Gives a declaration that has no comment what there is for it."""
        line = self.lines[first]
        if DESTRUCTOR.match(line.bare) or (HANDLER.match(line.bare) and not self.shared):
            self.insert(first, "/** @cond */ ")
            self.made[last] += " /** @endcond */"
        elif COPY.search(line.bare):
            how = COPY.search(line.bare)["how"]
            self.insert(first, f"/** {COPIES[how]} */ ")
        elif self.banner and CLASS.match(self.code_of(first, last)) and line.scope == "file":
            self.insert(first, f"/** {one_line(self.banner)} */ ")
        elif self.shared and not OVERRIDE.search(self.code_of(first, last)):
            text = one_line(self.shared)
            if text and line.is_define:  # a directive begins its line, but its name may be followed by a comment
                self.made[last] += f" /**< {text} */"
            elif text:
                self.insert(first, f"/** {text} */ ")
            if text:
                self.borrowed.append((first + 1, line.bare, " ".join(comment.strip() for comment in self.shared)))
        if line.scope == "enum" and self.made[first] == line.text:
            self.silent.append((first + 1, line.bare.rstrip(",")))

    def code_of(self, first, last, end="{"):
        """The declaration, up to the body of a function."""
        code = " ".join(line.bare for line in self.lines[first:last + 1])
        return code.split(end)[0] if end else code

    def insert(self, i, comment):
        text = self.made[i]
        indent = len(text) - len(text.lstrip())
        self.made[i] = text[:indent] + comment + text[indent:]

    def convert_trailing(self, first):
        end = first + 1
        column = self.lines[first].column
        while end < len(self.lines) and self.lines[end].is_comment and self.lines[end].column == column:
            end += 1
        texts = paragraphs(self.lines[i].comment for i in range(first, end))
        for i, text in zip(range(first, end), texts):
            line = self.lines[i]
            self.made[i] = self.made[i].removesuffix(line.text) + line.code + "///< " + text
        return end


def converted(text):
    return Converter(text).convert()


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--shared", action="store_true", help="list what has another declaration's comment")
    parser.add_argument("headers", nargs="+")
    options = parser.parse_args()
    for path in options.headers:
        with open(path, encoding="utf-8") as stream:
            converter = Converter(stream.read())
        made = converter.convert()
        if options.shared:
            for number, code, comment in converter.borrowed:
                print(f"{path}:{number}: {code}    <- {comment}")
        else:
            print(made, end="")


if __name__ == "__main__":
    main()
