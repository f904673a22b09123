#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "ui/controls/form.h"
#include "ui/wx/acts.h"
#include "ui/wx/common_values.h"
#include "ui/wx/keyboard_focus.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {

/// The part that all binders' views have in common. `Interface` is the `...View` of the control kind `Kind`,
/// `Widget` what shows it. A derived view shows the control's values in `show`, and listens to its widget's
/// events in `listen`, where each user's act becomes a `post`. See `bind`.
template <class Interface, class Kind, class Widget>
class BoundView : public Interface {
 public:
  BoundView(Widget& widget, Kind& control) : widget_(widget), control_(&control) {}

  void sync() override {
    // Acts on the way are to find the widget as the user left it; behind the last one it is shown anew.
    if (control_ == nullptr || actsOnTheWay_ > 0) return;
    const Quiet quiet(*this);
    const bool hadFocus = hasFocus(widget_);
    if (syncCommonValues(widget_, *control_) && (hadFocus || isActive())) keepKeysHeardSoon();
    show(*control_);
  }
  void takeFocus() override { widget_.SetFocus(); }
  void toFront() override { widget_.Raise(); }
  void released() override { control_ = nullptr; }

  /// Called once, when the widget shows the control.
  virtual void listen() {}

  /// Reports the focus, for the kinds that take it.
  void listenToFocus() {
    widget_.Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
      event.Skip();
      post([this](Kind& control) {
        if (hasFocus(widget_)) control.userFocus();
      });
    });
  }

 protected:
  /// While one of these lives, `post` drops what it is given: the view itself is setting the widget.
  class Quiet {
   public:
    explicit Quiet(BoundView& view) : view_(view), life_(view.life_) { ++view_.quiet_; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet() {
      if (!life_.expired()) --view_.quiet_;
    }

   private:
    BoundView& view_;
    std::weak_ptr<int> life_;
  };

  /// Makes the widget show the control's values. Under `Quiet`.
  virtual void show(const Kind& control) = 0;

  /// Hands a user's act over from the event loop, if view and control are there by then; afterwards the
  /// widget shows again what the control holds. The act may read the view before it calls a `user...` method,
  /// but not behind it: a handler may have closed the form.
  void post(std::function<void(Kind&)> act) {
    if (quiet_ > 0 || control_ == nullptr) return;
    ++actsOnTheWay_;
    acts().post([this, life = std::weak_ptr<int>(life_), act = std::move(act)] {
      if (life.expired()) return;
      --actsOnTheWay_;
      if (control_ == nullptr) return;
      act(*control_);
      if (life.expired() || actsOnTheWay_ > 0) return;
      sync();
      lookNow();
    });
  }

  /// Runs `look` once on a later turn of the event loop, however often it was asked for until then.
  void lookSoon(std::function<void(Kind&)> look) {
    if (look_ != nullptr) return;
    look_ = std::move(look);
    soon([this, life = std::weak_ptr<int>(life_)] {
      if (!life.expired() && actsOnTheWay_ == 0) lookNow();
    });
  }

  [[nodiscard]] bool isQuiet() const { return quiet_ > 0; }
  [[nodiscard]] Widget& widget() const { return widget_; }
  /// The control, or nothing once it has let go of the view.
  [[nodiscard]] Kind* control() const { return control_; }

 private:
  void lookNow() {
    const auto look = std::exchange(look_, nullptr);
    if (look == nullptr || control_ == nullptr) return;
    const Quiet quiet(*this);
    look(*control_);
  }

  [[nodiscard]] bool isActive() const {
    return control_->form() != nullptr && control_->form()->ActiveControl() == control_;
  }
  void keepKeysHeardSoon() {
    acts().post([this, life = std::weak_ptr<int>(life_)] {
      if (life.expired() || control_ == nullptr || control_->form() == nullptr) return;
      keepKeysHeard(widget_, *control_->form(), control_);
    });
  }

  Widget& widget_;
  Kind* control_;
  int quiet_ = 0;
  int actsOnTheWay_ = 0;
  std::function<void(Kind&)> look_;  // what is to be looked at soon
  std::shared_ptr<int> life_ = std::make_shared<int>();
};

/// Makes a `View` that shows `control` on `widget`, and gives it to the widget. Returns the widget.
template <class View, class Widget, class Kind, class... More>
Widget* bind(Widget* widget, Kind& control, More&&... more) {
  auto view = std::make_unique<View>(*widget, control, std::forward<More>(more)...);
  control.attach(*view);
  view->sync();
  view->listen();
  if (control.takesFocus()) view->listenToFocus();
  keepView(*widget, control, std::move(view));
  return widget;
}

}  // namespace varnhold::ui::wx
