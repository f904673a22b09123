// A companion library for the tests of the adapters: one computer, HOST1, a log of calls, threads that are
// numbers.
#include "tests/platform/posix/standin_library.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>

namespace {

constexpr uint32_t kPathNotFound = 53, kNoSuchService = 1060, kNotActive = 1062,
                   kInvalidServiceAccount = 1057, kInsufficientBuffer = 122, kNoneMapped = 1332,
                   kAlreadyRunning = 1056, kServerUnavailable = 1722;

struct State {
  std::string calls, share;
  std::string serviceAccount = "LocalSystem";
  bool serviceRuns = false;
  uint8_t mode = 77;
  bool hasMode = false;
};

struct Thread {
  uint32_t exitCode;
};

State& state() {
  static State only;
  return only;
}

std::string capitals(std::string text) {
  for (auto& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

bool isHost1(const std::string& name) {
  return capitals(name) == "HOST1" || capitals(name) == R"(\\HOST1)";
}

void note(const std::string& line) {
  state().calls += line + "\n";
}

bool isAllNul(const char* buffer, size_t size) {
  return std::all_of(buffer, buffer + size, [](char c) { return c == '\0'; });
}

QrvThread startJob(const char* function, QrvDeploymentJob* job, const char* libraryPath) {
  std::string line = function;
  for (const char* text : {job->Spare0, job->SystemName, job->Spare2, job->Spare3, job->Spare4,
                           job->InstallDirectory, job->Spare6, job->Spare7, job->KeepSnapshots, job->Spare9,
                           job->ServiceUser, job->ServicePassword, job->ConfigFile}) {
    line += "|" + std::string(text);
  }
  for (const int number : {int{job->OSFlag}, int{job->AgentKind}, int{job->AgentMode}, int{job->RemedialFlag},
                           int{job->UseDefaultConfig}}) {
    line += "|" + std::to_string(number);
  }
  note(line + "|" + libraryPath);
  const bool known = isHost1(job->SystemName);
  std::memcpy(job->SystemName, capitals(job->SystemName).data(), std::strlen(job->SystemName));
  return known ? standinStartThread(1150) : nullptr;
}

}  // namespace

void standinReset() {
  state() = State{};
}
const char* standinCallLog() {
  return state().calls.c_str();
}
void standinSetShare(const char* folder) {
  state().share = folder;
}
QrvThread standinStartThread(uint32_t exitCode) {
  return new Thread{exitCode};
}

QrvThread qrvCInstall(QrvDeploymentJob* job, char* libraryPath) {
  return startJob("install", job, libraryPath);
}
QrvThread qrvCUninstall(QrvDeploymentJob* job, char* libraryPath) {
  return startJob("uninstall", job, libraryPath);
}

QrvThread qrvCUpgradeAgent(QrvDeploymentJob* job, char* libraryPath) {
  return startJob("upgrade", job, libraryPath);
}

QrvThread qrvCUpgradeAgentOverIP(char* path, char* name, int32_t mode, int32_t flag, char* config,
                                 uint8_t remedial, uint8_t byDefault) {
  note(std::string("upgrade over IP|") + path + "|" + name + "|" + std::to_string(mode) + "|" +
       std::to_string(flag) + "|" + config + "|" + std::to_string(remedial) + "|" +
       std::to_string(byDefault));
  *config = 'X';
  return standinStartThread(1150);
}

int32_t qrvCCreateConfigurationFile(char* libraryPath, char* systemName, char* installDirectory,
                                    int32_t agentMode) {
  note(std::string("configuration|") + libraryPath + "|" + systemName + "|" + installDirectory + "|" +
       std::to_string(agentMode));
  std::strcpy(systemName, "A name that is much longer than the one that was given");
  return 801;
}

int32_t qrvCReadNWriteVhaConfigINI4Turbo(char* agentLibraryPath, char* agentFolder, char* iniPath,
                                         int32_t mode) {
  note(std::string("turbo|") + agentLibraryPath + "|" + agentFolder + "|" + iniPath + "|" +
       std::to_string(mode));
  return mode == 5 ? 7 : 0;
}

int32_t qrvGetSystemIPAddress(char* systemName, char* address) {
  if (!isAllNul(address, kQrvAddressSize)) return 0;
  if (std::string(systemName) == "ALIAS") {
    std::memset(systemName, 'N', kQrvSystemNameSize - 1);
    systemName[kQrvSystemNameSize - 1] = '\0';
  } else if (!isHost1(systemName)) {
    return 0;
  }
  std::strcpy(address, "10.1.1.11");
  return 1;
}

int32_t qrvFindSystemAndReturnDetails(QrvSystemDetails* details) {
  if (std::string(details->SystemName) == "FULL") {  // every buffer to its last byte, no NUL
    std::memset(details->SystemName, 'S', kQrvSystemNameSize);
    std::memset(details->ResolvedName, 'R', kQrvResolvedNameSize);
    std::memset(details->DetailsText1, '1', kQrvText1Size);
    std::memset(details->DetailsText2, '2', kQrvText2Size);
    return 1;
  }
  const bool isFresh = isAllNul(details->ResolvedName, kQrvResolvedNameSize) &&
                       isAllNul(details->DetailsText1, kQrvText1Size) &&
                       isAllNul(details->DetailsText2, kQrvText2Size);
  if (!isHost1(details->SystemName) || !isFresh) return 0;
  std::strcpy(details->ResolvedName, "HOST1.corp.example");
  details->OSMajorVersion = 6;
  details->SystemType = 7;
  return 1;
}

int32_t qrvUpdateSystemDetailsInDB(QrvSystemDetails* details) {
  note(std::string("update|") + details->SystemName + "|" + std::to_string(details->DetailLevel) + "|" +
       std::to_string(details->DetailsReserved1) + "|" + details->ResolvedName + "|" +
       std::to_string(details->OSMajorVersion) + "|" + std::to_string(details->DetailsReserved2) + "|" +
       std::to_string(details->SystemType) + "|" + details->DetailsText1 + "|" + details->DetailsText2);
  return isHost1(details->SystemName) ? 1 : 0;
}

QrvThread qrvCVHCheckVersion(char* agentLibraryPath, char* systemName) {
  note(std::string("version|") + agentLibraryPath + "|" + systemName);
  return isHost1(systemName) ? standinStartThread(4000) : nullptr;
}

void qrvNetOpGetSystem(char* systemName) {
  note(std::string("refresh|") + systemName);
}

int32_t qrvRestartService(char* computer, char* service) {
  note(std::string("restart|") + computer + "|" + service);
  return isHost1(computer) ? -1 : 0;
}

int16_t qrvChkRmtRegNGetPrgFilePath(char* computer, char* path) {
  if (!isHost1(computer) || !isAllNul(path, kQrvFolderSize)) return 0;
  std::strcpy(path, R"(C:\Program Files)");
  return 1;
}

int32_t qrvInitDbConnection() {
  note("open connection");
  return 1;
}

int32_t qrvCloseDbConnection() {
  note("close connection");
  return 1;
}

int32_t qrvNetworkEnum(QrvThread* thread) {
  *thread = standinStartThread(1000);
  return 1;
}

int16_t qrvGetNetAccessMode(uint8_t* mode) {
  *mode = state().mode;  // also when there is none, as no caller may rely on it then
  return state().hasMode ? -1 : 0;
}

int16_t qrvSetNetAccessMode(uint8_t mode) {
  if (mode == 255) return 0;
  state().mode = mode;
  state().hasMode = true;
  return -1;
}

int32_t qrvCheckIfBelongsToSubnet(char* address, char* subnet) {
  return std::string(address) == "10.1.1.11" && std::string(subnet) == "10.1.1.0" ? 2 : 0;
}

int32_t qrvHostGetExitCodeThread(QrvThread thread, uint32_t* exitCode) {
  *exitCode = 0xDEAD;  // also when it fails, as no caller may rely on it then
  if (thread == nullptr) return 0;
  *exitCode = static_cast<Thread*>(thread)->exitCode;
  return 1;
}

int32_t qrvHostTerminateThread(QrvThread thread, uint32_t exitCode) {
  if (thread == nullptr) return 0;
  auto& ended = static_cast<Thread*>(thread)->exitCode;
  if (ended == 259) ended = exitCode;
  return 1;
}

void qrvHostCloseHandle(QrvThread thread) {
  delete static_cast<Thread*>(thread);
}

uint32_t qrvHostOpenServiceManager(const char* machine) {
  return isHost1(machine) ? 0 : kServerUnavailable;
}

uint32_t qrvHostOpenService(const char*, const char* service) {
  return capitals(service) == "VARNHOLD AGENT" ? 0 : kNoSuchService;
}

uint32_t qrvHostControlService(const char* machine, const char* service, uint32_t control) {
  note(std::string("control|") + machine + "|" + service + "|" + std::to_string(control));
  if (!state().serviceRuns) return kNotActive;
  state().serviceRuns = false;
  return 0;
}

uint32_t qrvHostStartService(const char* machine, const char* service) {
  note(std::string("start|") + machine + "|" + service);
  if (state().serviceRuns) return kAlreadyRunning;
  state().serviceRuns = true;
  return 0;
}

uint32_t qrvHostQueryServiceAccount(const char* machine, const char* service, char* account, uint32_t size,
                                    uint32_t* needed) {
  note(std::string("query|") + machine + "|" + service + "|" + std::to_string(size));
  *needed = static_cast<uint32_t>(state().serviceAccount.size() + 1);
  if (size < *needed) return kInsufficientBuffer;
  std::strcpy(account, state().serviceAccount.c_str());
  return 0;
}

uint32_t qrvHostChangeServiceAccount(const char* machine, const char* service, const char* account,
                                     const char* password) {
  note(std::string("change|") + machine + "|" + service + "|" + account + "|" + password);
  if (capitals(account) != "CORP\\SVC") return kInvalidServiceAccount;
  state().serviceAccount = account;
  return 0;
}

uint32_t qrvHostLookupAccountName(const char* machine, const char* account, uint8_t* sid, uint32_t* sidSize,
                                  char* domain, uint32_t* domainSize) {
  constexpr uint8_t kSid[] = {1, 1, 0, 0, 0, 0, 0, 5, 18, 0, 0, 0};
  constexpr const char* kDomain = "CORP";
  note(std::string("lookup|") + machine + "|" + account);
  if (capitals(account) != "CORP\\SVC") return kNoneMapped;
  const bool hasRoom = *sidSize >= sizeof kSid && *domainSize > std::strlen(kDomain);
  *sidSize = sizeof kSid;
  *domainSize = static_cast<uint32_t>(std::strlen(kDomain) + 1);
  if (!hasRoom) return kInsufficientBuffer;
  std::memcpy(sid, kSid, sizeof kSid);
  std::strcpy(domain, kDomain);
  return 0;
}

int32_t fnLogRight(const char16_t* system, uint8_t* sid) {
  std::string name;
  for (; *system != 0; ++system) name += static_cast<char>(*system);
  note("right|" + name + "|" + std::to_string(sid[0]) + "|" + std::to_string(sid[8]));
  sid[0] = 9;  // the library may change it
  return isHost1(name) ? 0 : 5;
}

uint32_t qrvHostOpenEventLog(const char* machine, const char* log) {
  note(std::string("log|") + machine + "|" + log);
  return isHost1(machine) ? 0 : kServerUnavailable;
}

uint32_t qrvHostConnectShare(const char* share, const char* account, const char* password) {
  note(std::string("connect|") + share + "|" + account + "|" + password);
  return kPathNotFound;
}

uint32_t qrvHostDisconnectShare(const char* share) {
  note(std::string("disconnect|") + share);
  return kPathNotFound;
}

uint32_t qrvHostSharePath(const char* uncPath, char* path) {
  const std::string prefix = R"(\\HOST1\C$)";
  const std::string whole = uncPath;
  if (capitals(whole).rfind(prefix, 0) != 0) return kPathNotFound;
  std::string local = state().share + whole.substr(prefix.size());
  std::replace(local.begin(), local.end(), '\\', '/');
  std::strncpy(path, local.c_str(), kQrvFolderSize - 1);
  return 0;
}
