#include "deployment/agent_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/fakes/fake_host.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::deployment {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class IsAgentlessSystemTest : public ::testing::Test {
 protected:
  IsAgentlessSystemTest() {
    program.gConn.Open("qrvdb", "", "");
    fake.journal.clear();
  }

  fakes::TestInventory inventory;
  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle, fake.statementListener()};
};

TEST_F(IsAgentlessSystemTest, IsTrueForAMarkedRow) {
  inventory.addAgent("HOST1", 1, 1);
  EXPECT_TRUE(IsAgentlessSystem(program, "HOST1"));
  EXPECT_THAT(fake.journal, ElementsAre(HasSubstr("(System_Name = 'HOST1' AND Module_ID = 1)")));
}

TEST_F(IsAgentlessSystemTest, IsFalseForARealAgent) {
  inventory.addAgent("HOST1", 1, 0);
  EXPECT_FALSE(IsAgentlessSystem(program, "HOST1"));
}

TEST_F(IsAgentlessSystemTest, IsFalseForARowWithoutTheMark) {
  inventory.addAgent("HOST1", 1, 1);
  inventory.execute("UPDATE Module_Table SET Agentless = NULL");
  EXPECT_FALSE(IsAgentlessSystem(program, "HOST1"));
}

TEST_F(IsAgentlessSystemTest, LooksAtTheVarnholdAgentOfThatSystemOnly) {
  inventory.addAgent("HOST1", 2, 1);
  inventory.addAgent("HOST1", 5, 1);
  inventory.addAgent("HOST2", 1, 1);
  EXPECT_FALSE(IsAgentlessSystem(program, "HOST1"));
}

TEST_F(IsAgentlessSystemTest, IsFalseForAnUnknownSystem) {
  EXPECT_FALSE(IsAgentlessSystem(program, "HOST1"));
}

TEST_F(IsAgentlessSystemTest, IsFalseWhereANameBreaksTheFilter) {
  inventory.addAgent("HOST1", 1, 1);
  EXPECT_FALSE(IsAgentlessSystem(program, "O'NEIL"));
}

TEST_F(IsAgentlessSystemTest, IsFalseInATableWithoutTheColumn) {
  inventory.execute("DROP TABLE Module_Table");
  inventory.execute("CREATE TABLE Module_Table (System_Name VARCHAR(255), Module_ID INTEGER)");
  inventory.execute("INSERT INTO Module_Table VALUES ('HOST1', 1)");
  EXPECT_FALSE(IsAgentlessSystem(program, "HOST1"));
}

TEST_F(IsAgentlessSystemTest, IsFalseWithoutAnInventory) {
  inventory.addAgent("HOST1", 1, 1);
  program.gConn.Close();
  EXPECT_FALSE(IsAgentlessSystem(program, "HOST1"));
}

}  // namespace
}  // namespace varnhold::deployment
