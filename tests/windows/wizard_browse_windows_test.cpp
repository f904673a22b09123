// The wizard's "Browse" on Windows, whose dialog is the system's own.
#include "tests/windows/wizard_on_windows.h"

namespace varnhold::windows_test {
namespace {

constexpr const wchar_t* kDialog = L"Select Config File";

class BrowseOnWindows : public WizardOnWindows {
 protected:
  /// To the page with the configuration, for an install on the first computer.
  void goToConfiguration() {
    start();
    waitForConsole(labNames());
    open(L'a', kInstall);
    waitForNamesAt(0, labNames());
    click(L"Add ->");
    waitForNamesAt(1, {L"ATLAS"});
    click(L"Next >");
    goToPathPage();
    click(L"Advanced");
    ASSERT_TRUE(waitFor([&] { return button(L"Custom Config") != nullptr; }, 20));
    click(L"Custom Config");
  }
  [[nodiscard]] HWND browse() const {
    click(L"Browse...");
    return form(kDialog);
  }
  [[nodiscard]] std::wstring chosen() const { return textOf(childrenOf(wizard(), L"Edit").at(0)); }
};

TEST_F(BrowseOnWindows, ACancelledDialogChoosesNothingAndAFileIsSentToTheComputer) {
  const std::string content = "[Performance]\r\nHighPerformance=0\r\n[Own]\r\nName=custom\r\n";
  stage_.writeFile("custom.ini", content);
  const auto file = (stage_.home() / "custom.ini").wstring();
  goToConfiguration();
  clickButton(browse(), L"Cancel");
  ASSERT_TRUE(gone(kDialog));
  EXPECT_EQ(chosen(), L"");
  EXPECT_TRUE(isChecked(button(L"Custom Config")));

  auto* dialog = browse();
  auto* name = childOf(dialog, L"Edit", L"*.ini");
  ASSERT_NE(name, nullptr) << "no box for the name";
  enterText(name, file);
  clickButton(dialog, L"Open");
  ASSERT_TRUE(gone(kDialog));
  EXPECT_TRUE(waitFor([&] { return chosen() == file; }, 10)) << narrow(chosen());

  click(L"Install");
  confirmEnd();
  EXPECT_EQ(statuses(), Names{kInstalled});
  finish();
  EXPECT_EQ(read(fileOf("ATLAS", "C") / "Program Files/Kelmont Works/Varnhold/vhaconfig.ini"), content);
}

}  // namespace
}  // namespace varnhold::windows_test
