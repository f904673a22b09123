#include <wx/msgdlg.h>

#include <wx/generic/msgdlgg.h>

#include "ui/wx/message_dialog.h"

namespace varnhold::ui::wx {

int showMessage(wxWindow* owner, const wxString& text, const wxString& title, long style) {
  // The toolkit's native box shows no icon here, and the icon says how grave the message is.
  return wxGenericMessageDialog(owner, text, title, style).ShowModal();
}

}  // namespace varnhold::ui::wx
