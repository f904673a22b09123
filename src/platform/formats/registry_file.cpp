#include "platform/formats/registry_file.h"

#include <algorithm>

#include "base/text.h"
#include "base/unicode.h"
#include "platform/formats/registry_parser.h"
#include "platform/formats/registry_value_text.h"

namespace varnhold::platform {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// What stays of text once it is written and read again: UTF-8 throughout.
std::string asWritten(std::string_view text) {
  return fromUtf16(toUtf16(text));
}

bool canNameKey(std::string_view key) {
  return !key.empty() &&
         std::none_of(key.begin(), key.end(), [](char c) { return c == '\0' || c == '\r' || c == '\n'; });
}

bool canNameValue(std::string_view name) {
  return name.find('\0') == std::string_view::npos;
}

}  // namespace

RegistryFile::RegistryFile() {
  addLine(std::string(kRegistryFileVersion));
}

std::optional<RegistryFile> RegistryFile::parse(std::string_view bytes, RegistryFileError& error) {
  const auto text = decodeRegistryText(bytes, error);
  if (!text) return std::nullopt;
  return RegistryFileParser(*text, error).parse();
}

std::string RegistryFile::print() const {
  std::string text;
  for (const auto& section : sections_) {
    for (const auto& line : section.lines) text.append(line.text).append(line.tail).append(kLineEnd);
  }
  return encodeRegistryText(text);
}

bool RegistryFile::hasKey(std::string_view key) const {
  const auto path = toUpper(key);
  const auto below = path + '\\';
  const auto next = keys_.lower_bound(below);
  return keys_.contains(path) || (next != keys_.end() && next->first.starts_with(below));
}

const RegistryValue* RegistryFile::find(std::string_view key, std::string_view name) const {
  const auto found = keys_.find(toUpper(key));
  if (found == keys_.end()) return nullptr;
  const auto place = found->second.values.find(toUpper(name));
  if (place == found->second.values.end()) return nullptr;
  return &*sections_[place->second.section].lines[place->second.line].value;
}

bool RegistryFile::createKey(std::string_view key) {
  if (hasKey(key)) return true;
  if (!canNameKey(key)) return false;
  const auto path = asWritten(key);
  addLine({});
  addHeader("[" + path + "]", path);
  return true;
}

bool RegistryFile::set(std::string_view key, std::string_view name, const RegistryValue& value) {
  if (!hasKey(key) || !canNameKey(key) || !canNameValue(name)) return false;
  const auto writtenName = asWritten(name);
  auto written = value;
  if (isRegistryTextType(value.type)) written.bytes = asWritten(value.bytes);
  Line line{registryValueText(writtenName, written), std::move(written), {}};

  auto found = keys_.find(toUpper(key));
  if (found == keys_.end()) {  // known so far only because of the keys below it
    addLine({});
    addHeader("[" + asWritten(key) + "]", key);
    found = keys_.find(toUpper(key));
  }
  insertValue(found->second, writtenName, std::move(line));
  return true;
}

void RegistryFile::addLine(std::string text) {
  sections_.back().lines.push_back({std::move(text), {}, {}});
}

/// Comments and blank lines that follow each other share one entry: a file may be nothing but line ends.
void RegistryFile::addOther(std::string_view text) {
  auto& lines = sections_.back().lines;
  if (lines.size() > 1 && !lines.back().value) {
    lines.back().text.append(kLineEnd).append(text);
  } else {
    addLine(std::string(text));
  }
}

RegistryFile::Key& RegistryFile::addHeader(std::string text, std::string_view key) {
  sections_.emplace_back();
  sections_.back().key = key;
  addLine(std::move(text));
  auto& entry = keys_[toUpper(key)];
  entry.lastSection = sections_.size() - 1;
  return entry;
}

void RegistryFile::addValue(Key& key, std::string_view name, Line line) {
  auto& lines = sections_.back().lines;
  key.values[toUpper(name)] = {sections_.size() - 1, lines.size()};
  line.name = name;
  lines.push_back(std::move(line));
}

void RegistryFile::insertValue(Key& key, std::string_view name, Line line) {
  line.name = name;
  if (const auto place = key.values.find(toUpper(name)); place != key.values.end()) {
    auto& old = sections_[place->second.section].lines[place->second.line];
    line.tail = std::move(old.tail);
    old = std::move(line);
    return;
  }
  // Behind the section's last value, so that only comments and blank lines move and every place stays right.
  auto& lines = sections_[key.lastSection].lines;
  const auto last =
      std::find_if(lines.rbegin(), lines.rend() - 1, [](const Line& l) { return l.value.has_value(); });
  const auto at = last.base();
  key.values[toUpper(name)] = {key.lastSection, static_cast<std::size_t>(at - lines.begin())};
  lines.insert(at, std::move(line));
}

}  // namespace varnhold::platform
