"""A home with a known inventory, and the console started in it."""

import contextlib
import os
import pathlib
import re
import shutil
import sqlite3
import subprocess
import tempfile

import pyatspi

import desktop

BIN = pathlib.Path(os.environ["VARNHOLD_BIN"])
MANAGER_TITLE = "Varnhold - System Manager "
CHANGES_TITLE = "Tessmark? Agent Manager "

# Name, type, address, description; and the agents: name, module, agentless, port, mode.
COMPUTERS = [
    ("ANVIL", 7, "10.1.1.21", "File server"),
    ("BELLOWS", 10, "10.1.1.22", ""),
    ("CRUCIBLE", 2, "10.1.1.23", "Museum piece"),
    ("DIE", 9, "10.1.2.24", "Reception"),
    ("EMBER", 7, "10.1.2.25", "Backup"),
    ("FORGE", 4, "", "Not resolved"),
]
AGENTS = [
    ("ANVIL", 1, 0, 8821, 0),
    ("bellows", 2, 0, None, 0),
    ("CRUCIBLE", 1, 0, 8821, 0),
    ("DIE", 1, 1, 8822, 0),
    ("EMBER", 1, 0, 8823, 1),
]
GROUPS = [("Servers", "All that must not stop", ["ANVIL", "EMBER"]), ("Clients", "Desks", ["BELLOWS", "DIE"])]

EXPECTED_ROWS = [
    ("ANVIL", "Windows 2000 - Server", "File server", "Managed - Standard Mode", "8821"),
    ("BELLOWS", "Windows XP", "-none-", "Tracking Changes", ""),
    ("CRUCIBLE", "Windows 95", "Museum piece", "Not Applicable", "8821"),
    ("DIE", "Windows NT - Cluster", "Reception", "Managed - Agentless Mode", "8822"),
    ("EMBER", "Windows 2000 - Server", "Backup", "Managed - High Performance Mode", "8823"),
    ("FORGE", "Windows NT - Workstation", "Not resolved", "Unmanaged", ""),
]


class Home:
    """A provisioned home in a folder of its own, in the mode that finds nothing by itself."""

    lab_size = 0

    def __init__(self, discovery="manual"):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="varnhold-gui-"))
        self.path = self.folder / "home"
        subprocess.run(
            [BIN / "varnhold-provision", "--home", self.path, "--lab", str(self.lab_size)], check=True,
            capture_output=True
        )
        self._fill()
        self._set_discovery(discovery)
        self._make_browser()

    def _fill(self):
        with self.inventory() as rows:
            rows.executemany("INSERT INTO System_Table VALUES (?, ?, ?, ?)", COMPUTERS)
            rows.executemany(
                "INSERT INTO Module_Table (System_Name, Module_ID, Agentless, Port, SystemType) VALUES (?, ?, ?, ?, ?)",
                AGENTS,
            )
            for group, description, members in GROUPS:
                rows.execute("INSERT INTO System_Group_Master VALUES (?, ?, 1)", (group, description))
                rows.execute("INSERT INTO System_Group_Detail VALUES (?, 0, '', '')", (group,))
                rows.executemany("INSERT INTO System_Group VALUES (?, ?)", [(member, group) for member in members])

    def connect(self):
        return sqlite3.connect(self.path / "qrvdbv3.mdb", timeout=10)

    @contextlib.contextmanager
    def inventory(self):
        """A connection for some statements, committed and closed at their end."""
        with contextlib.closing(self.connect()) as connection, connection:
            yield connection

    @contextlib.contextmanager
    def held_inventory(self):
        """While it lasts, no program can open the inventory."""
        with contextlib.closing(self.connect()) as holder:
            holder.execute("PRAGMA locking_mode = EXCLUSIVE")
            holder.execute("BEGIN EXCLUSIVE")
            yield

    def add_computer(self, name, host_ini):
        """A computer of the lab, which nobody knows yet."""
        folder = self.path / "lab" / name
        folder.mkdir(parents=True)
        (folder / "host.ini").write_text(host_ini)

    def _set_discovery(self, discovery):
        """`first start` leaves the mode unsaved."""
        if discovery == "first start":
            return
        with open(self.path / "registry.reg", "a", encoding="utf-8") as registry:
            value = 1 if discovery == "automatic" else 0
            registry.write(f"\n[HKEY_LOCAL_MACHINE\\{DISCOVERY_KEY}]\n\"{DISCOVERY_VALUE}\"=dword:{value:08x}\n")

    def stored_mode(self):
        """1 automatic, 0 manual, as the last line of the registry file that speaks of it has it."""
        text = (self.path / "registry.reg").read_text(encoding="utf-8-sig")
        return int(re.findall(f'"{DISCOVERY_VALUE}"=dword:([0-9a-f]+)', text)[-1], 16)

    def _make_browser(self):
        """What the program opens in a browser goes to a file."""
        folder = self.folder / "bin"
        folder.mkdir()
        opener = folder / "xdg-open"
        opener.write_text(f"#!/bin/sh\necho \"$1\" >> '{self.folder}/opened'\n")
        opener.chmod(0o755)
        self.search_path = f"{folder}:{os.environ['PATH']}"

    def opened_pages(self):
        opened = self.folder / "opened"
        return opened.read_text().splitlines() if opened.exists() else []

    def start(self, program="AgentInstaller"):
        environment = dict(os.environ, VARNHOLD_HOME=str(self.path), PATH=self.search_path)
        return subprocess.Popen([BIN / program], env=environment)

    def remove(self):
        shutil.rmtree(self.folder)


DISCOVERY_KEY = r"SOFTWARE\Kelmont Works\Quorvane"
DISCOVERY_VALUE = "NetAccessMode"


class Console:
    """The running console as a person sees it."""

    def __init__(self, home, program="AgentInstaller", title=MANAGER_TITLE):
        self.process = home.start(program)
        self.application = desktop.Application(self.process)
        self.title = title

    @property
    def window(self):
        return self.application.window(self.title)

    def _tables(self):
        roles = (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE)
        return [thing for thing in desktop.walk(self.window) if thing.getRole() in roles]

    @property
    def list(self):
        return self._table(columns=5)

    @property
    def tree(self):
        return self._table(columns=1)

    def _table(self, columns):
        def look():
            return next((t for t in map(desktop.Table, self._tables()) if t.table.nColumns == columns), None)

        return desktop.wait_for(f"a table of {columns} columns", look)

    def wait_for_rows(self, rows):
        """Until the list holds exactly these computers, in this order."""
        desktop.wait_for(f"the computers {rows}", lambda: [row[0] for row in self.list.rows()] == rows)

    def click_row(self, name, button=1, times=1):
        row = [row[0] for row in self.list.rows()].index(name)
        desktop.click(self.list.cell(row), button, times)

    def choose(self, *captions):
        """Clicks through the menu bar: choose("View", "Refresh")."""
        for caption in captions:
            desktop.click(desktop.wait_for(f"the entry {caption}", lambda: self._entry(caption)))

    def _entry(self, caption):
        roles = (pyatspi.ROLE_MENU, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_CHECK_MENU_ITEM)
        for window in self.application.windows():
            for thing in desktop.walk(window):
                if thing.getRole() in roles and thing.name == caption and desktop.is_showing(thing):
                    return thing
        return None

    def entries(self):
        """The captions of the pop-up menu that is open, top down; None for a separator."""
        for window in self.application.windows():
            for thing in desktop.walk(window):
                if thing.getRole() == pyatspi.ROLE_POPUP_MENU or (
                    thing.getRole() == pyatspi.ROLE_WINDOW and thing.childCount
                ):
                    return [item.name or None for item in desktop.walk(thing) if "menu item" in item.getRoleName()]
        return []

    def wait_for_end(self, seconds=30):
        """The exit status of the program, which must end by itself."""
        return self.process.wait(timeout=seconds)

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
