"""Reads the tables that the trouble-code files are generated from.

A table has one of two forms: rows of fields separated by "|", or blocks of a "[key]" line followed by one
"language = text" line for each language, or by "same = other key". A line that begins with "#" is a comment.
An error in a table ends the run with a message that names the file, the line and the error.
"""

from pathlib import Path

LANGUAGES = ("it", "uk", "pl", "de", "fr")
TABLES = Path(__file__).resolve().parent / "tables"


class TableError(Exception):
    """An error in a table."""


def lines_of(path):
    """Yields (number, text) for the lines that are neither blank nor comments."""
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if line.strip() and not line.startswith("#"):
            yield number, line


def rows(path, width):
    """The rows of a table, each a list of `width` stripped fields."""
    for number, line in lines_of(path):
        fields = [field.strip() for field in line.split("|")]
        if len(fields) != width:
            raise TableError(f"{path.name}:{number}: {len(fields)} fields, {width} are required")
        yield fields


def read_blocks(pattern):
    """The blocks of all tables that match the pattern: {key: {language: text}}, with "same" resolved."""
    blocks = {}
    for path in sorted(TABLES.glob(pattern)):
        block = None
        for number, line in lines_of(path):
            if line.startswith("["):
                key = line.strip()[1:-1]
                if key in blocks:
                    raise TableError(f"{path.name}:{number}: [{key}] is defined twice; delete one")
                block = blocks[key] = {}
                continue
            name, sign, text = line.partition(" =")
            if not sign or block is None:
                raise TableError(f"{path.name}:{number}: neither a [key] nor a 'language = text' line")
            block[name] = text.strip()
    for key, block in blocks.items():
        if "same" in block:
            other = blocks.get(block["same"], {})
            if "same" in other or not other:
                raise TableError(f"{pattern}: [{key}] names [{block['same']}], which has no texts of its own")
            block.update(other)
            del block["same"]
        missing = [language for language in LANGUAGES if not block.get(language)]
        if missing:
            raise TableError(f"{pattern}: [{key}] has no text for {', '.join(missing)}")
    return blocks


def read_components():
    """{key: (class, {language: name})} of every component."""
    components = {}
    for path in sorted(TABLES.glob("components_*.txt")):
        for key, kind, *names in rows(path, 2 + len(LANGUAGES)):
            if key in components or not all(names):
                raise TableError(f"{path.name}: component {key} is defined twice or lacks a name")
            components[key] = (kind, dict(zip(LANGUAGES, names)))
    return components


def read_faults():
    """{key: {language: (heading, what was detected)}}; the heading may be empty."""
    faults = {}
    for key, block in read_blocks("faults_*.txt").items():
        faults[key] = {}
        for language, text in block.items():
            heading, sign, seen = text.partition("|")
            if not sign or not seen.strip():
                raise TableError(f"fault [{key}] {language}: 'heading | what was detected' is required")
            faults[key][language] = (heading.strip(), seen.strip())
    return faults


def spread(places):
    """The places of a row of codes: "A b1" is one place, "c1..c3" is three, "" is no place."""
    for index, word in enumerate(places.split()):
        first, dots, last = word.partition("..")
        if dots:
            rest = places.split()
            prefix = first[:-len(first.lstrip("bcs"))] if first[0] in "bcs" else ""
            first, last = first[len(prefix):], last[len(prefix):]
            if first.isdigit():
                names = [str(n) for n in range(int(first), int(last) + 1)]
            else:
                names = [chr(n) for n in range(ord(first), ord(last) + 1)]
            return [" ".join(rest[:index] + [prefix + name] + rest[index + 1:]) for name in names]
    return [places]


def read_codes():
    """{"P0301": (component, place, fault)} of every code, in numerical order."""
    codes = {}
    for path in sorted(TABLES.glob("codes_*.txt")):
        for first, component, places, kinds in rows(path, 4):
            number = int(first)
            for place in spread(places):
                for fault in kinds.split():
                    code = f"P{number:04d}"
                    if code in codes:
                        raise TableError(f"{path.name}: {code} is defined twice; look at the row {first}")
                    codes[code] = (component, place, fault)
                    number += 1
    return dict(sorted(codes.items()))
