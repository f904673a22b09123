#pragma once

#include <functional>

#include "base/runtime_error.h"

namespace varnhold::ui {

/// Unwinds every handler that is under way when the program ends from within one. Only the dispatcher catches
/// it. It is no error, and no error policy sees it.
struct EndOfProgram {};

/// Runs handlers, and ends the program where a run-time error leaves one. Main thread.
class Dispatcher {
 public:
  using Report = std::function<void(const RuntimeError&)>;

  /// `report` shows the error that ends the program. `onEnd` is called when the program ends; it makes every
  /// event loop return.
  Dispatcher(Report report, std::function<void()> onEnd);

  /// Runs what came from outside: a user's act, a timer's tick. Never throws, so that nothing crosses the
  /// toolkit's code. Does nothing once the program has ended.
  void dispatch(const std::function<void()>& deed) noexcept;
  /// Runs the handler of an event that code has set off. A run-time error that leaves it, and any other
  /// exception (as error 51), is reported and ends the program; then EndOfProgram is thrown. Does nothing
  /// once the program has ended.
  void raise(const std::function<void()>& handler);
  /// Ends the program without a word, and throws EndOfProgram.
  [[noreturn]] void end();
  /// Throws EndOfProgram once the program has ended: behind every call that runs an event loop.
  void stopIfEnded() const;

  [[nodiscard]] bool hasEnded() const { return ended_; }
  /// True when a run-time error has ended the program.
  [[nodiscard]] bool hasFailed() const { return failed_; }
  /// True while no handler runs.
  [[nodiscard]] bool isIdle() const { return depth_ == 0; }

 private:
  [[noreturn]] void fail(const RuntimeError& error);

  Report report_;
  std::function<void()> onEnd_;
  int depth_ = 0;
  bool ended_ = false;
  bool failed_ = false;
};

}  // namespace varnhold::ui
