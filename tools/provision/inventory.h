#pragma once

#include <string>

#include "store/connection.h"
#include "store/data_source.h"
#include "tools/provision/data_source.h"

/// The inventory of a home while it is set up. Errors are those of `store::Connection`, with what to do.
namespace varnhold::provision {

inline const std::string kDataSource{store::kDataSourceName};

/// Opens the data source.
void openInventory(store::Connection& connection, const DataSource& source);

/// Raises kPathFileAccess when a table of the inventory holds a row; makes the tables where there are none.
void readyTables(store::Connection& connection, const DataSource& source);

/// The driver's name for the registry. The program knows SQL Server by these words in it, which not every
/// driver for that engine has in its name.
[[nodiscard]] std::string registeredDriver(store::Connection& connection, DataSource& source);

/// Adds that many computers with their agents and groups: all of them or, when it fails, none.
void fillInventory(store::Connection& connection, int computers);

}  // namespace varnhold::provision
