// A closed library that writes into what it is given all that a library may, so that a test sees both ways of
// the boundary. It lacks qrvChkRmtRegNGetPrgFilePath.
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "companion/include/qrvutil.h"

namespace {

std::string number(long value) {
  return std::to_string(value);
}

bool isEmpty(const char* buffer, std::size_t size) {
  return std::all_of(buffer, buffer + size, [](char byte) { return byte == '\0'; });
}

void write(char* buffer, const std::string& text) {
  std::memcpy(buffer, text.c_str(), text.size() + 1);
}

DWORD WINAPI endWith(void* code) {
  return static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(code));
}

bool isHost1(const char* name) {
  return _stricmp(name, "HOST1") == 0;
}

QrvThread startThread(ULONG_PTR code) {
  return CreateThread(nullptr, 0, endWith, reinterpret_cast<void*>(code), 0, nullptr);
}

/// All that the record holds, in its order, between bars.
std::string shown(const QrvDeploymentJob& job) {
  std::string all;
  for (const auto* text :
       {job.Spare0, job.SystemName, job.Spare2, job.Spare3, job.Spare4, job.InstallDirectory, job.Spare6,
        job.Spare7, job.KeepSnapshots, job.Spare9, job.ServiceUser, job.ServicePassword, job.ConfigFile}) {
    all += std::string(text) + '|';
  }
  return all + number(job.OSFlag) + '|' + number(job.AgentKind) + '|' + number(job.AgentMode) + '|' +
         number(job.RemedialFlag) + '|' + number(job.UseDefaultConfig);
}

}  // namespace

/// The thread's code is 1150 when the record shows as the text at `libraryPath` says. The name comes back in
/// capitals.
QrvThread QRV_CALL qrvCInstall(QrvDeploymentJob* job, char* libraryPath) {
  const auto code = shown(*job) == libraryPath ? 1150 : 1000;
  if (isHost1(job->SystemName)) _strupr(job->SystemName);
  return startThread(static_cast<ULONG_PTR>(code));
}

/// Starts nothing; cuts the name, and changes a letter of the path and the numbers.
QrvThread QRV_CALL qrvCUninstall(QrvDeploymentJob* job, char*) {
  job->SystemName[3] = '\0';
  job->InstallDirectory[0] = 'X';
  job->OSFlag = 6;
  job->AgentKind = 2;
  job->AgentMode = 5;
  job->RemedialFlag = 1;
  job->UseDefaultConfig = 1;
  return nullptr;
}

QrvThread QRV_CALL qrvCUpgradeAgent(QrvDeploymentJob*, char* libraryPath) {
  return startThread(std::strlen(libraryPath));
}

QrvThread QRV_CALL qrvCUpgradeAgentOverIP(char* agentLibraryPath, char* systemName, int32_t agentMode,
                                          int32_t osFlag, char* configFile, uint8_t remedialFlag,
                                          uint8_t useDefaultConfig) {
  const auto all = std::string(agentLibraryPath) + '|' + systemName + '|' + number(agentMode) + '|' +
                   number(osFlag) + '|' + configFile + '|' + number(remedialFlag) + '|' +
                   number(useDefaultConfig);
  return startThread(all == "C:\\Agent\\vhagent|HOST1|5|6|own.ini|1|0" ? 1150 : 1000);
}

/// Gives the mode back; the name becomes longer than it was.
int32_t QRV_CALL qrvCCreateConfigurationFile(char* libraryPath, char* systemName, char* installDirectory,
                                             int32_t agentMode) {
  write(systemName, std::string(systemName) + "." + libraryPath + "." + installDirectory);
  return agentMode;
}

/// Non-zero when `mode` is the number of bytes in the agent folder's name.
int32_t QRV_CALL qrvCReadNWriteVhaConfigINI4Turbo(char* agentLibraryPath, char* agentFolder, char* iniPath,
                                                  int32_t mode) {
  const auto isInFolder = [&](const char* path) { return std::strstr(path, agentFolder) == path; };
  return isInFolder(agentLibraryPath) && isInFolder(iniPath) &&
         std::strlen(agentFolder) == static_cast<std::size_t>(mode);
}

/// Wants NULs behind the name and in the address. ALIAS becomes the longest name there is.
int32_t QRV_CALL qrvGetSystemIPAddress(char* systemName, char* address) {
  const auto length = std::strlen(systemName);
  if (!isEmpty(systemName + length, kQrvSystemNameSize - length) || !isEmpty(address, kQrvAddressSize))
    return 0;
  const bool isAlias = std::strcmp(systemName, "ALIAS") == 0;
  if (!isAlias && !isHost1(systemName)) return 0;
  if (isAlias) write(systemName, std::string(kQrvSystemNameSize - 1, 'N'));
  write(address, "10.1.1.11");
  return 1;
}

/// Wants NULs behind the name and in all other texts. FULL gets the most that the record holds.
int32_t QRV_CALL qrvFindSystemAndReturnDetails(QrvSystemDetails* details) {
  const auto length = std::strlen(details->SystemName);
  const bool isFresh = isEmpty(details->SystemName + length, kQrvSystemNameSize - length) &&
                       isEmpty(details->ResolvedName, kQrvResolvedNameSize) &&
                       isEmpty(details->DetailsText1, kQrvText1Size) &&
                       isEmpty(details->DetailsText2, kQrvText2Size) && details->DetailLevel == 1;
  if (!isFresh) return 0;
  if (std::strcmp(details->SystemName, "FULL") == 0) {
    // Without and with its NUL, and in the letters of code page 1252.
    std::memset(details->ResolvedName, 'R', kQrvResolvedNameSize);
    write(details->DetailsText1, std::string(kQrvText1Size - 1, '1'));
    write(details->DetailsText2,
          "Gr\xF6\xDF"
          "e");
    details->DetailsReserved1 = 11;
    details->OSMajorVersion = 5;
    details->DetailsReserved2 = 22;
    details->SystemType = 16;
    return 1;
  }
  if (!isHost1(details->SystemName)) return 0;
  write(details->ResolvedName, "HOST1.corp.example");
  details->OSMajorVersion = 6;
  details->SystemType = 7;
  return 1;
}

QrvThread QRV_CALL qrvCVHCheckVersion(char* agentLibraryPath, char* systemName) {
  if (!isHost1(systemName)) return nullptr;
  return startThread(std::strcmp(agentLibraryPath, "C:\\Agent\\vhagent") == 0 ? 4000 : 1000);
}

void QRV_CALL qrvNetOpGetSystem(char*) {}

int32_t QRV_CALL qrvRestartService(char* computer, char* service) {
  return isHost1(computer) && std::strcmp(service, "Varnhold Agent") == 0 ? -1 : 0;
}

int16_t QRV_CALL qrvChkRmtRegNGetPrgFilePath(char* computer, char* path) {
  if (!isHost1(computer) || !isEmpty(path, kQrvFolderSize)) return 0;
  write(path, "C:\\Program Files");
  return 1;
}

int32_t QRV_CALL qrvUpdateSystemDetailsInDB(QrvSystemDetails* details) {
  return std::strcmp(details->SystemName, "HOST1") == 0 && details->SystemType == 7 &&
         std::strcmp(details->ResolvedName, "host1.corp") == 0 && details->OSMajorVersion == 5;
}

int32_t QRV_CALL qrvInitDbConnection() {
  return 1;
}

int32_t QRV_CALL qrvCloseDbConnection() {
  return 1;
}

int32_t QRV_CALL qrvNetworkEnum(QrvThread* thread) {
  *thread = startThread(1000);
  return 1;
}

namespace {

uint8_t storedMode = 77;
bool hasMode = false;

}  // namespace

/// The byte is written also when there is no mode, as no caller may rely on it then.
int16_t QRV_CALL qrvGetNetAccessMode(uint8_t* mode) {
  *mode = storedMode;
  return hasMode ? -1 : 0;
}

/// Takes every mode but 255; 254 is as if there had never been one.
int16_t QRV_CALL qrvSetNetAccessMode(uint8_t mode) {
  if (mode == 255) return 0;
  storedMode = mode;
  hasMode = mode != 254;
  return -1;
}

int32_t QRV_CALL qrvCheckIfBelongsToSubnet(char* address, char* subnet) {
  return std::strcmp(address, "10.1.1.11") == 0 && std::strcmp(subnet, "10.1.1.0") == 0 ? 2 : 0;
}
