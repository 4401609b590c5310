"""The rules of this project that no compiler knows: who may include whom, which variables there may
be, and how long a thing may be.

Prints each breach as file:line and ends with 1 if there is one.
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

LONGEST_FILE = 400
LONGEST_FUNCTION = 60

# A module and what it may include. The standard library is open to all.
WIDGETS = {"view", "view/windows"}
SHARED = WIDGETS | {"app", "link", "monitor"}
MAY_INCLUDE = {
    "view": {"view"},
    "view/windows": WIDGETS,
    "app": WIDGETS | {"app"},
    "link": WIDGETS | {"app", "link"},
    "monitor": SHARED,
    **{module: SHARED | {module} for module in ("calibration", "diagnostics", "maintenance")},
    "app/program": SHARED | {"calibration", "diagnostics", "maintenance", "app/program", "view/qt"},
    "view/headless": {"view", "view/headless"},
    "view/qt": WIDGETS | {"view/qt"},
    "simulator": {"simulator"},
}
# The logic names a parameter by its identifier in link/parameter_catalogue.h.
LOGIC = {"app", "app/program", "link", "monitor", "calibration", "diagnostics", "maintenance"}
BARE_PARAMETER = re.compile(
    r"\b(?:send_parameter|write_parameter|parameter)\(\s*\d"
    r"|\bnote_parameters\([^;{]*\{[^}]*?\b\d"
    r"|\.parameter = \d")
# And a message by its name in app/message_catalogue.h.
BARE_MESSAGE = re.compile(r"\b(?:message\(\s*|set_message\([^;]*?,\s*)\d{4}\b")
STOP_THEN_WAIT = re.compile(r"\bmonitor::stop_polling\(\);\s*(?:link::)?wait_ms\((?:400|link::telegram_end_ms)\)")
MODULES = [*MAY_INCLUDE, "tests"]
KNOW_THE_TOOLKIT = {"view/qt", "app/program", "tests"}

# The file that puts every variable of the program back to its start value, for the tests.
RESET = "tests/support/program_state.cpp"
WITH_STATE = set(MAY_INCLUDE) - {"view/qt", "simulator"}
# At the outer level, where namespaces do not indent: a variable that can change. A reference cannot
# be rebound, and the windows consist of what view::reset() resets.
NO_VARIABLE = re.compile(r"(?:inline )?(?:const|constexpr)\b|using |namespace |struct |class |enum |template|static_assert|extern |return ")
VARIABLE = re.compile(r"(?:(?:inline|static|thread_local) )*(?P<type>[\w:]+(?: (?:int|long|short|char|double))*(?:<.*>)?(?: ?\*)?(?: ?const)?) ?\b(?P<name>\w+)(?: ?[={\[].*|;.*)$")
OF_THE_WINDOWS = re.compile(r"(?:view::)?(?:Widget|WidgetArray|Timer)$")
# Inside a function: lists of what the windows' tables define before main() are no state.
STATIC = re.compile(r"\s+static (?!constexpr|const |std::vector<(?:Widget|Timer)\*> )[^(]*[;={]")
TOOLKIT = re.compile(r"^#include <(Q[A-Z]\w*|Qt\w*/\w+)>")


def module_of(path):
    """The longest folder name of a module that the path lies in."""
    by_length = sorted(MODULES, key=len, reverse=True)
    return next((module for module in by_length if path.startswith(module + "/")), "")


def includes(path, lines):
    module = module_of(path)
    for number, line in enumerate(lines, 1):
        found = re.match(r'#include "([^"]+)"', line)
        if found and module in MAY_INCLUDE and module_of(found[1]) not in MAY_INCLUDE[module]:
            yield number, f"{module}/ may not include {found[1]}"
        if TOOLKIT.match(line) and module not in KNOW_THE_TOOLKIT:
            yield number, "only view/qt/ knows the toolkit"


def bare_numbers(path, lines):
    """Parameters, messages and waits that are written as a number although they have a name. A call may take
    several lines."""
    if module_of(path) not in LOGIC:
        return
    code = "\n".join(re.sub("//.*", "", line) for line in lines)
    named = [(BARE_PARAMETER, "a parameter goes by its name, not by its number"),
             (BARE_MESSAGE, "a message goes by its name, not by its number"),
             (STOP_THEN_WAIT, "monitor::stop_polling_and_wait() does both")]
    for pattern, what in named:
        for found in pattern.finditer(code):
            yield code.count("\n", 0, found.start()) + 1, what


def variables(lines):
    """Number, name and line of what can change at the outer level."""
    for number, line in enumerate(lines, 1):
        found = None if NO_VARIABLE.match(line) else VARIABLE.match(line)
        if found and not found["type"].endswith("const") and not OF_THE_WINDOWS.match(found["type"]):
            yield number, found["name"], line


def state(path, lines, reset):
    """State that a new test would find as an earlier test left it."""
    if module_of(path) not in WITH_STATE:
        return
    for number, name, line in variables(lines):
        if not path.endswith(".h") or not re.match(r"inline [^={]*;", line):
            yield number, f"{name} belongs into a header, as `inline <type> {name};` with its start values in the type"
        elif not re.search(rf"\b{name} = \{{\}};", reset):
            yield number, f"{RESET} does not put {name} back"
    for number, line in enumerate(lines, 1):
        if STATIC.match(line):
            yield number, "a variable that only this function can put back"


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
    reset = (ROOT / RESET).read_text(encoding="utf-8")
    for path in listed.stdout.split():
        file = ROOT / path
        if not file.exists():
            continue
        lines = file.read_text(encoding="utf-8").splitlines()
        found = list(lengths(path, lines))
        if not path.endswith(".py"):
            found += [*includes(path, lines), *bare_numbers(path, lines), *state(path, lines, reset)]
        for number, what in found:
            print(f"{path}:{number}: {what}")
            breaches += 1
    return 1 if breaches else 0


sys.exit(main())
