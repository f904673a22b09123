#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "base/runtime_error.h"
#include "deployment/frmTargets.h"
#include "deployment/job.h"
#include "deployment/result_catalogue.h"
#include "deployment/run_screen.h"
#include "platform/closed_libraries.h"
#include "store/command.h"
#include "store/recordset.h"

/// What the engines of the wizard share. Main thread.
namespace varnhold::deployment {

/// The wizard as a run of jobs sees it.
class WizardRunScreen : public RunScreen {
 public:
  explicit WizardRunScreen(frmTargets& form) : form_(form) {}

  std::int32_t progress() override { return form_.pbProgress.Value; }
  void setProgress(std::int32_t value) override { form_.pbProgress.Value = value; }
  void pumpEvents() override;
  void refresh() override { form_.Refresh(); }
  std::string systemName(std::int32_t row) override { return form_.lvSystems.ListItems(row).Text; }
  void setStatus(std::int32_t row, const std::string& text) override;
  void setErrorsSeen() override { form_.ErrorsSeen = true; }

 private:
  frmTargets& form_;
};

/// One reason for which a computer passes an engine's gate. The test is one for a part of the status column,
/// the case of letters aside.
struct GateTerm {
  enum class For { Varnhold, Tessmark, Either };
  For product;  ///< the product of the run
  bool held;    ///< whether the status must hold the text, or must not
  std::string_view text;
};

/// True when any of the terms holds.
[[nodiscard]] bool passesGate(std::span<const GateTerm> terms, Product product, std::string_view status);

/// The statements that record an installed agent, filled in.
struct AgentRecord {
  std::string filter;  ///< of the row of `Module_Table` that there may be
  std::string add;     ///< where there is none
  std::string change;  ///< where there is one
};

/// What an engine does with a run-time error of its own.
enum class ErrorPolicy {
  ResumeNext,  ///< clears it and goes on with the next statement
  EndRun,      ///< shows its description and leaves the rows that are still to come
};

/// One run of an engine over the rows of `lvSystems`, one at a time. The engines derive from it.
class EngineRun {
 public:
  EngineRun(const EngineRun&) = delete;
  EngineRun& operator=(const EngineRun&) = delete;

 protected:
  /// Both outlive the run.
  EngineRun(core::Program& program, frmTargets& form, ErrorPolicy policy);
  ~EngineRun() = default;

  /// Runs `steps` between the hourglass and `RunBusy` and their end, under the policy.
  void run(const std::function<void()>& steps);
  /// One statement that can fail, under the policy. With `ResumeNext` what it was to set keeps the value it
  /// had.
  void step(const std::function<void()>& statement) const;

  // The whole run.
  /// The bar at 0, and how far each computer moves it.
  void beginProgress();
  [[nodiscard]] std::int32_t countRows() const { return form_.lvSystems.ListItems.Count(); }
  void askForLogin();
  /// Does `work` for one row after the other, each being the one at hand, until it gives false.
  void workDownRows(const std::function<bool()>& work);
  /// The manager's own agent polls agentless computers: it has to hear of those that came or went.
  void restartManagersAgent();

  // The row at hand.
  [[nodiscard]] const std::string& status() const;
  [[nodiscard]] bool statusHolds(std::string_view text) const;
  void setStatus(const std::string& text) { screen_.setStatus(row_, text); }
  /// Sets `ErrorsSeen`, adds `logged` to the log and sets the status column.
  void tellFault(const std::string& logged, const std::string& status);
  /// The fault "Skipped: ", in the log with the computer's name.
  void skip(const std::string& reason);
  void log(const std::string& text);
  void selectRow();
  void setTarget();
  void reachTarget() { form_.pbProgress.Value = target_; }
  [[nodiscard]] bool isLocal() const;
  void connectShares();
  void disconnectShares();
  /// Connects the shares of the computer; without an account says that it will be skipped.
  void connectSharesByLogin();
  /// The status column says that the computer will be skipped.
  [[nodiscard]] bool isInaccessible() const;
  /// False when it can't be read, an error of the check included.
  [[nodiscard]] bool canReadSecurityLog();
  /// False when the computer does not respond. An error is no such answer.
  [[nodiscard]] bool isRegistered();
  /// The computer's name has an address.
  [[nodiscard]] bool resolves();
  /// Asks the network what the computer is. Where it does not answer, `details_.OSMajorVersion` stays that of
  /// the computer before it, deliberately.
  void findDetails();
  [[nodiscard]] bool isVistaOrLater() const;
  [[nodiscard]] std::int32_t osFlag() const { return isVistaOrLater() ? 6 : 0; }
  /// The rows of `System_Table`, for `systemType`.
  void openSystems();
  void closeSystems() { systems_.Close(); }
  /// Looks the computer up in them. Raises kNoCurrentRow for one that is not there.
  [[nodiscard]] std::int64_t systemType();
  /// 0 when none was started.
  [[nodiscard]] platform::ThreadHandle startJob();
  [[nodiscard]] std::int32_t waitForJob(platform::ThreadHandle thread, std::int32_t codeAlreadySet = 0);
  [[nodiscard]] std::string describe(std::int32_t result) const;

  // The screen of a run.
  void pumpEvents() { screen_.pumpEvents(); }
  void showMainFrame();
  void disableButtons();
  /// `freMain` in front, with the progress bar.
  void showProgress();
  /// No page may come up over the run, and no button lead to one: a prompt that went away has activated the
  /// form, which shows its page.
  void keepPagesAway();
  void setPointer(ui::Pointer pointer);

  [[nodiscard]] Product product() const;
  [[nodiscard]] bool isAgentless() const { return form_.OptAgentless.Value; }
  [[nodiscard]] bool isHighPerformance() const { return form_.chkHPMode.Value != 0; }
  /// 0 for agentless, else 1 in every mode: 5 waits for a check box that holds -1, which none ever does,
  /// deliberately.
  [[nodiscard]] std::int32_t agentMode() const;
  /// `ConfigFile` of the job: the custom file, or none.
  void chooseConfigFile();
  void execute(const std::string& statement);
  /// Looks for the agent's row and then adds or changes it. A look-up that fails has found none.
  void recordAgent(const AgentRecord& record);

  core::Program& program_;
  frmTargets& form_;
  WizardRunScreen screen_;
  platform::DeploymentJob job_;
  platform::SystemDetails details_;
  std::int32_t row_ = 0;  ///< from 1
  std::string name_;      ///< of the row's computer
  store::Recordset systems_;

 private:
  void goTo(std::int32_t row);
  void endBusy();
  void endByError(const RuntimeError& error);
  [[nodiscard]] JobChoices choices() const;
  [[nodiscard]] bool hasAgentRow(const std::string& filter) const;

  const ErrorPolicy policy_;
  const ResumeNext next_;
  store::Command command_;
  std::int32_t step_ = 0, target_ = 0;
};

/// The first major version of the Vista/2008 generation.
inline constexpr std::int32_t kVistaMajorVersion = 6;
inline constexpr const char* kSkippedLocalSystem = "Skipped: Manager (local system)";

}  // namespace varnhold::deployment
