#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>

#include "platform/posix/adapters.h"
#include "platform/posix/atomic_file.h"

namespace varnhold::platform::posix {
namespace {

struct OutcomeOfError {
  int error;
  FileOutcome outcome;
};

constexpr std::array kOutcomes = {
    OutcomeOfError{ENOENT, FileOutcome::NotFound}, OutcomeOfError{ENOTDIR, FileOutcome::NotFound},
    OutcomeOfError{EEXIST, FileOutcome::Exists},   OutcomeOfError{ENOSPC, FileOutcome::Full},
    OutcomeOfError{EDQUOT, FileOutcome::Full},     OutcomeOfError{EFBIG, FileOutcome::Full},
};

/// How long a line of a log waits for other writers of it.
constexpr std::chrono::seconds kAppendLockWait{10};

FileOutcome outcomeOf(int error) {
  const auto* found = std::find_if(kOutcomes.begin(), kOutcomes.end(),
                                   [&](const OutcomeOfError& entry) { return entry.error == error; });
  return found == kOutcomes.end() ? FileOutcome::Refused : found->outcome;
}

/// O_NONBLOCK keeps a pipe in the file's place from holding the program; plain files take no notice of it.
OwnedDescriptor open(const std::string& path, int flags, mode_t mode = 0666) {
  return OwnedDescriptor(::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, mode));
}

/// Other programs of ours may write a log of the same name: the place to cut back to is known only under a
/// lock.
FileOutcome appendLocked(int descriptor, std::string_view bytes) {
  struct stat before {};
  if (!lockDescriptor(descriptor, kAppendLockWait) || ::fstat(descriptor, &before) != 0)
    return FileOutcome::Refused;
  if (writeAll(descriptor, bytes)) return FileOutcome::Done;
  const auto outcome = outcomeOf(errno);
  [[maybe_unused]] const int cut = ::ftruncate(descriptor, before.st_size);
  return outcome;
}

class FilesOfHost : public Files {
 public:
  explicit FilesOfHost(PathResolver& paths) : paths_(paths) {}

  bool exists(const std::string& path) override {
    struct stat status {};
    return ::stat(paths_.resolve(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
  }

  bool isThere(const std::string& path) override {
    struct stat status {};
    return ::stat(paths_.resolve(path).c_str(), &status) == 0;
  }

  std::optional<std::string> read(const std::string& path) override {
    const auto file = open(paths_.resolve(path), O_RDONLY);
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return readAll(file.get());
  }

  FileOutcome append(const std::string& path, std::string_view bytes) override {
    const auto file = open(paths_.resolve(path), O_WRONLY | O_APPEND | O_CREAT);
    return file ? appendLocked(file.get(), bytes) : outcomeOf(errno);
  }

  FileOutcome createNew(const std::string& path, std::string_view bytes, FileAccess access) override {
    const auto local = paths_.resolve(path);
    const auto file = open(local, O_WRONLY | O_CREAT | O_EXCL,
                           access == FileAccess::OwnerOnly ? mode_t{0600} : mode_t{0666});
    if (!file) return outcomeOf(errno);
    if (writeAll(file.get(), bytes)) return FileOutcome::Done;
    const auto outcome = outcomeOf(errno);
    ::unlink(local.c_str());
    return outcome;
  }

  bool createProbe(const std::string& path) override {
    return static_cast<bool>(open(paths_.resolve(path), O_RDWR | O_CREAT | O_TRUNC));
  }

  FileOutcome remove(const std::string& path) override {
    return ::unlink(paths_.resolve(path).c_str()) == 0 ? FileOutcome::Done : outcomeOf(errno);
  }

 private:
  PathResolver& paths_;
};

}  // namespace

std::unique_ptr<Files> makeFiles(PathResolver& paths) {
  return std::make_unique<FilesOfHost>(paths);
}

}  // namespace varnhold::platform::posix
