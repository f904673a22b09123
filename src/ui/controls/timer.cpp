#include "ui/controls/timer.h"

#include "ui/controls/form.h"
#include "ui/controls/screen.h"

namespace varnhold::ui {

Timer::~Timer() {
  if (running_) form()->screen().toolkit().setTimer(*this, 0);
}

void Timer::timeElapsed() {
  // A tick may have been under way when the timer was turned off.
  if (dueEvery() == 0) return;
  form()->screen().dispatch([&] { Tick.raise(); });
}

std::uint32_t Timer::dueEvery() const {
  return form() != nullptr && form()->isLoaded() && Enabled ? Interval.get() : 0;
}

void Timer::changed(const PropertyBase& property) {
  if (&property == &Enabled || &property == &Interval) begin();
}

void Timer::begin() {
  const auto every = dueEvery();
  if (every == 0 && !running_) return;
  running_ = every != 0;
  form()->screen().toolkit().setTimer(*this, every);
}

}  // namespace varnhold::ui
