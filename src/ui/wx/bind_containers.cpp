#include "ui/wx/bind_containers.h"

#include <optional>

#include "ui/wx/bound_view.h"
#include "ui/wx/icons.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kPictureSize = 32;

/// Shows a picture by its name where it differs from the one that is shown.
class PictureOn {
 public:
  PictureOn(wxStaticBitmap& widget, int size) : widget_(widget), size_(size) {}

  void show(const std::string& name) {
    if (name == name_) return;
    name_ = name;
    const auto picture = icon(name);
    widget_.SetBitmap(
        picture.IsOk() ? wxBitmapBundle(picture.GetBitmap(widget_.FromDIP(wxSize(size_, size_)))) : picture);
    layoutSoon(widget_);
  }

 private:
  wxStaticBitmap& widget_;
  int size_;
  std::string name_;
};

class FrameView : public BoundView<ControlView, ui::Frame, wxStaticBox> {
 public:
  using BoundView::BoundView;

 private:
  void show(const ui::Frame& frame) override { showCaption(widget(), frame.Caption); }
};

class ImageView : public BoundView<ControlView, ui::Image, wxStaticBitmap> {
 public:
  ImageView(wxStaticBitmap& widget, ui::Image& image, int size)
      : BoundView(widget, image), picture_(widget, size) {}

 private:
  void show(const ui::Image& image) override { picture_.show(image.Picture); }

  PictureOn picture_;
};

class PictureBoxView : public BoundView<ControlView, ui::PictureBox, wxPanel> {
 public:
  PictureBoxView(wxPanel& widget, ui::PictureBox& box, wxStaticBitmap* bitmap) : BoundView(widget, box) {
    if (bitmap != nullptr) picture_.emplace(*bitmap, kPictureSize);
  }

 private:
  void show(const ui::PictureBox& box) override {
    if (picture_) picture_->show(box.Picture);
  }

  std::optional<PictureOn> picture_;
};

}  // namespace

wxStaticBoxSizer* bindFrame(wxWindow* parent, ui::Frame& frame) {
  auto* box = new wxStaticBox(parent, wxID_ANY, shown(frame.Caption));
  bind<FrameView>(box, frame);
  return new wxStaticBoxSizer(box, wxVERTICAL);
}

wxWindow* bindPictureBox(wxWindow* parent, ui::PictureBox& box) {
  auto* panel = new wxPanel(parent);
  if (box.Picture.get().empty()) return bind<PictureBoxView>(panel, box, nullptr);
  auto* bitmap = new wxStaticBitmap(panel, wxID_ANY, wxBitmapBundle());
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(bitmap);
  panel->SetSizer(sizer);
  return bind<PictureBoxView>(panel, box, bitmap);
}

wxWindow* bindImage(wxWindow* parent, ui::Image& image, int size) {
  return bind<ImageView>(new wxStaticBitmap(parent, wxID_ANY, wxBitmapBundle()), image, size);
}

}  // namespace varnhold::ui::wx
