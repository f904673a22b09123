#pragma once

#include <memory>
#include <string>

#include "platform/posix/companion_library.h"

namespace varnhold::platform::posix {

/// A companion library object over the stand-in of the tests, whose state begins anew.
[[nodiscard]] std::unique_ptr<CompanionLibrary> makeStandin();
/// One over a library without functions, and one over a folder without library.
[[nodiscard]] std::unique_ptr<CompanionLibrary> makeLackingStandin();
[[nodiscard]] std::unique_ptr<CompanionLibrary> makeMissingStandin();

/// What the stand-in was asked, a line for each call, since it was made.
[[nodiscard]] std::string standinCalls(CompanionLibrary& standin);
/// The local folder behind \\HOST1\C$.
void setStandinShare(CompanionLibrary& standin, const std::string& folder);

}  // namespace varnhold::platform::posix
