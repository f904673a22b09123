// A second start of the Windows console, whatever the first is doing.
#include "store/command.h"
#include "store/connection.h"
#include "tests/windows/console_on_windows.h"

namespace varnhold::windows_test {
namespace {

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

TEST_F(ConsoleOnWindows, ASecondStartEndsWhileADialogIsOpen) {
  startAndFill();
  list().doubleClick(0);
  auto* details = form(L"Details");
  const Process second(stage_.home() / "AgentInstaller.exe");
  EXPECT_EQ(second.waitForEnd(), 0u);
  EXPECT_TRUE(process_->runs());
  clickButton(details, L"OK");
  EXPECT_TRUE(gone(L"Details"));
}

/// Keeps the inventory from opening.
class HeldInventory {
 public:
  HeldInventory() {
    connection_.Open("qrvdb", "", "");
    run("PRAGMA locking_mode = EXCLUSIVE");
    run("BEGIN EXCLUSIVE");
  }
  void release() { connection_.Close(); }

 private:
  void run(const char* statement) {
    store::Command command;
    command.ActiveConnection = &connection_;
    command.CommandText = statement;
    command.Execute();
  }

  store::Connection connection_;
};

TEST_F(ConsoleOnWindows, ASecondStartWhileTheFirstIsStartingSaysSoAndEnds) {
  HeldInventory held;
  start();
  ASSERT_TRUE(waitFor([&] { return showsWindow(process_->id()); })) << "no splash";
  const Process second(stage_.home() / "AgentInstaller.exe");
  HWND box = nullptr;
  ASSERT_TRUE(waitFor([&] { return (box = windowOf(second.id(), L"Varnhold - System Manager")) != nullptr; }))
      << "no message";
  clickButton(box, L"OK");
  EXPECT_EQ(second.waitForEnd(), 0u);
  EXPECT_TRUE(process_->runs());
  held.release();
  ASSERT_TRUE(waitFor([&] { return window() != nullptr && childOf(window(), L"SysListView32") != nullptr; }));
  EXPECT_TRUE(waitForNames(allComputers()));
}

}  // namespace
}  // namespace varnhold::windows_test
