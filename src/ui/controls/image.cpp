#include "ui/controls/image.h"

#include "ui/controls/collection_errors.h"

namespace varnhold::ui {

const std::string& ImageList::ListImages(int index) const {
  checkIndex("picture", index, names_.size());
  return names_[static_cast<std::size_t>(index) - 1];
}

}  // namespace varnhold::ui
