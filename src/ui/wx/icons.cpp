#include "ui/wx/icons.h"

namespace varnhold::ui::wx {

wxBitmapBundle icon(const std::string&) {
  return {};
}

}  // namespace varnhold::ui::wx
