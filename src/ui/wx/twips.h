#pragma once

#include <wx/window.h>

/// Between twips, 15 to a pixel at 100 %, and the pixels of a window's screen.
namespace varnhold::ui::wx {

constexpr int kTwipsPerPixel = 15;

[[nodiscard]] inline int pixels(const wxWindow& window, double twips) {
  return window.FromDIP(static_cast<int>(twips / kTwipsPerPixel));
}

[[nodiscard]] inline int twips(const wxWindow& window, int pixelCount) {
  return window.ToDIP(pixelCount) * kTwipsPerPixel;
}

}  // namespace varnhold::ui::wx
