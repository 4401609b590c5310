"""The tool reads and polls a simulated unit through zol-logbook. After the first logbook is killed, the
tool continues with the next one. Every reply of the unit is in the recordings."""

import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE_S = 120  # for a busy machine; otherwise nothing takes ten seconds


def wait_for(is_true, what):
    end = time.monotonic() + PATIENCE_S
    while not is_true():
        if time.monotonic() > end:
            sys.exit("this did not happen: " + what)
        time.sleep(0.05)


class Session:
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
        wait_for((self.folder / "ports/com1").is_symlink, "the logbook makes the port's link")
        return process

    def shown(self, number):
        file, = (self.folder / "logbook/TEST").glob(f"*-{number}.zlog")
        return subprocess.run([self.logbook, "show", file], check=True, capture_output=True, text=True).stdout


def run(session):
    session.start(session.unit, "--warm", "--link", session.folder / "adapter", "--log", session.folder / "wire.txt")
    wait_for((session.folder / "adapter").is_symlink, "the unit makes its link")
    first = session.record()
    tool = session.start(session.program)
    wait_for(lambda: session.answers() >= 5, "the tool polls the unit through the logbook")

    first.kill()
    wait_for(lambda: not (session.folder / "ports/com1").is_symlink(), "a killed logbook's link is removed")
    if "version: 0.2.71" not in session.shown(1):
        sys.exit("the recording of the killed logbook lacks the first read:\n" + session.shown(1))

    second = session.record()
    before = session.answers()
    wait_for(lambda: session.answers() >= before + 5, "the tool continues with the next logbook")
    tool.send_signal(signal.SIGTERM)
    tool.wait()
    second.send_signal(signal.SIGTERM)
    if second.wait() != 0:
        sys.exit("the logbook ended with an error")
    counts = re.search(r"(\d+) requests: (\d+) answered in time, (\d+) late, (\d+) lost", session.shown(2))
    if not counts or int(counts[2]) < 5 or int(counts[4]) > 0:
        sys.exit("the recording lacks answers:\n" + session.shown(2))


def main(*programs):
    with tempfile.TemporaryDirectory() as folder:
        session = Session(folder, *programs)
        try:
            run(session)
        finally:
            session.end_all()


main(*sys.argv[1:])
