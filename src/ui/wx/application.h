#pragma once

#include <wx/app.h>
#include <wx/gdicmn.h>

#include <optional>

#include "ui/wx/acts.h"

namespace varnhold::ui::wx {

/// wx's idea of the program. `main` stays ours: `WxToolkit` starts and ends it.
class Application : public wxApp {
 public:
  Acts acts;
  /// See `PopUpPlace`.
  std::optional<wxPoint> popUpPlace;

  bool OnInit() override {
    // Windows come and go between two event loops; only the form stack decides when the run ends.
    SetExitOnFrameDelete(false);
    return true;
  }
};

}  // namespace varnhold::ui::wx
