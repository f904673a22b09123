// How the console comes up, is activated, sized and closed.
#include <gmock/gmock.h>

#include "core/registry_values.h"
#include "tests/console/console_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LifeTest : public OpenConsoleTest {};

TEST_F(LifeTest, LoadsWithABlankBehindItsTitleAndIsNotSeenYet) {
  program.gDomainThread = program.gSubnetThread = program.gSpareThread = 9;
  frmMain.SuppressNodeEvents = true;
  frmMain.Load();
  EXPECT_EQ(frmMain.Caption, "Varnhold - System Manager ");
  EXPECT_GT(frmMain.Width, 3000);
  EXPECT_GT(frmMain.Height, 0);
  EXPECT_FALSE(frmMain.Visible());
  EXPECT_FALSE(frmMain.SuppressNodeEvents);
  EXPECT_EQ(program.gDomainThread + program.gSubnetThread + program.gSpareThread, 0u);
  EXPECT_THAT(fake.journal, IsEmpty());
}

/// The same program under the other product's title.
class ChangesTitleTest : public ConsoleTest {
 protected:
  ChangesTitleTest() : ConsoleTest(core::kChangesTitle) {}
};

TEST_F(LifeTest, BearsTheIconOfItsTitle) {
  EXPECT_EQ(frmMain.Icon, "app-varnhold");
}

TEST_F(ChangesTitleTest, BearsTheIconOfItsTitle) {
  frmMain.Load();
  EXPECT_EQ(frmMain.Icon, "app-tessmark");
  EXPECT_EQ(frmMain.Caption, "Tessmark? Agent Manager ");
}

TEST_F(ChangesTitleTest, SplashesTellTheTitle) {
  for (const auto* splash :
       {static_cast<SplashForm*>(&forms.frmSplash), static_cast<SplashForm*>(&forms.frmTKWSplash)}) {
    EXPECT_EQ(splash->lblProduct.Caption, "Tessmark? Agent Manager") << splash->Name();
    EXPECT_EQ(splash->BorderStyle, ui::BorderStyle::None) << splash->Name();
  }
}

TEST_F(LifeTest, FillsTreeAndListWhenItIsFirstActivated) {
  addComputer("HOST1");
  addGroup("Servers", {"HOST1"});
  StatusWatch watch(frmMain.sbStatusBar, fake.journal);
  Lines whileEnumerating;
  fake.clock.onSleep = [&] { whileEnumerating = {panel(1), panel(3), isBusy() ? "busy" : "free"}; };
  frmMain.Show();
  EXPECT_THAT(
      fake.journal,
      LinesAre({"Show frmMain", "Pointer 11",
                "Status Gathering Network Information... (Network problems may cause delay.)",
                "qrvNetworkEnum -> 7", "Sleep 400", "Status Loading...",
                "SQL: SELECT * FROM System_Group_Detail", "Status Reading...",
                "SQL: SELECT * FROM System_Table WHERE System_Type <> 99999",
                "SQL: SELECT * FROM Module_Table", "Status Displaying Windows Systems", "Pointer 0"}));
  EXPECT_THAT(
      whileEnumerating,
      LinesAre({"Gathering Network Information... (Network problems may cause delay.)", "...", "busy"}));
  EXPECT_EQ(program.gEnumThread, 7u);
  EXPECT_THAT(nodes(), LinesAre({"Groups", "Servers"}));
  EXPECT_EQ(selectedNode(), "Groups");
  EXPECT_EQ(frmMain.CurrentNodeText, "Groups");
  EXPECT_THAT(rows(), LinesAre({"HOST1|Windows XP|-none-|Unmanaged|"}));
  EXPECT_EQ(panel(3), "1 Systems");
  EXPECT_FALSE(isBusy());
}

TEST_F(LifeTest, SaysSoWhenTheFirstListCannotBeFilled) {
  inventory.execute("DROP TABLE System_Table");
  frmMain.Show();
  EXPECT_THAT(boxes(), ElementsAre(testing::StartsWith("MessageBox critical: "),
                                   "MessageBox exclamation: Could not retrieve members."));
  EXPECT_EQ(selectedNode(), "Groups");
  EXPECT_EQ(panel(3), "0 Systems");
}

TEST_F(LifeTest, SetsOnlyItsStatusBarAtLaterActivations) {
  open();
  frmMain.ShowBusy("Working");
  forms.frmSplash.Show();
  fake.journal.clear();
  forms.frmSplash.Unload();
  EXPECT_THAT(fake.journal, LinesAre({"Close frmSplash", "Pointer 11", "Pointer 0"}));
  EXPECT_EQ(panel(1), "Displaying Windows Systems");
  EXPECT_EQ(panel(3), "0 Systems");
}

TEST_F(LifeTest, EndsItsThreadsThenTheConnectionsWhenItCloses) {
  fake.libraries.enumerationPolls = 2;
  open();
  StatusWatch watch(frmMain.sbStatusBar, fake.journal);
  std::string title;
  ui.onPump = [&] { title = forms.frmWait.lblTitle.Caption; };
  frmMain.userClose();
  EXPECT_THAT(fake.journal, LinesAre({"Show modal frmWait", "Sleep 200", "GetExitCodeThread 7 -> 259",
                                      "Sleep 200", "GetExitCodeThread 7 -> 259", "Sleep 200",
                                      "GetExitCodeThread 7 -> 1000", "CloseHandle 7", "Close frmWait",
                                      "Pointer 11", "Pointer 0", "qrvCloseDbConnection", "Close frmMain"}));
  EXPECT_EQ(title, "Varnhold - System Manager is closing...");
  EXPECT_TRUE(program.gClosing);
  EXPECT_EQ(program.gEnumThread, 0u);
  EXPECT_FALSE(program.gConn.isOpen());
  EXPECT_FALSE(frmMain.isLoaded());
}

TEST_F(LifeTest, ClosesEvenWhenTheLibraryFails) {
  open();
  fake.libraries.failures.insert({"qrvCloseDbConnection", RuntimeError(53, "No library.")});
  frmMain.userClose();
  EXPECT_FALSE(frmMain.isLoaded());
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(LifeTest, EndsTheProgramWhenTheTreeIsToBeLoadedWhileItCloses) {
  open();
  program.gClosing = true;
  frmMain.tvTreeView.Nodes(1).Select();
  bool wentOn = false;
  ui.screen.dispatch([&] {
    frmMain.mnuViewRefresh_Click();
    wentOn = true;
  });
  EXPECT_TRUE(ui.screen.hasEnded());
  EXPECT_FALSE(wentOn);
  EXPECT_THAT(nodes(), LinesAre({"Groups"}));
}

TEST_F(LifeTest, IsNeverNarrowerThan3000Twips) {
  open();
  frmMain.userResize(2000, 6000, ui::WindowState::Normal);
  EXPECT_EQ(frmMain.Width, 3000);
  frmMain.userResize(3001, 6000, ui::WindowState::Normal);
  EXPECT_EQ(frmMain.Width, 3001);
}

TEST_F(LifeTest, LeavesAMinimisedFormAlone) {
  open();
  frmMain.userResize(100, 100, ui::WindowState::Minimized);
  EXPECT_EQ(frmMain.Width, 100);
}

TEST_F(LifeTest, KeepsTheSplitterInsideTheForm) {
  open();
  frmMain.userResize(6000, 6000, ui::WindowState::Normal);
  frmMain.SizeControls(9000);
  EXPECT_LT(frmMain.imgSplitter.Position, 6000);
  frmMain.SizeControls(-5);
  EXPECT_GT(frmMain.imgSplitter.Position, 0);
  frmMain.SizeControls(5400);
  frmMain.userResize(4000, 6000, ui::WindowState::Normal);
  EXPECT_LT(frmMain.imgSplitter.Position, 4000);
}

TEST_F(LifeTest, MovesTheSplitterOnlyWhenTheMouseLetsGo) {
  open();
  frmMain.SizeControls(3000);
  frmMain.imgSplitter.userMove(4000);
  EXPECT_FALSE(frmMain.picSplitter.Visible);
  frmMain.imgSplitter.userPress(3000);
  EXPECT_TRUE(frmMain.picSplitter.Visible);
  EXPECT_EQ(frmMain.picSplitter.Position, 3000);
  frmMain.imgSplitter.userMove(4500);
  EXPECT_EQ(frmMain.picSplitter.Position, 4500);
  EXPECT_EQ(frmMain.imgSplitter.Position, 3000);
  frmMain.imgSplitter.userRelease(4500);
  EXPECT_EQ(frmMain.imgSplitter.Position, 4500);
  EXPECT_FALSE(frmMain.picSplitter.Visible);
}

TEST_F(LifeTest, ReadsWhereTheManagerIsInstalled) {
  EXPECT_EQ(frmMain.ConsolePath(), "");
  fake.registry.setText(core::kManagerKey, "INSTALLPATH", R"(C:\Varnhold)");
  EXPECT_EQ(frmMain.ConsolePath(), R"(C:\Varnhold)");
}

TEST_F(LifeTest, HasATimerThatDoesNothing) {
  open();
  ui.advance(600'000);
  EXPECT_THAT(fake.journal, IsEmpty());
}

}  // namespace
}  // namespace varnhold::console
