// The deployment wizard over the real inventory, host and companion: what becomes of the computers of the
// lab.
#include "core/registry_values.h"
#include "tests/fakes/lines_are.h"
#include "tests/session/lab_session.h"

namespace varnhold::session {
namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;
using WizardSession = LabSession;

const std::string kInstalled = "Installed successfully";
const std::string kStandard = "Managed - Standard Mode";
const std::string kUpgraded = "Upgraded successfully";
const std::string kNotAccessible = "Not Accessible, will be skipped.";
const std::string kUnresolved = "Could not resolve the IP Address for the system.";
const std::string kUnreached =
    "Failed to connect. This may be due to insufficient permission, remote drive not being shared or network "
    "problems.";
const std::string kNoService =
    "Failed to create service. This may be due to insufficient permission or network problems.";
const std::string kComplete =
    "MessageBox information: The process is complete. Please check the status against each computer.";
const std::string kWithErrors = "Certain errors were encountered please select 'View &Log' to view the log";
const Lines kTaking = {"ATLAS", "BIRCH", "CEDAR", "DELTA", "EMBER", "FJORD", "JUNIPER", "KESTREL"};
const Lines kRefusing = {"GROVE", "HAVEN", "INLET", "LINDEN"};

/// The row of `Module_Table` of an agent that the wizard has installed.
std::string agentRow(const std::string& name) {
  return name + R"(|1|%ProgramFiles%\Kelmont Works\Varnhold|0|0)";
}

/// Where the agent is on each computer of the lab.
std::string agentFolder(const std::string& name) {
  const std::string programs = name == "DELTA"   ? "D/Program Files"
                               : name == "FJORD" ? "C/Programme"
                                                 : "C/Program Files";
  return programs + "/Kelmont Works/Varnhold";
}

std::string asProductPath(std::string folder) {
  folder.insert(1, ":");
  std::string path;
  for (const char letter : folder) path += letter == '/' ? std::string(R"(\\)") : std::string(1, letter);
  return path;
}

/// What an uninstall leaves of a registry that held the agent alone: the key of all products.
const std::string kBareRegistry =
    "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE]\r\n";

TEST_F(WizardSession, InstallsOnTwelveComputersAndLeavesNothingWhereItFails) {
  OperatorsConsole console(stage);
  const auto before = labs();
  console.run([&] {
    console.openFromMenu(console.main.mnuToolsInstall, [&] {
      console.wizard.cmdselectall.userClick();
      console.goOn();
      console.act();
      EXPECT_THAT(console.rows(),
                  LinesAre({"ATLAS: " + kInstalled, "BIRCH: " + kInstalled, "CEDAR: " + kInstalled,
                            "DELTA: " + kInstalled, "EMBER: " + kInstalled, "FJORD: " + kInstalled,
                            "GROVE: " + kUnresolved, "HAVEN: " + kUnreached, "INLET: " + kNoService,
                            "JUNIPER: " + kInstalled +
                                " - Could not start the service automatically. Please try manually.",
                            "KESTREL: " + kInstalled, "LINDEN: " + kUnreached}));
      EXPECT_EQ(console.wizard.lblProgress.Caption, kWithErrors);
      EXPECT_TRUE(console.wizard.cmdCancel.Enabled);
      console.finish();
    });
    for (const auto& name : kTaking) EXPECT_THAT(console.statuses(), Contains(name + ": " + kStandard));
    for (const auto& name : kRefusing) EXPECT_THAT(console.statuses(), Contains(name + ": Unmanaged"));
  });

  EXPECT_THAT(log(), LinesAre({"GROVE - " + kUnresolved, "HAVEN - " + kUnreached, "INLET - " + kNoService,
                               "LINDEN - " + kUnreached}));
  Lines rows;
  for (const auto& name : kTaking) rows.push_back(agentRow(name));
  EXPECT_THAT(cli::Stage::agents(), ElementsAreArray(rows));
  EXPECT_THAT(console.boxes(), LinesAre({kComplete}));
  for (const auto& name : kRefusing) EXPECT_EQ(lab(name), before.at(name)) << name;
}

TEST_F(WizardSession, AnInstallBringsFilesServiceAndRegistryValues) {
  OperatorsConsole console(stage);
  console.run([&] { console.install({"ATLAS", "DELTA", "FJORD"}); });

  for (const std::string name : {"ATLAS", "DELTA", "FJORD"}) {
    const auto folder = agentFolder(name);
    for (const char* const file : {"/vhagent", "/vhagent.exe", "/vhagent.txt", "/vhaconfig.ini"})
      EXPECT_EQ(labFile(name, folder + file),
                readFile(stage.home() / ("RemoteInstaller/Agent" + std::string(file))))
          << name << file;
    EXPECT_THAT(labFile(name, folder + "/remins/vhsetup.ins"), HasSubstr(name));
    EXPECT_EQ(agentService(name, "state"), "running");
    EXPECT_EQ(agentService(name, "account"), "LocalSystem");
    const auto registry = labFile(name, "registry.reg");
    EXPECT_THAT(registry, HasSubstr(R"([HKEY_LOCAL_MACHINE\SOFTWARE\Kelmont Works\Varnhold\Agent])"));
    EXPECT_THAT(registry, HasSubstr(R"("InstallPath"=")" + asProductPath(folder) + "\""));
    EXPECT_THAT(registry, HasSubstr(R"("Version"="7.0")"));
    EXPECT_THAT(registry, HasSubstr(R"("Manager"=")" + managerName() + "\""));
    EXPECT_THAT(registry, HasSubstr(R"("Mode"=dword:00000001)"));
  }
}

TEST_F(WizardSession, AGroupsPopUpOffersItsMembersAlone) {
  OperatorsConsole console(stage);
  console.run([&] {
    console.openFromTree("Desks", "mnuPopUpTreeInstall", [&] {
      auto& wizard = console.wizard;
      EXPECT_EQ(wizard.cboGroups.Text, "Desks");
      EXPECT_FALSE(wizard.cboGroups.Enabled);
      EXPECT_EQ(wizard.lvSelect.ListItems.Count(), 2);
      wizard.lvSelect.userClick(2);
      wizard.cmdAdd.userClick();
      console.goOn();
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"BIRCH: " + kInstalled}));
      EXPECT_EQ(wizard.lblProgress.Caption, "Completed successfully");
      EXPECT_FALSE(wizard.cmdCancel.Enabled);
      console.finish();
    });
    EXPECT_THAT(console.statuses(), LinesAre({"ATLAS: Unmanaged", "BIRCH: " + kStandard}));
  });
  EXPECT_THAT(cli::Stage::agents(), LinesAre({agentRow("BIRCH")}));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(WizardSession, AStopFinishesTheComputerInHandAndTouchesNoOther) {
  OperatorsConsole console(stage);
  const auto before = lab("LINDEN");
  console.run([&] {
    console.openFromList({"ATLAS", "KESTREL", "LINDEN"}, "mnuPopUpListInstall", [&] {
      console.goOn();
      // KESTREL takes its time: its job is under way when the program sleeps after ATLAS is done.
      console.clock.onSleep = [&](std::uint32_t) {
        const bool isAtKestrel = console.wizard.RunBusy && console.rows().front() == "ATLAS: " + kInstalled;
        if (!isAtKestrel || console.wizard.StopRequested) return;
        console.wizard.cmdCancel.userClick();
        EXPECT_EQ(console.wizard.lblInfo.Caption, "Update cancelled (finishing current task)");
      };
      console.act();
      EXPECT_TRUE(console.wizard.StopRequested);
      EXPECT_THAT(console.rows(),
                  LinesAre({"ATLAS: " + kInstalled, "KESTREL: " + kInstalled, "LINDEN: Unmanaged"}));
      EXPECT_EQ(console.wizard.lblProgress.Caption, "Action stopped by user");
      EXPECT_FALSE(console.wizard.cmdCancel.Enabled);
      console.finish();
    });
  });
  EXPECT_EQ(agentService("KESTREL", "state"), "running");
  EXPECT_EQ(lab("LINDEN"), before);
  EXPECT_THAT(cli::Stage::agents(), LinesAre({agentRow("ATLAS"), agentRow("KESTREL")}));
}

TEST_F(WizardSession, AnUninstallLeavesTheComputerAsItWasBeforeTheInstall) {
  OperatorsConsole console(stage);
  auto before = labs();
  for (const char* const name : {"ATLAS", "DELTA", "EMBER"}) before[name]["registry.reg"] = kBareRegistry;
  console.run([&] {
    console.install({"ATLAS", "DELTA", "EMBER"});
    console.openFromList({"ATLAS", "DELTA", "EMBER"}, "mnuPopUpListUninstall", [&] {
      console.logIn(R"(CORP\admin)", "corp");
      console.act();
      EXPECT_THAT(console.rows(), ElementsAreArray(eachWith({"ATLAS", "DELTA", "EMBER"}, kUninstalled)));
      EXPECT_EQ(console.wizard.lblProgress.Caption, "Completed successfully");
      console.finish();
    });
    EXPECT_THAT(console.statuses(), Not(Contains(HasSubstr(kStandard))));
  });
  EXPECT_EQ(labs(), before);
  EXPECT_THAT(cli::Stage::agents(), IsEmpty());
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(WizardSession, OnlyTheAccountThatAComputerDemandsTakesItsAgentOff) {
  OperatorsConsole console(stage);
  auto before = lab("LINDEN");
  before["registry.reg"] = kBareRegistry;
  console.run([&] {
    // An account of the service's own opens LINDEN to the install.
    console.openFromList({"LINDEN"}, "mnuPopUpListInstall", [&] {
      console.goOn();
      console.turnTo(7);
      console.wizard.optAccounts(1).userClick();
      OperatorsConsole::type(console.wizard.txtUserName, R"(PLANT\admin)");
      OperatorsConsole::type(console.wizard.txtPassword, "plant");
      OperatorsConsole::type(console.wizard.txtConfirmPassword, "plant");
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"LINDEN: " + kInstalled}));
      console.finish();
    });
    EXPECT_EQ(agentService("LINDEN", "account"), R"(PLANT\admin)");
    const auto installed = lab("LINDEN");
    for (const auto& [password, outcome] :
         {std::pair<std::string, std::string>{"tree", kUnreached}, {"plant", kUninstalled}}) {
      EXPECT_EQ(lab("LINDEN"), installed);
      console.openFromList({"LINDEN"}, "mnuPopUpListUninstall", [&] {
        console.logIn(R"(PLANT\admin)", password);
        console.act();
        EXPECT_THAT(console.rows(), LinesAre({"LINDEN: " + outcome}));
        console.finish();
      });
    }
  });
  EXPECT_EQ(lab("LINDEN"), before);
  EXPECT_THAT(log(), LinesAre({"Could not uninstall Varnhold Agent on LINDEN - " + kUnreached}));
  EXPECT_THAT(cli::Stage::agents(), IsEmpty());
}

TEST_F(WizardSession, UpgradesOverTheWindowsNetworkAndOverIP) {
  OperatorsConsole console(stage);
  console.run([&] {
    console.install({"ATLAS", "EMBER"});
    const auto agents = cli::Stage::agents();
    setRegistry(console, core::kManagerKey, "VHVersion", "7.1");
    stage.writeFile("RemoteInstaller/Agent/vhagent.txt", "The agent of 7.1.\n");
    console.openFromTree("Desks", "mnuPopUpTreeUpgrade", [&] {
      console.goOn();
      EXPECT_TRUE(console.wizard.optWinDom.Value);
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"ATLAS: " + kUpgraded}));
      console.finish();
    });
    EXPECT_THAT(labFile("EMBER", "registry.reg"), HasSubstr(R"("Version"="7.0")"));
    console.openFromTree("Servers", "mnuPopUpTreeUpgrade", [&] {
      console.goOn();
      console.wizard.optOverIP.userClick();
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"EMBER: " + kUpgraded}));
      console.finish();
    });
    EXPECT_EQ(cli::Stage::agents(), agents) << "an upgrade keeps the agent's row as it is";
  });
  for (const std::string name : {"ATLAS", "EMBER"}) {
    EXPECT_THAT(labFile(name, "registry.reg"), HasSubstr(R"("Version"="7.1")"));
    EXPECT_EQ(labFile(name, agentFolder(name) + "/vhagent.txt"), "The agent of 7.1.\n");
    EXPECT_EQ(agentService(name, "state"), "running");
  }
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(WizardSession, AnUpgradeThatFailsInItsMiddleLeavesTheAgentOfBefore) {
  OperatorsConsole console(stage);
  console.run([&] {
    console.install({"ATLAS", "EMBER"});
    addAgentRow("BIRCH");
    setRegistry(console, core::kManagerKey, "VHVersion", "7.1");
    stage.writeFile("RemoteInstaller/Agent/vhagent.txt", "The agent of 7.1.\n");
    for (const char* const name : {"ATLAS", "EMBER"}) rehearse(name, "[refuse]\nregistry = yes\n");
    const auto before = labs();
    console.main.mnuViewRefresh.userClick();
    console.openFromTree("Desks", "mnuPopUpTreeUpgrade", [&] {
      console.goOn();
      console.act();
      EXPECT_THAT(console.rows(),
                  LinesAre({"ATLAS: Could not create remote registry values. Please check your rights.",
                            "BIRCH: Agent service does not exist."}));
      console.finish();
    });
    console.openFromTree("Servers", "mnuPopUpTreeUpgrade", [&] {
      console.goOn();
      console.wizard.optOverIP.userClick();
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"EMBER: Upgrade failed. Registry operation failed."}));
      console.finish();
    });
    EXPECT_EQ(labs(), before);
  });
  EXPECT_THAT(log(), LinesAre({"ATLAS - Could not create remote registry values. Please check your rights.",
                               "BIRCH - Agent service does not exist.",
                               "EMBER - Upgrade failed. Registry operation failed."}));
}

}  // namespace
}  // namespace varnhold::session
