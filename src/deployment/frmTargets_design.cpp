// What the wizard's controls read at design, and where they stand.
#include "deployment/agent_polling.h"
#include "deployment/frmTargets.h"

namespace varnhold::deployment {

void frmTargets::designPages() {
  BorderStyle = ui::BorderStyle::Sizable;
  cboGroups.AddItem(kAllGroups);
  lvSelect.ColumnHeaders.Add("Computers");
  lvSelected.ColumnHeaders.Add("Selected Computers");
  lvSelect.MultiSelect = lvSelected.MultiSelect = true;
  for (const char* const column : {"System", "Latest Status", "Keep Snaps"})
    lvSystems.ColumnHeaders.Add(column);

  lblAgenthelp.Caption = "The following features will not be applicable for agent-less agent(s):";
  lblAgenthelp1.Caption = "- Monitoring of services, processes and performance";
  lblAgenthelp2.Caption = "- Monitoring of log files";
  lblAgenthelp3.Caption = "- Remedial actions";
  lblAgenthelp4.Caption = "- Events as they happen: agent-less systems are polled";

  lblAgentSys.Caption = "Selected System(s) (use '< &Back' to edit system list):";
  optClient(0).Caption = "Varnhold for Windows";

  lblPathSystems.Caption = "Selected Systems (use '<Back' to edit system list):";
  lblPathInfo.Caption = "Select installation path on the remote machines:";
  txtPathVHW.Text = R"(%ProgramFiles%\Kelmont Works\Varnhold)";
  // The blank inside the variable's name is deliberate: it is what the library knows.
  txtPathTKW.Text = R"(%Program Files%\Kelmont Works\Tessmark)";
  for (const auto& frequency : kPollFrequencies) cboPollFreq.AddItem(std::string(frequency.caption));
  lblAccInfo.Caption =
      "Provide an account with sufficient privilege to collect events remotely. Usually a Domain Admin "
      "account is required.";
  txtPwd.PasswordChar = txtConfirmPwd.PasswordChar = "*";

  optWinDom.Value = true;

  optConfig(0).Caption = "Default";
  optConfig(1).Caption = "Custom Config";
  lblConfig.Caption =
      "After events are collected, they are processed at the Manager. To apply a predefined configuration, "
      "select 'Custom' and specify that file (eg.C:\\vhaconfig.ini). You can also select 'Default' and "
      "configure this later.";

  optAccounts(0).Caption = "Local System account";
  optAccounts(1).Caption = "This Account:";
  txtPassword.PasswordChar = txtConfirmPassword.PasswordChar = "*";

  cmdInstall.Default = true;
  cmdCancel.Cancel = true;
}

void frmTargets::adoptControls() {
  adopt({{"freMain", freMain},
         {"freSelectAgent", freSelectAgent},
         {"freAgents", freAgents},
         {"frePath", frePath},
         {"freUpgradeOpts", freUpgradeOpts},
         {"freConfig", freConfig},
         {"freLogon", freLogon}});
  adopt(freMain, {{"lblInfo", lblInfo},
                  {"cboGroups", cboGroups},
                  {"lvSelect", lvSelect},
                  {"cmdAdd", cmdAdd},
                  {"cmdRemove", cmdRemove},
                  {"cmdselectall", cmdselectall},
                  {"cmdremoveall", cmdremoveall},
                  {"lvSelected", lvSelected},
                  {"lvSystems", lvSystems},
                  {"pbProgress", pbProgress}});
  adopt(freSelectAgent, {{"fraAgentType", fraAgentType}});
  adopt(fraAgentType, {{"lblAgentType", lblAgentType},
                       {"OptAgentbased", OptAgentbased},
                       {"chkHPMode", chkHPMode},
                       {"chkCopyRemedialActionScripts", chkCopyRemedialActionScripts},
                       {"OptAgentless", OptAgentless},
                       {"lblAgenthelp", lblAgenthelp},
                       {"lblAgenthelp1", lblAgenthelp1},
                       {"lblAgenthelp2", lblAgenthelp2},
                       {"lblAgenthelp3", lblAgenthelp3},
                       {"lblAgenthelp4", lblAgenthelp4}});
  adopt(freAgents,
        {{"lblAgentSys", lblAgentSys}, {"lstSystems", lstSystems}, {"lblAgentInfo", lblAgentInfo}});
  for (auto& client : optClient) adopt(freAgents, {{"optClient", client}});
  adopt(freAgents, {{"lblAgentLast", lblAgentLast}});
  adopt(frePath, {{"lblPathSystems", lblPathSystems},
                  {"lstPathSystems", lstPathSystems},
                  {"lblPathInfo", lblPathInfo},
                  {"txtPathVHW", txtPathVHW},
                  {"txtPathTKW", txtPathTKW},
                  {"picPolling", picPolling},
                  {"picAccount", picAccount},
                  {"lblPathLast", lblPathLast}});
  adopt(picPolling, {{"lblPollFreq", lblPollFreq},
                     {"cboPollFreq", cboPollFreq},
                     {"lblStartTime", lblStartTime},
                     {"txtStartHour", txtStartHour},
                     {"lblStartColon", lblStartColon},
                     {"txtStartMin", txtStartMin}});
  adopt(picAccount, {{"lblAccInfo", lblAccInfo},
                     {"lblAccount", lblAccount},
                     {"txtAccount", txtAccount},
                     {"lblPwd", lblPwd},
                     {"txtPwd", txtPwd},
                     {"lblConfirmPwd", lblConfirmPwd},
                     {"txtConfirmPwd", txtConfirmPwd},
                     {"cmdEditAccount", cmdEditAccount}});
  adopt(freUpgradeOpts, {{"lblUptOptInfo", lblUptOptInfo},
                         {"optWinDom", optWinDom},
                         {"optOverIP", optOverIP},
                         {"chkUpgradeRemedialActionScripts", chkUpgradeRemedialActionScripts}});
  for (auto& config : optConfig) adopt(freConfig, {{"optConfig", config}});
  adopt(freConfig, {{"txtTemplate", txtTemplate}, {"cmdBrowse", cmdBrowse}, {"lblConfig", lblConfig}});
  for (auto& account : optAccounts) adopt(freLogon, {{"optAccounts", account}});
  adopt(freLogon, {{"lblUserName", lblUserName},
                   {"txtUserName", txtUserName},
                   {"lblPassword", lblPassword},
                   {"txtPassword", txtPassword},
                   {"lblConfirmPassword", lblConfirmPassword},
                   {"txtConfirmPassword", txtConfirmPassword},
                   {"lblServiceAccount", lblServiceAccount}});
  // Behind what stands on the pages, where the focus goes first.
  adopt({{"lblProgress", lblProgress},
         {"cmdBack", cmdBack},
         {"cmdNext", cmdNext},
         {"cmdAdvanced", cmdAdvanced},
         {"cmdInstall", cmdInstall},
         {"cmdCancel", cmdCancel}});
}

}  // namespace varnhold::deployment
