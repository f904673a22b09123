#include "tests/store/contract_fixture.h"
#include "tests/store/sqlite_data_sources.h"

namespace varnhold::store {
namespace {

[[maybe_unused]] const auto* const kDataSources = testing::AddGlobalTestEnvironment(new SqliteDataSources);

Raised openRaises(const std::string& dataSource) {
  Connection connection;
  const Raised raised = raisedBy([&] { connection.Open(dataSource, "", ""); });
  EXPECT_EQ(connection.isOpen(), raised.number == 0);
  return raised;
}

void execute(Connection& connection, const std::string& statement) {
  Command command;
  command.ActiveConnection = &connection;
  command.CommandText = statement;
  command.Execute();
}

/// Reads the only cell of a SELECT.
std::string cellOf(Connection& connection, const std::string& select, const std::string& column) {
  Recordset rows;
  rows.Open(select, connection, CursorType::Static, LockType::ReadOnly);
  return textOf(rows.Fields(column).value());
}

TEST(SqliteStore, SaysThatTheDataSourceIsNotSetUp) {
  const Raised raised = openRaises("nowhere");
  EXPECT_EQ(raised.number, kDatabaseFailed);
  EXPECT_NE(raised.description.find("'nowhere'"), std::string::npos) << raised.description;
  EXPECT_NE(raised.description.find("No such data source is set up on this computer."), std::string::npos)
      << raised.description;
}

TEST(SqliteStore, SaysThatTheFileIsMissingAndMakesNone) {
  const Raised raised = openRaises("absent");
  EXPECT_EQ(raised.number, kDatabaseFailed);
  EXPECT_NE(raised.description.find("The database's file is missing or can't be opened."), std::string::npos)
      << raised.description;
  EXPECT_FALSE(std::filesystem::exists(kFolder + "/absent.mdb"));
}

TEST(SqliteStore, SaysThatTheFileIsNoDatabaseAndLeavesItAlone) {
  const Raised raised = openRaises("no database");
  EXPECT_EQ(raised.number, kDatabaseFailed);
  EXPECT_NE(raised.description.find("The file that the data source names is no database."), std::string::npos)
      << raised.description;
  EXPECT_EQ(std::filesystem::file_size(kFolder + "/text.mdb"), 4096u);
}

TEST(SqliteStore, UsesTheWriteAheadLog) {
  Connection connection;
  connection.Open("inventory", "", "");
  EXPECT_EQ(cellOf(connection, "SELECT journal_mode FROM pragma_journal_mode", "journal_mode"), "wal");
  EXPECT_EQ(cellOf(connection, "SELECT synchronous FROM pragma_synchronous", "synchronous"), "1");
}

TEST(SqliteStore, AWriterThatWaitsTooLongIsToldOfTheLock) {
  Connection holder, writer;
  holder.Open("second", "", "");
  writer.Open("hasty", "", "");
  execute(holder, "CREATE TABLE IF NOT EXISTS Trial (Number INTEGER)");
  execute(holder, "BEGIN EXCLUSIVE");
  const Raised raised = raisedBy([&] { execute(writer, "INSERT INTO Trial VALUES (1)"); });
  EXPECT_EQ(raised.number, kDatabaseFailed);
  EXPECT_NE(raised.description.find("Another program holds the database locked. Close it and try again."),
            std::string::npos)
      << raised.description;
  EXPECT_EQ(cellOf(writer, "SELECT COUNT(*) AS Rows_There FROM Trial", "Rows_There"), "0");
  execute(holder, "COMMIT");
  execute(writer, "INSERT INTO Trial VALUES (1)");
  EXPECT_EQ(cellOf(holder, "SELECT COUNT(*) AS Rows_There FROM Trial", "Rows_There"), "1");
  execute(holder, "DROP TABLE Trial");
}

TEST(SqliteStore, ADatabaseThatIsLockedWhollyIsToldAtOpen) {
  Connection holder;
  holder.Open("second", "", "");
  execute(holder, "PRAGMA journal_mode = DELETE");
  execute(holder, "BEGIN EXCLUSIVE");
  const Raised raised = openRaises("hasty");
  EXPECT_EQ(raised.number, kDatabaseFailed);
  EXPECT_NE(raised.description.find("Another program holds the database locked."), std::string::npos)
      << raised.description;
  execute(holder, "ROLLBACK");
  EXPECT_EQ(openRaises("hasty").number, 0);
}

TEST(SqliteStore, ATableThatIsGoneWhileASetIsOpenIsRefusedAtTheNextAsking) {
  Connection connection;
  connection.Open("second", "", "");
  execute(connection, "CREATE TABLE Trial (Number INTEGER)");
  Recordset rows;
  rows.Open("Trial", connection, CursorType::Keyset, LockType::Optimistic);
  EXPECT_TRUE(rows.Eof());
  execute(connection, "DROP TABLE Trial");
  rows.Requery();
  EXPECT_EQ(raisedBy([&] { (void)rows.Eof(); }).number, kStatementRefused);
}

}  // namespace
}  // namespace varnhold::store
