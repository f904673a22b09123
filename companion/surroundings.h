#pragma once

#include <filesystem>
#include <string>

namespace varnhold::companion {

/// What the companion needs to know of the manager that it works for.
struct Surroundings {
  std::filesystem::path labFolder;  ///< `<INSTALLPATH>\lab`; empty when INSTALLPATH cannot be read
  std::string managerName;          ///< the name of this computer, or "LocalHost"
  std::string agentVersion;         ///< of the agent that the manager brings along; empty: not registered
  /// `RemoteInstaller\remins` of the manager.
  std::filesystem::path materialFolder;
  /// Of the change-tracking product on this computer, the first of the three that the registry knows.
  std::filesystem::path changesFolder;
  std::string changesVersion;
};

/// The version of agents that are installed where the manager's own version is not registered.
inline constexpr const char* kUnregisteredVersion = "7.0";

/// Asks the host, afresh on every call: another home or installation may be in use by now. Raises what the
/// host's registry raises. Main thread.
[[nodiscard]] Surroundings readSurroundings();

}  // namespace varnhold::companion
