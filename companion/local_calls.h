#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

/// The two files that the manager readies for an install.
namespace varnhold::companion {

/// `qrvCReadNWriteVhaConfigINI4Turbo`: sets the key HighPerformance of the section Performance to 0 for the
/// modes 0 and 1, to 1 for mode 5; all other lines stay as they are. False when the ini file or the agent's
/// library is missing or cannot be used, and for any other mode.
[[nodiscard]] bool editAgentConfiguration(const std::filesystem::path& agentLibrary,
                                          const std::filesystem::path& agentFolder,
                                          const std::filesystem::path& iniFile, std::int32_t mode);

/// What `vhsetup.ins` tells the agent's set-up.
struct SetupInformation {
  std::string systemName, installDirectory, managerName;
  std::int32_t mode = 0;
};

/// `qrvCCreateConfigurationFile`: writes `vhsetup.ins` into the library's folder; false when that cannot be
/// written, or a text is empty or holds control characters.
[[nodiscard]] bool writeSetupInformation(const std::filesystem::path& libraryFolder,
                                         const SetupInformation& setup);

}  // namespace varnhold::companion
