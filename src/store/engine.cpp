#include "store/engine.h"

#include <array>
#include <utility>

namespace varnhold::store {
namespace {

/// What begins the name that a driver gives its engine.
constexpr std::array<std::pair<std::string_view, Engine>, 5> kEngines{{
    {"SQLite", Engine::Sqlite},
    {"Microsoft SQL Server", Engine::SqlServer},
    {"PostgreSQL", Engine::PostgreSql},
    {"MariaDB", Engine::MariaDb},
    {"MySQL", Engine::MariaDb},
}};

/// Where the quoted text that begins at `open` ends: behind its closing quote, or at the statement's end.
std::size_t behindQuotes(std::string_view statement, std::size_t open) {
  const std::size_t close = statement.find(statement[open], open + 1);
  return close == std::string_view::npos ? statement.size() : close + 1;
}

/// "WHERE <row> = (SELECT <row> ... LIMIT 1)", for an engine that numbers its rows.
std::string whereOneOf(std::string_view row, const std::string& table, const std::string& condition) {
  const std::string name(row);
  return " WHERE " + name + " = (SELECT " + name + " FROM " + table + " WHERE " + condition + " LIMIT 1)";
}

}  // namespace

Engine engineOfDbmsName(std::string_view name) {
  for (const auto& [beginning, engine] : kEngines) {
    if (name.starts_with(beginning)) return engine;
  }
  return Engine::Other;
}

bool knowsSquareBrackets(Engine engine) {
  return engine != Engine::PostgreSql && engine != Engine::MariaDb;
}

std::string inDialectOf(Engine engine, std::string_view statement) {
  if (knowsSquareBrackets(engine)) return std::string(statement);
  std::string rewritten;
  rewritten.reserve(statement.size());
  for (std::size_t at = 0; at < statement.size();) {
    const char letter = statement[at];
    const bool quote = letter == '\'' || letter == '"';
    const std::size_t next = quote ? behindQuotes(statement, at) : at + 1;
    if (letter != '[' && letter != ']') rewritten.append(statement.substr(at, next - at));
    at = next;
  }
  return rewritten;
}

std::string oneRowStatement(Engine engine, std::string_view action, const std::string& table,
                            const std::string& assignments, const std::string& condition) {
  const bool update = action == "UPDATE";
  const std::string top = engine == Engine::SqlServer ? " TOP (1)" : "";
  std::string text =
      std::string(action) + top + (update ? " " + table + " SET " + assignments : " FROM " + table);
  if (engine == Engine::Sqlite) return text + whereOneOf("rowid", table, condition);
  if (engine == Engine::PostgreSql) return text + whereOneOf("ctid", table, condition);
  return text + " WHERE " + condition + (engine == Engine::MariaDb ? " LIMIT 1" : "");
}

}  // namespace varnhold::store
