#include "ui/wx/acts.h"

#include <utility>

#include "ui/wx/application.h"

namespace varnhold::ui::wx {

Acts& acts() {
  return static_cast<Application&>(*wxTheApp).acts;
}

void soon(std::function<void()> work) {
  wxTheApp->CallAfter([work = std::move(work)] { work(); });
}

Acts::Hold::~Hold() {
  if (--acts_.held_ > 0) return;
  for (auto missed = std::exchange(acts_.missed_, 0); missed > 0; --missed) acts_.scheduleOne();
}

void Acts::post(std::function<void()> act) {
  waiting_.push_back(std::move(act));
  scheduleOne();
}

void Acts::scheduleOne() {
  wxTheApp->CallAfter([this] { runOne(); });
}

void Acts::runOne() {
  if (held_ > 0) {
    ++missed_;
    return;
  }
  if (waiting_.empty()) return;
  // Taken out first: the act may run an event loop of its own.
  const auto act = std::move(waiting_.front());
  waiting_.pop_front();
  act();
}

}  // namespace varnhold::ui::wx
