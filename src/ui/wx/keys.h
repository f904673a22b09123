#pragma once

class wxKeyboardState;

namespace varnhold::ui::wx {

/// The key as forms know it (winuser.h, VK_*); 0 for one that they do not know. `code` is a WXK_ code.
[[nodiscard]] int keyOf(int code);

/// What is held down, as a mask of `Modifier`.
[[nodiscard]] int modifiersOf(const wxKeyboardState& state);

}  // namespace varnhold::ui::wx
