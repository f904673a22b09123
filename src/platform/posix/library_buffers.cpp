#include "platform/posix/library_buffers.h"

#include <string.h>

#include <algorithm>
#include <array>

#include "base/secret.h"
#include "base/text.h"

namespace varnhold::platform::posix {
namespace {

struct JobText {
  std::string DeploymentJob::*ours;
  char* QrvDeploymentJob::*theirs;
};

constexpr std::array kJobTexts = {
    JobText{&DeploymentJob::Spare0, &QrvDeploymentJob::Spare0},
    JobText{&DeploymentJob::SystemName, &QrvDeploymentJob::SystemName},
    JobText{&DeploymentJob::Spare2, &QrvDeploymentJob::Spare2},
    JobText{&DeploymentJob::Spare3, &QrvDeploymentJob::Spare3},
    JobText{&DeploymentJob::Spare4, &QrvDeploymentJob::Spare4},
    JobText{&DeploymentJob::InstallDirectory, &QrvDeploymentJob::InstallDirectory},
    JobText{&DeploymentJob::Spare6, &QrvDeploymentJob::Spare6},
    JobText{&DeploymentJob::Spare7, &QrvDeploymentJob::Spare7},
    JobText{&DeploymentJob::KeepSnapshots, &QrvDeploymentJob::KeepSnapshots},
    JobText{&DeploymentJob::Spare9, &QrvDeploymentJob::Spare9},
    JobText{&DeploymentJob::ServiceUser, &QrvDeploymentJob::ServiceUser},
    JobText{&DeploymentJob::ServicePassword, &QrvDeploymentJob::ServicePassword},
    JobText{&DeploymentJob::ConfigFile, &QrvDeploymentJob::ConfigFile},
};

/// A buffer of exactly the record's size, so that a name that is too long is cut and not written over.
TextBuffer fixedBuffer(const std::string& text, std::size_t size) {
  return TextBuffer(text.substr(0, std::min(text.size(), size - 1)), size);
}

}  // namespace

TextBuffer::TextBuffer(const std::string& text, std::size_t size)
    : bytes_(std::max(text.size() + 1, size), '\0') {
  std::copy(text.begin(), text.end(), bytes_.begin());
}

TextBuffer::~TextBuffer() {
  ::explicit_bzero(bytes_.data(), bytes_.size());
}

std::string TextBuffer::text() const {
  return TrimAtNull({bytes_.data(), bytes_.size()});
}

JobRecord::JobRecord(const DeploymentJob& job) {
  texts_.reserve(kJobTexts.size());
  for (const auto& [ours, theirs] : kJobTexts) record_.*theirs = texts_.emplace_back(job.*ours).data();
  record_.OSFlag = job.OSFlag;
  record_.AgentKind = job.AgentKind;
  record_.AgentMode = job.AgentMode;
  record_.RemedialFlag = job.RemedialFlag;
  record_.UseDefaultConfig = job.UseDefaultConfig;
}

void JobRecord::readBack(DeploymentJob& job) const {
  for (std::size_t i = 0; i < kJobTexts.size(); ++i) {
    auto& text = job.*kJobTexts[i].ours;
    auto back = texts_[i].uncut(text.size());
    wipe(text);
    text = std::move(back);
  }
  job.OSFlag = record_.OSFlag;
  job.AgentKind = record_.AgentKind;
  job.AgentMode = record_.AgentMode;
  job.RemedialFlag = record_.RemedialFlag;
  job.UseDefaultConfig = record_.UseDefaultConfig;
}

DetailsRecord::DetailsRecord(const SystemDetails& details)
    : systemName_(fixedBuffer(details.SystemName, kQrvSystemNameSize)),
      resolvedName_(fixedBuffer(details.ResolvedName, kQrvResolvedNameSize)),
      text1_(fixedBuffer(details.DetailsText1, kQrvText1Size)),
      text2_(fixedBuffer(details.DetailsText2, kQrvText2Size)),
      record_{systemName_.data(),   details.DetailLevel,    details.DetailsReserved1,
              resolvedName_.data(), details.OSMajorVersion, details.DetailsReserved2,
              details.SystemType,   text1_.data(),          text2_.data()} {}

void DetailsRecord::readBack(SystemDetails& details) const {
  details.SystemName = systemName_.text();
  details.DetailLevel = record_.DetailLevel;
  details.DetailsReserved1 = record_.DetailsReserved1;
  details.ResolvedName = resolvedName_.text();
  details.OSMajorVersion = record_.OSMajorVersion;
  details.DetailsReserved2 = record_.DetailsReserved2;
  details.SystemType = record_.SystemType;
  details.DetailsText1 = text1_.text();
  details.DetailsText2 = text2_.text();
}

}  // namespace varnhold::platform::posix
