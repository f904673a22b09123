#!/usr/bin/python3
"""Reads the window of list_window as a screen reader does, through AT-SPI: rows, nodes, a selection made from outside, and
the rows again after they were sorted. Started under dbus-run-session, on a display, with the program as the argument."""

import os
import subprocess
import sys
import time

import pyatspi

WAIT_SECONDS = 20


def wait_for(look, what):
    end = time.time() + WAIT_SECONDS
    while time.time() < end:
        try:
            found = look()
        except Exception:  # the tree changes while it is read
            found = None
        if found:
            return found
        time.sleep(0.1)
    raise SystemExit(f"not seen within {WAIT_SECONDS} seconds: {what}")


def application():
    desktop = pyatspi.Registry.getDesktop(0)
    return next((a for a in desktop if a is not None and a.name == "list_window"), None)


def tables(within):
    roles = (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE)
    return pyatspi.findAllDescendants(within, lambda a: a.getRole() in roles)


def text(cell):
    """A cell with a picture holds the picture and the text."""
    if cell.childCount == 0:
        return cell.name
    return "".join(child.name for child in cell)


def rows(table):
    table.clearCache()
    asked = table.queryTable()
    return [[text(asked.getAccessibleAt(row, column)) for column in range(asked.nColumns)] for row in range(asked.nRows)]


def expect(table, expected):
    wait_for(lambda: rows(table) == expected, f"{expected}; last seen {rows(table)}")


def main():
    os.environ.pop("NO_AT_BRIDGE", None)  # whatever its value, GTK then keeps off the bus
    program = subprocess.Popen([sys.argv[1]], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    try:
        assert program.stdout.readline() == "ready\n"
        window = wait_for(application, "the program on the accessibility bus")
        wait_for(lambda: len(tables(window)) == 2, "a tree and a list")
        tree, listing = sorted(tables(window), key=lambda t: t.queryTable().nColumns)
        expect(tree, [["Groups"], ["Mail"]])
        expect(listing, [["CALYPSO", "Status of CALYPSO"], ["ATLAS", "Status of ATLAS"], ["DELOS", "Status of DELOS"]])
        listing.queryTable().addRowSelection(1)
        assert program.stdout.readline() == "click ATLAS\n"
        program.stdin.write("sort\n")
        program.stdin.flush()
        expect(listing, [["ATLAS", "Status of ATLAS"], ["CALYPSO", "Status of CALYPSO"], ["DELOS", "Status of DELOS"]])
        program.stdin.close()
        assert program.wait(WAIT_SECONDS) == 0
    finally:
        program.kill()


if __name__ == "__main__":
    main()
