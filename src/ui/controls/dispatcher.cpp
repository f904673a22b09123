#include "ui/controls/dispatcher.h"

#include "ui/controls/constants.h"

namespace varnhold::ui {

Dispatcher::Dispatcher(Report report, std::function<void()> onEnd)
    : report_(std::move(report)), onEnd_(std::move(onEnd)) {}

void Dispatcher::dispatch(const std::function<void()>& deed) noexcept {
  ++depth_;
  try {
    raise(deed);
  } catch (
      const EndOfProgram&) {  // NOLINT(bugprone-empty-catch): it has done its work, every handler is unwound
  }
  --depth_;
}

void Dispatcher::raise(const std::function<void()>& handler) {
  if (ended_) return;
  try {
    handler();
  } catch (const RuntimeError& error) {
    fail(error);
  } catch (const std::exception& exception) {
    fail(RuntimeError(kInternalError, exception.what()));
  }
}

void Dispatcher::fail(const RuntimeError& error) {
  // First, so that nothing else runs while the report waits for the user.
  ended_ = true;
  failed_ = true;
  report_(error);
  onEnd_();
  throw EndOfProgram{};
}

void Dispatcher::end() {
  ended_ = true;
  onEnd_();
  throw EndOfProgram{};
}

void Dispatcher::stopIfEnded() const {
  if (ended_) throw EndOfProgram{};
}

}  // namespace varnhold::ui
