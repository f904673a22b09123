#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "platform/closed_libraries.h"
#include "tests/fakes/fake_threads.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// One computer of the network as the closed library meets it. Exit codes are 1000 plus the result code.
struct FakeComputer {
  std::optional<std::string> address = "10.1.1.1";  ///< nothing: the name does not resolve
  std::string nameWrittenBack{};                    ///< by qrvGetSystemIPAddress, when not empty
  bool answers = true;
  bool canBeStored = true;  ///< the result of qrvUpdateSystemDetailsInDB
  std::string resolvedName{};
  std::int32_t systemType = 7, osMajorVersion = 5;
  std::int32_t configurationResult = 1;  ///< of qrvCCreateConfigurationFile
  std::uint32_t installExit = 1150, uninstallExit = 1152, upgradeExit = 1700;
  /// What each check of the version ends with, the last one again and again; `kNoThread` starts none.
  std::vector<std::uint32_t> versionExits = {4000};
  static constexpr std::uint32_t kNoThread = 0xFFFF'FFFF;
  bool startsThreads = true;
  bool restartsServices = true;
  int polls = 0;  ///< how often a job is found still running
  std::optional<std::string> programFiles = R"(C:\Program Files)";  ///< nothing: the registry does not answer
};

/// `qrvUtil` over computers in memory. A name is looked up without leading backslashes, cut at its first NUL,
/// without blanks at its ends and without regard to case; a computer that is not in the list does not resolve
/// and does not answer. Journal lines name the function, its arguments in order and the result:
///   qrvCInstall [SystemName=HOST1, InstallDirectory=C:\A, AgentMode=1] C:\I\remins -> 7
///   qrvGetSystemIPAddress HOST1 -> 1
///   qrvCVHCheckVersion C:\A\vhagent HOST1 -> 7
///   qrvNetOpGetSystem HOST1
///   qrvRestartService HOST1 Varnhold Agent -> 1
///   qrvInitDbConnection
///   qrvNetworkEnum -> 7
///   qrvGetNetAccessMode -> 1 mode 0
///   qrvSetNetAccessMode 1 -> 1
///   qrvCheckIfBelongsToSubnet 10.1.1.1 10.1.1.0 -> 1
///   fnLogRight HOST1 01 05 -> 0
/// The job stands with its fields that are neither empty nor 0, in the record's order.
class FakeClosedLibraries : public platform::ClosedLibraries {
 public:
  FakeClosedLibraries(Journal& journal, FakeThreads& threads) : journal_(journal), threads_(threads) {}

  std::map<std::string, FakeComputer> computers;  ///< by name in upper case
  bool iniEdits = true;                           ///< the result of qrvCReadNWriteVhaConfigINI4Turbo
  std::optional<std::uint8_t> netAccessMode;      ///< the stored discovery mode; nothing: none was saved
  bool storesNetAccessMode = true;                ///< the registry takes the mode
  bool startsEnumeration = true;                  ///< qrvNetworkEnum gives a thread
  int enumerationPolls = 0;                       ///< how often its thread is found still running
  std::uint32_t enumerationExit = 1000;
  std::function<void()> onEnumeration;  ///< called as the thread starts, to add rows
  /// The answer of qrvCheckIfBelongsToSubnet; without one, an address belongs to "a.b.c.0" when its first
  /// three parts are the subnet's.
  std::function<bool(const std::string& address, const std::string& subnet)> belongs;
  std::int32_t logRightResult = 0;               ///< of fnLogRight
  std::map<std::string, RuntimeError> failures;  ///< raised by the function of that name
  /// Called with a job inside the function that starts it, to change its strings.
  std::function<void(platform::DeploymentJob&)> onJob;
  /// Called when details are stored, to add the row to an inventory.
  std::function<void(const platform::SystemDetails&)> onStore;
  /// Called when a computer is refreshed, to change its row.
  std::function<void(const std::string& systemName)> onRefresh;

  platform::ThreadHandle qrvCInstall(platform::DeploymentJob& job, const std::string& libraryPath) override;
  platform::ThreadHandle qrvCUninstall(platform::DeploymentJob& job, const std::string& libraryPath) override;
  platform::ThreadHandle qrvCUpgradeAgent(platform::DeploymentJob& job,
                                          const std::string& libraryPath) override;
  platform::ThreadHandle qrvCUpgradeAgentOverIP(const std::string& agentLibraryPath,
                                                platform::DeploymentJob& job) override;
  std::int32_t qrvCCreateConfigurationFile(const std::string& libraryPath, std::string& systemName,
                                           std::string& installDirectory, std::int32_t agentMode) override;
  bool qrvCReadNWriteVhaConfigINI4Turbo(const std::string& agentLibraryPath, const std::string& agentFolder,
                                        const std::string& iniPath, std::int32_t mode) override;
  bool qrvGetSystemIPAddress(std::string& systemName, std::string& address) override;
  bool qrvFindSystemAndReturnDetails(platform::SystemDetails& details) override;
  bool qrvUpdateSystemDetailsInDB(platform::SystemDetails& details) override;
  platform::ThreadHandle qrvCVHCheckVersion(const std::string& agentLibraryPath,
                                            std::string& systemName) override;
  void qrvNetOpGetSystem(const std::string& systemName) override;
  std::int32_t qrvRestartService(const std::string& computer, const std::string& service) override;
  bool qrvChkRmtRegNGetPrgFilePath(const std::string& computer, std::string& path) override;
  void qrvInitDbConnection() override;
  void qrvCloseDbConnection() override;
  void qrvNetworkEnum(platform::ThreadHandle& thread) override;
  std::int16_t qrvGetNetAccessMode(std::uint8_t& mode) override;
  std::int16_t qrvSetNetAccessMode(std::uint8_t mode) override;
  std::int32_t qrvCheckIfBelongsToSubnet(const std::string& address, const std::string& subnet) override;
  std::int32_t fnLogRight(const std::u16string& system, std::vector<std::uint8_t>& sid) override;

 private:
  [[nodiscard]] const FakeComputer* find(std::string_view name) const;
  void raiseIfTold(const std::string& function);
  platform::ThreadHandle startJob(const std::string& function, platform::DeploymentJob& job,
                                  const std::string& libraryPath, std::uint32_t FakeComputer::*exitCode);

  Journal& journal_;
  FakeThreads& threads_;
  std::map<std::string, std::size_t> versionChecks_;  ///< how many there were, by name
};

}  // namespace varnhold::fakes
