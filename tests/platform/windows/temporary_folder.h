#pragma once

#include <filesystem>
#include <string>

namespace varnhold::platform::windows {

/// An empty folder that goes with this object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The folder in the product's form, UTF-8 without closing backslash.
  [[nodiscard]] std::string path() const;
  [[nodiscard]] std::string operator/(const std::string& name) const { return path() + '\\' + name; }

 private:
  std::filesystem::path path_;
};

}  // namespace varnhold::platform::windows
