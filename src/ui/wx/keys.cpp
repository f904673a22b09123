#include "ui/wx/keys.h"

#include "ui/controls/constants.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {

int keyOf(int code) {
  const bool isLetterOrDigit = (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
  if (isLetterOrDigit) return code;
  if (code >= WXK_F1 && code <= WXK_F12) return kKeyF1 + code - WXK_F1;
  switch (code) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
      return kKeyReturn;
    case WXK_ESCAPE:
      return kKeyEscape;
    case WXK_BACK:
      return kKeyBack;
    default:
      return 0;
  }
}

int modifiersOf(const wxKeyboardState& state) {
  int modifiers = kNoModifier;
  if (state.ShiftDown()) modifiers |= kShift;
  if (state.ControlDown()) modifiers |= kControl;
  if (state.AltDown()) modifiers |= kAlt;
  return modifiers;
}

}  // namespace varnhold::ui::wx
