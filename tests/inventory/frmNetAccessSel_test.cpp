#include "inventory/frmNetAccessSel.h"

#include "tests/fakes/lines_are.h"
#include "tests/inventory/inventory_fixture.h"

namespace varnhold::inventory {
namespace {

using testing::ElementsAre;

class NetAccessTest : public InventoryFormTest {
 protected:
  explicit NetAccessTest(const char* appTitle = core::kManagerTitle) : InventoryFormTest(appTitle) {}

  frmNetAccessSel form{program, ui.screen, parts()};
};

constexpr const char* kManualBox =
    "MessageBox information: You have selected to manually add and track Computers.<CR>"
    "Further discovery of Computers will stop. Computers already discovered will be retained and can be "
    "removed as per your preference from [File | Remove Computer(s)]";

TEST_F(NetAccessTest, HasItsDocumentedDesign) {
  form.Load();
  EXPECT_EQ(form.Caption, "Select 'Auto Discover' Mode");
  EXPECT_EQ(form.Icon, "varnhold");
  EXPECT_EQ(form.optAutomatic.Caption,
            "Automatically find and add Computers (Recommended for small networks e.g. < 100 Computers)");
  EXPECT_EQ(form.optManual.Caption,
            "I will choose to add and track Computers (Recommended for large networks)");
  EXPECT_TRUE(form.cmdOK.Default);
}

TEST_F(NetAccessTest, PreselectsAutomaticAtTheFirstStartAndTellsWhereToFindIt) {
  form.Load();
  EXPECT_TRUE(form.optAutomatic.Value);
  EXPECT_FALSE(form.optManual.Value);
  EXPECT_EQ(form.lblInfo.Caption,
            "Select how Varnhold - System Manager should add Computers from your network. You can access and "
            "modify this setting anytime from\r[Options | Select 'Auto Discover' Mode]");
  EXPECT_THAT(fake.journal, LinesAre({"qrvGetNetAccessMode -> 0"}));
}

TEST_F(NetAccessTest, SaysLessOnceTheConsoleIsVisible) {
  openConsole();
  form.Load();
  EXPECT_EQ(form.lblInfo.Caption,
            "Select how Varnhold - System Manager should add Computers from your network.");
}

TEST_F(NetAccessTest, SelectsTheStoredMode) {
  fake.libraries.netAccessMode = 0;
  form.Load();
  EXPECT_TRUE(form.optManual.Value);
  EXPECT_FALSE(form.optAutomatic.Value);
  form.Unload();
  fake.libraries.netAccessMode = 7;
  form.Load();
  EXPECT_TRUE(form.optAutomatic.Value);
  EXPECT_FALSE(form.optManual.Value);
}

TEST_F(NetAccessTest, StoresTheChoiceAndKeepsItForTheConsole) {
  openConsole();
  ui.nextModal("frmNetAccessSel", [&](ui::Form&) { form.cmdOK.userClick(); });
  form.ShowModal();
  EXPECT_THAT(fake.journal, LinesAre({"qrvGetNetAccessMode -> 0", "Show modal frmNetAccessSel",
                                      "qrvSetNetAccessMode 1 -> 1", "Close frmNetAccessSel"}));
  EXPECT_TRUE(form.AutoDiscover);
  EXPECT_FALSE(form.isLoaded());
}

TEST_F(NetAccessTest, StoresTheChoiceHoweverItIsClosed) {
  openConsole();
  ui.nextModal("frmNetAccessSel", [&](ui::Form&) {
    form.optManual.userClick();
    form.userClose();
  });
  form.ShowModal();
  EXPECT_EQ(fake.libraries.netAccessMode, 0);
  EXPECT_FALSE(form.AutoDiscover);
}

TEST_F(NetAccessTest, EndsTheEnumerationWhenTheOperatorChangesToManual) {
  openConsole();
  fake.libraries.netAccessMode = 1;
  program.gEnumThread = fake.threads.start(1000, 1'000);
  ui.nextModal("frmNetAccessSel", [&](ui::Form&) {
    form.optManual.userClick();
    form.cmdOK.userClick();
  });
  form.ShowModal();
  EXPECT_THAT(fake.journal, LinesAre({"qrvGetNetAccessMode -> 1 mode 1", "Show modal frmNetAccessSel",
                                      "Close frmNetAccessSel", kManualBox, "TerminateThread 7 0",
                                      "qrvSetNetAccessMode 0 -> 1"}));
  EXPECT_EQ(program.gEnumThread, 0u);
  EXPECT_THAT(fake.threads.openHandles(), ElementsAre(7u));
  EXPECT_FALSE(form.AutoDiscover);
}

TEST_F(NetAccessTest, TerminatesNothingWhereNoEnumerationRuns) {
  openConsole();
  fake.libraries.netAccessMode = 1;
  ui.nextModal("frmNetAccessSel", [&](ui::Form&) {
    form.optManual.userClick();
    form.cmdOK.userClick();
  });
  form.ShowModal();
  EXPECT_THAT(fake.journal, LinesAre({"qrvGetNetAccessMode -> 1 mode 1", "Show modal frmNetAccessSel",
                                      "Close frmNetAccessSel", kManualBox, "qrvSetNetAccessMode 0 -> 1"}));
}

TEST_F(NetAccessTest, SaysNothingWhenTheModeWasManualAlready) {
  openConsole();
  fake.libraries.netAccessMode = 0;
  program.gEnumThread = fake.threads.start(1000, 1'000);
  ui.nextModal("frmNetAccessSel", [&](ui::Form&) { form.cmdOK.userClick(); });
  form.ShowModal();
  EXPECT_THAT(fake.journal, LinesAre({"qrvGetNetAccessMode -> 1 mode 0", "Show modal frmNetAccessSel",
                                      "qrvSetNetAccessMode 0 -> 1", "Close frmNetAccessSel"}));
  EXPECT_EQ(program.gEnumThread, 7u);
}

TEST_F(NetAccessTest, SaysNothingAtTheFirstStart) {
  ui.nextModal("frmNetAccessSel", [&](ui::Form&) {
    form.optManual.userClick();
    form.cmdOK.userClick();
  });
  form.ShowModal();
  EXPECT_THAT(fake.journal, LinesAre({"qrvGetNetAccessMode -> 0", "Show modal frmNetAccessSel",
                                      "qrvSetNetAccessMode 0 -> 1", "Close frmNetAccessSel"}));
}

TEST_F(NetAccessTest, TellsWhenTheChoiceCannotBeStoredAndKeepsItForThisRun) {
  openConsole();
  fake.libraries.storesNetAccessMode = false;
  ui.nextModal("frmNetAccessSel", [&](ui::Form&) { form.cmdOK.userClick(); });
  form.ShowModal();
  EXPECT_THAT(
      fakes::linesOf(fake.journal, "MessageBox"),
      LinesAre({"MessageBox exclamation: Could not save your selection because access to the registry "
                "was denied.<CR>This could cause the application to ask you to set the setting "
                "everytime you start the Varnhold - System Manager."}));
  EXPECT_TRUE(form.AutoDiscover);
}

TEST_F(NetAccessTest, OpensTheHelpWithF1) {
  openConsole();
  ui.nextModal("frmNetAccessSel", [&](ui::Form&) {
    form.userKeyDown(ui::kKeyF1);
    form.userKeyDown(ui::kKeyF5);
    form.cmdOK.userClick();
  });
  form.ShowModal();
  EXPECT_THAT(fakes::linesOf(fake.journal, "ShellExecute"), testing::SizeIs(1));
}

class TessmarkNetAccessTest : public NetAccessTest {
 protected:
  TessmarkNetAccessTest() : NetAccessTest(core::kChangesTitle) {}
};

TEST_F(TessmarkNetAccessTest, BearsTheIconAndNameOfItsTitle) {
  form.Load();
  EXPECT_EQ(form.Icon, "tessmark");
  EXPECT_THAT(form.lblInfo.Caption.get(),
              testing::StartsWith("Select how Tessmark? Agent Manager should add Computers"));
}

}  // namespace
}  // namespace varnhold::inventory
