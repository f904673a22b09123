#pragma once

#include <wx/bmpbndl.h>
#include <wx/gdicmn.h>
#include <wx/string.h>
#include <wx/vector.h>

#include <functional>
#include <vector>

#include "ui/controls/constants.h"

namespace varnhold::ui::wx {

/// A node as it is shown. Nodes count from 1 in the order in which they were added, so a parent comes before
/// its children.
struct NodeLook {
  int parent = 0;  ///< 0 at the top
  wxString text;
  int picture = 0;  ///< from 1; 0 for none
  bool operator==(const NodeLook&) const = default;
};

/// What a host's tree tells, from inside its own calls.
struct TreeNotices {
  /// Another node is selected.
  std::function<void()> selectionMoved;
  /// A node was opened or closed.
  std::function<void()> turned;
  /// On a node, or on none with 0. A left press on what opens and closes a node is on none.
  std::function<void(MouseButton, int node)> pressed, released;
};

/// The tree of a host: the native tree view on Windows, the data view on GTK.
class TreeWidget {
 public:
  virtual ~TreeWidget() = default;

  virtual void listen(TreeNotices notices) = 0;
  virtual void showPictures(const wxVector<wxBitmapBundle>& pictures) = 0;
  /// Makes the nodes anew, all closed.
  virtual void showNodes(const std::vector<NodeLook>& nodes) = 0;
  virtual void showLook(int node, const NodeLook& look) = 0;
  /// Only for nodes with children that are to be seen.
  virtual void showExpanded(int node, bool expanded) = 0;
  [[nodiscard]] virtual bool isExpanded(int node) const = 0;
  /// 0 for none.
  virtual void select(int node) = 0;
  [[nodiscard]] virtual int selected() const = 0;
  virtual void reveal(int node) = 0;
  /// Where a menu for the node comes up, in the widget's own coordinates; for 0, one for the tree.
  [[nodiscard]] virtual wxPoint menuPlace(int node) const = 0;
};

}  // namespace varnhold::ui::wx
