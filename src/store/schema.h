#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/connection.h"
#include "store/engine.h"

namespace varnhold::store {

/// The schema file of an engine, built into the program. Raises kDatabaseFailed where there is none.
[[nodiscard]] std::string_view schemaText(Engine engine);

/// The statements of a schema file, in order, without their closing semicolons. A statement ends with a line
/// that ends with a semicolon; lines that begin with "--" are comments.
[[nodiscard]] std::vector<std::string> schemaStatements(std::string_view text);

/// Makes the inventory's tables and keys. The program itself never does: it is for what sets a home up.
/// Errors as for `Connection`; tables that are there already are refused; those made before an error stay.
void createTables(Connection& connection);

}  // namespace varnhold::store
