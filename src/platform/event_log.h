#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace varnhold::platform {

using EventLogHandle = std::uintptr_t;  ///< HANDLE of OpenEventLog; 0 is none

/// The event logs of computers and the words the host has for its error numbers. Main thread.
class EventLog {
 public:
  virtual ~EventLog() = default;

  /// OpenEventLog on `server` (`\\NAME`) for the log `source`; 0 when it fails, and then `error` is its
  /// number.
  [[nodiscard]] virtual EventLogHandle openEventLog(const std::string& server, const std::string& source,
                                                    std::uint32_t& error) = 0;
  /// CloseEventLog.
  virtual void closeEventLog(EventLogHandle handle) = 0;
  /// FormatMessage with flags 4608 (from the system, inserts ignored) and room for 255 characters; nothing
  /// when it has no text, and then `error` is the number that the call itself left.
  [[nodiscard]] virtual std::optional<std::string> formatMessage(std::uint32_t number,
                                                                 std::uint32_t& error) = 0;
};

}  // namespace varnhold::platform
