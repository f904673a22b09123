#include "store/bulk_insert.h"

#include <array>
#include <string_view>

#include "base/runtime_error.h"
#include "base/text.h"
#include "store/session.h"

namespace varnhold::store {
namespace {

constexpr std::size_t kRowsPerStatement = 500;  ///< SQL Server takes at most 1,000

struct TransactionWords {
  Engine engine;
  const char* begin;
  const char* commit;
  const char* rollback;
};

constexpr std::array<TransactionWords, 5> kWords{{
    {Engine::Sqlite, "BEGIN IMMEDIATE", "COMMIT", "ROLLBACK"},
    {Engine::PostgreSql, "BEGIN", "COMMIT", "ROLLBACK"},
    {Engine::MariaDb, "START TRANSACTION", "COMMIT", "ROLLBACK"},
    {Engine::SqlServer, "BEGIN TRANSACTION", "COMMIT TRANSACTION", "ROLLBACK TRANSACTION"},
    {Engine::Other, "START TRANSACTION", "COMMIT", "ROLLBACK"},
}};

const TransactionWords& wordsOf(Connection& connection) {
  const auto engine = connection.session().engine();
  for (const auto& words : kWords)
    if (words.engine == engine) return words;
  return kWords.back();
}

std::string literal(const Value& value, Engine engine) {
  if (value.isNull()) return "NULL";
  auto text = value.asText();
  const bool isText = value == Value(text);
  return isText ? (engine == Engine::SqlServer ? "N'" : "'") + replaceAll(text, "'", "''") + "'" : text;
}

}  // namespace

Transaction::Transaction(Connection& connection) : connection_(connection) {
  connection_.session().execute(wordsOf(connection_).begin);
  open_ = true;
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    connection_.session().execute(wordsOf(connection_).rollback);
  } catch (const RuntimeError&) {
    // The engine drops what was not committed when the connection closes.
  }
}

void Transaction::commit() {
  connection_.session().execute(wordsOf(connection_).commit);
  open_ = false;
}

BulkInsert::BulkInsert(Connection& connection, const std::string& table,
                       const std::vector<std::string>& columns)
    : connection_(connection), head_("INSERT INTO " + table + " (") {
  for (const auto& column : columns) head_ += (&column == &columns.front() ? "" : ", ") + column;
  head_ += ") VALUES ";
}

void BulkInsert::add(const std::vector<Value>& row) {
  const auto engine = connection_.session().engine();
  statement_ += waiting_ == 0 ? head_ + "(" : std::string(", (");
  for (const auto& value : row) statement_ += (&value == &row.front() ? "" : ", ") + literal(value, engine);
  statement_ += ")";
  if (++waiting_ == kRowsPerStatement) finish();
}

void BulkInsert::finish() {
  if (waiting_ > 0) connection_.session().execute(statement_);
  statement_.clear();
  waiting_ = 0;
}

}  // namespace varnhold::store
