#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "console/forms.h"
#include "core/program.h"
#include "platform/host_adapters.h"
#include "tests/cli/stage.h"
#include "tests/fakes/scripted_ui.h"

namespace varnhold::session {

using Lines = std::vector<std::string>;

/// What a run says of a computer whose agent it has taken away.
inline const std::string kUninstalled = "Agent uninstalled successfully";

/// The host's clock for a run that nobody waits for: every pause is short.
class ShortClock : public platform::Clock {
 public:
  explicit ShortClock(platform::Clock& real) : real_(real) {}

  void sleep(std::uint32_t milliseconds) override;
  platform::LocalTime getLocalTime() override { return real_.getLocalTime(); }

  /// What happens in each pause; told its length as the program wants it.
  std::function<void(std::uint32_t milliseconds)> onSleep;

 private:
  platform::Clock& real_;
};

/// The whole console over the real host, inventory and companion of a stage, with somebody at it. Only the
/// toolkit is a scripted one.
class OperatorsConsole {
 public:
  explicit OperatorsConsole(const cli::Stage& stage, const char* appTitle = core::kManagerTitle);

  using Script = std::function<void()>;
  /// One run of the program, from its start to its end; `script` is what the operator does in between.
  void run(const Script& script);

  // Each opens the wizard and runs `script` on it, which must close it.
  void openFromMenu(ui::MenuItem& command, const Script& script);
  /// From the pop-up menu of the group of this name.
  void openFromTree(const std::string& group, const std::string& command, const Script& script);
  /// From the pop-up menu of the list, with these computers selected.
  void openFromList(const Lines& names, const std::string& command, const Script& script);

  // On the wizard.
  /// Goes on as far as the buttons lead.
  void goOn();
  /// Begins the run, and is back when it has ended.
  void act() { wizard.cmdInstall.userClick(); }
  void finish() { wizard.cmdInstall.userClick(); }
  /// Shows a page that no button leads to.
  void turnTo(int page);
  /// The prompt for an account that comes next is answered so, or refused.
  void logIn(const std::string& account, const std::string& password);
  void refuseLogin();
  /// Types into a box, and leaves no copy of the text behind.
  static void type(ui::TextBox& box, std::string text);
  /// Installs on these computers, of which none is to fail, with the wizard from beginning to end.
  void install(const Lines& names);

  /// The rows of the run's list: "ATLAS: Installed successfully".
  [[nodiscard]] Lines rows() const;
  /// The rows of the console's list: "ATLAS: Unmanaged".
  [[nodiscard]] Lines statuses() const;
  /// What the program has said in boxes.
  [[nodiscard]] Lines boxes() const;

  std::unique_ptr<platform::HostAdapters> adapters;
  ShortClock clock{adapters->clock()};
  fakes::Journal journal;
  fakes::ScriptedUi ui;
  core::Program program;
  console::Forms forms{program, ui.screen};
  console::frmMain& main = forms.frmMain;
  deployment::frmTargets& wizard = forms.frmTargets;

 private:
  void expectWizard(const Script& script);
  [[nodiscard]] int rowOf(const std::string& name) const;
};

}  // namespace varnhold::session
