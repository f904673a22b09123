#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/threads.h"

namespace varnhold::platform {

/// The record of one remote job as it crosses to `qrvUtil`, fields in the order of that library. Strings are
/// UTF-8 here and 8-bit ANSI there; the library may overwrite each within its own length plus the closing
/// NUL, and they come back changed.
struct DeploymentJob {
  std::string Spare0;
  std::string SystemName;  ///< target computer; with leading `\\` for uninstall and upgrade over the domain
  std::string Spare2, Spare3, Spare4;
  std::string InstallDirectory;  ///< destination folder on the target
  std::string Spare6, Spare7;
  std::string KeepSnapshots;  ///< "1" or "0" when a Tessmark agent is uninstalled, else empty
  std::string Spare9;
  std::string ServiceUser;      ///< account of the agent service; empty: the default account
  std::string ServicePassword;  ///< its password; one blank when none was given for a named account
  std::string ConfigFile;       ///< custom agent configuration; empty: the default one
  std::int32_t OSFlag = 0;      ///< 6 when the target's `OSMajorVersion` is above 5, else 0
  std::uint8_t AgentKind = 0;   ///< install: 1 agentless, 2 agent based; uninstall: 1 agentless, else 0
  std::int32_t AgentMode = 0;   ///< 1 standard, 5 high performance, 0 agentless
  std::uint8_t RemedialFlag = 0;
  std::uint8_t UseDefaultConfig = 0;
};

/// The record that `qrvFindSystemAndReturnDetails` fills and `qrvUpdateSystemDetailsInDB` stores. Every
/// string crosses as a buffer filled with NULs to the stated length and comes back cut at its first NUL.
struct SystemDetails {
  static constexpr std::size_t kSystemNameLength = 256, kResolvedNameLength = 512, kText1Length = 256,
                               kText2Length = 64;

  std::string SystemName;  ///< in: the computer's name
  std::int32_t DetailLevel = 1;
  std::int32_t DetailsReserved1 = 0;
  std::string ResolvedName;         ///< out: the name as the network gives it
  std::int32_t OSMajorVersion = 0;  ///< out: above 5 is the Vista/2008 generation
  std::int32_t DetailsReserved2 = 0;
  std::int32_t SystemType = 0;  ///< out: a value of `System_Type`
  std::string DetailsText1, DetailsText2;
};

/// The closed libraries, loaded when a function of theirs is first called. A library that is missing raises
/// RuntimeError kFileNotFound, one that lacks the function kLibraryFunctionMissing; both say which file was
/// looked for, where, and what to do. String references may come back changed. Main thread.
class ClosedLibraries {
 public:
  virtual ~ClosedLibraries() = default;

  /// Starts a job thread, which ends with 1000 plus a result code; 0 when none was started. `libraryPath` is
  /// the folder of the installation material ("...\remins").
  [[nodiscard]] virtual ThreadHandle qrvCInstall(DeploymentJob& job, const std::string& libraryPath) = 0;
  [[nodiscard]] virtual ThreadHandle qrvCUninstall(DeploymentJob& job, const std::string& libraryPath) = 0;
  [[nodiscard]] virtual ThreadHandle qrvCUpgradeAgent(DeploymentJob& job, const std::string& libraryPath) = 0;
  /// Passes `SystemName`, `AgentMode`, `OSFlag`, `ConfigFile`, `RemedialFlag` and `UseDefaultConfig` of the
  /// job.
  [[nodiscard]] virtual ThreadHandle qrvCUpgradeAgentOverIP(const std::string& agentLibraryPath,
                                                            DeploymentJob& job) = 0;
  /// Starts the thread that asks a computer's agent for its version; 0 when none was started. The name may
  /// come back changed.
  [[nodiscard]] virtual ThreadHandle qrvCVHCheckVersion(const std::string& agentLibraryPath,
                                                        std::string& systemName) = 0;

  /// Writes `vhsetup.ins`; 1 on success.
  [[nodiscard]] virtual std::int32_t qrvCCreateConfigurationFile(const std::string& libraryPath,
                                                                 std::string& systemName,
                                                                 std::string& installDirectory,
                                                                 std::int32_t agentMode) = 0;
  /// Edits `vhaconfig.ini` for a mode (1 and 0 standard, 5 high performance); true on success.
  [[nodiscard]] virtual bool qrvCReadNWriteVhaConfigINI4Turbo(const std::string& agentLibraryPath,
                                                              const std::string& agentFolder,
                                                              const std::string& iniPath,
                                                              std::int32_t mode) = 0;
  /// True when the name resolves. `address` comes back from a buffer of 256 NULs, uncut; `systemName` may
  /// come back as the resolved name.
  [[nodiscard]] virtual bool qrvGetSystemIPAddress(std::string& systemName, std::string& address) = 0;
  /// True when the system was found and answered.
  [[nodiscard]] virtual bool qrvFindSystemAndReturnDetails(SystemDetails& details) = 0;
  /// Writes the row of `System_Table`; true on success.
  [[nodiscard]] virtual bool qrvUpdateSystemDetailsInDB(SystemDetails& details) = 0;
  /// Refreshes what the inventory knows of the computer over the network. Nothing is told of a failure.
  virtual void qrvNetOpGetSystem(const std::string& systemName) = 0;
  /// Stops and starts a service of a computer; 0 means failure.
  [[nodiscard]] virtual std::int32_t qrvRestartService(const std::string& computer,
                                                       const std::string& service) = 0;
  /// The program-files folder of a remote computer, from its registry, in a buffer of 1024 characters, uncut;
  /// false when it cannot be read.
  [[nodiscard]] virtual bool qrvChkRmtRegNGetPrgFilePath(const std::string& computer, std::string& path) = 0;

  /// Opens the library's own connection to the inventory, and closes it. Nothing is told of a failure.
  virtual void qrvInitDbConnection() = 0;
  virtual void qrvCloseDbConnection() = 0;
  /// Starts the thread that walks the network and enters what it finds in the inventory. `thread` receives
  /// its handle, 0 when none was started; the result of the call means nothing.
  virtual void qrvNetworkEnum(ThreadHandle& thread) = 0;
  /// The stored discovery mode, non-zero for automatic: non-zero when one exists, 0 when none was ever saved;
  /// `mode` is set only in the first case.
  [[nodiscard]] virtual std::int16_t qrvGetNetAccessMode(std::uint8_t& mode) = 0;
  /// Stores the discovery mode; 0 when it could not be stored.
  [[nodiscard]] virtual std::int16_t qrvSetNetAccessMode(std::uint8_t mode) = 0;
  /// Non-zero when the dotted address belongs to the subnet "a.b.c.0", whose trailing "0" parts stand for any
  /// value; an empty address gives 0.
  [[nodiscard]] virtual std::int32_t qrvCheckIfBelongsToSubnet(const std::string& address,
                                                               const std::string& subnet) = 0;

  /// Of the library `VhwLogonCtrl`: gives the account of that SID the service logon right on the computer, an
  /// empty name being this one; 0 when it holds it now.
  [[nodiscard]] virtual std::int32_t fnLogRight(const std::u16string& system,
                                                std::vector<std::uint8_t>& sid) = 0;
};

}  // namespace varnhold::platform
