"""Draws a thousand single edits of the logic, makes one at a time and demands that a test fails.

The draw depends on the seed. It weights the files by their number of lines with edits, and within a
file first draws a kind of edit, then a place. An edit that does not compile is not counted. An edit
that makes no visible difference counts as survived; survivors.txt gives the reason. A run that was
stopped continues from its last edit; --again tries its survivors once more, with the present tests.
Tests named LongRun.* are not run. At least 95 % must be caught.
"""

import argparse
import collections
import json
import pathlib
import random
import re
import signal
import sys

sys.dont_write_bytecode = True

from edits import all_edits
from mutated_copy import CAUGHT, HOME, NOT_COMPILED, SURVIVED, TREE, MutatedCopy

ACCEPTED = pathlib.Path(__file__).with_name("survivors.txt")
CAUGHT_AT_LEAST = 0.95


def code_of(lines):
    return " ".join(re.sub(r"//[^\n]*", "", lines).split())


def record_of(edit, source):
    """The edit with its line number and the code of its lines before and after, without comments. The code
    identifies the edit in later versions of the file."""
    start = source.rfind("\n", 0, edit.at) + 1
    end = source.find("\n", edit.at + len(edit.old))
    before = source[start:end]
    after = source[start:edit.at] + edit.new + source[edit.at + len(edit.old):end]
    return {"path": edit.path, "line": source.count("\n", 0, edit.at) + 1, "kind": edit.kind,
            "before": code_of(before), "after": code_of(after)}


def catalogue():
    """Every edit that can be made in the copy, with its record."""
    found, times = {}, collections.Counter()
    for path, edits in all_edits(TREE).items():
        source = (TREE / path).read_text(encoding="utf-8")
        for edit in sorted(edits, key=lambda each: each.at):
            record = record_of(edit, source)
            key = f"{path}: {record['before']} ==> {record['after']}"
            times[key] += 1
            # A file may have the same line more than once.
            found[edit] = record | {"key": key if times[key] == 1 else f"{key} #{times[key]}"}
    return found


def accepted_survivors():
    """Reasons by key. One or more keys, a line each, are followed by their common reason, indented."""
    reasons, keys = {}, []
    for line in ACCEPTED.read_text(encoding="utf-8").splitlines():
        if line.startswith(" "):
            reasons |= dict.fromkeys(keys, line.strip())
            keys = []
        elif line and not line.startswith("#"):
            keys.append(line)
    return reasons


def drawn(seed, records):
    """All edits in the order of the draw."""
    chance = random.Random(seed)
    by_file = collections.defaultdict(lambda: collections.defaultdict(list))
    lines = collections.defaultdict(set)
    for edit, record in records.items():
        by_file[edit.path][edit.kind].append(edit)
        lines[edit.path].add(record["line"])
    weights = {path: len(numbers) for path, numbers in lines.items()}
    while by_file:
        path = chance.choices(list(by_file), [weights[each] for each in by_file])[0]
        kinds = by_file[path]
        kind = chance.choice(sorted(kinds))
        yield kinds[kind].pop(chance.randrange(len(kinds[kind])))
        if not kinds[kind]:
            del kinds[kind]
        if not kinds:
            del by_file[path]


class Results:
    """The results of all edits so far, stored on disk after each. An edit whose code has changed since is
    left out."""

    def __init__(self, seed):
        self.of_edit = catalogue()
        self.edit_of = {record["key"]: edit for edit, record in self.of_edit.items()}
        self.file = HOME / f"results-{seed}.jsonl"
        lines = self.file.read_text().splitlines() if self.file.exists() else []
        kept = {record["key"]: record for record in map(json.loads, lines)}
        self.records = {key: record for key, record in kept.items() if key in self.edit_of}

    def add(self, record):
        self.records[record["key"]] = record
        with self.file.open("a") as file:
            file.write(json.dumps(record) + "\n")

    def counted(self):
        return [record for record in self.records.values() if record["verdict"] != NOT_COMPILED]

    def survivors(self):
        return [record for record in self.records.values() if record["verdict"] == SURVIVED]


def attempt(copy, edit, results, thorough):
    record = results.of_edit[edit] | {"thorough": thorough}
    outcome = copy.try_edit(edit.path, edit.old, edit.new, edit.at, thorough)
    record |= {"verdict": outcome.verdict, "test": outcome.test, "seconds": round(outcome.seconds, 1)}
    results.add(record)
    if outcome.verdict == SURVIVED:
        print(f"survived: {record['path']}:{record['line']} ({record['kind']})\n"
              f"    {record['before']}\n    {record['after']}", flush=True)


def try_survivors(copy, results, wanted):
    """Tries the wanted survivors without a reason once more, with all tests."""
    reasons = accepted_survivors()
    for record in results.survivors():
        if wanted(record) and record["key"] not in reasons:
            attempt(copy, results.edit_of[record["key"]], results, thorough=True)


def table(title, records, column):
    rows = collections.defaultdict(collections.Counter)
    for record in records:
        rows[column(record)][record["verdict"]] += 1
        rows["all"][record["verdict"]] += 1
    lines = [f"| {title:20} | counted | caught | survived | caught % | did not compile |", "|-|-|-|-|-|-|"]
    for name, row in sorted(rows.items(), key=lambda item: (item[0] == "all", item[0])):
        counted = row[CAUGHT] + row[SURVIVED]
        lines.append(f"| {name:20} | {counted:7} | {row[CAUGHT]:6} | {row[SURVIVED]:8} "
                     f"| {100 * row[CAUGHT] / max(counted, 1):8.1f} | {row[NOT_COMPILED]:15} |")
    return "\n".join(lines)


def report(results):
    """Prints the tables and the survivors. True if enough were caught and the others have a reason."""
    records = list(results.records.values())
    print(table("kind", records, lambda record: record["kind"]), end="\n\n")
    print(table("module", records, lambda record: record["path"].rsplit("/", 1)[0]), end="\n\n")
    reasons = accepted_survivors()
    unexplained = 0
    for record in sorted(results.survivors(), key=lambda r: (r["path"], r["line"])):
        reason = reasons.get(record["key"], "")
        unexplained += not reason
        print(f"survived, line {record['line']}: {record['key']}\n    {reason or 'NO REASON GIVEN'}")
    caught = sum(record["verdict"] == CAUGHT for record in records)
    share = caught / max(len(results.counted()), 1)
    print(f"{len(results.counted())} edits counted, {caught} caught: {100 * share:.1f} %; "
          f"{unexplained} survivors without a reason")
    return share >= CAUGHT_AT_LEAST and not unexplained


def main():
    options = argparse.ArgumentParser(prog="scripts/prove mutate", description=__doc__.split("\n\n")[0])
    options.add_argument("--count", type=int, default=1000, help="number of edits that compile (1000)")
    options.add_argument("--seed", type=int, default=None, help="seed of the draw (a new one)")
    options.add_argument("--again", action="store_true", help="only try the survivors of the run with this seed again")
    chosen = options.parse_args()
    seed = random.randrange(1_000_000) if chosen.seed is None else chosen.seed
    print(f"seed {seed}", flush=True)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("terminated"))  # restores the copy
    copy = MutatedCopy()
    results = Results(seed)
    if not chosen.again:
        for edit in drawn(seed, results.of_edit):
            if len(results.counted()) >= chosen.count:
                break
            if results.of_edit[edit]["key"] not in results.records:
                attempt(copy, edit, results, thorough=False)
    try_survivors(copy, results, lambda record: chosen.again or not record["thorough"])
    return 0 if report(results) else 1


if __name__ == "__main__":
    sys.exit(main())
