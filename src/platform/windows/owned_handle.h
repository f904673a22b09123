#pragma once

#include <windows.h>

#include <utility>

namespace varnhold::platform::windows {

/// Owns a handle that CloseHandle gives back. INVALID_HANDLE_VALUE counts as none.
class OwnedHandle {
 public:
  explicit OwnedHandle(HANDLE handle = nullptr)
      : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  ~OwnedHandle() { close(); }
  OwnedHandle(OwnedHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;
  OwnedHandle& operator=(OwnedHandle&&) = delete;

  explicit operator bool() const { return handle_ != nullptr; }
  [[nodiscard]] HANDLE get() const { return handle_; }
  void close() {
    if (handle_ != nullptr) CloseHandle(std::exchange(handle_, nullptr));
  }

 private:
  HANDLE handle_;
};

}  // namespace varnhold::platform::windows
