// Tool bars, status bars and splitters on a screen.
#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/stage.h"
#include "ui/controls/splitter.h"
#include "ui/controls/status_bar.h"
#include "ui/controls/tool_bar.h"
#include "ui/wx/bind_splitter.h"
#include "ui/wx/bind_status_bar.h"
#include "ui/wx/bind_tool_bar.h"
#include "ui/wx/twips.h"

namespace varnhold::ui::wx {
namespace {

class Bars : public WxTest {};

TEST_F(Bars, AToolBarShowsButtonsWithBlanksTipsAndGaps) {
  OneControlForm<ToolBar> form(screen, bindToolBar);
  form.control.AddButton("", "");
  form.control.AddButton("Add System        ", "Select remote computers to be monitored", "add-system");
  form.control.AddButton("Upgrade Agent ", "Upgrade agents");
  form.Show();
  auto& bar = form.widget<wxToolBar>();
  ASSERT_EQ(bar.GetToolsCount(), 3u);
  EXPECT_TRUE(bar.GetToolByPos(0)->IsControl()) << "room without a line, and nothing to press";
  EXPECT_EQ(bar.GetToolByPos(1)->GetLabel(), "Add System        ");
  EXPECT_EQ(bar.GetToolByPos(1)->GetShortHelp(), "Select remote computers to be monitored");
  form.control.Buttons(3).Visible = false;
  EXPECT_EQ(bar.GetToolsCount(), 2u);
  form.control.Buttons(2).Enabled = false;
  EXPECT_FALSE(bar.GetToolByPos(1)->IsEnabled());
  form.Unload();
}

TEST_F(Bars, AToolButtonIsToldByItsIndex) {
  OneControlForm<ToolBar> form(screen, bindToolBar);
  form.control.AddButton("", "");
  form.control.AddButton("Remove System ", "Stop monitoring");
  form.control.ButtonClick = [&](ToolButton& button) { journal.push_back("Click " + button.Caption); };
  form.Show();
  settle();
  auto& bar = form.widget<wxToolBar>();
  wxCommandEvent click(wxEVT_TOOL, bar.GetToolByPos(1)->GetId());
  bar.HandleWindowEvent(click);
  settle();
  EXPECT_THAT(journal, LinesAre({"Click Remove System "}));
  form.Unload();
}

TEST_F(Bars, AStatusBarShowsItsPanelsAndGivesThemRoom) {
  OneControlForm<StatusBar> form(screen, bindStatusBar, 3);
  form.control.Panels(1).Text = "Displaying Windows Systems";
  form.Show();
  auto& bar = form.widget<wxStatusBar>();
  form.control.Panels(3).Text = "12 Systems";
  EXPECT_EQ(bar.GetStatusText(0), "Displaying Windows Systems");
  EXPECT_EQ(bar.GetStatusText(2), "12 Systems");
  form.control.Panels(2).Text = std::string(40, 'W');
  EXPECT_GT(bar.GetStatusWidth(1), bar.GetTextExtent(wxString('W', 40)).x);
  form.Unload();
}

/// A splitter between two panels.
class SplitForm : public Form {
 public:
  explicit SplitForm(Screen& screen) : Form(screen, "frmA") {
    BorderStyle = BorderStyle::Sizable;
    imgSplitter.Position = 3000;
    picSplitter.Visible = false;
    adopt({{"imgSplitter", imgSplitter}, {"picSplitter", picSplitter}});
    Stage::theOne().setView("frmA", [this](wxWindow& inside, Form&) {
      left = new wxPanel(&inside);
      bar = bindSplitter(left, imgSplitter);
      auto* right = new wxPanel(&inside, wxID_ANY, wxDefaultPosition, wxSize(300, 200));
      ghost = bindSplitterGhost(left, picSplitter);
      auto* sizer = new wxBoxSizer(wxHORIZONTAL);
      sizer->Add(left, wxSizerFlags().Expand());
      sizer->Add(bar, wxSizerFlags().Expand());
      sizer->Add(right, wxSizerFlags(1).Expand());
      inside.SetSizer(sizer);
    });
  }

  Splitter imgSplitter, picSplitter;
  wxWindow *left = nullptr, *bar = nullptr, *ghost = nullptr;
};

TEST_F(Bars, ASplitterKeepsTheLeftPartAsWideAsItsPosition) {
  SplitForm form(screen);
  form.Show();
  settle();
  EXPECT_EQ(form.left->GetSize().x, pixels(*form.left, 3000));
  form.imgSplitter.Position = 1500;
  settle();
  EXPECT_EQ(form.left->GetSize().x, pixels(*form.left, 1500));
  form.Unload();
}

TEST_F(Bars, ADragIsToldInTwipsFromTheFormsLeftEdge) {
  SplitForm form(screen);
  form.imgSplitter.MouseDown = [&](double x) { journal.push_back("down " + std::to_string(int(x))); };
  form.imgSplitter.MouseMove = [&](double x) { journal.push_back("move " + std::to_string(int(x))); };
  form.imgSplitter.MouseUp = [&](double x) { journal.push_back("up " + std::to_string(int(x))); };
  form.Show();
  settle();
  const auto send = [&](wxEventType type, int x) {
    wxMouseEvent event(type);
    event.SetEventObject(form.bar);
    event.m_x = form.bar->FromDIP(x);
    form.bar->HandleWindowEvent(event);
  };
  send(wxEVT_MOTION, 1);
  send(wxEVT_LEFT_DOWN, 2);
  send(wxEVT_MOTION, -100);
  send(wxEVT_LEFT_UP, -100);
  settle();
  EXPECT_THAT(journal, LinesAre({"down 3030", "move 1500", "up 1500"}));
  EXPECT_EQ(form.left->GetSize().x, pixels(*form.left, 3000)) << "the bar stays until the form moves it";
  form.Unload();
}

TEST_F(Bars, TheGhostOfASplitterStandsWhereItsPositionSays) {
  SplitForm form(screen);
  form.Show();
  settle();
  EXPECT_FALSE(form.ghost->IsShown());
  form.picSplitter.Position = 1800;
  form.picSplitter.Visible = true;
  EXPECT_TRUE(form.ghost->IsShown());
  EXPECT_EQ(form.ghost->GetPosition().x, pixels(*form.ghost, 1800));
  EXPECT_EQ(form.ghost->GetSize().y, form.left->GetSize().y);
  form.Unload();
}

}  // namespace
}  // namespace varnhold::ui::wx
