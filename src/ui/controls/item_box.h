#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/controls/control.h"

namespace varnhold::ui {

/// A view of a list of entries.
class ItemBoxView : public ControlView {
 public:
  /// Entries came, went or changed places, or which are selected has changed: re-read what is shown. May come
  /// once per entry; a view notes it and re-reads once, on the next turn of the event loop.
  virtual void itemsChanged() = 0;
  /// Scroll so that entry `index` is the first one shown.
  virtual void scrollTo(int index) { (void)index; }
  /// The width of a text in the list's font, in pixels.
  [[nodiscard]] virtual int textWidth(std::string_view text) const = 0;
};

/// What a list box and a combo box share: entries, counted from 0, and the current one.
class ItemBox : public Viewed<ItemBoxView> {
 public:
  /// New entries go to their place by text, case ignored; set it while the list is empty.
  Property<bool> Sorted{*this};
  /// The current entry, -1 for none. Setting it raises Click, by code too. Error 380 outside the list.
  Property<int> ListIndex;

  Event<> Click{*this};
  Event<> DblClick{*this};

  [[nodiscard]] int ListCount() const { return static_cast<int>(entries_.size()); }
  /// The text of an entry; empty outside the list, deliberately: handlers read entry 0 of an empty list.
  [[nodiscard]] std::string List(int index) const;
  [[nodiscard]] int ItemData(int index) const;
  /// Error 381 outside the list.
  void SetItemData(int index, int data);
  /// Where the last AddItem put its entry.
  [[nodiscard]] int NewIndex() const { return newIndex_; }

  /// At the end, or at `index`, or at its place where the list is sorted and no index is given. Error 381 for
  /// an index outside 0 to the count. Raises nothing; the current entry stays current.
  void AddItem(const std::string& text, int index = -1);
  /// Error 381 outside the list. Raises nothing.
  void RemoveItem(int index);
  /// Raises nothing; no entry is current afterwards.
  void Clear();

  /// LB_FINDSTRING (winuser.h): the first entry behind `after` that begins with `text`, case ignored, going
  /// on from the top; -1 where there is none.
  [[nodiscard]] int findString(int after, std::string_view text) const;

  [[nodiscard]] bool takesFocus() const override { return true; }

  void keepDesign() override;
  void restoreDesign() override;

 protected:
  struct Entry {
    std::string text;
    int data = 0;
    bool selected = false;
  };

  ItemBox();

  void changed(const PropertyBase& property) override;
  /// The current entry is another one, by code or by the user.
  virtual void currentChanged() {}
  /// Entry `index` has just gone.
  virtual void entryRemoved(int index) = 0;

  [[nodiscard]] bool holds(int index) const { return index >= 0 && index < ListCount(); }
  void itemsChanged();

  std::vector<Entry> entries_;

 private:
  void checkListIndex(int index) const;
  void checkEntry(int index) const;
  [[nodiscard]] int sortedPlace(std::string_view text) const;

  std::vector<Entry> designEntries_;
  int newIndex_ = -1;
};

}  // namespace varnhold::ui
