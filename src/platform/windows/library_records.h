#pragma once

#include <vector>

#include "companion/include/qrvutil.h"
#include "platform/closed_libraries.h"
#include "platform/windows/ansi_buffer.h"

namespace varnhold::platform::windows {

/// A job in the form of the C interface, for the length of one call.
class JobRecord {
 public:
  explicit JobRecord(const DeploymentJob& job);

  [[nodiscard]] QrvDeploymentJob* data() { return &record_; }
  /// Brings back what the library changed, each string in its own length.
  void readBack(DeploymentJob& job) const;

 private:
  std::vector<AnsiBuffer> strings_;
  QrvDeploymentJob record_{};
};

/// The details of a system in the form of the C interface, for the length of one call.
class DetailsRecord {
 public:
  explicit DetailsRecord(const SystemDetails& details);

  [[nodiscard]] QrvSystemDetails* data() { return &record_; }
  /// Brings everything back, each string cut at its first NUL.
  void readBack(SystemDetails& details) const;

 private:
  std::vector<AnsiBuffer> strings_;
  QrvSystemDetails record_{};
};

}  // namespace varnhold::platform::windows
