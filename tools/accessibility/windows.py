#!/usr/bin/python3
"""Opens each window of the program through its accessibility interface, and counts in each
the controls, the visible ones, and those without a name or a description. Ends with 1 if a control has
no name, or a window could not be opened.

    windows.py BUILD_FOLDER OUTPUT_FOLDER [LANGUAGE]

Writes the tree of each window to a text file in the output folder. ./all starts this script with a
separate bus and display.
"""

import os
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

sys.dont_write_bytecode = True

import tree
from tree import ROOT

# The windows to open: title in the table, a control of the window with its section, the controls to
# press in turn to open it, and the control that closes it.
CONNECTED = [
    ("Form1: calibration", "Form1.Slider_ktar", [], None),
    ("Form1: a menu open", "Form1.mnu_Porta_Seriale", ["Form1.mnu_Impostazioni"], None),
    ("Form1: fuel and tank", "Form1.Combo_tank_level", ["Form1.Command_impostazioni"], None),
    ("Form3", "Form3.opt_norm", ["Form1.Command303"], "Form3.Command1"),
    ("Form1: lambda", "Form1.lambda_dir", ["Form1.Command_lambda"], None),
    ("Form1: faults", "Form1.Command10", ["Form1.Command_diagnosi"], None),
    ("Form2", "Form2.Label6", ["Form1.barra1"], "Form2.cmd_exit"),
    ("acquisizione", "acquisizione.Label_max", ["Form1.Command_engine", "Form1.Command5"],
     "acquisizione.Command_chiudi"),
]
SILENT = [("Centralina_Attiva", "Centralina_Attiva.Command_test", [], "Centralina_Attiva.Command_cancel")]
# Entries of the menu bar have no description to find them by, so each has its path of numbers.
MENU_WAYS = {"Form1.mnu_Impostazioni": [0], "Form1.mnu_Porta_Seriale": [0, 0, 0], "Form1.barra1": [2],
             "Form1.mnu_Manual": [6, 0, 0]}
# The toolkit gives these no description; menu entries show theirs as a tip.
ENTRIES = {"menu item", "popup menu", "list", "list item", "frame"}
# Printed so that the list of windows is complete.
NEVER_OPENED = "Form_power: nothing in the program opens it"


def texts(language):
    """{window.control: description} from the file of the tips."""
    found, section = {}, ""
    for line in (ROOT / "language" / f"tips_{language}.ini").read_text(encoding="utf-8").splitlines():
        if heading := re.fullmatch(r"\[(\w+)\]", line):
            section = heading[1]
        elif " = " in line:
            names, said = line.split(" = ", 1)
            for name in names.split(","):
                found[f"{section}.{name.strip()}"] = said.split(" | ")[-1]
    return found


class Session:
    """The program in a separate application folder, with the simulated unit at its port."""

    def __init__(self, build, out, language, silent):
        self.texts = texts(language)
        self.unit = subprocess.Popen(
            [build / "simulator" / "control-unit", "--link", out / "app" / "ports" / "com1", "--warm",
             "--firmware", "2.7.71", "--exit-on-eof"], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, text=True)
        if silent:
            self.unit.stdin.write("silence on\n")
            self.unit.stdin.flush()
        self.program = subprocess.Popen([out / "app" / "zol-injection"],
                                        env={**os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})

    def end(self):
        for process in (self.program, self.unit):
            process.terminate()
            process.wait()

    def windows(self):
        application = tree.program()
        if not application:
            return []
        application.clear_cache()
        return tree.children_of(application)

    def find(self, control):
        """The window and the visible control with this name; None if there is none."""
        if control in MENU_WAYS:
            return self.find_in_menus(control)
        said = self.texts[control]
        for window in self.windows():
            for node, _ in tree.whole_tree(window):
                if tree.words_of(node)[1].startswith(said) and tree.shown(node):
                    return window, node
        return None

    def find_in_menus(self, control):
        for window in self.windows():
            for node, depth in tree.whole_tree(window):
                if depth > 1 or node.get_role_name() != "menu bar":
                    continue
                for step in MENU_WAYS[control]:
                    node = node.get_child_at_index(step)
                return window, node
        return None

    def wait_for(self, control, most_s=30):
        end = time.monotonic() + most_s
        while time.monotonic() < end and self.program.poll() is None:
            if found := self.find(control):
                return found
            time.sleep(0.1)
        return None

    def wait_for_title(self, window, most_s=30):
        """Waits until the unit has been read, when the main window gets its title."""
        end = time.monotonic() + most_s
        while not window.get_name() and time.monotonic() < end:
            time.sleep(0.2)
            window.clear_cache()

    def wait_for_window(self, title, most_s=10):
        end = time.monotonic() + most_s
        while time.monotonic() < end:
            for window in self.windows():
                if window.get_name() == title:
                    return window
            time.sleep(0.2)
        return None

    def press(self, control):
        """Presses the control once it is enabled: a window that waits for another one is disabled."""
        end = time.monotonic() + 30
        while time.monotonic() < end and self.program.poll() is None:
            found = self.find(control)
            if found and found[1].get_state_set().contains(tree.Atspi.StateType.ENABLED):
                return found[1].do_action(0)
            time.sleep(0.2)
        return False


class Report:
    def __init__(self, out):
        self.out, self.wrong = out, 0
        print(f"{'window':24}{'parts':>7}{'visible':>9}{'no name':>9}{'no text':>9}")

    def add(self, title, window):
        # List entries change while the program fills the list.
        for _ in range(5):
            try:
                return self.count(title, list(tree.whole_tree(window)))
            except tree.GLib.Error:
                time.sleep(0.5)
        return self.missed(title)

    def count(self, title, nodes):
        parts = [node for node, _ in nodes if tree.needs_a_name(node)]
        lacking = [tree.line_of(node, 0) for node in tree.nameless(parts)]
        silent = [node for node in parts if node.get_role_name() not in ENTRIES and not node.get_description()]
        on_view = sum(map(tree.shown, parts))
        file = self.out / (re.sub(r"\W+", "-", title).strip("-") + ".txt")
        file.write_text("\n".join(tree.line_of(*pair) for pair in nodes) + "\n", encoding="utf-8")
        print(f"{title:24}{len(parts):7}{on_view:9}{len(lacking):9}{len(silent):9}", flush=True)
        for line in lacking:
            print(f"  no name: {line}")
        self.wrong += len(lacking)

    def missed(self, title):
        print(f"{title}: could not be opened", flush=True)
        self.wrong += 1


def walk(session, report, windows):
    for title, control, way, leave in windows:
        opened = all(session.press(step) for step in way)
        found = opened and session.wait_for(control)
        if found:
            session.wait_for_title(found[0])
        report.add(title, found[0]) if found else report.missed(title)
        if leave:
            session.press(leave)


def folder(build, out, language):
    """A new application folder for this run."""
    app = out / "app"
    shutil.rmtree(out, ignore_errors=True)
    (app / "ports").mkdir(parents=True)
    (app / "log").mkdir()
    for part in ("language", "manual"):
        shutil.copytree(ROOT / part, app / part)
    (app / "setting.ini").write_text(f"[General]\nLANGUAGE={language}\n")
    shutil.copy(build / "app" / "zol-injection", app)


def title_of_manual(language):
    contents = (ROOT / "manual" / language / "contents.txt").read_text(encoding="utf-8")
    return next(line.split("\t")[1] for line in contents.splitlines() if line.startswith("title\t"))


def connected(session, report, language):
    walk(session, report, [("frmSplash", "frmSplash.ProgressBar1", [], None)] + CONNECTED)
    session.press("Form1.mnu_Manual")
    manual = session.wait_for_window(title_of_manual(language))
    report.add("the manual", manual) if manual else report.missed("the manual")


def main(build, out, language="uk"):
    folder(build, out, language)
    report = Report(out)
    for silent in (False, True):
        session = Session(build, out, language, silent)
        try:
            walk(session, report, SILENT) if silent else connected(session, report, language)
        finally:
            session.end()
    print(NEVER_OPENED)
    return 1 if report.wrong else 0


if __name__ == "__main__":
    sys.exit(main(*map(Path, sys.argv[1:3]), *sys.argv[3:]))
