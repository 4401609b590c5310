#!/usr/bin/env python3
"""Counts the texts of each language for the table in the README.

count.py          prints the table
count.py --write  writes it into the README, between the two marks
count.py --check  ends with 1 if the table in the README is out of date
"""
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parents[2]
README = TOP / "README.md"
BEGIN, END = "<!-- languages: counted -->\n", "<!-- languages: end -->\n"
LANGUAGES = [("it", "Italiano"), ("uk", "English"), ("pl", "Polski"), ("de", "Deutsch"), ("fr", "Français")]


def headers(file_name, pattern):
    text = (TOP / "language" / file_name).read_text(encoding="utf-8")
    return len(re.findall(pattern, text, re.MULTILINE))


def row(code, name):
    messages = headers(f"Mivra_{code}.ini", r"^\[\d+\]$")
    codes = headers(f"codici_eobd_{code}.ini", r"^\[P\d+\]$")
    pages = len(list((TOP / "manual" / code).glob("*.htm")))
    return f"| {name} | `{code}` | {messages} | {codes} | {pages} |\n"


def table():
    head = "| language | code | messages | trouble codes | manual pages |\n|---|---|---|---|---|\n"
    return head + "".join(row(code, name) for code, name in LANGUAGES)


def main(arguments):
    if arguments not in ([], ["--write"], ["--check"]):
        sys.exit("usage: count.py [--write | --check]")
    if not arguments:
        print(table(), end="")
        return
    readme = README.read_text(encoding="utf-8")
    if BEGIN not in readme or END not in readme:
        sys.exit(f"Error: README.md lacks the marks {BEGIN.strip()} and {END.strip()}; put them back.")
    before, rest = readme.split(BEGIN, 1)
    counted = before + BEGIN + table() + END + rest.split(END, 1)[1]
    if arguments == ["--write"]:
        README.write_text(counted, encoding="utf-8")
    elif counted != readme:
        sys.exit("Error: the table of languages in README.md is out of date; run tools/languages/count.py --write.")


if __name__ == "__main__":
    main(sys.argv[1:])
