"""The main path through the program, by keys and mouse, with a look at every window on the way."""

import os
import shutil
import time

import checks
from desktop import Failure, wait_until
from program import MAIN, TIP

DIRECTORY = "Select File Directory"
PREFERENCES = "Preferences"
PAGES = ["types", "background", "jpeg", "toolbar", "associations", "icons"]


class Walk:
    """`shots` is where the pictures go, `name` what theirs begin with. Everything that is wrong is gathered in
    `wrong`, so that one run tells all."""

    def __init__(self, desktop, program, shots, name, pages=PAGES):
        self.pages = pages
        self.desktop, self.program, self.shots, self.name = desktop, program, shots, name
        self.wrong = []
        self.descriptions = {}

    def fault(self, text):
        self.wrong.append(text)

    def check(self, holds, text):
        if not holds:
            self.fault(text)

    def settled(self, look, seconds=10):
        """The answer of `look` once it has stayed the same for a while."""
        end = time.monotonic() + seconds
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
        """Takes a picture of a window and checks all that can be seen of it."""
        window = self.program.window(title)
        self.settled(window.geometry)
        window.screenshot(os.path.join(self.shots, f"{self.name}-{label}.png"))
        area = self.desktop.work_area()
        self.check(checks.holds(area, window.outer()),
                   f"{label}: the window at {window.outer()} leaves the work area {area}")
        tree = checks.window_of(checks.tree_of(self.desktop, self.program), title)
        for text in checks.misplaced(tree):
            self.fault(f"{label}: {text}")
        if describe:
            self.descriptions[label] = checks.description(tree)
        return window, tree

    def is_centred(self, window, before, label):
        left, top, width, height = window.outer()
        over = before.outer()
        area = self.desktop.work_area()
        wanted = []
        for start, length, begin, size, low, room in (
                (left, width, over[0], over[2], area[0], area[2]), (top, height, over[1], over[3], area[1], area[3])):
            ideal = begin + (size - length) / 2
            wanted.append(abs(start - max(low, min(ideal, low + room - length))))
        # The window manager's frame is known only when the window stands.
        self.check(max(wanted) <= 30 * self.desktop.scale, f"{label}: stands {wanted} pixels beside the middle")

    def to_directories(self, main):
        main.activate()
        self.program.keys("ctrl+d")
        dialog, tree = self.look_at(DIRECTORY, "directory")
        self.is_centred(dialog, main, "directory")
        files = checks.find(tree, "list", "Filename")

        def facts():
            now = checks.window_of(checks.tree_of(self.desktop, self.program), DIRECTORY)
            return [node["name"] for node, _ in checks.nodes(now) if node["role"] == "label"]

        before = facts()
        self.program.click(*checks.centre(files["children"][1]))
        wait_until(lambda: facts() != before, 20, "the facts on the file")
        self.look_at(DIRECTORY, "preview", describe=False)
        self.program.keys("alt+o")
        wait_until(lambda: not self.program.has_window(DIRECTORY), 20, "the dialog to go")

    def picture_name(self):
        tree = checks.window_of(checks.tree_of(self.desktop, self.program), MAIN)
        for node, _ in checks.nodes(tree):
            if node["role"] == "image":
                return node["name"]
        return ""

    def steps(self, act, what):
        before = self.picture_name()
        act()
        wait_until(lambda: self.picture_name() not in ("", before), 20, f"another picture after {what}")

    def show_pictures(self, main):
        self.program.keys("alt+a")
        wait_until(self.picture_name, 30, "the first picture")
        self.look_at(MAIN, "listing", describe=False)
        tree = checks.window_of(checks.tree_of(self.desktop, self.program), MAIN)
        picture = checks.centre(checks.find(tree, "image", "."))
        self.steps(lambda: self.program.keys("ctrl+n"), "Ctrl+N")
        self.steps(lambda: self.program.click(*picture, button=5), "the wheel")
        self.steps(lambda: (self.program.click(*picture), self.program.keys("Right")), "a key on the picture")
        rows = checks.find(tree, "list", "Display List")["children"]
        self.steps(lambda: self.program.click(*checks.centre(rows[1])), "a click in the list")
        self.check(main.is_on_screen(), "the main window has gone")

    def through_preferences(self, main):
        tree = checks.window_of(checks.tree_of(self.desktop, self.program), MAIN)
        self.program.click(*checks.centre(checks.find(tree, "push button", "Display Program Properties")))
        dialog = self.program.window(PREFERENCES)
        self.settled(dialog.geometry)
        self.is_centred(dialog, main, "preferences")
        for page in self.pages:
            # The pages behind the one in front are told of as well: once is enough.
            _, tree = self.look_at(PREFERENCES, f"preferences-{page}", describe=page == PAGES[0])
            button = checks.find(tree, "push button", "^OK$")
            self.check(checks.holds(tree["place"], button["place"]), f"preferences-{page}: OK is out of sight")
            self.program.keys("ctrl+Next")
        self.program.keys("alt+o")
        wait_until(lambda: not self.program.has_window(PREFERENCES), 20, "the preferences to go")

    def in_the_managers_hands(self, main, cycles):
        def state():
            return main.geometry(), main.is_maximised(), main.is_minimised(), main.is_on_screen()

        def cycle(what, there, back):
            begin = self.settled(state)
            for _ in range(cycles):
                there()
                gone = self.settled(state)
                back()
                end = self.settled(state)
                if end != begin:
                    self.fault(f"{what}: from {begin} by {gone} to {end}")
                    return

        # A manager counts from the frame or from the content, as the window asks for: from here on as it does.
        left, top = main.outer()[:2]
        main.place(left, top, -1, -1)
        cycle("maximise and restore", main.maximise, main.restore)
        cycle("minimise and call back", main.minimise, main.activate)
        if self.desktop.screen[0] / self.desktop.scale >= 1200:
            cycle("move", lambda: main.place(left + 30, top + 20, -1, -1), lambda: main.place(left, top, -1, -1))
            width, height = main.geometry()[2:]
            cycle("resize", lambda: main.place(-1, -1, width - 20, height - 20),
                  lambda: main.place(-1, -1, width, height))
        main.maximise()
        wait_until(main.is_maximised, 10, "the window to be maximised")
        self.look_at(MAIN, "maximised", describe=False)
        main.minimise()
        wait_until(main.is_minimised, 10, "the window to be minimised")
        main.activate()
        wait_until(lambda: main.is_on_screen() and main.is_maximised(), 10, "the window to come back maximised")
        main.restore()
        wait_until(lambda: not main.is_maximised(), 10, "the window to be restored")

    def leave(self, main):
        main.close()
        wait_until(lambda: not self.program.is_running(), 20, "the program to end")
        self.check(self.program.process.returncode == 0, f"it ended with {self.program.process.returncode}")
        for file in ("Lumidex.Cfg", "Lumidex.Lst"):
            self.check(os.path.exists(os.path.join(self.program.folder, file)), f"{file} was not saved")

    def all(self, cycles):
        try:
            main = self.program.main()
            tip, _ = self.look_at(TIP, "tip")
            self.is_centred(tip, main, "tip")
            self.program.leave_tip()
            self.look_at(MAIN, "main")
            self.to_directories(main)
            self.show_pictures(main)
            self.through_preferences(main)
            self.in_the_managers_hands(main, cycles)
            self.leave(main)
        except Failure as failure:
            self.fault(str(failure))
            self.desktop.screenshot(os.path.join(self.shots, f"{self.name}-failure.png"))


def picture_folder(desktop, gallery):
    """A few pictures beside the program, where the directory dialog begins."""
    folder = os.path.join(desktop.home, "program")
    os.makedirs(folder, exist_ok=True)
    for file in sorted(os.listdir(gallery)):
        if file.lower().endswith((".jpg", ".png", ".bmp", ".gif")):
            shutil.copy(os.path.join(gallery, file), folder)
    return folder
