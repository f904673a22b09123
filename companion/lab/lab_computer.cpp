#include "companion/lab/lab_computer.h"

#include "base/text.h"
#include "companion/host.h"

namespace varnhold::companion {

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

std::unique_ptr<Hold> LabComputer::beginJob() {
  return host::lockFile(folder_ / "job.lock");
}

Win32Error LabComputer::refusal(std::string_view step) const {
  const auto found = settings_.refusals.find(step);
  return found == settings_.refusals.end() ? kDone : found->second;
}

}  // namespace varnhold::companion
