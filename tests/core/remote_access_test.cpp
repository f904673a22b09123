#include <gmock/gmock.h>

#include "core/mdCommon.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::core {
namespace {

using testing::ElementsAre;

class RemoteAccessTest : public testing::Test {
 protected:
  RemoteAccessTest() { fake.libraries.computers["HOST1"].programFiles = R"(D:\Program Files)"; }

  fakes::FakeHost fake;
  Host host = fake.host();
};

TEST_F(RemoteAccessTest, OpensTheSecurityLogAndClosesIt) {
  EXPECT_TRUE(CanAccessEventLog(host.eventLog, "HOST1"));
  EXPECT_THAT(fake.journal, LinesAre({R"(OpenEventLog \\HOST1 Security -> 1)", "CloseEventLog 1"}));
}

TEST_F(RemoteAccessTest, TellsThatTheSecurityLogIsRefused) {
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  EXPECT_FALSE(CanAccessEventLog(host.eventLog, "HOST1"));
  EXPECT_THAT(fake.journal, LinesAre({R"(OpenEventLog \\HOST1 Security -> 0, error 5)"}));
}

TEST_F(RemoteAccessTest, ProbesTheShareOfTheProgramFilesDrive) {
  EXPECT_TRUE(CanWriteAdminShare(host, "HOST1"));
  EXPECT_THAT(fake.journal, LinesAre({"qrvChkRmtRegNGetPrgFilePath HOST1 -> 1",
                                      R"(createProbe \\HOST1\D$\2026-1-31_16-5-9.tmp -> yes)",
                                      R"(remove \\HOST1\D$\2026-1-31_16-5-9.tmp -> Done)"}));
}

TEST_F(RemoteAccessTest, NamesTheProbeWithoutLeadingZeros) {
  fake.clock.now = {2026, 2, 3, 0, 0, 7};
  EXPECT_TRUE(CanWriteAdminShare(host, "HOST1"));
  EXPECT_EQ(fake.journal[1], R"(createProbe \\HOST1\D$\2026-2-3_0-0-7.tmp -> yes)");
}

TEST_F(RemoteAccessTest, MakesNoProbeWhenTheRemoteRegistryDoesNotAnswer) {
  fake.libraries.computers["HOST1"].programFiles.reset();
  EXPECT_FALSE(CanWriteAdminShare(host, "HOST1"));
  EXPECT_THAT(fake.journal, LinesAre({"qrvChkRmtRegNGetPrgFilePath HOST1 -> 0"}));
}

TEST_F(RemoteAccessTest, FailsWhenTheShareRefusesTheProbe) {
  fake.files.refuse(R"(\\HOST1\D$\2026-1-31_16-5-9.tmp)", platform::FileOutcome::Refused);
  EXPECT_FALSE(CanWriteAdminShare(host, "HOST1"));
  EXPECT_THAT(fake.journal, LinesAre({"qrvChkRmtRegNGetPrgFilePath HOST1 -> 1",
                                      R"(createProbe \\HOST1\D$\2026-1-31_16-5-9.tmp -> no)"}));
}

TEST_F(RemoteAccessTest, AsksForAShareWithoutLetterWhenThePathIsEmpty) {
  fake.libraries.computers["HOST1"].programFiles = "";
  EXPECT_TRUE(CanWriteAdminShare(host, "HOST1"));
  EXPECT_EQ(fake.journal[1], R"(createProbe \\HOST1\$\2026-1-31_16-5-9.tmp -> yes)");
}

TEST_F(RemoteAccessTest, ReachesAComputerByShareAndThenLog) {
  EXPECT_TRUE(CanReachComputer(host, "HOST1"));
  EXPECT_THAT(fake.journal, LinesAre({"qrvChkRmtRegNGetPrgFilePath HOST1 -> 1",
                                      R"(createProbe \\HOST1\D$\2026-1-31_16-5-9.tmp -> yes)",
                                      R"(remove \\HOST1\D$\2026-1-31_16-5-9.tmp -> Done)",
                                      R"(OpenEventLog \\HOST1 Security -> 1)", "CloseEventLog 1"}));
}

TEST_F(RemoteAccessTest, DoesNotLookAtTheLogWhenTheShareFails) {
  fake.files.refuse(R"(\\HOST1\D$\2026-1-31_16-5-9.tmp)", platform::FileOutcome::Refused);
  EXPECT_FALSE(CanReachComputer(host, "HOST1"));
  EXPECT_THAT(fakes::linesOf(fake.journal, "OpenEventLog"), ElementsAre());
}

TEST_F(RemoteAccessTest, DoesNotReachAComputerWhoseLogIsRefused) {
  fake.eventLog.refused[R"(\\HOST1)"] = 5;
  EXPECT_FALSE(CanReachComputer(host, "HOST1"));
}

}  // namespace
}  // namespace varnhold::core
