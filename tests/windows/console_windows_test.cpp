// The Windows console, driven from a second process by window messages; what it shows is read back out of its
// native list and tree.
#include "tests/windows/console_on_windows.h"

namespace varnhold::windows_test {
namespace {

TEST_F(ConsoleOnWindows, ListsEveryComputerWithItsStatusInTheNativeList) {
  startAndFill();
  const std::vector<Names> expected{
      {L"ANVIL", L"Windows 2000 - Server", L"File server", L"Managed - Standard Mode", L"8821"},
      {L"BELLOWS", L"Windows XP", L"-none-", L"Tracking Changes", L""},
      {L"CRUCIBLE", L"Windows 95", L"Museum piece", L"Not Applicable", L"8821"},
      {L"DIE", L"Windows NT - Cluster", L"Reception", L"Managed - Agentless Mode", L"8822"},
      {L"EMBER", L"Windows 2000 - Server", L"Backup", L"Managed - High Performance Mode", L"8823"},
      {L"FORGE", L"Windows NT - Workstation", L"Not resolved", L"Unmanaged", L""}};
  for (int row = 0; row < 6; ++row) {
    Names cells;
    for (int column = 0; column < 5; ++column) cells.push_back(list().text(row, column));
    EXPECT_EQ(cells, expected[static_cast<std::size_t>(row)]);
  }
  auto* bar = childOf(window(), L"msctls_statusbar32");
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(statusText(bar, 0), L"Displaying Windows Systems");
  EXPECT_EQ(statusText(bar, 1), L"Manual");
  EXPECT_EQ(statusText(bar, 2), L"6 Systems");
}

TEST_F(ConsoleOnWindows, ShowsTheGroupsInTheNativeTreeAndListsTheChosenOne) {
  startAndFill();
  const Names nodes{L"Groups", L"Servers"};
  ASSERT_TRUE(waitFor([&] { return tree().texts() == nodes; }, 20)) << testing::PrintToString(tree().texts());
  tree().expandRoot();
  tree().click(1);
  EXPECT_TRUE(waitForNames({L"ANVIL", L"EMBER"}));
  tree().click(0);
  EXPECT_TRUE(waitForNames(allComputers()));
}

TEST_F(ConsoleOnWindows, SortsByAColumnHeadTheSameWayEachTime) {
  startAndFill();
  const Names byDescription{L"DIE", L"FORGE", L"CRUCIBLE", L"ANVIL", L"EMBER", L"BELLOWS"};
  list().clickHead(2);
  EXPECT_TRUE(waitForNames(byDescription));
  list().clickHead(2);
  Sleep(500);
  EXPECT_TRUE(waitForNames(byDescription));
  list().clickHead(0);
  EXPECT_TRUE(waitForNames(allComputers()));
}

TEST_F(ConsoleOnWindows, RefreshesFromTheMenuAndByItsKey) {
  startAndFill();
  cli::Stage::execute("INSERT INTO System_Table VALUES ('GRINDER', 7, '', '')");
  // The last entry but one of View.
  openMenu(window(), L'v');
  ASSERT_TRUE(waitFor([&] { return openMenuOf(process_->id()) != nullptr; }, 20)) << "the menu does not open";
  for (const WPARAM key : {VK_UP, VK_UP, VK_RETURN}) press(window(), key);
  auto more = allComputers();
  more.push_back(L"GRINDER");
  EXPECT_TRUE(waitForNames(more));
  cli::Stage::execute("DELETE FROM System_Table WHERE System_Name = 'GRINDER'");
  press(list().handle(), VK_F5);
  EXPECT_TRUE(waitForNames(allComputers()));
}

TEST_F(ConsoleOnWindows, ShowsAComputersDetailsOnADoubleClickAndByEnter) {
  startAndFill();
  list().doubleClick(3);
  auto* details = form(L"Details");
  EXPECT_NE(childOf(details, L"Button", L"System: DIE"), nullptr);
  EXPECT_NE(childOf(details, L"Static", L"10.1.2.24"), nullptr);
  clickButton(details, L"OK");
  EXPECT_TRUE(gone(L"Details"));
  press(list().handle(), VK_RETURN);
  EXPECT_NE(childOf(form(L"Details"), L"Button", L"System: DIE"), nullptr);
}

TEST_F(ConsoleOnWindows, OffersTheCommandsOfAComputerOnARightPress) {
  startAndFill();
  list().click(4, WM_RBUTTONDOWN, WM_RBUTTONUP);
  ASSERT_TRUE(waitFor([&] { return openMenuOf(process_->id()) != nullptr; }, 20)) << "no pop-up menu";
  EXPECT_TRUE(waitFor([&] { return list().selected() == std::vector<int>{4}; }, 20));
  press(window(), VK_ESCAPE);
  EXPECT_TRUE(waitFor([&] { return openMenuOf(process_->id()) == nullptr; }, 20));
}

TEST_F(ConsoleOnWindows, HasTheAgentCommandsOfTheInstalledProduct) {
  startAndFill();
  EXPECT_NE(childOf(window(), L"ToolbarWindow32"), nullptr);
  openMenu(window(), L'o');
  EXPECT_TRUE(waitFor([&] { return openMenuOf(process_->id()) != nullptr; }, 20)) << "no menu Options";
}

TEST_F(ConsoleOnWindows, AsksForTheDiscoveryModeAtTheFirstStart) {
  forgetMode();
  start();
  auto* mode = form(kModeForm);
  EXPECT_EQ(window(), nullptr) << "the console is up already";
  clickButton(mode, L"OK");
  ASSERT_TRUE(waitFor([&] { return window() != nullptr && childOf(window(), L"SysListView32") != nullptr; }));
  EXPECT_TRUE(waitFor([&] { return list().count() >= 6; }));
}

TEST_F(ConsoleOnWindows, EndsWithItsWindow) {
  startAndFill();
  PostMessageW(window(), WM_CLOSE, 0, 0);
  EXPECT_EQ(process_->waitForEnd(), 0u);
}

TEST_F(ConsoleOnWindows, EndsFromTheMenu) {
  startAndFill();
  chooseFromMenu(L'f', L'x');
  EXPECT_EQ(process_->waitForEnd(), 0u);
}

}  // namespace
}  // namespace varnhold::windows_test
