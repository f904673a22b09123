#include "companion/job.h"

#include <algorithm>
#include <iterator>

#include "companion/lab/lab_network.h"

namespace varnhold::companion {
namespace {

bool isWarning(std::int32_t code) {
  return code == kSecurityNotConfigured || code == kNotStarted || code == kSnapshotsKept ||
         code == kUpgradedNotStarted;
}

/// One kind of job: its steps for either agent, and the code when all went through.
struct JobForm {
  JobKind kind;
  std::string_view scriptName;
  std::int32_t success, failure;  ///< the latter: what nobody foresaw
  std::span<const Step> (*steps)();
  std::span<const Step> (*tessmarkSteps)();
};

constexpr JobForm kForms[] = {
    {JobKind::Install, "install", kInstalled, kUnknownFailure, installSteps, tessmarkInstallSteps},
    {JobKind::Uninstall, "uninstall", kUninstalled, kUnknownFailure, uninstallSteps, tessmarkUninstallSteps},
    {JobKind::Upgrade, "upgrade", kUpgraded, kUnknownFailure, upgradeSteps, upgradeSteps},
    {JobKind::UpgradeOverIp, "upgrade", kDoneOverIp, kGeneralErrorOverIp, overIpUpgradeSteps,
     overIpUpgradeSteps},
    {JobKind::CheckVersion, "version_check", kDoneOverIp, kGeneralErrorOverIp, versionCheckSteps,
     versionCheckSteps},
};

const JobForm& formOf(JobKind kind) {
  return *std::find_if(std::begin(kForms), std::end(kForms),
                       [&](const JobForm& form) { return form.kind == kind; });
}

bool isSuccess(JobKind kind, std::int32_t code) {
  switch (kind) {
    case JobKind::Install:
      return code == kInstalled || code == kSnapshotsKept || code == kSecurityNotConfigured ||
             code == kNotStarted;
    case JobKind::Upgrade:
      return code == kUpgraded || code == kUpgradedNotStarted;
    default:
      return code == formOf(kind).success;
  }
}

bool isOverIp(JobKind kind) {
  return kind == JobKind::UpgradeOverIp || kind == JobKind::CheckVersion;
}

std::int32_t codeOf(const Step& step, Win32Error error) {
  const auto found = std::find_if(step.codes.begin(), step.codes.end(),
                                  [&](const ErrorCode& known) { return known.error == error; });
  return found == step.codes.end() ? step.otherwise : found->code;
}

Win32Error runStep(const Step& step, JobContext& context) {
  if (const Win32Error refused = context.computer.refusal(step.name)) return refused;
  return step.run(context);
}

/// Nothing of ours is on a computer that is watched from the manager: the job's work is on the manager's own
/// computer, and an uninstall needs no other.
std::int32_t workAgentless(JobKind kind, const Network& network, const JobRecord& record,
                           const AgentMaterial& material) {
  const auto target = network.find(record.systemName);
  if (target == nullptr && kind == JobKind::Install) return kCannotConnect;
  auto found = network.find(material.managerName);
  if (found == nullptr) return kLocalRegistryUnreadable;
  const auto hold = found->beginJob();
  const auto manager = std::move(found);
  JobContext context(target != nullptr ? *target : *manager, record, material);
  context.manager = manager.get();
  context.polledName = target != nullptr ? target->facts().name : plainComputerName(record.systemName);
  const auto steps = kind == JobKind::Install ? agentlessInstallSteps() : agentlessUninstallSteps();
  return runSteps(steps, formOf(kind).success, context);
}

std::int32_t work(JobKind kind, const Network& network, const JobRecord& record,
                  const AgentMaterial& material) {
  const bool mayBeAgentless = kind == JobKind::Install || kind == JobKind::Uninstall;
  if (record.agentless && mayBeAgentless) return workAgentless(kind, network, record, material);
  auto found = network.find(record.systemName);
  if (found == nullptr) return isOverIp(kind) ? kHostInformationMissing : kCannotConnect;
  const auto hold = found->beginJob();
  // The computer is let go before the hold on it is.
  const auto computer = std::move(found);
  JobContext context(*computer, record, material);
  const JobForm& form = formOf(kind);
  const auto steps = material.product == &kTessmarkAgent ? form.tessmarkSteps() : form.steps();
  return runSteps(steps, form.success, context);
}

}  // namespace

std::int32_t runSteps(std::span<const Step> steps, std::int32_t success, JobContext& context) {
  std::int32_t result = success;
  for (const Step& step : steps) {
    if (step.applies != nullptr && !step.applies(context)) continue;
    const Win32Error error = runStep(step, context);
    if (error == kDone) continue;
    const std::int32_t code = codeOf(step, error);
    if (!isWarning(code)) return code;
    if (result == success) result = code;
  }
  context.takeBack.keep();
  return result;
}

std::int32_t runJob(JobKind kind, const Network& network, const JobScript& script, const JobRecord& record,
                    const AgentMaterial& material, const Sleep& sleep) noexcept {
  try {
    while (script.neverEnds) sleep(std::chrono::hours(1));
    if (script.delay) sleep(*script.delay);
    if (script.result && !isSuccess(kind, *script.result)) return *script.result;
    const std::int32_t result = work(kind, network, record, material);
    return script.result.value_or(result);
  } catch (...) {
    return formOf(kind).failure;
  }
}

std::string_view scriptName(JobKind kind) {
  return formOf(kind).scriptName;
}

}  // namespace varnhold::companion
