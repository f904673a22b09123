#include "platform/windows/ansi_buffer.h"

#include <windows.h>

#include <algorithm>

#include "base/secret.h"
#include "base/text.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

/// The text with NULs up to `size` bytes, and at least one. It is written in its place: a text that grew
/// later would leave a copy behind, and it may be a password.
std::string toAnsi(std::string_view text, std::size_t size, std::size_t& length) {
  auto wide = toWide(text);
  const WipedAtEnd wiped(wide);
  const auto letters = static_cast<int>(wide.size());
  const auto convert = [&](char* room, int bytes) {
    return WideCharToMultiByte(CP_ACP, 0, wide.data(), letters, room, bytes, nullptr, nullptr);
  };
  length = static_cast<std::size_t>(wide.empty() ? 0 : convert(nullptr, 0));
  std::string ansi(std::max(size, length + 1), '\0');
  if (length > 0) convert(ansi.data(), static_cast<int>(length));
  return ansi;
}

std::string fromAnsi(std::string_view text) {
  const auto length = static_cast<int>(text.size());
  const auto convert = [&](wchar_t* room, int size) {
    return MultiByteToWideChar(CP_ACP, 0, text.data(), length, room, size);
  };
  std::wstring wide(static_cast<std::size_t>(text.empty() ? 0 : convert(nullptr, 0)), L'\0');
  if (!wide.empty()) convert(wide.data(), static_cast<int>(wide.size()));
  return fromWide(wide);
}

}  // namespace

AnsiBuffer::AnsiBuffer(std::string_view text, std::size_t size)
    : bytes_(toAnsi(text, size, length_)), before_(bytes_) {}

AnsiBuffer::~AnsiBuffer() {
  SecureZeroMemory(bytes_.data(), bytes_.size());
  SecureZeroMemory(before_.data(), before_.size());
}

void AnsiBuffer::readBack(std::string& text) const {
  text = TrimAtNull(bytes_ == before_ ? text : fromAnsi(TrimAtNull(bytes_)));
}

void AnsiBuffer::readBackInOwnLength(std::string& text) const {
  if (bytes_ != before_) text = fromAnsi(bytes_.substr(0, length_));
}

std::string AnsiBuffer::whole() const {
  return fromAnsi(bytes_);
}

}  // namespace varnhold::platform::windows
