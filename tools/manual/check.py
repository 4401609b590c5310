#!/usr/bin/env python3
"""Checks the manual: the target of each link and picture exists, each caption is a text of the
program, each PAR number is in the table, the table agrees with the program's parameter catalogue, and all
languages have the same chapters, headings, pictures, captions and tables. Prints each problem and ends
with 1 if there is one."""

import re
import sys
from html.parser import HTMLParser

sys.dont_write_bytecode = True

import sources
from sources import MANUAL, ROOT

MOST_PICTURE_BYTES = 4_000_000


class Reader(HTMLParser):
    """Collects the links, pictures and structure of a page."""

    def __init__(self, text):
        super().__init__()
        self.links, self.pictures, self.shape, self.open = [], [], [], []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag == "a":
            self.links.append(values["href"])
        if tag == "img":
            self.pictures.append(values["src"])
        if tag in {"h1", "h2", "img", "li", "tr"}:
            self.shape.append(tag)
        if tag not in {"img", "meta", "hr", "br"}:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.shape.append(f"badly closed {tag}")


def link_problems(path, reader):
    for target in reader.links + reader.pictures:
        whole = (path.parent / target).resolve()
        if MANUAL not in whole.parents or not whole.is_file():
            yield f"{path.relative_to(ROOT)}: refers to {target}, which does not exist"
    if any(part.startswith("badly") for part in reader.shape) or reader.open:
        yield f"{path.relative_to(ROOT)}: {[p for p in reader.shape if 'badly' in p]} {reader.open}"


def text_problems(language, captions, numbers):
    _, chapters = sources.read_text(language)
    for chapter in chapters:
        for number, line in chapter.lines:
            for text in re.findall(r"\{=([^}]+)\}", line):
                if sources.plain(text) not in captions:
                    yield f"{language}.txt:{number}: no text of the program is {text!r}"
            for parameter in re.findall(r"PAR_(\d+)", line):
                if int(parameter) not in numbers:
                    yield f"{language}.txt:{number}: PAR_{parameter} is not in the table"


def marks(language):
    """The markup that must be the same in all languages, by chapter."""
    _, chapters = sources.read_text(language)
    kept = r"\{[^}]+\}|PAR_\d+|`[^`]+`|^## |^!\S+|^- |^\d+\. |^\||\]\([a-z-]+\)"
    found = {}
    for chapter in chapters:
        text = "\n".join(line for _, line in chapter.lines)
        found[chapter.name] = sorted(re.findall(kept, text, re.MULTILINE))
    return found


def unlike_problems(languages):
    first = marks(languages[0])
    for language in languages[1:]:
        other = marks(language)
        if list(other) != list(first):
            yield f"{language}: has the chapters {list(other)}, but {languages[0]} has {list(first)}"
            continue
        for name in first:
            if other[name] != first[name]:
                few = [mark for mark in set(first[name] + other[name])
                       if first[name].count(mark) != other[name].count(mark)]
                yield f"{language}, {name}: differs from {languages[0]} in {sorted(few)}"


def catalogue_rows():
    """{parameter: (English meaning, unit, factory value or "-")} from the program's catalogue."""
    rows = (ROOT / "link" / "parameter_catalogue.inc").read_text(encoding="utf-8")
    row = re.compile(r'^PARAMETER\(\s*(\d+), \w+, +"([^"]+)", +"([^"]+)", +(\w+),', re.MULTILINE)
    values = {int(number): (meaning, unit, factory.replace("none", "-"))
              for number, meaning, unit, factory in row.findall(rows)}
    header = (ROOT / "link" / "parameter_catalogue.h").read_text(encoding="utf-8")
    cell = re.search(r"correction_cell_factory_value = (\d+)", header)[1]
    for first, last in re.findall(r"^CORRECTION_CELLS\((\d+), (\d+)\)", rows, re.MULTILINE):
        for number in range(int(first), int(last) + 1):
            values[number] = ("48 correction cells", "-", cell)
    return values


def catalogue_problems(rows):
    catalogue = catalogue_rows()
    if len(catalogue) != 77 + 48:
        yield f"the rows of the catalogue give {len(catalogue)} parameters, not {77 + 48}"
    for row in rows:
        for number in sources.parameter_numbers([row]):
            documented = (row[4]["uk"], row[1], row[2])
            if documented != catalogue.pop(number, None):
                yield f"parameters.txt: PAR_{number} differs from link/parameter_catalogue.inc"
    for number in catalogue:
        yield f"parameters.txt: PAR_{number} of link/parameter_catalogue.inc is missing"


def problems():
    languages = sources.written_languages()
    rows = sources.read_parameters()
    if "uk" not in languages:
        yield "there is no English manual, which is shown where another language has none"
    captions = sources.fixed_captions()
    used = set()
    for language in languages:
        yield from text_problems(language, captions, sources.parameter_numbers(rows))
        for path in sorted((MANUAL / language).glob("*.htm")):
            reader = Reader(path.read_text(encoding="utf-8"))
            yield from link_problems(path, reader)
            used.update((path.parent / picture).resolve() for picture in reader.pictures)
    yield from unlike_problems(languages)
    yield from catalogue_problems(rows)
    pictures = set((MANUAL / "pictures").glob("**/*.png"))
    for path in sorted(pictures - used):
        yield f"{path.relative_to(ROOT)}: no page uses this picture"
    size = sum(path.stat().st_size for path in pictures)
    if size > MOST_PICTURE_BYTES:
        yield f"the pictures take {size} bytes; {MOST_PICTURE_BYTES} are allowed"


def main():
    found = list(problems())
    for problem in found:
        print(problem)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
