#pragma once

#include <wx/gdicmn.h>

#include <optional>

namespace varnhold::ui::wx {

/// While one of these lives, a menu that is popped up comes up at this place of the screen and not at the
/// pointer: the user asked for it with a key.
class PopUpPlace {
 public:
  explicit PopUpPlace(wxPoint onScreen);
  PopUpPlace(const PopUpPlace&) = delete;
  PopUpPlace& operator=(const PopUpPlace&) = delete;
  ~PopUpPlace();

  /// The place, or nothing for the pointer's.
  [[nodiscard]] static std::optional<wxPoint> current();

 private:
  std::optional<wxPoint> outer_;
};

}  // namespace varnhold::ui::wx
