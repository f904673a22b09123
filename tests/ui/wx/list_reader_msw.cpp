// By window messages alone, as another program on the same desktop.
#include <wx/msw/wrapcctl.h>
#include <wx/window.h>

#include <array>

#include "tests/ui/wx/list_reader.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kMostLetters = 260;

HWND handleOf(wxWindow& list) {
  return static_cast<HWND>(list.GetHandle());
}

HWND headsOf(wxWindow& list) {
  return reinterpret_cast<HWND>(SendMessageW(handleOf(list), LVM_GETHEADER, 0, 0));
}

int columnCount(wxWindow& list) {
  return static_cast<int>(SendMessageW(headsOf(list), HDM_GETITEMCOUNT, 0, 0));
}

HDITEMW headOf(wxWindow& list, int column, UINT mask, wchar_t* text = nullptr) {
  HDITEMW head = {};
  head.mask = mask;
  head.pszText = text;
  head.cchTextMax = text == nullptr ? 0 : kMostLetters;
  SendMessageW(headsOf(list), HDM_GETITEMW, static_cast<WPARAM>(column) - 1, reinterpret_cast<LPARAM>(&head));
  return head;
}

int nextRow(wxWindow& list, int after, UINT flags) {
  return static_cast<int>(SendMessageW(handleOf(list), LVM_GETNEXTITEM, static_cast<WPARAM>(after - 1),
                                       MAKELPARAM(flags, 0))) +
         1;
}

RECT partOf(wxWindow& list, int row, int column, LONG part) {
  RECT rect = {};
  rect.top = column - 1;
  rect.left = part;
  SendMessageW(handleOf(list), LVM_GETSUBITEMRECT, static_cast<WPARAM>(row) - 1,
               reinterpret_cast<LPARAM>(&rect));
  return rect;
}

wxPoint middleOf(wxWindow& list, const RECT& rect, int fromLeft) {
  return list.ClientToScreen(wxPoint(rect.left + fromLeft, (rect.top + rect.bottom) / 2));
}

}  // namespace

int rowsShown(wxWindow& list) {
  return static_cast<int>(SendMessageW(handleOf(list), LVM_GETITEMCOUNT, 0, 0));
}

std::string cellShown(wxWindow& list, int row, int column) {
  std::array<wchar_t, kMostLetters> text = {};
  LVITEMW cell = {};
  cell.iSubItem = column - 1;
  cell.pszText = text.data();
  cell.cchTextMax = kMostLetters;
  SendMessageW(handleOf(list), LVM_GETITEMTEXTW, static_cast<WPARAM>(row) - 1,
               reinterpret_cast<LPARAM>(&cell));
  return utf8(wxString(text.data()));
}

std::vector<std::string> columnShown(wxWindow& list, int column) {
  std::vector<std::string> texts;
  for (int row = 1; row <= rowsShown(list); ++row) texts.push_back(cellShown(list, row, column));
  return texts;
}

bool pictureShown(wxWindow& list, int row, int column) {
  LVITEMW cell = {};
  cell.mask = LVIF_IMAGE;
  cell.iItem = row - 1;
  cell.iSubItem = column - 1;
  SendMessageW(handleOf(list), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&cell));
  return cell.iImage >= 0;
}

std::vector<std::string> headsShown(wxWindow& list) {
  std::vector<std::string> heads;
  for (int column = 1; column <= columnCount(list); ++column) {
    std::array<wchar_t, kMostLetters> text = {};
    headOf(list, column, HDI_TEXT, text.data());
    heads.push_back(utf8(wxString(text.data())));
  }
  return heads;
}

std::vector<int> widthsShown(wxWindow& list) {
  std::vector<int> widths;
  for (int column = 1; column <= columnCount(list); ++column) {
    widths.push_back(static_cast<int>(
        SendMessageW(handleOf(list), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column) - 1, 0)));
  }
  return widths;
}

std::vector<int> rowsSelected(wxWindow& list) {
  std::vector<int> rows;
  for (int row = nextRow(list, 0, LVNI_SELECTED); row != 0; row = nextRow(list, row, LVNI_SELECTED)) {
    rows.push_back(row);
  }
  return rows;
}

int rowFocused(wxWindow& list) {
  return nextRow(list, 0, LVNI_FOCUSED);
}

std::string sortArrowShown(wxWindow& list) {
  for (int column = 1; column <= columnCount(list); ++column) {
    const auto format = headOf(list, column, HDI_FORMAT).fmt;
    if ((format & HDF_SORTUP) != 0) return "up " + std::to_string(column);
    if ((format & HDF_SORTDOWN) != 0) return "down " + std::to_string(column);
  }
  return {};
}

wxPoint placeOfCell(wxWindow& list, int row, int column) {
  return middleOf(list, partOf(list, row, column, LVIR_LABEL), 20);
}

wxPoint placeOfPicture(wxWindow& list, int row, int column) {
  return middleOf(list, partOf(list, row, column, LVIR_ICON), 6);
}

void clickHolding(wxWindow& list, int key, const wxPoint& place) {
  const auto at = list.ScreenToClient(place);
  const auto position = MAKELPARAM(at.x, at.y);
  const WPARAM held = key == WXK_SHIFT ? MK_SHIFT : MK_CONTROL;
  PostMessageW(handleOf(list), WM_LBUTTONDOWN, held | MK_LBUTTON, position);
  PostMessageW(handleOf(list), WM_LBUTTONUP, held, position);
}

wxPoint placeOfHead(wxWindow& list, int column) {
  RECT rect = {};
  SendMessageW(headsOf(list), HDM_GETITEMRECT, static_cast<WPARAM>(column) - 1,
               reinterpret_cast<LPARAM>(&rect));
  return middleOf(list, rect, 20);
}

}  // namespace varnhold::ui::wx
