#include "deployment/file_error.h"

#include <array>
#include <string>

namespace varnhold::deployment {
namespace {

using platform::FileOutcome;

struct Words {
  FileOutcome outcome;
  ErrorNumber number;
  std::string_view reason;
  std::string_view remedy;
};

constexpr std::array<Words, 4> kWords{{
    {FileOutcome::NotFound, kFileNotFound, "the file or its folder does not exist",
     "Check that the folder is there and try again."},
    {FileOutcome::Refused, kPermissionDenied, "access was denied",
     "Check your rights on the file and its folder, and that no other program keeps it open."},
    {FileOutcome::Full, kDiskFull, "the disk is full", "Free some space and try again."},
    {FileOutcome::Exists, kPathFileAccess, "the file exists already", "Delete the file and try again."},
}};

constexpr Words kOtherFault{FileOutcome::Done, kPathFileAccess, "the path cannot be used", "Check the path."};

}  // namespace

RuntimeError fileError(FileOutcome outcome, std::string_view task, std::string_view path) {
  Words words = kOtherFault;
  for (const auto& candidate : kWords) {
    if (candidate.outcome == outcome) words = candidate;
  }
  std::string description = "Could not ";
  description.append(task).append(" '").append(path).append("': ").append(words.reason);
  description.append(". ").append(words.remedy);
  return RuntimeError(words.number, description);
}

}  // namespace varnhold::deployment
