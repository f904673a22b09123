#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/controls/property.h"

namespace varnhold::ui {

class ListView;

/// The head of a column.
class ColumnHeader : public Component {
 public:
  ColumnHeader(ListView& list, std::string text);

  Property<std::string> Text{*this};
  /// The column's part of the list's width, next to the parts of the others: 1 and 3 make a quarter and three
  /// quarters. 0 keeps the width that its own text needs.
  Property<double> Width{*this, 1.0};

  /// Its place among the columns, from 1.
  [[nodiscard]] int Index() const;

 protected:
  void changed(const PropertyBase& property) override;
  void runHandler(const std::function<void()>& handler) const override;

 private:
  ListView& list_;
};

/// The columns of a list view, counted from 1.
class ColumnHeaders {
 public:
  explicit ColumnHeaders(ListView& list) : list_(list) {}
  ColumnHeaders(const ColumnHeaders&) = delete;
  ColumnHeaders& operator=(const ColumnHeaders&) = delete;

  ColumnHeader& Add(const std::string& text);
  /// Removes the head; the rows keep what they hold under it. Error 35600 for an index outside 1 to the
  /// count.
  void Remove(int index);
  [[nodiscard]] int Count() const { return static_cast<int>(columns_.size()); }
  /// Error 35600 for an index outside 1 to the count.
  [[nodiscard]] ColumnHeader& operator()(int index) const;

  void keepDesign();
  void restoreDesign();

 private:
  struct Design {
    std::string text;
    double width;
  };

  ListView& list_;
  std::vector<std::unique_ptr<ColumnHeader>> columns_;
  std::vector<Design> design_;
};

}  // namespace varnhold::ui
