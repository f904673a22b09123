#include "companion/host.h"

#include <process.h>
#include <windows.h>

#include "companion/paths.h"

namespace varnhold::companion::host {
namespace {

class OwnedHandle {
 public:
  explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
  ~OwnedHandle() {
    if (*this) CloseHandle(handle_);
  }
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;
  [[nodiscard]] HANDLE get() const { return handle_; }
  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }

 private:
  HANDLE handle_;
};

class LockedFile : public Hold {
 public:
  explicit LockedFile(const std::filesystem::path& file)
      : file_(CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE,
                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                          FILE_ATTRIBUTE_NORMAL, nullptr)) {
    OVERLAPPED whole{};
    if (file_) LockFileEx(file_.get(), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &whole);
  }

 private:
  OwnedHandle file_;
};

/// The system gives a mutex of an ended thread to the next one, and says so.
class AbandonableMutex : public ThreadMutex {
 public:
  bool lock() override { return WaitForSingleObject(mutex_.get(), INFINITE) != WAIT_ABANDONED; }
  void unlock() override { ReleaseMutex(mutex_.get()); }

 private:
  OwnedHandle mutex_{CreateMutexW(nullptr, FALSE, nullptr)};
};

std::wstring wide(UINT codePage, std::string_view text) {
  if (text.empty()) return {};
  const int size = static_cast<int>(text.size());
  std::wstring result(
      static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0)), 0);
  MultiByteToWideChar(codePage, 0, text.data(), size, result.data(), static_cast<int>(result.size()));
  return result;
}

std::string narrow(UINT codePage, std::wstring_view text) {
  if (text.empty()) return {};
  const int size = static_cast<int>(text.size());
  const int needed = WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(needed), 0);
  WideCharToMultiByte(codePage, 0, text.data(), size, result.data(), needed, nullptr, nullptr);
  return result;
}

Win32Error writeFresh(const std::filesystem::path& file, std::string_view bytes) {
  const OwnedHandle out(
      CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!out) return GetLastError();
  while (!bytes.empty()) {
    constexpr std::size_t kLargestWrite = 1U << 30;
    DWORD written = 0;
    const auto part = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
    if (WriteFile(out.get(), bytes.data(), part, &written, nullptr) == 0) return GetLastError();
    bytes.remove_prefix(written);
  }
  return kDone;
}

using Work = std::function<std::uint32_t(std::stop_token)>;

unsigned __stdcall runWork(void* argument) {
  const std::unique_ptr<Work> work(static_cast<Work*>(argument));
  return (*work)({});
}

/// A worker must not lose its code when the program unloads the library.
void stayLoaded() {
  HMODULE self = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCWSTR>(&runWork), &self);
}

}  // namespace

std::string fromAbi(std::string_view text) {
  return narrow(CP_UTF8, wide(CP_ACP, text));
}
std::string toAbi(std::string_view text) {
  return narrow(CP_ACP, wide(CP_UTF8, text));
}

std::filesystem::path localPath(const std::string& path) {
  return pathFromUtf8(path);
}

std::filesystem::path asSpelled(const std::filesystem::path& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return path;
  FindClose(search);
  return path.parent_path() / found.cFileName;
}

Win32Error replaceFile(const std::filesystem::path& file, std::string_view bytes) {
  std::filesystem::path fresh = file;
  fresh += kFreshEnding;
  Win32Error error = writeFresh(fresh, bytes);
  if (error == kDone && MoveFileExW(fresh.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING) == 0)
    error = GetLastError();
  if (error != kDone) DeleteFileW(fresh.c_str());
  return error;
}

std::unique_ptr<Hold> lockFile(const std::filesystem::path& file) {
  return std::make_unique<LockedFile>(file);
}

std::unique_ptr<ThreadMutex> makeThreadMutex() {
  return std::make_unique<AbandonableMutex>();
}

void* startThread(Work work) {
  stayLoaded();
  auto argument = std::make_unique<Work>(std::move(work));
  const std::uintptr_t handle = _beginthreadex(nullptr, 0, &runWork, argument.get(), 0, nullptr);
  if (handle != 0) static_cast<void>(argument.release());
  return reinterpret_cast<void*>(handle);
}

}  // namespace varnhold::companion::host
