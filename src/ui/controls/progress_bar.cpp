#include "ui/controls/progress_bar.h"

#include <string>

#include "ui/controls/collection_errors.h"

namespace varnhold::ui {

ProgressBar::ProgressBar()
    : Value(*this, 0, [this](const int& value) {
        if (value < Min || value > Max) {
          raiseInvalidValue("Value", std::to_string(value) + " is outside " + std::to_string(Min) + " to " +
                                         std::to_string(Max));
        }
      }) {}

}  // namespace varnhold::ui
