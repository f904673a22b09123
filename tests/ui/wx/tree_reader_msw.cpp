// By window messages alone, as another program on the same desktop.
#include "tests/ui/wx/tree_reader.h"

#include <wx/msw/wrapcctl.h>
#include <wx/window.h>

#include <array>
#include <cstring>

#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kMostLetters = 260;

struct Seen {
  HTREEITEM item;
  int level;
};

HWND handleOf(wxWindow& tree) {
  return static_cast<HWND>(tree.GetHandle());
}

HTREEITEM next(wxWindow& tree, WPARAM which, HTREEITEM from) {
  return reinterpret_cast<HTREEITEM>(
      SendMessageW(handleOf(tree), TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(from)));
}

void addNodes(wxWindow& tree, HTREEITEM first, int level, std::vector<Seen>& nodes) {
  for (auto item = first; item != nullptr; item = next(tree, TVGN_NEXT, item)) {
    nodes.push_back({item, level});
    addNodes(tree, next(tree, TVGN_CHILD, item), level + 1, nodes);
  }
}

std::vector<Seen> nodesOf(wxWindow& tree) {
  std::vector<Seen> nodes;
  addNodes(tree, next(tree, TVGN_ROOT, nullptr), 0, nodes);
  return nodes;
}

HTREEITEM itemOf(wxWindow& tree, int node) {
  return nodesOf(tree).at(static_cast<std::size_t>(node) - 1).item;
}

TVITEMW askOf(wxWindow& tree, HTREEITEM item, UINT mask, wchar_t* text = nullptr) {
  TVITEMW asked = {};
  asked.mask = mask | TVIF_HANDLE;
  asked.hItem = item;
  asked.stateMask = TVIS_EXPANDED;
  asked.pszText = text;
  asked.cchTextMax = text == nullptr ? 0 : kMostLetters;
  SendMessageW(handleOf(tree), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
  return asked;
}

std::string textOf(wxWindow& tree, HTREEITEM item) {
  std::array<wchar_t, kMostLetters> text = {};
  askOf(tree, item, TVIF_TEXT, text.data());
  return utf8(wxString(text.data()));
}

wxPoint placeIn(wxWindow& tree, int node, int fromLeft) {
  // The message takes the node in the place where it puts the rectangle.
  RECT rect = {};
  const auto item = itemOf(tree, node);
  std::memcpy(&rect, &item, sizeof item);
  SendMessageW(handleOf(tree), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect));
  return tree.ClientToScreen(wxPoint(rect.left + fromLeft, (rect.top + rect.bottom) / 2));
}

}  // namespace

std::vector<std::string> nodesShown(wxWindow& tree) {
  std::vector<std::string> texts;
  for (const auto& node : nodesOf(tree)) {
    texts.push_back(std::string(static_cast<std::size_t>(node.level) * 2, ' ') + textOf(tree, node.item));
  }
  return texts;
}

bool isNodeOpen(wxWindow& tree, int node) {
  return (askOf(tree, itemOf(tree, node), TVIF_STATE).state & TVIS_EXPANDED) != 0;
}

bool hasPicture(wxWindow& tree, int node) {
  return askOf(tree, itemOf(tree, node), TVIF_IMAGE).iImage >= 0;
}

std::string nodeSelected(wxWindow& tree) {
  const auto item = next(tree, TVGN_CARET, nullptr);
  return item == nullptr ? std::string() : textOf(tree, item);
}

wxPoint placeOfNode(wxWindow& tree, int node) {
  return placeIn(tree, node, 6);
}

wxPoint placeOfOpener(wxWindow& tree, int node) {
  // Behind it stands the picture of 16 pixels.
  return placeIn(tree, node, -28);
}

}  // namespace varnhold::ui::wx
