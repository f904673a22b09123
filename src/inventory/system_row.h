#pragma once

#include <string>
#include <string_view>

#include "store/connection.h"
#include "store/value.h"

/// The row of one computer in `System_Table`, as the small forms about a computer use it.
namespace varnhold::inventory {

/// The computer's address as a form shows it: "-Not Resolved-" where it has none, "-error retrieving data-"
/// where there is no row. Errors as for `Connection`.
[[nodiscard]] std::string shownAddress(store::Connection& connection, const std::string& name);

/// Writes one column of the computer's row; false where there is no row, or it can't be looked for. An update
/// that fails is passed over.
[[nodiscard]] bool changeSystem(store::Connection& connection, const std::string& name,
                                std::string_view column, const store::Value& value);

}  // namespace varnhold::inventory
