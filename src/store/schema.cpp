#include "store/schema.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "store/command.h"
#include "store/schema_texts.h"

namespace varnhold::store {
namespace {

std::string_view withoutLineEnd(std::string_view line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.remove_suffix(1);
  return line;
}

}  // namespace

std::string_view schemaText(Engine engine) {
  switch (engine) {
    case Engine::Sqlite:
      return schema_texts::kSqlite;
    case Engine::SqlServer:
      return schema_texts::kSqlServer;
    case Engine::PostgreSql:
      return schema_texts::kPostgreSql;
    case Engine::MariaDb:
      return schema_texts::kMariaDb;
    case Engine::Other:
      break;
  }
  throw RuntimeError(
      kDatabaseFailed,
      "There is no schema for the engine behind the data source. Use SQLite, SQL Server, PostgreSQL or "
      "MariaDB.");
}

std::vector<std::string> schemaStatements(std::string_view text) {
  std::vector<std::string> statements;
  std::string statement;
  for (const std::string& whole : split(text, '\n')) {
    const std::string_view line = withoutLineEnd(whole);
    if (line.empty() || line.starts_with("--")) continue;
    statement += (statement.empty() ? "" : "\n") + std::string(line);
    if (!line.ends_with(';')) continue;
    statement.pop_back();
    statements.push_back(std::move(statement));
    statement.clear();
  }
  if (!statement.empty()) statements.push_back(std::move(statement));
  return statements;
}

void createTables(Connection& connection) {
  Command command;
  command.ActiveConnection = &connection;
  for (const std::string& statement : schemaStatements(schemaText(connection.engine()))) {
    command.CommandText = statement;
    command.Execute();
  }
}

}  // namespace varnhold::store
