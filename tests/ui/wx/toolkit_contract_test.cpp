#include "tests/contract/toolkit_contract.h"

#include "tests/fakes/scripted_ui.h"
#include "tests/ui/wx/stage.h"
#include "ui/wx/acts.h"

namespace varnhold {
namespace {

/// The toolkit of the tests that have no screen.
class ScriptedToolkitHost {
 public:
  ui::Screen& screen() { return ui_.screen; }
  void nextModal(std::function<void()> deed) {
    ui_.nextModal("frmB", [deed](ui::Form&) { deed(); });
  }
  void inLoop(std::function<void()> deed) { ui_.onLoop = std::move(deed); }
  void whilePumping(std::function<void()> deed) { ui_.onPump = std::move(deed); }
  void pass(std::uint32_t milliseconds) { ui_.advance(milliseconds); }

 private:
  fakes::Journal ownJournal_;
  fakes::ScriptedUi ui_{ownJournal_};
};

/// The real one. What the user does is posted, as a widget's event is.
class WxToolkitHost {
 public:
  WxToolkitHost() {
    for (const char* name : {"frmA", "frmB"}) stage_.setView(name, layOut);
  }

  ui::Screen& screen() { return screen_; }
  void nextModal(std::function<void()> deed) {
    onceShown_ = std::move(deed);
    lookForModal();
  }
  void inLoop(std::function<void()> deed) { ui::wx::acts().post(std::move(deed)); }
  void whilePumping(std::function<void()> deed) { inLoop(std::move(deed)); }
  void pass(int milliseconds) {
    wxStopWatch watch;
    stage_.waitFor([&] { return watch.Time() >= milliseconds; });
  }

 private:
  static void layOut(wxWindow& inside, ui::Form& form) {
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(ui::wx::bindCommandButton(&inside, static_cast<contract::ContractForm&>(form).cmdOK));
    inside.SetSizer(sizer);
  }

  /// Posted again until the form is on the screen with its loop running.
  void lookForModal() {
    poll_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
      const auto* top = screen_.ActiveForm();
      auto* dialog = wxDynamicCast(stage_.toolkit().windowOf(top), wxDialog);
      if (top == nullptr || top->Name() != "frmB" || dialog == nullptr || !dialog->IsModal()) return;
      poll_.Stop();
      ui::wx::acts().post(std::move(onceShown_));
    });
    poll_.Start(10);
  }

  ui::wx::Stage& stage_ = ui::wx::Stage::theOne();
  ui::Screen screen_{stage_.toolkit(), "Varnhold - System Manager"};
  std::function<void()> onceShown_;
  wxTimer poll_;
};

}  // namespace

namespace contract {

INSTANTIATE_TYPED_TEST_SUITE_P(Scripted, ToolkitContract, ScriptedToolkitHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Wx, ToolkitContract, WxToolkitHost);

}  // namespace contract
}  // namespace varnhold
