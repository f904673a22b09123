#pragma once

#include <cstdint>

namespace varnhold::platform {

/// A local date and time: month 1 to 12, hour 0 to 23.
struct LocalTime {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

/// Time, so that tests need none. Any thread.
class Clock {
 public:
  virtual ~Clock() = default;

  /// Sleep.
  virtual void sleep(std::uint32_t milliseconds) = 0;
  /// GetLocalTime.
  [[nodiscard]] virtual LocalTime getLocalTime() = 0;
};

}  // namespace varnhold::platform
