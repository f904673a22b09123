#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <optional>
#include <string>

#include "platform/desktop.h"

/// What every `Desktop` does. A host's test file gives one type per adapter:
///
///   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, DesktopContract, PosixDesktopHost);
namespace varnhold::contract {

template <class Host>
concept DesktopHost = std::default_initializable<Host> && requires(Host host) {
  { host.desktop() } -> std::convertible_to<platform::Desktop&>;
  /// A title that no other test uses.
  { host.title() } -> std::convertible_to<std::string>;
  /// Another program gets a window of the title, or loses it, or becomes the instance of the title.
  host.openWindow(std::string{}, /*visible=*/true);
  host.closeWindow(std::string{});
  host.startInstance(std::string{});
  host.endInstance(std::string{});
};

template <DesktopHost Host>
class DesktopContract : public ::testing::Test {
 protected:
  platform::Desktop& desktop() { return host_.desktop(); }

  Host host_;
};

TYPED_TEST_SUITE_P(DesktopContract);

TYPED_TEST_P(DesktopContract, FindsAWindowByItsExactTitle) {
  const std::string title = this->host_.title() + " ";
  this->host_.openWindow(title, true);
  EXPECT_NE(this->desktop().findWindow(title), 0u);
  EXPECT_EQ(this->desktop().findWindow(this->host_.title()), 0u);
  EXPECT_EQ(this->desktop().findWindow(title + " "), 0u);
}

TYPED_TEST_P(DesktopContract, FindsNoWindowThatIsGone) {
  this->host_.openWindow(this->host_.title(), true);
  this->host_.closeWindow(this->host_.title());
  EXPECT_EQ(this->desktop().findWindow(this->host_.title()), 0u);
}

TYPED_TEST_P(DesktopContract, MaximisesAVisibleWindow) {
  this->host_.openWindow(this->host_.title(), true);
  const auto window = this->desktop().findWindow(this->host_.title());
  EXPECT_TRUE(this->desktop().showWindow(window, platform::ShowState::Maximised));
}

TYPED_TEST_P(DesktopContract, SaysThatAWindowWasNotVisibleBefore) {
  this->host_.openWindow(this->host_.title(), false);
  const auto window = this->desktop().findWindow(this->host_.title());
  ASSERT_NE(window, 0u);
  EXPECT_FALSE(this->desktop().showWindow(window, platform::ShowState::Maximised));
  EXPECT_TRUE(this->desktop().showWindow(window, platform::ShowState::Maximised));
}

TYPED_TEST_P(DesktopContract, BringsNothingToTheFrontWhereThereIsNoWindow) {
  EXPECT_FALSE(this->desktop().setForegroundWindow(0));
  EXPECT_FALSE(this->desktop().showWindow(0, platform::ShowState::Maximised));
}

TYPED_TEST_P(DesktopContract, IsTheInstanceOfATitleThatNobodyElseRuns) {
  EXPECT_FALSE(this->desktop().isPreviousInstanceRunning(this->host_.title()));
  EXPECT_FALSE(this->desktop().isPreviousInstanceRunning(this->host_.title()));
}

TYPED_TEST_P(DesktopContract, SeesAPreviousInstanceUntilItEnds) {
  this->host_.startInstance(this->host_.title());
  EXPECT_TRUE(this->desktop().isPreviousInstanceRunning(this->host_.title()));
  EXPECT_FALSE(this->desktop().isPreviousInstanceRunning(this->host_.title() + " other"));
  this->host_.endInstance(this->host_.title());
  EXPECT_FALSE(this->desktop().isPreviousInstanceRunning(this->host_.title()));
}

TYPED_TEST_P(DesktopContract, AnnouncesAWindowAndAnswersWithoutWaiting) {
  const auto request = [](std::optional<platform::ShowState>) { return true; };
  EXPECT_TRUE(this->desktop().announceWindow(this->host_.title(), request));
  this->desktop().answerRequests();
  this->desktop().withdrawWindow(this->host_.title());
  EXPECT_EQ(this->desktop().findWindow(this->host_.title()), 0u);
}

REGISTER_TYPED_TEST_SUITE_P(DesktopContract, FindsAWindowByItsExactTitle, FindsNoWindowThatIsGone,
                            MaximisesAVisibleWindow, SaysThatAWindowWasNotVisibleBefore,
                            BringsNothingToTheFrontWhereThereIsNoWindow,
                            IsTheInstanceOfATitleThatNobodyElseRuns, SeesAPreviousInstanceUntilItEnds,
                            AnnouncesAWindowAndAnswersWithoutWaiting);

}  // namespace varnhold::contract
