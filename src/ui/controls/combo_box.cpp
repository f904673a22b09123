#include "ui/controls/combo_box.h"

#include "base/runtime_error.h"
#include "base/text.h"

namespace varnhold::ui {

ComboBox::ComboBox() : Text(*this, {}, [this](const std::string& text) { checkText(text); }) {}

int ComboBox::findText(std::string_view text) const {
  for (int i = 0; i < ListCount(); ++i) {
    if (equalsIgnoringCase(entries_[static_cast<std::size_t>(i)].text, text)) return i;
  }
  return -1;
}

void ComboBox::checkText(const std::string& text) const {
  if (Style == ComboStyle::DropDownCombo || findText(text) >= 0) return;
  throw RuntimeError(kPropertyIsReadOnly, "'Text' property is read-only: \"" + text +
                                              "\" is no entry of the list " + Name() + ".");
}

void ComboBox::changed(const PropertyBase& property) {
  if (&property != &Text) {
    ItemBox::changed(property);
    return;
  }
  const int found = findText(Text.get());
  if (Style == ComboStyle::DropDownCombo) {
    ListIndex.settle(found);
    syncView();
    Change.raise();
  } else if (found != ListIndex) {
    ListIndex = found;
  } else {
    // Another spelling of the current entry.
    Text.settle(List(found));
  }
}

void ComboBox::currentChanged() {
  Text.settle(List(ListIndex));
  syncView();
}

void ComboBox::entryRemoved(int) {
  ListIndex.settle(-1);
  if (Style == ComboStyle::DropDownList) Text.settle({});
  syncView();
}

void ComboBox::userSelect(int index) {
  act([&] {
    if (holds(index)) ListIndex = index;
  });
}

void ComboBox::userEdit(const std::string& text) {
  act([&] {
    if (Style == ComboStyle::DropDownCombo) Text = text;
  });
}

}  // namespace varnhold::ui
