#pragma once

#include <sys/stat.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/owned_descriptor.h"

/// How one process asks another for its window: a local socket in the home for each window's title, which
/// only the owner may use. One connection carries one request, a byte, and its answer, a byte. A socket whose
/// process has ended takes no connection, so that a killed program leaves no window behind.
namespace varnhold::platform::posix {

/// A name that is the same for the same title, whatever letters it has.
[[nodiscard]] std::string fileNameOf(const std::string& title);

/// The side that asks.
class WindowSocketClient {
 public:
  /// `home` need not exist.
  WindowSocketClient(const std::string& home, std::chrono::milliseconds patience)
      : home_(home), patience_(patience) {}

  /// True when a process listens for the window.
  [[nodiscard]] bool listens(const std::string& title) const;
  /// Sends the request and waits for its answer; nothing when none came in time.
  [[nodiscard]] std::optional<char> ask(const std::string& title, char request) const;

 private:
  [[nodiscard]] OwnedDescriptor connect(const std::string& title) const;

  std::string home_;
  std::chrono::milliseconds patience_;
};

/// A request that waits for its answer.
struct WindowRequest {
  OwnedDescriptor connection;
  char request = 0;

  void answer(char byte) const;
};

/// The side that is asked: one window. Its destructor takes the socket away.
class WindowSocketServer {
 public:
  /// Takes the place of a socket of the same title.
  WindowSocketServer(const std::string& home, const std::string& title);
  ~WindowSocketServer();
  WindowSocketServer(const WindowSocketServer&) = delete;
  WindowSocketServer& operator=(const WindowSocketServer&) = delete;

  [[nodiscard]] bool isOpen() const { return static_cast<bool>(listener_); }
  /// The requests that have come; never waits.
  [[nodiscard]] std::vector<WindowRequest> takeRequests();

 private:
  /// A connection whose request has not come yet.
  struct Silent {
    OwnedDescriptor connection;
    int chances = 0;
  };

  bool open();
  void acceptAll();

  OwnedDescriptor home_;
  std::string name_;
  OwnedDescriptor listener_;
  struct stat own_ {};
  std::vector<Silent> silent_;
};

}  // namespace varnhold::platform::posix
