#include "ui/controls/form_stack.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "ui/controls/dispatcher.h"
#include "ui/controls/form.h"
#include "ui/controls/toolkit.h"

namespace varnhold::ui {

void FormStack::load(Form& form) {
  if (form.loaded_) return;
  if (form.designKept_) {
    form.restoreAllDesign();
  } else {
    form.keepAllDesign();
    form.designKept_ = true;
  }
  form.loaded_ = true;
  form.tellControlsOfState();
  dispatcher_.raise([&] { form.Form_Load(); });
}

bool FormStack::show(Form& form, Form* owner, bool modal) {
  dispatcher_.stopIfEnded();
  load(form);
  if (!form.loaded_) return false;
  const bool wasOnTop = top() == &form;
  std::erase(shown_, &form);
  shown_.push_back(&form);
  if (form.visible_) {
    form.window_->bringToFront();
    if (!wasOnTop) activateTop();
    return true;
  }
  form.visible_ = true;
  form.modal_ = modal;
  form.owner_ = owner;
  if (form.window_ == nullptr) form.window_ = toolkit_.createWindow(form);
  form.window_->show(owner, modal);
  dispatcher_.raise([&] { form.Form_Resize(); });
  activateTop();
  if (form.visible_) form.focusFirst();
  return true;
}

void FormStack::showModeless(Form& form, Form* owner) {
  const bool modalShown =
      std::any_of(shown_.begin(), shown_.end(), [](const Form* other) { return other->modal_; });
  if (modalShown) {
    throw RuntimeError(kModalFormDisplayed,
                       "Can't show the form " + form.Name() + " modeless while a modal form is displayed.");
  }
  show(form, owner, false);
}

void FormStack::showModal(Form& form, Form* owner) {
  if (form.visible_) {
    throw RuntimeError(kFormAlreadyDisplayed,
                       "The form " + form.Name() + " is displayed already; it can't be shown modally.");
  }
  if (!show(form, owner, true)) return;
  // Kept here, since the form lets go of its window when it is unloaded.
  const auto window = form.window_;
  if (form.visible_) window->runModal();
  dispatcher_.stopIfEnded();
  activateTop();
}

void FormStack::activateTop() {
  auto* form = top();
  if (form != nullptr) dispatcher_.raise([&] { form->Form_Activate(); });
}

bool FormStack::takeOff(Form& form) {
  if (!form.visible_) return false;
  const bool uncovers = top() == &form && !form.modal_;
  std::erase(shown_, &form);
  form.visible_ = false;
  form.window_->hide();
  if (form.modal_) form.window_->endModal();
  form.modal_ = false;
  return uncovers;
}

void FormStack::hide(Form& form) {
  if (takeOff(form)) activateTop();
}

bool FormStack::mayUnload(Form& form, UnloadMode mode) {
  int cancel = 0;
  dispatcher_.raise([&] { form.Form_QueryUnload(cancel, mode); });
  if (cancel != 0) return false;
  const auto others = shown_;
  return std::all_of(others.begin(), others.end(), [&](Form* other) {
    return other->owner_ != &form || !other->visible_ || unload(*other, UnloadMode::FormOwner);
  });
}

bool FormStack::unload(Form& form, UnloadMode mode) {
  if (!form.loaded_) return true;
  if (form.unloading_) return false;
  struct Unloading {
    explicit Unloading(bool& value) : flag(value) { flag = true; }
    ~Unloading() { flag = false; }
    bool& flag;
  } unloading(form.unloading_);

  if (!mayUnload(form, mode)) return false;
  dispatcher_.raise([&] { form.Form_Unload(); });
  const bool uncovers = takeOff(form);
  form.loaded_ = false;
  form.active_ = nullptr;
  form.window_.reset();
  form.restoreAllDesign();
  form.tellControlsOfState();
  if (uncovers) activateTop();
  return true;
}

void FormStack::forget(Form& form) {
  std::erase(shown_, &form);
  for (auto* other : shown_) {
    if (other->owner_ == &form) other->owner_ = nullptr;
  }
}

bool FormStack::isReachable(const Form& form) const {
  const auto place = std::find(shown_.begin(), shown_.end(), &form);
  return place != shown_.end() &&
         std::none_of(std::next(place), shown_.end(), [](const Form* above) { return above->modal_; });
}

void FormStack::endModalLoops() {
  for (auto* form : shown_) {
    if (form->modal_) form->window_->endModal();
  }
}

void FormStack::closeAll() {
  for (auto* form : shown_) {
    form->visible_ = false;
    form->modal_ = false;
    form->window_->hide();
    form->window_.reset();
  }
  shown_.clear();
}

}  // namespace varnhold::ui
