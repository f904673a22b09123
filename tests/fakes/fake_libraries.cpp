#include "tests/fakes/fake_libraries.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "base/text.h"
#include "base/unicode.h"

namespace varnhold::fakes {
namespace {

using platform::DeploymentJob;
using platform::SystemDetails;
using platform::ThreadHandle;

struct TextField {
  const char* name;
  std::string DeploymentJob::*field;
};

constexpr TextField kTextFields[] = {
    {"Spare0", &DeploymentJob::Spare0},
    {"SystemName", &DeploymentJob::SystemName},
    {"Spare2", &DeploymentJob::Spare2},
    {"Spare3", &DeploymentJob::Spare3},
    {"Spare4", &DeploymentJob::Spare4},
    {"InstallDirectory", &DeploymentJob::InstallDirectory},
    {"Spare6", &DeploymentJob::Spare6},
    {"Spare7", &DeploymentJob::Spare7},
    {"KeepSnapshots", &DeploymentJob::KeepSnapshots},
    {"Spare9", &DeploymentJob::Spare9},
    {"ServiceUser", &DeploymentJob::ServiceUser},
    {"ServicePassword", &DeploymentJob::ServicePassword},
    {"ConfigFile", &DeploymentJob::ConfigFile},
};

std::string shownJob(const DeploymentJob& job) {
  std::string text;
  const auto add = [&](const std::string& name, const std::string& value) {
    text += (text.empty() ? "" : ", ") + name + "=" + value;
  };
  for (const auto& [name, field] : kTextFields) {
    if (!(job.*field).empty()) add(name, shown(job.*field));
  }
  if (job.OSFlag != 0) add("OSFlag", std::to_string(job.OSFlag));
  if (job.AgentKind != 0) add("AgentKind", std::to_string(job.AgentKind));
  if (job.AgentMode != 0) add("AgentMode", std::to_string(job.AgentMode));
  if (job.RemedialFlag != 0) add("RemedialFlag", std::to_string(job.RemedialFlag));
  if (job.UseDefaultConfig != 0) add("UseDefaultConfig", std::to_string(job.UseDefaultConfig));
  return "[" + text + "]";
}

std::string answer(bool yes) {
  return yes ? " -> 1" : " -> 0";
}

}  // namespace

const FakeComputer* FakeClosedLibraries::find(std::string_view name) const {
  while (name.starts_with('\\')) name.remove_prefix(1);
  const auto found = computers.find(toUpper(trimBlanks(TrimAtNull(name))));
  return found == computers.end() ? nullptr : &found->second;
}

void FakeClosedLibraries::raiseIfTold(const std::string& function) {
  if (const auto failure = failures.find(function); failure != failures.end()) {
    journal_.push_back(function + " raises " + std::to_string(failure->second.number()));
    throw RuntimeError(failure->second);
  }
}

ThreadHandle FakeClosedLibraries::startJob(const std::string& function, DeploymentJob& job,
                                           const std::string& libraryPath,
                                           std::uint32_t FakeComputer::*exitCode) {
  raiseIfTold(function);
  const auto* computer = find(job.SystemName);
  const auto given = shownJob(job);
  if (onJob) onJob(job);
  const auto handle = computer == nullptr || !computer->startsThreads
                          ? ThreadHandle{0}
                          : threads_.start(computer->*exitCode, computer->polls);
  journal_.push_back(function + " " + given + " " + shown(libraryPath) + " -> " + std::to_string(handle));
  return handle;
}

ThreadHandle FakeClosedLibraries::qrvCInstall(DeploymentJob& job, const std::string& libraryPath) {
  return startJob("qrvCInstall", job, libraryPath, &FakeComputer::installExit);
}

ThreadHandle FakeClosedLibraries::qrvCUninstall(DeploymentJob& job, const std::string& libraryPath) {
  return startJob("qrvCUninstall", job, libraryPath, &FakeComputer::uninstallExit);
}

ThreadHandle FakeClosedLibraries::qrvCUpgradeAgent(DeploymentJob& job, const std::string& libraryPath) {
  return startJob("qrvCUpgradeAgent", job, libraryPath, &FakeComputer::upgradeExit);
}

ThreadHandle FakeClosedLibraries::qrvCUpgradeAgentOverIP(const std::string& agentLibraryPath,
                                                         DeploymentJob& job) {
  return startJob("qrvCUpgradeAgentOverIP", job, agentLibraryPath, &FakeComputer::upgradeExit);
}

std::int32_t FakeClosedLibraries::qrvCCreateConfigurationFile(const std::string& libraryPath,
                                                              std::string& systemName,
                                                              std::string& installDirectory,
                                                              std::int32_t agentMode) {
  raiseIfTold("qrvCCreateConfigurationFile");
  const auto* computer = find(systemName);
  const auto result = computer == nullptr ? 0 : computer->configurationResult;
  journal_.push_back("qrvCCreateConfigurationFile " + shown(libraryPath) + " " + shown(systemName) + " " +
                     shown(installDirectory) + " " + std::to_string(agentMode) + " -> " +
                     std::to_string(result));
  return result;
}

bool FakeClosedLibraries::qrvCReadNWriteVhaConfigINI4Turbo(const std::string& agentLibraryPath,
                                                           const std::string& agentFolder,
                                                           const std::string& iniPath, std::int32_t mode) {
  raiseIfTold("qrvCReadNWriteVhaConfigINI4Turbo");
  journal_.push_back("qrvCReadNWriteVhaConfigINI4Turbo " + shown(agentLibraryPath) + " " +
                     shown(agentFolder) + " " + shown(iniPath) + " " + std::to_string(mode) +
                     answer(iniEdits));
  return iniEdits;
}

bool FakeClosedLibraries::qrvGetSystemIPAddress(std::string& systemName, std::string& address) {
  raiseIfTold("qrvGetSystemIPAddress");
  const auto* computer = find(systemName);
  const bool resolves = computer != nullptr && computer->address;
  journal_.push_back("qrvGetSystemIPAddress " + shown(systemName) + answer(resolves));
  if (!resolves) return false;
  address = *computer->address;
  address.resize(256, '\0');
  if (!computer->nameWrittenBack.empty()) systemName = computer->nameWrittenBack;
  return true;
}

bool FakeClosedLibraries::qrvFindSystemAndReturnDetails(SystemDetails& details) {
  raiseIfTold("qrvFindSystemAndReturnDetails");
  const auto* computer = find(details.SystemName);
  const bool answers = computer != nullptr && computer->answers;
  journal_.push_back("qrvFindSystemAndReturnDetails " + shown(details.SystemName) + " level " +
                     std::to_string(details.DetailLevel) + answer(answers));
  if (!answers) return false;
  details.ResolvedName = computer->resolvedName;
  details.SystemType = computer->systemType;
  details.OSMajorVersion = computer->osMajorVersion;
  return true;
}

bool FakeClosedLibraries::qrvUpdateSystemDetailsInDB(SystemDetails& details) {
  raiseIfTold("qrvUpdateSystemDetailsInDB");
  const auto* computer = find(details.SystemName);
  const bool stored = computer != nullptr && computer->canBeStored;
  journal_.push_back("qrvUpdateSystemDetailsInDB " + shown(details.SystemName) + answer(stored));
  if (stored && onStore) onStore(details);
  return stored;
}

ThreadHandle FakeClosedLibraries::qrvCVHCheckVersion(const std::string& agentLibraryPath,
                                                     std::string& systemName) {
  raiseIfTold("qrvCVHCheckVersion");
  ThreadHandle handle = 0;
  if (const auto* computer = find(systemName)) {
    const auto& exits = computer->versionExits;
    const auto exit = exits.at(std::min(versionChecks_[systemName]++, exits.size() - 1));
    if (exit != FakeComputer::kNoThread) handle = threads_.start(exit, computer->polls);
  }
  journal_.push_back("qrvCVHCheckVersion " + shown(agentLibraryPath) + " " + shown(systemName) + " -> " +
                     std::to_string(handle));
  return handle;
}

void FakeClosedLibraries::qrvNetOpGetSystem(const std::string& systemName) {
  raiseIfTold("qrvNetOpGetSystem");
  journal_.push_back("qrvNetOpGetSystem " + shown(systemName));
  if (onRefresh) onRefresh(systemName);
}

std::int32_t FakeClosedLibraries::qrvRestartService(const std::string& computer, const std::string& service) {
  raiseIfTold("qrvRestartService");
  const auto* found = find(computer);
  const bool done = found != nullptr && found->restartsServices;
  journal_.push_back("qrvRestartService " + shown(computer) + " " + shown(service) + answer(done));
  return done ? 1 : 0;
}

bool FakeClosedLibraries::qrvChkRmtRegNGetPrgFilePath(const std::string& computer, std::string& path) {
  raiseIfTold("qrvChkRmtRegNGetPrgFilePath");
  const auto* found = find(computer);
  const bool answers = found != nullptr && found->programFiles;
  journal_.push_back("qrvChkRmtRegNGetPrgFilePath " + shown(computer) + answer(answers));
  if (!answers) return false;
  path = *found->programFiles;
  path.resize(1024, '\0');
  return true;
}

void FakeClosedLibraries::qrvInitDbConnection() {
  raiseIfTold("qrvInitDbConnection");
  journal_.push_back("qrvInitDbConnection");
}

void FakeClosedLibraries::qrvCloseDbConnection() {
  raiseIfTold("qrvCloseDbConnection");
  journal_.push_back("qrvCloseDbConnection");
}

void FakeClosedLibraries::qrvNetworkEnum(ThreadHandle& thread) {
  raiseIfTold("qrvNetworkEnum");
  thread = startsEnumeration ? threads_.start(enumerationExit, enumerationPolls) : ThreadHandle{0};
  journal_.push_back("qrvNetworkEnum -> " + std::to_string(thread));
  if (startsEnumeration && onEnumeration) onEnumeration();
}

std::int16_t FakeClosedLibraries::qrvGetNetAccessMode(std::uint8_t& mode) {
  raiseIfTold("qrvGetNetAccessMode");
  journal_.push_back("qrvGetNetAccessMode" + answer(netAccessMode.has_value()) +
                     (netAccessMode ? " mode " + std::to_string(*netAccessMode) : ""));
  if (!netAccessMode) return 0;
  mode = *netAccessMode;
  return 1;
}

std::int16_t FakeClosedLibraries::qrvSetNetAccessMode(std::uint8_t mode) {
  raiseIfTold("qrvSetNetAccessMode");
  journal_.push_back("qrvSetNetAccessMode " + std::to_string(mode) + answer(storesNetAccessMode));
  if (!storesNetAccessMode) return 0;
  netAccessMode = mode;
  return 1;
}

std::int32_t FakeClosedLibraries::qrvCheckIfBelongsToSubnet(const std::string& address,
                                                            const std::string& subnet) {
  raiseIfTold("qrvCheckIfBelongsToSubnet");
  const auto network = [](const std::string& dotted) { return dotted.substr(0, dotted.rfind('.') + 1); };
  const bool isIn =
      belongs ? belongs(address, subnet) : !address.empty() && network(address) == network(subnet);
  journal_.push_back("qrvCheckIfBelongsToSubnet " + shown(address) + " " + shown(subnet) + answer(isIn));
  return isIn ? 1 : 0;
}

std::int32_t FakeClosedLibraries::fnLogRight(const std::u16string& system, std::vector<std::uint8_t>& sid) {
  raiseIfTold("fnLogRight");
  std::ostringstream line;
  line << "fnLogRight " << fromUtf16(system) << std::hex << std::setfill('0');
  for (const int byte : sid) line << ' ' << std::setw(2) << byte;
  line << std::dec << " -> " << logRightResult;
  journal_.push_back(line.str());
  return logRightResult;
}

}  // namespace varnhold::fakes
