"""The tool's processor share while it polls, against a serial terminal that shows the same bytes at the
same rate and an idle empty window. All three run at the same time on the present display, so that other
programs affect them equally. Argument: the build folder."""

import os
import pathlib
import pty
import selectors
import subprocess
import sys
import tempfile
import threading
import time
import tty

SECONDS = 60
FIRST_READ_S = 10

TERMINAL_SESSION = """[CuteCom]
session=bench

[sessions]
1\\BaudRate=9600
1\\DataBits=8
1\\Device={device}
1\\FlowControl=0
1\\OpenMode=3
1\\Parity=0
1\\StopBits=1
1\\name=bench
size=1
"""


class RawTerminal:
    """A pseudo-terminal whose slave is kept open, so that its device stays as its users come and go."""

    def __init__(self):
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        self.device = os.ttyname(self.slave)


def relay(unit, tool, terminal):
    """The tool's requests go to the unit; each answer goes to the tool, and as it is to the terminal."""
    waiting = selectors.DefaultSelector()
    for end in (unit, tool.master, terminal.master):
        waiting.register(end, selectors.EVENT_READ)
    while True:
        for key, _ in waiting.select():
            some = os.read(key.fd, 4096)
            if key.fd == unit:
                os.write(tool.master, some)
                os.write(terminal.master, some)
            elif key.fd == tool.master:
                os.write(unit, some)


def processor_s(process):
    """On the processor so far, of all its threads."""
    tasks = pathlib.Path(f"/proc/{process.pid}/task").glob("*/schedstat")
    return sum(int(task.read_text().split()[0]) for task in tasks) / 1e9


def has_open(process, device):
    return any(os.readlink(entry) == device for entry in pathlib.Path(f"/proc/{process.pid}/fd").iterdir())


def press(*words):
    subprocess.run(["xdotool", *words], check=True, stdout=subprocess.DEVNULL)


def open_terminal(process, device):
    """Presses its Open button. A message about modem lines opens, because a pseudo-terminal has none.
    An answer would close the port, so the box stays open while the bytes are received."""
    search = ["xdotool", "search", "--sync", "--onlyvisible", "--pid", str(process.pid)]
    window = subprocess.run(search, check=True, capture_output=True, text=True).stdout.split()[0]
    time.sleep(2)
    press("windowraise", window, "windowfocus", "--sync", window, "key", "alt+o")
    time.sleep(2)
    if not has_open(process, device):
        sys.exit("The terminal did not open its port; try again on a quiet machine.")


def start_unit(build, link):
    command = [build / "simulator" / "control-unit", "--link", link, "--warm", "--firmware", "0.2.71", "--exit-on-eof"]
    unit = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, text=True)
    while not link.exists():
        time.sleep(0.1)
    return unit, os.open(link, os.O_RDWR | os.O_NOCTTY)


def start_tool(build, folder, device):
    for part in ("ports", "log"):
        (folder / part).mkdir()
    for part in ("language", "manual", "zol-injection"):
        (folder / part).symlink_to(build / "app" / part)
    (folder / "ports" / "com1").symlink_to(device)
    (folder / "setting.ini").write_text("[General]\nLANGUAGE=uk\n")
    return subprocess.Popen([folder / "zol-injection"], stderr=subprocess.DEVNULL)


def start_terminal(folder, device):
    settings = folder / "CuteCom" / "CuteCom5.conf"
    settings.parent.mkdir()
    settings.write_text(TERMINAL_SESSION.format(device=device))
    environment = {**os.environ, "XDG_CONFIG_HOME": str(folder)}
    return subprocess.Popen(["cutecom", "-s", "bench"], env=environment, stderr=subprocess.DEVNULL)


def measure(unit, processes):
    """Seconds of processor time of each, while every live value keeps changing."""
    before = [processor_s(process) for process in processes]
    for second in range(SECONDS):
        unit.stdin.write(f"throttle {second % 5 * 10}\n")
        unit.stdin.flush()
        time.sleep(1)
    return [processor_s(process) - then for process, then in zip(processes, before)]


def row(what, figure, unit, asked_for):
    print(f"| {what:58} | {figure:10.3f} {unit:5} | {asked_for:18} |")


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    processes = []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        unit, unit_end = start_unit(build, folder / "unit")
        for_tool, for_terminal = RawTerminal(), RawTerminal()
        threading.Thread(target=relay, args=(unit_end, for_tool, for_terminal), daemon=True).start()
        try:
            processes.append(start_tool(build, folder, for_tool.device))
            time.sleep(FIRST_READ_S)  # it fills the screen then; the others stand before it
            processes.append(subprocess.Popen([build / "tests" / "bench" / "bench_start", "idle"]))
            processes.append(start_terminal(folder, for_terminal.device))
            open_terminal(processes[2], for_terminal.device)
            tool, idle, terminal = measure(unit, processes)
            if any(process.poll() is not None for process in processes) or not has_open(processes[2], for_terminal.device):
                sys.exit("One of the programs ended, or the terminal lost its port: nothing to compare.")
        finally:
            for process in [*processes, unit]:
                process.kill()
    row("processor share while polling, on a display", tool / SECONDS * 100, "%", "at most 1")
    row("the same, over a serial terminal showing the same bytes", tool / terminal, "x", "-")
    row("an idle empty Qt window's processor share", idle / SECONDS * 100, "%", "-")
    if idle > 0:  # mostly it sleeps all the time, and there is nothing to divide by
        row("processor share while polling, over the idle window's", tool / idle, "x", "-")


main()
