#include "companion/local_calls.h"

#include <algorithm>

#include "companion/agent_mode.h"
#include "companion/agent_product.h"
#include "companion/host.h"
#include "companion/ini_text.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kUpgradeMode = 0;  ///< standard too, as an upgrade says it
constexpr std::size_t kLargestFile = 16U << 20;

/// The lock lies beside the folders, so that it does not go to a target with their files.
std::unique_ptr<Hold> lockMaterial(const fs::path& folder) {
  return host::lockFile(folder.parent_path() / "material.lock");
}

bool isPlain(const std::string& text) {
  return !text.empty() &&
         std::none_of(text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; });
}

}  // namespace

bool hasLibrary(const fs::path& library) {
  fs::path withEnding = library;
  withEnding += ".dll";
  std::error_code error;
  return fs::is_regular_file(library, error) || fs::is_regular_file(withEnding, error);
}

bool editAgentConfiguration(const fs::path& agentLibrary, const fs::path& agentFolder,
                            const fs::path& iniFile, std::int32_t mode) {
  if (mode != kUpgradeMode && mode != kStandardMode && mode != kHighPerformanceMode) return false;
  std::error_code error;
  if (!fs::is_directory(agentFolder, error) || !hasLibrary(agentLibrary)) return false;
  const auto lock = lockMaterial(agentFolder);
  const auto bytes = readWhole(iniFile, kLargestFile);
  if (!bytes || bytes->find('\0') != std::string::npos) return false;
  IniText ini(*bytes);
  setHighPerformance(ini, mode == kHighPerformanceMode);
  const std::string text = ini.text();
  return text == *bytes || host::replaceFile(iniFile, text) == kDone;
}

bool writeSetupInformation(const fs::path& libraryFolder, const SetupInformation& setup) {
  if (!isPlain(setup.systemName) || !isPlain(setup.installDirectory) || !isPlain(setup.managerName))
    return false;
  std::error_code error;
  if (!fs::is_directory(libraryFolder, error)) return false;
  const auto lock = lockMaterial(libraryFolder);
  IniText ini;
  ini.setValue("Setup", "System", setup.systemName);
  ini.setValue("Setup", "InstallDirectory", setup.installDirectory);
  ini.setValue("Setup", "Mode", std::to_string(setup.mode));
  ini.setValue("Setup", "Manager", setup.managerName);
  return host::replaceFile(resolveIgnoringCase(libraryFolder, {std::string(kSetupFile)}), ini.text()) ==
         kDone;
}

}  // namespace varnhold::companion
