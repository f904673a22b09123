#include "platform/desktop.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <map>

#include "platform/posix/adapters.h"
#include "platform/posix/window_socket.h"

namespace varnhold::platform::posix {
namespace {

constexpr char kToForeground = 'F';
constexpr char kWasVisible = 'V', kWasHidden = 'H';
constexpr ShowState kStates[] = {ShowState::Hidden, ShowState::Normal, ShowState::Maximised};

char requestOf(ShowState state) {
  return static_cast<char>('0' + static_cast<int>(state));
}

/// What a request asks for: a state, or none for coming to the front. False for a byte that is no request.
bool readRequest(char request, std::optional<ShowState>& state) {
  const auto* const asked = std::find_if(std::begin(kStates), std::end(kStates),
                                         [&](ShowState known) { return requestOf(known) == request; });
  if (asked != std::end(kStates)) state = *asked;
  return state || request == kToForeground;
}

/// One user's programs meet in the home: a lock file for each title says that its instance runs, a socket
/// (`WindowSocketServer`) is its window.
class HomeDesktop : public Desktop {
 public:
  HomeDesktop(std::string home, std::chrono::milliseconds patience)
      : home_(std::move(home)), client_(home_, patience) {}

  bool isPreviousInstanceRunning(const std::string& title) override {
    if (claims_.contains(title)) return false;
    const auto file = home_ + "/instance-" + fileNameOf(title) + "-" + std::to_string(::geteuid()) + ".lock";
    OwnedDescriptor lock(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!lock) return false;
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) return true;
    claims_.emplace(title, std::move(lock));
    return false;
  }

  WindowHandle findWindow(const std::string& title) override {
    if (!client_.listens(title)) return 0;
    const auto known = std::find(found_.begin(), found_.end(), title);
    if (known != found_.end()) return static_cast<WindowHandle>(known - found_.begin()) + 1;
    found_.push_back(title);
    return found_.size();
  }

  bool setForegroundWindow(WindowHandle window) override { return ask(window, kToForeground).has_value(); }

  bool showWindow(WindowHandle window, ShowState state) override {
    return ask(window, requestOf(state)) == kWasVisible;
  }

  bool announceWindow(const std::string& title, ShowRequest onRequest) override {
    auto server = std::make_unique<WindowSocketServer>(home_, title);
    const bool open = server->isOpen();
    if (open) announced_[title] = {std::move(server), std::move(onRequest)};
    return open;
  }

  void withdrawWindow(const std::string& title) override { announced_.erase(title); }

  /// A request may run events, and so come back to here or withdraw a window: nothing is held while it runs.
  void answerRequests() override {
    std::vector<std::pair<WindowRequest, ShowRequest>> waiting;
    for (auto& [title, window] : announced_) {
      for (auto& request : window.server->takeRequests())
        waiting.emplace_back(std::move(request), window.onRequest);
    }
    for (const auto& [request, onRequest] : waiting) {
      std::optional<ShowState> state;
      if (readRequest(request.request, state)) request.answer(onRequest(state) ? kWasVisible : kWasHidden);
    }
  }

 private:
  struct Announced {
    std::unique_ptr<WindowSocketServer> server;
    ShowRequest onRequest;
  };

  [[nodiscard]] std::optional<char> ask(WindowHandle window, char request) const {
    if (window == 0 || window > found_.size()) return std::nullopt;
    return client_.ask(found_[window - 1], request);
  }

  std::string home_;
  WindowSocketClient client_;
  std::map<std::string, OwnedDescriptor> claims_;  ///< locks that end with the process
  std::vector<std::string> found_;                 ///< the title behind handle 1, 2, ...
  std::map<std::string, Announced> announced_;
};

}  // namespace

std::unique_ptr<Desktop> makeDesktop(std::string home, std::chrono::milliseconds patience) {
  return std::make_unique<HomeDesktop>(std::move(home), patience);
}

}  // namespace varnhold::platform::posix
