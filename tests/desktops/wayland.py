"""A Wayland desktop that nobody sees."""

import glob
import os
import shutil
import subprocess

from desktop import Desktop, NoServer, came


class WaylandDesktop(Desktop):
    # Nobody is told where on the screen a window stands.
    tells_places = False

    def _start_server(self):
        socket = "lumidex-wayland"
        # The compositor has no keyboard, without which the toolkit's own input method ends the program.
        self.environment.update(QT_QPA_PLATFORM="wayland", WAYLAND_DISPLAY=socket, QT_IM_MODULE="compose")
        with open(os.path.join(self.home, "weston.log"), "wb") as log:
            # Screenshots are taken with --debug only.
            server = self.start(["weston", "--backend=headless-backend.so", "--use-pixman", "--no-config", "--debug",
                                 "--width=%d" % self.screen[0], "--height=%d" % self.screen[1], "--idle-time=0",
                                 "--socket=" + socket], stdout=log, stderr=subprocess.STDOUT)
        path = os.path.join(self.environment["XDG_RUNTIME_DIR"], socket)
        came(lambda: os.path.exists(path) or server.poll() is not None)
        if not os.path.exists(path):
            raise NoServer("no Wayland compositor can be started")

    def _start_manager(self):
        # The compositor is it.
        pass

    def screenshot(self, file):
        folder = os.path.join(self.home, "screenshots")
        os.makedirs(folder, exist_ok=True)
        subprocess.run(["weston-screenshooter"], cwd=folder, env=self.environment, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, timeout=30, check=False)
        for taken in glob.glob(os.path.join(folder, "*.png")):
            shutil.move(taken, file)
