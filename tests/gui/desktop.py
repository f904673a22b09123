"""A person at the virtual desktop: sees windows the way a screen reader does, and has a mouse and a keyboard.

What is read comes through AT-SPI, what is done goes through the display (xdotool), so the program under test takes
the same way as with a person before it. Every wait is bounded.
"""

import subprocess
import time

import pyatspi

WAIT_SECONDS = 30


class NotSeen(AssertionError):
    """What was waited for did not come up."""


def wait_for(what, look, seconds=WAIT_SECONDS):
    """Looks until `look` gives something, and returns that."""
    until = time.monotonic() + seconds
    while True:
        try:
            seen = look()
        except Exception:  # what is looked at may go away meanwhile, and AT-SPI has an error for each way
            seen = None
        if seen:
            return seen
        if time.monotonic() > until:
            raise NotSeen(f"not seen within {seconds} s: {what}")
        time.sleep(0.05)


def do(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True)


def key(name):
    """Presses keys by their X names: "F5", "ctrl+f", "Return"."""
    do("key", "--clearmodifiers", name)


def type_text(text):
    do("type", "--delay", "5", text)


def walk(accessible):
    """The accessible and all under it, parents first. Rows of a table come by `rows`, not by this."""
    yield accessible
    if accessible.getRole() in (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE):
        return
    for child in accessible:
        if child is not None:
            yield from walk(child)


def is_showing(accessible):
    return accessible.getState().contains(pyatspi.STATE_SHOWING)


def extents(accessible):
    return accessible.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)


def click(accessible, button=1, times=1):
    """Clicks on the middle of what is shown there."""
    box = extents(accessible)
    click_at(box.x + box.width // 2, box.y + box.height // 2, button, times)


def click_at(x, y, button=1, times=1):
    do("mousemove", x, y)
    time.sleep(0.05)
    do("click", "--repeat", times, "--delay", 60, button)


def screenshot(path, window=None):
    """The whole desktop, or one window by its number, as a picture file."""
    subprocess.run(["import", "-window", window or "root", path], check=True)


def windows_of(process):
    """The numbers of the windows that the process shows."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(process.pid)],
                           capture_output=True, text=True)
    return found.stdout.split()


class Application:
    """A program on the desktop, found by its process."""

    def __init__(self, process):
        self.process = process
        self.root = wait_for("the program on the accessibility bus", self._find)

    def _find(self):
        desktop = pyatspi.Registry.getDesktop(0)
        for application in desktop:
            if application is not None and application.get_process_id() == self.process.pid:
                return application
        return None

    def windows(self):
        return [window for window in self.root if window is not None and is_showing(window)]

    def window(self, title):
        """The shown window of exactly this title, waited for."""
        return wait_for(f"the window \"{title}\"", lambda: self._window(title))

    def _window(self, title):
        return next((window for window in self.windows() if window.name == title), None)

    def gone(self, title):
        wait_for(f"the end of the window \"{title}\"", lambda: self._window(title) is None)


def find(window, role, name=None):
    """The first shown thing of that kind in the window, by its name where one is given; waited for."""

    def look():
        for accessible in walk(window):
            if accessible.getRole() == role and (name is None or accessible.name == name) and is_showing(accessible):
                return accessible
        return None

    return wait_for(f"{role} {name or ''}", look)


def names(window, role):
    """The names of all shown things of that kind."""
    return [thing.name for thing in walk(window) if thing.getRole() == role and is_showing(thing)]


class Table:
    """A list or a tree, row by row, as it is told to a screen reader."""

    def __init__(self, accessible):
        self.accessible = accessible
        self.table = accessible.queryTable()

    def rows(self):
        self.accessible.clearCache()
        columns = range(self.table.nColumns)
        return [tuple(self._text(row, column) for column in columns) for row in range(self.table.nRows)]

    def _text(self, row, column):
        """A cell with a picture holds its text in a part of its own."""
        cell = self.table.getAccessibleAt(row, column)
        return cell.name or next((part.name for part in cell if part is not None and part.name), "")

    def cell(self, row, column=0):
        return self.table.getAccessibleAt(row, column)

    def header(self, column):
        return self.table.getColumnHeader(column)

    def selected(self):
        return [row for row in range(self.table.nRows) if self.table.isRowSelected(row)]
