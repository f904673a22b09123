#include "deployment/admin_shares.h"

#include <array>
#include <cstdint>

#include "deployment/file_error.h"

namespace varnhold::deployment {
namespace {

using platform::FileAccess;
using platform::FileOutcome;

/// A share of the target, and how long its command is given to run.
struct Share {
  std::string_view name;
  std::uint32_t sleepMs;
};
constexpr std::array<Share, 2> kConnected{{{"c$", 3000}, {"d$", 5000}}};
constexpr std::array<Share, 2> kDisconnected{{{"c$", 2000}, {"d$", 2000}}};

/// A batch file of one line, gone when the object is.
class BatchFile {
 public:
  BatchFile(platform::Files& files, std::string path, const std::string& line)
      : files_(files), path_(std::move(path)) {
    auto outcome = files_.createNew(path_, line + "\r\n", FileAccess::OwnerOnly);
    if (outcome == FileOutcome::Exists) {
      // Left by a run that was killed. It is not overwritten, since others may be able to read it.
      files_.remove(path_);
      outcome = files_.createNew(path_, line + "\r\n", FileAccess::OwnerOnly);
    }
    if (outcome != FileOutcome::Done) throw fileError(outcome, "create", path_);
  }
  ~BatchFile() { files_.remove(path_); }
  BatchFile(const BatchFile&) = delete;
  BatchFile& operator=(const BatchFile&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  platform::Files& files_;
  std::string path_;
};

void runHidden(core::Program& program, RunScreen& screen, const std::string& line, std::uint32_t sleepMs) {
  {
    const BatchFile batch(program.host.files, program.gAppPath + "\\RmTempLog.bat", line);
    program.host.processes.shellExecute("open", batch.path(), platform::ShowState::Hidden);
    program.host.clock.sleep(sleepMs);
  }
  screen.pumpEvents();
}

void runForShares(core::Program& program, RunScreen& screen, const std::string& systemName,
                  const std::array<Share, 2>& shares, const std::string& ending) {
  if (program.gLoginDomain.empty() || program.gLoginUser.empty()) return;
  for (const auto& share : shares) {
    runHidden(program, screen, "net use \\\\" + systemName + "\\" + std::string(share.name) + " " + ending,
              share.sleepMs);
  }
}

}  // namespace

void ConnectAdminShares(core::Program& program, RunScreen& screen, const std::string& systemName) {
  runForShares(program, screen, systemName, kConnected,
               program.gLoginPassword + " /USER:" + program.gLoginDomain + "\\" + program.gLoginUser);
}

void DisconnectAdminShares(core::Program& program, RunScreen& screen, const std::string& systemName) {
  runForShares(program, screen, systemName, kDisconnected, " /DELETE");
}

}  // namespace varnhold::deployment
