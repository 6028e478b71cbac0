#!/usr/bin/python3
"""Does the program for web pages cost anything where nobody looks at pages? Starts the viewer in turn with lumidex-browser
beside it and without, on a screen of its own, and prints the median time from its start to its main window on the screen, its
resident memory two seconds later, and how many files of a web engine it has loaded. Usage: start_without_pages.py FOLDER
[RUNS], where FOLDER holds both programs. Needs Xvfb and xev; run it under `chrt -r 10` where others work meanwhile."""

import os
import re
import select
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

MAIN = "Korvane Lumidex"


def run(environment, *command):
    return subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout.decode()


def number_of(process, name):
    """A line of the process's state, in KiB."""
    with open(f"/proc/{process}/status") as file:
        return int(re.search(name + r":\s+(\d+) kB", file.read()).group(1))


def time_of_main_window(environment, events):
    """When the main window came onto the screen, by what the server tells of it."""
    told = b""
    while select.select([events], [], [], 20)[0]:
        now, told = time.monotonic(), told + os.read(events.fileno(), 65536)
        windows = re.findall(rb"MapNotify event[^\n]*\n[^\n]*window (0x[0-9a-f]+), override", told)
        if any(f'"{MAIN}"' in run(environment, "xwininfo", "-id", window.decode()) for window in windows):
            return now
    raise SystemExit("the main window does not come")


def started(environment, program):
    """Milliseconds to the main window, KiB of resident memory, loaded files of a web engine."""
    with subprocess.Popen(["stdbuf", "-oL", "xev", "-root", "-event", "substructure"], env=environment,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as events:
        # It has begun to listen.
        time.sleep(0.3)
        begin = time.monotonic()
        process = subprocess.Popen([program], env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            shown = (time_of_main_window(environment, events.stdout) - begin) * 1000
            time.sleep(2)
            memory = number_of(process.pid, "VmRSS")
            with open(f"/proc/{process.pid}/maps") as file:
                loaded = len(set(re.findall(r"/\S*WebEngine\S*", file.read())))
        finally:
            process.send_signal(signal.SIGTERM)
            process.wait()
            events.terminate()
    return shown, memory, loaded


def main():
    folder, runs = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 11
    home = tempfile.mkdtemp(prefix="lumidex-start-")
    read, write = os.pipe()
    environment = {"PATH": os.environ["PATH"], "HOME": home, "XDG_RUNTIME_DIR": home, "LANG": "C.UTF-8",
                   "QT_QPA_PLATFORM": "xcb", "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1920x1080x24", "-noreset",
                               "-nolisten", "tcp"], pass_fds=(write,), stderr=subprocess.DEVNULL)
    os.close(write)
    with os.fdopen(read) as number:
        environment["DISPLAY"] = ":" + number.readline().strip()
    try:
        programs = {}
        for what, files in (("with", ("lumidex", "lumidex-browser")), ("without", ("lumidex",))):
            os.mkdir(os.path.join(home, what))
            for file in files:
                shutil.copy(os.path.join(folder, file), os.path.join(home, what))
            programs[what] = os.path.join(home, what, "lumidex")
        results = {what: [] for what in programs}
        for turn in range(runs + 1):
            for what, program in programs.items():
                result = started(environment, program)
                # The first brings the files into memory.
                if turn > 0:
                    results[what].append(result)
        for what, each in results.items():
            print(f"{what:8} {statistics.median(r[0] for r in each):6.1f} ms to the main window, "
                  f"{statistics.median(r[1] for r in each) / 1024:5.1f} MiB resident, "
                  f"{max(r[2] for r in each)} files of a web engine")
        first, second = (statistics.median(r[0] for r in results[what]) for what in ("with", "without"))
        print(f"ratio of the times {first / second:.2f}, of the memory "
              f"{statistics.median(r[1] for r in results['with']) / statistics.median(r[1] for r in results['without']):.3f}")
    finally:
        server.terminate()
        server.wait()
        shutil.rmtree(home, ignore_errors=True)


if __name__ == "__main__":
    main()
