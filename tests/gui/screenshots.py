"""Pictures of every form of the program, from a lab home, for the documentation.

    screenshots.py FOLDER
"""

import pathlib
import subprocess
import sys
import time

import pyatspi

import desktop
from stage import BIN, CHANGES_TITLE, MANAGER_TITLE, Console, Home

FOLDER = pathlib.Path(sys.argv[1])


def take(name, title, process):
    """The window of that title, as its frame has it, once it has come to rest."""
    number = desktop.wait_for(title, lambda: next((n for n in desktop.windows_of(process) if title_of(n) == title), None))
    time.sleep(0.7)
    desktop.screenshot(FOLDER / f"{name}.png", number)


def title_of(number):
    return subprocess.run(["xdotool", "getwindowname", number], capture_output=True, text=True).stdout.rstrip("\n")


def take_splash(name, home, program):
    """A splash lasts as long as the inventory takes to open: a while, when another program holds it."""
    with home.held_inventory():
        process = home.start(program)
        number = desktop.wait_for("the splash", lambda: desktop.windows_of(process))[-1]
        time.sleep(0.7)
        desktop.screenshot(FOLDER / f"{name}.png", number)
        process.kill()
        process.wait()


def take_system_type():
    """The form that no entry of a pop-up menu leads to."""
    with subprocess.Popen([BIN / "system_type_window"], stdin=subprocess.PIPE) as process:
        take("frmSystemType", "Modify System Type", process)


def lab_home():
    home = Home("first start")
    # The enumeration never comes to its end, so that closing has something to wait for.
    home.add_computer("SLEEPER", "[host]\naddress = 10.1.1.99\ntype = 7\n[delay_ms]\ndiscovery = never\n")
    return home


def main():
    home = lab_home()
    try:
        take_splash("frmSplash", home, "AgentInstaller")
        take_splash("frmTKWSplash", home, "TessmarkAgentManager")
        console = Console(home)
        take("frmNetAccessSel", "Select 'Auto Discover' Mode", console.process)
        desktop.key("Return")
        take("frmMain", MANAGER_TITLE, console.process)
        console.click_row("DIE", times=2)
        take("frmDetails", "Details", console.process)
        desktop.key("Return")
        console.application.gone("Details")
        desktop.click(console.tree.cell(0))
        desktop.key("Right")
        desktop.wait_for("the groups", lambda: len(console.tree.rows()) == 3)
        desktop.click(console.tree.cell(1))
        console.wait_for_rows(["ANVIL", "EMBER"])
        take("frmMain-group", MANAGER_TITLE, console.process)
        desktop.click(console.tree.cell(1), button=3)
        desktop.wait_for("the pop-up menu", console.entries)
        console.choose("Details")
        take("frmDetails-group", "Details", console.process)
        desktop.key("Return")
        console.application.gone("Details")
        console.click_row("EMBER", button=3)
        desktop.wait_for("the pop-up menu", console.entries)
        time.sleep(0.5)
        desktop.screenshot(FOLDER / "pop-up.png")
        desktop.key("Escape")
        desktop.key("alt+F4")
        take("frmWait", "Varnhold - System Manager", console.process)
        console.kill()
        changes = Console(home, program="TessmarkAgentManager", title=CHANGES_TITLE)
        take("frmMain-tessmark", CHANGES_TITLE, changes.process)
        changes.kill()
        take_system_type()
    finally:
        home.remove()


if __name__ == "__main__":
    main()
