#include <wx/msgdlg.h>

#include "ui/wx/message_dialog.h"

namespace varnhold::ui::wx {

int showMessage(wxWindow* owner, const wxString& text, const wxString& title, long style) {
  return wxMessageDialog(owner, text, title, style).ShowModal();
}

}  // namespace varnhold::ui::wx
