"""Reads the sources of the manual: the text of each language, the table of parameters, and the
captions that the program shows on the screen."""

import re
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
HERE = Path(__file__).resolve().parent
MANUAL = ROOT / "manual"
LANGUAGES = ["it", "uk", "pl", "de", "fr"]
WORDS = ["title", "contents", "search", "back", "not_found", "lead", "columns", "none"]


class SourceError(Exception):
    """An error in a source, with its file and line."""


@dataclass
class Chapter:
    """One page: its file name without the suffix, its title, a one-line summary, its lines."""
    name: str
    title: str
    about: str
    lines: list = field(default_factory=list)


def written_languages():
    """The languages that have a text file."""
    return [code for code in LANGUAGES if (HERE / "text" / f"{code}.txt").exists()]


def read_text(language):
    """The texts of the window and the chapters, from text/<language>.txt."""
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
            raise SourceError(f"{path.name}:{number}: there is text before the first chapter")
    missing = [word for word in WORDS if not words.get(word)]
    if missing:
        raise SourceError(f"{path.name}: @{', @'.join(missing)} missing")
    return words, chapters


def read_parameters():
    """Rows of parameters.txt: number or range, unit, factory value, chapter, {language: meaning}."""
    rows = []
    path = HERE / "parameters.txt"
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        cells = [cell.strip() for cell in line.split("|")]
        if len(cells) != 4 + len(LANGUAGES) or not all(cells):
            raise SourceError(f"{path.name}:{number}: a row needs {4 + len(LANGUAGES)} cells, none of them empty")
        rows.append((*cells[:4], dict(zip(LANGUAGES, cells[4:]))))
    return rows


def parameter_numbers(rows):
    """All parameter numbers in the rows, with ranges expanded."""
    numbers = set()
    for span, *_ in rows:
        for part in span.split(","):
            first, _, last = part.strip().partition("-")
            numbers.update(range(int(first), int(last or first) + 1))
    return numbers


def read_messages(language):
    """{number: text} from the message file of the language."""
    path = ROOT / "language" / f"Mivra_{language}.ini"
    lines = path.read_text(encoding="utf-8").splitlines()
    return {line.strip()[1:-1]: text for line, text in zip(lines, lines[1:])
            if re.fullmatch(r"\s*\[\d+\]\s*", line)}


def read_own_captions(language):
    """{window.control: text} of the captions without a message number, from the file of the tips."""
    text = (ROOT / "language" / f"tips_{language}.ini").read_text(encoding="utf-8")
    section = re.search(r"^\[captions\]\n((?:.+ = .+\n)+)", text, re.MULTILINE)
    if not section:
        raise SourceError(f"tips_{language}.ini: there is no section [captions]")
    return dict(line.split(" = ", 1) for line in section[1].splitlines())


def read_trouble_codes(language):
    """[(code, description, note)] of the trouble codes, in the order of the file."""
    path = ROOT / "language" / f"codici_eobd_{language}.ini"
    lines = path.read_text(encoding="utf-8").splitlines()
    return [(head[1:-1], description, note) for head, description, note in zip(lines, lines[1:], lines[2:])
            if re.fullmatch(r"\[P\d{4}\]", head)]


def plain(text):
    """A caption as it is compared: single blanks, none at the ends."""
    return " ".join(text.split())


def fixed_captions():
    """Every string literal in the program's sources, except those of the parameter catalogue, which
    are never displayed."""
    captions = set()
    modules = ["view/windows", "app", "link", "monitor", "calibration", "diagnostics", "maintenance"]
    for module in modules:
        for path in sorted((ROOT / module).glob("*")):
            if path.suffix in {".cpp", ".h", ".inc"} and path.name != "parameter_catalogue.inc":
                code = path.read_text(encoding="utf-8")
                captions.update(plain(text) for text in re.findall(r'"((?:[^"\\\n]|\\.)*)"', code))
    return captions
