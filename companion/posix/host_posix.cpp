#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "base/text.h"
#include "companion/host.h"
#include "companion/paths.h"
#include "companion/worker_threads.h"
#include "platform/formats/path_translation.h"

namespace varnhold::companion::host {
namespace {

class OwnedDescriptor {
 public:
  explicit OwnedDescriptor(int number) : number_(number) {}
  ~OwnedDescriptor() {
    if (*this) ::close(number_);
  }
  OwnedDescriptor(const OwnedDescriptor&) = delete;
  OwnedDescriptor& operator=(const OwnedDescriptor&) = delete;

  [[nodiscard]] int get() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }

 private:
  int number_;
};

/// A flock, which ends with its descriptor.
class LockedFile : public Hold {
 public:
  explicit LockedFile(const std::filesystem::path& file)
      : file_(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    while (file_ && ::flock(file_.get(), LOCK_EX) != 0 && errno == EINTR) {
    }
  }

 private:
  OwnedDescriptor file_;
};

Win32Error win32Error(int number) {
  switch (number) {
    case ENOENT:
    case ENOTDIR:
      return kPathMissing;
    case ENOSPC:
    case EDQUOT:
      return kDiskIsFull;
    case ENAMETOOLONG:
      return kInvalidName;
    default:
      return kAccessDenied;
  }
}

/// Makes the file anew with these bytes; 0, or the error's number.
int writeFresh(const std::filesystem::path& file, std::string_view bytes) {
  const OwnedDescriptor out(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!out) return errno;
  while (!bytes.empty()) {
    const ssize_t written = ::write(out.get(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace

std::string fromAbi(std::string_view text) {
  return std::string(text);
}
std::string toAbi(std::string_view text) {
  return std::string(text);
}

std::filesystem::path localPath(const std::string& path) {
  const bool fromRoot = platform::toSlashes(path).starts_with('/');
  return resolveIgnoringCase(fromRoot ? "/" : ".", platform::pathComponents(path));
}

std::filesystem::path asSpelled(const std::filesystem::path& path) {
  return path;
}

Win32Error replaceFile(const std::filesystem::path& file, std::string_view bytes) {
  std::filesystem::path fresh = file;
  fresh += kFreshEnding;
  int error = writeFresh(fresh, bytes);
  if (error == 0 && ::rename(fresh.c_str(), file.c_str()) != 0) error = errno;
  if (error == 0) return kDone;
  ::unlink(fresh.c_str());
  return win32Error(error);
}

std::unique_ptr<Hold> lockFile(const std::filesystem::path& file) {
  return std::make_unique<LockedFile>(file);
}

void* startThread(std::function<std::uint32_t(const MustStop&)> work) {
  return startWorker(std::move(work));
}

}  // namespace varnhold::companion::host
