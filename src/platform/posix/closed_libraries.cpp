#include "platform/closed_libraries.h"

#include "platform/posix/adapters.h"
#include "platform/posix/library_buffers.h"

namespace varnhold::platform::posix {
namespace {

/// What qrvCInstall, qrvCUninstall and qrvCUpgradeAgent are.
using StartJob = decltype(::qrvCInstall);

ThreadHandle handleOf(QrvThread thread) {
  return reinterpret_cast<ThreadHandle>(thread);
}

class CompanionClosedLibraries : public ClosedLibraries {
 public:
  CompanionClosedLibraries(CompanionLibrary& companion, CompanionLibrary& logonControl)
      : companion_(companion), logonControl_(logonControl) {}

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
    const auto upgrade = companion_.function<decltype(::qrvCUpgradeAgentOverIP)>("qrvCUpgradeAgentOverIP");
    TextBuffer path(agentLibraryPath), name(job.SystemName, kQrvSystemNameSize), config(job.ConfigFile);
    const auto thread = handleOf(upgrade(path.data(), name.data(), job.AgentMode, job.OSFlag, config.data(),
                                         job.RemedialFlag, job.UseDefaultConfig));
    job.SystemName = name.uncut(job.SystemName.size());
    job.ConfigFile = config.uncut(job.ConfigFile.size());
    return thread;
  }

  std::int32_t qrvCCreateConfigurationFile(const std::string& libraryPath, std::string& systemName,
                                           std::string& installDirectory, std::int32_t agentMode) override {
    const auto create =
        companion_.function<decltype(::qrvCCreateConfigurationFile)>("qrvCCreateConfigurationFile");
    TextBuffer path(libraryPath), name(systemName, kQrvSystemNameSize), folder(installDirectory);
    const auto result = create(path.data(), name.data(), folder.data(), agentMode);
    systemName = name.text();
    installDirectory = folder.text();
    return result;
  }

  bool qrvCReadNWriteVhaConfigINI4Turbo(const std::string& agentLibraryPath, const std::string& agentFolder,
                                        const std::string& iniPath, std::int32_t mode) override {
    const auto edit =
        companion_.function<decltype(::qrvCReadNWriteVhaConfigINI4Turbo)>("qrvCReadNWriteVhaConfigINI4Turbo");
    TextBuffer path(agentLibraryPath), folder(agentFolder), ini(iniPath);
    return edit(path.data(), folder.data(), ini.data(), mode) != 0;
  }

  bool qrvGetSystemIPAddress(std::string& systemName, std::string& address) override {
    const auto ask = companion_.function<decltype(::qrvGetSystemIPAddress)>("qrvGetSystemIPAddress");
    TextBuffer name(systemName, kQrvSystemNameSize), dotted({}, kQrvAddressSize);
    const bool resolves = ask(name.data(), dotted.data()) != 0;
    systemName = name.text();
    address = dotted.uncut();
    return resolves;
  }

  bool qrvFindSystemAndReturnDetails(SystemDetails& details) override {
    const auto ask =
        companion_.function<decltype(::qrvFindSystemAndReturnDetails)>("qrvFindSystemAndReturnDetails");
    return exchange(ask, details);
  }

  bool qrvUpdateSystemDetailsInDB(SystemDetails& details) override {
    const auto store =
        companion_.function<decltype(::qrvUpdateSystemDetailsInDB)>("qrvUpdateSystemDetailsInDB");
    return exchange(store, details);
  }

  ThreadHandle qrvCVHCheckVersion(const std::string& agentLibraryPath, std::string& systemName) override {
    const auto check = companion_.function<decltype(::qrvCVHCheckVersion)>("qrvCVHCheckVersion");
    TextBuffer path(agentLibraryPath), name(systemName, kQrvSystemNameSize);
    const auto thread = handleOf(check(path.data(), name.data()));
    systemName = name.text();
    return thread;
  }

  void qrvNetOpGetSystem(const std::string& systemName) override {
    const auto refresh = companion_.function<decltype(::qrvNetOpGetSystem)>("qrvNetOpGetSystem");
    TextBuffer name(systemName, kQrvSystemNameSize);
    refresh(name.data());
  }

  std::int32_t qrvRestartService(const std::string& computer, const std::string& service) override {
    const auto restart = companion_.function<decltype(::qrvRestartService)>("qrvRestartService");
    TextBuffer machine(computer, kQrvSystemNameSize), name(service);
    return restart(machine.data(), name.data());
  }

  bool qrvChkRmtRegNGetPrgFilePath(const std::string& computer, std::string& path) override {
    const auto ask =
        companion_.function<decltype(::qrvChkRmtRegNGetPrgFilePath)>("qrvChkRmtRegNGetPrgFilePath");
    TextBuffer name(computer, kQrvSystemNameSize), folder({}, kQrvFolderSize);
    const bool answers = ask(name.data(), folder.data()) != 0;
    path = folder.uncut();
    return answers;
  }

  void qrvInitDbConnection() override {
    companion_.function<decltype(::qrvInitDbConnection)>("qrvInitDbConnection")();
  }

  void qrvCloseDbConnection() override {
    companion_.function<decltype(::qrvCloseDbConnection)>("qrvCloseDbConnection")();
  }

  void qrvNetworkEnum(ThreadHandle& thread) override {
    QrvThread started = nullptr;
    companion_.function<decltype(::qrvNetworkEnum)>("qrvNetworkEnum")(&started);
    thread = handleOf(started);
  }

  std::int16_t qrvGetNetAccessMode(std::uint8_t& mode) override {
    std::uint8_t stored = 0;
    const auto exists = companion_.function<decltype(::qrvGetNetAccessMode)>("qrvGetNetAccessMode")(&stored);
    if (exists != 0) mode = stored;
    return exists;
  }

  std::int16_t qrvSetNetAccessMode(std::uint8_t mode) override {
    return companion_.function<decltype(::qrvSetNetAccessMode)>("qrvSetNetAccessMode")(mode);
  }

  std::int32_t qrvCheckIfBelongsToSubnet(const std::string& address, const std::string& subnet) override {
    const auto check =
        companion_.function<decltype(::qrvCheckIfBelongsToSubnet)>("qrvCheckIfBelongsToSubnet");
    TextBuffer dotted(address), range(subnet);
    return check(dotted.data(), range.data());
  }

  std::int32_t fnLogRight(const std::u16string& system, std::vector<std::uint8_t>& sid) override {
    return logonControl_.function<decltype(::fnLogRight)>("fnLogRight")(system.c_str(), sid.data());
  }

 private:
  ThreadHandle startJob(const char* function, DeploymentJob& job, const std::string& libraryPath) {
    const auto start = companion_.function<StartJob>(function);
    JobRecord record(job);
    TextBuffer path(libraryPath);
    const auto thread = handleOf(start(record.get(), path.data()));
    record.readBack(job);
    return thread;
  }

  static bool exchange(decltype(::qrvFindSystemAndReturnDetails)* function, SystemDetails& details) {
    DetailsRecord record(details);
    const bool done = function(record.get()) != 0;
    record.readBack(details);
    return done;
  }

  CompanionLibrary& companion_;
  CompanionLibrary& logonControl_;
};

}  // namespace

std::unique_ptr<ClosedLibraries> makeClosedLibraries(CompanionLibrary& companion,
                                                     CompanionLibrary& logonControl) {
  return std::make_unique<CompanionClosedLibraries>(companion, logonControl);
}

}  // namespace varnhold::platform::posix
