"""A copy of the work tree in which one edit at a time is made, built and tested.

    copy = MutatedCopy()
    outcome = copy.try_edit("link/activation.cpp", "wait_ms(700);", "wait_ms(699);")
    print(outcome.verdict, outcome.test)

The copy is in build/mutation/tree; the checked-in files are only read. Each module of the logic is a
shared library in it, so an edit costs one compilation and one link.
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

# The logic. The simulator's tests do not test it.
MODULES = ("view", "app", "link", "monitor", "calibration", "diagnostics", "maintenance")
CONFIGURE = ("-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0", "-DCMAKE_CXX_FLAGS=-w",
             "-DZOL_VIEW=OFF", "-DBUILD_SHARED_LIBS=ON", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON",
             f"-DCMAKE_PROJECT_INCLUDE={TREE}/tests/mutation/mutated_copy.cmake")

SLOW_MS = 400  # a test that takes longer runs after all others
# A day of polling takes too long for each edit. What only this test would notice counts as survived.
NEVER = "LongRun."
KNOWN_FIRST = 40  # so many tests that failed for edits of the same file before run first
MEMORY = 4 << 30  # bytes: an edit may make a loop that allocates without end
FILE_SIZE = 64 << 20

CAUGHT, SURVIVED, NOT_COMPILED = "caught", "survived", "did not compile"


@dataclasses.dataclass
class Outcome:
    verdict: str
    test: str = ""  # "link_tests Suite.Name", with " (hangs)" or " (crashes)" if it ended in that way
    seconds: float = 0


class Unusable(Exception):
    """The tree does not build, or a test fails, without any edit."""


def in_the_project():
    """The existing files of the work tree that are tracked or new, and not ignored."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout
    return sorted(name for name in set(listed.split("\0")) if name and (ROOT / name).is_file())


def sync():
    """Makes the copy equal to the tree. Does not touch equal files, so that only changed ones are built
    again. True if there was a change."""
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
    """The output of compiler and linker if the build fails, else None."""
    done = subprocess.run(["ninja", "-C", BUILD, "-j2", "--quiet", *(module + "_tests" for module in MODULES)],
                          capture_output=True, text=True, env=environment(**more))
    return None if done.returncode == 0 else done.stdout + done.stderr


def limit(cpu_seconds):
    resource.setrlimit(resource.RLIMIT_CPU, (cpu_seconds, cpu_seconds))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    # A test that makes a larger file raises the soft limit.
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_SIZE, resource.getrlimit(resource.RLIMIT_FSIZE)[1]))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run_tests(module, selection, expected_ms):
    """Runs the selected tests up to the first failure. Returns the output and the result: "", "fails",
    "hangs" or "crashes". The limit is on processor time, so that a busy machine changes nothing; real
    time is limited only for a test that waits without end."""
    shutil.rmtree(SCRATCH, ignore_errors=True)
    SCRATCH.mkdir(parents=True)
    cpu = 3 + 2 * expected_ms // 1000
    process = subprocess.Popen([BUILD / "tests" / f"{module}_tests", "--gtest_fail_fast", "--gtest_filter=" + selection],
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
    """The test that failed, or the test that was running when the program ended."""
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
    """Rewrites one file of the copy. Restores it and its object file afterwards, so that only the library
    has to be linked again."""
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
        if not object_file.exists():  # for example a header: ninja finds by its time what to build again
            file.touch()
        (BUILD / f"lib{module_of(path)}.so").unlink(missing_ok=True)


class MutatedCopy:
    """The copy of the tree, built, with all its tests passing. There is one for each work tree."""

    def __init__(self, say=print):
        HOME.mkdir(parents=True, exist_ok=True)
        self.notes = {"durations": {}, "caught_by": {}}
        if NOTES.exists():
            self.notes = json.loads(NOTES.read_text())
        changed = sync()
        if not (BUILD / "build.ninja").exists():
            configure()
        say("building the copy in build/mutation")
        if complaint := build():
            raise Unusable(complaint)
        if changed or not self.notes["durations"]:
            self.measure(say)

    def measure(self, say):
        """Runs every test without an edit. All must pass; their durations are stored."""
        durations = {}
        for module in MODULES:
            say(f"running {module}_tests without an edit")
            output, ended = run_tests(module, f"*-{NEVER}*", 120_000)
            if ended:
                raise Unusable(f"{module}_tests {ended} without any edit: {name_of_failed(output, ended)}")
            durations[module] = {name: int(ms) for name, ms in
                               re.findall(r"^\[       OK \] (\S+?),? .*?\(?(\d+) ms\)", output, re.MULTILINE)}
        self.notes["durations"] = durations
        self.save()

    def save(self):
        NOTES.write_text(json.dumps(self.notes))

    def try_edit(self, path, old, new, at=None, thorough=True):
        """Replaces `old` by `new` in one file, at the offset `at`, or at its only occurrence, and restores the
        file. If not thorough, runs only the tests of the file's own module and those that failed for
        an edit of this file before."""
        file = TREE / path
        text = file.read_text(encoding="utf-8")
        if at is None:
            if text.count(old) != 1:
                raise ValueError(f"{path}: {text.count(old)} occurrences of {old!r}, not one")
            at = text.index(old)
        if text[at:at + len(old)] != old:
            raise ValueError(f"{path}: offset {at} does not have {old!r}")
        started = time.monotonic()
        with edited(path, text[:at] + new + text[at + len(old):]):
            # An edit is built once, so the compiler cache is not used.
            outcome = Outcome(NOT_COMPILED) if build(CCACHE_DISABLE="1") else self.outcome_of_tests(path, thorough)
        outcome.seconds = time.monotonic() - started
        return outcome

    def outcome_of_tests(self, path, thorough):
        for module, tests in self.stages(path, thorough):
            expected = sum(self.notes["durations"][module][test] for test in tests)
            output, ended = run_tests(module, ":".join(tests), expected)
            if not ended:
                continue
            name = name_of_failed(output, ended)
            counts = self.notes["caught_by"].setdefault(path, {})
            counts[f"{module} {name}"] = counts.get(f"{module} {name}", 0) + 1
            self.save()
            return Outcome(CAUGHT, f"{module}_tests {name}" + ("" if ended == "fails" else f" ({ended})"))
        return Outcome(SURVIVED)

    def stages(self, path, thorough):
        """Modules and their tests in the order to run: first tests that failed for this file before, then the
        file's own module, then the others, then slow tests."""
        durations = self.notes["durations"]
        own = path.split("/")[0]
        modules = sorted(MODULES, key=lambda module: module != own)
        known = collections.defaultdict(list)
        counted = collections.Counter(self.notes["caught_by"].get(path, {}))
        for key, _ in counted.most_common(KNOWN_FIRST):
            module, name = key.split(" ", 1)
            if module in modules and durations[module].get(name, SLOW_MS) < SLOW_MS:
                known[module].append(name)
        yield from known.items()
        modules = modules if thorough else modules[:1]
        for module in modules:
            yield module, [t for t, ms in durations[module].items() if ms < SLOW_MS and t not in known[module]]
        for module in modules:
            if slow := [t for t, ms in durations[module].items() if ms >= SLOW_MS]:
                yield module, slow
