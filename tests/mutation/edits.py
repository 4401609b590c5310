"""All single edits of the logic that can be drawn. kept.py lists the kinds that cannot be drawn."""

import dataclasses
import re

from source import statements_of, tokens_of

# They belong to no module.
START_EXECUTABLES = ("main.cpp", "box.cpp")
FOLDERS = ("app", "app/program", "link", "monitor", "calibration", "diagnostics", "maintenance", "view", "view/windows")

# In the table of a window only behaviour of widgets and timers is edited. Tests of positions, fonts and
# colours check relations between them, not each number.
BEHAVIOUR = re.compile(r"\.(?:range|starts_at|steps)\([^)]*\)|view::Timer [^;]*;")

COMPARISONS = {"<": ("<=", ">"), "<=": ("<", ">="), ">": (">=", "<"), ">=": (">", "<="), "==": ("!=",), "!=": ("==",)}
# Members that are easily mistaken for each other.
MEMBERS = {"width": "height", "height": "width", "first": "second", "second": "first"}
SIGNS = {"&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "+=": "-=", "-=": "+=", "++": "--", "--": "++"}
LETS_TIME_PASS = re.compile(r"wait|write_(parameter|record|row|edited)|read_version|unit_present|pump|view::(show|load|unload)|_box\(")
ON_THE_WIRE = re.compile(r"send_|read_reply|_port\(")
NOT_DROPPED = {"return", "using", "const", "constexpr", "auto", "static", "struct", "class", "enum", "namespace", "template", "break"}
DECLARES = re.compile(r"^[\w:<>,*& ]*[\w>*&] +[*&]?\w+( = |\{|;|\()")


@dataclasses.dataclass(frozen=True)
class Edit:
    kind: str
    path: str
    at: int
    old: str
    new: str


def enumerators(root):
    """The next enumerator of each enumerator, by the name of the enumeration and its own."""
    neighbours = {}
    for folder in FOLDERS:
        for header in sorted((root / folder).glob("*.h")):
            text = re.sub(r"//[^\n]*", "", header.read_text(encoding="utf-8"))
            for name, body in re.findall(r"enum class (\w+)[^{;]*\{([^}]*)\}", text):
                values = [value for each in body.split(",") if (value := each.split("=")[0].strip())]
                for value, following in zip(values, values[1:] + values[:1]):
                    neighbours[name, value] = following
    return neighbours


def number_edits(token, source, tokens, i):
    """The kind of a number (an index, a wait or another) and its new texts."""
    text = token.text
    before = source[max(0, token.start - 60):token.start]
    if "." in text:
        value = float(text)
        return "number", {repr(value * 2 or 1.0), repr(value + 1), "0.0"} - {repr(value)}
    if text.lower().startswith("0x") or not text.isdigit():
        return "number", {text + " + 1", "0"}
    value = int(text)
    near = {str(value + 1), str(value - 1)}
    if tokens[i - 1].text == "[" and i + 1 < len(tokens) and tokens[i + 1].text == "]":
        return "index", near - {"-1"}
    if re.search(r"(wait_ms|wait_on|settle_ms|_ms\b|Timer)[^;]*$", before.splitlines()[-1] if before else ""):
        return "wait", near
    return "number", {*near, str(value * 2), "0"} - {text}


def token_edits(path, source, tokens, enums):
    for i, token in enumerate(tokens):
        spaced = source[token.start - 1:token.start] == " " and source[token.end:token.end + 1] == " "
        previous = tokens[i - 1] if i else token

        def edit(kind, new, token=token):
            return Edit(kind, path, token.start, token.text, new)

        if token.kind == "number":
            kind, values = number_edits(token, source, tokens, i)
            yield from (edit(kind, value) for value in sorted(values))
        elif token.kind == "text":
            quote = token.text.index('"') + (2 if token.text.startswith("R") else 1)
            yield edit("text", token.text[:quote] + "~" + token.text[quote:])
        elif token.kind == "character":
            yield edit("text", "'~'")
        elif token.text in COMPARISONS and spaced and previous.text != "operator":
            yield from (edit("comparison", new) for new in COMPARISONS[token.text])
        elif token.text in SIGNS and (spaced or token.text in {"++", "--"}) and previous.text != "=":
            yield edit("logic" if token.text in {"&&", "||"} else "arithmetic", SIGNS[token.text])
        elif token.text == "!" and tokens[i + 1].kind in {"name", "sign"}:
            yield edit("logic", "")
        elif token.text in {"true", "false"}:
            yield edit("truth", {"true": "false", "false": "true"}[token.text])
        elif token.text in {"on", "off"} and previous.text == "." and tokens[i + 1].text == "(":
            yield edit("truth", {"on": "off", "off": "on"}[token.text])
        elif token.text in MEMBERS and previous.text in {".", "->"} and tokens[i + 1].text != "=":
            yield edit("member", MEMBERS[token.text])
        elif previous.text == "::" and (tokens[i - 2].text, token.text) in enums:
            yield edit("enumerator", enums[tokens[i - 2].text, token.text])


def statement_edits(path, source, tokens):
    by_start = {}
    for s in statements_of(tokens):
        text = source[s.start:s.end]
        by_start[s.start] = s
        if text == "return;":
            yield Edit("statement dropped", path, s.start, text, ";")
        if s.first in NOT_DROPPED or DECLARES.match(text):
            continue
        yield Edit("statement dropped", path, s.start, text, ";")
        before = by_start.get(s.follows)
        if not before or before.first in NOT_DROPPED or DECLARES.match(source[before.start:before.end]):
            continue
        one = source[before.start:before.end]
        # Otherwise their order makes no difference.
        matters = (LETS_TIME_PASS.search(one) or LETS_TIME_PASS.search(text)
                      or (ON_THE_WIRE.search(one) and ON_THE_WIRE.search(text)))
        if one != text and matters:
            between = source[before.end:s.start]
            yield Edit("order", path, before.start, one + between + text, text + between + one)


def row_edits(path, source):
    """In the table of a window: a call removed that sets the start state of a widget."""
    for match in re.finditer(r"\.(hidden|disabled|locked|runs_\w+)\(\)", source):
        yield Edit("statement dropped", path, match.start(), match[0], "")


def edits_of(root, path, enums):
    source = (root / path).read_text(encoding="utf-8")
    tokens = tokens_of(source)
    if not path.startswith("view/windows/"):
        return [*token_edits(path, source, tokens, enums), *statement_edits(path, source, tokens)]
    behaviour = [match.span() for match in BEHAVIOUR.finditer(source)]
    found = [edit for edit in token_edits(path, source, tokens, enums)
             if edit.kind == "text" or any(start <= edit.at < end for start, end in behaviour)]
    return found + list(row_edits(path, source))


def all_edits(root):
    """All edits, by file. link/parameter_catalogue.inc is left out: its test compares each number and text
    with other tables, and each edit would rebuild most of the program."""
    enums = enumerators(root)
    files = [path for folder in FOLDERS for path in sorted((root / folder).glob("*.cpp"))]
    files = [path for path in files if path.name not in START_EXECUTABLES]
    files += sorted((root / "view/windows").glob("*.inc"))
    names = [str(path.relative_to(root)) for path in files]
    return {name: edits for name in names if (edits := edits_of(root, name, enums))}
