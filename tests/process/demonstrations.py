"""Demonstrations in one folder. A second one is rejected and does not affect the first. Unit and tool end
when their script is killed. A link made by the user is not changed."""

import contextlib
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE_S = 120  # for a busy machine; otherwise nothing takes a minute


class Folder:
    """An application folder and its demonstration script."""

    def __init__(self, script, build, place):
        self.command = [script, build, place]
        self.place = pathlib.Path(place)
        self.link = self.place / "ports" / "com1"

    @contextlib.contextmanager
    def demonstration(self):
        process = subprocess.Popen(
            self.command,
            env={**os.environ, "QT_QPA_PLATFORM": "offscreen"},
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.PIPE,
            text=True,
        )
        try:
            yield process
        finally:
            if process.poll() is None:
                process.terminate()
            process.stderr.close()
            process.wait(PATIENCE_S)
            self.until(lambda: not self.members(), "a process of the demonstration still runs")

    def members(self):
        """The processes that hold the folder's lock."""
        lock = self.place / ".demonstration"
        held = set()
        for descriptor in pathlib.Path("/proc").glob("[0-9]*/fd/*"):
            with contextlib.suppress(OSError):
                if os.path.samefile(descriptor, lock):
                    held.add(int(descriptor.parts[2]))
        return held

    def tool_runs(self):
        for process in self.members():
            with contextlib.suppress(OSError):
                if os.readlink(f"/proc/{process}/exe") == str(self.place / "zol-injection"):
                    return True
        return False

    def until(self, holds, otherwise):
        give_up = time.monotonic() + PATIENCE_S
        while not holds():
            assert time.monotonic() < give_up, otherwise
            time.sleep(0.1)


def rejects_a_second_one(folder):
    with folder.demonstration() as first:
        folder.until(folder.tool_runs, "the demonstration does not start")
        device = os.readlink(folder.link)
        second = subprocess.run(folder.command, capture_output=True, text=True, timeout=PATIENCE_S)
        assert second.returncode == 1, f"the second demonstration ends with {second.returncode}"
        assert "still running" in second.stderr, f"the second demonstration prints: {second.stderr}"
        assert os.readlink(folder.link) == device, "the second demonstration has changed the link"
        assert os.path.exists(device) and folder.tool_runs(), "the second has ended the first"
        assert first.poll() is None, "the second has ended the script of the first"


def ends_with_its_script(folder):
    with folder.demonstration() as killed:
        folder.until(folder.tool_runs, "the demonstration does not start")
        killed.send_signal(signal.SIGKILL)
        killed.wait()
        folder.until(lambda: not folder.members(), "unit or tool still run after the script")
        assert not folder.link.is_symlink(), "the unit has left its link behind"
    with folder.demonstration():
        folder.until(folder.tool_runs, "no demonstration starts where another was killed")


def keeps_a_link_to_an_adapter(folder):
    folder.link.parent.mkdir(exist_ok=True)
    folder.link.symlink_to("/dev/serial/by-id/an-adapter")
    with folder.demonstration() as refused:
        folder.until(lambda: refused.poll() is not None or folder.tool_runs(), "the demonstration neither starts nor ends")
        assert refused.poll() == 1, "the demonstration ignores the link"
        printed = refused.stderr.read()
        assert str(folder.link) in printed, f"the demonstration prints: {printed}"
    assert os.readlink(folder.link) == "/dev/serial/by-id/an-adapter", "the adapter's link is gone"


def main(script, build):
    with tempfile.TemporaryDirectory() as place:
        folder = Folder(script, build, place)
        for claim in (rejects_a_second_one, ends_with_its_script, keeps_a_link_to_an_adapter):
            try:
                claim(folder)
            except AssertionError as wrong:
                return f"{claim.__name__}: {wrong}"
    return None


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
