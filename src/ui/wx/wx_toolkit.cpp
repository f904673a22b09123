#include "ui/wx/wx_toolkit.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "ui/controls/form.h"
#include "ui/controls/timer.h"
#include "ui/wx/application.h"
#include "ui/wx/form_window.h"
#include "ui/wx/twips.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {
namespace {

/// Hands its ticks over from the event loop; a tick that the program was too busy for is left out.
class Ticker : public wxTimer {
 public:
  explicit Ticker(Timer& timer) : timer_(timer) {}

  void Notify() override {
    if (std::exchange(pending_, true)) return;
    acts().post([this, life = std::weak_ptr<int>(life_)] {
      if (life.expired()) return;
      pending_ = false;
      timer_.timeElapsed();
    });
  }

 private:
  Timer& timer_;
  bool pending_ = false;
  std::shared_ptr<int> life_ = std::make_shared<int>();
};

bool startApplication() {
  static int count = 0;
  static wchar_t** none = nullptr;
  // The toolkit's own words about a missing screen are no help; see the caller.
  const wxLogNull quiet;
  wxApp::SetInstance(new Application);
  return wxEntryStart(count, none) && wxTheApp->OnInit();
}

}  // namespace

WxToolkit::WxToolkit(Views views) : views_(std::move(views)) {
  if (startApplication()) {
    // The toolkit's words about itself are not for the operator.
    wxDisableAsserts();
    delete wxLog::SetActiveTarget(new wxLogStderr);
    return;
  }
  throw RuntimeError(
      kInternalError,
      "The console needs a screen, and there is none: no display can be opened. Start it from a "
      "graphical session (on Linux, DISPLAY or WAYLAND_DISPLAY names its display), or use the "
      "command line.");
}

WxToolkit::~WxToolkit() {
  timers_.clear();
  wxTheApp->OnExit();
  wxEntryCleanup();
}

std::unique_ptr<FormWindow> WxToolkit::createWindow(Form& form) {
  const auto view = views_.find(form.Name());
  if (view == views_.end()) {
    throw RuntimeError(kInternalError, "The form " + form.Name() + " has no view that could show it.");
  }
  return std::make_unique<WxFormWindow>(form, view->second, *this);
}

wxWindow* WxToolkit::windowOf(const Form* form) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const WxFormWindow* window) { return &window->form() == form; });
  return found == windows_.end() ? nullptr : (*found)->frame();
}

WxToolkit::ModalRun::~ModalRun() {
  if (--toolkit_.modalRuns_ > 0) return;
  for (auto& window : toolkit_.buried_) {
    if (window) window->Destroy();
  }
  toolkit_.buried_.clear();
}

void WxToolkit::bury(wxWindow& window) {
  const ModalRun now(*this);
  window.Hide();
  buried_.emplace_back(&window);
}

void WxToolkit::runLoop() {
  static_cast<Application&>(*wxTheApp).MainLoop();
}

void WxToolkit::quitLoop() {
  auto* loop = wxTheApp->GetMainLoop();
  if (loop != nullptr) loop->ScheduleExit();
}

void WxToolkit::pumpEvents() {
  auto* loop = wxEventLoopBase::GetActive();
  if (loop != nullptr) {
    loop->Yield();
    return;
  }
  wxGUIEventLoop ownLoop;
  const wxEventLoopActivator activate(&ownLoop);
  ownLoop.Yield();
}

void WxToolkit::setPointer(Pointer pointer) {
  if (pointerIsSet_) wxEndBusyCursor();
  pointerIsSet_ = pointer != Pointer::Default;
  if (!pointerIsSet_) return;
  const wxCursor cursor(pointer == Pointer::Hourglass        ? wxCURSOR_WAIT
                        : pointer == Pointer::ArrowHourglass ? wxCURSOR_ARROWWAIT
                                                             : wxCURSOR_ARROW);
  wxBeginBusyCursor(&cursor);
}

void WxToolkit::setTimer(Timer& timer, std::uint32_t intervalMs) {
  timers_.erase(&timer);
  if (intervalMs == 0) return;
  auto ticker = std::make_unique<Ticker>(timer);
  ticker->Start(static_cast<int>(intervalMs));
  timers_.emplace(&timer, std::move(ticker));
}

Size WxToolkit::workArea() const {
  int x = 0, y = 0, width = 0, height = 0;
  wxClientDisplayRect(&x, &y, &width, &height);
  const auto size = wxWindow::ToDIP(wxSize(width, height), nullptr);
  return {size.x * kTwipsPerPixel, size.y * kTwipsPerPixel};
}

}  // namespace varnhold::ui::wx
