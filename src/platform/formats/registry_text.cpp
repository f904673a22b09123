#include "platform/formats/registry_text.h"

#include <algorithm>

#include "base/unicode.h"

namespace varnhold::platform {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kSwappedMark = "\xFE\xFF";

char16_t unitAt(std::string_view bytes, std::size_t at) {
  const auto low = static_cast<unsigned char>(bytes[at]);
  const auto high = static_cast<unsigned char>(bytes[at + 1]);
  return static_cast<char16_t>(low | high << 8);
}

std::u16string unitsOf(std::string_view bytes) {
  std::u16string units(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < units.size(); ++i) units[i] = unitAt(bytes, 2 * i);
  return units;
}

bool isHigh(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool isLow(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

/// The index of the first surrogate without partner, else the number of units.
std::size_t findLoneSurrogate(std::u16string_view units) {
  for (std::size_t i = 0; i < units.size(); ++i) {
    const bool isPair = isHigh(units[i]) && i + 1 < units.size() && isLow(units[i + 1]);
    if (!isPair && (isHigh(units[i]) || isLow(units[i]))) return i;
    if (isPair) ++i;
  }
  return units.size();
}

std::size_t findBadUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto start = at;
    if (nextCodePoint(text, at) == kNotUtf8) return start;
  }
  return text.size();
}

template <class Text>
std::size_t lineOf(const Text& text, std::size_t at) {
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(at, text.size()));
  return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

std::optional<std::string> decodeUtf16(std::string_view bytes, RegistryFileError& error) {
  const auto units = unitsOf(bytes);
  if (bytes.size() % 2 != 0) {
    error = {lineOf(units, units.size()), "the file is cut off in the middle of a character"};
    return std::nullopt;
  }
  const auto lone = findLoneSurrogate(units);
  if (lone != units.size()) {
    error = {lineOf(units, lone), "there is half of a surrogate pair, which is no character"};
    return std::nullopt;
  }
  return fromUtf16(units);
}

std::optional<std::string> decodeUtf8(std::string_view bytes, RegistryFileError& error) {
  const auto bad = findBadUtf8(bytes);
  if (bad == bytes.size()) return std::string(bytes);
  error = {lineOf(bytes, bad), "a letter is neither ASCII nor UTF-8; save the file as UTF-8 or UTF-16"};
  return std::nullopt;
}

}  // namespace

std::optional<std::string> decodeRegistryText(std::string_view bytes, RegistryFileError& error) {
  std::optional<std::string> text;
  if (bytes.starts_with(kUtf16Mark)) {
    text = decodeUtf16(bytes.substr(kUtf16Mark.size()), error);
  } else if (bytes.starts_with(kSwappedMark)) {
    error = {
        1,
        "the file is UTF-16 with its bytes swapped; save it as UTF-16 with the lowest byte first, or UTF-8"};
  } else {
    if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
    text = decodeUtf8(bytes, error);
  }
  if (!text) return text;
  if (const auto nul = text->find('\0'); nul != std::string::npos) {
    error = {lineOf(*text, nul), "there is a NUL byte, which no registry export holds"};
    return std::nullopt;
  }
  return text;
}

std::string encodeRegistryText(std::string_view text) {
  const bool isAscii = std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
  return isAscii ? std::string(text) : std::string(kUtf16Mark) + toRegistryUtf16(text);
}

std::string toRegistryUtf16(std::string_view text) {
  std::string bytes;
  for (const auto unit : toUtf16(text)) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

std::string fromRegistryUtf16(std::string_view bytes) {
  return fromUtf16(unitsOf(bytes));
}

}  // namespace varnhold::platform
