#pragma once

#include <cstdint>

/// The numbers that handlers and views speak in, as the product's platform has them.
namespace varnhold::ui {

/// `MousePointer`.
enum class Pointer { Default = 0, Arrow = 1, Hourglass = 11, ArrowHourglass = 13, Custom = 99 };

/// `BackColor`, as far as forms set it. `Default` is what the control has on its host.
enum class SystemColor { Default, Window, ButtonFace };

enum class MouseButton { Left = 1, Right = 2 };

/// Key codes (winuser.h, VK_*).
enum Key : int { kKeyBack = 8, kKeyReturn = 13, kKeyEscape = 27, kKeyF1 = 112, kKeyF5 = 116 };

/// What is held down together with a key or a mouse button; a mask.
enum Modifier : int { kNoModifier = 0, kShift = 1, kControl = 2, kAlt = 4 };

/// A form's frame: none (a splash), one that can be sized, one that can't.
enum class BorderStyle { None = 0, Sizable = 2, FixedDialog = 3 };

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

/// Why a form is asked to close: by its frame, by code, because the session ends, because its owner closes.
enum class UnloadMode { FormControlMenu = 0, FormCode = 1, AppWindows = 2, FormOwner = 5 };

enum class SortOrder { Ascending = 0, Descending = 1 };

/// Run-time errors that forms and controls raise, by the numbers of the product's platform.
enum UiErrorNumber : std::int32_t {
  kInternalError = 51,          ///< an exception that is no run-time error left a handler
  kObjectNotSet = 91,           ///< nothing is there: no selected row, no node
  kNoSuchArrayElement = 340,    ///< a control array has no such index
  kInvalidPropertyValue = 380,  ///< a property refuses a value
  kInvalidPropertyIndex = 381,  ///< a property with an index refuses the index
  kPropertyIsReadOnly = 383,    ///< the text of a combo box that is no entry of its list
  kFormAlreadyDisplayed = 400,  ///< a visible form can't be shown modally
  kModalFormDisplayed = 401,    ///< a form can't be shown modeless under a modal one
  kIndexOutOfBounds = 35600,    ///< a collection has no such index
  kElementNotFound = 35601,     ///< a collection has no such key
  kKeyNotUnique = 35602,        ///< a collection has that key already
};

}  // namespace varnhold::ui
