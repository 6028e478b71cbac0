"""Parts of a desktop that programs speak to over the session bus, played by this process: a notification area, services
that keep the screen on. As a program of its own, with the bus's address, it is a notification area until it ends."""

import sys
import threading

from gi.repository import Gio, GLib

WATCHER = "org.kde.StatusNotifierWatcher"

WATCHER_XML = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
</interface></node>"""

SAVER_XML = """<node><interface name="org.freedesktop.ScreenSaver">
<method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="u" direction="out"/></method>
<method name="UnInhibit"><arg type="u" direction="in"/></method>
</interface></node>"""

PORTAL_XML = """<node><interface name="org.freedesktop.portal.Inhibit">
<method name="Inhibit"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="a{sv}" direction="in"/>
<arg type="o" direction="out"/></method>
</interface></node>"""

REQUEST_XML = """<node><interface name="org.freedesktop.portal.Request"><method name="Close"/></interface></node>"""


class Bus:
    """A connection of its own, served by a thread. Use as a context."""

    def __init__(self, address):
        self.context = GLib.MainContext()
        self.loop = GLib.MainLoop(self.context)
        self.address = address

    def __enter__(self):
        ready = threading.Event()

        def serve():
            self.context.push_thread_default()
            self.connection = Gio.DBusConnection.new_for_address_sync(
                self.address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
            self.set_up()
            ready.set()
            self.loop.run()
            self.context.pop_thread_default()

        self.thread = threading.Thread(target=serve, daemon=True)
        self.thread.start()
        if not ready.wait(20):
            raise RuntimeError("the bus does not answer")
        return self

    def __exit__(self, *_):
        self.loop.quit()
        self.thread.join()
        self.connection.close_sync(None)

    def set_up(self):
        """Runs on the thread, before anybody is served."""

    def own(self, name):
        # 4: an error instead of a place in a queue.
        self.connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                                  GLib.Variant("(su)", (name, 4)), None, 0, 5000, None)

    def export(self, path, xml, called, read=None):
        """`called(sender, method, arguments)` answers a variant, or None for nothing at all."""
        def on_call(_, sender, __, ___, method, arguments, invocation):
            answer = called(sender, method, arguments)
            if answer is not None:
                invocation.return_value(answer)

        interface = Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0]
        self.connection.register_object(path, interface, on_call, read and (lambda *at: read(at[4])), None)

    def ask(self, service, path, interface, method, arguments=None, milliseconds=10000):
        return self.connection.call_sync(service, path, interface, method, arguments, None, 0, milliseconds, None)

    def when_gone(self, service, act):
        """Calls `act` on the thread when nobody owns the name any more."""
        def changed(_, __, ___, ____, _____, arguments):
            if not arguments[2]:
                act()
        self.connection.signal_subscribe("org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
                                         "/org/freedesktop/DBus", service, 0, changed)


class NotificationArea(Bus):
    """Watcher and host of icons at once."""

    def __init__(self, address):
        super().__init__(address)
        self.items = []

    def set_up(self):
        def called(sender, method, arguments):
            if method == "RegisterStatusNotifierItem":
                item = arguments[0]
                self.items.append((sender, item if item.startswith("/") else "/StatusNotifierItem"))
                self.when_gone(sender, lambda: self.forget(sender))
            return GLib.Variant("()", ())

        def read(name):
            return {"IsStatusNotifierHostRegistered": GLib.Variant("b", True), "ProtocolVersion": GLib.Variant("i", 0),
                    "RegisteredStatusNotifierItems": GLib.Variant("as", [a + b for a, b in self.items])}[name]

        self.export("/StatusNotifierWatcher", WATCHER_XML, called, read)
        self.own(WATCHER)

    def forget(self, sender):
        self.items = [item for item in self.items if item[0] != sender]

    def property(self, name):
        sender, path = self.items[0]
        return self.ask(sender, path, "org.freedesktop.DBus.Properties", "Get",
                        GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", name)))[0]

    def press(self, method):
        """`Activate` for the left button, `ContextMenu` for the right one."""
        sender, path = self.items[0]
        # The icon may answer once its menu is left.
        self.connection.call(sender, path, "org.kde.StatusNotifierItem", method, GLib.Variant("(ii)", (100, 100)), None, 0,
                             60000, None, None)

    def menu(self):
        """The entries of the menu that the desktop draws, number by caption."""
        sender, _ = self.items[0]
        path = self.property("Menu")
        self.ask(sender, path, "com.canonical.dbusmenu", "AboutToShow", GLib.Variant("(i)", (0,)))
        _, (_, _, rows) = self.ask(sender, path, "com.canonical.dbusmenu", "GetLayout",
                                   GLib.Variant("(iias)", (0, -1, [])))
        return {row[1].get("label", "-"): row for row in rows}

    def choose(self, number):
        sender, _ = self.items[0]
        self.ask(sender, self.property("Menu"), "com.canonical.dbusmenu", "Event",
                 GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("i", 0), 0)))


class ScreenKeeper(Bus):
    """The screen saver's service, or the portal's: who keeps the screen on, and no longer than he lives."""

    def __init__(self, address, portal=False, answers=True):
        super().__init__(address)
        self.portal, self.answers = portal, answers
        self.holders = {}
        self.asked = threading.Event()

    def set_up(self):
        number = 0

        def hold(sender):
            nonlocal number
            number += 1
            self.holders[number] = sender
            self.when_gone(sender, lambda: self.let_go(sender))
            return number

        def saver(sender, method, arguments):
            self.asked.set()
            if not self.answers:
                return None
            if method == "Inhibit":
                return GLib.Variant("(u)", (hold(sender),))
            self.holders.pop(arguments[0], None)
            return GLib.Variant("()", ())

        def portal(sender, _, __):
            self.asked.set()
            held = hold(sender)
            path = f"/org/freedesktop/portal/desktop/request/{held}"

            def close(*_):
                self.holders.pop(held, None)
                return GLib.Variant("()", ())

            self.export(path, REQUEST_XML, close)
            return GLib.Variant("(o)", (path,))

        if self.portal:
            self.export("/org/freedesktop/portal/desktop", PORTAL_XML, portal)
            self.own("org.freedesktop.portal.Desktop")
        else:
            self.export("/org/freedesktop/ScreenSaver", SAVER_XML, saver)
            self.own("org.freedesktop.ScreenSaver")

    def let_go(self, sender):
        self.holders = {number: holder for number, holder in self.holders.items() if holder != sender}


if __name__ == "__main__":
    with NotificationArea(sys.argv[1]):
        print("ready", flush=True)
        threading.Event().wait()
