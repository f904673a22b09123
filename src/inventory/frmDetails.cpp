#include "inventory/frmDetails.h"

#include <utility>

#include "base/runtime_error.h"
#include "core/mdCommon.h"
#include "core/program.h"
#include "inventory/system_row.h"
#include "store/recordset.h"
#include "store/statements.h"
#include "ui/controls/screen.h"

namespace varnhold::inventory {
namespace {

constexpr const char* kRootKey = "qrv_Root_Node_Key";  ///< of the console's tree

std::string textOf(store::Recordset& rows, std::string_view column) {
  const store::Value value = rows.Fields(column).value();
  return value.isNull() ? std::string() : value.asText();
}

void hide(ui::Frame& frame) {
  frame.Visible = false;
  frame.Enabled = false;
}

}  // namespace

frmDetails::frmDetails(core::Program& program, ui::Screen& screen, ConsoleParts parts)
    : ConsoleForm(program, screen, "frmDetails", std::move(parts)) {
  Caption = "Details";
  cmdOK.Default = true;
  adopt({{"freInfo", freInfo}, {"freGroup", freGroup}, {"cmdOK", cmdOK}});
  designComputer();
  designGroup();
  txtDes.Change = [this] { DescriptionChanged = true; };
  txtDes.GotFocus = [this] { txtDes.SelectAll(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
}

void frmDetails::designComputer() {
  constexpr const char* kNames[] = {
      "IP Address:", "System Type:", "&Description:", "System Status:", "Port:"};
  for (int i = 0; i < lblName.Count(); ++i) lblName(i).Caption = kNames[i];
  adopt(freInfo, {{"lblName", lblName(0)},
                  {"lblIPA", lblIPA},
                  {"lblName", lblName(1)},
                  {"lblSysType", lblSysType},
                  {"lblName", lblName(2)},
                  {"txtDes", txtDes},
                  {"lblName", lblName(3)},
                  {"lblAgents", lblAgents},
                  {"lblName", lblName(4)},
                  {"lblManagedPort", lblManagedPort}});
}

void frmDetails::designGroup() {
  constexpr const char* kNames[] = {"Operating System:", "IP Subnet:", "Domain:", "&Description:"};
  for (int i = 0; i < lblGroupName.Count(); ++i) lblGroupName(i).Caption = kNames[i];
  txtGrDes.MultiLine = true;
  adopt(freGroup, {{"lblGroupName", lblGroupName(0)},
                   {"lblOS", lblOS},
                   {"lblGroupName", lblGroupName(1)},
                   {"lblIPSubnet", lblIPSubnet},
                   {"lblGroupName", lblGroupName(2)},
                   {"lblDomain", lblDomain},
                   {"lblGroupName", lblGroupName(3)},
                   {"txtGrDes", txtGrDes}});
}

void frmDetails::Form_Activate() {
  if (ShowDetailsOfListItem)
    showComputer();
  else
    showGroup();
  cmdOK.SetFocus();
  DescriptionChanged = false;
}

void frmDetails::showComputer() {
  hide(freGroup);
  const auto item = parts_.lvListView.SelectedItem();
  // Enter in a list whose rows nobody has touched shows the form too, of no computer.
  lblIPA.Caption = shownAddress(program_.gConn, item ? item->Text.get() : "");
  if (!item) return;
  freInfo.Caption = "System: " + item->Text.get();
  lblSysType.Caption = item->SubItems(1).get();
  txtDes.Text = item->SubItems(2).get();
  lblAgents.Caption = item->SubItems(3).get();
  lblManagedPort.Caption = item->SubItems(4).get();
}

void frmDetails::showGroup() {
  hide(freInfo);
  const auto node = parts_.tvTreeView.SelectedItem();
  if (node->Key() != kRootKey) return showRule(node->Text);
  freGroup.Caption = "Group: Groups";
  txtGrDes.Text = "All Computers";
}

void frmDetails::showRule(const std::string& group) {
  store::Recordset rule;
  rule.Open(store::statements::fill(store::statements::kGroupWithRule, {{"group", group}}), program_.gConn,
            store::CursorType::Static, store::LockType::ReadOnly);
  // Somebody may have removed the group meanwhile.
  const bool isThere = !rule.Bof() && !rule.Eof();
  freGroup.Caption = "Group: " + (isThere ? textOf(rule, "Group_Name") : group);
  if (!isThere) return;
  const store::Value osType = rule.Fields("OS_Type").value();
  if (!osType.isNull() && osType.asInteger() != 0)
    lblOS.Caption = core::GetSystemTypeName(static_cast<std::int32_t>(osType.asInteger()));
  if (const auto subnet = textOf(rule, "IP_Subnet"); !subnet.empty()) lblIPSubnet.Caption = subnet;
  if (const auto domain = textOf(rule, "Domain"); !domain.empty()) lblDomain.Caption = domain;
  txtGrDes.Text = textOf(rule, "Description");
}

void frmDetails::cmdOK_Click() {
  if (ShowDetailsOfListItem && DescriptionChanged) ResumeNext().step([this] { storeDescription(); });
  Unload();
}

void frmDetails::storeDescription() {
  const auto item = parts_.lvListView.SelectedItem();
  const std::string& description = txtDes.Text;
  if (changeSystem(program_.gConn, item->Text, "System_Description", description))
    item->SubItems(2) = description;
  else
    screen().MsgBox({.text = "Could not update the description.", .icon = ui::BoxIcon::Information});
}

}  // namespace varnhold::inventory
