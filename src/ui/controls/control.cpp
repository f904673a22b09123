#include "ui/controls/control.h"

#include <utility>

#include "base/runtime_error.h"
#include "ui/controls/form.h"
#include "ui/controls/screen.h"

namespace varnhold::ui {

ControlView::~ControlView() {
  if (control_ != nullptr) control_->view_ = nullptr;
}

Control::~Control() {
  releaseView();
}

void Control::SetFocus() {
  if (form_ == nullptr || !takesFocus() || !isShown() || !form_->Visible()) {
    throw RuntimeError(kInvalidProcedureCall,
                       "The control " + name_ + " can't have the focus: it is disabled or not visible.");
  }
  form_->moveFocus(*this);
}

void Control::ZOrder() {
  if (view_ != nullptr) view_->toFront();
}

bool Control::isShown() const {
  for (const auto* control = this; control != nullptr; control = control->container_) {
    if (!control->Enabled || !control->Visible) return false;
  }
  return true;
}

bool Control::isReachable() const {
  return isShown() && (form_ == nullptr || form_->acceptsInput());
}

void Control::userFocus() {
  act([] {});
}

void Control::userMnemonic() {
  userFocus();
}

void Control::restoreDesign() {
  Component::restoreDesign();
  syncView();
}

void Control::changed(const PropertyBase&) {
  syncView();
}

void Control::runHandler(const std::function<void()>& handler) const {
  if (form_ == nullptr) {
    handler();
  } else {
    form_->screen().raise(handler);
  }
}

void Control::act(const std::function<void()>& deed) {
  actWithoutFocus([&] {
    if (form_ != nullptr && takesFocus()) form_->moveFocus(*this);
    // The control that lost the focus may have disabled this one.
    if (isReachable()) deed();
  });
}

void Control::actWithoutFocus(const std::function<void()>& deed) {
  if (!isReachable()) return;
  if (form_ == nullptr) {
    deed();
  } else {
    form_->screen().dispatch(deed);
  }
}

void Control::attachView(ControlView& view) {
  releaseView();
  view_ = &view;
  view.control_ = this;
}

void Control::releaseView() {
  if (view_ == nullptr) return;
  view_->control_ = nullptr;
  std::exchange(view_, nullptr)->released();
}

void Control::syncView() {
  if (view_ != nullptr) view_->sync();
}

}  // namespace varnhold::ui
