#pragma once

#include "ui/controls/control.h"

namespace varnhold::ui {

/// The bar between two parts of a form. Positions are in twips from the left edge of the form's inside (15 to
/// a pixel at 100 %). A drag is MouseDown, any number of MouseMoves, MouseUp; the bar itself stays where it
/// is until the form sets `Position`.
class Splitter : public Viewed<ControlView> {
 public:
  Property<double> Position{*this};

  Event<double> MouseDown{*this}, MouseMove{*this}, MouseUp{*this};

  void userPress(double x);
  void userMove(double x);
  void userRelease(double x);
};

}  // namespace varnhold::ui
