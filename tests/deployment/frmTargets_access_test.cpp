// The wizard's probes of one computer, and how it starts programs as somebody else.
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class RemoteProbes : public WizardTest {
 protected:
  RemoteProbes() {
    load();
    fake.libraries.computers["HOST1"] = {};
    fake.files.makeFolder(R"(\\HOST1\C$)");
    fake.files.makeFolder(program.gInstallerDir);
    addRow("HOST1");
    fake.journal.clear();
  }

  const std::int32_t row = 1;
};

constexpr auto kProbeFile = R"(\\HOST1\C$\2026-1-31_16-5-9.tmp)";

TEST_F(RemoteProbes, ReachAComputerByItsShareAndThenItsLog) {
  EXPECT_TRUE(targets.CheckRemoteAccess(row));
  EXPECT_THAT(fakes::linesOf(fake.journal, "qrvChkRmtRegNGetPrgFilePath"),
              LinesAre({"qrvChkRmtRegNGetPrgFilePath HOST1 -> 1"}));
  EXPECT_THAT(fakes::linesOf(fake.journal, "OpenEventLog"),
              LinesAre({R"(OpenEventLog \\HOST1 Security -> 1)"}));
  EXPECT_THAT(fake.eventLog.openHandles(), IsEmpty());
  EXPECT_EQ(statuses(), Lines{"Unmanaged"});
  EXPECT_FALSE(targets.ErrorsSeen);
}

TEST_F(RemoteProbes, SayWhyTheLogCannotBeOpened) {
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  fake.eventLog.messages[5] = "Access is denied.\r\n";
  EXPECT_FALSE(targets.CheckRemoteAccess(row));
  EXPECT_EQ(statuses(), Lines{"Skipped: Access is denied."});
  EXPECT_TRUE(targets.ErrorsSeen);
  EXPECT_EQ(fake.files.content(R"(C:\VARNHOLD\RemoteInstaller\AILog.txt)"),
            "\"Skipped: HOST1 - Access is denied.\"\r\n");
}

TEST_F(RemoteProbes, HaveNoReasonWhereTheShareIsWhatFails) {
  fake.libraries.computers["HOST1"].programFiles.reset();
  EXPECT_FALSE(targets.CheckRemoteAccess(row));
  EXPECT_EQ(statuses(), Lines{"Skipped: Due to unknown error. Refer to error log"});
  EXPECT_THAT(fakes::linesOf(fake.journal, "OpenEventLog"), IsEmpty());
}

TEST_F(RemoteProbes, GoOnToTheNextStepWhereOneRaisesAnError) {
  fake.libraries.failures.insert({"qrvChkRmtRegNGetPrgFilePath", RuntimeError(53, "no library")});
  EXPECT_FALSE(targets.CheckRemoteAccess(row));
  EXPECT_EQ(statuses(), Lines{"Skipped: Due to unknown error. Refer to error log"});
  EXPECT_TRUE(targets.ErrorsSeen);
  const std::int32_t missing = 7;
  EXPECT_FALSE(targets.CheckRemoteAccess(missing));
}

TEST_F(RemoteProbes, AskForTheShareAlone) {
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  EXPECT_TRUE(targets.CheckRemoteRegistryAccess(row));
  EXPECT_THAT(fake.journal, Contains(HasSubstr(kProbeFile)));
  fake.libraries.computers["HOST1"].programFiles.reset();
  EXPECT_FALSE(targets.CheckRemoteRegistryAccess(row));
}

TEST_F(RemoteProbes, AskForTheLogAlone) {
  fake.libraries.computers.clear();
  EXPECT_TRUE(targets.AccessClientEventLog(row));
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  EXPECT_FALSE(targets.AccessClientEventLog(row));
  EXPECT_EQ(statuses(), Lines{"Unmanaged"});
}

class RunAs : public WizardTest {
 protected:
  RunAs() { load(); }

  std::uintptr_t run(std::uintptr_t (frmTargets::*routine)(const std::string&, const std::string&,
                                                           const std::string&, const std::string&,
                                                           const std::string&)) {
    const auto thread = (targets.*routine)("admin", "secret", "CORP", "tool.exe -x", R"(C:\Tools)");
    EXPECT_THAT(fake.journal, Each(Not(HasSubstr("secret"))));
    return thread;
  }
};

constexpr auto kWithLogon = R"(CreateProcessWithLogon CORP\admin 1 tool.exe -x 0x4000000 C:\Tools -> )";
constexpr auto kAsUser = R"(tool.exe -x 0x4000000 C:\Tools -> )";

TEST_F(RunAs, StartsWithALogonAndGivesTheThread) {
  EXPECT_EQ(run(&frmTargets::W2KRunAsUser), fakes::FakeProcesses::kStarted.thread);
  EXPECT_THAT(fake.journal, LinesAre({std::string(kWithLogon) + "0"}));
  EXPECT_EQ(fake.processes.password, "secret");
}

TEST_F(RunAs, ShowsTheErrorOfAStartWithALogon) {
  fake.processes.createError = 1326;
  EXPECT_EQ(run(&frmTargets::W2KRunAsUser), 0u);
  EXPECT_THAT(fake.journal,
              LinesAre({std::string(kWithLogon) + "1326",
                        "MessageBox exclamation: CreateProcessWithLogonW() failed with error 1326"}));
}

TEST_F(RunAs, LogsOnFirstOnNt4AndLeavesTheTokenOpen) {
  EXPECT_EQ(run(&frmTargets::NT4RunAsUser), fakes::FakeProcesses::kStarted.thread);
  EXPECT_THAT(fake.journal, LinesAre({R"(LogonUser CORP\admin 2 0 -> 0, token 1)",
                                      "CreateProcessAsUser 1 " + std::string(kAsUser) + "0"}));
  EXPECT_EQ(fake.processes.password, "secret");
}

TEST_F(RunAs, ClosesTheTokenWhereTheStartFails) {
  fake.processes.createError = 1314;
  EXPECT_EQ(run(&frmTargets::NT4RunAsUser), 0u);
  EXPECT_THAT(fake.journal, LinesAre({R"(LogonUser CORP\admin 2 0 -> 0, token 1)",
                                      "CreateProcessAsUser 1 " + std::string(kAsUser) + "1314",
                                      "MessageBox exclamation: CreateProcessAsUser() failed with error 1314",
                                      "CloseHandle 1"}));
}

TEST_F(RunAs, TriesToStartWithoutATokenToo) {
  fake.processes.logonError = 1326;
  fake.processes.createError = 6;
  EXPECT_EQ(run(&frmTargets::NT4RunAsUser), 0u);
  EXPECT_THAT(fake.journal, LinesAre({R"(LogonUser CORP\admin 2 0 -> 1326)",
                                      "MessageBox exclamation: LogonUser() failed with error 1326",
                                      "CreateProcessAsUser 0 " + std::string(kAsUser) + "6",
                                      "MessageBox exclamation: CreateProcessAsUser() failed with error 6",
                                      "CloseHandle 0"}));
}

TEST_F(RunAs, TakesTheWayOfTheWindowsVersion) {
  struct Case {
    platform::OsVersion version;
    const char* first;
  };
  const Case cases[] = {{{5, 2}, "CreateProcessWithLogon"},
                        {{6, 2}, "CreateProcessWithLogon"},
                        {{4, 2}, "LogonUser"},
                        {{5, 1}, "LogonUser"}};
  for (const auto& [version, first] : cases) {
    fake.environment.version = version;
    fake.journal.clear();
    run(&frmTargets::fnRunAsUser);
    ASSERT_GE(fake.journal.size(), 2u);
    EXPECT_THAT(fake.journal[0], HasSubstr("GetVersionEx"));
    EXPECT_THAT(fake.journal[1], testing::StartsWith(first));
  }
}

}  // namespace
}  // namespace varnhold::deployment
