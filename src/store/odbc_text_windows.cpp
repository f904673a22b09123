#include "store/odbc_text.h"

namespace varnhold::store::odbc {

// Windows' driver manager converts in full, and a name that is not ASCII would lose letters in any other way.
TextWay wayWhenWideIsGarbled() {
  return TextWay::Wide;
}

SQLRETURN executeDirect(SQLHSTMT statement, std::string_view text, TextWay) {
  return executeDirectWide(statement, text);
}

bool readDiagnostic(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, TextWay, DiagnosticText& record) {
  return readDiagnosticWide(type, handle, number, record);
}

}  // namespace varnhold::store::odbc
