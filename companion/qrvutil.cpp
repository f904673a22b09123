#include "companion/include/qrvutil.h"

#include <thread>

#include "companion/abi.h"
#include "companion/inventory.h"
#include "companion/job.h"
#include "companion/lab/lab_network.h"
#include "companion/local_calls.h"
#include "companion/paths.h"
#include "companion/surroundings.h"
#include "companion/systems.h"

static_assert(sizeof(void*) != 4 || sizeof(QrvSystemDetails) == 36);

namespace varnhold::companion {
namespace {

constexpr std::size_t kLongestName = kQrvSystemNameSize - 1;
constexpr std::uint32_t kExitCodeBase = 1000;
constexpr std::uint8_t kAgentless = 1;

std::optional<JobRecord> copyRecord(const QrvDeploymentJob& job) {
  const auto name = abi::text(job.SystemName, kLongestName);
  const auto directory = abi::text(job.InstallDirectory);
  const auto user = abi::text(job.ServiceUser);
  const auto password = abi::text(job.ServicePassword);
  const auto configFile = abi::text(job.ConfigFile);
  if (!name || !directory || !user || !password || !configFile) return std::nullopt;
  return JobRecord{*name,
                   *directory,
                   *user,
                   *password,
                   *configFile,
                   job.AgentMode,
                   job.AgentKind == kAgentless,
                   job.RemedialFlag != 0};
}

/// Everything that the thread works with is its own.
struct Job {
  JobKind kind;
  LabNetwork network;
  JobScript script;
  JobRecord record;
  AgentMaterial material;
};

std::uint32_t exitCode(const Job& job) {
  const Sleep sleep = [](std::chrono::milliseconds time) { std::this_thread::sleep_for(time); };
  const std::int32_t result = runJob(job.kind, job.network, job.script, job.record, job.material, sleep);
  return kExitCodeBase + static_cast<std::uint32_t>(result);
}

QrvThread startJob(JobKind kind, const QrvDeploymentJob* job, const char* libraryPath) {
  const auto library = abi::text(libraryPath);
  if (job == nullptr || !library) return nullptr;
  const auto record = copyRecord(*job);
  if (!record) return nullptr;
  const Surroundings surroundings = readSurroundings();
  const LabNetwork network(surroundings.labFolder);
  const JobScript script =
      network.script(record->systemName, kind == JobKind::Install ? "install" : "uninstall");
  if (script.noThread) return nullptr;
  AgentMaterial material = captureMaterial(host::localPath(*library), kVarnholdAgent,
                                           surroundings.managerName, surroundings.agentVersion);
  return host::startThread([work = Job{kind, network, script, *record, std::move(material)}](
                               const std::stop_token&) { return exitCode(work); });
}

LabNetwork lab() {
  return LabNetwork(readSurroundings().labFolder);
}

/// The longest part of the text that fits a buffer, cut between letters.
std::string fitting(std::string text, std::size_t bufferSize) {
  while (host::toAbi(text).size() >= bufferSize) {
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80) text.pop_back();
    if (!text.empty()) text.pop_back();
  }
  return text;
}

bool fillDetails(QrvSystemDetails& details, const SystemFacts& facts) {
  if (details.ResolvedName == nullptr || details.DetailsText1 == nullptr || details.DetailsText2 == nullptr)
    return false;
  details.OSMajorVersion = facts.osMajor;
  details.SystemType = facts.systemType;
  return abi::write(details.ResolvedName, kQrvResolvedNameSize,
                    fitting(facts.resolvedName, kQrvResolvedNameSize)) &&
         abi::write(details.DetailsText1, kQrvText1Size, fitting(facts.description, kQrvText1Size)) &&
         abi::write(details.DetailsText2, kQrvText2Size, fitting(facts.address, kQrvText2Size));
}

}  // namespace
}  // namespace varnhold::companion

using namespace varnhold::companion;

QrvThread QRV_CALL qrvCInstall(QrvDeploymentJob* job, char* libraryPath) {
  return abi::guarded<QrvThread>(nullptr, [&] { return startJob(JobKind::Install, job, libraryPath); });
}

QrvThread QRV_CALL qrvCUninstall(QrvDeploymentJob* job, char* libraryPath) {
  return abi::guarded<QrvThread>(nullptr, [&] { return startJob(JobKind::Uninstall, job, libraryPath); });
}

int32_t QRV_CALL qrvCCreateConfigurationFile(char* libraryPath, char* systemName, char* installDirectory,
                                             int32_t agentMode) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    const auto library = abi::text(libraryPath);
    const auto name = abi::text(systemName, kLongestName);
    const auto directory = abi::text(installDirectory);
    if (!library || !name || !directory) return 0;
    const Surroundings surroundings = readSurroundings();
    const auto scripted = LabNetwork(surroundings.labFolder).script(*name, "configuration_file").result;
    if (scripted.value_or(1) != 1) return *scripted;
    return writeSetupInformation(host::localPath(*library),
                                 {*name, *directory, surroundings.managerName, agentMode})
               ? 1
               : 0;
  });
}

int32_t QRV_CALL qrvCReadNWriteVhaConfigINI4Turbo(char* agentLibraryPath, char* agentFolder, char* iniPath,
                                                  int32_t mode) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    const auto library = abi::text(agentLibraryPath);
    const auto folder = abi::text(agentFolder);
    const auto ini = abi::text(iniPath);
    if (!library || !folder || !ini) return 0;
    const Surroundings surroundings = readSurroundings();
    // No computer is named in this call: what it is to give stands with the manager's own.
    const auto scripted = LabNetwork(surroundings.labFolder).script(surroundings.managerName, "ini").result;
    if (scripted == 0) return 0;
    const bool edited = editAgentConfiguration(host::localPath(*library), host::localPath(*folder),
                                               host::localPath(*ini), mode);
    return edited ? scripted.value_or(1) : 0;
  });
}

int32_t QRV_CALL qrvGetSystemIPAddress(char* systemName, char* address) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    const auto name = abi::text(systemName, kLongestName);
    if (!name || address == nullptr) return 0;
    const auto resolved = resolveAddress(lab(), *name);
    if (!resolved || !abi::write(address, kQrvAddressSize, resolved->address)) return 0;
    return resolved->name == *name || abi::write(systemName, kQrvSystemNameSize, resolved->name) ? 1 : 0;
  });
}

int32_t QRV_CALL qrvFindSystemAndReturnDetails(QrvSystemDetails* details) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    if (details == nullptr) return 0;
    const auto name = abi::text(details->SystemName, kLongestName);
    if (!name) return 0;
    const auto facts = findSystem(lab(), *name);
    return facts && fillDetails(*details, *facts) ? 1 : 0;
  });
}

int32_t QRV_CALL qrvUpdateSystemDetailsInDB(QrvSystemDetails* details) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    if (details == nullptr) return 0;
    const auto name = abi::text(details->SystemName, kLongestName);
    const auto description = abi::text(details->DetailsText1, kQrvText1Size - 1);
    const auto address = abi::text(details->DetailsText2, kQrvText2Size - 1);
    if (!name || name->empty() || !description || !address) return 0;
    const SystemRow system{*name, details->SystemType, *address, *description};
    ownInventory().use([&](varnhold::store::Connection& connection) { storeSystem(connection, system); });
    return 1;
  });
}

int32_t QRV_CALL qrvChkRmtRegNGetPrgFilePath(char* computer, char* path) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    const auto name = abi::text(computer, kLongestName);
    if (!name) return 0;
    const auto folder = programFilesFolder(lab(), *name);
    return folder && abi::write(path, kQrvFolderSize, *folder) ? 1 : 0;
  });
}
