#pragma once

#include <functional>
#include <utility>

#include "ui/controls/component.h"

namespace varnhold::ui {

/// An event of a control: at most one handler, which the form gives it in its constructor
/// (`cmdOK.Click = [this] { cmdOK_Click(); }`). Main thread.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  explicit Event(const Component& source) : source_(source) {}
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }

  [[nodiscard]] bool isHandled() const { return handler_ != nullptr; }

  /// Runs the handler, if there is one. A run-time error that leaves it is shown and ends the program,
  /// whoever set the event off: a handler of the caller does not see it.
  void raise(Args... args) const {
    if (!handler_) return;
    source_.runHandler([&] { handler_(args...); });
  }

 private:
  const Component& source_;
  Handler handler_;
};

}  // namespace varnhold::ui
