#pragma once

#include <string_view>
#include <vector>

#include "ui/controls/column_headers.h"
#include "ui/controls/control.h"
#include "ui/controls/image.h"
#include "ui/controls/list_items.h"

namespace varnhold::ui {

/// A view of a list view's rows: a virtual list, which asks `ListItems` for the rows it is about to draw.
class ListControlView : public ControlView {
 public:
  /// Rows came, went or changed places, or many have changed: re-read the count and what is shown. May come
  /// many times in a row; a view notes it and looks once, on the next turn of the event loop.
  virtual void rowsChanged() = 0;
  /// A text, a picture or the selection of this row has changed.
  virtual void rowChanged(const ListItem& row) = 0;
  /// Columns came, went or have another head or width.
  virtual void columnsChanged() = 0;
  virtual void ensureVisible(const ListItem& row) = 0;
};

/// Where the pointer is on a list. A cell behind the first column is told as one whole, with flags 6.
struct ListHit {
  ListItem* item = nullptr;  ///< the row, or nothing
  int subItem = 0;           ///< its column, 0 for the first
  int flags = 0;  ///< what of it: commctrl.h, LVHT_ONITEMICON 2, LVHT_ONITEMLABEL 4, LVHT_ONITEMSTATEICON 8
};

/// A list with columns. Rows and columns count from 1, `SortKey` and sub-items from 0 for the first column.
class ListView : public Viewed<ListControlView> {
 public:
  ListView() = default;

  ui::ListItems ListItems{*this};
  ui::ColumnHeaders ColumnHeaders{*this};

  Property<bool> MultiSelect{*this};
  /// The column to sort by, from 0, and the direction. While `Sorted` is true, setting one sorts anew.
  Property<int> SortKey{*this};
  Property<ui::SortOrder> SortOrder{*this, ui::SortOrder::Ascending};
  /// The pictures that rows speak of; outlives the list.
  Property<const ImageList*> SmallIcons{*this, nullptr};

  /// Whether the rows are kept in order. Setting it to true sorts, also when it is true already.
  class SortSwitch : public PropertyBase {
   public:
    explicit SortSwitch(ListView& list) : PropertyBase(list), list_(list) {}
    SortSwitch& operator=(bool sorted);
    operator bool() const { return value_; }  // NOLINT(google-explicit-constructor): reads as its value
    [[nodiscard]] bool get() const { return value_; }
    void keepDesign() override { design_ = value_; }
    void restoreDesign() override { value_ = design_; }

   private:
    ListView& list_;
    bool value_ = false;
    bool design_ = false;
  };
  SortSwitch Sorted{*this};

  /// The row that has the focus rectangle, which need not be selected. When it is removed, the row that takes
  /// its place follows it (the last one, where none does), unselected.
  [[nodiscard]] Ref<ListItem> SelectedItem() const { return {focused_, "selected row"}; }
  /// Selects the row and gives it the focus rectangle; in a list of several the others stay selected. Nothing
  /// takes the focus rectangle away. No event.
  void SetSelectedItem(ListItem* row);
  /// The first row whose whole text is `text`, case ignored, or nothing. Looks at every row.
  [[nodiscard]] ListItem* FindItem(std::string_view text) const;

  /// The user chose a row, by mouse or keyboard.
  Event<ListItem&> ItemClick{*this};
  Event<> DblClick{*this};
  Event<int&> KeyPress{*this};
  Event<ColumnHeader&> ColumnClick{*this};
  Event<MouseButton, const ListHit&> MouseDown{*this}, MouseUp{*this};

  [[nodiscard]] bool takesFocus() const override { return true; }

  /// While one of these lives, the view hears nothing of the rows; at the end of the last one it hears once.
  class BulkUpdate {
   public:
    explicit BulkUpdate(ListView& list) : list_(list) { ++list_.updates_; }
    BulkUpdate(const BulkUpdate&) = delete;
    BulkUpdate& operator=(const BulkUpdate&) = delete;
    ~BulkUpdate() { list_.endUpdate(); }

   private:
    ListView& list_;
  };

  /// What a user does. `row` counts from 1; outside 1 to the count it means the empty part of the list.
  ///
  /// A click selects the row alone; in a list of several, `kControl` turns it over and `kShift` selects from
  /// the focused row to it. On the empty part it clears the selection and raises nothing.
  void userClick(int row, int modifiers = kNoModifier);
  /// A click on the row (not on the empty part), then DblClick.
  void userDblClick(int row);
  /// Selects every row of a list of several. Raises nothing.
  void userSelectAll();
  /// Exactly these rows are now selected, and `focused` has the focus rectangle: ItemClick for that one.
  void userSelection(const std::vector<int>& rows, int focused);
  void userKeyPress(int key);
  void userColumnClick(int column);
  void userMouseDown(MouseButton button, int row, int subItem = 0, int flags = 4);
  void userMouseUp(MouseButton button, int row, int subItem = 0, int flags = 4);

  void keepDesign() override;
  void restoreDesign() override;

 protected:
  void changed(const PropertyBase& property) override;

 private:
  friend class ui::ListItem;
  friend class ui::ListItems;
  friend class ui::ColumnHeader;
  friend class ui::ColumnHeaders;

  void rowsChanged();
  void rowChanged(const ListItem& row);
  void rowRemoved(const ListItem& gone, std::size_t place);
  void rowsCleared();
  void rowSelectionSet(ListItem& row);
  void columnsChanged();
  void showRow(const ListItem& row);
  void endUpdate();

  [[nodiscard]] ListItem* rowAt(int row);
  void selectRange(int first, int last);
  void chooseByUser(ListItem& row, int modifiers);

  ListItem* focused_ = nullptr;
  int updates_ = 0;
  bool changedMeanwhile_ = false;
};

}  // namespace varnhold::ui
