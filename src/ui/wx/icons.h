#pragma once

#include <wx/bmpbndl.h>

#include <string>

namespace varnhold::ui::wx {

/// The picture of that name in all its sizes; an empty bundle where there is none.
[[nodiscard]] wxBitmapBundle icon(const std::string& name);

}  // namespace varnhold::ui::wx
