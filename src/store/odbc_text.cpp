#include "store/odbc_text.h"

#include <algorithm>
#include <array>

#include "base/unicode.h"

namespace varnhold::store::odbc {

WideText::WideText(std::string_view text) {
  const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
  if (std::all_of(text.begin(), text.end(), isAscii)) {
    units_.assign(text.begin(), text.end());
  } else {
    units_ = toUtf16(text);
  }
}

void appendUtf8(std::string& text, const SQLWCHAR* units, std::size_t count) {
  unsigned seen = 0;
  for (std::size_t i = 0; i < count; ++i) seen |= static_cast<unsigned>(units[i]);
  if (seen >= 0x80) {
    text += fromUtf16(std::u16string(units, units + count));
    return;
  }
  const std::size_t begin = text.size();
  text.resize(begin + count);
  char* out = text.data() + begin;
  for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<char>(units[i]);
}

SQLRETURN executeDirectWide(SQLHSTMT statement, std::string_view text) {
  WideText wide(text);
  return SQLExecDirectW(statement, wide.data(), static_cast<SQLINTEGER>(wide.size()));
}

bool readDiagnosticWide(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, DiagnosticText& record) {
  std::array<SQLWCHAR, 6> state{};
  std::array<SQLWCHAR, SQL_MAX_MESSAGE_LENGTH> words{};
  SQLSMALLINT length = 0;
  const SQLRETURN result = SQLGetDiagRecW(type, handle, number, state.data(), &record.native, words.data(),
                                          static_cast<SQLSMALLINT>(words.size()), &length);
  if (!SQL_SUCCEEDED(result)) return false;
  record.state = utf8Of(state.data(), 5);
  // Some drivers give the whole length of a text that was cut, or bytes for units: the NUL is what counts.
  const auto end = std::find(words.begin(), words.end(), SQLWCHAR{0});
  record.words = utf8Of(words.data(), static_cast<std::size_t>(end - words.begin()));
  return true;
}

}  // namespace varnhold::store::odbc
