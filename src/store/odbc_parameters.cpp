#include "store/odbc_parameters.h"

#include <algorithm>

namespace varnhold::store::odbc {

SQLRETURN Parameters::bind(SQLHSTMT statement) {
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const Slot slot = slotOf(values_[i]);
    indicators_[i] = slot.bytes;
    // ODBC takes a pointer to what may be written; an input parameter is only read.
    const SQLRETURN result = SQLBindParameter(
        statement, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, slot.cType, slot.sqlType, slot.size, 0,
        const_cast<void*>(slot.data), std::max<SQLLEN>(slot.bytes, 0), &indicators_[i]);
    if (!SQL_SUCCEEDED(result)) return result;
  }
  return SQL_SUCCESS;
}

Parameters::Slot Parameters::slotOf(const Value& value) {
  if (const auto* number = value.ifInteger()) {
    return {SQL_C_SBIGINT, SQL_BIGINT, 19, number, sizeof *number};
  }
  if (const auto* number = value.ifNumber()) return {SQL_C_DOUBLE, SQL_DOUBLE, 15, number, sizeof *number};
  const auto* text = value.ifText();
  WideText& wide = texts_.emplace_back(text ? std::string_view(*text) : std::string_view());
  const auto bytes = static_cast<SQLLEN>(wide.size() * sizeof(SQLWCHAR));
  return {SQL_C_WCHAR, SQL_WVARCHAR, std::max<SQLULEN>(wide.size(), 1), wide.data(),
          text ? bytes : SQL_NULL_DATA};
}

}  // namespace varnhold::store::odbc
