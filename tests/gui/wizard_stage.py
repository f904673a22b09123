"""A home with a lab of twelve computers, and the deployment wizard as a person sees it."""

import configparser

import pyatspi

import desktop
from stage import MANAGER_TITLE, Console, Home

INSTALL, UNINSTALL, UPGRADE = "Add Agent", "Uninstall Remote Agent(s)", "Upgrade Remote Agent(s)"

CHANGES_KEY = "SOFTWARE\\Kelmont Works\\TKWindows"

# The lab's mixture: name and type; its addresses begin at 10.1.1.11.
LAB = [("ATLAS", 7), ("BIRCH", 6), ("CEDAR", 10), ("DELTA", 14), ("EMBER", 16), ("FJORD", 15), ("GROVE", 10),
       ("HAVEN", 7), ("INLET", 14), ("JUNIPER", 6), ("KESTREL", 8), ("LINDEN", 5)]
NAMES = [name for name, _ in LAB]

INSTALLED = "Installed successfully"
UNRESOLVED = "Could not resolve the IP Address for the system."
UNREACHED = ("Failed to connect. This may be due to insufficient permission, remote drive not being shared or "
             "network problems.")
NO_SERVICE = "Failed to create service. This may be due to insufficient permission or network problems."
NOT_STARTED = INSTALLED + " - Could not start the service automatically. Please try manually."
WHAT_BECOMES_OF_THEM = dict.fromkeys(NAMES, INSTALLED) | {
    "GROVE": UNRESOLVED, "HAVEN": UNREACHED, "INLET": NO_SERVICE, "JUNIPER": NOT_STARTED,
    "LINDEN": UNREACHED}  # an account is demanded there


class LabHome(Home):
    """Twelve computers in the inventory and in the lab; `agents` have a Varnhold agent in the inventory."""

    lab_size = len(LAB)

    def __init__(self, agents=()):
        self.agents = agents
        super().__init__()

    def _fill(self):
        with self.inventory() as rows:
            rows.executemany("INSERT INTO System_Table VALUES (?, ?, ?, '')",
                             [(name, kind, f"10.1.1.{11 + i}") for i, (name, kind) in enumerate(LAB)])
            rows.executemany(
                "INSERT INTO Module_Table (System_Name, Module_ID, Agentless, Port, SystemType) "
                "VALUES (?, 1, 0, 8821, 0)", [(name,) for name in self.agents])

    def change(self, name, **sections):
        """Sets keys of a computer's host.ini: change("ATLAS", delay_ms={"install": 3000})."""
        path = self.path / "lab" / name / "host.ini"
        ini = configparser.ConfigParser(interpolation=None, inline_comment_prefixes=(" ;",))
        ini.read(path, encoding="utf-8")
        for section, values in sections.items():
            if not ini.has_section(section):
                ini.add_section(section)
            for key, value in values.items():
                ini.set(section, key, str(value))
        with open(path, "w", encoding="utf-8") as file:
            ini.write(file)

    def add_changes_product(self):
        """The manager of the product that tracks changes is on this computer too, in the home."""
        with open(self.path / "registry.reg", "a", encoding="utf-8") as registry:
            registry.write(f"\n[HKEY_LOCAL_MACHINE\\{CHANGES_KEY}]\n\"LocalRootDir\"=\"{self.path}\"\n")

    def modules(self):
        """The agents of the inventory: names, sorted."""
        with self.inventory() as rows:
            return [row[0] for row in rows.execute("SELECT System_Name FROM Module_Table ORDER BY System_Name")]

    def services(self, name):
        """The names of the services on a computer of the lab."""
        path = self.path / "lab" / name / "services.ini"
        ini = configparser.ConfigParser(interpolation=None)
        ini.read(path, encoding="utf-8")
        return ini.sections()

    def log(self):
        path = self.path / "RemoteInstaller" / "AILog.txt"
        return path.read_text(encoding="utf-8").splitlines() if path.exists() else []


def plain(text):
    """In one line, as it was written before it was broken into several."""
    return " ".join((text or "").split())


def wait_for_cell(table, row, text, seconds=60):
    """Asks no more than it must, since a run answers once in its pauses."""
    desktop.wait_for(f"row {row} at \"{text}\"", lambda: table.cell(row, 1).name == text, seconds)


def wait_for_name(accessible, text, seconds=60):
    desktop.wait_for(f"\"{text}\"", lambda: plain(accessible.name) == text, seconds)


class Wizard:
    """The wizard's window."""

    def __init__(self, console, title):
        self.application = console.application
        self.title = title
        self.window = self.application.window(title)

    def _shown(self, *roles):
        return [thing for thing in desktop.walk(self.window) if thing.getRole() in roles and desktop.is_showing(thing)]

    def button(self, name):
        return desktop.find(self.window, pyatspi.ROLE_PUSH_BUTTON, name)

    def is_on(self, name):
        return self.button(name).getState().contains(pyatspi.STATE_SENSITIVE)

    def press(self, name):
        desktop.wait_for(f"the button {name} enabled", lambda: self.is_on(name))
        desktop.click(self.button(name))

    def choose(self, name):
        """Clicks an option or a check box."""
        desktop.click(desktop.wait_for(name, lambda: next(
            thing for thing in self._shown(pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_CHECK_BOX) if thing.name == name)))

    def is_chosen(self, name):
        return any(thing.name == name and thing.getState().contains(pyatspi.STATE_CHECKED)
                   for thing in self._shown(pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_CHECK_BOX))

    def label(self, text):
        """The label that reads so now. To be found before a run: each question waits for the run's next pause."""
        return desktop.wait_for(text, lambda: next(
            label for label in self._shown(pyatspi.ROLE_LABEL) if plain(label.name) == text))

    def run_list(self):
        """The list of the run, also before it is shown."""
        return next(table for table in (desktop.Table(thing) for thing in desktop.walk(self.window)
                                        if thing.getRole() in (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE))
                    if table.table.nColumns > 1)

    def lists(self):
        """The lists that are shown, from left to right."""
        tables = self._shown(pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE)
        return [desktop.Table(table) for table in sorted(tables, key=lambda table: desktop.extents(table).x)]

    def rows(self):
        """The names and texts of the run's list."""
        return [tuple(row) for row in self.lists()[0].rows()]

    def statuses(self):
        return {row[0]: row[1] for row in self.rows()}

    def offered(self):
        return [row[0] for row in self.lists()[0].rows()]

    def taken(self):
        return [row[0] for row in self.lists()[1].rows()]

    def texts(self):
        return [plain(label.name) for label in self._shown(pyatspi.ROLE_LABEL)]

    def wait_for_text(self, text, seconds=desktop.WAIT_SECONDS):
        desktop.wait_for(f"the text \"{text}\"", lambda: text in self.texts(), seconds)

    def wait_for_page(self, text):
        """The page that shows this text."""
        self.wait_for_text(text)

    def dialog(self, title):
        return self.application.window(title)

    def answer(self, title, button):
        """Presses a button of another window, and waits for that one's end."""
        window = self.dialog(title)
        desktop.click(desktop.find(window, pyatspi.ROLE_PUSH_BUTTON, button))
        desktop.wait_for(f"the end of {title}", lambda: not desktop.is_showing(window))

    def confirm_end(self, seconds=90):
        """The word at the end of a run."""
        box = desktop.wait_for("the end of the run", lambda: next(
            window for window in self.application.windows() if window.name == MANAGER_TITLE.strip()), seconds)
        words = [plain(thing.name) for thing in desktop.walk(box)]
        desktop.key("Return")
        desktop.wait_for("the end of the message", lambda: not desktop.is_showing(box))
        return words

    def finish(self):
        self.press("Finish")
        self.application.gone(self.title)

    def log_in(self, account="CORP\\admin", password="secret"):
        self.press_login(account, password)
        self.application.gone("Login")

    def press_login(self, account, password):
        """Without a look at what comes then: the run that goes on answers in its pauses only."""
        window = self.dialog("Login")
        boxes = [thing for thing in desktop.walk(window) if thing.getRole() in
                 (pyatspi.ROLE_TEXT, pyatspi.ROLE_PASSWORD_TEXT) and desktop.is_showing(thing)]
        for box, text in zip(sorted(boxes, key=lambda b: desktop.extents(b).y), (account, password)):
            desktop.click(box)
            desktop.type_text(text)
        desktop.click(desktop.find(window, pyatspi.ROLE_PUSH_BUTTON, "Login"))


def open_from_menu(console, command, title):
    """[Options | command]."""
    console.choose("Options", command)
    return Wizard(console, title)


def open_from_list(console, names, command, title):
    """The pop-up menu over these rows of the computer list."""
    rows = [row[0] for row in console.list.rows()]
    for i, name in enumerate(names):
        cell = console.list.cell(rows.index(name))
        if i == 0:
            desktop.click(cell)
        else:
            desktop.do("keydown", "ctrl")
            desktop.click(cell)
            desktop.do("keyup", "ctrl")
    desktop.wait_for("the selection", lambda: len(console.list.selected()) == len(names))
    desktop.click(console.list.cell(rows.index(names[-1])), button=3)
    desktop.wait_for("the pop-up menu", console.entries)
    console.choose(command)
    return Wizard(console, title)


def started(home, **which):
    console = Console(home, **which)
    console.wait_for_rows(NAMES)
    return console
