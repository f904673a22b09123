#include <gmock/gmock.h>

#include "core/mdCommon.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::core {
namespace {

class RestartLocalServiceTest : public testing::Test {
 protected:
  RestartLocalServiceTest() { fake.services.services = {"Varnhold Agent"}; }
  std::int32_t restart(const std::string& service = "Varnhold Agent") {
    auto host = fake.host();
    return RestartLocalService(host, service);
  }

  fakes::FakeHost fake;
};

TEST_F(RestartLocalServiceTest, StopsWaitsFiveSecondsAndStarts) {
  EXPECT_EQ(restart(), 0);
  EXPECT_THAT(fake.journal,
              LinesAre({"GetComputerName -> MANAGER", R"(OpenSCManager \\MANAGER -> 1)",
                        "OpenService 1 Varnhold Agent 0xF01FF -> 2", "ControlService 2 1 -> 0", "Sleep 5000",
                        "StartService 2 -> 0", "CloseServiceHandle 2", "CloseServiceHandle 1"}));
}

TEST_F(RestartLocalServiceTest, CutsTheComputersNameAtItsFirstNul) {
  fake.environment.computerName = std::string("MANAGER\0\0\0", 10);
  EXPECT_EQ(restart(), 0);
  EXPECT_EQ(fake.journal[1], R"(OpenSCManager \\MANAGER -> 1)");
}

TEST_F(RestartLocalServiceTest, AsksAnUnnamedMachineWhenTheComputerHasNoName) {
  fake.environment.computerName = std::nullopt;
  EXPECT_EQ(restart(), 0);
  EXPECT_EQ(fake.journal[1], R"(OpenSCManager \\ -> 1)");
}

TEST_F(RestartLocalServiceTest, IgnoresTheResultOfTheStop) {
  fake.services.controlError = 1062;
  EXPECT_EQ(restart(), 0);
  EXPECT_EQ(fake.clock.sleptMs, 5000u);
}

TEST_F(RestartLocalServiceTest, GivesOneWithoutAServiceManager) {
  fake.services.unreachable = {R"(\\MANAGER)"};
  EXPECT_EQ(restart(), 1);
  EXPECT_THAT(fake.journal, LinesAre({"GetComputerName -> MANAGER", R"(OpenSCManager \\MANAGER -> 0)"}));
}

TEST_F(RestartLocalServiceTest, GivesTwoWithoutTheServiceAndClosesTheManager) {
  EXPECT_EQ(restart("Nothing"), 2);
  EXPECT_THAT(fake.journal, LinesAre({"GetComputerName -> MANAGER", R"(OpenSCManager \\MANAGER -> 1)",
                                      "OpenService 1 Nothing 0xF01FF -> 0", "CloseServiceHandle 1"}));
}

TEST_F(RestartLocalServiceTest, GivesThreeWhenTheServiceDoesNotStartAndClosesBothHandles) {
  fake.services.startError = 1053;
  EXPECT_EQ(restart(), 3);
  EXPECT_TRUE(fake.services.openHandles().empty());
}

TEST_F(RestartLocalServiceTest, TakesAServiceThatRunsAlreadyAsStarted) {
  fake.services.startError = 1056;
  EXPECT_EQ(restart(), 0);
  EXPECT_TRUE(fake.services.openHandles().empty());
}

}  // namespace
}  // namespace varnhold::core
