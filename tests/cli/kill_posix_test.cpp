// Killed at any moment, the registry file and the database open cleanly afterwards and no earlier row is
// lost.
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "base/runtime_error.h"
#include "platform/host_adapters.h"
#include "store/recordset.h"
#include "tests/cli/stage.h"

namespace varnhold::cli {
namespace {

using namespace std::chrono_literals;

void startAndKill(const Stage& stage, const char* action, std::chrono::milliseconds after) {
  const auto program = (stage.home() / "AgentInstaller").string();
  const auto library = Stage::companionLibrary().string();
  const auto child = fork();
  if (child == 0) {
    setenv("VARNHOLD_HOME", stage.home().c_str(), 1);
    setenv("VARNHOLD_CALL_LOG", "/dev/null", 1);
    setenv("VARNHOLD_RECORDED_LIBRARY", library.c_str(), 1);
    unsetenv("ODBCINI");
    execl(program.c_str(), program.c_str(), action, "-F:list.txt", nullptr);
    _exit(127);
  }
  std::this_thread::sleep_for(after);
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
}

std::string integrity() {
  store::Connection connection;
  connection.Open("qrvdb", "", "");
  store::Recordset set;
  set.Open("SELECT * FROM pragma_integrity_check", connection, store::CursorType::Static,
           store::LockType::ReadOnly);
  return set.Fields("integrity_check").value().asText();
}

std::string installPath(const Stage& stage) {
  platform::ProcessStart start;
  start.home = stage.home().string();
  const auto host = platform::makeHostAdapters(start);
  platform::RegistryValue value;
  const auto outcome =
      host->registry().query(platform::RegistryHive::LocalMachine,
                             R"(SOFTWARE\Kelmont Works\Varnhold\Manager)", "INSTALLPATH", 1024, value);
  return outcome == platform::RegistryOutcome::Done ? value.bytes.substr(0, value.bytes.find('\0')) : "";
}

bool isInventoryOnly(const std::vector<std::string>& before, const std::vector<std::string>& after) {
  return std::includes(after.begin(), after.end(), before.begin(), before.end());
}

/// How long a run takes here that nobody kills: how fast a program starts differs much between builds.
std::chrono::milliseconds wholeRun(Stage& stage) {
  stage.addComputer("WHOLE", "[host]\naddress = 10.3.1.1\ntype = 7\nos_major = 5\nanswers = yes\n");
  const auto from = std::chrono::steady_clock::now();
  EXPECT_EQ(stage.run({"-I", "-N:WHOLE"}).exitStatus, 0);
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - from);
}

TEST(KilledAtAnyMoment, RegistryAndInventoryOpenCleanlyAndNoEarlierRowIsLost) {
  constexpr int kRuns = 200;
  Stage stage;
  std::mt19937 random(20260131);
  // A list of three takes longer than one computer: the last kill comes in the middle of it.
  std::uniform_int_distribution<std::chrono::milliseconds::rep> moments(0, wholeRun(stage).count() + 100);
  for (int i = 0; i < kRuns; ++i) {
    std::string list;
    for (int j = 0; j < 3; ++j) {
      const auto name = "K" + std::to_string(1000 + i) + static_cast<char>('A' + j);
      stage.addComputer(name, "[host]\naddress = 10.2." + std::to_string(i) + "." + std::to_string(j) +
                                  "\ntype = 7\nos_major = 5\nanswers = yes\n");
      list += name + "\n";
    }
    stage.writeFile("list.txt", list);
    const auto computersBefore = Stage::computers();
    const auto agentsBefore = Stage::agents();

    startAndKill(stage, "-I", std::chrono::milliseconds(moments(random)));

    ASSERT_EQ(integrity(), "ok") << "run " << i;
    ASSERT_EQ(installPath(stage), stage.home().string()) << "run " << i;
    ASSERT_TRUE(isInventoryOnly(computersBefore, Stage::computers())) << "run " << i;
    ASSERT_TRUE(isInventoryOnly(agentsBefore, Stage::agents())) << "run " << i;
  }
  EXPECT_GT(Stage::computers().size(), 50u) << "the runs were killed before they did anything";
  EXPECT_GT(Stage::agents().size(), 20u) << "the runs were killed before they recorded anything";
}

}  // namespace
}  // namespace varnhold::cli
