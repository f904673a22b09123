#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "ui/controls/list_view.h"
#include "ui/wx/bound_view.h"
#include "ui/wx/list_widget.h"
#include "ui/wx/type_ahead.h"

namespace varnhold::ui::wx {

/// Shows a list view on the list of a host, whichever that is. What the control tells is noted and looked at
/// once, on a later turn of the event loop; what the user does is read from the widget when it is handed
/// over.
class ListViewBinding : public BoundView<ListControlView, ui::ListView, wxWindow> {
 public:
  /// `rows` is what `window` is to the list.
  ListViewBinding(wxWindow& window, ui::ListView& list, ListWidget& rows);

  void rowsChanged() override { lookLater(); }
  void rowChanged(const ListItem&) override { lookLater(); }
  void columnsChanged() override;
  void ensureVisible(const ListItem& row) override;
  void released() override;
  void listen() override;

 private:
  void show(const ui::ListView& list) override;

  void lookLater();
  void look(const ui::ListView& list);
  void lookAtColumns(const ui::ListView& list);
  void lookAtRows(const ui::ListView& list);
  void lookAtSelection(const ui::ListView& list);

  void listenToKeys();
  void selectionMoved();
  void readSelectionSoon(bool chosen);
  void readSelection(ui::ListView& list);
  void pressed(MouseButton button, const ListPlace& place);
  void released(MouseButton button, const ListPlace& place);
  void activated(int row);
  void hovered(const ListPlace& place);
  void keyDown(wxKeyEvent& event);
  void typed(wxKeyEvent& event);
  void menuByKey();

  ListWidget& rows_;
  // What the widget shows by now.
  std::vector<wxString> heads_;
  const ImageList* pictures_ = nullptr;
  std::uint64_t revision_ = 0;
  RowSelection selection_;
  // What is to be looked at.
  bool widthsStale_ = true;
  int revealed_ = 0;
  // What the user does.
  TypeAhead typeAhead_;
  bool readPending_ = false;
  bool chosen_ = false;
  bool keyIsDown_ = false;
  bool focusArrives_ = false;
};

}  // namespace varnhold::ui::wx
