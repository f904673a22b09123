#pragma once

#include <filesystem>
#include <string>

namespace varnhold::provision {

/// What a home holds, by the names that stand in it.
inline constexpr const char* kDatabaseFile = "qrvdbv3.mdb";
inline constexpr const char* kRegistryFile = "registry.reg";
inline constexpr const char* kInstallerFolder = "RemoteInstaller";
inline constexpr const char* kAgentFolder = "Agent";
inline constexpr const char* kLabFolder = "lab";
inline constexpr const char* kSystemListFile = "systems.txt";
inline constexpr const char* kAccountFile = "ntlm-users";

/// The longest path of a home, in bytes of UTF-8: registry texts are read into 1,024 bytes, and file names
/// follow.
inline constexpr std::size_t kLongestHome = 900;

/// The full path of the home that was asked for, in the host's form, without a separator at its end. Raises
/// kPathFileAccess for a path that no home can have: too long, or with letters that the product's paths, the
/// registry or odbc.ini cannot hold.
[[nodiscard]] std::filesystem::path resolveHome(const std::string& asked);

/// Raises kPathFileAccess when there is something else than a folder at the path.
void refuseWhatIsNoFolder(const std::filesystem::path& home);

/// Raises kPathFileAccess, naming what was found and where, when the home holds data of the product. An
/// `unfinished` home may hold what provisioning itself makes. Files of others, programs, libraries and
/// `odbc.ini` are no data, nor is an empty file.
void refuseData(const std::filesystem::path& home, bool unfinished);

/// Removes what provisioning makes, `odbc.ini` excepted; true when nothing of it is left.
[[nodiscard]] bool removeUnfinished(const std::filesystem::path& home) noexcept;

}  // namespace varnhold::provision
