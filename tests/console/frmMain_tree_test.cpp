// Clicks in the console's tree and on the heads of its list, and Refresh with its rule of reselection.
#include <gmock/gmock.h>

#include "tests/console/console_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::console {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// HOST1 and HOST2; the group Web with HOST1, the group Mail with HOST2. The console is open.
class TreeTest : public OpenConsoleTest {
 protected:
  TreeTest() {
    addComputer("HOST1");
    addComputer("HOST2", 7, "Mail server");
    addGroup("Web", {"HOST1"});
    addGroup("Mail", {"HOST2"});
    open();
  }
  static constexpr int kRoot = 1, kWeb = 2, kMail = 3;

  ui::TreeView& tree = frmMain.tvTreeView;
  ui::ListView& list = frmMain.lvListView;
};

TEST_F(TreeTest, AClickShowsTheComputersOfTheNode) {
  tree.userClick(kMail);
  EXPECT_THAT(names(), LinesAre({"HOST2"}));
  EXPECT_EQ(frmMain.CurrentNodeText, "Mail");
  EXPECT_EQ(listTitle(), "Mail - picked by hand");
  tree.userClick(kRoot);
  EXPECT_THAT(names(), LinesAre({"HOST1", "HOST2"}));
  EXPECT_EQ(frmMain.CurrentNodeText, "Groups");
}

TEST_F(TreeTest, AClickOnTheNodeThatIsShownReloadsNothing) {
  tree.userClick(kWeb);
  fake.journal.clear();
  tree.userClick(kWeb);
  frmMain.CurrentNodeText = "WEB";
  tree.userClick(kWeb);
  EXPECT_THAT(statements(), IsEmpty());
}

TEST_F(TreeTest, AnyClickReloadsWhereNothingCountsAsShown) {
  frmMain.CurrentNodeText = "";
  tree.userClick(kRoot);
  EXPECT_THAT(statements(), testing::SizeIs(2));
  EXPECT_EQ(frmMain.CurrentNodeText, "Groups");
}

TEST_F(TreeTest, ClicksDoNothingWhileTheyAreSuppressed) {
  frmMain.SuppressNodeEvents = true;
  tree.userClick(kWeb);
  EXPECT_THAT(statements(), IsEmpty());
  EXPECT_EQ(frmMain.CurrentNodeText, "Groups");
}

TEST_F(TreeTest, NoNodeIsNoClick) {
  frmMain.tvTreeView_NodeClick(nullptr);
  EXPECT_THAT(statements(), IsEmpty());
}

TEST_F(TreeTest, OpeningAndClosingTheRootShowsEveryComputer) {
  for (const bool expanded : {true, false}) {
    tree.userClick(kWeb);
    tree.userExpand(kRoot, expanded);
    EXPECT_THAT(names(), LinesAre({"HOST1", "HOST2"})) << expanded;
    EXPECT_EQ(frmMain.CurrentNodeText, "Groups") << expanded;
  }
}

TEST_F(TreeTest, OpeningAndClosingTheRootThatIsShownReloadsNothing) {
  tree.userExpand(kRoot, true);
  tree.userExpand(kRoot, false);
  EXPECT_THAT(statements(), IsEmpty());
}

TEST_F(TreeTest, OpeningAndClosingDoNothingWhileTheyAreSuppressed) {
  tree.userClick(kWeb);
  frmMain.SuppressNodeEvents = true;
  tree.userExpand(kRoot, true);
  tree.userExpand(kRoot, false);
  EXPECT_THAT(names(), LinesAre({"HOST1"}));
}

TEST_F(TreeTest, RefreshRunsInItsDocumentedOrder) {
  fake.libraries.enumerationPolls = 0;
  StatusWatch watch(frmMain.sbStatusBar, fake.journal);
  frmMain.mnuViewRefresh_Click();
  EXPECT_THAT(
      fake.journal,
      ElementsAre("Status Refreshing...", "GetExitCodeThread 7 -> 1000", "CloseHandle 7",
                  "qrvNetworkEnum -> 8", "Status Reloading...", "SQL: SELECT * FROM System_Group_Detail",
                  "Status Reading...", "SQL: SELECT * FROM System_Table WHERE System_Type <> 99999",
                  "SQL: SELECT * FROM Module_Table", "Status Displaying Windows Systems",
                  testing::HasSubstr("MpDbResend")));
  EXPECT_EQ(program.gEnumThread, 8u);
  EXPECT_EQ(selectedNode(), "Groups");
}

class EnumeratingTreeTest : public OpenConsoleTest {
 protected:
  EnumeratingTreeTest() {
    fake.libraries.enumerationPolls = 1;
    open();
  }
};

TEST_F(EnumeratingTreeTest, RefreshLeavesAnEnumerationUnderWayAlone) {
  frmMain.mnuViewRefresh_Click();
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvNetworkEnum"), IsEmpty());
  EXPECT_EQ(program.gEnumThread, 7u);
}

TEST_F(EnumeratingTreeTest, RefreshEnumeratesAnewWhereTheThreadCannotBeAsked) {
  fake.threads.failsGetExitCode = true;
  frmMain.mnuViewRefresh_Click();
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvNetworkEnum"), LinesAre({"qrvNetworkEnum -> 8"}));
}

TEST_F(TreeTest, RefreshSelectsTheSameGroupAgain) {
  tree.userClick(kMail);
  inventory.execute("DELETE FROM System_Group_Detail");
  addGroup("New");
  inventory.execute("INSERT INTO System_Group_Detail (Group_Name, OS_Type) VALUES ('MAIL', 0), ('Mail', 0)");
  inventory.execute("INSERT INTO System_Group_Master (Group_Name, Description) VALUES ('MAIL', 'first')");
  frmMain.mnuViewRefresh_Click();
  // The first node whose name is the same but for its case.
  EXPECT_THAT(nodes(), LinesAre({"Groups", "New", "MAIL", "Mail"}));
  EXPECT_EQ(selectedNode(), "MAIL");
  EXPECT_EQ(listTitle(), "MAIL - first");
  EXPECT_EQ(frmMain.CurrentNodeText, "Mail");
  EXPECT_TRUE(tree.Nodes(1).Expanded);
  EXPECT_FALSE(frmMain.SuppressNodeEvents);
}

TEST_F(TreeTest, RefreshOpensTheRootWithoutLoadingForIt) {
  tree.userClick(kMail);
  fake.journal.clear();
  frmMain.mnuViewRefresh_Click();
  EXPECT_THAT(statements(), ElementsAre("SQL: SELECT * FROM System_Group_Detail",
                                        testing::HasSubstr("WHERE Group_Name = 'Mail' AND"),
                                        "SQL: SELECT * FROM System_Group_Master WHERE Group_Name = 'Mail'",
                                        "SQL: SELECT * FROM Module_Table"));
}

TEST_F(TreeTest, RefreshShowsEveryComputerWhereTheGroupHasGone) {
  tree.userClick(kMail);
  inventory.execute("DELETE FROM System_Group_Detail WHERE Group_Name = 'Mail'");
  frmMain.mnuViewRefresh_Click();
  EXPECT_THAT(names(), LinesAre({"HOST1", "HOST2"}));
  EXPECT_EQ(selectedNode(), "");
  EXPECT_EQ(frmMain.CurrentNodeText, "Mail");
}

TEST_F(TreeTest, RefreshWithoutASelectedNodeLeavesTheConsoleBusy) {
  tree.SetSelectedItem(nullptr);
  frmMain.mnuViewRefresh_Click();
  EXPECT_TRUE(isBusy());
  EXPECT_EQ(panel(1), "Refreshing...");
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(TreeTest, RefreshSaysSoWhenAGroupCannotBeRead) {
  tree.userClick(kMail);
  inventory.execute("DROP TABLE System_Group");
  frmMain.mnuViewRefresh_Click();
  EXPECT_THAT(boxes(), ElementsAre(testing::StartsWith("MessageBox critical: "),
                                   "MessageBox exclamation: Could not retrieve group members."));
  EXPECT_EQ(selectedNode(), "Mail");
}

TEST_F(TreeTest, SortsNamesAscendingAndAllElseDescendingHoweverOftenItIsClicked) {
  addComputer("HOST0", 7, "Aged");
  frmMain.reloadAll();
  for (int click = 0; click < 2; ++click) {
    list.userColumnClick(3);
    EXPECT_THAT(names(), LinesAre({"HOST2", "HOST0", "HOST1"})) << click;
    EXPECT_EQ(list.SortKey, 2);
    EXPECT_EQ(list.SortOrder, ui::SortOrder::Descending);
  }
  for (int click = 0; click < 2; ++click) {
    list.userColumnClick(1);
    EXPECT_THAT(names(), LinesAre({"HOST0", "HOST1", "HOST2"})) << click;
  }
}

TEST_F(TreeTest, LoadingKeepsTheOrderOfTheLastClick) {
  list.userColumnClick(2);
  frmMain.mnuViewRefresh_Click();
  EXPECT_THAT(names(), LinesAre({"HOST1", "HOST2"}));  // Windows XP before Windows 2000 - Server
  EXPECT_EQ(list.SortKey, 1);
}

TEST_F(TreeTest, ReloadingAllSelectsTheRoot) {
  tree.userClick(kMail);
  fake.journal.clear();
  frmMain.reloadAll();
  EXPECT_EQ(selectedNode(), "Groups");
  EXPECT_EQ(frmMain.CurrentNodeText, "Groups");
  EXPECT_THAT(names(), LinesAre({"HOST1", "HOST2"}));
}

TEST_F(TreeTest, ReselectingSearchesFromTheGivenNodeOn) {
  EXPECT_EQ(frmMain.reselectNode("groups", 2), nullptr);
  EXPECT_THAT(statements(), IsEmpty());
  EXPECT_TRUE(tree.Nodes(1).Expanded);
  // From the root on, its name means the members of every group.
  EXPECT_EQ(frmMain.reselectNode("groups", 1), &tree.Nodes(1));
  EXPECT_THAT(names(), LinesAre({"HOST1", "HOST2"}));
  EXPECT_EQ(frmMain.reselectNode("WEB", 1), &tree.Nodes(kWeb));
  EXPECT_THAT(names(), LinesAre({"HOST1"}));
  EXPECT_EQ(selectedNode(), "Web");
}

}  // namespace
}  // namespace varnhold::console
