#include "companion/worker_threads.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <unordered_map>

namespace varnhold::companion {
namespace {

constexpr std::uint32_t kStillActive = 259;  // winbase.h STILL_ACTIVE

struct Worker {
  std::atomic<std::uint32_t> exitCode = kStillActive;
  std::atomic<bool> mustStop = false;

  /// The first end counts: the work's own, or the one that was forced on it.
  void end(std::uint32_t code) {
    std::uint32_t running = kStillActive;
    exitCode.compare_exchange_strong(running, code);
  }
};

struct OpenHandles {
  std::mutex mutex;
  std::unordered_map<std::uintptr_t, std::shared_ptr<Worker>> workers;
  std::uintptr_t last = 0;
};

/// Never destroyed: a worker may run while the process ends.
OpenHandles& openHandles() {
  static auto* handles = new OpenHandles;
  return *handles;
}

}  // namespace

void* startWorker(std::function<std::uint32_t(const host::MustStop&)> work) {
  const auto worker = std::make_shared<Worker>();
  OpenHandles& handles = openHandles();
  const std::lock_guard lock(handles.mutex);
  const std::uintptr_t handle = handles.last + 1;
  handles.workers.emplace(handle, worker);
  try {
    std::thread([worker, work = std::move(work)] {
      worker->end(work([worker] { return worker->mustStop.load(); }));
    }).detach();
  } catch (const std::system_error&) {
    handles.workers.erase(handle);
    return nullptr;
  }
  handles.last = handle;
  return reinterpret_cast<void*>(handle);
}

bool workerExitCode(void* handle, std::uint32_t& exitCode) {
  OpenHandles& handles = openHandles();
  const std::lock_guard lock(handles.mutex);
  const auto found = handles.workers.find(reinterpret_cast<std::uintptr_t>(handle));
  if (found == handles.workers.end()) return false;
  exitCode = found->second->exitCode.load();
  return true;
}

bool endWorker(void* handle, std::uint32_t exitCode) {
  OpenHandles& handles = openHandles();
  const std::lock_guard lock(handles.mutex);
  const auto found = handles.workers.find(reinterpret_cast<std::uintptr_t>(handle));
  if (found == handles.workers.end()) return false;
  found->second->end(exitCode);
  found->second->mustStop = true;
  return true;
}

void closeWorker(void* handle) {
  OpenHandles& handles = openHandles();
  const std::lock_guard lock(handles.mutex);
  handles.workers.erase(reinterpret_cast<std::uintptr_t>(handle));
}

}  // namespace varnhold::companion
