// What the console's tree and list hold, and what is shown when the inventory fails.
#include <gmock/gmock.h>

#include "tests/console/console_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class ListsTest : public OpenConsoleTest {
 protected:
  /// A click on the node of this text.
  void click(const std::string& text) {
    for (int i = 1; i <= frmMain.tvTreeView.Nodes.Count(); ++i) {
      if (frmMain.tvTreeView.Nodes(i).Text == text) return frmMain.tvTreeView.userClick(i);
    }
    ADD_FAILURE() << "no node " << text;
  }
};

TEST_F(ListsTest, ShowsGroupsInTheOrderOfTheirRules) {
  addGroup("Web");
  addGroup("Accounts");
  inventory.execute("INSERT INTO System_Group_Master (Group_Name, Auto) VALUES ('No rule', 0)");
  frmMain.LoadTree();
  EXPECT_THAT(nodes(), LinesAre({"Groups", "Web", "Accounts"}));
  auto& tree = frmMain.tvTreeView;
  EXPECT_EQ(tree.Nodes(1).Key(), "qrv_Root_Node_Key");
  EXPECT_EQ(tree.Nodes(2).Key(), "WebKey");
  EXPECT_EQ(tree.Nodes(2).Parent(), &tree.Nodes(1));
  EXPECT_EQ(tree.Nodes(1).Image, 1);
  EXPECT_EQ(tree.Nodes(2).Image, 1);
}

TEST_F(ListsTest, EndsTheTreeAtASecondRuleOfOneGroupWithoutAWord) {
  addGroup("Web");
  inventory.execute("INSERT INTO System_Group_Detail (Group_Name, OS_Type) VALUES ('Web', 4)");
  addGroup("Later");
  frmMain.LoadTree();
  EXPECT_THAT(nodes(), LinesAre({"Groups", "Web"}));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(ListsTest, ShowsTheRootAloneWithoutATableOfRules) {
  inventory.execute("DROP TABLE System_Group_Detail");
  frmMain.LoadTree();
  EXPECT_THAT(nodes(), LinesAre({"Groups"}));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(ListsTest, ShowsEveryComputer) {
  addComputer("ZEUS", 7, "Mail", "10.1.1.9");
  addComputer("ATLAS", 301);
  addComputer("RULE", 99999);
  addComputer("ODD", 12);
  addAgent("zeus", 1);
  EXPECT_TRUE(frmMain.LoadAllComputers("Reading..."));
  EXPECT_THAT(rows(), LinesAre({"ATLAS|SysLog System|-none-|Unmanaged|", "ODD|...|-none-|Unmanaged|",
                                "ZEUS|Windows 2000 - Server|Mail|Managed - Standard Mode|32001"}));
  auto& row = frmMain.lvListView.ListItems(3);
  EXPECT_EQ(row.Tag, "10.1.1.9");
  EXPECT_EQ(row.SmallIcon, 1);
  EXPECT_EQ(listTitle(), " All Domain Computers");
  EXPECT_EQ(panel(1), "Displaying Windows Systems");
  EXPECT_EQ(panel(3), "3 Systems");
  EXPECT_FALSE(isBusy());
  EXPECT_TRUE(frmMain.lvListView.Sorted);
}

TEST_F(ListsTest, ReplacesWhatTheListHeld) {
  addComputer("HOST1");
  EXPECT_TRUE(frmMain.LoadAllComputers("Reading..."));
  inventory.execute("DELETE FROM System_Table");
  addComputer("HOST2");
  EXPECT_TRUE(frmMain.LoadAllComputers("Reading..."));
  EXPECT_THAT(names(), LinesAre({"HOST2"}));
}

TEST_F(ListsTest, ShowsAGroupsMembersUnderItsDescription) {
  addComputer("HOST1");
  addComputer("HOST2");
  addComputer("RULE", 99999);
  addGroup("Web", {"HOST2", "RULE", "GONE"}, "All web servers");
  EXPECT_TRUE(frmMain.LoadGroupMembers("Web", "Reading..."));
  // Deliberately without the filter of the whole list.
  EXPECT_THAT(names(), LinesAre({"HOST2", "RULE"}));
  EXPECT_EQ(listTitle(), "Web - All web servers");
  EXPECT_THAT(statements(),
              LinesAre({"SQL: SELECT * FROM System_Group, System_Table WHERE Group_Name = 'Web' AND "
                        "System_Group.System_Name = System_Table.System_Name",
                        "SQL: SELECT * FROM System_Group_Master WHERE Group_Name = 'Web'",
                        "SQL: SELECT * FROM Module_Table"}));
}

TEST_F(ListsTest, TakesTheNameGroupsForTheMembersOfEveryGroup) {
  for (const char* name : {"HOST1", "HOST2", "HOST3"}) addComputer(name);
  addGroup("Web", {"HOST1", "HOST2"});
  addGroup("Mail", {"HOST1"});
  EXPECT_TRUE(frmMain.LoadGroupMembers("Groups", "Reading..."));
  EXPECT_THAT(names(), LinesAre({"HOST1", "HOST1", "HOST2"}));
  EXPECT_EQ(listTitle(), " All Domain Computers");
}

TEST_F(ListsTest, ComparesTheNameGroupsExactly) {
  addComputer("HOST1");
  addGroup("GROUPS", {"HOST1"}, "in capitals");
  EXPECT_TRUE(frmMain.LoadGroupMembers("GROUPS", "Reading..."));
  EXPECT_EQ(listTitle(), "GROUPS - in capitals");
}

TEST_F(ListsTest, FailsForTheNameGroupsWithoutATableOfGroups) {
  inventory.execute("DROP TABLE System_Group_Master");
  EXPECT_FALSE(frmMain.LoadGroupMembers("Groups", "Reading..."));
  EXPECT_THAT(boxes(), ElementsAre(StartsWith("MessageBox critical: ")));
}

TEST_F(ListsTest, IsBusyWhileItReads) {
  StatusWatch watch(frmMain.sbStatusBar, fake.journal);
  EXPECT_TRUE(frmMain.LoadAllComputers("One moment"));
  EXPECT_THAT(fake.journal,
              LinesAre({"Status One moment", "SQL: SELECT * FROM System_Table WHERE System_Type <> 99999",
                        "SQL: SELECT * FROM Module_Table", "Status Displaying Windows Systems"}));
}

TEST_F(ListsTest, ShowsBusyAndFree) {
  addComputer("HOST1");
  EXPECT_TRUE(frmMain.LoadAllComputers("Reading..."));
  frmMain.ShowBusy("Working");
  EXPECT_EQ(panel(1), "Working");
  EXPECT_EQ(panel(3), "...");
  EXPECT_TRUE(isBusy());
  frmMain.ShowFree("Done");
  EXPECT_EQ(panel(1), "Done");
  EXPECT_EQ(panel(3), "1 Systems");
  EXPECT_FALSE(isBusy());
}

TEST_F(ListsTest, KeepsTheRowsWithoutStatusWhereTheAgentsCannotBeRead) {
  addComputer("HOST1");
  inventory.execute("DROP TABLE Module_Table");
  EXPECT_TRUE(frmMain.LoadAllComputers("Reading..."));
  EXPECT_THAT(rows(), LinesAre({"HOST1|Windows XP|-none-||"}));
  EXPECT_THAT(boxes(), ElementsAre(StartsWith("MessageBox critical: "),
                                   "MessageBox critical: Could not display agent status."));
  EXPECT_FALSE(isBusy());
}

TEST_F(ListsTest, FailsAtAComputerWithoutTypeAndKeepsTheRowsBeforeIt) {
  addComputer("HOST1");
  // The filter of the whole list would leave such a computer out.
  inventory.execute("INSERT INTO System_Table (System_Name) VALUES ('HOST2')");
  addGroup("Web", {"HOST1", "HOST2"});
  EXPECT_FALSE(frmMain.LoadGroupMembers("Web", "Reading..."));
  EXPECT_THAT(names(), testing::Contains("HOST1"));
  EXPECT_THAT(boxes(), LinesAre({"MessageBox critical: Invalid use of Null"}));
  EXPECT_TRUE(frmMain.lvListView.Sorted);
  EXPECT_EQ(panel(1), "Displaying Windows Systems");
}

// What the user sees when the inventory fails while the console is open.

TEST_F(ListsTest, SaysSoForAClickOnTheRootWithoutATableOfComputers) {
  addComputer("HOST1");
  addGroup("Web", {"HOST1"});
  open();
  click("Web");
  inventory.execute("DROP TABLE System_Table");
  fake.journal.clear();
  click("Groups");
  EXPECT_THAT(boxes(), ElementsAre(testing::AllOf(StartsWith("MessageBox critical: "),
                                                  testing::HasSubstr("System_Table")),
                                   "MessageBox exclamation: Could not retrieve members."));
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_FALSE(isBusy());
}

TEST_F(ListsTest, SaysSoForAGroupWithoutATableOfMembers) {
  addGroup("Web");
  open();
  inventory.execute("DROP TABLE System_Group");
  click("Web");
  EXPECT_THAT(boxes(), ElementsAre(StartsWith("MessageBox critical: "),
                                   "MessageBox exclamation: Could not retrieve group members."));
}

TEST_F(ListsTest, SaysSoForAGroupWithAnApostrophe) {
  addComputer("HOST1");
  addGroup("Jo''s", {"HOST1"});
  open();
  click("Jo's");
  EXPECT_THAT(boxes(), ElementsAre(StartsWith("MessageBox critical: "),
                                   "MessageBox exclamation: Could not retrieve group members."));
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_EQ(frmMain.CurrentNodeText, "Jo's");
}

TEST_F(ListsTest, SaysSoForAGroupWithoutAMasterRow) {
  addComputer("HOST1");
  addGroup("Web", {"HOST1"});
  open();
  inventory.execute("DELETE FROM System_Group_Master");
  click("Web");
  EXPECT_THAT(boxes(), ElementsAre(StartsWith("MessageBox critical: "),
                                   "MessageBox exclamation: Could not retrieve group members."));
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(ListsTest, SaysSoWhenTheDatabaseHasGone) {
  addGroup("Web");
  open();
  program.gConn.Close();
  click("Web");
  EXPECT_THAT(boxes(), ElementsAre(StartsWith("MessageBox critical: "),
                                   "MessageBox exclamation: Could not retrieve group members."));
  fake.journal.clear();
  click("Groups");
  EXPECT_THAT(boxes(), ElementsAre(StartsWith("MessageBox critical: "),
                                   "MessageBox exclamation: Could not retrieve members."));
  fake.journal.clear();
  frmMain.LoadTree();
  EXPECT_THAT(nodes(), LinesAre({"Groups"}));
  EXPECT_THAT(boxes(), IsEmpty());
}

}  // namespace
}  // namespace varnhold::console
