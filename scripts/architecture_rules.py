"""Checks the architecture rules that no compiler checks: which module may include which, where variables
may be declared, which numbers have names, and the length of files, functions and test names.

Prints each violation as file:line. Ends with 1 if there is one.
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

LONGEST_FILE = 400
LONGEST_FUNCTION = 60
LONGEST_TEST_NAME = 50  # without the suite
TEST_NAME = re.compile(r"\bTEST(?:_F|_P)?\(\s*\w+,\s*(\w+)\s*\)")

# A module and what it may include, besides the standard library.
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
    "logbook": {"app", "link", "logbook"},
}
# The logic names a parameter by its identifier in link/parameter_catalogue.h.
LOGIC = {"app", "app/program", "link", "monitor", "calibration", "diagnostics", "maintenance", "logbook"}
BARE_PARAMETER = re.compile(
    r"\b(?:send_parameter|write_parameter|parameter)\(\s*\d"
    r"|\bnote_parameters\([^;{]*\{[^}]*?\b\d"
    r"|\.parameter = \d")
# The logic names a message by its name in app/message_catalogue.h.
BARE_MESSAGE = re.compile(r"\b(?:message\(\s*|set_message\([^;]*?,\s*)\d{4}\b")
STOP_THEN_WAIT = re.compile(r"\bmonitor::stop_polling\(\);\s*(?:link::)?wait_ms\((?:400|link::telegram_end_ms)\)")
MODULES = [*MAY_INCLUDE, "tests"]
KNOW_THE_TOOLKIT = {"view/qt", "app/program", "tests"}

# This file resets every variable of the program to its start value, for the tests.
RESET = "tests/support/program_state.cpp"
WITH_STATE = set(MAY_INCLUDE) - {"view/qt", "simulator"}
# A variable that can change, outside functions: namespaces do not indent. References cannot be rebound,
# and view::reset() resets the windows.
NO_VARIABLE = re.compile(r"(?:inline )?(?:const|constexpr)\b|using |namespace |struct |class |enum |template|static_assert|extern |return ")
VARIABLE = re.compile(r"(?:(?:inline|static|thread_local) )*(?P<type>[\w:]+(?: (?:int|long|short|char|double))*(?:<.*>)?(?: ?\*)?(?: ?const)?) ?\b(?P<name>\w+)(?: ?[={\[].*|;.*)$")
OF_THE_WINDOWS = re.compile(r"(?:view::)?(?:Widget|WidgetArray|Timer)$")
# In a function. The lists of widgets that the windows' tables fill before main() are not state.
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
            yield number, "only view/qt/ may use the toolkit"


def bare_numbers(path, lines):
    """Parameters, messages and waits written as a number although they have a name. A call may have several
    lines."""
    if module_of(path) not in LOGIC:
        return
    code = "\n".join(re.sub("//.*", "", line) for line in lines)
    named = [(BARE_PARAMETER, "write the parameter by its name, not by its number"),
             (BARE_MESSAGE, "write the message by its name, not by its number"),
             (STOP_THEN_WAIT, "monitor::stop_polling_and_wait() does both")]
    for pattern, what in named:
        for found in pattern.finditer(code):
            yield code.count("\n", 0, found.start()) + 1, what


def variables(lines):
    """Line number, name and line of each variable outside functions."""
    for number, line in enumerate(lines, 1):
        found = None if NO_VARIABLE.match(line) else VARIABLE.match(line)
        if found and not found["type"].endswith("const") and not OF_THE_WINDOWS.match(found["type"]):
            yield number, found["name"], line


def state(path, lines, reset):
    """Variables that a test would find as an earlier test left them."""
    if module_of(path) not in WITH_STATE:
        return
    for number, name, line in variables(lines):
        if not path.endswith(".h") or not re.match(r"inline [^={]*;", line):
            yield number, f"{name} belongs in a header, as `inline <type> {name};` with its start values in the type"
        elif not re.search(rf"\b{name} = \{{\}};", reset):
            yield number, f"{RESET} does not reset {name}"
    for number, line in enumerate(lines, 1):
        if STATIC.match(line):
            yield number, "a static variable that no test can reset"


def code_lines(lines):
    """The lines with their numbers, without rows of tables and long texts, which are data."""
    in_text = False
    for number, line in enumerate(lines, 1):
        was_in_text, row = in_text, line.lstrip().startswith(("{", '"'))
        in_text = 'R"(' in line or (in_text and ')"' not in line)
        if not was_in_text and not row:
            yield number, line


def functions(lines):
    """Start and length of each function: from a line at an outer level with a closing parenthesis and an
    opening brace at its end, up to the closing brace in the same column."""
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
        yield 1, f"{len(lines)} lines; at most {LONGEST_FILE} are allowed"
    for start, length in functions(lines):
        if length > LONGEST_FUNCTION:
            yield start, f"a function of {length} lines; at most {LONGEST_FUNCTION} are allowed"


def test_names(lines):
    text = "\n".join(lines)
    for found in TEST_NAME.finditer(text):
        if len(found[1]) > LONGEST_TEST_NAME:
            yield (text.count("\n", 0, found.start()) + 1,
                   f"{found[1]} has {len(found[1])} letters; at most {LONGEST_TEST_NAME} are allowed")


def main():
    listed = subprocess.run(["git", "ls-files", "*.cpp", "*.h", "*.py"], cwd=ROOT, check=True, capture_output=True, text=True)
    violations = 0
    reset = (ROOT / RESET).read_text(encoding="utf-8")
    for path in listed.stdout.split():
        file = ROOT / path
        if not file.exists():
            continue
        lines = file.read_text(encoding="utf-8").splitlines()
        found = list(lengths(path, lines))
        if not path.endswith(".py"):
            found += [*includes(path, lines), *bare_numbers(path, lines), *state(path, lines, reset), *test_names(lines)]
        for number, what in found:
            print(f"{path}:{number}: {what}")
            violations += 1
    return 1 if violations else 0


sys.exit(main())
