"""The program on a desktop, as a person meets it: windows, keys, mouse. Keys are pressed only when the window that
they are for has the keyboard, however long that takes."""

import os
import re
import shutil
import subprocess
import time

import checks
from desktop import PATIENCE, Failure, end, wait_until

MAIN = "^Korvane Lumidex$"
TIP = "Tip of the Day"
DIRECTORY = "Select File Directory"
PREFERENCES = "Preferences"


class Window:
    def __init__(self, desktop, number):
        self.desktop, self.number = desktop, str(number)

    def _property(self, name):
        text = self.desktop.run("xprop", "-id", self.number, "-notype", name)
        return text.split("=", 1)[1].strip() if "=" in text else ""

    def exists(self):
        return "Absolute upper-left" in self.desktop.run("xwininfo", "-id", self.number)

    def geometry(self):
        """Of the content, in device pixels of the screen: left, top, width, height."""
        text = self.desktop.run("xwininfo", "-id", self.number)
        found = [re.search(pattern + r":\s+(-?\d+)", text)
                 for pattern in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        if None in found:
            raise Failure(f"window {self.number} is gone")
        return tuple(int(match.group(1)) for match in found)

    def frame(self):
        """What the window manager draws around: left, right, top, bottom."""
        text = self._property("_NET_FRAME_EXTENTS")
        return tuple(int(number) for number in text.split(",")) if text else (0, 0, 0, 0)

    def outer(self):
        left, top, width, height = self.geometry()
        frame = self.frame()
        return (left - frame[0], top - frame[2], width + frame[0] + frame[1], height + frame[2] + frame[3])

    def states(self):
        return {state.strip() for state in self._property("_NET_WM_STATE").split(",") if state.strip()}

    def is_maximised(self):
        return {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"} <= self.states()

    def is_minimised(self):
        return "Iconic" in self.desktop.run("xprop", "-id", self.number, "WM_STATE")

    def is_on_screen(self):
        return "Map State: IsViewable" in self.desktop.run("xwininfo", "-id", self.number)

    def manage(self, *arguments):
        self.desktop.run("wmctrl", "-i", "-r", self.number, *arguments)

    def maximise(self):
        self.manage("-b", "add,maximized_vert,maximized_horz")

    def restore(self):
        self.manage("-b", "remove,maximized_vert,maximized_horz")

    def minimise(self):
        self.desktop.run("xdotool", "windowminimize", self.number)

    def close(self):
        self.desktop.run("wmctrl", "-i", "-c", self.number)

    def is_active(self):
        return self.desktop.run("xdotool", "getactivewindow").strip() == self.number

    def activate(self):
        """Asked for again until it holds: a manager refuses while something else comes up."""
        asked = 0.0

        def is_there():
            nonlocal asked
            if self.is_active():
                return True
            if time.monotonic() - asked > 1:
                self.desktop.run("wmctrl", "-i", "-a", self.number)
                asked = time.monotonic()
            return False

        wait_until(is_there, what="a window to become the active one")

    def place(self, left, top, width, height):
        """-1 leaves a number as it is. Left and top are those of the frame."""
        self.manage("-e", f"0,{left},{top},{width},{height}")

    def screenshot(self, file):
        self.desktop.run("import", "-window", self.number, file)


class Program:
    """A copy of the program of its own: its settings and lists lie beside it."""

    def __init__(self, desktop, executable, *arguments, folder=None):
        """`folder` is where it is started."""
        self.desktop = desktop
        self.folder = os.path.join(desktop.home, "program")
        os.makedirs(self.folder, exist_ok=True)
        copy = os.path.join(self.folder, "lumidex")
        if not os.path.exists(copy):
            try:
                os.link(executable, copy)
            except OSError:
                shutil.copy(executable, copy)
        self.log = open(os.path.join(desktop.home, "program.log"), "wb")
        self.process = desktop.start([copy, *arguments], stdout=self.log, stderr=subprocess.STDOUT,
                                     cwd=folder or desktop.home)

    def focus(self, window):
        """Gives a window the keyboard, and waits until it has it."""
        def has_it():
            window.activate()
            return self.desktop.run("xdotool", "getwindowfocus").strip() == window.number
        wait_until(has_it, 20, "the window to have the keyboard")

    def main(self):
        return self.window(MAIN)

    def window(self, title):
        """The window on the screen whose title matches, once it is there."""
        return Window(self.desktop, wait_until(lambda: self._find(title), what=f"a window '{title}'"))

    def _check_running(self):
        if not self.is_running():
            raise Failure(f"the program has ended with {self.process.returncode}")

    def has_window(self, title):
        return bool(self._find(title))

    def _find(self, title):
        self._check_running()
        found = self.desktop.run("xdotool", "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name",
                                 title).split()
        return found[-1] if found else None

    def leave_tip(self):
        """Waits for the tip of the day and closes it with the keyboard."""
        self.keys_in(TIP, "Escape")
        self.wait_until_gone(TIP)

    def wait_until_gone(self, title):
        wait_until(lambda: not self.has_window(title), what=f"the window '{title}' to go")

    def tree(self, title):
        """The window as assistive programs see it, once it is there."""
        return wait_until(lambda: self._windows(title), what=f"assistive programs to be told of a window '{title}'")[0]

    def _windows(self, title, depth=12):
        self._check_running()
        return checks.windows_of(checks.tree_of(self.desktop, self.process.pid, depth), title)

    def shows(self, title):
        """As assistive programs are told."""
        return bool(self._windows(title, depth=1))

    def has_keyboard(self, title):
        """As the program itself has noticed."""
        return any("active" in window["states"] for window in self._windows(title, depth=1))

    def give_keyboard(self, title):
        window = self.window(title)
        end = time.monotonic() + PATIENCE
        while True:
            window.activate()
            if self.has_keyboard(title) and window.is_active():
                return
            if time.monotonic() > end:
                raise Failure(f"the window '{title}' never has the keyboard")

    def keys_in(self, title, *keys):
        """Presses keys in a window, once it has the keyboard."""
        self.give_keyboard(title)
        self.keys(*keys)

    def keys(self, *keys):
        self.desktop.run("xdotool", "key", "--clearmodifiers", "--delay", "30", *keys)

    def press(self, role, name):
        """What an assistive program does for a press, wherever the keyboard is; waits until it can be done."""
        wait_until(lambda: checks.act(self.desktop, self.process.pid, "press", role, name),
                   what=f"a {role} '{name}'")

    def click(self, x, y, button=1, times=1):
        self.desktop.run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "80",
                         str(button))

    def said(self):
        """The last lines that it has written."""
        with open(self.log.name, errors="replace") as log:
            return log.read().splitlines()[-30:]

    def is_running(self):
        return self.process.poll() is None

    def closes_in_time(self, main):
        """Closes the main window and waits for the end of the program, for less than libraries wait for an answer."""
        main.maximise()
        wait_until(main.is_maximised, 10, "the window to be maximised")
        began = time.monotonic()
        main.close()
        wait_until(lambda: not self.is_running(), 15, "the program to end")
        print(f"    it ended after {time.monotonic() - began:.2f} s")

    def end(self):
        end(self.process)
        self.log.close()


def picture_folder(desktop, gallery):
    """A few pictures beside the program, where the directory dialog begins."""
    folder = os.path.join(desktop.home, "program")
    os.makedirs(folder, exist_ok=True)
    for file in sorted(os.listdir(gallery)):
        if file.lower().endswith((".jpg", ".png", ".bmp", ".gif")):
            shutil.copy(os.path.join(gallery, file), folder)
    return folder


def lone_program(desktop, world, *arguments):
    """The program that `world` names, without the tip of the day, so that it can be acted on at once."""
    folder = os.path.join(desktop.home, ".config", "Lumidex")
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, "settings.ini"), "w") as file:
        file.write("[Options]\nShow Tips at Startup=0\n")
    return Program(desktop, world.program, *arguments)


def started_program(desktop, world, *arguments):
    """The program when its start is over: the splash has gone, and the tip of the day was closed."""
    program = Program(desktop, world.program, *arguments)
    tip = program.window(TIP)
    tip.close()
    wait_until(lambda: not program.has_window(TIP), 20, "the tip to go")
    return program
