// The deployment wizard on Windows as it uninstalls and upgrades, worked by window messages alone.
#include "tests/windows/wizard_on_windows.h"

namespace varnhold::windows_test {
namespace {

constexpr const wchar_t* kChangesMessage = L"Tessmark? Agent Manager";

class WizardOfBothProducts : public WizardOnWindows {
 protected:
  WizardOfBothProducts() {
    const auto folder = stage_.home().wstring();
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Kelmont Works\\TKWindows", L"LocalRootDir", REG_SZ,
                    folder.c_str(), static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t)));
  }
  [[nodiscard]] Names snaps() const { return {listAt(0).text(0, 2), listAt(0).text(1, 2)}; }
  [[nodiscard]] bool waitForSnaps(const Names& expected) const {
    return waitFor([&] { return snaps() == expected; }, 10);
  }
};

TEST_F(WizardOfBothProducts, AClickOnKeepSnapsTurnsItOverAndTheUninstallTakesAllAgentsOff) {
  installAgent("ATLAS");
  addAgent("ATLAS", 2, false);
  addAgent("BIRCH", 1, true);
  start(L"TessmarkAgentManager.exe", kChanges);
  waitForConsole(labNames());
  EXPECT_TRUE(waitForStatus(L"ATLAS", L"Tracking Changes & Events"));
  open(L'r', kUninstall);
  takeAll({L"ATLAS", L"BIRCH"});
  ASSERT_TRUE(waitForText(L"Agent(s) will be uninstalled from the following remote computer(s)."));
  EXPECT_TRUE(waitForSnaps({L"No", L""}));
  for (const auto* answer : {L"Yes", L"No", L"Yes"}) {
    listAt(0).clickCell(0, 2);
    EXPECT_TRUE(waitForSnaps({answer, L""})) << "a click turns nothing over";
  }
  // Neither a computer without snapshots, nor another column.
  listAt(0).clickCell(1, 2);
  listAt(0).clickCell(0, 1);
  listAt(0).click(0);
  ASSERT_TRUE(waitFor([&] { return listAt(0).selected() == std::vector<int>{0}; }, 10));
  EXPECT_EQ(snaps(), (Names{L"Yes", L""}));

  click(L"Next >");
  ASSERT_TRUE(waitForText(kAgentTypePage));
  click(L"Next >");
  ASSERT_TRUE(waitForText(L"Select the Agent software(s) to uninstall."));
  click(L"Uninstall");
  logIn();
  confirmEnd(kChangesMessage);
  // With its end the prompt has brought up the product's page again, over the list of the run.
  EXPECT_NE(button(L"Varnhold for Windows"), nullptr);
  EXPECT_TRUE(waitForText(L"Completed successfully"));
  finish();
  EXPECT_TRUE(waitForStatus(L"ATLAS", L"Tracking Changes"));
  EXPECT_TRUE(waitForStatus(L"BIRCH", L"Unmanaged"));
  EXPECT_FALSE(std::filesystem::exists(fileOf("ATLAS", "services.ini")));
}

class UpgradeOnWindows : public WizardOnWindows, public testing::WithParamInterface<const wchar_t*> {
 protected:
  /// The agent that stands there turns into one of an earlier version.
  void makeOld(const std::string& name) const {
    const auto path = fileOf(name, "registry.reg");
    auto values = read(path);
    const auto at = values.find(kNew);
    ASSERT_NE(at, std::string::npos) << values;
    values.replace(at, kNew.size(), "\"Version\"=\"6.0\"");
    std::ofstream(path, std::ios::binary) << values;
  }

  const std::string kNew = "\"Version\"=\"7.0\"";
};

TEST_P(UpgradeOnWindows, BringsAnAgentToTheManagersVersion) {
  installAgent("ATLAS");
  makeOld("ATLAS");
  start();
  waitForConsole(labNames());
  open(L'u', kUpgrade);
  takeAll({L"ATLAS"});
  ASSERT_TRUE(waitForText(L"Agent(s) will be upgraded on the following remote computer(s)."));
  click(L"Next >");
  ASSERT_TRUE(waitFor([&] { return button(GetParam()) != nullptr; }, 20));
  EXPECT_TRUE(isChecked(button(L"Windows Domain Network")));
  click(GetParam());
  click(L"Upgrade");
  confirmEnd();
  EXPECT_EQ(statuses(), Names{L"Upgraded successfully"});
  EXPECT_TRUE(waitForText(L"Completed upgrading Agent software"));
  EXPECT_TRUE(waitForText(L"Completed successfully"));
  finish();
  EXPECT_NE(read(fileOf("ATLAS", "registry.reg")).find(kNew), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(BothWays, UpgradeOnWindows,
                         testing::Values(L"Windows Domain Network", L"Upgrade Over IP (Non Windows Domain)"),
                         [](const auto& way) { return way.index == 0 ? "OverTheNetwork" : "OverIP"; });

}  // namespace
}  // namespace varnhold::windows_test
