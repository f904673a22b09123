#include "companion/host.h"

#include <process.h>
#include <windows.h>

#include <atomic>

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

using Work = std::function<std::uint32_t(std::stop_token)>;

struct Worker {
  Work work;
  std::stop_source stop;
  std::atomic<std::uint32_t> exitCode = 0;
  OwnedHandle ended{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

std::uint32_t doWork(Worker& worker) {
  worker.exitCode = worker.work(worker.stop.get_token());
  SetEvent(worker.ended.get());
  return 0;
}

/// Stands for a worker towards the program: whoever ends this thread tears it out of nothing but a wait.
std::uint32_t awaitEnd(Worker& worker) {
  WaitForSingleObject(worker.ended.get(), INFINITE);
  return worker.exitCode;
}

struct Start {
  std::uint32_t (*routine)(Worker&);
  std::shared_ptr<Worker> worker;
};

unsigned __stdcall run(void* argument) {
  const std::unique_ptr<Start> start(static_cast<Start*>(argument));
  return start->routine(*start->worker);
}

/// 0 when no thread could be started.
HANDLE startRoutine(std::uint32_t (*routine)(Worker&), const std::shared_ptr<Worker>& worker) {
  auto start = std::make_unique<Start>(Start{routine, worker});
  auto* const thread = reinterpret_cast<HANDLE>(_beginthreadex(nullptr, 0, &run, start.get(), 0, nullptr));
  if (thread != nullptr) static_cast<void>(start.release());
  return thread;
}

HANDLE copyOf(HANDLE handle) {
  HANDLE copy = nullptr;
  DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
  return copy;
}

/// Requests the stop of a worker once the thread that stands for it has ended, however it did.
class StopWhenEnded {
 public:
  StopWhenEnded(HANDLE thread, std::shared_ptr<Worker> worker)
      : thread_(copyOf(thread)), worker_(std::move(worker)) {}

  /// From here on it belongs to the wait. False when there can be none.
  static bool begin(std::unique_ptr<StopWhenEnded> self) {
    const bool isWaiting = RegisterWaitForSingleObject(&self->wait_, self->thread_.get(), &ended, self.get(),
                                                       INFINITE, WT_EXECUTEONLYONCE) != 0;
    if (isWaiting) static_cast<void>(self.release());
    return isWaiting;
  }

 private:
  static void CALLBACK ended(void* argument, BOOLEAN) {
    const std::unique_ptr<StopWhenEnded> self(static_cast<StopWhenEnded*>(argument));
    self->worker_->stop.request_stop();
    static_cast<void>(UnregisterWaitEx(self->wait_, nullptr));
  }

  OwnedHandle thread_;  // the program may close its own at once
  std::shared_ptr<Worker> worker_;
  HANDLE wait_ = nullptr;
};

/// A worker must not lose its code when the program unloads the library.
void stayLoaded() {
  HMODULE self = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCWSTR>(&run), &self);
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

// A thread that is ended from outside leaves the locks that it holds (of the driver, of the allocator) to
// nobody, and whoever needs one next waits for ever. So the thread that the program gets is not the one that
// works.
void* startThread(Work work) {
  stayLoaded();
  const auto worker = std::make_shared<Worker>();
  worker->work = std::move(work);
  HANDLE standing = startRoutine(&awaitEnd, worker);
  if (standing == nullptr) return nullptr;
  const bool isWatched = StopWhenEnded::begin(std::make_unique<StopWhenEnded>(standing, worker));
  HANDLE working = isWatched ? startRoutine(&doWork, worker) : nullptr;
  if (working == nullptr) {
    SetEvent(worker->ended.get());
    CloseHandle(standing);
    return nullptr;
  }
  CloseHandle(working);
  return standing;
}

}  // namespace varnhold::companion::host
