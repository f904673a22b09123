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

using ExitCode = std::shared_ptr<std::atomic<std::uint32_t>>;

struct OpenHandles {
  std::mutex mutex;
  std::unordered_map<std::uintptr_t, ExitCode> workers;
  std::uintptr_t last = 0;
};

/// Never destroyed: a worker may run while the process ends.
OpenHandles& openHandles() {
  static auto* handles = new OpenHandles;
  return *handles;
}

}  // namespace

void* startWorker(std::function<std::uint32_t()> work) {
  const auto exitCode = std::make_shared<std::atomic<std::uint32_t>>(kStillActive);
  OpenHandles& handles = openHandles();
  const std::lock_guard lock(handles.mutex);
  const std::uintptr_t handle = handles.last + 1;
  handles.workers.emplace(handle, exitCode);
  try {
    std::thread([exitCode, work = std::move(work)] { exitCode->store(work()); }).detach();
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
  exitCode = found->second->load();
  return true;
}

void closeWorker(void* handle) {
  OpenHandles& handles = openHandles();
  const std::lock_guard lock(handles.mutex);
  handles.workers.erase(reinterpret_cast<std::uintptr_t>(handle));
}

}  // namespace varnhold::companion
