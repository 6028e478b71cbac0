#!/usr/bin/python3
"""Runs the program through its main path on virtual desktops and looks at every window: see --help."""

import argparse
import itertools
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

from desktop import Desktop, MANAGERS, installed
from outside import ends_from_outside
from program import Program
from walk import PAGES, Walk, picture_folder

HERE = os.path.dirname(os.path.abspath(__file__))
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


def contact_sheet(shots, columns):
    """All pictures small on one, a row a window, a column a desktop."""
    labels = sorted({file.split("-", 1)[1][:-4] for file in os.listdir(shots) if "-" in file and file[0].isdigit()})
    tiles = []
    for label in labels:
        for number, title in columns:
            file = os.path.join(shots, f"{number}-{label}.png")
            tiles += ["-label", f"{label}: {title}", file if os.path.exists(file) else "xc:white[420x1]"]
    subprocess.run(["montage", "-pointsize", "11", *tiles, "-tile", f"{len(columns)}x", "-geometry", "420x320>+6+6",
                    os.path.join(shots, "sheet.png")], check=False)


def walked(chosen, manager, screen, scale, theme, font, number):
    """What is wrong on one desktop."""
    gallery = os.path.join(HERE, "..", "..", "gallery")
    with Desktop(manager, screen, float(scale), theme, FONTS[font]) as desktop:
        program = Program(desktop, chosen.program, folder=picture_folder(desktop, gallery))
        walk = Walk(desktop, program, chosen.shots, str(number), PAGES[:1] if chosen.short else PAGES)
        walk.all(chosen.cycles)
        wrong = walk.wrong
        if (manager, scale, theme, font) == ("openbox", "1", "light", "dejavu"):
            wrong += compare(walk.descriptions, chosen.accept)
        return wrong


def tell(title, wrong):
    print(f"{title}: " + ("well" if not wrong else f"{len(wrong)} faults"))
    for text in wrong:
        print("  " + text)
    sys.stdout.flush()
    return bool(wrong)


def main():
    chosen = arguments()
    os.makedirs(chosen.shots, exist_ok=True)
    sizes = [tuple(int(side) for side in size.split("x")) for size in chosen.screens.split(",")]
    runs = itertools.product(chosen.managers.split(","), sizes, chosen.scales.split(","), chosen.themes.split(","),
                             chosen.fonts.split(","))
    columns, failed = [], 0
    with ThreadPoolExecutor(1) as pool:
        outside = pool.submit(ends_from_outside, chosen.program, chosen.short)
        for number, run in enumerate(runs, 1):
            manager, screen, scale, theme, font = run
            title = f"{manager} {screen[0]}x{screen[1]} scale {scale} {theme} {font}"
            if not installed(manager):
                print(f"{title}: not tried, {manager} is not installed")
                continue
            columns.append((number, title))
            failed += tell(title, walked(chosen, *run, number))
        failed += tell("ends from outside", outside.result())
    if not chosen.short:
        contact_sheet(chosen.shots, columns)
    print(f"{len(columns)} desktops, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
