#!/usr/bin/python3
"""What a screen reader finds in the running program: every window, control and menu entry, with its
role, name and description. Ends with 1 if one of them has no name.

Needs python3-gi and gir1.2-atspi-2.0, a session bus, and a program that was started with
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 on it.
"""

import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PROGRAM = "zol-injection"
# Separators and the toolkit's own inner parts: nobody works them.
NAMELESS = {"separator", "scroll bar"}


def program():
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(i)
        if application and application.get_name() == PROGRAM:
            return application
    sys.exit(f"no {PROGRAM} on this bus")


def walk(node, depth, nameless):
    role, name = node.get_role_name(), (node.get_name() or "").replace("\n", " ")
    text = (node.get_description() or "").replace("\n", " ")
    states = node.get_state_set()
    shown = states.contains(Atspi.StateType.SHOWING)
    print("  " * depth + f"{role}: {name!r}" + (f" -- {text}" if text else "") + ("" if shown else " (hidden)"))
    children = [node.get_child_at_index(i) for i in range(node.get_child_count())]
    # A plain container of named children needs no name.
    holds_others = role in ("filler", "menu bar") and children
    parent = node.get_parent()
    inside_a_field = parent is not None and parent.get_role_name() in ("text", "combo box")
    if not name and role not in NAMELESS and not holds_others and not inside_a_field:
        nameless.append(role)
    for child in children:
        if child:
            walk(child, depth + 1, nameless)


def main():
    nameless = []
    walk(program(), 0, nameless)
    print(f"{len(nameless)} without a name" + (": " + ", ".join(nameless) if nameless else ""))
    return 1 if nameless else 0


sys.exit(main())
