#pragma once

#include <wx/string.h>

class wxWindow;

namespace varnhold::ui::wx {

/// Shows a message box of the host and waits: the wxID_ of the button that ended it. `style` as for
/// wxMessageDialog.
[[nodiscard]] int showMessage(wxWindow* owner, const wxString& text, const wxString& title, long style);

}  // namespace varnhold::ui::wx
