#include "ui/wx/bind_containers.h"

#include <optional>

#include "ui/wx/bound_view.h"
#include "ui/wx/icons.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

/// Shows a picture by its name where it differs from the one that is shown.
class PictureOn {
 public:
  explicit PictureOn(wxStaticBitmap& widget) : widget_(widget) {}

  void show(const std::string& name) {
    if (name == name_) return;
    name_ = name;
    widget_.SetBitmap(icon(name));
    layoutSoon(widget_);
  }

 private:
  wxStaticBitmap& widget_;
  std::string name_;
};

class FrameView : public BoundView<ControlView, ui::Frame, wxStaticBox> {
 public:
  FrameView(wxStaticBox& widget, ui::Frame& frame, wxSizer& sizer)
      : BoundView(widget, frame), sizer_(sizer) {}

 private:
  void show(const ui::Frame& frame) override {
    // What stands in the frame may need less room than its caption does.
    const auto room = widget().GetTextExtent(shown(frame.Caption) + "MMM");
    sizer_.SetMinSize(wxSize(room.x, -1));
    showCaption(widget(), frame.Caption);
  }

  wxSizer& sizer_;
};

class PlainFrameView : public BoundView<ControlView, ui::Frame, wxPanel> {
 public:
  using BoundView::BoundView;

 private:
  void show(const ui::Frame&) override {}
};

class ImageView : public BoundView<ControlView, ui::Image, wxStaticBitmap> {
 public:
  ImageView(wxStaticBitmap& widget, ui::Image& image) : BoundView(widget, image), picture_(widget) {}

 private:
  void show(const ui::Image& image) override { picture_.show(image.Picture); }

  PictureOn picture_;
};

class PictureBoxView : public BoundView<ControlView, ui::PictureBox, wxPanel> {
 public:
  PictureBoxView(wxPanel& widget, ui::PictureBox& box, wxStaticBitmap* bitmap) : BoundView(widget, box) {
    if (bitmap != nullptr) picture_.emplace(*bitmap);
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
  auto* sizer = new wxStaticBoxSizer(box, wxVERTICAL);
  bind<FrameView>(box, frame, *sizer);
  return sizer;
}

wxWindow* bindPlainFrame(wxWindow* parent, ui::Frame& frame) {
  return bind<PlainFrameView>(new wxPanel(parent), frame);
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

wxWindow* bindImage(wxWindow* parent, ui::Image& image) {
  return bind<ImageView>(new wxStaticBitmap(parent, wxID_ANY, wxBitmapBundle()), image);
}

}  // namespace varnhold::ui::wx
