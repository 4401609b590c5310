"""Breaks one sentence about the program at a time, and demands that the test named for it fails.

    python3 tests/mutation/breakages.py                  all sentences of all rooms
    python3 tests/mutation/breakages.py link             those of breakages/link.txt
    python3 tests/mutation/breakages.py link "free values"   those of them that hold these words
    python3 tests/mutation/breakages.py --stale          only whether every edit still has its place

Before anything is broken every named test must pass; a test that no longer exists, and an edit whose
old text no longer stands in its file exactly once, are errors.
"""

import argparse
import dataclasses
import fnmatch
import hashlib
import pathlib
import re
import sys
import time

sys.dont_write_bytecode = True

import workbench
from workbench import ROOT, TREE

FOLDER = pathlib.Path(__file__).with_name("breakages")


@dataclasses.dataclass
class Breakage:
    sentence: str
    room: str  # of the test program
    test: str  # a filter of Google Test without ":" and "-"
    file: str
    old: str
    new: str


def breakages_of(path):
    """One block a sentence: [the sentence], test, file, and the edit as lines behind - and +."""
    for block in re.split(r"\n(?=\[)", path.read_text(encoding="utf-8"))[1:]:
        lines = block.splitlines()
        fields = dict(line.split(" ", 1) for line in lines if line.startswith(("test ", "file ")))
        program, test = fields["test"].split(" ", 1)
        old, new = ("\n".join(line[1:] for line in lines if line.startswith(sign)) for sign in "-+")
        yield Breakage(lines[0].strip("[]"), program.removesuffix("_tests"), test, fields["file"], old, new)


def stale(breakages):
    """What is wrong with an edit on the present tree, if anything is."""
    for each in breakages:
        file = ROOT / each.file
        places = file.read_text(encoding="utf-8").count(each.old) if file.is_file() and each.old else 0
        if places != 1:
            yield f"[{each.sentence}] {each.file}: the old text stands there {places} times"


def run(room, tests):
    """The tests that passed, and how the run ended."""
    output, ended = workbench.run_tests(room, ":".join(sorted(tests)), 20_000)
    return re.findall(r"^\[       OK \] ([^\s,]+)", output, re.MULTILINE), ended, output


def unproved(breakages):
    """The tests that do not pass, or do not exist, on the unbroken tree."""
    for room in sorted({each.room for each in breakages}):
        tests = {each.test for each in breakages if each.room == room}
        passed, ended, output = run(room, tests)
        if ended:
            yield f"{room}_tests {ended} unbroken: {workbench.name_of_failed(output, ended)}"
        else:
            yield from (f"{room}_tests has no test {test}" for test in sorted(tests)
                        if not any(fnmatch.fnmatchcase(name, test) for name in passed))


def program():
    """What the built program is: another one for every edit that reached it."""
    libraries = sorted(workbench.BUILD.rglob("*.so"))
    return hashlib.sha256(b"".join(library.read_bytes() for library in libraries)).hexdigest()


def verdict(breakage, unbroken):
    text = (TREE / breakage.file).read_text(encoding="utf-8")
    with workbench.edited(breakage.file, text.replace(breakage.old, breakage.new)):
        if complaint := workbench.build(CCACHE_DISABLE="1"):
            return "does not compile: " + complaint.strip().splitlines()[0]
        if program() == unbroken:
            return "is the same program"
        return run(breakage.room, {breakage.test})[1] or "NOT NOTICED"


def arguments():
    lists = sorted(path.stem for path in FOLDER.glob("*.txt"))
    options = argparse.ArgumentParser(prog="breakages.py", description=__doc__.split("\n\n")[0])
    options.add_argument("room", nargs="?", choices=lists, metavar="room", help="one of: " + ", ".join(lists))
    options.add_argument("words", nargs="*", help="only the sentences that hold these")
    options.add_argument("--stale", action="store_true", help="only whether every edit still has its place")
    given = options.parse_args()
    paths = [FOLDER / f"{name}.txt" for name in lists if given.room in (None, name)]
    words = " ".join(given.words)
    return given.stale, [each for path in paths for each in breakages_of(path) if words in each.sentence]


def main():
    only_stale, breakages = arguments()
    wrong = list(stale(breakages))
    if not wrong and not only_stale:
        workbench.HOME.mkdir(parents=True, exist_ok=True)
        if workbench.sync():
            workbench.NOTES.unlink(missing_ok=True)  # what was measured on another tree
        if not (workbench.BUILD / "build.ninja").exists():
            workbench.configure()
        print("building the copy in build/mutation", flush=True)
        if complaint := workbench.build():
            wrong.append(complaint)
        else:
            wrong.extend(unproved(breakages))
    if wrong or only_stale:
        print("\n".join(wrong) or f"{len(breakages)} edits have their place")
        return 1 if wrong else 0
    unbroken, noticed = program(), 0
    for number, each in enumerate(breakages, 1):
        started = time.monotonic()
        said = verdict(each, unbroken)
        noticed += said in ("fails", "hangs", "crashes")
        print(f"{number:3} of {len(breakages)}  {said:12} {each.room}_tests {each.test}\n"
              f"{'':12}[{each.sentence}]  {time.monotonic() - started:.0f} s", flush=True)
    whole = not workbench.build() and program() == unbroken
    print(f"{noticed} of {len(breakages)} sentences were seen to be proved" + ("" if whole else "; THE COPY STAYED BROKEN"))
    return 0 if whole and noticed == len(breakages) else 1


if __name__ == "__main__":
    sys.exit(main())
