"""Which of the platform's names the module uses, and whether the framework has them.

The module is written for the framework, of which the platform is a part made anew. What the platform declares beyond it
is for the platform's own sources, the programs and the tests; a module that used it would not compile where the
framework itself is. tools/framework-names.txt lists what the framework has.
"""
import re

LIST = "tools/framework-names.txt"

# Comments, literals and the lines of the preprocessor.
PASSED_OVER = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])+'|^[ \t]*#(?:\\\n|[^\n])*", re.S | re.M)
DEFINE = re.compile(r"^[ \t]*#[ \t]*define[ \t]+(\w+)", re.M)
TOKEN = re.compile(r"[A-Za-z_]\w*|::|->|\[\[|\]\]|\S")
IDENTIFIER = re.compile(r"[A-Za-z_]\w*$")
# What can stand where a name is looked for and is none.
WORDS = set("""alignas auto bool char char16_t char32_t class const consteval constexpr constinit default delete double
    else enum explicit extern false final float for friend if inline int long mutable namespace noexcept nullptr operator
    override private protected public requires return short signed sizeof static static_assert struct template this true
    typedef typename union unsigned using virtual void volatile wchar_t while __attribute__ ORVO_API afx_msg""".split())
CONSTANT = re.compile(r"[gm]_|[ek][A-Z]")  # and the members and globals that begin small
ACCESS = ("public", "protected", "private")


def strip(text):
    return PASSED_OVER.sub(" ", text)


def is_name(token):
    return IDENTIFIER.match(token) is not None and token not in WORDS


def skip_brackets(tokens, at, opening, closing):
    """The index behind the bracket that closes the one at `at`."""
    depth = 0
    while at < len(tokens):
        depth += (tokens[at] == opening) - (tokens[at] == closing)
        at += 1
        if depth == 0:
            break
    return at


def drop_brackets(statement):
    """A statement without attributes and without what stands in round or square brackets, whose pairs stay."""
    kept = []
    at = 0
    while at < len(statement):
        token = statement[at]
        if token == "[[":
            at = skip_brackets(statement, at, "[[", "]]")
        elif token == "__attribute__":
            at = skip_brackets(statement, at + 1, "(", ")")
        elif token in "([":
            kept += [token, {"(": ")", "[": "]"}[token]]
            at = skip_brackets(statement, at, token, kept[-1])
        else:
            kept.append(token)
            at += 1
    return kept


def without_template(statement):
    """A statement without `template <...>` before it."""
    while statement[:1] == ["template"]:
        statement = statement[skip_brackets(statement, 1, "<", ">"):]
    return statement


def kind_of_scope(statement):
    """What a '{' behind the statement opens: "names" (a class or namespace), "enum", or None for all else."""
    statement = without_template(drop_brackets(statement))
    if "(" in statement or "=" in statement:
        return None  # a function, an initial value
    if "enum" in statement:
        return "enum"
    if any(word in statement for word in ("class", "struct", "union", "namespace")) or statement == ["extern"]:
        return "names"
    return None


def names_of_statement(statement):
    """The names that a declaration declares."""
    statement = without_template(drop_brackets(statement))
    if not statement or statement[0] == "friend" or "operator" in statement:
        return []
    for word in ("namespace", "enum", "class", "struct", "union"):
        if word in statement[:3] and "(" not in statement:
            names = [token for token in statement[statement.index(word) + 1:] if is_name(token) or token in ":;"]
            if word != "struct" or len(names) == 1 or ":" in names:  # else a field of a struct's type
                return names[:1] if names and names[0] not in ":;" else []
    if statement[0] == "using":
        return [statement[1]] if "=" in statement else statement[-1:]
    if "(" in statement and "=" not in statement[:statement.index("(")]:
        at = statement.index("(") - 1
        return [statement[at]] if at >= 0 and is_name(statement[at]) and statement[at - 1] != "~" else []
    names = []
    for at, token in enumerate(statement):
        following = statement[at + 1] if at + 1 < len(statement) else ";"
        if is_name(token) and following in (";", "=", "[", ",", ":") and at > 0:
            names.append(token)
        if token == "=":
            break
    return names


def is_forward(statement):
    """Whether a statement only says that there is a class of a name."""
    return statement[:1] in (["class"], ["struct"]) and sum(map(is_name, statement)) == 1


def names_of_enumeration(tokens):
    """The enumerators between the brackets of an enumeration."""
    return [token for at, token in enumerate(tokens) if is_name(token) and (at == 0 or tokens[at - 1] == ",")]


def declared_names(text, with_private=False):
    """The names that a source declares outside functions: what it defines for the preprocessor, too."""
    names = set(DEFINE.findall(text))
    tokens = TOKEN.findall(strip(text))
    statement = []
    private = [False]  # for each scope that is open
    at = 0
    while at < len(tokens):
        token = tokens[at]
        at += 1
        if token in ACCESS and tokens[at:at + 1] == [":"] and not statement:
            private[-1] = token == "private"
            at += 1
        elif token in ";{}":
            scope = kind_of_scope(statement) if token == "{" else None
            if (with_private or not any(private)) and not (token == ";" and is_forward(statement)):
                names.update(names_of_statement(statement))
            if token == "{" and scope == "names":
                private.append("class" in statement and "enum" not in statement)
            elif token == "{":
                end = skip_brackets(tokens, at - 1, "{", "}")
                if scope == "enum" and (with_private or not any(private)):
                    names.update(names_of_enumeration(drop_brackets(tokens[at:end - 1])))
                at = end
            elif token == "}" and len(private) > 1:
                private.pop()
            statement = []
        else:
            statement.append(token)
    return names


def used_names(text):
    """The names that a source uses. Any other name that begins small counts where it is called or belongs to something; it is a
    variable otherwise, also where one is made (`CString text(`)."""
    names = set()
    tokens = ["", ""] + TOKEN.findall(strip(text)) + [""]
    for scope, before, token, after in zip(tokens, tokens[1:], tokens[2:], tokens[3:]):
        belongs = before in (".", "->", "::") and (scope, before) != ("std", "::")
        called = after == "(" and not is_name(before) and before not in ("auto", "int", "double", "::")
        if is_name(token) and (belongs or called or not token[0].islower() or CONSTANT.match(token)):
            names.add(token)
    return names


def read_list(text):
    return set(re.sub(r"#[^\n]*|^\[[^\n]*", "", text, flags=re.M).split())


def check_names(texts, listing):
    """Complaints about the module's sources among `texts` (path -> text) and about the list."""
    known = read_list(listing)
    platform = {}
    own = set()
    for path, text in texts.items():
        if path.startswith("platform/") and path.endswith(".h"):
            for name in declared_names(text):
                platform.setdefault(name, path)
        elif path.startswith("module/"):
            own |= declared_names(text, with_private=True)
    complaints = [f"{LIST}: {name} is no name that the platform declares" for name in sorted(known - set(platform))]
    foreign = set(platform) - known - own
    for path in sorted(texts):
        if not path.startswith("module/"):
            continue
        for name in sorted(used_names(texts[path]) & foreign):
            complaints.append(f"{path}: {name} ({platform[name]}) is not the framework's; see {LIST}")
        for name in sorted(set(re.findall(r"\bw?string(?:_view)?\b", strip(texts[path])))):
            complaints.append(f"{path}: std::{name} is not what the framework's texts are made from or give")
    return complaints
