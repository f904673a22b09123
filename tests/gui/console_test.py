"""The real console on a virtual desktop, driven by mouse and keyboard and read as a screen reader reads it."""

import subprocess
import time
import unittest

import pyatspi

import desktop
from desktop import windows_of
from stage import CHANGES_TITLE, EXPECTED_ROWS, MANAGER_TITLE, Console, Home

ALL = [row[0] for row in EXPECTED_ROWS]


def kill(process):
    process.kill()
    process.wait()


class ConsoleTest(unittest.TestCase):
    discovery = "manual"

    def setUp(self):
        self.home = Home(self.discovery)
        self.addCleanup(self.home.remove)

    def start(self, **which):
        console = Console(self.home, **which)
        self.addCleanup(console.kill)
        return console

    def started(self):
        console = self.start()
        console.wait_for_rows(ALL)
        return console


class WhatItShows(ConsoleTest):
    def test_lists_every_computer_with_its_status(self):
        self.assertEqual(self.started().list.rows(), EXPECTED_ROWS)

    def test_shows_the_groups_under_the_root(self):
        console = self.started()
        self.assertEqual([row[0] for row in console.tree.rows()][:1], ["Groups"])
        desktop.click(console.tree.cell(0))
        desktop.key("Right")
        desktop.wait_for("the groups", lambda: [r[0] for r in console.tree.rows()] == ["Groups", "Servers", "Clients"])

    def test_offers_the_agent_commands_where_the_product_is_installed(self):
        console = self.started()
        self.assertEqual(desktop.names(console.window, pyatspi.ROLE_MENU), ["File", "View", "Options", "Help"])


class Selecting(ConsoleTest):
    def test_a_click_on_a_group_lists_its_computers(self):
        console = self.started()
        desktop.click(console.tree.cell(0))
        desktop.key("Right")
        desktop.wait_for("three nodes", lambda: len(console.tree.rows()) == 3)
        desktop.click(console.tree.cell(1))
        console.wait_for_rows(["ANVIL", "EMBER"])
        desktop.click(console.tree.cell(0))
        console.wait_for_rows(ALL)

    def test_arrow_keys_in_the_tree_list_the_group(self):
        console = self.started()
        desktop.click(console.tree.cell(0))
        desktop.key("Right")
        desktop.wait_for("three nodes", lambda: len(console.tree.rows()) == 3)
        desktop.key("Down")
        console.wait_for_rows(["ANVIL", "EMBER"])

    def test_refresh_shows_what_came_into_the_inventory(self):
        console = self.started()
        with self.home.inventory() as rows:
            rows.execute("INSERT INTO System_Table VALUES ('GRINDER', 7, '', '')")
        desktop.key("F5")
        console.wait_for_rows(ALL + ["GRINDER"])
        with self.home.inventory() as rows:
            rows.execute("DELETE FROM System_Table WHERE System_Name = 'GRINDER'")
        console.choose("View", "Refresh")
        console.wait_for_rows(ALL)

    def test_a_column_head_sorts_the_first_upwards_and_the_others_downwards_each_time(self):
        console = self.started()
        by_status = sorted(EXPECTED_ROWS, key=lambda row: row[3], reverse=True)
        for _ in range(2):
            desktop.click(console.list.header(3))
            console.wait_for_rows([row[0] for row in by_status])
        desktop.click(console.list.header(0))
        console.wait_for_rows(ALL)


class Details(ConsoleTest):
    def test_a_double_click_shows_the_computer(self):
        console = self.started()
        console.click_row("DIE", times=2)
        window = console.application.window("Details")
        texts = [thing.name for thing in desktop.walk(window) if thing.name]
        self.assertIn("System: DIE", texts)
        self.assertIn("10.1.2.24", texts)
        self.assertIn("Managed - Agentless Mode", texts)
        desktop.key("Return")
        console.application.gone("Details")

    def test_enter_shows_the_chosen_computer_and_keeps_a_new_description(self):
        console = self.started()
        console.click_row("EMBER")
        desktop.key("Return")
        window = console.application.window("Details")
        box = desktop.find(window, pyatspi.ROLE_TEXT)
        desktop.click(box)
        desktop.key("ctrl+a")
        desktop.type_text("Night backup")
        desktop.click(desktop.find(window, pyatspi.ROLE_PUSH_BUTTON, "OK"))
        console.application.gone("Details")
        desktop.wait_for("the new text", lambda: console.list.rows()[4][2] == "Night backup")
        with self.home.inventory() as rows:
            stored = rows.execute("SELECT System_Description FROM System_Table WHERE System_Name = 'EMBER'").fetchall()
        self.assertEqual(stored, [("Night backup",)])


class PopUps(ConsoleTest):
    def test_a_right_press_on_a_computer_selects_it_and_offers_its_commands(self):
        console = self.started()
        console.click_row("EMBER", button=3)
        entries = desktop.wait_for("the pop-up menu", console.entries)
        self.assertEqual([entry for entry in entries if entry], LIST_COMMANDS)
        self.assertEqual(console.list.selected(), [4])
        desktop.key("Escape")

    def test_a_right_press_on_the_empty_part_of_the_list_offers_nothing(self):
        console = self.started()
        box = desktop.extents(console.list.accessible)
        desktop.click_at(box.x + box.width // 2, box.y + box.height - 20, button=3)
        time.sleep(1)
        self.assertEqual(console.entries(), [])

    def test_details_of_a_group_come_from_the_trees_pop_up(self):
        console = self.started()
        desktop.click(console.tree.cell(0), button=3)
        desktop.wait_for("the pop-up menu", console.entries)
        console.choose("Details")
        window = console.application.window("Details")
        self.assertIn("Group: Groups", [thing.name for thing in desktop.walk(window)])
        desktop.key("Return")
        console.application.gone("Details")


LIST_COMMANDS = [
    "Details",
    "Add System",
    "Remove System",
    "Upgrade Agent",
    "Remove Agent Components",
    "Start Agent Service",
    "System Status",
    "Configure System",
]


class Menus(ConsoleTest):
    def test_the_view_menu_takes_the_status_bar_away_and_brings_it_back(self):
        console = self.started()

        def height():
            return desktop.extents(console.list.accessible).height

        before = height()
        console.choose("View", "Status Bar")
        desktop.wait_for("the list over its place", lambda: height() > before)
        console.choose("View", "Status Bar")
        desktop.wait_for("the list as it was", lambda: height() == before)

    def test_the_menus_answer_to_the_keyboard(self):
        console = self.started()
        desktop.click(console.tree.cell(0))
        desktop.key("alt+f")
        desktop.wait_for("the file menu", lambda: console._entry("Exit"))
        desktop.key("x")
        self.assertEqual(console.wait_for_end(), 0)

    def test_f1_opens_the_help(self):
        console = self.started()
        desktop.click(console.tree.cell(0))
        desktop.key("F1")
        pages = desktop.wait_for("the page", self.home.opened_pages)
        self.assertTrue(pages[0].startswith("https://"), pages)

    def test_the_discovery_mode_is_chosen_and_kept(self):
        console = self.started()
        console.choose("File", "Select 'Auto Discover' Mode")
        window = console.application.window("Select 'Auto Discover' Mode")
        desktop.click(desktop.find(window, pyatspi.ROLE_RADIO_BUTTON,
                                   "Automatically find and add Computers (Recommended for small networks e.g. < 100 Computers)"))
        desktop.click(desktop.find(window, pyatspi.ROLE_PUSH_BUTTON, "OK"))
        console.application.gone("Select 'Auto Discover' Mode")
        self.assertEqual(self.home.stored_mode(), 1)


class FirstStart(ConsoleTest):
    discovery = "first start"

    def test_asks_for_the_discovery_mode_before_the_console_comes_up(self):
        console = self.start()
        window = console.application.window("Select 'Auto Discover' Mode")
        texts = [" ".join((thing.name or "").split()) for thing in desktop.walk(window)]
        self.assertIn(
            "Select how Varnhold - System Manager should add Computers from your network. You can access and modify "
            "this setting anytime from [Options | Select 'Auto Discover' Mode]",
            texts,
        )
        desktop.click(desktop.find(window, pyatspi.ROLE_RADIO_BUTTON,
                                   "I will choose to add and track Computers (Recommended for large networks)"))
        desktop.click(desktop.find(window, pyatspi.ROLE_PUSH_BUTTON, "OK"))
        console.wait_for_rows(ALL)
        self.assertEqual(self.home.stored_mode(), 0)


class StartingAndEnding(ConsoleTest):
    def test_closing_the_window_ends_the_program(self):
        console = self.started()
        desktop.key("alt+F4")
        self.assertEqual(console.wait_for_end(), 0)

    def test_a_second_start_brings_the_minimised_console_to_the_front_and_ends(self):
        console = self.started()
        number = subprocess.run(["xdotool", "search", "--name", "^" + MANAGER_TITLE + "$"], capture_output=True,
                                text=True, check=True).stdout.split()[-1]
        desktop.do("windowminimize", number)
        second = self.home.start()
        self.assertEqual(second.wait(timeout=30), 0)
        desktop.wait_for("the console in front", lambda: subprocess.run(
            ["xdotool", "getactivewindow"], capture_output=True, text=True).stdout.strip() == number)
        self.assertIsNone(console.process.poll())

    def test_a_second_start_ends_while_a_dialog_is_open(self):
        console = self.started()
        console.click_row("ANVIL", times=2)
        console.application.window("Details")
        self.assertEqual(self.home.start().wait(timeout=30), 0)
        self.assertIsNone(console.process.poll())

    def test_a_second_start_while_the_first_is_starting_says_so_and_ends(self):
        with self.home.held_inventory():
            first = self.home.start()
            self.addCleanup(kill, first)
            desktop.wait_for("the splash", lambda: windows_of(first))
            second = self.home.start()
            self.addCleanup(kill, second)
            box = desktop.Application(second).window(MANAGER_TITLE.strip())
            self.assertIn("Please switch to it manually", " ".join(thing.name for thing in desktop.walk(box) if thing.name))
            desktop.key("Return")
            self.assertEqual(second.wait(timeout=30), 0)
        desktop.Application(first).window(MANAGER_TITLE)

    def test_both_products_run_at_once(self):
        manager = self.started()
        changes = self.start(program="TessmarkAgentManager", title=CHANGES_TITLE)
        changes.wait_for_rows(ALL)
        self.assertIsNone(manager.process.poll())


class Leaving(ConsoleTest):
    discovery = "automatic"

    def test_waits_for_an_enumeration_that_never_ends_and_then_ends_it(self):
        self.home.add_computer("SLEEPER", "[host]\naddress = 10.1.1.99\ntype = 7\n[delay_ms]\ndiscovery = never\n")
        console = self.started()
        desktop.key("alt+F4")
        console.application.window(MANAGER_TITLE.strip())
        self.assertEqual(console.wait_for_end(60), 0)


class Faults(ConsoleTest):
    def test_a_table_that_went_away_is_told_and_the_console_lives_on(self):
        console = self.started()
        with self.home.inventory() as rows:
            rows.execute("ALTER TABLE System_Table RENAME TO Away")
        desktop.key("F5")
        for _ in range(2):  # what the database says, then the console's own word
            box = desktop.wait_for("a message", lambda: next(
                (w for w in console.application.windows() if w.name == MANAGER_TITLE.strip()), None))
            desktop.key("Return")
            desktop.wait_for("the end of the message", lambda w=box: not desktop.is_showing(w))
        with self.home.inventory() as rows:
            rows.execute("ALTER TABLE Away RENAME TO System_Table")
        desktop.key("F5")
        console.wait_for_rows(ALL)


if __name__ == "__main__":
    unittest.main(verbosity=2)
