#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "deployment/agent_polling.h"
#include "ui/controls/check_box.h"
#include "ui/controls/combo_box.h"
#include "ui/controls/command_button.h"
#include "ui/controls/containers.h"
#include "ui/controls/control_array.h"
#include "ui/controls/form.h"
#include "ui/controls/image.h"
#include "ui/controls/label.h"
#include "ui/controls/list_box.h"
#include "ui/controls/list_view.h"
#include "ui/controls/option_button.h"
#include "ui/controls/progress_bar.h"
#include "ui/controls/text_box.h"
#include "ui/controls/tree_view.h"

namespace varnhold {
class ResumeNext;
}
namespace varnhold::core {
struct Program;
}
namespace varnhold::store {
class Recordset;
}

namespace varnhold::deployment {

class frmLogin;
class frmRemedialActionHelp;

/// What the wizard uses of the console. All of it outlives the wizard.
struct ConsoleOfWizard {
  ui::ListView& lvListView;
  ui::TreeView& tvTreeView;
  ui::ImageList& imlIcons;
  std::function<void(ui::TreeNode*)> tvTreeView_NodeClick;
  std::function<void()> mnuViewRefresh_Click;
};

/// The columns of `lvSystems` behind the computer's name.
inline constexpr int kStatusSubItem = 1, kKeepSnapsSubItem = 2;

/// What `cboGroups` offers beside the groups: every computer.
inline constexpr const char* kAllGroups = "All";

/// What the tag of a cell in the column "Keep Snaps" says: its text is then "Yes" or "No". A cell without one
/// asks nothing.
inline constexpr const char *kSnapsKept = "1", *kSnapsNotKept = "2";
/// True for the status of a computer whose agent has snapshots.
[[nodiscard]] bool hasSnapshots(const std::string& status);

/// The wizard through which agents are installed, uninstalled and upgraded. The console loads it, sets
/// `Operation` and `CurrentPage`, and shows it modally; engines.h has what works on the computers. Main
/// thread.
class frmTargets : public ui::Form {
 public:
  /// Everything outlives the form.
  frmTargets(core::Program& program, ui::Screen& screen, ConsoleOfWizard console, frmLogin& login,
             frmRemedialActionHelp& remedialHelp);

  // Set by the console before the form is shown.
  std::int32_t Operation = 0;    ///< a DeploymentOperation
  std::int32_t CurrentPage = 0;  ///< 1 to 8

  // The state of a run, all cleared when the form loads.
  bool ErrorsSeen = false;     ///< at least one computer failed
  bool RunBusy = false;        ///< an engine is running
  bool StopRequested = false;  ///< the operator asked to stop

  /// The major version of this computer's operating system, found out as the form loads; 0 where that failed.
  std::int32_t LocalOSMajor = 0;

  // Pages 1 and 2, and the run screen.
  ui::Frame freMain;
  ui::Label lblInfo;
  ui::ComboBox cboGroups;
  ui::ListView lvSelect, lvSelected, lvSystems;
  ui::CommandButton cmdAdd{"&Add ->"}, cmdRemove{"<- &Remove"}, cmdselectall{"Add All >>"},
      cmdremoveall{"<< Remove All"};
  ui::ProgressBar pbProgress;

  // Page 3.
  ui::Frame freSelectAgent, fraAgentType{"Agent Type"};
  ui::Label lblAgentType{"Please select the type below"}, lblAgenthelp, lblAgenthelp1, lblAgenthelp2,
      lblAgenthelp3, lblAgenthelp4;
  ui::OptionButton OptAgentbased{"Agent based (Full featured)"},
      OptAgentless{"Agent-less (limited features)*"};
  ui::CheckBox chkHPMode{"Enable High Performance Mode"};
  ui::CheckBox chkCopyRemedialActionScripts{"Install default &Remedial Action EXEs on this system"};

  // Page 4.
  ui::Frame freAgents;
  ui::Label lblAgentSys, lblAgentInfo, lblAgentLast;
  ui::ListBox lstSystems;
  ui::ControlArray<ui::OptionButton, 2> optClient;  ///< the Varnhold agent, the Tessmark agent

  // Page 5, and 8.
  ui::Frame frePath;
  ui::Label lblPathSystems, lblPathInfo, lblPathLast;
  ui::ListBox lstPathSystems;
  ui::TextBox txtPathVHW, txtPathTKW;
  ui::PictureBox picPolling;
  ui::Label lblPollFreq{"Poll every:"}, lblStartTime{"Start time (HH:MM):"}, lblStartColon{":"};
  ui::ComboBox cboPollFreq;  ///< `kPollFrequencies`
  ui::TextBox txtStartHour{"00"}, txtStartMin{"00"};
  ui::PictureBox picAccount;
  ui::Label lblAccInfo, lblAccount{"Account:"}, lblPwd{"Password:"}, lblConfirmPwd{"Confirm password:"};
  ui::TextBox txtAccount, txtPwd, txtConfirmPwd;
  ui::CommandButton cmdEditAccount{"&Edit"};

  // Page 5 of an upgrade.
  ui::Frame freUpgradeOpts;
  ui::Label lblUptOptInfo;
  ui::OptionButton optWinDom{"Windows Domain Network"}, optOverIP{"Upgrade Over IP (Non Windows Domain)"};
  ui::CheckBox chkUpgradeRemedialActionScripts{"Install default &Remedial Action EXEs on this system"};

  // Page 6.
  ui::Frame freConfig{"Apply configuration :"};
  ui::ControlArray<ui::OptionButton, 2> optConfig;  ///< the default, a custom file
  ui::TextBox txtTemplate;
  ui::CommandButton cmdBrowse{"&Browse..."};
  ui::Label lblConfig;

  // Page 7.
  ui::Frame freLogon{"Log on as:"};
  ui::ControlArray<ui::OptionButton, 2> optAccounts;  ///< the local system, a named account
  ui::Label lblUserName{"User name:"}, lblPassword{"Password:"}, lblConfirmPassword{"Confirm password:"};
  ui::TextBox txtUserName, txtPassword, txtConfirmPassword;
  ui::Label lblServiceAccount;

  // Under every page.
  ui::Label lblProgress;
  ui::CommandButton cmdBack{"< &Back"}, cmdNext{"&Next >"}, cmdAdvanced{"&Advanced"}, cmdInstall,
      cmdCancel{"&Cancel"};

  /// The prompt for an account that engines show.
  [[nodiscard]] frmLogin& login() { return login_; }

  // Probes of the computer in a row of `lvSystems`, from 1. No flow of the program uses them: they are the
  // form's public interface.

  /// Can both the administrative share and the Security log be used? When not, the log and the row's status
  /// column say so and `ErrorsSeen` is set. Errors of a step are passed over.
  [[nodiscard]] bool CheckRemoteAccess(const std::int32_t& index);
  /// Can a file be made on the administrative share? Error 35600 where there is no such row.
  [[nodiscard]] bool CheckRemoteRegistryAccess(const std::int32_t& index);
  /// Can the Security log be opened? Error 35600 where there is no such row.
  [[nodiscard]] bool AccessClientEventLog(const std::int32_t& index);

  // Starting a program as somebody else, which no flow of the program does. The result is the handle of its
  // first thread; that and the process's are closed by nobody, deliberately. 0 when it fails, which is shown.

  /// In the way that this version of Windows has.
  std::uintptr_t fnRunAsUser(const std::string& user, const std::string& password, const std::string& domain,
                             const std::string& commandLine, const std::string& currentDirectory);
  std::uintptr_t W2KRunAsUser(const std::string& user, const std::string& password, const std::string& domain,
                              const std::string& commandLine, const std::string& currentDirectory);
  /// The logon's token stays open where the start succeeds, deliberately.
  std::uintptr_t NT4RunAsUser(const std::string& user, const std::string& password, const std::string& domain,
                              const std::string& commandLine, const std::string& currentDirectory);

  /// Gives the columns of the three lists their widths; all else is laid out by the view.
  void SizefrmControls();
  /// Asks whether remedial actions are really wanted: 6 for yes, 7 for anything else.
  [[nodiscard]] std::int32_t ShowRemedialDialogBox();
  /// Writes the agentless options to the registry; see the function of that name.
  void SavePollingSettings();

 private:
  void designPages();
  void adoptControls();

  void Form_Load() override;
  void Form_Activate() override;
  void Form_QueryUnload(int& cancel, ui::UnloadMode mode) override;
  void Form_Unload() override;
  void Form_Resize() override;

  // Activation.
  void captionOperation();
  void sizeColumns();
  void selectTreeNode();
  void addGroups(store::Recordset& groups);
  void chooseGroup(const ResumeNext& resume);

  // Pages.
  struct PageRule;
  void ShowCurrentPage();
  void apply(const PageRule& rule);
  void hideFrames();
  /// The page of the selection, or that of the run list, which share `freMain`.
  void showSelectionControls(bool shown);
  void showSelectionPage();
  void showRunListPage();
  void showUninstallList();
  void showAgentTypePage();
  void showClientPage();
  void showPathPage();
  void showPathPageAgain();
  void showPathBoxes();
  void showPollingOptions();
  void showUpgradeOptions();
  void ShowCurrentPolling();
  [[nodiscard]] bool hasBothProducts() const;
  /// True where the run list has a column for what is to become of snapshots.
  [[nodiscard]] bool asksForSnapshots() const;

  // Moves.
  void cmdNext_Click();
  void cmdBack_Click();
  void cmdAdvanced_Click();
  void listSelectedSystems();
  void stayOnPage(const std::string& reason);
  [[nodiscard]] bool ValidateInstallPath();
  [[nodiscard]] bool ConfigFileExists(const std::string& path);
  [[nodiscard]] bool ValidatePolling();
  void refuseInstallPath();
  [[nodiscard]] PollingControls pollingControls() const;

  // The run.
  void cmdInstall_Click();
  [[nodiscard]] bool mayRun();
  [[nodiscard]] bool validateAgentlessOptions();
  void listPathSystems();
  void showRunScreen();
  void runEngine();
  void showResultScreen();
  void showOutcome();
  void cmdCancel_Click();
  void openLog();

  // Selection.
  class Candidates;
  void cboGroups_Click();
  void offerAllComputers();
  void offerGroup(const std::string& group);
  void cmdAdd_Click();
  int moveSelectedRows();
  void restoreSelection(int position);
  void cmdRemove_Click();
  void cmdselectall_Click();
  void cmdremoveall_Click();

  // Options.
  void optConfig_Click(int index);
  void cmdBrowse_Click();
  void optAccounts_Click();
  void cmdEditAccount_Click();
  void remedialBox_Click(ui::CheckBox& box);
  void lvSystems_MouseUp(ui::MouseButton button, const ui::ListHit& hit);

  void wireMoves();
  void wireRun();
  void wireSelection();
  void wireOptions();

  core::Program& program_;
  const ConsoleOfWizard console_;
  frmLogin& login_;
  frmRemedialActionHelp& remedialHelp_;
  bool Activated = false;  ///< the form has been activated since it was loaded
};

}  // namespace varnhold::deployment
