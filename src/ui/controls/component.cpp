#include "ui/controls/component.h"

namespace varnhold::ui {

PropertyBase::PropertyBase(Component& owner) : owner_(owner) {
  owner.properties_.push_back(this);
}

void PropertyBase::tellOwner() const {
  owner_.changed(*this);
}

void Component::keepDesign() {
  for (auto* property : properties_) property->keepDesign();
}

void Component::restoreDesign() {
  for (auto* property : properties_) property->restoreDesign();
}

}  // namespace varnhold::ui
