// What users do to a list, on its way to the control.
#include "ui/wx/list_view_binding.h"
#include "ui/wx/popup_place.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {

constexpr int kCellEdges = 12;  // pixels at 100 %, what a cell keeps free beside its text

void ListViewBinding::listen() {
  rows_.listen(
      {.selectionMoved = [this] { selectionMoved(); },
       .activated = [this](int row) { activated(row); },
       .headClicked =
           [this](int column) { post([column](ui::ListView& list) { list.userColumnClick(column); }); },
       .pressed = [this](MouseButton button, const ListPlace& place) { pressed(button, place); },
       .released = [this](MouseButton button, const ListPlace& place) { released(button, place); },
       .hovered = [this](const ListPlace& place) { hovered(place); }});
  listenToKeys();
  widget().Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    widthsStale_ = true;
    lookLater();
  });
  widget().Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
    event.Skip();
    keyIsDown_ = false;
    if (isQuiet()) return;
    focusArrives_ = true;
    post([this](ui::ListView&) { focusArrives_ = false; });
  });
}

void ListViewBinding::listenToKeys() {
  widget().Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) { keyDown(event); });
  widget().Bind(wxEVT_KEY_UP, [this](wxKeyEvent& event) {
    event.Skip();
    keyIsDown_ = false;
  });
  widget().Bind(wxEVT_CHAR, [this](wxKeyEvent& event) { typed(event); });
  // Right presses are told otherwise, so that this is always a key.
  widget().Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent&) { menuByKey(); });
}

void ListViewBinding::pressed(MouseButton button, const ListPlace& place) {
  keyIsDown_ = false;
  if (button == MouseButton::Right) {
    // What a right press does to the selection is for the form to say.
    const Quiet quiet(*this);
    rows_.showSelection(rows_.selection(), selection_);
    widget().SetFocus();
  }
  post([button, place](ui::ListView& list) {
    list.userMouseDown(button, place.row, place.subItem, place.flags);
  });
  if (button == MouseButton::Right) return;
  if (place.row != 0) {
    readSelectionSoon(true);
  } else {
    post([](ui::ListView& list) { list.userClick(0); });
  }
}

void ListViewBinding::released(MouseButton button, const ListPlace& place) {
  post([button, place](ui::ListView& list) {
    list.userMouseUp(button, place.row, place.subItem, place.flags);
  });
}

// What is too long for its cell can be read over it.
void ListViewBinding::hovered(const ListPlace& place) {
  if (control() == nullptr || place.row < 1 || place.row > control()->ListItems.Count()) return;
  const auto text = shown(control()->ListItems(place.row).column(place.subItem));
  const int room = rows_.cellWidth(place.subItem + 1) - widget().FromDIP(kCellEdges);
  const bool isCut = widget().GetTextExtent(text).x > room;
  const auto tip = isCut ? text : shown(control()->ToolTipText);
  if (widget().GetToolTipText() != tip) widget().SetToolTip(tip);
}

void ListViewBinding::activated(int row) {
  // Keys open nothing by themselves: Enter is the form's, and the space bar selects.
  if (!keyIsDown_) post([row](ui::ListView& list) { list.userDblClick(row); });
}

void ListViewBinding::keyDown(wxKeyEvent& event) {
  keyIsDown_ = true;
  const int code = event.GetKeyCode();
  if (code == WXK_RETURN || code == WXK_NUMPAD_ENTER) {
    post([](ui::ListView& list) { list.userKeyPress(kKeyReturn); });
  } else if (code == 'A' && event.GetModifiers() == wxMOD_CONTROL) {
    post([](ui::ListView& list) { list.userSelectAll(); });
  } else {
    event.Skip();
  }
}

void ListViewBinding::typed(wxKeyEvent& event) {
  const auto letter = event.GetUnicodeKey();
  if (letter != WXK_NONE) {
    post([key = static_cast<int>(letter)](ui::ListView& list) { list.userKeyPress(key); });
  }
  const bool isText =
      letter > WXK_SPACE && letter != WXK_DELETE && (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
  if (!isText) {
    event.Skip();
    return;
  }
  // One way to look for it on both hosts: that of GTK finds nothing beside pictures.
  post([this, text = utf8(wxString(letter)), nowMs = wxGetLocalTimeMillis().GetValue()](ui::ListView& list) {
    const int row = typeAhead_.find(list, text, nowMs);
    if (row == 0) return;
    revealed_ = row;
    list.userSelection({row}, row);
  });
}

void ListViewBinding::menuByKey() {
  post([this](ui::ListView& list) {
    const auto focused = list.SelectedItem();
    const int row = focused ? focused->Index() : 0;
    if (row != 0) rows_.reveal(row);
    const PopUpPlace place(widget().ClientToScreen(rows_.menuPlace(row)));
    list.userMouseDown(MouseButton::Right, row);
  });
}

}  // namespace varnhold::ui::wx
