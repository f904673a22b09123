#pragma once

#include <functional>

#include "ui/controls/component.h"

namespace varnhold::ui {

/// A part of a bar: a panel, a button. The bar is told of every change of its parts.
class BarPart : public Component {
 public:
  explicit BarPart(std::function<void()> tellBar) : tellBar_(std::move(tellBar)) {}

 protected:
  void changed(const PropertyBase&) override { tellBar_(); }
  void runHandler(const std::function<void()>& handler) const override { handler(); }

 private:
  std::function<void()> tellBar_;
};

}  // namespace varnhold::ui
