#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "store/odbc_api.h"

namespace varnhold::store::odbc {

/// Text on its way into ODBC: UTF-16 with a length, as the W functions take it.
class WideText {
 public:
  explicit WideText(std::string_view text);
  /// ODBC's signatures lack the const; the functions that this is handed to only read.
  [[nodiscard]] SQLWCHAR* data() { return reinterpret_cast<SQLWCHAR*>(units_.data()); }
  [[nodiscard]] std::size_t size() const { return units_.size(); }

 private:
  std::u16string units_;
};

/// Appends `count` units of UTF-16 as UTF-8. Names and paths are nearly always ASCII: copied at once.
void appendUtf8(std::string& text, const SQLWCHAR* units, std::size_t count);

[[nodiscard]] inline std::string utf8Of(const SQLWCHAR* units, std::size_t count) {
  std::string text;
  appendUtf8(text, units, count);
  return text;
}

/// How the text of statements and of diagnostics crosses to a driver.
enum class TextWay {
  Wide,  ///< UTF-16 through the W functions
  Utf8,  ///< bytes, for a driver on a Unix host that lacks W functions and takes UTF-8
};

/// The other way for a driver that `TextWay::Wide` was seen to garble text for: on a Unix host the driver
/// manager converts for a driver without W functions, into ISO 8859-1 or the locale's encoding and never
/// beyond U+FFFF, so that such a driver is better handed the bytes it knows.
[[nodiscard]] TextWay wayWhenWideIsGarbled();

SQLRETURN executeDirect(SQLHSTMT statement, std::string_view text, TextWay way);

/// One diagnostic record; `number` counts from 1. False when there is none of that number.
struct DiagnosticText {
  std::string state;
  SQLINTEGER native = 0;
  std::string words;
};
[[nodiscard]] bool readDiagnostic(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, TextWay way,
                                  DiagnosticText& record);

/// The W functions' forms of the two, for either host.
SQLRETURN executeDirectWide(SQLHSTMT statement, std::string_view text);
[[nodiscard]] bool readDiagnosticWide(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number,
                                      DiagnosticText& record);

}  // namespace varnhold::store::odbc
