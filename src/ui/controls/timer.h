#pragma once

#include <cstdint>

#include "ui/controls/control.h"

namespace varnhold::ui {

/// Ticks every `Interval` milliseconds while it is enabled and its form is loaded, shown or not, also under a
/// modal form. It has no view: the toolkit keeps the time.
class Timer : public Control {
 public:
  ~Timer() override;

  /// Milliseconds; 0 never ticks. Setting it, or `Enabled`, begins a new interval.
  Property<std::uint32_t> Interval{*this, 0};

  Event<> Tick{*this};

  /// The toolkit's call, once per interval, from the event loop.
  void timeElapsed();

  void formStateChanged() override { begin(); }

 protected:
  void changed(const PropertyBase& property) override;

 private:
  /// Milliseconds between ticks as things stand; 0 for none.
  [[nodiscard]] std::uint32_t dueEvery() const;
  void begin();

  bool running_ = false;
};

}  // namespace varnhold::ui
