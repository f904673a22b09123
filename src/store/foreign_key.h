#pragma once

#include <string_view>

#include "store/connection.h"

namespace varnhold::store {

/// Drops the foreign key from the event store to a computer for good, so that a computer with recorded events
/// can be removed. Only where the data source's driver is one for SQL Server: `driverName`, cut at its first
/// NUL, contains "SQL Server" in any case; all other drivers have nothing to drop. True when a key was found
/// and dropped. Errors as for `Connection`.
bool dropComputerForeignKey(Connection& connection, std::string_view driverName);

}  // namespace varnhold::store
