#pragma once

#include <string>

#include "base/runtime_error.h"
#include "store/engine.h"
#include "store/odbc_api.h"
#include "store/odbc_text.h"

namespace varnhold::store::odbc {

/// Where a failure happened: whose diagnostics tell of it, and in what words its description begins.
struct FailedStep {
  SQLSMALLINT type;
  SQLHANDLE handle;
  std::string what;  ///< such as "The statement failed"
  Engine engine = Engine::Other;
  TextWay way = TextWay::Wide;
};

/// The error of a failed ODBC call: kStatementRefused or kDatabaseFailed, with the driver's words, SQLSTATE,
/// and what to do where that is known.
[[nodiscard]] RuntimeError odbcError(const FailedStep& step);

}  // namespace varnhold::store::odbc
