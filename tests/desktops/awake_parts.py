"""The screen that a slide show keeps on, with the desktop's services played here."""

import os
import signal

from bus import ScreenKeeper
from desktop import HERE, check, wait_until
from program import lone_program

PICTURE = os.path.abspath(os.path.join(HERE, "..", "..", "gallery", "lighthouse.jpg"))


def toggled(desktop, program, main, keeper, on):
    """Starts or stops the slide show by its menu, which is there once the picture is."""
    def press():
        program.focus(main)
        program.keys("alt+s")
        program.keys("t")
        try:
            return wait_until(lambda: bool(keeper.holders) == on, 5)
        except Exception:
            program.keys("Escape", "Escape")
            return False

    wait_until(press, 60, "the screen to be " + ("kept on" if on else "given back"))


def kept_and_given_back(desktop, world, portal):
    with ScreenKeeper(desktop.bus_address, portal) as keeper:
        program = lone_program(desktop, world, PICTURE)
        main = program.main()
        toggled(desktop, program, main, keeper, True)
        check(len(keeper.holders) == 1, f"it is held {len(keeper.holders)} times")
        toggled(desktop, program, main, keeper, False)
        toggled(desktop, program, main, keeper, True)
        main.close()
        wait_until(lambda: not program.is_running(), 20, "the program to end")
        wait_until(lambda: not keeper.holders, 20, "the screen to be given back at the exit")
        program = lone_program(desktop, world, PICTURE)
        main = program.main()
        toggled(desktop, program, main, keeper, True)
        os.kill(program.process.pid, signal.SIGKILL)
        wait_until(lambda: not keeper.holders, 20, "the screen to be given back after a crash")


def the_screen_savers_service_keeps_the_screen_on_until_stop_exit_or_crash(desktop, world):
    kept_and_given_back(desktop, world, portal=False)


def the_portal_keeps_the_screen_on_until_stop_exit_or_crash(desktop, world):
    kept_and_given_back(desktop, world, portal=True)


def a_service_that_never_answers_holds_neither_the_show_nor_the_end(desktop, world):
    with ScreenKeeper(desktop.bus_address, answers=False) as keeper:
        program = lone_program(desktop, world, PICTURE)
        main = program.main()

        def start():
            program.focus(main)
            program.keys("alt+s")
            program.keys("t")
            return keeper.asked.wait(5)

        wait_until(start, 60, "the service to be asked")
        program.closes_in_time(main)


CASES = [the_screen_savers_service_keeps_the_screen_on_until_stop_exit_or_crash,
         the_portal_keeps_the_screen_on_until_stop_exit_or_crash,
         a_service_that_never_answers_holds_neither_the_show_nor_the_end]
