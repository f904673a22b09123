#include "platform/windows/text.h"

#include "base/unicode.h"

namespace varnhold::platform::windows {

std::wstring toWide(std::string_view text) {
  const auto units = toUtf16(text);
  return {units.begin(), units.end()};
}

std::string fromWide(std::wstring_view text) {
  return fromUtf16(std::u16string(text.begin(), text.end()));
}

}  // namespace varnhold::platform::windows
