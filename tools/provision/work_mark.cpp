#include "tools/provision/work_mark.h"

#include <chrono>
#include <thread>

#include "base/runtime_error.h"
#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

/// A process that was killed holds its files until the host is done with it.
constexpr int kTries = 100;
constexpr std::chrono::milliseconds kBetweenTries{50};

}  // namespace

std::unique_ptr<WorkMark> WorkMark::take(const std::filesystem::path& home) {
  for (int i = 0; i < kTries; ++i) {
    if (auto mark = tryToTake(home / kWorkMarkFile)) return mark;
    std::this_thread::sleep_for(kBetweenTries);
  }
  throw RuntimeError(kPermissionDenied, "Another varnhold-provision is at work in '" + utf8FromPath(home) +
                                            "'. Wait until it has ended.");
}

}  // namespace varnhold::provision
