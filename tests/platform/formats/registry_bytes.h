#pragma once

#include <string>

/// What registry files begin with, and are written in.
namespace varnhold::platform {

inline constexpr auto kVersion = "Windows Registry Editor Version 5.00\r\n";

/// With the mark of the byte order.
inline std::string utf16(const std::string& ascii) {
  std::string bytes = "\xFF\xFE";
  for (const char c : ascii) bytes += {c, '\0'};
  return bytes;
}

}  // namespace varnhold::platform
