// The boxes of the toolkit's own: a message, a line of text, a file.
#include <wx/filename.h>
#include <wx/textdlg.h>

#include "ui/wx/message_dialog.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_text.h"
#include "ui/wx/wx_toolkit.h"

namespace varnhold::ui::wx {
namespace {

long styleOf(const MessageBox& box) {
  long style = wxCENTRE;
  if (box.buttons == BoxButtons::YesNo) {
    style |= box.preset == Answer::No ? wxYES_NO | wxNO_DEFAULT : wxYES_NO;
  } else {
    style |= wxOK;
  }
  switch (box.icon) {
    case BoxIcon::Information:
      style |= wxICON_INFORMATION;
      break;
    case BoxIcon::Exclamation:
      style |= wxICON_WARNING;
      break;
    case BoxIcon::Critical:
      style |= wxICON_ERROR;
      break;
    case BoxIcon::Question:
      style |= wxICON_QUESTION;
      break;
    case BoxIcon::None:
      style |= wxICON_NONE;
      break;
  }
  return box.systemModal ? style | wxSTAY_ON_TOP : style;
}

}  // namespace

Answer WxToolkit::messageBox(const MessageBox& box, Form* owner) {
  const ModalRun run(*this);
  const int answer = showMessage(windowOf(owner), shownLines(box.text), shown(box.title), styleOf(box));
  if (box.buttons == BoxButtons::Ok) return Answer::Ok;
  return answer == wxID_YES ? Answer::Yes : Answer::No;
}

std::string WxToolkit::inputBox(const std::string& prompt, const std::string& title, Form* owner) {
  const ModalRun run(*this);
  wxTextEntryDialog dialog(windowOf(owner), shownLines(prompt), shown(title));
  return dialog.ShowModal() == wxID_OK ? utf8(dialog.GetValue()) : std::string();
}

std::optional<std::string> WxToolkit::openFile(const FileDialog& asked, Form* owner) {
  const ModalRun run(*this);
  const wxFileName first(shown(asked.FileName));
  const auto filter = asked.Filter.empty() ? wxString(wxFileSelectorDefaultWildcardStr) : shown(asked.Filter);
  wxFileDialog dialog(windowOf(owner), shown(asked.DialogTitle), first.GetPath(), first.GetFullName(), filter,
                      wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (dialog.ShowModal() != wxID_OK) return std::nullopt;
  return utf8(dialog.GetPath());
}

}  // namespace varnhold::ui::wx
