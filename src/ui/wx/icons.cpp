#include "ui/wx/icons.h"

#include "ui/wx/icon_drawings.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {
namespace {

/// A bundle that has every size.
class DrawnBundle : public wxBitmapBundleImpl {
 public:
  DrawnBundle(const Drawing& drawing, wxSize defaultSize) : drawing_(drawing), defaultSize_(defaultSize) {}

  wxSize GetDefaultSize() const override { return defaultSize_; }
  wxSize GetPreferredBitmapSizeAtScale(double scale) const override {
    return {wxRound(defaultSize_.x * scale), wxRound(defaultSize_.y * scale)};
  }
  wxBitmap GetBitmap(const wxSize& size) override {
    if (!last_.IsOk() || last_.GetSize() != size) last_ = wxBitmap(draw(size));
    return last_;
  }

 private:
  [[nodiscard]] wxImage draw(wxSize size) const {
    IconCanvas canvas(size, drawing_.width, drawing_.height);
    drawing_.draw(canvas);
    return canvas.take();
  }

  const Drawing& drawing_;
  wxSize defaultSize_;
  wxBitmap last_;
};

wxBitmapBundle bundleOf(const Drawing& drawing, wxSize defaultSize) {
  return wxBitmapBundle::FromImpl(new DrawnBundle(drawing, defaultSize));
}

}  // namespace

wxBitmapBundle icon(const std::string& name) {
  const auto* drawing = drawingOf(name);
  return drawing == nullptr ? wxBitmapBundle() : bundleOf(*drawing, {drawing->width, drawing->height});
}

wxIconBundle windowIcon(const std::string& name) {
  wxIconBundle icons;
  const auto picture = icon(name);
  if (!picture.IsOk()) return icons;
  for (const int side : {16, 20, 24, 32, 48, 64}) icons.AddIcon(picture.GetIcon({side, side}));
  return icons;
}

wxVector<wxBitmapBundle> picturesOf(const ui::ImageList* list) {
  // All of one size, whatever size they have elsewhere: the rows are as high as the highest of them.
  const wxSize size(16, 16);
  wxVector<wxBitmapBundle> pictures;
  for (int index = 1; list != nullptr && index <= list->Count(); ++index) {
    const auto* drawing = drawingOf(list->ListImages(index));
    pictures.push_back(drawing == nullptr ? wxBitmapBundle() : bundleOf(*drawing, size));
  }
  return pictures;
}

}  // namespace varnhold::ui::wx
