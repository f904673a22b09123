#include <gmock/gmock.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/controls/recording_form.h"
#include "ui/controls/menu_item.h"
#include "ui/controls/status_bar.h"
#include "ui/controls/tool_bar.h"

namespace varnhold::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SyncCounter : public ControlView {
 public:
  int count = 0;
  void sync() override { ++count; }
};

TEST(StatusBar, CountsPanelsFromOneAndTellsItsView) {
  StatusBar bar(3);
  SyncCounter view;
  bar.attach(view);
  bar.Panels(3).Text = "12 Systems";
  bar.Panels(3).Text = "12 Systems";
  EXPECT_EQ(bar.Panels(3).Text, "12 Systems");
  EXPECT_EQ(bar.PanelCount(), 3);
  EXPECT_EQ(view.count, 1);
  EXPECT_EQ(errorOf([&] { (void)bar.Panels(0); }), 35600);
  EXPECT_EQ(errorOf([&] { (void)bar.Panels(4); }), 35600);
}

TEST(StatusBar, ComesBackWithTheTextsOfItsDesign) {
  StatusBar bar(2);
  bar.Panels(1).Text = "Ready";
  bar.keepDesign();
  bar.Panels(1).Text = "Busy";
  bar.restoreDesign();
  EXPECT_EQ(bar.Panels(1).Text, "Ready");
}

class ToolBarTest : public testing::Test {
 protected:
  ToolBarTest() {
    bar.AddButton("", "");
    bar.AddButton("Add System        ", "Select remote computers to be monitored", "add");
    bar.ButtonClick = [this](ToolButton& button) { clicks.push_back(button.Index()); };
  }
  ToolBar bar;
  std::vector<int> clicks;
};

TEST_F(ToolBarTest, TellsItsButtonsByIndexFromOne) {
  bar.userClick(2);
  EXPECT_THAT(clicks, ElementsAre(2));
  EXPECT_EQ(bar.Buttons(2).Caption, "Add System        ");
  EXPECT_EQ(bar.Buttons(2).ToolTipText, "Select remote computers to be monitored");
  EXPECT_EQ(bar.ButtonCount(), 2);
  EXPECT_EQ(errorOf([&] { (void)bar.Buttons(3); }), 35600);
}

TEST_F(ToolBarTest, DoesNothingOnAGapOrOutside) {
  EXPECT_TRUE(bar.Buttons(1).isGap());
  bar.userClick(1);
  bar.userClick(0);
  bar.userClick(3);
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ToolBarTest, DoesNothingOnADisabledOrInvisibleButtonOrBar) {
  bar.Buttons(2).Enabled = false;
  bar.userClick(2);
  bar.Buttons(2).Enabled = true;
  bar.Buttons(2).Visible = false;
  bar.userClick(2);
  bar.Buttons(2).Visible = true;
  bar.Visible = false;
  bar.userClick(2);
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ToolBarTest, TellsItsViewOfItsButtonsAndComesBackAsDesigned) {
  bar.keepDesign();
  SyncCounter view;
  bar.attach(view);
  bar.Buttons(2).Enabled = false;
  EXPECT_EQ(view.count, 1);
  bar.restoreDesign();
  EXPECT_TRUE(bar.Buttons(2).Enabled);
}

class MenuForm : public Form {
 public:
  explicit MenuForm(Screen& screen) : Form(screen, "frmMenu") {
    adopt({{"mnuFile", mnuFile}, {"mnuAgent", mnuAgent}, {"mnuPopUpList", mnuPopUpList}});
    adopt(mnuFile, {{"mnuFind", mnuFind}, {"mnuBar", mnuBar}, {"mnuExit", mnuExit}});
    adopt(mnuAgent, {{"mnuStart", mnuStart}});
    adopt(mnuPopUpList, {{"mnuPopUpDetails", mnuPopUpDetails}, {"mnuPopUpStart", mnuPopUpStart}});
    mnuPopUpList.Visible = false;
    mnuAgent.Click = [this] {
      seen.push_back("agent opens");
      mnuStart.Enabled = false;
    };
    mnuPopUpList.Click = [this] { seen.push_back("pop-up opens"); };
    for (auto* item : {&mnuFind, &mnuExit, &mnuStart, &mnuPopUpDetails, &mnuPopUpStart, &mnuBar}) {
      item->Click = [this, item] { seen.push_back(item->Name()); };
    }
  }
  MenuItem mnuFile{"&File"}, mnuAgent{"&Options"}, mnuPopUpList{"PopUpList"};
  MenuItem mnuFind{"Find / Add Computer(s)", "Ctrl+F"}, mnuBar{"-"}, mnuExit{"E&xit"};
  MenuItem mnuStart{"Sta&rt Agent Service", "F5"};
  MenuItem mnuPopUpDetails{"Details"}, mnuPopUpStart{"Start Agent Service"};
  std::vector<std::string> seen;
};

class MenuTest : public UiTest {
 protected:
  MenuTest() { form.Show(); }
  MenuForm form{ui.screen};
};

TEST_F(MenuTest, HoldsItsEntriesInTheOrderOfAdoption) {
  EXPECT_THAT(form.menuItems(), ElementsAre(&form.mnuFile, &form.mnuAgent, &form.mnuPopUpList));
  EXPECT_THAT(form.mnuFile.Items(), ElementsAre(&form.mnuFind, &form.mnuBar, &form.mnuExit));
  EXPECT_TRUE(form.mnuBar.isSeparator());
}

TEST_F(MenuTest, RaisesClickOfTheEntryThatTheUserChooses) {
  form.mnuExit.userClick();
  form.mnuBar.userClick();
  EXPECT_THAT(form.seen, LinesAre({"mnuExit"}));
}

TEST_F(MenuTest, RaisesClickOfAMenuWhenItOpens) {
  form.mnuAgent.userClick();
  form.mnuStart.userClick();
  EXPECT_THAT(form.seen, LinesAre({"agent opens"})) << "the menu has disabled its entry";
}

TEST_F(MenuTest, HasNoEntryThatIsDisabledOrHiddenOrInSuchAMenu) {
  form.mnuExit.Enabled = false;
  form.mnuExit.userClick();
  form.mnuFile.Visible = false;
  form.mnuFind.userClick();
  form.mnuPopUpDetails.userClick();
  EXPECT_THAT(form.seen, IsEmpty());
}

TEST_F(MenuTest, ChoosesAnEntryByItsShortcut) {
  EXPECT_TRUE(form.usesKey('F', kControl));
  form.userKeyDown('F', kControl);
  form.userKeyDown('F');
  form.userKeyDown(kKeyF5);
  EXPECT_THAT(form.seen, LinesAre({"mnuFind", "mnuStart"}));
  form.mnuStart.Enabled = false;
  EXPECT_FALSE(form.usesKey(kKeyF5, kNoModifier));
  form.userKeyDown(kKeyF5);
  EXPECT_EQ(form.seen.size(), 2u);
}

TEST_F(MenuTest, PopsUpAndRaisesClickOfWhatTheUserChooses) {
  ui.nextPopUp("mnuPopUpStart");
  form.PopupMenu(form.mnuPopUpList);
  EXPECT_THAT(form.seen, LinesAre({"pop-up opens", "mnuPopUpStart"}));
  EXPECT_EQ(journal.back(), "PopupMenu mnuPopUpList -> mnuPopUpStart");
}

TEST_F(MenuTest, RaisesNothingMoreWhenThePopUpIsDismissed) {
  form.PopupMenu(form.mnuPopUpList);
  EXPECT_THAT(form.seen, LinesAre({"pop-up opens"}));
  EXPECT_EQ(journal.back(), "PopupMenu mnuPopUpList -> nothing");
}

TEST_F(MenuTest, IsOutOfReachBehindItsPopUpOnceThatIsGone) {
  ui.nextPopUp("mnuPopUpStart");
  form.PopupMenu(form.mnuPopUpList);
  form.seen.clear();
  form.mnuPopUpStart.userClick();
  EXPECT_THAT(form.seen, IsEmpty());
}

TEST_F(MenuTest, ComesBackAsDesignedAtTheNextLoad) {
  form.mnuExit.Enabled = false;
  form.mnuFind.Caption = "Find";
  form.mnuFile.Checked = true;
  form.Unload();
  form.Load();
  EXPECT_TRUE(form.mnuExit.Enabled);
  EXPECT_EQ(form.mnuFind.Caption, "Find / Add Computer(s)");
  EXPECT_FALSE(form.mnuFile.Checked);
}

}  // namespace
}  // namespace varnhold::ui
