#include "companion/job.h"

#include <algorithm>

namespace varnhold::companion {
namespace {

bool isWarning(std::int32_t code) {
  return code == kSecurityNotConfigured || code == kNotStarted;
}

bool isSuccess(JobKind kind, std::int32_t code) {
  if (kind == JobKind::Uninstall) return code == kUninstalled;
  return code == kInstalled || code == kSnapshotsKept || isWarning(code);
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

std::int32_t work(JobKind kind, const Network& network, const JobRecord& record,
                  const AgentMaterial& material) {
  // Nothing of ours is on a computer that is watched from the manager.
  if (kind == JobKind::Uninstall && record.agentless) return kUninstalled;
  auto found = network.find(record.systemName);
  if (found == nullptr) return kCannotConnect;
  const auto hold = found->beginJob();
  // The computer is let go before the hold on it is.
  const auto computer = std::move(found);
  JobContext context(*computer, kVarnholdAgent, record, material);
  if (kind == JobKind::Uninstall) return runSteps(uninstallSteps(), kUninstalled, context);
  const auto steps = record.agentless ? installSteps().first(1) : installSteps();
  return runSteps(steps, kInstalled, context);
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
    return kUnknownFailure;
  }
}

}  // namespace varnhold::companion
