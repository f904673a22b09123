#include "store/bulk_insert.h"

#include <gmock/gmock.h>

#include "base/runtime_error.h"
#include "store/command.h"
#include "tests/fakes/lines_are.h"
#include "tests/tools/provisioned_home.h"

namespace varnhold::provision {
namespace {

class BulkInsertTest : public ProvisionTest {
 protected:
  BulkInsertTest() {
    openDatabase(connection, folder / "bulk.db");
    store::Command command;
    command.ActiveConnection = &connection;
    command.CommandText = "CREATE TABLE Things (Name VARCHAR(64) UNIQUE, Size INTEGER)";
    command.Execute();
  }

  std::vector<std::string> count() { return rowsOf(connection, "SELECT COUNT(*) AS n FROM Things", {"n"}); }

  store::Connection connection;
};

TEST_F(BulkInsertTest, WritesTextNumbersAndNullsAsTheyAre) {
  store::BulkInsert rows(connection, "Things", {"Name", "Size"});
  rows.add({"it's [here]; \\ and 'there'", 1});
  rows.add({"", store::Value()});
  rows.add({store::Value(), -5});
  rows.finish();
  EXPECT_THAT(rowsOf(connection, "SELECT Name, Size FROM Things ORDER BY Size", {"Name", "Size"}),
              LinesAre({"|-", "-|-5", "it's [here]; \\ and 'there'|1"}));
}

TEST_F(BulkInsertTest, WritesEveryRowWhateverTheirNumber) {
  store::BulkInsert rows(connection, "Things", {"Size"});
  for (int i = 0; i < 1001; ++i) rows.add({i});
  rows.finish();
  rows.finish();
  EXPECT_THAT(count(), LinesAre({"1001"}));
}

TEST_F(BulkInsertTest, ATransactionThatIsNotCommittedLeavesNothing) {
  {
    store::Transaction transaction(connection);
    store::BulkInsert rows(connection, "Things", {"Size"});
    for (int i = 0; i < 600; ++i) rows.add({i});
    rows.finish();
  }
  EXPECT_THAT(count(), LinesAre({"0"}));
}

TEST_F(BulkInsertTest, AnErrorInATransactionLeavesNothingAndTheConnectionUsable) {
  EXPECT_THROW(
      {
        store::Transaction transaction(connection);
        store::BulkInsert rows(connection, "Things", {"Name"});
        for (int i = 0; i < 600; ++i) rows.add({"N" + std::to_string(i)});
        rows.add({"N1"});
        rows.finish();
        transaction.commit();
      },
      RuntimeError);
  EXPECT_THAT(count(), LinesAre({"0"}));
  store::Transaction transaction(connection);
  transaction.commit();
}

}  // namespace
}  // namespace varnhold::provision
