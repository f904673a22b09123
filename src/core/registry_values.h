#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/registry.h"

/// Everything the program depends on in the registry, as data: the reference for people and for the tool that
/// sets up a home come from here. All keys lie under HKEY_LOCAL_MACHINE.
namespace varnhold::core {

inline constexpr const char* kQuorvaneKey = R"(SOFTWARE\Kelmont Works\Quorvane)";
inline constexpr const char* kManagerKey = R"(SOFTWARE\Kelmont Works\Varnhold\Manager)";
inline constexpr const char* kAgentKey =
    R"(SOFTWARE\Kelmont Works\Varnhold\Agent)";  ///< of this computer's agent
inline constexpr const char* kWindowsChangesKey = R"(SOFTWARE\Kelmont Works\TKWindows)";
inline constexpr const char* kFileChangesKey = R"(SOFTWARE\Kelmont Works\TKWFileTracker)";
inline constexpr const char* kRegistryChangesKey = R"(SOFTWARE\Kelmont Works\TKWRegTracker)";
inline constexpr const char* kExplorerKey = R"(SOFTWARE\Kelmont Works\qrvExplorer)";
inline constexpr const char* kHestrayKey = R"(SOFTWARE\Kelmont Works\Hestray)";
inline constexpr const char* kDataSourcesKey = R"(SOFTWARE\ODBC\ODBC.INI\ODBC Data Sources)";

/// One value of the registry. The last four members are words for people.
struct RegistryValueEntry {
  std::string_view key;
  std::string_view name;
  platform::RegistryType type;
  std::string_view whenMissing;
  std::string_view readBy;
  std::string_view writtenBy;
  std::string_view use;
};

/// Every value that the program reads or writes, key by key.
inline constexpr std::array kRegistryValues = {
    RegistryValueEntry{kQuorvaneKey, "DBPath", platform::kRegText, "the folder of the program", "start-up",
                       "nobody", "folder of the inventory's database file"},
    RegistryValueEntry{kQuorvaneKey, "MaxDBSize", platform::kRegNumber, "500, and that is written back",
                       "frmCompactDB", "frmCompactDB",
                       "size of the database file, in megabytes, at which compaction is suggested"},
    RegistryValueEntry{kQuorvaneKey, "NetAccessMode", platform::kRegNumber,
                       "the operator is asked at the next start", "qrvGetNetAccessMode",
                       "qrvSetNetAccessMode",
                       "discovery mode: 0 the operator adds computers, any other number automatic"},
    RegistryValueEntry{kQuorvaneKey, "LocalRootDir", platform::kRegText, "none", "mnuHelpSupport", "nobody",
                       "folder of the support tool"},
    RegistryValueEntry{
        kManagerKey, "INSTALLPATH", platform::kRegText, "the agent commands stay off",
        "start-up, mnuHelpAbout, ConsolePath", "nobody",
        "install folder of the Manager; its RemoteInstaller holds what is installed on targets"},
    RegistryValueEntry{kManagerKey, "SWINSTALLPATH", platform::kRegText, "the trap console is not offered",
                       "start-up", "nobody", "install folder of the trap product"},
    RegistryValueEntry{kManagerKey, "VHVersion", platform::kRegText, "\"-Not Installed-\" is shown",
                       "frmComponents, frmAbout", "nobody", "version of Varnhold, for display"},
    RegistryValueEntry{kManagerKey, "SWVersion", platform::kRegText, "\"-Not Installed-\" is shown",
                       "frmComponents", "nobody", "version of the trap product, for display"},
    RegistryValueEntry{kManagerKey, "MpDbResend", platform::kRegNumber, "none", "the product's services",
                       "RequestManagerResync",
                       "set to 1 after each change of the inventory, so that the services read it again"},
    RegistryValueEntry{kAgentKey, "InstallPath", platform::kRegText, "none",
                       "the wizard, mnuToolsConfigureClient", "nobody",
                       "install folder of the agent on this computer"},
    RegistryValueEntry{
        kAgentKey, "gPollingFreq", platform::kRegText, "taken as 1 hour", "the wizard", "the wizard",
        "how often agentless systems are polled: hours and minutes without leading zeros, as in 0:15"},
    RegistryValueEntry{kAgentKey, "gPollStartTime", platform::kRegText, "taken as 0:0", "the wizard",
                       "the wizard", "time of day from which polling counts, in the same form"},
    RegistryValueEntry{kAgentKey, "ConfigIPAddr", platform::kRegText, "none", "the product's services",
                       "frmTargets on load", "address of this computer, stored without a closing NUL"},
    RegistryValueEntry{kAgentKey, "enableprotection", platform::kRegNumber, "none", "the product's services",
                       "frmTargets on load", "always 1, written right after ConfigIPAddr"},
    RegistryValueEntry{kWindowsChangesKey, "LocalRootDir", platform::kRegText,
                       "the next product is looked for", "start-up", "nobody",
                       "install folder of Tessmark? for Windows"},
    RegistryValueEntry{kWindowsChangesKey, "Version", platform::kRegText, "\"-Not Installed-\" is shown",
                       "frmComponents", "nobody", "version of Tessmark? for Windows, for display"},
    RegistryValueEntry{kFileChangesKey, "LocalRootDir", platform::kRegText, "the next product is looked for",
                       "start-up", "nobody", "install folder of Tessmark? for Files"},
    RegistryValueEntry{kFileChangesKey, "Version", platform::kRegText, "\"-Not Installed-\" is shown",
                       "frmComponents", "nobody", "version of Tessmark? for Files, for display"},
    RegistryValueEntry{kRegistryChangesKey, "LocalRootDir", platform::kRegText, "no such product is offered",
                       "start-up", "nobody", "install folder of Tessmark? for Registry"},
    RegistryValueEntry{kRegistryChangesKey, "Version", platform::kRegText, "\"-Not Installed-\" is shown",
                       "frmComponents", "nobody", "version of Tessmark? for Registry, for display"},
    RegistryValueEntry{kExplorerKey, "Version", platform::kRegText, "\"-Not Installed-\" is shown",
                       "frmComponents", "nobody", "version of the system explorer, for display"},
    RegistryValueEntry{kHestrayKey, "Version", platform::kRegText, "\"-Not Installed-\" is shown",
                       "frmComponents", "nobody", "version of Hestray, for display"},
    RegistryValueEntry{kDataSourcesKey, "qrvdb", platform::kRegText, "taken as empty", "frmDeleteSystems",
                       "nobody", "name of the database driver behind the inventory"},
};

/// The table as Markdown: a heading line, a rule, one line for each value, each closed by LF.
[[nodiscard]] std::string registryValuesAsMarkdown();

}  // namespace varnhold::core
