#include "ui/controls/caption.h"

#include "base/unicode.h"

namespace varnhold::ui {

char32_t mnemonicOf(std::string_view caption) {
  for (std::size_t at = caption.find('&'); at != std::string_view::npos; at = caption.find('&', at + 2)) {
    std::size_t next = at + 1;
    if (next >= caption.size()) return 0;
    if (caption[next] == '&') continue;
    const auto letter = nextCodePoint(caption, next);
    return letter == kNotUtf8 ? 0 : upperCase(letter);
  }
  return 0;
}

std::string withoutMnemonic(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

}  // namespace varnhold::ui
