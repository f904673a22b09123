#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>
#include <wx/vector.h>

#include <string>

#include "ui/controls/image.h"

namespace varnhold::ui::wx {

/// The picture of that name, drawn anew at each size that is asked for; an empty bundle where there is none.
/// Its default size is that of a screen of 100 %.
[[nodiscard]] wxBitmapBundle icon(const std::string& name);
/// The picture in the sizes that windows show of themselves; empty where there is none of that name.
[[nodiscard]] wxIconBundle windowIcon(const std::string& name);
/// The pictures of an image list, in its order, for the toolkit's lists and trees, which count from 0.
[[nodiscard]] wxVector<wxBitmapBundle> picturesOf(const ui::ImageList* list);

}  // namespace varnhold::ui::wx
