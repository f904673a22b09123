#include "tests/ui/wx/tree_reader.h"

#include <wx/dataview.h>

#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

struct Seen {
  wxDataViewItem item;
  int level;
};

wxDataViewCtrl& dataView(wxWindow& tree) {
  return dynamic_cast<wxDataViewCtrl&>(tree);
}

void addNodesUnder(wxDataViewCtrl& tree, const wxDataViewItem& parent, int level, std::vector<Seen>& nodes) {
  wxDataViewItemArray children;
  tree.GetModel()->GetChildren(parent, children);
  for (const auto& child : children) {
    nodes.push_back({child, level});
    addNodesUnder(tree, child, level + 1, nodes);
  }
}

std::vector<Seen> nodesOf(wxWindow& tree) {
  std::vector<Seen> nodes;
  addNodesUnder(dataView(tree), wxDataViewItem(), 0, nodes);
  return nodes;
}

wxDataViewItem itemOf(wxWindow& tree, int node) {
  return nodesOf(tree).at(static_cast<std::size_t>(node) - 1).item;
}

wxDataViewIconText valueOf(wxWindow& tree, const wxDataViewItem& item) {
  wxVariant value;
  dataView(tree).GetModel()->GetValue(value, item, 0);
  wxDataViewIconText both;
  both << value;
  return both;
}

wxPoint placeIn(wxWindow& tree, int node, int fromLeft) {
  const auto cell = dataView(tree).GetItemRect(itemOf(tree, node), dataView(tree).GetColumn(0));
  return tree.ClientToScreen(wxPoint(cell.x + fromLeft, cell.y + cell.height / 2));
}

}  // namespace

std::vector<std::string> nodesShown(wxWindow& tree) {
  std::vector<std::string> texts;
  for (const auto& node : nodesOf(tree)) {
    const std::string indent(static_cast<std::size_t>(node.level) * 2, ' ');
    texts.push_back(indent + utf8(valueOf(tree, node.item).GetText()));
  }
  return texts;
}

bool isNodeOpen(wxWindow& tree, int node) {
  return dataView(tree).IsExpanded(itemOf(tree, node));
}

bool hasPicture(wxWindow& tree, int node) {
  return valueOf(tree, itemOf(tree, node)).GetBitmapBundle().IsOk();
}

std::string nodeSelected(wxWindow& tree) {
  const auto item = dataView(tree).GetSelection();
  return item.IsOk() ? utf8(valueOf(tree, item).GetText()) : std::string();
}

wxPoint placeOfNode(wxWindow& tree, int node) {
  return placeIn(tree, node, 30);
}

wxPoint placeOfOpener(wxWindow& tree, int node) {
  return placeIn(tree, node, -8);
}

}  // namespace varnhold::ui::wx
