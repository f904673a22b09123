#include "ui/wx/icons.h"

#include "ui/wx/icon_drawings.h"
#include "ui/wx/wx_headers.h"

namespace varnhold::ui::wx {
namespace {

/// A bundle that has every size.
class DrawnBundle : public wxBitmapBundleImpl {
 public:
  explicit DrawnBundle(const Drawing& drawing) : drawing_(drawing) {}

  wxSize GetDefaultSize() const override { return {drawing_.width, drawing_.height}; }
  wxSize GetPreferredBitmapSizeAtScale(double scale) const override {
    return {wxRound(drawing_.width * scale), wxRound(drawing_.height * scale)};
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
  wxBitmap last_;
};

}  // namespace

wxBitmapBundle icon(const std::string& name) {
  const auto* drawing = drawingOf(name);
  return drawing == nullptr ? wxBitmapBundle() : wxBitmapBundle::FromImpl(new DrawnBundle(*drawing));
}

wxIconBundle windowIcon(const std::string& name) {
  wxIconBundle icons;
  const auto picture = icon(name);
  if (!picture.IsOk()) return icons;
  for (const int side : {16, 20, 24, 32, 48, 64}) icons.AddIcon(picture.GetIcon({side, side}));
  return icons;
}

wxVector<wxBitmapBundle> picturesOf(const ui::ImageList* list) {
  wxVector<wxBitmapBundle> pictures;
  for (int index = 1; list != nullptr && index <= list->Count(); ++index) {
    pictures.push_back(icon(list->ListImages(index)));
  }
  return pictures;
}

}  // namespace varnhold::ui::wx
