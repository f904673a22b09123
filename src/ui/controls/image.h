#pragma once

#include <string>
#include <vector>

#include "ui/controls/control.h"

namespace varnhold::ui {

/// A picture of the program's own set, by name; the view knows where pictures lie and which size fits.
class Image : public Viewed<ControlView> {
 public:
  Property<std::string> Picture{*this};
};

/// The pictures that other controls speak of by number, from 1. It is never seen itself, and its view is the
/// set of the toolkit's own pictures.
class ImageList : public Viewed<ControlView> {
 public:
  explicit ImageList(std::vector<std::string> names) : names_(std::move(names)) {}

  /// The name of picture `index`, from 1. Error 35600 where there is none.
  [[nodiscard]] const std::string& ListImages(int index) const;
  [[nodiscard]] int Count() const { return static_cast<int>(names_.size()); }

 private:
  std::vector<std::string> names_;
};

}  // namespace varnhold::ui
