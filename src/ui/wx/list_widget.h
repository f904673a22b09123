#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <functional>
#include <vector>

#include "ui/controls/list_view.h"

namespace varnhold::ui::wx {

/// Which rows are selected; rows count from 1.
struct RowSelection {
  std::vector<int> rows;  ///< in their order
  int focused = 0;        ///< the row with the focus rectangle; 0 for none
};

/// A place on a list, as `ListHit` has it.
struct ListPlace {
  int row = 0;  ///< 0 beside the rows
  int subItem = 0;
  int flags = 0;
};

/// The parts of a row that a pointer can be on (commctrl.h, LVHT_*). A cell behind the first column is one
/// whole: all of it counts as its picture and as its text.
enum ListHitFlag : int { kOnNothing = 1, kOnIcon = 2, kOnLabel = 4, kOnCell = kOnIcon | kOnLabel };

/// What a host's list tells, from inside its own calls.
struct ListNotices {
  std::function<void()> selectionMoved;
  /// The row was opened by a double click or by an assistive client.
  std::function<void(int row)> activated;
  std::function<void(int column)> headClicked;
  std::function<void(MouseButton, const ListPlace&)> pressed, released;
  std::function<void(const ListPlace&)> hovered;
};

/// The list of a host: the native list view on Windows, the data view on GTK. It draws the rows of its source
/// and holds nothing of them but their number and which are selected. Rows and columns count from 1.
class ListWidget {
 public:
  virtual ~ListWidget() = default;

  virtual void listen(ListNotices notices) = 0;
  /// Nothing: there are no rows to draw any more.
  virtual void setSource(const ui::ListView* source) = 0;
  /// Makes the columns anew, and takes the source's pictures.
  virtual void showColumns(const std::vector<wxString>& heads) = 0;
  virtual void showWidths(const std::vector<int>& widths) = 0;
  /// The width of a column's cells, in pixels.
  [[nodiscard]] virtual int cellWidth(int column) const = 0;
  /// The arrow on the head of a column; 0 for none.
  virtual void showSortArrow(int column, bool ascending) = 0;
  /// There are `count` rows now, and all may show something else. The selection may go.
  virtual void showRows(int count) = 0;

  [[nodiscard]] virtual RowSelection selection() const = 0;
  /// Turns the selection `from`, which it has, into `to`. Where very many rows differ a host may mark those
  /// that are not seen in later turns of the event loop; `selection` tells of them as if they were marked.
  virtual void showSelection(const RowSelection& from, const RowSelection& to) = 0;
  virtual void reveal(int row) = 0;
  /// Where a menu for the row comes up, in the widget's own coordinates; for row 0, one for the list.
  [[nodiscard]] virtual wxPoint menuPlace(int row) const = 0;
};

}  // namespace varnhold::ui::wx
