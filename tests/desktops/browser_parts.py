"""The window with web pages: a page that is typed into, and what is offered where pages can't be shown."""

import os
import shutil
import threading
import time
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

import checks
from desktop import check, wait_until
from program import lone_program

BROWSER = "^Korvane Lumidex 2001 - "
# Its title is what was typed.
PAGE = b"""<html><head><title>Ready</title></head><body style="margin:0">
<textarea style="width:100vw;height:100vh" oninput="document.title = this.value"></textarea></body></html>"""


class Pages:
    """A site of this machine. Use as a context."""

    def __enter__(self):
        class Handler(BaseHTTPRequestHandler):
            def do_GET(self):
                self.send_response(200)
                self.send_header("Content-Type", "text/html")
                self.end_headers()
                self.wfile.write(PAGE)

            def log_message(self, *_):
                pass

        self.server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.server.shutdown()
        self.server.server_close()

    @property
    def port(self):
        return self.server.server_address[1]


def opened(desktop, world, with_helper):
    """The program with its window of web pages open."""
    folder = os.path.join(desktop.home, "program")
    os.makedirs(folder, exist_ok=True)
    if with_helper:
        shutil.copy(world.browser, folder)
    program = lone_program(desktop, world)
    main = program.main()

    def press():
        program.focus(main)
        program.keys("alt+h")
        program.keys("k")
        try:
            return wait_until(lambda: program.has_window(BROWSER), 10)
        except Exception:
            program.keys("Escape", "Escape")
            return False

    wait_until(press, 60, "the window with web pages")
    return program


def title(desktop, window):
    return desktop.run("xdotool", "getwindowname", window.number).strip()


def a_page_in_the_window_takes_clicks_and_keys(desktop, world):
    if not os.path.exists(world.browser):
        return "lumidex-browser was not built"
    with Pages() as pages:
        desktop.environment["QTWEBENGINE_CHROMIUM_FLAGS"] = (
            f"--host-resolver-rules=\"MAP www.korvane.example 127.0.0.1:{pages.port}\"")
        # The tests may run as root, for whom the engine has no sandbox.
        desktop.environment["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        program = opened(desktop, world, with_helper=True)
        window = program.window(BROWSER)
        wait_until(lambda: title(desktop, window).endswith(" - Ready"), 120, "the page")
        left, top, width, height = window.geometry()

        def typed():
            # Beside the middle of the page, which fills most of the window.
            program.click(left + width // 2, top + height // 2)
            desktop.run("xdotool", "key", "ctrl+a")
            desktop.run("xdotool", "type", "--delay", "60", "Hello pages")
            try:
                return wait_until(lambda: title(desktop, window).endswith(" - Hello pages"), 8)
            except Exception:
                return False

        wait_until(typed, 60, "the page to take what is typed")
        desktop.screenshot(os.path.join(world.shots, "browser-typed.png"))
    return None


def without_the_helper_the_button_opens_the_desktops_browser(desktop, world):
    tools = os.path.join(desktop.home, "tools")
    asked = os.path.join(desktop.home, "asked")
    os.makedirs(tools)
    with open(os.path.join(tools, "xdg-open"), "w") as file:
        file.write(f"#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" > {asked}.part && mv {asked}.part {asked}\n")
    os.chmod(os.path.join(tools, "xdg-open"), 0o755)
    desktop.environment["PATH"] = tools + ":" + desktop.environment["PATH"]
    program = opened(desktop, world, with_helper=False)
    window = program.window(BROWSER)
    window.activate()
    time.sleep(0.3)
    tree = program.tree(BROWSER)
    checks.find(tree, "label", "lumidex-browser is not installed")
    desktop.screenshot(os.path.join(world.shots, "browser-missing.png"))
    program.click(*checks.centre(checks.find(tree, "push button", "Open in the Desktop's Browser")))
    wait_until(lambda: os.path.exists(asked), 20, "the desktop to be asked")
    with open(asked) as file:
        check(file.read() == "1\nhttp://www.korvane.example/\n", "the desktop was asked for something else")


def as_root_the_window_says_why_no_page_is_shown(desktop, world):
    if os.getuid() != 0 or not os.path.exists(world.browser):
        return "not run as root, or lumidex-browser was not built"
    program = opened(desktop, world, with_helper=True)
    window = program.window(BROWSER)

    def says():
        tree = program.tree(BROWSER)
        return any("administrator" in node["name"] for node, _ in checks.nodes(tree) if node["role"] == "label") and tree

    tree = wait_until(says, 30, "the window to say why")
    checks.find(tree, "push button", "Open in the Desktop's Browser")
    desktop.screenshot(os.path.join(world.shots, "browser-root.png"))
    check(window.is_on_screen(), "the window has gone")
    return None


CASES = [a_page_in_the_window_takes_clicks_and_keys, without_the_helper_the_button_opens_the_desktops_browser,
         as_root_the_window_says_why_no_page_is_shown]
