// The binder of tree views on a real widget, in both directions.
#include <gmock/gmock.h>
#include <wx/uiaction.h>

#include "tests/fakes/lines_are.h"
#include "tests/ui/wx/stage.h"
#include "tests/ui/wx/tree_reader.h"
#include "ui/wx/bind_tree_view.h"

namespace varnhold::ui::wx {
namespace {

using testing::IsEmpty;

const ImageList& nodePictures() {
  static const ImageList list({"group"});
  return list;
}

class TreeViewTest : public WxTest {
 protected:
  TreeViewTest() {
    form.Width = 6000;
    form.Height = 6000;
    tree.ImageList = &nodePictures();
    tree.NodeClick = [this](TreeNode& node) { journal.push_back("click " + node.Text); };
    tree.Expand = [this](TreeNode& node) { journal.push_back("expand " + node.Text); };
    tree.Collapse = [this](TreeNode& node) { journal.push_back("collapse " + node.Text); };
  }

  void SetUp() override {
    form.Show();
    fill({"Mail", "Web", "Branches"});
    settle();
  }
  void TearDown() override {
    form.Unload();
    settle();
  }

  void fill(const std::vector<std::string>& groups) {
    tree.Nodes.Clear();
    tree.Nodes.Add("root", "Groups", 1);
    for (const auto& group : groups) tree.Nodes.Add("root", Relationship::Child, group + "Key", group, 1);
  }
  void open() {
    tree.Nodes(1).Expanded = true;
    settle();
    journal.clear();
  }

  wxWindow& widget() { return form.widget<wxWindow>(); }
  void click(const wxPoint& at, int button = wxMOUSE_BTN_LEFT) {
    user.MouseMove(at);
    settle();
    user.MouseClick(button);
    settle();
  }
  void press(int key, int modifiers = wxMOD_NONE) {
    user.Char(key, modifiers);
    settle();
  }
  [[nodiscard]] std::string selected() const {
    return tree.SelectedItem() ? tree.SelectedItem()->Text.get() : std::string();
  }
  void hearMouse() {
    const auto told = [this](const std::string& what, MouseButton button, const TreeNode* node) {
      if (button == MouseButton::Right)
        journal.push_back(what + (node == nullptr ? "nothing" : node->Text.get()));
    };
    tree.MouseDown = [told](MouseButton button, TreeNode* node) { told("right down on ", button, node); };
    tree.MouseUp = [told](MouseButton button, TreeNode* node) { told("right up on ", button, node); };
  }

  OneControlForm<TreeView> form{screen, bindTreeView};
  TreeView& tree = form.control;
  wxUIActionSimulator user;
};

// From the control to the widget.

TEST_F(TreeViewTest, ShowsItsNodesWithTheirPictures) {
  EXPECT_THAT(nodesShown(widget()), LinesAre({"Groups", "  Mail", "  Web", "  Branches"}));
  EXPECT_TRUE(hasPicture(widget(), 1));
  EXPECT_TRUE(hasPicture(widget(), 4));
  EXPECT_FALSE(isNodeOpen(widget(), 1));
}

TEST_F(TreeViewTest, ShowsNodesThatComeGoAndChange) {
  open();
  tree.Nodes("MailKey").Text = "Post";
  settle();
  EXPECT_THAT(nodesShown(widget()), LinesAre({"Groups", "  Post", "  Web", "  Branches"}));
  EXPECT_TRUE(isNodeOpen(widget(), 1));
  fill({"Web"});
  settle();
  EXPECT_THAT(nodesShown(widget()), LinesAre({"Groups", "  Web"}));
  EXPECT_FALSE(isNodeOpen(widget(), 1)) << "the new root is closed";
}

TEST_F(TreeViewTest, OpensAndClosesWhatCodeOpensAndCloses) {
  tree.Nodes(1).Expanded = true;
  settle();
  EXPECT_TRUE(isNodeOpen(widget(), 1));
  tree.Nodes(1).Expanded = false;
  settle();
  EXPECT_FALSE(isNodeOpen(widget(), 1));
  EXPECT_THAT(journal, LinesAre({"expand Groups", "collapse Groups"})) << "once each, from the code";
}

TEST_F(TreeViewTest, SelectsWhatCodeSelectsAndTellsNobody) {
  open();
  tree.Nodes("WebKey").Select();
  settle();
  EXPECT_EQ(nodeSelected(widget()), "Web");
  tree.SetSelectedItem(nullptr);
  settle();
  EXPECT_EQ(nodeSelected(widget()), "");
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(TreeViewTest, ShowsTheNodeThatIsToBeSeen) {
  tree.Nodes("WebKey").EnsureVisible();
  settle();
  EXPECT_TRUE(isNodeOpen(widget(), 1));
  click(placeOfNode(widget(), 3));
  EXPECT_EQ(selected(), "Web");
}

TEST_F(TreeViewTest, SelectsNothingByGettingTheFocus) {
  form.other.SetFocus();
  settle();
  tree.SetFocus();
  settle();
  EXPECT_EQ(selected(), "");
  EXPECT_EQ(nodeSelected(widget()), "");
  EXPECT_THAT(journal, IsEmpty());
}

// From the user to the control.

TEST_F(TreeViewTest, TakesAClickAlsoOnTheSelectedNode) {
  open();
  click(placeOfNode(widget(), 3));
  EXPECT_EQ(selected(), "Web");
  auto beside = placeOfNode(widget(), 3);
  beside.x += 12;  // lest it be a double click
  click(beside);
  click(placeOfNode(widget(), 1));
  EXPECT_THAT(journal, LinesAre({"click Web", "click Web", "click Groups"}));
}

TEST_F(TreeViewTest, OpensAndClosesByMouseWithoutAClick) {
  click(placeOfOpener(widget(), 1));
  EXPECT_THAT(journal, LinesAre({"expand Groups"}));
  EXPECT_TRUE(tree.Nodes(1).Expanded.get());
  click(placeOfNode(widget(), 2));
  journal.clear();
  click(placeOfOpener(widget(), 1));
  EXPECT_FALSE(tree.Nodes(1).Expanded.get());
  EXPECT_EQ(selected(), "Groups") << "it was closed over the selected node";
  EXPECT_EQ(nodeSelected(widget()), "Groups");
  EXPECT_THAT(journal, LinesAre({"collapse Groups"}));
}

TEST_F(TreeViewTest, MovesOpensAndClosesWithTheArrowKeys) {
  click(placeOfNode(widget(), 1));
  journal.clear();
  press(WXK_RIGHT);
  press(WXK_DOWN);
  EXPECT_EQ(selected(), "Mail");
  press(WXK_LEFT);
  press(WXK_LEFT);
  EXPECT_THAT(journal, LinesAre({"expand Groups", "click Mail", "click Groups", "collapse Groups"}));
}

TEST_F(TreeViewTest, TellsARightPressAndLeavesTheSelectionToItsHandler) {
  open();
  click(placeOfNode(widget(), 2));
  hearMouse();
  journal.clear();
  click(placeOfNode(widget(), 4), wxMOUSE_BTN_RIGHT);
  EXPECT_THAT(journal, LinesAre({"right down on Branches", "right up on Branches"}));
  EXPECT_EQ(nodeSelected(widget()), "Mail");
}

TEST_F(TreeViewTest, TellsARightPressBesideTheNodes) {
  hearMouse();
  auto below = placeOfNode(widget(), 1);
  below.y += 100;
  click(below, wxMOUSE_BTN_RIGHT);
  ASSERT_FALSE(journal.empty());
  EXPECT_EQ(journal.front(), "right down on nothing");
}

TEST_F(TreeViewTest, TakesTheMenuKeyForARightPressOnTheSelectedNode) {
  open();
  click(placeOfNode(widget(), 3));
  hearMouse();
  journal.clear();
  press(WXK_F10, wxMOD_SHIFT);
  EXPECT_THAT(journal, LinesAre({"right down on Web"}));
}

TEST_F(TreeViewTest, TakesNothingWhileItIsDisabled) {
  open();
  tree.Enabled = false;
  settle();
  click(placeOfNode(widget(), 3));
  EXPECT_EQ(selected(), "");
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(TreeViewTest, SurvivesNodesThatGoUnderAClick) {
  open();
  tree.NodeClick = [this](TreeNode&) { fill({}); };
  click(placeOfNode(widget(), 3));
  EXPECT_THAT(nodesShown(widget()), LinesAre({"Groups"}));
}

TEST_F(TreeViewTest, ShowsAThousandNodesAtOnce) {
  std::vector<std::string> groups;
  for (int i = 0; i < 1000; ++i) groups.push_back("Group " + std::to_string(i));
  fill(groups);
  tree.Nodes("Group 999Key").EnsureVisible();
  tree.Nodes("Group 999Key").Select();
  wxStopWatch watch;
  stage.toolkit().pumpEvents();
  EXPECT_LT(watch.Time(), 1000);
  settle();
  EXPECT_EQ(nodesShown(widget()).size(), 1001u);
  EXPECT_EQ(nodeSelected(widget()), "Group 999");
}

}  // namespace
}  // namespace varnhold::ui::wx
