#pragma once

#include <string>
#include <string_view>

namespace varnhold::platform::posix {

/// An empty folder of the test's own, cleared away at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  /// The path of an entry.
  [[nodiscard]] std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

 private:
  std::string path_;
};

/// The content of a file, and a file with a content, past the adapters under test.
[[nodiscard]] std::string contentOf(const std::string& path);
void writeFile(const std::string& path, std::string_view content);

}  // namespace varnhold::platform::posix
