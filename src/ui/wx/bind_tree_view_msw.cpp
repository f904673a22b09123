#include <wx/treectrl.h>
#include <wx/wupdlock.h>

#include <utility>

#include "ui/wx/bind_tree_view.h"
#include "ui/wx/tree_view_binding.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kLeastWidth = 100, kLeastHeight = 80;  // at 100 %, in pixels

class NodeNumber : public wxTreeItemData {
 public:
  explicit NodeNumber(int number) : node(number) {}
  const int node;
};

/// The tree on Windows: the native tree view, which other programs read with its messages.
class NativeTree : public wxTreeCtrl, public TreeWidget {
 public:
  explicit NativeTree(wxWindow* parent)
      : wxTreeCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                   wxTR_HIDE_ROOT | wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_SINGLE) {
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastHeight)));
  }

  void listen(TreeNotices notices) override;
  void showPictures(const wxVector<wxBitmapBundle>& pictures) override { SetImages(pictures); }
  void showNodes(const std::vector<NodeLook>& nodes) override;
  void showLook(int node, const NodeLook& look) override;
  void showExpanded(int node, bool expanded) override;
  bool isExpanded(int node) const override { return IsExpanded(itemOf(node)); }
  void select(int node) override;
  int selected() const override { return nodeOf(GetSelection()); }
  void reveal(int node) override { EnsureVisible(itemOf(node)); }
  wxPoint menuPlace(int node) const override;

 private:
  void listenToMouse();
  [[nodiscard]] const wxTreeItemId& itemOf(int node) const { return items_[static_cast<std::size_t>(node)]; }
  [[nodiscard]] int nodeOf(const wxTreeItemId& item) const;
  [[nodiscard]] int nodeAt(wxPoint position) const;

  std::vector<wxTreeItemId> items_;  // by number; first the root, which is never seen
  TreeNotices notices_;
};

void NativeTree::listen(TreeNotices notices) {
  notices_ = std::move(notices);
  Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent&) { notices_.selectionMoved(); });
  Bind(wxEVT_TREE_ITEM_EXPANDED, [this](wxTreeEvent&) { notices_.turned(); });
  Bind(wxEVT_TREE_ITEM_COLLAPSED, [this](wxTreeEvent&) { notices_.turned(); });
  listenToMouse();
}

void NativeTree::listenToMouse() {
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    event.Skip();
    notices_.pressed(MouseButton::Left, nodeAt(event.GetPosition()));
  });
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    notices_.released(MouseButton::Left, nodeAt(event.GetPosition()));
  });
  // Not passed on: the native tree would select the node.
  const auto rightPress = [this](wxMouseEvent& event) {
    notices_.pressed(MouseButton::Right, nodeAt(event.GetPosition()));
  };
  Bind(wxEVT_RIGHT_DOWN, rightPress);
  Bind(wxEVT_RIGHT_DCLICK, rightPress);
  Bind(wxEVT_RIGHT_UP,
       [this](wxMouseEvent& event) { notices_.released(MouseButton::Right, nodeAt(event.GetPosition())); });
}

int NativeTree::nodeOf(const wxTreeItemId& item) const {
  const auto* number = item.IsOk() ? dynamic_cast<NodeNumber*>(GetItemData(item)) : nullptr;
  return number == nullptr ? 0 : number->node;
}

int NativeTree::nodeAt(wxPoint position) const {
  int flags = 0;
  const auto item = HitTest(position, flags);
  return (flags & wxTREE_HITTEST_ONITEM) != 0 ? nodeOf(item) : 0;
}

void NativeTree::showNodes(const std::vector<NodeLook>& nodes) {
  const wxWindowUpdateLocker untilAllAreThere(this);
  DeleteAllItems();
  items_ = {AddRoot(wxString())};
  for (const auto& look : nodes) {
    const int node = static_cast<int>(items_.size());
    items_.push_back(AppendItem(itemOf(look.parent), look.text, look.picture - 1, -1, new NodeNumber(node)));
  }
}

void NativeTree::showLook(int node, const NodeLook& look) {
  SetItemText(itemOf(node), look.text);
  SetItemImage(itemOf(node), look.picture - 1);
}

void NativeTree::showExpanded(int node, bool expanded) {
  if (expanded) {
    Expand(itemOf(node));
  } else {
    Collapse(itemOf(node));
  }
}

void NativeTree::select(int node) {
  if (node == 0) {
    Unselect();
  } else {
    SelectItem(itemOf(node));
  }
}

wxPoint NativeTree::menuPlace(int node) const {
  wxRect place;
  if (node == 0 || !GetBoundingRect(itemOf(node), place, true)) return {0, 0};
  return {place.x, place.y + place.height};
}

}  // namespace

wxWindow* bindTreeView(wxWindow* parent, ui::TreeView& tree) {
  auto* widget = new NativeTree(parent);
  return bind<TreeViewBinding>(static_cast<wxWindow*>(widget), tree, *widget);
}

}  // namespace varnhold::ui::wx
