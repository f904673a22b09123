#include "platform/closed_libraries.h"

#include "companion/include/qrvutil.h"
#include "companion/include/vhwlogonctrl.h"
#include "platform/windows/adapters.h"
#include "platform/windows/ansi_buffer.h"
#include "platform/windows/closed_library.h"
#include "platform/windows/library_records.h"

namespace varnhold::platform::windows {
namespace {

/// What qrvCInstall, qrvCUninstall and qrvCUpgradeAgent are.
using StartJob = decltype(::qrvCInstall);

ThreadHandle handleOf(QrvThread thread) {
  return reinterpret_cast<ThreadHandle>(thread);
}

/// A string that the library may overwrite but that nobody reads back.
AnsiBuffer given(const std::string& text) {
  return {text, kQrvSystemNameSize};
}

class WindowsClosedLibraries : public ClosedLibraries {
 public:
  explicit WindowsClosedLibraries(const std::string& folder)
      : qrvUtil_(folder, "qrvUtil.dll"), logonControl_(folder, "VhwLogonCtrl.dll") {}

  ThreadHandle qrvCInstall(DeploymentJob& job, const std::string& libraryPath) override {
    return startJob("qrvCInstall", job, libraryPath);
  }
  ThreadHandle qrvCUninstall(DeploymentJob& job, const std::string& libraryPath) override {
    return startJob("qrvCUninstall", job, libraryPath);
  }
  ThreadHandle qrvCUpgradeAgent(DeploymentJob& job, const std::string& libraryPath) override {
    return startJob("qrvCUpgradeAgent", job, libraryPath);
  }

  ThreadHandle qrvCUpgradeAgentOverIP(const std::string& agentLibraryPath, DeploymentJob& job) override {
    auto* const call = qrvUtil_.function<decltype(::qrvCUpgradeAgentOverIP)>("qrvCUpgradeAgentOverIP");
    auto path = given(agentLibraryPath);
    auto name = given(job.SystemName);
    auto config = given(job.ConfigFile);
    auto* const thread = call(path.data(), name.data(), job.AgentMode, job.OSFlag, config.data(),
                              job.RemedialFlag, job.UseDefaultConfig);
    name.readBackInOwnLength(job.SystemName);
    config.readBackInOwnLength(job.ConfigFile);
    return handleOf(thread);
  }

  std::int32_t qrvCCreateConfigurationFile(const std::string& libraryPath, std::string& systemName,
                                           std::string& installDirectory, std::int32_t agentMode) override {
    auto* const call =
        qrvUtil_.function<decltype(::qrvCCreateConfigurationFile)>("qrvCCreateConfigurationFile");
    auto path = given(libraryPath);
    auto name = given(systemName);
    auto directory = given(installDirectory);
    const auto result = call(path.data(), name.data(), directory.data(), agentMode);
    name.readBack(systemName);
    directory.readBack(installDirectory);
    return result;
  }

  bool qrvCReadNWriteVhaConfigINI4Turbo(const std::string& agentLibraryPath, const std::string& agentFolder,
                                        const std::string& iniPath, std::int32_t mode) override {
    auto* const call =
        qrvUtil_.function<decltype(::qrvCReadNWriteVhaConfigINI4Turbo)>("qrvCReadNWriteVhaConfigINI4Turbo");
    auto path = given(agentLibraryPath);
    auto folder = given(agentFolder);
    auto ini = given(iniPath);
    return call(path.data(), folder.data(), ini.data(), mode) != 0;
  }

  bool qrvGetSystemIPAddress(std::string& systemName, std::string& address) override {
    auto* const call = qrvUtil_.function<decltype(::qrvGetSystemIPAddress)>("qrvGetSystemIPAddress");
    auto name = given(systemName);
    AnsiBuffer filled("", kQrvAddressSize);
    const bool resolves = call(name.data(), filled.data()) != 0;
    name.readBack(systemName);
    address = filled.whole();
    return resolves;
  }

  bool qrvFindSystemAndReturnDetails(SystemDetails& details) override {
    return passDetails(
        qrvUtil_.function<decltype(::qrvFindSystemAndReturnDetails)>("qrvFindSystemAndReturnDetails"),
        details);
  }
  bool qrvUpdateSystemDetailsInDB(SystemDetails& details) override {
    return passDetails(
        qrvUtil_.function<decltype(::qrvUpdateSystemDetailsInDB)>("qrvUpdateSystemDetailsInDB"), details);
  }

  ThreadHandle qrvCVHCheckVersion(const std::string& agentLibraryPath, std::string& systemName) override {
    auto* const call = qrvUtil_.function<decltype(::qrvCVHCheckVersion)>("qrvCVHCheckVersion");
    auto path = given(agentLibraryPath);
    auto name = given(systemName);
    auto* const thread = call(path.data(), name.data());
    name.readBack(systemName);
    return handleOf(thread);
  }

  void qrvNetOpGetSystem(const std::string& systemName) override {
    auto* const call = qrvUtil_.function<decltype(::qrvNetOpGetSystem)>("qrvNetOpGetSystem");
    auto name = given(systemName);
    call(name.data());
  }

  std::int32_t qrvRestartService(const std::string& computer, const std::string& service) override {
    auto* const call = qrvUtil_.function<decltype(::qrvRestartService)>("qrvRestartService");
    auto machine = given(computer);
    auto name = given(service);
    return call(machine.data(), name.data());
  }

  bool qrvChkRmtRegNGetPrgFilePath(const std::string& computer, std::string& path) override {
    auto* const call =
        qrvUtil_.function<decltype(::qrvChkRmtRegNGetPrgFilePath)>("qrvChkRmtRegNGetPrgFilePath");
    auto name = given(computer);
    AnsiBuffer filled("", kQrvFolderSize);
    const bool wasRead = call(name.data(), filled.data()) != 0;
    path = filled.whole();
    return wasRead;
  }

  void qrvInitDbConnection() override {
    qrvUtil_.function<decltype(::qrvInitDbConnection)>("qrvInitDbConnection")();
  }
  void qrvCloseDbConnection() override {
    qrvUtil_.function<decltype(::qrvCloseDbConnection)>("qrvCloseDbConnection")();
  }

  void qrvNetworkEnum(ThreadHandle& thread) override {
    QrvThread started = nullptr;
    qrvUtil_.function<decltype(::qrvNetworkEnum)>("qrvNetworkEnum")(&started);
    thread = handleOf(started);
  }

  std::int16_t qrvGetNetAccessMode(std::uint8_t& mode) override {
    std::uint8_t stored = 0;
    const auto exists = qrvUtil_.function<decltype(::qrvGetNetAccessMode)>("qrvGetNetAccessMode")(&stored);
    if (exists != 0) mode = stored;
    return exists;
  }
  std::int16_t qrvSetNetAccessMode(std::uint8_t mode) override {
    return qrvUtil_.function<decltype(::qrvSetNetAccessMode)>("qrvSetNetAccessMode")(mode);
  }

  std::int32_t qrvCheckIfBelongsToSubnet(const std::string& address, const std::string& subnet) override {
    auto* const call = qrvUtil_.function<decltype(::qrvCheckIfBelongsToSubnet)>("qrvCheckIfBelongsToSubnet");
    auto dotted = given(address);
    auto range = given(subnet);
    return call(dotted.data(), range.data());
  }

  std::int32_t fnLogRight(const std::u16string& system, std::vector<std::uint8_t>& sid) override {
    return logonControl_.function<decltype(::fnLogRight)>("fnLogRight")(system.c_str(), sid.data());
  }

 private:
  ThreadHandle startJob(const char* function, DeploymentJob& job, const std::string& libraryPath) {
    auto* const call = qrvUtil_.function<StartJob>(function);
    JobRecord record(job);
    auto path = given(libraryPath);
    auto* const thread = call(record.data(), path.data());
    record.readBack(job);
    return handleOf(thread);
  }

  template <typename Function>
  bool passDetails(Function* call, SystemDetails& details) {
    DetailsRecord record(details);
    const bool done = call(record.data()) != 0;
    record.readBack(details);
    return done;
  }

  ClosedLibrary qrvUtil_, logonControl_;
};

}  // namespace

std::unique_ptr<ClosedLibraries> makeClosedLibraries(const std::string& folder) {
  return std::make_unique<WindowsClosedLibraries>(folder);
}

}  // namespace varnhold::platform::windows
