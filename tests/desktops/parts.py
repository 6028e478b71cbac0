#!/usr/bin/python3
"""Tries the program against single real parts of a desktop: notification areas, clipboard, the screen's services, web pages.
Each case has a virtual desktop of its own."""

import argparse
import os
import sys

import awake_parts
import browser_parts
import clipboard_parts
import tray_parts
from desktop import Desktop, Failure

CASES = tray_parts.CASES + clipboard_parts.CASES + awake_parts.CASES + browser_parts.CASES


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program", help="the executable")
    parser.add_argument("clipboard_manager", help="the clipboard manager of the tests")
    parser.add_argument("--browser", default="", help="the program for web pages; else the one beside the executable")
    parser.add_argument("--only", default="", help="cases whose name contains this")
    parser.add_argument("--shots", default="screenshots/desktops", help="folder for pictures")
    chosen = parser.parse_args()
    chosen.browser = chosen.browser or os.path.join(os.path.dirname(os.path.abspath(chosen.program)), "lumidex-browser")
    os.makedirs(chosen.shots, exist_ok=True)
    return chosen


def tried(case, world):
    """None when it went well, else why not; a reason to skip as a tuple."""
    with Desktop("openbox") as desktop:
        try:
            skipped = case(desktop, world)
            return (skipped,) if skipped else None
        except Failure as failure:
            desktop.screenshot(os.path.join(world.shots, f"failed-{case.__name__}.png"))
            return str(failure)


def main():
    world = arguments()
    passed = failed = skipped = 0
    for case in CASES:
        if world.only not in case.__name__:
            continue
        outcome = tried(case, world)
        if isinstance(outcome, tuple):
            skipped += 1
            print(f"skipped {case.__name__}: {outcome[0]}")
        elif outcome:
            failed += 1
            print(f"FAILED  {case.__name__}: {outcome}")
        else:
            passed += 1
            print(f"ok      {case.__name__}")
        sys.stdout.flush()
    print(f"{passed} passed, {failed} failed, {skipped} skipped")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
