#pragma once

#include <string>
#include <vector>

class wxPoint;
class wxWindow;

/// What a tree shows, asked of the host's own widget and not of the control that it is bound to. Nodes count
/// from 1, in the order in which they stand in the tree when all are opened.
namespace varnhold::ui::wx {

/// All nodes, those under another one behind two blanks for each level.
[[nodiscard]] std::vector<std::string> nodesShown(wxWindow& tree);
[[nodiscard]] bool isNodeOpen(wxWindow& tree, int node);
[[nodiscard]] bool hasPicture(wxWindow& tree, int node);
/// The text of the selected node; empty for none.
[[nodiscard]] std::string nodeSelected(wxWindow& tree);

/// Where on the screen a node's text is, and what opens and closes it.
[[nodiscard]] wxPoint placeOfNode(wxWindow& tree, int node);
[[nodiscard]] wxPoint placeOfOpener(wxWindow& tree, int node);

}  // namespace varnhold::ui::wx
