#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/controls/item_value.h"

namespace varnhold::ui {

class ListItem;
class ListItems;
class ListView;

/// A cell's value, read and set through its row. It is only a way to the cell: don't keep it, keep what it
/// reads.
template <class T, const T& (ListItem::*read)(int) const, void (ListItem::*write)(int, const T&)>
class CellValue {
 public:
  using ValueType = T;

  CellValue(ListItem& item, int column) : item_(item), column_(column) {}
  CellValue(const CellValue&) = default;
  CellValue& operator=(const CellValue& other) { return *this = other.get(); }
  CellValue& operator=(const T& value) {
    (item_.*write)(column_, value);
    return *this;
  }

  operator const T&() const { return get(); }  // NOLINT(google-explicit-constructor): reads as its value
  [[nodiscard]] const T& get() const { return (item_.*read)(column_); }

 private:
  ListItem& item_;
  int column_;
};

/// A row of a list view. Its address stays the same until it is removed, wherever sorting puts it.
class ListItem {
 private:
  // What the cells' values go through; declared first since the types below name them.
  [[nodiscard]] const std::string& cellText(int column) const;
  void setCellText(int column, const std::string& text);
  [[nodiscard]] const std::string& cellTag(int column) const;
  void setCellTag(int column, const std::string& tag);
  [[nodiscard]] const int& cellIcon(int column) const;
  void setCellIcon(int column, const int& icon);

 public:
  using CellText = CellValue<std::string, &ListItem::cellText, &ListItem::setCellText>;
  using CellTag = CellValue<std::string, &ListItem::cellTag, &ListItem::setCellTag>;
  using CellIcon = CellValue<int, &ListItem::cellIcon, &ListItem::setCellIcon>;

  /// One of the cells behind the first.
  struct ListSubItem {
    CellText Text;
    CellTag Tag;          ///< free to the form
    CellIcon ReportIcon;  ///< a picture of the list's `SmallIcons`, from 1; 0 for none
  };

  ListItem(ListItems& rows, std::string text);
  ListItem(const ListItem&) = delete;
  ListItem& operator=(const ListItem&) = delete;

  /// The first column.
  ItemValue<std::string, ListItem> Text;
  /// Free to the form.
  ItemValue<std::string, ListItem> Tag{*this};
  /// A picture of the list's `SmallIcons`, from 1; 0 for none.
  ItemValue<int, ListItem> SmallIcon{*this};
  /// Setting it to true makes the row the list's `SelectedItem` too, and in a list of one selection takes it
  /// from the others. No event.
  ItemValue<bool, ListItem> Selected{*this};

  /// The text of a column behind the first, from 1; empty until it is set. Error 380 below 1.
  [[nodiscard]] CellText SubItems(int column) { return {*this, column}; }
  [[nodiscard]] const std::string& SubItems(int column) const { return cellText(column); }
  [[nodiscard]] ListSubItem ListSubItems(int column) {
    return {{*this, column}, {*this, column}, {*this, column}};
  }
  /// The picture of a cell, from 1; 0 for none. For views.
  [[nodiscard]] int ReportIcon(int column) const { return cellIcon(column); }
  /// The text in a column counted from 0. For views and for sorting.
  [[nodiscard]] const std::string& column(int index) const {
    return index == 0 ? Text.get() : cellText(index);
  }

  /// Where the row stands, from 1.
  [[nodiscard]] int Index() const;
  /// Scrolls the list so that the row is seen.
  void EnsureVisible();

 private:
  friend class ListItems;
  friend class ItemValue<std::string, ListItem>;
  friend class ItemValue<int, ListItem>;
  friend class ItemValue<bool, ListItem>;

  struct CellExtra {
    std::string tag;
    int icon = 0;
  };
  struct Cell {
    std::string text;
    std::unique_ptr<CellExtra> extra;  // few cells have one, and there may be very many cells
  };

  void changed(const void* value);
  [[nodiscard]] const Cell* cell(int column) const;
  [[nodiscard]] Cell& cellToSet(int column);
  [[nodiscard]] CellExtra& extraToSet(int column);

  ListItems& rows_;
  std::vector<Cell> cells_;
  int index_ = 0;
};

}  // namespace varnhold::ui
