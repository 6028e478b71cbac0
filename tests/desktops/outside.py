"""Ends of the program from outside: signals, and a display that goes away."""

import os
import signal
from concurrent.futures import ThreadPoolExecutor

from desktop import Desktop, Failure, wait_until
from program import MAIN, Program


def files_of(program):
    """An empty list is not saved."""
    return [file for file in ("Lumidex.Cfg", "Lumidex.Lst") if os.path.exists(os.path.join(program.folder, file))]


def keeps_area(desktop):
    """Whether the next start knows how large the picture area was."""
    return os.path.exists(os.path.join(desktop.home, ".cache", "Lumidex", "window.ini"))


def tried(executable, act, arguments=()):
    """The files that are there after the program was ended by `act`, and whether the picture area is kept."""
    with Desktop("openbox") as desktop:
        program = Program(desktop, executable, *arguments)
        program.leave_tip()
        program.give_keyboard(MAIN)
        act(desktop, program)
        wait_until(lambda: not program.is_running(), what="the program to end")
        return files_of(program), keeps_area(desktop)


def ends_from_outside(executable, short):
    """What is wrong; `short` tries the three that differ most."""
    def signalled(number):
        return lambda desktop, program: os.kill(program.process.pid, number)

    def without_display(desktop, program):
        desktop.processes[0].kill()

    picture = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "gallery", "lighthouse.jpg")
    cases = (
        ("SIGTERM", signalled(signal.SIGTERM), (), True, False),
        ("SIGHUP", signalled(signal.SIGHUP), (), True, False),
        ("SIGTERM with a picture on the command line", signalled(signal.SIGTERM), (picture,), False, True),
        ("the loss of the display", without_display, (), True, False),
        ("the loss of the display with a picture on the command line", without_display, (picture,), False, False))

    if short:
        cases = (cases[0], cases[2], cases[4])

    def faults(case):
        what, act, arguments, saved, kept = case
        try:
            files, has_area = tried(executable, act, arguments)
            return ([] if bool(files) == saved else [f"{what}: saved are {files}"]) + (
                [] if has_area == kept else [f"{what}: the picture area is kept: {has_area}"])
        except Failure as failure:
            return [f"{what}: {failure}"]

    # They spend their time waiting, each on a desktop of its own.
    with ThreadPoolExecutor(len(cases)) as pool:
        return [fault for found in pool.map(faults, cases) for fault in found]
