"""The deployment wizard on real windows: installs, uninstalls and upgrades on the computers of a lab."""

import stat
import unittest

import pyatspi

import desktop
from stage import CHANGES_TITLE, MANAGER_TITLE
from wizard_stage import (INSTALL, INSTALLED, NAMES, NO_SERVICE, UNINSTALL, UPGRADE, WHAT_BECOMES_OF_THEM, LabHome,
                          Wizard, open_from_list, open_from_menu, started, wait_for_cell, wait_for_name)

COMPLETE = "The process is complete. Please check the status against each computer."
WITH_ERRORS = "Certain errors were encountered please select 'View Log' to view the log"


class WizardTest(unittest.TestCase):
    def at_home(self, agents=()):
        self.home = LabHome(agents)
        self.addCleanup(self.home.remove)
        return self.home

    def start(self, **which):
        console = started(self.home, **which)
        self.addCleanup(console.kill)
        return console

    def status_in(self, console, name):
        return next(row[3] for row in console.list.rows() if row[0] == name)

    def take_all(self, wizard, names=NAMES):
        desktop.wait_for("the candidates", lambda: wizard.offered() == names)
        wizard.press("Add All >>")
        desktop.wait_for("all of them taken", lambda: wizard.taken() == names)

    def to_the_path(self, wizard):
        """From the choice of computers to the page with the path."""
        wizard.press("Next >")
        wizard.wait_for_page("Please select the type below")
        wizard.press("Next >")
        wizard.wait_for_page("Select installation path on the remote machines:")

    def install(self, console, names):
        wizard = open_from_list(console, names, "Add System", INSTALL)
        wizard.press("Next >")
        wizard.wait_for_page("Please select the type below")
        wizard.press("Next >")
        wizard.press("Install")
        wizard.confirm_end()
        wizard.finish()
        desktop.wait_for("the agents", lambda: all(
            self.status_in(console, name) == "Managed - Standard Mode" for name in names))


class Installing(WizardTest):
    def test_installs_on_twelve_computers_and_says_what_came_of_each(self):
        self.at_home()
        self.home.change("FJORD", delay_ms={"install": 8000})
        console = self.start()
        wizard = open_from_menu(console, "Add System", INSTALL)
        self.take_all(wizard)
        self.assertEqual(wizard.offered(), [])
        info, rows = wizard.label("Select system to be monitored for events"), wizard.run_list()
        self.to_the_path(wizard)
        wizard.press("Install")
        wait_for_cell(rows, NAMES.index("EMBER"), INSTALLED)
        wait_for_name(info, "Please wait... Installing Agent(s)...")
        wait_for_cell(rows, NAMES.index("LINDEN"), "Unmanaged")

        self.assertIn(COMPLETE, wizard.confirm_end())
        self.assertEqual(wizard.statuses(), WHAT_BECOMES_OF_THEM)
        wizard.wait_for_text(WITH_ERRORS)
        self.assertIn("Completed installing Agent software.", wizard.texts())
        # What is viewed lies beside the program, what a run writes in the installer's folder.
        (self.home.path / "AILog.txt").write_text("from the command line")
        wizard.press("View Log")
        opened = desktop.wait_for("the log", self.home.opened_pages)
        self.assertTrue(opened[0].endswith("AILog.txt"), opened)
        self.assertIn(f'"INLET - {NO_SERVICE}"', self.home.log())

        wizard.finish()
        desktop.wait_for("the new status",
                         lambda: self.status_in(console, "ATLAS") == "Managed - Standard Mode")
        self.assertEqual(self.status_in(console, "JUNIPER"), "Managed - Standard Mode")
        self.assertEqual(self.status_in(console, "INLET"), "Unmanaged")
        self.assertEqual(self.home.services("ATLAS"), ["Varnhold Agent"])
        self.assertEqual(self.home.services("INLET"), [])

    def test_a_stop_finishes_the_computer_in_hand_and_leaves_the_others(self):
        self.at_home()
        self.home.change("BIRCH", delay_ms={"install": 10000})
        console = self.start()
        wizard = open_from_menu(console, "Add System", INSTALL)
        self.take_all(wizard)
        info, rows = wizard.label("Select system to be monitored for events"), wizard.run_list()
        self.to_the_path(wizard)
        cancel = desktop.extents(wizard.button("Cancel"))
        wizard.press("Install")
        wait_for_cell(rows, NAMES.index("ATLAS"), INSTALLED)
        desktop.click_at(cancel.x + cancel.width // 2, cancel.y + cancel.height // 2)
        wait_for_name(info, "Update cancelled (finishing current task)")
        wizard.confirm_end()
        wizard.wait_for_text("Action stopped by user")
        self.assertFalse(wizard.is_on("View Log"))
        statuses = wizard.statuses()
        self.assertEqual((statuses["BIRCH"], statuses["CEDAR"]), (INSTALLED, "Unmanaged"))
        wizard.finish()
        desktop.wait_for("the new status", lambda: self.status_in(console, "BIRCH") == "Managed - Standard Mode")
        self.assertEqual(self.home.modules(), ["ATLAS", "BIRCH"])

    def test_the_window_stays_while_a_run_is_under_way(self):
        self.at_home()
        self.home.change("ATLAS", delay_ms={"install": 6000})
        console = self.start()
        wizard = open_from_list(console, ["ATLAS"], "Add System", INSTALL)
        info = wizard.label("Select system to be monitored for events")
        wizard.press("Next >")
        wizard.wait_for_page("Please select the type below")
        wizard.press("Next >")
        wizard.press("Install")
        wait_for_name(info, "Please wait... Installing Agent(s)...")
        desktop.key("alt+F4")
        wizard.confirm_end()
        wizard.wait_for_text("Completed successfully")
        wizard.finish()

    def test_goes_by_keyboard_alone(self):
        self.at_home()
        console = self.start()
        desktop.key("alt+o")
        desktop.wait_for("the menu", lambda: console._entry("Add System"))
        desktop.key("a")
        wizard = Wizard(console, INSTALL)
        desktop.wait_for("the candidates", lambda: wizard.offered() == NAMES)
        desktop.key("Tab")  # from the group to its computers
        desktop.key("ctrl+a")
        desktop.key("alt+a")
        desktop.wait_for("all of them taken", lambda: sorted(wizard.taken()) == NAMES)
        desktop.key("alt+n")
        wizard.wait_for_page("Please select the type below")
        desktop.key("alt+b")
        desktop.wait_for("the choice again", lambda: sorted(wizard.taken()) == NAMES)
        desktop.key("alt+n")
        wizard.wait_for_page("Please select the type below")
        desktop.key("alt+n")
        wizard.wait_for_page("Select installation path on the remote machines:")
        desktop.key("Escape")
        console.application.gone(INSTALL)
        self.assertEqual(self.home.modules(), [])


class Choosing(WizardTest):
    def test_moves_what_is_selected_to_and_fro(self):
        self.at_home()
        wizard = open_from_menu(self.start(), "Add System", INSTALL)
        desktop.wait_for("the candidates", lambda: wizard.offered() == NAMES)
        self.assertFalse(wizard.is_on("Next >"))
        desktop.click(wizard.lists()[0].cell(0))
        desktop.do("keydown", "shift")
        desktop.click(wizard.lists()[0].cell(1))
        desktop.do("keyup", "shift")
        wizard.press("Add ->")
        desktop.wait_for("two of them taken", lambda: sorted(wizard.taken()) == ["ATLAS", "BIRCH"])
        self.assertTrue(wizard.is_on("Next >"))
        desktop.click(wizard.lists()[1].cell(0))
        wizard.press("<- Remove")
        desktop.wait_for("one of them back", lambda: len(wizard.taken()) == 1)
        self.assertEqual(len(wizard.offered()), len(NAMES) - 1)

    def test_refuses_a_path_that_is_not_deep_enough(self):
        self.at_home()
        console = self.start()
        wizard = open_from_list(console, ["ATLAS"], "Add System", INSTALL)
        wizard.press("Next >")
        wizard.wait_for_page("Please select the type below")
        wizard.press("Next >")
        wizard.wait_for_page("Select installation path on the remote machines:")
        box = desktop.find(wizard.window, pyatspi.ROLE_TEXT)
        desktop.click(box)
        desktop.key("ctrl+a")
        desktop.type_text("C:\\Agents")
        wizard.press("Install")
        message = wizard.dialog(MANAGER_TITLE.strip())
        self.assertIn("Please ensure that the installation path is at least 2 levels deep.",
                      [" ".join((thing.name or "").split()) for thing in desktop.walk(message)])
        desktop.key("Return")
        self.assertEqual(self.home.services("ATLAS"), [])

    def test_asks_before_remedial_actions_are_turned_on(self):
        self.at_home()
        wizard = open_from_list(self.start(), ["ATLAS"], "Add System", INSTALL)
        wizard.press("Next >")
        box = "Install default Remedial Action EXEs on this system"
        for answer, ticked in (("No", False), ("Yes", True)):
            wizard.choose(box)
            wizard.answer("Remedial Action Configuration.", answer)
            desktop.wait_for(f"the box after {answer}", lambda t=ticked: wizard.is_chosen(box) == t)


class Uninstalling(WizardTest):
    def test_takes_agents_off_with_the_account_that_it_asks_for(self):
        self.at_home()
        console = self.start()
        self.install(console, ["ATLAS", "BIRCH"])
        wizard = open_from_list(console, ["ATLAS", "BIRCH"], "Remove System", UNINSTALL)
        wizard.wait_for_page("Agent(s) will be uninstalled from the following remote computer(s).")
        self.assertEqual(wizard.statuses(), dict.fromkeys(["ATLAS", "BIRCH"], "Managed - Standard Mode"))
        wizard.press("Uninstall")
        wizard.log_in()
        wizard.confirm_end()
        self.assertEqual(wizard.statuses(), dict.fromkeys(["ATLAS", "BIRCH"], "Agent uninstalled successfully"))
        wizard.wait_for_text("Completed successfully")
        wizard.finish()
        desktop.wait_for("the new status", lambda: self.status_in(console, "ATLAS") == "Unmanaged")
        self.assertEqual((self.home.modules(), self.home.services("ATLAS")), ([], []))

    def test_a_click_on_keep_snaps_turns_it_over_where_there_are_snapshots(self):
        self.at_home(["ATLAS", "BIRCH"])
        with self.home.inventory() as rows:
            rows.execute("INSERT INTO Module_Table (System_Name, Module_ID, Agentless, SystemType) "
                         "VALUES ('ATLAS', 2, 0, 0)")
        self.home.add_changes_product()
        console = self.start(program="TessmarkAgentManager", title=CHANGES_TITLE)
        wizard = open_from_menu(console, "Remove System", UNINSTALL)
        self.take_all(wizard, ["ATLAS", "BIRCH"])
        wizard.press("Next >")
        wizard.wait_for_page("Agent(s) will be uninstalled from the following remote computer(s).")

        def snaps():
            return {row[0]: row[2] for row in wizard.rows()}

        self.assertEqual(snaps(), {"ATLAS": "No", "BIRCH": ""})
        for answer in ("Yes", "No"):
            desktop.click(wizard.lists()[0].cell(0, 2))
            desktop.wait_for(answer, lambda a=answer: snaps() == {"ATLAS": a, "BIRCH": ""})
        desktop.click(wizard.lists()[0].cell(1, 2))
        desktop.click(wizard.lists()[0].cell(0, 1))
        self.assertEqual(snaps(), {"ATLAS": "No", "BIRCH": ""})

    def test_a_refused_login_leaves_every_agent(self):
        self.at_home(["ATLAS"])
        wizard = open_from_list(self.start(), ["ATLAS"], "Remove System", UNINSTALL)
        wizard.press("Uninstall")
        wizard.answer("Login", "Cancel")
        wizard.confirm_end()
        self.assertEqual(wizard.statuses(), {"ATLAS": "Not Accessible, will be skipped."})
        wizard.finish()
        self.assertEqual(self.home.modules(), ["ATLAS"])


class APassword(WizardTest):
    """What is typed into the prompt goes to the shares of the computers and nowhere else."""

    password = "Marked-Password-Of-The-Prompt-35ZQ"

    def files_with_it(self):
        marks = [self.password.encode(code) for code in ("utf-8", "utf-16-le", "utf-16-be")]
        files = [path for path in self.home.folder.rglob("*") if path.is_file()]
        return [path for path in files if any(mark in path.read_bytes() for mark in marks)]

    def start_uninstall(self, console):
        wizard = open_from_list(console, ["ATLAS"], "Remove System", UNINSTALL)
        wizard.press("Uninstall")
        wizard.press_login("CORP\\admin", self.password)
        return wizard

    def test_leaves_no_file_behind(self):
        self.at_home()
        console = self.start()
        self.install(console, ["ATLAS"])
        wizard = self.start_uninstall(console)
        wizard.confirm_end()
        self.assertEqual(wizard.statuses(), {"ATLAS": "Agent uninstalled successfully"})
        wizard.finish()
        self.assertEqual(self.files_with_it(), [])

    def test_of_a_killed_program_is_its_owners_alone_and_gone_at_the_next_start(self):
        self.at_home(["ATLAS"])
        console = self.start()
        batch = self.home.path / "RmTempLog.bat"
        self.start_uninstall(console)
        desktop.wait_for("the batch file", batch.exists)
        console.kill()
        self.assertEqual(self.files_with_it(), [batch])
        self.assertEqual(stat.S_IMODE(batch.stat().st_mode), 0o600)
        self.start()
        self.assertEqual(self.files_with_it(), [])
        self.assertFalse(batch.exists())


class Upgrading(WizardTest):
    def upgrade(self, way=None):
        self.at_home()
        console = self.start()
        self.install(console, ["ATLAS"])
        self.make_old("ATLAS")
        wizard = open_from_list(console, ["ATLAS"], "Upgrade Agent", UPGRADE)
        wizard.press("Next >")
        wizard.wait_for_page("Select the method of upgrade. Choose 'Upgrade Over IP' option to upgrade the agent "
                             "which is outside the domain.")
        if way:
            wizard.choose(way)
        wizard.press("Upgrade")
        wizard.confirm_end()
        self.assertEqual(wizard.statuses(), {"ATLAS": "Upgraded successfully"})
        wizard.wait_for_text("Completed successfully")
        wizard.finish()

    def make_old(self, name):
        registry = self.home.path / "lab" / name / "registry.reg"
        text = registry.read_text(encoding="utf-8-sig")
        self.assertIn('"Version"="7.0"', text)
        registry.write_text(text.replace('"Version"="7.0"', '"Version"="6.0"'), encoding="utf-8")

    def test_upgrades_over_the_domain(self):
        self.upgrade()

    def test_upgrades_over_ip(self):
        self.upgrade("Upgrade Over IP (Non Windows Domain)")

    def test_the_advanced_page_has_the_configuration_beside_the_way(self):
        self.at_home(["ATLAS"])
        wizard = open_from_list(self.start(), ["ATLAS"], "Upgrade Agent", UPGRADE)
        wizard.press("Next >")
        wizard.press("Advanced")
        wizard.choose("Custom Config")
        desktop.wait_for("the file's box", lambda: wizard.is_on("Browse..."))
        self.assertTrue(wizard.is_chosen("Windows Domain Network"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
