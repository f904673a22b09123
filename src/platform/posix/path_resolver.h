#pragma once

#include <string>

#include "platform/posix/companion_library.h"

namespace varnhold::platform::posix {

/// The one translation of the product's paths to this host's. Main thread.
class PathResolver {
 public:
  explicit PathResolver(CompanionLibrary& companion) : companion_(companion) {}

  /// The host's path: slashes for backslashes, and every name as the folder spells it. A name that is there
  /// exactly wins; else the first in the order of its bytes that differs by case only; else the name stays. A
  /// path on an administrative share is asked of the companion; it is empty, which no file has, when the
  /// share cannot be reached.
  [[nodiscard]] std::string resolve(const std::string& path);

 private:
  CompanionLibrary& companion_;
};

}  // namespace varnhold::platform::posix
