#include "deployment/admin_shares.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "base/secret.h"
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

/// The parts in one text, of which no shorter one is left in memory.
std::string joined(std::initializer_list<std::string_view> parts) {
  std::size_t size = 0;
  for (const auto part : parts) size += part.size();
  std::string text;
  text.reserve(size);
  for (const auto part : parts) text += part;
  return text;
}

/// A batch file of one line, gone when the object is.
class BatchFile {
 public:
  BatchFile(platform::Files& files, std::string path, const std::string& line)
      : files_(files), path_(std::move(path)) {
    auto outcome = files_.createNew(path_, line, FileAccess::OwnerOnly);
    if (outcome == FileOutcome::Exists) {
      // Left by a run that was killed. It is not overwritten, since others may be able to read it.
      files_.remove(path_);
      outcome = files_.createNew(path_, line, FileAccess::OwnerOnly);
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

std::string batchFile(const std::string& programFolder) {
  return programFolder + "\\RmTempLog.bat";
}

void runHidden(core::Program& program, RunScreen& screen, const std::string& line, std::uint32_t sleepMs) {
  {
    const BatchFile batch(program.host.files, batchFile(program.gAppPath), line);
    program.host.processes.shellExecute("open", batch.path(), platform::ShowState::Hidden);
    program.host.clock.sleep(sleepMs);
  }
  screen.pumpEvents();
}

void runForShares(core::Program& program, RunScreen& screen, const std::string& systemName,
                  const std::array<Share, 2>& shares, std::string_view ending) {
  if (program.gLoginDomain.empty() || program.gLoginUser.empty()) return;
  for (const auto& share : shares) {
    auto line = joined({"net use \\\\", systemName, "\\", share.name, " ", ending, "\r\n"});
    const WipedAtEnd wiped(line);
    runHidden(program, screen, line, share.sleepMs);
  }
}

}  // namespace

void ConnectAdminShares(core::Program& program, RunScreen& screen, const std::string& systemName) {
  auto ending = joined({program.gLoginPassword, " /USER:", program.gLoginDomain, "\\", program.gLoginUser});
  const WipedAtEnd wiped(ending);
  runForShares(program, screen, systemName, kConnected, ending);
}

void DisconnectAdminShares(core::Program& program, RunScreen& screen, const std::string& systemName) {
  runForShares(program, screen, systemName, kDisconnected, " /DELETE");
}

void removeLeftBatchFile(core::Program& program) {
  // A console's window bears its title and a blank.
  for (const std::string title : {core::kManagerTitle, core::kChangesTitle})
    if (program.host.desktop.findWindow(title + " ") != 0) return;
  program.host.files.remove(batchFile(program.host.environment.programFolder()));
}

}  // namespace varnhold::deployment
