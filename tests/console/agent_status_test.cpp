#include "console/agent_status.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/console/status_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

using testing::ElementsAre;

TEST_F(StatusTest, GivesEachKindOfAgentItsWords) {
  const struct {
    const char *type, *agents, *status;
  } cases[] = {
      {"Windows XP", "", "Unmanaged|"},
      {"Windows XP", "2,0,32001,0", "Tracking Changes|"},
      {"Windows XP", "1,0,32001,0", "Managed - Standard Mode|32001"},
      {"Windows XP", "1,NULL,32001,0", "Managed - Standard Mode|32001"},
      {"Windows XP", "1,1,32001,0", "Managed - Agentless Mode|32001"},
      {"Windows XP", "1,1,32001,1", "Managed - Agentless Mode|32001"},
      {"Windows XP", "1,2,32001,0", "Managed - Standard Mode|32001"},  // only 1 is agentless
      {"Windows XP", "1,0,32001,1", "Managed - High Performance Mode|32001"},
      {"Windows XP", "1,0,32001,2", "Unmanaged|"},
      {"Windows XP", "1,0,32001,NULL", "Unmanaged|"},
      {"Windows XP", "5,0,32001,1", "Unmanaged|"},
      {"Windows XP", "5,1,32001,0", "Unmanaged|"},
      {"SysLog System", "", "Unmanaged|"},
      {"SysLog System", "1,0,514,0", "Managed|514"},
      {"SysLog System", "1,0,514,1", "Managed|514"},
      {"SysLog System", "5,0,514,0", "Managed|514"},
      {"SysLog System", "7,NULL,514,NULL", "Managed|514"},
      {"SysLog System", "1,1,514,0", "Managed - Agentless Mode|514"},
      {"SysLog System", "5,1,514,0", "Unmanaged|"},
      {"SysLog System", "2,0,514,0", "Tracking Changes|"},
      {"syslog system", "1,0,514,0", "Managed - Standard Mode|514"},  // the type is compared exactly
  };
  for (const auto& [type, agents, status] : cases) {
    begin();
    add("HOST1", type);
    if (*agents != '\0') agent("HOST1", agents);
    EXPECT_TRUE(load());
    EXPECT_THAT(rows(), LinesAre({std::string("HOST1|") + status})) << type << " with " << agents;
  }
}

TEST_F(StatusTest, AppliesTheAgentsOfOneComputerOneAfterAnother) {
  const struct {
    const char *first, *second, *status;
  } cases[] = {
      {"2,0,1,0", "1,0,2,0", "Tracking Changes & Events|2"},
      {"1,0,2,0", "2,0,1,0", "Tracking Changes & Events|2"},
      // Deliberately one-sided: an agentless or high performance agent behind the change agent shows nowhere.
      {"2,0,1,0", "1,1,2,0", "Tracking Changes|"},
      {"1,1,2,0", "2,0,1,0", "Tracking Changes & Events|2"},
      {"2,0,1,0", "1,0,2,1", "Tracking Changes|"},
      {"1,0,2,1", "2,0,1,0", "Tracking Changes & Events|2"},
      {"1,0,2,1", "1,0,3,0", "Tracking Changes & Events|3"},
      {"1,0,2,0", "1,0,3,1", "Managed - Standard Mode|2"},
      {"2,0,1,0", "2,0,2,0", "Tracking Changes & Events|"},
  };
  for (const auto& [first, second, status] : cases) {
    begin();
    add("HOST1", "Windows XP");
    agent("HOST1", first);
    agent("HOST1", second);
    EXPECT_TRUE(load());
    EXPECT_THAT(rows(), LinesAre({std::string("HOST1|") + status})) << first << " then " << second;
  }
}

TEST_F(StatusTest, KeepsASysLogSystemsFirstStatus) {
  add("LOG1", "SysLog System");
  agent("LOG1", "2,0,1,0");
  agent("LOG1", "1,0,514,0");
  EXPECT_TRUE(load());
  EXPECT_THAT(rows(), LinesAre({"LOG1|Tracking Changes|"}));
}

TEST_F(StatusTest, SaysNotApplicableForOldWindowsAndKeepsThePort) {
  for (const char* type : {"Windows 95", "Windows 98", "Windows Me"}) {
    begin();
    add("OLD1", type);
    add("OLD2", type);
    agent("OLD1", "1,0,32001,0");
    EXPECT_TRUE(load());
    EXPECT_THAT(rows(), LinesAre({"OLD1|Not Applicable|32001", "OLD2|Not Applicable|"})) << type;
  }
}

TEST_F(StatusTest, LeavesEveryComputerUnmanagedWithoutAgents) {
  add("HOST1", "Windows XP");
  add("OLD1", "Windows 98");
  add("HOST2", "...");
  EXPECT_TRUE(load());
  EXPECT_THAT(rows(), LinesAre({"HOST1|Unmanaged|", "OLD1|Not Applicable|", "HOST2|Unmanaged|"}));
}

TEST_F(StatusTest, FindsAComputerWhateverTheCaseOfItsName) {
  add("Host1", "Windows XP");
  add("B\xC3\xBCro", "Windows XP");
  agent("hOST1", "1,0,32001,0");
  agent("B\xC3\x9CRO", "2,0,1,0");
  EXPECT_TRUE(load());
  EXPECT_THAT(rows(), LinesAre({"Host1|Managed - Standard Mode|32001", "B\xC3\xBCro|Tracking Changes|"}));
}

TEST_F(StatusTest, AppliesAnAgentToEveryRowOfItsName) {
  add("HOST1", "Windows XP");
  add("HOST2", "Windows XP");
  add("host1", "SysLog System");
  agent("Host1", "1,0,32001,0");
  EXPECT_TRUE(load());
  EXPECT_THAT(rows(),
              LinesAre({"HOST1|Managed - Standard Mode|32001", "HOST2|Unmanaged|", "host1|Managed|32001"}));
}

TEST_F(StatusTest, PassesOverAgentsOfComputersThatAreNotInTheList) {
  add("HOST1", "Windows XP");
  agent("HOST", "1,0,32001,0");
  agent("HOST10", "1,0,32001,0");
  EXPECT_TRUE(load());
  EXPECT_THAT(rows(), LinesAre({"HOST1|Unmanaged|"}));
}

TEST_F(StatusTest, LeavesTheRowsBeforeItsStartAlone) {
  add("HOST1", "Windows XP");
  add("HOST2", "Windows XP");
  agent("HOST1", "1,0,32001,0");
  agent("HOST2", "1,0,32001,0");
  EXPECT_TRUE(load(2));
  EXPECT_THAT(rows(), LinesAre({"HOST1||", "HOST2|Managed - Standard Mode|32001"}));
}

TEST_F(StatusTest, LeavesThePortCellAsItWasWhereThePortIsNull) {
  add("HOST1", "Windows XP");
  add("HOST2", "Windows XP");
  add("HOST3", "Windows XP");
  agent("HOST1", "1,0,NULL,0");
  agent("HOST2", "1,1,32001,0");
  agent("HOST2", "1,0,NULL,0");
  agent("HOST3", "1,0,32001,0");
  EXPECT_TRUE(load());
  EXPECT_THAT(rows(), LinesAre({"HOST1|Managed - Standard Mode|", "HOST2|Tracking Changes & Events|32001",
                                "HOST3|Managed - Standard Mode|32001"}));
  EXPECT_THAT(fake.journal, ElementsAre());
}

TEST_F(StatusTest, TakesEveryRealAgentForAStandardOneWhereTheColumnSystemTypeIsMissing) {
  withoutColumn("SystemType");
  add("STANDARD", "Windows XP");
  add("AGENTLESS", "Windows XP");
  add("LOG", "SysLog System");
  add("LOGAGENTLESS", "SysLog System");
  add("CHANGES", "Windows XP");
  add("BOTH", "Windows XP");
  add("FIVE", "Windows XP");
  add("LOGFIVE", "SysLog System");
  add("NULLPORT", "Windows XP");
  agentWithoutType("STANDARD", "1,0,32001");
  agentWithoutType("AGENTLESS", "1,1,32002");
  agentWithoutType("LOG", "1,0,514");
  agentWithoutType("LOGAGENTLESS", "1,1,515");
  agentWithoutType("CHANGES", "2,0,1");
  agentWithoutType("BOTH", "2,0,1");
  agentWithoutType("BOTH", "1,0,32003");
  agentWithoutType("FIVE", "5,0,32004");
  agentWithoutType("LOGFIVE", "5,0,516");
  agentWithoutType("NULLPORT", "1,0,NULL");
  EXPECT_TRUE(load());
  // The condition that fails counts as true, so that no later rule is ever asked: agentless computers and
  // SysLog systems without an agent of module 1 stay without status.
  EXPECT_THAT(
      rows(),
      LinesAre({"STANDARD|Managed - Standard Mode|", "AGENTLESS|Unmanaged|", "LOG|Managed - Standard Mode|",
                "LOGAGENTLESS|Unmanaged|", "CHANGES|Tracking Changes|", "BOTH|Tracking Changes & Events|",
                "FIVE|Unmanaged|", "LOGFIVE|Unmanaged|", "NULLPORT|Managed - Standard Mode|"}));
  EXPECT_THAT(fake.journal, ElementsAre());
}

TEST_F(StatusTest, RemembersAMissingPortUntilAnAgentOfAModeHasTakenItsPlace) {
  withoutColumn("Port");
  const auto agentWithoutPort = [&](const std::string& name, int systemType) {
    inventory.execute("INSERT INTO Module_Table (System_Name, Module_ID, Agentless, SystemType) VALUES ('" +
                      name + "', 1, 0, " + std::to_string(systemType) + ")");
  };
  for (const char* name : {"HOST1", "HOST2", "HOST3", "HOST4"}) {
    add(name, "Windows XP");
    agentWithoutPort(name, 1);
  }
  EXPECT_TRUE(load());
  // The first agent's port fails; the second meets the remembered error and counts as standard, which
  // forgets it.
  EXPECT_THAT(rows(), LinesAre({"HOST1|Managed - High Performance Mode|", "HOST2|Managed - Standard Mode|",
                                "HOST3|Managed - High Performance Mode|", "HOST4|Managed - Standard Mode|"}));
}

TEST_F(StatusTest, CountsEveryAgentAsAgentlessWhereTheColumnAgentlessIsMissing) {
  withoutColumn("Agentless");
  add("HOST1", "Windows XP");
  inventory.execute(
      "INSERT INTO Module_Table (System_Name, Module_ID, Port, SystemType) VALUES ('HOST1', 1, 32001, 0)");
  EXPECT_TRUE(load());
  EXPECT_THAT(rows(), LinesAre({"HOST1|Managed - Agentless Mode|32001"}));
}

TEST_F(StatusTest, ShowsAnyOtherErrorAndSaysFalse) {
  add("HOST1", "Windows XP");
  inventory.execute("DROP TABLE Module_Table");
  EXPECT_FALSE(load());
  EXPECT_THAT(rows(), LinesAre({"HOST1||"}));
  EXPECT_THAT(fake.journal, ElementsAre(testing::AllOf(testing::StartsWith("MessageBox critical: "),
                                                       testing::HasSubstr("Module_Table"))));
}

TEST_F(StatusTest, ShowsAClosedConnectionAndSaysFalse) {
  add("HOST1", "Windows XP");
  connection.Close();
  EXPECT_FALSE(load());
  EXPECT_THAT(fake.journal, ElementsAre(testing::StartsWith("MessageBox critical: ")));
}

}  // namespace
}  // namespace varnhold::console
