#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "companion/remote_computer.h"
#include "companion/win32_error.h"

/// What the companion asks of the host it runs on: one source file per host, chosen by CMake. Any thread.
namespace varnhold::companion::host {

/// A string of the C ABI as UTF-8, and back: on Windows the ANSI code page, elsewhere UTF-8 already.
[[nodiscard]] std::string fromAbi(std::string_view text);
[[nodiscard]] std::string toAbi(std::string_view text);

/// A path of this computer in the product's form (UTF-8, backslashes, letters of either case).
[[nodiscard]] std::filesystem::path localPath(const std::string& path);

/// A path that is there, its last name in the letters that the folder has it in: on Windows any letters find
/// it.
[[nodiscard]] std::filesystem::path asSpelled(const std::filesystem::path& path);

/// The ending of the file that `replaceFile` writes first; one that a killed process left is no file of
/// anybody.
inline constexpr std::string_view kFreshEnding = ".tmp";

/// Makes the file or replaces it whole: a reader, or a process that is killed, finds either the old content
/// or the new. It does not wait for the disk: what a power failure takes from a lab is made again. Two
/// writers of one file must exclude each other.
[[nodiscard]] Win32Error replaceFile(const std::filesystem::path& file, std::string_view bytes);

/// Holds the lock of `file` against every thread and process, waiting for its turn. The lock ends with the
/// process too. Where the file cannot be made (a read-only folder), nothing is held: nothing can be written
/// there either.
[[nodiscard]] std::unique_ptr<Hold> lockFile(const std::filesystem::path& file);

/// Whether the thread that stands for a piece of work was ended from outside. The work asks where it can end,
/// and then does no more. Any thread.
using MustStop = std::function<bool()>;

/// Runs `work` in a thread of its own; its result is the exit code of the thread whose handle comes back,
/// which is the caller's. 0 when no thread could be started. Where that thread is ended from outside
/// (TerminateThread, elsewhere `endWorker`) the work goes on as far as the next place where it asks: torn out
/// of a call it would leave locks to nobody.
[[nodiscard]] void* startThread(std::function<std::uint32_t(const MustStop&)> work);

}  // namespace varnhold::companion::host
