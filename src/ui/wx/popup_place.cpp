#include "ui/wx/popup_place.h"

#include <utility>

#include "ui/wx/application.h"

namespace varnhold::ui::wx {
namespace {

std::optional<wxPoint>& place() {
  return static_cast<Application&>(*wxTheApp).popUpPlace;
}

}  // namespace

PopUpPlace::PopUpPlace(wxPoint onScreen) : outer_(std::exchange(place(), onScreen)) {}

PopUpPlace::~PopUpPlace() {
  place() = outer_;
}

std::optional<wxPoint> PopUpPlace::current() {
  return place();
}

}  // namespace varnhold::ui::wx
