#pragma once

#include <functional>
#include <string>

#include "ui/controls/constants.h"
#include "ui/controls/event.h"
#include "ui/controls/property.h"

namespace varnhold::ui {

class Control;
class Form;

/// What a toolkit's widget is to the control that it shows. The view lives in the toolkit and is attached to
/// the control until one of the two is destroyed; a control without a view works just as well. Views are
/// called on the main thread, often inside a handler: they must not run handlers and must not call back into
/// a `user...` method from here.
class ControlView {
 public:
  ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView();

  /// A value of the control has changed: re-read them all and show what differs. May come many times in a
  /// row.
  virtual void sync() = 0;
  /// Give the widget the keyboard focus.
  virtual void takeFocus() {}
  /// Bring the widget in front of those that share its place.
  virtual void toFront() {}
  /// The control has gone away, or has got another view: don't touch it again.
  virtual void released() {}

 private:
  friend class Control;

  Control* control_ = nullptr;
};

/// What all controls have in common. A control belongs to one form, which it is a member of. Main thread.
///
/// A user's act reaches a control through one of its `user...` methods, called by its view from the event
/// loop, or by a test. It first moves the focus to the control where the control takes it, then sets the
/// value and raises the event. It does nothing when the control can't be reached (see `isReachable`), and
/// never throws: a run-time error that leaves a handler is shown and ends the program.
class Control : public Component {
 public:
  ~Control() override;

  Property<bool> Enabled{*this, true};
  Property<bool> Visible{*this, true};
  /// Free to the form.
  Property<std::string> Tag{*this};
  Property<std::string> ToolTipText{*this};
  Property<Pointer> MousePointer{*this, Pointer::Default};
  Property<SystemColor> BackColor{*this, SystemColor::Default};

  /// The focus came to the control, from code or by the user.
  Event<> GotFocus{*this};
  Event<> LostFocus{*this};

  /// The control's documented name; empty until its form has adopted it.
  [[nodiscard]] const std::string& Name() const { return name_; }
  /// The control that it stands in (a frame, a menu), or nothing.
  [[nodiscard]] Control* Container() const { return container_; }
  /// The form that it belongs to, or nothing.
  [[nodiscard]] Form* form() const { return form_; }

  /// Moves the focus here: LostFocus of the control that had it, then GotFocus. Does nothing when it is here
  /// already. Error 5 where the control can't have it: disabled, invisible, on a form that is not shown, or
  /// no kind that takes the focus.
  void SetFocus();
  /// Brings the control in front of those that share its place.
  void ZOrder();

  /// True when a user could act on it: it and all it stands in are enabled and visible, and its form is shown
  /// and not blocked by a modal one. A control without a form only looks at itself.
  [[nodiscard]] virtual bool isReachable() const;
  /// True for the kinds that can have the keyboard focus.
  [[nodiscard]] virtual bool takesFocus() const { return false; }
  /// The text whose mnemonic stands for this control; empty for the kinds without one.
  [[nodiscard]] virtual std::string mnemonicText() const { return {}; }

  /// The user moved the focus here.
  void userFocus();
  /// The user pressed the control's mnemonic. For a label, the focus goes to the next control.
  virtual void userMnemonic();

  /// Called when the form was loaded, and after it was unloaded.
  virtual void formStateChanged() {}

  void restoreDesign() override;

 protected:
  Control() = default;

  void changed(const PropertyBase& property) override;
  void runHandler(const std::function<void()>& handler) const override;

  /// Runs what a user did, under the rules of all `user...` methods.
  void act(const std::function<void()>& deed);
  /// The same for acts that leave the focus where it is.
  void actWithoutFocus(const std::function<void()>& deed);

  void attachView(ControlView& view);
  [[nodiscard]] ControlView* attachedView() const { return view_; }
  void syncView();

 private:
  friend class ControlView;
  friend class Form;

  void releaseView();
  [[nodiscard]] bool isShown() const;

  std::string name_;
  Form* form_ = nullptr;
  Control* container_ = nullptr;
  ControlView* view_ = nullptr;
};

/// A control whose views are `View`s.
template <class View>
class Viewed : public Control {
 public:
  /// From now on `view` shows the control. It reads all values by itself at once; the control calls `sync`
  /// only at the next change. An earlier view is released.
  void attach(View& view) { attachView(view); }

 protected:
  /// The attached view, or nothing.
  [[nodiscard]] View* view() const { return static_cast<View*>(attachedView()); }
};

}  // namespace varnhold::ui
