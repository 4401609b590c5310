"""Makes the mutations that are kept by hand in kept/*.txt, one at a time, and demands that a test fails.

    python3 tests/mutation/kept.py                  all of them
    python3 tests/mutation/kept.py link             those of kept/link.txt
    python3 tests/mutation/kept.py link "late reply"    of these, the ones whose claim contains this text
    python3 tests/mutation/kept.py --stale          only checks that each old text occurs once in its file

`scripts/prove mutate` draws its mutations; it changes one token, drops one statement or swaps two
neighbours, in .cpp files. Kept here are only the kinds that it cannot draw, and of these only the ones
whose claim stays true under each drawn mutation of the same place:

- code added: a statement, an early return, a special case, a condition with one more part
- a part of a condition removed, or a condition replaced by another one
- a call around a value removed or replaced, such as rounding or trimming
- an argument or a constant replaced by another name
- an optional value replaced by a default where the old value must stay
- rows of a table swapped or removed
- statements moved over a distance, or swapped where no time passes between them
- numbers in headers

A block is separated by an empty line. It has the file, the old text after "-", and one mutation or
more: the claim in brackets that the mutation makes false, and the new text after "+".
"""

import argparse
import dataclasses
import pathlib
import sys

sys.dont_write_bytecode = True

from mutated_copy import CAUGHT, ROOT, MutatedCopy

FOLDER = pathlib.Path(__file__).with_name("kept")


@dataclasses.dataclass
class Mutation:
    claim: str
    file: str
    old: str
    new: str


def mutations_of(path):
    for block in path.read_text(encoding="utf-8").split("\n\n"):
        lines = block.splitlines()
        old = "\n".join(line[1:] for line in lines if line.startswith("-"))
        mutation = None
        for line in lines:
            if line.startswith("["):
                mutation = Mutation(line.strip("[]"), lines[0].removeprefix("file "), old, "")
                yield mutation
            elif line.startswith("+"):
                mutation.new += ("\n" if mutation.new else "") + line[1:]


def stale(mutations):
    """The mutations whose old text does not occur exactly once."""
    for each in mutations:
        file = ROOT / each.file
        times = file.read_text(encoding="utf-8").count(each.old) if file.is_file() and each.old else 0
        if times != 1:
            yield f"[{each.claim}] {each.file}: the old text occurs {times} times"


def main():
    lists = sorted(path.stem for path in FOLDER.glob("*.txt"))
    options = argparse.ArgumentParser(prog="kept.py", description=__doc__.split("\n\n")[0])
    options.add_argument("list", nargs="?", choices=lists, metavar="LIST", help="one of: " + ", ".join(lists))
    options.add_argument("text", nargs="?", default="", help="only mutations whose claim contains this text")
    options.add_argument("--stale", action="store_true", help="only check that each old text occurs once in its file")
    chosen = options.parse_args()
    names = [chosen.list] if chosen.list else lists
    mutations = [each for name in names for each in list(mutations_of(FOLDER / f"{name}.txt")) if chosen.text in each.claim]
    wrong = list(stale(mutations))
    if wrong or chosen.stale:
        print("\n".join(wrong) or f"{len(mutations)} kept mutations can be made")
        return 1 if wrong else 0
    copy, caught = MutatedCopy(), 0
    for number, each in enumerate(mutations, 1):
        outcome = copy.try_edit(each.file, each.old, each.new)
        caught += outcome.verdict == CAUGHT
        print(f"{number:3} of {len(mutations)}  {outcome.verdict:15} [{each.claim}]  {outcome.test}  "
              f"{outcome.seconds:.0f} s", flush=True)
    print(f"{caught} of {len(mutations)} kept mutations were caught")
    return 0 if caught == len(mutations) else 1


if __name__ == "__main__":
    sys.exit(main())
