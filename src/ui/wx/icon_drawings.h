#pragma once

#include <string>
#include <vector>

#include "ui/wx/icon_canvas.h"

namespace varnhold::ui::wx {

/// A picture of the program's own set.
struct Drawing {
  const char* name;
  /// How large it is on a screen of 100 %, in pixels; also the units that `draw` draws in.
  int width, height;
  void (*draw)(IconCanvas& canvas);
};

/// The drawing of that name, or nothing.
[[nodiscard]] const Drawing* drawingOf(const std::string& name);
/// The names of all drawings, in the order in which a sheet shows them.
[[nodiscard]] const std::vector<Drawing>& allDrawings();

// The large ones, which stand in a file of their own.
void drawVarnholdSplash(IconCanvas& canvas);
void drawTessmarkSplash(IconCanvas& canvas);
/// The marks of the two products, in a square of `size` units at x, y.
void drawVarnholdMark(IconCanvas& canvas, double x, double y, double size);
void drawTessmarkMark(IconCanvas& canvas, double x, double y, double size);

}  // namespace varnhold::ui::wx
