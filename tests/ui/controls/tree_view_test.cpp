#include "ui/controls/tree_view.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

#include "tests/ui/controls/recording_form.h"

namespace varnhold::ui {
namespace {

using testing::IsEmpty;

/// A view that writes down what it is told.
class RecordingTreeView : public TreeControlView {
 public:
  std::vector<std::string> told;
  void sync() override { told.push_back("sync"); }
  void nodeAdded(const TreeNode& node) override { told.push_back("added " + node.Text); }
  void nodesCleared() override { told.push_back("cleared"); }
  void nodeChanged(const TreeNode& node) override { told.push_back("changed " + node.Text); }
  void selectionChanged() override { told.push_back("selection"); }
  void ensureVisible(const TreeNode& node) override { told.push_back("show " + node.Text); }
};

class TreeViewTest : public testing::Test {
 protected:
  TreeViewTest() {
    tree.Nodes.Add("root", "Groups", 1);
    tree.Nodes.Add("root", Relationship::Child, "BerlinKey", "Berlin", 1);
    tree.Nodes.Add("root", Relationship::Child, "ParisKey", "Paris", 1);
    tree.NodeClick = [this](TreeNode& node) { seen.push_back("click " + node.Text); };
    tree.Expand = [this](TreeNode& node) { seen.push_back("expand " + node.Text); };
    tree.Collapse = [this](TreeNode& node) { seen.push_back("collapse " + node.Text); };
  }
  TreeView tree;
  std::vector<std::string> seen;
};

TEST_F(TreeViewTest, CountsNodesInTheOrderInWhichTheyWereAdded) {
  EXPECT_EQ(tree.Nodes.Count(), 3);
  EXPECT_EQ(tree.Nodes(1).Text, "Groups");
  EXPECT_EQ(tree.Nodes(3).Text, "Paris");
  EXPECT_EQ(tree.Nodes(3).Index(), 3);
  EXPECT_EQ(tree.Nodes(3).Image, 1);
  EXPECT_EQ(tree.Nodes("BerlinKey").Index(), 2);
  EXPECT_EQ(tree.Nodes(2).Key(), "BerlinKey");
  EXPECT_EQ(tree.Nodes(2).Parent(), &tree.Nodes(1));
  EXPECT_EQ(tree.Nodes(1).Parent(), nullptr);
  EXPECT_THAT(tree.Nodes(1).Children(), testing::ElementsAre(&tree.Nodes(2), &tree.Nodes(3)));
}

TEST_F(TreeViewTest, RefusesAKeyThatItHasAlready) {
  EXPECT_EQ(errorOf([&] { tree.Nodes.Add("root", Relationship::Child, "ParisKey", "Paris", 1); }), 35602);
  EXPECT_EQ(errorOf([&] { tree.Nodes.Add("root", "again"); }), 35602);
  EXPECT_EQ(tree.Nodes.Count(), 3);
  EXPECT_EQ(tree.Nodes(1).Children().size(), 2u);
}

TEST_F(TreeViewTest, TakesKeysOfAnotherCaseForOthers) {
  tree.Nodes.Add("root", Relationship::Child, "PARISKey", "PARIS");
  EXPECT_EQ(tree.Nodes.Count(), 4);
}

TEST_F(TreeViewTest, TakesAnyNumberOfNodesWithoutAKey) {
  tree.Nodes.Add("", "one");
  tree.Nodes.Add("", "two");
  EXPECT_EQ(tree.Nodes.Count(), 5);
}

TEST_F(TreeViewTest, RefusesWhatIsNotThere) {
  EXPECT_EQ(errorOf([&] { tree.Nodes.Add("nowhere", Relationship::Child, "k", "x"); }), 35601);
  EXPECT_EQ(errorOf([&] { (void)tree.Nodes("nowhere"); }), 35601);
  EXPECT_EQ(errorOf([&] { (void)tree.Nodes(0); }), 35600);
  EXPECT_EQ(errorOf([&] { (void)tree.Nodes(4); }), 35600);
  EXPECT_EQ(errorOf([&] { (void)tree.SelectedItem()->Index(); }), 91);
}

TEST_F(TreeViewTest, TakesItsKeysAgainAfterClear) {
  tree.Nodes(1).Select();
  tree.Nodes.Clear();
  EXPECT_EQ(tree.Nodes.Count(), 0);
  EXPECT_FALSE(tree.SelectedItem());
  tree.Nodes.Add("root", "Groups", 1);
  EXPECT_EQ(tree.Nodes.Count(), 1);
}

TEST_F(TreeViewTest, RaisesNodeClickForTheUserAlsoOnTheSelectedNode) {
  tree.userClick(2);
  tree.userClick(2);
  tree.userClick(0);
  EXPECT_THAT(seen, LinesAre({"click Berlin", "click Berlin"}));
  EXPECT_TRUE(tree.Nodes(2).Selected());
}

TEST_F(TreeViewTest, RaisesNothingWhenCodeSelects) {
  tree.Nodes(3).Select();
  EXPECT_EQ(tree.SelectedItem()->Text, "Paris");
  tree.SetSelectedItem(nullptr);
  EXPECT_FALSE(tree.SelectedItem());
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(TreeViewTest, RaisesExpandAndCollapseForTheUserAndForCode) {
  tree.Nodes(1).Expanded = true;
  tree.Nodes(1).Expanded = true;
  tree.userExpand(1, false);
  tree.userExpand(1, false);
  EXPECT_THAT(seen, LinesAre({"expand Groups", "collapse Groups"}));
}

TEST_F(TreeViewTest, DoesNotExpandANodeWithoutChildren) {
  tree.Nodes(2).Expanded = true;
  tree.userExpand(3, true);
  EXPECT_FALSE(tree.Nodes(2).Expanded);
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(TreeViewTest, SelectsTheNodeThatIsClosedOverTheSelectedOne) {
  tree.Nodes(1).Expanded = true;
  tree.Nodes(3).Select();
  seen.clear();
  tree.userExpand(1, false);
  EXPECT_EQ(tree.SelectedItem()->Text, "Groups");
  EXPECT_THAT(seen, LinesAre({"collapse Groups"}));
}

TEST_F(TreeViewTest, OpensWhatANodeStandsUnderToShowIt) {
  RecordingTreeView view;
  tree.attach(view);
  tree.Nodes(3).EnsureVisible();
  EXPECT_TRUE(tree.Nodes(1).Expanded);
  EXPECT_THAT(seen, LinesAre({"expand Groups"}));
  EXPECT_EQ(view.told.back(), "show Paris");
}

TEST_F(TreeViewTest, TellsMouseButtonsWithTheNodeUnderThePointer) {
  tree.MouseDown = [this](MouseButton button, TreeNode* node) {
    seen.push_back((button == MouseButton::Right ? "right " : "left ") +
                   (node ? node->Text.get() : "nothing"));
  };
  tree.MouseUp = [this](MouseButton, TreeNode* node) { seen.push_back(node ? "up" : "up beside"); };
  tree.userMouseDown(MouseButton::Right, 2);
  tree.userMouseUp(MouseButton::Right, 2);
  tree.userMouseDown(MouseButton::Right, 0);
  EXPECT_THAT(seen, LinesAre({"right Berlin", "up", "right nothing"}));
  EXPECT_FALSE(tree.SelectedItem());
}

TEST_F(TreeViewTest, IsOutOfTheUsersReachWhileDisabled) {
  tree.Enabled = false;
  tree.userClick(2);
  tree.userExpand(1, true);
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(TreeViewTest, TellsItsViewWhatHasChanged) {
  RecordingTreeView view;
  tree.attach(view);
  tree.Nodes.Add("root", Relationship::Child, "RomeKey", "Rome");
  tree.Nodes(4).Select();
  tree.Nodes(4).Select();
  tree.Nodes(4).Text = "Roma";
  tree.Nodes(1).Expanded = true;
  tree.Nodes.Clear();
  EXPECT_THAT(view.told, LinesAre({"added Rome", "selection", "changed Roma", "changed Groups", "cleared"}));
}

TEST_F(TreeViewTest, ComesBackWithoutNodes) {
  tree.keepDesign();
  tree.restoreDesign();
  EXPECT_EQ(tree.Nodes.Count(), 0);
}

TEST_F(TreeViewTest, SurvivesAHandlerThatRebuildsIt) {
  tree.NodeClick = [this](TreeNode&) {
    tree.Nodes.Clear();
    tree.Nodes.Add("root", "Groups");
  };
  tree.userClick(2);
  EXPECT_EQ(tree.Nodes.Count(), 1);
}

}  // namespace
}  // namespace varnhold::ui
