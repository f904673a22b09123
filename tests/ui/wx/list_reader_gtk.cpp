#include <wx/dataview.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include "tests/ui/wx/list_reader.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

wxDataViewCtrl& dataView(wxWindow& list) {
  return dynamic_cast<wxDataViewCtrl&>(list);
}

wxDataViewItem itemOf(int row) {
  return wxDataViewItem(wxUIntToPtr(static_cast<unsigned>(row)));
}

int rowOf(const wxDataViewItem& item) {
  return static_cast<int>(wxPtrToUInt(item.GetID()));
}

wxDataViewColumn* columnOf(wxWindow& list, int column) {
  return dataView(list).GetColumn(static_cast<unsigned>(column) - 1);
}

wxVariant valueOf(wxWindow& list, int row, int column) {
  wxVariant value;
  dataView(list).GetModel()->GetValue(value, itemOf(row), static_cast<unsigned>(column) - 1);
  return value;
}

bool isIconText(const wxVariant& value) {
  return value.GetType() == wxDataViewIconTextRenderer::GetDefaultType();
}

wxDataViewIconText iconTextOf(const wxVariant& value) {
  wxDataViewIconText both;
  both << value;
  return both;
}

wxPoint place(wxWindow& list, int row, int column, int fromLeft) {
  const auto cell = dataView(list).GetItemRect(itemOf(row), columnOf(list, column));
  return list.ClientToScreen(wxPoint(cell.x + fromLeft, cell.y + cell.height / 2));
}

}  // namespace

int rowsShown(wxWindow& list) {
  return static_cast<int>(dynamic_cast<wxDataViewListModel&>(*dataView(list).GetModel()).GetCount());
}

std::string cellShown(wxWindow& list, int row, int column) {
  const auto value = valueOf(list, row, column);
  return utf8(isIconText(value) ? iconTextOf(value).GetText() : value.GetString());
}

std::vector<std::string> columnShown(wxWindow& list, int column) {
  std::vector<std::string> texts;
  for (int row = 1; row <= rowsShown(list); ++row) texts.push_back(cellShown(list, row, column));
  return texts;
}

bool pictureShown(wxWindow& list, int row, int column) {
  const auto value = valueOf(list, row, column);
  return isIconText(value) && iconTextOf(value).GetBitmapBundle().IsOk();
}

std::vector<std::string> headsShown(wxWindow& list) {
  std::vector<std::string> heads;
  for (unsigned column = 0; column < dataView(list).GetColumnCount(); ++column) {
    heads.push_back(utf8(dataView(list).GetColumn(column)->GetTitle()));
  }
  return heads;
}

std::vector<int> widthsShown(wxWindow& list) {
  std::vector<int> widths;
  for (unsigned column = 0; column < dataView(list).GetColumnCount(); ++column) {
    widths.push_back(dataView(list).GetColumn(column)->GetWidth());
  }
  return widths;
}

std::vector<int> rowsSelected(wxWindow& list) {
  wxDataViewItemArray items;
  dataView(list).GetSelections(items);
  std::vector<int> rows;
  for (const auto& item : items) rows.push_back(rowOf(item));
  return rows;
}

int rowFocused(wxWindow& list) {
  return rowOf(dataView(list).GetCurrentItem());
}

std::string sortArrowShown(wxWindow& list) {
  for (int column = 1; column <= static_cast<int>(dataView(list).GetColumnCount()); ++column) {
    const auto* head = columnOf(list, column);
    if (head->IsSortKey()) return (head->IsSortOrderAscending() ? "up " : "down ") + std::to_string(column);
  }
  return {};
}

wxPoint placeOfCell(wxWindow& list, int row, int column) {
  return place(list, row, column, 40);
}

wxPoint placeOfPicture(wxWindow& list, int row, int column) {
  return place(list, row, column, 8);
}

void clickHolding(wxWindow&, int key, const wxPoint& place) {
  wxUIActionSimulator user;
  user.MouseMove(place);
  user.KeyDown(key);
  user.MouseClick();
  user.KeyUp(key);
}

wxPoint placeOfHead(wxWindow& list, int column) {
  return list.ClientToScreen(
      wxPoint(dataView(list).GetItemRect(itemOf(1), columnOf(list, column)).x + 20, 10));
}

}  // namespace varnhold::ui::wx
