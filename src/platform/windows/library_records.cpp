#include "platform/windows/library_records.h"

#include <array>

namespace varnhold::platform::windows {
namespace {

/// The least room of a string that the library may overwrite.
constexpr std::size_t kStringRoom = kQrvSystemNameSize;

struct JobString {
  std::string DeploymentJob::*ours;
  char* QrvDeploymentJob::*theirs;
};

constexpr std::array kJobStrings = {
    JobString{&DeploymentJob::Spare0, &QrvDeploymentJob::Spare0},
    JobString{&DeploymentJob::SystemName, &QrvDeploymentJob::SystemName},
    JobString{&DeploymentJob::Spare2, &QrvDeploymentJob::Spare2},
    JobString{&DeploymentJob::Spare3, &QrvDeploymentJob::Spare3},
    JobString{&DeploymentJob::Spare4, &QrvDeploymentJob::Spare4},
    JobString{&DeploymentJob::InstallDirectory, &QrvDeploymentJob::InstallDirectory},
    JobString{&DeploymentJob::Spare6, &QrvDeploymentJob::Spare6},
    JobString{&DeploymentJob::Spare7, &QrvDeploymentJob::Spare7},
    JobString{&DeploymentJob::KeepSnapshots, &QrvDeploymentJob::KeepSnapshots},
    JobString{&DeploymentJob::Spare9, &QrvDeploymentJob::Spare9},
    JobString{&DeploymentJob::ServiceUser, &QrvDeploymentJob::ServiceUser},
    JobString{&DeploymentJob::ServicePassword, &QrvDeploymentJob::ServicePassword},
    JobString{&DeploymentJob::ConfigFile, &QrvDeploymentJob::ConfigFile},
};

struct DetailsString {
  std::string SystemDetails::*ours;
  char* QrvSystemDetails::*theirs;
  std::size_t size;
};

constexpr std::array kDetailsStrings = {
    DetailsString{&SystemDetails::SystemName, &QrvSystemDetails::SystemName,
                  SystemDetails::kSystemNameLength},
    DetailsString{&SystemDetails::ResolvedName, &QrvSystemDetails::ResolvedName,
                  SystemDetails::kResolvedNameLength},
    DetailsString{&SystemDetails::DetailsText1, &QrvSystemDetails::DetailsText1, SystemDetails::kText1Length},
    DetailsString{&SystemDetails::DetailsText2, &QrvSystemDetails::DetailsText2, SystemDetails::kText2Length},
};

}  // namespace

JobRecord::JobRecord(const DeploymentJob& job) {
  strings_.reserve(kJobStrings.size());
  for (const auto& string : kJobStrings) {
    record_.*string.theirs = strings_.emplace_back(job.*string.ours, kStringRoom).data();
  }
  record_.OSFlag = job.OSFlag;
  record_.AgentKind = job.AgentKind;
  record_.AgentMode = job.AgentMode;
  record_.RemedialFlag = job.RemedialFlag;
  record_.UseDefaultConfig = job.UseDefaultConfig;
}

void JobRecord::readBack(DeploymentJob& job) const {
  for (std::size_t i = 0; i < kJobStrings.size(); ++i)
    strings_[i].readBackInOwnLength(job.*kJobStrings[i].ours);
  job.OSFlag = record_.OSFlag;
  job.AgentKind = record_.AgentKind;
  job.AgentMode = record_.AgentMode;
  job.RemedialFlag = record_.RemedialFlag;
  job.UseDefaultConfig = record_.UseDefaultConfig;
}

DetailsRecord::DetailsRecord(const SystemDetails& details) {
  strings_.reserve(kDetailsStrings.size());
  for (const auto& string : kDetailsStrings) {
    record_.*string.theirs = strings_.emplace_back(details.*string.ours, string.size).data();
  }
  record_.DetailLevel = details.DetailLevel;
  record_.DetailsReserved1 = details.DetailsReserved1;
  record_.OSMajorVersion = details.OSMajorVersion;
  record_.DetailsReserved2 = details.DetailsReserved2;
  record_.SystemType = details.SystemType;
}

void DetailsRecord::readBack(SystemDetails& details) const {
  for (std::size_t i = 0; i < kDetailsStrings.size(); ++i) {
    strings_[i].readBack(details.*kDetailsStrings[i].ours);
  }
  details.DetailLevel = record_.DetailLevel;
  details.DetailsReserved1 = record_.DetailsReserved1;
  details.OSMajorVersion = record_.OSMajorVersion;
  details.DetailsReserved2 = record_.DetailsReserved2;
  details.SystemType = record_.SystemType;
}

}  // namespace varnhold::platform::windows
