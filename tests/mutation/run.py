"""Breaks the logic in a thousand places, one at a time, and demands that a test notices.

Edits are drawn by a seed, spread over the files by their lines and within a file over the ways to
break. What does not compile is not counted; what changes nothing that anybody can tell is. Survivors
that were looked at stand in survivors.txt with the reason. A run that was broken off goes on where
it was; --again tries its survivors once more, on today's tests.
"""

import argparse
import collections
import json
import pathlib
import random
import signal
import sys

sys.dont_write_bytecode = True

from edits import all_edits
from workbench import CAUGHT, HOME, NOT_COMPILED, SURVIVED, TREE, Workbench

ACCEPTED = pathlib.Path(__file__).with_name("survivors.txt")
CAUGHT_AT_LEAST = 0.95


def record_of(edit, source):
    """The edit by its line, and by what the lines that it touches read before and after, each on one
    line: so it is found again as long as nobody rewrites its place."""
    start = source.rfind("\n", 0, edit.at) + 1
    end = source.find("\n", edit.at + len(edit.old))
    before = source[start:end]
    after = source[start:edit.at] + edit.new + source[edit.at + len(edit.old):end]
    return {"path": edit.path, "line": source.count("\n", 0, edit.at) + 1, "kind": edit.kind,
            "before": " ".join(before.split()), "after": " ".join(after.split())}


def catalogue():
    """Every edit that can be made in the copy, with its record."""
    found, times = {}, collections.Counter()
    for path, edits in all_edits(TREE).items():
        source = (TREE / path).read_text(encoding="utf-8")
        for edit in sorted(edits, key=lambda each: each.at):
            record = record_of(edit, source)
            key = f"{path}: {record['before']} ==> {record['after']}"
            times[key] += 1
            # The same line may stand in a file more than once.
            found[edit] = record | {"key": key if times[key] == 1 else f"{key} #{times[key]}"}
    return found


def accepted_survivors():
    """Reasons by key. A key stands at the line's start, its reason indented below."""
    reasons, key = {}, None
    for line in ACCEPTED.read_text(encoding="utf-8").splitlines():
        if line.startswith(" ") and key:
            reasons[key] = (reasons[key] + " " + line.strip()).strip()
        elif line and not line.startswith("#"):
            key = line
            reasons[key] = ""
    return reasons


def drawn(seed, records):
    """All edits in the order of the draw. Each file has its turn as often as it has lines with
    something to break, and in its turn first a way to break is drawn, then a place."""
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
    """What came of each edit, kept on the disk from edit to edit. One whose place was rewritten since
    does not count any more."""

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


def attempt(bench, edit, results, thorough):
    record = results.of_edit[edit] | {"thorough": thorough}
    outcome = bench.try_edit(edit.path, edit.old, edit.new, edit.at, thorough)
    record |= {"verdict": outcome.verdict, "test": outcome.test, "seconds": round(outcome.seconds, 1)}
    results.add(record)
    if outcome.verdict == SURVIVED:
        print(f"survived: {record['path']}:{record['line']} ({record['kind']})\n"
              f"    {record['before']}\n    {record['after']}", flush=True)


def try_survivors(bench, results, wanted):
    """Once more, and by all tests, those of the survivors that are wanted and not explained."""
    reasons = accepted_survivors()
    for record in results.survivors():
        if wanted(record) and record["key"] not in reasons:
            attempt(bench, results.edit_of[record["key"]], results, thorough=True)


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
    """Prints the tables and the survivors. True if enough was caught and the rest is explained."""
    records = list(results.records.values())
    print(table("broken", records, lambda record: record["kind"]), end="\n\n")
    print(table("room", records, lambda record: record["path"].rsplit("/", 1)[0]), end="\n\n")
    reasons = accepted_survivors()
    unexplained = 0
    for record in sorted(results.survivors(), key=lambda r: (r["path"], r["line"])):
        reason = reasons.get(record["key"], "")
        unexplained += not reason
        print(f"survived, line {record['line']}: {record['key']}\n    {reason or 'NOT EXPLAINED'}")
    caught = sum(record["verdict"] == CAUGHT for record in records)
    share = caught / max(len(results.counted()), 1)
    print(f"{len(results.counted())} edits counted, {caught} caught: {100 * share:.1f} %; "
          f"{unexplained} survivors without a reason")
    return share >= CAUGHT_AT_LEAST and not unexplained


def main():
    options = argparse.ArgumentParser(prog="scripts/prove mutate", description=__doc__.split("\n\n")[0])
    options.add_argument("--count", type=int, default=1000, help="edits that compile (1000)")
    options.add_argument("--seed", type=int, default=None, help="of the draw; a new one by default")
    options.add_argument("--again", action="store_true", help="only the survivors of the run with this seed")
    chosen = options.parse_args()
    seed = random.randrange(1_000_000) if chosen.seed is None else chosen.seed
    print(f"seed {seed}", flush=True)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("ended from outside"))  # with the copy put right
    bench = Workbench()
    results = Results(seed)
    if not chosen.again:
        for edit in drawn(seed, results.of_edit):
            if len(results.counted()) >= chosen.count:
                break
            if results.of_edit[edit]["key"] not in results.records:
                attempt(bench, edit, results, thorough=False)
    try_survivors(bench, results, lambda record: chosen.again or not record["thorough"])
    return 0 if report(results) else 1


if __name__ == "__main__":
    sys.exit(main())
