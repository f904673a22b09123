// The form of a computer's type, as the console fills it, for its picture: the entry that opens it is hidden
// at each pop-up. It closes when its standard input ends.
#include <iostream>
#include <string>
#include <thread>

#include "console/forms.h"
#include "core/program.h"
#include "tests/fakes/fake_host.h"
#include "ui/controls/screen.h"
#include "ui/wx/views.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_toolkit.h"

int main() {
  using namespace varnhold;
  ui::wx::WxToolkit toolkit(ui::wx::allViews());
  ui::Screen screen(toolkit, core::kManagerTitle);
  fakes::FakeHost fake;
  core::Program program(fake.host(), core::kManagerTitle);
  console::Forms forms(program, screen);
  auto& form = forms.frmSystemType;
  form.freInfo.Caption = "System: ATLAS";
  form.lblIPA.Caption = "10.1.1.11";
  form.cmbSysType.Text = "Windows 2000 - Server";
  form.txtDes.Text = "File server";
  form.lblAgents.Caption = "Managed - High Performance Mode";
  const auto window = toolkit.createWindow(form);
  window->show(nullptr, false);
  std::thread reader([&] {
    for (std::string line; std::getline(std::cin, line);) continue;
    wxTheApp->CallAfter([&] { toolkit.quitLoop(); });
  });
  toolkit.runLoop();
  reader.join();
}
