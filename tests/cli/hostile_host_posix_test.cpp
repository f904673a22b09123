// What can be wrong with the home itself, which only this host has.
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <thread>

#include "tests/cli/stage.h"

namespace varnhold::cli {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::AnyOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

const std::string kHost = "[host]\naddress = 10.1.1.11\ntype = 7\nos_major = 5\nanswers = yes\n";

std::string contentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

struct Ending {
  int status = -1;
  std::string standardError;
};

pid_t start(const Stage& stage, const std::vector<const char*>& arguments,
            const std::function<void()>& inChild) {
  const auto program = stage.home() / "AgentInstaller";
  const auto errors = stage.home().parent_path() / "host.err";
  const auto library = Stage::companionLibrary().string();
  const auto child = fork();
  if (child != 0) return child;
  setenv("VARNHOLD_HOME", stage.home().c_str(), 1);
  setenv("VARNHOLD_CALL_LOG", "/dev/null", 1);
  setenv("VARNHOLD_RECORDED_LIBRARY", library.c_str(), 1);
  unsetenv("ODBCINI");
  dup2(open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666), STDERR_FILENO);
  inChild();
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const auto* argument : arguments) argv.push_back(const_cast<char*>(argument));
  argv.push_back(nullptr);
  execv(program.c_str(), argv.data());
  _exit(127);
}

Ending finish(const Stage& stage, pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status),
          contentOf(stage.home().parent_path() / "host.err")};
}

Ending run(
    const Stage& stage, const std::vector<const char*>& arguments,
    const std::function<void()>& inChild = [] {}) {
  return finish(stage, start(stage, arguments, inChild));
}

/// Root may write everywhere: a test of refusal runs as somebody else then.
void becomeNobody() {
  if (getuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(126);
}

TEST(HostileHome, AMissingHomeIsTheWorkingDirectoryThatCannotBeSet) {
  const Stage stage;
  const auto ending = run(stage, {"-I", "-N:HOST1"}, [] { setenv("VARNHOLD_HOME", "/nowhere/at/all", 1); });
  EXPECT_EQ(ending.status, 1);
  EXPECT_THAT(ending.standardError, HasSubstr("Could not set the working directory. Aborting..."));
}

TEST(HostileHome, AHomeThatMayOnlyBeReadIsSaidAndLeftAsItWas) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  const auto database = contentOf(stage.home() / "qrvdbv3.mdb");
  for (const auto* folder : {".", "lab", "lab/HOST1"})
    fs::permissions(stage.home() / folder, fs::perms(0555));
  fs::permissions(stage.home() / "qrvdbv3.mdb", fs::perms(0444));
  const auto ending = run(stage, {"-I", "-N:HOST1"}, becomeNobody);
  for (const auto* folder : {".", "lab", "lab/HOST1"})
    fs::permissions(stage.home() / folder, fs::perms(0755));
  fs::permissions(stage.home() / "qrvdbv3.mdb", fs::perms(0644));
  EXPECT_EQ(ending.status, 1);
  EXPECT_THAT(ending.standardError, AnyOf(HasSubstr("AILog.txt"), HasSubstr("qrvdb")));
  EXPECT_EQ(contentOf(stage.home() / "qrvdbv3.mdb"), database);
}

TEST(HostileHome, AFullDiskIsSaidAndTheLogKeepsWholeLines) {
  Stage stage;
  stage.addComputer("HOST1", kHost);
  ASSERT_EQ(run(stage, {"-I"}).status, 0);
  const auto before = contentOf(stage.home() / "AILog.txt");
  const auto ending = run(stage, {"-N:HOST1"}, [&] {
    const rlimit limit{before.size() + 10, before.size() + 10};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
  });
  EXPECT_EQ(ending.status, 1);
  EXPECT_NE(ending.standardError, "");
  EXPECT_EQ(contentOf(stage.home() / "AILog.txt"), before);
}

TEST(HostileRegistry, AFileThatIsNoRegistryFileIsSaidAndLeftAlone) {
  Stage stage;
  stage.writeFile("registry.reg", "this is no registry file\n");
  const auto ending = run(stage, {"-I", "-N:HOST1"});
  EXPECT_EQ(ending.status, 1);
  EXPECT_THAT(ending.standardError, HasSubstr("registry.reg"));
  EXPECT_EQ(contentOf(stage.home() / "registry.reg"), "this is no registry file\n");
}

TEST(HostileRegistry, ACutOffFileIsSaidAndLeftAlone) {
  Stage stage;
  const auto whole = contentOf(stage.home() / "registry.reg");
  const auto at = whole.find("INSTALLPATH");
  ASSERT_NE(at, std::string::npos);
  stage.writeFile("registry.reg", whole.substr(0, at + 15));
  const auto ending = run(stage, {"-I", "-N:HOST1"});
  EXPECT_EQ(ending.status, 1);
  EXPECT_THAT(ending.standardError, HasSubstr("registry.reg"));
}

TEST(HostileRegistry, AnUnreadableFileIsSaid) {
  Stage stage;
  fs::permissions(stage.home(), fs::perms(0777));
  fs::permissions(stage.home() / "registry.reg", fs::perms(0000));
  const auto ending = run(stage, {"-I", "-N:HOST1"}, becomeNobody);
  fs::permissions(stage.home() / "registry.reg", fs::perms(0644));
  EXPECT_EQ(ending.status, 1);
  EXPECT_THAT(ending.standardError, HasSubstr("registry.reg"));
}

TEST(HostileInventory, ADatabaseThatIsNoDatabaseIsSaid) {
  Stage stage;
  stage.writeFile("qrvdbv3.mdb", std::string(8192, 'x'));
  stage.addComputer("HOST1", kHost);
  const auto ending = run(stage, {"-I", "-N:HOST1"});
  const auto log = contentOf(stage.home() / "AILog.txt");
  EXPECT_TRUE(ending.status == 1
                  ? ending.standardError.find("qrvdb") != std::string::npos
                  : log.find("Error occurred while installing agent on HOST1. ERROR : ") != std::string::npos)
      << ending.standardError << log;
  EXPECT_EQ(contentOf(stage.home() / "qrvdbv3.mdb"), std::string(8192, 'x'));
}

TEST(HostileLibrary, AJobThatNeverEndsIsWaitedForAndCanBeKilledWithoutHarm) {
  Stage stage;
  stage.addComputer("HOST1", kHost + "[delay_ms]\ninstall = never\n");
  const auto child = start(stage, {"-I", "-N:HOST1"}, [] {});
  std::this_thread::sleep_for(std::chrono::seconds(3));
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, WNOHANG), 0) << "the run ended by itself";
  kill(child, SIGKILL);
  waitpid(child, &status, 0);
  EXPECT_THAT(Stage::computers(), SizeIs(1));
  EXPECT_THAT(Stage::agents(), IsEmpty());
}

TEST(SecondRun, BesideAnotherIsAllowed) {
  Stage stage;
  stage.addComputer("HOST1", kHost + "[delay_ms]\ninstall = 1500\n");
  stage.addComputer("HOST2", "[host]\naddress = 10.1.1.12\ntype = 4\nanswers = yes\n");
  const auto first = start(stage, {"-I", "-N:HOST1"}, [] {});
  EXPECT_EQ(run(stage, {"-I", "-N:HOST2"}).status, 0);
  EXPECT_EQ(finish(stage, first).status, 0);
  EXPECT_THAT(Stage::agents(), SizeIs(2));
}

}  // namespace
}  // namespace varnhold::cli
