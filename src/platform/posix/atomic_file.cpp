#include "platform/posix/atomic_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <thread>

namespace varnhold::platform::posix {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kLockRetry{2};

/// The file behind links; the path itself where there is nothing yet.
std::string behindLinks(const std::string& path) {
  std::error_code error;
  const auto target = fs::canonical(path, error);
  return error ? path : target.string();
}

/// Brings mode and owner of the file that is there now to the one that takes its place. An owner that may not
/// be given away stays the writer's.
void keepOwnership(const std::string& path, int descriptor) {
  struct stat old {};
  if (::stat(path.c_str(), &old) != 0) return;
  [[maybe_unused]] const int given = ::fchown(descriptor, old.st_uid, old.st_gid);
  ::fchmod(descriptor, old.st_mode & 07777);
}

bool writeNewFile(const std::string& path, const std::string& replaced, std::string_view bytes) {
  const OwnedDescriptor file(
      ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666));
  if (!file) return false;
  keepOwnership(replaced, file.get());
  return writeAll(file.get(), bytes) && ::fsync(file.get()) == 0;
}

/// Makes a rename in the folder last through a crash of the computer. The content is right either way.
void syncFolderOf(const std::string& path) {
  const auto folder = fs::path(path).parent_path().string();
  const OwnedDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor) ::fsync(descriptor.get());
}

}  // namespace

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::optional<std::string> readAll(int descriptor) {
  constexpr std::size_t kBlock = 65536;
  std::string bytes;
  for (std::size_t size = 0;;) {
    if (bytes.size() == size) bytes.resize(size + kBlock);
    const auto count = ::read(descriptor, bytes.data() + size, bytes.size() - size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    size += static_cast<std::size_t>(count);
    if (count > 0) continue;
    bytes.resize(size);
    return bytes;
  }
}

bool replaceFile(const std::string& path, std::string_view bytes) {
  const auto target = behindLinks(path);
  const auto temporary = target + ".tmp";
  if (writeNewFile(temporary, target, bytes) && std::rename(temporary.c_str(), target.c_str()) == 0) {
    syncFolderOf(target);
    return true;
  }
  ::unlink(temporary.c_str());
  return false;
}

bool lockDescriptor(int descriptor, std::chrono::milliseconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    const bool isHeld = errno == EWOULDBLOCK || errno == EINTR;
    if (!isHeld || std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(kLockRetry);
  }
  return true;
}

OwnedDescriptor lockFile(const std::string& path, std::chrono::milliseconds patience) {
  // Opened to read only: a lock needs no more, and the file may be another user's.
  OwnedDescriptor file(::open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666));
  if (file && !lockDescriptor(file.get(), patience)) file.reset();
  return file;
}

}  // namespace varnhold::platform::posix
