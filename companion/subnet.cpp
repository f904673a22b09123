#include "companion/subnet.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

namespace varnhold::companion {
namespace {

using Parts = std::array<std::uint8_t, 4>;

/// The part that begins at `at`, which then stands behind it.
std::optional<std::uint8_t> readPart(const char*& at, const char* end) {
  std::uint8_t part = 0;
  const auto [behind, error] = std::from_chars(at, end, part);
  if (error != std::errc()) return std::nullopt;
  at = behind;
  return part;
}

std::optional<Parts> readAddress(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  Parts parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0 && (at == end || *at++ != '.')) return std::nullopt;
    const auto part = readPart(at, end);
    if (!part) return std::nullopt;
    parts[i] = *part;
  }
  return at == end ? std::optional(parts) : std::nullopt;
}

}  // namespace

bool belongsToSubnet(std::string_view address, std::string_view subnet) {
  const auto own = readAddress(address), given = readAddress(subnet);
  if (!own || !given) return false;
  std::size_t fixed = given->size();
  while (fixed > 0 && (*given)[fixed - 1] == 0) --fixed;
  for (std::size_t i = 0; i < fixed; ++i)
    if ((*own)[i] != (*given)[i]) return false;
  return true;
}

}  // namespace varnhold::companion
