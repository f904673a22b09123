#include "startup/console_mode.h"

#include <optional>

#include "core/registry_values.h"
#include "startup/mdMain.h"
#include "startup/surroundings.h"

namespace varnhold::startup {
namespace {

/// A change-tracking product, and what the console calls it.
struct ChangeProduct {
  const char *key, *name, *caption;
};

// In the order in which they are looked for: the first that is installed counts.
constexpr ChangeProduct kChangeProducts[] = {
    {core::kWindowsChangesKey, "Tessmark? for Windows", "&Tessmark? for Windows (Track Changes)"},
    {core::kFileChangesKey, "Tessmark? for Files", "&Tessmark? for Files (Track Files)"},
    {core::kRegistryChangesKey, "Tessmark? for Registry", "&Tessmark? for Registry (Track Registry)"},
};

ui::Form& splashOf(core::Program& program, console::Forms& forms) {
  if (program.AppTitle == core::kChangesTitle) return forms.frmTKWSplash;
  return forms.frmSplash;
}

void probeChangeProducts(core::Program& program, console::Forms& forms) {
  for (const auto& product : kChangeProducts) {
    std::string folder;
    if (!readMachineValue(program, product.key, "LocalRootDir", folder)) continue;
    program.gChangesName = product.name;
    program.gChangesRoot = folder;
    program.gChangesConsole = "\"" + folder + "\\TkWindows.exe\"";  // the same program for all three
    forms.frmMain.mnuToolsTrackChanges.Caption = product.caption;
    return;
  }
}

void probeProducts(core::Program& program, console::Forms& forms) {
  auto& frmMain = forms.frmMain;
  program.gChangesName = kChangeProducts[0].name;
  if (program.AppTitle == core::kChangesTitle) {
    probeChangeProducts(program, forms);
    // Whether one was found or not.
    frmMain.turnOnAgentCommands(frmMain.mnuToolsTrackChanges);
  }
  if (readInstallPath(program)) frmMain.turnOnAgentCommands(frmMain.mnuToolsTrackEvents);
  // The trap console turns on no menu, deliberately.
  std::string trapFolder;
  if (readMachineValue(program, core::kManagerKey, "SWINSTALLPATH", trapFolder)) {
    program.gTrapsConsole = "\"" + trapFolder + "\\SWConsole.exe\"";
  }
}

void learnDiscoveryMode(core::Program& program, console::Forms& forms) {
  auto& frmNetAccessSel = forms.frmNetAccessSel;
  std::uint8_t mode = 0;
  if (program.host.libraries.qrvGetNetAccessMode(mode) != 0) {
    frmNetAccessSel.Load();
    frmNetAccessSel.AutoDiscover = mode != 0;
  } else {
    frmNetAccessSel.ShowModal();
  }
}

/// Lets a second start find the console's window and bring it to the front.
void announceConsole(core::Program& program, console::frmMain& frmMain) {
  program.host.desktop.announceWindow(frmMain.Caption, [&](std::optional<platform::ShowState> state) {
    const bool wasVisible = frmMain.Visible();
    if (state == platform::ShowState::Maximised) frmMain.WindowState = ui::WindowState::Maximized;
    frmMain.ZOrder();
    return wasVisible;
  });
}

}  // namespace

void startConsole(core::Program& program, console::Forms& forms) {
  auto& splash = splashOf(program, forms);
  splash.Load();
  splash.Show();
  splash.Refresh();
  program.host.libraries.qrvInitDbConnection();
  forms.frmMain.Load();
  announceConsole(program, forms.frmMain);
  openInventory(program);
  probeProducts(program, forms);
  splash.Unload();
  learnDiscoveryMode(program, forms);
  readLocalName(program);
  forms.frmMain.Show();
}

int runConsoleProcess(core::Program& program, ui::Screen& screen, console::Forms& forms) {
  int status = 0;
  const int ended = screen.run([&] {
    status = Main(program, [&](core::Program&) {
      startConsole(program, forms);
      return 0;
    });
  });
  program.host.desktop.withdrawWindow(program.AppTitle + " ");
  return ended != 0 ? ended : status;
}

}  // namespace varnhold::startup
