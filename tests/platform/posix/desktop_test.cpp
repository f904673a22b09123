#include "platform/desktop.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "platform/posix/adapters.h"
#include "platform/posix/window_socket.h"
#include "tests/platform/posix/child_process.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform::posix {
namespace {

using std::chrono::milliseconds;

constexpr auto kTitle = "Varnhold - System Manager ";

class PosixDesktop : public ::testing::Test {
 protected:
  [[nodiscard]] std::string socketFile() const { return home_ / "window-" + fileNameOf(kTitle) + ".socket"; }

  /// A process that does `body` and then waits to be killed; returns when `body` is done.
  pid_t startVictim(const std::function<void(Desktop&)>& body) {
    const auto ready = home_ / "ready";
    const pid_t child = startChild([&] {
      const auto own = makeDesktop(home_.path());
      body(*own);
      writeFile(ready, "");
      ::pause();
      return 0;
    });
    while (!std::filesystem::exists(ready)) std::this_thread::sleep_for(milliseconds(2));
    return child;
  }
  /// The event loop of a window's owner.
  static std::jthread answerEverything(Desktop& owner) {
    return std::jthread([&owner](const std::stop_token& stop) {
      for (; !stop.stop_requested(); std::this_thread::sleep_for(milliseconds(2))) owner.answerRequests();
    });
  }
  static void kill(pid_t child) {
    ::kill(child, SIGKILL);
    static_cast<void>(waitForChild(child));
  }

  TemporaryFolder home_;
  std::unique_ptr<Desktop> desktop_ = makeDesktop(home_.path(), milliseconds(50));
};

TEST_F(PosixDesktop, TellsTheOwnerWhatIsAskedOfItsWindow) {
  const auto owner = makeDesktop(home_.path());
  std::vector<std::optional<ShowState>> asked;
  owner->announceWindow(kTitle, [&](std::optional<ShowState> state) {
    asked.push_back(state);
    return true;
  });
  {
    const auto loop = answerEverything(*owner);
    const auto patient = makeDesktop(home_.path());
    const auto window = patient->findWindow(kTitle);
    EXPECT_TRUE(patient->setForegroundWindow(window));
    EXPECT_TRUE(patient->showWindow(window, ShowState::Maximised));
  }
  EXPECT_EQ(asked, (std::vector<std::optional<ShowState>>{std::nullopt, ShowState::Maximised}));
}

TEST_F(PosixDesktop, GivesUpOnAnOwnerThatDoesNotAnswer) {
  const auto owner = makeDesktop(home_.path());
  owner->announceWindow(kTitle, [](auto) { return true; });
  const auto window = desktop_->findWindow(kTitle);
  ASSERT_NE(window, 0u);
  EXPECT_FALSE(desktop_->setForegroundWindow(window));
  EXPECT_FALSE(desktop_->showWindow(window, ShowState::Maximised));
}

TEST_F(PosixDesktop, FindsNoWindowOfAKilledProgramAndPutsANewOneInItsPlace) {
  const pid_t victim =
      startVictim([](Desktop& own) { own.announceWindow(kTitle, [](auto) { return true; }); });
  EXPECT_NE(desktop_->findWindow(kTitle), 0u);
  kill(victim);
  EXPECT_TRUE(std::filesystem::exists(socketFile()));
  EXPECT_EQ(desktop_->findWindow(kTitle), 0u);
  EXPECT_TRUE(desktop_->announceWindow(kTitle, [](auto) { return true; }));
  EXPECT_NE(makeDesktop(home_.path())->findWindow(kTitle), 0u);
}

TEST_F(PosixDesktop, IsTheInstanceOnceAKilledOneIsGone) {
  const pid_t victim =
      startVictim([](Desktop& own) { static_cast<void>(own.isPreviousInstanceRunning(kTitle)); });
  EXPECT_TRUE(desktop_->isPreviousInstanceRunning(kTitle));
  kill(victim);
  EXPECT_FALSE(desktop_->isPreviousInstanceRunning(kTitle));
}

TEST_F(PosixDesktop, LetsNobodyElseUseItsFiles) {
  ASSERT_TRUE(desktop_->announceWindow(kTitle, [](auto) { return true; }));
  ASSERT_FALSE(desktop_->isPreviousInstanceRunning(kTitle));
  for (const auto& file : std::filesystem::directory_iterator(home_.path())) {
    struct stat there {};
    ASSERT_EQ(::lstat(file.path().c_str(), &there), 0);
    EXPECT_EQ(there.st_mode & 0777, 0600u) << file.path();
  }
}

TEST_F(PosixDesktop, WorksInAHomeThatLiesDeep) {
  const auto home = home_ / std::string(120, 'a') + "/" + std::string(120, 'b');
  std::filesystem::create_directories(home);
  const auto owner = makeDesktop(home);
  ASSERT_TRUE(owner->announceWindow(kTitle, [](auto) { return true; }));
  EXPECT_NE(makeDesktop(home)->findWindow(kTitle), 0u);
}

TEST_F(PosixDesktop, TakesItsFilesAwayWithTheWindowButNotThoseOfAnother) {
  auto first = makeDesktop(home_.path());
  first->announceWindow(kTitle, [](auto) { return true; });
  auto second = makeDesktop(home_.path());
  second->announceWindow(kTitle, [](auto) { return true; });
  first.reset();
  EXPECT_NE(desktop_->findWindow(kTitle), 0u);
  second->withdrawWindow(kTitle);
  EXPECT_FALSE(std::filesystem::exists(socketFile()));
}

TEST_F(PosixDesktop, AnswersNoByteThatIsNoRequest) {
  const auto owner = makeDesktop(home_.path());
  std::atomic<int> calls = 0;
  owner->announceWindow(kTitle, [&](auto) { return ++calls > 0; });
  const auto loop = answerEverything(*owner);
  const WindowSocketClient client(home_.path(), milliseconds(2'000));
  for (const char byte : {'2', 'x', '\0', '\xFF'}) EXPECT_EQ(client.ask(kTitle, byte), std::nullopt);
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(client.ask(kTitle, 'F'), 'V');
}

TEST_F(PosixDesktop, MayWithdrawTheWindowInsideARequest) {
  const auto owner = makeDesktop(home_.path());
  owner->announceWindow(kTitle, [&](auto) {
    owner->withdrawWindow(kTitle);
    owner->answerRequests();
    return true;
  });
  const auto loop = answerEverything(*owner);
  EXPECT_EQ(WindowSocketClient(home_.path(), milliseconds(2'000)).ask(kTitle, 'F'), 'V');
}

TEST_F(PosixDesktop, HasNoWindowsAndNoInstanceWithoutAHome) {
  const auto nowhere = makeDesktop(home_ / "missing");
  EXPECT_FALSE(nowhere->announceWindow(kTitle, [](auto) { return true; }));
  EXPECT_EQ(nowhere->findWindow(kTitle), 0u);
  EXPECT_FALSE(nowhere->isPreviousInstanceRunning(kTitle));
}

}  // namespace
}  // namespace varnhold::platform::posix
