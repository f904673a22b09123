#pragma once

#include <wx/colour.h>
#include <wx/image.h>

#include <initializer_list>
#include <memory>

class wxGraphicsContext;
class wxGraphicsPath;

namespace varnhold::ui::wx {

/// The few colours that all pictures are made of.
namespace paint {
inline const wxColour kInk(0x3b, 0x4a, 0x5c), kSteel(0x7b, 0x8a, 0x9c), kMist(0xd5, 0xde, 0xe8),
    kPaper(0xff, 0xff, 0xff);
inline const wxColour kBlue(0x2f, 0x72, 0xc4), kSky(0x8f, 0xc1, 0xf0), kTeal(0x0f, 0x8b, 0x8d);
inline const wxColour kGreen(0x2c, 0x9a, 0x55), kRed(0xcc, 0x3d, 0x35), kAmber(0xe8, 0x9b, 0x1c);
}  // namespace paint

/// What pictures are drawn on: a clear area of `width` by `height` units, whatever the size of the picture
/// in pixels, so that each size is as sharp as its pixels allow.
class IconCanvas {
 public:
  struct Point {
    double x, y;
  };

  /// A picture of `pixels`.
  IconCanvas(wxSize pixels, double width, double height);
  ~IconCanvas();
  IconCanvas(const IconCanvas&) = delete;
  IconCanvas& operator=(const IconCanvas&) = delete;

  /// Shapes filled with the colour that was chosen last.
  IconCanvas& colour(const wxColour& colour);
  IconCanvas& box(double x, double y, double width, double height, double corner = 0);
  IconCanvas& disc(double x, double y, double radius);
  IconCanvas& shape(std::initializer_list<Point> corners);
  /// A line of that width with round ends, and a circle drawn with it.
  IconCanvas& line(Point from, Point to, double width);
  IconCanvas& ring(double x, double y, double radius, double width);
  /// A box that goes from one colour at its top left to another at its bottom right.
  IconCanvas& fade(double x, double y, double width, double height, double corner, const wxColour& from,
                   const wxColour& to);

  /// The picture, for the one time. Nothing can be drawn afterwards.
  [[nodiscard]] wxImage take();

 private:
  wxImage image_;
  std::unique_ptr<wxGraphicsContext> context_;
  wxColour colour_;
};

}  // namespace varnhold::ui::wx
