#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

/// What the manager readies and needs on its own computer: the agent's library and two files.
namespace varnhold::companion {

/// Is the library there? It is named without its ending, as for LoadLibrary.
[[nodiscard]] bool hasLibrary(const std::filesystem::path& library);

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
