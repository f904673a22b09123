// The deployment wizard on Windows as it installs: its pages and lists are native windows, worked by window
// messages alone.
#include "tests/windows/wizard_on_windows.h"

namespace varnhold::windows_test {
namespace {

Names whatBecomesOfThem() {
  Names statuses;
  for (const auto& computer : kLab) statuses.emplace_back(computer.installed);
  return statuses;
}

/// The Notepad that shows this file, of whatever process it is.
HWND notepadWith(const std::wstring& file) {
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, L"Notepad", nullptr)) != nullptr) {
    if (textOf(window).starts_with(file)) return window;
  }
  return nullptr;
}

TEST_F(WizardOnWindows, InstallsOnTwelveComputersAndSaysWhatCameOfEach) {
  makeSlow(L"FJORD", L"install", L"4000");
  start();
  waitForConsole(labNames());
  open(L'a', kInstall);
  takeAll(labNames());
  goToPathPage();
  click(L"Install");
  ASSERT_TRUE(waitForRow(rowOf(L"EMBER"), kInstalled));
  EXPECT_TRUE(waitForText(L"Please wait... Installing Agent(s)..."));
  EXPECT_EQ(listAt(0).text(rowOf(L"FJORD"), 1), L"Unmanaged");

  confirmEnd();
  EXPECT_EQ(statuses(), whatBecomesOfThem());
  EXPECT_TRUE(waitForText(L"Completed installing Agent software."));
  EXPECT_TRUE(waitForText(L"Certain errors were encountered please select 'View Log' to view the log"));
  // What is viewed lies beside the program, what a run writes in the installer's folder.
  stage_.writeFile("AILog.txt", "from the command line");
  click(L"View Log");
  HWND notepad = nullptr;
  ASSERT_TRUE(waitFor([&] { return (notepad = notepadWith(L"AILog.txt")) != nullptr; }, 20)) << "no log";
  EXPECT_EQ(textOf(childOf(notepad, L"Edit")), L"from the command line");
  PostMessageW(notepad, WM_CLOSE, 0, 0);
  EXPECT_NE(
      read(stage_.home() / "RemoteInstaller" / "AILog.txt").find("\"INLET - " + narrow(kNoService) + "\""),
      std::string::npos);

  finish();
  EXPECT_TRUE(waitForStatus(L"ATLAS", L"Managed - Standard Mode"));
  EXPECT_TRUE(waitForStatus(L"JUNIPER", L"Managed - Standard Mode"));
  EXPECT_TRUE(waitForStatus(L"INLET", L"Unmanaged"));
  EXPECT_TRUE(std::filesystem::exists(fileOf("ATLAS", "services.ini")));
  EXPECT_FALSE(std::filesystem::exists(fileOf("INLET", "services.ini")));
}

TEST_F(WizardOnWindows, AStopFinishesTheComputerInHandAndLeavesTheOthers) {
  makeSlow(L"BIRCH", L"install", L"8000");
  start();
  waitForConsole(labNames());
  open(L'a', kInstall);
  takeAll(labNames());
  goToPathPage();
  click(L"Install");
  ASSERT_TRUE(waitForRow(rowOf(L"ATLAS"), kInstalled));
  // The window does not close while a run is under way.
  PostMessageW(wizard(), WM_CLOSE, 0, 0);
  click(L"Cancel");
  EXPECT_TRUE(waitForText(L"Update cancelled (finishing current task)"));
  confirmEnd();
  EXPECT_TRUE(waitForText(L"Action stopped by user"));
  EXPECT_FALSE(isOn(L"View Log"));
  Names expected(kLabSize, L"Unmanaged");
  expected[0] = expected[1] = kInstalled;
  EXPECT_EQ(statuses(), expected);
  finish();
  EXPECT_TRUE(waitForStatus(L"BIRCH", L"Managed - Standard Mode"));
  EXPECT_TRUE(waitForStatus(L"CEDAR", L"Unmanaged"));
}

}  // namespace
}  // namespace varnhold::windows_test
