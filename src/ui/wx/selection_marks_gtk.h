#pragma once

#include <wx/dataview.h>

#include <cstddef>
#include <vector>

namespace varnhold::ui::wx {

/// Rows count from 1; 0 for no item.
[[nodiscard]] wxDataViewItem itemOf(int row);
[[nodiscard]] int rowOf(const wxDataViewItem& item);

/// Which rows of a data view are marked as selected. A GtkTreeView marks each row by itself, so that marking
/// very many takes long: those that are seen are marked at once, and the others in turns of the event loop
/// that are short each. Rows stand in their order, from 1.
class SelectionMarks {
 public:
  /// `list` owns this, and tells it of what the user does.
  explicit SelectionMarks(wxDataViewCtrl& list);

  /// Turns the selection `from`, which `rows` has told, into `to`.
  void show(const std::vector<int>& from, const std::vector<int>& to);
  /// The selection as it is when all rows are marked.
  [[nodiscard]] std::vector<int> rows() const;
  /// What is still to be marked stays as it is: the rows are other ones now.
  void forget();
  /// The user, or an assistive client, has changed marks.
  void selectedByUser();

 private:
  [[nodiscard]] bool isMarking() const { return !toSelect_.empty() || !toUnselect_.empty(); }
  [[nodiscard]] std::vector<int> marked() const;
  void markOfATurn();
  void markSeen(std::vector<int>& rows, bool selected);
  void markSome(std::vector<int>& rows, bool selected, std::size_t most);
  void extendFromFocus();

  wxDataViewCtrl& list_;
  // The selection that is to be shown, and which of its rows and of the others are still to be marked.
  std::vector<int> wanted_, toSelect_, toUnselect_;
};

}  // namespace varnhold::ui::wx
