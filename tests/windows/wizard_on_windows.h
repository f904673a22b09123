#pragma once

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "tests/windows/program_on_windows.h"

namespace varnhold::windows_test {

inline constexpr const wchar_t* kInstall = L"Add Agent";
inline constexpr const wchar_t* kUninstall = L"Uninstall Remote Agent(s)";
inline constexpr const wchar_t* kUpgrade = L"Upgrade Remote Agent(s)";

inline constexpr const wchar_t* kAgentTypePage = L"Please select the type below";
inline constexpr const wchar_t* kPathPage = L"Select installation path on the remote machines:";

/// The computers of the lab, and what an install says of each.
struct LabComputer {
  const wchar_t* name;
  int type;
  const wchar_t* installed;
};

inline constexpr const wchar_t* kInstalled = L"Installed successfully";
inline constexpr const wchar_t* kNotStarted =
    L"Installed successfully - Could not start the service automatically. Please try manually.";
inline constexpr const wchar_t* kUnresolved = L"Could not resolve the IP Address for the system.";
inline constexpr const wchar_t* kUnreached =
    L"Failed to connect. This may be due to insufficient permission, remote drive not being shared or "
    L"network "
    L"problems.";
inline constexpr const wchar_t* kNoService =
    L"Failed to create service. This may be due to insufficient permission or network problems.";

inline constexpr LabComputer kLab[] = {
    {L"ATLAS", 7, kInstalled},   {L"BIRCH", 6, kInstalled},
    {L"CEDAR", 10, kInstalled},  {L"DELTA", 14, kInstalled},
    {L"EMBER", 16, kInstalled},  {L"FJORD", 15, kInstalled},
    {L"GROVE", 10, kUnresolved}, {L"HAVEN", 7, kUnreached},
    {L"INLET", 14, kNoService},  {L"JUNIPER", 6, kNotStarted},
    {L"KESTREL", 8, kInstalled}, {L"LINDEN", 5, kUnreached},  // wants an account
};
inline constexpr int kLabSize = static_cast<int>(std::size(kLab));

inline Names labNames() {
  Names names;
  for (const auto& computer : kLab) names.emplace_back(computer.name);
  return names;
}
/// The place of the computer in the lists.
inline int rowOf(const std::wstring& name) {
  const auto names = labNames();
  return static_cast<int>(std::find(names.begin(), names.end(), name) - names.begin());
}

/// A home with the lab's twelve computers in its inventory, and the wizard that the console opens there.
class WizardOnWindows : public ProgramOnWindows {
 protected:
  WizardOnWindows() : ProgramOnWindows(kLabSize) {
    for (int i = 0; i < kLabSize; ++i) {
      const auto& computer = kLab[i];
      cli::Stage::execute("INSERT INTO System_Table VALUES ('" + narrow(computer.name) + "', " +
                          std::to_string(computer.type) + ", '10.1.1." + std::to_string(11 + i) + "', '')");
    }
  }

  static std::string narrow(const std::wstring& name) {
    std::string text;
    for (const wchar_t letter : name) text += static_cast<char>(letter);
    return text;
  }
  static void addAgent(const std::string& name, int module, bool agentless) {
    cli::Stage::execute(
        "INSERT INTO Module_Table (System_Name, Module_ID, Agentless, Port, SystemType) VALUES ('" + name +
        "', " + std::to_string(module) + ", " + (agentless ? "1" : "0") + ", 8821, 0)");
  }
  /// An agent that is really there, put there by the command line.
  void installAgent(const std::string& name) { ASSERT_EQ(stage_.run({"-I", "-N:" + name}).exitStatus, 0); }
  [[nodiscard]] std::filesystem::path fileOf(const std::string& computer, const char* file) const {
    return stage_.home() / "lab" / computer / file;
  }
  static std::string read(const std::filesystem::path& path) {
    std::stringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }
  void makeSlow(const wchar_t* computer, const wchar_t* job, const wchar_t* milliseconds) const {
    ASSERT_TRUE(WritePrivateProfileStringW(L"delay_ms", job, milliseconds,
                                           fileOf(narrow(computer), "host.ini").wstring().c_str()));
  }

  /// Opens the wizard by the mnemonic of an entry of Options.
  void open(wchar_t entry, const wchar_t* title) {
    wizardTitle_ = title;
    chooseFromMenu(L'o', entry);
    ASSERT_NE(wizard(), nullptr);
  }
  [[nodiscard]] HWND wizard() const { return form(wizardTitle_); }
  /// The list at that place from the left.
  [[nodiscard]] NativeList listAt(std::size_t place) const {
    return NativeList(childrenOf(wizard(), L"SysListView32").at(place));
  }
  void waitForNamesAt(std::size_t place, const Names& names) const {
    EXPECT_TRUE(waitFor(
        [&] {
          return childrenOf(wizard(), L"SysListView32").size() > place && listAt(place).names() == names;
        },
        20))
        << "other computers than expected in list " << place;
  }
  [[nodiscard]] HWND button(const std::wstring& caption) const {
    return childOf(wizard(), L"Button", caption);
  }
  [[nodiscard]] bool isOn(const std::wstring& caption) const {
    auto* found = button(caption);
    return found != nullptr && IsWindowEnabled(found) != 0;
  }
  /// Waits until the button is enabled, and presses it.
  void click(const std::wstring& caption) const {
    ASSERT_TRUE(waitFor([&] { return isOn(caption); }, 20)) << "a button stays dark";
    clickButton(wizard(), caption);
  }
  /// All computers that are offered, and on to the page behind them.
  void takeAll(const Names& names) const {
    waitForNamesAt(0, names);
    click(L"Add All >>");
    waitForNamesAt(1, names);
    click(L"Next >");
  }
  void goToPathPage() const {
    ASSERT_TRUE(waitForText(kAgentTypePage));
    click(L"Next >");
    ASSERT_TRUE(waitForText(kPathPage));
  }
  [[nodiscard]] bool waitForText(const std::wstring& text, unsigned seconds = 20) const {
    return waitFor([&] { return childOf(wizard(), L"Static", text) != nullptr; }, seconds);
  }
  /// What the run's list says of a computer.
  [[nodiscard]] bool waitForRow(int row, const std::wstring& status, unsigned seconds = 30) const {
    return waitFor(
        [&] { return !childrenOf(wizard(), L"SysListView32").empty() && listAt(0).text(row, 1) == status; },
        seconds);
  }
  [[nodiscard]] Names statuses() const {
    Names found;
    const auto rows = listAt(0);
    for (int row = 0; row < rows.count(); ++row) found.push_back(rows.text(row, 1));
    return found;
  }
  /// The texts that stand in a window.
  static std::string captionsIn(HWND window) {
    std::string captions;
    for (auto* label : childrenOf(window, L"Static")) captions += "'" + narrow(captionOf(label)) + "' ";
    return captions;
  }
  /// A message box, which is read and closed.
  void confirm(const std::wstring& text, const wchar_t* title = L"Varnhold - System Manager") const {
    HWND box = nullptr;
    ASSERT_TRUE(waitFor([&] { return (box = windowOf(process_->id(), title)) != nullptr; }, 60))
        << "no message";
    EXPECT_NE(childOf(box, L"Static", text), nullptr) << "it reads " << captionsIn(box);
    clickButton(box, L"OK");
    ASSERT_TRUE(gone(title));
  }
  void confirmEnd(const wchar_t* title = L"Varnhold - System Manager") const {
    confirm(L"The process is complete. Please check the status against each computer.", title);
  }
  void finish() const {
    click(L"Finish");
    ASSERT_TRUE(gone(wizardTitle_));
  }
  void logIn() const {
    auto* prompt = form(L"Login");
    const auto boxes = childrenOf(prompt, L"Edit");
    ASSERT_EQ(boxes.size(), 2u);
    enterText(boxes[0], L"CORP\\admin");
    enterText(boxes[1], L"secret");
    clickButton(prompt, L"Login");
    ASSERT_TRUE(gone(L"Login"));
  }
  /// In the console's list.
  [[nodiscard]] bool waitForStatus(const wchar_t* name, const std::wstring& status) const {
    return waitFor([&] { return list().text(rowOf(name), 3) == status; }, 20);
  }

 private:
  const wchar_t* wizardTitle_ = kInstall;
};

}  // namespace varnhold::windows_test
