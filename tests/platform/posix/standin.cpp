#include "tests/platform/posix/standin.h"

#include "tests/platform/posix/standin_library.h"

namespace varnhold::platform::posix {

std::unique_ptr<CompanionLibrary> makeStandin() {
  auto standin = std::make_unique<CompanionLibrary>(std::vector<std::string>{VARNHOLD_STANDIN_FOLDER});
  standin->function<decltype(standinReset)>("standinReset")();
  return standin;
}

std::unique_ptr<CompanionLibrary> makeLackingStandin() {
  return std::make_unique<CompanionLibrary>(std::vector<std::string>{VARNHOLD_LACKING_FOLDER});
}

std::unique_ptr<CompanionLibrary> makeMissingStandin() {
  return std::make_unique<CompanionLibrary>(
      std::vector<std::string>{"/nonexistent/home", "/nonexistent/lib"});
}

std::string standinCalls(CompanionLibrary& standin) {
  return standin.function<decltype(standinCallLog)>("standinCallLog")();
}

void setStandinShare(CompanionLibrary& standin, const std::string& folder) {
  standin.function<decltype(standinSetShare)>("standinSetShare")(folder.c_str());
}

}  // namespace varnhold::platform::posix
