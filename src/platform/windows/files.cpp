#include "platform/files.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/adapters.h"
#include "platform/windows/owned_handle.h"
#include "platform/windows/owner_only.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kPieceBytes = 1 << 20;
constexpr DWORD kDiskQuotaExceeded = 1295;  ///< winerror.h ERROR_DISK_QUOTA_EXCEEDED, where it is new enough

FileOutcome outcomeOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return FileOutcome::NotFound;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return FileOutcome::Exists;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return FileOutcome::Full;
    default:
      return FileOutcome::Refused;
  }
}

/// The path for a wide call; empty, which no call takes, where a NUL would make it the path of another file.
std::wstring pathFor(const std::string& path) {
  return path.find('\0') == std::string::npos ? toWide(path) : std::wstring();
}

/// CreateFile; none when it failed, and GetLastError then says why.
OwnedHandle openFile(const std::string& path, DWORD access, DWORD share, DWORD disposition,
                     SECURITY_ATTRIBUTES* security = nullptr) {
  return OwnedHandle(CreateFileW(pathFor(path).c_str(), access, share, security, disposition,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
}

FileOutcome writeAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto piece = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kPieceBytes));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), piece, &written, nullptr)) return outcomeOf(GetLastError());
    if (written == 0) return FileOutcome::Full;
    bytes.remove_prefix(written);
  }
  return FileOutcome::Done;
}

/// Keeps writers at the same file's end apart: a lock on one byte far behind any content. A file system
/// without locks is written to all the same.
class AppendLock {
 public:
  explicit AppendLock(HANDLE file) : file_(file) {
    locked_ = LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place_);
  }
  ~AppendLock() {
    if (locked_) UnlockFileEx(file_, 0, 1, 0, &place_);
  }
  AppendLock(const AppendLock&) = delete;
  AppendLock& operator=(const AppendLock&) = delete;

 private:
  static OVERLAPPED farBehind() {
    OVERLAPPED place{};
    place.OffsetHigh = 0x7FFFFFFF;
    return place;
  }

  HANDLE file_;
  OVERLAPPED place_ = farBehind();
  bool locked_ = false;
};

class WindowsFiles : public Files {
 public:
  bool exists(const std::string& path) override {
    const auto attributes = GetFileAttributesW(pathFor(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  }

  bool isThere(const std::string& path) override {
    return GetFileAttributesW(pathFor(path).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  std::optional<std::string> read(const std::string& path) override {
    const auto file = openFile(path, GENERIC_READ, kShareAll, OPEN_EXISTING);
    // A name such as CON opens a device, and to read from it waits for a person.
    if (!file || GetFileType(file.get()) != FILE_TYPE_DISK) return std::nullopt;
    std::string content;
    DWORD got = 0;
    do {
      const auto before = content.size();
      content.resize(before + kPieceBytes);
      if (!ReadFile(file.get(), content.data() + before, kPieceBytes, &got, nullptr)) return std::nullopt;
      content.resize(before + got);
    } while (got != 0);
    return content;
  }

  FileOutcome append(const std::string& path, std::string_view bytes) override {
    const auto file = openFile(path, GENERIC_WRITE, kShareAll, OPEN_ALWAYS);
    if (!file) return outcomeOf(GetLastError());
    const AppendLock lock(file.get());
    LARGE_INTEGER end{};
    if (!SetFilePointerEx(file.get(), {}, &end, FILE_END)) return outcomeOf(GetLastError());
    const auto outcome = writeAll(file.get(), bytes);
    if (outcome != FileOutcome::Done && SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN)) {
      SetEndOfFile(file.get());
    }
    return outcome;
  }

  FileOutcome createNew(const std::string& path, std::string_view bytes, FileAccess access) override {
    OwnerOnly owner;
    auto* const security = access == FileAccess::OwnerOnly ? owner.attributes() : nullptr;
    if (access == FileAccess::OwnerOnly && security == nullptr) return FileOutcome::Refused;
    auto file = openFile(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW, security);
    if (!file) return outcomeOf(GetLastError());
    const auto outcome = writeAll(file.get(), bytes);
    file.close();
    if (outcome != FileOutcome::Done) DeleteFileW(pathFor(path).c_str());
    return outcome;
  }

  bool createProbe(const std::string& path) override {
    const OwnedHandle file(
        CreateFileW(pathFor(path).c_str(), GENERIC_ALL, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    return static_cast<bool>(file);
  }

  FileOutcome remove(const std::string& path) override {
    return DeleteFileW(pathFor(path).c_str()) ? FileOutcome::Done : outcomeOf(GetLastError());
  }
};

static_assert(GENERIC_ALL == 0x10000000);

}  // namespace

std::unique_ptr<Files> makeFiles() {
  return std::make_unique<WindowsFiles>();
}

}  // namespace varnhold::platform::windows
