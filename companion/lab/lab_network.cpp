#include "companion/lab/lab_network.h"

#include <algorithm>

#include "base/text.h"
#include "companion/host.h"
#include "companion/host_view.h"
#include "companion/lab/lab_computer.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

constexpr std::size_t kLargestFile = 1U << 20;

}  // namespace

std::string plainComputerName(std::string_view name) {
  std::string plain = trimBlanks(name);
  plain.erase(0, std::min(plain.find_first_not_of('\\'), plain.size()));
  return trimBlanks(plain);
}

void reportProblems(const std::filesystem::path& computerFolder, const std::vector<std::string>& problems) {
  const auto file = computerFolder / "host.ini.problems";
  std::string text;
  for (const std::string& problem : problems) text += problem + "\n";
  std::error_code error;
  if (text.empty() && !std::filesystem::exists(file, error)) return;
  const auto lock = host::lockFile(computerFolder / "state.lock");
  if (text.empty())
    std::filesystem::remove(file, error);
  else if (readWhole(file, kLargestFile) != text)
    // A report that cannot be written changes nothing of what the lab does.
    static_cast<void>(host::replaceFile(file, text));
}

std::optional<LabNetwork::Host> LabNetwork::readHost(const std::filesystem::path& folder) {
  std::error_code error;
  const auto file = resolveIgnoringCase(folder, {"host.ini"});
  if (!std::filesystem::exists(file, error)) return std::nullopt;
  const auto bytes = readWhole(file, kLargestFile);
  HostSettings settings = readHostSettings(bytes.value_or(""), utf8FromPath(folder.filename()));
  if (!bytes) {
    settings.answers = false;
    settings.problems.emplace_back(
        "host.ini cannot be read, or is larger than 1 MB; the computer does not answer");
  }
  reportProblems(folder, settings.problems);
  return Host{folder, std::move(settings)};
}

std::optional<LabNetwork::Host> LabNetwork::findByAddress(const std::string& address) const {
  std::error_code error;
  std::filesystem::directory_iterator entries(folder_, error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
    auto host = readHost(entries->path());
    if (host && host->settings.facts.address == address) return host;
  }
  return std::nullopt;
}

std::optional<LabNetwork::Host> LabNetwork::findHost(std::string_view nameOrAddress) const {
  const std::string name = plainComputerName(nameOrAddress);
  if (folder_.empty() || !isFileName(name)) return std::nullopt;
  if (auto host = readHost(host::asSpelled(resolveIgnoringCase(folder_, {name})))) return host;
  const bool maybeAddress = name.find_first_not_of("0123456789.") == std::string::npos;
  return maybeAddress ? findByAddress(name) : std::nullopt;
}

std::unique_ptr<RemoteComputer> LabNetwork::find(std::string_view nameOrAddress) const {
  auto host = findHost(nameOrAddress);
  return host ? std::make_unique<LabComputer>(host->folder, std::move(host->settings)) : nullptr;
}

Win32Error LabNetwork::sharePath(const std::string& uncPath, std::filesystem::path& place) const {
  const auto share = readAdminSharePath(uncPath);
  if (!share) return kBadPathName;
  auto host = findHost(share->host);
  if (!host) return kNetworkPathMissing;
  LabComputer computer(host->folder, std::move(host->settings));
  LabFiles& files = computer.files();
  if (const Win32Error error = files.connect()) return error;
  if (const Win32Error error = files.provideDrive(share->path.front())) return error;
  const auto found = files.hostPath(share->path);
  if (!found) return kBadPathName;
  place = *found;
  return kDone;
}

JobScript LabNetwork::script(std::string_view nameOrAddress, std::string_view job) const {
  const auto host = findHost(nameOrAddress);
  if (!host) return {};
  const auto found = host->settings.scripts.find(job);
  return found == host->settings.scripts.end() ? JobScript{} : found->second;
}

std::vector<std::string> LabNetwork::names() const {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator entries(folder_, error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
    std::error_code unreadable;
    if (std::filesystem::exists(resolveIgnoringCase(entries->path(), {"host.ini"}), unreadable))
      names.push_back(utf8FromPath(entries->path().filename()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace varnhold::companion
