// List boxes and combo boxes on a screen.
#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/stage.h"
#include "ui/controls/combo_box.h"
#include "ui/controls/list_box.h"
#include "ui/wx/bind_combo_box.h"
#include "ui/wx/bind_list_box.h"

namespace varnhold::ui::wx {
namespace {

class ItemWidgets : public WxTest {
 protected:
  static void fill(ItemBox& box) {
    for (const char* entry : {"ATLAS", "BOREAS", "CRONUS", "DIONE"}) box.AddItem(entry);
  }
  template <class Kind>
  void recordClicks(Kind& box) {
    box.Click = [this, &box] { journal.push_back("Click " + std::to_string(box.ListIndex)); };
  }
};

TEST_F(ItemWidgets, AListBoxShowsItsEntriesAsTheyComeAndGo) {
  OneControlForm<ListBox> form(screen, bindListBox);
  form.Show();
  fill(form.control);
  form.control.RemoveItem(1);
  settle();
  auto& list = form.widget<wxListBox>();
  EXPECT_THAT(list.GetStrings(), LinesAre({"ATLAS", "CRONUS", "DIONE"}));
  form.control.Clear();
  settle();
  EXPECT_EQ(list.GetCount(), 0u);
  form.Unload();
}

TEST_F(ItemWidgets, AListBoxShowsTheCurrentEntryAndTakesTheUsers) {
  OneControlForm<ListBox> form(screen, bindListBox);
  fill(form.control);
  form.Show();
  form.control.ListIndex = 2;
  settle();
  auto& list = form.widget<wxListBox>();
  EXPECT_EQ(list.GetSelection(), 2);
  recordClicks(form.control);
  list.SetSelection(0);
  sendCommand(list, wxEVT_LISTBOX, 0);
  settle();
  EXPECT_THAT(journal, LinesAre({"Click 0"}));
  EXPECT_EQ(form.control.Text(), "ATLAS");
  form.Unload();
}

TEST_F(ItemWidgets, AListBoxOfSeveralTakesTheWholeSelection) {
  OneControlForm<ListBox> form(screen, bindListBox);
  form.control.MultiSelect = MultiSelect::Extended;
  fill(form.control);
  form.Show();
  form.control.SetSelected(1, true);
  form.control.SetSelected(3, true);
  settle();
  auto& list = form.widget<wxListBox>();
  EXPECT_TRUE(list.IsSelected(1) && list.IsSelected(3) && !list.IsSelected(0));
  recordClicks(form.control);
  list.Deselect(3);
  list.SetSelection(0);
  sendCommand(list, wxEVT_LISTBOX, 0);
  settle();
  EXPECT_TRUE(form.control.Selected(0) && form.control.Selected(1) && !form.control.Selected(3));
  EXPECT_THAT(journal, LinesAre({"Click 0"}));
  form.Unload();
}

TEST_F(ItemWidgets, AListBoxMeasuresTextInItsOwnFont) {
  OneControlForm<ListBox> form(screen, bindListBox);
  form.Show();
  EXPECT_EQ(form.control.textWidth("WWW"), form.widget<wxListBox>().GetTextExtent("WWW").x);
  EXPECT_GT(form.control.textWidth("WWWWWW"), form.control.textWidth("WWW"));
  form.Unload();
}

TEST_F(ItemWidgets, ADropDownListShowsAndTakesAnEntry) {
  OneControlForm<ComboBox> form(screen, bindComboBox);
  fill(form.control);
  form.Show();
  auto& choice = form.widget<wxChoice>();
  EXPECT_EQ(choice.GetSelection(), wxNOT_FOUND);
  form.control.Text = "cronus";
  EXPECT_EQ(choice.GetStringSelection(), "CRONUS");
  settle();
  recordClicks(form.control);
  choice.SetSelection(3);
  sendCommand(choice, wxEVT_CHOICE, 3);
  settle();
  EXPECT_EQ(form.control.Text, "DIONE");
  EXPECT_THAT(journal, LinesAre({"Click 3"}));
  form.Unload();
}

TEST_F(ItemWidgets, AFreeComboBoxTakesTypedTextAndEntries) {
  OneControlForm<ComboBox> form(screen, bindComboBox);
  form.control.Style = ComboStyle::DropDownCombo;
  fill(form.control);
  form.control.Text = "HOST1";
  form.Show();
  settle();
  auto& combo = form.widget<wxComboBox>();
  EXPECT_EQ(combo.GetValue(), "HOST1");
  recordClicks(form.control);
  form.control.Change = [&] { journal.push_back("Change " + form.control.Text); };
  combo.SetValue("HOST2");
  settle();
  combo.SetSelection(1);
  sendCommand(combo, wxEVT_TEXT);
  sendCommand(combo, wxEVT_COMBOBOX, 1);
  settle();
  EXPECT_EQ(form.control.Text, "BOREAS");
  EXPECT_THAT(journal, LinesAre({"Change HOST2", "Click 1"}));
  form.Unload();
}

}  // namespace
}  // namespace varnhold::ui::wx
