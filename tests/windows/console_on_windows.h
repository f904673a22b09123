#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/cli/stage.h"
#include "tests/windows/native_window.h"

namespace varnhold::windows_test {

using Names = std::vector<std::wstring>;

inline constexpr const wchar_t* kManager = L"Varnhold - System Manager ";
inline constexpr const wchar_t* kChanges = L"Tessmark? Agent Manager ";
inline constexpr const wchar_t* kModeForm = L"Select 'Auto Discover' Mode";

inline const Names& allComputers() {
  static const Names names{L"ANVIL", L"BELLOWS", L"CRUCIBLE", L"DIE", L"EMBER", L"FORGE"};
  return names;
}

/// A program started for a test, which it does not outlive.
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

/// A home with a known inventory, and the console in it.
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

}  // namespace varnhold::windows_test
