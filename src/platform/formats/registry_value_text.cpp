#include "platform/formats/registry_value_text.h"

#include <algorithm>

#include "platform/formats/registry_text.h"

namespace varnhold::platform {
namespace {

constexpr std::uint32_t kExpandText = 2;  // REG_EXPAND_SZ
constexpr std::size_t kLineWidth = 77;    // where the registry editor breaks a line of hex bytes
constexpr std::string_view kDigits = "0123456789abcdef";

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '\\' || c == '"') result += '\\';
    result += c;
  }
  return result += '"';
}

void appendHexByte(std::string& text, char byte) {
  const auto number = static_cast<unsigned char>(byte);
  text += kDigits[number >> 4];
  text += kDigits[number & 0xF];
}

/// "hex", or "hex(n)" with the type in hexadecimal digits.
std::string hexPrefix(std::uint32_t type) {
  if (type == kRegBinary) return "hex:";
  std::string digits;
  do {
    digits.insert(digits.begin(), kDigits[type & 0xF]);
    type >>= 4;
  } while (type != 0);
  return "hex(" + digits + "):";
}

std::string hexText(std::string start, std::string_view bytes) {
  auto lineStart = std::size_t{0};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i != 0) start += ',';
    if (start.size() - lineStart >= kLineWidth) {
      start += "\\\r\n  ";
      lineStart = start.size() - 2;
    }
    appendHexByte(start, bytes[i]);
  }
  return start;
}

bool fitsInQuotes(const RegistryValue& value) {
  if (value.type != kRegText || !value.bytes.ends_with('\0')) return false;
  return std::none_of(value.bytes.begin(), value.bytes.end() - 1,
                      [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; });
}

std::string numberText(std::string_view bytes) {
  std::string text = "dword:";
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) appendHexByte(text, *byte);
  return text;
}

}  // namespace

bool isRegistryTextType(std::uint32_t type) {
  return type == kRegText || type == kExpandText || type == kRegMultiText;
}

std::string registryValueText(std::string_view name, const RegistryValue& value) {
  const auto start = (name.empty() ? "@" : quoted(name)) + "=";
  if (fitsInQuotes(value)) return start + quoted(value.bytes.substr(0, value.bytes.size() - 1));
  if (value.type == kRegNumber && value.bytes.size() == 4) return start + numberText(value.bytes);
  const auto bytes = isRegistryTextType(value.type) ? toRegistryUtf16(value.bytes) : value.bytes;
  return hexText(start + hexPrefix(value.type), bytes);
}

}  // namespace varnhold::platform
