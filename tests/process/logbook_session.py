"""The tool itself behind the logbook: it reads the simulated unit and polls it, goes on with the next
logbook after the first one was killed, and every answer of the unit is in the recording."""

import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE_S = 120  # for a machine that is busy; nothing here takes ten seconds on one that is not


def soon(true_now, what):
    end = time.monotonic() + PATIENCE_S
    while not true_now():
        if time.monotonic() > end:
            sys.exit("never came true: " + what)
        time.sleep(0.05)


class Bench:
    def __init__(self, folder, program, logbook, unit):
        self.folder, self.logbook, self.unit = pathlib.Path(folder), logbook, unit
        (self.folder / "ports").mkdir()
        self.program = self.folder / "zol-injection"
        self.program.symlink_to(program)
        (self.folder / "language").symlink_to(pathlib.Path(program).parent / "language")
        self.running = []

    def start(self, *words):
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
        process = subprocess.Popen(words, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
        self.running.append(process)
        return process

    def end_all(self):
        for process in reversed(self.running):
            process.kill()
            process.wait()

    def text(self, name):
        file = self.folder / name
        return file.read_text() if file.exists() else ""

    def answers(self):
        return self.text("wire.txt").count("unit  status rpm")

    def record(self):
        process = self.start(self.logbook, "record", "--car", "TEST", "--folder", self.folder, "--device",
                             self.folder / "adapter")
        soon((self.folder / "ports/com1").is_symlink, "the logbook makes the port's link")
        return process

    def shown(self, number):
        file, = (self.folder / "logbook/TEST").glob(f"*-{number}.zlog")
        return subprocess.run([self.logbook, "show", file], check=True, capture_output=True, text=True).stdout


def session(bench):
    bench.start(bench.unit, "--warm", "--link", bench.folder / "adapter", "--log", bench.folder / "wire.txt")
    soon((bench.folder / "adapter").is_symlink, "the unit makes its link")
    first = bench.record()
    tool = bench.start(bench.program)
    soon(lambda: bench.answers() >= 5, "the tool polls the unit through the logbook")

    first.kill()
    soon(lambda: not (bench.folder / "ports/com1").is_symlink(), "a killed logbook's link is removed")
    if "version: 0.2.71" not in bench.shown(1):
        sys.exit("the recording of the killed logbook lacks the first read:\n" + bench.shown(1))

    second = bench.record()
    before = bench.answers()
    soon(lambda: bench.answers() >= before + 5, "the tool goes on with the next logbook")
    tool.send_signal(signal.SIGTERM)
    tool.wait()
    second.send_signal(signal.SIGTERM)
    if second.wait() != 0:
        sys.exit("the logbook ended with an error")
    counts = re.search(r"(\d+) requests: (\d+) answered in time, (\d+) late, (\d+) lost", bench.shown(2))
    if not counts or int(counts[2]) < 5 or int(counts[4]) > 0:
        sys.exit("the recording lacks answers:\n" + bench.shown(2))


def main(*programs):
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(folder, *programs)
        try:
            session(bench)
        finally:
            bench.end_all()


main(*sys.argv[1:])
