"""What assistive programs are told: prints the tree of a program's windows from the accessibility bus of the desktop
that this script is started on, as JSON. Usage: accessible.py PROCESS-ID"""

import json
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

STATES = ("active", "checked", "editable", "enabled", "focusable", "focused", "modal", "selected", "showing", "visible")


def described(node, depth=0):
    states = node.get_state_set()
    place = node.get_extents(Atspi.CoordType.SCREEN)
    return {
        "role": node.get_role_name(),
        "name": node.get_name() or "",
        "description": node.get_description() or "",
        "states": [name for name in STATES if states.contains(getattr(Atspi.StateType, name.upper()))],
        "place": [place.x, place.y, place.width, place.height],
        # Lists of a thousand rows say nothing that their first rows do not.
        "children": [described(child, depth + 1)
                     for child in (node.get_child_at_index(i) for i in range(min(node.get_child_count(), 60)))
                     if child is not None] if depth < 12 else [],
    }


def main(process):
    for _ in range(100):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(i)
            if program is not None and program.get_process_id() == process:
                json.dump(described(program), sys.stdout)
                return 0
        time.sleep(0.1)
    print("the program is not on the accessibility bus", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main(int(sys.argv[1])))
