"""Starts the program twice in one folder: the second copy ends at once without output, and the first still
runs. Then the same with a folder in place of the lock file."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

PATIENCE_S = 120  # for a busy machine; otherwise nothing takes a second


def place(program, folder):
    """Copies the program into a new application folder."""
    here = pathlib.Path(folder) / program.name
    (here.parent / "ports").mkdir()
    (here.parent / "ports" / "com1").symlink_to("no port")  # no real adapter
    try:
        os.link(program, here)
    except OSError:
        shutil.copy(program, here)
    return here


def holds_a_lock(process):
    notes = pathlib.Path(f"/proc/{process.pid}/fdinfo")
    return any("FLOCK" in note.read_text() for note in notes.iterdir() if note.exists())


def main(program):
    return start_twice(program, False) or start_twice(program, True)


def start_twice(program, without_lock_file):
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    with tempfile.TemporaryDirectory() as folder:
        here = place(pathlib.Path(program), folder)
        if without_lock_file:
            (here.parent / ".running").mkdir()
        first = subprocess.Popen([here], env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            give_up = time.monotonic() + PATIENCE_S
            while not holds_a_lock(first):
                if first.poll() is not None or time.monotonic() > give_up:
                    return "the first copy does not run"
                time.sleep(0.05)
            before = sorted(os.listdir(folder))
            try:
                second = subprocess.run([here], env=environment, capture_output=True, timeout=PATIENCE_S)
            except subprocess.TimeoutExpired:
                return "the second copy still runs"
            if second.returncode != 0 or second.stdout or second.stderr:
                return f"the second copy ends with {second.returncode} and prints {second.stdout + second.stderr}"
            if first.poll() is not None:
                return "the first copy ended with the second"
            if sorted(os.listdir(folder)) != before:
                return "the second copy has changed the folder"
            return None
        finally:
            first.kill()
            first.wait()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
