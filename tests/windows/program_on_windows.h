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

/// A home, and the program in it.
class ProgramOnWindows : public testing::Test {
 protected:
  explicit ProgramOnWindows(int labComputers = 0) : stage_(labComputers) {
    stage_.putCompanion();
    std::filesystem::copy_file(cli::Stage::companionLibrary().parent_path() / "TessmarkAgentManager.exe",
                               stage_.home() / "TessmarkAgentManager.exe");
    saveMode(0);
  }

  static void saveMode(DWORD mode) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Kelmont Works\\Quorvane", L"NetAccessMode", REG_DWORD,
                    &mode, sizeof mode);
  }
  static void forgetMode() {
    RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Kelmont Works\\Quorvane", L"NetAccessMode");
  }

  void start(const wchar_t* program = L"AgentInstaller.exe", const wchar_t* title = kManager) {
    title_ = title;
    process_ = std::make_unique<Process>(stage_.home() / program);
    ASSERT_TRUE(process_->hasStarted());
  }
  /// Until the console lists exactly these computers.
  void waitForConsole(const Names& computers) const {
    ASSERT_TRUE(waitFor([&] {
      return window() != nullptr && childOf(window(), L"SysListView32") != nullptr;
    })) << "no console window";
    ASSERT_TRUE(waitForNames(computers));
  }

  [[nodiscard]] HWND window() const { return windowOf(process_->id(), title_); }
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
    Names shown;
    const bool found = waitFor([&] { return (shown = list().names()) == names; }, 30);
    EXPECT_EQ(shown, names);
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

 private:
  const wchar_t* title_ = kManager;
};

}  // namespace varnhold::windows_test
