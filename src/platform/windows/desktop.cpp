#include "platform/desktop.h"

#include <windows.h>

#include <map>

#include "platform/windows/adapters.h"
#include "platform/windows/owned_handle.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

HWND native(WindowHandle window) {
  return reinterpret_cast<HWND>(window);  // NOLINT(performance-no-int-to-ptr)
}

class WindowsDesktop : public Desktop {
 public:
  /// A mutex of the session stands for the instance: the system takes it away with the last process that has
  /// it open.
  bool isPreviousInstanceRunning(const std::string& title) override {
    if (claims_.contains(title)) return false;
    OwnedHandle claim(CreateMutexW(nullptr, FALSE, toWide("Local\\Instance of " + title).c_str()));
    const DWORD error = GetLastError();
    // An instance that runs with more rights has one that this process may not open.
    if (!claim) return error == ERROR_ACCESS_DENIED;
    if (error == ERROR_ALREADY_EXISTS) return true;
    claims_.emplace(title, std::move(claim));
    return false;
  }

  WindowHandle findWindow(const std::string& title) override {
    return reinterpret_cast<WindowHandle>(FindWindowW(nullptr, toWide(title).c_str()));
  }
  bool setForegroundWindow(WindowHandle window) override {
    return SetForegroundWindow(native(window)) != FALSE;
  }
  bool showWindow(WindowHandle window, ShowState state) override {
    return ShowWindow(native(window), static_cast<int>(state)) != FALSE;
  }

  // Every window is found by its title without that.
  bool announceWindow(const std::string& /*title*/, ShowRequest /*onRequest*/) override { return true; }
  void withdrawWindow(const std::string& /*title*/) override {}
  void answerRequests() override {}

 private:
  std::map<std::string, OwnedHandle> claims_;
};

}  // namespace

std::unique_ptr<Desktop> makeDesktop() {
  return std::make_unique<WindowsDesktop>();
}

}  // namespace varnhold::platform::windows
