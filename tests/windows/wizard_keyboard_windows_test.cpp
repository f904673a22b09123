// The deployment wizard on Windows for a person without a mouse.
#include "tests/windows/wizard_on_windows.h"

namespace varnhold::windows_test {
namespace {

class WizardByKeyboard : public WizardOnWindows {
 protected:
  void openInFront(wchar_t entry, const wchar_t* title) {
    open(entry, title);
    ASSERT_TRUE(waitFor([&] { return GetForegroundWindow() == wizard(); }, 10))
        << "the wizard is not in front";
    ASSERT_TRUE(waitFor([&] { return focusOf(wizard()) != nullptr; }, 10)) << "nothing has the focus";
  }
  /// Every thing on the page that a person can act on is reached by Tab.
  void expectTabReachesEverything(const char* page) const {
    const auto round = tabRound(wizard());
    for (auto* control : childrenOf(wizard())) {
      if (!isTabStop(control)) continue;
      EXPECT_NE(std::find(round.begin(), round.end(), control), round.end())
          << page << ": Tab does not lead to the " << narrow(classOf(control)) << " '"
          << narrow(captionOf(control)) << "'";
    }
  }
  void altTo(wchar_t letter, const wchar_t* page) const {
    typeKey(static_cast<WORD>(towupper(letter)), VK_MENU);
    ASSERT_TRUE(waitForText(page));
  }
  /// By Tab until the focus is there.
  void tabTo(const std::wstring& caption) const {
    for (int keys = 0; keys < 40 && captionOf(focusOf(wizard())) != caption; ++keys) {
      auto* before = focusOf(wizard());
      typeKey(VK_TAB);
      ASSERT_TRUE(waitFor([&] { return focusOf(wizard()) != before; }, 3));
    }
    ASSERT_EQ(captionOf(focusOf(wizard())), caption);
  }
  [[nodiscard]] bool waitForChecked(const std::wstring& caption) const {
    return waitFor([&] { return button(caption) != nullptr && isChecked(button(caption)); }, 5);
  }
};

TEST_F(WizardByKeyboard, ReachesEverythingOfAnInstall) {
  start();
  waitForConsole(labNames());
  openInFront(L'a', kInstall);
  waitForNamesAt(0, labNames());
  typeKey('A', VK_MENU);  // the first computer, which has been selected
  ASSERT_TRUE(waitFor([&] { return isOn(L"Next >"); }, 10));
  expectTabReachesEverything("computers");
  altTo('N', kAgentTypePage);
  expectTabReachesEverything("type of agent");
  altTo('N', kPathPage);
  expectTabReachesEverything("path");
  altTo(
      'A',
      L"After events are collected, they are processed at the Manager. To apply a predefined configuration, "
      L"select 'Custom' and specify that file (eg.C:\\vhaconfig.ini). You can also select 'Default' and "
      L"configure this later.");
  tabTo(L"Default");
  typeKey(VK_DOWN);
  EXPECT_TRUE(waitForChecked(L"Custom Config"));
  expectTabReachesEverything("configuration");
  tabTo(L"Custom Config");  // there is no way back without its file
  typeKey(VK_UP);
  EXPECT_TRUE(waitForChecked(L"Default"));
  altTo('B', kPathPage);
  altTo('B', kAgentTypePage);
  tabTo(L"Agent based (Full featured)");
  typeKey(VK_DOWN);
  EXPECT_TRUE(waitForChecked(L"Agent-less (limited features)*"));
  altTo('N', L"Select the polling frequency :");
  expectTabReachesEverything("polling");
  typeKey(VK_ESCAPE);
  EXPECT_TRUE(gone(kInstall));
}

TEST_F(WizardByKeyboard, ReachesEverythingOfAnUpgrade) {
  addAgent("ATLAS", 1, false);
  start();
  waitForConsole(labNames());
  openInFront(L'u', kUpgrade);
  waitForNamesAt(0, {L"ATLAS"});
  typeKey('A', VK_MENU);
  waitForNamesAt(1, {L"ATLAS"});
  altTo('N', L"Agent(s) will be upgraded on the following remote computer(s).");
  expectTabReachesEverything("list");
  altTo(
      'N',
      L"Select the method of upgrade. Choose 'Upgrade Over IP' option to upgrade the agent which is outside "
      L"the domain.");
  tabTo(L"Windows Domain Network");
  typeKey(VK_DOWN);
  EXPECT_TRUE(waitForChecked(L"Upgrade Over IP (Non Windows Domain)"));
  expectTabReachesEverything("way");
  typeKey(VK_ESCAPE);
  EXPECT_TRUE(gone(kUpgrade));
}

}  // namespace
}  // namespace varnhold::windows_test
