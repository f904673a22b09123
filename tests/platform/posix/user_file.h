#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform::posix {

/// A user file of NTLM that is its owner's alone, and that the mechanism is told of while this lives.
class UserFile {
 public:
  explicit UserFile(const std::string& content) {
    writeFile(folder_ / "ntlm-users", content);
    allow(std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    ::setenv("NTLM_USER_FILE", path().c_str(), 1);
  }
  ~UserFile() { ::unsetenv("NTLM_USER_FILE"); }
  UserFile(const UserFile&) = delete;
  UserFile& operator=(const UserFile&) = delete;

  [[nodiscard]] std::string path() const { return folder_ / "ntlm-users"; }
  void allow(std::filesystem::perms permissions) { std::filesystem::permissions(path(), permissions); }

 private:
  TemporaryFolder folder_;
};

}  // namespace varnhold::platform::posix
