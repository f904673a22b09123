// The products' marks, and the large pictures of the splash forms.
#include <array>

#include "ui/wx/icon_drawings.h"

namespace varnhold::ui::wx {
namespace {

using Point = IconCanvas::Point;

/// A rounded tile in the product's colour, the ground of its mark.
void tile(IconCanvas& canvas, double x, double y, double size, const wxColour& light, const wxColour& dark) {
  canvas.fade(x + size / 32, y + size / 32, size * 30 / 32, size * 30 / 32, size * 6 / 32, light, dark);
}

/// Computers and the lines that lead from them to the manager, to the right of the mark.
void network(IconCanvas& canvas, const wxColour& line, const wxColour& body) {
  static constexpr std::array<Point, 5> kPlaces = {
      {{282, 52}, {362, 84}, {378, 170}, {300, 196}, {236, 122}}};
  canvas.colour(line);
  for (const auto& place : kPlaces) canvas.line({110, 120}, {place.x, place.y}, 1.5);
  for (const auto& place : kPlaces) {
    canvas.colour(body).box(place.x - 17, place.y - 13, 34, 23, 3);
    canvas.box(place.x - 4, place.y + 10, 8, 4).box(place.x - 10, place.y + 13, 20, 3, 1.5);
    canvas.colour(line).box(place.x - 14, place.y - 10, 28, 17);
  }
}

void ground(IconCanvas& canvas, const wxColour& from, const wxColour& to) {
  canvas.fade(0, 0, 420, 240, 0, from, to);
}

}  // namespace

void drawVarnholdMark(IconCanvas& canvas, double x, double y, double size) {
  const double u = size / 32;
  const auto at = [&](double px, double py) { return Point{x + px * u, y + py * u}; };
  tile(canvas, x, y, size, wxColour(0x3f, 0x8a, 0xe0), wxColour(0x1d, 0x4f, 0x9a));
  canvas.colour(paint::kPaper)
      .shape({at(6, 8), at(10.5, 8), at(16, 19), at(21.5, 8), at(26, 8), at(18, 24.5), at(14, 24.5)});
  canvas.colour(paint::kAmber).disc(x + 16 * u, y + 9.2 * u, 2.4 * u);
}

void drawTessmarkMark(IconCanvas& canvas, double x, double y, double size) {
  const double u = size / 32;
  const auto at = [&](double px, double py) { return Point{x + px * u, y + py * u}; };
  tile(canvas, x, y, size, wxColour(0x22, 0xa8, 0xa4), wxColour(0x0a, 0x63, 0x6b));
  canvas.colour(paint::kPaper)
      .shape(
          {at(7, 8), at(25, 8), at(25, 12), at(18, 12), at(18, 24.5), at(14, 24.5), at(14, 12), at(7, 12)});
  canvas.colour(paint::kAmber).disc(x + 22.6 * u, y + 20.6 * u, 2.4 * u);
}

void drawVarnholdSplash(IconCanvas& canvas) {
  ground(canvas, wxColour(0x16, 0x2c, 0x4d), wxColour(0x24, 0x62, 0xae));
  network(canvas, wxColour(0x6c, 0xa6, 0xe6), wxColour(0xe6, 0xef, 0xf9));
  drawVarnholdMark(canvas, 52, 62, 116);
}

void drawTessmarkSplash(IconCanvas& canvas) {
  ground(canvas, wxColour(0x0c, 0x35, 0x3d), wxColour(0x16, 0x86, 0x86));
  network(canvas, wxColour(0x5f, 0xc6, 0xc0), wxColour(0xe4, 0xf5, 0xf3));
  drawTessmarkMark(canvas, 52, 62, 116);
}

}  // namespace varnhold::ui::wx
