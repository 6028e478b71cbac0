"""Looks at windows: takes their pictures, and gathers all that is wrong with them."""

import contextlib
import os
import shutil
import signal
import threading
import time

import checks
from desktop import PATIENCE, Failure, wait_until
from program import MAIN


@contextlib.contextmanager
def slowed(process):
    """The process works a tenth of the time only."""
    over = threading.Event()

    def hold():
        while not over.is_set():
            os.kill(process, signal.SIGSTOP)
            over.wait(0.045)
            os.kill(process, signal.SIGCONT)
            over.wait(0.005)

    holding = threading.Thread(target=hold)
    holding.start()
    try:
        yield
    finally:
        over.set()
        holding.join()


class Inspection:
    """`shots` is where the pictures go, `name` what theirs begin with. Everything that is wrong is gathered in
    `wrong`, so that one run tells all; what windows tell assistive programs in `descriptions`."""

    def __init__(self, desktop, program, shots, name):
        self.desktop, self.program, self.shots, self.name = desktop, program, shots, name
        self.wrong = []
        self.descriptions = {}

    def fault(self, text):
        self.wrong.append(text)

    def check(self, holds, text):
        if not holds:
            self.fault(text)

    def settled(self, look):
        """The answer of `look` once it has stayed the same for a while."""
        end = time.monotonic() + PATIENCE
        value, since = look(), time.monotonic()
        while time.monotonic() - since < 0.4:
            if time.monotonic() > end:
                raise Failure("nothing comes to rest")
            time.sleep(0.1)
            new = look()
            if new != value:
                value, since = new, time.monotonic()
        return value

    def look_at(self, title, label, describe=True):
        """Takes a picture of a window, checks all that can be seen of it, and answers what assistive programs see."""
        tree = self.settled(lambda: self.program.tree(title))
        file = os.path.join(self.shots, f"{self.name}-{label}.png")
        if self.desktop.tells_places:
            window = self.program.window(title)
            window.screenshot(file)
            area = self.desktop.work_area()
            self.check(checks.holds(area, window.outer()),
                       f"{label}: the window at {window.outer()} leaves the work area {area}")
        else:
            self.desktop.screenshot(file)
        for text in checks.misplaced(tree):
            self.fault(f"{label}: {text}")
        if describe:
            self.descriptions[label] = checks.description(tree)
        return tree

    def glimpse(self, act, title, label):
        """A picture of a window that stands for a moment only: meanwhile the program is slowed."""
        with slowed(self.program.process.pid):
            act()
            window = self.program.window(title)
            file = os.path.join(self.shots, f"{self.name}-{label}.png")
            wait_until(lambda: self._has_content(window, file), 20, f"the content of the window '{title}'")
            # What it tells of the work comes a moment later.
            for _ in range(3):
                time.sleep(0.1)
                later = os.path.join(self.desktop.home, "later.png")
                if self._has_content(window, later):
                    shutil.move(later, file)
            outer, area = window.outer(), self.desktop.work_area()
            self.check(checks.holds(area, outer), f"{label}: the window at {outer} leaves the work area {area}")
        self.program.wait_until_gone(title)

    def _has_content(self, window, file):
        window.screenshot(file)
        return int(self.desktop.run("identify", "-format", "%k", file) or 0) > 8

    def picture_name(self):
        for node, _ in checks.nodes(self.program.tree(MAIN)):
            if node["role"] == "image":
                return node["name"]
        return ""

    def steps(self, act, what):
        before = self.picture_name()
        act()
        wait_until(lambda: self.picture_name() not in ("", before), what=f"another picture after {what}")

    def has_finds(self):
        """A search is over when it has given its finds."""
        tree = self.program.tree(MAIN)
        return (checks.find(tree, "list", "Selection List")["children"]
                and "enabled" in checks.find(tree, "push button", "^Add All$")["states"])

    def has_left(self):
        wait_until(lambda: not self.program.is_running(), what="the program to end")
        self.check(self.program.process.returncode == 0, f"it ended with {self.program.process.returncode}")
        for file in ("Lumidex.Cfg", "Lumidex.Lst"):
            self.check(os.path.exists(os.path.join(self.program.folder, file)), f"{file} was not saved")

    def all(self, *arguments):
        """Walks the whole way; what ends it early is a fault, too."""
        try:
            self.walk(*arguments)
        except Failure as failure:
            self.fault(str(failure))
            self.wrong += self.program.said()
            self.desktop.screenshot(os.path.join(self.shots, f"{self.name}-failure.png"))
