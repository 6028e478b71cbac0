"""All windows that the main path does not come by. They are opened and closed over the accessibility bus, wherever the
keyboard is and under any window system."""

from desktop import wait_until


class Stop:
    """`opening` and `closing` are roles and names of what is pressed, as is `act` while the window stands; the title is
    a pattern. Those `inside` are opened from this one. What nothing inside of it closes, as its button in the frame
    does, is left out where nobody reaches that."""

    def __init__(self, label, title, opening, closing, act=None, inside=()):
        self.label, self.title, self.opening, self.closing = label, title, opening, closing
        self.act, self.inside = act, inside


def item(name):
    return ("menu item", name)


def button(name):
    return ("push button", name)


STOPS = [
    Stop("splash", "^$", item("Redisplay Splash"), button("^Close$")),
    Stop("about", "About", item("^About$"), button("^OK$")),
    Stop("properties", "File Properties", item("Image Properties"), button("^Close$")),
    Stop("contrast", "Contrast", item("Image Contrast"), button("^OK$")),
    Stop("colours", "Color", item("Image Color"), button("^OK$")),
    Stop("zoom", "Zoom Viewer", item("Display In Full Screen Viewer"), button("^Exit( Zoom Viewer)?$")),
    Stop("thumbnails", "ThumbNail Viewer", item("Display Thumbnail Viewer"), item("Close Viewer")),
    Stop("statistics", "File Stats", item("Information Summary"), button("^Close$"),
         act=button("Scan Files"), inside=[Stop("report", "Information Report", button("Show Report"), item("Exit Report"))]),
    Stop("batch", "Convert File Type", item("Batch Convert"), button("^Cancel$")),
    Stop("interval", "Slide Interval", item("^Interval"), button("Cancel")),
    Stop("slides", "^$", item("Start Full Screen Slide Show"), button("^Close$")),
    Stop("browser", "Lumidex 2001", item("Korvane Website"), None),
    Stop("open", "List", item("Load User Image List"), button("Cancel")),
]


def visit(inspection, stops):
    program = inspection.program
    for stop in stops:
        if not stop.closing and not inspection.desktop.tells_places:
            continue
        program.press(*stop.opening)
        wait_until(lambda: program.shows(stop.title), what=f"the window '{stop.title}'")
        if stop.act:
            program.press(*stop.act)
        inspection.look_at(stop.title, stop.label, describe=False)
        visit(inspection, stop.inside)
        if stop.closing:
            program.press(*stop.closing)
        else:
            program.window(stop.title).close()
        wait_until(lambda: not program.shows(stop.title), what=f"the window '{stop.title}' to go")


def tour(inspection):
    visit(inspection, STOPS)
