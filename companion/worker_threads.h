#pragma once

#include <cstdint>
#include <functional>

#include "companion/host.h"

/// Thread handles for a host that has none of the kind that the C ABI speaks of. Any thread.
namespace varnhold::companion {

/// Runs `work` in a detached thread, which may outlive the main program's end; its result is the exit code. 0
/// when no thread could be started. A stop is requested of work that `endWorker` has ended.
[[nodiscard]] void* startWorker(std::function<std::uint32_t(const host::MustStop&)> work);

/// GetExitCodeThread: 259 while the thread runs; false for what is no open handle.
[[nodiscard]] bool workerExitCode(void* handle, std::uint32_t& exitCode);

/// TerminateThread: a running thread has that exit code from now on. No thread is torn out of its work, since
/// it may hold a lock that others wait for (of the allocator, of a driver): its stop is requested, and it
/// goes on as far as the next place where it looks. One that has ended keeps its code; false for no open
/// handle.
[[nodiscard]] bool endWorker(void* handle, std::uint32_t exitCode);

/// CloseHandle; a running thread goes on. What is no open handle is passed over.
void closeWorker(void* handle);

}  // namespace varnhold::companion
