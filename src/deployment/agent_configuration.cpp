#include "deployment/agent_configuration.h"

#include <array>

#include "base/text.h"
#include "core/mdCommon.h"
#include "deployment/result_catalogue.h"

namespace varnhold::deployment {
namespace {

constexpr std::int32_t kStandardMode = 1;
constexpr std::int32_t kHighPerformanceMode = 5;
constexpr std::int32_t kNoMode = 0;  ///< agentless, and the Tessmark agent
constexpr std::int32_t kConfigurationWritten = 1;

struct IniModes {
  DeploymentPath path;
  bool touched;
  std::int32_t standard, highPerformance;
};

// 0 and 1 both mean standard mode; that the paths differ is deliberate.
constexpr std::array<IniModes, 5> kIniModes{{
    {DeploymentPath::Install, true, 1, 5},
    {DeploymentPath::UpgradeOverDomain, true, 0, 5},
    {DeploymentPath::UpgradeOverIP, false, 0, 0},
    {DeploymentPath::Agentless, false, 0, 0},
    {DeploymentPath::Tessmark, false, 0, 0},
}};

Preparation createConfigurationFile(platform::ClosedLibraries& libraries, const std::string& productFolder,
                                    std::string& systemName, std::string& installDirectory,
                                    std::int32_t mode) {
  const bool written = libraries.qrvCCreateConfigurationFile(libraryPath(productFolder), systemName,
                                                             installDirectory, mode) == kConfigurationWritten;
  return {written, written ? 0 : kResultNoConfiguration};
}

}  // namespace

std::string libraryPath(const std::string& productFolder) {
  return productFolder + "\\remins";
}
std::string agentFolder(const std::string& installerDir) {
  return installerDir + "\\Agent";
}
std::string agentLibraryPath(const std::string& folder) {
  return folder + "\\vhagent";
}
std::string agentIniPath(const std::string& folder) {
  return folder + "\\vhaconfig.ini";
}

std::optional<std::int32_t> agentIniMode(DeploymentPath path, bool highPerformance) {
  for (const auto& modes : kIniModes) {
    if (modes.path == path && modes.touched) return highPerformance ? modes.highPerformance : modes.standard;
  }
  return std::nullopt;
}

bool prepareAgentIni(platform::ClosedLibraries& libraries, const std::string& installerDir,
                     std::int32_t mode) {
  const auto folder = agentFolder(installerDir);
  return libraries.qrvCReadNWriteVhaConfigINI4Turbo(agentLibraryPath(folder), folder, agentIniPath(folder),
                                                    mode);
}

Preparation prepareAgentInstall(platform::ClosedLibraries& libraries, const std::string& installerDir,
                                std::string& systemName, std::string& installDirectory,
                                std::int32_t agentMode, bool highPerformance) {
  const auto mode = agentIniMode(DeploymentPath::Install, highPerformance);
  if (mode && !prepareAgentIni(libraries, installerDir, *mode)) return {};
  return createConfigurationFile(libraries, installerDir, systemName, installDirectory, agentMode);
}

Preparation prepareTessmarkInstall(platform::ClosedLibraries& libraries, const std::string& changesRoot,
                                   std::string& systemName, std::string& installDirectory) {
  return createConfigurationFile(libraries, changesRoot, systemName, installDirectory, kNoMode);
}

std::int32_t overIPAgentMode(bool optAgentbased, std::int32_t chkHPMode) {
  if (!optAgentbased) return kNoMode;
  return chkHPMode != 0 ? kHighPerformanceMode : kStandardMode;
}

bool prepareOverIPUpgrade(core::Program& program, bool optAgentbased, std::int32_t chkHPMode) {
  // Copies: the library may write into its arguments, and these belong to the whole program.
  auto managerName = program.gLocalName;
  auto managerFolder = program.gInstallerDir;
  return createConfigurationFile(program.host.libraries, program.gInstallerDir, managerName, managerFolder,
                                 overIPAgentMode(optAgentbased, chkHPMode))
      .ready;
}

void writeConfigIPAddr(core::Host& host) {
  const auto computer = host.environment.getComputerName();
  if (!computer) return;
  auto name = TrimAtNull(*computer);
  std::string address;
  if (!host.libraries.qrvGetSystemIPAddress(name, address)) return;

  const auto set = [&host](const char* valueName, const platform::RegistryValue& value) {
    return host.registry.set(platform::RegistryHive::LocalMachine, core::kAgentKey, valueName, value) ==
           platform::RegistryOutcome::Done;
  };
  // The stored length leaves out the closing NUL.
  if (!set("ConfigIPAddr", {platform::kRegText, TrimAtNull(address)})) return;
  static_cast<void>(set("enableprotection", {platform::kRegNumber, std::string("\x01\0\0\0", 4)}));
}

}  // namespace varnhold::deployment
