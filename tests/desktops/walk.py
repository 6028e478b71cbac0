"""The main path through the program, by keys and mouse, with a look at every window on the way."""

import os

import checks
from desktop import came, wait_until
from inspection import Inspection
from program import DIRECTORY, MAIN, PREFERENCES, TIP
from tour import tour

BATCH = "Convert File Type"
PAGES = ["types", "background", "jpeg", "toolbar", "associations", "icons"]


def many_files(folder, picture, directories=60, names=600):
    """A tree that a search is busy with for a while, with a picture in each directory."""
    os.makedirs(folder)
    other = os.path.join(folder, "0.text")
    open(other, "w").close()
    for directory in range(directories):
        below = os.path.join(folder, str(directory))
        os.mkdir(below)
        os.link(picture, os.path.join(below, os.path.basename(picture)))
        for name in range(names):
            os.link(other, os.path.join(below, f"{name}.text"))


class Walk(Inspection):
    def is_centred(self, window, before, label):
        off = checks.off_centre(window.outer(), before.outer(), self.desktop.work_area())
        self.check(off <= 5 * self.desktop.scale, f"{label}: stands {off:g} pixels beside the middle")

    def to_directories(self, main):
        self.program.keys_in(MAIN, "ctrl+d")
        tree = self.look_at(DIRECTORY, "directory")
        self.is_centred(self.program.window(DIRECTORY), main, "directory")
        files = checks.find(tree, "list", "Filename")

        def facts():
            now = self.program.tree(DIRECTORY)
            return [node["name"] for node, _ in checks.nodes(now) if node["role"] == "label"]

        before = facts()
        self.program.click(*checks.centre(files["children"][1]))
        wait_until(lambda: facts() != before, what="the facts on the file")
        self.look_at(DIRECTORY, "preview", describe=False)
        self.program.keys_in(DIRECTORY, "alt+o")
        self.program.wait_until_gone(DIRECTORY)
        wait_until(self.has_finds, what="the finds of the search")

    def show_pictures(self, main):
        self.program.keys_in(MAIN, "alt+a")
        wait_until(self.picture_name, what="the first picture")
        tree = self.look_at(MAIN, "listing", describe=False)
        picture = checks.centre(checks.find(tree, "image", "."))
        self.steps(lambda: self.program.keys_in(MAIN, "ctrl+n"), "Ctrl+N")
        self.steps(lambda: self.program.click(*picture, button=5), "the wheel")
        self.steps(lambda: (self.program.click(*picture), self.program.keys_in(MAIN, "Right")), "a key on the picture")
        rows = checks.find(tree, "list", "Display List")["children"]
        self.steps(lambda: self.program.click(*checks.centre(rows[1])), "a click in the list")
        self.check(main.is_on_screen(), "the main window has gone")

    def glimpse_at_what_goes_by_itself(self):
        """The windows that tell how far a search and a batch have come."""
        folder = self.program.folder
        many_files(os.path.join(folder, "many"), os.path.join(folder, "parrot.png"))
        self.program.keys_in(MAIN, "ctrl+d")
        self.look_at(DIRECTORY, "directory-again", describe=False)
        self.program.keys_in(DIRECTORY, "alt+s")
        self.glimpse(lambda: self.program.keys("alt+o"), "^Lumidex$", "search")
        wait_until(self.has_finds, what="the finds of the search")
        self.program.keys_in(MAIN, "alt+a")
        self.program.press("menu item", "Batch Convert")
        # The first time, the keyboard chose a type by being on it.
        self.program.press("radio button", "BMP")
        self.program.give_keyboard(BATCH)
        self.glimpse(lambda: self.program.keys("alt+c"), "^Form1$", "batch-progress")

    def through_preferences(self, main, pages):
        self.program.give_keyboard(MAIN)
        tree = self.program.tree(MAIN)
        self.program.click(*checks.centre(checks.find(tree, "push button", "Display Program Properties")))
        dialog = self.program.window(PREFERENCES)
        self.settled(dialog.geometry)
        self.is_centred(dialog, main, "preferences")
        for page in pages:
            # The pages behind the one in front are told of as well: once is enough.
            tree = self.look_at(PREFERENCES, f"preferences-{page}", describe=page == PAGES[0])
            button = checks.find(tree, "push button", "^OK$")
            self.check(checks.holds(tree["place"], button["place"]), f"preferences-{page}: OK is out of sight")
            self.program.keys_in(PREFERENCES, "ctrl+Next")
        self.program.keys_in(PREFERENCES, "alt+o")
        self.program.wait_until_gone(PREFERENCES)

    def in_the_managers_hands(self, main, cycles):
        def state():
            return main.geometry(), main.is_maximised(), main.is_minimised(), main.is_on_screen()

        def cycle(what, there, back):
            begin = self.settled(state)
            for _ in range(cycles):
                there()
                wait_until(lambda: state() != begin, what=f"what follows on '{what}'")
                gone = self.settled(state)
                back()
                if not came(lambda: state() == begin, 20) or self.settled(state) != begin:
                    self.fault(f"{what}: from {begin} by {gone} to {state()}")
                    return

        # A manager counts from the frame or from the content, as the window asks for: from here on as it does. To the
        # content, where that stands now: a frame would be put beyond the screen's edge, from which some managers fetch
        # it back with the next change.
        left, top = main.geometry()[:2]
        main.place(left, top, -1, -1)
        cycle("maximise and restore", main.maximise, main.restore)
        cycle("minimise and call back", main.minimise, main.activate)
        if self.desktop.screen[0] / self.desktop.scale >= 1200:
            cycle("move", lambda: main.place(left + 30, top + 20, -1, -1), lambda: main.place(left, top, -1, -1))
            width, height = main.geometry()[2:]
            cycle("resize", lambda: main.place(-1, -1, width - 20, height - 20),
                  lambda: main.place(-1, -1, width, height))
        main.maximise()
        wait_until(main.is_maximised, what="the window to be maximised")
        self.look_at(MAIN, "maximised", describe=False)
        main.minimise()
        wait_until(main.is_minimised, what="the window to be minimised")
        main.activate()
        wait_until(lambda: main.is_on_screen() and main.is_maximised(), what="the window to come back maximised")
        main.restore()
        wait_until(lambda: not main.is_maximised(), what="the window to be restored")

    def walk(self, cycles, whole):
        """The first page of the preferences and no tour of the other windows, unless it is the whole walk."""
        main = self.program.main()
        self.look_at(TIP, "tip")
        self.is_centred(self.program.window(TIP), main, "tip")
        self.program.leave_tip()
        self.look_at(MAIN, "main")
        self.to_directories(main)
        self.show_pictures(main)
        self.through_preferences(main, PAGES if whole else PAGES[:1])
        if whole:
            tour(self)
            self.glimpse_at_what_goes_by_itself()
        self.in_the_managers_hands(main, cycles)
        main.close()
        self.has_left()
