#!/usr/bin/python3
"""Runs the program through its main path on virtual desktops and looks at every window: see --help."""

import argparse
import itertools
import os
import pathlib
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

from bus_walk import BusWalk
from desktop import Desktop, MANAGERS, NoServer, installed
from monitors import on_two_monitors
from outside import ends_from_outside
from program import Program, picture_folder
from walk import Walk
from wayland import WaylandDesktop

HERE = os.path.dirname(os.path.abspath(__file__))
GALLERY = pathlib.Path(HERE, "..", "..", "gallery").resolve()
SKIPPED = 77
FONTS = {"dejavu": ("DejaVu Sans", 9), "wide": ("DejaVu Sans", 11)}


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program", help="the executable")
    parser.add_argument("--short", action="store_true", help="openbox, scale 1, one font, few cycles: what ./test runs")
    parser.add_argument("--managers", default=",".join(MANAGERS), help="of " + ", ".join(MANAGERS))
    parser.add_argument("--screens", default="1280x960")
    parser.add_argument("--scales", default="1,2")
    parser.add_argument("--themes", default="light,dark")
    parser.add_argument("--fonts", default=",".join(FONTS))
    parser.add_argument("--cycles", type=int, default=10, help="of maximising, minimising, moving, resizing")
    parser.add_argument("--shots", default="screenshots/desktops", help="folder for the pictures")
    parser.add_argument("--accept", action="store_true", help="take what the windows tell assistive programs as right")
    chosen = parser.parse_args()
    if chosen.short:
        chosen.managers, chosen.screens, chosen.scales = "openbox", "1280x960", "1"
        chosen.themes, chosen.fonts, chosen.cycles = "light", "dejavu", 1
    return chosen


def compare(descriptions, accept):
    """What the windows tell assistive programs, against what was taken as right before."""
    wrong = []
    folder = os.path.join(HERE, "described")
    os.makedirs(folder, exist_ok=True)
    for label, text in descriptions.items():
        file = os.path.join(folder, label + ".txt")
        if accept:
            with open(file, "w") as out:
                out.write(text)
            continue
        expected = open(file).read() if os.path.exists(file) else ""
        if text != expected:
            for line, (old, new) in enumerate(itertools.zip_longest(expected.splitlines(), text.splitlines()), 1):
                if old != new:
                    wrong.append(f"described/{label}.txt:{line}: is {new!r}, was {old!r}; if that is meant: --accept")
                    break
    return wrong


def contact_sheet(shots, manager, columns):
    """All pictures of one manager's windows small on one, a row a window, a column a desktop."""
    numbers = [str(number) for number, _ in columns]
    pictures = {tuple(file[:-4].split("-", 1)) for file in os.listdir(shots) if file[0].isdigit()}
    labels = sorted({label for number, label in pictures if number in numbers})
    tiles = []
    for label in labels:
        for number, title in columns:
            there = (str(number), label) in pictures
            tiles += ["-label", f"{label}: {title}",
                      # Made small as it is read: all of them at their size are too much for the tool.
                      os.path.join(shots, f"{number}-{label}.png[300x225]") if there else "xc:white[300x1]"]
    subprocess.run(["montage", "-depth", "8", "-pointsize", "10", *tiles, "-tile", f"{len(columns)}x", "-geometry", "300x225>+5+5",
                    os.path.join(shots, f"sheet-{manager}.png")], check=False)


def walked(chosen, manager, screen, scale, theme, font, number):
    """What is wrong on one desktop. The screen is that of a monitor with so many more pixels."""
    pixels = tuple(round(side * float(scale)) for side in screen)
    on_wayland = manager == "weston"
    with (WaylandDesktop if on_wayland else Desktop)(manager, pixels, float(scale), theme, FONTS[font]) as desktop:
        program = Program(desktop, chosen.program, folder=picture_folder(desktop, GALLERY))
        walk = (BusWalk if on_wayland else Walk)(desktop, program, chosen.shots, str(number))
        if on_wayland:
            walk.all()
        else:
            walk.all(chosen.cycles, not chosen.short)
        wrong = walk.wrong
        if (manager, scale, theme, font) == ("openbox", "1", "light", "dejavu"):
            wrong += compare(walk.descriptions, chosen.accept)
        return wrong


def desktops(chosen):
    sizes = [tuple(int(side) for side in size.split("x")) for size in chosen.screens.split(",")]
    return enumerate(itertools.product(chosen.managers.split(","), sizes, chosen.scales.split(","),
                                       chosen.themes.split(","), chosen.fonts.split(",")), 1)


def tell(title, wrong):
    print(f"{title}: " + ("well" if not wrong else f"{len(wrong)} faults"))
    for text in wrong:
        print("  " + text)
    sys.stdout.flush()
    return bool(wrong)


def tried(title, work):
    """Whether it could be tried, and whether anything was wrong."""
    try:
        return True, tell(title, work())
    except NoServer as reason:
        print(f"{title}: not tried, {reason}")
        return False, False


def main():
    chosen = arguments()
    os.makedirs(chosen.shots, exist_ok=True)
    columns, failed = {}, 0
    with ThreadPoolExecutor(1) as pool:
        outside = pool.submit(ends_from_outside, chosen.program, chosen.short)
        for number, run in desktops(chosen):
            manager, screen, scale, theme, font = run
            title = f"{manager} {screen[0]}x{screen[1]} scale {scale} {theme} {font}"
            if not installed(manager):
                print(f"{title}: not tried, {manager} is not installed")
                continue
            was_tried, is_wrong = tried(title, lambda: walked(chosen, *run, number))
            failed += is_wrong
            if was_tried:
                columns.setdefault(manager, []).append((number, title))
        failed += tried("ends from outside", outside.result)[1]
    if not chosen.short:
        # The third one does not see a monitor that has no output of its own.
        for manager in columns.keys() & {"openbox", "metacity"}:
            failed += tried(f"{manager} on two monitors",
                            lambda: on_two_monitors(chosen.program, GALLERY, manager))[1]
        for manager, of_it in columns.items():
            contact_sheet(chosen.shots, manager, of_it)
    print(f"{sum(map(len, columns.values()))} desktops, {failed} failed")
    return 1 if failed else 0 if columns else SKIPPED


if __name__ == "__main__":
    sys.exit(main())
