// The keyboard on a form: the focus, Enter and Escape, shortcuts, mnemonics.
#include <algorithm>
#include <iterator>

#include "base/unicode.h"
#include "ui/controls/caption.h"
#include "ui/controls/command_button.h"
#include "ui/controls/form.h"
#include "ui/controls/label.h"
#include "ui/controls/menu_item.h"
#include "ui/controls/screen.h"

namespace varnhold::ui {
namespace {

constexpr int kFirstFunctionKey = 112;  // winuser.h, VK_F1
constexpr int kLastFunctionKey = 123;   // VK_F12

/// The key as a menu shows it: "F5", "Ctrl+F"; empty for a key that can be no shortcut.
std::string shortcutName(int key, int modifiers) {
  std::string name;
  if ((modifiers & kControl) != 0) name += "Ctrl+";
  if ((modifiers & kShift) != 0) name += "Shift+";
  if (key >= kFirstFunctionKey && key <= kLastFunctionKey) {
    return name + "F" + std::to_string(key - kFirstFunctionKey + 1);
  }
  const bool isLetterOrDigit = (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
  return isLetterOrDigit && (modifiers & kControl) != 0 ? name + static_cast<char>(key) : std::string();
}

/// Nobody can know which of the controls that share a mnemonic is meant: it presses none of them, as with the
/// hosts' own dialogs. A label, which can't have the focus, sends it on.
void focusByMnemonic(Control& owner) {
  if (owner.takesFocus()) {
    owner.userFocus();
  } else {
    owner.userMnemonic();
  }
}

}  // namespace

bool Form::canFocus(const Control& control) {
  return control.takesFocus() && control.isShown();
}

Control* Form::ActiveControl() const {
  return active_ != nullptr && canFocus(*active_) ? active_ : nullptr;
}

Control* Form::focusableBehind(const Control& control) const {
  const auto from = std::find(controls_.begin(), controls_.end(), &control);
  const auto found = std::find_if(from, controls_.end(), [&](const Control* candidate) {
    return candidate != &control && canFocus(*candidate);
  });
  return found == controls_.end() ? nullptr : *found;
}

void Form::moveFocus(Control& control) {
  if (active_ == &control) return;
  auto* left = ActiveControl();
  active_ = &control;
  if (left != nullptr) left->LostFocus.raise();
  // The handler may have sent the focus somewhere else.
  if (active_ != &control) return;
  if (control.attachedView() != nullptr) control.attachedView()->takeFocus();
  control.GotFocus.raise();
}

void Form::focusFirst() {
  if (ActiveControl() != nullptr) return;
  const auto first = std::find_if(controls_.begin(), controls_.end(),
                                  [](const Control* control) { return canFocus(*control); });
  if (first != controls_.end()) moveFocus(**first);
}

MenuItem* Form::menuItemFor(int key, int modifiers) const {
  const auto name = shortcutName(key, modifiers);
  if (name.empty()) return nullptr;
  for (auto* control : controls_) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (item != nullptr && item->Shortcut == name && item->isReachable()) return item;
  }
  return nullptr;
}

CommandButton* Form::buttonFor(int key) const {
  if (key != kKeyReturn && key != kKeyEscape) return nullptr;
  if (key == kKeyReturn) {
    if (auto* focused = dynamic_cast<CommandButton*>(ActiveControl())) return focused;
  }
  for (auto* control : controls_) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !button->isReachable()) continue;
    if (key == kKeyReturn ? button->Default : button->Cancel) return button;
  }
  return nullptr;
}

bool Form::usesKey(int key, int modifiers) const {
  if (menuItemFor(key, modifiers) != nullptr) return true;
  return modifiers == kNoModifier && buttonFor(key) != nullptr;
}

void Form::userKeyDown(int key, int modifiers) {
  if (!acceptsInput()) return;
  if (auto* item = menuItemFor(key, modifiers)) {
    item->userClick();
    return;
  }
  screen_.dispatch([&] { Form_KeyDown(key, modifiers); });
  if (key == 0 || modifiers != kNoModifier) return;
  if (auto* button = buttonFor(key)) button->userPress();
}

void Form::userMnemonic(char32_t letter) {
  const auto wanted = upperCase(letter);
  const auto answers = [&](const Control* control) {
    // A menu's mnemonic is the toolkit's to answer.
    return dynamic_cast<const MenuItem*>(control) == nullptr && control->isReachable() &&
           mnemonicOf(control->mnemonicText()) == wanted;
  };
  // From the control behind the focused one to the end, then from the top.
  const auto middle = active_ == nullptr ? controls_.begin()
                                         : std::next(std::find(controls_.begin(), controls_.end(), active_));
  std::vector<Control*> owners;
  std::copy_if(middle, controls_.end(), std::back_inserter(owners), answers);
  std::copy_if(controls_.begin(), middle, std::back_inserter(owners), answers);
  // A label that names a button by its caption does not stand in its way.
  const auto isLabel = [](const Control* control) { return dynamic_cast<const Label*>(control) != nullptr; };
  if (!std::all_of(owners.begin(), owners.end(), isLabel)) std::erase_if(owners, isLabel);
  if (owners.empty()) return;
  if (owners.size() == 1) {
    owners.front()->userMnemonic();
  } else {
    focusByMnemonic(*owners.front());
  }
}

}  // namespace varnhold::ui
