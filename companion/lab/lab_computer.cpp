#include "companion/lab/lab_computer.h"

#include "base/text.h"
#include "companion/agent_product.h"
#include "companion/host.h"
#include "companion/ini_text.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

constexpr std::size_t kLargestFile = 1U << 20;

}  // namespace

LabComputer::LabComputer(const std::filesystem::path& folder, HostSettings settings)
    : folder_(folder),
      settings_(std::move(settings)),
      files_(folder_, settings_),
      services_(folder_, settings_),
      registry_(folder_, settings_) {}

Win32Error LabComputer::openEventLog(std::string_view log) {
  if (!settings_.answers) return kServerUnavailable;
  return equalsIgnoringCase(log, "Security") && !settings_.securityLog ? kAccessDenied : kDone;
}

Win32Error LabComputer::logOn(const std::string& account, const std::string& password) {
  if (const Win32Error error = files_.connect()) return error;
  const bool accepted = settings_.account.empty() ||
                        (equalsIgnoringCase(account, settings_.account) && password == settings_.password);
  return accepted ? kDone : kLogonRefused;
}

Win32Error LabComputer::connectAgent() {
  if (!settings_.answers) return kConnectionTimeout;
  ServiceEntry agent;
  const auto error = services_.query(std::string(kVarnholdAgent.serviceName), agent);
  return error == kDone && agent.running ? kDone : kConnectionRefused;
}

Win32Error LabComputer::grantServiceLogon(const std::string& sid) {
  if (!settings_.answers) return kServerUnavailable;
  if (const Win32Error refused = refusal("logon_right")) return refused;
  const auto lock = host::lockFile(folder_ / "state.lock");
  const auto file = folder_ / "rights.ini";
  IniText rights(readWhole(file, kLargestFile).value_or(""));
  rights.setValue("SeServiceLogonRight", sid, "granted");
  return host::replaceFile(file, rights.text());
}

std::unique_ptr<Hold> LabComputer::beginJob() {
  return host::lockFile(folder_ / "job.lock");
}

Win32Error LabComputer::refusal(std::string_view step) const {
  const auto found = settings_.refusals.find(step);
  return found == settings_.refusals.end() ? kDone : found->second;
}

}  // namespace varnhold::companion
