#pragma once

#include <string>
#include <vector>

#include "store/connection.h"
#include "store/value.h"

/// For where many rows are written at once: set-up, tests and the filling of groups. Everything else that the
/// program writes is single rows that commit by themselves. Errors as for `Connection`.
namespace varnhold::store {

/// What is executed on the connection while this lives is done as a whole, by `commit`, or not at all.
class Transaction {
 public:
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();

 private:
  Connection& connection_;
  bool open_ = false;
};

/// Adds rows to one table, some hundred with each statement.
class BulkInsert {
 public:
  BulkInsert(Connection& connection, const std::string& table, const std::vector<std::string>& columns);

  /// One value for each column, in their order.
  void add(const std::vector<Value>& row);
  /// Writes the rows that wait; none may be added after it without another call of it.
  void finish();

 private:
  Connection& connection_;
  std::string head_, statement_;
  std::size_t waiting_ = 0;
};

}  // namespace varnhold::store
