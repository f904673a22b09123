#pragma once

#include <cstdint>
#include <string>

namespace varnhold::deployment {

/// What a run of deployment jobs shows while it goes: the wizard's progress bar and the status column of its
/// list of systems. Rows count from 1. A handler may run inside `pumpEvents`. Main thread.
class RunScreen {
 public:
  virtual ~RunScreen() = default;

  /// `pbProgress.Value`, 0 to 100.
  [[nodiscard]] virtual std::int32_t progress() = 0;
  virtual void setProgress(std::int32_t value) = 0;

  /// Handles the user interface events that wait.
  virtual void pumpEvents() = 0;
  /// Repaints the form at once.
  virtual void refresh() = 0;

  /// The system of a row of `lvSystems`.
  [[nodiscard]] virtual std::string systemName(std::int32_t row) = 0;
  /// Sets the row's status column.
  virtual void setStatus(std::int32_t row, const std::string& text) = 0;
  /// Sets `ErrorsSeen`: this run has written to the log.
  virtual void setErrorsSeen() = 0;
};

}  // namespace varnhold::deployment
