#include <wx/dataview.h>

#include <utility>

#include "ui/wx/bind_tree_view.h"
#include "ui/wx/tree_view_binding.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kLeastWidth = 100, kLeastHeight = 80;  // at 100 %, in pixels

wxDataViewItem itemOf(int node) {
  return wxDataViewItem(wxUIntToPtr(static_cast<unsigned>(node)));
}

int nodeOf(const wxDataViewItem& item) {
  return static_cast<int>(wxPtrToUInt(item.GetID()));
}

/// The nodes as the data view asks for them. Its items are their numbers.
class NodesModel : public wxDataViewModel {
 public:
  void setPictures(const wxVector<wxBitmapBundle>& pictures) {
    pictures_ = pictures;
    Cleared();
  }

  void setNodes(const std::vector<NodeLook>& nodes) {
    BeforeReset();
    nodes_ = nodes;
    children_.assign(nodes.size() + 1, {});
    for (std::size_t place = 0; place < nodes.size(); ++place) {
      children_[static_cast<std::size_t>(nodes[place].parent)].push_back(static_cast<int>(place) + 1);
    }
    AfterReset();
  }

  void setLook(int node, const NodeLook& look) {
    nodes_[static_cast<std::size_t>(node) - 1] = look;
    ItemChanged(itemOf(node));
  }

  [[nodiscard]] const std::vector<int>& childrenOf(int node) const {
    return children_[static_cast<std::size_t>(node)];
  }
  [[nodiscard]] int parentOf(int node) const { return look(node).parent; }

  void GetValue(wxVariant& value, const wxDataViewItem& item, unsigned) const override {
    const auto& node = look(nodeOf(item));
    const bool hasPicture = node.picture >= 1 && node.picture <= static_cast<int>(pictures_.size());
    value << wxDataViewIconText(
        node.text, hasPicture ? pictures_[static_cast<std::size_t>(node.picture) - 1] : wxBitmapBundle());
  }
  bool SetValue(const wxVariant&, const wxDataViewItem&, unsigned) override { return false; }
  wxDataViewItem GetParent(const wxDataViewItem& item) const override {
    return item.IsOk() ? itemOf(parentOf(nodeOf(item))) : item;
  }
  bool IsContainer(const wxDataViewItem& item) const override {
    return !item.IsOk() || !childrenOf(nodeOf(item)).empty();
  }
  unsigned GetChildren(const wxDataViewItem& item, wxDataViewItemArray& children) const override {
    for (const int child : childrenOf(nodeOf(item))) children.Add(itemOf(child));
    return static_cast<unsigned>(children.size());
  }

 private:
  [[nodiscard]] const NodeLook& look(int node) const { return nodes_[static_cast<std::size_t>(node) - 1]; }

  std::vector<NodeLook> nodes_;
  std::vector<std::vector<int>> children_{1};
  wxVector<wxBitmapBundle> pictures_;
};

/// The tree on GTK. Its data view is a GtkTreeView, whose nodes assistive clients read.
class DataViewTree : public wxDataViewCtrl, public TreeWidget {
 public:
  explicit DataViewTree(wxWindow* parent)
      : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_SINGLE | wxDV_NO_HEADER),
        model_(new NodesModel) {
    AssociateModel(model_.get());
    AppendColumn(new wxDataViewColumn(wxString(), new wxDataViewIconTextRenderer, 0, wxCOL_WIDTH_AUTOSIZE,
                                      wxALIGN_LEFT));
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastHeight)));
  }

  void listen(TreeNotices notices) override;
  void showPictures(const wxVector<wxBitmapBundle>& pictures) override { model_->setPictures(pictures); }
  void showNodes(const std::vector<NodeLook>& nodes) override { model_->setNodes(nodes); }
  void showLook(int node, const NodeLook& look) override { model_->setLook(node, look); }
  void showExpanded(int node, bool expanded) override { turn(node, expanded); }
  bool isExpanded(int node) const override { return IsExpanded(itemOf(node)); }
  void select(int node) override;
  int selected() const override { return nodeOf(GetSelection()); }
  void reveal(int node) override { EnsureVisible(itemOf(node)); }
  wxPoint menuPlace(int node) const override;

 private:
  void listenToMouse();
  void turn(int node, bool expanded);
  void keyDown(wxKeyEvent& event);
  [[nodiscard]] int nodeAt(wxPoint position) const;

  wxObjectDataPtr<NodesModel> model_;
  TreeNotices notices_;
};

void DataViewTree::listen(TreeNotices notices) {
  notices_ = std::move(notices);
  Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { notices_.selectionMoved(); });
  Bind(wxEVT_DATAVIEW_ITEM_EXPANDED, [this](wxDataViewEvent&) { notices_.turned(); });
  Bind(wxEVT_DATAVIEW_ITEM_COLLAPSED, [this](wxDataViewEvent&) { notices_.turned(); });
  Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](const wxDataViewEvent& event) {
    const int node = nodeOf(event.GetItem());
    if (!model_->childrenOf(node).empty()) turn(node, !isExpanded(node));
  });
  Bind(wxEVT_KEY_DOWN, &DataViewTree::keyDown, this);
  listenToMouse();
}

// A GtkTreeView keeps presses for itself. It tells of the right one by the menu that is due, and of the left
// one when the button goes up.
void DataViewTree::listenToMouse() {
  Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this](const wxDataViewEvent& event) {
    notices_.pressed(MouseButton::Right, nodeOf(event.GetItem()));
  });
  Bind(wxEVT_RIGHT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    notices_.released(MouseButton::Right, nodeAt(event.GetPosition()));
  });
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    const int node = nodeAt(event.GetPosition());
    notices_.pressed(MouseButton::Left, node);
    notices_.released(MouseButton::Left, node);
  });
}

int DataViewTree::nodeAt(wxPoint position) const {
  wxDataViewItem item;
  wxDataViewColumn* column = nullptr;
  HitTest(position, item, column);
  // To the left of its text and picture stands what opens it.
  return item.IsOk() && position.x >= GetItemRect(item, column).x ? nodeOf(item) : 0;
}

void DataViewTree::turn(int node, bool expanded) {
  if (expanded) {
    Expand(itemOf(node));
  } else {
    Collapse(itemOf(node));
  }
}

void DataViewTree::select(int node) {
  if (node == 0) {
    UnselectAll();
  } else {
    Select(itemOf(node));
  }
}

/// The arrow keys to the right and to the left open and close nodes, as in every tree on Windows.
void DataViewTree::keyDown(wxKeyEvent& event) {
  const int node = selected();
  const bool isRight = event.GetKeyCode() == WXK_RIGHT;
  if (node == 0 || event.HasAnyModifiers() || (!isRight && event.GetKeyCode() != WXK_LEFT)) {
    event.Skip();
    return;
  }
  const auto& children = model_->childrenOf(node);
  if (!children.empty() && isExpanded(node) != isRight) {
    turn(node, isRight);
    return;
  }
  const int next = isRight ? (children.empty() ? 0 : children.front()) : model_->parentOf(node);
  if (next == 0) return;
  Select(itemOf(next));
  notices_.selectionMoved();
}

wxPoint DataViewTree::menuPlace(int node) const {
  const auto place = node == 0 ? wxRect() : GetItemRect(itemOf(node), GetColumn(0));
  return {place.x, place.y + place.height};
}

}  // namespace

wxWindow* bindTreeView(wxWindow* parent, ui::TreeView& tree) {
  auto* widget = new DataViewTree(parent);
  return bind<TreeViewBinding>(static_cast<wxWindow*>(widget), tree, *widget);
}

}  // namespace varnhold::ui::wx
