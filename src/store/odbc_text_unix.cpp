#include <algorithm>
#include <array>

#include "store/odbc_text.h"

namespace varnhold::store::odbc {

TextWay wayWhenWideIsGarbled() {
  return TextWay::Utf8;
}

SQLRETURN executeDirect(SQLHSTMT statement, std::string_view text, TextWay way) {
  if (way == TextWay::Wide) return executeDirectWide(statement, text);
  std::string bytes(text);
  return SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(bytes.data()),
                       static_cast<SQLINTEGER>(bytes.size()));
}

bool readDiagnostic(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, TextWay way,
                    DiagnosticText& record) {
  if (way == TextWay::Wide) return readDiagnosticWide(type, handle, number, record);
  std::array<SQLCHAR, 6> state{};
  std::array<SQLCHAR, SQL_MAX_MESSAGE_LENGTH> words{};
  SQLSMALLINT length = 0;
  const SQLRETURN result = SQLGetDiagRec(type, handle, number, state.data(), &record.native, words.data(),
                                         static_cast<SQLSMALLINT>(words.size()), &length);
  if (!SQL_SUCCEEDED(result)) return false;
  record.state.assign(state.begin(), state.begin() + 5);
  record.words.assign(words.begin(), std::find(words.begin(), words.end(), SQLCHAR{0}));
  return true;
}

}  // namespace varnhold::store::odbc
