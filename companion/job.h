#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/secret.h"
#include "companion/agent_material.h"
#include "companion/agent_product.h"
#include "companion/remote_computer.h"
#include "companion/take_back.h"

namespace varnhold::companion {

/// Result codes of the catalogue that the steps name besides those in their tables.
inline constexpr std::int32_t kInstalled = 150;
inline constexpr std::int32_t kUninstalled = 152;
inline constexpr std::int32_t kCannotConnect = 154;
inline constexpr std::int32_t kSecurityNotConfigured = 167;  ///< a warning: installed all the same
inline constexpr std::int32_t kNotStarted = 232;             ///< a warning: installed all the same
inline constexpr std::int32_t kSnapshotsKept = 290;          ///< a warning: installed all the same
inline constexpr std::int32_t kUpgraded = 700;
inline constexpr std::int32_t kUpgradedNotStarted = 704;  ///< a warning: upgraded all the same
inline constexpr std::int32_t kLocalRegistryUnreadable = 706;
inline constexpr std::int32_t kUnknownFailure = 710;
inline constexpr std::int32_t kDoneOverIp = 3000;
inline constexpr std::int32_t kGeneralErrorOverIp = 3001;
inline constexpr std::int32_t kHostInformationMissing = 3017;

/// A job's own copy of its record: what of it the steps use, in UTF-8.
struct JobRecord {
  std::string systemName;
  std::string installDirectory;
  std::string serviceUser;
  Secret servicePassword;
  std::string configFile;
  std::int32_t agentMode = 0;
  bool agentless = false;
  bool remedialActions = false;
  bool keepsSnapshots = false;           ///< an uninstall leaves them
  bool isVistaTarget = false;            ///< `OSFlag` 6
  bool shareConnected = false;           ///< an account was given for the computer's shares already
  std::filesystem::path agentLibrary{};  ///< over IP: the manager's "...\vhagent"
};

/// What one job works with and what its steps tell each other.
struct JobContext {
  JobContext(RemoteComputer& itsComputer, const JobRecord& itsRecord, const AgentMaterial& itsMaterial)
      : computer(itsComputer), product(*itsMaterial.product), record(itsRecord), material(itsMaterial) {}

  RemoteComputer& computer;
  const AgentProduct& product;
  const JobRecord& record;
  const AgentMaterial& material;
  RemoteComputer* manager = nullptr;  ///< of an agentless job: the manager's own computer
  std::string polledName;             ///< of an agentless job: the name in the manager's list

  std::string folder;                          ///< the agent's on the target: "C:\...\Varnhold"
  std::optional<std::string> earlierFolder;    ///< of an agent that is registered there already
  std::optional<ServiceEntry> earlierService;  ///< the agent's service, as it was
  std::vector<std::string> madeFolders;        ///< full paths of the folders that were made for the agent
  TakeBack takeBack;
};

/// Which code an error means in a step.
struct ErrorCode {
  Win32Error error;
  std::int32_t code;
};

/// One step of a job. Its name is also the one by which a rehearsed computer refuses it.
struct Step {
  std::string_view name;
  Win32Error (*run)(JobContext&);
  std::int32_t otherwise;  ///< the code for an error that is not in `codes`
  std::span<const ErrorCode> codes = {};
  bool (*applies)(const JobContext&) = nullptr;  ///< null: always
};

/// The steps of each job, in their order.
[[nodiscard]] std::span<const Step> installSteps();
[[nodiscard]] std::span<const Step> uninstallSteps();
[[nodiscard]] std::span<const Step> upgradeSteps();
[[nodiscard]] std::span<const Step> overIpUpgradeSteps();
[[nodiscard]] std::span<const Step> versionCheckSteps();
[[nodiscard]] std::span<const Step> tessmarkInstallSteps();
[[nodiscard]] std::span<const Step> tessmarkUninstallSteps();
[[nodiscard]] std::span<const Step> agentlessInstallSteps();
[[nodiscard]] std::span<const Step> agentlessUninstallSteps();

/// Runs the steps in order. A warning (167, 232, 290, 704) is remembered and the job goes on; any other error
/// ends it with the step's code, and what was done is taken back. `success`, or the first warning, when all
/// went through.
[[nodiscard]] std::int32_t runSteps(std::span<const Step> steps, std::int32_t success, JobContext& context);

enum class JobKind { Install, Uninstall, Upgrade, UpgradeOverIp, CheckVersion };

/// The name of the job in a computer's script.
[[nodiscard]] std::string_view scriptName(JobKind kind);

/// Pauses the calling thread.
using Sleep = std::function<void(std::chrono::milliseconds)>;

/// Does one job as its script has it: waits, then works, and gives the result code. A script's own code
/// stands in place of the job's; the work is done only when that code means success. Never returns for a job
/// that never ends. Runs in the job's thread; raises nothing.
[[nodiscard]] std::int32_t runJob(JobKind kind, const Network& network, const JobScript& script,
                                  const JobRecord& record, const AgentMaterial& material,
                                  const Sleep& sleep) noexcept;

}  // namespace varnhold::companion
