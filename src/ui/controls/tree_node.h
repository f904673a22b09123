#pragma once

#include <string>
#include <vector>

#include "ui/controls/item_value.h"

namespace varnhold::ui {

class TreeView;

/// A node of a tree view. Its address stays the same until the tree is cleared.
class TreeNode {
 public:
  TreeNode(TreeView& tree, TreeNode* parent, std::string key, std::string text, int index);
  TreeNode(const TreeNode&) = delete;
  TreeNode& operator=(const TreeNode&) = delete;

  ItemValue<std::string, TreeNode> Text;
  /// A picture of the tree's `ImageList`, from 1; 0 for none.
  ItemValue<int, TreeNode> Image{*this};
  /// Its children are shown. Setting it raises Expand or Collapse, by code too. A node without children can't
  /// be expanded: it stays as it is and raises nothing.
  ItemValue<bool, TreeNode> Expanded{*this};

  [[nodiscard]] const std::string& Key() const { return key_; }
  /// Its place in the order in which nodes were added, from 1.
  [[nodiscard]] int Index() const { return index_; }
  /// The node that it stands under, or nothing.
  [[nodiscard]] TreeNode* Parent() const { return parent_; }
  [[nodiscard]] const std::vector<TreeNode*>& Children() const { return children_; }

  /// It is the tree's selected node.
  [[nodiscard]] bool Selected() const;
  /// Makes it the tree's selected node. No event.
  void Select();
  /// Expands what it stands under, from the top, with their events, and scrolls the tree so that the node is
  /// seen.
  void EnsureVisible();

 private:
  friend class TreeNodes;
  friend class ItemValue<std::string, TreeNode>;
  friend class ItemValue<int, TreeNode>;
  friend class ItemValue<bool, TreeNode>;

  void changed(const void* value);

  TreeView& tree_;
  TreeNode* parent_;
  std::string key_;
  int index_;
  std::vector<TreeNode*> children_;
};

}  // namespace varnhold::ui
