#include "tools/provision/home.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

#include "base/runtime_error.h"
#include "base/text.h"
#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

enum class MadeBy { Provisioning, Product };

struct KnownName {
  std::string_view name;
  MadeBy madeBy;
};

/// The names under which a home keeps data, and who writes them first.
constexpr std::array<KnownName, 18> kKnownNames{{
    {kRegistryFile, MadeBy::Provisioning},
    {"registry.reg.lock", MadeBy::Provisioning},
    {"registry.reg.tmp", MadeBy::Provisioning},
    {kDatabaseFile, MadeBy::Provisioning},
    {"qrvdbv3.mdb-journal", MadeBy::Provisioning},
    {"qrvdbv3.mdb-wal", MadeBy::Provisioning},
    {"qrvdbv3.mdb-shm", MadeBy::Provisioning},
    {kInstallerFolder, MadeBy::Provisioning},
    {kAgentFolder, MadeBy::Provisioning},
    {kLabFolder, MadeBy::Provisioning},
    {kSystemListFile, MadeBy::Provisioning},
    {"systems.txt.new", MadeBy::Provisioning},
    {kAccountFile, MadeBy::Provisioning},
    {"ntlm-users.new", MadeBy::Provisioning},
    {"AILog.txt", MadeBy::Product},
    {"System Report.txt", MadeBy::Product},
    {"qrvCompactedDB.mdb", MadeBy::Product},
    {"qrvOldDB.mdb", MadeBy::Product},
}};

const KnownName* known(const std::filesystem::path& entry) {
  const auto name = utf8FromPath(entry.filename());
  const auto found = std::find_if(kKnownNames.begin(), kKnownNames.end(),
                                  [&](const KnownName& k) { return equalsIgnoringCase(k.name, name); });
  return found == kKnownNames.end() ? nullptr : &*found;
}

bool isEmptyFile(const std::filesystem::path& entry) {
  std::error_code reason;
  return std::filesystem::is_regular_file(entry, reason) && std::filesystem::file_size(entry, reason) == 0 &&
         !reason;
}

[[noreturn]] void refusePath(const std::string& asked, const std::string& why) {
  throw RuntimeError(kPathFileAccess, "'" + asked + "' cannot be a home: " + why + " Name another folder.");
}

void refuseLetters(const std::string& asked, const std::string& path) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20; };
  if (std::any_of(path.begin(), path.end(), isControl))
    refusePath(asked, "its path holds control characters.");
  if (std::filesystem::path::preferred_separator == '/' && path.find('\\') != std::string::npos)
    refusePath(asked, "its path holds a backslash, which the product takes for a separator.");
}

}  // namespace

std::filesystem::path resolveHome(const std::string& asked) {
  std::error_code reason;
  auto path = std::filesystem::absolute(pathFromUtf8(asked), reason);
  if (reason) raiseFileError("Cannot find out the full path of", pathFromUtf8(asked), reason);
  path = path.lexically_normal();
  if (!path.has_filename() && path.has_relative_path()) path = path.parent_path();
  path.make_preferred();
  const auto text = utf8FromPath(path);
  if (text.size() > kLongestHome)
    refusePath(asked, "its path has more than " + std::to_string(kLongestHome) + " bytes.");
  refuseLetters(asked, text);
  return path;
}

void refuseWhatIsNoFolder(const std::filesystem::path& home) {
  std::error_code reason;
  const auto status = std::filesystem::status(home, reason);
  if (std::filesystem::exists(status) && !std::filesystem::is_directory(status))
    throw RuntimeError(kPathFileAccess,
                       "'" + utf8FromPath(home) + "' is not a folder. Name another one with --home.");
}

void refuseData(const std::filesystem::path& home, bool unfinished) {
  std::error_code reason;
  if (!std::filesystem::is_directory(home, reason)) return;
  auto entries = std::filesystem::directory_iterator(home, reason);
  for (; !reason && entries != std::filesystem::directory_iterator(); entries.increment(reason)) {
    const auto* name = known(entries->path());
    if (name == nullptr || isEmptyFile(entries->path())) continue;
    if (unfinished && name->madeBy == MadeBy::Provisioning) continue;
    throw RuntimeError(kPathFileAccess,
                       "The home '" + utf8FromPath(home) + "' holds data already: found '" +
                           utf8FromPath(entries->path().filename()) +
                           "'. Nothing was changed. Name an empty folder with --home, or move the "
                           "old home away first.");
  }
  if (reason) raiseFileError("Cannot read the folder", home, reason);
}

bool removeUnfinished(const std::filesystem::path& home) noexcept {
  bool allGone = true;
  for (const auto& name : kKnownNames) {
    std::error_code reason;
    if (name.madeBy == MadeBy::Provisioning) std::filesystem::remove_all(home / name.name, reason);
    allGone = allGone && !reason;
  }
  return allGone;
}

}  // namespace varnhold::provision
