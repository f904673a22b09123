#include "ui/controls/splitter.h"

namespace varnhold::ui {

void Splitter::userPress(double x) {
  act([&] { MouseDown.raise(x); });
}

void Splitter::userMove(double x) {
  act([&] { MouseMove.raise(x); });
}

void Splitter::userRelease(double x) {
  act([&] { MouseUp.raise(x); });
}

}  // namespace varnhold::ui
