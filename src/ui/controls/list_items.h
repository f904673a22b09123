#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/controls/constants.h"
#include "ui/controls/list_item.h"

namespace varnhold::ui {

/// The rows of a list view, counted from 1, in the order in which they are shown. Made for 100,000 of them.
class ListItems {
 public:
  using Rows = std::vector<std::unique_ptr<ListItem>>;

  explicit ListItems(ListView& list) : list_(list) {}
  ListItems(const ListItems&) = delete;
  ListItems& operator=(const ListItems&) = delete;

  /// A new row: at the end, or at its place while the list is `Sorted`. Selects nothing.
  ListItem& Add(const std::string& text);
  /// Error 35600 for an index outside 1 to the count.
  void Remove(int index);
  void Clear();

  [[nodiscard]] int Count() const { return static_cast<int>(rows_.size()); }
  /// Error 35600 for an index outside 1 to the count.
  [[nodiscard]] ListItem& operator()(int index);
  [[nodiscard]] const ListItem& operator()(int index) const;

  /// For `for (auto& row : list.ListItems)`; the rows must not come, go or be sorted meanwhile.
  class Iterator {
   public:
    explicit Iterator(Rows::const_iterator at) : at_(at) {}
    ListItem& operator*() const { return **at_; }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    bool operator==(const Iterator& other) const = default;

   private:
    Rows::const_iterator at_;
  };
  [[nodiscard]] Iterator begin() const { return Iterator(rows().begin()); }
  [[nodiscard]] Iterator end() const { return Iterator(rows().end()); }

  /// Another number each time a row came, went, moved or shows something else. The selection does not count.
  [[nodiscard]] std::uint64_t revision() const { return revision_; }

  [[nodiscard]] ListView& list() const { return list_; }
  [[nodiscard]] int indexOf(const ListItem& row) const;
  /// The rows are to be sorted anew before anyone looks at them.
  void orderIsStale() {
    sortPending_ = true;
    ++revision_;
  }
  /// A row shows something else.
  void contentChanged(const ListItem& row);
  /// Sorts now what is still to be sorted.
  void settleOrder() const;

 private:
  [[nodiscard]] const Rows& rows() const;
  [[nodiscard]] std::size_t placeOfNew(const ListItem& row) const;
  void renumberFrom(std::size_t place) const;

  ListView& list_;
  // Sorting is put off until the order is looked at, so that setting key, order and `Sorted` costs one sort.
  mutable Rows rows_;
  mutable bool sortPending_ = false;
  // Rows below this place know their index; the others are numbered when one of them is asked.
  mutable std::size_t numbered_ = 0;
  std::uint64_t revision_ = 1;
};

}  // namespace varnhold::ui
