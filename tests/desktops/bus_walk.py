"""The main path where nothing but the accessibility bus reaches the program: under Wayland, which lets no program press
keys for another one."""

from desktop import wait_until
from inspection import Inspection
from program import DIRECTORY, MAIN, TIP
from tour import tour


class BusWalk(Inspection):
    def walk(self):
        press = self.program.press
        self.look_at(TIP, "tip")
        press("push button", "^OK$")
        wait_until(lambda: not self.program.shows(TIP), what="the tip to go")
        self.look_at(MAIN, "main")
        press("menu item", "^Select Image.*Directory$")
        self.look_at(DIRECTORY, "directory")
        press("push button", "^Ok$")
        wait_until(self.has_finds, what="the finds of the search")
        press("push button", "^Add All$")
        wait_until(self.picture_name, what="the first picture")
        self.look_at(MAIN, "listing", describe=False)
        self.steps(lambda: press("menu item", "^View Next Image$"), "the menu")
        self.steps(lambda: press("push button", "^Move To Next Picture$"), "the toolbar")
        tour(self)
        press("menu item", "^Exit Lumidex$")
        self.has_left()
