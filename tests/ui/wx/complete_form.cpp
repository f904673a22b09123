#include "tests/ui/wx/complete_form.h"

#include "ui/controls/image.h"
#include "ui/controls/menu_item.h"
#include "ui/controls/timer.h"
#include "ui/wx/common_values.h"

namespace varnhold::ui::wx {
namespace {

bool hasWidget(const Control& control) {
  return dynamic_cast<const MenuItem*>(&control) == nullptr &&
         dynamic_cast<const Timer*>(&control) == nullptr &&
         dynamic_cast<const ImageList*>(&control) == nullptr;
}

bool mustShowAll(const wxWindow& widget) {
  const bool hasText = dynamic_cast<const wxStaticText*>(&widget) != nullptr ||
                       dynamic_cast<const wxAnyButton*>(&widget) != nullptr ||
                       dynamic_cast<const wxCheckBox*>(&widget) != nullptr ||
                       dynamic_cast<const wxRadioButton*>(&widget) != nullptr ||
                       dynamic_cast<const wxStaticBitmap*>(&widget) != nullptr;
  return hasText && !widget.HasFlag(wxST_ELLIPSIZE_END);
}

}  // namespace

const wxWindow* widgetOf(const wxWindow& top, const Control& control) {
  if (controlOf(top) == &control) return &top;
  for (const auto* child : top.GetChildren()) {
    if (const auto* found = widgetOf(*child, control)) return found;
  }
  return nullptr;
}

void expectWidgetOfEach(const Form& form, const wxWindow& window) {
  for (const auto* control : form.controls()) {
    EXPECT_TRUE(!hasWidget(*control) || widgetOf(window, *control) != nullptr) << control->Name();
  }
}

void expectNothingIsCutOff(const wxWindow& window) {
  for (const auto* child : window.GetChildren()) {
    if (child->IsTopLevel() || !child->IsShown()) continue;
    const auto label = child->GetLabel();
    if (mustShowAll(*child)) {
      EXPECT_GE(child->GetSize().x, child->GetBestSize().x) << label;
      EXPECT_GE(child->GetSize().y, child->GetBestSize().y) << label;
    }
    EXPECT_LE(child->GetRect().GetRight(), window.GetSize().x) << label;
    EXPECT_LE(child->GetRect().GetBottom(), window.GetSize().y) << label;
    expectNothingIsCutOff(*child);
  }
}

}  // namespace varnhold::ui::wx
