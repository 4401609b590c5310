#!/usr/bin/env python3
"""Writes language/codici_eobd_*.ini, the texts of the trouble codes, from the tables beside it.

  generate.py           writes the five files
  generate.py --check   writes nothing; fails if a committed file differs from what would be written,
                        or if the texts break a rule of `problems_of`
"""

import re
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # the source tree stays as it was checked out

import tables
from tables import LANGUAGES, TableError

LANGUAGE_FOLDER = Path(__file__).resolve().parents[2] / "language"

# Faults of wiring, whose causes are alike for every part unless the table knows better.
ELECTRIC = set("ct co op short el lo hi alo ahi in ain ns res overcurrent shortheat vlo vhi unstable".split())

# The panel shows a number up to 999 or above 2000; what lies between never appears there.
SHOWN = [range(1, 1000), range(2001, 10000)]

FEWEST_CODES = 900


def read_messages(language):
    """{number: text} of the message file, for the captions that the notes name."""
    path = LANGUAGE_FOLDER / f"Mivra_{language}.ini"
    lines = path.read_text(encoding="utf-8").splitlines()
    return {line.strip()[1:-1]: text for line, text in zip(lines, lines[1:]) if re.fullmatch(r"\s*\[\d+\]\s*", line)}


def place_name(place, words, sensor):
    """Splits a place into what stands behind the name ("A") and what follows a comma ("bank 1")."""
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
    """Puts the texts of one language together."""

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
        """Puts the caption that the screen shows, in quotation marks, for each {message number}."""
        blank = " " if self.language == "fr" else ""

        def caption(match):
            words = self.messages[match[1]].strip() + (match[2] or "")
            return f"{self.frame['open quote']}{blank}{words}{blank}{self.frame['close quote']}"

        return re.sub(r"\{(\d+)\}(\.\.\.)?", caption, text)

    def description(self, component, place, fault):
        """The short line: component, place and fault, each as it stands, so that no ending has to agree."""
        kind, names = self.components[component]
        short, long = place_name(place, self.words, "l" if kind.startswith("lambda") else "s")
        text = names[self.language] + (f" {short}" if short else "") + (f", {long}" if long else "")
        heading = self.faults[fault][self.language][0]
        colon = " : " if self.language == "fr" else ": "
        return text + (colon + heading if heading else "")

    def note(self, component, fault):
        """The long line: what was seen, the causes in order, and what gas has to do with it."""
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
        """[(code, short description, long note)] in the order of the codes."""
        result = []
        for code, (component, place, fault) in tables.read_codes().items():
            if component not in self.components or fault not in self.faults:
                raise TableError(f"{code}: component {component} or fault {fault} is in no table")
            result.append((code, self.description(component, place, fault), self.note(component, fault)))
        return result


def file_text(entries):
    return "".join(f"[{code}]\n{short}\n{note}\n" for code, short, note in entries)


def problems_of(all_entries):
    """What must hold for the five files together; a list of sentences, empty if all is well."""
    problems = []
    english = {code: (short, note) for code, short, note in all_entries["uk"]}
    if len(english) < FEWEST_CODES:
        problems.append(f"only {len(english)} codes; {FEWEST_CODES} are the least")
    for language, entries in all_entries.items():
        if {code for code, _, _ in entries} != set(english):
            problems.append(f"{language}: not the same codes as in uk")
        shorts = {}
        for code, short, note in entries:
            if not any(int(code[1:]) in shown for shown in SHOWN):
                problems.append(f"{language} {code}: the panel never shows this number")
            if not short or not note or re.search(r"[{}|\n\r]|  |\.\.\.\.$", short + note):
                problems.append(f"{language} {code}: an empty line or a stray sign in: {short} / {note}")
            if short.startswith("[") or not note.endswith("."):
                problems.append(f"{language} {code}: a line reads like a header, or the note lacks its full stop")
            if language != "uk" and (short == english[code][0] or note == english[code][1]):
                problems.append(f"{language} {code}: left in English: {short}")
            if short in shorts:
                problems.append(f"{language} {code}: reads like {shorts[short]}: {short}")
            shorts[short] = code
    return problems


def unused_entries():
    """Sentences for what no code speaks of: a slip of a key, or something to delete."""
    components, faults = tables.read_components(), tables.read_faults()
    rows = tables.read_codes().values()
    used_components, used_faults = {row[0] for row in rows}, {row[2] for row in rows}
    kinds = {components[key][0] for key in used_components}
    seen = tables.read_blocks("seen_*.txt")
    blocks = list(tables.read_blocks("causes_*.txt")) + list(tables.read_blocks("gas_*.txt"))
    return ([f"component {key} is in no code" for key in components if key not in used_components]
            + [f"fault [{key}] is in no code" for key in faults if key not in used_faults]
            + [f"[{key}] in seen_*.txt is in no code" for key in seen if key not in used_components]
            + [f"[{key}] in causes_*.txt or gas_*.txt belongs to nothing" for key in blocks
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
            problems.append(f"{path.name} is not what the tables say; run tools/trouble_codes/generate.py")
    for problem in problems:
        print(problem, file=sys.stderr)
    print(f"{len(all_entries['uk'])} trouble codes in {len(LANGUAGES)} languages, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
