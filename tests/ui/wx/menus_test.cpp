// The menu bar and pop-up menus on a screen.
#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/stage.h"
#include "ui/controls/menu_item.h"

namespace varnhold::ui::wx {
namespace {

/// A form with a menu bar, a sub menu and a pop-up menu.
class MenuForm : public Form {
 public:
  explicit MenuForm(Screen& screen) : Form(screen, "frmA") {
    BorderStyle = BorderStyle::Sizable;
    mnuPopUp.Visible = false;
    mnuHidden.Visible = false;
    mnuStatusBar.Checked = true;
    adopt({{"mnuFile", mnuFile}, {"mnuView", mnuView}, {"mnuPopUp", mnuPopUp}});
    adopt(mnuFile,
          {{"mnuFind", mnuFind}, {"mnuHidden", mnuHidden}, {"mnuBar", mnuBar}, {"mnuExit", mnuExit}});
    adopt(mnuView, {{"mnuToolbars", mnuToolbars}, {"mnuStatusBar", mnuStatusBar}});
    adopt(mnuToolbars, {{"mnuTools", mnuTools}});
    adopt(mnuPopUp, {{"mnuDetails", mnuDetails}});
    Stage::theOne().setView("frmA", [](wxWindow&, Form&) {});
  }

  MenuItem mnuFile{"&File"}, mnuView{"&View"}, mnuPopUp{"PopUp"};
  MenuItem mnuFind{"Find / Add Computer(s)", "Ctrl+F"}, mnuHidden{"Hidden"}, mnuBar{"-"}, mnuExit{"E&xit"};
  MenuItem mnuToolbars{"&Toolbars"}, mnuStatusBar{"Status &Bar"}, mnuTools{"T&ools"};
  MenuItem mnuDetails{"Details"};
};

class Menus : public WxTest {
 protected:
  MenuForm form{screen};

  wxFrame& shown() {
    form.Show();
    settle();
    return dynamic_cast<wxFrame&>(*stage.toolkit().windowOf(&form));
  }
  static wxMenu& menu(const wxFrame& frame, std::size_t place) { return *frame.GetMenuBar()->GetMenu(place); }
  static std::vector<wxString> entries(const wxMenu& menu) {
    std::vector<wxString> labels;
    for (const auto* entry : menu.GetMenuItems()) {
      labels.push_back(entry->IsSeparator() ? wxString("-") : entry->GetItemLabel());
    }
    return labels;
  }
  ~Menus() override { form.Unload(); }
};

TEST_F(Menus, TheBarHoldsVisibleMenusAndTheyTheirVisibleEntries) {
  auto& frame = shown();
  ASSERT_EQ(frame.GetMenuBar()->GetMenuCount(), 2u);
  EXPECT_EQ(frame.GetMenuBar()->GetMenuLabel(0), "&File");
  EXPECT_THAT(entries(menu(frame, 0)), LinesAre({"Find / Add Computer(s)\tCtrl+F", "-", "E&xit"}));
  EXPECT_THAT(entries(menu(frame, 1)), LinesAre({"&Toolbars", "Status &Bar"}));
  EXPECT_TRUE(menu(frame, 1).FindItemByPosition(1)->IsChecked());
  EXPECT_THAT(entries(*menu(frame, 1).FindItemByPosition(0)->GetSubMenu()), LinesAre({"T&ools"}));
}

TEST_F(Menus, EntriesAndMenusComeAndGoAsCodeSaysSo) {
  auto& frame = shown();
  form.mnuHidden.Visible = true;
  form.mnuBar.Visible = false;
  form.mnuView.Visible = false;
  settle();
  EXPECT_EQ(frame.GetMenuBar()->GetMenuCount(), 1u);
  EXPECT_THAT(entries(menu(frame, 0)), LinesAre({"Find / Add Computer(s)\tCtrl+F", "Hidden", "E&xit"}));
  form.mnuView.Visible = true;
  form.mnuExit.Enabled = false;
  form.mnuFind.Checked = true;
  settle();
  EXPECT_EQ(frame.GetMenuBar()->GetMenuLabel(1), "&View");
  EXPECT_FALSE(menu(frame, 0).FindItemByPosition(2)->IsEnabled());
  EXPECT_TRUE(menu(frame, 0).FindItemByPosition(0)->IsChecked());
}

TEST_F(Menus, AChosenEntryArrivesAndItsTickIsTheFormsToSet) {
  form.mnuStatusBar.Click = [&] { journal.push_back("Click"); };
  auto& frame = shown();
  auto* entry = menu(frame, 1).FindItemByPosition(1);
  entry->Check(false);  // as the toolkit does before it tells of the choice
  wxCommandEvent chosen(wxEVT_MENU, entry->GetId());
  frame.HandleWindowEvent(chosen);
  settle();
  EXPECT_THAT(journal, LinesAre({"Click"}));
  EXPECT_TRUE(menu(frame, 1).FindItemByPosition(1)->IsChecked());
}

TEST_F(Menus, TheClickOfAMenuDecidesAboutItsEntriesBeforeTheyAreSeen) {
  form.mnuFile.Click = [&] { form.mnuHidden.Visible = true; };
  auto& frame = shown();
  wxMenuEvent opening(wxEVT_MENU_OPEN, 0, &menu(frame, 0));
  frame.HandleWindowEvent(opening);
  EXPECT_THAT(entries(menu(frame, 0)), LinesAre({"Find / Add Computer(s)\tCtrl+F", "Hidden", "-", "E&xit"}));
}

TEST_F(Menus, AFormThatHasOnlyPopUpMenusHasNoBar) {
  form.mnuFile.Visible = form.mnuView.Visible = false;
  form.Show();
  settle();
  EXPECT_EQ(dynamic_cast<wxFrame*>(stage.toolkit().windowOf(&form)), nullptr);
}

}  // namespace
}  // namespace varnhold::ui::wx
