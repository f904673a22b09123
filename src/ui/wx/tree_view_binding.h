#pragma once

#include <vector>

#include "ui/controls/tree_view.h"
#include "ui/wx/bound_view.h"
#include "ui/wx/tree_widget.h"

namespace varnhold::ui::wx {

/// Shows a tree view on the tree of a host, whichever that is. What the control tells is noted and looked at
/// once, on a later turn of the event loop; what the user does is read from the widget when it is handed
/// over.
class TreeViewBinding : public BoundView<TreeControlView, ui::TreeView, wxWindow> {
 public:
  /// `nodes` is what `window` is to the tree.
  TreeViewBinding(wxWindow& window, ui::TreeView& tree, TreeWidget& nodes);

  void nodeAdded(const TreeNode&) override { nodesChanged(); }
  void nodesCleared() override { nodesChanged(); }
  void nodeChanged(const TreeNode&) override { lookLater(); }
  void selectionChanged() override { lookLater(); }
  void ensureVisible(const TreeNode& node) override;
  void listen() override;

 private:
  void show(const ui::TreeView&) override { lookLater(); }

  void nodesChanged();
  void lookLater();
  void look(const ui::TreeView& tree);
  void lookAtNodes(const ui::TreeView& tree);
  void lookAtExpansion(const ui::TreeView& tree);

  void selectionMoved();
  void pressed(MouseButton button, int node);
  void menuByKey();
  void readSoon();
  void read(ui::TreeView& tree);
  [[nodiscard]] int turnedNode(const ui::TreeView& tree) const;

  TreeWidget& nodes_;
  // What the widget shows by now.
  std::vector<NodeLook> looks_;
  const ImageList* pictures_ = nullptr;
  int selected_ = 0;
  // What is to be looked at.
  bool nodesStale_ = true;
  int revealed_ = 0;
  // What the user does.
  bool readPending_ = false;
  int pressed_ = 0;
  bool focusArrives_ = false;
  int unchosen_ = 0;  // the node that the widget has selected by itself
};

}  // namespace varnhold::ui::wx
