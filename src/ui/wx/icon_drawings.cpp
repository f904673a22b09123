#include "ui/wx/icon_drawings.h"

#include <algorithm>
#include <cmath>
#include <numbers>

// Small pictures stand on a grid of 16 units. One style: flat, dark bodies, light screens, and a round badge
// at the bottom right for what is done to the thing.
namespace varnhold::ui::wx {
namespace {

/// A screen on its foot, in a square of `size` units.
void monitor(IconCanvas& canvas, double x, double y, double size, const wxColour& body,
             const wxColour& screen) {
  const double unit = size / 16;
  canvas.colour(body).box(x + 1 * unit, y + 2 * unit, 14 * unit, 10 * unit, unit);
  canvas.box(x + 6 * unit, y + 12 * unit, 4 * unit, unit);
  canvas.box(x + 4 * unit, y + 13 * unit, 8 * unit, unit);
  canvas.colour(screen).box(x + 2 * unit, y + 3 * unit, 12 * unit, 8 * unit);
}

void computer(IconCanvas& canvas) {
  monitor(canvas, 0, 0, 16, paint::kInk, paint::kSky);
  canvas.colour(paint::kBlue).shape({{2, 11}, {2, 8}, {14, 5}, {14, 11}});
}

void group(IconCanvas& canvas) {
  monitor(canvas, 4.5, 0, 11.5, paint::kSteel, paint::kMist);
  canvas.colour(paint::kPaper).box(0.2, 4.8, 11.2, 8.2, 1);
  monitor(canvas, 0, 4, 11.5, paint::kInk, paint::kSky);
  canvas.colour(paint::kBlue).shape({{1.75, 11.6}, {1.75, 10}, {9.8, 8}, {9.8, 11.6}});
}

/// A disc at the bottom right, with room around it.
void badge(IconCanvas& canvas, const wxColour& colour) {
  canvas.colour(paint::kPaper).disc(11.5, 11.5, 4.5);
  canvas.colour(colour).disc(11.5, 11.5, 3.9);
  canvas.colour(paint::kPaper);
}

void plusBadge(IconCanvas& canvas) {
  badge(canvas, paint::kGreen);
  canvas.line({9.5, 11.5}, {13.5, 11.5}, 1.3).line({11.5, 9.5}, {11.5, 13.5}, 1.3);
}

void minusBadge(IconCanvas& canvas) {
  badge(canvas, paint::kRed);
  canvas.line({9.5, 11.5}, {13.5, 11.5}, 1.5);
}

void arrowBadge(IconCanvas& canvas) {
  badge(canvas, paint::kAmber);
  canvas.shape({{11.5, 8.5}, {14.3, 11.5}, {8.7, 11.5}}).box(10.5, 11, 2, 3);
}

void addSystem(IconCanvas& canvas) {
  computer(canvas);
  plusBadge(canvas);
}

void removeSystem(IconCanvas& canvas) {
  computer(canvas);
  minusBadge(canvas);
}

void upgrade(IconCanvas& canvas) {
  computer(canvas);
  arrowBadge(canvas);
}

void createGroup(IconCanvas& canvas) {
  group(canvas);
  plusBadge(canvas);
}

void deleteGroup(IconCanvas& canvas) {
  group(canvas);
  minusBadge(canvas);
}

/// A cog wheel of eight teeth.
void configure(IconCanvas& canvas) {
  canvas.colour(paint::kInk);
  for (int tooth = 0; tooth < 4; ++tooth) {
    const double angle = tooth * std::numbers::pi / 4;
    const double x = 5.9 * std::cos(angle), y = 5.9 * std::sin(angle);
    canvas.line({8 - x, 8 - y}, {8 + x, 8 + y}, 2.6);
  }
  canvas.disc(8, 8, 5.2);
  canvas.colour(paint::kSky).disc(8, 8, 3.2);
  canvas.colour(paint::kPaper).disc(8, 8, 1.7);
}

void search(IconCanvas& canvas) {
  canvas.colour(paint::kInk).line({10.2, 10.2}, {13.8, 13.8}, 2.6);
  canvas.colour(paint::kSky).disc(6.5, 6.5, 4.6);
  canvas.colour(paint::kPaper).line({4.6, 6.4}, {6.4, 4.6}, 1.2);
  canvas.colour(paint::kInk).ring(6.5, 6.5, 4.8, 1.6);
}

void information(IconCanvas& canvas) {
  canvas.colour(paint::kBlue).disc(16, 16, 14.5);
  canvas.colour(paint::kPaper).disc(16, 9.2, 2.2).line({16, 15}, {16, 23.4}, 3.6);
}

void warning(IconCanvas& canvas) {
  canvas.colour(paint::kAmber).shape({{16, 4}, {29, 27}, {3, 27}});
  // Round corners.
  canvas.line({16, 4}, {29, 27}, 3).line({29, 27}, {3, 27}, 3).line({3, 27}, {16, 4}, 3);
  canvas.colour(paint::kPaper).line({16, 11.5}, {16, 18.5}, 3).disc(16, 23.6, 1.8);
}

void keepSnapsYes(IconCanvas& canvas) {
  canvas.colour(paint::kGreen).disc(8, 8, 6.6);
  canvas.colour(paint::kPaper).line({5, 8.2}, {7.2, 10.4}, 1.7).line({7.2, 10.4}, {11.2, 5.9}, 1.7);
}

void keepSnapsNo(IconCanvas& canvas) {
  canvas.colour(paint::kRed).disc(8, 8, 6.6);
  canvas.colour(paint::kPaper).line({5.6, 5.6}, {10.4, 10.4}, 1.7).line({10.4, 5.6}, {5.6, 10.4}, 1.7);
}

void varnhold(IconCanvas& canvas) {
  drawVarnholdMark(canvas, 0, 0, 32);
}

void tessmark(IconCanvas& canvas) {
  drawTessmarkMark(canvas, 0, 0, 32);
}

}  // namespace

const std::vector<Drawing>& allDrawings() {
  static const std::vector<Drawing> all = {
      {"computer", 16, 16, computer},
      {"group", 16, 16, group},
      {"add-system", 16, 16, addSystem},
      {"remove-system", 16, 16, removeSystem},
      {"upgrade", 16, 16, upgrade},
      {"configure", 16, 16, configure},
      {"search", 16, 16, search},
      {"create-group", 16, 16, createGroup},
      {"delete-group", 16, 16, deleteGroup},
      {"keep-snaps-yes", 16, 16, keepSnapsYes},
      {"keep-snaps-no", 16, 16, keepSnapsNo},
      {"information", 32, 32, information},
      {"warning", 32, 32, warning},
      {"app-varnhold", 32, 32, varnhold},
      {"app-tessmark", 32, 32, tessmark},
      {"splash-varnhold", 420, 240, drawVarnholdSplash},
      {"splash-tessmark", 420, 240, drawTessmarkSplash},
  };
  return all;
}

const Drawing* drawingOf(const std::string& name) {
  const auto& all = allDrawings();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const Drawing& one) { return one.name == name; });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace varnhold::ui::wx
