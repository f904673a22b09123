#include "deployment/registration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/runtime_error.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::deployment {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class EnsureSystemRegisteredTest : public ::testing::Test {
 protected:
  EnsureSystemRegisteredTest() {
    program.gConn.Open("qrvdb", "", "");
    fake.libraries.computers["HOST1"] = {};
    fake.libraries.onStore = [this](const platform::SystemDetails& details) { inventory.store(details); };
    fake.journal.clear();
  }

  void addComputer(const std::string& name) {
    platform::SystemDetails details;
    details.SystemName = name;
    details.SystemType = 7;
    inventory.store(details);
  }

  fakes::TestInventory inventory;
  fakes::FakeHost fake;
  core::Program program{fake.host(), core::kManagerTitle, fake.statementListener()};
};

TEST_F(EnsureSystemRegisteredTest, AsksNobodyAboutAKnownSystem) {
  addComputer("HOST1");
  EXPECT_EQ(EnsureSystemRegistered(program, "HOST1"), 1);
  EXPECT_THAT(fake.journal, ElementsAre(HasSubstr("System_Name = 'HOST1'")));
}

TEST_F(EnsureSystemRegisteredTest, HasTheLibraryFindAndStoreAnUnknownSystemAndLooksAgain) {
  EXPECT_EQ(EnsureSystemRegistered(program, "HOST1"), 1);
  EXPECT_THAT(
      fake.journal,
      ElementsAre(HasSubstr("System_Name = 'HOST1'"), "qrvFindSystemAndReturnDetails HOST1 level 1 -> 1",
                  "qrvUpdateSystemDetailsInDB HOST1 -> 1", HasSubstr("System_Name = 'HOST1'")));
  EXPECT_THAT(inventory.computers(), LinesAre({"HOST1|7"}));
}

TEST_F(EnsureSystemRegisteredTest, GivesUpASystemThatDoesNotAnswer) {
  fake.libraries.computers["HOST1"].answers = false;
  EXPECT_EQ(EnsureSystemRegistered(program, "HOST1"), -1);
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrv"),
              LinesAre({"qrvFindSystemAndReturnDetails HOST1 level 1 -> 0"}));
}

TEST_F(EnsureSystemRegisteredTest, GivesUpASystemThatCannotBeStored) {
  fake.libraries.computers["HOST1"].canBeStored = false;
  EXPECT_EQ(EnsureSystemRegistered(program, "HOST1"), -1);
  EXPECT_EQ(fakes::linesOf(fake.journal, "SQL").size(), 1u);
}

TEST_F(EnsureSystemRegisteredTest, GivesUpASystemThatWasStoredButIsNotThere) {
  fake.libraries.onStore = {};
  EXPECT_EQ(EnsureSystemRegistered(program, "HOST1"), -1);
  EXPECT_EQ(fakes::linesOf(fake.journal, "SQL").size(), 2u);
}

TEST_F(EnsureSystemRegisteredTest, ComparesNamesAsExactStrings) {
  addComputer("host1");
  EXPECT_EQ(EnsureSystemRegistered(program, "HOST1"), 1);
  EXPECT_THAT(inventory.computers(), LinesAre({"HOST1|7", "host1|7"}));
}

TEST_F(EnsureSystemRegisteredTest, SplicesAnApostropheAsItStands) {
  try {
    static_cast<void>(EnsureSystemRegistered(program, "O'NEIL"));
    FAIL() << "no run-time error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), kStatementRefused);
  }
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrv"), IsEmpty());
}

TEST_F(EnsureSystemRegisteredTest, LetsAMissingTableReachTheCaller) {
  inventory.execute("DROP TABLE System_Table");
  EXPECT_THROW(static_cast<void>(EnsureSystemRegistered(program, "HOST1")), RuntimeError);
}

}  // namespace
}  // namespace varnhold::deployment
