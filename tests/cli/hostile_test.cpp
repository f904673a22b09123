// What a person or an accident can put in the way of a command-line run, on every host: the documented
// behaviour, else a clear word on standard error, and never a half-written inventory.
#include <gmock/gmock.h>

#include <filesystem>

#include "tests/cli/stage.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::cli {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

const std::string kHost = "[host]\naddress = 10.1.1.11\ntype = 7\nos_major = 5\nanswers = yes\n";

void know(const std::string& name) {
  Stage::execute(
      "INSERT INTO System_Table (System_Name, System_Type, IP_Address, System_Description) VALUES ('" + name +
      "', 7, '', '')");
}

TEST(HostileList, AByteOrderMarkIsNoPartOfTheFirstName) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  stage.writeFile("list.txt", "\xEF\xBB\xBFHOST1\r\n");
  const auto outcome = stage.run({"-I", "-F:list.txt"});
  EXPECT_THAT(outcome.log, LinesAre({"<time> :: HOST1: Installed successfully"}));
}

TEST(HostileList, NulBytesCutTheNameAndStopNothing) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  stage.writeFile("list.txt", std::string("NOSUCH\0X\nHOST1\n", 15));
  const auto outcome = stage.run({"-I", "-F:list.txt"});
  ASSERT_THAT(outcome.log, SizeIs(2));
  EXPECT_EQ(outcome.log[0], "<time> :: Failed to install on NOSUCH. System not responding.");
  EXPECT_EQ(outcome.log[1], "<time> :: HOST1: Installed successfully");
}

TEST(HostileList, TenMegabytesOfBlankLinesEndWithTheOneComputer) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  std::string list(10'000'000, ' ');
  for (std::size_t i = 0; i < list.size(); i += 2) list[i] = '\n';
  stage.writeFile("list.txt", list + "HOST1");
  const auto outcome = stage.run({"-I", "-F:list.txt"});
  EXPECT_EQ(outcome.exitStatus, 0);
  EXPECT_THAT(outcome.log, LinesAre({"<time> :: HOST1: Installed successfully"}));
}

TEST(HostileList, ANameOfAThousandCharactersIsAComputerThatDoesNotAnswer) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  const std::string name(1000, 'A');
  stage.writeFile("list.txt", name + "\nHOST1\n");
  const auto outcome = stage.run({"-I", "-F:list.txt"});
  ASSERT_THAT(outcome.log, SizeIs(2));
  EXPECT_THAT(outcome.log[0],
              AllOf(StartsWith("<time> :: Failed to install on AAAA"), HasSubstr("System not responding.")));
  EXPECT_EQ(outcome.log[1], "<time> :: HOST1: Installed successfully");
}

TEST(HostileList, AnApostropheBreaksItsOwnStatementsAndNoOtherComputers) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  stage.writeFile("list.txt", "O'BRIEN\nHOST1\n");
  const auto outcome = stage.run({"-I", "-F:list.txt"});
  EXPECT_EQ(outcome.exitStatus, 0);
  ASSERT_FALSE(outcome.log.empty());
  EXPECT_THAT(
      outcome.log.front(),
      StartsWith("<time> :: Error occurred while installing agent on O'BRIEN. ERROR : -2147217900 Descr: "));
  EXPECT_EQ(outcome.log.back(), "<time> :: HOST1: Installed successfully");
  EXPECT_THAT(Stage::agents(), SizeIs(1));
}

TEST(HostileList, AnApostropheOnUninstallGivesThatComputerUpWithTheWordInstalling) {
  Stage stage;
  stage.addComputer("O'BRIEN", kHost + "[result]\nuninstall = 152\n");
  stage.addComputer("HOST1", "[host]\naddress = 10.1.1.12\ntype = 7\nanswers = yes\n");
  Stage::execute(
      "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual, Agentless) VALUES "
      "('HOST1', 1, 'C:', 0, 1)");
  stage.writeFile("list.txt", "O'BRIEN\nHOST1\n");
  const auto outcome = stage.run({"-U", "-F:list.txt"});
  ASSERT_THAT(outcome.log, SizeIs(2));
  EXPECT_THAT(outcome.log[0],
              StartsWith("<time> :: Error occurred while installing agent on O'BRIEN. Error:"));
  EXPECT_EQ(outcome.log[1], "<time> :: HOST1: Agent uninstalled successfully.");
}

TEST(HostileInventory, AMissingDataSourceIsSaidAndNothingIsAskedOfTheLibrary) {
  Stage stage;
  std::filesystem::remove(stage.home() / "odbc.ini");
  std::filesystem::remove(stage.home().parent_path() / "odbc.ini");
  const auto outcome = stage.run({"-I", "-N:HOST1"});
  EXPECT_EQ(outcome.exitStatus, 1);
  EXPECT_THAT(outcome.standardError, AllOf(HasSubstr("-2147467259"), HasSubstr("qrvdb")));
  EXPECT_THAT(outcome.calls, IsEmpty());
}

TEST(HostileInventory, AMissingTableCostsItsStepsAndIsLogged) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  know("HOST1");
  Stage::execute("DROP TABLE Module_Table");
  const auto outcome = stage.run({"-I", "-N:HOST1"});
  EXPECT_EQ(outcome.exitStatus, 0);
  ASSERT_THAT(outcome.log, testing::Contains(
                               StartsWith("<time> :: Error occurred while installing agent on HOST1. ERROR : "
                                          "-2147217900 Descr: ")));
}

TEST(HostileInventory, AnOlderTableWithoutTheColumnSystemTypeServes) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  Stage::execute("DROP TABLE Module_Table");
  Stage::execute(
      "CREATE TABLE Module_Table (System_Name VARCHAR(256), Module_ID INTEGER, Install_Directory "
      "VARCHAR(1024), "
      "Manual INTEGER, Agentless INTEGER, Port INTEGER)");
  const auto outcome = stage.run({"-I", "-N:HOST1"});
  EXPECT_THAT(outcome.log, LinesAre({"<time> :: HOST1: Installed successfully"}));
  EXPECT_THAT(Stage::agents(), SizeIs(1));
}

TEST(HostileLibrary, AMissingLibraryIsNamedInTheLogAndLeavesTheInventoryAlone) {
  Stage stage;
  know("HOST1");
  stage.takeLibraryAway();
  const auto outcome = stage.run({"-I", "-N:HOST1"});
  EXPECT_EQ(outcome.exitStatus, 0);
  ASSERT_FALSE(outcome.log.empty());
  EXPECT_THAT(outcome.log[0],
              AllOf(StartsWith("<time> :: Error occurred while installing agent on HOST1. ERROR : 53 "
                               "Descr: "),
                    HasSubstr("qrvUtil")));
  EXPECT_THAT(outcome.log.back(), StartsWith("<time> :: Failed to install on HOST1. Error: "));
  EXPECT_THAT(Stage::agents(), IsEmpty());
}

TEST(HostileLibrary, AMissingFunctionIsNamedInTheLogAndLeavesTheInventoryAlone) {
  Stage stage;
  know("HOST1");
  stage.putLibrary("hollow");
  const auto outcome = stage.run({"-I", "-N:HOST1"});
  EXPECT_EQ(outcome.exitStatus, 0);
  ASSERT_FALSE(outcome.log.empty());
  EXPECT_THAT(outcome.log[0],
              AllOf(StartsWith("<time> :: Error occurred while installing agent on HOST1. ERROR : 453 "
                               "Descr: "),
                    HasSubstr("qrvGetSystemIPAddress")));
  EXPECT_THAT(Stage::agents(), IsEmpty());
}

TEST(HostileLibrary, AMissingLibraryGivesAnUninstallUp) {
  Stage stage;
  Stage::execute(
      "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual, Agentless) VALUES "
      "('HOST1', 1, 'C:', 0, 0)");
  stage.takeLibraryAway();
  const auto outcome = stage.run({"-U", "-N:HOST1"});
  ASSERT_THAT(outcome.log, SizeIs(1));
  EXPECT_THAT(outcome.log[0], StartsWith("<time> :: Error occurred while installing agent on HOST1. Error:"));
  EXPECT_THAT(Stage::agents(), SizeIs(1));
}

}  // namespace
}  // namespace varnhold::cli
