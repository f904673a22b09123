#pragma once

#include <unistd.h>

#include <utility>

namespace varnhold::platform::posix {

/// Owns a file descriptor and closes it.
class OwnedDescriptor {
 public:
  explicit OwnedDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
  ~OwnedDescriptor() { reset(); }
  OwnedDescriptor(OwnedDescriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OwnedDescriptor& operator=(OwnedDescriptor&& other) noexcept {
    reset();
    descriptor_ = std::exchange(other.descriptor_, -1);
    return *this;
  }

  explicit operator bool() const { return descriptor_ >= 0; }
  [[nodiscard]] int get() const { return descriptor_; }
  void reset() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
  }

 private:
  int descriptor_;
};

}  // namespace varnhold::platform::posix
