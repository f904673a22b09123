#pragma once

#include "store/bulk_insert.h"
#include "store/statements.h"
#include "tests/store/contract_fixture.h"

namespace varnhold::store {

/// How one connection to a server ends another.
struct ServerUnderTest {
  std::string sessionNumber;  ///< a SELECT of Session_Number
  std::string endSession;     ///< with the hole {number}
};
extern const ServerUnderTest kServerUnderTest;

/// What holds where the engine is a server that a connection can lose.
class ServerContract : public InventoryContract {
 protected:
  void loseConnection() {
    const std::string number = tableOf(kServerUnderTest.sessionNumber, {"Session_Number"})[0][0];
    Connection other;
    other.Open("inventory", "", "");
    execute(other, statements::fill(kServerUnderTest.endSession, {{"number", number}}));
  }
};

TEST_F(ServerContract, ALostConnectionIsAnErrorAndOpensAgain) {
  addSystem("ALPHA");
  Recordset rows;
  rows.Open("System_Table", connection, CursorType::Keyset, LockType::Optimistic);
  EXPECT_FALSE(rows.Eof());
  loseConnection();
  EXPECT_EQ(raisedBy([&] { execute("DELETE FROM System_Table"); }).number, kDatabaseFailed);
  EXPECT_EQ(rows.Fields("System_Name").value(), Value("ALPHA"));
  EXPECT_EQ(raisedBy([&] { rows.Delete(); }).number, kDatabaseFailed);
  EXPECT_NE(raisedBy([&] { rows.Requery(), (void)rows.Eof(); }).number, 0);
  connection.Close();
  connection.Open("inventory", "", "");
  EXPECT_EQ(tableOf("System_Table", {"System_Name"}), (Table{{"ALPHA"}}));
}

TEST_F(ServerContract, ATransactionThatLosesItsConnectionLeavesNothing) {
  {
    Transaction transaction(connection);
    addSystem("ALPHA");
    loseConnection();
    EXPECT_NE(raisedBy([&] { transaction.commit(); }).number, 0);
  }
  connection.Open("inventory", "", "");
  EXPECT_TRUE(tableOf("System_Table", {"System_Name"}).empty());
}

}  // namespace varnhold::store
