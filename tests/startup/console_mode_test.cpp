// The console's start, from the empty command line to the form that the operator sees.
#include "startup/console_mode.h"

#include <gmock/gmock.h>

#include "base/runtime_error.h"
#include "core/registry_values.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"
#include "tests/fakes/scripted_ui.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::startup {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ConsoleModeTest : public testing::Test {
 protected:
  explicit ConsoleModeTest(const char* title = core::kManagerTitle)
      : ui(fake.journal, title), program(fake.host(ui.screen), title, fake.statementListener()) {
    fake.libraries.netAccessMode = 1;
  }

  int run() { return runConsoleProcess(program, ui.screen, forms); }
  /// What stands in the journal between two lines, both included.
  fakes::Journal between(const std::string& first, const std::string& last) {
    const auto from = std::find(fake.journal.begin(), fake.journal.end(), first);
    const auto to = std::find(from, fake.journal.end(), last);
    EXPECT_NE(to, fake.journal.end()) << "no " << first << " with " << last << " behind it";
    return to == fake.journal.end() ? fakes::Journal() : fakes::Journal(from, to + 1);
  }
  static bool isOn(const ui::MenuItem& item) { return item.Visible && item.Enabled; }

  fakes::FakeHost fake;
  fakes::TestInventory inventory;
  fakes::ScriptedUi ui;
  core::Program program;
  console::Forms forms{program, ui.screen};
  console::frmMain& frmMain = forms.frmMain;
};

class ChangesModeTest : public ConsoleModeTest {
 protected:
  ChangesModeTest() : ConsoleModeTest(core::kChangesTitle) {}
};

TEST_F(ConsoleModeTest, RunsTheWholeStartInItsDocumentedOrder) {
  fake.registry.setText(core::kManagerKey, "INSTALLPATH", R"(C:\Varnhold)");
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(
      fake.journal,
      LinesAre({"PreviousInstance Varnhold - System Manager -> no",
                R"(SetCurrentDirectory C:\VARNHOLD -> yes)",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\Quorvane\DBPath -> KeyMissing)",
                "Show frmSplash",
                "qrvInitDbConnection",
                "AnnounceWindow Varnhold - System Manager ",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\Varnhold\Manager\INSTALLPATH -> Done)",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\Varnhold\Manager\SWINSTALLPATH -> ValueMissing)",
                "Close frmSplash",
                "qrvGetNetAccessMode -> 1 mode 1",
                "qrvGetNetAccessMode -> 1 mode 1",  // by the form that is loaded then
                "GetComputerName -> MANAGER",
                "Show frmMain",
                "Pointer 11",
                "qrvNetworkEnum -> 7",
                "Sleep 400",
                "SQL: SELECT * FROM System_Group_Detail",
                "SQL: SELECT * FROM System_Table WHERE System_Type <> 99999",
                "SQL: SELECT * FROM Module_Table",
                "Pointer 0",
                "Close frmMain",
                "WithdrawWindow Varnhold - System Manager "}));
}

TEST_F(ConsoleModeTest, ShowsTheConsoleWithItsTitleAndABlank) {
  ui.onLoop = [&] {
    EXPECT_EQ(frmMain.Caption, "Varnhold - System Manager ");
    EXPECT_TRUE(frmMain.Visible());
    EXPECT_FALSE(forms.frmSplash.isLoaded());
    EXPECT_TRUE(program.gConn.isOpen());
    EXPECT_EQ(program.gLocalName, "MANAGER");
    EXPECT_EQ(program.gDbPath, R"(C:\VARNHOLD)");
  };
  EXPECT_EQ(run(), 0);
}

TEST_F(ConsoleModeTest, OffersTheAgentCommandsWhereTheManagerIsInstalled) {
  fake.registry.setText(core::kManagerKey, "INSTALLPATH", R"(C:\Varnhold)");
  ui.onLoop = [&] {
    EXPECT_TRUE(isOn(frmMain.mnuToolsTrackEvents));
    EXPECT_TRUE(isOn(frmMain.mnuAgent));
    EXPECT_TRUE(isOn(frmMain.mnuToolsInstall));
    EXPECT_TRUE(frmMain.tbClientManager.Visible);
    EXPECT_FALSE(isOn(frmMain.mnuToolsTrackChanges));
  };
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gEventsConsole, R"("C:\Varnhold\VHConsole.exe")");
  EXPECT_EQ(program.gInstallerDir, R"(C:\Varnhold\RemoteInstaller)");
}

TEST_F(ConsoleModeTest, OffersNoAgentCommandsWithoutTheManager) {
  ui.onLoop = [&] {
    EXPECT_FALSE(frmMain.mnuAgent.Visible);
    EXPECT_FALSE(frmMain.mnuToolsInstall.Visible);
    EXPECT_FALSE(frmMain.mnuPopUpListInstall.Visible);
    EXPECT_FALSE(frmMain.tbClientManager.Visible);
  };
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gInstallerDir, "");
  EXPECT_EQ(program.gEventsConsole, "");
  EXPECT_THAT(fakes::linesOf(fake.journal, "MessageBox"), ElementsAre());
}

TEST_F(ConsoleModeTest, KeepsTheTrapConsoleOutOfTheMenus) {
  fake.registry.setText(core::kManagerKey, "SWINSTALLPATH", R"(C:\Traps)");
  fake.registry.setText(core::kManagerKey, "INSTALLPATH", R"(C:\Varnhold)");
  ui.onLoop = [&] {
    EXPECT_FALSE(frmMain.mnuToolsTrackTraps.Visible);
    EXPECT_FALSE(frmMain.mnuToolsTrackTraps.Enabled);
    EXPECT_FALSE(frmMain.mnuToolsSystemExplorer.Visible);
    EXPECT_FALSE(frmMain.mnuToolsHestray.Visible);
    EXPECT_FALSE(frmMain.mnuTools.Visible);
  };
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gTrapsConsole, R"("C:\Traps\SWConsole.exe")");
}

TEST_F(ConsoleModeTest, LooksForNoChangeProductUnderTheManagersTitle) {
  fake.registry.setText(core::kFileChangesKey, "LocalRootDir", R"(C:\Files)");
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gChangesName, "Tessmark? for Windows");
  EXPECT_EQ(program.gChangesRoot, "");
  EXPECT_EQ(program.gChangesConsole, "");
}

TEST_F(ChangesModeTest, ShowsItsOwnSplashAndLooksForItsProducts) {
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(
      between("Show frmTKWSplash", "Close frmTKWSplash"),
      LinesAre({"Show frmTKWSplash", "qrvInitDbConnection", "AnnounceWindow Tessmark? Agent Manager ",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\TKWindows\LocalRootDir -> KeyMissing)",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\TKWFileTracker\LocalRootDir -> KeyMissing)",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\TKWRegTracker\LocalRootDir -> KeyMissing)",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\Varnhold\Manager\INSTALLPATH -> KeyMissing)",
                R"(RegQueryValueEx SOFTWARE\Kelmont Works\Varnhold\Manager\SWINSTALLPATH -> KeyMissing)",
                "Close frmTKWSplash"}));
}

TEST_F(ChangesModeTest, OffersTheAgentCommandsThoughNoProductWasFound) {
  ui.onLoop = [&] {
    EXPECT_TRUE(isOn(frmMain.mnuToolsTrackChanges));
    EXPECT_TRUE(isOn(frmMain.mnuAgent));
    EXPECT_FALSE(isOn(frmMain.mnuToolsTrackEvents));
    EXPECT_EQ(frmMain.mnuToolsTrackChanges.Caption, "&Tessmark? for Windows (Track Changes)");
    EXPECT_EQ(frmMain.Caption, "Tessmark? Agent Manager ");
  };
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gChangesName, "Tessmark? for Windows");
  EXPECT_EQ(program.gChangesRoot, "");
}

TEST_F(ChangesModeTest, TurnsOnBothSetsWhereTheManagerIsInstalledToo) {
  fake.registry.setText(core::kManagerKey, "INSTALLPATH", R"(C:\Varnhold)");
  ui.onLoop = [&] {
    EXPECT_TRUE(isOn(frmMain.mnuToolsTrackChanges));
    EXPECT_TRUE(isOn(frmMain.mnuToolsTrackEvents));
  };
  EXPECT_EQ(run(), 0);
}

struct Product {
  const char *key, *name, *caption;
};

class ChangeProductTest : public ChangesModeTest, public testing::WithParamInterface<Product> {};

TEST_P(ChangeProductTest, GivesItsNameItsCaptionAndItsFolder) {
  fake.registry.setText(GetParam().key, "LocalRootDir", R"(C:\Changes)");
  ui.onLoop = [&] { EXPECT_EQ(frmMain.mnuToolsTrackChanges.Caption, GetParam().caption); };
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gChangesName, GetParam().name);
  EXPECT_EQ(program.gChangesRoot, R"(C:\Changes)");
  EXPECT_EQ(program.gChangesConsole, R"("C:\Changes\TkWindows.exe")");
}

INSTANTIATE_TEST_SUITE_P(EachProduct, ChangeProductTest,
                         testing::Values(Product{core::kWindowsChangesKey, "Tessmark? for Windows",
                                                 "&Tessmark? for Windows (Track Changes)"},
                                         Product{core::kFileChangesKey, "Tessmark? for Files",
                                                 "&Tessmark? for Files (Track Files)"},
                                         Product{core::kRegistryChangesKey, "Tessmark? for Registry",
                                                 "&Tessmark? for Registry (Track Registry)"}));

TEST_F(ChangesModeTest, TheFirstProductThatIsFoundEndsTheSearch) {
  fake.registry.setText(core::kFileChangesKey, "LocalRootDir", R"(C:\Files)");
  fake.registry.setText(core::kRegistryChangesKey, "LocalRootDir", R"(C:\Registry)");
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gChangesRoot, R"(C:\Files)");
  EXPECT_THAT(fake.journal, Not(Contains(HasSubstr("TKWRegTracker"))));
}

class OtherTitleTest : public ConsoleModeTest {
 protected:
  OtherTitleTest() : ConsoleModeTest("tessmark? agent manager") {}
};

TEST_F(OtherTitleTest, ComparesTheTitleExactly) {
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(fake.journal, Contains("Show frmSplash"));
  EXPECT_THAT(fake.journal, Not(Contains(HasSubstr("TKWindows"))));
}

class StoredModeTest : public ConsoleModeTest, public testing::WithParamInterface<int> {};

TEST_P(StoredModeTest, IsTakenWithoutShowingItsForm) {
  const bool isAutomatic = GetParam() != 0;
  fake.libraries.netAccessMode = static_cast<std::uint8_t>(GetParam());
  ui.onLoop = [&] {
    EXPECT_EQ(forms.frmNetAccessSel.AutoDiscover, isAutomatic);
    EXPECT_TRUE(forms.frmNetAccessSel.isLoaded());
    EXPECT_FALSE(forms.frmNetAccessSel.Visible());
    EXPECT_EQ(frmMain.sbStatusBar.Panels(2).Text, isAutomatic ? "Auto Discover" : "Manual");
  };
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvSetNetAccessMode"), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(ManualAutomaticAndAnyOther, StoredModeTest, testing::Values(0, 1, 7));

TEST_F(ConsoleModeTest, AsksForADiscoveryModeBeforeTheConsoleWhereNoneIsStored) {
  fake.libraries.netAccessMode.reset();
  ui.nextModal("frmNetAccessSel", [&](ui::Form& form) {
    EXPECT_FALSE(frmMain.Visible());
    EXPECT_TRUE(frmMain.isLoaded());
    forms.frmNetAccessSel.optManual.userClick();
    form.Unload();
  });
  ui.onLoop = [&] { EXPECT_EQ(frmMain.sbStatusBar.Panels(2).Text, "Manual"); };
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(between("Close frmSplash", "Show frmMain"),
              LinesAre({"Close frmSplash", "qrvGetNetAccessMode -> 0", "qrvGetNetAccessMode -> 0",
                        "Show modal frmNetAccessSel", "qrvSetNetAccessMode 0 -> 1", "Close frmNetAccessSel",
                        "GetComputerName -> MANAGER", "Show frmMain"}));
}

TEST_F(ConsoleModeTest, LeavesItToTheLibraryToFindNothingInManualMode) {
  fake.libraries.netAccessMode = 0;
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvNetworkEnum"), LinesAre({"qrvNetworkEnum -> 7"}));
}

TEST_F(ConsoleModeTest, CallsAComputerWithoutNameLocalHost) {
  fake.environment.computerName = std::nullopt;
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gLocalName, "LocalHost");
}

TEST_F(ConsoleModeTest, CutsTheLocalNameAtItsFirstNul) {
  fake.environment.computerName = std::string("MANAGER\0\0X", 10);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(program.gLocalName, "MANAGER");
}

TEST_F(ConsoleModeTest, ShowsADataSourceThatCannotBeOpenedAndEnds) {
  inventory.takeAway();
  ui.endsByRunTimeError = true;
  EXPECT_EQ(run(), 1);
  EXPECT_THAT(fakes::linesOf(fake.journal, "MessageBox"),
              ElementsAre(StartsWith("MessageBox critical: Run-time error '-2147467259':")));
  // It is opened behind the library's own connection and before the products are looked for.
  EXPECT_THAT(fake.journal, Contains("qrvInitDbConnection"));
  EXPECT_THAT(fake.journal, Not(Contains(HasSubstr("INSTALLPATH"))));
  EXPECT_THAT(fake.journal, Not(Contains("Show frmMain")));
}

TEST_F(ConsoleModeTest, ShowsALibraryThatIsMissingAndEnds) {
  fake.libraries.failures.insert({"qrvInitDbConnection", RuntimeError(53, "qrvUtil.dll was not found.")});
  ui.endsByRunTimeError = true;
  EXPECT_EQ(run(), 1);
  EXPECT_THAT(fakes::linesOf(fake.journal, "MessageBox"),
              ElementsAre(AllOf(StartsWith("MessageBox critical: Run-time error '53':"),
                                HasSubstr("qrvUtil.dll was not found."))));
}

TEST_F(ConsoleModeTest, EndsWithASystemModalBoxWhenTheWorkingDirectoryCannotBeSet) {
  fake.environment.acceptsDirectory = false;
  EXPECT_EQ(run(), 1);
  EXPECT_THAT(fakes::linesOf(fake.journal, "MessageBox"),
              LinesAre({"MessageBox critical system modal: Could not set the working directory. "
                        "Aborting..."}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "Show"), ElementsAre());
}

TEST_F(ConsoleModeTest, EndsSilentlyBesideAConsoleThatComesToTheFront) {
  fake.desktop.otherInstances.insert("Varnhold - System Manager");
  fake.desktop.windows["Varnhold - System Manager "] = {};
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(fakes::linesOf(fake.journal, "MessageBox"), ElementsAre());
  EXPECT_THAT(fakes::linesOf(fake.journal, "Show frm"), ElementsAre());
}

TEST_F(ConsoleModeTest, AnswersASecondStartByComingUpMaximised) {
  ui.onLoop = [&] {
    frmMain.WindowState = ui::WindowState::Minimized;
    fake.desktop.requests.push_back({"Varnhold - System Manager ", platform::ShowState::Maximised});
    ui.advance(1'000);
    EXPECT_EQ(frmMain.WindowState, ui::WindowState::Maximized);
    EXPECT_TRUE(fake.desktop.requests.empty());
  };
  EXPECT_EQ(run(), 0);
}

TEST_F(ConsoleModeTest, ClosesItsThreadsAndConnectionsWhenTheOperatorLeaves) {
  ui.onLoop = [&] { frmMain.userClose(); };
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(program.gClosing);
  EXPECT_FALSE(program.gConn.isOpen());
  EXPECT_THAT(between("Show modal frmWait", "WithdrawWindow Varnhold - System Manager "),
              LinesAre({"Show modal frmWait", "Sleep 200", "GetExitCodeThread 7 -> 1000", "CloseHandle 7",
                        "Close frmWait", "Pointer 11", "Pointer 0", "qrvCloseDbConnection", "Close frmMain",
                        "WithdrawWindow Varnhold - System Manager "}));
}

}  // namespace
}  // namespace varnhold::startup
