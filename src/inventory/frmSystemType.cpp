#include "inventory/frmSystemType.h"

#include <utility>

#include "base/runtime_error.h"
#include "core/mdCommon.h"
#include "core/program.h"
#include "inventory/system_row.h"
#include "ui/controls/screen.h"

namespace varnhold::inventory {
namespace {

/// The classes that can be set by hand, in the order of the list.
constexpr const char* kTypes[] = {
    "Windows NT - Workstation",       "Windows 2000 - Professional", "Windows 2000 - Server",
    "Windows 2000 - Advanced Server", "Windows NT - Cluster",        "Windows XP",
    "Windows 2003 - Server",          "Sun Solaris (BSM)",           "SysLog System",
};

}  // namespace

frmSystemType::frmSystemType(core::Program& program, ui::Screen& screen, ConsoleParts parts)
    : ConsoleForm(program, screen, "frmSystemType", std::move(parts)) {
  Caption = "Modify System Type";
  lblName(0).Caption = "IP Address:";
  lblName(1).Caption = "System &Type:";
  lblName(2).Caption = "Description:";
  lblName(3).Caption = "System Status:";
  for (const char* type : kTypes) cmbSysType.AddItem(type);
  txtDes.Locked = true;
  cmdOK.Default = true;
  adopt({{"freInfo", freInfo}, {"cmdOK", cmdOK}});
  adopt(freInfo, {{"lblName", lblName(0)},
                  {"lblIPA", lblIPA},
                  {"lblName", lblName(1)},
                  {"cmbSysType", cmbSysType},
                  {"lblName", lblName(2)},
                  {"txtDes", txtDes},
                  {"lblName", lblName(3)},
                  {"lblAgents", lblAgents}});
  cmbSysType.Click = [this] { TypeChanged = true; };
  cmdOK.Click = [this] { cmdOK_Click(); };
}

void frmSystemType::Form_Activate() {
  const auto item = parts_.lvListView.SelectedItem();
  lblIPA.Caption = shownAddress(program_.gConn, item->Text);
  freInfo.Caption = "System: " + item->Text.get();
  txtDes.Text = item->SubItems(2).get();
  lblAgents.Caption = item->SubItems(3).get();
  cmdOK.SetFocus();
  TypeChanged = false;
}

void frmSystemType::cmdOK_Click() {
  if (TypeChanged) ResumeNext().step([this] { storeType(); });
  Unload();
}

void frmSystemType::storeType() {
  const auto item = parts_.lvListView.SelectedItem();
  const std::string& type = cmbSysType.Text;
  if (changeSystem(program_.gConn, item->Text, "System_Type", core::GetSystemTypeCode(type)))
    item->SubItems(1) = type;
  else
    screen().MsgBox({.text = "Could not update the system type.", .icon = ui::BoxIcon::Information});
}

}  // namespace varnhold::inventory
