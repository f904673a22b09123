#pragma once

class wxWindow;

namespace varnhold::ui {
class Form;
}

namespace varnhold::ui::wx {

/// Brings the widgets under `parent` into the tab order of the controls that they stand for.
void putInTabOrder(wxWindow& parent, const Form& form);

}  // namespace varnhold::ui::wx
