"""Breaks the program on purpose, one edit at a time, and says which test noticed.

    bench = Workbench()
    outcome = bench.try_edit("link/activation.cpp", "wait_ms(700);", "wait_ms(699);")
    print(outcome.verdict, outcome.test)

Works on a copy of the tree in build/mutation/tree; the checked-in files are only read. Each module
of the logic is built there as a shared library, so a broken source costs one compilation and one link.
"""

import collections
import contextlib
import dataclasses
import json
import os
import pathlib
import re
import resource
import shutil
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
HOME = ROOT / "build" / "mutation"
TREE, BUILD, SCRATCH = HOME / "tree", HOME / "build", HOME / "tmp"
NOTES = HOME / "notes.json"

# The simulator's own tests prove nothing of the logic.
ROOMS = ("view", "app", "link", "monitor", "calibration", "diagnostics", "maintenance")
CONFIGURE = ("-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0", "-DCMAKE_CXX_FLAGS=-w",
             "-DZOL_VIEW=OFF", "-DBUILD_SHARED_LIBS=ON", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON",
             f"-DCMAKE_PROJECT_INCLUDE={TREE}/tests/mutation/copy.cmake")

SLOW_MS = 400  # a test that takes longer than this runs after all others
# A day of polling for each edit would be most of a run. What only it noticed counts as survived.
NEVER = "LongRun."
KNOWN_FIRST = 40  # how many of the tests that noticed something in this file before run first
MEMORY = 4 << 30  # bytes: a break may make a loop that never stops collecting
FILE_SIZE = 64 << 20

CAUGHT, SURVIVED, NOT_COMPILED = "caught", "survived", "did not compile"


@dataclasses.dataclass
class Outcome:
    verdict: str
    test: str = ""  # "link_tests Suite.Name", with " (hangs)" or " (crashes)" where it ended so
    seconds: float = 0


class Broken(Exception):
    """The tree does not build or does not pass without any edit."""


def in_the_project():
    """The files of the work tree that count: known to git or new, not ignored, and there."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout
    return sorted(name for name in set(listed.split("\0")) if name and (ROOT / name).is_file())


def sync():
    """Makes the copy equal to the tree and leaves alone what is equal already, so that only what has
    changed is built anew. True if something had."""
    changed = False
    wanted = set(in_the_project())
    for name in wanted:
        source, copy = ROOT / name, TREE / name
        if copy.is_file() and copy.read_bytes() == source.read_bytes():
            continue
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, copy)
        changed = True
    for copy in [p for p in TREE.rglob("*") if p.is_file() and str(p.relative_to(TREE)) not in wanted]:
        copy.unlink()
        changed = True
    return changed


def environment(**more):
    return {**os.environ, "CMAKE_CXX_COMPILER_LAUNCHER": "ccache" if shutil.which("ccache") else "",
            "CCACHE_BASEDIR": str(TREE), "TMPDIR": str(SCRATCH), "GTEST_COLOR": "no", **more}


def configure():
    linker = next((name for name in ("lld", "gold") if shutil.which("ld." + name)), None)
    flags = [f"-DCMAKE_{kind}_LINKER_FLAGS=-fuse-ld={linker}" for kind in ("EXE", "SHARED")] if linker else []
    subprocess.run(["cmake", "-G", "Ninja", "-S", TREE, "-B", BUILD, *CONFIGURE, *flags],
                   check=True, stdout=subprocess.DEVNULL, env=environment())


def build(**more):
    """What the compiler or linker said against it, or None."""
    done = subprocess.run(["ninja", "-C", BUILD, "-j2", "--quiet", *(room + "_tests" for room in ROOMS)],
                          capture_output=True, text=True, env=environment(**more))
    return None if done.returncode == 0 else done.stdout + done.stderr


def limit(cpu_seconds):
    resource.setrlimit(resource.RLIMIT_CPU, (cpu_seconds, cpu_seconds))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    # A test that means to make a larger file raises it for itself.
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_SIZE, resource.getrlimit(resource.RLIMIT_FSIZE)[1]))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run_tests(room, selection, expected_ms):
    """Runs what the filter selects up to the first failure. Returns the output and how it ended: "",
    "fails", "hangs" or "crashes". Hanging is told by processor time, so a busy machine changes
    nothing; only a standstill is told by the clock."""
    shutil.rmtree(SCRATCH, ignore_errors=True)
    SCRATCH.mkdir(parents=True)
    cpu = 3 + 2 * expected_ms // 1000
    process = subprocess.Popen([BUILD / "tests" / f"{room}_tests", "--gtest_fail_fast", "--gtest_filter=" + selection],
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               cwd=SCRATCH, env=environment(), start_new_session=True, preexec_fn=lambda: limit(cpu))
    try:
        output = process.communicate(timeout=6 * cpu)[0]
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, 9)
        return process.communicate()[0].decode(errors="replace"), "hangs"
    ended = {0: "", 1: "fails", -9: "hangs", -24: "hangs"}.get(process.returncode, "crashes")
    return output.decode(errors="replace"), ended


def name_of_failed(output, ended):
    """The test that failed, or the one under way when the program ended otherwise."""
    failed = re.findall(r"^\[  FAILED  \] (\S+?),? ", output, re.MULTILINE)
    if ended == "fails" and failed:
        return failed[0]
    started = re.findall(r"^\[ RUN      \] (\S+)", output, re.MULTILINE)
    return started[-1] if started else ""


def module_of(path):
    """The library that a file of the logic belongs to."""
    return "zol_program" if path.startswith("app/program/") else "zol_" + path.split("/")[0]


@contextlib.contextmanager
def edited(path, text):
    """The copy with one file rewritten. Afterwards it is as before, object file included: nothing
    but the library has to be made anew."""
    file, object_file = TREE / path, BUILD / "CMakeFiles" / (module_of(path) + ".dir") / (path + ".o")
    kept = [(each, HOME / f"kept-{each.name}") for each in (file, object_file) if each.exists()]
    for each, copy in kept:
        shutil.copy2(each, copy)
    try:
        file.write_text(text, encoding="utf-8")
        yield
    finally:
        for each, copy in kept:
            shutil.copy2(copy, each)
        if not object_file.exists():  # a header, say: what was built from it is found by its time
            file.touch()
        (BUILD / f"lib{module_of(path)}.so").unlink(missing_ok=True)


class Workbench:
    """One copy of the tree, built and found to pass. Whoever wants two must have two work trees."""

    def __init__(self, say=print):
        HOME.mkdir(parents=True, exist_ok=True)
        self.notes = {"durations": {}, "noticed": {}}
        if NOTES.exists():
            self.notes = json.loads(NOTES.read_text())
        changed = sync()
        if not (BUILD / "build.ninja").exists():
            configure()
        say("building the copy in build/mutation")
        if complaint := build():
            raise Broken(complaint)
        if changed or not self.notes["durations"]:
            self.measure(say)

    def measure(self, say):
        """Every test on the unbroken tree: all must pass, and how long each takes is kept."""
        durations = {}
        for room in ROOMS:
            say(f"running {room}_tests unbroken")
            output, ended = run_tests(room, f"*-{NEVER}*", 120_000)
            if ended:
                raise Broken(f"{room}_tests {ended} without any edit: {name_of_failed(output, ended)}")
            durations[room] = {name: int(ms) for name, ms in
                               re.findall(r"^\[       OK \] (\S+?),? .*?\(?(\d+) ms\)", output, re.MULTILINE)}
        self.notes["durations"] = durations
        self.save()

    def save(self):
        NOTES.write_text(json.dumps(self.notes))

    def try_edit(self, path, old, new, at=None, thorough=True):
        """Puts `new` in the place of `old` in one file: at the offset `at`, or where it stands if it
        stands there once. Says what came of it; the copy is as before afterwards. If not thorough,
        only the tests of the file's own room are asked, and those that noticed something in the
        file before."""
        file = TREE / path
        text = file.read_text(encoding="utf-8")
        if at is None:
            if text.count(old) != 1:
                raise ValueError(f"{path}: {text.count(old)} places read {old!r}; one is needed")
            at = text.index(old)
        if text[at:at + len(old)] != old:
            raise ValueError(f"{path}: offset {at} does not read {old!r}")
        started = time.monotonic()
        with edited(path, text[:at] + new + text[at + len(old):]):
            # An edit is built once: no compiler cache has to keep it.
            outcome = Outcome(NOT_COMPILED) if build(CCACHE_DISABLE="1") else self.outcome_of_tests(path, thorough)
        outcome.seconds = time.monotonic() - started
        return outcome

    def outcome_of_tests(self, path, thorough):
        for room, tests in self.stages(path, thorough):
            expected = sum(self.notes["durations"][room][test] for test in tests)
            output, ended = run_tests(room, ":".join(tests), expected)
            if not ended:
                continue
            name = name_of_failed(output, ended)
            noticed = self.notes["noticed"].setdefault(path, {})
            noticed[f"{room} {name}"] = noticed.get(f"{room} {name}", 0) + 1
            self.save()
            return Outcome(CAUGHT, f"{room}_tests {name}" + ("" if ended == "fails" else f" ({ended})"))
        return Outcome(SURVIVED)

    def stages(self, path, thorough):
        """Rooms with tests, in the order to run: those that noticed something in this file before,
        the file's own room, the others, and at the end what is slow."""
        durations = self.notes["durations"]
        own = path.split("/")[0]
        rooms = sorted(ROOMS, key=lambda room: room != own)
        known = collections.defaultdict(list)
        counted = collections.Counter(self.notes["noticed"].get(path, {}))
        for key, _ in counted.most_common(KNOWN_FIRST):
            room, name = key.split(" ", 1)
            if room in rooms and durations[room].get(name, SLOW_MS) < SLOW_MS:
                known[room].append(name)
        yield from known.items()
        rooms = rooms if thorough else rooms[:1]
        for room in rooms:
            yield room, [t for t, ms in durations[room].items() if ms < SLOW_MS and t not in known[room]]
        for room in rooms:
            if slow := [t for t, ms in durations[room].items() if ms >= SLOW_MS]:
                yield room, slow
