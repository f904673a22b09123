#pragma once

#include <string>
#include <vector>

class wxPoint;
class wxWindow;

/// What a list or a tree shows, asked of the host's own widget and not of the control that it is bound to. On
/// Windows this goes by window messages, as another program would. Rows, columns and nodes count from 1.
namespace varnhold::ui::wx {

[[nodiscard]] int rowsShown(wxWindow& list);
[[nodiscard]] std::string cellShown(wxWindow& list, int row, int column);
[[nodiscard]] std::vector<std::string> columnShown(wxWindow& list, int column);
/// Whether the cell has a picture.
[[nodiscard]] bool pictureShown(wxWindow& list, int row, int column);
[[nodiscard]] std::vector<std::string> headsShown(wxWindow& list);
[[nodiscard]] std::vector<int> widthsShown(wxWindow& list);
[[nodiscard]] std::vector<int> rowsSelected(wxWindow& list);
[[nodiscard]] int rowFocused(wxWindow& list);
/// "up 2" for an arrow that points up on the second column, "down 1", or nothing.
[[nodiscard]] std::string sortArrowShown(wxWindow& list);

/// Where on the screen a cell is, near its left end but behind its picture, or in the picture.
[[nodiscard]] wxPoint placeOfCell(wxWindow& list, int row, int column);
[[nodiscard]] wxPoint placeOfPicture(wxWindow& list, int row, int column);
/// A click with the left button at that place of the screen, with the key (WXK_SHIFT, WXK_CONTROL) held down.
void clickHolding(wxWindow& list, int key, const wxPoint& place);
/// Where on the screen the head of a column is.
[[nodiscard]] wxPoint placeOfHead(wxWindow& list, int column);

}  // namespace varnhold::ui::wx
