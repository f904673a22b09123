#include "platform/posix/registry_store.h"

#include <fcntl.h>

#include <cerrno>
#include <system_error>

#include "base/runtime_error.h"
#include "platform/posix/atomic_file.h"

namespace varnhold::platform::posix {
namespace {

/// A file changed less than this before it was read may change again within the same tick of its time stamp.
constexpr std::int64_t kTimeStampTickNs = 50'000'000;

std::int64_t nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

bool isSettled(const timespec& modified) {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return nanoseconds(now) - nanoseconds(modified) > kTimeStampTickNs;
}

std::string wordsFor(int error) {
  return std::generic_category().message(error);
}

/// Neither a file nor a link to one.
bool isAbsent(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) != 0 && errno == ENOENT;
}

}  // namespace

RegistryStore::RegistryStore(const std::string& home, std::chrono::milliseconds lockWait)
    : path_(home + "/registry.reg"), lockPath_(path_ + ".lock"), lockWait_(lockWait) {}

const RegistryFile& RegistryStore::current() {
  if (!isUnchanged()) readAnew();
  return file_;
}

bool RegistryStore::update(const std::function<bool(RegistryFile&)>& change) {
  const auto lock = lockFile(lockPath_, lockWait_);
  if (!lock) return false;
  readAnew();
  signature_.reset();
  return change(file_) && replaceFile(path_, file_.print());
}

bool RegistryStore::isUnchanged() const {
  struct stat now {};
  if (!signature_ || ::stat(path_.c_str(), &now) != 0) return false;
  return now.st_dev == signature_->device && now.st_ino == signature_->inode &&
         now.st_size == signature_->size && nanoseconds(now.st_mtim) == nanoseconds(signature_->modified);
}

void RegistryStore::readAnew() {
  signature_.reset();
  file_ = RegistryFile{};
  if (isAbsent(path_)) return;
  const auto bytes = readFile();
  RegistryFileError error;
  auto parsed = RegistryFile::parse(bytes, error);
  if (!parsed) {
    signature_.reset();
    raise("is damaged in line " + std::to_string(error.line) + ": " + error.what,
          "Correct that line or put a good copy in the file's place; nothing was written to it");
  }
  file_ = std::move(*parsed);
}

std::string RegistryStore::readFile() {
  constexpr auto kRemedy =
      "Make it a file that this user may read, in the form that a registry editor exports";
  const OwnedDescriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file || ::fstat(file.get(), &status) != 0) raise("cannot be read: " + wordsFor(errno), kRemedy);
  if (!S_ISREG(status.st_mode)) raise("cannot be read: it is no file", kRemedy);
  auto bytes = readAll(file.get());
  if (!bytes) raise("cannot be read: " + wordsFor(errno), kRemedy);
  if (isSettled(status.st_mtim)) {
    signature_ = Signature{status.st_dev, status.st_ino, status.st_size, status.st_mtim};
  }
  return std::move(*bytes);
}

void RegistryStore::raise(const std::string& what, const std::string& remedy) const {
  throw RuntimeError(kPathFileAccess, "The registry file " + path_ + " " + what + ". " + remedy + ".");
}

}  // namespace varnhold::platform::posix
