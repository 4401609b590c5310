#!/usr/bin/env python3
"""Compares the pictures of the manual and the README with what they were taken from.

    python3 tools/pictures/fresh.py --check    fails where a window table, the style or a caption file
                                               has changed since the pictures were taken
    python3 tools/pictures/fresh.py --write    notes the present state; tools/pictures/take ends with it

taken-from.txt has one line per source file: the SHA-256 of its content and its path. Comments and blank
space of the C++ files do not count, because no picture shows them.
"""

import hashlib
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
NOTES = pathlib.Path(__file__).with_name("taken-from.txt")
SOURCES = ["view/windows/*", "view/qt/*face*", "view/qt/*part*", "view/qt/instrument_*", "view/qt/key_legend*",
           "view/qt/fit*", "view/qt/colours*", "language/Mivra_*.ini"]


def digest(path):
    content = path.read_bytes()
    if path.suffix in {".cpp", ".h"}:
        content = re.sub(rb"//[^\n]*|\s+", b"", content)
    return hashlib.sha256(content).hexdigest()


def sources():
    return {str(path.relative_to(ROOT)): digest(path)
            for pattern in SOURCES for path in sorted(ROOT.glob(pattern)) if path.is_file()}


def write():
    NOTES.write_text("".join(f"{value}  {path}\n" for path, value in sources().items()), encoding="utf-8")


def differing():
    noted = dict(reversed(line.split("  ", 1)) for line in NOTES.read_text(encoding="utf-8").splitlines())
    now = sources()
    return sorted(path for path in noted.keys() | now.keys() if noted.get(path) != now.get(path))


def check():
    changed = differing()
    if changed:
        print("The pictures of the manual and the README are older than:")
        print("".join(f"  {path}\n" for path in changed), end="")
        print("Take them again: build the release preset, then run tools/pictures/take.")
    return 1 if changed else 0


if __name__ == "__main__":
    if sys.argv[1:] not in (["--check"], ["--write"]):
        print(__doc__, file=sys.stderr)
        sys.exit(2)
    sys.exit(check() if sys.argv[1] == "--check" else write())
