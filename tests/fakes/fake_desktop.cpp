#include "tests/fakes/fake_desktop.h"

#include <utility>

namespace varnhold::fakes {
namespace {

constexpr platform::WindowHandle kFirstHandle = 5;

std::string answer(bool yes) {
  return yes ? " -> yes" : " -> no";
}

}  // namespace

bool FakeDesktop::isPreviousInstanceRunning(const std::string& title) {
  const bool runs = otherInstances.contains(title);
  journal_.push_back("PreviousInstance " + title + answer(runs));
  return runs;
}

platform::WindowHandle FakeDesktop::findWindow(const std::string& title) {
  platform::WindowHandle found = 0;
  if (windows.contains(title)) {
    handles_.push_back(title);
    found = kFirstHandle + handles_.size() - 1;
  }
  journal_.push_back("FindWindow " + title + " -> " + std::to_string(found));
  return found;
}

FakeDesktop::Window* FakeDesktop::at(platform::WindowHandle window) {
  if (window < kFirstHandle || window - kFirstHandle >= handles_.size()) return nullptr;
  const auto found = windows.find(handles_[window - kFirstHandle]);
  return found == windows.end() ? nullptr : &found->second;
}

bool FakeDesktop::setForegroundWindow(platform::WindowHandle window) {
  const auto* there = at(window);
  const bool done = there != nullptr && there->takesForeground;
  journal_.push_back("SetForegroundWindow " + std::to_string(window) + answer(done));
  return done;
}

bool FakeDesktop::showWindow(platform::WindowHandle window, platform::ShowState state) {
  auto* there = at(window);
  const bool wasVisible =
      there != nullptr && std::exchange(there->visible, state != platform::ShowState::Hidden);
  journal_.push_back("ShowWindow " + std::to_string(window) + " " + std::to_string(static_cast<int>(state)) +
                     answer(wasVisible));
  return wasVisible;
}

bool FakeDesktop::announceWindow(const std::string& title, ShowRequest onRequest) {
  journal_.push_back("AnnounceWindow " + title);
  if (announces) announced_[title] = std::move(onRequest);
  return announces;
}

void FakeDesktop::withdrawWindow(const std::string& title) {
  journal_.push_back("WithdrawWindow " + title);
  announced_.erase(title);
}

void FakeDesktop::answerRequests() {
  for (const auto& [title, state] : std::exchange(requests, {})) {
    if (const auto found = announced_.find(title); found != announced_.end()) found->second(state);
  }
}

}  // namespace varnhold::fakes
