"""What the program puts on the clipboard, read by others: while it runs, and after its end where a manager keeps it."""

import os
import subprocess
import time

from desktop import HERE, check, wait_until
from program import lone_program

GALLERY = os.path.join(HERE, "..", "..", "gallery")


def read(desktop, target, command=("xclip",)):
    """The bytes that another program is given."""
    try:
        done = subprocess.run([*command, "-selection", "clipboard", "-o", "-t", target], env=desktop.environment,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=30, check=False)
    except subprocess.TimeoutExpired:
        return b""
    return done.stdout if done.returncode == 0 else b""


def targets(desktop):
    return read(desktop, "TARGETS").decode().split()


def size_of(desktop, picture, kind):
    done = subprocess.run(["identify", "-format", "%wx%h", kind + ":-"], input=picture, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=False)
    return done.stdout.decode()


def copied(desktop, world, picture):
    """The program, with that picture on the clipboard."""
    program = lone_program(desktop, world, os.path.abspath(picture))
    main = program.main()

    def copy():
        program.focus(main)
        program.keys("ctrl+c")
        time.sleep(0.2)
        return "image/png" in targets(desktop)

    # The command is there once the picture is.
    wait_until(copy, 60, "the picture on the clipboard")
    return program, main


def closed(program, main):
    main.close()
    wait_until(lambda: not program.is_running(), 30, "the program to end")
    check(program.process.returncode == 0, f"it ended with {program.process.returncode}")


def manager(desktop, world, *arguments):
    process = desktop.start([world.clipboard_manager, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    check(process.stdout.readline() == b"ready\n", "the clipboard manager does not start")
    return process


def a_picture_is_read_while_the_program_runs_and_goes_with_it(desktop, world):
    program, main = copied(desktop, world, os.path.join(GALLERY, "lighthouse.jpg"))
    wanted = size_of(desktop, open(os.path.join(GALLERY, "lighthouse.jpg"), "rb").read(), "jpg")
    check(size_of(desktop, read(desktop, "image/png"), "png") == wanted, "the PNG is not the picture")
    check(size_of(desktop, read(desktop, "image/bmp"), "bmp") == wanted, "the BMP is not the picture")
    check("image/x-wmf" not in targets(desktop), "a photograph is offered as a drawing")
    closed(program, main)
    check(targets(desktop) == [], "something is on the clipboard that nobody has kept")


def a_drawing_is_read_as_its_own_file_while_the_program_runs(desktop, world):
    for name, kinds in (("sailboat.wmf", ("image/x-wmf", "image/wmf")), ("stars.emf", ("image/x-emf", "image/emf"))):
        file = os.path.join(GALLERY, name)
        program, main = copied(desktop, world, file)
        for kind in kinds:
            check(read(desktop, kind) == open(file, "rb").read(), f"{kind} is not the file of {name}")
        check(read(desktop, "image/png").startswith(b"\x89PNG"), f"{name} is not offered as pixels")
        closed(program, main)


def a_clipboard_manager_keeps_the_picture_after_the_programs_end(desktop, world):
    manager(desktop, world)
    file = os.path.join(GALLERY, "stars.emf")
    program, main = copied(desktop, world, file)
    before = read(desktop, "image/png")
    closed(program, main)
    check(read(desktop, "image/png") == before != b"", "the PNG was not kept")
    check(read(desktop, "image/bmp").startswith(b"BM"), "the BMP was not kept")
    check(read(desktop, "image/x-emf") == open(file, "rb").read(), "the drawing was not kept")


def a_clipboard_manager_keeps_a_large_picture_whole(desktop, world):
    folder = os.path.join(desktop.home, "kept")
    os.mkdir(folder)
    manager(desktop, world, folder)
    file = os.path.join(desktop.home, "large.png")
    # Noise does not become smaller: what is longer than a request to the server comes in pieces.
    desktop.run("convert", "-size", "3000x2000", "xc:gray", "+noise", "Random", "-quality", "10", file)
    program, main = copied(desktop, world, file)
    closed(program, main)
    for kind in ("png", "bmp"):
        check(os.path.exists(os.path.join(folder, "image-" + kind)), f"no {kind} was kept")
        with open(os.path.join(folder, "image-" + kind), "rb") as kept:
            whole = kept.read()
        check(len(whole) > 10000000, f"only {len(whole)} bytes of {kind} were kept")
        check(size_of(desktop, whole, kind) == "3000x2000", f"the large {kind} was not kept whole")


def a_clipboard_manager_that_never_answers_holds_neither_the_window_nor_the_end(desktop, world):
    manager(desktop, world, "--silent")
    program, main = copied(desktop, world, os.path.join(GALLERY, "lighthouse.jpg"))
    began = time.monotonic()
    main.close()
    wait_until(lambda: not main.is_on_screen(), 20, "the window to go")
    gone = time.monotonic()
    wait_until(lambda: not program.is_running(), 20, "the program to end")
    print(f"    the window went after {gone - began:.2f} s, the program after {time.monotonic() - began:.2f} s")


CASES = [a_picture_is_read_while_the_program_runs_and_goes_with_it, a_drawing_is_read_as_its_own_file_while_the_program_runs,
         a_clipboard_manager_keeps_the_picture_after_the_programs_end, a_clipboard_manager_keeps_a_large_picture_whole,
         a_clipboard_manager_that_never_answers_holds_neither_the_window_nor_the_end]
