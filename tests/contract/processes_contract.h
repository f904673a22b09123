#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <string>

#include "platform/processes.h"

/// What every `Processes` does. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ProcessesContract, PosixProcessesHost);
namespace varnhold::contract {

template <class Host>
concept ProcessesHost = std::default_initializable<Host> && requires(Host host) {
  { host.processes() } -> std::convertible_to<platform::Processes&>;
  /// A batch file with this content, as a path in the product's form; the host clears it away.
  { host.batchFile(std::string{}) } -> std::convertible_to<std::string>;
};

template <ProcessesHost Host>
class ProcessesContract : public ::testing::Test {
 protected:
  static constexpr int kLastFailure =
      32;  ///< results of ShellExecute up to this one are failures (shellapi.h)

  int open(const std::string& file) {
    return host_.processes().shellExecute("open", file, platform::ShowState::Hidden);
  }

  Host host_;
};

TYPED_TEST_SUITE_P(ProcessesContract);

TYPED_TEST_P(ProcessesContract, StartsABatchFileOfOneNetUseLine) {
  const auto file = this->host_.batchFile("net use \\\\no-such-host.invalid\\c$  /DELETE\r\n");
  EXPECT_GT(this->open(file), this->kLastFailure);
}

TYPED_TEST_P(ProcessesContract, SaysThatAFileIsMissing) {
  const auto file = this->host_.batchFile("net use \\\\no-such-host.invalid\\c$  /DELETE\r\n");
  EXPECT_EQ(this->open(file + ".missing.bat"), 2);
}

TYPED_TEST_P(ProcessesContract, GivesATokenExactlyWhereALogonWorks) {
  platform::TokenHandle token = 0;
  const auto error =
      this->host_.processes().logonUser("no such user", "no-such-domain", "secret",
                                        platform::kLogonInteractive, platform::kLogonProviderDefault, token);
  EXPECT_EQ(token != 0, error == 0) << "error " << error << ", token " << token;
}

TYPED_TEST_P(ProcessesContract, GivesNoHandlesOfAStartThatFails) {
  auto& processes = this->host_.processes();
  platform::ProcessInformation started;
  EXPECT_NE(processes.createProcessWithLogon("no such user", "no-such-domain", "secret",
                                             platform::kLogonWithProfile, "no-such-program.exe",
                                             platform::kCreateDefaultErrorMode, "C:\\", started),
            0u);
  EXPECT_NE(processes.createProcessAsUser(0, "no-such-program.exe", platform::kCreateDefaultErrorMode, "C:\\",
                                          started),
            0u);
  EXPECT_EQ(started.process, 0u);
  EXPECT_EQ(started.thread, 0u);
}

REGISTER_TYPED_TEST_SUITE_P(ProcessesContract, StartsABatchFileOfOneNetUseLine, SaysThatAFileIsMissing,
                            GivesATokenExactlyWhereALogonWorks, GivesNoHandlesOfAStartThatFails);

}  // namespace varnhold::contract
