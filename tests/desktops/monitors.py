"""Two monitors side by side: what a window brings up stands in the middle of it, and on the window's own monitor."""

import checks
from desktop import Desktop, Failure, came, wait_until
from program import MAIN, Program, picture_folder
from tour import STOPS

LEFT, RIGHT = (0, 0, 1280, 960), (1280, 0, 1280, 960)


class TwoMonitors(Desktop):
    def __init__(self, manager):
        super().__init__(manager, (RIGHT[0] + RIGHT[2], RIGHT[3]))

    def _start_manager(self):
        # Managers look at the monitors when they start.
        for name, output, (left, top, width, height) in (("left", "screen", LEFT), ("right", "none", RIGHT)):
            self.run("xrandr", "--setmonitor", name, f"{width}/340x{height}/255+{left}+{top}", output)
        if "Monitors: 2" not in self.run("xrandr", "--listmonitors"):
            raise Failure("the virtual screen can't be split into two monitors")
        super()._start_manager()


def middle(window):
    left, _, width, _ = window.outer()
    return left + width / 2


def move(main, left, monitor):
    """Managers let a window reach over both monitors or not; one takes it over the edge in two moves only."""
    def is_there():
        main.place(left, 60, -1, -1)
        return monitor[0] <= middle(main) < monitor[0] + monitor[2]

    wait_until(is_there, what="the window to come to the other monitor")


def looked_at(program, main, monitor):
    wrong = []
    for stop in STOPS:
        if stop.label not in ("about", "statistics", "slides", "interval"):
            continue
        program.press(*stop.opening)
        window = program.window(stop.title)
        if stop.label == "slides":
            if not came(lambda: window.outer() == monitor, 20):
                wrong.append(f"the show of {main.outer()} covers {window.outer()}, not {monitor}")
        # The toolkit places its own boxes without knowing of frames.
        elif not came(lambda: checks.holds(monitor, window.outer())
                      and checks.off_centre(window.outer(), main.outer(), monitor)
                      <= (50 if stop.label == "interval" else 5), 20):
            wrong.append(f"{stop.label} of {main.outer()} stands at {window.outer()}")
        program.press(*stop.closing)
        program.wait_until_gone(stop.title)
    return wrong


def on_two_monitors(executable, gallery, manager):
    """What is wrong, for a window on either monitor and for one that reaches over both."""
    try:
        with TwoMonitors(manager) as desktop:
            picture = sorted(gallery.glob("*.jpg"))[0]
            program = Program(desktop, executable, str(picture), folder=picture_folder(desktop, gallery))
            program.leave_tip()
            program.give_keyboard(MAIN)
            main = program.main()
            wrong = []
            wanted = {LEFT: (100, 500), RIGHT: (1400, 1100)}
            for monitor, places in wanted.items():
                for left in places:
                    move(main, left, monitor)
                    wrong += looked_at(program, main, monitor)
            main.close()
            wait_until(lambda: not program.is_running(), what="the program to end")
            return wrong
    except Failure as failure:
        return [str(failure)]
