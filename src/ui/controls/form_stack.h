#pragma once

#include <vector>

#include "ui/controls/constants.h"

namespace varnhold::ui {

class Dispatcher;
class Form;
class Toolkit;

/// The forms that are shown, the upper ones over the lower ones, and what happens in a form's life. Main
/// thread.
///
/// A form is activated when it is shown, and when a form that lay over it goes away: behind a modal form,
/// right before the `ShowModal` of that form returns; behind a modeless one, at once. Message boxes and other
/// programs activate nothing.
class FormStack {
 public:
  FormStack(Toolkit& toolkit, Dispatcher& dispatcher) : toolkit_(toolkit), dispatcher_(dispatcher) {}

  void load(Form& form);
  void showModeless(Form& form, Form* owner);
  void showModal(Form& form, Form* owner);
  void hide(Form& form);
  /// True when the form is no longer loaded. Forms that it owns and that are shown are asked too, with
  /// `FormOwner`; one that refuses keeps it.
  bool unload(Form& form, UnloadMode mode);
  /// The form is being destroyed: it goes without an event.
  void forget(Form& form);

  /// The uppermost form, or nothing.
  [[nodiscard]] Form* top() const { return shown_.empty() ? nullptr : shown_.back(); }
  [[nodiscard]] bool isAnyShown() const { return !shown_.empty(); }
  /// True when the form is shown and no modal form lies over it.
  [[nodiscard]] bool isReachable(const Form& form) const;
  /// Makes the loop of every modal form return.
  void endModalLoops();
  /// Takes every form off the screen, without an event.
  void closeAll();

 private:
  bool show(Form& form, Form* owner, bool modal);
  void activateTop();
  /// Takes the form off the screen and out of the stack; true when it lay on top and was not modal, so that
  /// the form under it is to be activated now.
  bool takeOff(Form& form);
  [[nodiscard]] bool mayUnload(Form& form, UnloadMode mode);

  Toolkit& toolkit_;
  Dispatcher& dispatcher_;
  std::vector<Form*> shown_;
};

}  // namespace varnhold::ui
