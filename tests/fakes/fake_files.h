#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// A disk in memory; names compare without case. Folders are not kept until a test makes one: from then on
/// only those that were made are there. Journal lines: `exists <path> -> yes`, `read <path> -> 12 bytes` (or
/// `-> nothing`), `isThere <path> -> yes`, `append <path>: <bytes> -> Done`, `createNew <path>: <bytes> ->
/// Done` (with `(owner only)` behind the path), `createProbe <path> -> yes`, `remove <path> -> Done`.
class FakeFiles : public platform::Files {
 public:
  explicit FakeFiles(Journal& journal) : journal_(journal) {}

  /// Set-up by the test; writes no line.
  void put(std::string_view path, std::string_view content);
  void makeFolder(std::string_view path);
  /// From now on every write to the path ends so.
  void refuse(std::string_view path, platform::FileOutcome outcome);
  /// After `writes` that still work, the next `times` writes to the path end so.
  void refuseSome(std::string_view path, int writes, int times, platform::FileOutcome outcome);
  /// The file is there but cannot be read.
  void makeUnreadable(std::string_view path);
  /// The content; nothing when there is no such file.
  [[nodiscard]] std::optional<std::string> content(std::string_view path) const;

  bool exists(const std::string& path) override;
  bool isThere(const std::string& path) override;
  std::optional<std::string> read(const std::string& path) override;
  platform::FileOutcome append(const std::string& path, std::string_view bytes) override;
  platform::FileOutcome createNew(const std::string& path, std::string_view bytes,
                                  platform::FileAccess access) override;
  bool createProbe(const std::string& path) override;
  platform::FileOutcome remove(const std::string& path) override;

 private:
  struct Refusal {
    int writesLeft = 0, timesLeft = 0;
    platform::FileOutcome outcome = platform::FileOutcome::Refused;
  };
  /// Done, or how a write to the path has to fail.
  platform::FileOutcome permit(const std::string& path);

  Journal& journal_;
  std::map<std::string, std::string> files_;  ///< by path in upper case
  std::map<std::string, Refusal> refusals_;
  std::set<std::string> unreadable_;
  std::set<std::string> folders_;
};

}  // namespace varnhold::fakes
