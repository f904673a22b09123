#include "ui/wx/views.h"

namespace varnhold::ui::wx {

Views allViews() {
  return {};
}

}  // namespace varnhold::ui::wx
