// Services, event logs and threads of other computers: what the companion is asked.
#include <gtest/gtest.h>

#include <array>

#include "base/runtime_error.h"
#include "platform/posix/adapters.h"
#include "tests/platform/posix/standin.h"

namespace varnhold::platform::posix {
namespace {

class CompanionPorts : public ::testing::Test {
 protected:
  std::unique_ptr<CompanionLibrary> standin_ = makeStandin();
};

TEST_F(CompanionPorts, AskForTheServiceOfTheMachineThatWasOpened) {
  const auto services = makeServiceControl(*standin_);
  const auto manager = services->openSCManager(R"(\\HOST1)");
  const auto service = services->openService(manager, "Varnhold Agent", kServiceAllAccess);
  EXPECT_EQ(services->startService(service), 0u);
  EXPECT_EQ(services->controlService(service, kServiceControlStop), 0u);
  EXPECT_EQ(standinCalls(*standin_), "start|\\\\HOST1|Varnhold Agent\ncontrol|\\\\HOST1|Varnhold Agent|1\n");
}

TEST_F(CompanionPorts, OpenNoManagerOfAComputerThatDoesNotAnswer) {
  EXPECT_EQ(makeServiceControl(*standin_)->openSCManager(R"(\\GONE)"), 0u);
}

TEST_F(CompanionPorts, TakeNoHandleThatIsClosed) {
  const auto services = makeServiceControl(*standin_);
  const auto manager = services->openSCManager(R"(\\HOST1)");
  const auto service = services->openService(manager, "Varnhold Agent", kServiceAllAccess);
  services->closeServiceHandle(service);
  services->closeServiceHandle(manager);
  EXPECT_EQ(services->openService(manager, "Varnhold Agent", kServiceAllAccess), 0u);
  EXPECT_EQ(services->startService(service), 6u);
  EXPECT_EQ(services->controlService(service, kServiceControlStop), 6u);
  EXPECT_EQ(standinCalls(*standin_), "");
}

TEST_F(CompanionPorts, ChangeTheAccountOfTheServiceThatWasOpened) {
  const auto services = makeServiceControl(*standin_);
  const auto service =
      services->openService(services->openSCManager(R"(\\HOST1)"), "Varnhold Agent", kServiceAllAccess);
  const auto changeTo = [&](const std::string& account) {
    return services->changeServiceConfig(service, kServiceWin32OwnProcess, kServiceNoChange, kServiceNoChange,
                                         account, "pä ss");
  };
  EXPECT_EQ(changeTo(R"(CORP\svc)"), 0u);
  EXPECT_EQ(changeTo("nobody"), kErrorInvalidServiceAccount);
  EXPECT_EQ(
      standinCalls(*standin_),
      "change|\\\\HOST1|Varnhold Agent|CORP\\svc|pä ss\nchange|\\\\HOST1|Varnhold Agent|nobody|pä ss\n");

  std::array<std::uint8_t, 64> room{};
  ServiceConfig config;
  std::uint32_t needed = 0;
  EXPECT_TRUE(services->queryServiceConfig(service, room.data(), room.size(), needed, config));
  EXPECT_EQ(config.serviceStartName, R"(CORP\svc)");
}

TEST_F(CompanionPorts, LookAnAccountUpOnTheSystemThatWasNamed) {
  AccountBuffers buffers;
  buffers.sid.resize(64);
  buffers.domain.resize(64);
  EXPECT_TRUE(makeAccounts(*standin_)->lookupAccountName("HOST1", R"(CORP\svc)", buffers));
  EXPECT_EQ(buffers.domain.substr(0, buffers.domainSize), std::string("CORP", 5));
  EXPECT_EQ(standinCalls(*standin_), "lookup|HOST1|CORP\\svc\n");
}

TEST_F(CompanionPorts, AskForTheLogByItsName) {
  const auto eventLog = makeEventLog(*standin_);
  std::uint32_t error = 0;
  eventLog->closeEventLog(eventLog->openEventLog(R"(\\HOST1)", "Security", error));
  EXPECT_EQ(standinCalls(*standin_), "log|\\\\HOST1|Security\n");
}

TEST_F(CompanionPorts, GiveTheErrorOfALogAndItsWords) {
  const auto eventLog = makeEventLog(*standin_);
  std::uint32_t error = 0;
  EXPECT_EQ(eventLog->openEventLog(R"(\\GONE)", "Security", error), 0u);
  EXPECT_EQ(error, 1722u);
  EXPECT_EQ(eventLog->formatMessage(error, error), "The RPC server is unavailable.\r\n");
}

TEST_F(CompanionPorts, LeaveTheExitCodeWhenItCannotBeAsked) {
  std::uint32_t code = 42;
  EXPECT_FALSE(makeThreads(*standin_)->getExitCodeThread(0, code));
  EXPECT_EQ(code, 42u);
}

template <class Call>
std::int32_t errorOf(Call call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST_F(CompanionPorts, RaiseWithoutTheLibraryAndWithoutItsFunctions) {
  for (const auto& [companion, number] : {std::pair{makeMissingStandin(), kFileNotFound},
                                          std::pair{makeLackingStandin(), kLibraryFunctionMissing}}) {
    auto& library = *companion;
    std::uint32_t unused = 0;
    EXPECT_EQ(errorOf([&] { static_cast<void>(makeServiceControl(library)->openSCManager("")); }), number);
    EXPECT_EQ(errorOf([&] { static_cast<void>(makeEventLog(library)->openEventLog("", "", unused)); }),
              number);
    EXPECT_EQ(errorOf([&] { static_cast<void>(makeThreads(library)->getExitCodeThread(7, unused)); }),
              number);
    EXPECT_EQ(errorOf([&] { makeThreads(library)->closeHandle(7); }), number);
  }
}

}  // namespace
}  // namespace varnhold::platform::posix
