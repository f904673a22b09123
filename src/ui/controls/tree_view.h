#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "ui/controls/control.h"
#include "ui/controls/image.h"
#include "ui/controls/tree_node.h"

namespace varnhold::ui {

/// A view of a tree view's nodes.
class TreeControlView : public ControlView {
 public:
  virtual void nodeAdded(const TreeNode& node) = 0;
  /// All nodes are gone, and with them every `TreeNode` that the view knows.
  virtual void nodesCleared() = 0;
  /// The text, the picture or whether it is expanded has changed.
  virtual void nodeChanged(const TreeNode& node) = 0;
  /// Another node is selected: `TreeView::SelectedItem`.
  virtual void selectionChanged() = 0;
  virtual void ensureVisible(const TreeNode& node) = 0;
};

/// How a new node stands to the one that is named with it.
enum class Relationship { Child = 4 };

/// The nodes of a tree view, counted from 1 in the order in which they were added.
class TreeNodes {
 public:
  explicit TreeNodes(TreeView& tree) : tree_(tree) {}
  TreeNodes(const TreeNodes&) = delete;
  TreeNodes& operator=(const TreeNodes&) = delete;

  /// A new node at the top. `image` counts from 1. Keys compare as exact strings; an empty key is none. Error
  /// 35602 for a key that is there already.
  TreeNode& Add(const std::string& key, const std::string& text, int image = 0);
  /// A new node as the last child of the node with the key `relative`. Error 35601 where there is no such
  /// node, 35602 for a key that is there already.
  TreeNode& Add(const std::string& relative, Relationship relationship, const std::string& key,
                const std::string& text, int image = 0);
  void Clear();

  [[nodiscard]] int Count() const { return static_cast<int>(nodes_.size()); }
  /// Error 35600 for an index outside 1 to the count.
  [[nodiscard]] TreeNode& operator()(int index) const;
  /// Error 35601 where there is no such node.
  [[nodiscard]] TreeNode& operator()(const std::string& key) const;

 private:
  TreeNode& add(TreeNode* parent, const std::string& key, const std::string& text, int image);

  TreeView& tree_;
  std::vector<std::unique_ptr<TreeNode>> nodes_;
  std::unordered_map<std::string, TreeNode*> byKey_;
};

class TreeView : public Viewed<TreeControlView> {
 public:
  TreeNodes Nodes{*this};
  /// The pictures that nodes speak of; outlives the tree.
  Property<const ui::ImageList*> ImageList{*this, nullptr};

  [[nodiscard]] Ref<TreeNode> SelectedItem() const { return {selected_, "selected node"}; }
  /// Selects the node, or none. No event.
  void SetSelectedItem(TreeNode* node);

  /// The user chose a node, by mouse or keyboard; also when it was selected already.
  Event<TreeNode&> NodeClick{*this};
  Event<TreeNode&> Expand{*this}, Collapse{*this};
  /// A mouse button on a node, or on none.
  Event<MouseButton, TreeNode*> MouseDown{*this}, MouseUp{*this};

  [[nodiscard]] bool takesFocus() const override { return true; }

  /// What a user does. `node` counts from 1; outside 1 to the count it means the empty part of the tree.
  void userClick(int node);
  /// Opens or closes a node that has children. When a node is closed over the selected one, the closed one
  /// becomes the selected node, without NodeClick.
  void userExpand(int node, bool expanded);
  void userMouseDown(MouseButton button, int node);
  void userMouseUp(MouseButton button, int node);

  void restoreDesign() override;

 private:
  friend class TreeNode;
  friend class TreeNodes;

  void nodeAdded(const TreeNode& node);
  void nodesCleared();
  void nodeChanged(const TreeNode& node);
  void expansionSet(TreeNode& node);
  void showNode(const TreeNode& node);
  [[nodiscard]] TreeNode* nodeAt(int node) const;

  TreeNode* selected_ = nullptr;
};

}  // namespace varnhold::ui
