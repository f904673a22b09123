#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace varnhold::platform {

enum class FileOutcome {
  Done,
  NotFound,  ///< the file, or a folder on its path, is not there
  Exists,    ///< a new file was asked for and there is one
  Refused,   ///< the host does not allow it, or the path cannot be a file
  Full,      ///< no room left
};

enum class FileAccess { Everyone, OwnerOnly };

/// Files by their full path, in the product's form: UTF-8, backslashes between folders, `\\HOST\C$\...` for
/// an administrative share, letters of either case. An adapter translates in one place. Main thread.
class Files {
 public:
  virtual ~Files() = default;

  /// True when there is a file (no folder) of that name.
  [[nodiscard]] virtual bool exists(const std::string& path) = 0;
  /// GetFileAttributes: true when there is a file or a folder of that name.
  [[nodiscard]] virtual bool isThere(const std::string& path) = 0;
  /// The whole content; nothing when it cannot be read.
  [[nodiscard]] virtual std::optional<std::string> read(const std::string& path) = 0;
  /// Adds bytes at the end, making the file where it is missing. What could not be written whole is not left
  /// half-written.
  [[nodiscard]] virtual FileOutcome append(const std::string& path, std::string_view bytes) = 0;
  /// Makes a file that must not exist yet.
  [[nodiscard]] virtual FileOutcome createNew(const std::string& path, std::string_view bytes,
                                              FileAccess access) = 0;
  /// CreateFile with all access (0x10000000), no sharing, disposition 2 (always create), and closes it: true
  /// when that worked. Leaves an empty file.
  [[nodiscard]] virtual bool createProbe(const std::string& path) = 0;
  /// DeleteFile.
  virtual FileOutcome remove(const std::string& path) = 0;
};

}  // namespace varnhold::platform
