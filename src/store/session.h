#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/connection.h"
#include "store/engine.h"
#include "store/rows.h"
#include "store/value.h"

namespace varnhold::store {

/// An open connection's way to its engine. Errors as for `Connection`.
struct Connection::Session : std::enable_shared_from_this<Connection::Session> {
  virtual ~Session() = default;

  [[nodiscard]] virtual Engine engine() const = 0;
  /// What stands around a quoted name.
  [[nodiscard]] virtual std::string quotedName(std::string_view name) const = 0;
  /// All rows of a SELECT. The engine is free for other statements when this returns.
  [[nodiscard]] virtual Rows query(const std::string& statement) = 0;
  /// Executes a statement without result rows; gives the number of rows that it touched.
  virtual std::int64_t execute(const std::string& statement, const std::vector<Value>& parameters = {}) = 0;
};

/// Opens the ODBC data source.
[[nodiscard]] std::shared_ptr<Connection::Session> openOdbcSession(
    const std::string& dataSource, const std::string& user, const std::string& password,
    const Connection::StatementListener& listener);

}  // namespace varnhold::store
