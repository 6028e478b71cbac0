"""What assistive programs are told, and what they can do: looks at the program of a process on the accessibility bus
of the desktop that this script is started on.

accessible.py PROCESS tree DEPTH          prints the tree of its windows as JSON, so many levels of it
accessible.py PROCESS press ROLE NAME     does what a press does on the first such node that can be seen and used
accessible.py PROCESS grab ROLE NAME      gives that node the keyboard

ROLE and NAME are patterns. The exit code is 1 when there is no such program or node."""

import json
import re
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

STATES = ("active", "checked", "editable", "enabled", "focusable", "focused", "modal", "selected", "sensitive",
          "showing", "visible")
# Lists of a thousand rows say nothing that their first rows do not.
MOST_CHILDREN = 60


def states_of(node):
    states = node.get_state_set()
    return [name for name in STATES if states.contains(getattr(Atspi.StateType, name.upper()))]


def children_of(node):
    found = (node.get_child_at_index(i) for i in range(min(node.get_child_count(), MOST_CHILDREN)))
    return [child for child in found if child is not None]


def described(node, depth):
    place = node.get_extents(Atspi.CoordType.SCREEN)
    return {
        "role": node.get_role_name(),
        "name": node.get_name() or "",
        "description": node.get_description() or "",
        "states": states_of(node),
        "place": [place.x, place.y, place.width, place.height],
        "children": [described(child, depth - 1) for child in children_of(node)] if depth > 0 else [],
    }


def program_of(process):
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(i)
        if program is not None and program.get_process_id() == process:
            return program
    return None


def found(node, role, name):
    """Entries of menus that are closed can be pressed as well, though they do not show."""
    for child in children_of(node):
        if re.fullmatch(role, child.get_role_name()) and re.search(name, child.get_name() or ""):
            states = states_of(child)
            if "enabled" in states and ("showing" in states or role == "menu item"):
                return child
        below = found(child, role, name)
        if below is not None:
            return below
    return None


def press(node):
    # Milliseconds, also while the program is new.
    Atspi.set_timeout(1000, 0)
    try:
        node.get_action_iface().do_action(0)
    except GLib.Error:
        # The answer comes when what was opened is closed again.
        pass
    return 0


def main(process, act, *arguments):
    program = program_of(process)
    if program is None:
        return 1
    if act == "tree":
        json.dump(described(program, int(arguments[0])), sys.stdout)
        return 0
    node = found(program, *arguments)
    if node is None:
        return 1
    return press(node) if act == "press" else 0 if node.get_component_iface().grab_focus() else 1


if __name__ == "__main__":
    try:
        sys.exit(main(int(sys.argv[1]), *sys.argv[2:]))
    except GLib.Error as error:
        # A window that goes while it is looked at.
        print(error, file=sys.stderr)
        sys.exit(1)
