#pragma once

#include <deque>
#include <string>
#include <vector>

#include "store/odbc_api.h"
#include "store/odbc_text.h"
#include "store/value.h"

namespace varnhold::store::odbc {

/// The parameters of one statement, in memory that stays where it is while the statement runs.
class Parameters {
 public:
  /// `values` outlive this.
  explicit Parameters(const std::vector<Value>& values) : values_(values), indicators_(values.size()) {}
  /// Binds them to the marks of `statement`, in order.
  SQLRETURN bind(SQLHSTMT statement);

 private:
  struct Slot {
    SQLSMALLINT cType;
    SQLSMALLINT sqlType;
    SQLULEN size;
    const void* data;
    SQLLEN bytes;
  };
  Slot slotOf(const Value& value);

  const std::vector<Value>& values_;
  std::deque<WideText> texts_;
  std::vector<SQLLEN> indicators_;
};

}  // namespace varnhold::store::odbc
