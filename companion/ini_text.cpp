#include "companion/ini_text.h"

#include <algorithm>

#include "base/text.h"

namespace varnhold::companion {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The size of the value that begins `text`: up to a comment, or behind its closing quote.
std::size_t valueSize(std::string_view text) {
  if (text.starts_with('"')) {
    const auto quote = text.find('"', 1);
    if (quote != std::string_view::npos) return quote + 1;
  }
  std::size_t end = text.size();
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != ';' || (at > 0 && kBlanks.find(text[at - 1]) == std::string_view::npos)) continue;
    end = at;
    break;
  }
  const auto last = text.substr(0, end).find_last_not_of(kBlanks);
  return last == std::string_view::npos ? 0 : last + 1;
}

std::string unquoted(std::string_view value) {
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
    return std::string(value.substr(1, value.size() - 2));
  return std::string(value);
}

/// The value as it must stand in a line to be read back.
std::string written(std::string_view value) {
  std::string text(value);
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
  const bool plain = text.find(';') == std::string::npos && trimmed(text) == text && !text.starts_with('"');
  if (plain) return text;
  std::replace(text.begin(), text.end(), '"', '\'');
  return '"' + text + '"';
}

}  // namespace

IniText::IniText(std::string_view bytes) {
  std::string section;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto feed = bytes.find('\n', at);
    const auto next = feed == std::string_view::npos ? bytes.size() : feed + 1;
    auto end = feed == std::string_view::npos ? bytes.size() : feed;
    if (end < bytes.size() && end > at && bytes[end - 1] == '\r') --end;
    Line line{
        std::string(bytes.substr(at, end - at)), std::string(bytes.substr(end, next - end)), section, {}};
    if (newLine_.empty()) newLine_ = line.end;
    readLine(std::move(line));
    section = lines_.back().section;
    at = next;
  }
  if (newLine_.empty()) newLine_ = "\r\n";
}

void IniText::readLine(Line line) {
  std::size_t begin = 0;
  if (lines_.empty() && line.text.starts_with(kByteOrderMark)) begin = kByteOrderMark.size();
  const std::string_view content = trimmed(std::string_view(line.text).substr(begin));
  const auto equals = line.text.find('=', begin);
  lines_.push_back(line);
  if (content.empty() || content.front() == ';') return;
  if (content.find('\0') != std::string_view::npos)
    return addProblem("holds a NUL byte; save the file as plain text");
  Line& kept = lines_.back();
  if (content.front() == '[') {
    const auto close = content.find(']');
    if (close == std::string_view::npos) return addProblem("has a section's '[' without its ']'");
    kept.section = std::string(trimmed(content.substr(1, close - 1)));
    kept.header = true;
    return;
  }
  if (equals == std::string::npos) return addProblem("is neither a section, a comment nor 'key = value'");
  kept.key = std::string(trimmed(std::string_view(line.text).substr(begin, equals - begin)));
  if (kept.key.empty()) return addProblem("has no key before its '='");
  if (kept.section.empty()) addProblem("stands before the first section");
  const auto value = line.text.find_first_not_of(kBlanks, equals + 1);
  kept.valueAt = value == std::string::npos ? line.text.size() : value;
  kept.valueSize = valueSize(std::string_view(line.text).substr(kept.valueAt));
}

void IniText::addProblem(std::string_view what) {
  problems_.push_back("line " + std::to_string(lines_.size()) + ": " + std::string(what));
}

std::vector<std::string> IniText::sections() const {
  std::vector<std::string> names;
  for (const Line& line : lines_) {
    const auto same = [&](const std::string& name) { return equalsIgnoringCase(name, line.section); };
    if (line.header && std::none_of(names.begin(), names.end(), same)) names.push_back(line.section);
  }
  return names;
}

bool IniText::hasSection(std::string_view section) const {
  return std::any_of(lines_.begin(), lines_.end(), [&](const Line& line) {
    return line.header && equalsIgnoringCase(line.section, section);
  });
}

std::vector<std::string> IniText::keys(std::string_view section) const {
  std::vector<std::string> names;
  for (const Line& line : lines_)
    if (!line.key.empty() && equalsIgnoringCase(line.section, section)) names.push_back(line.key);
  return names;
}

std::optional<std::size_t> IniText::find(std::string_view section, std::string_view key) const {
  for (std::size_t at = 0; at < lines_.size(); ++at) {
    const Line& line = lines_[at];
    if (!line.key.empty() && equalsIgnoringCase(line.key, key) && equalsIgnoringCase(line.section, section))
      return at;
  }
  return std::nullopt;
}

std::optional<std::string> IniText::value(std::string_view section, std::string_view key) const {
  const auto at = find(section, key);
  if (!at) return std::nullopt;
  const Line& line = lines_[*at];
  return unquoted(std::string_view(line.text).substr(line.valueAt, line.valueSize));
}

void IniText::setValue(std::string_view section, std::string_view key, std::string_view value) {
  const std::string text = written(value);
  if (const auto at = find(section, key)) {
    Line& present = lines_[*at];
    present.text.replace(present.valueAt, present.valueSize, text);
    present.valueSize = text.size();
    return;
  }
  if (!hasSection(section)) {
    Line header{"[" + std::string(section) + "]", newLine_, std::string(section), {}};
    header.header = true;
    insert(lines_.size(), std::move(header));
  }
  Line line{std::string(key) + "=" + text, newLine_, std::string(section), std::string(key)};
  line.valueAt = key.size() + 1;
  line.valueSize = text.size();
  insert(endOfSection(section), std::move(line));
}

std::size_t IniText::endOfSection(std::string_view section) const {
  std::size_t end = lines_.size();
  for (std::size_t at = 0; at < lines_.size(); ++at)
    if ((lines_[at].header || !lines_[at].key.empty()) && equalsIgnoringCase(lines_[at].section, section))
      end = at + 1;
  return end;
}

void IniText::insert(std::size_t at, Line line) {
  if (at > 0 && lines_[at - 1].end.empty()) lines_[at - 1].end = newLine_;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
}

void IniText::removeValue(std::string_view section, std::string_view key) {
  if (const auto at = find(section, key)) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*at));
}

void IniText::removeSection(std::string_view section) {
  std::erase_if(lines_, [&](const Line& line) { return equalsIgnoringCase(line.section, section); });
}

std::string IniText::text() const {
  std::string text;
  for (const Line& line : lines_) text += line.text + line.end;
  return text;
}

}  // namespace varnhold::companion
