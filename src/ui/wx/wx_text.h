#pragma once

#include <wx/string.h>

#include <string>

/// Text between the program, which speaks UTF-8, and the toolkit.
namespace varnhold::ui::wx {

[[nodiscard]] inline wxString shown(const std::string& text) {
  return wxString::FromUTF8(text.data(), text.size());
}

[[nodiscard]] inline std::string utf8(const wxString& text) {
  return text.utf8_string();
}

}  // namespace varnhold::ui::wx
