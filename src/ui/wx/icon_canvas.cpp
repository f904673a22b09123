#include "ui/wx/icon_canvas.h"

#include <wx/brush.h>
#include <wx/graphics.h>
#include <wx/pen.h>

#include <cstring>
#include <utility>

namespace varnhold::ui::wx {
namespace {

wxImage clearImage(wxSize pixels) {
  wxImage image(pixels);
  image.InitAlpha();
  std::memset(image.GetAlpha(), 0, static_cast<std::size_t>(pixels.x) * static_cast<std::size_t>(pixels.y));
  return image;
}

}  // namespace

IconCanvas::IconCanvas(wxSize pixels, double width, double height) : image_(clearImage(pixels)) {
  context_.reset(wxGraphicsContext::Create(image_));
  context_->SetAntialiasMode(wxANTIALIAS_DEFAULT);
  context_->Scale(pixels.x / width, pixels.y / height);
}

IconCanvas::~IconCanvas() = default;

IconCanvas& IconCanvas::colour(const wxColour& colour) {
  colour_ = colour;
  context_->SetBrush(wxBrush(colour));
  context_->SetPen(wxNullPen);
  return *this;
}

IconCanvas& IconCanvas::box(double x, double y, double width, double height, double corner) {
  if (corner > 0) {
    context_->DrawRoundedRectangle(x, y, width, height, corner);
  } else {
    context_->DrawRectangle(x, y, width, height);
  }
  return *this;
}

IconCanvas& IconCanvas::disc(double x, double y, double radius) {
  context_->DrawEllipse(x - radius, y - radius, 2 * radius, 2 * radius);
  return *this;
}

IconCanvas& IconCanvas::shape(std::initializer_list<Point> corners) {
  auto path = context_->CreatePath();
  path.MoveToPoint(corners.begin()->x, corners.begin()->y);
  for (const auto& corner : corners) path.AddLineToPoint(corner.x, corner.y);
  path.CloseSubpath();
  context_->FillPath(path);
  return *this;
}

IconCanvas& IconCanvas::line(Point from, Point to, double width) {
  context_->SetPen(context_->CreatePen(wxGraphicsPenInfo(colour_, width).Cap(wxCAP_ROUND)));
  context_->StrokeLine(from.x, from.y, to.x, to.y);
  context_->SetPen(wxNullPen);
  return *this;
}

IconCanvas& IconCanvas::ring(double x, double y, double radius, double width) {
  auto path = context_->CreatePath();
  path.AddCircle(x, y, radius);
  context_->SetPen(context_->CreatePen(wxGraphicsPenInfo(colour_, width)));
  context_->StrokePath(path);
  context_->SetPen(wxNullPen);
  return *this;
}

IconCanvas& IconCanvas::fade(double x, double y, double width, double height, double corner,
                             const wxColour& from, const wxColour& to) {
  context_->SetBrush(context_->CreateLinearGradientBrush(x, y, x + width, y + height, from, to));
  context_->SetPen(wxNullPen);
  return box(x, y, width, height, corner);
}

wxImage IconCanvas::take() {
  context_.reset();  // writes into the image
  return std::move(image_);
}

}  // namespace varnhold::ui::wx
