"""What a program can see of a window: that nothing stands outside of the work area, nothing is cut off, and nothing
covers another."""

import json
import os
import re
import subprocess

from desktop import PATIENCE, Failure, wait_until

# Controls that a person reads or acts on; the rest only holds them.
CONTENT = {"push button", "check box", "radio button", "label", "list", "combo box", "text", "entry", "slider",
           "page tab", "image", "tool bar", "status bar", "static", "spin button"}
# What stands in these may be larger than they are.
SCROLLING = {"list", "scroll pane", "viewport", "table", "menu", "popup menu"}


def asked(desktop, process, *arguments):
    """What accessible.py answers; nothing when it has failed."""
    script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "accessible.py")
    done = subprocess.run(["/usr/bin/python3", script, str(process), *arguments], env=desktop.environment,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False)
    return done.stdout.decode(errors="replace") if done.returncode == 0 else None


def act(desktop, process, *arguments):
    return asked(desktop, process, *arguments) is not None


def tree_of(desktop, process, depth):
    """The program's windows as assistive programs see them, so many levels of them."""
    text = wait_until(lambda: asked(desktop, process, "tree", str(depth)),
                      what="the program on the accessibility bus")
    tree = json.loads(text)
    # The toolkit tells logical pixels.
    scale_places(tree, desktop.scale)
    return tree


def scale_places(node, scale):
    node["place"] = [round(number * scale) for number in node["place"]]
    for child in node["children"]:
        scale_places(child, scale)


def windows_of(tree, title):
    return [window for window in tree["children"]
            if re.search(title, window["name"]) and "showing" in window["states"]]


def nodes(node, way=()):
    """All that shows below a node, with the nodes that it stands in."""
    for child in node["children"]:
        if "showing" not in child["states"]:
            continue
        yield child, way + (node,)
        yield from nodes(child, way + (node,))


def find(node, role, name):
    for child, _ in nodes(node):
        if child["role"] == role and re.search(name, child["name"]):
            return child
    raise Failure(f"there is no {role} '{name}' in '{node['name']}'")


def centre(node):
    left, top, width, height = node["place"]
    return left + width // 2, top + height // 2


def holds(outer, inner, slack=0):
    return (inner[0] >= outer[0] - slack and inner[1] >= outer[1] - slack
            and inner[0] + inner[2] <= outer[0] + outer[2] + slack
            and inner[1] + inner[3] <= outer[1] + outer[3] + slack)


def overlap(one, other):
    """In pixels, of the smaller side of what they share."""
    across = min(one[0] + one[2], other[0] + other[2]) - max(one[0], other[0])
    down = min(one[1] + one[3], other[1] + other[3]) - max(one[1], other[1])
    return min(across, down)


def off_centre(outer, over, area):
    """By how many pixels a window stands beside the middle of another one, across or down, as far as the area lets it
    stand there."""
    off = []
    for side in (0, 1):
        ideal = over[side] + (over[side + 2] - outer[side + 2]) / 2
        last = area[side] + area[side + 2] - outer[side + 2]
        off.append(abs(outer[side] - max(area[side], min(ideal, last))))
    return max(off)


def told(node):
    return f"{node['role']} '{node['name']}' at {node['place']}"


def scrolls(node):
    """What is too large for the screen is seen by scrolling."""
    return any(child["role"] == "scroll bar" or (child["role"] == "filler" and scrolls(child) and len(child["children"]) == 1)
               for child in node["children"] if "showing" in child["states"])


def misplaced(window):
    """Sentences on all that is cut off or covered in a window; scaled places are rounded, so a pixel is none."""
    wrong = []
    content = []
    for node, way in nodes(window):
        if node["role"] not in CONTENT or node["place"][2] <= 0 or node["place"][3] <= 0:
            continue
        if any(holder["role"] in SCROLLING or scrolls(holder) for holder in way):
            continue
        for holder in way:
            if not holds(holder["place"], node["place"], 1):
                wrong.append(f"{told(node)} is cut off by {told(holder)}")
                break
        # A picture without a name is an ornament, on which texts stand.
        if node["role"] != "image" or node["name"]:
            content.append((node, way))
    for at, (node, way) in enumerate(content):
        for other, other_way in content[at + 1:]:
            if any(node is holder for holder in other_way) or any(other is holder for holder in way):
                continue
            if overlap(node["place"], other["place"]) > 1:
                wrong.append(f"{told(node)} and {told(other)} cover each other")
    return wrong


def description(window):
    """The window in lines of text that are the same wherever and whenever it stands."""
    kept = ("checked", "editable", "enabled", "focusable", "modal", "selected")
    lines = []

    def add(node, depth):
        # The menus are the program's own lists of commands, which its other tests read.
        if node["role"] == "menu bar":
            return
        name = re.sub(r"lumidex-desktop-\w+", "#", node["name"])
        name = re.sub(r"\d\d?[:.]\d\d( [AP]M)?|\d+[ ./-]\w+[ ./-]\d+", "#", name).replace("\n", "\\n")
        states = " ".join(state for state in kept if state in node["states"])
        lines.append("  " * depth + f"{node['role']} '{name}' {states}".rstrip())
        for child in node["children"]:
            add(child, depth + 1)

    add(window, 0)
    return "\n".join(lines) + "\n"
