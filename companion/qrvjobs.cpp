// The functions of the C ABI that start a job in a thread of its own.
#include <thread>

#include "base/text.h"
#include "companion/abi.h"
#include "companion/host_view.h"
#include "companion/include/qrvutil.h"
#include "companion/job.h"
#include "companion/lab/lab_network.h"
#include "companion/paths.h"
#include "companion/surroundings.h"

namespace varnhold::companion {
namespace {

constexpr std::size_t kLongestName = kQrvSystemNameSize - 1;
constexpr std::uint32_t kExitCodeBase = 1000;
constexpr std::uint8_t kAgentless = 1;
constexpr std::int32_t kVistaTarget = 6;

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

QrvThread start(JobKind kind, JobRecord record, AgentMaterial material, const Surroundings& surroundings) {
  const LabNetwork network(surroundings.labFolder);
  const JobScript script = network.script(record.systemName, scriptName(kind));
  if (script.noThread) return nullptr;
  record.shareConnected = ownShareConnections().isConnected(network, record.systemName);
  return host::startThread([work = Job{kind, network, script, std::move(record), std::move(material)}](
                               const host::MustStop&) { return exitCode(work); });
}

std::optional<JobRecord> copyRecord(const QrvDeploymentJob& job) {
  const auto name = abi::text(job.SystemName, kLongestName);
  const auto directory = abi::text(job.InstallDirectory);
  const auto keepSnapshots = abi::text(job.KeepSnapshots);
  const auto user = abi::text(job.ServiceUser);
  auto password = abi::text(job.ServicePassword);
  const auto configFile = abi::text(job.ConfigFile);
  if (!name || !directory || !keepSnapshots || !user || !password || !configFile) return std::nullopt;
  JobRecord record;
  record.systemName = *name;
  record.installDirectory = *directory;
  record.serviceUser = *user;
  record.servicePassword = Secret(std::move(*password));
  record.configFile = job.UseDefaultConfig != 0 ? "" : *configFile;
  record.agentMode = job.AgentMode;
  record.agentless = job.AgentKind == kAgentless;
  record.remedialActions = job.RemedialFlag != 0;
  record.keepsSnapshots = *keepSnapshots == "1";
  record.isVistaTarget = job.OSFlag == kVistaTarget;
  return record;
}

/// The product is told by the folder that the material comes from.
AgentMaterial materialFor(JobKind kind, const std::filesystem::path& library,
                          const Surroundings& surroundings) {
  const auto changesLibrary = (surroundings.changesFolder / kMaterialFolder).lexically_normal();
  const bool isChanges =
      !surroundings.changesFolder.empty() &&
      equalsIgnoringCase(utf8FromPath(library.lexically_normal()), utf8FromPath(changesLibrary));
  std::string version = isChanges ? surroundings.changesVersion : surroundings.agentVersion;
  if (version.empty() && kind == JobKind::Install) version = kUnregisteredVersion;
  return captureMaterial(library, isChanges ? kTessmarkAgent : kVarnholdAgent, surroundings.managerName,
                         std::move(version));
}

QrvThread startJob(JobKind kind, const QrvDeploymentJob* job, const char* libraryPath) {
  const auto library = abi::text(libraryPath);
  if (job == nullptr || !library) return nullptr;
  auto record = copyRecord(*job);
  if (!record) return nullptr;
  const Surroundings surroundings = readSurroundings();
  return start(kind, std::move(*record), materialFor(kind, host::localPath(*library), surroundings),
               surroundings);
}

/// Over IP the files are those of the manager's installation material; the agent library is what speaks to
/// the agent.
QrvThread startOverIp(JobKind kind, const char* agentLibraryPath, const char* systemName, JobRecord record) {
  const auto library = abi::text(agentLibraryPath);
  const auto name = abi::text(systemName, kLongestName);
  if (!library || !name) return nullptr;
  record.systemName = *name;
  record.agentLibrary = host::localPath(*library);
  const Surroundings surroundings = readSurroundings();
  AgentMaterial material = captureMaterial(surroundings.materialFolder, kVarnholdAgent,
                                           surroundings.managerName, surroundings.agentVersion);
  return start(kind, std::move(record), std::move(material), surroundings);
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

QrvThread QRV_CALL qrvCUpgradeAgent(QrvDeploymentJob* job, char* libraryPath) {
  return abi::guarded<QrvThread>(nullptr, [&] { return startJob(JobKind::Upgrade, job, libraryPath); });
}

QrvThread QRV_CALL qrvCUpgradeAgentOverIP(char* agentLibraryPath, char* systemName, int32_t agentMode,
                                          int32_t osFlag, char* configFile, uint8_t remedialFlag,
                                          uint8_t useDefaultConfig) {
  return abi::guarded<QrvThread>(nullptr, [&]() -> QrvThread {
    const auto file = abi::text(configFile);
    if (!file) return nullptr;
    JobRecord record;
    record.configFile = useDefaultConfig != 0 ? "" : *file;
    record.agentMode = agentMode;
    record.remedialActions = remedialFlag != 0;
    record.isVistaTarget = osFlag == kVistaTarget;
    return startOverIp(JobKind::UpgradeOverIp, agentLibraryPath, systemName, std::move(record));
  });
}

QrvThread QRV_CALL qrvCVHCheckVersion(char* agentLibraryPath, char* systemName) {
  return abi::guarded<QrvThread>(
      nullptr, [&] { return startOverIp(JobKind::CheckVersion, agentLibraryPath, systemName, {}); });
}
