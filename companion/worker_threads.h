#pragma once

#include <cstdint>
#include <functional>

/// Thread handles for a host that has none of the kind that the C ABI speaks of. Any thread.
namespace varnhold::companion {

/// Runs `work` in a detached thread, which may outlive the main program's end; its result is the exit code. 0
/// when no thread could be started.
[[nodiscard]] void* startWorker(std::function<std::uint32_t()> work);

/// GetExitCodeThread: 259 while the thread runs; false for what is no open handle.
[[nodiscard]] bool workerExitCode(void* handle, std::uint32_t& exitCode);

/// CloseHandle; a running thread goes on. What is no open handle is passed over.
void closeWorker(void* handle);

}  // namespace varnhold::companion
