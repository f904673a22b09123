"""Pictures of every page of the deployment wizard and of the forms that it shows, for the documentation.

    wizard_screenshots.py FOLDER
"""

import time

import desktop
from screenshots import take
from stage import CHANGES_TITLE, MANAGER_TITLE
from wizard_stage import (INSTALL, INSTALLED, NAMES, UNINSTALL, UPGRADE, LabHome, open_from_list, open_from_menu,
                          started, wait_for_cell)



def picture(console, name, title):
    take(name, title, console.process)


def install(console, home):
    wizard = open_from_menu(console, "Add System", INSTALL)
    desktop.wait_for("the candidates", lambda: wizard.offered() == NAMES)
    for row in range(2):
        desktop.click(wizard.lists()[0].cell(0))
        wizard.press("Add ->")
        desktop.wait_for("its move", lambda r=row: len(wizard.taken()) == r + 1)
    picture(console, "frmTargets-select", INSTALL)
    wizard.press("Add All >>")
    wizard.press("Next >")
    wizard.wait_for_page("Please select the type below")
    picture(console, "frmTargets-agent-type", INSTALL)
    wizard.choose("Install default Remedial Action EXEs on this system")
    wizard.dialog("Remedial Action Configuration.")
    picture(console, "frmRemedialActionHelp", "Remedial Action Configuration.")
    wizard.answer("Remedial Action Configuration.", "No")
    agentless(console, wizard)
    wizard.choose("Agent based (Full featured)")
    wizard.press("Next >")
    wizard.wait_for_page("Select installation path on the remote machines:")
    picture(console, "frmTargets-path", INSTALL)
    wizard.press("Advanced")
    time.sleep(1)
    picture(console, "frmTargets-config", INSTALL)
    rows = wizard.run_list()
    wizard.press("Install")
    wait_for_cell(rows, NAMES.index("EMBER"), INSTALLED)
    picture(console, "frmTargets-run", INSTALL)
    wizard.confirm_end()
    picture(console, "frmTargets-result", INSTALL)
    wizard.finish()
    desktop.wait_for("the new status", lambda: console.list.rows()[0][3] == "Managed - Standard Mode")
    picture(console, "frmMain-deployed", MANAGER_TITLE)


def agentless(console, wizard):
    wizard.choose("Agent-less (limited features)*")
    wizard.press("Next >")
    wizard.wait_for_page("Select the polling frequency :")
    picture(console, "frmTargets-polling", INSTALL)
    wizard.press("< Back")
    wizard.wait_for_page("Please select the type below")


def uninstall(console):
    wizard = open_from_list(console, ["ATLAS", "BIRCH"], "Remove System", UNINSTALL)
    picture(console, "frmTargets-systems", UNINSTALL)
    wizard.press("Uninstall")
    wizard.dialog("Login")
    picture(console, "frmLogin", "Login")
    wizard.answer("Login", "Cancel")
    wizard.confirm_end()
    wizard.finish()


def upgrade(console):
    wizard = open_from_list(console, ["ATLAS", "BIRCH"], "Upgrade Agent", UPGRADE)
    wizard.press("Next >")
    wizard.wait_for_page("Select the method of upgrade. Choose 'Upgrade Over IP' option to upgrade the agent which "
                         "is outside the domain.")
    picture(console, "frmTargets-upgrade", UPGRADE)
    wizard.press("Advanced")
    time.sleep(1)
    picture(console, "frmTargets-upgrade-config", UPGRADE)
    wizard.press("Cancel")
    console.application.gone(UPGRADE)


def both_products():
    """With both managers on the computer: the product's page, and the snapshots of an uninstall."""
    home = LabHome(["ATLAS", "BIRCH"])
    with home.inventory() as rows:
        rows.execute("INSERT INTO Module_Table (System_Name, Module_ID, Agentless, SystemType) VALUES ('ATLAS', 2, 0, 0)")
    home.add_changes_product()
    console = started(home, program="TessmarkAgentManager", title=CHANGES_TITLE)
    try:
        wizard = open_from_menu(console, "Remove System", UNINSTALL)
        wizard.press("Add All >>")
        wizard.press("Next >")
        wizard.wait_for_page("Agent(s) will be uninstalled from the following remote computer(s).")
        picture(console, "frmTargets-keep-snaps", UNINSTALL)
        wizard.press("Next >")
        wizard.press("Next >")
        wizard.wait_for_page("Select the Agent software(s) to uninstall.")
        picture(console, "frmTargets-agents", UNINSTALL)
    finally:
        console.kill()
        home.remove()


def main():
    home = LabHome()
    home.change("FJORD", delay_ms={"install": 8000})
    console = started(home)
    try:
        install(console, home)
        uninstall(console)
        upgrade(console)
    finally:
        console.kill()
        home.remove()
    both_products()


if __name__ == "__main__":
    main()
