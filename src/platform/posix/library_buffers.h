#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "companion/include/qrvutil.h"
#include "platform/closed_libraries.h"

namespace varnhold::platform::posix {

/// A string as it crosses to the library: a buffer of its own that the library may write to. Wiped when it
/// goes, since it may hold a password.
class TextBuffer {
 public:
  /// Room for `text`, its closing NUL and, where that is more, `size` bytes; the rest is NULs.
  explicit TextBuffer(const std::string& text, std::size_t size = 0);
  ~TextBuffer();
  TextBuffer(TextBuffer&&) = default;
  TextBuffer& operator=(TextBuffer&&) = delete;

  [[nodiscard]] char* data() { return bytes_.data(); }
  /// The bytes as the library left them: all of the buffer, or the first `length`.
  [[nodiscard]] std::string uncut() const { return {bytes_.data(), bytes_.size()}; }
  [[nodiscard]] std::string uncut(std::size_t length) const { return {bytes_.data(), length}; }
  /// The text before the first NUL.
  [[nodiscard]] std::string text() const;

 private:
  std::vector<char> bytes_;
};

/// A job's record while the library has it.
class JobRecord {
 public:
  explicit JobRecord(const DeploymentJob& job);

  [[nodiscard]] QrvDeploymentJob* get() { return &record_; }
  /// Brings the strings back, each in its own length, closing NULs that the library wrote into it included.
  void readBack(DeploymentJob& job) const;

 private:
  std::vector<TextBuffer> texts_;  ///< in the order of the record's strings
  QrvDeploymentJob record_{};
};

/// The record of a system's details while the library has it.
class DetailsRecord {
 public:
  explicit DetailsRecord(const SystemDetails& details);

  [[nodiscard]] QrvSystemDetails* get() { return &record_; }
  /// Brings everything back, the strings cut at their first NUL.
  void readBack(SystemDetails& details) const;

 private:
  TextBuffer systemName_, resolvedName_, text1_, text2_;
  QrvSystemDetails record_{};
};

}  // namespace varnhold::platform::posix
