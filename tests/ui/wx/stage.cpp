#include "tests/ui/wx/stage.h"

#include <chrono>

namespace varnhold::ui::wx {
namespace {

constexpr int kTurnMs = 5, kMostTurns = 400;

std::unique_ptr<Stage>& place() {
  static std::unique_ptr<Stage> stage;
  return stage;
}

/// Ends the toolkit while the program still stands.
class StageEnd : public testing::Environment {
 public:
  void TearDown() override { place().reset(); }
};

[[maybe_unused]] const auto* const stageEnd = testing::AddGlobalTestEnvironment(new StageEnd);

}  // namespace

Stage& Stage::theOne() {
  if (place() == nullptr) place().reset(new Stage);
  return *place();
}

Stage::Stage() {
  Views views = allViews();
  for (const char* name : {"frmA", "frmB", "frmC"}) {
    views[name] = [this, name](wxWindow& inside, Form& form) { views_.at(name)(inside, form); };
  }
  toolkit_ = std::make_unique<WxToolkit>(std::move(views));
  // The toolkit's own checks count as the test's.
  wxSetAssertHandler([](const wxString& file, int line, const wxString&, const wxString& condition,
                        const wxString& message) {
    ADD_FAILURE() << file << ':' << line << ": " << condition << ' ' << message;
  });
}

bool Stage::waitFor(const std::function<bool()>& done) {
  for (int turn = 0; turn < kMostTurns; ++turn) {
    toolkit_->pumpEvents();
    if (done()) return true;
    wxMilliSleep(kTurnMs);
  }
  return false;
}

void WxTest::settle() {
  constexpr int kQuietTurns = 12;
  int turns = 0;
  stage.waitFor([&] { return ++turns > kQuietTurns; });
}

void sendCommand(wxWindow& widget, wxEventType type, int value) {
  wxCommandEvent event(type, widget.GetId());
  event.SetEventObject(&widget);
  event.SetInt(value);
  widget.HandleWindowEvent(event);
}

}  // namespace varnhold::ui::wx
