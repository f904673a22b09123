#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/posix/owned_descriptor.h"

namespace varnhold::platform::posix {

/// Writes all the bytes; on failure false, with the reason in errno and perhaps some of them written.
[[nodiscard]] bool writeAll(int descriptor, std::string_view bytes);

/// Reads from the descriptor's place to the end; nothing on failure, with the reason in errno.
[[nodiscard]] std::optional<std::string> readAll(int descriptor);

/// Puts `bytes` in the place of the file at once: whoever reads, and whoever comes after a crash at any
/// moment, finds the old content or the new one whole. Goes through a link to the file it names, keeps the
/// file's mode and, where permitted, its owner. Its temporary file is the path with ".tmp" behind it, so that
/// one writer at a time may work: hold a `lockFile`. False when the host refuses or has no room; the file is
/// then as it was.
[[nodiscard]] bool replaceFile(const std::string& path, std::string_view bytes);

/// Locks the open file against other holders, in this process and others, waiting at most `patience`. The
/// lock ends with the descriptor, or with the process. False when it cannot be had.
[[nodiscard]] bool lockDescriptor(int descriptor, std::chrono::milliseconds patience);

/// The same for `path`, made where missing. No descriptor when the lock cannot be had.
[[nodiscard]] OwnedDescriptor lockFile(const std::string& path, std::chrono::milliseconds patience);

}  // namespace varnhold::platform::posix
