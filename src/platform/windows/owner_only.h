#pragma once

#include <windows.h>

#include <array>

namespace varnhold::platform::windows {

/// What a new file needs so that only the account of this process can open it.
class OwnerOnly {
 public:
  OwnerOnly();
  OwnerOnly(const OwnerOnly&) = delete;
  OwnerOnly& operator=(const OwnerOnly&) = delete;

  /// For CreateFile, as long as this object lives; null when the host could not tell the account, and
  /// GetLastError then says why.
  [[nodiscard]] SECURITY_ATTRIBUTES* attributes() { return ready_ ? &attributes_ : nullptr; }

 private:
  bool build();

  // TOKEN_USER with the longest SID behind it, and a list with one entry for that SID.
  alignas(TOKEN_USER) std::array<BYTE, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> user_{};
  alignas(ACL) std::array<BYTE, sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + SECURITY_MAX_SID_SIZE> list_{};
  SECURITY_DESCRIPTOR descriptor_{};
  SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), &descriptor_, FALSE};
  bool ready_ = false;
};

}  // namespace varnhold::platform::windows
