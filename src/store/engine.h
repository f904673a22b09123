#pragma once

#include <string>
#include <string_view>

namespace varnhold::store {

/// The database engines whose differences this folder knows. `Other` gets plain SQL.
enum class Engine { Sqlite, SqlServer, PostgreSql, MariaDb, Other };

/// The engine behind a connection, by the name that its driver gives (ODBC SQL_DBMS_NAME).
[[nodiscard]] Engine engineOfDbmsName(std::string_view name);

/// True when the engine reads `[name]` as a quoted name.
[[nodiscard]] bool knowsSquareBrackets(Engine engine);

/// `statement` as `engine` can read it: the square brackets around names are dropped for an engine that does
/// not know them. Text in single or double quotes stays untouched, and so does everything else.
[[nodiscard]] std::string inDialectOf(Engine engine, std::string_view statement);

/// The statement that changes or deletes one row, and one only, of those for which `condition` holds.
/// `action` is "DELETE" or "UPDATE"; `assignments` is the text behind SET, empty for DELETE.
/// For `Other` it is all of them, since there is no common word for one.
[[nodiscard]] std::string oneRowStatement(Engine engine, std::string_view action, const std::string& table,
                                          const std::string& assignments, const std::string& condition);

}  // namespace varnhold::store
