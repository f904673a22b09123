#include "platform/formats/registry_parser.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "platform/formats/registry_value_text.h"

namespace varnhold::platform {
namespace {

/// A file that a person saved with line ends of one LF keeps its values of several lines in one style.
std::string withCrLf(std::string_view text) {
  return replaceAll(replaceAll(text, "\r\n", "\n"), "\n", "\r\n");
}

/// The hexadecimal digits at the start of the text, at most `most` of them.
std::string_view leadingDigits(std::string_view text, std::size_t most) {
  const auto end = text.substr(0, most).find_first_not_of("0123456789abcdefABCDEF");
  return text.substr(0, std::min(end, most));
}

std::uint32_t numberOf(std::string_view digits) {
  std::uint32_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return number;
}

}  // namespace

std::optional<RegistryFile> RegistryFileParser::parse() {
  if (!readVersion()) return std::nullopt;
  while (!atEnd()) {
    if (!readLine()) return std::nullopt;
  }
  return std::move(file_);
}

bool RegistryFileParser::readVersion() {
  if (lineRest() != kRegistryFileVersion) {
    return fail("a registry file begins with the line \"" + std::string(kRegistryFileVersion) + "\"");
  }
  file_.addLine(std::string(kRegistryFileVersion));
  at_ += kRegistryFileVersion.size();
  skipLineEnd();
  return true;
}

bool RegistryFileParser::readLine() {
  lineStart_ = at_;
  skipBlanks();
  if (rest().starts_with('[')) return readHeader();
  if (rest().starts_with('"') || rest().starts_with('@')) return readValue();
  if (!atBlankOrComment()) {
    return fail(
        "here can stand a key in brackets, a value such as \"name\"=\"text\", or a comment behind a "
        "semicolon");
  }
  at_ = lineStart_;
  const auto line = lineRest();
  file_.addOther(line);
  at_ += line.size();
  skipLineEnd();
  return true;
}

/// A key may hold brackets: its closing one is the first with nothing but a comment behind it.
bool RegistryFileParser::readHeader() {
  const auto line = lineRest();
  for (auto close = line.find(']'); close != std::string_view::npos; close = line.find(']', close + 1)) {
    const auto behind = line.find_first_not_of(" \t", close + 1);
    if (behind != std::string_view::npos && line[behind] != ';') continue;
    const auto key = line.substr(1, close - 1);
    if (key.empty()) return fail("the key in the brackets has no name");
    if (key.starts_with('-')) {
      return fail("the line asks to delete a key, which means nothing here; take the line out, and the key");
    }
    at_ += line.size();
    key_ = &file_.addHeader(std::string(text_.substr(lineStart_, at_ - lineStart_)), key);
    skipLineEnd();
    return true;
  }
  return fail("the key has no closing bracket");
}

bool RegistryFileParser::readValue() {
  if (key_ == nullptr) return fail("a value stands before the first key");
  std::string name;
  if (!take("@") && !readQuoted(name)) return false;
  skipBlanks();
  if (!take("=")) return fail("behind the value's name there is no =");
  skipBlanks();
  const auto dataStart = at_;
  RegistryFile::Line line{{}, RegistryValue{}, {}};
  if (!readData(*line.value)) return false;
  const auto data = text_.substr(dataStart, at_ - dataStart);
  line.text = text_.substr(lineStart_, dataStart - lineStart_);
  line.text += data.starts_with('"') ? std::string(data) : withCrLf(data);
  if (!endValue(*line.value, line.tail)) return false;
  file_.addValue(*key_, name, std::move(line));
  return true;
}

bool RegistryFileParser::readData(RegistryValue& value) {
  if (rest().starts_with('"')) {
    value.type = kRegText;
    if (!readQuoted(value.bytes)) return false;
    value.bytes += '\0';
    return true;
  }
  if (take("dword:")) {
    value.type = kRegNumber;
    return readNumber(value.bytes);
  }
  if (take("hex")) return readHex(value);
  if (rest().starts_with('-')) {
    return fail(
        "the line asks to delete a value, which means nothing here; take the line out, and the value");
  }
  return fail("a value is text in quotes, dword: with eight hexadecimal digits, or hex: with bytes");
}

/// Text in quotes, which may go over several lines, as exports of such values do.
bool RegistryFileParser::readQuoted(std::string& text) {
  const auto start = at_++;
  for (;;) {
    const auto stop = text_.find_first_of("\"\\", at_);
    if (stop == std::string_view::npos) return failAt(start, "the text has no closing quote");
    text += text_.substr(at_, stop - at_);
    at_ = stop + 1;
    if (text_[stop] == '"') return true;
    if (atEnd() || (text_[at_] != '\\' && text_[at_] != '"')) {
      return failAt(stop, "inside quotes write each backslash twice, and a quote as \\\"");
    }
    text += text_[at_++];
  }
}

bool RegistryFileParser::readNumber(std::string& bytes) {
  const auto digits = leadingDigits(rest(), 8);
  if (digits.empty()) return fail("behind dword: stand up to eight hexadecimal digits");
  at_ += digits.size();
  const auto number = numberOf(digits);
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);
  return true;
}

bool RegistryFileParser::readHex(RegistryValue& value) {
  value.type = kRegBinary;
  if (take("(") && !readHexType(value.type)) return false;
  if (!take(":")) return fail("behind hex and its type there is no :");
  if (!readHexBytes(value.bytes)) return false;
  if (isRegistryTextType(value.type)) value.bytes = fromRegistryUtf16(value.bytes);
  return true;
}

bool RegistryFileParser::readHexType(std::uint32_t& type) {
  const auto digits = leadingDigits(rest(), 8);
  at_ += digits.size();
  type = numberOf(digits);
  return (!digits.empty() && take(")")) || fail("the type behind hex is a hexadecimal number in parentheses");
}

bool RegistryFileParser::readHexBytes(std::string& bytes) {
  skipBlanks();
  if (atBlankOrComment()) return true;
  for (;;) {
    if (!readContinuation()) return false;
    const auto digits = leadingDigits(rest(), 2);
    if (digits.size() != 2)
      return fail("a byte is two hexadecimal digits, and a comma stands between two bytes");
    bytes += static_cast<char>(numberOf(digits));
    at_ += 2;
    if (!take(",")) return true;
  }
}

/// Goes over the `\` and the line end of bytes that go on in the next line.
bool RegistryFileParser::readContinuation() {
  skipBlanks();
  while (take("\\")) {
    skipBlanks();
    if (!atLineEnd() || atEnd()) return fail("behind the \\ of bytes that go on there is no next line");
    skipLineEnd();
    skipBlanks();
  }
  return true;
}

bool RegistryFileParser::endValue(const RegistryValue& value, std::string& tail) {
  const auto start = at_;
  skipBlanks();
  if (!atBlankOrComment()) return fail("there is something behind the value that does not belong to it");
  at_ = start;
  tail = lineRest();
  at_ += tail.size();
  const bool closesItself = value.type == kRegText && text_[start - 1] == '"';
  if (atEnd() && !closesItself && tail.empty()) {
    return fail("the file ends within a value and may be cut off; complete it and end its line");
  }
  skipLineEnd();
  return true;
}

std::string_view RegistryFileParser::lineRest() const {
  auto line = rest();
  line = line.substr(0, line.find('\n'));
  const bool crBelongsToEnd = line.ends_with('\r') && at_ + line.size() < text_.size();
  if (crBelongsToEnd) line.remove_suffix(1);
  return line;
}

bool RegistryFileParser::take(std::string_view expected) {
  if (!rest().starts_with(expected)) return false;
  at_ += expected.size();
  return true;
}

void RegistryFileParser::skipBlanks() {
  at_ = std::min(text_.find_first_not_of(" \t", at_), text_.size());
}

void RegistryFileParser::skipLineEnd() {
  take("\r");
  take("\n");
}

bool RegistryFileParser::failAt(std::size_t position, std::string what) {
  const auto before = text_.substr(0, position);
  error_ = {1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')), std::move(what)};
  return false;
}

}  // namespace varnhold::platform
