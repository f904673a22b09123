#pragma once

#include "ui/controls/containers.h"
#include "ui/controls/image.h"

class wxStaticBoxSizer;
class wxWindow;

namespace varnhold::ui::wx {

/// A frame made in `parent`, as the sizer that lays out what stands in it. `GetStaticBox()` is the parent of
/// those widgets.
wxStaticBoxSizer* bindFrame(wxWindow* parent, ui::Frame& frame);

/// A frame without a caption, made in `parent`, which owns it: nothing is seen of it but what stands in it.
/// It gets its sizer from the caller.
wxWindow* bindPlainFrame(wxWindow* parent, ui::Frame& frame);

/// A container without a caption, or a picture, made in `parent`, which owns it. A container gets its sizer
/// from the caller.
wxWindow* bindPictureBox(wxWindow* parent, ui::PictureBox& box);

/// A picture in its own size, made in `parent`, which owns it.
wxWindow* bindImage(wxWindow* parent, ui::Image& image);

}  // namespace varnhold::ui::wx
