#include "base/text.h"

#include <algorithm>
#include <cstdint>

#include "base/unicode.h"

namespace varnhold {

std::string trimBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string TrimAtNull(std::string_view text) {
  return std::string(text.substr(0, text.find('\0')));
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  for (std::size_t start = 0;;) {
    const auto end = text.find(separator, start);
    pieces.emplace_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return pieces;
    start = end + 1;
  }
}

std::string toUpper(std::string_view text) {
  std::string upper;
  upper.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    // Nearly all text is ASCII, and lists of 100,000 names are compared by their upper case.
    const char byte = text[at];
    if (static_cast<unsigned char>(byte) < 0x80) {
      upper += byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
      ++at;
      continue;
    }
    const auto start = at;
    const auto letter = nextCodePoint(text, at);
    if (letter == kNotUtf8) {
      upper.append(text.substr(start, at - start));
    } else {
      appendUtf8(upper, upperCase(letter));
    }
  }
  return upper;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
  return toUpper(left) == toUpper(right);
}

bool containsIgnoringCase(std::string_view text, std::string_view part) {
  return toUpper(text).find(toUpper(part)) != std::string::npos;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string replaced;
  std::size_t start = 0;
  for (auto at = text.find(from); at != std::string_view::npos; at = text.find(from, start)) {
    replaced.append(text.substr(start, at - start)).append(to);
    start = at + from.size();
  }
  return replaced.append(text.substr(start));
}

}  // namespace varnhold
