#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "store/engine.h"

namespace varnhold::store {

/// One connection to the inventory over ODBC. Every statement commits by itself; there are no transactions.
/// One thread at a time. Errors are RuntimeErrors: kStatementRefused when the engine refuses the statement's
/// text (SQLSTATE classes 42, 37 and S0, and what SQLite's driver reports instead), kDatabaseFailed for
/// everything else, a violated key included, kObjectClosed when used closed; the description holds the
/// driver's words with SQLSTATE, never a password.
class Connection {
 public:
  /// Told each statement's text, as the program wrote it, before it goes to the engine, in order.
  using StatementListener = std::function<void(std::string_view statement)>;

  explicit Connection(StatementListener listener = {});
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Opens the ODBC data source; one that was open is closed first. A database that can't be read (absent,
  /// locked by another program for longer than the driver waits, no database) is reported here, not at the
  /// first statement. `options` is -1, none, in every call of this program.
  void Open(const std::string& dataSource, const std::string& user, const std::string& password,
            int options = -1);
  /// Recordsets that were opened on this connection are closed with it: using one raises kObjectClosed.
  void Close() noexcept;
  [[nodiscard]] bool isOpen() const noexcept;
  /// The engine behind the data source; raises kObjectClosed when closed.
  [[nodiscard]] Engine engine();

  /// The engine's side of the connection, for the classes of this folder.
  struct Session;
  [[nodiscard]] Session& session();

 private:
  StatementListener listener_;
  std::shared_ptr<Session> session_;
};

}  // namespace varnhold::store
