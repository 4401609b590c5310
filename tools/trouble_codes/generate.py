#!/usr/bin/env python3
"""Writes language/codici_eobd_*.ini, the texts of the trouble codes, from the files in tables/.

  generate.py           writes the five files
  generate.py --check   writes nothing; fails if a committed file is out of date or if the texts
                        break a rule of `problems_of`
"""

import re
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # the source tree stays as it was checked out

import tables
from tables import LANGUAGES, TableError

LANGUAGE_FOLDER = Path(__file__).resolve().parents[2] / "language"

# Wiring faults: they have the same causes for every component, unless a table gives others.
ELECTRIC = set("ct co op short el lo hi alo ahi in ain ns res overcurrent shortheat vlo vhi unstable".split())

# The diagnosis panel shows numbers up to 999 and above 2000, never those in between.
SHOWN = [range(1, 1000), range(2001, 10000)]

FEWEST_CODES = 900


def read_messages(language):
    """{number: text} from the message file, for the captions that the notes quote."""
    path = LANGUAGE_FOLDER / f"Mivra_{language}.ini"
    lines = path.read_text(encoding="utf-8").splitlines()
    return {line.strip()[1:-1]: text for line, text in zip(lines, lines[1:]) if re.fullmatch(r"\s*\[\d+\]\s*", line)}


def place_name(place, words, sensor):
    """Splits a place into the part directly after the name ("A") and the part after a comma ("bank 1")."""
    def long_name(token):
        parts = re.findall(r"([bsc])(\d+)", token)
        return ", ".join(f"{words[sensor if kind == 's' else kind]} {n}" for kind, n in parts)

    short, long = [], []
    for token in place.split():
        if re.match(r"[bsc]\d", token):
            long.append(" / ".join(long_name(half) for half in token.split("/")))
        else:
            short.append(token)
    return " ".join(short), ", ".join(long)


class Writer:
    """Assembles the texts of one language."""

    def __init__(self, language):
        self.language = language
        self.messages = read_messages(language)
        self.components = tables.read_components()
        self.faults = tables.read_faults()
        self.causes = tables.read_blocks("causes_*.txt")
        self.seen = tables.read_blocks("seen_*.txt")
        self.gas = tables.read_blocks("gas_*.txt")
        self.frame = {key: block[language] for key, block in tables.read_blocks("frame.txt").items()}
        column = 1 + LANGUAGES.index(language)
        self.words = {row[0]: row[column] for row in tables.rows(tables.TABLES / "places.txt", 1 + len(LANGUAGES))}

    def with_captions(self, text):
        """Replaces each {message number} by the caption on the screen, in quotation marks."""
        blank = " " if self.language == "fr" else ""

        def caption(match):
            words = self.messages[match[1]].strip() + (match[2] or "")
            return f"{self.frame['open quote']}{blank}{words}{blank}{self.frame['close quote']}"

        return re.sub(r"\{(\d+)\}(\.\.\.)?", caption, text)

    def description(self, component, place, fault):
        """The short line: component, place and fault side by side, so that no grammatical ending has to agree."""
        kind, names = self.components[component]
        short, long = place_name(place, self.words, "l" if kind.startswith("lambda") else "s")
        text = names[self.language] + (f" {short}" if short else "") + (f", {long}" if long else "")
        heading = self.faults[fault][self.language][0]
        colon = " : " if self.language == "fr" else ": "
        return text + (colon + heading if heading else "")

    def note(self, component, fault):
        """The long line: what was detected, the causes in order, and what differs on gas."""
        kind = self.components[component][0]
        ways = [f"{kind}.{fault}"] + ([fault] if fault in ELECTRIC else [kind])
        heading, seen = self.faults[fault][self.language]
        if not heading:  # the component is the fault itself
            ways.insert(0, component)
            seen = self.seen.get(component, {self.language: seen})[self.language]
        cause = next((self.causes[way] for way in ways if way in self.causes), None)
        if cause is None:
            raise TableError(f"no causes for component {component}, fault {fault}: add one of {ways}")
        parts = [seen, self.frame["causes"] + " " + cause[self.language]]
        gas = self.gas.get(f"{kind}.{fault}", self.gas.get(kind))
        if gas:
            parts.append(self.frame["gas"] + " " + self.with_captions(gas[self.language]))
        return " ".join(parts)

    def entries(self):
        """[(code, short description, long note)], sorted by code."""
        result = []
        for code, (component, place, fault) in tables.read_codes().items():
            if component not in self.components or fault not in self.faults:
                raise TableError(f"{code}: no table has component {component} or no table has fault {fault}")
            result.append((code, self.description(component, place, fault), self.note(component, fault)))
        return result


def file_text(entries):
    return "".join(f"[{code}]\n{short}\n{note}\n" for code, short, note in entries)


def problems_of(all_entries):
    """Checks the five files together. Returns a list of problems, empty if there are none."""
    problems = []
    english = {code: (short, note) for code, short, note in all_entries["uk"]}
    if len(english) < FEWEST_CODES:
        problems.append(f"only {len(english)} codes; at least {FEWEST_CODES} are required")
    for language, entries in all_entries.items():
        if {code for code, _, _ in entries} != set(english):
            problems.append(f"{language}: not the same codes as in uk")
        shorts = {}
        for code, short, note in entries:
            if not any(int(code[1:]) in shown for shown in SHOWN):
                problems.append(f"{language} {code}: the panel never shows this number")
            if not short or not note or re.search(r"[{}|\n\r]|  |\.\.\.\.$", short + note):
                problems.append(f"{language} {code}: an empty line or an invalid character in: {short} / {note}")
            if short.startswith("[") or not note.endswith("."):
                problems.append(f"{language} {code}: a line looks like a header, or the note lacks its full stop")
            if language != "uk" and (short == english[code][0] or note == english[code][1]):
                problems.append(f"{language} {code}: left in English: {short}")
            if short in shorts:
                problems.append(f"{language} {code}: same description as {shorts[short]}: {short}")
            shorts[short] = code
    return problems


def unused_entries():
    """Problems for table entries that no code uses: the key is misspelt, or the entry can be deleted."""
    components, faults = tables.read_components(), tables.read_faults()
    rows = tables.read_codes().values()
    used_components, used_faults = {row[0] for row in rows}, {row[2] for row in rows}
    kinds = {components[key][0] for key in used_components}
    seen = tables.read_blocks("seen_*.txt")
    blocks = list(tables.read_blocks("causes_*.txt")) + list(tables.read_blocks("gas_*.txt"))
    return ([f"no code uses component {key}" for key in components if key not in used_components]
            + [f"no code uses fault [{key}]" for key in faults if key not in used_faults]
            + [f"no code uses [{key}] in seen_*.txt" for key in seen if key not in used_components]
            + [f"no code uses [{key}] in causes_*.txt or gas_*.txt" for key in blocks
               if key.split(".")[0] not in kinds and key not in used_faults | used_components])


def main(arguments):
    if arguments not in ([], ["--check"]):
        print(__doc__, file=sys.stderr)
        return 2
    try:
        all_entries = {language: Writer(language).entries() for language in LANGUAGES}
    except (TableError, OSError, UnicodeDecodeError) as error:
        print(f"generate.py: {error}", file=sys.stderr)
        return 1
    problems = problems_of(all_entries) + unused_entries()
    for language, entries in all_entries.items():
        path = LANGUAGE_FOLDER / f"codici_eobd_{language}.ini"
        if not arguments:
            path.write_text(file_text(entries), encoding="utf-8", newline="\n")
        elif not path.exists() or path.read_bytes() != file_text(entries).encode("utf-8"):
            problems.append(f"{path.name} is out of date; run tools/trouble_codes/generate.py")
    for problem in problems:
        print(problem, file=sys.stderr)
    print(f"{len(all_entries['uk'])} trouble codes in {len(LANGUAGES)} languages, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
