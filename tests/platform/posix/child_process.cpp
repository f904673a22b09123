#include "tests/platform/posix/child_process.h"

#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

namespace varnhold::platform::posix {

pid_t startChild(const std::function<int()>& body) {
  constexpr unsigned kLongestRunSeconds = 120;
  std::fflush(nullptr);  // or the child may write the parent's lines again
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::alarm(kLongestRunSeconds);
  ::_exit(body());
}

int waitForChild(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int inChild(const std::function<int()>& body) {
  return waitForChild(startChild(body));
}

bool becomeOrdinaryUser() {
  constexpr uid_t kNobody = 65534;
  if (::geteuid() != 0) return true;
  return ::setgroups(0, nullptr) == 0 && ::setresgid(kNobody, kNobody, kNobody) == 0 &&
         ::setresuid(kNobody, kNobody, kNobody) == 0;
}

void limitFileSize(std::size_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

}  // namespace varnhold::platform::posix
