// The account of the agent service: what is asked of the host and what the log says, in order.
#include "deployment/service_account.h"

#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr auto kManagerOpened = R"(OpenSCManager \\MANAGER -> 1)";
constexpr auto kAgentOpened = "OpenService 1 Varnhold Agent 0xF01FF -> 2";

class ServiceAccount : public WizardTest {
 protected:
  ServiceAccount() {
    load();
    fake.services.services = {"Varnhold Agent", "Varnhold Receiver"};
    fake.accounts.accounts[R"(CORP\SVC)"] = {{1, 5, 0x2a}, "CORP"};
    targets.lstSystems.AddItem("HOST1");
    targets.lstSystems.AddItem("HOST2");
    fake.journal.clear();
  }

  /// What was asked of the host, and each line of the log as `log: <text>`.
  Lines story() {
    Lines lines;
    for (const auto& line : fake.journal) {
      const auto record = line.find("AILog.txt");
      if (record == std::string::npos) {
        lines.push_back(line);
        continue;
      }
      const auto first = line.find('"'), last = line.rfind('"');
      lines.push_back(first == std::string::npos ? line : "log: " + line.substr(first + 1, last - first - 1));
    }
    return lines;
  }
  bool boxesAre(bool locked, ui::SystemColor colour) {
    bool all = true;
    for (auto* const box : {&targets.txtAccount, &targets.txtPwd, &targets.txtConfirmPwd})
      all = all && box->Locked.get() == locked && box->BackColor.get() == colour;
    return all;
  }
};

using ShownAccount = ServiceAccount;

TEST_F(ShownAccount, LeavesTheBoxesOpenForLocalSystem) {
  targets.txtAccount.Locked = true;
  EXPECT_TRUE(ShowAgentlessAccount(program, targets));
  EXPECT_THAT(story(), LinesAre({kManagerOpened, "log: Opening Varnhold Receiver Service On: MANAGER",
                                 kAgentOpened, "QueryServiceConfig 2 room 0 -> 0", "HeapAlloc 300 -> 1",
                                 "QueryServiceConfig 2 room 300 -> 1", "HeapFree 1", "CloseServiceHandle 2",
                                 "CloseServiceHandle 1"}));
  EXPECT_TRUE(boxesAre(false, ui::SystemColor::Window));
  EXPECT_EQ(targets.txtAccount.Text, "");
}

TEST_F(ShownAccount, IsANamedOneInLockedBoxes) {
  fake.services.startName = R"(CORP\svc)";
  EXPECT_FALSE(ShowAgentlessAccount(program, targets));
  EXPECT_EQ(targets.txtAccount.Text, R"(CORP\svc)");
  EXPECT_TRUE(boxesAre(true, ui::SystemColor::ButtonFace));
}

TEST_F(ShownAccount, IsComparedWithLocalSystemByItsExactLetters) {
  fake.services.startName = "localsystem";
  EXPECT_FALSE(ShowAgentlessAccount(program, targets));
  EXPECT_EQ(targets.txtAccount.Text, "localsystem");
  EXPECT_TRUE(boxesAre(true, ui::SystemColor::ButtonFace));
}

TEST_F(ShownAccount, LeavesTheBoxesAloneWhereTheHostTellsNone) {
  fake.services.startName.reset();
  targets.txtAccount.Text = "as it was";
  targets.txtPwd.Locked = true;
  EXPECT_TRUE(ShowAgentlessAccount(program, targets));
  EXPECT_EQ(targets.txtAccount.Text, "as it was");
  EXPECT_TRUE(targets.txtPwd.Locked);
  EXPECT_FALSE(targets.txtAccount.Locked);
  EXPECT_THAT(fake.services.openHandles(), IsEmpty());
  EXPECT_EQ(fake.heap.live(), 0u);
}

TEST_F(ShownAccount, IsCutAt255Characters) {
  fake.services.startName = std::string(254, 'x') + "äyz";
  EXPECT_FALSE(ShowAgentlessAccount(program, targets));
  EXPECT_EQ(targets.txtAccount.Text, std::string(254, 'x') + "ä");
}

TEST_F(ShownAccount, CannotBeReadWithoutTheServiceManager) {
  fake.services.unreachable.insert(R"(\\MANAGER)");
  EXPECT_FALSE(ShowAgentlessAccount(program, targets));
  EXPECT_THAT(story(), LinesAre({R"(OpenSCManager \\MANAGER -> 0)",
                                 "log: Could not open Sevice Control Manager because access was denied"}));
}

TEST_F(ShownAccount, CannotBeReadWithoutTheService) {
  fake.services.services.erase("Varnhold Agent");
  EXPECT_FALSE(ShowAgentlessAccount(program, targets));
  EXPECT_THAT(story(),
              LinesAre({kManagerOpened, "log: Opening Varnhold Receiver Service On: MANAGER",
                        "OpenService 1 Varnhold Agent 0xF01FF -> 0",
                        "log: Could not open Varnhold Receiver on MANAGER", "CloseServiceHandle 1"}));
}

TEST_F(ShownAccount, CannotBeReadWithoutMemory) {
  fake.heap.refused = {1};
  EXPECT_FALSE(ShowAgentlessAccount(program, targets));
  EXPECT_THAT(story(),
              LinesAre({kManagerOpened, "log: Opening Varnhold Receiver Service On: MANAGER", kAgentOpened,
                        "QueryServiceConfig 2 room 0 -> 0", "HeapAlloc 300 -> 0",
                        "log: Could not get heap memory.", "CloseServiceHandle 2", "CloseServiceHandle 1"}));
}

TEST_F(ShownAccount, CannotBeReadWhereTheServiceIsNotTold) {
  fake.services.tellsConfig = false;
  EXPECT_FALSE(ShowAgentlessAccount(program, targets));
  EXPECT_THAT(story(),
              LinesAre({kManagerOpened, "log: Opening Varnhold Receiver Service On: MANAGER", kAgentOpened,
                        "QueryServiceConfig 2 room 0 -> 0", "HeapAlloc 300 -> 1",
                        "QueryServiceConfig 2 room 300 -> 0", "log: Could not query Sevice information",
                        "HeapFree 1", "CloseServiceHandle 2", "CloseServiceHandle 1"}));
}

class ChangedAccount : public ServiceAccount {
 protected:
  ChangedAccount() {
    targets.OptAgentless.Value = true;
    targets.txtAccount.Text = R"(CORP\svc)";
    targets.txtPwd.Text = "secret";
    targets.txtUserName.Text = R"(CORP\other)";
    targets.txtPassword.Text = "sesame";
    fake.journal.clear();
  }
};

TEST_F(ChangedAccount, IsGivenItsRightAndThenToTheAgentService) {
  ChangeServiceAccount(program, targets);
  EXPECT_THAT(
      story(),
      LinesAre({kManagerOpened, R"(LookupAccountName HOST1 CORP\svc room 1 and 0 -> 0)",
                R"(LookupAccountName HOST1 CORP\svc room 3 and 5 -> 1)", "fnLogRight HOST1 01 05 2a -> 0",
                R"(log: The user CORP\svc has been given 'LogonAsService' rights on system MANAGER)",
                "log: Opening Varnhold Agent Service On: MANAGER", kAgentOpened,
                R"(ChangeServiceConfig 2 16 -1 -1 CORP\svc -> 0)",
                "log: Sucessfully changed the service account On: MANAGER", "CloseServiceHandle 2",
                "CloseServiceHandle 1"}));
  EXPECT_EQ(fake.services.password, "secret");
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(ChangedAccount, IsTheOtherPagesAndTheReceiversWithAgentBasedDeployment) {
  targets.OptAgentbased.Value = true;
  fake.accounts.accounts[R"(CORP\OTHER)"] = {{7}, "CORP"};
  fake.journal.clear();
  ChangeServiceAccount(program, targets);
  EXPECT_THAT(
      story(),
      LinesAre({kManagerOpened, R"(LookupAccountName HOST1 CORP\other room 1 and 0 -> 0)",
                R"(LookupAccountName HOST1 CORP\other room 1 and 5 -> 1)", "fnLogRight HOST1 07 -> 0",
                R"(log: The user CORP\other has been given 'LogonAsService' rights on system MANAGER)",
                "log: Opening Varnhold Receiver Service On: MANAGER",
                "OpenService 1 Varnhold Receiver 0xF01FF -> 2",
                R"(ChangeServiceConfig 2 16 -1 -1 CORP\other -> 0)",
                "log: Sucessfully changed the service account On: MANAGER", "CloseServiceHandle 2",
                "CloseServiceHandle 1"}));
  EXPECT_EQ(fake.services.password, "sesame");
}

TEST_F(ChangedAccount, StaysWithoutTheServiceManager) {
  fake.services.unreachable.insert(R"(\\MANAGER)");
  ChangeServiceAccount(program, targets);
  EXPECT_THAT(story(), LinesAre({R"(OpenSCManager \\MANAGER -> 0)",
                                 "log: Could not open Sevice Control Manager because access was denied"}));
}

TEST_F(ChangedAccount, GoesOnWithoutTheRight) {
  fake.libraries.logRightResult = 5;
  ChangeServiceAccount(program, targets);
  EXPECT_THAT(story(), testing::IsSupersetOf(
                           {"log: The user CORP\\svc could not be given 'LogonAsService' rights on system "
                            "MANAGER please ensure that you have administrator rights on the machine and it "
                            "is currently accessible.",
                            "log: Sucessfully changed the service account On: MANAGER"}));
}

TEST_F(ChangedAccount, StaysWithoutTheServiceWhichTheLogCallsTheReceiver) {
  fake.services.services.erase("Varnhold Agent");
  targets.txtAccount.Text = "LocalSystem";
  fake.journal.clear();
  ChangeServiceAccount(program, targets);
  EXPECT_THAT(story(),
              LinesAre({kManagerOpened,
                        "log: The user LocalSystem has been given 'LogonAsService' rights on "
                        "system MANAGER",
                        "log: Opening Varnhold Agent Service On: MANAGER",
                        "OpenService 1 Varnhold Agent 0xF01FF -> 0",
                        "log: Could not open Varnhold Receiver on MANAGER", "CloseServiceHandle 1"}));
}

constexpr auto kQuestion =
    "MessageBox question: The account information was invalid on system 'HOST1'. Do you want to continue "
    "applying to other systems?";

TEST_F(ChangedAccount, LeavesBothHandlesOpenWhenAnInvalidOneIsNotGoneOnWith) {
  fake.services.changeError = 1057;
  ui.nextAnswer(ui::Answer::No);
  ChangeServiceAccount(program, targets);
  const auto lines = story();
  EXPECT_THAT(Lines(lines.end() - 4, lines.end()),
              LinesAre({R"(ChangeServiceConfig 2 16 -1 -1 CORP\svc -> 1057)",
                        "log: Could not change the service account On: MANAGER",
                        "log: The account information is invalid.", std::string(kQuestion) + " -> No"}));
  EXPECT_THAT(fake.services.openHandles(), ElementsAre(1u, 2u));
}

TEST_F(ChangedAccount, ChangesNoOtherSystemWhenAnInvalidOneIsGoneOnWith) {
  fake.services.changeError = 1057;
  ui.nextAnswer(ui::Answer::Yes);
  ChangeServiceAccount(program, targets);
  const auto lines = story();
  EXPECT_THAT(Lines(lines.end() - 3, lines.end()),
              LinesAre({std::string(kQuestion) + " -> Yes", "CloseServiceHandle 2", "CloseServiceHandle 1"}));
  EXPECT_EQ(fakes::linesOf(fake.journal, "ChangeServiceConfig").size(), 1u);
}

TEST_F(ChangedAccount, IsRefusedWithTheNumberOfAnyOtherError) {
  fake.services.changeError = 5;
  ChangeServiceAccount(program, targets);
  const auto lines = story();
  EXPECT_THAT(Lines(lines.end() - 5, lines.end()),
              LinesAre({R"(ChangeServiceConfig 2 16 -1 -1 CORP\svc -> 5)",
                        "log: Could not change the service account On: MANAGER", "log: Error Code: 5",
                        "CloseServiceHandle 2", "CloseServiceHandle 1"}));
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(ChangedAccount, ShowsARunTimeErrorAndGivesItsHandlesBack) {
  fake.libraries.failures.insert({"fnLogRight", RuntimeError(53, "VhwLogonCtrl was not found")});
  ChangeServiceAccount(program, targets);
  EXPECT_THAT(boxes(), LinesAre({"MessageBox critical: VhwLogonCtrl was not found"}));
  EXPECT_THAT(fake.services.openHandles(), IsEmpty());
}

TEST_F(ChangedAccount, IsLookedUpOnThisComputerWhereNoSystemIsListed) {
  targets.lstSystems.Clear();
  ChangeServiceAccount(program, targets);
  EXPECT_THAT(fake.journal, testing::IsSupersetOf({R"(LookupAccountName  CORP\svc room 3 and 5 -> 1)",
                                                   "fnLogRight  01 05 2a -> 0"}));
}

TEST_F(ChangedAccount, KeepsThePasswordOutOfTheLogAndTheBoxes) {
  fake.services.changeError = 1057;
  ui.nextAnswer(ui::Answer::Yes);
  ChangeServiceAccount(program, targets);
  EXPECT_THAT(fake.journal, Each(Not(HasSubstr("secret"))));
}

using GrantedRight = ServiceAccount;

TEST_F(GrantedRight, IsNotNeededByLocalSystem) {
  EXPECT_TRUE(GrantLogonAsService(program, "HOST1", "LocalSystem"));
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(GrantedRight, IsLookedForWhereLocalSystemIsSpeltOtherwise) {
  EXPECT_FALSE(GrantLogonAsService(program, "HOST1", "localsystem"));
  EXPECT_THAT(fake.journal, LinesAre({"LookupAccountName HOST1 localsystem room 1 and 0 -> 0",
                                      "LookupAccountName HOST1 localsystem room 0 and 0 -> 0"}));
}

TEST_F(GrantedRight, IsGivenOnlyWhenTheLibraryAnswersZero) {
  EXPECT_TRUE(GrantLogonAsService(program, "HOST1", R"(CORP\svc)"));
  fake.libraries.logRightResult = 1;
  EXPECT_FALSE(GrantLogonAsService(program, "HOST1", R"(CORP\svc)"));
}

TEST_F(GrantedRight, IsGivenWhereOneByteHeldTheWholeSid) {
  fake.accounts.accounts["TINY"] = {{9}, ""};
  EXPECT_TRUE(GrantLogonAsService(program, "", "tiny"));
  EXPECT_THAT(fake.journal, LinesAre({"LookupAccountName  tiny room 1 and 0 -> 0",
                                      "LookupAccountName  tiny room 1 and 1 -> 1", "fnLogRight  09 -> 0"}));
}

using ServiceAccountChange = ServiceAccount;

TEST_F(ServiceAccountChange, StoresTheErrorForTheCallerOnlyWhereItFails) {
  std::uint32_t error = 99;
  EXPECT_TRUE(SetServiceAccount(program, 2, R"(CORP\svc)", "secret", error));
  EXPECT_EQ(error, 99u);
  fake.services.changeError = 1060;
  EXPECT_FALSE(SetServiceAccount(program, 2, R"(CORP\svc)", "secret", error));
  EXPECT_EQ(error, 1060u);
}

}  // namespace
}  // namespace varnhold::deployment
