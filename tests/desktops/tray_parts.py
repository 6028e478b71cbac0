"""The icon in the notification area, over both protocols, as a person meets it."""

import os
import re
import signal
import subprocess
import sys
import time

from bus import NotificationArea
from desktop import HERE, Failure, check, wait_until
from program import Window, started_program


def icon_place(desktop):
    """The middle of the program's icon in the real notification area, once it stands there."""
    def stands():
        tree = desktop.run("xwininfo", "-root", "-tree")
        area = tree.find('("panel" "trayer")')
        found = area >= 0 and re.search(r'(0x[0-9a-f]+) "Lumidex": \("lumidex" "Lumidex"\)  \d\dx\d\d\+', tree[area:area + 600])
        window = found and Window(desktop, found.group(1))
        return window and window.is_on_screen() and window.geometry()

    left, top, width, height = wait_until(stands, 60, "the icon in the notification area")
    return left + width // 2, top + height // 2


class Menu:
    """Opens a menu by `press`, which may have to be done again, and chooses from it by the access key."""

    def __init__(self, desktop, program, press):
        self.desktop, self.program, self.press = desktop, program, press

    def _open(self):
        """The menu's window: of the program's, the one that no window manager looks after."""
        managed = self.desktop.run("xprop", "-root", "-notype", "_NET_CLIENT_LIST")
        for number in self.desktop.run("xdotool", "search", "--onlyvisible", "--class", "^lumidex$").split():
            told = self.desktop.run("xwininfo", "-id", number)
            if "Override Redirect State: yes" in told and hex(int(number)) not in managed:
                width = re.search(r"Width: (\d+)", told)
                if width and int(width.group(1)) > 60:
                    return number
        return None

    def open(self):
        for _ in range(4):
            # What a person needs from one press to the next; the manager's animations stand over the icon until then.
            time.sleep(0.5)
            self.press()
            try:
                return wait_until(self._open, 8)
            except Failure:
                continue
        raise Failure("no menu comes at the icon")

    def choose(self, key):
        try:
            self.open()
            self.program.keys(key)
            wait_until(lambda: not self._open(), 20, "the menu to close")
        except Failure as failure:
            raise Failure(f"{failure} (for the key {key})")


def trayer(desktop):
    return desktop.start(["trayer", "--edge", "bottom", "--widthtype", "request", "--SetDockType", "true"])


def is_managed(desktop, window):
    return hex(int(window.number)) in desktop.run("xprop", "-root", "-notype", "_NET_CLIENT_LIST")


def restored_to(size, program):
    """The main window is back on the screen in that size, width and height."""
    main = program.main()
    wait_until(lambda: not main.is_maximised(), 20, "the window to be restored")
    wait_until(lambda: main.geometry()[2:] == size, 20, f"the window to be {size} large again")


def through_the_icon(desktop, program, left, right, twice):
    """All that the icon is good for, whatever it stands in."""
    main = program.main()
    settings = os.path.join(program.folder, "Lumidex.Cfg")
    check(not os.path.exists(settings), "settings are there before they are saved")
    size = main.geometry()[2:]
    left.choose("s")
    wait_until(lambda: os.path.exists(settings), 20, "the left menu's Save List to save")
    right.choose("x")
    wait_until(main.is_maximised, 20, "the right menu's Maximize to maximise")
    right.choose("r")
    wait_until(lambda: not main.is_maximised(), 20, "the right menu's Restore to restore")
    # By the frame's button and by the menu.
    main.minimise()
    wait_until(lambda: not program.has_window("^Korvane Lumidex$"), 20, "the minimised window to hide")
    right.choose("r")
    main = program.main()
    right.choose("n")
    wait_until(lambda: not main.is_on_screen() and not is_managed(desktop, main), 20, "the minimised window to hide")
    twice()
    wait_until(program.main().is_maximised, 20, "the double click to maximise")
    right.choose("r")
    restored_to(size, program)
    # Maximised, minimised, and called back in both ways.
    right.choose("x")
    wait_until(program.main().is_maximised, 20, "the right menu's Maximize to maximise")
    right.choose("n")
    wait_until(lambda: not program.has_window("^Korvane Lumidex$"), 20, "the maximised window to hide")
    right.choose("r")
    restored_to(size, program)
    right.choose("n")
    wait_until(lambda: not program.has_window("^Korvane Lumidex$"), 20, "the restored window to hide")
    twice()
    wait_until(program.main().is_maximised, 20, "the second double click to maximise")
    # A modal window keeps the user from all others, not from the icon.
    right.choose("a")
    about = program.window("^About")
    left.choose("Escape")
    check(about.is_on_screen(), "the modal window has gone")
    right.choose("e")
    wait_until(lambda: not program.is_running(), 30, "the right menu's Exit to end the program")
    check(program.process.returncode == 0, f"it ended with {program.process.returncode}")


def xembed_icon_takes_left_right_and_double_clicks(desktop, world):
    trayer(desktop)
    program = started_program(desktop, world)
    place = icon_place(desktop)

    def click(button, times=1):
        program.click(*place, button=button, times=times)

    def double_click():
        for _ in range(5):
            click(1, 2)
            try:
                return wait_until(lambda: program.has_window("^Korvane Lumidex$"), 5)
            except Failure:
                # On a busy machine the two presses may have come too far apart.
                program.keys("Escape")
        raise Failure("the double click shows nothing")

    through_the_icon(desktop, program, Menu(desktop, program, lambda: click(1)), Menu(desktop, program, lambda: click(3)),
                     double_click)


def status_notifier_item_takes_activate_and_context_menu(desktop, world):
    with NotificationArea(desktop.bus_address) as area:
        program = started_program(desktop, world)
        wait_until(lambda: area.items, 60, "the item to be registered")
        check(area.property("Title") == "Lumidex", f"the item is called {area.property('Title')!r}")
        tip = area.property("ToolTip")
        check("Korvane Lumidex 2001" in str(tip), f"the tip is {tip!r}")

        def press_twice():
            for _ in range(5):
                area.press("Activate")
                area.press("Activate")
                try:
                    return wait_until(lambda: program.has_window("^Korvane Lumidex$"), 5)
                except Failure:
                    program.keys("Escape")
            raise Failure("two presses show nothing")

        through_the_icon(desktop, program, Menu(desktop, program, lambda: area.press("Activate")),
                         Menu(desktop, program, lambda: area.press("ContextMenu")), press_twice)
        wait_until(lambda: not area.items, 20, "the item to go with the program")


def where_the_desktop_draws_menus_both_are_one(desktop, world):
    desktop.environment["XDG_CURRENT_DESKTOP"] = "GNOME"
    with NotificationArea(desktop.bus_address) as area:
        program = started_program(desktop, world)
        main = program.main()
        wait_until(lambda: area.items, 60, "the item to be registered")
        entries = wait_until(area.menu, 20, "the menu's entries")
        captions = [caption.replace("_", "").replace("&", "") for caption in entries]
        for wanted in ("Load List", "Save List", "Previous Image", "Restore", "Minimize", "Exit", "About"):
            check(wanted in captions, f"{wanted!r} is not among {captions}")
        enabled = {caption.replace("_", ""): row[1].get("enabled", True) for caption, row in entries.items()}
        check(not enabled["Previous Image"], "stepping is enabled without pictures")
        check(not enabled["Restore"] and enabled["Maximize"], "the state that the window is in can be chosen")
        numbers = {caption.replace("_", ""): row[0] for caption, row in entries.items()}
        area.choose(numbers["Minimize"])
        wait_until(lambda: not main.is_on_screen() and not is_managed(desktop, main), 20, "the window to hide")
        area.choose(numbers["Maximize"])
        wait_until(lambda: program.main().is_maximised(), 20, "the window to come back")


def without_a_notification_area_a_minimised_window_stays_within_reach(desktop, world):
    program = started_program(desktop, world)
    main = program.main()
    main.minimise()
    wait_until(main.is_minimised, 20, "the window to be minimised")
    check(is_managed(desktop, main), "the window is out of reach")
    main.activate()
    wait_until(main.is_on_screen, 20, "the window to come back")


def the_icon_comes_when_the_notification_area_does(desktop, world):
    program = started_program(desktop, world)
    program.main()
    trayer(desktop)
    icon_place(desktop)


def a_notification_area_that_never_answers_holds_neither_the_window_nor_the_end(desktop, world):
    area = desktop.start([sys.executable, os.path.join(HERE, "bus.py"), desktop.bus_address], stdout=subprocess.PIPE)
    check(area.stdout.readline() == b"ready\n", "the notification area does not start")
    os.kill(area.pid, signal.SIGSTOP)
    program = started_program(desktop, world)
    main = program.main()
    program.closes_in_time(main)
    check(program.process.returncode == 0, f"it ended with {program.process.returncode}")


CASES = [xembed_icon_takes_left_right_and_double_clicks, status_notifier_item_takes_activate_and_context_menu,
         where_the_desktop_draws_menus_both_are_one, without_a_notification_area_a_minimised_window_stays_within_reach,
         the_icon_comes_when_the_notification_area_does,
         a_notification_area_that_never_answers_holds_neither_the_window_nor_the_end]
