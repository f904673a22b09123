#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "base/text.h"
#include "companion/host.h"
#include "companion/paths.h"
#include "companion/worker_threads.h"
#include "platform/formats/path_translation.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/owned_descriptor.h"

namespace varnhold::companion::host {
namespace {

/// A flock, which ends with its descriptor.
class LockedFile : public Hold {
 public:
  explicit LockedFile(const std::filesystem::path& file)
      : file_(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    while (file_ && ::flock(file_.get(), LOCK_EX) != 0 && errno == EINTR) {
    }
  }

 private:
  platform::posix::OwnedDescriptor file_;
};

}  // namespace

std::string fromAbi(std::string_view text) { return std::string(text); }
std::string toAbi(std::string_view text) { return std::string(text); }

std::filesystem::path localPath(const std::string& path) {
  const bool fromRoot = platform::toSlashes(path).starts_with('/');
  return resolveIgnoringCase(fromRoot ? "/" : ".", platform::pathComponents(path));
}

Win32Error replaceFile(const std::filesystem::path& file, std::string_view bytes) {
  std::error_code error;
  if (!std::filesystem::is_directory(file.parent_path(), error)) return kPathMissing;
  return platform::posix::replaceFile(file.string(), bytes) ? kDone : kAccessDenied;
}

std::unique_ptr<Hold> lockFile(const std::filesystem::path& file) { return std::make_unique<LockedFile>(file); }

void* startThread(std::function<std::uint32_t()> work) { return startWorker(std::move(work)); }

}  // namespace varnhold::companion::host
