"""Reads what the manual is made from: the texts of each language, the table of parameters, and the
captions that the program's own screen shows."""

import re
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
HERE = Path(__file__).resolve().parent
MANUAL = ROOT / "manual"
LANGUAGES = ["it", "uk", "pl", "de", "fr"]
WORDS = ["title", "contents", "search", "back", "not_found", "lead", "columns", "none"]


class SourceError(Exception):
    """What is wrong in a source, with its file and line."""


@dataclass
class Chapter:
    """One page: its file name without the ending, its title, a line on what it tells, its lines."""
    name: str
    title: str
    about: str
    lines: list = field(default_factory=list)


def written_languages():
    """Those of the five that have a text."""
    return [code for code in LANGUAGES if (HERE / "text" / f"{code}.txt").exists()]


def read_text(language):
    """The words of the window and the chapters, from text/<language>.txt."""
    path = HERE / "text" / f"{language}.txt"
    words, chapters = {}, []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if line.startswith("@"):
            key, _, value = line[1:].partition(" ")
            words[key] = value.strip()
        elif line.startswith("==="):
            parts = [part.strip() for part in line[3:].split("|")]
            if len(parts) != 3:
                raise SourceError(f"{path.name}:{number}: a chapter needs name | title | about")
            chapters.append(Chapter(*parts))
        elif chapters:
            chapters[-1].lines.append((number, line.rstrip()))
        elif line.strip():
            raise SourceError(f"{path.name}:{number}: text before the first chapter")
    missing = [word for word in WORDS if not words.get(word)]
    if missing:
        raise SourceError(f"{path.name}: lacks @{', @'.join(missing)}")
    return words, chapters


def read_parameters():
    """Rows of parameters.txt: number (or span), unit, factory value, chapter, {language: meaning}."""
    rows = []
    path = HERE / "parameters.txt"
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        cells = [cell.strip() for cell in line.split("|")]
        if len(cells) != 4 + len(LANGUAGES) or not all(cells):
            raise SourceError(f"{path.name}:{number}: needs {4 + len(LANGUAGES)} filled cells")
        rows.append((*cells[:4], dict(zip(LANGUAGES, cells[4:]))))
    return rows


def parameter_numbers(rows):
    """All numbers that the rows speak of, spans unrolled."""
    numbers = set()
    for span, *_ in rows:
        for part in span.split(","):
            first, _, last = part.strip().partition("-")
            numbers.update(range(int(first), int(last or first) + 1))
    return numbers


def read_messages(language):
    """{number: text} of the language's message file."""
    path = ROOT / "language" / f"Mivra_{language}.ini"
    lines = path.read_text(encoding="utf-8").splitlines()
    return {line.strip()[1:-1]: text for line, text in zip(lines, lines[1:])
            if re.fullmatch(r"\s*\[\d+\]\s*", line)}


def read_own_captions(language):
    """{window.control: text} of the captions without a number, from the file of the helper texts."""
    text = (ROOT / "language" / f"tips_{language}.ini").read_text(encoding="utf-8")
    section = re.search(r"^\[captions\]\n((?:.+ = .+\n)+)", text, re.MULTILINE)
    if not section:
        raise SourceError(f"tips_{language}.ini: no section captions")
    return dict(line.split(" = ", 1) for line in section[1].splitlines())


def plain(text):
    """A caption as it is compared: blanks run together, none at the ends."""
    return " ".join(text.split())


def fixed_captions():
    """Every literal text in the program's sources, without the catalogue, which no screen
    shows."""
    captions = set()
    rooms = ["view/windows", "app", "link", "monitor", "calibration", "diagnostics", "maintenance"]
    for room in rooms:
        for path in sorted((ROOT / room).glob("*")):
            if path.suffix in {".cpp", ".h", ".inc"} and path.name != "parameter_catalogue.inc":
                code = path.read_text(encoding="utf-8")
                captions.update(plain(text) for text in re.findall(r'"((?:[^"\\\n]|\\.)*)"', code))
    return captions
