"""The house rules that no compiler knows: who may include whom, and how long a thing may be.

Prints each breach as file:line and ends with 1 if there is one.
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

LONGEST_FILE = 400
LONGEST_FUNCTION = 60

# A room and the rooms that it may include. The standard library is open to all.
SHARED = {"app", "link", "monitor", "view", "view/windows"}
MAY_INCLUDE = {
    "view": {"view"},
    "view/windows": {"view", "view/windows"},
    "view/screenless": {"view", "view/screenless"},
    "view/qt": {"view", "view/windows", "view/qt"},
    "simulator": {"simulator"},
    **{room: SHARED for room in ("app", "link", "monitor")},
    **{room: SHARED | {room} for room in ("calibration", "diagnostics", "maintenance")},
}
# The places that choose the real sides.
FREE = {"app/program", "tests"}
# The logic names a parameter by its identifier in link/parameter_catalogue.h.
LOGIC = {"app", "link", "monitor", "calibration", "diagnostics", "maintenance"}
BARE_PARAMETER = re.compile(
    r"\b(?:send_parameter|write_parameter|parameter)\(\s*\d"
    r"|\bnote_parameters\([^;{]*\{[^}]*?\b\d"
    r"|\.parameter = \d")
# And a message by its name in app/message_catalogue.h.
BARE_MESSAGE = re.compile(r"\b(?:message\(\s*|set_message\([^;]*?,\s*)\d{4}\b")
STOP_THEN_WAIT = re.compile(r"\bmonitor::stop_polling\(\);\s*(?:link::)?wait_ms\((?:400|link::telegram_end_ms)\)")
NAMES_EVERY_ROOM = "app/wiring.cpp"
TOOLKIT = re.compile(r"^#include <(Q[A-Z]\w*|Qt\w*/\w+)>")


def room_of(path):
    """The longest folder name of the house that the path lies in."""
    rooms = sorted([*MAY_INCLUDE, *FREE], key=len, reverse=True)
    return next((room for room in rooms if path.startswith(room + "/")), "")


def includes(path, lines):
    room = room_of(path)
    for number, line in enumerate(lines, 1):
        found = re.match(r'#include "([^"]+)"', line)
        if found and room in MAY_INCLUDE and path != NAMES_EVERY_ROOM and room_of(found[1]) not in MAY_INCLUDE[room]:
            yield number, f"{room}/ may not include {found[1]}"
        if TOOLKIT.match(line) and room not in FREE and room != "view/qt":
            yield number, "only view/qt/ knows the toolkit"


def bare_numbers(path, lines):
    """Parameters, messages and waits that stand as a number where they have a name. A call may take
    several lines."""
    if room_of(path) not in LOGIC:
        return
    code = "\n".join(re.sub("//.*", "", line) for line in lines)
    named = [(BARE_PARAMETER, "a parameter goes by its name, not by its number"),
             (BARE_MESSAGE, "a message goes by its name, not by its number"),
             (STOP_THEN_WAIT, "monitor::stop_polling_and_wait() does both")]
    for pattern, what in named:
        for found in pattern.finditer(code):
            yield code.count("\n", 0, found.start()) + 1, what


def code_lines(lines):
    """The lines with their numbers, without those of tables and of long texts: rows are data."""
    in_text = False
    for number, line in enumerate(lines, 1):
        was_in_text, row = in_text, line.lstrip().startswith(("{", '"'))
        in_text = 'R"(' in line or (in_text and ')"' not in line)
        if not was_in_text and not row:
            yield number, line


def functions(lines):
    """Start and length of what looks like a function: a line at an outer level that ends in an
    opening brace behind a closing parenthesis, up to the brace in its own column."""
    start = indent = None
    length = 0
    for number, line in code_lines(lines):
        depth = len(line) - len(line.lstrip())
        if start is None:
            if depth <= 2 and re.search(r"\)[\w\s>:-]*\{$", line):
                start, indent, length = number, depth, 1
            continue
        length += 1
        if line.startswith(" " * indent + "}"):
            yield start, length
            start = None


def lengths(path, lines):
    if len(lines) > LONGEST_FILE:
        yield 1, f"{len(lines)} lines; {LONGEST_FILE} are the most"
    for start, length in functions(lines):
        if length > LONGEST_FUNCTION:
            yield start, f"a function of {length} lines; {LONGEST_FUNCTION} are the most"


def main():
    listed = subprocess.run(["git", "ls-files", "*.cpp", "*.h", "*.py"], cwd=ROOT, check=True, capture_output=True, text=True)
    breaches = 0
    for path in listed.stdout.split():
        file = ROOT / path
        if not file.exists():
            continue
        lines = file.read_text(encoding="utf-8").splitlines()
        found = list(lengths(path, lines))
        if not path.endswith(".py"):
            found += [*includes(path, lines), *bare_numbers(path, lines)]
        for number, what in found:
            print(f"{path}:{number}: {what}")
            breaches += 1
    return 1 if breaches else 0


sys.exit(main())
