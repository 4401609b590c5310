"""Prints how many lines the tests have run, by module, from the gcov counts of a build folder.

Lists every line that no test ran. Ends with 1 if the logic or a module has too many. A brace alone is
not a line.
"""

import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LOGIC = ["app", "link", "monitor", "calibration", "diagnostics", "maintenance", "view"]
# No limit: the tests use it.
BESIDE = ["simulator"]
LEAST_OF_LOGIC = 98.0
LEAST_OF_ROOM = {"link": 100.0}


def counted(build):
    """Which lines have code, and whether any test ran them: {path: {line: ran}}."""
    notes = sorted(str(note) for note in build.rglob("*.gcda"))
    if not notes:
        sys.exit(f"{build} has no counts: run its tests first")
    lines = {}
    for start in range(0, len(notes), 20):
        command = ["gcov", "--json-format", "--stdout", *notes[start : start + 20]]
        found = subprocess.run(command, cwd=build, check=True, capture_output=True, text=True)
        for report in filter(None, found.stdout.splitlines()):
            add(json.loads(report), lines)
    return lines


def add(report, lines):
    folder = pathlib.Path(report["current_working_directory"])
    for file in report["files"]:
        path = (folder / file["file"]).resolve()
        if not path.is_relative_to(ROOT):
            continue
        of_file = lines.setdefault(str(path.relative_to(ROOT)), {})
        source = path.read_text(encoding="utf-8").splitlines()
        for line in file["lines"]:
            number = line["line_number"]
            # A line with only a brace is not counted: the compiler assigns to it the clean-up after an
            # exception, and the code after a call that does not return.
            if source[number - 1].strip() != "}":
                of_file[number] = of_file.get(number, False) or line["count"] > 0


def share(files):
    lines = [ran for of_file in files.values() for ran in of_file.values()]
    return sum(lines), len(lines), 100.0 * sum(lines) / max(1, len(lines))


def main():
    lines = counted(pathlib.Path(sys.argv[1]).resolve())
    by_room = {room: {path: of for path, of in lines.items() if path.startswith(room + "/")} for room in LOGIC + BESIDE}
    logic = {path: of for room in LOGIC for path, of in by_room[room].items()}
    short = []
    for name, files, least in (
        *((room, by_room[room], LEAST_OF_ROOM.get(room)) for room in LOGIC),
        ("the logic", logic, LEAST_OF_LOGIC),
        *((room, by_room[room], None) for room in BESIDE),
    ):
        ran, there, percent = share(files)
        print(f"{name:<12} {ran:>6} of {there:>6} lines  {percent:6.2f} %" + (f"  (at least {least:g} %)" if least else ""))
        if least and percent < least:
            short.append(name)
    for path, of_file in sorted(logic.items()):
        for number in sorted(number for number, ran in of_file.items() if not ran):
            print(f"{path}:{number}: not run: {(ROOT / path).read_text().splitlines()[number - 1].strip()}")
    if short:
        print("Too few lines run: " + ", ".join(short))
    return 1 if short else 0


sys.exit(main())
