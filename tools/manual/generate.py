#!/usr/bin/env python3
"""Writes manual/<language>/ from text/<language>.txt, parameters.txt and the trouble codes of
language/codici_eobd_<language>.ini.

  generate.py           writes the pages of each language that has a text file
  generate.py --check   writes nothing; fails if a committed page is out of date

The text files are made of these lines:

  @title ...              a text of the manual's window or its first page
  === name | Title | summary              begins a chapter, the page name.htm
  ## Heading              a heading within the chapter
  - item, 1. item         lists
  | a | b |               a row of a table; the first row is the header
  !picture Caption        pictures/<language>/picture.png, or pictures/picture.png if there is none
  !!parameters            the table of parameters
  !!codes                 links to the pages of the trouble codes, a page for each hundred
  anything else           a paragraph

Within a line:

  {1240}, {1134...}       the caption with this message number, and what the screen shows after it
  {Form1.Label24}         the caption of this control, which has no message number
  {=TEST}                 a text on the screen that is the same in every language
  **words**, `typed`      emphasis; what the user types, or a file name
  [words](name)           a link to the chapter with this name
"""

import html
import re
import sys

sys.dont_write_bytecode = True  # the source tree stays as it was checked out

import sources
from sources import LANGUAGES, MANUAL, SourceError

PICTURE_WIDTH = 680
STYLE = ("body { font-family: sans-serif; margin: 12px; } h1 { color: #8c2f1f; } h2 { color: #444444; }"
         " td, th { padding: 4px; text-align: left; } th { background-color: #e4ddd0; }"
         " code { background-color: #eeeeee; }")


def shown_width(path):
    """Display width of a PNG file: its own width, but at most that of the page."""
    head = path.read_bytes()[:24] if path.exists() else b""
    return min(int.from_bytes(head[16:20], "big") or PICTURE_WIDTH, PICTURE_WIDTH)


class Page:
    """Converts the lines of one chapter to HTML."""

    def __init__(self, language, messages, words, chapters, parameters, code_pages):
        self.language = language
        self.messages = messages
        self.own_captions = sources.read_own_captions(language)
        self.words = words
        self.titles = {chapter.name: chapter.title for chapter in chapters}
        self.parameters = parameters
        self.code_pages = code_pages

    def caption(self, match):
        if match[1] not in self.messages:
            raise SourceError(f"no message {match[1]} in {self.language}")
        text = self.messages[match[1]].rstrip() if not match[2] or match[2][0] == "." else self.messages[match[1]]
        return f"<b>{html.escape(text + match[2], quote=False)}</b>"

    def own_caption(self, match):
        if match[1] not in self.own_captions:
            raise SourceError(f"no caption {match[1]} in {self.language}")
        return f"<b>{html.escape(sources.plain(self.own_captions[match[1]]), quote=False)}</b>"

    def link(self, match):
        if match[2] not in self.titles:
            raise SourceError(f"no chapter {match[2]}")
        return f'<a href="{match[2]}.htm">{match[1]}</a>'

    def inline(self, text):
        text = html.escape(text, quote=False)
        text = re.sub(r"\{=([^}]+)\}", r"<b>\1</b>", text)
        text = re.sub(r"\{(\d+)([^}]*)\}", self.caption, text)
        text = re.sub(r"\{(\w+\.\w+)\}", self.own_caption, text)
        text = re.sub(r"\*\*(.+?)\*\*", r"<i>\1</i>", text)
        text = re.sub(r"`(.+?)`", r"<code>\1</code>", text)
        text = re.sub(r"\[([^\]]+)\]\(([a-z-]+)\)", self.link, text)
        if self.language == "fr":  # a line must not break before one of these signs
            text = re.sub(r" (?=[:;?!](?: |$|<))", "\u00a0", text)
        if re.search(r"[{}`]|\*\*", text):
            raise SourceError(f"markup that is not understood in: {text}")
        return text

    def picture(self, line):
        name, _, words = line[1:].partition(" ")
        own = f"pictures/{self.language}/{name}.png"
        path = own if (MANUAL / own).exists() else f"pictures/{name}.png"
        text = self.inline(words)
        return [f'<p><img src="../{path}" width="{shown_width(MANUAL / path)}" alt="{re.sub("<[^>]+>", "", text)}"></p>',
                f"<p><i>{text}</i></p>"]

    def table(self, rows):
        out = ['<table border="1" cellspacing="0" cellpadding="4">']
        for number, row in enumerate(rows):
            kind = "th" if number == 0 else "td"
            out.append("<tr>" + "".join(f"<{kind}>{cell}</{kind}>" for cell in row) + "</tr>")
        return out + ["</table>"]

    def parameter_table(self):
        rows = [[html.escape(word.strip()) for word in self.words["columns"].split("|")]]
        for span, unit, factory, where, meaning in self.parameters:
            place = self.link([None, self.titles.get(where, ""), where]) if where != "-" else self.words["none"]
            number = ", ".join("PAR_" + part.strip().replace("-", " – PAR_") for part in span.split(","))
            rows.append([number, self.inline(meaning[self.language]), unit.replace("-", "–"),
                         factory.replace("-", "–"), place])
        return self.table(rows)

    def body(self, lines):
        out, open_list, rows = [], None, []
        for line in [text for _, text in lines] + [""]:
            item = re.match(r"(-|\d+\.) +(.*)", line)
            kind = None if not item else "ul" if item[1] == "-" else "ol"
            if rows and not line.startswith("|"):
                out += self.table(rows)
                rows = []
            if open_list != kind:
                out += [f"</{open_list}>"] if open_list else []
                out += [f"<{kind}>"] if kind else []
                open_list = kind
            if item:
                out.append(f"<li>{self.inline(item[2])}</li>")
            elif line.startswith("## "):
                out.append(f"<h2>{self.inline(line[3:])}</h2>")
            elif line == "!!parameters":
                out += self.parameter_table()
            elif line == "!!codes":
                links = [f'<li><a href="{name}.htm">{title}</a></li>' for name, title, _ in self.code_pages]
                out += ["<ul>", *links, "</ul>"]
            elif line.startswith("!"):
                out += self.picture(line)
            elif line.startswith("|"):
                rows.append([self.inline(cell.strip()) for cell in line.strip("|").split("|")])
            elif line:
                out.append(f"<p>{self.inline(line)}</p>")
        return out


def page(language, title, body):
    code = "en" if language == "uk" else language
    return "\n".join(["<!DOCTYPE html>", f'<html lang="{code}">', "<head>", '<meta charset="utf-8">',
                      f"<title>{html.escape(title)}</title>", f"<style>{STYLE}</style>", "</head>", "<body>",
                      *body, "</body>", "</html>", ""])


def code_pages_of(language):
    """[(page, title, codes)] of the trouble codes, a page for each hundred: one for all would be slow to open."""
    groups = {}
    for code in sources.read_trouble_codes(language):
        groups.setdefault(code[0][:3], []).append(code)
    return [(f"codes-{group.lower()}", f"{codes[0][0]} \N{EN DASH} {codes[-1][0]}", codes)
            for group, codes in groups.items()]


def code_page(language, words, title, codes, after):
    """The codes of one group, and the way to the next page."""
    entries = [f"<p><b>{code}</b> <b>{html.escape(description, quote=False)}</b><br>{html.escape(note, quote=False)}</p>"
               for code, description, note in codes]
    ways = ['<a href="index.htm">' + html.escape(words["contents"]) + "</a>"]
    if after:
        ways.append(f'<a href="{after[0]}.htm">{after[1]} &rarr;</a>')
    return page(language, title, [f"<h1>{title}</h1>", *entries, "<hr>", f"<p>{' | '.join(ways)}</p>"])


def pages_of(language):
    """{file name: content} for the folder of one language."""
    words, chapters = sources.read_text(language)
    code_pages = code_pages_of(language)
    maker = Page(language, sources.read_messages(language), words, chapters, sources.read_parameters(), code_pages)
    files = {}
    for place, chapter in enumerate(chapters):
        body = [f"<h1>{html.escape(chapter.title)}</h1>", *maker.body(chapter.lines), "<hr>"]
        ways = ['<a href="index.htm">' + html.escape(words["contents"]) + "</a>"]
        if place + 1 < len(chapters):
            after = chapters[place + 1]
            ways.append(f'<a href="{after.name}.htm">{html.escape(after.title)} &rarr;</a>')
        files[f"{chapter.name}.htm"] = page(language, chapter.title, body + [f"<p>{' | '.join(ways)}</p>"])
    for (name, title, codes), after in zip(code_pages, code_pages[1:] + [None]):
        files[f"{name}.htm"] = code_page(language, words, title, codes, after)
    colon = "\N{NO-BREAK SPACE}: " if language == "fr" else ": "
    entries = [f'<li><a href="{c.name}.htm">{html.escape(c.title)}</a>{colon}{html.escape(c.about)}</li>' for c in chapters]
    files["index.htm"] = page(language, words["title"], [
        f"<h1>{html.escape(words['title'])}</h1>", f"<p>{maker.inline(words['lead'])}</p>",
        f"<h2>{html.escape(words['contents'])}</h2>", "<ol>", *entries, "</ol>"])
    lines = [f"{key}\t{words[key]}" for key in ("title", "search", "back", "not_found")]
    lines += [f"index.htm\t{words['contents']}"] + [f"{c.name}.htm\t{c.title}" for c in chapters]
    lines += [f"{name}.htm\t{title}" for name, title, _ in code_pages]
    files["contents.txt"] = "\n".join(lines) + "\n"
    return files


def all_files():
    return {MANUAL / language / name: text
            for language in sources.written_languages() for name, text in pages_of(language).items()}


def main():
    wanted = all_files()
    here = {path for language in LANGUAGES for path in (MANUAL / language).glob("*")}
    if "--check" in sys.argv[1:]:
        wrong = [path for path, text in wanted.items()
                 if not path.exists() or path.read_text(encoding="utf-8") != text]
        wrong += sorted(here - wanted.keys())
        for path in wrong:
            print(f"{path.relative_to(MANUAL.parent)}: out of date; run tools/manual/generate.py")
        return 1 if wrong else 0
    for path in here - wanted.keys():
        path.unlink()
    for path, text in wanted.items():
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except SourceError as error:
        sys.exit(f"Error: {error}")
