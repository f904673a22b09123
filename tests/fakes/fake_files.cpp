#include "tests/fakes/fake_files.h"

#include <limits>

#include "base/text.h"

namespace varnhold::fakes {
namespace {

using platform::FileOutcome;

constexpr const char* kOutcomeNames[] = {"Done", "NotFound", "Exists", "Refused", "Full"};

std::string nameOf(FileOutcome outcome) {
  return kOutcomeNames[static_cast<int>(outcome)];
}

}  // namespace

void FakeFiles::put(std::string_view path, std::string_view content) {
  files_[toUpper(path)] = content;
}

void FakeFiles::makeFolder(std::string_view path) {
  folders_.insert(toUpper(path));
}

void FakeFiles::refuse(std::string_view path, FileOutcome outcome) {
  refuseSome(path, 0, std::numeric_limits<int>::max(), outcome);
}

void FakeFiles::refuseSome(std::string_view path, int writes, int times, FileOutcome outcome) {
  refusals_[toUpper(path)] = {writes, times, outcome};
}

void FakeFiles::makeUnreadable(std::string_view path) {
  unreadable_.insert(toUpper(path));
}

std::optional<std::string> FakeFiles::content(std::string_view path) const {
  const auto found = files_.find(toUpper(path));
  return found == files_.end() ? std::nullopt : std::optional(found->second);
}

FileOutcome FakeFiles::permit(const std::string& path) {
  const auto name = toUpper(path);
  if (folders_.contains(name)) return FileOutcome::Refused;
  if (!folders_.empty() && !folders_.contains(name.substr(0, name.rfind('\\')))) return FileOutcome::NotFound;
  const auto found = refusals_.find(name);
  if (found == refusals_.end() || found->second.timesLeft == 0) return FileOutcome::Done;
  auto& refusal = found->second;
  if (refusal.writesLeft > 0) {
    --refusal.writesLeft;
    return FileOutcome::Done;
  }
  --refusal.timesLeft;
  return refusal.outcome;
}

bool FakeFiles::exists(const std::string& path) {
  const bool there = files_.contains(toUpper(path));
  journal_.push_back("exists " + shown(path) + (there ? " -> yes" : " -> no"));
  return there;
}

bool FakeFiles::isThere(const std::string& path) {
  const bool there = files_.contains(toUpper(path)) || folders_.contains(toUpper(path));
  journal_.push_back("isThere " + shown(path) + (there ? " -> yes" : " -> no"));
  return there;
}

std::optional<std::string> FakeFiles::read(const std::string& path) {
  auto found = unreadable_.contains(toUpper(path)) ? std::nullopt : content(path);
  journal_.push_back("read " + shown(path) + " -> " +
                     (found ? std::to_string(found->size()) + " bytes" : std::string("nothing")));
  return found;
}

FileOutcome FakeFiles::append(const std::string& path, std::string_view bytes) {
  const auto outcome = permit(path);
  if (outcome == FileOutcome::Done) files_[toUpper(path)] += bytes;
  journal_.push_back("append " + shown(path) + ": " + shown(bytes) + " -> " + nameOf(outcome));
  return outcome;
}

FileOutcome FakeFiles::createNew(const std::string& path, std::string_view bytes,
                                 platform::FileAccess access) {
  auto outcome = files_.contains(toUpper(path)) ? FileOutcome::Exists : permit(path);
  if (outcome == FileOutcome::Done) put(path, bytes);
  journal_.push_back("createNew " + shown(path) +
                     (access == platform::FileAccess::OwnerOnly ? " (owner only): " : ": ") + shown(bytes) +
                     " -> " + nameOf(outcome));
  return outcome;
}

bool FakeFiles::createProbe(const std::string& path) {
  const bool done = permit(path) == FileOutcome::Done;
  if (done) put(path, "");
  journal_.push_back("createProbe " + shown(path) + (done ? " -> yes" : " -> no"));
  return done;
}

FileOutcome FakeFiles::remove(const std::string& path) {
  auto outcome = files_.erase(toUpper(path)) == 1 ? FileOutcome::Done : FileOutcome::NotFound;
  if (folders_.contains(toUpper(path))) outcome = FileOutcome::Refused;
  journal_.push_back("remove " + shown(path) + " -> " + nameOf(outcome));
  return outcome;
}

}  // namespace varnhold::fakes
