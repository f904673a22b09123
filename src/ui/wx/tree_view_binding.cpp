#include "ui/wx/tree_view_binding.h"

#include <algorithm>
#include <utility>

#include "ui/wx/icons.h"
#include "ui/wx/popup_place.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

std::vector<NodeLook> looksOf(const ui::TreeView& tree) {
  std::vector<NodeLook> looks;
  for (int index = 1; index <= tree.Nodes.Count(); ++index) {
    const auto& node = tree.Nodes(index);
    const auto* parent = node.Parent();
    looks.push_back({parent == nullptr ? 0 : parent->Index(), shown(node.Text), node.Image});
  }
  return looks;
}

bool haveSameShape(const std::vector<NodeLook>& some, const std::vector<NodeLook>& others) {
  return std::equal(some.begin(), some.end(), others.begin(), others.end(),
                    [](const NodeLook& one, const NodeLook& other) { return one.parent == other.parent; });
}

int selectedIn(const ui::TreeView& tree) {
  const auto node = tree.SelectedItem();
  return node ? node->Index() : 0;
}

/// The nodes that the user could open or close: those with children, and nothing closed above them. Parents
/// first.
template <class Visit>
void forEachTurnable(const ui::TreeView& tree, const Visit& visit) {
  for (int index = 1; index <= tree.Nodes.Count(); ++index) {
    const auto& node = tree.Nodes(index);
    bool isSeen = !node.Children().empty();
    for (const auto* above = node.Parent(); above != nullptr; above = above->Parent()) {
      isSeen = isSeen && above->Expanded;
    }
    if (isSeen) visit(node);
  }
}

}  // namespace

TreeViewBinding::TreeViewBinding(wxWindow& window, ui::TreeView& tree, TreeWidget& nodes)
    : BoundView(window, tree), nodes_(nodes) {}

void TreeViewBinding::ensureVisible(const TreeNode& node) {
  revealed_ = node.Index();
  lookLater();
}

void TreeViewBinding::nodesChanged() {
  nodesStale_ = true;
  lookLater();
}

void TreeViewBinding::lookLater() {
  lookSoon([this](const ui::TreeView& tree) { look(tree); });
}

void TreeViewBinding::look(const ui::TreeView& tree) {
  if (readPending_) {
    lookLater();  // what the user has done comes first, lest it be taken back unheard
    return;
  }
  if (std::exchange(pictures_, tree.ImageList) != tree.ImageList) nodes_.showPictures(picturesOf(pictures_));
  lookAtNodes(tree);
  lookAtExpansion(tree);
  selected_ = selectedIn(tree);
  if (nodes_.selected() != selected_) nodes_.select(selected_);
  unchosen_ = 0;
  if (const int node = std::exchange(revealed_, 0); node >= 1 && node <= tree.Nodes.Count())
    nodes_.reveal(node);
}

void TreeViewBinding::lookAtNodes(const ui::TreeView& tree) {
  nodesStale_ = false;
  const auto before = std::exchange(looks_, looksOf(tree));
  if (!haveSameShape(before, looks_)) {
    nodes_.showNodes(looks_);
    return;
  }
  for (std::size_t place = 0; place < looks_.size(); ++place) {
    if (!(looks_[place] == before[place])) nodes_.showLook(static_cast<int>(place) + 1, looks_[place]);
  }
}

void TreeViewBinding::lookAtExpansion(const ui::TreeView& tree) {
  forEachTurnable(tree, [this](const TreeNode& node) {
    if (nodes_.isExpanded(node.Index()) != node.Expanded) nodes_.showExpanded(node.Index(), node.Expanded);
  });
}

void TreeViewBinding::listen() {
  nodes_.listen({.selectionMoved = [this] { selectionMoved(); },
                 .turned = [this] { readSoon(); },
                 .pressed = [this](MouseButton button, int node) { pressed(button, node); },
                 .released =
                     [this](MouseButton button, int node) {
                       post([button, node](ui::TreeView& tree) { tree.userMouseUp(button, node); });
                     }});
  widget().Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
    event.Skip();
    if (isQuiet()) return;
    focusArrives_ = true;
    post([this](ui::TreeView&) { focusArrives_ = false; });
  });
  // Right presses are told otherwise, so that this is always a key. The native tree keeps one of the keys for
  // itself.
  widget().Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent&) { menuByKey(); });
  widget().Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_F10 && event.GetModifiers() == wxMOD_SHIFT) {
      menuByKey();
    } else {
      event.Skip();
    }
  });
}

void TreeViewBinding::selectionMoved() {
  // A tree that gets the focus may select a node by itself. Nobody chose it, so it is taken back.
  if (focusArrives_) {
    unchosen_ = nodes_.selected();
    lookLater();
  } else {
    readSoon();
  }
}

void TreeViewBinding::pressed(MouseButton button, int node) {
  if (button == MouseButton::Right) {
    // What a right press does to the selection is for the form to say.
    const Quiet quiet(*this);
    if (nodes_.selected() != selected_) nodes_.select(selected_);
    widget().SetFocus();
  }
  post([button, node](ui::TreeView& tree) { tree.userMouseDown(button, node); });
  if (button == MouseButton::Right || node == 0) return;
  pressed_ = node;
  readSoon();
}

void TreeViewBinding::menuByKey() {
  post([this](ui::TreeView& tree) {
    const int node = selectedIn(tree);
    if (node != 0) nodes_.reveal(node);
    const PopUpPlace place(widget().ClientToScreen(nodes_.menuPlace(node)));
    tree.userMouseDown(MouseButton::Right, node);
  });
}

void TreeViewBinding::readSoon() {
  if (isQuiet() || std::exchange(readPending_, true)) return;
  post([this](ui::TreeView& tree) {
    readPending_ = false;
    read(tree);
  });
}

void TreeViewBinding::read(ui::TreeView& tree) {
  const int pressed = std::exchange(pressed_, 0);
  // Where nodes have changed meanwhile, nobody knows which one the user meant.
  if (nodesStale_) return;
  if (const int turned = turnedNode(tree); turned != 0) {
    pressed_ = pressed;
    readSoon();  // for what else is different
    tree.userExpand(turned, nodes_.isExpanded(turned));
    return;
  }
  const int node = nodes_.selected();
  const bool isChosen = node != unchosen_ && node != selectedIn(tree);
  if (node == 0 || (!isChosen && node != pressed)) return;
  tree.userClick(node);
}

int TreeViewBinding::turnedNode(const ui::TreeView& tree) const {
  int turned = 0;
  forEachTurnable(tree, [&](const TreeNode& node) {
    if (turned == 0 && nodes_.isExpanded(node.Index()) != node.Expanded) turned = node.Index();
  });
  return turned;
}

}  // namespace varnhold::ui::wx
