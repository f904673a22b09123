#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "companion/host.h"

/// Strings and errors at the C ABI.
namespace varnhold::companion::abi {

/// The longest path, account or other text that is taken from a caller, in bytes without its NUL.
inline constexpr std::size_t kLongestText = 1023;

/// A caller's string as UTF-8; nothing for a null pointer and for a string of more than `longest` bytes.
[[nodiscard]] inline std::optional<std::string> text(const char* argument,
                                                     std::size_t longest = kLongestText) {
  if (argument == nullptr) return std::nullopt;
  std::size_t size = 0;
  while (size <= longest && argument[size] != '\0') ++size;
  if (size > longest) return std::nullopt;
  return host::fromAbi({argument, size});
}

/// Writes the text and its NUL into a caller's buffer of `size` bytes; false, with the buffer as it was, when
/// it does not fit or there is no buffer.
[[nodiscard]] inline bool write(char* buffer, std::size_t size, const std::string& utf8) {
  const std::string bytes = host::toAbi(utf8);
  if (buffer == nullptr || bytes.size() >= size) return false;
  buffer[bytes.copy(buffer, bytes.size())] = '\0';
  return true;
}

/// The bytes that the text takes in a caller's buffer, its NUL included.
[[nodiscard]] inline std::uint32_t sizeOf(const std::string& utf8) {
  return static_cast<std::uint32_t>(host::toAbi(utf8).size() + 1);
}

/// Runs the body of an exported function. No exception leaves: `failure` is the result then.
template <typename Result, typename Body>
[[nodiscard]] Result guarded(Result failure, Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return failure;
  }
}

}  // namespace varnhold::companion::abi
