#include "platform/posix/window_socket.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace varnhold::platform::posix {
namespace {

constexpr int kBacklog = 16;
constexpr int kChances = 10;  ///< how often a connection may be found without a request

OwnedDescriptor openFolder(const std::string& folder) {
  return OwnedDescriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// The address of an entry of an open folder. A socket's address has room for a hundred letters and a home
/// may lie deeper, so the folder stands in it by its descriptor.
sockaddr_un addressOf(const OwnedDescriptor& folder, const std::string& name) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s", folder.get(), name.c_str());
  return address;
}

const sockaddr* native(const sockaddr_un& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

std::string socketName(const std::string& title) {
  return "window-" + fileNameOf(title) + ".socket";
}

void limitWaiting(const OwnedDescriptor& socket, std::chrono::milliseconds patience) {
  const timeval limit{patience.count() / 1000, patience.count() % 1000 * 1000};
  ::setsockopt(socket.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
  ::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
}

}  // namespace

std::string fileNameOf(const std::string& title) {
  // FNV-1a
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char c : title) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  char name[17] = {};
  std::snprintf(name, sizeof name, "%016llx", static_cast<unsigned long long>(hash));
  return name;
}

OwnedDescriptor WindowSocketClient::connect(const std::string& title) const {
  const auto folder = openFolder(home_);
  OwnedDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!folder || !socket) return OwnedDescriptor();
  limitWaiting(socket, patience_);
  const auto address = addressOf(folder, socketName(title));
  if (::connect(socket.get(), native(address), sizeof address) != 0) return OwnedDescriptor();
  return socket;
}

bool WindowSocketClient::listens(const std::string& title) const {
  return static_cast<bool>(connect(title));
}

std::optional<char> WindowSocketClient::ask(const std::string& title, char request) const {
  const auto socket = connect(title);
  if (!socket || ::send(socket.get(), &request, 1, MSG_NOSIGNAL) != 1) return std::nullopt;
  char answer = 0;
  ssize_t got = 0;
  do {
    got = ::recv(socket.get(), &answer, 1, 0);
  } while (got < 0 && errno == EINTR);
  return got == 1 ? std::optional(answer) : std::nullopt;
}

void WindowRequest::answer(char byte) const {
  // Who has not waited for it is told nothing.
  static_cast<void>(::send(connection.get(), &byte, 1, MSG_NOSIGNAL | MSG_DONTWAIT));
}

WindowSocketServer::WindowSocketServer(const std::string& home, const std::string& title)
    : home_(openFolder(home)), name_(socketName(title)) {
  if (!open()) listener_.reset();
}

bool WindowSocketServer::open() {
  listener_ = OwnedDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!home_ || !listener_) return false;
  // Made under another name and put in place when it is ready: nobody ever finds one that others may use, or
  // that does not listen yet.
  const auto fresh = name_ + "." + std::to_string(::getpid());
  ::unlinkat(home_.get(), fresh.c_str(), 0);
  const auto address = addressOf(home_, fresh);
  const bool ready = ::bind(listener_.get(), native(address), sizeof address) == 0 &&
                     ::fchmodat(home_.get(), fresh.c_str(), S_IRUSR | S_IWUSR, 0) == 0 &&
                     ::listen(listener_.get(), kBacklog) == 0 &&
                     ::fstatat(home_.get(), fresh.c_str(), &own_, AT_SYMLINK_NOFOLLOW) == 0 &&
                     ::renameat(home_.get(), fresh.c_str(), home_.get(), name_.c_str()) == 0;
  if (!ready) ::unlinkat(home_.get(), fresh.c_str(), 0);
  return ready;
}

WindowSocketServer::~WindowSocketServer() {
  if (!listener_) return;
  struct stat there {};
  const bool isOurs = ::fstatat(home_.get(), name_.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0 &&
                      there.st_ino == own_.st_ino && there.st_dev == own_.st_dev;
  if (isOurs) ::unlinkat(home_.get(), name_.c_str(), 0);
}

void WindowSocketServer::acceptAll() {
  for (;;) {
    OwnedDescriptor connection(::accept4(listener_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!connection) return;
    silent_.push_back({std::move(connection), kChances});
  }
}

std::vector<WindowRequest> WindowSocketServer::takeRequests() {
  if (!listener_) return {};
  acceptAll();
  std::vector<WindowRequest> taken;
  std::erase_if(silent_, [&](Silent& silent) {
    WindowRequest request;
    const ssize_t got = ::recv(silent.connection.get(), &request.request, 1, 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return --silent.chances == 0;
    if (got != 1) return true;
    request.connection = std::move(silent.connection);
    taken.push_back(std::move(request));
    return true;
  });
  return taken;
}

}  // namespace varnhold::platform::posix
