#!/usr/bin/python3
"""Lists what a screen reader finds in the running program: each window, control and menu entry, with its
role, name and description. Ends with 1 if one of them has no name.

Needs python3-gi and gir1.2-atspi-2.0, a session bus, and a program that was started with
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 on it.
"""

import re
import sys
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
PROGRAM = "zol-injection"
# Separators and internal parts of the toolkit, which a user does not operate.
NAMELESS = {"separator", "scroll bar"}


def program():
    """The program on this bus, or None."""
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(i)
        if application and application.get_name() == PROGRAM:
            return application
    return None


def children_of(node):
    return [child for i in range(node.get_child_count()) if (child := node.get_child_at_index(i))]


def words_of(node):
    """Accessible name and description, each on one line."""
    return [(text or "").replace("\n", " ") for text in (node.get_name(), node.get_description())]


def shown(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def inner_names():
    """Names of the controls in the sources, which mean nothing to a user."""
    tips = (ROOT / "language" / "tips_uk.ini").read_text(encoding="utf-8").split("[captions]")[0]
    return {name.strip() for names in re.findall(r"^([^=\n\[]+) = ", tips, re.MULTILINE) for name in names.split(",")}


def needs_a_name(node):
    role, parent = node.get_role_name(), node.get_parent()
    # A container of named children needs no name. A field or a page, which the toolkit presents as a
    # label, has a name that covers its inner parts.
    holds_others = role in ("filler", "menu bar") and node.get_child_count() > 0
    inner_part = parent is not None and parent.get_role_name() in ("text", "combo box", "label")
    return role not in NAMELESS and not holds_others and not inner_part


def whole_tree(node, depth=0):
    """Each node with its depth, from the top. Nodes that disappear during the walk are left out."""
    yield node, depth
    for child in children_of(node):
        try:
            yield from whole_tree(child, depth + 1)
        except GLib.Error:
            pass


def line_of(node, depth):
    name, text = words_of(node)
    return ("  " * depth + f"{node.get_role_name()}: {name!r}" + (f" -- {text}" if text else "")
            + ("" if shown(node) else " (hidden)"))


def nameless(nodes):
    """The nodes without an accessible name, or with the name of the sources."""
    inner = inner_names()
    return [node for node in nodes if needs_a_name(node) and (not node.get_name() or node.get_name() in inner)]


def main():
    application = program() or sys.exit(f"Error: {PROGRAM} is not on this bus.")
    nodes = list(whole_tree(application))
    for node, depth in nodes:
        print(line_of(node, depth))
    lacking = [node.get_role_name() for node in nameless(node for node, _ in nodes)]
    print(f"{len(lacking)} without a name" + (": " + ", ".join(lacking) if lacking else ""))
    return 1 if lacking else 0


if __name__ == "__main__":
    sys.exit(main())
