#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/show_state.h"

namespace varnhold::platform {

/// A window of any program: on Windows its HWND. 0 is none.
using WindowHandle = std::uintptr_t;

/// The windows of other programs, and the program's other instances. Main thread.
class Desktop {
 public:
  virtual ~Desktop() = default;

  /// The test for a previous instance: true when another process of this user and session has asked this with
  /// the same title and still runs. Otherwise this process is the instance of that title until it ends,
  /// however it ends; asking again changes nothing. False where the host cannot tell.
  [[nodiscard]] virtual bool isPreviousInstanceRunning(const std::string& title) = 0;

  /// FindWindow with a null class: a window whose title is exactly `title`, or 0. A window whose program has
  /// ended is none.
  [[nodiscard]] virtual WindowHandle findWindow(const std::string& title) = 0;
  /// SetForegroundWindow: false when the window did not come to the front.
  [[nodiscard]] virtual bool setForegroundWindow(WindowHandle window) = 0;
  /// ShowWindow: false when the window was not visible before, or cannot be asked.
  [[nodiscard]] virtual bool showWindow(WindowHandle window, ShowState state) = 0;

  /// What another program asked of a window of ours: to come to the front, and to show in a state where one
  /// is given. The result is whether the window was visible before.
  using ShowRequest = std::function<bool(std::optional<ShowState> state)>;
  /// Makes a window of this process one that `findWindow` of other processes finds; a second one of the same
  /// title takes the first one's place. On a host where programs see each other's windows without that,
  /// nothing happens. False when the host refuses.
  virtual bool announceWindow(const std::string& title, ShowRequest onRequest) = 0;
  /// From now on the window is not found any more.
  virtual void withdrawWindow(const std::string& title) = 0;
  /// Calls `onRequest` for each request that waits, and returns at once. Ask it a few times a second, from
  /// the event loop: who asks for a window waits two seconds for the answer.
  virtual void answerRequests() = 0;
};

}  // namespace varnhold::platform
