#pragma once

#include <wx/string.h>

#include <string>

/// Text between the program, which speaks UTF-8, and the toolkit.
namespace varnhold::ui::wx {

[[nodiscard]] inline wxString shown(const std::string& text) {
  return wxString::FromUTF8(text.data(), text.size());
}

/// The same for text of several lines, whichever of its platform's two line ends the program has put there.
[[nodiscard]] inline wxString shownLines(const std::string& text) {
  auto lines = shown(text);
  lines.Replace("\r\n", "\n");
  lines.Replace("\r", "\n");
  return lines;
}

[[nodiscard]] inline std::string utf8(const wxString& text) {
  return text.utf8_string();
}

}  // namespace varnhold::ui::wx
