"""A desktop of our own on a virtual screen: an X server with a window manager, a session bus with the bus of
assistive programs, and a home folder that says which font and which colours the desktop has."""

import os
import shutil
import signal
import subprocess
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))

MANAGERS = {
    "openbox": ["openbox"],
    "xfwm4": ["xfwm4", "--compositor=off"],
    "metacity": ["metacity", "--no-composite"],
    "weston": ["weston"],
}

COLOURS = {
    "light": {
        "Window": ((239, 240, 241), (35, 38, 41)),
        "View": ((252, 252, 252), (35, 38, 41)),
        "Button": ((239, 240, 241), (35, 38, 41)),
        "Selection": ((61, 174, 233), (252, 252, 252)),
        "Tooltip": ((247, 247, 247), (35, 38, 41)),
    },
    "dark": {
        "Window": ((42, 46, 50), (252, 252, 252)),
        "View": ((27, 30, 32), (252, 252, 252)),
        "Button": ((49, 54, 59), (252, 252, 252)),
        "Selection": ((61, 174, 233), (252, 252, 252)),
        "Tooltip": ((49, 54, 59), (252, 252, 252)),
    },
}


def installed(manager):
    return shutil.which(MANAGERS[manager][0]) is not None


class Failure(Exception):
    """What a run found wrong, in words for a person."""


class NoServer(Exception):
    """There can be no virtual screen on this machine."""


def check(holds, text):
    if not holds:
        raise Failure(text)


# On a busy machine everything takes its time; one that idles never waits so long.
PATIENCE = 60.0


def came(holds, seconds=PATIENCE):
    """The first true value of `holds`, or the last false one when none comes in time."""
    end = time.monotonic() + seconds
    while True:
        value = holds()
        if value or time.monotonic() > end:
            return value
        time.sleep(0.05)


def wait_until(holds, seconds=PATIENCE, what="something"):
    """The first true value of `holds`; a failure when none comes in time."""
    value = came(holds, seconds)
    if not value:
        raise Failure(f"waited {seconds:g} s in vain for {what}")
    return value


def write_settings(home, font, theme):
    """The desktop's font, as family and points, and colours, in the form that the toolkit reads."""
    family, points = font
    config = os.path.join(home, ".config")
    os.makedirs(config, exist_ok=True)
    lines = ["[General]", f"font={family},{points},-1,5,50,0,0,0,0,0", f"menuFont={family},{points},-1,5,50,0,0,0,0,0",
             f"toolBarFont={family},{points},-1,5,50,0,0,0,0,0", "[KDE]", "widgetStyle=Fusion"]
    for part, (ground, text) in COLOURS[theme].items():
        lines += [f"[Colors:{part}]", "BackgroundNormal=%d,%d,%d" % ground, "ForegroundNormal=%d,%d,%d" % text,
                  "BackgroundAlternate=%d,%d,%d" % ground]
    with open(os.path.join(config, "kdeglobals"), "w") as file:
        file.write("\n".join(lines) + "\n")


class Desktop:
    """Use as a context; `environment` is what a program on this desktop is to be started with."""

    # Whether a program can find out where its windows, or those of others, stand.
    tells_places = True

    def __init__(self, manager, screen=(1280, 960), scale=1.0, theme="light", font=("DejaVu Sans", 9)):
        self.manager, self.screen, self.scale, self.theme, self.font = manager, screen, scale, theme, font
        self.processes = []
        self.home = tempfile.mkdtemp(prefix="lumidex-desktop-")
        runtime = os.path.join(self.home, "run")
        os.mkdir(runtime, 0o700)
        write_settings(self.home, font, theme)
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": self.home, "XDG_RUNTIME_DIR": runtime, "LANG": "C.UTF-8",
            "XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5", "QT_QPA_PLATFORM": "xcb",
            "QT_SCALE_FACTOR": f"{scale:g}", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }
        for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "FONTCONFIG_FILE"):
            if name in os.environ:
                self.environment[name] = os.environ[name]

    def __enter__(self):
        try:
            self._start_server()
            self._start_bus()
            self._start_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            end(process)
        shutil.rmtree(self.home, ignore_errors=True)

    def start(self, command, **more):
        """Starts a program that ends with this desktop at the latest."""
        process = subprocess.Popen(command, env=self.environment, start_new_session=True, **more)
        self.processes.append(process)
        return process

    def run(self, *command):
        """Runs a command to its end and answers what it wrote."""
        done = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              timeout=30, check=False)
        return done.stdout.decode(errors="replace")

    def _start_server(self):
        read, write = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write), "-screen", "0", "%dx%dx24" % self.screen, "-noreset",
                    "-nolisten", "tcp"], pass_fds=(write,), stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as told:
            number = told.readline().strip()
        if not number:
            raise NoServer("no virtual screen can be started")
        self.environment["DISPLAY"] = ":" + number

    def _start_bus(self):
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE,
                         stderr=subprocess.DEVNULL)
        self.bus_address = bus.stdout.readline().decode().strip()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus_address

    def _start_manager(self):
        if self.manager == "none":
            return
        self.start(MANAGERS[self.manager], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: "window id #" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                   what=f"{self.manager} to manage windows")

    def work_area(self):
        """Left, top, width, height in device pixels; the whole screen when the manager does not tell."""
        text = self.run("xprop", "-root", "-notype", "_NET_WORKAREA")
        if "=" not in text:
            return (0, 0) + tuple(self.screen)
        numbers = [int(number) for number in text.split("=")[1].split(",")[:4]]
        return tuple(numbers)

    def screenshot(self, file):
        self.run("import", "-window", "root", file)


def end(process):
    """Ends a process that this script has started, with what it has started itself."""
    for number, seconds in ((signal.SIGTERM, 3), (signal.SIGKILL, 3)):
        if process.poll() is not None:
            break
        try:
            os.killpg(process.pid, number)
        except ProcessLookupError:
            break
        try:
            process.wait(seconds)
        except subprocess.TimeoutExpired:
            continue
    if process.stdout:
        process.stdout.close()
