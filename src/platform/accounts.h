#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varnhold::platform {

/// The two buffers of LookupAccountName: their sizes are the room that the call has.
struct AccountBuffers {
  std::vector<std::uint8_t> sid;
  std::string domain;            ///< the closing NUL included
  std::uint32_t sidSize = 0;     ///< out: the bytes that are needed, or were used
  std::uint32_t domainSize = 0;  ///< out: the characters that are needed with their NUL, or were used
};

/// The accounts of computers and domains. Main thread.
class Accounts {
 public:
  virtual ~Accounts() = default;

  /// LookupAccountName on `system`, an empty one being this computer. False when there is no such account,
  /// the computer does not answer, or a buffer is too small; only in the last case do the sizes say what is
  /// needed.
  [[nodiscard]] virtual bool lookupAccountName(const std::string& system, const std::string& account,
                                               AccountBuffers& buffers) = 0;
};

}  // namespace varnhold::platform
