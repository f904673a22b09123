// The views of the program's forms: every control is there, and nothing is cut off.
#include "console/forms.h"
#include "tests/fakes/fake_host.h"
#include "tests/ui/wx/complete_form.h"

namespace varnhold::ui::wx {
namespace {

class FormViews : public WxTest {
 protected:
  /// Shows the form's window as it is designed, without any of its handlers.
  wxWindow& show(Form& form) {
    window_ = stage.toolkit().createWindow(form);
    window_->show(nullptr, false);
    auto& window = *stage.toolkit().windowOf(&form);
    // GTK lays a window out only when its manager has told of the frame.
    painted_ = false;
    window.GetChildren().front()->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
      event.Skip();
      painted_ = true;
    });
    EXPECT_TRUE(stage.waitFor([this] { return painted_; }));
    settle();
    return window;
  }

  void expectComplete(Form& form) {
    auto& window = show(form);
    expectWidgetOfEach(form, window);
    expectNothingIsCutOff(window);
  }

  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle};
  console::Forms forms{program, screen};

 private:
  bool painted_ = false;
  std::unique_ptr<FormWindow> window_;
};

TEST_F(FormViews, TheConsole) {
  forms.frmMain.tbClientManager.Visible = true;
  forms.frmMain.lblTitle(1).Caption = " " + kLongName + " - " + kLongName;
  forms.frmMain.imgSplitter.Position = 3600;
  forms.frmMain.Width = 13800;
  forms.frmMain.Height = 9000;
  expectComplete(forms.frmMain);
}

TEST_F(FormViews, TheConsoleMadeSmallIsAsWideAsItsToolBar) {
  forms.frmMain.Width = 3000;
  forms.frmMain.Height = 4500;
  forms.frmMain.lblTitle(1).Caption = kLongName + kLongName;
  auto& window = show(forms.frmMain);
  const auto* bar = widgetOf(window, forms.frmMain.tbOptToolBar);
  ASSERT_NE(bar, nullptr);
  EXPECT_LE(window.GetClientSize().x, bar->GetBestSize().x + window.FromDIP(20));
}

TEST_F(FormViews, TheSplashes) {
  expectComplete(forms.frmSplash);
  expectComplete(forms.frmTKWSplash);
}

TEST_F(FormViews, TheWait) {
  forms.frmWait.lblTitle.Caption = "Starting Agent on " + kLongName + "...";
  expectComplete(forms.frmWait);
}

TEST_F(FormViews, TheWaitWithATextThatComesLater) {
  auto& window = show(forms.frmWait);
  forms.frmWait.lblTitle.Caption = "Starting Agent on " + kLongName + "...";
  settle();
  expectNothingIsCutOff(window);
}

TEST_F(FormViews, TheDiscoveryMode) {
  auto& form = forms.frmNetAccessSel;
  form.lblInfo.Caption =
      "Select how Varnhold - System Manager should add Computers from your network. You can access "
      "and modify this setting anytime from\r[Options | Select 'Auto Discover' Mode]";
  expectComplete(form);
}

TEST_F(FormViews, TheDetailsOfAComputer) {
  auto& form = forms.frmDetails;
  form.freGroup.Visible = false;
  expectComplete(form);
  form.freInfo.Caption = "System: " + kLongName;
  form.lblIPA.Caption = "-error retrieving data-";
  form.lblAgents.Caption = "Managed - High Performance Mode";
  settle();
  expectNothingIsCutOff(*stage.toolkit().windowOf(&form));
}

TEST_F(FormViews, TheDetailsAreNoTallerThanTheyNeedBe) {
  auto& form = forms.frmDetails;
  auto& window = show(form);
  const int both = window.GetSize().y;
  form.freGroup.Visible = false;
  settle();
  EXPECT_LT(window.GetSize().y, both * 3 / 4);
  expectNothingIsCutOff(window);
}

TEST_F(FormViews, TheDetailsOfAGroup) {
  auto& form = forms.frmDetails;
  form.freInfo.Visible = false;
  form.freGroup.Caption = "Group: " + kLongName;
  form.lblDomain.Caption = kLongName;
  expectComplete(form);
}

TEST_F(FormViews, TheTypeOfASystem) {
  auto& form = forms.frmSystemType;
  form.freInfo.Caption = "System: " + kLongName;
  expectComplete(form);
}

}  // namespace
}  // namespace varnhold::ui::wx
