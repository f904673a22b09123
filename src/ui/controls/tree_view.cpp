#include "ui/controls/tree_view.h"

#include "base/runtime_error.h"

namespace varnhold::ui {

TreeNode::TreeNode(TreeView& tree, TreeNode* parent, std::string key, std::string text, int index)
    : Text(*this, std::move(text)), tree_(tree), parent_(parent), key_(std::move(key)), index_(index) {}

bool TreeNode::Selected() const {
  return tree_.SelectedItem().get() == this;
}

void TreeNode::Select() {
  tree_.SetSelectedItem(this);
}

void TreeNode::EnsureVisible() {
  if (parent_ != nullptr) {
    parent_->EnsureVisible();
    parent_->Expanded = true;
  }
  tree_.showNode(*this);
}

void TreeNode::changed(const void* value) {
  if (value == &Expanded) {
    tree_.expansionSet(*this);
  } else {
    tree_.nodeChanged(*this);
  }
}

TreeNode& TreeNodes::Add(const std::string& key, const std::string& text, int image) {
  return add(nullptr, key, text, image);
}

TreeNode& TreeNodes::Add(const std::string& relative, Relationship, const std::string& key,
                         const std::string& text, int image) {
  return add(&(*this)(relative), key, text, image);
}

TreeNode& TreeNodes::add(TreeNode* parent, const std::string& key, const std::string& text, int image) {
  if (!key.empty() && byKey_.contains(key)) {
    throw RuntimeError(kKeyNotUnique, "Key is not unique in collection: \"" + key + "\" is there already.");
  }
  nodes_.push_back(std::make_unique<TreeNode>(tree_, parent, key, text, Count() + 1));
  auto& node = *nodes_.back();
  node.Image.settle(image);
  if (!key.empty()) byKey_[key] = &node;
  if (parent != nullptr) parent->children_.push_back(&node);
  tree_.nodeAdded(node);
  return node;
}

void TreeNodes::Clear() {
  tree_.nodesCleared();
  byKey_.clear();
  nodes_.clear();
}

TreeNode& TreeNodes::operator()(int index) const {
  checkIndex("node", index, nodes_.size());
  return *nodes_[static_cast<std::size_t>(index) - 1];
}

TreeNode& TreeNodes::operator()(const std::string& key) const {
  const auto found = byKey_.find(key);
  if (found == byKey_.end()) {
    throw RuntimeError(kElementNotFound, "Element not found: there is no node with the key \"" + key + "\".");
  }
  return *found->second;
}

void TreeView::SetSelectedItem(TreeNode* node) {
  if (selected_ == node) return;
  selected_ = node;
  if (view() != nullptr) view()->selectionChanged();
}

void TreeView::nodeAdded(const TreeNode& node) {
  if (view() != nullptr) view()->nodeAdded(node);
}

void TreeView::nodesCleared() {
  selected_ = nullptr;
  if (view() != nullptr) view()->nodesCleared();
}

void TreeView::nodeChanged(const TreeNode& node) {
  if (view() != nullptr) view()->nodeChanged(node);
}

void TreeView::expansionSet(TreeNode& node) {
  if (node.Children().empty()) {
    node.Expanded.settle(false);
    return;
  }
  nodeChanged(node);
  if (node.Expanded) {
    Expand.raise(node);
  } else {
    Collapse.raise(node);
  }
}

void TreeView::showNode(const TreeNode& node) {
  if (view() != nullptr) view()->ensureVisible(node);
}

void TreeView::restoreDesign() {
  // Nodes are never part of a design.
  Nodes.Clear();
  Control::restoreDesign();
}

TreeNode* TreeView::nodeAt(int node) const {
  return node >= 1 && node <= Nodes.Count() ? &Nodes(node) : nullptr;
}

void TreeView::userClick(int node) {
  act([&] {
    auto* clicked = nodeAt(node);
    if (clicked == nullptr) return;
    SetSelectedItem(clicked);
    NodeClick.raise(*clicked);
  });
}

void TreeView::userExpand(int node, bool expanded) {
  act([&] {
    auto* turned = nodeAt(node);
    if (turned == nullptr) return;
    for (auto* above = selected_; above != nullptr && !expanded; above = above->Parent()) {
      if (above != turned) continue;
      SetSelectedItem(turned);
      break;
    }
    turned->Expanded = expanded;
  });
}

void TreeView::userMouseDown(MouseButton button, int node) {
  act([&] { MouseDown.raise(button, nodeAt(node)); });
}

void TreeView::userMouseUp(MouseButton button, int node) {
  act([&] { MouseUp.raise(button, nodeAt(node)); });
}

}  // namespace varnhold::ui
