#include <algorithm>

#include "base/text.h"
#include "platform/formats/registry_file.h"

namespace varnhold::platform {
namespace {

/// Adds the name unless it is there in other letters.
void addOnce(std::vector<std::string>& names, std::string_view name) {
  const auto same = [&](const std::string& known) { return equalsIgnoringCase(known, name); };
  if (std::none_of(names.begin(), names.end(), same)) names.emplace_back(name);
}

/// The name at that place between the backslashes of a key's path, from 0. A letter in upper case may have
/// other bytes in number than its partner, so that sizes of upper-case text mean nothing here.
std::string nameAt(std::string_view path, std::ptrdiff_t place) {
  return split(path, '\\')[static_cast<std::size_t>(place)];
}

}  // namespace

std::vector<std::string> RegistryFile::subkeys(std::string_view key) const {
  const auto above = toUpper(key) + '\\';
  const auto depth = std::count(above.begin(), above.end(), '\\');
  std::vector<std::string> names;
  for (const auto& section : sections_) {
    if (toUpper(section.key).starts_with(above)) addOnce(names, nameAt(section.key, depth));
  }
  return names;
}

std::vector<std::string> RegistryFile::valueNames(std::string_view key) const {
  std::vector<std::string> names;
  for (const auto& section : sections_) {
    if (section.key.empty() || !equalsIgnoringCase(section.key, key)) continue;
    for (const auto& line : section.lines) {
      if (line.value) addOnce(names, line.name);
    }
  }
  return names;
}

bool RegistryFile::removeValue(std::string_view key, std::string_view name) {
  if (find(key, name) == nullptr) return false;
  for (auto& section : sections_) {
    if (!equalsIgnoringCase(section.key, key)) continue;
    std::erase_if(section.lines,
                  [&](const Line& line) { return line.value && equalsIgnoringCase(line.name, name); });
  }
  index();
  return true;
}

bool RegistryFile::removeKey(std::string_view key) {
  if (!keys_.contains(toUpper(key)) || !subkeys(key).empty()) return false;
  for (auto section = sections_.begin() + 1; section != sections_.end();) {
    if (!equalsIgnoringCase(section->key, key)) {
      ++section;
      continue;
    }
    section = sections_.erase(section);
    // The blank line that parted the key from the one above it goes too.
    auto& above = std::prev(section)->lines;
    if (above.size() > 1 && above.back().text.empty()) above.pop_back();
  }
  index();
  return true;
}

/// Finds the keys and values anew after lines have moved.
void RegistryFile::index() {
  keys_.clear();
  for (std::size_t at = 1; at < sections_.size(); ++at) {
    auto& key = keys_[toUpper(sections_[at].key)];
    key.lastSection = at;
    const auto& lines = sections_[at].lines;
    for (std::size_t line = 0; line < lines.size(); ++line) {
      if (lines[line].value) key.values[toUpper(lines[line].name)] = {at, line};
    }
  }
}

}  // namespace varnhold::platform
