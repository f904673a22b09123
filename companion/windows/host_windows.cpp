#include "companion/host.h"

#include <process.h>
#include <windows.h>

#include <system_error>
#include <thread>

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

OwnedHandle makeEvent() {
  return OwnedHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
}

/// What a worker and the thread that stands for it share.
struct Worker {
  std::function<std::uint32_t(const MustStop&)> work;
  std::uint32_t exitCode = 0;
  OwnedHandle stands = makeEvent(), ended = makeEvent();
};

/// Stands for a worker towards the program: whoever ends this thread tears it out of nothing but a wait.
unsigned __stdcall stand(void* argument) {
  const std::unique_ptr<std::shared_ptr<Worker>> worker(static_cast<std::shared_ptr<Worker>*>(argument));
  SignalObjectAndWait((*worker)->stands.get(), (*worker)->ended.get(), INFINITE, FALSE);
  return (*worker)->exitCode;
}

OwnedHandle copyOf(HANDLE handle) {
  HANDLE copy = nullptr;
  DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
  return OwnedHandle(copy);
}

/// A worker must not lose its code when the program unloads the library.
void stayLoaded() {
  HMODULE self = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCWSTR>(&stand), &self);
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

// A thread that is ended from outside leaves the locks that it holds (of the driver, of the allocator, of the
// loader while it starts) to nobody, and whoever needs one next waits for ever. So the thread that the
// program gets is not the one that works, and it waits already.
void* startThread(std::function<std::uint32_t(const MustStop&)> work) {
  stayLoaded();
  const auto worker = std::make_shared<Worker>();
  worker->work = std::move(work);
  auto argument = std::make_unique<std::shared_ptr<Worker>>(worker);
  auto* const thread =
      reinterpret_cast<HANDLE>(_beginthreadex(nullptr, 0, &stand, argument.get(), 0, nullptr));
  if (thread == nullptr) return nullptr;
  static_cast<void>(argument.release());
  WaitForSingleObject(worker->stands.get(), INFINITE);
  try {
    // The program may close its handle at once.
    const std::shared_ptr<OwnedHandle> standing(new OwnedHandle(copyOf(thread)));
    const MustStop mustStop = [standing] { return WaitForSingleObject(standing->get(), 0) == WAIT_OBJECT_0; };
    std::thread([worker, mustStop] {
      worker->exitCode = worker->work(mustStop);
      SetEvent(worker->ended.get());
    }).detach();
    return thread;
  } catch (const std::system_error&) {
    SetEvent(worker->ended.get());
    CloseHandle(thread);
    return nullptr;
  }
}

}  // namespace varnhold::companion::host
