#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace varnhold::platform {

/// Why a registry file was not understood: `line` counts from 1, `what` is a sentence without full stop that
/// says what is wrong and, where it is not plain, what to write instead.
struct RegistryFileError {
  std::size_t line = 0;
  std::string what;
};

/// The text of a registry file as UTF-8, without its byte order mark. Reads UTF-16 (lowest byte first, with
/// mark) and UTF-8 (with or without mark). Nothing, and `error` set, for bytes that are neither, for a lone
/// surrogate and for a NUL: what could not be written back as it was is not accepted.
[[nodiscard]] std::optional<std::string> decodeRegistryText(std::string_view bytes, RegistryFileError& error);

/// The bytes to write for UTF-8 text: as it stands when all of it is ASCII, else UTF-16 with byte order mark,
/// which is what the registry editor itself writes and reads.
[[nodiscard]] std::string encodeRegistryText(std::string_view text);

/// UTF-16, lowest byte first, as the registry stores text; what is no UTF-8 becomes U+FFFD.
[[nodiscard]] std::string toRegistryUtf16(std::string_view text);
/// The way back; a lone surrogate becomes U+FFFD, an odd byte at the end falls away.
[[nodiscard]] std::string fromRegistryUtf16(std::string_view bytes);

}  // namespace varnhold::platform
