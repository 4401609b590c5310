"""A small C++ scanner for the edits: tokens with their positions, and statements."""

import dataclasses
import re

TOKENS = re.compile(
    r"""(?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#[^\n]*|\s+)
      | (?P<text>R"\((?:.*?)\)"|"(?:\\.|[^"\\\n])*")
      | (?P<character>'(?:\\.|[^'\\\n])+')
      | (?P<number>\b(?:0x[0-9a-fA-F]+|\d+\.\d*|\d+)(?:[uUlLfF]*)\b)
      | (?P<name>[A-Za-z_]\w*)
      | (?P<sign><=>|::|->|\+\+|--|&&|\|\||==|!=|<=|>=|\+=|-=|\*=|/=|<<|>>|.)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str  # text, character, number, name, sign
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


def tokens_of(source):
    return [Token(m.lastgroup, m[0], m.start()) for m in TOKENS.finditer(source) if m.lastgroup != "skip"]


def matching(tokens, at, opening="(", closing=")"):
    """The index of what closes the bracket at `at`."""
    depth = 0
    for i in range(at, len(tokens)):
        depth += {opening: 1, closing: -1}.get(tokens[i].text, 0)
        if depth == 0:
            return i
    return len(tokens) - 1


@dataclasses.dataclass(frozen=True)
class Statement:
    start: int  # offsets into the source; the semicolon belongs to it
    end: int
    first: str
    second: str
    guarded: bool  # the only statement after an if, else, for or case
    follows: int  # the start of the statement directly before it in the same block, or -1


def opens_code(tokens, brace):
    """A brace opens a block of statements, and no initialiser, namespace or type."""
    before = tokens[brace - 1].text if brace else ""
    return before in {")", "]", "else", "do", "try", "const", "noexcept", ";", "{", "}", ":"}


def statements_of(tokens):
    """The statements that end in a semicolon, at any depth, lambdas in them included."""
    found = []

    def block(i):
        """From the token after an opening brace of code to the one after its closing brace."""
        last = -1
        while i < len(tokens) and tokens[i].text != "}":
            i, last = one(i, last)
        return i + 1

    def one(i, last):
        """One statement with the keywords before it. Returns the next token's index and the new `last`."""
        guarded = False
        while True:
            word = tokens[i].text
            if word in {"if", "for", "while", "switch"}:
                i = matching(tokens, i + (2 if tokens[i + 1].text == "constexpr" else 1)) + 1
                guarded = True
            elif word in {"else", "do", "try"}:
                i, guarded = i + 1, True
            elif word in {"case", "default"}:
                while tokens[i].text != ":":
                    i += 1
                i, guarded = i + 1, False
                last = -1
            else:
                break
        if tokens[i].text == "{":
            return block(i + 1), -1
        if tokens[i].text == "}":
            return i, -1
        return simple(i, guarded, last)

    def simple(i, guarded, last):
        first = i
        while i < len(tokens) and tokens[i].text != ";":
            if tokens[i].text == "{":
                i = block(i + 1) if opens_code(tokens, i) and i > first else data(i + 1)
                if tokens[first].text in {"struct", "class", "enum"} and tokens[i].text != ";":
                    return i, -1
                continue
            if tokens[i].text == "}":  # no statement at all
                return i, -1
            i += 1
        start = tokens[first].start
        found.append(Statement(start, tokens[i].end, tokens[first].text, tokens[min(first + 1, i)].text,
                               guarded, -1 if guarded else last))
        return i + 1, -1 if guarded else start

    def data(i):
        """From the token after an opening brace of data or a namespace to the one after its closing brace."""
        while i < len(tokens) and tokens[i].text != "}":
            if tokens[i].text == "{":
                i = block(i + 1) if opens_code(tokens, i) else data(i + 1)
            else:
                i += 1
        return i + 1

    data(0)
    return found
