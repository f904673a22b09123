#include "store/foreign_key.h"
#include "tests/store/inventory_contract.h"
#include "tests/store/server_contract.h"

namespace varnhold::store {

const EngineUnderTest kEngineUnderTest{Engine::PostgreSql, VARNHOLD_STORE_LETTERS};
const ServerUnderTest kServerUnderTest{"SELECT pg_backend_pid() AS Session_Number",
                                       "SELECT pg_terminate_backend({number})"};

namespace {

/// PostgreSQL with SQL Server's catalogue in small, so that the query for the foreign key runs.
class ComputerForeignKey : public InventoryContract {
 protected:
  void SetUp() override {
    InventoryContract::SetUp();
    tablesWillNotStand();
    for (const char* statement : {
             "DROP SCHEMA IF EXISTS standin CASCADE",
             "CREATE SCHEMA standin",
             "CREATE TABLE standin.sysobjects (id INTEGER, name TEXT, parent_obj INTEGER, xtype TEXT)",
             "CREATE TABLE standin.sysconstraints (constid INTEGER, colid INTEGER)",
             "CREATE TABLE standin.syscolumns (id INTEGER, colid INTEGER, name TEXT)",
             "CREATE FUNCTION standin.object_name(INTEGER) RETURNS TEXT LANGUAGE SQL AS "
             "'SELECT CASE $1 WHEN 7 THEN ''Events_Table'' END'",
             "CREATE FUNCTION standin.object_id(TEXT) RETURNS INTEGER LANGUAGE SQL AS "
             "'SELECT CASE $1 WHEN ''dbo.Events_Table'' THEN 7 END'",
             "INSERT INTO standin.syscolumns VALUES (7, 1, 'Other'), (7, 2, 'Computer')",
             "SET search_path TO public, standin",
             "ALTER TABLE Events_Table ADD CONSTRAINT Events_Computer FOREIGN KEY (Computer) REFERENCES "
             "System_Table "
             "(System_Name)",
         }) {
      execute(statement);
    }
    addSystem("A");
    execute("INSERT INTO Events_Table (Computer) VALUES ('A')");
  }

  void knowTheKey() {
    execute("INSERT INTO standin.sysobjects VALUES (9, 'Events_Computer', 7, 'F'), (8, 'PK_Other', 7, 'K')");
    execute("INSERT INTO standin.sysconstraints VALUES (9, 2), (8, 2)");
  }

  void TearDown() override { execute("DROP SCHEMA standin CASCADE"); }
};

TEST_F(ComputerForeignKey, ARemovalThatItRefusesFailsWithANumberThatStartsTheRecovery) {
  const Raised raised = raisedBy([&] { execute("DELETE FROM System_Table WHERE System_Name = 'A'"); });
  EXPECT_TRUE(raised.number == kStatementRefused || raised.number == kDatabaseFailed) << raised.number;
}

TEST_F(ComputerForeignKey, IsDroppedOnSqlServerAndTheRemovalThenGoesThrough) {
  knowTheKey();
  EXPECT_TRUE(dropComputerForeignKey(connection, std::string("ODBC Driver 17 for sql server\0rubbish", 36)));
  EXPECT_EQ(told.back(), "ALTER TABLE Events_Table DROP CONSTRAINT Events_Computer");
  execute("DELETE FROM System_Table WHERE System_Name = 'A'");
  EXPECT_TRUE(tableOf("System_Table", {"System_Name"}).empty());
}

TEST_F(ComputerForeignKey, IsLeftAloneWhereTheQueryFindsNone) {
  EXPECT_FALSE(dropComputerForeignKey(connection, "SQL Server"));
  EXPECT_EQ(told.back(), statements::kComputerForeignKey);
}

TEST_F(ComputerForeignKey, IsNotLookedForWithAnotherDriver) {
  knowTheKey();
  told.clear();
  EXPECT_FALSE(dropComputerForeignKey(connection, "SQLite3"));
  EXPECT_FALSE(dropComputerForeignKey(connection, ""));
  EXPECT_FALSE(dropComputerForeignKey(connection, std::string("x\0SQL Server", 12)));
  EXPECT_TRUE(told.empty());
}

}  // namespace
}  // namespace varnhold::store
