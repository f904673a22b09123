#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace varnhold {

/// What `nextCodePoint` gives for a byte that begins no UTF-8 sequence.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;

/// Reads the code point at `at` and moves `at` behind it; for a byte that begins no valid sequence moves by
/// that one byte and gives `kNotUtf8`. `at` must be below the text's size.
[[nodiscard]] char32_t nextCodePoint(std::string_view text, std::size_t& at);

/// Appends one code point as UTF-8.
void appendUtf8(std::string& text, char32_t codePoint);

/// The simple upper-case partner of a letter (one letter to one letter), else the letter itself.
[[nodiscard]] char32_t upperCase(char32_t letter);

/// UTF-8 to UTF-16 in the host's byte order; what is no UTF-8 becomes U+FFFD.
[[nodiscard]] std::u16string toUtf16(std::string_view text);

/// UTF-16 in the host's byte order to UTF-8; a lone surrogate becomes U+FFFD.
[[nodiscard]] std::string fromUtf16(std::u16string_view text);

}  // namespace varnhold
