#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varnhold {

/// `text` without the blanks (U+0020 only; tabs stay) at both ends.
[[nodiscard]] std::string trimBlanks(std::string_view text);

/// The text before its first NUL, or all of it: for every buffer that a library or the host filled.
[[nodiscard]] std::string TrimAtNull(std::string_view text);

/// The pieces between the separators, in order; n separators give n + 1 pieces, empty ones included.
[[nodiscard]] std::vector<std::string> split(std::string_view text, char separator);

/// UTF-8 text in upper case, letter by letter (one letter never becomes two, as on the product's platform).
/// Knows Latin, Greek, Cyrillic and Armenian letters; everything else, and bytes that are no UTF-8, stay.
[[nodiscard]] std::string toUpper(std::string_view text);

/// True when both texts are the same but for the case of their letters.
[[nodiscard]] bool equalsIgnoringCase(std::string_view left, std::string_view right);

/// True when `part` stands anywhere in `text`, the case of letters aside. An empty part always does.
[[nodiscard]] bool containsIgnoringCase(std::string_view text, std::string_view part);

/// `text` with every `from` replaced by `to`.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

}  // namespace varnhold
