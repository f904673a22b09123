// Where a password goes that is typed into the wizard, and where it does not.
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/secret.h"
#include "deployment/engines.h"
#include "tests/fakes/lines_are.h"
#include "tests/session/lab_session.h"
#include "tests/session/password_search.h"

namespace varnhold::session {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string kBatch = "the home/RmTempLog.bat";
const std::string kAccounts = "the home/ntlm-users";

class WizardPasswords : public LabSession {
 protected:
  explicit WizardPasswords(const char* letters = "LqbrVtuldi-Btq1_ds-24YP-Fhud-Ld-Rgdkkrgnbj-55")
      : password(letters) {}
  ~WizardPasswords() override { umask(mask_); }
  WizardPasswords(const WizardPasswords&) = delete;
  WizardPasswords& operator=(const WizardPasswords&) = delete;

  /// The account of the manager's services has the marked password.
  void enterAccount() {
    auto line = "CORP:agent:" + password.text() + "\n";
    stage.writeFile("ntlm-users", line);
    fs::permissions(stage.home() / "ntlm-users", fs::perms::owner_read | fs::perms::owner_write);
    wipe(line);
  }
  [[nodiscard]] Lines files() const { return filesHolding(stage.home().parent_path(), password); }
  void typePassword(ui::TextBox& box, ui::TextBox& confirmation) const {
    for (auto* const each : {&box, &confirmation}) OperatorsConsole::type(*each, password.text());
  }
  void logIn(OperatorsConsole& console) const {
    auto text = password.text();
    console.logIn(R"(CORP\admin)", text);
    wipe(text);
  }
  /// In each pause of a run: the batch file, where there is one, is its owner's alone, and only one that
  /// connects holds the password.
  void watchBatchFile(OperatorsConsole& console) {
    console.clock.onSleep = [this](std::uint32_t milliseconds) {
      const auto file = stage.home() / "RmTempLog.bat";
      if (!fs::exists(file)) return;
      EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
      const bool connects = milliseconds == 3000 || milliseconds == 5000;
      EXPECT_EQ(files(), connects ? Lines({kBatch, kAccounts}) : Lines({kAccounts}));
      ++(connects ? connected : disconnected);
    };
  }
  void expectUntold(OperatorsConsole& console) const {
    auto text = password.text();
    EXPECT_THAT(console.journal, Each(Not(HasSubstr(text))));
    EXPECT_THAT(console.rows(), Each(Not(HasSubstr(text))));
    EXPECT_EQ(console.wizard.lblProgress.Caption.get().find(text), std::string::npos);
    wipe(text);
  }

  const MarkedPassword password;
  int connected = 0, disconnected = 0;

 private:
  mode_t mask_ = umask(0);
};

TEST_F(WizardPasswords, TheAccountsOfAnAgentlessRunStandInTheBatchFileAlone) {
  enterAccount();
  OperatorsConsole console(stage);
  watchBatchFile(console);
  console.run([&] {
    console.openFromList({"ATLAS", "LINDEN"}, "mnuPopUpListInstall", [&] {
      console.wizard.cmdNext.userClick();
      console.wizard.OptAgentless.userClick();
      console.wizard.cmdNext.userClick();
      OperatorsConsole::type(console.wizard.txtAccount, R"(CORP\agent)");
      typePassword(console.wizard.txtPwd, console.wizard.txtConfirmPwd);
      logIn(console);
      console.act();
      EXPECT_THAT(console.rows(), ElementsAre("ATLAS: Installed successfully", StartsWith("LINDEN: Failed")));
      expectUntold(console);
      console.finish();
    });
  });
  EXPECT_EQ(agentService(managerName(), "account"), R"(CORP\agent)");
  EXPECT_EQ(connected, 4) << "c$ and d$ of two computers";
  EXPECT_EQ(disconnected, 4);
  EXPECT_FALSE(fs::exists(stage.home() / "RmTempLog.bat"));
  EXPECT_THAT(log(), Contains(StartsWith("LINDEN - ")));
  EXPECT_THAT(files(), LinesAre({kAccounts}));
}

TEST_F(WizardPasswords, TheAccountOfTheAgentsServiceStandsNowhere) {
  enterAccount();
  OperatorsConsole console(stage);
  watchBatchFile(console);
  console.run([&] {
    console.openFromList({"ATLAS", "INLET", "LINDEN"}, "mnuPopUpListInstall", [&] {
      console.goOn();
      console.turnTo(7);
      console.wizard.optAccounts(1).userClick();
      OperatorsConsole::type(console.wizard.txtUserName, R"(CORP\agent)");
      typePassword(console.wizard.txtPassword, console.wizard.txtConfirmPassword);
      console.act();
      EXPECT_THAT(console.rows(), ElementsAre("ATLAS: Installed successfully", StartsWith("INLET: Failed"),
                                              StartsWith("LINDEN: Failed")));
      expectUntold(console);
      console.finish();
    });
  });
  EXPECT_EQ(agentService("ATLAS", "account"), R"(CORP\agent)");
  EXPECT_EQ(connected + disconnected, 0);
  EXPECT_THAT(files(), LinesAre({kAccounts}));
}

TEST_F(WizardPasswords, APasswordThatIsRefusedIsToldNowhere) {
  OperatorsConsole console(stage);
  console.run([&] {
    console.openFromList({"ATLAS"}, "mnuPopUpListInstall", [&] {
      console.goOn();
      console.turnTo(7);
      console.wizard.optAccounts(1).userClick();
      OperatorsConsole::type(console.wizard.txtUserName, R"(CORP\agent)");
      typePassword(console.wizard.txtPassword, console.wizard.txtConfirmPassword);
      console.act();
      expectUntold(console);
      console.wizard.cmdCancel.userClick();
    });
  });
  EXPECT_THAT(console.boxes(),
              ElementsAre(StartsWith("MessageBox exclamation: The user credentials failed.")));
  EXPECT_THAT(files(), IsEmpty());
}

/// With passwords of their own: other tests leave copies of theirs in what they compare.
class LoginInMemory : public WizardPasswords {
 protected:
  LoginInMemory() : WizardPasswords("Sdldlcdq-Md-Mns_gdqd-77-Vgns-Vd-Cn-Mns-Rzx-31") {}
};

class ServiceAccountInMemory : public WizardPasswords {
 protected:
  ServiceAccountInMemory() : WizardPasswords("Bnmrs`ms-Cqnhrm_dlnv-15-Xds-Mn-Rsnmd-Vzr-22") {}
};

TEST_F(LoginInMemory, IsThatOfTheProgramAloneAndGoneWithTheNextAnswer) {
  OperatorsConsole console(stage);
  const auto uninstall = [&](const std::string& name, const std::function<void()>& answer) {
    console.openFromList({name}, "mnuPopUpListUninstall", [&] {
      answer();
      console.act();
      console.finish();
    });
  };
  console.run([&] {
    console.install({"ATLAS", "BIRCH", "CEDAR", "DELTA"});
    uninstall("ATLAS", [&] { logIn(console); });
    EXPECT_EQ(countInMemory(password), 1U) << "gLoginPassword, which stays";
    uninstall("BIRCH", [&] { console.logIn(R"(CORP\admin)", "corp"); });
    EXPECT_EQ(countInMemory(password), 0U) << "another one has taken its place";
    uninstall("CEDAR", [&] { logIn(console); });
    uninstall("DELTA", [&] { console.refuseLogin(); });
    EXPECT_EQ(countInMemory(password), 0U) << "a refusal has emptied it";
  });
}

// Without the check of the account, whose mechanism keeps what it likes.
TEST_F(ServiceAccountInMemory, IsGoneWithTheRunAndTheWizard) {
  OperatorsConsole console(stage);
  console.run([&] {
    console.openFromList({"ATLAS", "BIRCH"}, "mnuPopUpListInstall", [&] {
      console.goOn();
      console.turnTo(7);
      console.wizard.optAccounts(1).userClick();
      OperatorsConsole::type(console.wizard.txtUserName, R"(CORP\agent)");
      typePassword(console.wizard.txtPassword, console.wizard.txtConfirmPassword);
      deployment::InstallAgents(console.program, console.wizard);
      EXPECT_THAT(console.rows(),
                  LinesAre({"ATLAS: Installed successfully", "BIRCH: Installed successfully"}));
      EXPECT_EQ(countInMemory(password), 2U) << "the two boxes hold it";
      console.wizard.Unload();
    });
    EXPECT_EQ(countInMemory(password), 0U);
  });
  EXPECT_EQ(agentService("ATLAS", "account"), R"(CORP\agent)");
}

/// Kills this process as soon as a share is about to be connected.
void killAtTheBatchFile(OperatorsConsole& console) {
  console.clock.onSleep = [](std::uint32_t milliseconds) {
    if (milliseconds == 3000) kill(getpid(), SIGKILL);
  };
}

TEST_F(WizardPasswords, AKilledRunLeavesTheBatchFileToItsOwnerAndTheNextRunTakesItAway) {
  {
    OperatorsConsole console(stage);
    console.run([&] { console.install({"ATLAS"}); });
  }
  const pid_t child = fork();
  if (child == 0) {
    OperatorsConsole console(stage);
    killAtTheBatchFile(console);
    console.run([&] {
      console.openFromList({"ATLAS"}, "mnuPopUpListUninstall", [&] {
        logIn(console);
        console.act();
      });
    });
    _exit(1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
  EXPECT_THAT(files(), LinesAre({kBatch}));
  EXPECT_EQ(fs::status(stage.home() / "RmTempLog.bat").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);

  OperatorsConsole console(stage);
  console.run([&] {
    console.openFromList({"ATLAS"}, "mnuPopUpListUninstall", [&] {
      console.logIn(R"(CORP\admin)", "corp");
      console.act();
      EXPECT_THAT(console.rows(), LinesAre({"ATLAS: Agent uninstalled successfully"}));
      console.finish();
    });
  });
  EXPECT_FALSE(fs::exists(stage.home() / "RmTempLog.bat"));
  EXPECT_THAT(files(), IsEmpty());
}

}  // namespace
}  // namespace varnhold::session
