#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace varnhold::store {

/// One connection to the inventory over ODBC. Every statement commits by itself; there are no transactions.
/// One thread at a time. Errors are RuntimeErrors: kStatementRefused when the engine refuses the statement's text
/// (SQLSTATE classes 42, 37 and S0), kDatabaseFailed for everything else, kObjectClosed when used closed; the
/// description holds the driver's words with SQLSTATE, never a password.
class Connection {
 public:
  /// Told each statement's text before it goes to the engine, in order.
  using StatementListener = std::function<void(std::string_view statement)>;

  explicit Connection(StatementListener listener = {});
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Opens the ODBC data source. `options` is -1, none, in every call of this program.
  void Open(const std::string& dataSource, const std::string& user, const std::string& password, int options = -1);
  void Close() noexcept;
  [[nodiscard]] bool isOpen() const noexcept;

  /// The engine's side of the connection, for the classes of this folder.
  struct Session;
  [[nodiscard]] Session& session();

 private:
  StatementListener listener_;
  std::unique_ptr<Session> session_;
};

}  // namespace varnhold::store
