#pragma once

#include <string>
#include <string_view>

#include "ui/controls/control.h"

namespace varnhold::ui {

/// A line, or several, that the user can edit. Lengths and positions count characters (code points).
class TextBox : public Viewed<ControlView> {
 public:
  TextBox();
  explicit TextBox(std::string text);

  /// UTF-8. Setting it raises Change, by code too, and puts the caret at the start.
  Property<std::string> Text{*this};
  /// The user can't edit; code can.
  Property<bool> Locked{*this};
  /// What is shown instead of each character, such as "*"; empty shows the text.
  Property<std::string> PasswordChar{*this};
  /// How many characters a user can enter; 0 sets no limit.
  Property<int> MaxLength{*this};
  Property<bool> MultiLine{*this};
  /// Where the selection begins, and how many characters it holds (0: the caret). Beyond the text means its
  /// end. Error 380 below 0.
  Property<int> SelStart, SelLength;

  Event<> Change{*this};
  /// A character is about to be entered; 8 is backspace. The handler drops the key by setting it to 0. While
  /// this event has a handler, the view enters nothing by itself and hands each character to `userType`.
  Event<int&> KeyPress{*this};

  /// Selects the whole text.
  void SelectAll();

  [[nodiscard]] bool takesFocus() const override { return true; }

  /// The user typed the characters of `text`, one after the other: each raises KeyPress, and, unless it was
  /// dropped or there is no more room, takes the place of the selection and raises Change. Stops where a
  /// handler moves the focus away: the rest goes to nobody. Backspace ("\b") deletes.
  void userType(std::string_view text);
  /// The text now stands as told, edited by the user in any way (typed, pasted, cut): Change, where it
  /// differs. `caret` is where the caret now stands.
  void userEdit(const std::string& text, int caret);
  /// The user moved the selection.
  void userSelect(int start, int length);

  /// A password does not stay in memory.
  void restoreDesign() override;

 protected:
  void changed(const PropertyBase& property) override;

 private:
  void enter(char32_t character);
  void replaceSelection(std::string_view with);
  void edit(std::string text, int caret);
  void wipePassword();
};

}  // namespace varnhold::ui
