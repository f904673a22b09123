// The Windows console, driven from a second process by window messages; what it shows is read back out of its
// native list and tree.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "tests/cli/stage.h"
#include "tests/windows/native_window.h"

namespace varnhold::windows_test {
namespace {

using Names = std::vector<std::wstring>;

constexpr const wchar_t* kManager = L"Varnhold - System Manager ";
constexpr const wchar_t* kChanges = L"Tessmark? Agent Manager ";
constexpr const wchar_t* kModeForm = L"Select 'Auto Discover' Mode";

const Names& allComputers() {
  static const Names names{L"ANVIL", L"BELLOWS", L"CRUCIBLE", L"DIE", L"EMBER", L"FORGE"};
  return names;
}

class Process {
 public:
  explicit Process(const std::filesystem::path& program) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    auto line = L"\"" + program.wstring() + L"\"";
    started_ = CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                              &process_) != 0;
  }
  ~Process() {
    TerminateProcess(process_.hProcess, 9);
    WaitForSingleObject(process_.hProcess, 10000);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  [[nodiscard]] bool hasStarted() const { return started_; }
  [[nodiscard]] DWORD id() const { return process_.dwProcessId; }
  [[nodiscard]] bool runs() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT; }
  /// The exit status of the program, which must end by itself; 259 where it does not.
  [[nodiscard]] DWORD waitForEnd() const {
    WaitForSingleObject(process_.hProcess, 60000);
    DWORD status = 0;
    GetExitCodeProcess(process_.hProcess, &status);
    return status;
  }

 private:
  PROCESS_INFORMATION process_{};
  bool started_ = false;
};

class ConsoleOnWindows : public testing::Test {
 protected:
  ConsoleOnWindows() {
    stage_.putCompanion();
    std::filesystem::copy_file(cli::Stage::companionLibrary().parent_path() / "TessmarkAgentManager.exe",
                               stage_.home() / "TessmarkAgentManager.exe");
    fillInventory();
    saveMode(0);
  }

  static void fillInventory() {
    for (const char* values :
         {"'ANVIL', 7, '10.1.1.21', 'File server'", "'BELLOWS', 10, '10.1.1.22', ''",
          "'CRUCIBLE', 2, '10.1.1.23', 'Museum piece'", "'DIE', 9, '10.1.2.24', 'Reception'",
          "'EMBER', 7, '10.1.2.25', 'Backup'", "'FORGE', 4, '', 'Not resolved'"}) {
      cli::Stage::execute(std::string("INSERT INTO System_Table VALUES (") + values + ")");
    }
    for (const char* values :
         {"'ANVIL', 1, 0, 8821, 0", "'bellows', 2, 0, NULL, 0", "'CRUCIBLE', 1, 0, 8821, 0",
          "'DIE', 1, 1, 8822, 0", "'EMBER', 1, 0, 8823, 1"}) {
      cli::Stage::execute(
          std::string(
              "INSERT INTO Module_Table (System_Name, Module_ID, Agentless, Port, SystemType) VALUES (") +
          values + ")");
    }
    cli::Stage::execute("INSERT INTO System_Group_Master VALUES ('Servers', 'All that must not stop', 1)");
    cli::Stage::execute("INSERT INTO System_Group_Detail VALUES ('Servers', 0, '', '')");
    cli::Stage::execute("INSERT INTO System_Group VALUES ('ANVIL', 'Servers')");
    cli::Stage::execute("INSERT INTO System_Group VALUES ('EMBER', 'Servers')");
  }

  static void saveMode(DWORD mode) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Kelmont Works\\Quorvane", L"NetAccessMode", REG_DWORD,
                    &mode, sizeof mode);
  }
  static void forgetMode() {
    RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Kelmont Works\\Quorvane", L"NetAccessMode");
  }

  void start() {
    process_ = std::make_unique<Process>(stage_.home() / "AgentInstaller.exe");
    ASSERT_TRUE(process_->hasStarted());
  }

  void startAndFill() {
    start();
    ASSERT_TRUE(waitFor([&] {
      return window() != nullptr && childOf(window(), L"SysListView32") != nullptr;
    })) << "no console window";
    ASSERT_TRUE(waitForNames(allComputers()));
  }

  [[nodiscard]] HWND window() const { return windowOf(process_->id(), kManager); }
  [[nodiscard]] HWND form(const std::wstring& title) const {
    HWND found = nullptr;
    EXPECT_TRUE(waitFor([&] { return (found = windowOf(process_->id(), title)) != nullptr; }, 20))
        << "a form does not come up";
    return found;
  }
  [[nodiscard]] bool gone(const std::wstring& title) const {
    return waitFor([&] { return windowOf(process_->id(), title) == nullptr; }, 20);
  }
  [[nodiscard]] NativeList list() const { return NativeList(childOf(window(), L"SysListView32")); }
  [[nodiscard]] NativeTree tree() const { return NativeTree(childOf(window(), L"SysTreeView32")); }
  [[nodiscard]] bool waitForNames(const Names& names) const {
    const bool found = waitFor([&] { return list().names() == names; }, 30);
    EXPECT_EQ(list().names(), names);
    return found;
  }
  /// By the mnemonics of a menu and of its entry.
  void chooseFromMenu(wchar_t menu, wchar_t entry) const {
    openMenu(window(), menu);
    ASSERT_TRUE(waitFor([&] { return openMenuOf(process_->id()) != nullptr; }, 20))
        << "the menu does not open";
    pressInMenu(window(), entry);
  }
  static void clickButton(HWND window, const std::wstring& caption) {
    auto* button = childOf(window, L"Button", caption);
    ASSERT_NE(button, nullptr) << "no such button";
    PostMessageW(button, BM_CLICK, 0, 0);
  }

  cli::Stage stage_;
  std::unique_ptr<Process> process_;
};

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

TEST_F(ConsoleOnWindows, ASecondStartBringsTheMinimisedConsoleToTheFrontAndEnds) {
  startAndFill();
  ShowWindow(window(), SW_MINIMIZE);
  ASSERT_TRUE(waitFor([&] { return IsIconic(window()) != 0; }));
  const Process second(stage_.home() / "AgentInstaller.exe");
  EXPECT_EQ(second.waitForEnd(), 0u);
  EXPECT_TRUE(waitFor([&] { return IsIconic(window()) == 0 && IsZoomed(window()) != 0; }, 10));
  EXPECT_TRUE(process_->runs());
}

TEST_F(ConsoleOnWindows, BothProductsRunAtOnce) {
  startAndFill();
  const Process changes(stage_.home() / "TessmarkAgentManager.exe");
  EXPECT_TRUE(waitFor([&] { return windowOf(changes.id(), kChanges) != nullptr; }));
  EXPECT_TRUE(process_->runs());
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
