#include <array>
#include <string_view>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "store/odbc_diagnostics.h"
#include "store/odbc_fetch.h"
#include "store/odbc_handles.h"
#include "store/odbc_parameters.h"
#include "store/odbc_text.h"
#include "store/session.h"

namespace varnhold::store {
namespace {

using namespace odbc;

/// What a connection to the engine is told first. PostgreSQL and MariaDB: a backslash in text is a letter of
/// a path. SQLite: room for the whole inventory in memory, 32 MB at most, so that a look-up costs the same
/// however large it is.
struct EngineSetting {
  Engine engine;
  std::string_view statement;
};
constexpr std::array<EngineSetting, 3> kSettings{{
    {Engine::Sqlite, "PRAGMA cache_size = -32768"},
    {Engine::PostgreSql, "SET standard_conforming_strings TO on"},
    {Engine::MariaDb,
     "SET SESSION sql_mode = CONCAT_WS(',', NULLIF(@@SESSION.sql_mode, ''), 'NO_BACKSLASH_ESCAPES', "
     "'ANSI_QUOTES')"},
}};

/// Text that shows whether the way to the driver garbles what is not ASCII, in and beyond the first plane.
constexpr std::string_view kTrialText = "\u00e9\u20ac\U0001F5A5";

RuntimeError noMemory() {
  return {kDatabaseFailed, "The ODBC driver manager gives no handle."};
}

/// A NUL would end a statement early at the engine, which might carry out its beginning, or cut a value.
void refuseNul(std::string_view text) {
  if (text.find('\0') == std::string_view::npos) return;
  throw RuntimeError(kStatementRefused, "The statement holds a NUL character, which no database takes.");
}

/// Ends the connection before its handle goes.
struct OpenConnection {
  ConnectionHandle handle;
  bool connected = false;
  ~OpenConnection() {
    if (connected) SQLDisconnect(handle.get());
  }
};

class OdbcSession final : public Connection::Session {
 public:
  explicit OdbcSession(const Connection::StatementListener& listener) : listener_(listener) {}

  void open(const std::string& dataSource, const std::string& user, const std::string& password);

  [[nodiscard]] Engine engine() const override { return engine_; }
  [[nodiscard]] std::string quotedName(std::string_view name) const override {
    return "\"" + replaceAll(name, "\"", "\"\"") + "\"";
  }
  [[nodiscard]] Rows query(const std::string& statement) override;
  std::int64_t execute(const std::string& statement, const std::vector<Value>& parameters) override;

 private:
  [[nodiscard]] StatementHandle newStatement();
  /// Tells the listener of a statement that is about to go to the engine.
  void tell(const std::string& statement) const;
  /// Executes what is already in the engine's dialect.
  void run(const StatementHandle& handle, std::string_view text);
  [[nodiscard]] Rows rowsOf(const std::string& text);
  [[nodiscard]] std::string dbmsName();
  /// Makes the new connection ready. `where` begins the description of what fails.
  void settle(const std::string& where);
  void settleSqlite();
  [[nodiscard]] RuntimeError statementError(const StatementHandle& handle) const {
    return odbcError({SQL_HANDLE_STMT, handle.get(), "The statement failed", engine_, way_});
  }

  EnvironmentHandle environment_;
  OpenConnection connection_;
  const Connection::StatementListener listener_;
  Engine engine_ = Engine::Other;
  TextWay way_ = TextWay::Wide;
  BlockBuffer buffer_;
};

void OdbcSession::open(const std::string& dataSource, const std::string& user, const std::string& password) {
  environment_ = EnvironmentHandle(nullptr);
  if (!environment_) throw noMemory();
  SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  connection_.handle = ConnectionHandle(environment_.get());
  if (!connection_.handle) throw noMemory();

  WideText source(dataSource), account(user), secret(password);
  const std::string where = "The data source '" + dataSource + "' can't be opened";
  const SQLRETURN result = SQLConnectW(
      connection_.handle.get(), source.data(), static_cast<SQLSMALLINT>(source.size()), account.data(),
      static_cast<SQLSMALLINT>(account.size()), secret.data(), static_cast<SQLSMALLINT>(secret.size()));
  if (!SQL_SUCCEEDED(result)) throw odbcError({SQL_HANDLE_DBC, connection_.handle.get(), where});
  connection_.connected = true;
  engine_ = engineOfDbmsName(dbmsName());
  settle(where);
}

void OdbcSession::settle(const std::string& where) {
  try {
    for (const EngineSetting& setting : kSettings) {
      if (setting.engine == engine_) run(newStatement(), setting.statement);
    }
    if (engine_ == Engine::Sqlite) settleSqlite();
  } catch (const RuntimeError& error) {
    throw RuntimeError(kDatabaseFailed, where + ". " + error.description());
  }
}

/// SQLite's driver reads the file only when it is first asked for something, so it is asked here. What it is
/// asked shows two things more: whether statements cross to it ungarbled, and whether there is a file at all.
/// A driver manager that can't read the data source's settings leaves the driver without a path, and the
/// driver then works on a database of its own that is gone with the connection.
void OdbcSession::settleSqlite() {
  const Rows trial =
      rowsOf("SELECT file, '" + std::string(kTrialText) +
             "' FROM pragma_database_list, (SELECT COUNT(*) FROM sqlite_master) WHERE name = 'main'");
  if (trial.size != 1 || trial.columns[0].at(0) == Value("")) {
    throw RuntimeError(
        kDatabaseFailed,
        "No database file is named in its settings, or they can't be read. Check the data source; on "
        "Linux its odbc.ini must be writable for this user, since the driver manager opens it so.");
  }
  if (trial.columns[1].at(0) != Value(std::string(kTrialText))) way_ = wayWhenWideIsGarbled();
}

std::string OdbcSession::dbmsName() {
  std::array<SQLWCHAR, 128> name{};
  SQLSMALLINT bytes = 0;
  const SQLRETURN result = SQLGetInfoW(connection_.handle.get(), SQL_DBMS_NAME, name.data(),
                                       static_cast<SQLSMALLINT>(sizeof name), &bytes);
  if (!SQL_SUCCEEDED(result)) return {};
  return TrimAtNull(utf8Of(name.data(), name.size()));
}

StatementHandle OdbcSession::newStatement() {
  StatementHandle handle(connection_.handle.get());
  if (!handle) {
    throw odbcError(
        {SQL_HANDLE_DBC, connection_.handle.get(), "The connection to the database failed", engine_, way_});
  }
  // A name may hold what ODBC reads as an escape, such as "{fn": the driver is not to look for any.
  SQLSetStmtAttrW(handle.get(), SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
  return handle;
}

void OdbcSession::tell(const std::string& statement) const {
  refuseNul(statement);
  if (listener_) listener_(statement);
}

void OdbcSession::run(const StatementHandle& handle, std::string_view text) {
  const SQLRETURN result = executeDirect(handle.get(), text, way_);
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) throw statementError(handle);
}

Rows OdbcSession::rowsOf(const std::string& text) {
  for (TextWidths widths;;) {
    const StatementHandle handle = newStatement();
    run(handle, text);
    Rows rows;
    SQLRETURN failed = SQL_SUCCESS;
    const bool whole = fetchRows(handle.get(), widths, buffer_, rows, failed);
    if (failed != SQL_SUCCESS) throw statementError(handle);
    if (whole) return rows;
  }
}

Rows OdbcSession::query(const std::string& statement) {
  tell(statement);
  return rowsOf(inDialectOf(engine_, statement));
}

std::int64_t OdbcSession::execute(const std::string& statement, const std::vector<Value>& parameters) {
  tell(statement);
  for (const Value& parameter : parameters) {
    if (const std::string* text = parameter.ifText()) refuseNul(*text);
  }
  const StatementHandle handle = newStatement();
  Parameters bound(parameters);
  if (!SQL_SUCCEEDED(bound.bind(handle.get()))) throw statementError(handle);
  run(handle, inDialectOf(engine_, statement));
  SQLLEN rows = 0;
  return SQL_SUCCEEDED(SQLRowCount(handle.get(), &rows)) ? static_cast<std::int64_t>(rows) : 0;
}

}  // namespace

std::shared_ptr<Connection::Session> openOdbcSession(const std::string& dataSource, const std::string& user,
                                                     const std::string& password,
                                                     const Connection::StatementListener& listener) {
  auto session = std::make_shared<OdbcSession>(listener);
  session->open(dataSource, user, password);
  return session;
}

}  // namespace varnhold::store
