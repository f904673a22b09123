#pragma once

#include <sys/stat.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "platform/formats/registry_file.h"

namespace varnhold::platform::posix {

/// The file `registry.reg` of a home: read again when it changed, replaced whole, one writer at a time.
/// Readers need no lock. A file that cannot be read or understood raises RuntimeError kPathFileAccess and is
/// never written.
class RegistryStore {
 public:
  /// `lockWait`: how long a writer waits for another one.
  RegistryStore(const std::string& home, std::chrono::milliseconds lockWait);

  /// The registry as the file has it now; empty when there is none. Holds until the next call.
  [[nodiscard]] const RegistryFile& current();

  /// Changes the newest content and writes it; nothing is written when `change` gives false. True when the
  /// change is in the file; else the file is as it was.
  [[nodiscard]] bool update(const std::function<bool(RegistryFile&)>& change);

 private:
  /// What tells one content of the file from the next without reading it.
  struct Signature {
    dev_t device;
    ino_t inode;
    off_t size;
    timespec modified;
  };

  void readAnew();
  [[nodiscard]] bool isUnchanged() const;
  [[nodiscard]] std::string readFile();
  [[noreturn]] void raise(const std::string& what, const std::string& remedy) const;

  std::string path_;
  std::string lockPath_;
  std::chrono::milliseconds lockWait_;
  RegistryFile file_;
  std::optional<Signature> signature_;  ///< of what `file_` was read from; nothing when it must be read again
};

}  // namespace varnhold::platform::posix
