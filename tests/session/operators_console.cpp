#include "tests/session/operators_console.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/secret.h"
#include "console/agent_status.h"
#include "startup/console_mode.h"

namespace varnhold::session {
namespace {

constexpr std::uint32_t kLongestPauseMs = 2;

core::Host hostWith(platform::HostAdapters& adapters, platform::Ui& ui, platform::Clock& clock) {
  return {adapters.registry(),
          adapters.services(),
          adapters.eventLog(),
          adapters.files(),
          adapters.processes(),
          adapters.threads(),
          clock,
          adapters.environment(),
          adapters.libraries(),
          ui,
          adapters.desktop(),
          adapters.accounts(),
          adapters.security(),
          adapters.secur32(),
          adapters.heap()};
}

}  // namespace

void ShortClock::sleep(std::uint32_t milliseconds) {
  if (onSleep) onSleep(milliseconds);
  real_.sleep(std::min(milliseconds, kLongestPauseMs));
}

OperatorsConsole::OperatorsConsole(const cli::Stage& stage, const char* appTitle)
    : adapters(platform::makeHostAdapters({0, nullptr, stage.home().string()})),
      ui(journal, appTitle),
      program(hostWith(*adapters, ui.screen, clock), appTitle) {}

void OperatorsConsole::run(const Script& script) {
  ui.onLoop = [&] {
    script();
    main.userClose();
  };
  EXPECT_EQ(startup::runConsoleProcess(program, ui.screen, forms), 0);
}

void OperatorsConsole::expectWizard(const Script& script) {
  ui.nextModal("frmTargets", [script](ui::Form&) { script(); });
}

void OperatorsConsole::openFromMenu(ui::MenuItem& command, const Script& script) {
  expectWizard(script);
  command.userClick();
}

void OperatorsConsole::openFromTree(const std::string& group, const std::string& command,
                                    const Script& script) {
  for (int node = 1; node <= main.tvTreeView.Nodes.Count(); ++node) {
    if (main.tvTreeView.Nodes(node).Text != group) continue;
    expectWizard(script);
    ui.nextPopUp(command);
    main.tvTreeView.userMouseDown(ui::MouseButton::Right, node);
    return;
  }
  ADD_FAILURE() << "no group " << group;
}

int OperatorsConsole::rowOf(const std::string& name) const {
  const auto* const row = main.lvListView.FindItem(name);
  EXPECT_NE(row, nullptr) << name;
  return row == nullptr ? 0 : row->Index();
}

void OperatorsConsole::openFromList(const Lines& names, const std::string& command, const Script& script) {
  std::vector<int> rows;
  for (const auto& name : names) rows.push_back(rowOf(name));
  main.lvListView.userSelection(rows, rows.back());
  expectWizard(script);
  ui.nextPopUp(command);
  main.lvListView.userMouseDown(ui::MouseButton::Right, rows.back());
}

void OperatorsConsole::goOn() {
  while (wizard.cmdNext.Enabled) wizard.cmdNext.userClick();
}

void OperatorsConsole::turnTo(int page) {
  wizard.CurrentPage = page;
  ui.nextModal("frmLogin", [](ui::Form& form) { form.Unload(); });
  forms.frmLogin.ShowModal(&wizard);
}

void OperatorsConsole::logIn(const std::string& account, const std::string& password) {
  ui.nextModal("frmLogin", [this, account, password = std::make_shared<std::string>(password)](ui::Form&) {
    type(forms.frmLogin.txtAccount, account);
    type(forms.frmLogin.txtPassword, *password);
    wipe(*password);
    forms.frmLogin.cmdLogin.userClick();
  });
}

void OperatorsConsole::refuseLogin() {
  ui.nextModal("frmLogin", [this](ui::Form&) { forms.frmLogin.CmdCancel.userClick(); });
}

void OperatorsConsole::type(ui::TextBox& box, std::string text) {
  const WipedAtEnd wiped(text);
  box.userEdit(text, static_cast<int>(text.size()));
}

void OperatorsConsole::install(const Lines& names) {
  openFromList(names, "mnuPopUpListInstall", [&] {
    goOn();
    act();
    for (const auto& row : rows()) EXPECT_TRUE(row.ends_with(": Installed successfully")) << row;
    EXPECT_EQ(rows().size(), names.size());
    finish();
  });
}

Lines OperatorsConsole::rows() const {
  Lines lines;
  for (const auto& row : wizard.lvSystems.ListItems)
    lines.push_back(row.Text + ": " + row.SubItems(deployment::kStatusSubItem));
  return lines;
}

Lines OperatorsConsole::statuses() const {
  Lines lines;
  for (const auto& row : main.lvListView.ListItems)
    lines.push_back(row.Text + ": " + row.SubItems(console::kStatusColumn));
  return lines;
}

Lines OperatorsConsole::boxes() const {
  return fakes::linesOf(journal, "MessageBox ");
}

}  // namespace varnhold::session
