#include "ui/controls/form.h"

#include <algorithm>

#include "ui/controls/menu_item.h"
#include "ui/controls/screen.h"

namespace varnhold::ui {

Form::Form(Screen& screen, std::string name) : screen_(screen), name_(std::move(name)) {}

Form::~Form() {
  screen_.forms().forget(*this);
}

void Form::adopt(std::initializer_list<NamedControl> controls) {
  for (const auto& [name, control] : controls) {
    control.name_ = name;
    control.form_ = this;
    controls_.push_back(&control);
  }
}

void Form::adopt(Control& container, std::initializer_list<NamedControl> controls) {
  adopt(controls);
  for (const auto& named : controls) named.control.container_ = &container;
}

void Form::Load() {
  screen_.forms().load(*this);
}

void Form::Show(Form* owner) {
  screen_.forms().showModeless(*this, owner);
}

void Form::ShowModal(Form* owner) {
  screen_.forms().showModal(*this, owner);
}

void Form::Hide() {
  screen_.forms().hide(*this);
}

bool Form::Unload(UnloadMode mode) {
  return screen_.forms().unload(*this, mode);
}

void Form::Refresh() {
  if (window_ != nullptr) window_->refresh();
}

void Form::ZOrder() {
  if (window_ != nullptr) window_->bringToFront();
}

void Form::PopupMenu(MenuItem& menu) {
  menu.Click.raise();
  if (window_ == nullptr) return;
  poppedUp_ = &menu;
  auto* chosen = window_->popUp(menu);
  screen_.stopIfEnded();
  if (chosen != nullptr && chosen->isReachable()) {
    poppedUp_ = nullptr;
    chosen->Click.raise();
  }
  poppedUp_ = nullptr;
}

Control* Form::controlNamed(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const Control* control) { return control->Name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

std::vector<MenuItem*> Form::menuItems(const MenuItem* menu) const {
  std::vector<MenuItem*> items;
  for (auto* control : controls_) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (item != nullptr && item->Container() == menu) items.push_back(item);
  }
  return items;
}

bool Form::acceptsInput() const {
  return Enabled && screen_.forms().isReachable(*this);
}

void Form::userClose() {
  if (!acceptsInput()) return;
  screen_.dispatch([this] { Unload(UnloadMode::FormControlMenu); });
}

void Form::userResize(int width, int height, ui::WindowState state) {
  if (!visible_) return;
  Width.settle(width);
  Height.settle(height);
  WindowState.settle(state);
  screen_.dispatch([this] { Form_Resize(); });
}

void Form::changed(const PropertyBase&) {
  if (window_ != nullptr) window_->sync();
}

void Form::runHandler(const std::function<void()>& handler) const {
  screen_.raise(handler);
}

void Form::keepAllDesign() {
  keepDesign();
  for (auto* control : controls_) control->keepDesign();
}

void Form::restoreAllDesign() {
  restoreDesign();
  for (auto* control : controls_) control->restoreDesign();
}

void Form::tellControlsOfState() {
  for (auto* control : controls_) control->formStateChanged();
}

}  // namespace varnhold::ui
