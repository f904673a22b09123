#include "companion/agent_version.h"

#include <charconv>

#include "base/text.h"

namespace varnhold::companion {

std::optional<std::vector<unsigned>> versionNumbers(const std::string& version) {
  std::vector<unsigned> numbers;
  for (const std::string& part : split(trimBlanks(version), '.')) {
    unsigned number = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number);
    if (error != std::errc() || end != part.data() + part.size()) return std::nullopt;
    numbers.push_back(number);
  }
  while (numbers.size() > 1 && numbers.back() == 0) numbers.pop_back();
  return numbers;
}

}  // namespace varnhold::companion
