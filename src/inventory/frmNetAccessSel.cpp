#include "inventory/frmNetAccessSel.h"

#include <utility>

#include "core/program.h"
#include "ui/controls/screen.h"

namespace varnhold::inventory {
namespace {

// Places in the console's image list.
constexpr int kTessmarkImage = 3, kVarnholdImage = 4;

}  // namespace

frmNetAccessSel::frmNetAccessSel(core::Program& program, ui::Screen& screen, ConsoleParts parts)
    : ConsoleForm(program, screen, "frmNetAccessSel", std::move(parts)) {
  Caption = "Select 'Auto Discover' Mode";
  optAutomatic.Caption =
      "Automatically find and add Computers (Recommended for small networks e.g. < 100 Computers)";
  optManual.Caption = "I will choose to add and track Computers (Recommended for large networks)";
  cmdOK.Default = true;
  adopt({{"lblInfo", lblInfo}, {"optAutomatic", optAutomatic}, {"optManual", optManual}, {"cmdOK", cmdOK}});
  optManual.Click = [this] { ManualClicked = true; };
  cmdOK.Click = [this] { cmdOK_Click(); };
}

void frmNetAccessSel::Form_Load() {
  if (program_.AppTitle == core::kChangesTitle) Icon = parts_.imlIcons.ListImages(kTessmarkImage);
  if (program_.AppTitle == core::kManagerTitle) Icon = parts_.imlIcons.ListImages(kVarnholdImage);
  lblInfo.Caption = "Select how " + program_.AppTitle + " should add Computers from your network.";
  if (!parts_.console.Visible()) {
    lblInfo.Caption = lblInfo.Caption.get() +
                      " You can access and modify this setting anytime from\r"
                      "[Options | Select 'Auto Discover' Mode]";
  }
  std::uint8_t mode = 0;
  const bool isStored = program_.host.libraries.qrvGetNetAccessMode(mode) != 0;
  (isStored && mode == 0 ? optManual : optAutomatic).Value = true;
  // Choosing it here was no click of the operator's.
  ManualClicked = false;
}

void frmNetAccessSel::cmdOK_Click() {
  if (optManual.Value && parts_.console.Visible() && ManualClicked) {
    Hide();
    tellOfManualMode();
    if (program_.gEnumThread != 0) {
      // Wherever it is, and its handle stays open.
      program_.host.threads.terminateThread(program_.gEnumThread, 0);
      program_.gEnumThread = 0;
    }
  }
  Unload();
}

void frmNetAccessSel::tellOfManualMode() {
  screen().MsgBox({.text = "You have selected to manually add and track Computers.\r"
                           "Further discovery of Computers will stop. Computers already discovered will be "
                           "retained and can be removed as per your preference from [File | Remove "
                           "Computer(s)]",
                   .icon = ui::BoxIcon::Information});
}

void frmNetAccessSel::Form_Unload() {
  AutoDiscover = optAutomatic.Value;
  if (program_.host.libraries.qrvSetNetAccessMode(AutoDiscover ? 1 : 0) != 0) return;
  // "everytime" is the product's own spelling.
  screen().MsgBox({.text = "Could not save your selection because access to the registry was denied.\r"
                           "This could cause the application to ask you to set the setting everytime you "
                           "start the " +
                           program_.AppTitle + ".",
                   .icon = ui::BoxIcon::Exclamation});
}

}  // namespace varnhold::inventory
